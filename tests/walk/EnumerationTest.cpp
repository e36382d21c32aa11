#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/walk/Walked.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

namespace nookwise {
namespace {

using std::filesystem::create_directory_symlink;
using std::filesystem::create_symlink;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Enumeration, reportsEachFoldersContentsWhereItsNameStandsInByteOrder) {
    const TemporaryFolder home;
    for (const auto* name :
         {"b.txt", "a/z.txt", "a/b/deep.txt", "a.txt", "B.txt", "ä.txt", "c/1.txt"})
        home.write(name, "");
    EXPECT_THAT(walkedPaths(home.url()), ElementsAre("B.txt", "a/b/deep.txt", "a/z.txt", "a.txt",
                                                     "b.txt", "c/1.txt", "ä.txt"));
}

TEST(Enumeration, reportsTheSameOrderEveryTimeThoughSeveralThreadsRead) {
    const TemporaryFolder home;
    for (int i = 0; i < 400; ++i) {
        home.write(
            std::to_string(i % 7) + "/" + std::to_string(i % 31) + "/" + std::to_string(i) + ".txt",
            "");
    }
    const auto first = walkedPaths(home.url());
    EXPECT_EQ(first.size(), 400U);
    for (int run = 0; run < 20; ++run) EXPECT_EQ(walkedPaths(home.url()), first);
}

TEST(Enumeration, leavesOutHiddenFilesAndHiddenFolders) {
    const TemporaryFolder home;
    for (const auto* name : {".hidden.txt", ".git/config", "shown.txt"}) home.write(name, "");
    EXPECT_THAT(walkedPaths(home.url()), ElementsAre("shown.txt"));
}

TEST(Enumeration, leavesOutLinksPipesSocketsAndDevices) {
    const TemporaryFolder home;
    home.write("real.pdf", "");
    home.makeFolder("folder");
    create_symlink("real.pdf", home.path("link.pdf"));
    create_symlink("nothing", home.path("dangling.pdf"));
    create_directory_symlink("folder", home.path("linked folder"));
    home.makePipe("pipe.pdf");
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    home.path("socket.pdf").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
    // Only root may make a device; for others the test is about the rest.
    (void)::mknod(home.path("device.pdf").c_str(), S_IFCHR | 0600, makedev(1, 3));
    EXPECT_THAT(walkedPaths(home.url()), ElementsAre("real.pdf"));
}

TEST(Enumeration, isNotCaughtInALoopOfLinks) {
    const TemporaryFolder home;
    home.write("a/file.txt", "");
    create_directory_symlink("..", home.path("a/up"));
    create_directory_symlink(home.path(), home.path("a/top"));
    create_symlink("self", home.path("self"));
    EXPECT_THAT(walkedPaths(home.url()), ElementsAre("a/file.txt"));
}

TEST(Enumeration, readsARootThatIsALinkAndNamesItsFilesByTheLink) {
    const TemporaryFolder home;
    home.write("elsewhere/file.txt", "");
    create_directory_symlink("elsewhere", home.path("Downloads"));
    EXPECT_THAT(walkedPaths(home.url("Downloads")), ElementsAre("file.txt"));
}

TEST(Enumeration, failsOnARootThatIsMissingOrNoFolder) {
    const TemporaryFolder home;
    home.write("file.txt", "");
    const LinuxFileManager files;
    const auto never = [](FoundFile&&) { FAIL() << "nothing can be found"; };
    const auto missing = files.enumerate(home.url("missing"), {}, never, {});
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().code, std::errc::no_such_file_or_directory);
    const auto noFolder = files.enumerate(home.url("file.txt"), {}, never, {});
    ASSERT_FALSE(noFolder);
    EXPECT_EQ(noFolder.error().code, std::errc::not_a_directory);
}

TEST(Enumeration, doesNotWaitForAPipeInPlaceOfTheRoot) {
    const TemporaryFolder home;
    home.makePipe("Downloads");
    EXPECT_FALSE(LinuxFileManager().enumerate(home.url("Downloads"), {}, [](FoundFile&&) {}, {}));
}

TEST(Enumeration, keepsNamesThatAreNotUtf8OrHoldNewlinesOrAreAsLongAsNamesGet) {
    const TemporaryFolder home;
    const std::string longest = std::string(251, 'n') + ".txt";
    const std::string notUtf8 = "bad \xff\xfe\xe9.pdf";
    const std::string newline = "two\nlines.pdf";
    for (const auto& name : {longest, notUtf8, newline}) home.write(name, "x");
    EXPECT_THAT(walkedPaths(home.url()), ElementsAre(notUtf8, longest, newline));
}

TEST(Enumeration, skipsFoldersThatItMayNotRead) {
    const TemporaryFolder home;
    home.write("closed/in.txt", "");
    home.write("listed only/in.txt", "");
    home.write("open.txt", "");
    ::chmod(home.path("closed").c_str(), 0);
    ::chmod(home.path("listed only").c_str(), 0444);
    const OrdinaryUser user;
    EXPECT_THAT(walkedPaths(home.url()), ElementsAre("open.txt"));
    EXPECT_THAT(walkedPaths(home.url("closed")), ElementsAre("failed: Permission denied"));
}

TEST(Enumeration, asksTheRulesAboutFoldersBelowTheRootOnly) {
    const TemporaryFolder home;
    home.write("go.mod", "");
    home.write("plain/file.txt", "");
    home.write("skipped/file.txt", "");
    home.write("project/.git/config", "");
    home.write("project/file.txt", "");
    const EnumerationRules rules{
        .skipsFolder =
            [](const FileUrl& folder) { return folder.lastPathComponent() == "skipped"; },
        .skipsFolderHolding =
            [](std::span<const std::string_view> names) {
                return std::any_of(names.begin(), names.end(), [](std::string_view name) {
                    return name == ".git" || name == "go.mod";
                });
            }};
    EXPECT_THAT(walkedPaths(home.url(), rules), ElementsAre("go.mod", "plain/file.txt"));
}

TEST(Enumeration, countsAPackageAsOneFileOfTheSizeOfAllThatIsInside) {
    const TemporaryFolder home;
    const std::string block(4096, 'x');
    home.write("Report.pages/index.xml", block);
    home.write("Report.pages/.hidden", block);
    home.write("Report.pages/Data/deep/picture.png", block + block);
    create_directory_symlink("/", home.path("Report.pages/root"));
    home.write("plain.folder/in.txt", "");
    const auto attributes = walkedAttributes(home.url());
    ASSERT_EQ(attributes.size(), 2U);
    const auto& package = attributes.at("Report.pages");
    EXPECT_EQ(package.type, FileType::package);
    EXPECT_EQ(package.fileSize, 4 * 4096);
    EXPECT_EQ(package.allocatedSize, 4 * 4096);
    EXPECT_TRUE(package.modified.has_value());
}

TEST(Enumeration, reportsSizeOnDiskLengthAndTimes) {
    const TemporaryFolder home;
    const auto before = Date::clock::now() - std::chrono::seconds(2);
    home.write("file.bin", std::string(5000, 'x'));
    const auto path = home.path("file.bin");
    const timespec times[2] = {{.tv_sec = 1'000'000, .tv_nsec = 0},
                               {.tv_sec = 1'234'567, .tv_nsec = 500'000'000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    const auto file = walkedAttributes(home.url()).at("file.bin");
    EXPECT_EQ(file.type, FileType::regular);
    EXPECT_EQ(file.cloud, CloudState::local);
    EXPECT_EQ(file.fileSize, 5000);
    EXPECT_EQ(file.allocatedSize, 8192);
    EXPECT_EQ(file.modified, Date(Seconds(1'234'567.5)));
    if (file.added) {
        EXPECT_GT(*file.added, before) << "the birth time is not the time that was set";
    }
}

TEST(Enumeration, handlesDatesFarFromNow) {
    const TemporaryFolder home;
    const auto setModified = [&](const char* name, std::int64_t seconds) {
        const timespec times[2] = {{.tv_sec = seconds, .tv_nsec = 0},
                                   {.tv_sec = seconds, .tv_nsec = 0}};
        return ::utimensat(AT_FDCWD, std::string(home.write(name, "x").path()).c_str(), times, 0);
    };
    ASSERT_EQ(setModified("before 1970", -1'000'000'000), 0);
    // The year 2300. A file system may not reach it and keep its own last date, but the walk must
    // not care.
    ASSERT_EQ(setModified("after 2262", 10'413'792'000), 0);
    const auto attributes = walkedAttributes(home.url());
    EXPECT_EQ(attributes.at("before 1970").modified, Date(Seconds(-1e9)));
    EXPECT_GT(attributes.at("after 2262").modified, Date(Seconds(4e9)));
}

TEST(Enumeration, countsOnlyTheBlocksOfASparseFile) {
    const TemporaryFolder home;
    home.write("huge.iso", "");
    const auto path = home.path("huge.iso");
    const std::int64_t fiveTebibytes = std::int64_t{5} << 40;
    if (::truncate(path.c_str(), fiveTebibytes) != 0)
        GTEST_SKIP() << "files cannot be that long here";
    const auto file = walkedAttributes(home.url()).at("huge.iso");
    EXPECT_EQ(file.fileSize, fiveTebibytes);
    EXPECT_LT(file.allocatedSize, 1'000'000);
}

TEST(Enumeration, stopsWhenAskedToAndReportsNothingMore) {
    const TemporaryFolder home;
    for (int i = 0; i < 500; ++i) home.write(std::to_string(i % 50) + "/" + std::to_string(i), "");
    std::stop_source source;
    int reported = 0;
    const auto found = [&](FoundFile&&) {
        if (++reported == 10) source.request_stop();
    };
    EXPECT_TRUE(LinuxFileManager().enumerate(home.url(), {}, found, source.get_token()));
    EXPECT_EQ(reported, 10);
}

TEST(Enumeration, reportsNothingWhenAskedToStopBefore) {
    const TemporaryFolder home;
    home.write("file.txt", "");
    std::stop_source source;
    source.request_stop();
    int reported = 0;
    (void)LinuxFileManager().enumerate(
        home.url(), {}, [&](FoundFile&&) { ++reported; }, source.get_token());
    EXPECT_EQ(reported, 0);
}

}  // namespace
}  // namespace nookwise
