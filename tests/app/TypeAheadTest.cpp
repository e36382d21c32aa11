#include "app/TypeAhead.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

class TypingAName : public testing::Test {
  protected:
    /// A tenth of a second after the key before, and with the row that was found as the current
    /// one.
    std::optional<std::size_t> type(std::string_view key) {
        now += Seconds{0.1};
        const auto row = typeAhead.type(key, now, items, current);
        if (row) current = row;
        return row;
    }
    void pause() { now += Seconds{2}; }
    void list(const std::vector<std::string>& names) {
        items.clear();
        for (const auto& name : names) items.push_back({.url = FileUrl("/folder/" + name)});
    }

    TypeAhead typeAhead;
    Date now{Seconds{1'700'000'000}};
    std::vector<FolderItem> items;
    std::optional<std::size_t> current;
};

TEST_F(TypingAName, findsTheFirstThatBeginsSo) {
    list({"apple", "banana", "berry", "cherry"});
    EXPECT_EQ(type("b"), 1u);
    EXPECT_EQ(type("e"), 2u);
    EXPECT_EQ(type("r"), 2u) << "the row that fits already is kept";
    EXPECT_EQ(type("x"), std::nullopt);
    EXPECT_EQ(current, 2u);
}

TEST_F(TypingAName, beginsAnewAfterAPauseWithTheCurrentRowLast) {
    list({"banana", "apple", "berry"});
    EXPECT_EQ(type("b"), 0u);
    pause();
    EXPECT_EQ(type("b"), 2u);
    pause();
    EXPECT_EQ(type("a"), 1u);
    pause();
    EXPECT_EQ(type("a"), 1u) << "round to itself";
}

TEST_F(TypingAName, leadsFromRowToRowByOneCharacterAgainAndAgain) {
    list({"apple", "banana", "avocado", "almond"});
    EXPECT_EQ(type("a"), 0u);
    EXPECT_EQ(type("a"), 2u);
    EXPECT_EQ(type("A"), 3u);
    EXPECT_EQ(type("a"), 0u);
    pause();
    EXPECT_EQ(type("b"), 1u);
}

TEST_F(TypingAName, doesNotMindCaseAndForms) {
    list({"Zebra", "U\u0308bung", "STRASSE", "\u0130stanbul"});
    EXPECT_EQ(type("\u00FC"), 1u) << "decomposed in the name";
    pause();
    EXPECT_EQ(type("stra\u00DF"), 2u);
    pause();
    EXPECT_EQ(type("z"), 0u);
    pause();
    EXPECT_EQ(type("\u0130"), 3u);
}

TEST_F(TypingAName, takesALetterWithAnAccentForAnother) {
    list({"Re\u0301sume\u0301.pdf", "RESUME.pdf", "re"});
    EXPECT_EQ(type("r"), 0u);
    EXPECT_EQ(type("e"), 1u);
    pause();
    current.reset();
    EXPECT_EQ(type("r"), 0u);
    EXPECT_EQ(type("\u00E9"), 0u);
    EXPECT_EQ(type("S"), 0u);
}

TEST_F(TypingAName, takesSpacesAndSeveralCharactersAtOnce) {
    list({"New", "New folder"});
    EXPECT_EQ(type("new"), 0u);
    EXPECT_EQ(type(" "), 1u);
    EXPECT_EQ(type("f"), 1u);
}

TEST_F(TypingAName, knowsWhetherANameIsBeingTyped) {
    list({"a"});
    EXPECT_FALSE(typeAhead.isTyping(now));
    type("a");
    EXPECT_TRUE(typeAhead.isTyping(now + Seconds{1}));
    EXPECT_FALSE(typeAhead.isTyping(now + Seconds{1.1}));
    EXPECT_FALSE(typeAhead.isTyping(now - Seconds{1})) << "the clock was set back";
}

TEST_F(TypingAName, copesWithNamesThatAreNotTextAndWithNone) {
    EXPECT_EQ(type("a"), std::nullopt);
    list({"\xFF\xFE", "a\xE9", "b"});
    pause();
    EXPECT_EQ(type("a"), 1u);
    EXPECT_EQ(type("\xE9"), 1u);
    pause();
    EXPECT_EQ(type(""), std::nullopt);
    current = 99;
    pause();
    EXPECT_EQ(type("b"), 2u) << "a row that is no longer there";
}

}  // namespace
}  // namespace nookwise
