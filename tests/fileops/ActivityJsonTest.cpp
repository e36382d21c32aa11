#include "fileops/ActivityJson.h"

#include <limits>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using Kind = ActivityEntry::Kind;

constexpr Date morning{Seconds{1'791'970'200}};  // 2026-10-14 09:30:00 UTC

ActivityEntry sample() {
    return {.id = *Uuid::fromText("5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F60"),
            .date = morning,
            .title = "Moved 1 file to Projects",
            .source = "Split view",
            .moves = {{FileUrl("/Users/someone/Downloads/Report 2.pdf"),
                       FileUrl("/Users/someone/Projects/Report 2.pdf"), 4'096}},
            .restored = false,
            .kind = Kind::move};
}

constexpr auto sampleText =
    R"([{"id":"5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F60","date":"2026-10-14T09:30:00Z",)"
    R"("title":"Moved 1 file to Projects","source":"Split view",)"
    R"("moves":[{"original":{"relative":"file:///Users/someone/Downloads/Report%202.pdf"},)"
    R"("inTrash":{"relative":"file:///Users/someone/Projects/Report%202.pdf"},"size":4096}],)"
    R"("restored":false,"kind":"move"}])";

std::string replaced(std::string text, std::string_view what, std::string_view with) {
    const auto position = text.find(what);
    EXPECT_NE(position, std::string::npos) << what;
    return text.replace(position, what.size(), with);
}

TEST(ActivityText, hasEveryKeyInItsPlace) {
    EXPECT_EQ(activityJson(std::vector{sample()}), sampleText);
}

TEST(ActivityText, isReadBackUnchanged) {
    EXPECT_EQ(activityFromJson(sampleText), std::vector{sample()});
    EXPECT_EQ(activityFromJson("[]"), std::vector<ActivityEntry>{});
    EXPECT_EQ(activityJson({}), "[]");
}

TEST(ActivityText, leavesOutTheKindOfAnEntryThatHasNone) {
    auto entry = sample();
    entry.kind = std::nullopt;
    const auto text = activityJson(std::vector{entry});
    EXPECT_EQ(text.find("kind"), std::string::npos);
    EXPECT_EQ(activityFromJson(text), std::vector{entry});
}

TEST(ActivityText, takesANullKindForNone) {
    const auto entries = activityFromJson(replaced(sampleText, R"("move"})", "null}"));
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->front().kind, std::nullopt);
}

TEST(ActivityText, keepsAnEntryWithoutMoves) {
    auto entry = sample();
    entry.moves.clear();
    EXPECT_EQ(activityFromJson(activityJson(std::vector{entry})), std::vector{entry});
}

TEST(ActivityText, keepsWholeSecondsOnly) {
    auto entry = sample();
    entry.date += Seconds{0.7};
    EXPECT_EQ(activityFromJson(activityJson(std::vector{entry}))->front().date, morning);
}

TEST(ActivityText, keepsNamesOfAnyBytes) {
    auto entry = sample();
    entry.moves = {{FileUrl("/home/\xff\xfe 100% \"q\"\n.txt"), FileUrl("/home/ä \\ /b"), 1}};
    const auto text = activityJson(std::vector{entry});
    EXPECT_NE(text.find(R"(file:///home/%FF%FE%20100%25%20%22q%22%0A.txt)"), std::string::npos)
        << text;
    EXPECT_EQ(activityFromJson(text), std::vector{entry});
}

TEST(ActivityText, marksWhatIsNotTextInATitle) {
    auto entry = sample();
    entry.title = "Moved 1 file to \xff";
    EXPECT_EQ(activityFromJson(activityJson(std::vector{entry}))->front().title,
              "Moved 1 file to \uFFFD");
}

TEST(ActivityText, keepsTheLargestAndSmallestSizes) {
    auto entry = sample();
    for (const auto size :
         {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
        entry.moves.front().size = size;
        EXPECT_EQ(activityFromJson(activityJson(std::vector{entry}))->front().moves.front().size,
                  size);
    }
}

TEST(ActivityText, mayHoldKeysOfLaterVersions) {
    EXPECT_EQ(
        activityFromJson(replaced(sampleText, R"("restored")", R"("new":{"a":[1]},"restored")")),
        std::vector{sample()});
}

struct Spoiling {
    const char* what;
    const char* with;
};

class SpoiltActivityText : public testing::TestWithParam<Spoiling> {};

TEST_P(SpoiltActivityText, isNotReadAtAll) {
    const auto second = replaced(sampleText, GetParam().what, GetParam().with);
    EXPECT_FALSE(activityFromJson(second));
    // Nor are the good entries before it.
    auto both = std::string(sampleText);
    both.back() = ',';
    EXPECT_FALSE(activityFromJson(both + second.substr(1)));
}

INSTANTIATE_TEST_SUITE_P(
    Members, SpoiltActivityText,
    testing::Values(
        Spoiling{R"("id":"5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F60",)", ""},
        Spoiling{"5F1B9A52-6C0E", "5F1B9A52-6C0"},
        Spoiling{R"("5F1B9A52-6C0E-4C9B-9D5C-2B1D7A3E4F60")", "7"},
        Spoiling{R"("date":"2026-10-14T09:30:00Z",)", ""}, Spoiling{"T09:30:00Z", ""},
        Spoiling{R"("2026-10-14T09:30:00Z")", "1791970200"},
        Spoiling{R"("title":"Moved 1 file to Projects",)", ""},
        Spoiling{R"("Moved 1 file to Projects")", "null"}, Spoiling{"Moved 1 file", R"(\uDE00)"},
        Spoiling{"Split view", R"(\uD83D)"}, Spoiling{"Downloads/Report%202", R"(\uDE00)"},
        Spoiling{"Downloads/Report%202", R"(Report\u0000)"},
        Spoiling{R"("source":"Split view",)", ""}, Spoiling{R"("Split view")", "[]"},
        Spoiling{R"("moves":[)", R"("moved":[)"}, Spoiling{R"("moves":[{)", R"("moves":[7,{)"},
        Spoiling{R"("restored":false,)", ""}, Spoiling{"false", "0"}, Spoiling{"false", "null"},
        Spoiling{R"("move"})", R"("shred"})"}, Spoiling{R"("move"})", "3}"},
        Spoiling{R"("original":)", R"("from":)"}, Spoiling{R"("inTrash":)", R"("to":)"},
        Spoiling{R"({"relative":"file:///Users/someone/Downloads/Report%202.pdf"})",
                 R"("file:///Users/someone/Downloads/Report%202.pdf")"},
        Spoiling{"file:///Users/someone/Downloads", "https://example.org/Downloads"},
        Spoiling{R"(,"size":4096)", ""}, Spoiling{"4096", "4096.5"}, Spoiling{"4096", R"("4096")"},
        Spoiling{"4096", "9223372036854775808"}));

TEST(ActivityText, isNotReadFromOtherShapes) {
    for (const auto* text :
         {"", " ", "{}", "null", "[1]", "[[]]", "[", "[]]", "7", "\"[]\"", "[\"\xff\"]"})
        EXPECT_FALSE(activityFromJson(text)) << text;
}

TEST(ActivityText, tornAtAnyByteIsNotRead) {
    const std::string_view text = sampleText;
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_FALSE(activityFromJson(text.substr(0, length))) << length;
}

TEST(ActivityText, ofNothingButBracketsDoesNotEndTheProgram) {
    EXPECT_FALSE(activityFromJson(std::string(3'000'000, '[')));
}

}  // namespace
}  // namespace nookwise
