#include "tests/faults/World.h"

#include "fileops/ActivityJson.h"
#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/TrashInfo.h"
#include "platform/linux/UnfinishedRecord.h"
#include "tests/changes/Snapshot.h"
#include "tests/faults/Grounds.h"
#include "tests/faults/ItemFiles.h"
#include "tests/faults/SavedLog.h"

#include <array>
#include <ctime>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

// In the form of names that the application makes, but not known to it.
constexpr auto unknownTemporary = ".nookwise-0123456789abcdef0123456789abcdef.part";
constexpr auto recordName = "00000000000000000000000000000001";
constexpr auto hiddenRecordName = "00000000000000000000000000000002";
constexpr auto emptyRecordName = "00000000000000000000000000000003";

std::string description(std::string_view path, std::string_view run) {
    std::tm deleted{};
    deleted.tm_year = 120;
    deleted.tm_mday = 1;
    return trashInfo(path, deleted, run);
}

std::string anothersDescription(const std::string& path) {
    return "[Trash Info]\nPath=" + path + "\nDeletionDate=2020-01-01T00:00:00\n";
}

}  // namespace

std::string infoOf(const fs::path& trash, std::string_view name) {
    return trash / "info" / std::string(name).append(trashInfoExtension);
}

World::World(const Scenario& given) : scenario(given) {
    place();
    writeBystanders();
    writeItem();
    if (scenario.operation == Operation::recover) writeLeftovers();
}

World::~World() {
    clear(grounds().near);
    if (!grounds().far.empty()) clear(grounds().far);
}

void World::place() {
    const auto& near = grounds().near;
    const auto& far = scenario.volumes == Volumes::two ? grounds().far : near;
    dataHome = near / "data";
    trash = dataHome / "Trash";
    from = near / "home" / nameOf(scenario.item).whole();
    const auto target = far / "target";
    switch (scenario.operation) {
        case Operation::move:
        case Operation::copy:
        case Operation::cancelledMove:
        case Operation::cancelledCopy:
            to = target / nameOf(scenario.item).whole();
            break;
        case Operation::rename:
            to = near / "home" / nameOf(scenario.item).with(" renamed");
            break;
        case Operation::trash:
            placeTrash();
            break;
        case Operation::putBack:
            placePutBack();
            break;
        case Operation::save:
        case Operation::recover:
            break;
    }
}

/// A file comes into a Trash that is not there yet, a folder into one where its name is taken.
void World::placeTrash() {
    recordedPath = from;
    if (scenario.volumes == Volumes::two) {
        trash = grounds().far / (".Trash-" + std::to_string(::geteuid()));
        from = grounds().far / "target" / nameOf(scenario.item).whole();
        recordedPath = from.lexically_relative(grounds().far);
    }
    to = trash / "files" / nameOf(scenario.item).with(scenario.item == Item::file ? "" : " (2)");
}

/// A file's name is taken, a folder's folder is gone.
void World::placePutBack() {
    const auto& former = scenario.volumes == Volumes::two ? grounds().far : grounds().near;
    const auto name = nameOf(scenario.item);
    from = trash / "files" / name.with(" (2)");
    const bool isFile = scenario.item == Item::file;
    const auto folder = isFile ? former / "target" : former / "target" / "gone" / "for good";
    original_ = folder / name.whole();
    to = folder / name.with(isFile ? " (2)" : "");
    recordedPath = original_;
}

void World::writeItem() const {
    fs::create_directories(from.parent_path());
    if (scenario.operation == Operation::putBack)
        writeFile(infoOf(trash, from.filename().native()), description(recordedPath, "earlier"));
    writeItemAt(from, scenario.item);
    if (grounds().keepAttributes) ::setxattr(from.c_str(), "user.note", "kept", 4, 0);
}

void World::writeBystanders() const {
    const auto name = nameOf(scenario.item);
    fs::create_directories(grounds().near / "home");
    std::set<fs::path> folders{grounds().near / "home", grounds().near / "target"};
    if (scenario.volumes == Volumes::two) folders.insert(grounds().far / "target");
    for (const auto& folder : folders) {
        writeFile(folder / name.with(" (3)"), "a bystander");
        writeFile(folder / name.with("x"), "another bystander");
        writeFile(folder / unknownTemporary, "the user's own");
        writeFile(folder / ".nookwise-notes.part", "the user's own, too");
    }
    if (scenario.operation == Operation::putBack && scenario.item == Item::file)
        writeFile(original_, "in the way");
    writeFile(dataHome / "Nookwise" / "activity.json", activityJson(logOf(entriesBefore)));
    ::chmod((dataHome / "Nookwise" / "activity.json").c_str(), 0600);
    writeFile(dataHome / "Nookwise" / "settings.ini", "[General]\n");
    if (scenario.operation != Operation::trash || scenario.item == Item::folder)
        writeTrashBystanders();
}

void World::writeTrashBystanders() const {
    const auto name = nameOf(scenario.item).whole();
    writeFile(trash / "files" / name, "trashed long ago");
    writeFile(infoOf(trash, name), anothersDescription("/home/user/trashed"));
    writeFile(infoOf(trash, "of nothing"), anothersDescription("/home/user/nothing"));
    writeFile(trash / "files" / "Old" / "file", "old");
    writeFile(infoOf(trash, "Old"), anothersDescription("/home/user/Old"));
    writeFile(trash / "directorysizes", "4096 1577836800 Old\n");
}

void World::writeLeftovers() {
    const auto records = dataHome / "Nookwise" / "unfinished";
    const auto home = from.parent_path();
    const auto partial = home / temporaryName(recordName);
    const auto hidden = home / temporaryName(hiddenRecordName);
    writeFile(partial / "sub" / "file", "the beginning of a co");
    writeFile(hidden, "what was moved to another volume");
    struct stat status {};
    ::lstat(hidden.c_str(), &status);
    writeFile(records / recordName, encoded({FileUrl(partial.native()), std::nullopt}));
    writeFile(records / hiddenRecordName, encoded({FileUrl(hidden.native()), status.st_ino}));
    writeFile(records / emptyRecordName, "");
    const auto unfinishedLog =
        dataHome / "Nookwise" / (std::string(".nookwise-") + recordName + ".new");
    writeFile(unfinishedLog, "[{\"id\":");
    const auto unfinishedSizes = trash / ".directorysizes-nookwise-1";
    writeFile(unfinishedSizes, "4096 15778");
    writeFile(infoOf(trash, "never came"), description("/home/user/never came", "earlier"));
    leftovers = {partial,
                 partial / "sub",
                 partial / "sub" / "file",
                 hidden,
                 records / recordName,
                 records / hiddenRecordName,
                 records / emptyRecordName,
                 unfinishedLog,
                 unfinishedSizes,
                 infoOf(trash, "never came")};
}

Command World::worker() const {
    constexpr std::array names{"move", "copy",    "move",          "trash",        "putback",
                               "save", "recover", "cancelledmove", "cancelledcopy"};
    Command command{NOOKWISE_FAULTS_WORKER, names[static_cast<std::size_t>(scenario.operation)],
                    dataHome};
    if (scenario.hasDestination()) command.push_back(from);
    if (scenario.operation == Operation::putBack) {
        command.push_back(original_);
    } else if (scenario.hasDestination() && scenario.operation != Operation::trash) {
        command.push_back(to);
    }
    if (scenario.operation == Operation::save) command.push_back(std::to_string(entriesSaved));
    return command;
}

Everything World::everything() const {
    Everything everything;
    for (const auto& ground : {grounds().near, grounds().far}) {
        if (ground.empty()) continue;
        for (const auto& [path, line] : snapshot(ground))
            if (!path.empty()) everything[ground / path] = line;
    }
    return everything;
}

void World::recover() const {
    LinuxFileManager(FileUrl(dataHome.native())).removeLeftovers({});
}

}  // namespace nookwise
