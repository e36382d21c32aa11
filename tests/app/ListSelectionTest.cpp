#include "app/ListSelection.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace nookwise {
namespace {

using ::testing::IsEmpty;
using Mode = SelectionMode;

/// One item for each letter.
ListSelection::Items itemsOf(std::string_view letters) {
    ListSelection::Items items;
    for (const char letter : letters) items.push_back({.url = FileUrl(std::string("/") + letter)});
    return items;
}

class SelectingRows : public testing::Test {
  protected:
    void select(std::size_t row, Mode mode) {
        selected = rows.select(items, row, mode, std::move(selected));
    }
    /// The selected letters in the order of the list.
    std::string letters() const {
        std::string result;
        for (const auto& item : items) {
            if (selected.contains(item.url)) result += item.url.lastPathComponent();
        }
        EXPECT_EQ(result.size(), selected.size());
        return result;
    }

    ListSelection::Items items = itemsOf("abcdefgh");
    ListSelection rows;
    ListSelection::Selected selected;
};

TEST_F(SelectingRows, byAClickTakesThatRowAlone) {
    select(2, Mode::replace);
    select(4, Mode::replace);
    EXPECT_EQ(letters(), "e");
    EXPECT_EQ(rows.currentRow(items), 4u);
}

TEST_F(SelectingRows, togglesARow) {
    select(2, Mode::replace);
    select(4, Mode::toggle);
    EXPECT_EQ(letters(), "ce");
    select(2, Mode::toggle);
    EXPECT_EQ(letters(), "e");
    EXPECT_EQ(rows.currentRow(items), 2u);
}

TEST_F(SelectingRows, extendsFromTheAnchorEitherWay) {
    select(3, Mode::replace);
    select(5, Mode::extend);
    EXPECT_EQ(letters(), "def");
    select(1, Mode::extend);
    EXPECT_EQ(letters(), "bcd");
    select(3, Mode::extend);
    EXPECT_EQ(letters(), "d");
}

TEST_F(SelectingRows, extendsFromTheRowThatWasToggledLast) {
    select(0, Mode::replace);
    select(4, Mode::toggle);
    select(6, Mode::extend);
    EXPECT_EQ(letters(), "efg");
}

TEST_F(SelectingRows, addsARangeToTheRest) {
    select(0, Mode::replace);
    select(4, Mode::toggle);
    select(6, Mode::add);
    EXPECT_EQ(letters(), "aefg");
}

TEST_F(SelectingRows, beginsARangeAtItsFirstRowWhereNoneWasReached) {
    select(2, Mode::extend);
    EXPECT_EQ(letters(), "c");
    select(4, Mode::extend);
    EXPECT_EQ(letters(), "cde");
}

TEST_F(SelectingRows, movesTheKeyboardAlone) {
    select(2, Mode::replace);
    select(5, Mode::keep);
    EXPECT_EQ(letters(), "c");
    EXPECT_EQ(rows.currentRow(items), 5u);
    select(6, Mode::extend);
    EXPECT_EQ(letters(), "cdefg") << "the anchor stayed";
}

TEST_F(SelectingRows, leavesEverythingAsItIsForARowThatIsNotThere) {
    select(2, Mode::replace);
    select(8, Mode::replace);
    EXPECT_EQ(letters(), "c");
    EXPECT_EQ(rows.currentRow(items), 2u);
}

TEST_F(SelectingRows, takesThemAllWithoutMovingTheKeyboard) {
    select(2, Mode::replace);
    selected = ListSelection::selectAll(items);
    EXPECT_EQ(letters(), "abcdefgh");
    EXPECT_EQ(rows.currentRow(items), 2u);
    EXPECT_THAT(ListSelection::selectAll({}), IsEmpty());
}

TEST_F(SelectingRows, stepsFromRowToRowAndStopsAtTheEnds) {
    const auto after = [&](RowStep step) { return rows.rowAfter(items, step, 3); };
    EXPECT_EQ(after(RowStep::next), 0u) << "nothing was reached yet";
    EXPECT_EQ(after(RowStep::previous), 7u);
    select(1, Mode::replace);
    EXPECT_EQ(after(RowStep::next), 2u);
    EXPECT_EQ(after(RowStep::previous), 0u);
    EXPECT_EQ(after(RowStep::pageDown), 4u);
    EXPECT_EQ(after(RowStep::pageUp), 0u);
    EXPECT_EQ(after(RowStep::first), 0u);
    EXPECT_EQ(after(RowStep::last), 7u);
    select(7, Mode::replace);
    EXPECT_EQ(after(RowStep::next), 7u);
    EXPECT_EQ(after(RowStep::pageDown), 7u);
    select(0, Mode::replace);
    EXPECT_EQ(after(RowStep::previous), 0u);
    EXPECT_EQ(rows.rowAfter(items, RowStep::pageDown, 0), 1u) << "a page is never nothing";
    EXPECT_EQ(rows.rowAfter({}, RowStep::last, 3), std::nullopt);
    EXPECT_EQ(rows.rowAfter({}, RowStep::next, 3), std::nullopt);
}

TEST_F(SelectingRows, staysWithItsFileWhenTheFolderIsListedAnew) {
    select(3, Mode::replace);
    items = itemsOf("xxxabcd");
    EXPECT_EQ(rows.currentRow(items), 6u);
    select(4, Mode::extend);
    EXPECT_EQ(letters(), "bcd");
}

TEST_F(SelectingRows, givesWayToTheRowThatTookThePlaceOfOneThatIsGone) {
    select(3, Mode::replace);
    items = itemsOf("abcefgh");
    EXPECT_EQ(rows.currentRow(items), 3u);
    select(4, Mode::extend);
    EXPECT_EQ(letters(), "ef");
    items = itemsOf("ab");
    EXPECT_EQ(rows.currentRow(items), 1u);
    EXPECT_EQ(rows.currentRow({}), std::nullopt);
}

TEST_F(SelectingRows, forgetsItsRowsInAnotherFolder) {
    select(3, Mode::replace);
    rows.clear();
    EXPECT_EQ(rows.currentRow(items), std::nullopt);
    select(5, Mode::extend);
    EXPECT_EQ(letters(), "f");
}

}  // namespace
}  // namespace nookwise
