#include "search/QueryParser.h"
#include "tests/app/StoreFixture.h"

namespace nookwise {
namespace {

class Questions : public StoreFixture {
  protected:
    Questions() {
        store->files.set({sized("/home/user/Downloads/kite.pdf", 200 * megabyte),
                          sized("/home/user/Desktop/scan.png", 1)});
        const FileUrl scan("/home/user/Desktop/scan.png");
        store->texts.set({{scan, SharedBytes("A blue KITE")}});
        store->lowerTexts.set({{scan, SharedBytes("a blue kite")}});
        store->sources.set({{FileUrl("/home/user/Downloads/kite.pdf"), SharedBytes("Gmail")}});
    }

    std::vector<AskResult> ask(std::string_view question, std::size_t limit = 10) const {
        return store->ask(QueryParser::parse(question, now), limit);
    }

    std::shared_ptr<AppStore> store = launch();
};

TEST_F(Questions, areAnsweredFromTheFilesAndTheirTexts) {
    const auto results = ask("kite");
    ASSERT_EQ(results.size(), 2U);
    EXPECT_EQ(results[0].file, store->files.get()[0]);
    EXPECT_EQ(results[0].snippet, std::nullopt);
    EXPECT_EQ(results[1].file, store->files.get()[1]);
    EXPECT_EQ(results[1].snippet, "A blue KITE");
}

TEST_F(Questions, areAnsweredFromWhereFilesCameFromAndTheirSizes) {
    ASSERT_EQ(ask("big pdfs from gmail").size(), 1U);
    EXPECT_TRUE(ask("images from gmail").empty());
}

TEST_F(Questions, haveAtMostAsManyAnswersAsAreAskedFor) {
    EXPECT_EQ(ask("kite", 1).size(), 1U);
    EXPECT_TRUE(ask("").empty());
}

TEST_F(Questions, changeNothing) {
    int told = 0;
    const auto files = store->files.observe([&] { ++told; });
    const auto texts = store->texts.observe([&] { ++told; });
    ask("kite");
    EXPECT_EQ(told, 0);
}

TEST_F(Questions, findAFileThatAScanFound) {
    addForgotten();
    scan(*store);
    EXPECT_EQ(ask("forgotten").size(), 1U);
}

}  // namespace
}  // namespace nookwise
