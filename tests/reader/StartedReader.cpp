#include "tests/reader/StartedReader.h"

#include <array>
#include <cstring>
#include <stdexcept>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// As the application starts it.
pid_t spawn(const std::string& program, std::vector<std::string> arguments, int socket) {
    arguments.insert(arguments.begin(), program);
    std::vector<char*> pointers;
    for (auto& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    std::string oneThread = "OMP_THREAD_LIMIT=1";
    std::vector<char*> variables{oneThread.data()};
    for (char** variable = environ; *variable != nullptr; ++variable)
        variables.push_back(*variable);
    variables.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, socket, readerSocket);
    pid_t process = -1;
    const int error = ::posix_spawn(&process, program.c_str(), &actions, nullptr, pointers.data(),
                                    variables.data());
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error("cannot start " + program);
    return process;
}

template <typename Value>
std::string_view bytesOf(const Value& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

template <typename Value>
std::optional<Value> valueOf(const std::optional<std::string>& bytes) {
    if (!bytes) return std::nullopt;
    Value value;
    std::memcpy(&value, bytes->data(), sizeof value);
    return value;
}

}  // namespace

StartedReader::StartedReader(const std::string& program, std::vector<std::string> arguments) {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error("no socket pair");
    socket_ = ends[0];
    process_ = spawn(program, std::move(arguments), ends[1]);
    ::close(ends[1]);
}

StartedReader::~StartedReader() {
    closeSocket();
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    end();
}

std::optional<ReaderGreeting> StartedReader::greeting() {
    return valueOf<ReaderGreeting>(receive(sizeof(ReaderGreeting)));
}

std::optional<ReaderAnswer> StartedReader::ask(ReaderJob job, const std::string& path,
                                               std::int32_t argument) {
    request(job, path, argument);
    return answer();
}

void StartedReader::request(ReaderJob job, const std::string& path, std::int32_t argument) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) throw std::runtime_error("cannot open " + path);
    send(bytesOf(ReaderRequest{.job = job, .argument = argument}), {file});
    ::close(file);
}

std::optional<ReaderAnswer> StartedReader::answer() {
    const auto reply = valueOf<ReaderReply>(receive(sizeof(ReaderReply)));
    if (!reply) return std::nullopt;
    then_ = reply->then;
    auto bytes = receive(reply->length);
    if (!bytes) return std::nullopt;
    return ReaderAnswer{reply->width, reply->height, std::move(*bytes)};
}

void StartedReader::send(std::string_view bytes) {
    send(bytes, {});
}

void StartedReader::send(std::string_view bytes, const std::vector<int>& descriptors) {
    const auto size = descriptors.size() * sizeof(int);
    std::vector<char> control(CMSG_SPACE(size));
    iovec part{.iov_base = const_cast<char*>(bytes.data()), .iov_len = bytes.size()};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    if (size > 0) {
        message.msg_control = control.data();
        message.msg_controllen = control.size();
        const cmsghdr header{
            .cmsg_len = CMSG_LEN(size), .cmsg_level = SOL_SOCKET, .cmsg_type = SCM_RIGHTS};
        std::memcpy(control.data(), &header, sizeof header);
        std::memcpy(control.data() + CMSG_LEN(0), descriptors.data(), size);
    }
    // The process may have ended; the missing answer will tell.
    [[maybe_unused]] const auto sent = ::sendmsg(socket_, &message, MSG_NOSIGNAL);
}

std::optional<std::string> StartedReader::receive(std::size_t length) {
    std::string bytes(length, '\0');
    std::size_t received = 0;
    while (received < length) {
        const auto count = ::recv(socket_, bytes.data() + received, length - received, 0);
        if (count <= 0) return std::nullopt;
        received += static_cast<std::size_t>(count);
    }
    return bytes;
}

void StartedReader::closeSocket() {
    if (socket_ >= 0) ::close(socket_);
    socket_ = -1;
}

ReaderEnd StartedReader::end() {
    ReaderEnd end;
    ::wait4(process_, &end.status, 0, &end.used);
    process_ = -1;
    return end;
}

}  // namespace nookwise
