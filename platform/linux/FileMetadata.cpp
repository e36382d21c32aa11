#include "platform/linux/FileMetadata.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace nookwise {
namespace {

constexpr std::array accessControlLists{"system.posix_acl_access", "system.posix_acl_default"};

/// Whether errno says that the file system keeps no such thing.
bool isUnsupported() {
    return errno == ENOTSUP || errno == ENOSYS;
}

/// Whether errno says that this user, or this file system, cannot have it so. EINVAL is an owner
/// that the file system cannot name.
bool isNotForUs() {
    return isUnsupported() || errno == EPERM || errno == EINVAL;
}

/// None with errno set.
std::optional<std::vector<std::string>> attributeNames(int file) {
    // Asked again when it grew in between.
    for (;;) {
        const auto needed = ::flistxattr(file, nullptr, 0);
        if (needed < 0) return std::nullopt;
        std::string list(static_cast<std::size_t>(needed), '\0');
        const auto length = needed == 0 ? 0 : ::flistxattr(file, list.data(), list.size());
        if (length < 0 && errno == ERANGE) continue;
        if (length < 0) return std::nullopt;
        list.resize(static_cast<std::size_t>(length));
        std::vector<std::string> names;
        for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1)
            names.emplace_back(list.c_str() + at);
        return names;
    }
}

/// None with errno set.
std::optional<std::string> attribute(int file, const char* name) {
    for (;;) {
        const auto needed = ::fgetxattr(file, name, nullptr, 0);
        if (needed < 0) return std::nullopt;
        std::string value(static_cast<std::size_t>(needed), '\0');
        const auto length = ::fgetxattr(file, name, value.data(), value.size());
        if (length < 0 && errno == ERANGE) continue;
        if (length < 0) return std::nullopt;
        value.resize(static_cast<std::size_t>(length));
        return value;
    }
}

bool isAccessControlList(std::string_view name) {
    return name == accessControlLists[0] || name == accessControlLists[1];
}

/// What the system keeps for itself is the destination's own affair.
bool mustBeKept(std::string_view name) {
    return name.starts_with("user.") || isAccessControlList(name);
}

/// False with errno set.
bool copyAttribute(int from, int to, const std::string& name) {
    const auto value = attribute(from, name.c_str());
    const bool isCopied = value
                              ? ::fsetxattr(to, name.c_str(), value->data(), value->size(), 0) == 0
                              : errno == ENODATA;
    return isCopied || isUnsupported() || !mustBeKept(name);
}

bool copyAttributes(int from, int to) {
    // A new file inherits lists from its folder that a moved one would not have.
    for (const auto* const list : accessControlLists)
        if (::fremovexattr(to, list) != 0 && errno != ENODATA && !isNotForUs()) return false;
    const auto names = attributeNames(from);
    if (!names) return isUnsupported();
    return std::all_of(names->begin(), names->end(),
                       [&](const auto& name) { return copyAttribute(from, to, name); });
}

/// Another owner must not get a program that runs with its owner's rights.
mode_t permissions(const FileState& state, bool isOwnerKept) {
    const mode_t all = state.mode & ALLPERMS;
    return isOwnerKept || state.isFolder() ? all : all & ~static_cast<mode_t>(S_ISUID | S_ISGID);
}

std::array<timespec, 2> times(const FileState& state) {
    return {state.accessed, state.modified};
}

}  // namespace

bool copyMetadata(int from, int to, const FileState& state) {
    // The owner first: changing it takes rights away again. The permissions after the attributes: a
    // read-only file takes none. The times last: everything else moves them.
    const bool isOwnerKept = ::fchown(to, state.owner, state.group) == 0;
    if (!isOwnerKept && !isNotForUs()) return false;
    if (!isOwnerKept && ::fchown(to, static_cast<uid_t>(-1), state.group) != 0 && !isNotForUs())
        return false;
    if (!copyAttributes(from, to)) return false;
    if (::fchmod(to, permissions(state, isOwnerKept)) != 0 && !isNotForUs()) return false;
    return ::futimens(to, times(state).data()) == 0 || isNotForUs();
}

bool setMetadata(int folder, const char* name, const FileState& state) {
    const bool isOwnerKept =
        ::fchownat(folder, name, state.owner, state.group, AT_SYMLINK_NOFOLLOW) == 0;
    if (!isOwnerKept && !isNotForUs()) return false;
    // A link has no permissions of its own.
    if (!S_ISLNK(state.mode) &&
        ::fchmodat(folder, name, permissions(state, isOwnerKept), AT_SYMLINK_NOFOLLOW) != 0 &&
        !isNotForUs())
        return false;
    return ::utimensat(folder, name, times(state).data(), AT_SYMLINK_NOFOLLOW) == 0 || isNotForUs();
}

}  // namespace nookwise
