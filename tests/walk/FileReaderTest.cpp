#include "platform/linux/LinuxFileManager.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

std::string contentsOf(FileReader& reader, std::size_t chunk) {
    std::string contents;
    std::vector<std::byte> buffer(chunk);
    for (;;) {
        const auto read = reader.read(buffer);
        if (!read || read.value() == 0) return contents;
        contents.append(reinterpret_cast<const char*>(buffer.data()), read.value());
    }
}

TEST(FileReader, readsOnFromWhereTheLastReadEnded) {
    const TemporaryFolder home;
    home.write("file.bin", "0123456789");
    const auto opened = LinuxFileManager().open(home.url("file.bin"));
    ASSERT_TRUE(opened);
    EXPECT_EQ(contentsOf(*opened.value(), 3), "0123456789");
}

TEST(FileReader, tellsWhichFileItReads) {
    const TemporaryFolder home;
    home.write("a.bin", "1234");
    std::filesystem::create_hard_link(home.path("a.bin"), home.path("b.bin"));
    home.write("c.bin", "1234");
    const LinuxFileManager files;
    const auto stateOf = [&](const char* name) {
        return files.open(home.url(name)).value()->state().value();
    };
    EXPECT_EQ(stateOf("a.bin").identity, stateOf("b.bin").identity);
    EXPECT_NE(stateOf("a.bin").identity, stateOf("c.bin").identity);
    EXPECT_EQ(stateOf("a.bin").linkCount, 2U);
    EXPECT_EQ(stateOf("c.bin").linkCount, 1U);
    EXPECT_EQ(stateOf("a.bin").size, 4);
}

TEST(FileReader, seesThatAFileGrewAfterItWasOpened) {
    const TemporaryFolder home;
    home.write("file.bin", "1234");
    const auto path = home.path("file.bin");
    const auto opened = LinuxFileManager().open(home.url("file.bin"));
    const auto before = opened.value()->state().value();
    std::ofstream(path, std::ios::app) << "5";
    EXPECT_NE(opened.value()->state().value(), before);
}

TEST(FileReader, refusesEverythingButRegularFilesAndNeverWaits) {
    const TemporaryFolder home;
    home.makeFolder("folder");
    home.write("file.bin", "");
    home.makePipe("pipe");
    std::filesystem::create_symlink("file.bin", home.path("link"));
    const LinuxFileManager files;
    for (const auto* name : {"folder", "pipe", "link", "missing"})
        EXPECT_FALSE(files.open(home.url(name))) << name;
    EXPECT_FALSE(files.open(FileUrl("/dev/null")));
    EXPECT_FALSE(files.open(FileUrl(std::string_view("/tmp/\0hidden", 12))));
    EXPECT_FALSE(files.open(FileUrl()));
}

TEST(FileReader, reportsAFileThatItMayNotRead) {
    const TemporaryFolder home;
    home.write("secret.pdf", "x");
    ::chmod(home.path("secret.pdf").c_str(), 0);
    const OrdinaryUser user;
    const auto opened = LinuxFileManager().open(home.url("secret.pdf"));
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().code, std::errc::permission_denied);
}

TEST(FileReader, readingLeavesTheAccessTimeAlone) {
    const TemporaryFolder home;
    home.write("file.bin", "1234");
    const auto path = home.path("file.bin");
    // Older than a day, so that a plain read would move it even where access times are kept
    // sparingly.
    const timespec old[2] = {{.tv_sec = 1'000'000, .tv_nsec = 0},
                             {.tv_sec = 1'000'000, .tv_nsec = 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), old, 0), 0);
    EXPECT_EQ(contentsOf(*LinuxFileManager().open(home.url("file.bin")).value(), 10), "1234");
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_atim.tv_sec, 1'000'000);
}

}  // namespace
}  // namespace nookwise
