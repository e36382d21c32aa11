// What a question means, step by step and with no thought of speed.
#pragma once

#include "platform/Text.h"
#include "search/MatchingRows.h"
#include "tests/search/Corpus.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

inline std::vector<std::string> plainCharacters(std::string_view text) {
    std::vector<std::string> all;
    while (!text.empty()) {
        all.emplace_back(firstCharacters(text, 1));
        text.remove_prefix(all.back().size());
    }
    return all;
}

inline std::string plainSnippet(std::string text, const std::string& lower, std::size_t position) {
    std::ptrdiff_t offset = 0;
    std::size_t end = 0;
    for (const auto& character : plainCharacters(lower)) {
        end += character.size();
        if (end > position) break;
        ++offset;
    }
    std::replace(text.begin(), text.end(), '\n', ' ');
    const auto all = plainCharacters(text);
    const auto count = static_cast<std::ptrdiff_t>(all.size());
    std::string piece;
    for (auto i = std::max<std::ptrdiff_t>(offset - 30, 0); i < std::min(offset + 60, count); ++i)
        piece += all[static_cast<std::size_t>(i)];
    if (offset - 30 > 0) piece = "…" + piece;
    if (offset + 60 < count) piece += "…";
    return piece;
}

inline bool plainPasses(const FileItem& file, const QueryFilter::Rule& rule, const Corpus& corpus) {
    if (const auto* exts = std::get_if<QueryFilter::Exts>(&rule))
        return exts->extensions.count(lowercased(file.url.pathExtension())) > 0;
    if (const auto* dates = std::get_if<QueryFilter::Dates>(&rule)) {
        if (!file.added && !file.modified) return false;
        const auto date = file.added ? *file.added : *file.modified;
        return date >= dates->start && date < dates->end;
    }
    if (const auto* larger = std::get_if<QueryFilter::Larger>(&rule))
        return file.size >= larger->bytes;
    if (const auto* smaller = std::get_if<QueryFilter::Smaller>(&rule))
        return file.size <= smaller->bytes;
    if (const auto* source = std::get_if<QueryFilter::Source>(&rule))
        return corpus.sources.contains(file.url) &&
               corpus.sources.at(file.url).view() == source->name;
    const auto name = lowercased(file.url.lastPathComponent());
    for (const auto* beginning : {"screenshot", "screen shot", "cleanshot", "снимок экрана"}) {
        if (name.starts_with(beginning)) return true;
    }
    return false;
}

inline std::optional<AskResult> plainAnswer(const FileItem& file, const ParsedQuery& query,
                                            const Corpus& corpus) {
    for (const auto& filter : query.filters) {
        if (!plainPasses(file, filter.rule, corpus)) return std::nullopt;
    }
    AskResult result{file, std::nullopt};
    for (const auto& word : query.words) {
        if (lowercased(file.url.lastPathComponent()).find(word) != std::string::npos) continue;
        const auto found = corpus.lowerTexts.find(file.url);
        if (found == corpus.lowerTexts.end()) return std::nullopt;
        const std::string lower(found->second.view());
        const auto position = lower.find(word);
        if (position == std::string::npos) return std::nullopt;
        if (!result.snippet)
            result.snippet =
                plainSnippet(std::string(corpus.texts.at(file.url).view()), lower, position);
    }
    return result;
}

inline std::vector<AskResult> plainAsk(const ParsedQuery& query, const Corpus& corpus,
                                       std::size_t limit) {
    if (query.filters.empty() && query.words.empty()) return {};
    std::vector<AskResult> results;
    for (const auto& file : corpus.files) {
        if (auto answer = plainAnswer(file, query, corpus)) results.push_back(std::move(*answer));
    }
    const auto key = [](const AskResult& result) {
        const auto& file = result.file;
        return file.lastUsed.value_or(file.added.value_or(file.modified.value_or(distantPast)));
    };
    std::stable_sort(results.begin(), results.end(),
                     [&](const auto& a, const auto& b) { return key(a) > key(b); });
    results.resize(std::min(results.size(), limit));
    return results;
}

/// With these, few files are as many are: texts are read in the order of memory, by one thread or
/// two, after a block in the order of answers or from the beginning.
inline constexpr std::array shortReaches{Reach{0, 1}, Reach{SearchCorpus::rowsInBlock, 1},
                                         Reach{0, 1'000'000}};

/// Whether the rows that answer are those of the plain answers.
inline bool isAnsweredBy(const ParsedQuery& query, const SearchCorpus& corpus, std::size_t limit,
                         Reach reach, const std::vector<AskResult>& plain) {
    const auto isSame = [&](std::size_t row, const AskResult& result) {
        return corpus.file(corpus.rows()[row]) == result.file;
    };
    return std::ranges::equal(MatchingRows(query, corpus, reach).first(limit), plain, isSame);
}

}  // namespace nookwise
