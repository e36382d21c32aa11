#include "platform/WholeFile.h"
#include "tests/support/FailingFileManager.h"
#include "tests/support/FakeFileManager.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class WholeFile : public testing::Test {
  protected:
    FakeFileManager files;
    const FileUrl file{"/file"};
};

TEST_F(WholeFile, isReadToItsEnd) {
    const std::string contents(3'000'000, 'x');
    files.addFile("/file", {.contents = contents});
    const auto read = wholeFile(files, file, contents.size());
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value(), contents);
}

TEST_F(WholeFile, mayBeEmpty) {
    files.addFile("/file");
    EXPECT_EQ(wholeFile(files, file, 10).value(), "");
    EXPECT_EQ(wholeFile(files, file, 0).value(), "");
}

TEST_F(WholeFile, isReadThroughALink) {
    files.addFile("/real", {.contents = "bytes"});
    files.addLink("/file", "/real");
    EXPECT_EQ(wholeFile(files, file, 10).value(), "bytes");
}

TEST_F(WholeFile, isRefusedBeyondTheLimitHoweverLargeItClaimsToBe) {
    files.addFile("/file", {.contents = "bytes"});
    EXPECT_EQ(wholeFile(files, file, 4).error().code, std::errc::file_too_large);
    files.addFile("/file", {.size = std::int64_t{1} << 50});
    EXPECT_EQ(wholeFile(files, file, 5'000'000).error().code, std::errc::file_too_large);
}

TEST_F(WholeFile, isRefusedWhereItGrewBeyondTheLimitMeanwhile) {
    files.addFile("/file", {.contents = "bytes"});
    files.onOperation([&](const FakeOperation& operation) {
        if (operation.kind == FakeOperation::Kind::read) files.setContents("/file", "more bytes");
    });
    EXPECT_EQ(wholeFile(files, file, 5).error().code, std::errc::file_too_large);
}

TEST_F(WholeFile, failsOnWhatIsNoRegularFile) {
    files.addFolder("/file");
    EXPECT_FALSE(wholeFile(files, file, 10));
    files.addOther("/pipe");
    EXPECT_FALSE(wholeFile(files, FileUrl("/pipe"), 10));
    files.addLink("/loop", "/loop");
    EXPECT_FALSE(wholeFile(files, FileUrl("/loop"), 10));
    EXPECT_FALSE(wholeFile(files, FileUrl("/missing"), 10));
}

TEST_F(WholeFile, failsWhereAnyReadFails) {
    files.addFile("/file", {.contents = std::string(3'000'000, 'x')});
    FailingFileManager counting(files, 0);
    ASSERT_TRUE(wholeFile(counting, file, 4'000'000));
    ASSERT_GT(counting.operations(), 3);
    for (int i = 1; i <= counting.operations(); ++i) {
        EXPECT_FALSE(wholeFile(FailingFileManager(files, i), file, 4'000'000)) << i;
    }
}

}  // namespace
}  // namespace nookwise
