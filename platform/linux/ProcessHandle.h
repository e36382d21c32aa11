// Descriptors that stand for processes, whatever becomes of their numbers.
#pragma once

#include "platform/linux/OpenAt.h"

#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace nookwise {

// The C library of 2022 declares its own for C alone.

/// Becomes readable when the process ends. None with errno set.
inline FileDescriptor openProcess(pid_t id) {
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, id, 0)));
}

/// False with errno set.
inline bool sendSignal(const FileDescriptor& process, int signal) {
    return ::syscall(SYS_pidfd_send_signal, process.get(), signal, nullptr, 0) == 0;
}

}  // namespace nookwise
