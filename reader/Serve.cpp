#include "reader/Serve.h"

#include "reader/ProcessLimits.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <exception>
#include <optional>
#include <string_view>

#include <sys/socket.h>
#include <unistd.h>

namespace nookwise {
namespace {

bool sendAll(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno != EINTR) return false;
        if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

template <typename Value>
std::string_view bytesOf(const Value& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

/// Room for the descriptor that belongs to a request. The kernel closes others.
struct Control {
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> bytes{};
};

std::optional<int> passedDescriptor(msghdr& message) {
    const cmsghdr* header = CMSG_FIRSTHDR(&message);
    if (header == nullptr || header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS ||
        header->cmsg_len != CMSG_LEN(sizeof(int)))
        return std::nullopt;
    int descriptor = -1;
    std::memcpy(&descriptor, CMSG_DATA(header), sizeof descriptor);
    return descriptor;
}

enum class Received { request, end, nonsense };

/// The descriptor comes with the first byte.
Received receive(int socket, ReaderRequest& request, std::optional<PassedFile>& file) {
    Control control;
    iovec part{.iov_base = &request, .iov_len = sizeof request};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.bytes.data();
    message.msg_controllen = control.bytes.size();
    ssize_t count = 0;
    do {
        count = ::recvmsg(socket, &message, MSG_CMSG_CLOEXEC | MSG_WAITALL);
    } while (count < 0 && errno == EINTR);
    if (count == 0) return Received::end;
    if (count != sizeof request || (message.msg_flags & MSG_CTRUNC) != 0) return Received::nonsense;
    const auto descriptor = passedDescriptor(message);
    if (!descriptor) return Received::nonsense;
    file.emplace(*descriptor);
    return file->isRegular() ? Received::request : Received::nonsense;
}

/// None where the work threw.
std::optional<Answer> answerTo(const ReaderRequest& request, PassedFile& file, const Work& work) {
    try {
        auto answer = work(request, file);
        return answer.bytes.size() <= longestReply ? answer : Answer();
    } catch (...) {
        return std::nullopt;
    }
}

bool sendAnswer(int socket, const Answer& answer, ReaderThen then) {
    const ReaderReply reply{.width = answer.size.width,
                            .height = answer.size.height,
                            .length = answer.bytes.size(),
                            .then = then};
    return sendAll(socket, bytesOf(reply)) && sendAll(socket, answer.bytes);
}

/// Libraries lose memory over broken files. It must not be missing for a good one.
bool isFull(const Answer& answer) {
    return heldMemory() > mostHeldMemory + answer.bytes.capacity();
}

}  // namespace

bool greet(int socket, const ReaderGreeting& greeting) {
    return sendAll(socket, bytesOf(greeting));
}

ServeEnd serve(int socket, const Work& work) {
    while (true) {
        ReaderRequest request;
        std::optional<PassedFile> file;
        const auto received = receive(socket, request, file);
        if (received == Received::end) return ServeEnd::closed;
        if (received == Received::nonsense) return ServeEnd::broken;
        const auto answer = answerTo(request, *file, work);
        if (!answer) return ServeEnd::thrown;
        // Whoever has the answer may expect the file to be closed.
        file.reset();
        const bool isLast = isFull(*answer);
        if (!sendAnswer(socket, *answer, isLast ? ReaderThen::ends : ReaderThen::waits))
            return ServeEnd::broken;
        if (isLast) return ServeEnd::full;
    }
}

}  // namespace nookwise
