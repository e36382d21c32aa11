#include "platform/linux/BackgroundThread.h"

#include <utility>

#include <linux/ioprio.h>
#include <pthread.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// Of the calling thread; 0 stands for it.
void yieldToEverybodyElse() {
    const sched_param none{};
    ::sched_setscheduler(0, SCHED_IDLE, &none);
    ::syscall(SYS_ioprio_set, IOPRIO_WHO_PROCESS, 0, IOPRIO_PRIO_VALUE(IOPRIO_CLASS_IDLE, 0));
}

/// Shown by process viewers; at most 15 bytes.
const char* nameFor(TaskPriority priority) {
    return priority == TaskPriority::utility ? "nookwise-idle" : "nookwise-work";
}

}  // namespace

BackgroundThread::BackgroundThread(TaskPriority priority, std::function<void()> work)
    : thread_(
          [this, priority, work = std::move(work)]() mutable { run(priority, std::move(work)); }) {}

void BackgroundThread::run(TaskPriority priority, std::function<void()> work) {
    ::pthread_setname_np(::pthread_self(), nameFor(priority));
    if (priority == TaskPriority::utility) yieldToEverybodyElse();
    work();
    // Whoever joins a finished thread must not wait until what the work holds has been destroyed.
    work = nullptr;
    isFinished_.store(true, std::memory_order_release);
}

}  // namespace nookwise
