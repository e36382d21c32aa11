#include "fileops/FirstLine.h"

#include "platform/Text.h"
#include "platform/TextCharacters.h"
#include "platform/TextClasses.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace nookwise {
namespace {

constexpr int neededLetters = 4;
constexpr std::size_t longestLine = 50;

bool isAscii(char byte) {
    return static_cast<signed char>(byte) >= 0;
}

bool isAsciiLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isAsciiLineBreak(char byte) {
    return byte >= '\n' && byte <= '\r';
}

/// Whether a letter may be among eight bytes. Some others pass as well.
bool mayHoldLetter(const char* eight) {
    constexpr std::uint64_t highBitOrCaseBit = 0xC0C0C0C0C0C0C0C0;
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, eight, sizeof bytes);
    // All of ASCII before '@' has neither.
    return (bytes & highBitOrCaseBit) != 0;
}

/// Where the first character from `position` on stands that may be a letter, or the end. Eight
/// bytes at a time: texts of nothing but figures are long.
std::size_t nextCandidate(std::string_view text, std::size_t position) {
    constexpr std::size_t step = sizeof(std::uint64_t);
    while (position < text.size()) {
        const auto end = std::min(text.size(), position + step);
        if (end - position == step && !mayHoldLetter(text.data() + position)) {
            position = end;
            continue;
        }
        for (; position < end; ++position) {
            if (!isAscii(text[position]) || isAsciiLetter(text[position])) return position;
        }
    }
    return position;
}

/// Where the line begins that `position` is in, if everything from `floor` to there is ASCII.
std::size_t lineBegin(std::string_view text, std::size_t floor, std::size_t position) {
    while (position > floor && !isAsciiLineBreak(text[position - 1])) --position;
    return position;
}

/// How many bytes the code point has that begins with `byte`, if it is one.
std::size_t codePointLength(char byte) {
    const auto bits = static_cast<unsigned char>(byte);
    if (bits < 0xC0) return 1;
    return bits < 0xE0 ? 2 : bits < 0xF0 ? 3 : 4;
}

struct Counted {
    int letters = 0;
    /// Behind the last character that was looked at.
    std::size_t end = 0;
};

/// Counts the letters of the line from `position` on, no further than there need be.
Counted countLetters(std::string_view text, std::size_t position) {
    Counted counted{0, position};
    while (counted.end < text.size()) {
        const char byte = text[counted.end];
        const auto length = codePointLength(byte);
        const auto kind = classOf(text.substr(counted.end, length));
        // What a letter is made of besides is found below.
        if (kind == CharacterClass::letter && !isAscii(byte)) break;
        counted.end += kind == CharacterClass::malformed ? 1 : length;
        if (kind == CharacterClass::letter) ++counted.letters;
        if (kind == CharacterClass::lineBreak || counted.letters == neededLetters) return counted;
    }
    visitCharacters(text.substr(counted.end), [&](std::string_view character) {
        counted.end += character.size();
        const auto kind = classOf(character);
        if (kind == CharacterClass::letter) ++counted.letters;
        return kind != CharacterClass::lineBreak && counted.letters < neededLetters;
    });
    return counted;
}

/// Where the first usable line begins.
std::optional<std::size_t> usableLine(std::string_view text) {
    std::size_t floor = 0;
    for (;;) {
        const auto candidate = nextCandidate(text, floor);
        if (candidate == text.size()) return std::nullopt;
        const auto counted = countLetters(text, candidate);
        if (counted.letters == neededLetters) return lineBegin(text, floor, candidate);
        floor = counted.end;
    }
}

/// A name is made of it character by character.
class LineName {
  public:
    /// Returns whether there is room for more.
    bool add(std::string_view character) {
        const auto kind = classOf(character);
        if (kind == CharacterClass::lineBreak) return false;
        const bool begins =
            kind == CharacterClass::letter || kind == CharacterClass::digit || !name_.empty();
        if (!begins || kind == CharacterClass::invisible || kind == CharacterClass::malformed)
            return true;
        const bool separates = kind == CharacterClass::whiteSpace ||
                               kind == CharacterClass::control || character.front() == ':';
        if (separates) {
            spaceDue_ = true;
            return true;
        }
        if (spaceDue_) append(" ");
        spaceDue_ = false;
        if (length_ < longestLine) append(character);
        return length_ < longestLine;
    }

    std::string take() {
        while (name_.ends_with(' ')) name_.pop_back();
        // What is not UTF-8 may have joined a character before it.
        return isWellFormed(name_) ? std::move(name_) : wellFormed(name_);
    }

  private:
    void append(std::string_view character) {
        const auto added = name_.size();
        name_ += character;
        // Also where they are joined to a character before them.
        std::replace(name_.begin() + static_cast<std::ptrdiff_t>(added), name_.end(), '/', '-');
        std::replace(name_.begin() + static_cast<std::ptrdiff_t>(added), name_.end(), ':', ' ');
        ++length_;
    }

    std::string name_;
    std::size_t length_ = 0;
    bool spaceDue_ = false;
};

}  // namespace

std::optional<std::string> firstLine(std::string_view text) {
    const auto begin = usableLine(text);
    if (!begin) return std::nullopt;
    LineName name;
    visitCharacters(text.substr(*begin), [&](std::string_view each) { return name.add(each); });
    return name.take();
}

const std::optional<std::string>& FirstLines::of(const FileUrl& file, const SharedBytes& text) {
    const auto [found, isNew] = known_.try_emplace(file);
    auto& known = found->second;
    if (isNew || known.text != text) known = {text, firstLine(text.view())};
    return known.line;
}

}  // namespace nookwise
