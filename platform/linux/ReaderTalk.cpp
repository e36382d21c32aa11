#include "platform/linux/ReaderTalk.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>

namespace nookwise {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

/// Puts the file beside what the message says.
class PassedFile {
  public:
    void attach(msghdr& message, int file) {
        message.msg_control = space_.data();
        message.msg_controllen = space_.size();
        auto* header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(sizeof file);
        std::memcpy(CMSG_DATA(header), &file, sizeof file);
    }

  private:
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> space_{};
};

bool hasNothingYet(ssize_t count) {
    return count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR);
}

timespec timespecOf(nanoseconds time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    return {.tv_sec = seconds.count(), .tv_nsec = (time - seconds).count()};
}

}  // namespace

ReaderTalk::ReaderTalk(const ReaderProcess& process, const CallStop& stop,
                       nanoseconds processorTime, nanoseconds elapsedTime)
    : process_(process),
      stop_(stop),
      lastProcessorTime_(process.processorTime() + processorTime),
      waitedBefore_(process.timeWaitedForProcessor()),
      deadline_(Clock::now() + elapsedTime) {}

ReaderTalk::Outcome ReaderTalk::send(const void* bytes, std::size_t count, int file) {
    iovec part{.iov_base = const_cast<void*>(bytes), .iov_len = count};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    PassedFile passed;
    if (file >= 0) passed.attach(message, file);
    ssize_t sent = 0;
    do {
        sent = ::sendmsg(process_.socket(), &message, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && errno == EINTR);
    // A message as short as a request goes as a whole or not at all.
    if (sent == static_cast<ssize_t>(count)) return Outcome::done;
    return errno == EPIPE || errno == ECONNRESET ? Outcome::hungUp : Outcome::notSent;
}

ReaderTalk::Outcome ReaderTalk::receive(void* bytes, std::size_t count) {
    auto* next = static_cast<char*>(bytes);
    while (count > 0) {
        const auto received = ::recv(process_.socket(), next, count, MSG_DONTWAIT);
        if (received > 0) {
            next += received;
            count -= static_cast<std::size_t>(received);
        } else if (!hasNothingYet(received)) {
            return Outcome::hungUp;
        } else if (const auto outcome = waitFor(process_.socket()); outcome != Outcome::done) {
            return outcome;
        }
    }
    return Outcome::done;
}

ReaderTalk::Outcome ReaderTalk::receive(std::string& bytes, std::size_t count) {
    constexpr std::size_t step = 256 * 1024;
    while (bytes.size() < count) {
        const auto held = bytes.size();
        bytes.resize(held + std::min(step, count - held));
        const auto outcome = receive(bytes.data() + held, bytes.size() - held);
        if (outcome != Outcome::done) return outcome;
    }
    return Outcome::done;
}

ReaderTalk::Outcome ReaderTalk::waitForEnd() {
    return waitFor(process_.handle());
}

ReaderTalk::Unasked ReaderTalk::unasked(const ReaderProcess& process) {
    char byte = 0;
    ssize_t count = 0;
    do {
        count = ::recv(process.socket(), &byte, sizeof byte, MSG_PEEK | MSG_DONTWAIT);
    } while (count < 0 && errno == EINTR);
    if (count > 0) return Unasked::bytes;
    return hasNothingYet(count) ? Unasked::nothing : Unasked::hangUp;
}

ReaderTalk::Outcome ReaderTalk::waitFor(int descriptor) {
    for (;;) {
        // What came while this thread could not run has come in time.
        const auto left = std::max(timeLeft(), nanoseconds::zero());
        std::array<pollfd, 2> watched{{{.fd = descriptor, .events = POLLIN, .revents = 0},
                                       {.fd = stop_.descriptor(), .events = POLLIN, .revents = 0}}};
        const auto timeout = timespecOf(left);
        const int news = ::ppoll(watched.data(), watched.size(), &timeout, nullptr);
        if (news > 0) return watched[1].revents != 0 ? Outcome::stopped : Outcome::done;
        if (left == nanoseconds::zero()) return Outcome::overran;
    }
}

/// Until a limit may have been reached: the process cannot use its processor time any faster.
nanoseconds ReaderTalk::timeLeft() const {
    const auto processorTime = lastProcessorTime_ - process_.processorTime();
    if (processorTime <= nanoseconds::zero()) return processorTime;
    auto elapsedTime = nanoseconds(deadline_ - Clock::now());
    if (elapsedTime <= nanoseconds::zero()) elapsedTime += waitedForProcessor();
    // While others use the processor, what is left of it shrinks slowly: no use in watching that
    // closely.
    return std::min(elapsedTime, std::max<nanoseconds>(processorTime, milliseconds(10)));
}

nanoseconds ReaderTalk::waitedForProcessor() const {
    return process_.timeWaitedForProcessor() - waitedBefore_;
}

}  // namespace nookwise
