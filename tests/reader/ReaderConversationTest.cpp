#include "tests/reader/PdfWriter.h"
#include "tests/reader/Probe.h"
#include "tests/reader/StartedReader.h"
#include "tests/support/TemporaryFolder.h"

#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nookwise {
namespace {

const std::string program = READER_PROBE;
const std::vector<std::string> arguments{"pictures", "0", "0"};

std::string bytesOf(const ReaderRequest& request) {
    return {reinterpret_cast<const char*>(&request), sizeof request};
}

/// Open files that are closed with it.
class OpenFiles {
  public:
    OpenFiles(std::initializer_list<int> numbers) : numbers_(numbers) {}
    ~OpenFiles() {
        for (const int number : numbers_) ::close(number);
    }
    OpenFiles(const OpenFiles&) = delete;
    OpenFiles& operator=(const OpenFiles&) = delete;
    const std::vector<int>& numbers() const { return numbers_; }

  private:
    std::vector<int> numbers_;
};

/// Ends with the exit code for a conversation that makes no sense.
void expectEnds(StartedReader& reader) {
    EXPECT_FALSE(reader.answer());
    const auto end = reader.end();
    EXPECT_TRUE(WIFEXITED(end.status) && WEXITSTATUS(end.status) == 1) << end.status;
}

TEST(ReaderConversation, answersOneRequestAfterAnother) {
    const TemporaryFolder home;
    const auto file = home.write("a.pdf", latinPdf({"Hello"}));
    StartedReader reader(program, arguments);
    ASSERT_TRUE(reader.greeting());
    for (int turn = 0; turn < 300; ++turn) {
        EXPECT_EQ(reader.ask(ReaderJob::pdfText, std::string(file.path())),
                  (ReaderAnswer{0, 0, "Hello\n"}));
    }
}

TEST(ReaderConversation, takesRequestsThatCameBeforeTheAnswerBeforeThem) {
    const TemporaryFolder home;
    const auto first = home.write("a.pdf", latinPdf({"First"}));
    const auto second = home.write("b.pdf", latinPdf({"Second"}));
    StartedReader reader(program, arguments);
    reader.request(ReaderJob::pdfText, std::string(first.path()));
    reader.request(ReaderJob::pdfText, std::string(second.path()));
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(reader.answer(), (ReaderAnswer{0, 0, "First\n"}));
    EXPECT_EQ(reader.answer(), (ReaderAnswer{0, 0, "Second\n"}));
}

TEST(ReaderConversation, endsWhenTheOtherEndIsClosed) {
    StartedReader reader(program, arguments);
    ASSERT_TRUE(reader.greeting());
    reader.closeSocket();
    EXPECT_EQ(reader.end().status, 0);
}

TEST(ReaderConversation, endsWithoutAGreetingWhenNobodyIsThereAnyMore) {
    StartedReader reader(program, arguments);
    reader.closeSocket();
    EXPECT_TRUE(WIFEXITED(reader.end().status));
}

TEST(ReaderConversation, endsWithoutAGreetingWhereItHasNoSuchRole) {
    StartedReader reader(program, {"dancer", "0", "0"});
    EXPECT_FALSE(reader.greeting());
    const auto end = reader.end();
    EXPECT_TRUE(WIFEXITED(end.status) && WEXITSTATUS(end.status) == 2) << end.status;
}

TEST(ReaderConversation, endsAtARequestWithoutAFile) {
    StartedReader reader(program, arguments);
    ASSERT_TRUE(reader.greeting());
    reader.send(bytesOf({}));
    expectEnds(reader);
}

TEST(ReaderConversation, endsAtARequestWithTwoFiles) {
    const TemporaryFolder home;
    const auto path = home.write("a", "a");
    const OpenFiles files{::open(std::string(path.path()).c_str(), O_RDONLY),
                          ::open(std::string(path.path()).c_str(), O_RDONLY)};
    StartedReader reader(program, arguments);
    ASSERT_TRUE(reader.greeting());
    reader.send(bytesOf({}), files.numbers());
    expectEnds(reader);
}

TEST(ReaderConversation, endsAtARequestWithTwentyFiles) {
    const TemporaryFolder home;
    const auto path = home.write("a", "a");
    const OpenFiles file{::open(std::string(path.path()).c_str(), O_RDONLY)};
    StartedReader reader(program, arguments);
    ASSERT_TRUE(reader.greeting());
    reader.send(bytesOf({}), std::vector<int>(20, file.numbers().front()));
    expectEnds(reader);
}

TEST(ReaderConversation, endsAtWhatIsNoRegularFile) {
    const TemporaryFolder home;
    const auto pipe = home.makePipe("pipe");
    const OpenFiles files{::open(std::string(pipe.path()).c_str(), O_RDONLY | O_NONBLOCK),
                          ::open("/dev/zero", O_RDONLY), ::open("/", O_RDONLY | O_DIRECTORY),
                          ::socket(AF_UNIX, SOCK_STREAM, 0)};
    for (const int file : files.numbers()) {
        StartedReader reader(program, arguments);
        ASSERT_TRUE(reader.greeting());
        reader.send(bytesOf({}), {file});
        expectEnds(reader);
    }
}

TEST(ReaderConversation, endsAtATornRequest) {
    const TemporaryFolder home;
    const auto path = home.write("a", "a");
    const OpenFiles file{::open(std::string(path.path()).c_str(), O_RDONLY)};
    StartedReader reader(program, arguments);
    ASSERT_TRUE(reader.greeting());
    reader.send(bytesOf({}).substr(0, 3), file.numbers());
    reader.closeSocket();
    const auto end = reader.end();
    EXPECT_TRUE(WIFEXITED(end.status) && WEXITSTATUS(end.status) == 1) << end.status;
}

// Whoever threw may have left anything behind.
TEST(ReaderConversation, endsAtAJobThatThrows) {
    const TemporaryFolder home;
    const auto file = std::string(home.write("a.pdf", latinPdf({"Hello"})).path());
    StartedReader reader(program, arguments);
    ASSERT_TRUE(reader.greeting());
    EXPECT_FALSE(reader.ask(asJob(Probe::throwSomething), file));
    const auto end = reader.end();
    EXPECT_TRUE(WIFEXITED(end.status) && WEXITSTATUS(end.status) == 3) << end.status;
}

TEST(ReaderConversation, givesNothingForAJobItDoesNotKnow) {
    const TemporaryFolder home;
    const auto file = home.write("a.pdf", latinPdf({"Hello"}));
    StartedReader reader(READER_PROGRAM, {"pictures"});
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(reader.ask(asJob(Probe::makeUnixSocket), std::string(file.path())), ReaderAnswer());
}

TEST(ReaderConversation, recognisesNothingInTheRoleOfMakingPictures) {
    const TemporaryFolder home;
    const auto file = home.write("a.png", "a");
    StartedReader reader(READER_PROGRAM, {"pictures"});
    ASSERT_TRUE(reader.greeting());
    EXPECT_EQ(reader.ask(ReaderJob::recogniseFast, std::string(file.path())), ReaderAnswer());
}

}  // namespace
}  // namespace nookwise
