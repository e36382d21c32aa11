// Answers a question from the scanned files and the text read inside them.
#pragma once

#include "model/FileItem.h"
#include "search/ParsedQuery.h"
#include "search/SearchCorpus.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

struct AskResult {
    FileItem file;
    /// A piece of the file's text around the first word that only the text holds.
    std::optional<std::string> snippet;

    friend bool operator==(const AskResult&, const AskResult&) = default;
};

/// The first `limit` files that pass every filter and hold every word in their name or text,
/// newest first. None for a question without filters and words.
std::vector<AskResult> ask(const ParsedQuery& query, const SearchCorpus& corpus, std::size_t limit);

/// The files of the same answers, for lists of which few rows are looked at.
std::vector<FileItem> answers(const ParsedQuery& query, const SearchCorpus& corpus,
                              std::size_t limit);

/// Where a file's text is shown.
struct SnippetSource {
    std::string_view lowerName;
    std::string_view text;
    std::string_view lowerText;
};

/// Around the first of the words, in their order, that the name does not hold; none where there is
/// no such word, or the text does not hold it either.
std::optional<std::string> snippetOf(const SnippetSource& file,
                                     const std::vector<std::string>& words);

}  // namespace nookwise
