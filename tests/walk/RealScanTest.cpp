#include "platform/linux/LinuxFileManager.h"
#include "platform/linux/OpenAt.h"
#include "scan/Scanner.h"
#include "tests/support/FakeMetadata.h"
#include "tests/support/FakeUserFolders.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/ManualClock.h"
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

using std::filesystem::create_directory_symlink;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Real folders and files, scanned as on a user's computer.
class RealScan : public ::testing::Test {
  protected:
    RealScan() {
        folders.homeFolder = home.url();
        folders.desktopFolder = home.makeFolder("Desktop");
        folders.documentsFolder = home.makeFolder("Documents");
        folders.downloadsFolder = home.makeFolder("Downloads");
        folders.applicationFolders = {home.url("Applications")};
    }

    ScanResult scan() {
        return Scanner(files, metadata, folders, workspace, clock)
            .runBlocking([](const ScanProgress&) {}, {});
    }

    std::vector<std::string> scannedPaths() {
        std::vector<std::string> paths;
        for (const auto& file : scan().files)
            paths.emplace_back(file.url.path().substr(home.url().path().size() + 1));
        return paths;
    }

    /// The paths of each group, the kept copy first.
    std::vector<std::vector<std::string>> groups() {
        std::vector<std::vector<std::string>> all;
        for (const auto& group : scan().duplicates) {
            auto& paths = all.emplace_back();
            for (const auto& file : group.files) {
                paths.emplace_back(file.url.path().substr(home.url().path().size() + 1));
            }
        }
        return all;
    }

    TemporaryFolder home;
    LinuxFileManager files;
    FakeMetadata metadata;
    FakeUserFolders folders;
    FakeWorkspace workspace;
    ManualClock clock{std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now())};
    const std::string block = std::string(100'000, 'n');
};

TEST_F(RealScan, readsTheThreeFoldersInTheirOrder) {
    for (const auto* name :
         {"Downloads/c.txt", "Documents/b.txt", "Desktop/a.txt", "Pictures/not scanned.txt"}) {
        home.write(name, "x");
    }
    EXPECT_THAT(scannedPaths(), ElementsAre("Desktop/a.txt", "Documents/b.txt", "Downloads/c.txt"));
}

TEST_F(RealScan, refusesARootThatIsTheHomeFolderOrHoldsIt) {
    home.write("private.txt", "x");
    home.write("Documents/b.txt", "x");
    folders.desktopFolder = home.url();
    folders.downloadsFolder = FileUrl("/");
    EXPECT_THAT(scannedPaths(), ElementsAre("Documents/b.txt"));
}

TEST_F(RealScan, refusesARootThatIsALinkToTheHomeFolder) {
    home.write("private.txt", "x");
    create_directory_symlink(home.path(), home.path("way home"));
    folders.desktopFolder = home.url("way home");
    EXPECT_THAT(scannedPaths(), IsEmpty());
}

TEST_F(RealScan, goesOnPastRootsThatAreMissingOrClosed) {
    home.write("Downloads/c.txt", "x");
    home.write("Documents/b.txt", "x");
    folders.desktopFolder = home.url("missing");
    ::chmod(home.path("Documents").c_str(), 0);
    const OrdinaryUser user;
    EXPECT_THAT(scannedPaths(), ElementsAre("Downloads/c.txt"));
}

TEST_F(RealScan, readsARootInsideAnotherRootOnce) {
    folders.downloadsFolder = home.makeFolder("Documents/Downloads");
    home.write("Documents/Downloads/in.pdf", block);
    home.write("Documents/b.txt", "x");
    EXPECT_THAT(scannedPaths(), ElementsAre("Documents/b.txt", "Documents/Downloads/in.pdf"));
    EXPECT_THAT(groups(), IsEmpty()) << "a file is no copy of itself";
}

TEST_F(RealScan, readsAFolderThatARootLinksToOnce) {
    home.write("Documents/Loads/in.pdf", block);
    create_directory_symlink(home.path("Documents/Loads"), home.path("Linked"));
    folders.downloadsFolder = home.url("Linked");
    EXPECT_THAT(scannedPaths(), ElementsAre("Linked/in.pdf"));
    EXPECT_THAT(groups(), IsEmpty());
}

TEST_F(RealScan, countsTwoRootsThatAreTheSameFolderOnce) {
    folders.downloadsFolder = folders.desktopFolder;
    home.write("Desktop/in.pdf", block);
    EXPECT_THAT(scannedPaths(), ElementsAre("Desktop/in.pdf"));
}

TEST_F(RealScan, findsCopiesAndKeepsTheOneInDocuments) {
    home.write("Downloads/a.pdf", block);
    home.write("Desktop/a copy.pdf", block);
    home.write("Documents/a.pdf", block);
    home.write("Documents/other.pdf", std::string(99'999, 'n') + "m");
    EXPECT_THAT(groups(), ElementsAre(ElementsAre("Documents/a.pdf", "Downloads/a.pdf",
                                                  "Desktop/a copy.pdf")));
}

TEST_F(RealScan, prefersToKeepWhatLiesOutsideADownloadsFolderOfAnotherName) {
    folders.downloadsFolder = home.makeFolder("Téléchargements");
    home.write("Téléchargements/a.pdf", block);
    home.write("Documents/a.pdf", block);
    EXPECT_THAT(groups(), ElementsAre(ElementsAre("Documents/a.pdf", "Téléchargements/a.pdf")));
}

TEST_F(RealScan, listsHardLinksAsCopiesAndLinksNever) {
    home.write("Documents/a.pdf", block);
    std::filesystem::create_hard_link(home.path("Documents/a.pdf"),
                                      home.path("Documents/hard.pdf"));
    std::filesystem::create_symlink("a.pdf", home.path("Documents/soft.pdf"));
    EXPECT_THAT(groups(), ElementsAre(::testing::UnorderedElementsAre("Documents/a.pdf",
                                                                      "Documents/hard.pdf")));
}

TEST_F(RealScan, sortsCopiesOfOneContentByTheirSizeOnDisk) {
    const auto preallocated = [&](const char* name) {
        home.write(name, block);
        const FileDescriptor file(::open(home.path(name).c_str(), O_RDWR));
        return ::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, 1'000'000) == 0;
    };
    home.write("Documents/1.pdf", block);
    home.write("Documents/2.pdf", block);
    if (!preallocated("Documents/3.pdf") || !preallocated("Documents/4.pdf"))
        GTEST_SKIP() << "no preallocation here";
    const auto found = scan().duplicates;
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].id, found[1].id);
    EXPECT_GT(found[0].files[0].size, found[1].files[0].size);
}

TEST_F(RealScan, leavesFilesThatItMayNotReadOutOfTheGroups) {
    for (const auto* name : {"Documents/1.pdf", "Documents/2.pdf", "Documents/3.pdf"})
        home.write(name, block);
    ::chmod(home.path("Documents/2.pdf").c_str(), 0);
    const OrdinaryUser user;
    EXPECT_THAT(groups(),
                ElementsAre(::testing::UnorderedElementsAre("Documents/1.pdf", "Documents/3.pdf")));
}

TEST_F(RealScan, passesPipesAndLoopsBy) {
    home.makePipe("Downloads/pipe.pdf");
    create_directory_symlink("..", home.path("Downloads/loop"));
    home.write("Downloads/real.pdf", block);
    EXPECT_THAT(scannedPaths(), ElementsAre("Downloads/real.pdf"));
}

TEST_F(RealScan, takesNamesThatAreNotUtf8ThroughEveryPile) {
    clock.set(clock.now() + Seconds(100.0 * 86'400));
    const std::string odd = "\xff\xfe(2) ";
    home.makeFolder("Applications/Blue Kite.app");
    home.write("Downloads/Blue Kite\xff.dmg", "x");
    home.write("Downloads/screenshot " + odd + ".png", block);
    home.write("Downloads/" + odd + ".pdf", block);
    home.write("Documents/" + odd + ".pdf", block);
    const auto result = scan();
    EXPECT_EQ(result.files.size(), 4U);
    EXPECT_EQ(result.piles.at(PileKind::installers).size(), 1U);
    EXPECT_EQ(result.piles.at(PileKind::screenshots).size(), 1U);
    EXPECT_EQ(result.piles.at(PileKind::forgotten).size(), 2U);
    ASSERT_EQ(result.duplicates.size(), 1U);
    EXPECT_EQ(result.duplicates[0].keep, home.url("Documents").append(odd + ".pdf"));
}

TEST_F(RealScan, doesNotReadASparseFileOfTerabytes) {
    const auto sparse = [&](const char* name) {
        home.write(name, block);
        return ::truncate(home.path(name).c_str(), std::int64_t{5} << 40) == 0;
    };
    if (!sparse("Documents/1.iso") || !sparse("Documents/2.iso"))
        GTEST_SKIP() << "files cannot be that long here";
    EXPECT_THAT(groups(), IsEmpty());
}

}  // namespace
}  // namespace nookwise
