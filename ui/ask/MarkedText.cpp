#include "ui/ask/MarkedText.h"

#include "search/Marks.h"
#include "ui/bridge/ShownText.h"

#include <algorithm>

namespace nookwise {

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Form feeds stand between the pages of a document.
QChar drawn(QChar character) {
    if (character == u'\n' || character == u'\t') return character;
    if (character == u'\f') return u'\n';
    return isNotDrawn(character) ? QChar(u' ') : character;
}

QString escaped(QString text) {
    std::ranges::transform(text, text.begin(), drawn);
    return text.toHtmlEscaped();
}

/// So that no mark reaches over a line's end, where paragraphs may be cut.
QString onOneLine(QString match) {
    return escaped(match.replace(u'\n', u' ').replace(u'\f', u' '));
}

}  // namespace

MarkedText markedText(std::string_view text, std::span<const std::string> words) {
    MarkedText marked;
    std::size_t done = 0;
    for (const TextRange& match : matchRanges(text, words)) {
        const QString before = shown(text.substr(done, match.begin - done));
        if (marked.firstMatch < 0) marked.firstMatch = static_cast<int>(before.size());
        marked.markup += escaped(before) + QStringLiteral("<span class=\"mark\">") +
                         onOneLine(shown(text.substr(match.begin, match.end - match.begin))) +
                         QStringLiteral("</span>");
        done = match.end;
    }
    marked.markup += escaped(shown(text.substr(done)));
    return marked;
}

std::string_view beginning(std::string_view text, std::size_t count) {
    constexpr std::size_t longestCodePoint = 4;
    const std::string_view most = text.substr(0, longestCodePoint * count);
    std::size_t begun = 0;
    for (std::size_t position = 0; position < most.size(); ++position) {
        if (isContinuation(most[position])) continue;
        if (begun == count) return most.substr(0, position);
        ++begun;
    }
    return most;
}

}  // namespace nookwise
