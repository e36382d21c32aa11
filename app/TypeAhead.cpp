#include "app/TypeAhead.h"

#include "platform/Text.h"

#include <algorithm>

namespace nookwise {
namespace {

constexpr Seconds longestPause{1};

bool isOneCharacterRepeated(std::string_view text, std::string_view character) {
    if (character.empty() || text.size() % character.size() != 0) return false;
    for (; !text.empty(); text.remove_prefix(character.size())) {
        if (!text.starts_with(character)) return false;
    }
    return true;
}

bool isAscii(char character) {
    return static_cast<unsigned char>(character) < 0x80;
}

char asciiFolded(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

/// A beginning to look for in many names.
class Beginning {
  public:
    explicit Beginning(std::string_view folded)
        : folded_(folded),
          characters_(characterCount(folded)),
          isAscii_(std::ranges::all_of(folded, isAscii)) {}

    bool isOf(std::string_view name) const {
        // What follows may still change the last character, as an accent does.
        const auto start = name.substr(0, folded_.size() + 1);
        if (isAscii_ && std::ranges::all_of(start, isAscii))
            return std::ranges::equal(start.substr(0, folded_.size()), folded_, {}, asciiFolded);
        return caseFolded(firstCharacters(name, characters_)).starts_with(folded_);
    }

  private:
    std::string_view folded_;
    std::size_t characters_;
    bool isAscii_;
};

}  // namespace

bool TypeAhead::isTyping(Date now) const {
    // A clock that was set back ends it too.
    return !typed_.empty() && now >= last_ && now - last_ <= longestPause;
}

std::optional<std::size_t> TypeAhead::type(std::string_view typed, Date now,
                                           const std::vector<FolderItem>& items,
                                           std::optional<std::size_t> currentRow) {
    const bool isContinued = isTyping(now);
    if (!isContinued) typed_.clear();
    typed_ += caseFolded(typed);
    last_ = now;
    const auto first = firstCharacters(typed_, 1);
    const bool isRepeated = isOneCharacterRepeated(typed_, first);
    const std::string_view wanted = isRepeated ? first : typed_;
    if (wanted.empty() || items.empty()) return std::nullopt;
    const auto start = !currentRow ? 0 : isContinued && !isRepeated ? *currentRow : *currentRow + 1;
    const Beginning beginning(wanted);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto row = (start + i) % items.size();
        if (beginning.isOf(items[row].url.lastPathComponent())) return row;
    }
    return std::nullopt;
}

}  // namespace nookwise
