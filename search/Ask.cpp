#include "search/Ask.h"

#include "search/MatchingRows.h"
#include "search/Snippet.h"

#include <string_view>

namespace nookwise {
namespace {

std::vector<std::size_t> rowsOf(const ParsedQuery& query, const SearchCorpus& corpus,
                                std::size_t limit) {
    if (query.filters.empty() && query.words.empty()) return {};
    return MatchingRows(query, corpus).first(limit);
}

}  // namespace

std::vector<AskResult> ask(const ParsedQuery& query, const SearchCorpus& corpus,
                           std::size_t limit) {
    const auto rows = rowsOf(query, corpus, limit);
    std::vector<AskResult> results;
    results.reserve(rows.size());
    for (const auto number : rows) {
        const auto& row = corpus.rows()[number];
        const SnippetSource source{corpus.name(number), corpus.text(row), row.lowerText.view()};
        results.push_back({corpus.file(row), snippetOf(source, query.words)});
    }
    return results;
}

std::vector<FileItem> answers(const ParsedQuery& query, const SearchCorpus& corpus,
                              std::size_t limit) {
    const auto rows = rowsOf(query, corpus, limit);
    std::vector<FileItem> files;
    files.reserve(rows.size());
    for (const auto number : rows) files.push_back(corpus.file(corpus.rows()[number]));
    return files;
}

std::optional<std::string> snippetOf(const SnippetSource& file,
                                     const std::vector<std::string>& words) {
    for (const auto& word : words) {
        if (file.lowerName.find(word) != std::string_view::npos) continue;
        const auto position = WordFinder(word).find(file.lowerText);
        if (position == std::string_view::npos) return std::nullopt;
        return snippet(file.text, file.lowerText, position);
    }
    return std::nullopt;
}

}  // namespace nookwise
