// Where the bytes of a lower-cased text came from.
#pragma once

#include "platform/TextCharacters.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// A text in lower case, in which what is found can be pointed out in the text itself although the
/// two may differ in length.
class CaseAlignment {
  public:
    explicit CaseAlignment(std::string_view text);

    std::string_view lower() const { return lower_; }

    /// The bytes of the text that became those in lower case. A code point that lower case made
    /// longer or shorter is never cut.
    TextRange inText(TextRange inLower) const;

  private:
    /// A code point that has another length in lower case.
    struct Change {
        TextRange text;
        TextRange lower;
    };

    std::size_t beginInText(std::size_t begin) const;
    std::size_t endInText(std::size_t end) const;

    std::string lower_;
    /// In the order of the text.
    std::vector<Change> changes_;
};

}  // namespace nookwise
