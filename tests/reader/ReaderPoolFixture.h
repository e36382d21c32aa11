// A reader whose processes do as their files say.
#pragma once

#include "platform/linux/LinuxTextReader.h"
#include "platform/linux/ProcessHandle.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>

namespace nookwise {

/// Limits that only those tests reach which set others, and processes that are never idle for too
/// long.
inline ReaderLimits patientLimits() {
    constexpr auto never = std::chrono::hours(1);
    const ReaderJobLimits job{.processorTime = never, .elapsedTime = never, .reply = 1'000'000};
    return {.text = job,
            .pictures = job,
            .start = never,
            .idle = never,
            .afterFailedStart = never,
            .processes = 4,
            .processesOfARole = 4};
}

inline ReaderLimits oneProcess() {
    auto limits = patientLimits();
    limits.processes = limits.processesOfARole = 1;
    return limits;
}

inline void waitForEndOf(pid_t process) {
    const auto handle = openProcess(process);
    // None: it is gone already.
    if (!handle) return;
    pollfd watched{.fd = handle.get(), .events = POLLIN, .revents = 0};
    while (::poll(&watched, 1, -1) <= 0) {
    }
}

class ReaderPoolFixture : public testing::Test {
  protected:
    /// How the processes start is told by the name of their program.
    void makeReader(const ReaderLimits& limits = patientLimits(),
                    std::string_view program = "obedient") {
        reader_ = std::make_unique<LinuxTextReader>(program_(program), limits);
    }
    LinuxTextReader& reader() { return *reader_; }

    /// A file that tells the process what to do.
    FileUrl file(const std::string& command) {
        return folder_.write("file " + std::to_string(++files_), command);
    }

    Result<std::string> pdf(const std::string& command, const std::stop_token& stop = {}) {
        return reader_->pdf(file(command), stop);
    }
    /// "error: …" when there is none.
    std::string text(const std::string& command) { return textOf(pdf(command)); }

    static std::string textOf(const Result<std::string>& result) {
        return result ? result.value() : "error: " + result.error().code.message();
    }

    pid_t idOfProcess() { return std::stoi(text("say-id")); }

    /// Waits until a process is there that was told to hang by the file of the pipe.
    pid_t idOfHanging(const FileUrl& pipe) const {
        std::ifstream stream(std::string(pipe.path()));
        pid_t id = -1;
        stream >> id;
        return id;
    }
    std::pair<FileUrl, FileUrl> hangingFileAndPipe() {
        const auto pipe = folder_.makePipe("pipe " + std::to_string(++files_));
        return {file("hang-and-tell " + std::string(pipe.path())), pipe};
    }

    /// Waits until a call has begun that reads the file; what is left of it is to wait for a
    /// process, and for its answer.
    static void waitUntilOpen(const FileUrl& file) {
        while (!isOpen(file)) std::this_thread::yield();
    }

    /// Whether any process was started and not been reaped since.
    static bool hasChildren() {
        siginfo_t ignored{};
        return ::waitid(P_ALL, 0, &ignored, WEXITED | WNOHANG | WNOWAIT) == 0;
    }

    TemporaryFolder folder_;
    std::unique_ptr<LinuxTextReader> reader_;

  private:
    static bool isOpen(const FileUrl& file) {
        std::error_code over;
        std::filesystem::directory_iterator open("/proc/self/fd", over);
        for (; open != std::filesystem::directory_iterator(); open.increment(over)) {
            std::error_code closed;
            if (std::filesystem::read_symlink(open->path(), closed) == file.path()) return true;
        }
        return false;
    }
    FileUrl program_(std::string_view name) const {
        const auto program = folder_.url(name);
        const std::filesystem::path path(program.path());
        if (!std::filesystem::is_symlink(path))
            std::filesystem::create_symlink(NOOKWISE_FAKE_WORKER, path);
        return program;
    }

    int files_ = 0;
};

}  // namespace nookwise
