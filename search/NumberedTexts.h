// Texts of which there are few different ones, by number.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace nookwise {

class NumberedTexts {
  public:
    NumberedTexts() = default;
    // The numbers refer to the texts.
    NumberedTexts(const NumberedTexts&) = delete;
    NumberedTexts& operator=(const NumberedTexts&) = delete;
    NumberedTexts(NumberedTexts&&) = default;
    NumberedTexts& operator=(NumberedTexts&&) = default;

    /// The number of the text, which gets the next one if it has none.
    std::uint32_t add(std::string_view text) {
        if (const auto known = find(text)) return *known;
        const auto number = static_cast<std::uint32_t>(texts_.size());
        numbers_.emplace(texts_.emplace_back(text), number);
        return number;
    }

    std::optional<std::uint32_t> find(std::string_view text) const {
        const auto found = numbers_.find(text);
        return found == numbers_.end() ? std::nullopt : std::optional(found->second);
    }

    /// By number. They stay at their place.
    const std::deque<std::string>& texts() const { return texts_; }

  private:
    std::deque<std::string> texts_;
    std::unordered_map<std::string_view, std::uint32_t> numbers_;
};

}  // namespace nookwise
