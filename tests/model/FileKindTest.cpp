#include "model/FileKind.h"

#include <map>
#include <set>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

constexpr Tint red{229, 48, 43};
constexpr Tint green{22, 180, 126};
constexpr Tint grey{142, 142, 147};

struct Badge {
    std::string_view ext;
    FileKindGroup group;
    std::string_view label;
};

class BadgeOf : public testing::TestWithParam<Badge> {};

TEST_P(BadgeOf, hasTheGroupAndTheLabelOfTheExtension) {
    const FileKind kind(GetParam().ext);
    EXPECT_EQ(kind.group, GetParam().group);
    EXPECT_EQ(kind.label, GetParam().label);
}

using enum FileKindGroup;

INSTANTIATE_TEST_SUITE_P(
    MatchedExtensions, BadgeOf,
    testing::Values(
        Badge{"pdf", pdf, "PDF"}, Badge{"png", image, "PNG"}, Badge{"jpg", image, "JPG"},
        Badge{"jpeg", image, "JPE"}, Badge{"heic", image, "HEI"}, Badge{"webp", image, "WEB"},
        Badge{"mov", clip, "MOV"}, Badge{"mp4", clip, "MP4"}, Badge{"m4v", clip, "M4V"},
        Badge{"avi", clip, "AVI"}, Badge{"mkv", clip, "MKV"}, Badge{"webm", clip, "WEB"},
        Badge{"mp3", audio, "MP3"}, Badge{"wav", audio, "WAV"}, Badge{"m4a", audio, "M4A"},
        Badge{"aiff", audio, "AIF"}, Badge{"flac", audio, "FLA"}, Badge{"zip", archive, "ZIP"},
        Badge{"rar", archive, "RAR"}, Badge{"7z", archive, "7Z"}, Badge{"xip", archive, "XIP"},
        Badge{"tgz", archive, "TGZ"}, Badge{"dmg", installer, "DMG"},
        Badge{"pkg", installer, "PKG"}, Badge{"mpkg", installer, "MPK"},
        Badge{"iso", installer, "ISO"}, Badge{"xls", sheet, "XLS"}, Badge{"xlsx", sheet, "XLS"},
        Badge{"csv", sheet, "XLS"}, Badge{"numbers", sheet, "XLS"}, Badge{"doc", doc, "DOC"},
        Badge{"docx", doc, "DOC"}, Badge{"pages", doc, "PAG"}, Badge{"key", slides, "KEY"},
        Badge{"ppt", slides, "PPT"}, Badge{"pptx", slides, "PPT"}, Badge{"rtf", rtf, "RTF"},
        Badge{"json", code, "JSO"}, Badge{"swift", code, "SWI"}, Badge{"html", code, "HTM"},
        Badge{"app", app, "APP"}));

INSTANTIATE_TEST_SUITE_P(ExtensionsInOtherCase, BadgeOf,
                         testing::Values(Badge{"PDF", pdf, "PDF"}, Badge{"JpEg", image, "JPE"},
                                         Badge{"XLSX", sheet, "XLS"}, Badge{"App", app, "APP"}));

INSTANTIATE_TEST_SUITE_P(UnmatchedExtensions, BadgeOf,
                         testing::Values(Badge{"markdown", other, "MAR"}, Badge{"", other, "FILE"},
                                         Badge{"gif", other, "GIF"}, Badge{"aif", other, "AIF"},
                                         Badge{"c", other, "C"}, Badge{"gz", other, "GZ"},
                                         Badge{"pdfx", other, "PDF"}, Badge{"ñandú", other, "ÑAN"},
                                         Badge{"e\xcc\x81xyz", other, "E\xcc\x81XY"},
                                         Badge{"\xff\xfe", other, "\xff\xfe"}));

TEST(FileKind, tintsPdfRedSheetsAndAppsGreenAndTheUnknownGrey) {
    EXPECT_EQ(FileKind("pdf").tint, red);
    for (const auto* ext : {"xls", "xlsx", "csv", "numbers", "app"})
        EXPECT_EQ(FileKind(ext).tint, green) << ext;
    for (const auto* ext : {"", "markdown", "gif"}) EXPECT_EQ(FileKind(ext).tint, grey) << ext;
}

TEST(FileKind, eachGroupHasATintOfItsOwn) {
    std::map<FileKindGroup, std::set<std::tuple<int, int, int>>> tints;
    for (const auto* ext :
         {"pdf", "png", "jpg", "mov",   "webm", "mp3",  "flac", "zip",  "tgz",  "dmg",
          "iso", "xls", "doc", "pages", "key",  "pptx", "rtf",  "json", "html", ""}) {
        const FileKind kind(ext);
        tints[kind.group].insert({kind.tint.red, kind.tint.green, kind.tint.blue});
    }
    std::set<std::tuple<int, int, int>> all;
    for (const auto& [group, ofGroup] : tints) {
        EXPECT_EQ(ofGroup.size(), 1u);
        all.insert(ofGroup.begin(), ofGroup.end());
    }
    EXPECT_EQ(all.size(), tints.size());
    EXPECT_EQ(tints.size(), 12u);
}

}  // namespace
}  // namespace nookwise
