// Refusing the system calls that reading a file does not need (seccomp).
#pragma once

namespace nookwise {

enum class OpenCalls {
    /// For reading; which files, is for somebody else to say.
    allowed,
    refused,
};

/// For every thread of the process, and for good. `socket` is the only one to send to and receive
/// from. A refused call fails with EPERM, but opening a file with EACCES. Returns 0, or the errno
/// of what the kernel would not do.
int filterSystemCalls(int socket, OpenCalls openCalls);

}  // namespace nookwise
