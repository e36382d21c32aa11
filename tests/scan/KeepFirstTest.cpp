#include "scan/DuplicateFinder.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

FileItem at(std::string_view path, std::optional<double> added = std::nullopt,
            std::optional<double> modified = std::nullopt) {
    FileItem file{.url = FileUrl(path)};
    if (added) file.added = Date{Seconds{*added}};
    if (modified) file.modified = Date{Seconds{*modified}};
    return file;
}

// From the best place to keep a copy to the worst; those of one line are equally good.
const std::vector<std::vector<std::string_view>> placesByScore{
    {"/home/user/Documents/a.pdf", "/home/user/Documents/copy.pdf",
     "/home/user/Documents/acopy.pdf", "/home/user/Documents/(a).pdf",
     "/home/user/Documents/(2a).pdf", "/home/user/Documents/2).pdf", "/home/user/Documents/().pdf",
     "/home/user/Documents/(2.pdf", "/home/user/Documents/( 2).pdf",
     "/home/user/Documents/a copy (2)/a.pdf", "/home/user/downloads/a.pdf",
     "/home/user/MyDesktop/a.pdf", "/home/user/Desktop", "/home/user/Downloads.old/a.pdf"},
    {"/home/user/Desktop/a.pdf", "/mnt/old/Desktop/deep/a.pdf"},
    {"/home/user/Documents/a copy.pdf", "/home/user/Documents/A COPY.PDF",
     "/home/user/Documents/a copybook.pdf", "/home/user/Documents/report (2).pdf",
     "/home/user/Documents/report (10) b.pdf", "/home/user/Documents/((3)).pdf",
     "/home/user/Documents/a copy (2).pdf", "/home/user/Documents/a.pdf (1)",
     "/home/user/Documents/(x) (2).pdf"},
    {"/home/user/Downloads/a.pdf", "/mnt/Downloads/deep/a.pdf"},
    {"/home/user/Desktop/a copy.pdf", "/home/user/Desktop/a (2).pdf"},
    {"/home/user/Downloads/Desktop/a.pdf", "/home/user/Desktop/Downloads/a.pdf"},
    {"/home/user/Downloads/a copy.pdf", "/home/user/Downloads/a (2).pdf"},
    {"/home/user/Downloads/Desktop/a (2).pdf"},
};

TEST(KeepFirst, prefersPlacesOutsideDownloadsAndDesktopAndNamesThatAreNoCopys) {
    for (std::size_t better = 0; better < placesByScore.size(); ++better) {
        for (std::size_t worse = better + 1; worse < placesByScore.size(); ++worse) {
            for (const auto a : placesByScore[better]) {
                for (const auto b : placesByScore[worse]) {
                    EXPECT_TRUE(keepFirst(at(a, 2), at(b, 1))) << a << " before " << b;
                    EXPECT_FALSE(keepFirst(at(b, 1), at(a, 2))) << a << " before " << b;
                }
            }
        }
    }
}

TEST(KeepFirst, treatsEquallyGoodPlacesAlike) {
    for (const auto& places : placesByScore) {
        for (const auto a : places) {
            for (const auto b : places)
                EXPECT_FALSE(keepFirst(at(a, 1), at(b, 1))) << a << " and " << b;
        }
    }
}

TEST(KeepFirst, prefersTheOlderOfEquallyGoodPlaces) {
    EXPECT_TRUE(keepFirst(at("/a", 1), at("/b", 2)));
    EXPECT_FALSE(keepFirst(at("/a", 2), at("/b", 1)));
    EXPECT_FALSE(keepFirst(at("/a", 1), at("/b", 1)));
}

TEST(KeepFirst, goesByTheAddedDateBeforeTheModifiedOne) {
    EXPECT_TRUE(keepFirst(at("/a", 1, 9), at("/b", 2, 0)));
    EXPECT_TRUE(keepFirst(at("/a", std::nullopt, 1), at("/b", 2, 0)));
    EXPECT_FALSE(keepFirst(at("/a", std::nullopt, 3), at("/b", 2, 9)));
}

TEST(KeepFirst, putsACopyWithoutADateLast) {
    EXPECT_TRUE(keepFirst(at("/a", 1e11), at("/b")));
    EXPECT_TRUE(keepFirst(at("/a", std::nullopt, 1e11), at("/b")));
    EXPECT_FALSE(keepFirst(at("/a"), at("/b", 1)));
    EXPECT_FALSE(keepFirst(at("/a"), at("/b")));
}

TEST(KeepFirst, knowsTheUsersOwnFoldersByWhateverName) {
    const ArrivalFolders folders{.downloads = FileUrl("/home/user/Téléchargements"),
                                 .desktop = FileUrl("/home/user/Bureau")};
    const auto document = at("/home/user/Documents/a.pdf", 2);
    const auto onDesktop = at("/home/user/Bureau/deep/a.pdf", 1);
    const auto download = at("/home/user/Téléchargements/a.pdf", 1);
    EXPECT_TRUE(keepFirst(document, onDesktop, folders));
    EXPECT_TRUE(keepFirst(onDesktop, download, folders));
    EXPECT_FALSE(keepFirst(document, onDesktop));
}

TEST(KeepFirst, countsTheUsersOwnFoldersOnceUnderTheirUsualNames) {
    const ArrivalFolders folders{.downloads = FileUrl("/home/user/Downloads"),
                                 .desktop = FileUrl("/home/user/Desktop")};
    for (std::size_t i = 0; i + 1 < placesByScore.size(); ++i) {
        EXPECT_TRUE(keepFirst(at(placesByScore[i].front(), 2), at(placesByScore[i + 1].front(), 1),
                              folders));
    }
}

TEST(KeepFirst, takesNamesThatAreNotUtf8) {
    EXPECT_TRUE(keepFirst(at("/\xff.pdf", 2), at("/\xff copy.pdf", 1)));
    EXPECT_TRUE(keepFirst(at("/\xff.pdf", 2), at("/\xff(1)\xfe.pdf", 1)));
}

}  // namespace
}  // namespace nookwise
