// What a Trash refuses, and what it leaves behind then: nothing.
#include "platform/linux/Trash.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/trash/TrashHome.h"

#include <csignal>
#include <filesystem>
#include <string>
#include <system_error>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

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

}  // namespace
}  // namespace nookwise
