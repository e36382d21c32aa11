#include "platform/linux/MountPoint.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LocalMountPoints, areThoseOfDisksAndOfMemory) {
    EXPECT_THAT(localMountPoints("22 27 0:21 / /proc rw,relatime - proc proc rw\n"
                                 "27 1 254:0 / / rw shared:1 - ext4 /dev/vda rw\n"
                                 "31 27 0:30 / /home rw shared:2 master:3 - btrfs /dev/sda2 rw\n"
                                 "32 27 8:1 / /media/stick rw - fuseblk /dev/sdb1 rw\n"
                                 "33 27 0:31 / /dev/shm rw - tmpfs tmpfs rw\n"
                                 "34 27 0:32 / /merged rw - overlay overlay rw\n"
                                 "35 27 0:33 / /tank rw - zfs tank rw"),
                ElementsAre(FileUrl("/"), FileUrl("/dev/shm"), FileUrl("/home"),
                            FileUrl("/media/stick"), FileUrl("/merged"), FileUrl("/tank")));
}

TEST(LocalMountPoints, leaveOutWhatMayHang) {
    EXPECT_THAT(localMountPoints("1 2 0:1 / /nfs rw - nfs4 server:/export rw\n"
                                 "1 2 0:2 / /cifs rw - cifs //server/share rw\n"
                                 "1 2 0:3 / /sshfs rw - fuse.sshfs user@host: rw\n"
                                 "1 2 0:4 / /fuse rw - fuse /dev/fuse rw\n"
                                 "1 2 0:5 / /portal rw - fuse.portal /dev/fuse rw\n"
                                 "1 2 0:6 / /auto rw - autofs systemd-1 rw\n"
                                 "1 2 0:7 / /9p rw - 9p share rw\n"),
                IsEmpty());
}

TEST(LocalMountPoints, mayHaveAnyName) {
    EXPECT_THAT(localMountPoints("1 2 8:1 / /my\\040disk\\011\\012\\134\xFF rw - ext4 /dev/a rw\n"
                                 "1 2 8:1 / /odd\\09\\ rw - ext4 /dev/a rw\n"),
                ElementsAre(FileUrl("/my disk\t\n\\\xFF"), FileUrl("/odd\\09\\")));
}

TEST(LocalMountPoints, areNamedOnceWhereAMountHidesAnother) {
    EXPECT_THAT(localMountPoints("1 2 8:1 / /a rw - ext4 /dev/a rw\n"
                                 "2 1 8:2 / /a rw - ext4 /dev/b rw\n"),
                ElementsAre(FileUrl("/a")));
}

TEST(LocalMountPoints, passOverLinesThatMakeNoSense) {
    EXPECT_THAT(localMountPoints("\n \n1 2 3\n1 2 8:1 / /a rw\n1 2 8:1 / /a rw - ext4\n"
                                 "1 2 8:1 / /a rw ext4 /dev/a rw\n"),
                IsEmpty());
}

TEST(MountPoint, isTheRootOrWhereAnotherFileSystemBegins) {
    const TemporaryFolder folder;
    folder.makeFolder("a/b");
    const auto resolved = resolveFolder(folder.path("a/b"));
    ASSERT_TRUE(resolved);
    const auto top = topDirectoryOf(*resolved);
    ASSERT_TRUE(top);
    EXPECT_TRUE(resolved->url.isWithin(top->url));
    EXPECT_TRUE(onSameMount(resolved->folder.get(), top->folder.get()));
    if (top->url.path() == "/") return;
    const auto above = resolveFolder(top->url.parentPath());
    ASSERT_TRUE(above);
    EXPECT_FALSE(onSameMount(resolved->folder.get(), above->folder.get()));
    EXPECT_EQ(errno, EXDEV);
}

TEST(MountPoint, isFoundFromItself) {
    const auto processes = resolveFolder("/proc");
    ASSERT_TRUE(processes);
    EXPECT_EQ(topDirectoryOf(*processes)->url, FileUrl("/proc"));
    EXPECT_EQ(topDirectoryOf(*resolveFolder("/proc/self"))->url, FileUrl("/proc"));
    EXPECT_EQ(topDirectoryOf(*resolveFolder("/"))->url, FileUrl("/"));
}

TEST(ResolvedFolder, hasNoLinksOnItsWay) {
    const TemporaryFolder folder;
    folder.makeFolder("real/inner");
    std::filesystem::create_directory_symlink("real", folder.path("link"));
    const auto resolved = resolveFolder(folder.path("link/./inner//../inner"));
    ASSERT_TRUE(resolved);
    EXPECT_EQ(resolved->url, folder.url("real/inner"));
}

TEST(ResolvedFolder, isNeverAFile) {
    const TemporaryFolder folder;
    folder.write("file", "");
    EXPECT_FALSE(resolveFolder(folder.path("file")));
    EXPECT_EQ(errno, ENOTDIR);
    EXPECT_FALSE(resolveFolder(folder.path("missing")));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(resolveFolder(""));
}

TEST(ResolvedFolder, mayBeFartherThanAPathCanReach) {
    const TemporaryFolder folder;
    folder.makeFolder("real");
    std::filesystem::create_directory_symlink("real", folder.path("link"));
    const std::string name(250, 'd');
    FileDescriptor at(::open(folder.path("real").c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    FileUrl real = folder.url("real");
    FileUrl byLink = folder.url("link");
    for (int depth = 0; depth < 20; ++depth) {
        ASSERT_EQ(::mkdirat(at.get(), name.c_str(), 0755), 0);
        at = FileDescriptor(::openat(at.get(), name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        real = real.append(name);
        byLink = byLink.append(name);
    }
    ASSERT_EQ(::symlinkat(name.c_str(), at.get(), "far"), 0);
    const auto resolved = resolveFolder(byLink.path());
    ASSERT_TRUE(resolved);
    EXPECT_EQ(resolved->url, real);
    // Where a link that far leads cannot be told.
    EXPECT_FALSE(resolveFolder(byLink.append("far").path()));
    EXPECT_FALSE(resolveFolder(byLink.append("..").append(name).path()));
}

}  // namespace
}  // namespace nookwise
