#include "tests/support/FakeFileManager.h"
#include "tests/support/FakeFileNode.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

constexpr std::int64_t copiedAtOnce = 4LL << 20U;

FileError failure(std::errc code, const FileUrl& url, const char* operation) {
    return {std::make_error_code(code), url, operation};
}

}  // namespace

struct FakeFileManager::Placement {
    NodePointer file;
    NodePointer folder;
};

void FakeFileManager::forbidChanges(std::string_view path) {
    const std::lock_guard lock(mutex_);
    unchangeable_.emplace_back(path);
}

std::string FakeFileManager::contents(std::string_view path) const {
    const std::lock_guard lock(mutex_);
    return existing(path)->contents;
}

std::optional<FileError> FakeFileManager::refusal(const FileUrl& url, const char* operation) const {
    for (const auto& place : unchangeable_) {
        if (url.isWithin(place)) return failure(std::errc::permission_denied, url, operation);
    }
    return std::nullopt;
}

Result<FakeFileManager::Placement> FakeFileManager::placement(const FileUrl& from,
                                                              const FileUrl& to,
                                                              const char* operation) const {
    if (auto refused = refusal(to, operation)) return *refused;
    auto file = find(from.path());
    std::string folderPath(to.parentPath());
    auto folder = follow(folderPath);
    if (file == nullptr || folder == nullptr)
        return failure(std::errc::no_such_file_or_directory, from, operation);
    if (!folder->holdsEntries()) return failure(std::errc::not_a_directory, to, operation);
    if (folder->entries.contains(to.lastPathComponent()))
        return failure(std::errc::file_exists, to, operation);
    if (FileUrl(folderPath).isWithin(from))
        return failure(std::errc::invalid_argument, to, operation);
    return Placement{std::move(file), std::move(folder)};
}

Result<std::monostate> FakeFileManager::createFolder(const FileUrl& url, FolderAccess) {
    announce(FakeOperation::Kind::createFolder, url);
    const std::lock_guard lock(mutex_);
    std::string path(url.path());
    if (const auto there = follow(path)) {
        if (there->holdsEntries()) return std::monostate{};
        return failure(std::errc::file_exists, url, "create");
    }
    if (auto refused = refusal(url, "create")) return *refused;
    makeFolders(url.path());
    return std::monostate{};
}

void FakeFileManager::makeVolume(std::string_view path) {
    const std::lock_guard lock(mutex_);
    volumes_.emplace_back(path);
}

std::string_view FakeFileManager::volumeOf(const FileUrl& url) const {
    std::string_view innermost;
    for (const auto& volume : volumes_) {
        if (url.isWithin(volume) && volume.path().size() > innermost.size())
            innermost = volume.path();
    }
    return innermost;
}

std::int64_t FakeFileManager::bytesIn(const Node& node) {
    std::int64_t bytes = node.holdsEntries() || node.isLink() ? 0 : node.state.size;
    for (const auto& [name, entry] : node.entries) bytes += bytesIn(*entry);
    return bytes;
}

bool FakeFileManager::tellCopying(const FileUrl& from, std::int64_t bytes,
                                  const CopyWatch& watch) const {
    auto left = bytes;
    if (watch.planned) watch.planned(left);
    for (; left > 0 && !watch.stop.stop_requested(); left -= copiedAtOnce) {
        announce(FakeOperation::Kind::copyPiece, from);
        if (watch.copied) watch.copied(std::min(left, copiedAtOnce));
    }
    return !watch.stop.stop_requested();
}

Result<std::monostate> FakeFileManager::move(const FileUrl& from, const FileUrl& to,
                                             const CopyWatch& watch) {
    announce(FakeOperation::Kind::move, from);
    if (watch.stop.stop_requested()) return failure(std::errc::operation_canceled, from, "move");
    std::unique_lock lock(mutex_);
    if (auto refused = refusal(from, "move")) return *refused;
    auto placed = placement(from, to, "move");
    if (!placed) return placed.error();
    if (volumeOf(from) != volumeOf(to)) {
        const auto bytes = bytesIn(*placed.value().file);
        lock.unlock();
        if (!tellCopying(from, bytes, watch))
            return failure(std::errc::operation_canceled, from, "move");
        lock.lock();
        placed = placement(from, to, "move");
        if (!placed) return placed.error();
    }
    existing(from.parentPath())->entries.erase(std::string(from.lastPathComponent()));
    placed.value().folder->entries.emplace(to.lastPathComponent(), placed.value().file);
    return std::monostate{};
}

Result<std::monostate> FakeFileManager::copy(const FileUrl& from, const FileUrl& to,
                                             const CopyWatch& watch) {
    announce(FakeOperation::Kind::copy, from);
    std::unique_lock lock(mutex_);
    auto placed = placement(from, to, "copy");
    if (!placed) return placed.error();
    if (!placed.value().file->readable) return failure(std::errc::permission_denied, from, "copy");
    const auto bytes = bytesIn(*placed.value().file);
    lock.unlock();
    if (!tellCopying(from, bytes, watch))
        return failure(std::errc::operation_canceled, from, "copy");
    lock.lock();
    placed = placement(from, to, "copy");
    if (!placed) return placed.error();
    auto node = std::make_shared<Node>(*placed.value().file);
    node->state.identity.inode = ++lastInode_;
    node->state.linkCount = 1;
    placed.value().folder->entries.emplace(to.lastPathComponent(), std::move(node));
    return std::monostate{};
}

Result<std::optional<FileUrl>> FakeFileManager::trash(const FileUrl& url) {
    announce(FakeOperation::Kind::trash, url);
    const std::lock_guard lock(mutex_);
    if (auto refused = refusal(url, "trash")) return *refused;
    auto node = find(url.path());
    if (node == nullptr) return failure(std::errc::no_such_file_or_directory, url, "trash");
    const std::string name(url.lastPathComponent());
    auto place = FileUrl("/Trash").append(name);
    for (int number = 2; find(place.path()) != nullptr; ++number)
        place = FileUrl("/Trash").append(name + " " + std::to_string(number));
    existing(url.parentPath())->entries.erase(name);
    put(place.path(), std::move(node));
    return tellsTrashPlaces_ ? std::optional(place) : std::nullopt;
}

std::optional<FileError> FakeFileManager::obstacleToReplacing(const FileUrl& url) const {
    const std::lock_guard lock(mutex_);
    if (auto refused = refusal(url, "write")) return refused;
    std::string folder(url.parentPath());
    if (follow(folder) == nullptr)
        return failure(std::errc::no_such_file_or_directory, url, "write");
    const auto node = find(url.path());
    if (node != nullptr && node->attributes.type != FileType::regular && node->holdsEntries())
        return failure(std::errc::is_a_directory, url, "write");
    return std::nullopt;
}

Result<std::monostate> FakeFileManager::replaceContents(const FileUrl& url,
                                                        const ContentsSource& contents) {
    announce(FakeOperation::Kind::replaceContents, url);
    if (auto obstacle = obstacleToReplacing(url)) return *obstacle;
    std::string made;
    const auto take = [&](std::string_view bytes) {
        made += bytes;
        return made.size() <= roomForContents_;
    };
    const bool isComplete = contents(take);
    if (made.size() > roomForContents_) return failure(std::errc::no_space_on_device, url, "write");
    if (!isComplete) return failure(std::errc::operation_canceled, url, "write");
    if (auto obstacle = obstacleToReplacing(url)) return *obstacle;
    const std::lock_guard lock(mutex_);
    auto node = find(url.path());
    if (node == nullptr) node = make(url.path());
    node->attributes.type = FileType::regular;
    node->state.size = static_cast<std::int64_t>(made.size());
    node->contents = std::move(made);
    return std::monostate{};
}

void FakeFileManager::removeLeftovers(const std::stop_token&) {
    announce(FakeOperation::Kind::removeLeftovers, FileUrl("/"));
}

}  // namespace nookwise
