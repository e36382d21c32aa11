#include "tests/ui/AskFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTextDocument>

namespace nookwise {
namespace {

class Answer : public AskFixture {
  protected:
    static constexpr const char* path = "/home/user/Downloads/invoice.pdf";

    void SetUp() override { setFiles({found(path, 18)}); }

    void findText(std::string_view contents) {
        setText(path, contents);
        ask("invoice");
    }

    AnswerModel& shownFile() { return *model.selectedFile(); }
};

TEST_F(Answer, tellsNamePlaceSizeAndAge) {
    ask("invoice");
    EXPECT_EQ(shownFile().name(), QStringLiteral("invoice.pdf"));
    EXPECT_EQ(shownFile().place(), QStringLiteral("~/Downloads"));
    EXPECT_EQ(shownFile().figures(), QStringLiteral("1 MB · 2 wk. ago"));
    EXPECT_EQ(shownFile().kindGroup(), QStringLiteral("pdf"));
    EXPECT_EQ(shownFile().kindLabel(), QStringLiteral("PDF"));
    EXPECT_FALSE(shownFile().picture().isEmpty());
}

TEST_F(Answer, hasNothingToTellWithoutAnswers) {
    ask("nothing like it");
    EXPECT_EQ(shownFile().name(), QString());
    EXPECT_EQ(shownFile().place(), QString());
    EXPECT_EQ(shownFile().figures(), QString());
    EXPECT_FALSE(shownFile().hasText());
    shownFile().open();
    shownFile().showInFolder();
    EXPECT_TRUE(fake.workspace.opened.empty());
    EXPECT_TRUE(fake.workspace.revealed.empty());
}

TEST_F(Answer, hasTextOnlyWhereThereIsSomethingToRead) {
    ask("invoice");
    EXPECT_FALSE(shownFile().hasText());
    for (const char* blank : {"", " \n\f\t "}) {
        findText(blank);
        EXPECT_FALSE(shownFile().hasText());
    }
    findText("14 beds");
    landed();
    EXPECT_TRUE(shownFile().hasText());
    EXPECT_EQ(shownFile().text(), QStringLiteral("<div class=\"marked\">14 beds</div>"));
    EXPECT_EQ(shownFile().firstMatch(), -1);
}

TEST_F(Answer, marksTheWordsInItsText) {
    findText("Our\ninvoice, your Invoice");
    landed();
    EXPECT_EQ(shownFile().text(),
              QStringLiteral("<div class=\"marked\">Our</div><div class=\"marked\"><span "
                             "class=\"mark\">invoice</span>, your "
                             "<span class=\"mark\">Invoice</span></div>"));
    EXPECT_EQ(shownFile().firstMatch(), 4);
}

TEST_F(Answer, keepsTheLinesOfItsText) {
    findText("\n \nOur invoice\n\n\nof the <i>invoice\n");
    landed();
    QTextDocument document;
    document.setHtml("<style>.marked { white-space: pre-wrap }</style>" + shownFile().text());
    EXPECT_EQ(document.toPlainText(), QStringLiteral("Our invoice\n\n\nof the <i>invoice\n"));
    EXPECT_EQ(shownFile().firstMatch(), 4);
}

TEST_F(Answer, followsTheTextThatIsReadLater) {
    ask("invoice");
    QSignalSpy changed(&shownFile(), &AnswerModel::textChanged);
    setText(path, "14 beds");
    landed();
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(shownFile().hasText());
    setText("/another", "text");
    landed();
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(Answer, showsTheBeginningOfALongTextAndSaysSo) {
    findText(std::string(30'000, 'x'));
    EXPECT_EQ(shownFile().cutText(), QString());
    const std::string longText = std::string(30'000, 'x') + "yz";
    setText(path, longText);
    landed();
    EXPECT_EQ(shownFile().text().count(u'x'), 30'000);
    EXPECT_EQ(
        shownFile().cutText(),
        QStringLiteral("The first 30,000 characters are shown. Copying takes the whole text."));
    shownFile().copyText();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromStdString(longText));
}

TEST_F(Answer, copiesItsTextAsItStands) {
    QGuiApplication::clipboard()->setText("before");
    ask("invoice");
    shownFile().copyText();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    findText("<b>14 beds</b>\nand  more");
    landed();
    shownFile().copyText();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("<b>14 beds</b>\nand  more"));
}

TEST_F(Answer, isOpenedAndShownInItsFolder) {
    ask("invoice");
    shownFile().open();
    EXPECT_EQ(fake.workspace.opened, std::vector{FileUrl(path)});
    shownFile().showInFolder();
    const std::vector<std::vector<FileUrl>> once{{FileUrl(path)}};
    EXPECT_EQ(fake.workspace.revealed, once);
}

}  // namespace
}  // namespace nookwise
