#include "platform/linux/TrashInfo.h"

#include <string>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += text;
    return result;
}

TEST(NameInTrash, isTheNameWhereItFits) {
    EXPECT_EQ(nameInTrash("report.pdf", ""), "report.pdf");
    EXPECT_EQ(nameInTrash(std::string(245, 'a'), ""), std::string(245, 'a'));
    EXPECT_EQ(nameInTrash("\xFF\xFE.bin", ""), "\xFF\xFE.bin");
}

TEST(NameInTrash, hasTheSuffixBeforeTheExtension) {
    EXPECT_EQ(nameInTrash("report.pdf", " (2)"), "report (2).pdf");
    EXPECT_EQ(nameInTrash(".profile", " (2)"), ".profile (2)");
    EXPECT_EQ(nameInTrash("folder", " (2)"), "folder (2)");
    EXPECT_EQ(nameInTrash("ends.", " (2)"), "ends. (2)");
}

TEST(NameInTrash, leavesRoomForTheNameOfTheDescription) {
    for (std::size_t length = 240; length <= 255; ++length) {
        const auto name = std::string(length - 4, 'a') + ".pdf";
        const auto kept = std::min<std::size_t>(length, 245);
        EXPECT_EQ(nameInTrash(name, ""), std::string(kept - 4, 'a') + ".pdf");
        const auto keptWithSuffix = std::min<std::size_t>(length, 241);
        EXPECT_EQ(nameInTrash(name, " (2)"), std::string(keptWithSuffix - 4, 'a') + " (2).pdf");
    }
}

TEST(NameInTrash, cutsBetweenTwoCharacters) {
    // 2, 3 and 4 bytes a character, in each position that the cut can meet.
    for (const std::string character : {"\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x8D\x8F"}) {
        for (std::size_t lead = 0; lead < character.size(); ++lead) {
            const auto before = std::string(lead, 'x');
            const auto fitting = (245 - lead) / character.size();
            EXPECT_EQ(nameInTrash(before + repeated(character, fitting + 1), ""),
                      before + repeated(character, fitting));
        }
    }
}

TEST(NameInTrash, cutsBytesThatAreNoCharactersWhereTheyFit) {
    EXPECT_EQ(nameInTrash(std::string(255, '\x80'), ""), std::string(245, '\x80'));
    EXPECT_EQ(nameInTrash(std::string(255, '\xFF'), ""), std::string(245, '\xFF'));
}

TEST(NameInTrash, doesNotKeepAnExtensionThatIsNone) {
    EXPECT_EQ(nameInTrash("a." + std::string(253, 'b'), ""), "a." + std::string(243, 'b'));
    EXPECT_EQ(nameInTrash("a." + std::string(253, 'b'), " (2)"),
              "a." + std::string(239, 'b') + " (2)");
    EXPECT_EQ(nameInTrash("." + std::string(254, 'b'), ""), "." + std::string(244, 'b'));
}

std::tm someDay() {
    std::tm day{};
    day.tm_year = 124;
    day.tm_mon = 1;
    day.tm_mday = 9;
    day.tm_hour = 7;
    day.tm_min = 5;
    day.tm_sec = 3;
    return day;
}

TEST(TrashInfo, saysWhereFromWhenAndByWhichRun) {
    EXPECT_EQ(trashInfo("/home/u/50%20off\n\xFF.txt", someDay(), "1F"),
              "[Trash Info]\nPath=/home/u/50%2520off%0A%FF.txt\n"
              "DeletionDate=2024-02-09T07:05:03\nX-Nookwise-Run=1F\n");
}

TEST(TrashInfo, tellsTheRunThatWroteIt) {
    EXPECT_EQ(runInTrashInfo(trashInfo("/a\nX-Nookwise-Run=FAKE", someDay(), "1F")), "1F");
    EXPECT_EQ(runInTrashInfo("[Trash Info]\nX-Nookwise-Run=1F"), "1F");
}

TEST(TrashInfo, tellsNoRunWhereAnotherProgramWroteIt) {
    for (const auto* text :
         {"", "[Trash Info]\nPath=/a\nDeletionDate=2024-02-09T07:05:03\n", "X-Nookwise-Run=1F\n",
          "[Trash Info]\nPath=X-Nookwise-Run=1F\n", "[Trash Info]\n X-Nookwise-Run=1F\n",
          "[Trash Info]", "[Trash Info]\n\n\n", "[Trash Info]\nX-Nookwise-Run=\n"})
        EXPECT_EQ(runInTrashInfo(text), "") << text;
}

}  // namespace
}  // namespace nookwise
