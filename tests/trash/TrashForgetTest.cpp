#include "platform/linux/Trash.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/trash/TrashHome.h"

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

void moveOut(const FileUrl& from, const FileUrl& to) {
    fs::rename(fs::path(from.path()), fs::path(to.path()));
}

TEST(TrashForget, putsAFileBackAsItWas) {
    for (const std::string name :
         {"plain.txt", "50%20off", "new\nline", "not \xFF\xFE utf-8", "' \"quotes\" \\"}) {
        const TrashHome home;
        const auto file = home.folder.write(name, "bytes");
        ::chmod(home.folder.path(name).c_str(), 0640);
        fs::last_write_time(home.folder.path(name), fs::file_time_type{});
        const auto place = home.trash.trash(file);
        ASSERT_TRUE(place);
        moveOut(place.value(), file);
        home.trash.forget(place.value());
        EXPECT_EQ(contentsOf(home.folder.path(name)), "bytes");
        EXPECT_EQ(fs::last_write_time(home.folder.path(name)), fs::file_time_type{});
        EXPECT_EQ(static_cast<unsigned>(fs::status(home.folder.path(name)).permissions()), 0640U);
        EXPECT_THAT(home.infos(), IsEmpty()) << name;
        EXPECT_THAT(home.names(), IsEmpty());
    }
}

TEST(TrashForget, removesTheSizeOfAFolder) {
    const TrashHome home;
    home.folder.write("a b/file", "bytes");
    home.folder.write("stays/file", "bytes");
    const auto place = home.trash.trash(home.folder.url("a b"));
    ASSERT_TRUE(place);
    ASSERT_TRUE(home.trash.trash(home.folder.url("stays")));
    ASSERT_THAT(home.sizes(), HasSubstr(" a%20b\n"));
    moveOut(place.value(), home.folder.url("a b"));
    home.trash.forget(place.value());
    EXPECT_THAT(home.sizes(), Not(HasSubstr("a%20b")));
    EXPECT_THAT(home.sizes(), HasSubstr(" stays\n"));
    EXPECT_THAT(home.infos(), ElementsAre("stays.trashinfo"));
}

TEST(TrashForget, leavesTheDescriptionOfWhatIsStillThere) {
    const TrashHome home;
    const auto place = home.trash.trash(home.folder.write("file", "bytes"));
    ASSERT_TRUE(place);
    home.trash.forget(place.value());
    fs::create_symlink("nowhere", home.folder.path("link"));
    const auto link = home.trash.trash(home.folder.url("link"));
    ASSERT_TRUE(link);
    home.trash.forget(link.value());
    EXPECT_THAT(home.infos(), ElementsAre("file.trashinfo", "link.trashinfo"));
}

TEST(TrashForget, knowsTheTrashByAnyPath) {
    const TrashHome home;
    const auto place = home.trash.trash(home.folder.write("file", "bytes"));
    ASSERT_TRUE(place);
    moveOut(place.value(), home.folder.url("file"));
    fs::create_directory_symlink("data/Trash", home.folder.path("link"));
    home.trash.forget(home.folder.url("link/files/file"));
    EXPECT_THAT(home.infos(), IsEmpty());
}

TEST(TrashForget, doesNothingAnywhereElse) {
    const TrashHome home;
    ASSERT_TRUE(home.trash.trash(home.folder.write("file", "bytes")));
    home.folder.makeFolder("other/files");
    home.folder.write("other/info/file.trashinfo", "not ours");
    home.folder.makeFolder("data/Trash/files/folder");
    home.folder.write("data/Trash/info/inner.trashinfo", "of something else");
    for (const auto* path :
         {"other/files/file", "data/Trash/files/folder/inner", "data/Trash/info/inner",
          "data/Trash/inner", "inner", "missing/files/inner", "data/Trash/files/.",
          "data/Trash/files/..", "data/Trash/files"})
        home.trash.forget(home.folder.url(path));
    home.trash.forget(FileUrl());
    home.trash.forget(FileUrl("/"));
    home.trash.forget(FileUrl("/files"));
    home.trash.forget(FileUrl("/files/file"));
    EXPECT_EQ(contentsOf(home.folder.path("other/info/file.trashinfo")), "not ours");
    EXPECT_THAT(home.infos(), ElementsAre("file.trashinfo", "inner.trashinfo"));
}

TEST(TrashForget, knowsTheTrashesOfVolumesByTheirNames) {
    const TrashHome home;
    const auto user = std::to_string(::geteuid());
    for (const auto& trash : {"volume/.Trash-" + user, "volume/.Trash/" + user}) {
        home.folder.makeFolder(trash + "/files");
        home.folder.write(trash + "/info/file.trashinfo", "[Trash Info]\n");
        home.trash.forget(home.folder.url(trash + "/files/file"));
        EXPECT_THAT(namesIn(home.folder.path(trash + "/info")), IsEmpty());
    }
}

TEST(TrashForget, leavesTheTrashesOfOthersAlone) {
    const TrashHome home;
    const auto other = std::to_string(::geteuid() + 1);
    for (const auto& trash : {"volume/.Trash-" + other, "volume/.Trash/" + other,
                              "volume/" + std::to_string(::geteuid())}) {
        home.folder.makeFolder(trash + "/files");
        home.folder.write(trash + "/info/file.trashinfo", "[Trash Info]\n");
        home.trash.forget(home.folder.url(trash + "/files/file"));
        EXPECT_THAT(namesIn(home.folder.path(trash + "/info")), ElementsAre("file.trashinfo"));
    }
}

TEST(TrashForget, leavesATrashAloneThatOnlyHasTheUsersName) {
    const TrashHome home;
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give a folder away";
    home.folder.makeFolder("volume/.Trash-65534/files");
    home.folder.write("volume/.Trash-65534/info/file.trashinfo", "[Trash Info]\n");
    ::chmod(home.folder.path("volume/.Trash-65534/info").c_str(), 0777);
    const OrdinaryUser user;
    home.trash.forget(home.folder.url("volume/.Trash-65534/files/file"));
    EXPECT_THAT(namesIn(home.folder.path("volume/.Trash-65534/info")),
                ElementsAre("file.trashinfo"));
}

}  // namespace
}  // namespace nookwise
