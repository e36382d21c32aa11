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

TEST_F(Questions, showThePieceOfTheTextThatTheAnswerShows) {
    const FileUrl scan("/home/user/Desktop/scan.png");
    EXPECT_EQ(store->snippet(scan, {"scan", "kite"}), "A blue KITE");
    EXPECT_EQ(store->snippet(scan, {"scan"}), std::nullopt) << "the name says so";
    EXPECT_EQ(store->snippet(scan, {"elsewhere"}), std::nullopt) << "it says so no longer";
    EXPECT_EQ(store->snippet(FileUrl("/home/user/gone.png"), {"kite"}), std::nullopt);
}

/// A download whose text and source were read.
class ReadDownload : public StoreFixture {
  protected:
    ReadDownload() {
        world.files.addFile(receipt, {.contents = "1", .allocated = 9'000, .modified = now});
        world.files.addFolder("/home/user/Downloads/papers");
        world.files.addFolder("/home/user/Documents/papers");
        world.reader.setOcr(receipt, "INVOICE 17");
        world.metadata.setWhereFrom(receipt, {"https://mail.google.com/mail/u/0"});
        store = launch();
        scan(*store);
        EXPECT_EQ(found("invoice"), Paths{receipt});
    }

    Paths found(std::string_view question) const {
        Paths result;
        for (const auto& answer : store->ask(QueryParser::parse(question, now), 10))
            result.emplace_back(answer.file.url.path());
        return result;
    }
    void expectFoundAt(const char* path) const {
        EXPECT_EQ(found("invoice"), Paths{path});
        EXPECT_EQ(found("invoice from gmail"), Paths{path});
        EXPECT_EQ(store->ask(QueryParser::parse("invoice", now), 10).at(0).snippet, "INVOICE 17");
        EXPECT_EQ(store->snippet(FileUrl(path), {"invoice"}), "INVOICE 17");
    }
    void move(const char* path, const char* folder) {
        store->transfer({FileUrl(path)}, FileUrl(folder), TransferKind::move);
        world.tasks.runEverything();
    }

    static constexpr const char* receipt = "/home/user/Downloads/papers/receipt.png";
    std::shared_ptr<AppStore> store;
};

TEST_F(ReadDownload, isFoundByItsTextAndSourceUnderItsNewName) {
    const auto file = store->ask(QueryParser::parse("invoice", now), 1).at(0).file;
    store->applyRenames({{.file = file, .newName = "Bill.png", .note = {}}});
    expectFoundAt("/home/user/Downloads/papers/Bill.png");
    EXPECT_TRUE(found("receipt").empty());
    EXPECT_EQ(found("bill"), Paths{"/home/user/Downloads/papers/Bill.png"});
}

TEST_F(ReadDownload, isFoundByItsTextAndSourceWhereItWasMoved) {
    move(receipt, "/home/user/Documents/papers");
    expectFoundAt("/home/user/Documents/papers/receipt.png");
    store->undoLast();
    world.tasks.runEverything();
    expectFoundAt(receipt);
}

TEST_F(ReadDownload, isFoundByItsTextAndSourceWhereItsFolderWasMoved) {
    world.files.addFolder("/home/user/Documents/all");
    move("/home/user/Downloads/papers", "/home/user/Documents/all");
    expectFoundAt("/home/user/Documents/all/papers/receipt.png");
}

TEST_F(ReadDownload, isNoLongerFoundByWhatItSaidBefore) {
    world.files.addFile(receipt,
                        {.contents = "22", .allocated = 9'001, .modified = now + Seconds{60}});
    world.reader.setOcr(receipt, "Blue kite");
    scan(*store);
    EXPECT_TRUE(found("invoice").empty());
    EXPECT_EQ(found("kite"), Paths{receipt});
    EXPECT_EQ(store->snippet(FileUrl(receipt), {"kite"}), "Blue kite");
    EXPECT_EQ(store->snippet(FileUrl(receipt), {"invoice"}), std::nullopt);
}

}  // namespace
}  // namespace nookwise
