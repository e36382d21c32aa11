#include "tests/scan/ScanFixture.h"

namespace nookwise {
namespace {

class Screenshots : public ScanFixture {
  protected:
    std::vector<SweepItem> pile() { return scan().piles.at(PileKind::screenshots); }
};

TEST_F(Screenshots, olderThanThirtyDaysAreListedAndTicked) {
    const std::string path = "/home/user/Desktop/Screenshot 2024-01-01 at 10.00.00.png";
    world.files.addFile(path, {.allocated = 7, .added = ago(31 * day)});
    EXPECT_EQ(
        pile(),
        (std::vector{SweepItem{FileItem{.url = FileUrl(path), .size = 7, .added = ago(31 * day)},
                               "taken 1 mo. ago", true}}));
}

struct Age {
    std::optional<Seconds> added;
    std::optional<Seconds> modified;
    bool listed;
};

class ScreenshotAge : public Screenshots, public testing::WithParamInterface<Age> {};

TEST_P(ScreenshotAge, isThatOfTheAddedElseTheModifiedDate) {
    FakeFile file;
    if (GetParam().added) file.added = ago(*GetParam().added);
    if (GetParam().modified) file.modified = ago(*GetParam().modified);
    world.files.addFile("/home/user/Desktop/Screenshot.png", file);
    EXPECT_EQ(pile().size(), GetParam().listed ? 1u : 0u);
}

constexpr auto none = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Dates, ScreenshotAge,
    testing::Values(Age{31 * day, none, true}, Age{29 * day, none, false},
                    Age{30 * day, none, false}, Age{Seconds(2'592'000), none, false},
                    Age{Seconds(2'592'000.5), none, true}, Age{Seconds(2'592'001), none, true},
                    Age{none, 31 * day, true}, Age{none, 30 * day, false},
                    Age{29 * day, 90 * day, false}, Age{31 * day, 1 * day, true},
                    Age{none, none, false}, Age{-1 * day, none, false}));

class ScreenshotName : public Screenshots,
                       public testing::WithParamInterface<std::pair<const char*, bool>> {};

TEST_P(ScreenshotName, needsABeginningAndAnImagesExtension) {
    const auto [name, listed] = GetParam();
    world.files.addFile(std::string("/home/user/Downloads/") + name, {.added = ago(40 * day)});
    EXPECT_EQ(pile().size(), listed ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Names, ScreenshotName,
    testing::Values(std::pair("Screenshot 2024.png", true), std::pair("screen shot.JPG", true),
                    std::pair("CleanShot.jpeg", true), std::pair("Снимок экрана.heic", true),
                    std::pair("screenshot.tiff", true), std::pair("screenshot.gif", true),
                    std::pair("screenshot.WebP", true), std::pair("screenshot.pdf", false),
                    std::pair("screenshot.bmp", false), std::pair("screenshot", false),
                    std::pair("screenshot.mov", false), std::pair("my screenshot.png", false),
                    std::pair("picture.png", false)));

TEST_F(Screenshots, areAlsoImagesThatSayThatTheyAreCaptures) {
    for (const auto* name : {"renamed.png", "renamed.pdf", "young.png"}) {
        const auto path = std::string("/home/user/Desktop/") + name;
        world.files.addFile(path, {.added = name[0] == 'y' ? ago(day) : ago(31 * day)});
        world.metadata.setScreenCapture(path);
    }
    world.files.addFile("/home/user/Desktop/other.png", {.added = ago(31 * day)});
    EXPECT_EQ(paths(pile()), (Paths{"/home/user/Desktop/renamed.png"}));
}

TEST_F(Screenshots, underDocumentsAreNotListed) {
    world.files.addFile("/home/user/Documents/Screenshot.png", {.added = ago(31 * day)});
    EXPECT_TRUE(pile().empty());
}

TEST_F(Screenshots, areSortedByAddedDateOldestFirstAndThoseWithoutOneBeforeAll) {
    world.files.addFile("/home/user/Desktop/Screenshot 1.png", {.added = ago(40 * day)});
    world.files.addFile("/home/user/Desktop/Screenshot 2.png", {.added = ago(60 * day)});
    world.files.addFile("/home/user/Desktop/Screenshot 3.png", {.modified = ago(50 * day)});
    world.files.addFile("/home/user/Downloads/Screenshot 4.png", {.added = ago(60 * day)});
    world.files.addFile("/home/user/Downloads/Screenshot 5.png", {.modified = ago(35 * day)});
    EXPECT_EQ(paths(pile()),
              (Paths{"/home/user/Desktop/Screenshot 3.png", "/home/user/Downloads/Screenshot 5.png",
                     "/home/user/Desktop/Screenshot 2.png", "/home/user/Downloads/Screenshot 4.png",
                     "/home/user/Desktop/Screenshot 1.png"}));
}

TEST_F(Screenshots, ofTheScreenshotFolderAreListedWithoutThoseOfItsFolders) {
    world.folders.screenshotFolder = FileUrl("/home/user/Pictures/Screenshots");
    world.files.addFile("/home/user/Pictures/Screenshots/Screenshot.png",
                        {.allocated = 3, .modified = ago(31 * day)});
    world.files.addFile("/home/user/Pictures/Screenshots/.Screenshot.png",
                        {.added = ago(31 * day)});
    world.files.addFile("/home/user/Pictures/Screenshots/old/Screenshot.png",
                        {.added = ago(31 * day)});
    world.files.addPackage("/home/user/Pictures/Screenshots/Screenshot package.png",
                           {.added = ago(31 * day)});
    const auto result = scan();
    EXPECT_EQ(result.piles.at(PileKind::screenshots),
              (std::vector{SweepItem{
                  FileItem{.url = FileUrl("/home/user/Pictures/Screenshots/Screenshot.png"),
                           .size = 3,
                           .modified = ago(31 * day)},
                  "taken 1 mo. ago", true}}));
    EXPECT_TRUE(result.files.empty());
}

TEST_F(Screenshots, ofAFolderDirectlyInsideTheDesktopAreListedTwice) {
    world.folders.screenshotFolder = FileUrl("/home/user/Desktop/Shots");
    world.files.addFile("/home/user/Desktop/Shots/Screenshot.png", {.added = ago(31 * day)});
    const auto result = scan();
    EXPECT_EQ(paths(result.piles.at(PileKind::screenshots)),
              (Paths{"/home/user/Desktop/Shots/Screenshot.png",
                     "/home/user/Desktop/Shots/Screenshot.png"}));
    EXPECT_EQ(result.files.size(), 1u);
}

class ScreenshotFolderThatIsARoot : public Screenshots,
                                    public testing::WithParamInterface<const char*> {};

TEST_P(ScreenshotFolderThatIsARoot, isNotReadASecondTime) {
    world.folders.screenshotFolder = FileUrl(GetParam());
    for (const auto root : {desktop, documents, downloads}) {
        world.files.addFile(std::string(root) + "/Screenshot.png", {.added = ago(31 * day)});
    }
    EXPECT_EQ(paths(pile()),
              (Paths{"/home/user/Desktop/Screenshot.png", "/home/user/Downloads/Screenshot.png"}));
}

INSTANTIATE_TEST_SUITE_P(Paths, ScreenshotFolderThatIsARoot,
                         testing::Values("/home/user/Desktop", "/home/user/Desktop/",
                                         "/home/user/Documents", "/home/user/Downloads",
                                         "/home/user/./Desktop", "/home/user/Desktop/../Downloads",
                                         "/home//user/Desktop"));

TEST_F(Screenshots, ofAFolderThatCannotBeListedAreNone) {
    world.folders.screenshotFolder = FileUrl("/nowhere");
    EXPECT_TRUE(pile().empty());
    world.files.addFile("/locked/Screenshot.png", {.added = ago(31 * day)});
    world.files.makeUnreadable("/locked");
    world.folders.screenshotFolder = FileUrl("/locked");
    EXPECT_TRUE(pile().empty());
}

TEST_F(Screenshots, areNotRepeatedAmongForgottenOrLargeFiles) {
    world.files.addFile(
        "/home/user/Downloads/Screenshot.png",
        {.allocated = 600 * megabyte, .modified = ago(100 * day), .added = ago(100 * day)});
    const auto result = scan();
    EXPECT_EQ(result.piles.at(PileKind::screenshots).size(), 1u);
    EXPECT_TRUE(result.piles.at(PileKind::forgotten).empty());
    EXPECT_TRUE(result.piles.at(PileKind::large).empty());
}

TEST_F(Screenshots, ofFarAwayDatesAreListed) {
    world.files.addFile("/home/user/Desktop/Screenshot 1900.png", {.added = Date{Seconds{-2.2e9}}});
    world.files.addFile("/home/user/Desktop/Screenshot 2300.png",
                        {.added = Date{Seconds{1.04e10}}});
    EXPECT_EQ(paths(pile()), (Paths{"/home/user/Desktop/Screenshot 1900.png"}));
}

}  // namespace
}  // namespace nookwise
