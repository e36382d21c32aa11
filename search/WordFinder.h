// Finds one word in many texts.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace nookwise {

/// Looks at the bytes of the word that are rarest in texts, and compares the rest only where they
/// stand at their distance. Linear in the text, whatever the two are made of.
class WordFinder {
  public:
    /// The instructions that the search is made of.
    enum class Instructions { any, avx2 };

    /// `word` is lower-cased and must outlive the finder. Uses the fastest instructions there are.
    explicit WordFinder(std::string_view word);
    /// The machine must have the instructions.
    WordFinder(std::string_view word, Instructions instructions);

    static bool isAvailable(Instructions instructions);

    std::string_view word() const { return word_; }

    /// Where the word first stands in the text; npos where it does not. An empty word stands at 0.
    std::size_t find(std::string_view text) const {
        return text.size() < word_.size() ? std::string_view::npos : (this->*find_)(text);
    }

    /// Smaller for words that fewer texts hold, as far as their rarest bytes tell.
    int commonness() const { return commonness_; }

  private:
    /// Counts what comparing costs, so that a text made to mislead costs no more than any other.
    class Comparison;

    std::size_t findEmpty(std::string_view text) const;
    std::size_t findByByte(std::string_view text) const;
    std::size_t findByVector(std::string_view text) const;

    std::string_view word_;
    std::size_t (WordFinder::*find_)(std::string_view) const;
    /// Where in the word the rarest bytes are, the rarest first; the last again in a short word.
    std::array<std::size_t, 3> rarest_{};
    int commonness_ = 0;
};

}  // namespace nookwise
