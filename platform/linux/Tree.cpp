#include "platform/linux/Tree.h"

#include "platform/linux/FolderEntries.h"
#include "platform/linux/WatchedCopy.h"

#include <cerrno>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

FileDescriptor openForListing(TreeFolders& folders, std::size_t entry, TreeUse use) {
    auto opened = folders.open(entry);
    if (opened || errno != EACCES || use != TreeUse::removing) return opened;
    const int holding = folders.holding(entry);
    if (holding < 0 || ::fchmodat(holding, folders.name(entry), S_IRWXU, AT_SYMLINK_NOFOLLOW) != 0)
        return {};
    return folders.open(entry);
}

/// Adds what is in the folder at the given position.
bool listFolder(int folder, std::size_t position, TreeUse use, Tree& tree) {
    FolderEntries listing;
    if (!listing.read(folder, {})) return false;
    for (const auto& listed : listing.entries()) {
        TreeEntry entry{.parent = position, .name = std::string(listed.view())};
        if (!readState(folder, listed.name, entry.state)) return false;
        if (entry.state.isMountPoint && use == TreeUse::copying) {
            errno = EBUSY;
            return false;
        }
        tree.push_back(std::move(entry));
    }
    return true;
}

}  // namespace

bool listTree(TreePlace place, TreeUse use, Tree& tree, const std::stop_token& stop) {
    tree.assign(1, {});
    if (!readState(place.folder, place.name, tree.front().state)) return false;
    TreeFolders folders(tree, place);
    for (std::size_t i = 0; i < tree.size(); ++i) {
        if (!tree[i].state.isFolder()) continue;
        if (tree[i].state.isMountPoint && use == TreeUse::removing) continue;
        if (!mayGoOn(stop)) return false;
        const auto opened = openForListing(folders, i, use);
        if (opened && listFolder(opened.get(), i, use, tree)) continue;
        if (use == TreeUse::copying) return false;
    }
    return true;
}

bool isTreeUnchanged(const Tree& tree, TreePlace place) {
    TreeFolders folders(tree, place);
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const int holding = folders.holding(i);
        FileState now;
        if (holding < 0 || !readState(holding, folders.name(i), now)) return false;
        const auto isAsBefore = i == 0 ? hasSameContents : isUnchanged;
        if (!isAsBefore(tree[i].state, now)) {
            errno = EBUSY;
            return false;
        }
    }
    return true;
}

int TreeFolders::holding(std::size_t entry) {
    if (entry == 0) return place_.folder;
    const auto parent = tree_[entry].parent;
    if (!opened_ || openedEntry_ != parent) {
        opened_ = open(parent);
        openedEntry_ = parent;
    }
    return opened_.get();
}

const char* TreeFolders::name(std::size_t entry) const {
    return entry == 0 ? place_.name : tree_[entry].name.c_str();
}

FileDescriptor TreeFolders::open(std::size_t entry) {
    return openBelow(place_.folder, path(entry), O_RDONLY | O_DIRECTORY);
}

std::string TreeFolders::path(std::size_t entry) const {
    std::vector<std::string_view> names;
    for (; entry != 0; entry = tree_[entry].parent) names.emplace_back(tree_[entry].name);
    std::string path(place_.name);
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        path += '/';
        path += *name;
    }
    return path;
}

}  // namespace nookwise
