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

TEST_F(Questions, askedByWhoeverIsToldOfAChangeAreAnsweredFromWhatItIsNow) {
    std::vector<std::size_t> counts;
    const auto note = [&] { counts.push_back(ask("kite").size()); };
    const auto files = store->files.observe(note);
    const auto texts = store->lowerTexts.observe(note);
    const auto sources =
        store->sources.observe([&] { counts.push_back(ask("from gmail").size()); });
    store->files.set({sized("/home/user/Desktop/scan.png", 1)});
    store->lowerTexts.mutate([](TextsByUrl& known) { return known.clear(), true; });
    store->lowerTexts.set({{FileUrl("/home/user/Desktop/scan.png"), SharedBytes("kites")}});
    store->sources.set({{FileUrl("/home/user/Desktop/scan.png"), SharedBytes("Gmail")}});
    EXPECT_EQ(counts, (std::vector<std::size_t>{1, 0, 1, 1}));
}

TEST_F(Questions, findWhatWasReadInsideAFileUntilItIsTrashed) {
    world.files.addFile("/home/user/Downloads/receipt.png", {.size = 9'000, .modified = now});
    world.reader.setOcr("/home/user/Downloads/receipt.png", "INVOICE 17");
    scan(*store);
    ASSERT_EQ(ask("invoice").size(), 1U);
    EXPECT_EQ(ask("invoice")[0].snippet, "INVOICE 17");
    store->requestTrash({ask("invoice")[0].file}, std::nullopt, "Ask");
    ASSERT_TRUE(store->pendingTrash.get());
    store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    EXPECT_TRUE(ask("invoice").empty());
}

}  // namespace
}  // namespace nookwise
