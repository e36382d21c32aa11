#include "platform/linux/Environment.h"
#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/NewFolder.h"
#include "platform/linux/OwnFile.h"
#include "platform/linux/Transfer.h"

namespace nookwise {

LinuxFileManager::LinuxFileManager() : LinuxFileManager(baseFolders(processEnvironment).dataHome) {}

LinuxFileManager::LinuxFileManager(const FileUrl& dataHome)
    : ownFolder_(dataHome.append("Nookwise")),
      trash_(dataHome.append("Trash")),
      unfinished_(ownFolder_.append("unfinished")) {}

Result<std::monostate> LinuxFileManager::createFolder(const FileUrl& url, FolderAccess access) {
    return makeFolder(url, access);
}

Result<std::monostate> LinuxFileManager::move(const FileUrl& from, const FileUrl& to,
                                              const CopyWatch& watch) {
    auto moved = moveItem(from, to, unfinished_, watch);
    if (moved) trash_.forget(from);
    return moved;
}

Result<std::monostate> LinuxFileManager::copy(const FileUrl& from, const FileUrl& to,
                                              const CopyWatch& watch) {
    return copyItem(from, to, unfinished_, watch);
}

Result<std::optional<FileUrl>> LinuxFileManager::trash(const FileUrl& url) {
    auto trashed = trash_.trash(url);
    if (!trashed) return trashed.error();
    return std::optional(std::move(trashed.value()));
}

Result<std::monostate> LinuxFileManager::replaceContents(const FileUrl& url,
                                                         const ContentsSource& contents) {
    return replaceOwnFile(url, contents);
}

void LinuxFileManager::removeLeftovers(const std::stop_token& stop) {
    removeUnfinishedReplacements(ownFolder_);
    // What was on its way out of the Trash may go back there, and needs its description then.
    unfinished_.removeRecorded();
    if (!stop.stop_requested()) trash_.removeLeftovers(stop);
}

}  // namespace nookwise
