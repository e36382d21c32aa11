// The reader process with a few jobs more, which try what it must not be able to do.
#include "reader/PdfText.h"
#include "reader/Reader.h"
#include "tests/reader/Probe.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>

#include <arpa/inet.h>
#include <fcntl.h>
#include <sched.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace nookwise {
namespace {

struct Target {
    std::string path;
    pid_t process;
    int passedFile;
};

/// Negative, or null, when it failed, with errno set.
using Attempt = std::function<long(const Target&)>;

long mapped(void* memory) {
    return memory == MAP_FAILED ? -1 : 0;
}

long connectSocket() {
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = "/run/dbus/system_bus_socket"};
    return ::connect(readerSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

long bindTcpPort() {
    const int made = ::socket(AF_INET, SOCK_STREAM, 0);
    if (made < 0) return -1;
    sockaddr_in address{.sin_family = AF_INET, .sin_addr = {.s_addr = htonl(INADDR_LOOPBACK)}};
    return ::bind(made, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

long execute(const Target& target) {
    std::string path = target.path;
    std::array<char*, 2> arguments{path.data(), nullptr};
    return ::execve(path.c_str(), arguments.data(), environ);
}

long forkProcess() {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    return child;
}

long readProcessMemory(const Target& target) {
    std::array<char, 8> here{};
    iovec local{.iov_base = here.data(), .iov_len = here.size()};
    return ::process_vm_readv(target.process, &local, 1, &local, 1, 0);
}

long turnMemoryIntoCode() {
    constexpr std::size_t size = 4096;
    void* memory =
        ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return ::mprotect(memory, size, PROT_READ | PROT_EXEC);
}

long raiseLimit() {
    const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
    return ::setrlimit(RLIMIT_DATA, &none);
}

long useIoUring() {
    std::array<char, 256> parameters{};
    return ::syscall(SYS_io_uring_setup, 1, parameters.data());
}

long reopenPassedFile(const Target& target) {
    const auto path = "/proc/self/fd/" + std::to_string(target.passedFile);
    return ::open(path.c_str(), O_WRONLY);
}

long startThread() {
    std::thread([] {}).join();
    return 0;
}

long takeMemory(std::size_t size, int flags) {
    return mapped(::mmap(nullptr, size, PROT_READ | PROT_WRITE, flags | MAP_ANONYMOUS, -1, 0));
}

/// As a library does that loses it.
long keepSomeMemory() {
    for (std::size_t taken = 0; taken < std::size_t{300} << 20; taken += 1'000) {
        // The compiler may take memory away that nobody looks at.
        volatile char* lost = static_cast<char*>(std::malloc(1'000));
        if (lost == nullptr) return -1;
        *lost = 'x';
    }
    return 0;
}

const std::map<Probe, Attempt>& attempts() {
    using T = const Target&;
    static const std::map<Probe, Attempt> all{
        {Probe::openForReading, [](T t) { return ::open(t.path.c_str(), O_RDONLY); }},
        {Probe::openForWriting, [](T t) { return ::open(t.path.c_str(), O_WRONLY); }},
        {Probe::openAnyhow, [](T t) { return ::open(t.path.c_str(), O_PATH); }},
        {Probe::createFile, [](T t) { return ::open(t.path.c_str(), O_CREAT | O_WRONLY, 0600); }},
        {Probe::createFolder, [](T t) { return ::mkdir(t.path.c_str(), 0700); }},
        {Probe::removeFile, [](T t) { return ::unlink(t.path.c_str()); }},
        {Probe::renameFile, [](T t) { return ::rename(t.path.c_str(), (t.path + "2").c_str()); }},
        {Probe::changeMode, [](T t) { return ::chmod(t.path.c_str(), 0777); }},
        {Probe::lookAt,
         [](T t) {
             struct stat state {};
             return ::stat(t.path.c_str(), &state);
         }},
        {Probe::lookAtAsIfOpen,
         [](T t) {
             struct stat state {};
             return ::fstatat(AT_FDCWD, t.path.c_str(), &state, AT_EMPTY_PATH);
         }},
        {Probe::listFolder, [](T t) { return ::open(t.path.c_str(), O_RDONLY | O_DIRECTORY); }},
        {Probe::execute, execute},
        {Probe::makeUnixSocket, [](T) { return ::socket(AF_UNIX, SOCK_STREAM, 0); }},
        {Probe::makeInternetSocket, [](T) { return ::socket(AF_INET, SOCK_DGRAM, 0); }},
        {Probe::makeNetlinkSocket, [](T) { return ::socket(AF_NETLINK, SOCK_RAW, 0); }},
        {Probe::makeSocketPair,
         [](T) {
             std::array<int, 2> ends{};
             return ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data());
         }},
        {Probe::connectSocket, [](T) { return connectSocket(); }},
        {Probe::bindTcpPort, [](T) { return bindTcpPort(); }},
        {Probe::forkProcess, [](T) { return forkProcess(); }},
        {Probe::signalProcess, [](T t) { return ::kill(t.process, 0); }},
        {Probe::traceProcess, [](T t) { return ::ptrace(PTRACE_SEIZE, t.process, 0, 0); }},
        {Probe::readProcessMemory, readProcessMemory},
        {Probe::makeCodeInMemory,
         [](T) {
             return mapped(
                 ::mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
         }},
        {Probe::turnMemoryIntoCode, [](T) { return turnMemoryIntoCode(); }},
        {Probe::makeNamespace, [](T) { return ::unshare(CLONE_NEWUSER); }},
        {Probe::raiseLimit, [](T) { return raiseLimit(); }},
        {Probe::makeMemoryFile, [](T) { return ::memfd_create("probe", 0); }},
        {Probe::useIoUring, [](T) { return useIoUring(); }},
        {Probe::writeToPassedFile, [](T t) { return ::write(t.passedFile, "x", 1); }},
        {Probe::truncatePassedFile, [](T t) { return ::ftruncate(t.passedFile, 0); }},
        {Probe::changeModeOfPassedFile, [](T t) { return ::fchmod(t.passedFile, 0777); }},
        {Probe::changeTimesOfPassedFile, [](T t) { return ::futimens(t.passedFile, nullptr); }},
        {Probe::tagPassedFile,
         [](T t) { return ::fsetxattr(t.passedFile, "user.probe", "x", 1, 0); }},
        {Probe::reopenPassedFile, reopenPassedFile},
        {Probe::startThread, [](T) { return startThread(); }},
        {Probe::takeMuchMemory, [](T) { return takeMemory(std::size_t{2} << 30, MAP_PRIVATE); }},
        {Probe::takeSharedMemory, [](T) { return takeMemory(4096, MAP_SHARED); }},
        {Probe::takeGrowingMemory, [](T) { return takeMemory(4096, MAP_PRIVATE | MAP_GROWSDOWN); }},
        {Probe::keepSomeMemory, [](T) { return keepSomeMemory(); }},
    };
    return all;
}

void say(char byte) {
    ::send(readerSocket, &byte, 1, MSG_NOSIGNAL);
}

char hear() {
    char byte = 0;
    iovec part{.iov_base = &byte, .iov_len = 1};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    ::recvmsg(readerSocket, &message, 0);
    return byte;
}

Answer probe(const ReaderRequest& request, PassedFile& file) {
    const auto probe = static_cast<Probe>(request.job);
    const auto bytes = file.bytes();
    if (probe == Probe::throwSomething) throw std::runtime_error("something");
    if (probe == Probe::loop) {
        say('l');
        // The compiler may take a loop without any effect away.
        for (std::atomic<unsigned> turns = 0;; ++turns) {
        }
    }
    if (probe == Probe::readPdfLater) {
        say('m');
        hear();
        return {.bytes = pdfText(bytes)};
    }
    const std::string text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const Target target{text, std::atoi(text.c_str()), file.descriptor()};
    errno = 0;
    const bool failed = attempts().at(probe)(target) < 0;
    return {.bytes = std::to_string(failed ? errno : 0)};
}

}  // namespace
}  // namespace nookwise

/// role, then the errors that stand for what is taken to be missing; the last may be left out.
int main(int count, char* arguments[]) {
    nookwise::runReader({.role = arguments[1],
                         .missing = {.fileSystemError = std::atoi(arguments[2]),
                                     .systemCallsError = std::atoi(arguments[3]),
                                     .recognitionError = count > 4 ? std::atoi(arguments[4]) : 0},
                         .otherWork = nookwise::probe});
}
