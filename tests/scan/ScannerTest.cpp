#include "tests/scan/ScanFixture.h"
#include "tests/support/FailingFileManager.h"

#include <algorithm>
#include <set>
#include <thread>

namespace nookwise {
namespace {

class WholeScan : public ScanFixture {};

TEST_F(WholeScan, setsFourPilesAlsoWhereTheyAreEmptyAndNeverThatOfDuplicates) {
    for (const auto* path : {"/home/user/Desktop/a.pdf", "/home/user/Desktop/b.pdf"}) {
        world.files.addFile(path, {.contents = std::string(70'000, 'x')});
    }
    const auto result = scan();
    std::set<PileKind> kinds;
    for (const auto& [kind, pile] : result.piles) {
        kinds.insert(kind);
        EXPECT_TRUE(pile.empty());
    }
    EXPECT_EQ(kinds, (std::set{PileKind::forgotten, PileKind::installers, PileKind::screenshots,
                               PileKind::large}));
    EXPECT_EQ(result.duplicates.size(), 1u);
}

TEST_F(WholeScan, findsCopiesAcrossTheRoots) {
    for (const auto root : {desktop, documents, downloads}) {
        world.files.addFile(std::string(root) + "/a.pdf", {.contents = std::string(70'000, 'x')});
    }
    const auto result = scan();
    ASSERT_EQ(result.duplicates.size(), 1u);
    EXPECT_EQ(paths(result.duplicates[0].files),
              (Paths{"/home/user/Documents/a.pdf", "/home/user/Desktop/a.pdf",
                     "/home/user/Downloads/a.pdf"}));
    EXPECT_EQ(result.duplicates[0].keep, FileUrl("/home/user/Documents/a.pdf"));
}

TEST_F(WholeScan, prefersToKeepCopiesOutsideFoldersWithTranslatedNames) {
    world.folders.downloadsFolder = FileUrl("/home/user/Загрузки");
    world.files.addFile("/home/user/Загрузки/a.pdf",
                        {.contents = std::string(70'000, 'x'), .added = ago(9 * day)});
    world.files.addFile("/home/user/Documents/a.pdf",
                        {.contents = std::string(70'000, 'x'), .added = ago(day)});
    EXPECT_EQ(scan().duplicates.at(0).keep, FileUrl("/home/user/Documents/a.pdf"));
}

TEST_F(WholeScan, claimsInTheOrderScreenshotsForgottenLarge) {
    const FakeFile huge{
        .allocated = 600 * megabyte, .modified = ago(100 * day), .added = ago(100 * day)};
    world.files.addFile("/home/user/Downloads/Screenshot.png", huge);
    world.files.addFile("/home/user/Downloads/download.bin", huge);
    world.files.addFile("/home/user/Documents/document.bin", huge);
    const auto piles = scan().piles;
    EXPECT_EQ(paths(piles.at(PileKind::screenshots)),
              (Paths{"/home/user/Downloads/Screenshot.png"}));
    EXPECT_EQ(paths(piles.at(PileKind::forgotten)), (Paths{"/home/user/Downloads/download.bin"}));
    EXPECT_EQ(paths(piles.at(PileKind::large)), (Paths{"/home/user/Documents/document.bin"}));
}

TEST_F(WholeScan, takesTheTimeOnceJustAfterTheWalk) {
    world.files.addFile("/home/user/Downloads/a",
                        {.allocated = 600 * megabyte, .added = ago(90 * day)});
    world.files.addFile("/home/user/Desktop/Screenshot.png", {.added = ago(30 * day)});
    // A second passes during the walk, and a century later on.
    const auto progress = [this](const ScanProgress& report) {
        if (report.step == "Reading Downloads") world.clock.set(now + Seconds(1));
        if (report.fraction >= 0.8) world.clock.set(now + 36'500 * day);
    };
    const int readsBefore = world.clock.reads();
    const auto result = scanner(world.files).runBlocking(progress, {});
    EXPECT_EQ(result.piles.at(PileKind::forgotten).size(), 1u);
    EXPECT_EQ(result.piles.at(PileKind::screenshots).size(), 1u);
    EXPECT_EQ(world.clock.reads() - readsBefore, 1);
}

TEST_F(WholeScan, looksUpMetadataOfCandidatesOnly) {
    for (const auto root : {desktop, documents, downloads}) {
        world.files.addFile(std::string(root) + "/small.txt", {.added = ago(200 * day)});
        world.files.addFile(std::string(root) + "/big.bin",
                            {.allocated = 500 * megabyte, .added = ago(200 * day)});
        world.files.addFile(std::string(root) + "/picture.png", {.added = ago(200 * day)});
    }
    scan();
    std::set<FileUrl> expected;
    for (const auto* path :
         {"/home/user/Desktop/big.bin", "/home/user/Desktop/picture.png",
          "/home/user/Documents/big.bin", "/home/user/Downloads/big.bin",
          "/home/user/Downloads/picture.png", "/home/user/Downloads/small.txt"}) {
        expected.insert(FileUrl(path));
    }
    EXPECT_EQ(world.metadata.asked(), expected);
}

TEST_F(WholeScan, keepsNothingForTheNextOne) {
    world.files.addFile("/home/user/Downloads/a", {.added = ago(100 * day)});
    const auto result = scan();
    EXPECT_EQ(result.files.size(), 1u);
    world.files.remove("/home/user/Downloads/a");
    world.files.addFile("/home/user/Desktop/b");
    const auto second = scan();
    EXPECT_EQ(paths(second.files), (Paths{"/home/user/Desktop/b"}));
    EXPECT_TRUE(second.piles.at(PileKind::forgotten).empty());
}

TEST_F(WholeScan, callsProgressOnTheCallingThread) {
    world.files.addFile("/home/user/Desktop/a");
    const auto caller = std::this_thread::get_id();
    scanner(world.files)
        .runBlocking([&](const ScanProgress&) { EXPECT_EQ(std::this_thread::get_id(), caller); },
                     {});
}

TEST_F(WholeScan, goesToItsEndWhicheverOperationFails) {
    world.files.addPackage("/Applications/Blue Kite.app");
    world.folders.screenshotFolder = FileUrl("/home/user/Pictures");
    world.files.addFile("/home/user/Pictures/Screenshot.png", {.added = ago(40 * day)});
    for (const auto root : {desktop, documents, downloads}) {
        world.files.addFile(std::string(root) + "/Blue Kite.dmg",
                            {.contents = std::string(70'000, 'x')});
        world.files.addFile(std::string(root) + "/deep/Screenshot.png", {.added = ago(40 * day)});
        world.files.addFile(std::string(root) + "/deep/er/big.bin", {.allocated = 500 * megabyte});
    }
    const auto everything = scan();
    const FailingFileManager counting(world.files, 0);
    scanner(counting).runBlocking([](const ScanProgress&) {}, {});
    ASSERT_GT(counting.operations(), 30);
    for (int failing = 1; failing <= counting.operations(); ++failing) {
        const FailingFileManager faulty(world.files, failing);
        std::string lastStep;
        const auto result = scanner(faulty).runBlocking(
            [&](const ScanProgress& report) { lastStep = report.step; }, {});
        EXPECT_EQ(lastStep, "Done") << "operation " << failing;
        EXPECT_EQ(result.piles.size(), 4u) << "operation " << failing;
        // Whatever is listed would be listed without the failure too.
        for (const auto& file : result.files) {
            EXPECT_EQ(std::count(everything.files.begin(), everything.files.end(), file), 1);
        }
        for (const auto& [kind, pile] : result.piles) {
            const auto& all = everything.piles.at(kind);
            for (const auto& item : pile) EXPECT_EQ(std::count(all.begin(), all.end(), item), 1);
        }
    }
}

}  // namespace
}  // namespace nookwise
