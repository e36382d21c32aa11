#include "platform/linux/LinuxFileManager.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace nookwise {
namespace {

using ::testing::ElementsAre;

TEST(FolderListing, holdsTheVisibleEntriesOfOneFolderWithTheirTypesInByteOrder) {
    const TemporaryFolder home;
    home.write("b.txt", "12345");
    home.write(".hidden", "");
    home.write("a folder/inside.txt", "");
    home.write("Tool.app/Contents/Info.plist", "12");
    std::filesystem::create_symlink("b.txt", home.path("link"));
    const auto listed = LinuxFileManager().list(home.url(), {});
    ASSERT_TRUE(listed);
    std::vector<std::string> names;
    std::vector<FileType> types;
    for (const auto& entry : listed.value()) {
        names.emplace_back(entry.url.lastPathComponent());
        types.push_back(entry.attributes.type);
    }
    EXPECT_THAT(names, ElementsAre("Tool.app", "a folder", "b.txt", "link"));
    EXPECT_THAT(types, ElementsAre(FileType::package, FileType::folder, FileType::regular,
                                   FileType::other));
    EXPECT_FALSE(listed.value()[0].attributes.fileSize) << "summing up is not listing";
    EXPECT_EQ(listed.value()[2].attributes.fileSize, 5);
}

TEST(FolderListing, isWholeAndInOrderForAFolderOfThousands) {
    const TemporaryFolder home;
    std::vector<std::string> expected;
    for (int i = 10'000; i < 14'000; ++i) {
        expected.push_back(std::to_string(i));
        home.write(expected.back(), expected.back());
    }
    const auto listed = LinuxFileManager().list(home.url(), {});
    ASSERT_TRUE(listed);
    std::vector<std::string> names;
    for (const auto& entry : listed.value()) {
        names.emplace_back(entry.url.lastPathComponent());
        EXPECT_EQ(entry.attributes.fileSize, 5);
    }
    EXPECT_EQ(names, expected);
}

TEST(FolderListing, keepsNamesOfAnyBytesAndAnyLength) {
    const TemporaryFolder home;
    const std::string notText = "caf\xE9\n";
    const std::string longest(255, 'x');
    home.write(notText, "");
    home.write(longest, "");
    const auto listed = LinuxFileManager().list(home.url(), {});
    ASSERT_TRUE(listed);
    ASSERT_EQ(listed.value().size(), 2u);
    EXPECT_EQ(listed.value()[0].url.lastPathComponent(), notText);
    EXPECT_EQ(listed.value()[1].url.lastPathComponent(), longest);
}

TEST(FolderListing, holdsLinksThatLeadNowhereAndPipesThatNobodyWritesTo) {
    const TemporaryFolder home;
    std::filesystem::create_symlink("nowhere", home.path("dangling"));
    std::filesystem::create_symlink("itself", home.path("itself"));
    home.makePipe("pipe");
    const auto listed = LinuxFileManager().list(home.url(), {});
    ASSERT_TRUE(listed);
    ASSERT_EQ(listed.value().size(), 3u);
    for (const auto& entry : listed.value()) EXPECT_EQ(entry.attributes.type, FileType::other);
    EXPECT_FALSE(LinuxFileManager().list(home.url("itself"), {}));
    EXPECT_FALSE(LinuxFileManager().list(home.url("pipe"), {}));
}

TEST(FolderListing, failsOnAFolderThatMayNotBeRead) {
    const TemporaryFolder home;
    home.write("closed/file.txt", "");
    std::filesystem::permissions(home.path("closed"), std::filesystem::perms::none);
    const OrdinaryUser user;
    const auto listed = LinuxFileManager().list(home.url("closed"), {});
    ASSERT_FALSE(listed);
    EXPECT_EQ(listed.error().code, std::errc::permission_denied);
}

TEST(FolderListing, leavesOutWhatMayNotBeExamined) {
    const TemporaryFolder home;
    home.write("names only/file.txt", "");
    using std::filesystem::perms;
    std::filesystem::permissions(home.path("names only"),
                                 perms::owner_read | perms::group_read | perms::others_read);
    const OrdinaryUser user;
    const auto listed = LinuxFileManager().list(home.url("names only"), {});
    ASSERT_TRUE(listed);
    EXPECT_TRUE(listed.value().empty());
}

TEST(FolderListing, failsAfterAStopRequest) {
    const TemporaryFolder home;
    home.write("file.txt", "x");
    std::stop_source source;
    source.request_stop();
    const auto listed = LinuxFileManager().list(home.url(), source.get_token());
    ASSERT_FALSE(listed);
    EXPECT_EQ(listed.error().code, std::errc::operation_canceled);
}

TEST(FolderListing, failsOnAFolderThatIsMissing) {
    const TemporaryFolder home;
    const auto listed = LinuxFileManager().list(home.url("missing"), {});
    ASSERT_FALSE(listed);
    EXPECT_EQ(listed.error().url, home.url("missing"));
}

TEST(Attributes, ofAPackageAreThoseOfOneFile) {
    const TemporaryFolder home;
    home.write("Report.pages/text", "12345");
    const auto attributes = LinuxFileManager().attributes(home.url("Report.pages"));
    ASSERT_TRUE(attributes);
    EXPECT_EQ(attributes.value().type, FileType::package);
    EXPECT_EQ(attributes.value().fileSize, 5);
}

TEST(Attributes, failAfterAStopRequest) {
    const TemporaryFolder home;
    home.write("Report.pages/text", "12345");
    std::stop_source source;
    source.request_stop();
    const auto attributes =
        LinuxFileManager().attributes(home.url("Report.pages"), source.get_token());
    ASSERT_FALSE(attributes);
    EXPECT_EQ(attributes.error().code, std::errc::operation_canceled);
}

TEST(Attributes, ofALinkAreItsOwn) {
    const TemporaryFolder home;
    home.write("file.txt", "");
    std::filesystem::create_symlink("file.txt", home.path("link"));
    EXPECT_EQ(LinuxFileManager().attributes(home.url("link")).value().type, FileType::other);
    EXPECT_FALSE(LinuxFileManager().attributes(home.url("missing")));
}

TEST(Resolving, followsEveryLinkOnThePath) {
    const TemporaryFolder home;
    home.write("real/folder/file.txt", "");
    std::filesystem::create_directory_symlink("real", home.path("link"));
    const LinuxFileManager files;
    const auto base = files.resolved(home.url()).value();
    EXPECT_EQ(files.resolved(home.url("link/folder")).value(), base.append("real/folder"));
    EXPECT_FALSE(files.resolved(home.url("missing")));
    std::filesystem::create_symlink("loop", home.path("loop"));
    EXPECT_FALSE(files.resolved(home.url("loop")));
}

TEST(VolumeFigures, areThoseTheFileSystemGivesToOrdinaryUsers) {
    struct statvfs expected {};
    ASSERT_EQ(::statvfs("/", &expected), 0);
    const auto figures = LinuxFileManager().volumeFigures(FileUrl("/"));
    ASSERT_TRUE(figures);
    EXPECT_EQ(figures.value().totalBytes,
              static_cast<std::int64_t>(expected.f_blocks * expected.f_frsize));
    EXPECT_GT(figures.value().availableBytes, 0);
    EXPECT_LE(figures.value().availableBytes, figures.value().totalBytes);
    EXPECT_FALSE(LinuxFileManager().volumeFigures(FileUrl("/no such place")));
}

}  // namespace
}  // namespace nookwise
