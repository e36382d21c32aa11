#include "platform/linux/ReaderProcess.h"

#include "platform/linux/Failure.h"
#include "platform/linux/ProcessHandle.h"
#include "platform/linux/ReaderProtocol.h"

#include <array>
#include <charconv>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace nookwise {
namespace {

/// The standard streams lead nowhere, the socket is where it is expected, all else is closed.
class FileActions {
  public:
    explicit FileActions(int socket) {
        ::posix_spawn_file_actions_init(&actions_);
        // First, because the socket may be where a standard stream belongs.
        ::posix_spawn_file_actions_adddup2(&actions_, socket, readerSocket);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, readerSocket + 1);
    }
    ~FileActions() { ::posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    const posix_spawn_file_actions_t* get() const { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

/// Signals act as on a fresh program, and those that a terminal sends to all of the application do
/// not come.
class Attributes {
  public:
    Attributes() {
        ::posix_spawnattr_init(&attributes_);
        sigset_t signals{};
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    }
    ~Attributes() { ::posix_spawnattr_destroy(&attributes_); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    const posix_spawnattr_t* get() const { return &attributes_; }

  private:
    posix_spawnattr_t attributes_{};
};

/// Ends with the null pointer that the system asks for.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Zero, or the reason.
int spawn(pid_t& id, int socket, std::vector<std::string> arguments,
          std::vector<std::string> environment) {
    const FileActions actions(socket);
    const Attributes attributes;
    return ::posix_spawn(&id, arguments.front().c_str(), actions.get(), attributes.get(),
                         pointersTo(arguments).data(), pointersTo(environment).data());
}

/// As waitid(2), which an interruption does not end.
bool waited(idtype_t kind, int id, siginfo_t& information, int how) {
    int result = 0;
    do {
        information = {};
        result = ::waitid(kind, static_cast<id_t>(id), &information, how);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

std::chrono::nanoseconds secondFigure(std::string_view text) {
    const auto blank = text.find(' ');
    if (blank == std::string_view::npos) return {};
    text.remove_prefix(blank + 1);
    std::chrono::nanoseconds::rep figure = 0;
    std::from_chars(text.data(), text.data() + text.size(), figure);
    return std::chrono::nanoseconds(figure);
}

}  // namespace

Result<ReaderProcess> ReaderProcess::start(const FileUrl& program, std::string_view role,
                                           std::vector<std::string> environment) {
    static const std::string operation = "start";
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return failure(program, operation);
    FileDescriptor ours(ends[0]);
    const FileDescriptor theirs(ends[1]);
    pid_t id = -1;
    const int reason = spawn(id, theirs.get(), {std::string(program.path()), std::string(role)},
                             std::move(environment));
    if (reason != 0) return failure(program, operation, reason);
    auto handle = openProcess(id);
    if (!handle) {
        auto error = failure(program, operation);
        ::kill(id, SIGKILL);
        siginfo_t ignored{};
        waited(P_PID, id, ignored, WEXITED);
        return error;
    }
    return ReaderProcess(id, std::move(handle), std::move(ours));
}

ReaderProcess::ReaderProcess(pid_t id, FileDescriptor handle, FileDescriptor socket)
    : id_(id), handle_(std::move(handle)), socket_(std::move(socket)) {
    ::clock_getcpuclockid(id, &clock_);
}

void ReaderProcess::kill() const {
    sendSignal(handle_, SIGKILL);
}

bool ReaderProcess::isGone() const {
    siginfo_t information{};
    const bool isOurs = waited(P_PIDFD, handle_.get(), information, WEXITED | WNOHANG);
    return !isOurs || information.si_pid != 0;
}

std::optional<ReaderProcess::End> ReaderProcess::end() const {
    siginfo_t information{};
    if (!waited(P_PIDFD, handle_.get(), information, WEXITED | WNOHANG | WNOWAIT))
        return End::byItself;
    if (information.si_pid == 0) return std::nullopt;
    if (information.si_code != CLD_KILLED) return End::byItself;
    switch (information.si_status) {
        case SIGKILL:
        case SIGTERM:
        case SIGINT:
        case SIGHUP:
            return End::fromOutside;
        default:
            return End::byItself;
    }
}

std::chrono::nanoseconds ReaderProcess::processorTime() const {
    timespec used{};
    if (::clock_gettime(clock_, &used) != 0) return {};
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
}

std::chrono::nanoseconds ReaderProcess::timeWaitedForProcessor() const {
    const auto path = "/proc/" + std::to_string(id_) + "/schedstat";
    const auto file = openPath(path, O_RDONLY);
    std::array<char, 128> figures{};
    const auto count = ::read(file.get(), figures.data(), figures.size());
    if (count <= 0) return {};
    return secondFigure({figures.data(), static_cast<std::size_t>(count)});
}

}  // namespace nookwise
