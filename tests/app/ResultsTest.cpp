#include "app/Results.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

const FileUrl a("/a"), b("/b"), c("/c"), d("/d");

FileItem file(const FileUrl& url) {
    return {.url = url,
            .size = 7,
            .modified = Date{Seconds{1}},
            .added = Date{Seconds{2}},
            .lastUsed = Date{Seconds{3}}};
}
std::vector<FileItem> filesAt(std::initializer_list<FileUrl> urls) {
    std::vector<FileItem> files;
    for (const auto& url : urls) files.push_back(file(url));
    return files;
}
DuplicateGroup group(std::initializer_list<FileUrl> urls, const FileUrl& keep) {
    return {.id = "id", .files = filesAt(urls), .keep = keep};
}
TextsByUrl textsOf(std::initializer_list<std::pair<FileUrl, std::string_view>> texts) {
    TextsByUrl result;
    for (const auto& [url, text] : texts) result.emplace(url, SharedBytes(text));
    return result;
}

/// What is left of `value` without `gone`.
template <typename T>
T without(T value, const UrlSet& gone) {
    const T before = value;
    const bool tellsChange = removeFrom(value, gone);
    EXPECT_EQ(tellsChange, value != before);
    return value;
}
template <typename T>
T relocated(T value, const Relocation& moved) {
    const T before = value;
    const bool tellsChange = relocate(value, moved);
    EXPECT_EQ(tellsChange, value != before);
    return value;
}

TEST(FilesThatAreGone, leaveTheListInOrder) {
    EXPECT_EQ(without(filesAt({a, b, c}), {b}), filesAt({a, c}));
    EXPECT_EQ(without(filesAt({a, b, c}), {d}), filesAt({a, b, c}));
}

TEST(FilesThatAreGone, leaveEveryPileAndEmptyPilesStay) {
    const Piles piles{{PileKind::large, {{file(a), "", true}, {file(b), "", false}}},
                      {PileKind::forgotten, {{file(a), "", true}}}};
    EXPECT_EQ(without(piles, {a}),
              (Piles{{PileKind::large, {{file(b), "", false}}}, {PileKind::forgotten, {}}}));
}

TEST(FilesThatAreGone, leaveTicksAndTexts) {
    EXPECT_EQ(without(UrlSet{a, b}, {a, c}), UrlSet{b});
    EXPECT_EQ(without(UrlSet{b}, {a, c}), UrlSet{b});
    EXPECT_EQ(without(textsOf({{a, "A"}, {b, "B"}}), {a}), textsOf({{b, "B"}}));
}

TEST(FilesThatAreGone, leaveAGroupWithTheFirstThatStaysKept) {
    using Groups = std::vector<DuplicateGroup>;
    EXPECT_EQ(without(Groups{group({a, b, c}, a)}, {c}), Groups{group({a, b}, a)});
    EXPECT_EQ(without(Groups{group({a, b, c}, b)}, {b}), Groups{group({a, c}, a)});
    EXPECT_EQ(without(Groups{group({a, b, c}, a)}, {a}), Groups{group({b, c}, b)});
}

TEST(FilesThatAreGone, endAGroupOfWhichLessThanTwoAreLeft) {
    using Groups = std::vector<DuplicateGroup>;
    EXPECT_EQ(without(Groups{group({a, b, c}, a), group({d, FileUrl("/e")}, d)}, {a, b}),
              Groups{group({d, FileUrl("/e")}, d)});
    EXPECT_EQ(without(Groups{group({a, b}, a)}, {a, b}), Groups{});
}

TEST(FilesThatAreGone, giveAGroupThatKeepsAStrangerAFileOfItsOwnToKeep) {
    std::vector groups{group({a, b}, FileUrl("/stranger"))};
    EXPECT_EQ(without(groups, {d}), std::vector{group({a, b}, a)});
}

TEST(FilesThatAreElsewhere, keepEverythingButTheirPlace) {
    EXPECT_EQ(relocated(filesAt({a, b}), {{a, c}}), filesAt({c, b}));
    EXPECT_EQ(relocated(filesAt({a, b}), {{c, d}, {a, a}}), filesAt({a, b}));
    const Piles piles{{PileKind::large, {{file(a), "reason", true}}}};
    EXPECT_EQ(relocated(piles, {{a, c}}), (Piles{{PileKind::large, {{file(c), "reason", true}}}}));
}

TEST(FilesThatAreElsewhere, keepTheirTicksAndTexts) {
    EXPECT_EQ(relocated(UrlSet{a, b}, {{a, c}, {d, FileUrl("/e")}}), (UrlSet{c, b}));
    EXPECT_EQ(relocated(textsOf({{a, "A"}, {b, "B"}}), {{a, c}}), textsOf({{c, "A"}, {b, "B"}}));
}

TEST(FilesThatAreElsewhere, mayHaveChangedPlaces) {
    const Relocation swapped{{a, b}, {b, a}};
    EXPECT_EQ(relocated(textsOf({{a, "A"}, {b, "B"}}), swapped), textsOf({{a, "B"}, {b, "A"}}));
    UrlSet ticked{a};
    EXPECT_TRUE(relocate(ticked, swapped));
    EXPECT_EQ(ticked, UrlSet{b});
    UrlSet both{a, b};
    EXPECT_TRUE(relocate(both, swapped));
    EXPECT_EQ(both, (UrlSet{a, b}));
}

TEST(FilesThatAreElsewhere, replaceTheTextOfWhatTheirNewPlaceHeld) {
    EXPECT_EQ(relocated(textsOf({{a, "A"}, {c, "C"}}), {{a, c}}), textsOf({{c, "A"}}));
}

TEST(FilesThatAreElsewhere, stayTheKeptOnesOfTheirGroups) {
    using Groups = std::vector<DuplicateGroup>;
    const auto moved = relocated(Groups{group({a, b}, a)}, {{a, c}});
    EXPECT_EQ(moved, Groups{group({c, b}, c)});
    EXPECT_EQ(moved.front().extras(), filesAt({b})) << "never all of its copies";
    EXPECT_EQ(relocated(Groups{group({a, b}, a)}, {{b, c}}), Groups{group({a, c}, a)});
}

}  // namespace
}  // namespace nookwise
