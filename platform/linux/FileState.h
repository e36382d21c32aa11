// What tells whether a file is still the one that was seen before.
#pragma once

#include <cstdint>

#include <sys/stat.h>

namespace nookwise {

struct FileState {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t linkCount = 1;
    std::int64_t size = 0;
    /// Of 512 bytes.
    std::int64_t blocks = 0;
    /// Type and permissions.
    mode_t mode = 0;
    uid_t owner = 0;
    gid_t group = 0;
    timespec accessed{};
    timespec modified{};
    timespec changed{};
    /// Another file system, or another part of this one, begins here.
    bool isMountPoint = false;
    /// The owner set it to stay as it is, or only to grow.
    bool isLocked = false;

    bool isFolder() const { return S_ISDIR(mode); }
    bool isRegular() const { return S_ISREG(mode); }
};

/// The state of `name` in an open folder, of a link itself; of the open file `folder` when `name`
/// is empty. False with errno set.
bool readState(int folder, const char* name, FileState& state);

/// Whether both were taken of one file.
bool isSameFile(const FileState& a, const FileState& b);

/// Whether it also has the same contents, by its size and the time of its last modification.
bool hasSameContents(const FileState& a, const FileState& b);

/// Whether nothing at all was done to it in between, not even to its name, permissions or extended
/// attributes. Reading it does not count.
bool isUnchanged(const FileState& a, const FileState& b);

}  // namespace nookwise
