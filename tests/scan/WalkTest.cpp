#include "scan/Walk.h"
#include "tests/scan/ScanFixture.h"

#include <numeric>

namespace nookwise {
namespace {

class Walk : public ScanFixture {
  protected:
    Paths walkedPaths() { return paths(scan().files); }
};

TEST_F(Walk, readsDesktopThenDocumentsThenDownloads) {
    world.files.addFile("/home/user/Downloads/a");
    world.files.addFile("/home/user/Documents/b");
    world.files.addFile("/home/user/Desktop/c");
    EXPECT_EQ(walkedPaths(),
              (Paths{"/home/user/Desktop/c", "/home/user/Documents/b", "/home/user/Downloads/a"}));
}

TEST_F(Walk, listsFilesOfAllDepthsInTheOrderOfTheirNamesBytes) {
    for (const auto* path :
         {"/home/user/Desktop/b/z", "/home/user/Desktop/a", "/home/user/Desktop/b/a/deep",
          "/home/user/Desktop/c", "/home/user/Desktop/B", "/home/user/Desktop/\xff"}) {
        world.files.addFile(path);
    }
    EXPECT_EQ(walkedPaths(),
              (Paths{"/home/user/Desktop/B", "/home/user/Desktop/a", "/home/user/Desktop/b/a/deep",
                     "/home/user/Desktop/b/z", "/home/user/Desktop/c", "/home/user/Desktop/\xff"}));
}

TEST_F(Walk, recordsNoFolders) {
    world.files.addFolder("/home/user/Desktop/empty/deeper");
    EXPECT_TRUE(walkedPaths().empty());
}

TEST_F(Walk, recordsTheDatesAndLeavesLastUsedOut) {
    world.files.addFile("/home/user/Documents/a.txt",
                        {.allocated = 4'096, .modified = ago(day), .added = ago(2 * day)});
    world.metadata.setLastUsed("/home/user/Documents/a.txt", now);
    EXPECT_EQ(scan().files, (std::vector{FileItem{.url = FileUrl("/home/user/Documents/a.txt"),
                                                  .size = 4'096,
                                                  .modified = ago(day),
                                                  .added = ago(2 * day),
                                                  .lastUsed = std::nullopt}}));
}

TEST_F(Walk, countsTheAllocatedSizeElseTheFileSizeElseNothing) {
    const FileAttributes regular{.type = FileType::regular};
    for (const auto* name : {"a", "b", "c", "d"})
        world.files.addFile(std::string(desktop) + "/" + name);
    auto both = regular;
    both.allocatedSize = 8'192;
    both.fileSize = 5;
    auto zeroAllocated = both;
    zeroAllocated.allocatedSize = 0;
    auto logicalOnly = regular;
    logicalOnly.fileSize = 5;
    world.files.setAttributes("/home/user/Desktop/a", both);
    world.files.setAttributes("/home/user/Desktop/b", zeroAllocated);
    world.files.setAttributes("/home/user/Desktop/c", logicalOnly);
    world.files.setAttributes("/home/user/Desktop/d", regular);
    std::vector<std::int64_t> sizes;
    for (const auto& file : scan().files) sizes.push_back(file.size);
    EXPECT_EQ(sizes, (std::vector<std::int64_t>{8'192, 0, 5, 0}));
}

TEST_F(Walk, leavesOutWhatIsHidden) {
    world.files.addFile("/home/user/Desktop/.hidden");
    world.files.addFile("/home/user/Desktop/.folder/file");
    EXPECT_TRUE(walkedPaths().empty());
}

TEST_F(Walk, leavesOutLinksPipesAndDevicesAndDoesNotFollowLinks) {
    world.files.addFile("/elsewhere/file");
    world.files.addLink("/home/user/Desktop/link", "/elsewhere/file");
    world.files.addLink("/home/user/Desktop/folder link", "/elsewhere");
    world.files.addLink("/home/user/Desktop/loop", "/home/user/Desktop");
    world.files.addLink("/home/user/Desktop/dangling", "/nowhere");
    world.files.addOther("/home/user/Desktop/pipe");
    EXPECT_TRUE(walkedPaths().empty());
}

class SkippedFolder : public Walk, public testing::WithParamInterface<const char*> {};

TEST_P(SkippedFolder, isNotEnteredAtAnyDepth) {
    const std::string name = GetParam();
    world.files.addFile("/home/user/Desktop/" + name + "/a");
    world.files.addFile("/home/user/Documents/deep/deeper/" + name + "/more/b");
    world.files.addFile("/home/user/Documents/deep/kept");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/deep/kept"}));
}

INSTANTIATE_TEST_SUITE_P(Names, SkippedFolder,
                         testing::Values("node_modules", "DerivedData", "Pods", ".build", "build",
                                         "Library", "vendor"));

TEST_F(Walk, entersFoldersWhoseNamesOnlyResembleSkippedOnes) {
    const Paths kept{"/home/user/Desktop/Build/a", "/home/user/Desktop/build2/a",
                     "/home/user/Desktop/library/a", "/home/user/Desktop/my build/a",
                     "/home/user/Desktop/pods/a"};
    for (const auto& path : kept) world.files.addFile(path);
    EXPECT_EQ(walkedPaths(), kept);
}

TEST_F(Walk, recordsAFileThatIsNamedLikeASkippedFolder) {
    world.files.addFile("/home/user/Desktop/build");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/build"}));
}

class ProjectMarker : public Walk, public testing::WithParamInterface<const char*> {};

TEST_P(ProjectMarker, keepsItsFolderFromBeingEntered) {
    const std::string marker = GetParam();
    world.files.addFile("/home/user/Desktop/project/" + marker);
    world.files.addFile("/home/user/Desktop/project/sub/source.pdf");
    world.files.addFile("/home/user/Desktop/z");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/z"}));
}

TEST_P(ProjectMarker, mayBeAFolderToo) {
    const std::string marker = GetParam();
    world.files.addFile("/home/user/Desktop/project/" + marker + "/inside");
    world.files.addFile("/home/user/Desktop/project/a");
    EXPECT_TRUE(walkedPaths().empty());
}

INSTANTIATE_TEST_SUITE_P(Names, ProjectMarker,
                         testing::Values(".git", "Package.swift", "package.json", ".xcodeproj",
                                         "Cargo.toml", "pyproject.toml", "Gemfile", "go.mod",
                                         "Thing.xcodeproj", "x.git"));

struct Entries {
    std::vector<std::string_view> names;
    bool project;
};

class IsProject : public testing::TestWithParam<Entries> {};

TEST_P(IsProject, isToldFromTheNamesOfTheEntries) {
    EXPECT_EQ(isProject(GetParam().names), GetParam().project);
}

INSTANTIATE_TEST_SUITE_P(
    Folders, IsProject,
    testing::Values(Entries{{}, false}, Entries{{"a", "b.txt"}, false},
                    Entries{{"a", ".git"}, true}, Entries{{"App.xcodeproj"}, true},
                    Entries{{"x.git"}, true}, Entries{{"git"}, false},
                    Entries{{".gitignore"}, false}, Entries{{".GIT"}, false},
                    Entries{{"my package.json"}, false}, Entries{{"package.json.bak"}, false},
                    Entries{{"Gemfile.lock"}, false}, Entries{{"gemfile"}, false},
                    Entries{{"Xgo.mod"}, false}, Entries{{"go.mod"}, true},
                    Entries{{"App.xcworkspace"}, false}));

TEST_F(Walk, readsARootThatIsAProjectItself) {
    world.files.addFile("/home/user/Documents/package.json");
    world.files.addFile("/home/user/Documents/a/b");
    EXPECT_EQ(walkedPaths(),
              (Paths{"/home/user/Documents/a/b", "/home/user/Documents/package.json"}));
}

class ProjectBundle : public Walk, public testing::WithParamInterface<const char*> {};

TEST_P(ProjectBundle, isNotRecordedByItself) {
    const std::string name = GetParam();
    world.files.addPackage("/home/user/Desktop/" + name, {.allocated = 1'000});
    EXPECT_TRUE(walkedPaths().empty());
    world.files.addFile("/home/user/Desktop/" + name);
    EXPECT_TRUE(walkedPaths().empty());
}

INSTANTIATE_TEST_SUITE_P(Names, ProjectBundle,
                         testing::Values("Thing.xcodeproj", "Thing.xcworkspace"));

TEST_F(Walk, comparesTheExtensionsOfProjectBundlesExactly) {
    world.files.addPackage("/home/user/Desktop/Thing.XCODEPROJ");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/Thing.XCODEPROJ"}));
}

TEST_F(Walk, recordsAPackageAsOneFileOfItsAllocatedSize) {
    world.files.addPackage("/home/user/Documents/report.pages",
                           {.allocated = 123'456, .modified = ago(day)});
    world.files.addFile("/home/user/Documents/report.pages/inside.xml", {.allocated = 99});
    const auto files = scan().files;
    ASSERT_EQ(paths(files), (Paths{"/home/user/Documents/report.pages"}));
    EXPECT_EQ(files[0].size, 123'456);
    EXPECT_EQ(files[0].modified, ago(day));
}

TEST_F(Walk, takesAPackageThatIsNamedLikeASkippedFolderAsAFile) {
    world.files.addPackage("/home/user/Documents/build", {.allocated = 5});
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/build"}));
}

TEST_F(Walk, leavesOutCloudFilesThatAreNotHere) {
    world.files.addFile("/home/user/Documents/current.pdf", {.cloud = CloudState::current});
    world.files.addFile("/home/user/Documents/elsewhere.pdf", {.cloud = CloudState::notHere});
    world.files.addPackage("/home/user/Documents/elsewhere.pages", {.cloud = CloudState::notHere});
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Documents/current.pdf"}));
}

TEST_F(Walk, skipsUnreadableFoldersAndGoesOn) {
    world.files.addFile("/home/user/Desktop/a/locked/file");
    world.files.addFile("/home/user/Desktop/a/z");
    world.files.makeUnreadable("/home/user/Desktop/a/locked");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/a/z"}));
}

TEST_F(Walk, recordsFilesThatItCannotOpen) {
    world.files.addFile("/home/user/Desktop/a");
    world.files.makeUnreadable("/home/user/Desktop/a");
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/a"}));
}

TEST_F(Walk, missesWhatVanishesWhileItReads) {
    world.files.addFile("/home/user/Desktop/a");
    world.files.addFile("/home/user/Desktop/b/inside");
    world.files.addFile("/home/user/Desktop/c");
    world.files.onOperation([this](const FakeOperation& operation) {
        if (operation.url != FileUrl("/home/user/Desktop/a")) return;
        world.files.remove("/home/user/Desktop/b");
        world.files.remove("/home/user/Desktop/c");
    });
    EXPECT_EQ(walkedPaths(), (Paths{"/home/user/Desktop/a"}));
}

TEST_F(Walk, takesNamesOfAnyBytes) {
    const Paths strange{"/home/user/Desktop/new\nline",
                        "/home/user/Desktop/" + std::string(255, 'o'), "/home/user/Desktop/\xc3",
                        "/home/user/Desktop/\xff\xfe.png"};
    for (const auto& path : strange) world.files.addFile(path);
    EXPECT_EQ(walkedPaths(), strange);
}

TEST_F(Walk, goesTwoThousandFoldersDeep) {
    std::string path(desktop);
    for (int depth = 0; depth < 2'000; ++depth) path += "/folder";
    world.files.addFile(path + "/file");
    EXPECT_EQ(walkedPaths(), (Paths{path + "/file"}));
}

}  // namespace
}  // namespace nookwise
