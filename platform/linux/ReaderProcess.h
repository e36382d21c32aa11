// One process that reads untrusted files.
#pragma once

#include "platform/Result.h"
#include "platform/linux/OpenAt.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>
#include <time.h>

namespace nookwise {

/// Somebody has to end it and see that `isGone` before this is destroyed.
class ReaderProcess {
  public:
    /// The thread that starts a process should outlive it: the system can tell a process of the end
    /// of that thread alone, not of the whole application's. Of what is open here the process gets
    /// nothing but its end of the socket pair. `environment` holds "NAME=value".
    static Result<ReaderProcess> start(const FileUrl& program, std::string_view role,
                                       std::vector<std::string> environment);

    /// This side's end of the stream.
    int socket() const { return socket_.get(); }
    /// Becomes readable when the process has ended.
    int handle() const { return handle_.get(); }

    void kill() const;

    /// Forgets the process if it has ended. False while it has not.
    bool isGone() const;

    enum class End {
        /// Its own doing.
        byItself,
        /// Somebody ended it who knows nothing of the file: the user, the system short of memory.
        fromOutside,
    };
    /// None while it has not ended. Not to be asked once it is gone.
    std::optional<End> end() const;

    /// What it has used since it was started.
    std::chrono::nanoseconds processorTime() const;
    /// For how long it was ready to run and others ran, since it was started. Zero where the system
    /// does not tell.
    std::chrono::nanoseconds timeWaitedForProcessor() const;

  private:
    ReaderProcess(pid_t id, FileDescriptor handle, FileDescriptor socket);

    pid_t id_;
    FileDescriptor handle_;
    FileDescriptor socket_;
    clockid_t clock_{};
};

}  // namespace nookwise
