#include "tests/fileops/PlanFixture.h"

namespace nookwise {
namespace {

class RenamePlan : public PlanFixture {};

TEST_F(RenamePlan, hasOneRowForEachFileInOrder) {
    add("/z.pdf", "Zebra");
    add("/a.png");
    add("/m.pdf", "Mango");
    const auto rows = plan();
    ASSERT_EQ(rows.size(), 3u);
    for (std::size_t row = 0; row < 3; ++row) EXPECT_EQ(rows[row].file, files[row]);
    EXPECT_EQ(names(), (Names{"Zebra.pdf", "a.png", "Mango.pdf"}));
    EXPECT_TRUE(makePlan({}, texts, options).empty());
}

TEST_F(RenamePlan, startsWithTheTextAlone) {
    EXPECT_TRUE(options.useText);
    EXPECT_FALSE(options.useDate);
    EXPECT_FALSE(options.dashed);
}

TEST_F(RenamePlan, takesTheFirstUsableLine) {
    add("/scan.pdf", "— 12 —\nPage 3\nMore");
    EXPECT_EQ(name(), "Page 3.pdf");
    EXPECT_EQ(note(), std::nullopt);
    EXPECT_TRUE(plan().front().renames());
}

TEST_F(RenamePlan, keepsTheNameWithoutAUsableLine) {
    add("/scan.pdf", "12/04");
    EXPECT_EQ(name(), "scan.pdf");
    EXPECT_EQ(note(), "no text found — name kept");
    EXPECT_FALSE(plan().front().renames());
}

TEST_F(RenamePlan, keepsTheNameWithoutText) {
    add("/scan.pdf");
    EXPECT_EQ(name(), "scan.pdf");
    EXPECT_EQ(note(), "no text found — name kept");
}

TEST_F(RenamePlan, keepsTheNameWithoutAnyOption) {
    add("/scan.pdf", "Invoice", october);
    options = {.useText = false};
    EXPECT_EQ(name(), "scan.pdf");
    EXPECT_EQ(note(), std::nullopt);
    options.dashed = true;
    EXPECT_EQ(name(), "scan.pdf") << "a name that is kept is kept as it is";
}

TEST_F(RenamePlan, addsTheDay) {
    add("/scan.pdf", "Invoice March 2026", october);
    options.useDate = true;
    EXPECT_EQ(name(), "Invoice March 2026 — 2026-10-14.pdf");
    options.useText = false;
    EXPECT_EQ(name(), "2026-10-14.pdf");
    EXPECT_EQ(note(), std::nullopt);
}

TEST_F(RenamePlan, takesTheDayOfTheAdditionBeforeThatOfTheChange) {
    const Seconds day = 24 * hour;
    add("/a.pdf", "Invoice", october, october - day);
    add("/b.pdf", "Receipt", std::nullopt, october - day);
    add("/c.pdf", "Letter");
    options.useDate = true;
    EXPECT_EQ(names(),
              (Names{"Invoice — 2026-10-14.pdf", "Receipt — 2026-10-13.pdf", "Letter.pdf"}));
}

TEST_F(RenamePlan, takesTheDayInUtc) {
    add("/a.pdf", "Invoice", october + 14 * hour);
    add("/b.pdf", "Receipt", october + 15 * hour);
    options.useDate = true;
    EXPECT_EQ(names(), (Names{"Invoice — 2026-10-14.pdf", "Receipt — 2026-10-15.pdf"}));
}

TEST_F(RenamePlan, takesAnyDate) {
    for (const auto date : {distantPast, distantFuture, Date{Seconds{-1}}, Date{Seconds{1e300}}})
        add("/a.pdf", "Invoice", date);
    options.useDate = true;
    EXPECT_EQ(names(), (Names{"Invoice — 0000-01-01.pdf", "Invoice — 9999-12-31.pdf",
                              "Invoice — 1969-12-31.pdf", "Invoice — 9999-12-31 (2).pdf"}));
}

TEST_F(RenamePlan, saysThatThereIsNoTextWhereTheDayMakesTheName) {
    add("/scan.pdf", "12", october);
    add("/photo.png", std::nullopt, october);
    options.useDate = true;
    EXPECT_EQ(names(), (Names{"2026-10-14.pdf", "2026-10-14.png"}));
    EXPECT_EQ(plan()[0].note, "no text found");
    EXPECT_EQ(plan()[1].note, "no text found");
}

TEST_F(RenamePlan, keepsTheNameWithoutTextAndDay) {
    add("/scan.pdf");
    options.useDate = true;
    EXPECT_EQ(name(), "scan.pdf");
    EXPECT_EQ(note(), "no text found — name kept");
    options.useText = false;
    EXPECT_EQ(name(), "scan.pdf");
    EXPECT_EQ(note(), std::nullopt);
}

TEST_F(RenamePlan, putsDashes) {
    add("/scan.pdf", "Invoice March 2026", october);
    options.useDate = true;
    options.dashed = true;
    EXPECT_EQ(name(), "invoice-march-2026-2026-10-14.pdf");
}

TEST_F(RenamePlan, putsDashesBetweenLettersAndDigitsOnly) {
    add("/a.pdf", "The “Übergröße” — ½ Price!! (2nd)");
    add("/b.pdf", "Cafe\u0301 नमस्ते, Привет");
    add("/c.pdf", "Total 😀 due");
    options.dashed = true;
    EXPECT_EQ(names(), (Names{"the-übergröße-½-price-2nd.pdf", "cafe\u0301-नमस्ते-привет.pdf",
                              "total-due.pdf"}));
}

TEST_F(RenamePlan, leavesTheExtensionAsItIs) {
    add("/a.PDF", "Invoice");
    add("/b.tar.GZ", "Receipt");
    options.dashed = true;
    EXPECT_EQ(names(), (Names{"invoice.PDF", "receipt.GZ"}));
}

TEST_F(RenamePlan, leavesOutAnExtensionThatIsNotThere) {
    add("/scan", "Fernhill v1.2");
    add("/.profile", "Settings");
    add("/trailing.", "Letter");
    EXPECT_EQ(names(), (Names{"Fernhill v1.2", "Settings", "Letter"}));
}

TEST_F(RenamePlan, numbersEqualNames) {
    add("/a.pdf", "Invoice\nof May");
    add("/b.pdf", "Invoice\nof June");
    add("/c.pdf", "Invoice");
    const auto rows = plan();
    EXPECT_EQ(names(), (Names{"Invoice.pdf", "Invoice (2).pdf", "Invoice (3).pdf"}));
    EXPECT_EQ(rows[0].note, std::nullopt);
    EXPECT_EQ(rows[1].note, "same name");
    EXPECT_EQ(rows[2].note, "same name");
}

TEST_F(RenamePlan, comparesNamesWithoutTheirCase) {
    add("/a.pdf", "INVOICE");
    add("/b.pdf", "invoice");
    add("/c.PDF", "Invoice");
    add("/d.png", "Invoice");
    EXPECT_EQ(names(), (Names{"INVOICE.pdf", "invoice (2).pdf", "Invoice (3).PDF", "Invoice.png"}));
}

TEST_F(RenamePlan, numbersNamesWithoutAnExtension) {
    add("/a", "Fernhill v1.2");
    add("/b", "Fernhill v1.2");
    EXPECT_EQ(names(), (Names{"Fernhill v1.2", "Fernhill v1.2 (2)"}));
}

TEST_F(RenamePlan, passesNumbersThatOtherNamesHave) {
    add("/a.pdf", "Invoice (2)");
    add("/b.pdf", "Invoice");
    add("/c.pdf", "Invoice");
    add("/d.pdf", "Invoice (2)");
    EXPECT_EQ(names(),
              (Names{"Invoice (2).pdf", "Invoice.pdf", "Invoice (3).pdf", "Invoice (2) (2).pdf"}));
}

TEST_F(RenamePlan, saysThatThereIsNoTextRatherThanThatTheNameIsTheSame) {
    add("/a.png", std::nullopt, october);
    add("/b.png", std::nullopt, october);
    options.useDate = true;
    EXPECT_EQ(names(), (Names{"2026-10-14.png", "2026-10-14 (2).png"}));
    EXPECT_EQ(plan()[1].note, "no text found");
}

TEST_F(RenamePlan, leavesNamesThatAreKeptOutOfTheCount) {
    add("/Invoice.pdf");
    add("/b.pdf", "Invoice");
    add("/Invoice.pdf");
    EXPECT_EQ(names(), (Names{"Invoice.pdf", "Invoice.pdf", "Invoice.pdf"}));
    EXPECT_EQ(plan()[1].note, std::nullopt);
}

TEST_F(RenamePlan, countsANameThatTheFileHasAlready) {
    add("/Invoice.pdf", "Invoice");
    add("/b.pdf", "Invoice");
    EXPECT_EQ(names(), (Names{"Invoice.pdf", "Invoice (2).pdf"}));
    EXPECT_FALSE(plan()[0].renames());
}

TEST_F(RenamePlan, changesTheCaseAlone) {
    add("/INVOICE.pdf", "Invoice");
    EXPECT_EQ(name(), "Invoice.pdf");
    EXPECT_TRUE(plan().front().renames());
}

TEST_F(RenamePlan, beginsAnewEachTime) {
    add("/a.pdf", "Invoice");
    EXPECT_EQ(names(), names());
    FirstLines lines;
    const auto first = makePlan(files, texts, options, lines);
    EXPECT_EQ(makePlan(files, texts, options, lines), first);
}

}  // namespace
}  // namespace nookwise
