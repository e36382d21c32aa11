#include "fileops/NameFitting.h"

#include <gtest/gtest.h>

namespace nookwise {
namespace {

TEST(Fitting, leavesATextThatFits) {
    EXPECT_EQ(fitting("four", 4), "four");
    EXPECT_EQ(fitting("", 0), "");
}

TEST(Fitting, cutsBetweenCharacters) {
    EXPECT_EQ(fitting("four", 3), "fou");
    EXPECT_EQ(fitting("ae\u0301", 3), "a");
    EXPECT_EQ(fitting("ae\u0301", 4), "ae\u0301");
    EXPECT_EQ(fitting("ok👩‍🚀", 10), "ok");
    EXPECT_EQ(fitting("a", 0), "");
}

TEST(Fitting, cutsACharacterThatIsTooLongBetweenItsCodePoints) {
    std::string character = "Z";
    for (int i = 0; i < 200; ++i) character += "\u0301";
    EXPECT_EQ(fitting(character, 6), "Z\u0301\u0301");
    EXPECT_EQ(fitting("😀", 3), "");
}

TEST(Fitting, takesEachByteThatIsNotTextForACharacter) {
    EXPECT_EQ(fitting("\xff\x80\x80", 2), "\xff\x80");
}

TEST(NumberedName, putsTheNumberBeforeTheExtension) {
    EXPECT_EQ(numberedName("Invoice", "pdf", 2), "Invoice (2).pdf");
    EXPECT_EQ(numberedName("Notes", "", 13), "Notes (13)");
    EXPECT_EQ(numberedName("v1.2", "", 2), "v1.2 (2)");
}

TEST(NumberedName, cutsTheBaseForIt) {
    EXPECT_EQ(numberedName(std::string(255, 'n'), "pdf", 2), std::string(247, 'n') + " (2).pdf");
    EXPECT_EQ(numberedName(std::string(255, 'n'), "", 10), std::string(250, 'n') + " (10)");
}

TEST(NumberedName, isAllTailWhereTheExtensionTakesAllTheRoom) {
    const std::string extension(300, 'x');
    EXPECT_EQ(numberedName("base", extension, 2), " (2)." + extension);
}

}  // namespace
}  // namespace nookwise
