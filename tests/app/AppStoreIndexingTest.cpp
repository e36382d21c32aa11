#include "tests/app/StoreFixture.h"

#include <optional>
#include <utility>

namespace nookwise {
namespace {

class StoreIndexing : public StoreFixture {
  protected:
    static constexpr std::string_view receipt = "/home/user/Downloads/receipt.png";
    static constexpr std::string_view letter = "/home/user/Documents/letter.pdf";
    static constexpr std::string_view indexFile =
        "/home/user/.local/share/Nookwise/text-index.json";

    void addReceipt() {
        world.files.addFile(receipt, {.size = 9'000, .modified = now});
        world.reader.setOcr(receipt, "INVOICE 17");
        world.metadata.setWhereFrom(receipt, {"https://mail.google.com/mail/u/0"});
    }
    void addLetter() {
        world.files.addFile(letter, {.size = 9'000, .modified = now});
        world.reader.setPdf(letter, "Dear Ann");
        world.metadata.setWhereFrom(letter, {"https://mail.google.com/mail/u/0"});
    }
    /// Plain files in Downloads, which are read for their source alone.
    void addDownloads(int count) {
        for (int i = 0; i < count; ++i)
            world.files.addFile("/home/user/Downloads/" + std::to_string(i), {.modified = now});
    }

    static constexpr std::string_view movedReceipt = "/home/user/Documents/receipt.png";
    /// As the user does, which may be at any time.
    void moveReceipt(AppStore& store) {
        world.reader.setOcr(movedReceipt, "INVOICE 17");
        store.activity.set({{.id = Uuid::random(),
                             .date = now,
                             .title = "Moved 1 file to Downloads",
                             .source = "Split view",
                             .moves = {{FileUrl(movedReceipt), FileUrl(receipt), 1}},
                             .restored = false,
                             .kind = ActivityEntry::Kind::move}});
        store.undoLast();
        ASSERT_TRUE(world.files.exists(FileUrl(movedReceipt)));
    }

    /// A scan taken in, with the indexing that it began still waiting.
    void scanOnly(AppStore& store) {
        store.scan(ScanKind::visible);
        ASSERT_TRUE(world.tasks.runBackgroundTask());
        world.tasks.runUiTasks();
    }
    /// The reading, after the applications and the known texts have been loaded.
    std::function<void()> takeReading() {
        while (world.tasks.waitingBackgroundTasks() > 0)
            EXPECT_TRUE(world.tasks.runBackgroundTask());
        world.tasks.runUiTasks();
        return world.tasks.takeBackgroundTask();
    }

    Subscription noteProgress(AppStore& store) {
        return store.indexing.observe([&] {
            const auto& progress = store.indexing.get();
            told.push_back(progress ? std::to_string(progress->done) + "/" +
                                          std::to_string(progress->total)
                                    : "ended");
        });
    }

    std::vector<std::string> told;

    static std::optional<std::string> at(const Observable<TextsByUrl>& texts,
                                         std::string_view path) {
        const auto found = texts.get().find(FileUrl(path));
        if (found == texts.get().end()) return std::nullopt;
        return std::string(found->second.view());
    }
};

TEST_F(StoreIndexing, bringsTheTextInsideTheScannedFiles) {
    addReceipt();
    addLetter();
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(at(store->texts, receipt), "INVOICE 17");
    EXPECT_EQ(at(store->lowerTexts, receipt), "invoice 17");
    EXPECT_EQ(at(store->sources, receipt), "Gmail");
    EXPECT_EQ(at(store->texts, letter), "Dear Ann");
    EXPECT_EQ(at(store->lowerTexts, letter), "dear ann");
    EXPECT_EQ(at(store->sources, letter), std::nullopt) << "only downloads have a source";
}

TEST_F(StoreIndexing, runsAtUtilityPriorityAfterEveryScan) {
    addReceipt();
    const auto store = launch();
    scanOnly(*store);
    EXPECT_EQ(store->phase.get(), Phase::ready) << "nobody waits for it";
    EXPECT_EQ(at(store->texts, receipt), std::nullopt);
    world.tasks.runEverything();
    EXPECT_EQ(world.tasks.detachedPriorities().back(), TaskPriority::utility);
    EXPECT_EQ(at(store->texts, receipt), "INVOICE 17");
}

TEST_F(StoreIndexing, tellsItsProgressAndThatItHasEnded) {
    addDownloads(50);
    const auto store = launch();
    const auto subscription = noteProgress(*store);
    scan(*store);
    EXPECT_EQ(told, (std::vector<std::string>{"24/50", "48/50", "50/50", "ended"}));
}

TEST_F(StoreIndexing, findsWhatAnEarlierRunReadBeforeItReadsAnything) {
    addReceipt();
    {
        const auto store = launch();
        scan(*store);
    }
    addLetter();
    const auto store = launch();
    std::optional<std::string> knownFirst;
    const auto subscription = store->texts.observe([&] {
        if (store->texts.get().size() == 1) knownFirst = at(store->texts, receipt);
    });
    scan(*store);
    EXPECT_EQ(knownFirst, "INVOICE 17");
    EXPECT_EQ(at(store->sources, receipt), "Gmail");
    EXPECT_EQ(at(store->texts, letter), "Dear Ann");
    EXPECT_EQ(world.reader.calls().size(), 2u) << "each file is read once";
}

TEST_F(StoreIndexing, takesInManyKnownTextsPieceByPiece) {
    addDownloads(4'500);
    {
        const auto store = launch();
        scan(*store);
        ASSERT_EQ(store->texts.get().size(), 4'500u);
    }
    const auto store = launch();
    std::vector<std::size_t> sizes;
    const auto subscription =
        store->texts.observe([&] { sizes.push_back(store->texts.get().size()); });
    scan(*store);
    EXPECT_EQ(sizes, (std::vector<std::size_t>{2'000, 4'000, 4'500}));
}

TEST_F(StoreIndexing, tellsNobodyOfTextsThatAreThereAlready) {
    addReceipt();
    const auto store = launch();
    scan(*store);
    int changes = 0;
    const auto texts = store->texts.observe([&] { ++changes; });
    const auto lower = store->lowerTexts.observe([&] { ++changes; });
    const auto sources = store->sources.observe([&] { ++changes; });
    scan(*store, ScanKind::quiet);
    EXPECT_EQ(changes, 0);
}

TEST_F(StoreIndexing, replacesTheTextOfAFileThatHasChanged) {
    addReceipt();
    const auto store = launch();
    scan(*store);
    world.files.setModified(receipt, now + Seconds{0.001});
    world.reader.setOcr(receipt, "Paid");
    scan(*store);
    EXPECT_EQ(at(store->texts, receipt), "Paid");
    EXPECT_EQ(at(store->lowerTexts, receipt), "paid");
}

TEST_F(StoreIndexing, isReplacedByThatOfTheNextScanWhichKeepsWhatWasRead) {
    addDownloads(60);
    const auto store = launch();
    const auto subscription = noteProgress(*store);
    scanOnly(*store);
    const auto first = takeReading();
    store->scan(ScanKind::quiet);
    const auto nextScan = world.tasks.takeBackgroundTask();
    // The next scan lands while the first run is about to complete its second batch.
    std::atomic<int> questions{0};
    world.metadata.onQuestion([&](const FileUrl&) {
        if (++questions != 46) return;
        nextScan();
        world.tasks.runUiTasks();
    });
    first();
    world.metadata.onQuestion({});
    world.tasks.runUiTasks();
    EXPECT_EQ(store->texts.get().size(), 48u);
    world.tasks.runEverything();
    EXPECT_EQ(store->texts.get().size(), 60u);
    EXPECT_EQ(told, (std::vector<std::string>{"24/60", "12/12", "ended"}))
        << "a run that was replaced has no more to say";
}

TEST_F(StoreIndexing, endsAtOnceWithTheStoreInTheMiddleOfAFile) {
    addReceipt();
    auto store = launch();
    scanOnly(*store);
    const auto work = takeReading();
    // The file is under way when the store ends; the reader looks for a stop after this.
    world.reader.onCall([&](const FakeTextReader::Call&) { store.reset(); });
    work();
    world.reader.onCall({});
    world.tasks.runEverything();
    const auto next = launch();
    scan(*next);
    EXPECT_EQ(at(next->texts, receipt), "INVOICE 17") << "it was not taken for a file without text";
    EXPECT_EQ(world.reader.calls().size(), 2u);
}

TEST_F(StoreIndexing, ofManyFilesEndsBeforeTheNextChunkWhenTheStoreDoes) {
    addDownloads(40);
    auto store = launch();
    scanOnly(*store);
    const auto work = takeReading();
    std::atomic<int> questions{0};
    world.metadata.onQuestion([&](const FileUrl&) {
        if (++questions == 8) store.reset();
    });
    work();
    EXPECT_LE(questions, 12) << "it goes on for at most one more chunk";
    world.tasks.runEverything();
    const auto next = launch();
    scan(*next);
    EXPECT_EQ(next->texts.get().size(), 40u);
}

TEST_F(StoreIndexing, isNotBegunByAScanThatWasReplaced) {
    addReceipt();
    const auto store = launch();
    store->scan(ScanKind::visible);
    ASSERT_TRUE(world.tasks.runBackgroundTask());
    const auto detached = world.tasks.detachedPriorities().size();
    store->scan(ScanKind::visible);
    world.tasks.runUiTasks();
    EXPECT_EQ(world.tasks.detachedPriorities().size(), detached + 1) << "the next scan alone";
}

TEST_F(StoreIndexing, thatWasReplacedWhileItsKnownTextsWaitHandsThemOnNoMore) {
    addReceipt();
    {
        const auto store = launch();
        scan(*store);
    }
    const auto store = launch();
    scanOnly(*store);
    store->scan(ScanKind::quiet);
    int changes = 0;
    const auto subscription = store->texts.observe([&] { ++changes; });
    world.tasks.runEverything();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(at(store->texts, receipt), "INVOICE 17");
}

TEST_F(StoreIndexing, tellsEveryStepOfItsProgressAlsoEqualOnes) {
    const auto store = launch();
    const auto subscription = noteProgress(*store);
    scan(*store);
    scan(*store);
    EXPECT_EQ(told, (std::vector<std::string>{"ended", "ended"})) << "there was nothing to read";
}

TEST_F(StoreIndexing, leavesFilesUnreadWhileReadingIsNotToBeHad) {
    addReceipt();
    world.reader.failAll(std::errc::no_such_file_or_directory);
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(at(store->texts, receipt), std::nullopt);
    EXPECT_FALSE(store->indexing.get().has_value());
    world.reader.failAll(std::nullopt);
    scan(*store);
    EXPECT_EQ(at(store->texts, receipt), "INVOICE 17");
}

TEST_F(StoreIndexing, isNotHinderedByAnIndexFileThatCannotBeWritten) {
    addReceipt();
    world.files.forbidChanges("/home/user/.local");
    const auto store = launch();
    scan(*store);
    EXPECT_EQ(at(store->texts, receipt), "INVOICE 17");
}

TEST_F(StoreIndexing, readsAFileThatWasMovedBeforeItsTurn) {
    addReceipt();
    const auto store = launch();
    scanOnly(*store);
    const auto reading = takeReading();
    moveReceipt(*store);
    reading();
    world.tasks.runEverything();
    EXPECT_EQ(at(store->texts, movedReceipt), "INVOICE 17");
    EXPECT_EQ(store->indexing.get().has_value(), false);
}

TEST_F(StoreIndexing, knowsAFileThatWasMovedWhileKnownTextsWereLoaded) {
    addReceipt();
    {
        const auto store = launch();
        scan(*store);
    }
    const auto store = launch();
    scanOnly(*store);
    moveReceipt(*store);
    world.tasks.runEverything();
    EXPECT_EQ(at(store->texts, movedReceipt), "INVOICE 17");
    EXPECT_EQ(world.reader.calls().size(), 1u) << "it is not read again";
}

TEST_F(StoreIndexing, isNotBegunAnewByAMoveOnceItHasEnded) {
    addReceipt();
    const auto store = launch();
    scan(*store);
    const auto subscription = noteProgress(*store);
    moveReceipt(*store);
    world.tasks.runEverything();
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(at(store->texts, movedReceipt), "INVOICE 17");
}

TEST_F(StoreIndexing, forgetsTheTextOfATrashedFileAndFindsItAgainWhenItIsPutBack) {
    addReceipt();
    const auto store = launch();
    scan(*store);
    store->requestTrash({store->files.get().front()}, std::nullopt, "Ask");
    store->confirm(*store->pendingTrash.get(), AppStore::NextTime::ask);
    EXPECT_EQ(at(store->texts, receipt), std::nullopt);
    store->undoLast();
    world.tasks.runEverything();
    EXPECT_EQ(at(store->texts, receipt), "INVOICE 17");
    EXPECT_EQ(world.reader.calls().size(), 1u);
}

}  // namespace
}  // namespace nookwise
