#include "reader/FileSystemRules.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// As the kernel reads it. The system's header may be older than the kernel and end earlier.
struct Ruleset {
    std::uint64_t fileSystem = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
};

/// Which rights a version of the kernel's interface knows: the lowest bits of each set.
struct Version {
    unsigned fileSystemRights;
    unsigned networkRights;
    unsigned scopes;
    std::size_t rulesetSize;
};

/// From version 1 on. Later ones know these rights too.
constexpr std::array<Version, 6> versions{{
    {13, 0, 0, offsetof(Ruleset, network)},
    // Moving files between folders.
    {14, 0, 0, offsetof(Ruleset, network)},
    // Truncating files.
    {15, 0, 0, offsetof(Ruleset, network)},
    // Binding and connecting TCP sockets.
    {15, 2, 0, offsetof(Ruleset, scopes)},
    // Commands to devices.
    {16, 2, 0, offsetof(Ruleset, scopes)},
    // Abstract Unix sockets, signals.
    {16, 2, 2, sizeof(Ruleset)},
}};

constexpr std::uint64_t lowestBits(unsigned count) {
    return (std::uint64_t{1} << count) - 1;
}

class Descriptor {
  public:
    explicit Descriptor(long number) : number_(static_cast<int>(number)) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }

  private:
    int number_;
};

/// 0, or why not.
int allowReading(const Descriptor& ruleset, const std::string& path) {
    const Descriptor opened(::open(path.c_str(), O_PATH | O_CLOEXEC));
    if (!opened.isOpen()) return 0;
    const landlock_path_beneath_attr rule{.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE,
                                          .parent_fd = opened.number()};
    const auto result =
        ::syscall(SYS_landlock_add_rule, ruleset.number(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    return result == 0 ? 0 : errno;
}

/// Threads that run already would stay as free as they are.
bool isTheOnlyThread() {
    std::error_code error;
    const std::filesystem::directory_iterator threads("/proc/self/task", error);
    return !error && std::distance(begin(threads), end(threads)) == 1;
}

}  // namespace

int closeFileSystem(std::span<const std::string> readable) {
    if (!isTheOnlyThread()) return EBUSY;
    const auto newest =
        ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (newest < 1) return newest < 0 ? errno : ENOSYS;
    const auto known = std::min(static_cast<std::size_t>(newest), versions.size());
    const auto& version = versions.at(known - 1);
    const Ruleset rules{.fileSystem = lowestBits(version.fileSystemRights),
                        .network = lowestBits(version.networkRights),
                        .scopes = lowestBits(version.scopes)};
    const Descriptor ruleset(
        ::syscall(SYS_landlock_create_ruleset, &rules, version.rulesetSize, 0));
    if (!ruleset.isOpen()) return errno;
    for (const auto& path : readable) {
        if (const int error = allowReading(ruleset, path); error != 0) return error;
    }
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return errno;
    return ::syscall(SYS_landlock_restrict_self, ruleset.number(), 0) == 0 ? 0 : errno;
}

}  // namespace nookwise
