#include "tests/changes/TransferFixture.h"

#include <array>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// One entry of an access control list as the kernel takes it, after a version of 2.
struct ListEntry {
    std::uint16_t tag;
    std::uint16_t permissions;
    std::uint32_t who;
};

constexpr std::uint32_t nobodyInParticular = 0xffffffff;

std::string accessList(std::uint32_t user) {
    const std::array<ListEntry, 5> entries{{{0x01, 6, nobodyInParticular},
                                            {0x02, 4, user},
                                            {0x04, 0, nobodyInParticular},
                                            {0x10, 4, nobodyInParticular},
                                            {0x20, 0, nobodyInParticular}}};
    const std::uint32_t version = 2;
    std::string list(reinterpret_cast<const char*>(&version), sizeof version);
    list.append(reinterpret_cast<const char*>(entries.data()), sizeof entries);
    return list;
}

bool setAttribute(const std::string& path, const char* name, const std::string& value) {
    return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

void setTimes(const std::string& path) {
    const timespec times[2] = {{.tv_sec = 1'234'567, .tv_nsec = 111'222'333},
                               {.tv_sec = 7'654'321, .tv_nsec = 444'555'666}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

class EveryTransferOfMetadata : public EveryTransfer {};
INSTANTIATE_TEST_SUITE_P(transfers, EveryTransferOfMetadata, everyWay, wayName);

TEST_P(EveryTransferOfMetadata, keepsTimesToTheNanosecond) {
    home.write("file", "x");
    setTimes(home.path("file"));
    ASSERT_TRUE(transfer("file"));
    struct stat status {};
    ASSERT_EQ(::stat(target().path("file").c_str(), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 7'654'321);
    EXPECT_EQ(status.st_mtim.tv_nsec, 444'555'666);
    EXPECT_EQ(status.st_atim.tv_nsec, 111'222'333);
}

TEST_P(EveryTransferOfMetadata, keepsPermissionsWhateverTheMaskForNewFiles) {
    home.write("program", "x");
    home.write("read only", "x");
    ASSERT_EQ(::chmod(home.path("program").c_str(), 0777), 0);
    ASSERT_EQ(::chmod(home.path("read only").c_str(), 0444), 0);
    const auto before = snapshot(home.path());
    const auto mask = ::umask(0077);
    EXPECT_TRUE(transfer("program"));
    EXPECT_TRUE(transfer("read only"));
    ::umask(mask);
    EXPECT_EQ(snapshot(target().path("program")).at(""), before.at("program"));
    EXPECT_EQ(snapshot(target().path("read only")).at(""), before.at("read only"));
}

TEST_P(EveryTransferOfMetadata, keepsTheRightToRunAsItsOwner) {
    home.write("program", "x");
    ASSERT_EQ(::chmod(home.path("program").c_str(), 04755), 0);
    expectWhole("program");
}

TEST_P(EveryTransferOfMetadata, keepsTheOwner) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root may give files away";
    home.write("file", "x");
    ASSERT_EQ(::chown(home.path("file").c_str(), 1234, 5678), 0);
    ASSERT_EQ(::chmod(home.path("file").c_str(), 06755), 0);
    expectWhole("file");
}

TEST_P(EveryTransferOfMetadata, keepsExtendedAttributesOfAReadOnlyFile) {
    home.write("file", "x");
    if (!setAttribute(home.path("file"), "user.origin", std::string("a\0b", 3)) ||
        !setAttribute(home.path("file"), "user.empty", ""))
        GTEST_SKIP() << "the file system keeps no extended attributes";
    target().write("probe", "x");
    if (!setAttribute(target().path("probe"), "user.origin", "x"))
        GTEST_SKIP() << "the other file system keeps no extended attributes";
    std::filesystem::remove(target().path("probe"));
    ASSERT_EQ(::chmod(home.path("file").c_str(), 0400), 0);
    expectWhole("file");
}

TEST_P(EveryTransferOfMetadata, keepsAccessControlLists) {
    home.write("file", "x");
    home.makeFolder("folder");
    const auto list = accessList(1234);
    if (!setAttribute(home.path("file"), "system.posix_acl_access", list) ||
        !setAttribute(home.path("folder"), "system.posix_acl_default", list))
        GTEST_SKIP() << "the file system keeps no access control lists";
    const auto file = snapshot(home.path("file"));
    const auto folder = snapshot(home.path("folder"));
    ASSERT_TRUE(transfer("file"));
    ASSERT_TRUE(transfer("folder"));
    EXPECT_EQ(snapshot(target().path("file")), file);
    EXPECT_EQ(snapshot(target().path("folder")), folder);
}

TEST_P(EveryTransferOfMetadata, letsNobodyInWhoCouldNotReadItBefore) {
    home.write("folder/secret", "x");
    ASSERT_EQ(::chmod(home.path("folder/secret").c_str(), 0600), 0);
    if (!setAttribute(target().path().native(), "system.posix_acl_default", accessList(1234)))
        GTEST_SKIP() << "the file system keeps no access control lists";
    expectWhole("folder");
}

TEST_P(EveryTransferOfMetadata, fillsFoldersWhateverTheMaskForNewFiles) {
    home.write("folder/inner/file", "x");
    const auto before = snapshot(home.path("folder"));
    const auto mask = ::umask(0777);
    std::filesystem::create_directory(own.path("unfinished"));
    std::filesystem::permissions(own.path("unfinished"), std::filesystem::perms::owner_all);
    const auto done = transfer("folder");
    ::umask(mask);
    ASSERT_TRUE(done) << done.error().code.message();
    EXPECT_EQ(snapshot(target().path("folder")), before);
}

TEST_P(EveryTransferOfMetadata, keepsTheTimesAndPermissionsOfFolders) {
    home.write("folder/inner/file", "x");
    setTimes(home.path("folder/inner"));
    setTimes(home.path("folder"));
    ASSERT_EQ(::chmod(home.path("folder/inner").c_str(), 0555), 0);
    expectWhole("folder");
}

TEST_P(EveryTransferOfMetadata, leavesTheAccessTimeOfWhatItCopies) {
    if (isMove()) GTEST_SKIP() << "nothing is left";
    home.write("file", "x");
    setTimes(home.path("file"));
    ASSERT_TRUE(transfer("file"));
    struct stat status {};
    ASSERT_EQ(::stat(home.path("file").c_str(), &status), 0);
    EXPECT_EQ(status.st_atim.tv_sec, 1'234'567);
}

}  // namespace
}  // namespace nookwise
