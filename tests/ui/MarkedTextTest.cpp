#include "tests/ui/StoreFixture.h"
#include "ui/ask/MarkedText.h"

#include <QTextDocument>

namespace nookwise {
namespace {

using Words = std::vector<std::string>;

QString markup(std::string_view text, const Words& words = {}) {
    return markedText(text, words).markup;
}

QString asRead(const QString& markup) {
    QTextDocument document;
    document.setHtml("<div style=\"white-space: pre-wrap\">" + markup + "</div>");
    return document.toPlainText();
}

TEST(MarkedTexts, markEveryMatchAsItIsWritten) {
    EXPECT_EQ(markup("Wifi name, the WIFI", {"wifi"}),
              QStringLiteral("<span class=\"mark\">Wifi</span> name, the "
                             "<span class=\"mark\">WIFI</span>"));
    EXPECT_EQ(markup("name", {"wifi"}), QStringLiteral("name"));
    EXPECT_EQ(markup("", {"wifi"}), QString());
}

TEST(MarkedTexts, areNeverReadAsMarkup) {
    const std::string hostile =
        "<img src=\"file:///etc/passwd\"> &lt; </div><a href='x'>y</a> <!-- </style> \"'&";
    for (const Words& words : {Words{}, Words{"img"}, Words{"<"}, Words{"&"}, Words{"lt;"}}) {
        EXPECT_EQ(asRead(markup(hostile, words)), QString::fromStdString(hostile));
        EXPECT_FALSE(markup(hostile, words).contains("<img"));
    }
}

TEST(MarkedTexts, keepBlanksAndLines) {
    const QString text = QStringLiteral("a  b\n\n  c\td");
    EXPECT_EQ(asRead(markup(text.toStdString(), {"b"})), text);
}

TEST(MarkedTexts, readControlCharactersAsBlanks) {
    using namespace std::string_literals;
    EXPECT_EQ(markup("a\0b\x1b\rc\u202Ed\u2028e"s), QStringLiteral("a b  c d e"));
    EXPECT_EQ(markup("one\ftwo"), QStringLiteral("one\ntwo"));
}

TEST(MarkedTexts, markNothingOverALinesEnd) {
    EXPECT_EQ(markup("a\nb\nc", {"a\nb"}), QStringLiteral("<span class=\"mark\">a b</span>\nc"));
}

TEST(MarkedTexts, takeBytesThatAreNotUtf8) {
    EXPECT_EQ(markup("a\xff wifi \xc3", {"wifi"}),
              QStringLiteral("a\uFFFD <span class=\"mark\">wifi</span> \uFFFD"));
}

TEST(MarkedTexts, tellWhereTheFirstMatchStands) {
    EXPECT_EQ(markedText("👩 <é> wifi, wifi", Words{"wifi"}).firstMatch, 7);
    EXPECT_EQ(markedText("wifi", Words{"wifi"}).firstMatch, 0);
    EXPECT_EQ(markedText("name", Words{"wifi"}).firstMatch, -1);
}

TEST(Beginning, endsAtAWholeCodePoint) {
    EXPECT_EQ(beginning("abc", 2), "ab");
    EXPECT_EQ(beginning("abc", 3), "abc");
    EXPECT_EQ(beginning("abc", 4), "abc");
    EXPECT_EQ(beginning("é👩x", 1), "é");
    EXPECT_EQ(beginning("é👩x", 2), "é👩");
    EXPECT_EQ(beginning("", 2), "");
    EXPECT_EQ(beginning("ab", 0), "");
}

TEST(Beginning, isShortWhateverTheBytesAre) {
    EXPECT_EQ(beginning(std::string(100, '\x80'), 5).size(), 20U);
    EXPECT_EQ(beginning(std::string(100, '\xff'), 5).size(), 5U);
}

}  // namespace
}  // namespace nookwise
