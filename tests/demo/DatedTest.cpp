#include "tests/support/FakeFileManager.h"
#include "tests/support/FakeMetadata.h"
#include "tools/demo/DatedFileManager.h"
#include "tools/demo/DatedMetadata.h"

#include <gtest/gtest.h>

namespace nookwise::demo {
namespace {

constexpr Date birth{Seconds{1'000}};
constexpr Date agreedDate{Seconds{500}};

class Dated : public ::testing::Test {
  protected:
    Dated() {
        real.addFile("/home/old.zip", {.contents = "zip", .added = birth});
        real.addFile("/home/plain.zip", {.contents = "plain", .added = birth});
    }

    static void expectAgreed(const FileAttributes& attributes) {
        EXPECT_EQ(attributes.added, agreedDate);
        EXPECT_EQ(attributes.allocatedSize, 700);
        EXPECT_EQ(attributes.fileSize, 3);
    }

    FakeFileManager real;
    AgreedFiles agreed{{FileUrl("/home/old.zip"), {.added = agreedDate, .allocatedSize = 700}}};
    DatedFileManager files{real, agreed};
};

TEST_F(Dated, filesHaveTheirAgreedDateAndSizeHoweverTheyAreAskedFor) {
    std::vector<FoundFile> found;
    const auto collect = [&](FoundFile&& file) { found.push_back(std::move(file)); };
    ASSERT_TRUE(files.enumerate(FileUrl("/home"), {}, collect, {}));
    ASSERT_EQ(found.size(), 2U);
    expectAgreed(found[0].attributes);

    const auto listed = files.list(FileUrl("/home"), {});
    ASSERT_TRUE(listed);
    expectAgreed(listed.value().at(0).attributes);

    const auto attributes = files.attributes(FileUrl("/home/old.zip"));
    ASSERT_TRUE(attributes);
    expectAgreed(attributes.value());
}

TEST_F(Dated, otherFilesAreLeftAsTheyAre) {
    const FileUrl other("/home/plain.zip");
    EXPECT_EQ(files.attributes(other).value(), real.attributes(other).value());
}

TEST_F(Dated, withoutAnAgreedSizeTheRealOneCounts) {
    agreed.at(FileUrl("/home/old.zip")).allocatedSize.reset();
    EXPECT_EQ(files.attributes(FileUrl("/home/old.zip")).value().allocatedSize, 3);
}

TEST_F(Dated, failuresArePassedOn) {
    EXPECT_FALSE(files.attributes(FileUrl("/home/missing")));
    EXPECT_FALSE(files.list(FileUrl("/missing"), {}));
    EXPECT_FALSE(files.enumerate(FileUrl("/missing"), {}, [](FoundFile&&) {}, {}));
}

TEST_F(Dated, anAgreedFileWasUsedWhenAgreedOrNever) {
    FakeMetadata desktop;
    desktop.setLastUsed("/home/old.zip", birth);
    desktop.setLastUsed("/home/plain.zip", birth);
    const DatedMetadata metadata(desktop, agreed);
    EXPECT_EQ(metadata.lastUsed(FileUrl("/home/old.zip")), std::nullopt);
    EXPECT_EQ(metadata.lastUsed(FileUrl("/home/plain.zip")), birth);

    agreed.at(FileUrl("/home/old.zip")).lastUsed = agreedDate;
    EXPECT_EQ(metadata.lastUsed(FileUrl("/home/old.zip")), agreedDate);
}

}  // namespace
}  // namespace nookwise::demo
