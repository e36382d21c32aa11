#include "tests/scan/DuplicateFixture.h"
#include "tests/scan/ThreeStages.h"

#include <set>

namespace nookwise {
namespace {

class Duplicates : public DuplicateFixture {};

TEST_F(Duplicates, areFilesWithTheSameContents) {
    addHolding("/a.pdf", contentsOf('x'));
    addHolding("/b.pdf", contentsOf('y'));
    addHolding("/c.pdf", contentsOf('x'));
    EXPECT_EQ(groups(), (Groups{{"/a.pdf", "/c.pdf"}}));
}

TEST_F(Duplicates, carryTheSha256OfTheWholeContentAndTheFileToKeep) {
    std::string contents = contentsOf('x', 1'300'000);
    contents[1'200'000] = 'y';
    addHolding("/b copy.pdf", contents);
    addHolding("/a.pdf", contents);
    const auto found = find();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].id, referenceSha256(contents));
    EXPECT_EQ(found[0].keep, FileUrl("/a.pdf"));
    ASSERT_EQ(found[0].files.size(), 2u);
    EXPECT_EQ(found[0].files[0], candidates[1]);
    EXPECT_EQ(found[0].files[1], candidates[0]);
}

TEST_F(Duplicates, mayHaveDifferentListedExtensions) {
    addHolding("/a.jpg", contentsOf('x'));
    addHolding("/b.PNG", contentsOf('x'));
    EXPECT_EQ(groups(), (Groups{{"/a.jpg", "/b.PNG"}}));
}

const std::set<std::string> listedExtensions{
    "png", "jpg",  "jpeg", "heic",  "gif", "webp", "tiff", "psd", "ai",   "fig",     "sketch",
    "mov", "mp4",  "m4v",  "avi",   "mkv", "mp3",  "wav",  "m4a", "aif",  "aiff",    "flac",
    "pdf", "doc",  "docx", "pages", "key", "ppt",  "pptx", "xls", "xlsx", "numbers", "csv",
    "rtf", "epub", "zip",  "rar",   "7z",  "dmg",  "pkg",  "iso"};

TEST_F(Duplicates, ofEveryListedExtensionAreFound) {
    for (const auto& ext : listedExtensions) {
        addHolding("/" + ext + "/a." + ext, ext + contentsOf('x'));
        addHolding("/" + ext + "/b." + ext, ext + contentsOf('x'));
    }
    EXPECT_EQ(find().size(), listedExtensions.size());
}

TEST_F(Duplicates, ofOtherExtensionsAreNot) {
    for (const auto* ext :
         {"txt", "md",  "webm", "bmp",  "svg", "raw",  "dng",  "ogg", "aac",  "tar",
          "gz",  "tgz", "xip",  "mpkg", "c",   "json", "html", "",    "pdf ", "tif"}) {
        addHolding(std::string("/a.") + ext, contentsOf('x'));
        addHolding(std::string("/b.") + ext, contentsOf('x'));
    }
    addHolding("/pdf", contentsOf('x'));
    addHolding("/.pdf", contentsOf('x'));
    EXPECT_TRUE(find().empty());
}

TEST_F(Duplicates, ofAListedAndAnUnlistedExtensionAreNot) {
    addHolding("/a.pdf", contentsOf('x'));
    addHolding("/a.txt", contentsOf('x'));
    EXPECT_TRUE(find().empty());
}

struct SizeLimit {
    std::int64_t size;
    bool grouped;
};

class DuplicateSize : public DuplicateFixture, public testing::WithParamInterface<SizeLimit> {};

TEST_P(DuplicateSize, liesBetween64KibibytesAnd4GigabytesOnDisk) {
    add("/a.pdf", {.contents = "the same", .allocated = GetParam().size});
    add("/b.pdf", {.contents = "the same", .allocated = GetParam().size});
    EXPECT_EQ(find().size(), GetParam().grouped ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(Sizes, DuplicateSize,
                         testing::Values(SizeLimit{0, false}, SizeLimit{60'000, false},
                                         SizeLimit{65'535, false}, SizeLimit{65'536, true},
                                         SizeLimit{65'537, true}, SizeLimit{4'000'065'535, true},
                                         SizeLimit{4'000'065'536, true},
                                         SizeLimit{4'000'065'537, false},
                                         SizeLimit{INT64_MAX, false}, SizeLimit{-1, false},
                                         SizeLimit{INT64_MIN, false}));

TEST_F(Duplicates, belowTheSmallestSizeAreNever) {
    addHolding("/a.jpg", contentsOf('x', 60'000));
    addHolding("/b.jpg", contentsOf('x', 60'000));
    EXPECT_TRUE(find().empty());
}

TEST_F(Duplicates, takeTheSameRoomOnDisk) {
    add("/a.pdf", {.contents = contentsOf('x'), .allocated = 73'728});
    add("/b.pdf", {.contents = contentsOf('x'), .allocated = 77'824});
    EXPECT_TRUE(find().empty());
}

TEST_F(Duplicates, storedInTwoSizesMakeTwoGroupsOfOneId) {
    for (const auto* path : {"/a.pdf", "/b.pdf"})
        add(path, {.contents = contentsOf('x'), .allocated = 73'728});
    for (const auto* path : {"/c.pdf", "/d.pdf"})
        add(path, {.contents = contentsOf('x'), .allocated = 77'824});
    EXPECT_EQ(groups(), (Groups{{"/c.pdf", "/d.pdf"}, {"/a.pdf", "/b.pdf"}}));
    EXPECT_EQ(find()[0].id, find()[1].id);
}

TEST_F(Duplicates, mayBeEmptyFilesThatTakeRoomOnDisk) {
    add("/a.pdf", {.contents = "", .allocated = 100'000});
    add("/b.pdf", {.contents = "", .allocated = 100'000});
    const auto found = find();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].id, referenceSha256(""));
}

TEST_F(Duplicates, haveTheSameLengthAndNotJustTheSameBeginning) {
    add("/a.pdf", {.contents = contentsOf('x', 70'000), .allocated = 73'728});
    add("/b.pdf", {.contents = contentsOf('x', 70'001), .allocated = 73'728});
    EXPECT_TRUE(find().empty());
}

class DifferentByte : public DuplicateFixture, public testing::WithParamInterface<std::size_t> {};

TEST_P(DifferentByte, tellsFilesApartWhereverItIs) {
    auto contents = contentsOf('x', 2'500'000);
    addHolding("/a.mov", contents);
    addHolding("/b.mov", contents);
    contents[GetParam()] = 'y';
    addHolding("/c.mov", contents);
    EXPECT_EQ(groups(), (Groups{{"/a.mov", "/b.mov"}}));
    addHolding("/d.mov", contents);
    EXPECT_EQ(groups(), (Groups{{"/a.mov", "/b.mov"}, {"/c.mov", "/d.mov"}}));
}

INSTANTIATE_TEST_SUITE_P(Offsets, DifferentByte,
                         testing::Values(0, 1, 4'095, 4'096, 4'097, 65'534, 65'535, 65'536, 65'537,
                                         131'071, 131'072, 262'143, 262'144, 262'145, 524'287,
                                         524'288, 1'048'575, 1'048'576, 1'048'577, 1'114'111,
                                         1'114'112, 2'097'151, 2'097'152, 2'499'998, 2'499'999));

TEST_F(Duplicates, areOrderedByThePlaceTheyLieIn) {
    addHolding("/home/user/Desktop/a copy.pdf", contentsOf('x'));
    addHolding("/home/user/Documents/a.pdf", contentsOf('x'));
    addHolding("/home/user/Downloads/a.pdf", contentsOf('x'));
    EXPECT_EQ(groups(), (Groups{{"/home/user/Documents/a.pdf", "/home/user/Downloads/a.pdf",
                                 "/home/user/Desktop/a copy.pdf"}}));
    EXPECT_EQ(find()[0].keep, FileUrl("/home/user/Documents/a.pdf"));
}

TEST_F(Duplicates, ofEqualPlacesAreOrderedByDateThenByTheirOrderInTheWalk) {
    const auto at = [](double seconds) { return Date{Seconds{seconds}}; };
    add("/1.pdf", {.contents = contentsOf('x')});
    add("/2.pdf", {.contents = contentsOf('x'), .added = at(20)});
    add("/3.pdf", {.contents = contentsOf('x'), .modified = at(10), .added = at(30)});
    add("/4.pdf", {.contents = contentsOf('x'), .modified = at(20)});
    add("/5.pdf", {.contents = contentsOf('x')});
    EXPECT_EQ(groups(), (Groups{{"/2.pdf", "/4.pdf", "/3.pdf", "/1.pdf", "/5.pdf"}}));
}

TEST_F(Duplicates, areListedWithTheLargestWasteFirst) {
    for (const auto* path : {"/1.zip", "/2.zip"})
        add(path, {.contents = "fifteen", .allocated = 15'000'000});
    for (const auto* path : {"/3.zip", "/4.zip", "/5.zip"})
        add(path, {.contents = "ten", .allocated = 10'000'000});
    EXPECT_EQ(groups(), (Groups{{"/3.zip", "/4.zip", "/5.zip"}, {"/1.zip", "/2.zip"}}));
}

TEST_F(Duplicates, ofEqualWasteAreListedInTheOrderOfTheirFirstFiles) {
    addHolding("/home/user/Downloads/1.pdf", contentsOf('a'));
    addHolding("/2.pdf", contentsOf('b'));
    addHolding("/3.pdf", contentsOf('c'));
    addHolding("/4.pdf", contentsOf('c'));
    addHolding("/5.pdf", contentsOf('b'));
    addHolding("/6.pdf", contentsOf('a'));
    EXPECT_EQ(groups(), (Groups{{"/6.pdf", "/home/user/Downloads/1.pdf"},
                                {"/2.pdf", "/5.pdf"},
                                {"/3.pdf", "/4.pdf"}}));
}

TEST_F(Duplicates, ofHundredsOfFilesAreOneGroup) {
    std::vector<std::string> expected;
    for (int i = 100; i < 400; ++i) {
        expected.push_back("/" + std::to_string(i) + ".pdf");
        auto contents = contentsOf('x');
        // A few others of the same length and beginning stand among them.
        if (i % 100 == 7) {
            contents.back() = 'y';
            expected.pop_back();
        }
        addHolding("/" + std::to_string(i) + ".pdf", contents);
    }
    EXPECT_EQ(groups(), (Groups{expected, {"/107.pdf", "/207.pdf", "/307.pdf"}}));
    EXPECT_EQ(find()[0].id, referenceSha256(contentsOf('x')));
}

TEST_F(Duplicates, areNoneAmongNoFilesOrOne) {
    EXPECT_TRUE(find().empty());
    addHolding("/a.pdf", contentsOf('x'));
    EXPECT_TRUE(find().empty());
}

TEST_F(Duplicates, areFoundUnderNamesThatAreNotUtf8) {
    addHolding("/\xff.pdf", contentsOf('x'));
    addHolding("/new\nline\xfe.pdf", contentsOf('x'));
    EXPECT_EQ(groups(), (Groups{{"/\xff.pdf", "/new\nline\xfe.pdf"}}));
}

}  // namespace
}  // namespace nookwise
