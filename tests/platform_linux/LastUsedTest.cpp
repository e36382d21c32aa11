#include "platform/linux/LinuxMetadata.h"
#include "tests/platform_linux/Bookmarks.h"
#include "tests/platform_linux/FileTimes.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

#include <array>
#include <atomic>
#include <thread>

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

namespace nookwise {
namespace {

constexpr std::string_view listName = ".local/share/recently-used.xbel";

class LastUsed : public ::testing::Test {
  protected:
    LastUsed() : file_(home_.write("a file.txt", "text")), metadata_(folders()) {
        setTimes(file_, Date{Seconds{1e9}}, Date{Seconds{1e9}});
    }

    void SetUp() override {
        if (!birthOf(file_)) GTEST_SKIP() << "the file system keeps no birth times";
    }

    BaseFolders folders() const {
        return baseFolders([this](const char* name) {
            return std::string_view(name) == "HOME" ? std::string(home_.url().path())
                                                    : std::string();
        });
    }

    Date birth() const { return *birthOf(file_); }

    void writeList(const std::vector<Bookmark>& bookmarks) {
        home_.write(listName, bookmarkListText(bookmarks));
    }
    void registerFile(const std::vector<Registration>& registrations) {
        writeList({{file_.urlString(), registrations}});
    }

    /// Microseconds are all that the list holds.
    static void expectAbout(std::optional<Date> actual, Date expected) {
        ASSERT_TRUE(actual);
        EXPECT_NEAR(actual->time_since_epoch().count(), expected.time_since_epoch().count(), 1e-4);
    }

    TemporaryFolder home_;
    FileUrl file_;
    LinuxMetadata metadata_;
};

constexpr Seconds day{86'400};

TEST_F(LastUsed, isNoneWithoutAnyEvidence) {
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);
    EXPECT_EQ(metadata_.lastUsed(home_.url("missing")), std::nullopt);
    EXPECT_EQ(metadata_.lastUsed(FileUrl("/" + std::string(10'000, 'a'))), std::nullopt);
    EXPECT_EQ(metadata_.lastUsed(FileUrl()), std::nullopt);
}

TEST_F(LastUsed, isTheNewestRegistrationOfAnApplication) {
    registerFile({{"Text Editor", "gedit %u", birth() + day},
                  {"Writer", "libreoffice --writer %u", birth() + 3 * day},
                  {"Viewer", "viewer %u", birth() + 2 * day}});
    expectAbout(metadata_.lastUsed(file_), birth() + 3 * day);
}

TEST_F(LastUsed, comesFromTheListBeforeTheAccessTime) {
    registerFile({{"Text Editor", "gedit %u", birth() + day}});
    ASSERT_TRUE(setTimes(file_, birth() + 5 * day, birth()));
    expectAbout(metadata_.lastUsed(file_), birth() + day);
}

TEST_F(LastUsed, leavesOutProgramsThatOnlyWrite) {
    const char* const writers[][2] = {
        {"Firefox", "firefox %u"},
        {"Google Chrome", "/usr/bin/google-chrome %u"},
        {"GNOME Shell", "gnome-shell"},
        {"Spectacle", "spectacle %u"},
        {"Transmission", "transmission-gtk %u"},
        {"Navigateur", "/usr/bin/epiphany %u"},
        {"Bildschirmfoto", "gnome-screenshot %u"},
        {"Firefox", "flatpak run org.mozilla.firefox %u"},
    };
    for (const auto& [name, commandLine] : writers) {
        registerFile({{name, commandLine, birth() + 3 * day}});
        EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt) << name;
        registerFile(
            {{name, commandLine, birth() + 3 * day}, {"Viewer", "viewer %u", birth() + day}});
        expectAbout(metadata_.lastUsed(file_), birth() + day);
    }
}

TEST_F(LastUsed, leavesOutRegistrationsAsOldAsTheFile) {
    for (const Seconds age : {Seconds{-400 * day}, Seconds{-1}, Seconds{0}, Seconds{59}}) {
        registerFile({{"Editor", "editor %u", birth() + age}});
        EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt) << age.count();
    }
    registerFile({{"Editor", "editor %u", birth() + Seconds{61}}});
    expectAbout(metadata_.lastUsed(file_), birth() + Seconds{61});
}

TEST_F(LastUsed, takesNoVisitForAnOpening) {
    registerFile({});
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);
}

TEST_F(LastUsed, findsAFileHoweverItsUrlIsEscaped) {
    const std::vector<Registration> opened{{"Viewer", "viewer %u", birth() + day}};
    const std::string folder = home_.url().urlString();
    for (const std::string name : {"/a%20file.txt", "/%61%20f%69le%2etxt", "/a%20file%2Etxt"}) {
        writeList({{folder + name, opened}});
        expectAbout(metadata_.lastUsed(file_), birth() + day);
    }
    const auto odd = home_.write("caf\xe9 \xf0\x9f\x90\x88\n(1)'s.txt", "text");
    for (const std::string name :
         {"/caf%E9%20%F0%9F%90%88%0A(1)&apos;s.txt", "/caf%e9%20%f0%9f%90%88%0a%281%29%27s.txt"}) {
        writeList({{folder + name, {{"Viewer", "viewer %u", birth() + 2 * day}}}});
        expectAbout(metadata_.lastUsed(odd), birth() + 2 * day);
    }
}

TEST_F(LastUsed, isTheNewestOfSeveralEntriesForOneFile) {
    const std::string folder = home_.url().urlString();
    writeList({{folder + "/a%20file.txt", {{"Viewer", "viewer %u", birth() + 4 * day}}},
               {folder + "/a%20f%69le.txt", {{"Editor", "editor %u", birth() + 2 * day}}}});
    expectAbout(metadata_.lastUsed(file_), birth() + 4 * day);
}

TEST_F(LastUsed, leavesOutEntriesOfOtherPlaces) {
    const std::vector<Registration> opened{{"Viewer", "viewer %u", birth() + day}};
    writeList({{"https://example.org/a%20file.txt", opened},
               {"file://elsewhere" + std::string(file_.path()), opened},
               {"file:relative", opened},
               {"not a url", opened},
               {file_.urlString() + "%zz", opened}});
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);
}

TEST_F(LastUsed, readsTheListAnewWhenItHasChanged) {
    registerFile({{"Viewer", "viewer %u", birth() + day}});
    expectAbout(metadata_.lastUsed(file_), birth() + day);

    // As desktops do it: another file takes the name.
    home_.write(
        "new.xbel",
        bookmarkListText({{file_.urlString(), {{"Viewer", "viewer %u", birth() + 2 * day}}}}));
    std::filesystem::rename(home_.path("new.xbel"), home_.path(listName));
    expectAbout(metadata_.lastUsed(file_), birth() + 2 * day);

    std::filesystem::remove(home_.path(listName));
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);

    registerFile({{"Viewer", "viewer %u", birth() + 3 * day}});
    expectAbout(metadata_.lastUsed(file_), birth() + 3 * day);
}

TEST_F(LastUsed, readsAnUnchangedListOnce) {
    registerFile({{"Viewer", "viewer %u", birth() + day}});
    const auto list = home_.url(listName);
    expectAbout(metadata_.lastUsed(file_), birth() + day);
    // Other bytes behind the same size, inode and time: only whoever reads again sees them.
    const auto modified = dateOf(statusOf(list).stx_mtime);
    ASSERT_TRUE(setTimes(list, modified, modified));
    LinuxMetadata other(folders());
    expectAbout(other.lastUsed(file_), birth() + day);
    const auto size = std::filesystem::file_size(home_.path(listName));
    home_.write(listName, std::string(size, 'x'));
    ASSERT_TRUE(setTimes(list, modified, modified));
    expectAbout(other.lastUsed(file_), birth() + day);
    EXPECT_EQ(LinuxMetadata(folders()).lastUsed(file_), std::nullopt);
}

TEST_F(LastUsed, isNoneWhenTheListIsTornAnywhere) {
    const auto whole =
        bookmarkListText({{file_.urlString(), {{"Viewer", "viewer %u", birth() + day}}}});
    for (std::size_t length = 0; length < whole.size(); length += 7) {
        home_.write(listName, whole.substr(0, length));
        EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt) << length;
    }
    home_.write(listName, whole);
    expectAbout(metadata_.lastUsed(file_), birth() + day);
}

TEST_F(LastUsed, isNoneWhenTheListIsNoList) {
    const auto entry = bookmarkText({file_.urlString(), {{"Viewer", "viewer %u", birth() + day}}});
    std::string nested;
    for (int i = 0; i < 100'000; ++i) nested += "<a>";
    std::string notUtf8 =
        bookmarkListText({{file_.urlString(), {{"Viewer", "viewer %u", birth() + day}}}});
    notUtf8.insert(notUtf8.find("Viewer"), "\xff\xfe");
    auto noDate = bookmarkListText({{file_.urlString(), {{"Viewer", "viewer %u", birth() + day}}}});
    const auto modified = noDate.rfind("modified=\"") + 10;
    noDate.replace(modified, 27, "99999999-99-99T99:99:99Z");
    const std::string lists[] = {
        "hello",
        std::string(1000, '\0'),
        R"(<xbel version="1.0">)",
        "<xbel>" + entry + "</xbel>",
        entry,
        nested,
        notUtf8,
        noDate,
        R"(<?xml version="1.0"?><!DOCTYPE xbel [<!ENTITY a "&a;&a;">]>&a;)",
    };
    for (const auto& list : lists) {
        home_.write(listName, list);
        EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt) << list.substr(0, 60);
    }
}

TEST_F(LastUsed, isNoneWhenTheListIsTooLong) {
    auto text = bookmarkListText({{file_.urlString(), {{"Viewer", "viewer %u", birth() + day}}}});
    home_.write(listName, text);
    expectAbout(metadata_.lastUsed(file_), birth() + day);
    text += std::string(16 * 1024 * 1024, ' ');
    home_.write(listName, text);
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);
}

TEST_F(LastUsed, doesNotWaitForAPipeInTheListsPlace) {
    home_.makeFolder(".local/share");
    home_.makePipe(listName);
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);
}

TEST_F(LastUsed, isNoneWhenTheListMayNotBeRead) {
    registerFile({{"Viewer", "viewer %u", birth() + day}});
    ASSERT_EQ(::chmod(home_.path(listName).c_str(), 0), 0);
    const OrdinaryUser user;
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);
}

TEST_F(LastUsed, doesNotMakeTheListLookUsed) {
    registerFile({{"Viewer", "viewer %u", birth() + day}});
    const auto list = home_.url(listName);
    const Date old{Seconds{1e9}};
    ASSERT_TRUE(setTimes(list, old, old + day));
    expectAbout(metadata_.lastUsed(file_), birth() + day);
    EXPECT_EQ(accessOf(list), old);
}

TEST_F(LastUsed, mayBeAskedByManyThreadsWhileTheListChanges) {
    const auto before =
        bookmarkListText({{file_.urlString(), {{"Viewer", "viewer %u", birth() + day}}}});
    const auto after =
        bookmarkListText({{file_.urlString(), {{"Viewer", "viewer %u", birth() + 2 * day}}}});
    home_.write(listName, before);
    std::atomic<int> wrong{0};
    {
        std::array<std::jthread, 4> threads;
        for (auto& thread : threads) {
            thread = std::jthread([&] {
                for (int asked = 0; asked < 200; ++asked) {
                    const auto used = metadata_.lastUsed(file_);
                    if (!used || *used < birth() + Seconds{86'000}) ++wrong;
                }
            });
        }
        for (int i = 0; i < 50; ++i) {
            home_.write("new.xbel", i % 2 == 0 ? after : before);
            std::filesystem::rename(home_.path("new.xbel"), home_.path(listName));
        }
    }
    EXPECT_EQ(wrong, 0);
    expectAbout(metadata_.lastUsed(file_), birth() + day);
}

TEST_F(LastUsed, isTheAccessTimeLaterThanTheBirth) {
    const Date accessed = birth() + Seconds{1};
    ASSERT_TRUE(setTimes(file_, accessed, birth()));
    expectAbout(metadata_.lastUsed(file_), accessed);
}

TEST_F(LastUsed, isTheAccessTimeWhenTheListHoldsOnlyTheWriting) {
    registerFile({{"Firefox", "firefox %u", birth() + 3 * day}, {"Editor", "editor %u", birth()}});
    ASSERT_TRUE(setTimes(file_, birth() + day, birth()));
    expectAbout(metadata_.lastUsed(file_), birth() + day);
}

TEST_F(LastUsed, isNoAccessTimeAsOldAsTheFile) {
    // Copying programs and archivers bring the times of the original along.
    ASSERT_TRUE(setTimes(file_, birth() - day, birth() - day));
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);
    const auto status = statusOf(file_).stx_btime;
    const timespec same{status.tv_sec, static_cast<long>(status.tv_nsec)};
    const timespec times[2] = {same, same};
    ASSERT_EQ(::utimensat(AT_FDCWD, std::string(file_.path()).c_str(), times, 0), 0);
    EXPECT_EQ(metadata_.lastUsed(file_), std::nullopt);
}

TEST_F(LastUsed, isNoAccessTimeOfFoldersAndLinks) {
    const auto folder = home_.makeFolder("report.pages");
    std::filesystem::create_symlink("a file.txt", home_.path("link"));
    ASSERT_TRUE(setTimes(file_, birth() + day, birth()));
    for (const auto& url : {folder, home_.url("link")}) {
        ASSERT_TRUE(setTimes(url, birth() + day, birth()));
        EXPECT_EQ(metadata_.lastUsed(url), std::nullopt) << url.path();
    }
    writeList({{folder.urlString(), {{"Writer", "writer %u", birth() + 2 * day}}}});
    expectAbout(metadata_.lastUsed(folder), birth() + 2 * day);
}

TEST_F(LastUsed, isNoAccessTimeWhereTheMountKeepsNone) {
    // Mounts of this thread's own go with it.
    std::thread([&] {
        const auto mountPoint = home_.makeFolder("mount");
        const std::string path(mountPoint.path());
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", path.c_str(), "tmpfs", 0, nullptr) != 0) {
            GTEST_SKIP() << "only root can mount";
        }
        const auto file = home_.write("mount/a", "text");
        if (!birthOf(file)) GTEST_SKIP() << "the file system keeps no birth times";
        const Date accessed = *birthOf(file) + day;
        ASSERT_TRUE(setTimes(file, accessed, accessed));
        expectAbout(metadata_.lastUsed(file), accessed);
        ASSERT_EQ(
            ::mount(nullptr, path.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_NOATIME, nullptr), 0);
        EXPECT_EQ(metadata_.lastUsed(file), std::nullopt);
    }).join();
}

}  // namespace
}  // namespace nookwise
