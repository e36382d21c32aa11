#include "platform/linux/PercentEscapes.h"
#include "platform/linux/Trash.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/trash/TrashHome.h"

#include <csignal>
#include <ctime>
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
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
    const auto info = home.info("50%20off\n\xFF \"x\".pdf");
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(info, parts,
                                 std::regex("\\[Trash Info\\]\nPath=(\\S*)\nDeletionDate="
                                            "(\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d)\n"
                                            "X-Nookwise-Run=[0-9A-F-]{36}\n")))
        << info;
    EXPECT_EQ(percentUnescaped(parts[1].str()), file.path());
    EXPECT_TRUE(parts[1].str().ends_with("/Downloads/50%2520off%0A%FF%20%22x%22.pdf"));
    std::tm date{};
    const auto text = parts[2].str();
    ASSERT_NE(::strptime(text.c_str(), "%Y-%m-%dT%H:%M:%S", &date), nullptr);
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

TEST(Trash, refusesWhatIsNoFile) {
    const TrashHome home;
    home.folder.write("folder/file", "bytes");
    for (const auto& url :
         {FileUrl(), FileUrl("/"), home.folder.url("folder/."), home.folder.url("folder/.."),
          FileUrl("relative"), FileUrl(home.folder.path("folder/file") + std::string(1, '\0'))}) {
        const auto place = home.trash.trash(url);
        ASSERT_FALSE(place) << url.path();
        EXPECT_EQ(place.error().code, std::errc::invalid_argument);
        EXPECT_EQ(place.error().url, url);
    }
    EXPECT_TRUE(isThere(home.folder.url("folder/file")));
    EXPECT_THAT(home.infos(), IsEmpty());
}

TEST(Trash, refusesWhatIsInATrashIsOneOrHoldsOne) {
    const TrashHome home;
    const auto place = home.trash.trash(home.folder.write("file", "bytes"));
    ASSERT_TRUE(place);
    fs::create_directory_symlink("data/Trash", home.folder.path("link"));
    for (const auto& url :
         {place.value(), home.url.append("info").append("file.trashinfo"), home.url.append("files"),
          home.url, home.folder.url("data"), home.folder.url(), home.folder.url("link/files/file"),
          home.folder.url("./data/../data/Trash")}) {
        const auto again = home.trash.trash(url);
        ASSERT_FALSE(again) << url.path();
        EXPECT_EQ(again.error().code, std::errc::invalid_argument) << url.path();
    }
    EXPECT_THAT(home.names(), ElementsAre("file"));
    EXPECT_THAT(home.infos(), ElementsAre("file.trashinfo"));
}

TEST(Trash, takesAFolderThatIsOnlyNamedLikeATrash) {
    const TrashHome home;
    home.folder.write("backup/.Trash-0/files/file", "bytes");
    EXPECT_TRUE(home.trash.trash(home.folder.url("backup/.Trash-0/files/file")));
    EXPECT_TRUE(home.trash.trash(home.folder.url("backup/.Trash-0")));
}

TEST(Trash, reportsWhatIsNotThere) {
    const TrashHome home;
    home.folder.write("file", "bytes");
    EXPECT_EQ(home.trash.trash(home.folder.url("missing")).error().code,
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(home.trash.trash(home.folder.url("missing/file")).error().code,
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(home.trash.trash(home.folder.url("file/below")).error().code,
              std::errc::not_a_directory);
    EXPECT_EQ(home.trash.trash(home.folder.url(std::string(256, 'x'))).error().code,
              std::errc::filename_too_long);
    EXPECT_THAT(home.infos(), IsEmpty());
}

TEST(Trash, mayItselfStandBehindALink) {
    const TrashHome home;
    home.folder.makeFolder("elsewhere");
    home.folder.makeFolder("data");
    fs::create_directory_symlink("../elsewhere", home.folder.path("data/Trash"));
    const auto place = home.trash.trash(home.folder.write("file", "bytes"));
    ASSERT_TRUE(place);
    EXPECT_EQ(place.value(), home.url.append("files").append("file"));
    EXPECT_TRUE(isThere(home.folder.url("elsewhere/files/file")));
    for (const auto& url : {home.url, home.folder.url("elsewhere")})
        EXPECT_EQ(home.trash.trash(url).error().code, std::errc::invalid_argument);
}

TEST(Trash, refusesWhereItsFoldersAreFilesOrLinks) {
    for (const auto* bad : {"data", "data/Trash", "data/Trash/files", "data/Trash/info"}) {
        const TrashHome home;
        const auto file = home.folder.write("file", "bytes");
        home.folder.write(bad, "in the way");
        EXPECT_FALSE(home.trash.trash(file)) << bad;
        EXPECT_TRUE(isThere(file));
        EXPECT_EQ(contentsOf(home.folder.path(bad)), "in the way");
    }
    for (const auto* bad : {"data/Trash/files", "data/Trash/info"}) {
        const TrashHome home;
        const auto file = home.folder.write("file", "bytes");
        home.folder.makeFolder("elsewhere");
        home.folder.makeFolder("data/Trash");
        fs::create_directory_symlink("../../elsewhere", home.folder.path(bad));
        EXPECT_FALSE(home.trash.trash(file)) << bad;
        EXPECT_TRUE(isThere(file));
        EXPECT_THAT(namesIn(home.folder.path("elsewhere")), IsEmpty());
    }
}

TEST(Trash, leavesNoDescriptionWhereTheFileMayNotBeMoved) {
    const TrashHome home;
    const auto file = home.folder.write("locked/file", "bytes");
    home.folder.makeFolder("data/Trash/files");
    home.folder.makeFolder("data/Trash/info");
    for (const auto* folder : {"data/Trash", "data/Trash/files", "data/Trash/info"})
        ::chmod(home.folder.path(folder).c_str(), 0777);
    ::chmod(home.folder.path("locked").c_str(), 0555);
    const OrdinaryUser user;
    const auto place = home.trash.trash(file);
    ASSERT_FALSE(place);
    EXPECT_EQ(place.error().code, std::errc::permission_denied);
    EXPECT_TRUE(isThere(file));
    EXPECT_THAT(home.infos(), IsEmpty());
}

/// While it lives, this process can write nothing into files, as on a full volume.
class NoSpace {
  public:
    NoSpace() : usualAction_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &usual_);
        const rlimit none{.rlim_cur = 0, .rlim_max = usual_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~NoSpace() {
        ::setrlimit(RLIMIT_FSIZE, &usual_);
        std::signal(SIGXFSZ, usualAction_);
    }
    NoSpace(const NoSpace&) = delete;
    NoSpace& operator=(const NoSpace&) = delete;

  private:
    void (*usualAction_)(int);
    rlimit usual_{};
};

TEST(Trash, leavesNoDescriptionThatCouldNotBeWritten) {
    const TrashHome home;
    const auto file = home.folder.write("file", "bytes");
    const auto place = [&] {
        const NoSpace full;
        return home.trash.trash(file);
    }();
    ASSERT_FALSE(place);
    EXPECT_EQ(place.error().code, std::errc::file_too_large);
    EXPECT_EQ(contentsOf(file.path()), "bytes");
    EXPECT_THAT(home.infos(), IsEmpty());
    EXPECT_THAT(home.names(), IsEmpty());
    EXPECT_TRUE(home.trash.trash(file));
}

TEST(Trash, keepsTheListOfSizesThatCouldNotBeWritten) {
    const TrashHome home;
    home.folder.makeFolder("one");
    const auto place = home.trash.trash(home.folder.makeFolder("two"));
    ASSERT_TRUE(place);
    ASSERT_TRUE(home.trash.trash(home.folder.url("one")));
    const auto sizes = home.sizes();
    fs::rename(fs::path(place.value().path()), home.folder.path("two"));
    {
        const NoSpace full;
        home.trash.forget(place.value());
    }
    EXPECT_EQ(home.sizes(), sizes);
    EXPECT_THAT(namesIn(home.folder.path("data/Trash")),
                ElementsAre("directorysizes", "files", "info"));
    EXPECT_THAT(home.infos(), ElementsAre("one.trashinfo"));
}

TEST(Trash, refusesWhereItMayNotWrite) {
    for (const auto* locked : {"data", "data/Trash", "data/Trash/files", "data/Trash/info"}) {
        const TrashHome home;
        const auto file = home.folder.write("open/file", "bytes");
        home.folder.makeFolder(locked);
        ::chmod(home.folder.path("open").c_str(), 0777);
        ::chmod(home.folder.path("data").c_str(), 0777);
        ::chmod(home.folder.path("data/Trash").c_str(), 0777);
        ::chmod(home.folder.path(locked).c_str(), 0555);
        const OrdinaryUser user;
        const auto place = home.trash.trash(file);
        ASSERT_FALSE(place) << locked;
        EXPECT_EQ(place.error().code, std::errc::permission_denied) << locked;
        EXPECT_TRUE(isThere(file));
        EXPECT_THAT(home.infos(), IsEmpty());
    }
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
