#include "tests/support/FakeFileManager.h"

#include "tests/support/FakeFileNode.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace nookwise {
namespace {

constexpr int mostLinks = 40;

FileError failure(std::errc code, const FileUrl& url, std::string operation) {
    return {std::make_error_code(code), url, std::move(operation)};
}

bool isHidden(std::string_view name) {
    return name.starts_with('.');
}

}  // namespace

struct FakeFileManager::Enumeration {
    const EnumerationRules& rules;
    const std::function<void(FoundFile&&)>& found;
    const std::stop_token& stop;
};

/// Reads what the file holds at the moment of the read, as a disk does.
class FakeFileManager::Reader : public FileReader {
  public:
    Reader(const FakeFileManager& files, NodePointer node, FileUrl url)
        : files_(files), node_(std::move(node)), url_(std::move(url)) {}

    Result<State> state() const override {
        files_.announce(FakeOperation::Kind::state, url_);
        const std::lock_guard lock(files_.mutex_);
        return node_->state;
    }

    Result<std::size_t> read(std::span<std::byte> buffer) override {
        files_.announce(FakeOperation::Kind::read, url_);
        const std::lock_guard lock(files_.mutex_);
        const auto size = static_cast<std::uint64_t>(node_->state.size);
        if (position_ >= size) return std::size_t{0};
        const auto count =
            static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), size - position_));
        std::fill_n(buffer.begin(), count, std::byte{0});
        if (position_ < node_->contents.size()) {
            const auto stored = std::string_view(node_->contents)
                                    .substr(static_cast<std::size_t>(position_), count);
            std::memcpy(buffer.data(), stored.data(), stored.size());
        }
        position_ += count;
        return count;
    }

  private:
    const FakeFileManager& files_;
    NodePointer node_;
    FileUrl url_;
    std::uint64_t position_ = 0;
};

FakeFileManager::FakeFileManager() : figures_(VolumeFigures{}) {
    root_ = std::make_shared<Node>();
    root_->attributes.type = FileType::folder;
    root_->state.identity = {1, ++lastInode_};
}

FakeFileManager::~FakeFileManager() = default;

void FakeFileManager::addFile(std::string_view path, FakeFile file) {
    const std::lock_guard lock(mutex_);
    const auto node = make(path);
    const auto size = file.size.value_or(static_cast<std::int64_t>(file.contents.size()));
    node->attributes = {FileType::regular, file.cloud, file.allocated.value_or(size), size,
                        file.modified,     file.added};
    node->state.size = size;
    node->state.modified = file.modified.value_or(Date{});
    node->contents = std::move(file.contents);
}

void FakeFileManager::addFolder(std::string_view path) {
    const std::lock_guard lock(mutex_);
    makeFolders(path);
}

void FakeFileManager::addPackage(std::string_view path, FakeFile file) {
    addFile(path, std::move(file));
    const std::lock_guard lock(mutex_);
    existing(path)->attributes.type = FileType::package;
}

void FakeFileManager::addOther(std::string_view path) {
    const std::lock_guard lock(mutex_);
    make(path)->attributes.type = FileType::other;
}

void FakeFileManager::addLink(std::string_view path, std::string_view target) {
    const std::lock_guard lock(mutex_);
    const auto node = make(path);
    node->attributes.type = FileType::other;
    node->target = target;
}

void FakeFileManager::addHardLink(std::string_view path, std::string_view existingPath) {
    const std::lock_guard lock(mutex_);
    const auto node = existing(existingPath);
    ++node->state.linkCount;
    put(path, node);
}

void FakeFileManager::addBindMount(std::string_view path, std::string_view existingPath) {
    const std::lock_guard lock(mutex_);
    put(path, existing(existingPath));
}

void FakeFileManager::remove(std::string_view path) {
    const std::lock_guard lock(mutex_);
    const FileUrl url(path);
    existing(path);
    existing(url.parentPath())->entries.erase(std::string(url.lastPathComponent()));
}

void FakeFileManager::makeUnreadable(std::string_view path) {
    const std::lock_guard lock(mutex_);
    existing(path)->readable = false;
}

void FakeFileManager::setAttributes(std::string_view path, FileAttributes attributes) {
    const std::lock_guard lock(mutex_);
    existing(path)->attributes = attributes;
}

void FakeFileManager::setContents(std::string_view path, std::string contents) {
    const std::lock_guard lock(mutex_);
    const auto node = existing(path);
    node->contents = std::move(contents);
    node->state.size = static_cast<std::int64_t>(node->contents.size());
}

void FakeFileManager::setModified(std::string_view path, Date modified) {
    const std::lock_guard lock(mutex_);
    const auto node = existing(path);
    node->attributes.modified = modified;
    node->state.modified = modified;
}

void FakeFileManager::setVolumeFigures(std::optional<VolumeFigures> figures) {
    const std::lock_guard lock(mutex_);
    figures_ = figures;
}

void FakeFileManager::onOperation(std::function<void(const FakeOperation&)> observer) {
    observer_ = std::move(observer);
}

void FakeFileManager::announce(FakeOperation::Kind kind, const FileUrl& url) const {
    const int number = ++operations_;
    if (observer_) observer_({number, kind, url});
}

FakeFileManager::NodePointer FakeFileManager::make(std::string_view path) {
    auto node = std::make_shared<Node>();
    node->state.identity = {1, ++lastInode_};
    put(path, node);
    return node;
}

FakeFileManager::NodePointer FakeFileManager::makeFolders(std::string_view path) {
    if (path == "/") return root_;
    if (auto there = find(path)) return there;
    const auto node = make(path);
    node->attributes.type = FileType::folder;
    return node;
}

void FakeFileManager::put(std::string_view path, NodePointer node) {
    const FileUrl url(path);
    makeFolders(url.parentPath());
    std::string parentPath(url.parentPath());
    const auto parent = follow(parentPath);
    if (parent == nullptr || !parent->holdsEntries())
        throw std::logic_error("not a folder: " + parentPath);
    parent->entries.insert_or_assign(std::string(url.lastPathComponent()), std::move(node));
}

FakeFileManager::NodePointer FakeFileManager::find(std::string_view path) const {
    if (path == "/") return root_;
    const FileUrl url(path);
    std::string parentPath(url.parentPath());
    const auto parent = parentPath.empty() ? nullptr : follow(parentPath);
    if (parent == nullptr) return nullptr;
    const auto entry = parent->entries.find(url.lastPathComponent());
    return entry == parent->entries.end() ? nullptr : entry->second;
}

FakeFileManager::NodePointer FakeFileManager::existing(std::string_view path) const {
    auto node = find(path);
    if (node == nullptr) throw std::logic_error("nothing at " + std::string(path));
    return node;
}

FakeFileManager::NodePointer FakeFileManager::follow(std::string& path) const {
    std::string target;
    std::string_view rest = path;
    std::string real;
    auto node = root_;
    int links = 0;
    while (!rest.empty()) {
        const auto name = rest.substr(0, rest.find('/'));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        if (name.empty()) continue;
        const auto entry = node->entries.find(name);
        if (entry == node->entries.end()) return nullptr;
        if (entry->second->isLink()) {
            if (++links > mostLinks) return nullptr;
            const auto& link = entry->second->target;
            target = (link.starts_with('/') ? link : real + "/" + link) + "/" + std::string(rest);
            rest = target;
            real.clear();
            node = root_;
        } else {
            real += '/';
            real += name;
            node = entry->second;
        }
    }
    path = real.empty() ? "/" : real;
    return node;
}

std::vector<std::string> FakeFileManager::entryNames(const FileUrl& folder) const {
    const std::lock_guard lock(mutex_);
    std::string path(folder.path());
    const auto node = follow(path);
    std::vector<std::string> names;
    if (node == nullptr || !node->readable) return names;
    for (const auto& [name, entry] : node->entries) names.push_back(name);
    return names;
}

Result<std::monostate> FakeFileManager::enumerate(const FileUrl& root,
                                                  const EnumerationRules& rules,
                                                  const std::function<void(FoundFile&&)>& found,
                                                  std::stop_token stop) const {
    announce(FakeOperation::Kind::enumerate, root);
    {
        const std::lock_guard lock(mutex_);
        std::string path(root.path());
        const auto node = follow(path);
        if (node == nullptr) return failure(std::errc::no_such_file_or_directory, root, "list");
        if (!node->holdsEntries()) return failure(std::errc::not_a_directory, root, "list");
        if (!node->readable) return failure(std::errc::permission_denied, root, "list");
    }
    enumerateFolder({rules, found, stop}, root);
    return std::monostate{};
}

void FakeFileManager::enumerateFolder(const Enumeration& enumeration, const FileUrl& folder) const {
    for (const auto& name : entryNames(folder)) {
        if (enumeration.stop.stop_requested()) return;
        if (!isHidden(name)) enumerateEntry(enumeration, folder.append(name));
    }
}

void FakeFileManager::enumerateEntry(const Enumeration& enumeration, const FileUrl& url) const {
    announce(FakeOperation::Kind::entry, url);
    if (enumeration.stop.stop_requested()) return;
    FileAttributes attributes;
    {
        const std::lock_guard lock(mutex_);
        const auto node = find(url.path());
        if (node == nullptr) return;
        attributes = node->attributes;
    }
    if (attributes.type == FileType::folder) {
        if (!isSkipped(enumeration, url)) enumerateFolder(enumeration, url);
    } else if (attributes.type != FileType::other) {
        enumeration.found({url, attributes});
    }
}

bool FakeFileManager::isSkipped(const Enumeration& enumeration, const FileUrl& folder) const {
    const auto& rules = enumeration.rules;
    if (rules.skipsFolder && rules.skipsFolder(folder)) return true;
    announce(FakeOperation::Kind::folder, folder);
    const auto names = entryNames(folder);
    const std::vector<std::string_view> views(names.begin(), names.end());
    return rules.skipsFolderHolding && rules.skipsFolderHolding(views);
}

Result<std::vector<FoundFile>> FakeFileManager::list(const FileUrl& folder,
                                                     std::stop_token stop) const {
    announce(FakeOperation::Kind::list, folder);
    const std::lock_guard lock(mutex_);
    std::string path(folder.path());
    const auto node = follow(path);
    if (node == nullptr) return failure(std::errc::no_such_file_or_directory, folder, "list");
    if (!node->holdsEntries()) return failure(std::errc::not_a_directory, folder, "list");
    if (!node->readable) return failure(std::errc::permission_denied, folder, "list");
    if (stop.stop_requested()) return failure(std::errc::operation_canceled, folder, "list");
    std::vector<FoundFile> found;
    for (const auto& [name, entry] : node->entries) {
        if (isHidden(name)) continue;
        auto attributes = entry->attributes;
        if (attributes.type == FileType::package) {
            attributes.allocatedSize.reset();
            attributes.fileSize.reset();
        }
        found.push_back({folder.append(name), attributes});
    }
    return found;
}

Result<FileAttributes> FakeFileManager::attributes(const FileUrl& url,
                                                   std::stop_token stop) const {
    announce(FakeOperation::Kind::attributes, url);
    if (stop.stop_requested()) return failure(std::errc::operation_canceled, url, "attributes");
    const std::lock_guard lock(mutex_);
    const auto node = find(url.path());
    if (node == nullptr) return failure(std::errc::no_such_file_or_directory, url, "attributes");
    return node->attributes;
}

Result<FileUrl> FakeFileManager::resolved(const FileUrl& url) const {
    announce(FakeOperation::Kind::resolved, url);
    const std::lock_guard lock(mutex_);
    std::string path(url.path());
    if (follow(path) == nullptr)
        return failure(std::errc::no_such_file_or_directory, url, "resolve");
    return FileUrl(path);
}

Result<std::unique_ptr<FileReader>> FakeFileManager::open(const FileUrl& url) const {
    announce(FakeOperation::Kind::open, url);
    const std::lock_guard lock(mutex_);
    const auto node = find(url.path());
    if (node == nullptr) return failure(std::errc::no_such_file_or_directory, url, "open");
    if (node->attributes.type != FileType::regular)
        return failure(std::errc::invalid_argument, url, "open");
    if (!node->readable) return failure(std::errc::permission_denied, url, "open");
    return std::unique_ptr<FileReader>(std::make_unique<Reader>(*this, node, url));
}

Result<VolumeFigures> FakeFileManager::volumeFigures(const FileUrl& url) const {
    announce(FakeOperation::Kind::volumeFigures, url);
    const std::lock_guard lock(mutex_);
    if (!figures_) return failure(std::errc::io_error, url, "volume figures");
    return *figures_;
}

bool FakeFileManager::exists(const FileUrl& url) const {
    announce(FakeOperation::Kind::exists, url);
    const std::lock_guard lock(mutex_);
    return find(url.path()) != nullptr;
}

}  // namespace nookwise
