#include "tests/scan/ScanFixture.h"

namespace nookwise {
namespace {

class Roots : public ScanFixture {
  protected:
    Roots() {
        world.files.addFile("/home/user/Desktop/a");
        world.files.addFile("/home/user/Documents/b");
        world.files.addFile("/home/user/Downloads/c");
    }

    Paths walkedPaths() { return paths(scan().files); }

    /// The roots that were said to be read, in order.
    Paths reportedFolders() const {
        Paths folders;
        for (const auto& report : reports) {
            if (!report.folder.empty() && (folders.empty() || folders.back() != report.folder)) {
                folders.push_back(report.folder);
            }
        }
        return folders;
    }
};

TEST_F(Roots, areTheUsersFoldersUnderTheirUsualNames) {
    world.folders.desktopFolder = FileUrl("/home/user/Schreibtisch");
    const auto roots = scanner(world.files).roots();
    ASSERT_EQ(roots.size(), 3u);
    EXPECT_EQ(roots[0].name, "Desktop");
    EXPECT_EQ(roots[0].url, FileUrl("/home/user/Schreibtisch"));
    EXPECT_EQ(roots[1].name, "Documents");
    EXPECT_EQ(roots[1].url, FileUrl("/home/user/Documents"));
    EXPECT_EQ(roots[2].name, "Downloads");
    EXPECT_EQ(roots[2].url, FileUrl("/home/user/Downloads"));
}

TEST_F(Roots, areLookedUpAnewForEachScan) {
    EXPECT_EQ(walkedPaths().size(), 3u);
    world.files.addFile("/elsewhere/d");
    world.folders.desktopFolder = FileUrl("/elsewhere");
    EXPECT_EQ(walkedPaths(),
              (Paths{"/elsewhere/d", "/home/user/Documents/b", "/home/user/Downloads/c"}));
}

TEST_F(Roots, thatAreMissingContributeNothing) {
    world.files.remove("/home/user/Documents");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/a", "/home/user/Downloads/c"}));
    EXPECT_EQ(reportedFolders(), (Paths{"Desktop", "Downloads"}));
}

TEST_F(Roots, thatCannotBeReadContributeNothing) {
    world.files.makeUnreadable("/home/user/Desktop");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/b", "/home/user/Downloads/c"}));
    EXPECT_EQ(reportedFolders(), (Paths{"Documents", "Downloads"}));
}

TEST_F(Roots, thatAreFilesContributeNothing) {
    world.files.remove("/home/user/Desktop");
    world.files.addFile("/home/user/Desktop");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/b", "/home/user/Downloads/c"}));
}

TEST_F(Roots, mayAllBeMissing) {
    for (const auto root : {desktop, documents, downloads}) world.files.remove(root);
    const auto result = scan();
    EXPECT_TRUE(result.files.empty());
    EXPECT_EQ(result.piles.size(), 4u);
    EXPECT_EQ(reports.back().step, "Done");
}

TEST_F(Roots, thatAreTheHomeFolderAreRefused) {
    world.files.addFile("/home/user/private");
    world.folders.desktopFolder = world.folders.homeFolder;
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/b", "/home/user/Downloads/c"}));
}

TEST_F(Roots, thatHoldTheHomeFolderAreRefused) {
    world.folders.desktopFolder = FileUrl("/home");
    world.folders.documentsFolder = FileUrl("/");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Downloads/c"}));
}

TEST_F(Roots, thatLeadToTheHomeFolderByALinkAreRefused) {
    world.files.remove("/home/user/Desktop");
    world.files.addLink("/home/user/Desktop", "/home/user");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/b", "/home/user/Downloads/c"}));
}

TEST_F(Roots, areReadWhereTheHomeFolderIsALinkItself) {
    world.files.addLink("/home/link", "/home/user");
    world.folders.homeFolder = FileUrl("/home/link");
    world.folders.desktopFolder = FileUrl("/home/link/Desktop");
    world.folders.documentsFolder = FileUrl("/home/user");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/link/Desktop/a", "/home/user/Downloads/c"}));
}

TEST_F(Roots, thatAreLinksAreReadUnderTheirOwnPath) {
    world.files.remove("/home/user/Desktop");
    world.files.addFile("/data/desk/d");
    world.files.addLink("/home/user/Desktop", "/data/desk");
    EXPECT_EQ(walkedPaths(),
              (Paths{"/home/user/Desktop/d", "/home/user/Documents/b", "/home/user/Downloads/c"}));
}

TEST_F(Roots, thatAreDanglingLinksContributeNothing) {
    world.files.remove("/home/user/Desktop");
    world.files.addLink("/home/user/Desktop", "/data/desk");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/b", "/home/user/Downloads/c"}));
}

TEST_F(Roots, insideAnotherRootAreReadOnceAsThemselves) {
    world.folders.desktopFolder = FileUrl("/home/user/Documents/Desk");
    world.files.addFile("/home/user/Documents/Desk/d.png");
    world.files.addFile("/home/user/Documents/Z");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/Desk/d.png", "/home/user/Documents/Z",
                                    "/home/user/Documents/b", "/home/user/Downloads/c"}));
}

TEST_F(Roots, insideAnotherRootThatIsReadEarlierAreReadOnceAsThemselves) {
    world.folders.downloadsFolder = FileUrl("/home/user/Desktop/Loads");
    world.files.addFile("/home/user/Desktop/Loads/d");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/a", "/home/user/Documents/b",
                                    "/home/user/Desktop/Loads/d"}));
}

TEST_F(Roots, insideAProjectOrASkippedFolderOfAnotherRootAreStillRead) {
    world.folders.desktopFolder = FileUrl("/home/user/Documents/Library/Desk");
    world.folders.downloadsFolder = FileUrl("/home/user/Documents/project/Loads");
    world.files.addFile("/home/user/Documents/Library/Desk/d");
    world.files.addFile("/home/user/Documents/project/go.mod");
    world.files.addFile("/home/user/Documents/project/Loads/e");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/Library/Desk/d", "/home/user/Documents/b",
                                    "/home/user/Documents/project/Loads/e"}));
}

TEST_F(Roots, thatAreTheSameFolderAreReadOnceAsTheFirst) {
    world.folders.downloadsFolder = world.folders.desktopFolder;
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/a", "/home/user/Documents/b"}));
}

TEST_F(Roots, thatAreTheSameFolderByALinkAreReadOnceAsTheFirst) {
    world.files.remove("/home/user/Downloads");
    world.files.addLink("/home/user/Downloads", "/home/user/Desktop");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/a", "/home/user/Documents/b"}));
}

TEST_F(Roots, thatLinkToInsideAnotherRootAreReadOnceAsThemselves) {
    world.files.remove("/home/user/Desktop");
    world.files.addFile("/home/user/Documents/Desk/deep/d");
    world.files.addLink("/home/user/Desktop", "/home/user/Documents/Desk");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/deep/d", "/home/user/Documents/b",
                                    "/home/user/Downloads/c"}));
}

TEST_F(Roots, thatLieInTheTargetOfALinkedRootAreReadOnceAsThemselves) {
    world.files.remove("/home/user/Documents");
    world.files.addFile("/data/docs/Desk/d");
    world.files.addFile("/data/docs/e");
    world.files.addLink("/home/user/Documents", "/data/docs");
    world.folders.desktopFolder = FileUrl("/data/docs/Desk");
    EXPECT_EQ(walkedPaths(),
              (Paths{"/data/docs/Desk/d", "/home/user/Documents/e", "/home/user/Downloads/c"}));
}

TEST_F(Roots, thatLieInARootThatIsRefusedAreRead) {
    world.folders.documentsFolder = world.folders.homeFolder;
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/a", "/home/user/Downloads/c"}));
}

}  // namespace
}  // namespace nookwise
