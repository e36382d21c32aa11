#include "fileops/NameFitting.h"
#include "platform/Text.h"
#include "tests/fileops/PlanFixture.h"

#include <random>
#include <unordered_set>

namespace nookwise {
namespace {

class PlannedName : public PlanFixture {
  protected:
    static std::string repeated(std::string_view text, int times) {
        std::string result;
        for (int i = 0; i < times; ++i) result += text;
        return result;
    }
};

/// The rule as it is told, one try after the other.
Names numberedOneByOne(const std::vector<std::pair<std::string, std::string>>& wanted) {
    std::unordered_set<std::string> given;
    Names names;
    for (const auto& [base, extension] : wanted) {
        auto name = nameOf(base, extension);
        for (std::uint64_t number = 2; given.contains(lowercased(name)); ++number)
            name = numberedName(base, extension, number);
        given.insert(lowercased(name));
        names.push_back(name);
    }
    return names;
}

TEST_F(PlannedName, leavesRoomForANumber) {
    // 50 letters of four bytes, a day and an extension that leave no room for more than " (2)".
    const auto letters = repeated("𐐨", 50);
    add("/a." + std::string(54, 'x'), letters);
    EXPECT_EQ(name(), repeated("𐐨", 49) + "." + std::string(54, 'x'));
    files.clear();
    add("/a." + std::string(50, 'x'), letters);
    EXPECT_EQ(name(), letters + "." + std::string(50, 'x'));
    EXPECT_EQ(name().size(), 251u);
}

TEST_F(PlannedName, keepsTheDayWhereTheLineIsCut) {
    add("/a.pdf", repeated("न्\u200dदी", 50), october);
    options.useDate = true;
    EXPECT_TRUE(name().ends_with(" — 2026-10-14.pdf")) << name();
    EXPECT_LE(name().size(), 251u);
    EXPECT_GT(name().size(), 230u);
    EXPECT_EQ(wellFormed(name()), name());
    options.dashed = true;
    EXPECT_TRUE(name().ends_with("-2026-10-14.pdf")) << name();
    EXPECT_LE(name().size(), 251u);
}

TEST_F(PlannedName, endsWithoutASpaceWhereItIsCut) {
    add("/a." + std::string(242, 'x'), "abcd efgh");
    EXPECT_EQ(name(), "abcd efg." + std::string(242, 'x'));
    files.clear();
    add("/a." + std::string(245, 'x'), "abcd efgh");
    EXPECT_EQ(name(), "abcd." + std::string(245, 'x'));
}

TEST_F(PlannedName, keepsWhatFitsOfACharacterThatIsTooLong) {
    add("/a.pdf", "Z" + repeated("\u0301", 500) + "algo");
    EXPECT_LE(name().size(), 251u);
    EXPECT_TRUE(name().starts_with("Z\u0301\u0301"));
    EXPECT_TRUE(name().ends_with("\u0301.pdf"));
}

TEST_F(PlannedName, isKeptWhereTheExtensionLeavesNoRoom) {
    const auto longest = "a." + std::string(253, 'x');
    add("/" + longest, "Invoice");
    EXPECT_EQ(name(), longest);
    EXPECT_EQ(note(), std::nullopt);
}

TEST_F(PlannedName, fitsWithEveryNumber) {
    for (int i = 0; i < 120; ++i) add("/a." + std::string(34, 'x'), repeated("𐐨", 50), october);
    options.useDate = true;
    std::unordered_set<std::string> different;
    for (const auto& each : names()) {
        EXPECT_LE(each.size(), 255u);
        EXPECT_EQ(wellFormed(each), each);
        different.insert(lowercased(each));
    }
    EXPECT_EQ(different.size(), 120u);
}

TEST_F(PlannedName, isNeverHiddenOrOnlyDots) {
    add("/1.pdf", "....");
    add("/2.pdf", ". . . .");
    add("/3.pdf", "..abcd");
    add("/4.pdf", "/..../efgh");
    EXPECT_EQ(names(), (Names{"1.pdf", "2.pdf", "abcd.pdf", "efgh.pdf"}));
}

TEST_F(PlannedName, keepsAnExtensionThatIsNotText) {
    add("/a.p\xff\xfe", "Invoice");
    add("/b.p\xff\xfe", "Invoice");
    add("/\xff\xfe", "Receipt");
    add("/\xff\xfe.pdf", "12");
    EXPECT_EQ(names(),
              (Names{"Invoice.p\xff\xfe", "Invoice (2).p\xff\xfe", "Receipt", "\xff\xfe.pdf"}));
}

TEST_F(PlannedName, isTheSameWhetherNumbersAreRememberedOrTriedOneByOne) {
    const std::vector<std::string> bases{
        "Invoice",  "INVOICE",        "invoice (2)",     "Invoice (3)",    "ΟΔΟΣ Α",
        "Οδος α",   "Invoice (2).pd", "Straße",          "STRASSE",        "İstanbul",
        "i̇stanbul", "Invoice v1.2",   repeated("𐐨", 50), repeated("𐐀", 50)};
    const std::vector<std::string> extensions{"pdf", "PDF", "", "png", "Σ", std::string(48, 'x')};
    std::mt19937 random(7);
    for (int round = 0; round < 30; ++round) {
        files.clear();
        texts.clear();
        std::vector<std::pair<std::string, std::string>> wanted;
        for (int file = 0; file < 150; ++file) {
            const auto& base = bases[random() % bases.size()];
            const auto& extension = extensions[random() % extensions.size()];
            add(nameOf("/" + std::to_string(file), extension), base);
            wanted.emplace_back(base, extension);
        }
        ASSERT_EQ(names(), numberedOneByOne(wanted)) << "round " << round;
    }
}

TEST_F(PlannedName, isMadeOfAnyText) {
    const std::vector<std::string> pieces{"abc",    " ",    "\n",     "\r\n",   "/",    ":",
                                          "..",     "—",    "\u0301", "\u200d", "👩",    "🇩",
                                          "\xff",   "漢字", "\u0600", "\u202e", "\x01", "７",
                                          "\u00ad", "نص",   "\u1112", "\u1161", "𝒳",    "\u2028"};
    std::mt19937 random(11);
    for (int round = 0; round < 2'000; ++round) {
        files.clear();
        std::string text;
        for (auto count = random() % 200; count > 0; --count)
            text += pieces[random() % pieces.size()];
        text += std::string(round % 3 == 0 ? 1 : 0, '\0');
        add("/a.pdf", text, october);
        options = {.useDate = round % 2 == 0, .dashed = round % 5 == 0};
        const auto made = name();
        ASSERT_FALSE(made.empty());
        ASSERT_LE(made.size(), 251u);
        ASSERT_EQ(made.find('/'), std::string::npos);
        ASSERT_NE(made.front(), '.');
        ASSERT_NE(made.front(), ' ');
        ASSERT_TRUE(isWellFormed(made));
        for (const char byte : made) ASSERT_FALSE(byte >= 0 && byte < ' ') << made;
    }
}

}  // namespace
}  // namespace nookwise
