#include "ui/bridge/KindBadge.h"

#include <QFile>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(KindBadge, hasADrawingForEveryGroup) {
    const struct {
        const char* name;
        const char* group;
        const char* label;
    } cases[] = {
        {"a.PDF", "pdf", "PDF"},   {"a.heic", "image", "HEI"}, {"a.mov", "clip", "MOV"},
        {"a.mp3", "audio", "MP3"}, {"a.7z", "archive", "7Z"},  {"a.dmg", "installer", "DMG"},
        {"a.csv", "sheet", "XLS"}, {"a.docx", "doc", "DOC"},   {"a.key", "slides", "KEY"},
        {"a.rtf", "rtf", "RTF"},   {"a.json", "code", "JSO"},  {"a.app", "app", "APP"},
        {"a.gz", "other", "GZ"},   {"a", "other", "FILE"},
    };
    for (const auto& each : cases) {
        const auto badge = kindBadge(FileUrl("/x").append(each.name));
        EXPECT_EQ(badge.group.toStdString(), each.group) << each.name;
        EXPECT_EQ(badge.label.toStdString(), each.label) << each.name;
        EXPECT_TRUE(QFile::exists(":/Nookwise/assets/art/file-" + badge.group + ".svg"))
            << each.name;
    }
}

}  // namespace
}  // namespace nookwise
