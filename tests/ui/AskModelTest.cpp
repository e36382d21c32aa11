#include "tests/ui/AskFixture.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QSignalSpy>

namespace nookwise {
namespace {

using namespace std::chrono_literals;

class Asking : public AskFixture {
  protected:
    void SetUp() override {
        setFiles({found("/home/user/Downloads/Fernhill/Invoice 2201.pdf", 15),
                  found("/home/user/Downloads/scan-0091.pdf", 18),
                  found("/home/user/Documents/harbour.mov", 3, 700 * megabyte),
                  found("/home/user/Desktop/notes.txt", 40)});
        setText("/home/user/Downloads/scan-0091.pdf",
                "Fernhill Garden Trust. Please find our INVOICE for the autumn planting.");
        setSource("/home/user/Downloads/scan-0091.pdf", "Gmail");
        landed();
    }

    QAbstractItemModelTester tester_{model.rows(),
                                     QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(Asking, nothingFindsNothing) {
    for (const char* question : {"", "   ", "\t"}) {
        ask(question);
        EXPECT_TRUE(model.blank()) << question;
        EXPECT_FALSE(model.found());
        EXPECT_EQ(model.selectedRow(), -1);
        EXPECT_EQ(selectedName(), QString());
    }
}

TEST_F(Asking, isAnsweredWithEveryLetter) {
    ask("i");
    EXPECT_FALSE(model.blank());
    ask("inv");
    EXPECT_EQ(names(), QStringList({"Invoice 2201.pdf", "scan-0091.pdf"}));
    EXPECT_EQ(text(model.rows(), 0, "place"), QStringLiteral("~/Downloads/Fernhill"));
    EXPECT_EQ(text(model.rows(), 0, "snippet"), QString());
    EXPECT_EQ(text(model.rows(), 0, "size"), QStringLiteral("1 MB"));
    EXPECT_EQ(text(model.rows(), 0, "age"), QStringLiteral("2 wk. ago"));
    EXPECT_EQ(text(model.rows(), 0, "kindLabel"), QStringLiteral("PDF"));
    EXPECT_EQ(text(model.rows(), 0, "spoken"), QStringLiteral("Downloads, Fernhill"));
    EXPECT_TRUE(text(model.rows(), 1, "snippet").contains("<span class=\"mark\">INV</span>OICE"));
    EXPECT_TRUE(text(model.rows(), 1, "spoken").contains("find our INVOICE for"));
    EXPECT_EQ(store->searchText.get(), "inv");
}

TEST_F(Asking, saysHowManyWereFound) {
    ask("invoice");
    EXPECT_EQ(model.countText(),
              QStringLiteral("2 results · names and text inside files and images"));
    ask("harbour");
    EXPECT_EQ(model.countText(),
              QStringLiteral("1 result · names and text inside files and images"));
}

TEST_F(Asking, saysThatOnlyTheNewestAreShown) {
    std::vector<FileItem> files;
    for (int number = 0; number < 1'000; ++number)
        files.push_back(found("/home/user/Downloads/bill " + std::to_string(number), number));
    setFiles({files.begin(), files.begin() + 500});
    ask("bill");
    EXPECT_EQ(model.countText(),
              QStringLiteral("500 results · names and text inside files and images"));
    setFiles(files);
    EXPECT_EQ(model.rows()->rowCount(), 500);
    EXPECT_EQ(model.countText(),
              QStringLiteral("The newest 500 results · names and text inside files and images"));
    EXPECT_EQ(names().constLast(), QStringLiteral("bill 499"));
}

TEST_F(Asking, namesTheWords) {
    ask("pdfs invoice Fernhill");
    EXPECT_EQ(model.wordsText(), QStringLiteral("“invoice fernhill” in name or text"));
    ask("pdfs");
    EXPECT_EQ(model.wordsText(), QString());
    ask(std::string(100, 'x').c_str());
    EXPECT_EQ(model.wordsText(), u'“' + QString(80, u'x') + QStringLiteral("…” in name or text"));
    ask("a\u202Eb");
    EXPECT_EQ(model.wordsText(), QStringLiteral("“a\uFFFDb” in name or text"));
}

TEST_F(Asking, listsTheFiltersAsTheyWereUnderstood) {
    ask("big pdfs from gmail yesterday");
    EXPECT_EQ(texts(model.filters(), "heading"), QStringList({"Size", "Kind", "From", "When"}));
    EXPECT_EQ(texts(model.filters(), "label"),
              QStringList({"> 100 MB", "PDF", "Gmail", "Yesterday"}));
    for (const auto& glyph : texts(model.filters(), "glyph"))
        EXPECT_TRUE(QFile::exists(":/Nookwise/assets/icons/" + glyph + ".svg"))
            << glyph.toStdString();
    EXPECT_TRUE(model.filtered());
    EXPECT_EQ(model.spokenFilters(),
              QStringLiteral("Size > 100 MB, Kind PDF, From Gmail, When Yesterday"));
    EXPECT_EQ(model.moreFilters(), QString());
    EXPECT_FALSE(model.found());
    ask("screenshots under 1 mb");
    EXPECT_EQ(texts(model.filters(), "heading"), QStringList({"Kind", "Size"}));
    ask("invoice");
    EXPECT_FALSE(model.filtered());
}

TEST_F(Asking, listsNoMoreFiltersThanCanBeLookedOver) {
    QString question;
    for (int i = 0; i < 1'500; ++i) question += QStringLiteral("big ");
    model.setQuestion(question);
    EXPECT_EQ(model.filters()->rowCount(), 12);
    EXPECT_EQ(model.moreFilters(), QStringLiteral("and 1,488 more"));
}

TEST_F(Asking, leavesAFilterOut) {
    ask("big pdfs from gmail");
    EXPECT_FALSE(model.found());
    model.removeFilter(0);
    EXPECT_EQ(model.question().trimmed(), QStringLiteral("pdfs from gmail"));
    EXPECT_EQ(names(), QStringList({"scan-0091.pdf"}));
    model.removeFilter(1);
    EXPECT_EQ(names(), QStringList({"Invoice 2201.pdf", "scan-0091.pdf"}));
    const QString question = model.question();
    model.removeFilter(-1);
    model.removeFilter(1);
    EXPECT_EQ(model.question(), question);
}

TEST_F(Asking, looksAtTheFirstAnswerByItself) {
    ask("invoice");
    EXPECT_EQ(model.selectedRow(), 0);
    EXPECT_EQ(selectedName(), QStringLiteral("Invoice 2201.pdf"));
    model.select(1);
    EXPECT_EQ(selectedName(), QStringLiteral("scan-0091.pdf"));
    ask("invoic");
    EXPECT_EQ(model.selectedRow(), 0);
}

TEST_F(Asking, selectsNoFurtherThanTheAnswersGo) {
    ask("invoice");
    model.select(7);
    EXPECT_EQ(model.selectedRow(), 1);
    model.select(-3);
    EXPECT_EQ(model.selectedRow(), 0);
    ask("nothing like it");
    model.select(0);
    EXPECT_EQ(model.selectedRow(), -1);
}

TEST_F(Asking, staysWithTheFileWhenMoreIsFound) {
    ask("invoice");
    model.select(1);
    setFiles({found("/home/user/Downloads/invoice new.pdf", 1),
              found("/home/user/Downloads/scan-0091.pdf", 18),
              found("/home/user/Downloads/invoice old.pdf", 90)});
    EXPECT_EQ(names(), QStringList({"invoice new.pdf", "scan-0091.pdf", "invoice old.pdf"}));
    EXPECT_EQ(selectedName(), QStringLiteral("scan-0091.pdf"));
    EXPECT_EQ(model.selectedRow(), 1);
}

TEST_F(Asking, staysWithTheFirstAnswerUntilTheUserChoosesOne) {
    setFiles({found("/a/invoice 2", 2)});
    ask("invoice");
    setFiles({found("/a/invoice 1", 1), found("/a/invoice 2", 2)});
    EXPECT_EQ(selectedName(), QStringLiteral("invoice 1"));
    model.select(0);
    setFiles({found("/a/invoice 0", 0), found("/a/invoice 1", 1)});
    EXPECT_EQ(selectedName(), QStringLiteral("invoice 1"));
    EXPECT_EQ(model.selectedRow(), 1);
    ask("invoic");
    EXPECT_EQ(model.selectedRow(), 0);
    setFiles({found("/a/invoice new", 0), found("/a/invoice 1", 1)});
    EXPECT_EQ(selectedName(), QStringLiteral("invoice new"));
}

TEST_F(Asking, tellsWhereRowsWent) {
    setFiles({found("/a/invoice 1", 1), found("/a/invoice 2", 2), found("/a/invoice 3", 3)});
    ask("invoice");
    setFiles({found("/a/invoice 0", 0), found("/a/invoice 1", 1), found("/a/invoice 3", 3)});
    EXPECT_EQ(model.rowAfterReplacement(0), 1);
    EXPECT_EQ(model.rowAfterReplacement(1), 2) << "the next that stayed";
    EXPECT_EQ(model.rowAfterReplacement(9), 2) << "the last that stayed";
    EXPECT_EQ(model.rowAfterReplacement(-1), 1);
    setFiles({found("/a/invoice 4", 4)});
    EXPECT_EQ(model.rowAfterReplacement(0), -1);
}

TEST_F(Asking, tellsTheSameAgeInTheRowAndBesideIt) {
    setFiles({found("/a/invoice 1", 0), found("/a/invoice 2", 0)});
    ask("invoice");
    fake.clock.set(fake.clock.now() + 5min);
    model.select(1);
    EXPECT_TRUE(model.selectedFile()->figures().endsWith(text(model.rows(), 1, "age")));
    fake.tasks.advance(1min);
    EXPECT_EQ(text(model.rows(), 1, "age"), QStringLiteral("5 min. ago"));
    EXPECT_TRUE(model.selectedFile()->figures().endsWith(text(model.rows(), 1, "age")));
}

TEST_F(Asking, goesOnToTheNextWhenTheFileGoes) {
    setFiles({found("/a/invoice 1", 1), found("/a/invoice 2", 2), found("/a/invoice 3", 3)});
    ask("invoice");
    model.select(1);
    setFiles({found("/a/invoice 1", 1), found("/a/invoice 3", 3)});
    EXPECT_EQ(selectedName(), QStringLiteral("invoice 3"));
    setFiles({found("/a/invoice 1", 1)});
    EXPECT_EQ(selectedName(), QStringLiteral("invoice 1"));
    setFiles({});
    EXPECT_FALSE(model.found());
    EXPECT_EQ(model.selectedRow(), -1);
}

TEST_F(Asking, findsTextsAsTheyAreReadButNotAtEveryOne) {
    ask("kiln");
    EXPECT_FALSE(model.found());
    QSignalSpy answered(&model, &AskModel::answered);
    setText("/home/user/Desktop/notes.txt", "the kiln is cold");
    setSource("/home/user/Desktop/notes.txt", "Slack");
    EXPECT_EQ(answered.size(), 0);
    landed();
    EXPECT_EQ(answered.size(), 1);
    EXPECT_EQ(names(), QStringList({"notes.txt"}));
    landed();
    EXPECT_EQ(answered.size(), 1);
}

TEST_F(Asking, looksAgainForTextsFourTimesASecondAtMost) {
    ask("kiln");
    QSignalSpy answered(&model, &AskModel::answered);
    for (int batch = 0; batch < 20; ++batch) {
        setText("/home/user/Desktop/notes.txt", "kiln " + std::to_string(batch));
        fake.tasks.advance(50ms);
    }
    EXPECT_EQ(answered.size(), 4);
}

TEST_F(Asking, showsThePieceOfATextAsItIsNow) {
    ask("invoice");
    const auto snippet = [&] { return text(model.rows(), 1, "snippet"); };
    EXPECT_TRUE(snippet().contains(QStringLiteral("Please find our")));
    setText("/home/user/Downloads/scan-0091.pdf", "Another invoice");
    landed();
    EXPECT_TRUE(snippet().startsWith(QStringLiteral("Another"))) << snippet().toStdString();
    setText("/home/user/Downloads/scan-0091.pdf", "nothing of the kind");
    EXPECT_EQ(model.rows()->rowCount(), 2);
    landed();
    EXPECT_EQ(model.rows()->rowCount(), 1);
}

TEST_F(Asking, waitsToBeShownBeforeItLooksAgain) {
    ask("kiln");
    store->section.set(AppSection::home);
    QSignalSpy answered(&model, &AskModel::answered);
    setText("/home/user/Desktop/notes.txt", "the kiln is cold");
    landed();
    EXPECT_EQ(answered.size(), 0);
    store->section.set(AppSection::search);
    EXPECT_EQ(names(), QStringList({"notes.txt"}));
}

TEST_F(Asking, hasAnswersAtOnceWhenAScanIsDone) {
    ask("kiln");
    store->files.set({found("/home/user/kiln.pdf", 1)});
    EXPECT_FALSE(model.found());
    store->phase.set(AppStore::Phase::ready);
    EXPECT_TRUE(model.found());
}

TEST_F(Asking, keepsAgesAndDaysTrue) {
    setFiles({found("/home/user/invoice.pdf", 0)});
    ask("invoice today");
    EXPECT_EQ(names(), QStringList({"invoice.pdf"}));
    fake.clock.set(fake.clock.now() + 5min);
    fake.tasks.advance(1min);
    EXPECT_EQ(text(model.rows(), 0, "age"), QStringLiteral("5 min. ago"));
    fake.clock.set(fake.clock.now() + 48h);
    fake.tasks.advance(1min);
    EXPECT_FALSE(model.found());
}

TEST_F(Asking, isBegunFromAnotherScreen) {
    store->section.set(AppSection::home);
    QSignalSpy asked(&model, &AskModel::questionChanged);
    model.askFor("invoice");
    EXPECT_EQ(store->section.get(), AppSection::search);
    EXPECT_EQ(model.question(), QStringLiteral("invoice"));
    EXPECT_EQ(asked.size(), 1);
    EXPECT_TRUE(model.found());
}

TEST_F(Asking, marksTheWordsInNames) {
    ask("invoice <b>");
    EXPECT_EQ(model.marked("An Invoice <b> & more", model.words()),
              QStringLiteral("An <span class=\"mark\">Invoice</span> "
                             "<span class=\"mark\">&lt;b&gt;</span> &amp; more"));
}

TEST_F(Asking, showsMoreAnswersEachTimeTheirEndIsLookedAt) {
    std::vector<FileItem> files;
    for (int i = 0; i < 2'100; ++i) files.push_back(found("/a/invoice " + std::to_string(i), i));
    setFiles(std::move(files));
    ask("invoice");
    EXPECT_EQ(model.rows()->rowCount(), 500);
    EXPECT_TRUE(model.countText().startsWith(QStringLiteral("The newest 500 results ·")));
    model.select(499);
    QSignalSpy answered(&model, &AskModel::answered);
    model.showMore();
    model.showMore();
    EXPECT_EQ(answered.size(), 0) << "from inside the list's own layout";
    fake.tasks.advance(0ms);
    EXPECT_EQ(model.rows()->rowCount(), 2'000);
    EXPECT_TRUE(model.countText().startsWith(QStringLiteral("The newest 2,000 results ·")));
    EXPECT_EQ(model.selectedRow(), 499);
    EXPECT_EQ(selectedName(), QStringLiteral("invoice 499"));
    model.showMore();
    fake.tasks.advance(0ms);
    EXPECT_EQ(model.rows()->rowCount(), 2'100);
    EXPECT_TRUE(model.countText().startsWith(QStringLiteral("2,100 results ·")));
    model.showMore();
    fake.tasks.advance(0ms);
    EXPECT_EQ(answered.size(), 2);
}

TEST_F(Asking, keepsAsManyAnswersAsWereShownUntilTheQuestionChanges) {
    std::vector<FileItem> files;
    for (int i = 0; i < 600; ++i) files.push_back(found("/a/invoice " + std::to_string(i), i));
    setFiles(files);
    ask("invoice");
    model.showMore();
    fake.tasks.advance(0ms);
    files.push_back(found("/a/invoice new", 0));
    setFiles(files);
    EXPECT_EQ(model.rows()->rowCount(), 601);
    ask("invoic");
    EXPECT_EQ(model.rows()->rowCount(), 500);
}

TEST_F(Asking, growsNoAnswersToAQuestionThatIsNoLongerAsked) {
    std::vector<FileItem> files;
    for (int i = 0; i < 600; ++i) files.push_back(found("/a/invoice " + std::to_string(i), i));
    setFiles(std::move(files));
    ask("invoice");
    model.showMore();
    ask("invoic");
    landed();
    EXPECT_EQ(model.rows()->rowCount(), 500);
}

TEST_F(Asking, offersWhatCanBeDoneWithTheSelectedFile) {
    setFiles({found("/a/invoice 1", 1), found("/a/invoice 2.pdf", 2)});
    EXPECT_FALSE(model.menu()->any());
    ask("invoice");
    EXPECT_FALSE(model.menu()->canRename());
    model.select(1);
    ASSERT_EQ(model.menu()->files().size(), 1U);
    EXPECT_EQ(model.menu()->files().front().url, FileUrl("/a/invoice 2.pdf"));
    EXPECT_TRUE(model.menu()->canRename());
    ask("nothing like it");
    EXPECT_FALSE(model.menu()->any());
}

TEST_F(Asking, looksOnlyOnceWhenBegunFromAnotherScreen) {
    store->section.set(AppSection::home);
    QSignalSpy answered(&model, &AskModel::answered);
    model.askFor("invoice");
    EXPECT_EQ(answered.size(), 1);
    store->section.set(AppSection::home);
    store->section.set(AppSection::search);
    EXPECT_EQ(answered.size(), 1) << "nothing has changed";
}

TEST_F(Asking, takesAnyQuestion) {
    for (const auto& question :
         {QString(1'000'000, u'x'), QString(100'000, u','),
          QStringLiteral("over 99999999999999999999 gb"), QString(QChar(u'\0')),
          QStringLiteral("“\u202E"), QString(QChar(0xD800))}) {
        model.setQuestion(question);
        EXPECT_FALSE(model.found());
    }
}

TEST_F(Asking, stopsKeepingTrueWhenItGoes) {
    const auto before = fake.tasks.pendingDelays();
    { const AskModel other(*store, fake.platform()); }
    EXPECT_EQ(fake.tasks.pendingDelays(), before);
}

}  // namespace
}  // namespace nookwise
