#include "reader/PdfText.h"

#include "platform/Text.h"
#include "reader/PdfDocument.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include <poppler-document.h>
#include <poppler-page.h>

namespace nookwise {
namespace {

constexpr int mostPages = 15;
constexpr std::size_t mostCharacters = 30'000;
/// A character may be made of any number of combining marks. A whole text of the longest ones in
/// use, families of emoji, is shorter.
constexpr std::size_t mostBytes = 32 * mostCharacters;

/// The marks between pages, and what broken fonts give in place of letters, are no text.
bool isText(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0x20 && byte != 0x7f) || c == '\n' || c == '\t';
}

bool continuesCodePoint(char c) {
    return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U;
}

/// Without line feeds at the end, and no longer than `mostBytes`.
std::string textOf(const poppler::page& page, std::size_t atMost) {
    const auto bytes =
        page.text(poppler::rectf(), poppler::page::non_raw_non_physical_layout).to_utf8();
    std::string text;
    text.reserve(std::min(bytes.size(), atMost));
    for (const char c : bytes) {
        if (text.size() >= atMost && !continuesCodePoint(c)) break;
        if (isText(c)) text += c;
    }
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

}  // namespace

std::string pdfText(std::span<const std::byte> bytes) {
    const auto document = openPdf(bytes);
    if (document == nullptr) return {};
    std::string text;
    std::size_t characters = 0;
    const auto pages = std::min(document->pages(), mostPages);
    for (int index = 0; index < pages && characters <= mostCharacters && text.size() < mostBytes;
         ++index) {
        const std::unique_ptr<poppler::page> page(document->create_page(index));
        auto shown = page == nullptr ? std::string() : textOf(*page, mostBytes - text.size());
        shown += '\n';
        // Pages are counted one by one: no character goes on beyond a line feed.
        characters += characterCount(shown);
        text += shown;
    }
    if (characters > mostCharacters) text.resize(firstCharacters(text, mostCharacters).size());
    return text;
}

}  // namespace nookwise
