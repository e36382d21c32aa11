// A reader process that decodes nothing, but does what the file that it is handed says in its first
// word. How it starts depends on the name by which it is called.

#include "platform/linux/OpenAt.h"
#include "platform/linux/ReaderProtocol.h"
#include "platform/linux/WriteAll.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

extern char** environ;

namespace nookwise {
namespace {

struct Job {
    ReaderRequest request;
    /// What the file says after the command and a blank.
    std::string rest;
    std::string role;
};

template <typename Message>
void sayAsItLies(const Message& message) {
    writeAll(readerSocket, {reinterpret_cast<const char*>(&message), sizeof message});
}

void reply(const std::string& text, ReaderThen then = ReaderThen::waits) {
    const ReaderReply header{.length = text.size(), .then = then};
    std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
    writeAll(readerSocket, bytes + text);
}

[[noreturn]] void hang() {
    for (;;) ::pause();
}

[[noreturn]] void spin() {
    for (;;) std::clock();
}

void endBySignal(int signal) {
    const rlimit none{};
    ::setrlimit(RLIMIT_CORE, &none);
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

/// True the first time that it is called with that path, in whatever process.
bool isFirst(const std::string& marker) {
    return static_cast<bool>(
        FileDescriptor(::open(marker.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600)));
}

/// True the first times, as many as that, that it is called with that path.
bool isAmongFirst(int times, const std::string& marker) {
    for (int time = 0; time < times; ++time)
        if (isFirst(marker + std::to_string(time))) return true;
    return false;
}

/// A line with the number of this process, for whoever reads the pipe's other end.
void tell(const std::string& pipe) {
    const FileDescriptor end(::open(pipe.c_str(), O_WRONLY | O_CLOEXEC));
    writeAll(end.get(), std::to_string(::getpid()) + '\n');
}

/// Tells that it is there, and is let in with a signal.
void waitAtTheDoor(const std::string& door) {
    sigset_t signals{};
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGUSR1);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    tell(door);
    int signal = 0;
    ::sigwait(&signals, &signal);
}

void burn(std::chrono::milliseconds time) {
    const auto end = std::clock() + CLOCKS_PER_SEC * time.count() / 1000;
    while (std::clock() < end) {
    }
}

/// WIDTH HEIGHT LENGTH SENT: a header, and so many bytes after it.
void sayBytes(const Job& job) {
    std::istringstream numbers(job.rest);
    ReaderReply header;
    std::size_t sent = 0;
    numbers >> header.width >> header.height >> header.length >> sent;
    std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
    writeAll(readerSocket, bytes + std::string(sent, 'x'));
}

/// One pixel from a process for pictures, none from another.
void sayWhetherForPictures(const Job& job) {
    const std::int32_t side = job.role == readerRole::pictures ? 1 : 0;
    sayAsItLies(ReaderReply{.width = side, .height = side});
}

/// Hands over a file as well, which nobody asked for.
void sayWithFile() {
    const std::string text = "have a file";
    ReaderReply header{.length = text.size()};
    std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
    bytes += text;
    iovec part{.iov_base = bytes.data(), .iov_len = bytes.size()};
    alignas(cmsghdr) char space[CMSG_SPACE(sizeof(int))]{};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = space;
    message.msg_controllen = sizeof space;
    auto* passed = CMSG_FIRSTHDR(&message);
    passed->cmsg_level = SOL_SOCKET;
    passed->cmsg_type = SCM_RIGHTS;
    passed->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(passed), &readerSocket, sizeof(int));
    ::sendmsg(readerSocket, &message, 0);
}

std::string openDescriptors() {
    std::string open;
    for (int descriptor = 0; descriptor < 1024; ++descriptor)
        if (::fcntl(descriptor, F_GETFD) >= 0) open += std::to_string(descriptor) + ' ';
    return open;
}

std::string standardStreams() {
    std::string targets;
    for (const auto* stream : {"0", "1", "2"})
        targets +=
            std::filesystem::read_symlink(std::string("/proc/self/fd/") + stream).native() + ' ';
    return targets;
}

std::string environment() {
    std::string all;
    for (auto** variable = environ; *variable != nullptr; ++variable)
        all += std::string(*variable) + '\n';
    return all;
}

/// Signals that do not act as on a fresh program.
std::string unusualSignals() {
    std::string unusual;
    sigset_t blocked{};
    ::sigprocmask(SIG_BLOCK, nullptr, &blocked);
    for (const int signal : {SIGHUP, SIGINT, SIGPIPE, SIGTERM, SIGCHLD, SIGXCPU}) {
        struct sigaction action {};
        ::sigaction(signal, nullptr, &action);
        if (::sigismember(&blocked, signal) != 0 || action.sa_handler == SIG_IGN)
            unusual += std::to_string(signal) + ' ';
    }
    return unusual;
}

/// Beside something that takes nearly all of the processor's time, which stays at CPU 0.
void burnInTheShade() {
    cpu_set_t first{};
    CPU_SET(0, &first);
    ::sched_setaffinity(0, sizeof first, &first);
    ::setpriority(PRIO_PROCESS, 0, 15);
    burn(std::chrono::milliseconds(50));
    reply("done at last");
}

const std::map<std::string, std::function<void(const Job&)>>& commands() {
    static const std::map<std::string, std::function<void(const Job&)>> all{
        {"say", [](const Job& job) { reply(job.rest); }},
        {"say-id", [](const Job&) { reply(std::to_string(::getpid())); }},
        {"say-id-and-end", [](const Job&) { reply(std::to_string(::getpid()), ReaderThen::ends); }},
        {"say-role", [](const Job& job) { reply(job.role); }},
        {"say-whether-for-pictures", sayWhetherForPictures},
        {"say-with-file", [](const Job&) { sayWithFile(); }},
        {"say-request",
         [](const Job& job) {
             reply(std::to_string(static_cast<int>(job.request.job)) + ' ' +
                   std::to_string(job.request.argument));
         }},
        {"say-descriptors", [](const Job&) { reply(openDescriptors()); }},
        {"say-streams", [](const Job&) { reply(standardStreams()); }},
        {"say-environment", [](const Job&) { reply(environment()); }},
        {"say-unusual-signals", [](const Job&) { reply(unusualSignals()); }},
        {"say-bytes", sayBytes},
        {"say-half-a-header", [](const Job&) { writeAll(readerSocket, "1234567"); }},
        {"say-soon", [](const Job& job) { burn(std::chrono::milliseconds(3)), reply(job.rest); }},
        {"tell-and-say-x", [](const Job& job) { tell(job.rest), reply("x"); }},
        {"drip",
         [](const Job&) {
             sayAsItLies(ReaderReply{.length = 1'000'000});
             pollfd interruption{.fd = readerSocket, .events = POLLIN, .revents = 0};
             while (::poll(&interruption, 1, 1) == 0) writeAll(readerSocket, "x");
         }},
        {"die", [](const Job&) { ::_exit(0); }},
        {"crash", [](const Job&) { endBySignal(SIGSEGV); }},
        {"break-rules", [](const Job&) { endBySignal(SIGSYS); }},
        {"be-killed", [](const Job&) { ::raise(SIGKILL); }},
        {"be-killed-once",
         [](const Job& job) {
             if (isFirst(job.rest)) ::raise(SIGKILL);
             reply("survived");
         }},
        {"be-terminated-once",
         [](const Job& job) {
             if (isFirst(job.rest)) ::raise(SIGTERM);
             reply("survived");
         }},
        {"hang", [](const Job&) { hang(); }},
        {"hang-and-tell", [](const Job& job) { tell(job.rest), hang(); }},
        {"hang-up", [](const Job&) { ::close(readerSocket), hang(); }},
        {"spin", [](const Job&) { spin(); }},
        {"burn-in-the-shade", [](const Job&) { burnInTheShade(); }},
    };
    return all;
}

/// None at the end of the stream.
std::optional<ReaderRequest> nextRequest(FileDescriptor& file) {
    ReaderRequest request;
    iovec part{.iov_base = &request, .iov_len = sizeof request};
    alignas(cmsghdr) char space[CMSG_SPACE(sizeof(int))]{};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = space;
    message.msg_controllen = sizeof space;
    if (::recvmsg(readerSocket, &message, MSG_CMSG_CLOEXEC) != sizeof request) return std::nullopt;
    const auto* header = CMSG_FIRSTHDR(&message);
    if (header == nullptr) return std::nullopt;
    int descriptor = -1;
    std::memcpy(&descriptor, CMSG_DATA(header), sizeof descriptor);
    file = FileDescriptor(descriptor);
    return request;
}

/// From where the file stands.
std::string contentsOf(const FileDescriptor& file) {
    std::string contents(64 * 1024, '\0');
    const auto count = ::read(file.get(), contents.data(), contents.size());
    contents.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return contents;
}

void start(const std::string& program) {
    const auto name = std::filesystem::path(program).filename().native();
    ReaderGreeting greeting;
    if (name == "silent") hang();
    if (name == "stillborn") ::_exit(0);
    if (name == "killed-at-start") ::raise(SIGKILL);
    if (name == "killed-at-nine-starts" && isAmongFirst(9, program + ".marker")) ::raise(SIGKILL);
    if (name == "waiting-at-the-door") waitAtTheDoor(program + ".pipe");
    if (name == "stranger") greeting.mark = 1;
    if (name == "illiterate") greeting.recognitionError = ENOENT;
    if (name == "unconfined") {
        greeting.fileSystemError = EOPNOTSUPP;
        greeting.systemCallsError = EINVAL;
    }
    sayAsItLies(greeting);
}

void serve(const std::string& role) {
    FileDescriptor file;
    while (const auto request = nextRequest(file)) {
        const auto contents = contentsOf(file);
        const auto blank = contents.find(' ');
        const auto rest = blank == std::string::npos ? "" : contents.substr(blank + 1);
        const auto command = commands().find(contents.substr(0, blank));
        if (command == commands().end()) ::_exit(1);
        command->second({*request, rest, role});
    }
}

}  // namespace
}  // namespace nookwise

int main(int count, char** arguments) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    nookwise::start(arguments[0]);
    nookwise::serve(count == 2 ? arguments[1] : "");
}
