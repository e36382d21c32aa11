#include "platform/linux/Transfer.h"

#include "platform/linux/CopyTree.h"
#include "platform/linux/Failure.h"
#include "platform/linux/FreedLater.h"
#include "platform/linux/Publish.h"
#include "platform/linux/RemoveTree.h"

#include <cerrno>
#include <cstddef>
#include <string>
#include <utility>

#include <fcntl.h>

namespace nookwise {
namespace {

using Temporary = Unfinished::Temporary;

/// One name in an open folder.
class End {
  public:
    explicit End(const FileUrl& url)
        : url_(url),
          folder_(openPath(url.parentPath(), O_PATH | O_DIRECTORY)),
          name_(url.lastPathComponent()) {}

    /// False with errno set.
    bool isUsable() const {
        if (!folder_) return false;
        if (name_ != "/" && name_ != "." && name_ != "..") return true;
        errno = EINVAL;
        return false;
    }

    /// Only a folder that is open for reading can be made durable.
    bool openForSyncing() {
        FileDescriptor readable(::openat(folder_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!readable) return false;
        folder_ = std::move(readable);
        return true;
    }

    const FileUrl& url() const { return url_; }
    int folder() const { return folder_.get(); }
    const char* name() const { return name_.c_str(); }
    TreePlace place() const { return {folder(), name()}; }

  private:
    FileUrl url_;
    FileDescriptor folder_;
    std::string name_;
};

/// Runs `undo` and keeps the errno of what went wrong before it.
template <typename Undo>
void keepingReason(const Undo& undo) {
    const int reason = errno;
    undo();
    errno = reason;
}

/// Whether `inner` is the folder of the given state or below it. Links and mounts on the way count
/// as what they lead to.
bool isInside(int inner, const FileState& folder) {
    FileState state;
    if (!readState(inner, "", state)) return true;
    FileDescriptor current;
    while (!isSameFile(state, folder)) {
        FileDescriptor parent(::openat(inner, "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
        FileState parentState;
        if (!parent || !readState(parent.get(), "", parentState)) return true;
        if (isSameFile(state, parentState)) return false;
        current = std::move(parent);
        inner = current.get();
        state = parentState;
    }
    return true;
}

/// Back to the name it had. If that was taken meanwhile, it stays hidden rather than be lost, and
/// the next start tries again.
void putBack(int folder, Temporary& hidden, const char* name) {
    keepingReason([&] {
        if (!renameNoReplace(folder, hidden.name(), folder, name) &&
            !hidden.setUse(LeftoverUse::putBack))
            hidden.keep();
    });
}

/// Gives the file the temporary name, if nothing was done to it. Looked at before and after, when
/// the rename itself has counted as a change: what came in its place in between goes back.
bool hide(int folder, const char* name, const FileState& expected, Temporary& hidden) {
    FileState now;
    if (!readState(folder, name, now)) return false;
    if (isUnchanged(expected, now)) {
        if (!renameNoReplace(folder, name, folder, hidden.name())) return false;
        if (readState(folder, hidden.name(), now) && hasSameContents(expected, now)) return true;
        putBack(folder, hidden, name);
    }
    errno = EBUSY;
    return false;
}

/// Removes a tree that was hidden. What others wrote into it before it is not removed, but put back
/// with all that is left. False with errno set while nothing of it is gone.
bool removeHidden(const Tree& tree, int folder, Temporary& hidden, const char* name) {
    const TreePlace place{folder, hidden.name()};
    std::size_t removed = 0;
    if (isTreeUnchanged(tree, place) && hidden.setUse(LeftoverUse::remove) &&
        removeListed(tree, place, removed))
        return true;
    // What merely resists is removed at the next start.
    if (removed == 0 || holdsUnlisted(tree, place)) putBack(folder, hidden, name);
    return removed > 0;
}

class Transfer {
  public:
    Transfer(const FileUrl& from, const FileUrl& to, const Unfinished& unfinished,
             const CopyWatch& watch)
        : from_(from), to_(to), unfinished_(unfinished), watched_(watch) {}

    Result<std::monostate> move() {
        if (!isPossible() || !mayGoOn(watched_.stop())) return failed("move");
        if (renameNoReplace(from_.folder(), from_.name(), to_.folder(), to_.name()) ||
            (errno == EXDEV && moveAcross()))
            return std::monostate{};
        return failed("move");
    }

    Result<std::monostate> copy() {
        if (!isPossible() || !makeCopy()) return failed("copy");
        return std::monostate{};
    }

  private:
    FileError failed(const char* operation) const {
        return failure(errno == EEXIST ? to_.url() : from_.url(), operation);
    }

    bool isPossible() const {
        FileState source;
        if (!from_.isUsable() || !to_.isUsable() ||
            !readState(from_.folder(), from_.name(), source))
            return false;
        if (!source.isFolder()) return true;
        const auto inner = to_.url().standardized();
        const auto outer = from_.url().standardized();
        if (inner == outer || (!inner.isWithin(outer) && !isInside(to_.folder(), source)))
            return true;
        errno = EINVAL;
        return false;
    }

    bool isDestinationFree() const {
        FileState taken;
        if (!readState(to_.folder(), to_.name(), taken)) return errno == ENOENT;
        errno = EEXIST;
        return false;
    }

    /// All that can be found out before anything is written.
    std::optional<Temporary> prepare() {
        if (!isDestinationFree() || !to_.openForSyncing()) return std::nullopt;
        auto temporary = unfinished_.temporaryForCopy(to_.url(), to_.folder());
        if (!temporary || !listTree(from_.place(), TreeUse::copying, tree_, watched_.stop()) ||
            !isCopyable(tree_))
            return std::nullopt;
        return temporary;
    }

    bool makeCopy() {
        auto temporary = prepare();
        return temporary && publish(*temporary);
    }

    bool moveAcross() {
        if (!from_.openForSyncing()) return false;
        auto temporary = prepare();
        if (!temporary || !mayRemove(tree_, from_.place()) || !publish(*temporary)) return false;
        if (removeSource()) return true;
        unpublish(*temporary);
        return false;
    }

    /// Nothing has the destination's name before the whole copy is durable and the source was seen
    /// to be as it was when copying began.
    bool publish(Temporary& temporary) {
        const TreePlace grown{to_.folder(), temporary.name()};
        if (!copyTree(tree_, from_.place(), grown, watched_) ||
            !isTreeUnchanged(tree_, from_.place()) ||
            !listTree(grown, TreeUse::copying, copy_, watched_.stop()) ||
            !mayGoOn(watched_.stop()) ||
            !renameNoReplace(to_.folder(), temporary.name(), to_.folder(), to_.name()))
            return false;
        noticePublishing();
        if (syncFolder(to_.folder())) return true;
        unpublish(temporary);
        return false;
    }

    /// The rename was a change of the copy's root, which must not be taken for another's.
    void noticePublishing() {
        auto& root = copy_.front().state;
        FileState now;
        if (readState(to_.folder(), to_.name(), now) && hasSameContents(root, now)) root = now;
    }

    /// The copy gets its temporary name again and is removed, but not what others wrote into it.
    void unpublish(Temporary& temporary) const {
        keepingReason([&] {
            if (temporary.setUse(LeftoverUse::putBack) &&
                hide(to_.folder(), to_.name(), copy_.front().state, temporary))
                removeHidden(copy_, to_.folder(), temporary, to_.name());
        });
    }

    /// The source is taken away with one rename, which succeeds or changes nothing; only what has
    /// left its name is removed. False with errno set while all of the source is at its name.
    bool removeSource() const {
        const auto& root = tree_.front().state;
        const FreedLater source(from_.folder(), from_.name(), root.isFolder() ? 0 : root.size);
        auto hidden = unfinished_.temporaryForSource(from_.url(), from_.folder(), root.inode);
        if (!hidden || !hide(from_.folder(), from_.name(), root, *hidden) ||
            !removeHidden(tree_, from_.folder(), *hidden, from_.name()))
            return false;
        syncFolder(from_.folder());
        return true;
    }

    End from_;
    End to_;
    const Unfinished& unfinished_;
    WatchedCopy watched_;
    Tree tree_;
    /// The whole copy, as it was published.
    Tree copy_;
};

}  // namespace

Result<std::monostate> moveItem(const FileUrl& from, const FileUrl& to,
                                const Unfinished& unfinished, const CopyWatch& watch) {
    return Transfer(from, to, unfinished, watch).move();
}

Result<std::monostate> copyItem(const FileUrl& from, const FileUrl& to,
                                const Unfinished& unfinished, const CopyWatch& watch) {
    return Transfer(from, to, unfinished, watch).copy();
}

}  // namespace nookwise
