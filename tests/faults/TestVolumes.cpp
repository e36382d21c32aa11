#include "tests/faults/TestVolumes.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace nookwise {
namespace {

std::string failed(const std::string& what) {
    return what + ": " + std::strerror(errno);
}

bool write(const char* file, const std::string& text) {
    std::ofstream stream(file);
    stream << text;
    return static_cast<bool>(stream.flush());
}

/// The user stays who he is, and may mount in a namespace of his own.
bool unshareAsOrdinaryUser() {
    const auto user = std::to_string(::geteuid());
    const auto group = std::to_string(::getegid());
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
           write("/proc/self/uid_map", user + " " + user + " 1") &&
           write("/proc/self/setgroups", "deny") &&
           write("/proc/self/gid_map", group + " " + group + " 1");
}

std::optional<std::string> leaveTheCommonMounts() {
    const bool isApart = ::geteuid() == 0 ? ::unshare(CLONE_NEWNS) == 0 : unshareAsOrdinaryUser();
    if (!isApart) return failed("no mounts of one's own are possible");
    if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return failed("the mounts cannot be made private");
    return std::nullopt;
}

}  // namespace

std::optional<std::string> mountPrivately() {
    static const auto obstacle = leaveTheCommonMounts();
    return obstacle;
}

std::unique_ptr<TestVolume> TestVolume::inMemory(const std::string& options) {
    std::unique_ptr<TestVolume> volume(new TestVolume);
    if (::mount("tmpfs", volume->path().c_str(), "tmpfs", 0, ("mode=755," + options).c_str()) != 0)
        throw std::runtime_error(failed("mount"));
    return volume;
}

TestVolume::~TestVolume() {
    ::umount2(path().c_str(), MNT_DETACH);
}

}  // namespace nookwise
