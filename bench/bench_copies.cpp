// Finding copies in a home of 20,000 files and 4.5 GB: time beside duplicate finders, and that the
// groups are the ones that were made.
#include "bench/Measure.h"
#include "bench/SampleTrees.h"
#include "platform/linux/LinuxFileManager.h"
#include "scan/DuplicateFinder.h"
#include "scan/Walk.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

using namespace nookwise;

namespace {

std::vector<DuplicateGroup> walkAndFindCopies(const std::string& home) {
    const LinuxFileManager files;
    std::vector<FileItem> items;
    const auto found = [&](FoundFile&& file) { items.push_back(fileItem(std::move(file))); };
    (void)files.enumerate(FileUrl(home), {}, found, {});
    return findDuplicates(files, items, {});
}

std::vector<std::vector<std::string>> pathsOf(const std::vector<DuplicateGroup>& groups) {
    std::vector<std::vector<std::string>> all;
    for (const auto& group : groups) {
        auto& paths = all.emplace_back();
        for (const auto& file : group.files) paths.emplace_back(file.url.path());
        std::sort(paths.begin(), paths.end());
    }
    std::sort(all.begin(), all.end());
    return all;
}

}  // namespace

int main() {
    const bench::WorkFolder work;
    const auto home = work.path().string();
    const auto made = bench::makeCopiesHome(home, 20'000, 4'500'000'000);
    std::printf("%d files, %.2f GB, %zu groups of copies\n", made.files,
                static_cast<double>(made.bytes) / 1e9, made.groups.size());
    if (pathsOf(walkAndFindCopies(home)) != made.groups) {
        std::fputs("the groups found are not the groups made\n", stderr);
        return 1;
    }
    std::vector<bench::Contestant> contestants{
        {"Nookwise, walk included", [&] { walkAndFindCopies(home); }}};
    const auto add = [&](std::vector<std::string> command) {
        if (!bench::isInstalled(command.front())) return;
        std::string name;
        for (const auto& word : command) name += word + " ";
        command.push_back(home);
        contestants.push_back({name, [command] { bench::runQuietly(command); }});
    };
    add({"jdupes", "-q", "-r", "-A", "-X", "size+=:65536"});
    add({"rmlint", "-o", "fdupes", "--size", "65536"});
    add({"fdupes", "-q", "-r", "-A", "-G", "65535"});
    const std::size_t base = contestants.size() > 1 ? 1 : 0;
    bench::printRatios("Copies, ratios to " + contestants[base].name, contestants,
                       bench::medians(contestants), base);
    const double peak = bench::peakMegabytes([&] { walkAndFindCopies(home); });
    std::printf("  peak memory, file list included %.0f MB\n", peak);
    return 0;
}
