#include "search/QuestionTokens.h"

#include <array>

namespace nookwise {
namespace {

constexpr std::array<std::string_view, 5> separators{" ", ",", "\"", "“", "”"};

/// How many bytes of a separator `text` begins with.
std::size_t separatorLength(std::string_view text) {
    for (const auto separator : separators) {
        if (text.starts_with(separator)) return separator.size();
    }
    return 0;
}

}  // namespace

std::vector<std::string_view> questionTokens(std::string_view question) {
    std::vector<std::string_view> tokens;
    std::size_t start = 0;
    std::size_t position = 0;
    const auto endToken = [&] {
        if (position > start) tokens.push_back(question.substr(start, position - start));
    };
    while (position < question.size()) {
        const auto length = separatorLength(question.substr(position));
        if (length == 0) {
            ++position;
            continue;
        }
        endToken();
        position += length;
        start = position;
    }
    endToken();
    return tokens;
}

}  // namespace nookwise
