#include "platform/linux/PercentEscapes.h"
#include "platform/linux/Trash.h"
#include "tests/trash/TrashHome.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::SizeIs;

mode_t modeOf(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(Trash, takesAFileAndTellsItsPlace) {
    const TrashHome home;
    const auto file = home.folder.write("Downloads/report.pdf", "bytes");
    const auto place = home.trash.trash(file);
    ASSERT_TRUE(place);
    EXPECT_EQ(place.value(), home.url.append("files").append("report.pdf"));
    EXPECT_EQ(contentsOf(place.value().path()), "bytes");
    EXPECT_FALSE(isThere(file));
}

TEST(Trash, describesWhereAFileCameFromAndWhen) {
    const TrashHome home;
    const auto file = home.folder.write("Downloads/50%20off\n\xFF \"x\".pdf", "");
    const auto before = std::time(nullptr);
    ASSERT_TRUE(home.trash.trash(file));
    const auto after = std::time(nullptr);
    std::istringstream info(home.info("50%20off\n\xFF \"x\".pdf"));
    const auto lineAfter = [&](std::string_view beginning) {
        std::string line;
        std::getline(info, line);
        EXPECT_TRUE(line.starts_with(beginning)) << line;
        return line.substr(std::min(beginning.size(), line.size()));
    };
    EXPECT_EQ(lineAfter("[Trash Info]"), "");
    const auto path = lineAfter("Path=");
    EXPECT_EQ(percentUnescaped(path), file.path());
    EXPECT_TRUE(path.ends_with("/Downloads/50%2520off%0A%FF%20%22x%22.pdf"));
    const auto written = lineAfter("DeletionDate=");
    std::tm date{};
    const char* const end = ::strptime(written.c_str(), "%Y-%m-%dT%H:%M:%S", &date);
    ASSERT_NE(end, nullptr);
    EXPECT_STREQ(end, "");
    EXPECT_EQ(written.size(), std::string_view("2024-02-09T07:05:03").size());
    EXPECT_EQ(lineAfter("X-Nookwise-Run=").size(), 36U);
    EXPECT_EQ(lineAfter(""), "");
    EXPECT_TRUE(info.eof());
    date.tm_isdst = -1;
    EXPECT_GE(std::mktime(&date), before);
    EXPECT_LE(std::mktime(&date), after);
}

TEST(Trash, isMadeForItsOwnerAlone) {
    const TrashHome home;
    const auto file = home.folder.write("file", "");
    const auto usual = ::umask(0);
    const auto place = home.trash.trash(file);
    ::umask(usual);
    ASSERT_TRUE(place);
    for (const auto* folder : {"data", "data/Trash", "data/Trash/files", "data/Trash/info"})
        EXPECT_EQ(modeOf(home.folder.path(folder)), 0700U) << folder;
    EXPECT_EQ(modeOf(home.folder.path("data/Trash/info/file.trashinfo")), 0600U);
}

TEST(Trash, leavesTheFileItselfAsItWas) {
    const TrashHome home;
    const auto file = home.folder.write("file", "bytes");
    ::chmod(home.folder.path("file").c_str(), 0640);
    const timespec times[]{{.tv_sec = 1, .tv_nsec = 2}, {.tv_sec = 3, .tv_nsec = 4}};
    ASSERT_EQ(::utimensat(AT_FDCWD, home.folder.path("file").c_str(), times, 0), 0);
    const auto place = home.trash.trash(file);
    ASSERT_TRUE(place);
    struct stat status {};
    ASSERT_EQ(::stat(std::string(place.value().path()).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_EQ(status.st_mtim.tv_sec, 3);
    EXPECT_EQ(status.st_mtim.tv_nsec, 4);
}

TEST(Trash, takesFoldersAndNotesTheirSize) {
    const TrashHome home;
    home.folder.write("My folder/inner/file", std::string(10'000, 'x'));
    const auto place = home.trash.trash(home.folder.url("My folder"));
    ASSERT_TRUE(place);
    EXPECT_EQ(contentsOf(std::string(place.value().path()) + "/inner/file"),
              std::string(10'000, 'x'));
    struct stat info {};
    ASSERT_EQ(::stat(home.folder.path("data/Trash/info/My folder.trashinfo").c_str(), &info), 0);
    const auto sizes = home.sizes();
    const auto space = sizes.find(' ');
    ASSERT_NE(space, std::string::npos);
    EXPECT_GE(std::stoll(sizes), 10'000);
    EXPECT_EQ(sizes.substr(space), " " + std::to_string(info.st_mtim.tv_sec) + " My%20folder\n");
}

TEST(Trash, notesNoSizeOfAFile) {
    const TrashHome home;
    ASSERT_TRUE(home.trash.trash(home.folder.write("file", "bytes")));
    EXPECT_FALSE(isThere(home.url.append("directorysizes")));
}

TEST(Trash, takesLinksThemselvesWhereverTheyLead) {
    const TrashHome home;
    const auto file = home.folder.write("file", "bytes");
    home.folder.makeFolder("folder");
    for (const auto* target : {"file", "folder", "missing", ".", "data/Trash"}) {
        fs::create_symlink(target, home.folder.path("link"));
        const auto place = home.trash.trash(home.folder.url("link"));
        ASSERT_TRUE(place) << target;
        EXPECT_EQ(fs::read_symlink(fs::path(place.value().path())), target);
    }
    EXPECT_TRUE(isThere(file));
    EXPECT_TRUE(isThere(home.folder.url("folder")));
    EXPECT_EQ(home.sizes(), "");
}

TEST(Trash, takesPipesWithoutWaitingForThem) {
    const TrashHome home;
    const auto place = home.trash.trash(home.folder.makePipe("pipe"));
    ASSERT_TRUE(place);
    EXPECT_TRUE(fs::is_fifo(fs::path(place.value().path())));
}

TEST(Trash, givesATakenNameANumber) {
    const TrashHome home;
    for (const auto* expected : {"file.txt", "file (2).txt", "file (3).txt"}) {
        const auto place = home.trash.trash(home.folder.write("file.txt", expected));
        ASSERT_TRUE(place);
        EXPECT_EQ(place.value().lastPathComponent(), expected);
        EXPECT_EQ(contentsOf(place.value().path()), expected);
        EXPECT_EQ(recordedPathIn(home.info(expected)), home.folder.path("file.txt"));
    }
}

TEST(Trash, givesANameThatHasAFileOrADescriptionToNothingElse) {
    const TrashHome home;
    home.folder.write("data/Trash/files/file", "undescribed");
    home.folder.write("data/Trash/info/file (2).trashinfo", "orphan");
    fs::create_symlink("nowhere", home.folder.path("data/Trash/files/file (3)"));
    const auto place = home.trash.trash(home.folder.write("file", "bytes"));
    ASSERT_TRUE(place);
    EXPECT_EQ(place.value().lastPathComponent(), "file (4)");
    EXPECT_EQ(contentsOf(home.folder.path("data/Trash/files/file")), "undescribed");
    EXPECT_EQ(home.info("file (2)"), "orphan");
    EXPECT_THAT(home.infos(), ElementsAre("file (2).trashinfo", "file (4).trashinfo"));
}

TEST(Trash, takesAnyNumberOfFilesOfOneName) {
    const TrashHome home;
    std::set<std::string> contents;
    for (int i = 0; i < 300; ++i) {
        const auto place = home.trash.trash(home.folder.write("file.txt", std::to_string(i)));
        ASSERT_TRUE(place);
        EXPECT_EQ(place.value().pathExtension(), "txt");
        contents.insert(contentsOf(place.value().path()));
    }
    EXPECT_EQ(contents.size(), 300U);
    EXPECT_THAT(home.infos(), SizeIs(300));
}

TEST(Trash, takesNamesOfAnyLength) {
    const TrashHome home;
    for (std::size_t length = 240; length <= 255; ++length) {
        for (const auto& name : {std::string(length, 'a'), std::string(length - 4, 'b') + ".pdf",
                                 "c." + std::string(length - 2, 'd')}) {
            const auto place = home.trash.trash(home.folder.write(name, name));
            ASSERT_TRUE(place) << name;
            EXPECT_EQ(contentsOf(place.value().path()), name);
            const auto info = home.info(place.value().lastPathComponent());
            EXPECT_EQ(recordedPathIn(info), home.folder.path(name));
        }
    }
    EXPECT_EQ(home.names().size(), home.infos().size());
}

TEST(Trash, recordsThePathThatTheUserKnows) {
    const TrashHome home;
    home.folder.write("real/file", "bytes");
    fs::create_directory_symlink("real", home.folder.path("link"));
    ASSERT_TRUE(home.trash.trash(home.folder.url("link/file")));
    EXPECT_EQ(recordedPathIn(home.info("file")), home.folder.path("link/file"));
}

TEST(Trash, recordsNoPathThatGoesUpAndDown) {
    const TrashHome home;
    home.folder.write("real/inner/file", "bytes");
    fs::create_directory_symlink("real/inner", home.folder.path("link"));
    ASSERT_TRUE(home.trash.trash(home.folder.url("link/../inner/./file")));
    EXPECT_EQ(recordedPathIn(home.info("file")), home.folder.path("real/inner/file"));
}

TEST(Trash, takesFilesFartherThanAPathCanReach) {
    const TrashHome home;
    const std::string name(250, 'd');
    FileUrl url = home.folder.url();
    FileDescriptor at(::open(home.folder.path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    for (int depth = 0; depth < 20; ++depth) {
        ASSERT_EQ(::mkdirat(at.get(), name.c_str(), 0755), 0);
        at = FileDescriptor(::openat(at.get(), name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        url = url.append(name);
    }
    FileDescriptor file(::openat(at.get(), "file", O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    ASSERT_TRUE(file);
    const auto place = home.trash.trash(url.append("file"));
    ASSERT_TRUE(place) << place.error().code.message();
    EXPECT_TRUE(isThere(place.value()));
    EXPECT_EQ(recordedPathIn(home.info("file")), url.append("file").path());
}

TEST(Trash, takesFilesFromSeveralThreadsAtOnce) {
    const TrashHome home;
    constexpr int threads = 4;
    constexpr int filesEach = 50;
    std::vector<FileUrl> files;
    for (int i = 0; i < threads * filesEach; ++i)
        files.push_back(home.folder.write(std::to_string(i) + "/same name", std::to_string(i)));
    std::vector<std::jthread> running;
    for (int thread = 0; thread < threads; ++thread)
        running.emplace_back([&, thread] {
            for (int i = 0; i < filesEach; ++i)
                EXPECT_TRUE(
                    home.trash.trash(files[static_cast<std::size_t>(thread * filesEach + i)]));
        });
    running.clear();
    std::set<std::string> contents;
    for (const auto& name : home.names()) {
        const auto text = contentsOf(home.folder.path("data/Trash/files") + "/" + name);
        contents.insert(text);
        EXPECT_EQ(recordedPathIn(home.info(name)),
                  percentEscaped(home.folder.path(text) + "/same name"));
    }
    EXPECT_EQ(contents.size(), static_cast<std::size_t>(threads * filesEach));
    EXPECT_EQ(home.infos().size(), contents.size());
}

}  // namespace
}  // namespace nookwise
