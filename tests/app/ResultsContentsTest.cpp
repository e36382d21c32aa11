#include "app/Results.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

struct Known {
    std::vector<FileItem> files;
    Piles piles;
    TextsByUrl texts;

    operator KnownFiles() const { return {files, piles, texts}; }
};

using PathList = std::initializer_list<std::string_view>;

Known known(PathList files, PathList texts = {}, PathList shots = {}) {
    Known all;
    for (const auto path : files) all.files.push_back({.url = FileUrl(path)});
    for (const auto path : texts) all.texts.emplace(FileUrl(path), SharedBytes("text"));
    for (const auto path : shots)
        all.piles[PileKind::screenshots].push_back({{.url = FileUrl(path)}, "reason", true});
    return all;
}
Relocation moved(std::initializer_list<std::pair<std::string_view, std::string_view>> places) {
    Relocation relocation;
    for (const auto& [from, to] : places) relocation.emplace(from, to);
    return relocation;
}

TEST(AMovedFolder, takesTheKnownFilesInsideAlong) {
    EXPECT_EQ(withContents(moved({{"/a", "/b/a (2)"}}),
                           known({"/a/x", "/a/sub/y", "/ab", "/ab/x", "/b/z"})),
              moved({{"/a", "/b/a (2)"}, {"/a/x", "/b/a (2)/x"}, {"/a/sub/y", "/b/a (2)/sub/y"}}));
}

TEST(AMovedFolder, thatIsUnknownOtherwiseTakesFilesAlongOfWhichOnlyTheTextIsKnown) {
    EXPECT_EQ(withContents(moved({{"/a", "/b"}, {"/d", "/e"}}),
                           known({"/c", "/d/y"}, {"/a/x", "/c", "/d/y"})),
              moved({{"/a", "/b"}, {"/a/x", "/b/x"}, {"/d", "/e"}, {"/d/y", "/e/y"}}));
}

TEST(AMovedFolder, takesPileItemsAlongThatAreNotAmongTheFiles) {
    EXPECT_EQ(withContents(moved({{"/a", "/b"}}), known({"/a/x"}, {}, {"/a/shot", "/a/x", "/c"})),
              moved({{"/a", "/b"}, {"/a/x", "/b/x"}, {"/a/shot", "/b/shot"}}));
}

TEST(AMovedFolder, leavesAloneWhatWasMovedOutOfItBefore) {
    EXPECT_EQ(withContents(moved({{"/a", "/t/a"}, {"/a/x", "/t/x"}, {"/a/sub", "/t/sub"}}),
                           known({"/a/x", "/a/y", "/a/sub/z"})),
              moved({{"/a", "/t/a"},
                     {"/a/x", "/t/x"},
                     {"/a/sub", "/t/sub"},
                     {"/a/y", "/t/a/y"},
                     {"/a/sub/z", "/t/sub/z"}}));
}

TEST(AMovedFolder, mayChangePlacesWithAnother) {
    EXPECT_EQ(withContents(moved({{"/a", "/b"}, {"/b", "/a"}}), known({"/a/x", "/b/x"})),
              moved({{"/a", "/b"}, {"/b", "/a"}, {"/a/x", "/b/x"}, {"/b/x", "/a/x"}}));
}

TEST(AMovedFolder, mayGoToTheTopOfTheDisk) {
    EXPECT_EQ(withContents(moved({{"/a/b", "/"}}), known({"/a/b/x"})),
              moved({{"/a/b", "/"}, {"/a/b/x", "/x"}}));
}

TEST(MovedFiles, replaceWhatWasKnownAtTheirNewPlaces) {
    const auto all = known({"/b/x", "/b/sub/y", "/b/z", "/c"}, {}, {"/b/sub/shot"});
    EXPECT_EQ(
        replacedBy(moved({{"/a/x", "/b/x"}, {"/a/sub", "/b/sub"}}), all.files, all.piles),
        (UrlSet{FileUrl("/b/x"), FileUrl("/b/sub"), FileUrl("/b/sub/y"), FileUrl("/b/sub/shot")}));
}

TEST(MovedFiles, replaceNothingThatWasMovedItself) {
    EXPECT_EQ(replacedBy(moved({{"/a", "/b"}, {"/b", "/a"}, {"/c", "/c"}}), {}, {}), UrlSet{});
}

TEST(MovedFiles, addNothing) {
    const auto files = moved({{"/a/x", "/b/x"}});
    EXPECT_EQ(withContents(files, known({"/a/x", "/a/xy", "/a/x2/y"}, {"/a/x"})), files);
    EXPECT_EQ(withContents(Relocation{}, known({"/a"})), Relocation{});
}

TEST(AFolderThatIsGone, takesTheKnownFilesInsideAlong) {
    const UrlSet gone{FileUrl("/a")};
    const UrlSet all{FileUrl("/a"), FileUrl("/a/x"), FileUrl("/a/sub/y")};
    EXPECT_EQ(withContents(gone, known({"/a/x", "/a/sub/y", "/b", "/ab/x"})), all);
    EXPECT_EQ(withContents(gone, known({}, {}, {"/a/x", "/a/sub/y", "/b", "/ab/x"})), all);
    EXPECT_EQ(withContents(gone, known({}, {"/a/x", "/a/sub/y", "/b", "/ab/x"})), all);
}

}  // namespace
}  // namespace nookwise
