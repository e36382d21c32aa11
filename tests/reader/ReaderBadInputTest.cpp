#include "tests/reader/Deflated.h"
#include "tests/reader/PdfWriter.h"
#include "tests/reader/Probe.h"
#include "tests/reader/StartedReader.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace nookwise {
namespace {

/// Of thumbnails; other jobs take no notice.
constexpr std::int32_t longestSide = 256;

constexpr long mebibyte = 1024;  // in kibibytes, as the kernel counts

/// Arrays of half a million numbers each. They have no end, so that all is read before any is used.
std::string arraysWithoutEnd(std::size_t count) {
    std::string numbers;
    while (numbers.size() < 1'000'000) numbers += "1 ";
    return compressedPdf(deflated("[" + numbers, count));
}

/// Processes one after the other, as the application has them: whatever a file does to one is over
/// with the next.
class Successors {
  public:
    std::optional<ReaderAnswer> ask(ReaderJob job, const std::string& path) {
        if (!reader_) start();
        const auto answer = reader_->ask(job, path, longestSide);
        if (!answer || reader_->then() == ReaderThen::ends) reader_.reset();
        return answer;
    }

  private:
    void start() {
        reader_.emplace(READER_PROBE, std::vector<std::string>{"pictures", "0", "0"});
        EXPECT_TRUE(reader_->greeting());
    }

    std::optional<StartedReader> reader_;
};

/// Until it ends, or says that the file gives nothing.
class BadInput : public testing::Test {
  protected:
    BadInput() : reader_(READER_PROBE, {"text", "0", "0"}) { EXPECT_TRUE(reader_.greeting()); }

    std::string write(const std::string& contents) const {
        return std::string(folder_.write("file", contents).path());
    }

    std::optional<ReaderAnswer> ask(ReaderJob job, const std::string& contents) {
        return reader_.ask(job, write(contents), longestSide);
    }

    void expectStillReads() {
        EXPECT_EQ(ask(ReaderJob::pdfText, latinPdf({"Hello"})), (ReaderAnswer{0, 0, "Hello\n"}));
    }

    long mostMemory() {
        reader_.closeSocket();
        return reader_.end().used.ru_maxrss;
    }

    TemporaryFolder folder_;
    StartedReader reader_;
};

TEST_F(BadInput, aHugePictureOfFewBytesIsNotDecoded) {
    const auto picture = emptyPng({20'000, 20'000});
    EXPECT_LT(picture.size(), 8'000'000U);
    EXPECT_EQ(ask(ReaderJob::recogniseFast, picture), ReaderAnswer());
    EXPECT_EQ(ask(ReaderJob::recogniseAccurate, picture), ReaderAnswer());
    EXPECT_EQ(ask(ReaderJob::thumbnail, picture), ReaderAnswer());
    expectStillReads();
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LT(mostMemory(), 400 * mebibyte);
#endif
}

TEST_F(BadInput, anEmptyFileGivesNothing) {
    for (const auto job :
         {ReaderJob::pdfText, ReaderJob::recogniseFast, ReaderJob::recogniseAccurate,
          ReaderJob::thumbnail, ReaderJob::pixelSize}) {
        EXPECT_EQ(ask(job, ""), ReaderAnswer());
    }
    expectStillReads();
}

TEST_F(BadInput, aDocumentIsNoPictureToRecognise) {
    EXPECT_EQ(ask(ReaderJob::recogniseFast, latinPdf({"Hello"})), ReaderAnswer());
    expectStillReads();
}

TEST_F(BadInput, aPageThatUnfoldsToGigabytesCostsNoMoreMemoryThanTheLimit) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer takes more";
#endif
    const auto bomb = arraysWithoutEnd(2'000);
    ASSERT_LT(bomb.size(), 20'000'000U);
    const auto answer = ask(ReaderJob::pdfText, bomb);
    // Either way it is this one file that is lost.
    EXPECT_LT(answer.value_or(ReaderAnswer()).bytes.size(), 2U);
    EXPECT_LT(mostMemory(), 1'300 * mebibyte);
}

// Libraries do not give back what they held when memory ran out.
TEST_F(BadInput, documentsThatTakeMemoryTakeItFromNoOtherFile) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer takes more";
#endif
    const auto picture = write(emptyPng({3'000, 2'000}));
    // The first ones lose some memory each, the others all that there is.
    for (const std::size_t count : {30U, 130U}) {
        const auto bomb = std::string(
            folder_.write("bomb " + std::to_string(count), arraysWithoutEnd(count)).path());
        Successors processes;
        for (int turn = 0; turn < 4; ++turn) processes.ask(ReaderJob::pdfText, bomb);
        const auto document = std::string(folder_.write("a.pdf", latinPdf({"Hello"})).path());
        EXPECT_EQ(processes.ask(ReaderJob::pdfText, document), (ReaderAnswer{0, 0, "Hello\n"}));
        const auto drawn = processes.ask(ReaderJob::thumbnail, picture);
        ASSERT_TRUE(drawn);
        EXPECT_EQ(drawn->width, longestSide);
    }
}

TEST_F(BadInput, aFileThatIsCutOffWhileItIsReadCostsOneProcess) {
    const auto path = write(latinPdf(std::vector<std::string>(15, std::string(2'000, 'x'))));
    reader_.request(asJob(Probe::readPdfLater), path);
    ASSERT_EQ(reader_.receive(1), "m");
    std::filesystem::resize_file(path, 0);
    reader_.send("c");
    EXPECT_FALSE(reader_.answer());
#ifndef __SANITIZE_ADDRESS__
    const auto end = reader_.end();
    EXPECT_TRUE(WIFSIGNALED(end.status) && WTERMSIG(end.status) == SIGBUS) << end.status;
#endif
}

TEST_F(BadInput, arraysInsideArraysWithoutEndSayNothing) {
    EXPECT_EQ(ask(ReaderJob::pdfText, compressedPdf(deflated(std::string(1'000'000, '[')))),
              (ReaderAnswer{0, 0, "\n"}));
    expectStillReads();
}

}  // namespace
}  // namespace nookwise
