#include "model/ShelfKind.h"

#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

const std::map<ShelfKind, std::set<std::string_view>> expectedExts{
    {ShelfKind::pictures,
     {"png", "jpg", "jpeg", "heic", "gif", "webp", "tiff", "bmp", "svg", "psd", "raw", "dng"}},
    {ShelfKind::clips, {"mov", "mp4", "m4v", "avi", "mkv", "webm"}},
    {ShelfKind::audio, {"mp3", "wav", "m4a", "aif", "aiff", "flac", "ogg", "aac"}},
    {ShelfKind::docs,
     {"pdf", "doc", "docx", "pages", "key", "ppt", "pptx", "xls", "xlsx", "numbers", "csv", "txt",
      "md", "rtf", "epub"}},
    {ShelfKind::bundles, {"zip", "rar", "7z", "xip", "tar", "gz", "tgz", "dmg", "pkg", "iso"}},
};

TEST(ShelfKind, areFiveInAFixedOrder) {
    std::vector<std::string_view> names;
    for (const auto kind : allShelfKinds) names.push_back(rawValue(kind));
    EXPECT_EQ(names,
              (std::vector<std::string_view>{"pictures", "clips", "audio", "docs", "bundles"}));
}

TEST(ShelfKind, holdsItsExtensionsAndNoOthers) {
    for (const auto& [kind, expected] : expectedExts) {
        const auto held = exts(kind);
        EXPECT_EQ(std::set<std::string_view>(held.begin(), held.end()), expected) << rawValue(kind);
        EXPECT_EQ(held.size(), expected.size()) << rawValue(kind);
    }
}

TEST(ShelfKind, everyExtensionFindsItsOwnShelf) {
    for (const auto& [kind, expected] : expectedExts) {
        for (const auto ext : expected) EXPECT_EQ(shelfOf(ext), kind) << ext;
    }
}

TEST(ShelfKind, extensionsAreComparedExactly) {
    EXPECT_EQ(shelfOf("jpg"), ShelfKind::pictures);
    for (const auto* ext : {"JPG", "Jpg", "ts", "", ".jpg", "jpg ", "mpkg", "tif", "\xff"}) {
        EXPECT_EQ(shelfOf(ext), std::nullopt) << ext;
    }
}

TEST(ShelfKind, picturesClipsAndDocsAreShownAsAGrid) {
    EXPECT_TRUE(usesGrid(ShelfKind::pictures));
    EXPECT_TRUE(usesGrid(ShelfKind::clips));
    EXPECT_TRUE(usesGrid(ShelfKind::docs));
    EXPECT_FALSE(usesGrid(ShelfKind::audio));
    EXPECT_FALSE(usesGrid(ShelfKind::bundles));
}

}  // namespace
}  // namespace nookwise
