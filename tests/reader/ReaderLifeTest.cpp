#include "tests/reader/PdfWriter.h"
#include "tests/reader/Probe.h"
#include "tests/reader/StartedReader.h"
#include "tests/support/TemporaryFolder.h"

#include <array>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/ioprio.h>
#include <sched.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nookwise {
namespace {

const std::string program = READER_PROBE;
const std::vector<std::string> textReader{"text", "0", "0"};
const std::vector<std::string> picturesReader{"pictures", "0", "0"};

std::string kernelFile(const StartedReader& reader, const std::string& name) {
    std::ifstream stream("/proc/" + std::to_string(reader.process()) + "/" + name);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

long diskClass(const StartedReader& reader) {
    return IOPRIO_PRIO_CLASS(::syscall(SYS_ioprio_get, IOPRIO_WHO_PROCESS, reader.process()));
}

rlim_t limit(const StartedReader& reader, __rlimit_resource resource) {
    rlimit both{};
    ::prlimit(reader.process(), resource, nullptr, &both);
    return both.rlim_max;
}

TEST(ReaderLife, readsTextWhenNobodyElseWantsTheMachine) {
    StartedReader reader(program, textReader);
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(::sched_getscheduler(reader.process()), SCHED_IDLE);
    EXPECT_EQ(diskClass(reader), IOPRIO_CLASS_IDLE);
    EXPECT_EQ(kernelFile(reader, "oom_score_adj"), "1000\n");
}

TEST(ReaderLife, makesPicturesAtOnce) {
    StartedReader reader(program, picturesReader);
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(::sched_getscheduler(reader.process()), ::sched_getscheduler(0));
    EXPECT_NE(diskClass(reader), IOPRIO_CLASS_IDLE);
}

TEST(ReaderLife, isLimitedAndClosedToOthers) {
    StartedReader reader(program, picturesReader);
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(limit(reader, RLIMIT_FSIZE), 0U);
    EXPECT_EQ(limit(reader, RLIMIT_CORE), 0U);
    EXPECT_LE(limit(reader, RLIMIT_NOFILE), 64U);
    EXPECT_LE(limit(reader, RLIMIT_STACK), 8U << 20);
    const auto status = kernelFile(reader, "status");
    EXPECT_NE(status.find("NoNewPrivs:\t1\n"), std::string::npos);
    EXPECT_NE(status.find("Seccomp:\t2\n"), std::string::npos);
}

TEST(ReaderLife, isNotEndedByAWarningThatGoesToAFile) {
    StartedReader reader(program, picturesReader);
    ASSERT_TRUE(reader.greeting());
    const auto status = kernelFile(reader, "status");
    const std::string field = "SigIgn:\t";
    const auto ignored =
        std::stoull(status.substr(status.find(field) + field.size(), 16), nullptr, 16);
    EXPECT_NE(ignored & (1ULL << (SIGXFSZ - 1)), 0U);
}

// The rules for files are those of the thread that makes them.
TEST(ReaderLife, isConfinedBeforeItStartsThreads) {
    for (const auto& arguments : {textReader, picturesReader}) {
        StartedReader reader(program, arguments);
        ASSERT_TRUE(reader.greeting());
        EXPECT_NE(kernelFile(reader, "status").find("Threads:\t1\n"), std::string::npos);
    }
}

TEST(ReaderLife, takesNoMoreMemoryThanItMay) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer takes more";
#endif
    const TemporaryFolder home;
    const auto file = home.write("a", "a");
    StartedReader reader(program, picturesReader);
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(reader.ask(asJob(Probe::takeMuchMemory), std::string(file.path()))->bytes,
              std::to_string(ENOMEM));
}

TEST(ReaderLife, saysThatItEndsWhenTooMuchOfItsMemoryIsLost) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's heap is another";
#endif
    const TemporaryFolder home;
    const auto file = home.write("a", "a");
    StartedReader reader(program, picturesReader);
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(reader.ask(asJob(Probe::startThread), std::string(file.path()))->bytes, "0");
    EXPECT_EQ(reader.then(), ReaderThen::waits);
    EXPECT_EQ(reader.ask(asJob(Probe::keepSomeMemory), std::string(file.path()))->bytes, "0");
    EXPECT_EQ(reader.then(), ReaderThen::ends);
    EXPECT_EQ(reader.end().status, 0);
}

TEST(ReaderLife, outlivesTheThreadThatStartedIt) {
    const TemporaryFolder home;
    const auto file = home.write("a.pdf", latinPdf({"Hello"}));
    std::unique_ptr<StartedReader> reader;
    std::thread([&] {
        reader = std::make_unique<StartedReader>(program, picturesReader);
        reader->greeting();
    }).join();
    EXPECT_EQ(reader->ask(ReaderJob::pdfText, std::string(file.path())),
              (ReaderAnswer{0, 0, "Hello\n"}));
}

/// Starts a reader, keeps it busy, and ends without a word.
[[noreturn]] void startAndVanish(const std::string& file, int handedOn) {
    // What this process leaves behind is the reader alone, and with it the pipe.
    ::dup2(handedOn, STDOUT_FILENO);
    StartedReader reader(program, picturesReader);
    reader.greeting();
    reader.request(asJob(Probe::loop), file);
    const bool isBusy = reader.receive(1) == "l";
    ::_exit(isBusy ? 0 : 1);
}

TEST(ReaderLife, endsInTheMiddleOfAFileWhenTheApplicationHasEnded) {
    const TemporaryFolder home;
    const auto file = home.write("a", "a");
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    const pid_t application = ::fork();
    if (application == 0) startAndVanish(std::string(file.path()), pipe[1]);
    ::close(pipe[1]);
    int status = -1;
    ASSERT_EQ(::waitpid(application, &status, 0), application);
    EXPECT_EQ(status, 0);
    // The pipe ends with the last process that could write to it.
    char byte = 0;
    EXPECT_EQ(::read(pipe[0], &byte, 1), 0);
    ::close(pipe[0]);
}

}  // namespace
}  // namespace nookwise
