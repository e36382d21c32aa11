#include "platform/linux/ReaderProgram.h"
#include "tests/reader/ReaderPoolFixture.h"

#include <csignal>
#include <map>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

using namespace std::chrono_literals;

class ReaderPoolStart : public ReaderPoolFixture {
  protected:
    /// Also of a second file, without another start: that would fail for want of a program.
    void expectErrorThatIsRemembered(std::string_view program, std::errc reason) {
        expectError(reason);
        std::filesystem::remove(folder_.path(program));
        expectError(reason);
        EXPECT_FALSE(reader().pixelSize(file("say-bytes 1 1 0 0"), {}));
    }
    void expectError(std::errc reason) {
        const auto result = pdf("say hello");
        ASSERT_FALSE(result);
        EXPECT_EQ(result.error().code, reason) << result.error().code.message();
    }
};

TEST_F(ReaderPoolStart, AMissingProgramIsAnErrorAndNotAnEmptyText) {
    reader_ = std::make_unique<LinuxTextReader>(folder_.url("missing"), patientLimits());
    expectError(std::errc::no_such_file_or_directory);
    const auto picture = reader().thumbnail(file("say-bytes 0 0 0 0"), 10, {});
    EXPECT_FALSE(picture);
    const auto size = reader().pixelSize(file("say-bytes 0 0 0 0"), {});
    EXPECT_FALSE(size);
}

TEST_F(ReaderPoolStart, AProgramThatCannotBeRunIsAnError) {
    const auto program = folder_.write("program", "not one");
    reader_ = std::make_unique<LinuxTextReader>(program, patientLimits());
    expectError(std::errc::permission_denied);
}

TEST_F(ReaderPoolStart, AProcessThatDiesBeforeItsGreetingIsAnError) {
    makeReader(patientLimits(), "stillborn");
    expectErrorThatIsRemembered("stillborn", std::errc::no_child_process);
}

TEST_F(ReaderPoolStart, AProcessThatNeverGreetsIsAnError) {
    auto limits = patientLimits();
    limits.start = 50ms;
    makeReader(limits, "silent");
    expectErrorThatIsRemembered("silent", std::errc::timed_out);
}

TEST_F(ReaderPoolStart, AProcessThatGreetsAsAStrangerIsAnError) {
    makeReader(patientLimits(), "stranger");
    expectErrorThatIsRemembered("stranger", std::errc::protocol_error);
}

TEST_F(ReaderPoolStart, ProcessesThatOthersKillAsTheyStartAreReplaced) {
    makeReader(patientLimits(), "killed-at-nine-starts");
    EXPECT_EQ(text("say hello"), "hello");
}

TEST_F(ReaderPoolStart, ProcessesThatAreAllKilledAsTheyStartAreAnErrorForOnce) {
    makeReader(patientLimits(), "killed-at-start");
    expectError(std::errc::resource_unavailable_try_again);
}

TEST_F(ReaderPoolStart, APoolWithoutADescriptorForItselfLendsNothingAndEnds) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs descriptors of its own to look at objects";
#endif
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{.rlim_cur = 0, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    makeReader();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    expectError(std::errc::too_many_files_open);
    EXPECT_FALSE(hasChildren());
    reader_.reset();
}

TEST_F(ReaderPoolStart, AfterAFailedStartNoneIsTriedForAWhile) {
    const auto program = folder_.url("late");
    reader_ = std::make_unique<LinuxTextReader>(program, patientLimits());
    expectError(std::errc::no_such_file_or_directory);
    std::filesystem::create_symlink(NOOKWISE_FAKE_WORKER, folder_.path("late"));
    expectError(std::errc::no_such_file_or_directory);
    EXPECT_FALSE(hasChildren());
}

TEST_F(ReaderPoolStart, AfterThatWhileStartsAreTriedAgain) {
    auto limits = patientLimits();
    limits.afterFailedStart = 0ms;
    const auto program = folder_.url("late");
    reader_ = std::make_unique<LinuxTextReader>(program, limits);
    expectError(std::errc::no_such_file_or_directory);
    std::filesystem::create_symlink(NOOKWISE_FAKE_WORKER, folder_.path("late"));
    EXPECT_EQ(text("say hello"), "hello");
}

TEST_F(ReaderPoolStart, WhileNoneCanBeStartedThoseThatAreThereGoOn) {
    makeReader();
    const auto id = idOfProcess();
    std::filesystem::remove(folder_.path("obedient"));
    EXPECT_FALSE(reader().pixelSize(file("say-bytes 1 1 0 0"), {}));
    EXPECT_EQ(idOfProcess(), id);
}

TEST_F(ReaderPoolStart, HowFarTheProcessesAreConfinedIsRemembered) {
    makeReader(patientLimits(), "unconfined");
    EXPECT_EQ(reader().confinement(), std::nullopt);
    EXPECT_FALSE(hasChildren());
    testing::internal::CaptureStderr();
    EXPECT_EQ(text("say hello"), "hello");
    EXPECT_FALSE(reader().pixelSize(file("say-bytes 0 0 0 0"), {}).value());
    const auto warning = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(warning.begin(), warning.end(), '\n'), 1) << warning;
    const ReaderConfinement expected{.fileSystemError = EOPNOTSUPP, .systemCallsError = EINVAL};
    EXPECT_EQ(reader().confinement(), expected);
}

TEST_F(ReaderPoolStart, NothingIsSaidOfProcessesThatAreConfined) {
    makeReader();
    testing::internal::CaptureStderr();
    EXPECT_EQ(text("say hello"), "hello");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(reader().confinement(), ReaderConfinement());
}

TEST_F(ReaderPoolStart, AProcessGetsItsSocketAndTheFileAndNothingElse) {
    // Any other program that is started from here would get this.
    const FileDescriptor inheritable(::open("/dev/null", O_RDONLY));
    makeReader();
    EXPECT_EQ(text("say-descriptors"), "0 1 2 3 4 ");
    EXPECT_EQ(text("say-streams"), "/dev/null /dev/null /dev/null ");
}

TEST_F(ReaderPoolStart, SignalsActInAProcessAsInAFreshProgram) {
    auto* const before = std::signal(SIGPIPE, SIG_IGN);
    sigset_t blocked{};
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGTERM);
    sigset_t formerly{};
    ::pthread_sigmask(SIG_BLOCK, &blocked, &formerly);
    makeReader();
    EXPECT_EQ(text("say-unusual-signals"), "");
    ::pthread_sigmask(SIG_SETMASK, &formerly, nullptr);
    std::signal(SIGPIPE, before);
}

TEST_F(ReaderPoolStart, OfTheEnvironmentAProcessGetsTheLanguageAndThePlaceOfRecognitionData) {
    const std::map<std::string, std::string> variables{
        {"LANG", "de_DE.UTF-8"},  {"TESSDATA_PREFIX", "/data"},  {"LD_PRELOAD", "/evil.so"},
        {"HOME", "/home/walter"}, {"G_DEBUG", "fatal-warnings"}, {"LC_ALL", ""}};
    const auto environment = readerEnvironment([&](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? std::string() : found->second;
    });
    const std::vector<std::string> expected{"OMP_THREAD_LIMIT=1", "LANG=de_DE.UTF-8",
                                            "TESSDATA_PREFIX=/data"};
    EXPECT_EQ(environment, expected);
}

TEST_F(ReaderPoolStart, AProcessGetsNoOtherEnvironment) {
    const auto german = [](const char* name) {
        return std::string(name) == "LANG" ? "de_DE.UTF-8" : "";
    };
    makeReader();
    reader_ = std::make_unique<LinuxTextReader>(folder_.url("obedient"), patientLimits(), german);
    EXPECT_EQ(text("say-environment"), "OMP_THREAD_LIMIT=1\nLANG=de_DE.UTF-8\n");
}

TEST(ReaderProgram, AnInstalledOneLiesBesideTheFolderOfPrograms) {
    const FileUrl expected("/usr/libexec/nookwise/nookwise-reader");
    EXPECT_EQ(readerProgramOf(FileUrl("/usr/bin/nookwise")), expected);
}

TEST(ReaderProgram, ABuiltOneLiesInTheBuildTreeOfItsApplication) {
    const TemporaryFolder build;
    const auto program = build.write("reader/nookwise-reader", "");
    ::chmod(build.path("reader/nookwise-reader").c_str(), 0755);
    EXPECT_EQ(readerProgramOf(build.url("ui/nookwise")), program);
    EXPECT_EQ(readerProgramOf(build.url("tools/demo/nookwise-demo")), program);
}

TEST(ReaderProgram, WithoutOneThePlaceIsStillTold) {
    const TemporaryFolder build;
    EXPECT_EQ(readerProgramOf(build.url("ui/nookwise")),
              build.url("libexec/nookwise/nookwise-reader"));
    EXPECT_EQ(readerProgram().lastPathComponent(), "nookwise-reader");
}

TEST_F(ReaderPoolStart, AProcessThatCannotRecogniseReadsDocumentsAndLearnsNothingOfPictures) {
    makeReader(oneProcess(), "illiterate");
    const auto id = idOfProcess();
    const auto picture = file("say text");
    const auto result = reader().ocr(picture, RecognitionGrade::fast, {});
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, std::errc::no_such_file_or_directory);
    EXPECT_EQ(result.error().url, picture);
    EXPECT_EQ(result.error().operation, "recognise");
    EXPECT_EQ(text("say-id"), std::to_string(id));
}

}  // namespace
}  // namespace nookwise
