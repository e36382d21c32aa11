#include "tests/changes/TransferFixture.h"

#include <climits>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

INSTANTIATE_TEST_SUITE_P(transfers, EveryTransfer, everyWay, wayName);

TEST_P(EveryTransfer, bringsAFileOverWhole) {
    home.write("report.pdf", "seven bytes and more");
    expectWhole("report.pdf");
}

TEST_P(EveryTransfer, bringsAnEmptyFileOver) {
    home.write("empty", "");
    expectWhole("empty");
}

TEST_P(EveryTransfer, bringsAFileOverThatFillsManyBuffers) {
    std::string bytes(5'000'001, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 31 + i / 977);
    home.write("film.mp4", bytes);
    expectWhole("film.mp4");
}

TEST_P(EveryTransfer, leavesNothingOfALargeFileBehind) {
    // Large enough to be freed on a thread of its own, and no bytes but the first and the last.
    constexpr std::uintmax_t size = 100U << 20U;
    home.write("large", "first");
    fs::resize_file(home.path("large"), size - 1);
    std::ofstream(home.path("large"), std::ios::app) << "x";
    ASSERT_TRUE(transfer(home.url("large"), target().url("large")));
    EXPECT_EQ(fs::file_size(target().path("large")), size);
    EXPECT_EQ(names(home.path()), isMove() ? "" : "large");
    EXPECT_EQ(recordNames(), "");
}

TEST_P(EveryTransfer, keepsHoles) {
    constexpr off_t size = 3LL << 30U;
    const auto path = home.path("disk.img");
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    ASSERT_EQ(::ftruncate(file, size), 0);
    ASSERT_EQ(::pwrite(file, "begin", 5, 0), 5);
    ASSERT_EQ(::pwrite(file, "middle", 6, size / 2), 6);
    ::close(file);
    ASSERT_TRUE(transfer("disk.img"));
    struct stat status {};
    ASSERT_EQ(::stat(target().path("disk.img").c_str(), &status), 0);
    EXPECT_EQ(status.st_size, size);
    EXPECT_LT(status.st_blocks * 512, 1 << 20);
    const int copy = ::open(target().path("disk.img").c_str(), O_RDONLY | O_CLOEXEC);
    std::string read(7, 'x');
    EXPECT_EQ(::pread(copy, read.data(), 7, size / 2), 7);
    EXPECT_EQ(read, std::string("middle\0", 7));
    EXPECT_EQ(::pread(copy, read.data(), 7, 0), 7);
    EXPECT_EQ(read, std::string("begin\0\0", 7));
    ::close(copy);
}

TEST_P(EveryTransfer, bringsALinkOverAsALink) {
    fs::create_symlink("nowhere/at all", home.path("link"));
    const timespec old[2] = {{.tv_sec = 1'000, .tv_nsec = 5}, {.tv_sec = 2'000, .tv_nsec = 7}};
    ASSERT_EQ(::utimensat(AT_FDCWD, home.path("link").c_str(), old, AT_SYMLINK_NOFOLLOW), 0);
    expectWhole("link");
}

TEST_P(EveryTransfer, bringsAPipeOverWithoutWaitingForIt) {
    home.makePipe("pipe");
    ASSERT_EQ(::chmod(home.path("pipe").c_str(), 0620), 0);
    expectWhole("pipe");
}

TEST_P(EveryTransfer, takesNamesOfAnyBytesAndTheGreatestLength) {
    const std::string name = "\xff\xfe new\nline %41 " + std::string(239, 'n');
    ASSERT_EQ(name.size(), 255U);
    home.write(name, "x");
    expectWhole(name);
}

TEST_P(EveryTransfer, worksBeyondTheLongestPath) {
    std::string relative;
    while (relative.size() < PATH_MAX) relative += "/" + std::string(200, 'd');
    const auto make = [&](const fs::path& root) {
        int at = ::open(root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
        for (std::size_t i = 0; i < relative.size(); i += 201) {
            ::mkdirat(at, std::string(200, 'd').c_str(), 0755);
            const int next = ::openat(at, std::string(200, 'd').c_str(), O_PATH | O_CLOEXEC);
            ::close(at);
            at = next;
        }
        return at;
    };
    const int from = make(home.path());
    const int to = make(target().path());
    ::close(::openat(from, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    const auto done = transfer(FileUrl(home.path().native() + relative + "/file"),
                               FileUrl(target().path().native() + relative + "/file"));
    EXPECT_TRUE(done) << done.error().code.message();
    EXPECT_EQ(::faccessat(to, "file", F_OK, 0), 0);
    EXPECT_EQ(::faccessat(from, "file", F_OK, 0) == 0, !isMove());
    ::close(from);
    ::close(to);
    EXPECT_EQ(recordNames(), "");
}

TEST_P(EveryTransfer, neverOverwrites) {
    home.write("a.txt", "new");
    target().write("a.txt", "old");
    expectRefused(home.url("a.txt"), target().url("a.txt"), std::errc::file_exists);
    EXPECT_EQ(fs::file_size(target().path("a.txt")), 3U);
    EXPECT_TRUE(snapshot(target().path("a.txt")) != snapshot(home.path("a.txt")));
}

TEST_P(EveryTransfer, neverPutsAnythingIntoOrOverAFolderThatIsThere) {
    home.write("a/file", "x");
    target().makeFolder("a");
    expectRefused(home.url("a"), target().url("a"), std::errc::file_exists);
    EXPECT_EQ(names(target().path("a")), "");
}

TEST_P(EveryTransfer, countsALinkThatLeadsNowhereAsTaken) {
    home.write("a.txt", "new");
    fs::create_symlink("nowhere", target().path("a.txt"));
    expectRefused(home.url("a.txt"), target().url("a.txt"), std::errc::file_exists);
}

TEST_P(EveryTransfer, refusesItsOwnName) {
    home.write("a.txt", "x");
    home.makeFolder("folder");
    expectRefused(home.url("a.txt"), home.url("a.txt"), std::errc::file_exists);
    expectRefused(home.url("folder"), home.url("folder"), std::errc::file_exists);
}

TEST_P(EveryTransfer, refusesAnotherNameOfTheSameFile) {
    home.write("a.txt", "x");
    fs::create_hard_link(home.path("a.txt"), home.path("b.txt"));
    expectRefused(home.url("a.txt"), home.url("b.txt"), std::errc::file_exists);
}

TEST_P(EveryTransfer, takesOneOfSeveralNamesOfAFile) {
    home.write("a.txt", "x");
    fs::create_hard_link(home.path("a.txt"), home.path("b.txt"));
    ASSERT_TRUE(transfer("a.txt"));
    EXPECT_EQ(fs::file_size(target().path("a.txt")), 1U);
    EXPECT_EQ(names(home.path()), isMove() ? "b.txt" : "a.txt b.txt");
}

}  // namespace
}  // namespace nookwise
