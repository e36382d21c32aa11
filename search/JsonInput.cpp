#include "search/JsonInput.h"

#include "platform/Text.h"
#include "search/JsonPlainText.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <string_view>

namespace nookwise {
namespace {

constexpr std::size_t bufferSize = std::size_t{256} << 10U;
// Far more digits than a double needs.
constexpr std::size_t longestNumber = 400;

void appendUtf8(std::uint32_t codePoint, std::string& text) {
    const auto add = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    const auto addNext = [&](unsigned shift) { add(0x80 | ((codePoint >> shift) & 0x3F)); };
    if (codePoint < 0x80) return add(codePoint);
    if (codePoint < 0x800) {
        add(0xC0 | (codePoint >> 6U));
    } else if (codePoint < 0x10000) {
        add(0xE0 | (codePoint >> 12U));
        addNext(6);
    } else {
        add(0xF0 | (codePoint >> 18U));
        addNext(12);
        addNext(6);
    }
    addNext(0);
}

/// NUL where the letter behind a backslash stands for no single character.
char meaningOf(int letter) {
    switch (letter) {
        case '"':
        case '\\':
        case '/':
            return static_cast<char>(letter);
        case 'b':
            return '\b';
        case 'f':
            return '\f';
        case 'n':
            return '\n';
        case 'r':
            return '\r';
        case 't':
            return '\t';
        default:
            return '\0';
    }
}

bool isHighSurrogate(std::uint32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(std::uint32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

bool isDigit(int c) {
    return c >= '0' && c <= '9';
}

}  // namespace

JsonInput::JsonInput(FileReader& file, std::uint64_t limit)
    : file_(file), unread_(limit), buffer_(bufferSize) {}

bool JsonInput::refill() {
    if (unread_ == 0) return false;
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(unread_, buffer_.size()));
    const auto count = file_.read(std::as_writable_bytes(std::span(buffer_).first(wanted)));
    position_ = 0;
    filled_ = count ? count.value() : 0;
    unread_ = filled_ < wanted ? 0 : unread_ - filled_;
    return filled_ > 0;
}

int JsonInput::peekAfterSpace() {
    for (;;) {
        const auto next = peek();
        if (next != ' ' && next != '\n' && next != '\t' && next != '\r') return next;
        ++position_;
    }
}

bool JsonInput::take(char expected) {
    if (!isNext(expected)) return false;
    ++position_;
    return true;
}

bool JsonInput::isAtEnd() {
    return peekAfterSpace() == end;
}

bool JsonInput::takeWord(std::string_view word) {
    peekAfterSpace();
    for (const char c : word) {
        if (peek() != c) return false;
        ++position_;
    }
    return true;
}

bool JsonInput::takeString(std::string& value) {
    if (!take('"')) return false;
    value.clear();
    while (takePlain(value)) {
        switch (peek()) {
            case '"':
                ++position_;
                return isWellFormed(value);
            case '\\':
                ++position_;
                if (!takeEscape(value)) return false;
                break;
            default:
                return false;
        }
    }
    return false;
}

bool JsonInput::takePlain(std::string& value) {
    while (peek() != end) {
        const std::string_view rest(buffer_.data() + position_, filled_ - position_);
        const auto length = plainLength(rest);
        if (value.size() + length > longestString) return false;
        value += rest.substr(0, length);
        position_ += length;
        if (length < rest.size()) return true;
    }
    return false;
}

bool JsonInput::takeEscape(std::string& value) {
    const auto letter = peek();
    if (letter == end) return false;
    ++position_;
    if (const char meant = meaningOf(letter); meant != '\0') {
        value += meant;
        return true;
    }
    std::uint32_t unit = 0;
    if (letter != 'u' || !takeCodeUnit(unit) || isLowSurrogate(unit)) return false;
    if (isHighSurrogate(unit)) {
        std::uint32_t low = 0;
        std::string escape;
        if (!takeOneOf("\\", escape) || !takeOneOf("u", escape) || !takeCodeUnit(low) ||
            !isLowSurrogate(low))
            return false;
        unit = 0x10000 + ((unit - 0xD800) << 10U) + (low - 0xDC00);
    }
    appendUtf8(unit, value);
    return true;
}

bool JsonInput::takeCodeUnit(std::uint32_t& unit) {
    std::string digits;
    for (int i = 0; i < 4; ++i) {
        if (!takeOneOf("0123456789abcdefABCDEF", digits)) return false;
    }
    return std::from_chars(digits.data(), digits.data() + digits.size(), unit, 16).ec ==
           std::errc();
}

bool JsonInput::takeOneOf(std::string_view bytes, std::string& number) {
    const auto next = peek();
    if (next == end || bytes.find(static_cast<char>(next)) == std::string_view::npos) return false;
    number += static_cast<char>(next);
    ++position_;
    return true;
}

bool JsonInput::takeDigits(std::string& number) {
    if (!isDigit(peek())) return false;
    while (isDigit(peek()) && number.size() < longestNumber) {
        number += static_cast<char>(current());
        ++position_;
    }
    return number.size() < longestNumber;
}

bool JsonInput::takeNumber(double& value) {
    peekAfterSpace();
    std::string number;
    takeOneOf("-", number);
    // No digit follows a zero at the beginning.
    if (!takeOneOf("0", number) && !takeDigits(number)) return false;
    if (takeOneOf(".", number) && !takeDigits(number)) return false;
    if (takeOneOf("eE", number)) {
        // The other sign is one that std::from_chars does not know.
        std::string plus;
        if (!takeOneOf("+", plus)) takeOneOf("-", number);
        if (!takeDigits(number)) return false;
    }
    const auto* const last = number.data() + number.size();
    const auto read = std::from_chars(number.data(), last, value);
    return read.ec == std::errc() && read.ptr == last;
}

bool JsonInput::skipScalar() {
    double number = 0;
    switch (peekAfterSpace()) {
        case '"':
            return takeString(skipped_);
        case 'n':
            return takeWord("null");
        case 't':
            return takeWord("true");
        case 'f':
            return takeWord("false");
        default:
            return takeNumber(number);
    }
}

bool JsonInput::takeKey() {
    return takeString(skipped_) && take(':');
}

bool JsonInput::skipValue() {
    // What closes each bracket that is open, the innermost one last.
    std::string closing;
    for (;;) {
        if (take('{')) {
            closing += '}';
            if (!take('}')) {
                if (closing.size() > deepestNesting || !takeKey()) return false;
                continue;
            }
            closing.pop_back();
        } else if (take('[')) {
            closing += ']';
            if (!take(']')) {
                if (closing.size() > deepestNesting) return false;
                continue;
            }
            closing.pop_back();
        } else if (!skipScalar()) {
            return false;
        }
        while (!closing.empty() && take(closing.back())) closing.pop_back();
        if (closing.empty()) return true;
        if (!take(',') || (closing.back() == '}' && !takeKey())) return false;
    }
}

}  // namespace nookwise
