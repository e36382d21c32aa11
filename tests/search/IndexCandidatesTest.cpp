#include "search/IndexCandidates.h"

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

const FileUrl downloads("/home/user/Downloads");
constexpr std::int64_t usual = 100'000;

FileItem fileAt(std::string_view path, std::int64_t size = usual, double date = 0) {
    return {.url = FileUrl(path), .size = size, .modified = Date{Seconds{date}}};
}

std::vector<std::string> namesToRead(const std::vector<FileItem>& files,
                                     const std::set<std::string>& known = {}) {
    const auto isKnown = [&](const FileItem& file) {
        return known.contains(std::string(file.url.lastPathComponent()));
    };
    std::vector<std::string> names;
    for (const auto& file : filesToRead(files, downloads, isKnown))
        names.emplace_back(file.url.lastPathComponent());
    return names;
}

using Names = std::vector<std::string>;

TEST(FilesToRead, arePicturesAndPdfsOfEveryExtension) {
    std::vector<FileItem> files;
    Names expected;
    for (const auto* const extension :
         {"png", "jpg", "jpeg", "heic", "tiff", "gif", "webp", "bmp", "pdf"}) {
        expected.push_back(std::string("a.") + extension);
        files.push_back(fileAt("/d/" + expected.back()));
    }
    for (const auto* const other :
         {"a.svg", "a.txt", "a.tif", "pdf", ".pdf", "a.pdf.zip", "a.pdf."})
        files.push_back(fileAt(std::string("/d/") + other));
    EXPECT_EQ(namesToRead(files), expected);
}

TEST(FilesToRead, haveTheirExtensionsInAnyCase) {
    EXPECT_EQ(namesToRead({fileAt("/d/a.PDF"), fileAt("/d/b.JpG")}), (Names{"a.PDF", "b.JpG"}));
}

TEST(FilesToRead, areOfASensibleSize) {
    EXPECT_EQ(namesToRead({fileAt("/d/a.png", 8'000), fileAt("/d/b.png", 8'001),
                           fileAt("/d/c.png", 39'999'999), fileAt("/d/d.png", 40'000'000),
                           fileAt("/d/e.pdf", 0), fileAt("/d/f.pdf", 149'999'999),
                           fileAt("/d/g.pdf", 150'000'000)}),
              (Names{"b.png", "c.png", "e.pdf", "f.pdf"}));
}

TEST(FilesToRead, areScreenshotsFirstThenTheNewest) {
    auto used = fileAt("/d/used.png", usual, 1);
    used.lastUsed = Date{Seconds{50}};
    auto added = fileAt("/d/added.png", usual, 99);
    added.added = Date{Seconds{40}};
    auto undated = fileAt("/d/undated.png");
    undated.modified.reset();
    EXPECT_EQ(
        namesToRead({undated, fileAt("/d/old.pdf", usual, 10), used,
                     fileAt("/d/Screenshot 1.png", usual, 1), added,
                     fileAt("/d/new.png", usual, 60), fileAt("/d/Screenshot 2.png", usual, 2)}),
        (Names{"Screenshot 2.png", "Screenshot 1.png", "new.png", "used.png", "added.png",
               "old.pdf", "undated.png"}));
}

TEST(FilesToRead, keepTheirOrderWhereTheDatesAreEqual) {
    EXPECT_EQ(namesToRead({fileAt("/d/c.png"), fileAt("/d/a.png"), fileAt("/d/b.pdf")}),
              (Names{"c.png", "a.png", "b.pdf"}));
}

TEST(FilesToRead, leaveOutWhatIsKnown) {
    EXPECT_EQ(
        namesToRead({fileAt("/d/a.png"), fileAt("/d/b.png"), fileAt("/home/user/Downloads/c.txt")},
                    {"a.png", "c.txt"}),
        (Names{"b.png"}));
}

TEST(FilesToRead, haveAllDownloadsAtTheirEndInTheGivenOrder) {
    const std::string folder = "/home/user/Downloads/";
    EXPECT_EQ(
        namesToRead({fileAt(folder + "z.zip", 1, 1), fileAt("/d/a.png"),
                     fileAt(folder + "icon.png", 100, 2), fileAt(folder + "in/b.txt", 1, 3),
                     fileAt(folder + "c.png"), fileAt("/home/user/Downloads elsewhere/d.txt")}),
        (Names{"a.png", "c.png", "z.zip", "icon.png", "b.txt"}));
}

TEST(FilesToRead, areAtMostSixThousandAndTheOtherDownloads) {
    std::vector<FileItem> files;
    for (int i = 0; i < 10'000; ++i)
        files.push_back(fileAt("/d/" + std::to_string(i) + ".png", usual, i));
    files.push_back(fileAt("/home/user/Downloads/a.zip"));
    // Too old to be among the first, but a download.
    files.push_back(fileAt("/home/user/Downloads/old.png", usual, -1));
    const auto names = namesToRead(files);
    ASSERT_EQ(names.size(), 6'002u);
    EXPECT_EQ(names.front(), "9999.png");
    EXPECT_EQ(names[5'999], "4000.png");
    EXPECT_EQ(names[6'000], "a.zip");
    EXPECT_EQ(names[6'001], "old.png");
}

TEST(FilesToRead, areNoneOfNone) {
    EXPECT_EQ(namesToRead({}), Names());
    EXPECT_TRUE(filesToRead({}, FileUrl(), [](const FileItem&) { return false; }).empty());
}

}  // namespace
}  // namespace nookwise
