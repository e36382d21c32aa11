#include "platform/linux/OwnFile.h"
#include "tests/changes/Snapshot.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <atomic>
#include <csignal>
#include <filesystem>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

const std::string leftover = ".nookwise-0123456789abcdef0123456789abcdef.new";

Result<std::monostate> replaceWith(const FileUrl& url, std::string_view contents) {
    return replaceOwnFile(url, wholeContents(contents));
}

mode_t permissions(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & ALLPERMS : 0;
}

/// What a full disk does, to this process alone: beyond so many bytes no file grows.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int) = SIG_DFL;
};

TEST(OwnFile, makesAFileForItsOwnerAlone) {
    const TemporaryFolder home;
    ASSERT_TRUE(replaceWith(home.url("log"), std::string_view("a\0b", 3)));
    EXPECT_EQ(contents(home.path("log")), std::string("a\0b", 3));
    EXPECT_EQ(permissions(home.path("log")), 0600U);
    EXPECT_EQ(names(home.path()), "log");
}

TEST(OwnFile, replacesAllOfTheContentsWithANewFile) {
    const TemporaryFolder home;
    home.write("log", "something much longer");
    fs::create_hard_link(home.path("log"), home.path("kept"));
    ASSERT_TRUE(replaceWith(home.url("log"), ""));
    EXPECT_EQ(contents(home.path("log")), "");
    EXPECT_EQ(permissions(home.path("log")), 0600U);
    EXPECT_EQ(contents(home.path("kept")), "something much longer");
}

TEST(OwnFile, writesMoreThanOneCallTakes) {
    const TemporaryFolder home;
    const std::string much(20'000'000, 'm');
    ASSERT_TRUE(replaceWith(home.url("log"), much));
    EXPECT_EQ(contents(home.path("log")), much);
}

TEST(OwnFile, growsPieceByPieceBesideTheOldContents) {
    const TemporaryFolder home;
    home.write("log", "old");
    const std::string piece(5'000'000, 'p');
    const auto inPieces = [&](const ContentsSink& sink) {
        for (int i = 0; i < 8; ++i) {
            if (!sink(piece)) return false;
            EXPECT_EQ(contents(home.path("log")), "old");
        }
        return sink("") && sink("end");
    };
    ASSERT_TRUE(replaceOwnFile(home.url("log"), inPieces));
    std::string whole;
    for (int i = 0; i < 8; ++i) whole += piece;
    EXPECT_EQ(contents(home.path("log")), whole + "end");
    EXPECT_EQ(permissions(home.path("log")), 0600U);
    EXPECT_EQ(names(home.path()), "log");
}

TEST(OwnFile, keepsTheOldContentsWhenTheSourceGivesUp) {
    const TemporaryFolder home;
    home.write("log", "old");
    const auto replaced = replaceOwnFile(home.url("log"), [](const ContentsSink& sink) {
        EXPECT_TRUE(sink("half"));
        return false;
    });
    ASSERT_FALSE(replaced);
    EXPECT_EQ(replaced.error().code, std::errc::operation_canceled);
    EXPECT_EQ(contents(home.path("log")), "old");
    EXPECT_EQ(names(home.path()), "log");
}

TEST(OwnFile, leavesNothingOfASourceThatThrows) {
    const TemporaryFolder home;
    home.write("log", "old");
    const auto throwing = [](const ContentsSink& sink) -> bool {
        sink("half");
        throw std::bad_alloc();
    };
    EXPECT_THROW((void)replaceOwnFile(home.url("log"), throwing), std::bad_alloc);
    EXPECT_EQ(contents(home.path("log")), "old");
    EXPECT_EQ(names(home.path()), "log");
}

TEST(OwnFile, failsWhereTheSourceDoesNotMindThatItCannotBeWritten) {
    const TemporaryFolder home;
    home.write("log", "old");
    const FileSizeLimit limit(1'000'000);
    const std::string piece(600'000, 'p');
    std::vector<bool> taken;
    const auto replaced = replaceOwnFile(home.url("log"), [&](const ContentsSink& sink) {
        for (int i = 0; i < 3; ++i) taken.push_back(sink(piece));
        return true;
    });
    ASSERT_FALSE(replaced);
    EXPECT_EQ(replaced.error().code, std::errc::file_too_large);
    EXPECT_EQ(taken, (std::vector<bool>{true, false, false}));
    EXPECT_EQ(contents(home.path("log")), "old");
    EXPECT_EQ(names(home.path()), "log");
}

TEST(OwnFile, keepsALinkAndWritesWhereItLeads) {
    const TemporaryFolder home;
    home.write("dotfiles/log", "old");
    home.makeFolder("own");
    fs::create_symlink("../dotfiles/second", home.path("own/log"));
    fs::create_symlink(home.path("dotfiles/log"), home.path("dotfiles/second"));
    ASSERT_TRUE(replaceWith(home.url("own/log"), "new"));
    EXPECT_EQ(contents(home.path("dotfiles/log")), "new");
    EXPECT_TRUE(fs::is_symlink(home.path("own/log")));
    EXPECT_TRUE(fs::is_symlink(home.path("dotfiles/second")));
    EXPECT_EQ(names(home.path("own")), "log");
    EXPECT_EQ(names(home.path("dotfiles")), "log second");
}

TEST(OwnFile, makesTheFileThatALinkWaitsFor) {
    const TemporaryFolder home;
    home.makeFolder("elsewhere");
    fs::create_symlink("elsewhere/log", home.path("log"));
    ASSERT_TRUE(replaceWith(home.url("log"), "new"));
    EXPECT_EQ(contents(home.path("elsewhere/log")), "new");
}

TEST(OwnFile, touchesNothingButFiles) {
    const TemporaryFolder home;
    home.makeFolder("folder");
    home.makePipe("pipe");
    fs::create_symlink("loop", home.path("loop"));
    fs::create_symlink("missing/log", home.path("astray"));
    fs::create_symlink("folder/", home.path("slash"));
    const auto before = snapshot(home.path());
    for (const auto* const name : {"folder", "pipe", "loop", "astray", "slash", "no/file", ".."})
        EXPECT_FALSE(replaceWith(home.url(name), "new")) << name;
    EXPECT_FALSE(replaceWith(FileUrl("/dev/null"), "new"));
    EXPECT_FALSE(replaceWith(FileUrl(), "new"));
    EXPECT_EQ(snapshot(home.path()), before);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(OwnFile, tellsWhatItCouldNotReplace) {
    const TemporaryFolder home;
    const auto replaced = replaceWith(home.url("no/file"), "new");
    ASSERT_FALSE(replaced);
    EXPECT_EQ(replaced.error().code, std::errc::no_such_file_or_directory);
    EXPECT_EQ(replaced.error().url, home.url("no/file"));
}

TEST(OwnFile, takesTheLongestName) {
    const TemporaryFolder home;
    EXPECT_TRUE(replaceWith(home.url(std::string(255, 'n')), "x"));
    const auto tooLong = replaceWith(home.url(std::string(256, 'n')), "x");
    ASSERT_FALSE(tooLong);
    EXPECT_EQ(names(home.path()), std::string(255, 'n'));
}

TEST(OwnFile, leavesTheOldContentsWhereItMayNotWrite) {
    const TemporaryFolder home;
    home.write("log", "old");
    fs::permissions(home.path(), fs::perms(0555));
    const OrdinaryUser user;
    EXPECT_FALSE(replaceWith(home.url("log"), "new"));
    EXPECT_EQ(contents(home.path("log")), "old");
    EXPECT_EQ(names(home.path()), "log");
}

TEST(UnfinishedReplacements, areRemovedAndNothingElseIs) {
    const TemporaryFolder home;
    home.write(leftover, "half");
    home.write(leftover + "x", "x");
    home.write(".nookwise-0123456789ABCDEF0123456789ABCDEF.new", "x");
    home.write(".nookwise-0123456789abcdef0123456789abcde.new", "x");
    home.write(".nookwise-.new", "x");
    home.makeFolder(".nookwise-11111111111111111111111111111111.new");
    fs::create_symlink("log", home.path(".nookwise-22222222222222222222222222222222.new"));
    home.write("log", "x");
    auto before = snapshot(home.path());
    removeUnfinishedReplacements(home.url());
    before.erase(leftover);
    auto after = snapshot(home.path());
    before.erase("");
    after.erase("");
    EXPECT_EQ(after, before);
}

TEST(UnfinishedReplacements, areRemovedWhereALinkLeadsToo) {
    const TemporaryFolder home;
    home.write("dotfiles/log", "x");
    home.write("dotfiles/" + leftover, "half");
    home.makeFolder("own");
    fs::create_symlink("../dotfiles/log", home.path("own/log"));
    removeUnfinishedReplacements(home.url("own"));
    EXPECT_EQ(names(home.path("dotfiles")), "log");
}

TEST(UnfinishedReplacements, ofOtherUsersStay) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    const TemporaryFolder home;
    home.write(leftover, "half");
    ASSERT_EQ(::chown(home.path(leftover).c_str(), 1234, 1234), 0);
    removeUnfinishedReplacements(home.url());
    EXPECT_EQ(names(home.path()), leftover);
}

TEST(UnfinishedReplacements, ofThisProcessAreUnderWayAndStay) {
    const TemporaryFolder home;
    std::atomic<bool> isDone = false;
    std::thread cleaning([&] {
        while (!isDone) removeUnfinishedReplacements(home.url());
    });
    for (int i = 0; i < 300; ++i) EXPECT_TRUE(replaceWith(home.url("log"), std::to_string(i)));
    isDone = true;
    cleaning.join();
    EXPECT_EQ(std::filesystem::file_size(home.path("log")), 3u);
}

TEST(UnfinishedReplacements, needNoFolder) {
    const TemporaryFolder home;
    removeUnfinishedReplacements(home.url("missing"));
    EXPECT_EQ(names(home.path()), "");
}

}  // namespace
}  // namespace nookwise
