#include "tests/reader/Probe.h"
#include "tests/reader/StartedReader.h"
#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nookwise {
namespace {

const std::string program = READER_PROBE;

/// Numbers stand for what the kernel is taken to lack.
const std::vector<std::string> confined{"text", "0", "0"};
const std::vector<std::string> withoutFileRules{"text", std::to_string(ENOSYS), "0"};
const std::vector<std::string> withoutCallFilter{"text", "0", std::to_string(EINVAL)};
const std::vector<std::string> unconfined{"text", std::to_string(ENOSYS), std::to_string(EINVAL)};

/// The sanitizers need a call that is refused otherwise; then the descriptor itself refuses it.
#ifdef __SANITIZE_ADDRESS__
constexpr int writeRefused = EBADF;
#else
constexpr int writeRefused = EPERM;
#endif

/// A home with a file in it that a user would not want to be read.
class Home {
  public:
    Home() { folder_.write("Documents/letter.txt", "dear reader"); }

    std::string letter() const { return folder_.path("Documents/letter.txt"); }
    std::string documents() const { return folder_.path("Documents"); }
    std::string nothingYet() const { return folder_.path("Documents/new"); }

    /// The errno of what is tried.
    std::string attempt(StartedReader& reader, Probe probe, const std::string& target) const {
        const auto file = folder_.write("target", target);
        const auto answer = reader.ask(asJob(probe), std::string(file.path()));
        return answer ? answer->bytes : "no answer";
    }

    bool isUntouched() const {
        const auto names = std::filesystem::directory_iterator(documents());
        return std::filesystem::file_size(letter()) == 11 &&
               std::distance(begin(names), end(names)) == 1;
    }

  private:
    TemporaryFolder folder_;
};

std::string code(int error) {
    return std::to_string(error);
}

struct Refusal {
    Probe probe;
    std::string target;
    int error = EPERM;
};

void expectRefusals(const std::vector<std::string>& arguments, const Home& home,
                    const std::vector<Refusal>& refusals) {
    StartedReader reader(program, arguments);
    ASSERT_TRUE(reader.greeting());
    for (const auto& refusal : refusals) {
        EXPECT_EQ(home.attempt(reader, refusal.probe, refusal.target), code(refusal.error))
            << "probe " << static_cast<unsigned>(refusal.probe) << " of " << refusal.target;
    }
    EXPECT_TRUE(home.isUntouched());
}

std::string parentsFile(const std::string& name) {
    return "/proc/" + std::to_string(::getpid()) + "/" + name;
}

TEST(ConfinedReader, saysThatItIsConfined) {
    for (const std::string role : {"text", "pictures"}) {
        StartedReader reader(program, {role, "0", "0"});
        const auto greeting = reader.greeting();
        ASSERT_TRUE(greeting) << role;
        EXPECT_EQ(greeting->mark, ReaderGreeting::expectedMark);
        EXPECT_EQ(greeting->fileSystemError, 0);
        EXPECT_EQ(greeting->systemCallsError, 0);
    }
}

TEST(ConfinedReader, opensNoFileOfTheUserOrTheSystem) {
    const Home home;
    expectRefusals(confined, home,
                   {{Probe::openForReading, home.letter(), EACCES},
                    {Probe::openForReading, "/etc/passwd", EACCES},
                    {Probe::openForReading, "/proc/self/environ", EACCES},
                    {Probe::openForReading, parentsFile("environ"), EACCES},
                    {Probe::openForReading, parentsFile("mem"), EACCES},
                    {Probe::openForReading, "/dev/zero", EACCES},
                    {Probe::listFolder, home.documents(), EACCES},
                    {Probe::listFolder, "/", EACCES},
                    {Probe::openAnyhow, home.letter()},
                    {Probe::lookAt, home.letter()}});
}

TEST(ConfinedReader, writesAndChangesNoFile) {
    const Home home;
    expectRefusals(confined, home,
                   {{Probe::openForWriting, home.letter()},
                    {Probe::openForWriting, "/dev/null"},
                    {Probe::createFile, home.nothingYet()},
                    {Probe::createFile, "/tmp/nookwise-probe"},
                    {Probe::createFolder, home.nothingYet()},
                    {Probe::removeFile, home.letter()},
                    {Probe::renameFile, home.letter()},
                    {Probe::changeMode, home.letter()},
                    {Probe::makeMemoryFile, ""}});
}

TEST(ConfinedReader, doesNotChangeTheFileItWasHanded) {
    const Home home;
    expectRefusals(confined, home,
                   {{Probe::writeToPassedFile, "", writeRefused},
                    {Probe::truncatePassedFile, ""},
                    {Probe::changeModeOfPassedFile, ""},
                    {Probe::changeTimesOfPassedFile, ""},
                    {Probe::tagPassedFile, ""},
                    {Probe::reopenPassedFile, ""}});
}

TEST(ConfinedReader, reachesNoNetworkAndNoService) {
    const Home home;
    expectRefusals(confined, home,
                   {{Probe::makeUnixSocket, ""},
                    {Probe::makeInternetSocket, ""},
                    {Probe::makeNetlinkSocket, ""},
                    {Probe::makeSocketPair, ""},
                    {Probe::connectSocket, ""},
                    {Probe::bindTcpPort, ""},
                    {Probe::useIoUring, ""}});
}

TEST(ConfinedReader, startsNoProgramAndTouchesNoProcess) {
    const Home home;
    const auto parent = std::to_string(::getpid());
    expectRefusals(confined, home,
                   {{Probe::execute, "/bin/true"},
                    {Probe::forkProcess, ""},
                    {Probe::signalProcess, parent},
                    {Probe::traceProcess, parent},
                    {Probe::readProcessMemory, parent},
                    {Probe::makeNamespace, ""}});
}

TEST(ConfinedReader, makesNoNewCodeAndKeepsItsLimits) {
    const Home home;
    expectRefusals(
        confined, home,
        {{Probe::makeCodeInMemory, ""}, {Probe::turnMemoryIntoCode, ""}, {Probe::raiseLimit, ""}});
}

TEST(ConfinedReader, takesNoMemoryThatItsLimitDoesNotCount) {
    const Home home;
    expectRefusals(confined, home, {{Probe::takeSharedMemory, ""}, {Probe::takeGrowingMemory, ""}});
}

// Not what is wanted, but what a filter of calls cannot help.
TEST(ConfinedReader, canLearnSizeAndTimesOfAFileWhosePathItKnows) {
    const Home home;
    StartedReader reader(program, confined);
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(home.attempt(reader, Probe::lookAtAsIfOpen, home.letter()), code(0));
    EXPECT_EQ(home.attempt(reader, Probe::lookAtAsIfOpen, home.nothingYet()), code(ENOENT));
    EXPECT_EQ(home.attempt(reader, Probe::openForReading, home.letter()), code(EACCES));
}

TEST(ConfinedReader, mayReadItsTablesAndStartThreads) {
    const Home home;
    StartedReader reader(program, confined);
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(
        home.attempt(reader, Probe::openForReading, "/usr/share/poppler/cMap/Adobe-GB1/GBK-EUC-H"),
        code(0));
    EXPECT_EQ(
        home.attempt(reader, Probe::openForWriting, "/usr/share/poppler/cMap/Adobe-GB1/GBK-EUC-H"),
        code(EPERM));
    EXPECT_EQ(home.attempt(reader, Probe::startThread, ""), code(0));
}

// As on a kernel without Landlock.
TEST(ReaderWithoutFileRules, opensNothingAtAll) {
    const Home home;
    expectRefusals(withoutFileRules, home,
                   {{Probe::openForReading, home.letter(), EACCES},
                    {Probe::openForReading, "/usr/share/poppler/cMap/Adobe-GB1/GBK-EUC-H", EACCES},
                    {Probe::createFile, home.nothingYet(), EACCES},
                    {Probe::reopenPassedFile, "", EACCES},
                    {Probe::removeFile, home.letter()},
                    {Probe::makeInternetSocket, ""},
                    {Probe::execute, "/bin/true"},
                    {Probe::signalProcess, std::to_string(::getpid())}});
}

// As on a kernel without seccomp.
TEST(ReaderWithoutCallFilter, stillOpensAndChangesNoFile) {
    const Home home;
    expectRefusals(withoutCallFilter, home,
                   {{Probe::openForReading, home.letter(), EACCES},
                    {Probe::openForReading, "/etc/passwd", EACCES},
                    {Probe::openForWriting, home.letter(), EACCES},
                    {Probe::listFolder, home.documents(), EACCES},
                    {Probe::createFile, home.nothingYet(), EACCES},
                    {Probe::createFolder, home.nothingYet(), EACCES},
                    {Probe::removeFile, home.letter(), EACCES},
                    {Probe::reopenPassedFile, "", EACCES},
                    {Probe::execute, "/bin/true", EACCES}});
}

TEST(DegradedReader, saysWhatIsMissingAndWhy) {
    for (const auto& [arguments, files, calls] :
         {std::tuple(withoutFileRules, ENOSYS, 0), std::tuple(withoutCallFilter, 0, EINVAL)}) {
        StartedReader reader(program, arguments);
        const auto greeting = reader.greeting();
        ASSERT_TRUE(greeting);
        EXPECT_EQ(greeting->fileSystemError, files);
        EXPECT_EQ(greeting->systemCallsError, calls);
    }
}

TEST(UnconfinedReader, readsNothing) {
    StartedReader reader(program, unconfined);
    EXPECT_FALSE(reader.greeting());
    const auto end = reader.end();
    EXPECT_TRUE(WIFEXITED(end.status) && WEXITSTATUS(end.status) == 2) << end.status;
}

}  // namespace
}  // namespace nookwise
