#include "reader/ProcessLimits.h"

#include "platform/linux/ReaderProtocol.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <linux/ioprio.h>
#include <malloc.h>
#include <poll.h>
#include <sched.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// Files that are mapped do not count.
constexpr rlim_t mostMemory = rlim_t{1} << 30;
constexpr rlim_t mostStack = rlim_t{8} << 20;
constexpr rlim_t mostDescriptors = 64;

/// The kernel says that a parent has ended already when that of its threads has which started this
/// process. The socket knows better.
void endUnlessAwaited(int) {
    const int before = errno;
    pollfd socket{.fd = readerSocket, .events = POLLRDHUP};
    if (::poll(&socket, 1, 0) == 1) ::_exit(0);
    errno = before;
}

void limit(int resource, rlim_t most) {
    rlimit both{};
    if (::getrlimit(static_cast<__rlimit_resource_t>(resource), &both) != 0) return;
    both.rlim_max = std::min(both.rlim_max, most);
    both.rlim_cur = std::min(both.rlim_cur, both.rlim_max);
    ::setrlimit(static_cast<__rlimit_resource_t>(resource), &both);
}

}  // namespace

void endWithParent() {
    struct sigaction action {};
    action.sa_handler = &endUnlessAwaited;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGHUP, &action, nullptr);
    // What the application blocks stays blocked in the processes that it starts.
    sigset_t all;
    ::sigfillset(&all);
    ::sigprocmask(SIG_UNBLOCK, &all, nullptr);
    // Where it has ended before this, serving meets the end of the socket's stream.
    ::prctl(PR_SET_PDEATHSIG, SIGHUP);
}

void limitResources(int lastDescriptor) {
    ::close_range(static_cast<unsigned>(lastDescriptor) + 1, ~0U, 0);
    // The address sanitizer reserves terabytes.
#ifndef __SANITIZE_ADDRESS__
    limit(RLIMIT_DATA, mostMemory);
#endif
    limit(RLIMIT_STACK, mostStack);
    // Processor time is for the application to watch: it is allowed by the file, not by the
    // process.
    limit(RLIMIT_NOFILE, mostDescriptors);
    limit(RLIMIT_FSIZE, 0);
    // A library's warning that goes to a file is lost, and nothing else.
    ::signal(SIGXFSZ, SIG_IGN);
    limit(RLIMIT_CORE, 0);
    ::prctl(PR_SET_DUMPABLE, 0);
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
}

void yieldToEverybody() {
    const sched_param none{};
    ::sched_setscheduler(0, SCHED_IDLE, &none);
    ::syscall(SYS_ioprio_set, IOPRIO_WHO_PROCESS, 0, IOPRIO_PRIO_VALUE(IOPRIO_CLASS_IDLE, 0));
    const int score = ::open("/proc/self/oom_score_adj", O_WRONLY | O_CLOEXEC);
    if (score < 0) return;
    [[maybe_unused]] const auto written = ::write(score, "1000", 4);
    ::close(score);
}

std::size_t heldMemory() {
    const auto held = ::mallinfo2();
    return held.arena + held.hblkhd;
}

}  // namespace nookwise
