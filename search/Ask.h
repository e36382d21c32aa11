// Answers a question from the scanned files and the text read inside them.
#pragma once

#include "model/FileItem.h"
#include "model/TextsByUrl.h"
#include "search/ParsedQuery.h"

#include <cstddef>
#include <optional>
#include <span>
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

/// What questions are asked of; refers to values that others own.
struct SearchCorpus {
    std::span<const FileItem> files;
    const TextsByUrl& texts;
    const TextsByUrl& lowerTexts;
    const TextsByUrl& sources;
};

/// The first `limit` files that pass every filter and hold every word in their name or text,
/// newest first. None for a question without filters and words.
std::vector<AskResult> ask(const ParsedQuery& query, const SearchCorpus& corpus, std::size_t limit);

}  // namespace nookwise
