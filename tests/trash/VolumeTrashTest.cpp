#include "platform/linux/MountPoint.h"
#include "platform/linux/VolumeTrash.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/trash/TrashHome.h"

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const uid_t me = ::geteuid();
const std::string myName = std::to_string(me);
const std::string ownTrash = ".Trash-" + myName;
const std::string sharedTrash = ".Trash/" + myName;

/// A plain folder that stands for the top directory of a volume.
class VolumeTrash : public testing::Test {
  protected:
    std::optional<TrashFolder> open(uid_t user = me) const {
        const auto top = resolveFolder(volume.path().native());
        return top ? volumeTrash(*top, user) : std::nullopt;
    }
    void makeShared(mode_t mode) const {
        volume.makeFolder(".Trash");
        ::chmod(volume.path(".Trash").c_str(), mode);
    }
    mode_t modeOf(const std::string& name) const {
        struct stat status {};
        return ::lstat(volume.path(name).c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }

    TemporaryFolder volume;
};

TEST_F(VolumeTrash, isTheUsersOwnWhereThereIsNoneToShare) {
    const auto trash = open();
    ASSERT_TRUE(trash);
    EXPECT_EQ(trash->url(), volume.url(ownTrash));
    EXPECT_EQ(modeOf(ownTrash), 0700U);
    EXPECT_EQ(modeOf(ownTrash + "/files"), 0700U);
    EXPECT_EQ(modeOf(ownTrash + "/info"), 0700U);
    EXPECT_THAT(namesIn(volume.path()), ElementsAre(ownTrash));
    EXPECT_TRUE(open());
}

TEST_F(VolumeTrash, isInTheSharedFolderWhereThatIsSticky) {
    makeShared(01777);
    const auto trash = open();
    ASSERT_TRUE(trash);
    EXPECT_EQ(trash->url(), volume.url(sharedTrash));
    EXPECT_EQ(modeOf(sharedTrash), 0700U);
    EXPECT_THAT(namesIn(volume.path()), ElementsAre(".Trash"));
}

TEST_F(VolumeTrash, isNotInAFolderWithoutTheStickyBit) {
    makeShared(0777);
    const auto trash = open();
    ASSERT_TRUE(trash);
    EXPECT_EQ(trash->url(), volume.url(ownTrash));
    EXPECT_THAT(namesIn(volume.path(".Trash")), IsEmpty());
}

TEST_F(VolumeTrash, isNotBehindALinkToASharedFolder) {
    volume.makeFolder("elsewhere");
    ::chmod(volume.path("elsewhere").c_str(), 01777);
    fs::create_directory_symlink("elsewhere", volume.path(".Trash"));
    const auto trash = open();
    ASSERT_TRUE(trash);
    EXPECT_EQ(trash->url(), volume.url(ownTrash));
    EXPECT_THAT(namesIn(volume.path("elsewhere")), IsEmpty());
}

TEST_F(VolumeTrash, isTheOwnOneWhereTheSharedFolderIsAFile) {
    volume.write(".Trash", "");
    EXPECT_EQ(open()->url(), volume.url(ownTrash));
}

TEST_F(VolumeTrash, isTheOwnOneWhereTheUsersPartOfTheSharedFolderIsBad) {
    makeShared(01777);
    volume.makeFolder("elsewhere");
    fs::create_directory_symlink("../elsewhere", volume.path(sharedTrash));
    EXPECT_EQ(open()->url(), volume.url(ownTrash));
    fs::remove(volume.path(sharedTrash));
    volume.write(sharedTrash, "a file");
    EXPECT_EQ(open()->url(), volume.url(ownTrash));
    fs::remove(volume.path(sharedTrash));
    volume.write(sharedTrash + "/files", "a file");
    EXPECT_EQ(open()->url(), volume.url(ownTrash));
    EXPECT_THAT(namesIn(volume.path("elsewhere")), IsEmpty());
}

TEST_F(VolumeTrash, isRefusedWhereItIsALinkOrAFile) {
    volume.makeFolder("elsewhere");
    fs::create_directory_symlink("elsewhere", volume.path(ownTrash));
    EXPECT_FALSE(open());
    fs::remove(volume.path(ownTrash));
    volume.write(ownTrash, "a file");
    EXPECT_FALSE(open());
    EXPECT_EQ(errno, ENOTDIR);
    EXPECT_THAT(namesIn(volume.path("elsewhere")), IsEmpty());
}

TEST_F(VolumeTrash, isRefusedWhereItIsSomebodyElses) {
    makeShared(01777);
    volume.makeFolder(".Trash/" + std::to_string(me + 1));
    volume.makeFolder(".Trash-" + std::to_string(me + 1));
    EXPECT_FALSE(open(me + 1));
    EXPECT_EQ(errno, EPERM);
    EXPECT_THAT(namesIn(volume.path(".Trash-" + std::to_string(me + 1))), IsEmpty());
}

TEST_F(VolumeTrash, isRefusedWhereTheUserMayNotWrite) {
    const OrdinaryUser user;
    ::chmod(volume.path().c_str(), 0555);
    EXPECT_FALSE(open(::geteuid()));
    EXPECT_EQ(errno, EACCES);
}

TEST_F(VolumeTrash, isMadeByAnOrdinaryUserInTheSharedFolder) {
    makeShared(01777);
    const OrdinaryUser user;
    const auto trash = open(::geteuid());
    ASSERT_TRUE(trash);
    EXPECT_EQ(trash->url(), volume.url(".Trash/" + std::to_string(::geteuid())));
}

TEST_F(VolumeTrash, isOnlyLookedForWhereNothingIsToBeMade) {
    makeShared(01777);
    const auto top = resolveFolder(volume.path().native());
    ASSERT_TRUE(top);
    EXPECT_FALSE(sharedVolumeTrash(*top, me, MissingFolders::leave));
    EXPECT_FALSE(ownVolumeTrash(*top, me, MissingFolders::leave));
    volume.makeFolder(ownTrash);
    EXPECT_FALSE(ownVolumeTrash(*top, me, MissingFolders::leave));
    EXPECT_THAT(namesIn(volume.path(".Trash")), IsEmpty());
    EXPECT_THAT(namesIn(volume.path(ownTrash)), IsEmpty());
}

TEST(VolumeTrashPath, isTheTrashItselfAndAllBelow) {
    // The root of the test's own file system stands for any volume.
    const TemporaryFolder folder;
    const auto inside = resolveFolder(folder.path().native());
    ASSERT_TRUE(inside);
    const auto top = topDirectoryOf(*inside);
    ASSERT_TRUE(top);
    for (const auto* name : {".Trash", ".Trash-0", ".Trash-1000"}) {
        EXPECT_TRUE(leadsIntoVolumeTrash(top->url.append(name), *top)) << name;
        EXPECT_TRUE(leadsIntoVolumeTrash(top->url.append(name).append("files/a"), *top)) << name;
        EXPECT_FALSE(leadsIntoVolumeTrash(folder.url(name), *inside)) << name;
    }
    EXPECT_FALSE(leadsIntoVolumeTrash(top->url.append(".Trashy"), *top));
    EXPECT_FALSE(leadsIntoVolumeTrash(top->url.append("file"), *top));
}

/// A folder on a file system other than that of the temporary folders.
class OtherVolume : public testing::Test {
  protected:
    void SetUp() override {
        struct stat here {};
        struct stat there {};
        if (::stat(home.folder.path().c_str(), &here) != 0 || ::stat("/dev/shm", &there) != 0 ||
            here.st_dev == there.st_dev)
            GTEST_SKIP() << "there is no second file system at /dev/shm";
        if (isThere(FileUrl("/dev/shm/.Trash")))
            GTEST_SKIP() << "the machine has a Trash for all at /dev/shm";
        // Another of these tests must not remove the Trash while this one uses it.
        turn = FileDescriptor(::open("/dev/shm", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        ASSERT_EQ(::flock(turn.get(), LOCK_EX), 0);
        hadTrash = isThere(FileUrl(trash));
    }
    void TearDown() override {
        if (hadTrash) return;
        // Empty folders only: somebody else may use it by now.
        for (const auto* below : {"/files", "/info", ""}) ::rmdir((trash + below).c_str());
    }

    const std::string trash = "/dev/shm/.Trash-" + myName;
    FileDescriptor turn;
    bool hadTrash = true;
    TrashHome home;
};

TEST_F(OtherVolume, hasItsTrashInItsTopDirectory) {
    const TemporaryFolder there("/dev/shm");
    const auto name = there.path().filename().native() + " 50%.txt";
    const auto file = there.write("folder/" + name, "bytes");
    const auto place = home.trash.trash(file);
    ASSERT_TRUE(place) << place.error().code.message();
    EXPECT_EQ(place.value(), FileUrl(trash + "/files/" + name));
    EXPECT_FALSE(isThere(file));
    EXPECT_EQ(contentsOf(place.value().path()), "bytes");
    // Relative to the top directory, with the links on the way followed.
    EXPECT_EQ(recordedPathIn(contentsOf(trash + "/info/" + name + ".trashinfo")),
              there.path().filename().native() + "/folder/" + there.path().filename().native() +
                  "%2050%25.txt");
    EXPECT_EQ(home.trash.trash(place.value()).error().code, std::errc::invalid_argument);
    EXPECT_FALSE(isThere(home.url));

    fs::rename(fs::path(place.value().path()), fs::path(file.path()));
    home.trash.forget(place.value());
    EXPECT_FALSE(isThere(FileUrl(trash + "/info/" + name + ".trashinfo")));
    EXPECT_EQ(contentsOf(file.path()), "bytes");
}

TEST_F(OtherVolume, isFoundThroughALink) {
    const TemporaryFolder there("/dev/shm");
    const auto name = there.path().filename().native();
    there.write("folder/" + name, "bytes");
    fs::create_directory_symlink(there.path("folder"), home.folder.path("link"));
    const auto place = home.trash.trash(home.folder.url("link").append(name));
    ASSERT_TRUE(place);
    EXPECT_EQ(recordedPathIn(contentsOf(trash + "/info/" + name + ".trashinfo")),
              name + "/folder/" + name);
    fs::remove(fs::path(place.value().path()));
    home.trash.forget(place.value());
    EXPECT_FALSE(isThere(FileUrl(trash + "/info/" + name + ".trashinfo")));
}

TEST(PseudoFileSystem, keepsItsFiles) {
    const TrashHome home;
    EXPECT_FALSE(home.trash.trash(FileUrl("/proc/self/status")));
    EXPECT_FALSE(isThere(home.url));
}

}  // namespace
}  // namespace nookwise
