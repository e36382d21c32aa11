#include "reader/SystemCallFilter.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <initializer_list>
#include <memory>

#include <fcntl.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// Collects rules; the first that fails is remembered.
class Filter {
  public:
    // Nothing is killed for a call that is not on the list: it is refused all the same, and a
    // library that will make a new one some day, without needing it, still reads its file.
    Filter() : context_(::seccomp_init(SCMP_ACT_ERRNO(EPERM)), &::seccomp_release) {
        if (context_ == nullptr) error_ = ENOMEM;
        // Libraries may have started threads already.
        set(SCMP_FLTATR_CTL_TSYNC, 1);
        // The kernel's own errno, not the library's.
        set(SCMP_FLTATR_API_SYSRAWRC, 1);
        // A search instead of a row of comparisons.
        set(SCMP_FLTATR_CTL_OPTIMIZE, 2);
    }

    void allow(std::initializer_list<int> calls) {
        for (const int call : calls) add(SCMP_ACT_ALLOW, call, {});
    }

    void allow(int call, std::initializer_list<scmp_arg_cmp> conditions) {
        add(SCMP_ACT_ALLOW, call, conditions);
    }

    void refuse(int call, std::uint16_t code) { add(SCMP_ACT_ERRNO(code), call, {}); }

    /// 0, or why not.
    int load() {
        if (error_ == 0) note(::seccomp_load(context_.get()));
        return error_;
    }

  private:
    void note(int result) {
        if (result < 0 && error_ == 0) error_ = -result;
    }

    void set(scmp_filter_attr attribute, std::uint32_t value) {
        if (error_ == 0) note(::seccomp_attr_set(context_.get(), attribute, value));
    }

    void add(std::uint32_t action, int call, std::initializer_list<scmp_arg_cmp> conditions) {
        if (error_ != 0) return;
        note(::seccomp_rule_add_array(context_.get(), action, call,
                                      static_cast<unsigned>(conditions.size()),
                                      conditions.begin()));
    }

    std::unique_ptr<void, void (*)(scmp_filter_ctx)> context_;
    int error_ = 0;
};

scmp_arg_cmp equal(unsigned argument, std::uint64_t value) {
    return {argument, SCMP_CMP_EQ, value, 0};
}

/// Of the flags in `mask`, exactly those in `set`.
scmp_arg_cmp flags(unsigned argument, std::uint64_t mask, std::uint64_t set) {
    return {argument, SCMP_CMP_MASKED_EQ, mask, set};
}

void allowMemory(Filter& filter) {
    filter.allow({SCMP_SYS(brk), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise)});
    // No new code; and nothing that the limit of memory would not count.
    filter.allow(SCMP_SYS(mmap), {flags(2, PROT_EXEC, 0), flags(3, MAP_SHARED | MAP_GROWSDOWN, 0)});
    filter.allow(SCMP_SYS(mprotect), {flags(2, PROT_EXEC, 0)});
}

void allowThreads(Filter& filter) {
    filter.allow({SCMP_SYS(futex), SCMP_SYS(set_robust_list), SCMP_SYS(rseq), SCMP_SYS(exit),
                  SCMP_SYS(exit_group), SCMP_SYS(sched_yield), SCMP_SYS(sched_getaffinity),
                  SCMP_SYS(gettid), SCMP_SYS(getpid), SCMP_SYS(getppid), SCMP_SYS(membarrier)});
    // Its flags lie in memory, where a filter cannot look. The C library then takes the older call.
    filter.refuse(SCMP_SYS(clone3), ENOSYS);
    constexpr std::uint64_t namespaces = CLONE_NEWNS | CLONE_NEWCGROUP | CLONE_NEWUTS |
                                         CLONE_NEWIPC | CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET;
    filter.allow(SCMP_SYS(clone), {flags(0, CLONE_THREAD | namespaces, CLONE_THREAD)});
    filter.allow({SCMP_SYS(rt_sigaction), SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigreturn),
                  SCMP_SYS(sigaltstack), SCMP_SYS(restart_syscall)});
    // abort() and the like.
    filter.allow(SCMP_SYS(tgkill), {equal(0, static_cast<std::uint64_t>(::getpid()))});
}

void allowTimeAndLimits(Filter& filter) {
    filter.allow({SCMP_SYS(clock_gettime), SCMP_SYS(clock_getres), SCMP_SYS(gettimeofday),
                  SCMP_SYS(time), SCMP_SYS(nanosleep), SCMP_SYS(clock_nanosleep),
                  SCMP_SYS(getrandom), SCMP_SYS(uname), SCMP_SYS(sysinfo), SCMP_SYS(getrusage),
                  SCMP_SYS(getrlimit)});
    // Its own ones, and without new ones.
    filter.allow(SCMP_SYS(prlimit64), {equal(0, 0), equal(2, 0)});
}

/// With descriptors that are open: the file to be read is open for reading only.
void allowDescriptors(Filter& filter, int socket) {
    filter.allow({SCMP_SYS(read), SCMP_SYS(pread64), SCMP_SYS(readv), SCMP_SYS(lseek),
                  SCMP_SYS(close), SCMP_SYS(fstat), SCMP_SYS(poll), SCMP_SYS(ppoll)});
    // The way in which the C library asks about an open file. A filter cannot see whether a path is
    // given all the same, which tells what the file system keeps about any file whose path is known
    // (size, times, owner), but nothing that is in it and no names.
    filter.allow(SCMP_SYS(newfstatat), {flags(3, AT_EMPTY_PATH, AT_EMPTY_PATH)});
    filter.allow(SCMP_SYS(write), {equal(0, STDERR_FILENO)});
    filter.allow(SCMP_SYS(writev), {equal(0, STDERR_FILENO)});
    filter.allow(SCMP_SYS(fcntl), {equal(1, F_GETFL)});
#ifdef __SANITIZE_ADDRESS__
    // The sanitizers' way to find out whether there is memory at an address.
    filter.allow({SCMP_SYS(pipe), SCMP_SYS(pipe2), SCMP_SYS(write)});
#endif
    const auto end = static_cast<std::uint64_t>(socket);
    filter.allow(SCMP_SYS(recvmsg), {equal(0, end)});
    filter.allow(SCMP_SYS(sendto), {equal(0, end), equal(4, 0)});
}

void allowOpening(Filter& filter, OpenCalls openCalls) {
    if (openCalls == OpenCalls::refused) {
        filter.refuse(SCMP_SYS(open), EACCES);
        filter.refuse(SCMP_SYS(openat), EACCES);
        return;
    }
    // O_TMPFILE shares a bit with O_DIRECTORY.
    constexpr std::uint64_t others =
        O_ACCMODE | O_CREAT | O_TRUNC | O_APPEND | O_PATH | (O_TMPFILE & ~O_DIRECTORY);
    filter.allow(SCMP_SYS(open), {flags(1, others, O_RDONLY)});
    filter.allow(SCMP_SYS(openat), {flags(2, others, O_RDONLY)});
}

}  // namespace

int filterSystemCalls(int socket, OpenCalls openCalls) {
    Filter filter;
    allowMemory(filter);
    allowThreads(filter);
    allowTimeAndLimits(filter);
    allowDescriptors(filter, socket);
    allowOpening(filter, openCalls);
    return filter.load();
}

}  // namespace nookwise
