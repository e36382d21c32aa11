// A reader process, and the application's end of its socket.
#pragma once

#include "platform/linux/ReaderProtocol.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/resource.h>
#include <sys/types.h>

namespace nookwise {

struct ReaderAnswer {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::string bytes;

    friend bool operator==(const ReaderAnswer&, const ReaderAnswer&) = default;
};

/// How a process ended.
struct ReaderEnd {
    /// As waitpid() tells it.
    int status = 0;
    rusage used{};
};

/// Ends the process with itself, if it still lives.
class StartedReader {
  public:
    StartedReader(const std::string& program, std::vector<std::string> arguments);
    ~StartedReader();
    StartedReader(const StartedReader&) = delete;
    StartedReader& operator=(const StartedReader&) = delete;

    /// None where it ended without one. Must be asked for first, and once.
    std::optional<ReaderGreeting> greeting();

    /// None where the process ended instead of answering.
    std::optional<ReaderAnswer> ask(ReaderJob job, const std::string& path,
                                    std::int32_t argument = 0);

    void request(ReaderJob job, const std::string& path, std::int32_t argument = 0);
    std::optional<ReaderAnswer> answer();
    /// What the last answer said.
    ReaderThen then() const { return then_; }

    void send(std::string_view bytes);
    /// What was sent with `descriptors` beside it.
    void send(std::string_view bytes, const std::vector<int>& descriptors);
    /// None at the end.
    std::optional<std::string> receive(std::size_t length);

    void closeSocket();
    /// Waits for it.
    ReaderEnd end();

    pid_t process() const { return process_; }

  private:
    int socket_ = -1;
    pid_t process_ = -1;
    ReaderThen then_ = ReaderThen::waits;
};

}  // namespace nookwise
