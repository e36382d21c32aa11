#include "app/Library.h"

#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr Seconds day{86'400};
constexpr Date now{Seconds{1'700'000'000}};

struct Dates {
    std::optional<Date> added{};
    std::optional<Date> modified{};
    std::optional<Date> lastUsed{};
};

FileItem file(std::string_view path, const Dates& dates = {}) {
    return {.url = FileUrl(path),
            .size = 1,
            .modified = dates.modified,
            .added = dates.added,
            .lastUsed = dates.lastUsed};
}

Library library(const std::vector<FileItem>& files) {
    return buildLibrary(files, FileUrl("/home/user/Downloads"), FileUrl("/home/user/Desktop"), now);
}

using Paths = std::vector<std::string>;

Paths paths(const std::vector<FileItem>& files) {
    Paths result;
    for (const auto& item : files) result.emplace_back(item.url.path());
    return result;
}

TEST(Shelves, holdTheFilesOfTheirExtensionsInAnyCase) {
    const auto shelves = library({file("/a.JPG"), file("/b.mov"), file("/c.m4a"), file("/d.Pdf"),
                                  file("/e.tar.gz"), file("/f.ts"), file("/g"), file("/.png")})
                             .shelves;
    EXPECT_EQ(shelves.size(), 5u);
    EXPECT_EQ(paths(shelves.at(ShelfKind::pictures)), (Paths{"/a.JPG"}));
    EXPECT_EQ(paths(shelves.at(ShelfKind::clips)), (Paths{"/b.mov"}));
    EXPECT_EQ(paths(shelves.at(ShelfKind::audio)), (Paths{"/c.m4a"}));
    EXPECT_EQ(paths(shelves.at(ShelfKind::docs)), (Paths{"/d.Pdf"}));
    EXPECT_EQ(paths(shelves.at(ShelfKind::bundles)), (Paths{"/e.tar.gz"}));
}

TEST(Shelves, withoutFilesHaveNoKey) {
    EXPECT_TRUE(library({}).shelves.empty());
    const auto shelves = library({file("/a.pdf"), file("/b.unknown")}).shelves;
    EXPECT_EQ(shelves.size(), 1u);
    EXPECT_FALSE(shelves.contains(ShelfKind::pictures));
}

TEST(Shelves, areSortedNewestFirstByLastUsedElseAddedElseModified) {
    const auto shelves =
        library({file("/none.png"), file("/modified.png", {.modified = now - 4 * day}),
                 file("/added.png", {.added = now - 3 * day, .modified = now}),
                 file("/used.png", {.added = now - 90 * day, .lastUsed = now - 2 * day}),
                 file("/none2.png")})
            .shelves;
    EXPECT_EQ(paths(shelves.at(ShelfKind::pictures)),
              (Paths{"/used.png", "/added.png", "/modified.png", "/none.png", "/none2.png"}));
}

struct Arrival {
    Dates dates;
    bool recent;
};

class Recent : public testing::TestWithParam<Arrival> {};

TEST_P(Recent, isWhatArrivedInTheLastSevenDays) {
    EXPECT_EQ(library({file("/a", GetParam().dates)}).recent.size(), GetParam().recent ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(Arrivals, Recent,
                         testing::Values(Arrival{{.added = now - 6 * day}, true},
                                         Arrival{{.added = now - 7 * day}, false},
                                         Arrival{{.added = now - 7 * day + Seconds(0.5)}, true},
                                         Arrival{{.added = now - 8 * day, .modified = now}, false},
                                         Arrival{{.added = now, .modified = now - 8 * day}, true},
                                         Arrival{{.modified = now - day}, true},
                                         Arrival{{.modified = now - 7 * day}, false},
                                         Arrival{{}, false}, Arrival{{.lastUsed = now}, false},
                                         Arrival{{.added = now + day}, true}));

TEST(RecentFiles, areSortedByArrivalNewestFirstAndStably) {
    EXPECT_EQ(paths(library({file("/a", {.added = now - 2 * day, .lastUsed = now}),
                             file("/b", {.modified = now - day}),
                             file("/c", {.added = now - 2 * day}), file("/d", {.added = now})})
                        .recent),
              (Paths{"/d", "/b", "/a", "/c"}));
}

TEST(JustLanded, areTheFilesDirectlyInDownloadsOrOnTheDesktop) {
    EXPECT_EQ(paths(library({file("/home/user/Downloads/a"), file("/home/user/Downloads/Sub/a"),
                             file("/home/user/Desktop/b"), file("/home/user/Desktop/Sub/b"),
                             file("/home/user/Documents/c"), file("/home/user/Downloads2/d"),
                             file("/mnt/home/user/Downloads/e")})
                        .justLanded),
              (Paths{"/home/user/Downloads/a", "/home/user/Desktop/b"}));
}

TEST(JustLanded, areSortedByArrivalWithoutALimitInTimeOrNumber) {
    std::vector<FileItem> files{file("/home/user/Desktop/none")};
    for (int i = 0; i < 500; ++i) {
        files.push_back(
            file("/home/user/Downloads/" + std::to_string(i), {.added = now - (1'000 - i) * day}));
    }
    const auto landed = library(files).justLanded;
    ASSERT_EQ(landed.size(), 501u);
    EXPECT_EQ(landed.front().url, FileUrl("/home/user/Downloads/499"));
    EXPECT_EQ(landed[499].url, FileUrl("/home/user/Downloads/0"));
    EXPECT_EQ(landed.back().url, FileUrl("/home/user/Desktop/none"));
}

TEST(LibraryScreenshots, areImagesNamedLikeOnesAnywhere) {
    EXPECT_EQ(
        paths(
            library({file("/home/user/Documents/Work/Screenshot 2024.PNG"),
                     file("/Screen Shot.jpg"), file("/CLEANSHOT.jpeg"), file("/Снимок экрана.heic"),
                     file("/screenshot.tiff"), file("/screenshot.gif"), file("/screenshot.webp"),
                     file("/screenshot.bmp"), file("/screenshot.pdf"), file("/screenshot.svg"),
                     file("/screenshot"), file("/my screenshot.png"), file("/picture.png")})
                .screenshots),
        (Paths{"/home/user/Documents/Work/Screenshot 2024.PNG", "/Screen Shot.jpg",
               "/CLEANSHOT.jpeg", "/Снимок экрана.heic", "/screenshot.tiff", "/screenshot.gif",
               "/screenshot.webp", "/screenshot.bmp"}));
}

TEST(LibraryScreenshots, areSortedByArrivalNewestFirst) {
    EXPECT_EQ(paths(library({file("/screenshot 1.png", {.added = now - 3 * day, .lastUsed = now}),
                             file("/screenshot 2.png"),
                             file("/screenshot 3.png", {.modified = now - 2 * day}),
                             file("/screenshot 4.png", {.added = now - 3 * day})})
                        .screenshots),
              (Paths{"/screenshot 3.png", "/screenshot 1.png", "/screenshot 4.png",
                     "/screenshot 2.png"}));
}

TEST(ScreenshotInDocuments, isOnThePicturesShelfAndAmongScreenshotsButHasNotJustLanded) {
    const auto built = library({file("/home/user/Documents/Work/Screenshot 2024.PNG")});
    EXPECT_EQ(built.screenshots.size(), 1u);
    EXPECT_EQ(built.shelves.at(ShelfKind::pictures).size(), 1u);
    EXPECT_TRUE(built.justLanded.empty());
}

TEST(Library, takesNamesThatAreNotUtf8) {
    const auto built = library({file("/home/user/Desktop/screenshot\xff.png"), file("/\xfe.\xff")});
    EXPECT_EQ(built.screenshots.size(), 1u);
    EXPECT_EQ(built.shelves.size(), 1u);
}

}  // namespace
}  // namespace nookwise
