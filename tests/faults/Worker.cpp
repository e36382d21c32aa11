// Does one operation on real files:
//   faults_worker move|copy|cancelledmove|cancelledcopy|putback|carelessmove DATA_HOME FROM TO
//   faults_worker trash DATA_HOME FILE
//   faults_worker save DATA_HOME NUMBER_OF_ENTRIES
//   faults_worker recover DATA_HOME
// Ends with 0 when it reported success, with 1 when it reported failure, and with 2 when it was
// called wrongly.

#include "fileops/ActivityStore.h"
#include "fileops/TrashService.h"
#include "platform/linux/LinuxFileManager.h"
#include "tests/faults/SavedLog.h"

#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <unistd.h>

namespace nookwise {
namespace {

using Arguments = std::vector<std::string>;
using Operation = std::function<bool(LinuxFileManager&, const Arguments&)>;

enum class Verb { move, copy };

/// Whether it ended as it was asked to, when all bytes had been told.
bool cancel(LinuxFileManager& files, const Arguments& arguments, Verb verb) {
    std::stop_source stop;
    std::int64_t left = 0;
    const CopyWatch watch{.planned = [&](std::int64_t bytes) { left = bytes; },
                          .copied =
                              [&](std::int64_t bytes) {
                                  left -= bytes;
                                  if (left == 0) stop.request_stop();
                              },
                          .stop = stop.get_token()};
    const FileUrl from(arguments[2]);
    const FileUrl to(arguments[3]);
    const auto done =
        verb == Verb::move ? files.move(from, to, watch) : files.copy(from, to, watch);
    return !done && done.error().code == std::errc::operation_canceled;
}

bool putBack(LinuxFileManager& files, const Arguments& arguments) {
    const ActivityEntry::Move move{.original = FileUrl(arguments[3]),
                                   .inTrash = FileUrl(arguments[2])};
    return TrashService::putBack(files, {move}, [](std::size_t) {}).count == 1;
}

bool save(LinuxFileManager& files, const Arguments& arguments) {
    const auto entries = logOf(std::stoul(arguments[2]));
    ActivityStore(files, FileUrl(arguments[1]).append("Nookwise")).save(entries);
    return true;
}

/// What a test of the tests is to object to: between its two steps the file has neither name.
bool moveCarelessly(const std::string& from, const std::string& to) {
    const auto between = from + ".moving";
    return std::rename(from.c_str(), between.c_str()) == 0 &&
           std::rename(between.c_str(), to.c_str()) == 0;
}

struct Command {
    std::size_t arguments;
    Operation run;
};

const std::map<std::string, Command> commands{
    {"move",
     {4,
      [](auto& files, const auto& arguments) {
          return static_cast<bool>(files.move(FileUrl(arguments[2]), FileUrl(arguments[3])));
      }}},
    {"copy",
     {4,
      [](auto& files, const auto& arguments) {
          return static_cast<bool>(files.copy(FileUrl(arguments[2]), FileUrl(arguments[3])));
      }}},
    {"cancelledmove",
     {4, [](auto& files, const auto& arguments) { return cancel(files, arguments, Verb::move); }}},
    {"cancelledcopy",
     {4, [](auto& files, const auto& arguments) { return cancel(files, arguments, Verb::copy); }}},
    {"putback", {4, putBack}},
    {"carelessmove",
     {4, [](auto&, const auto& arguments) { return moveCarelessly(arguments[2], arguments[3]); }}},
    {"trash",
     {3,
      [](auto& files, const auto& arguments) {
          return static_cast<bool>(files.trash(FileUrl(arguments[2])));
      }}},
    {"save", {3, save}},
    {"recover",
     {2,
      [](auto& files, const auto&) {
          files.removeLeftovers({});
          return true;
      }}},
};

int run(const Arguments& arguments) {
    const auto command = arguments.empty() ? commands.end() : commands.find(arguments[0]);
    if (command == commands.end() || arguments.size() != command->second.arguments) return 2;
    LinuxFileManager files{FileUrl(arguments[1])};
    // Tells whoever traces this process where the operation begins.
    (void)::access("/nookwise-begin", F_OK);
    return command->second.run(files, arguments) ? 0 : 1;
}

}  // namespace
}  // namespace nookwise

int main(int count, char** arguments) {
    // Without what a process does to end well, which is no part of the operation.
    ::_exit(nookwise::run({arguments + 1, arguments + count}));
}
