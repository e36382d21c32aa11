// The words that a question's filters are made of.
#pragma once

#include "search/ParsedQuery.h"

#include <optional>
#include <span>
#include <string_view>

// All words are in lower case.
namespace nookwise::QueryParser {

struct Kind {
    /// Any of which stands for the kind.
    std::span<const std::string_view> words;
    std::string_view label;
    QueryFilter::Rule rule;
};

struct Source {
    std::string_view word;
    /// As the index names it.
    std::string_view name;
};

/// Of two kinds with the same word, the first counts.
std::span<const Kind> kinds();
std::span<const Source> sources();
/// Words that say nothing about the file.
std::span<const std::string_view> stopwords();

/// Null for a word of no kind.
const Kind* kindOf(std::string_view word);
std::optional<std::string_view> sourceNamed(std::string_view word);
bool isStopword(std::string_view word);

}  // namespace nookwise::QueryParser
