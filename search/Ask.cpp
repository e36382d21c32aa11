#include "search/Ask.h"

#include "platform/Text.h"
#include "search/FilterMatch.h"
#include "search/Snippet.h"

#include <algorithm>
#include <compare>
#include <unordered_set>

namespace nookwise {
namespace {

/// A file that answers the question, before its result is made.
struct Match {
    double date;
    /// In the order of the files.
    std::size_t number;
    /// Where the text holds the first word that the name does not.
    std::optional<std::size_t> inText;
};

double dateOf(const FileItem& file) {
    for (const auto& date : {file.lastUsed, file.added, file.modified}) {
        if (date) return date->time_since_epoch().count();
    }
    return distantPast.time_since_epoch().count();
}

bool isNewer(const Match& a, const Match& b) {
    const auto order = std::weak_order(b.date, a.date);
    return order != 0 ? order < 0 : a.number < b.number;
}

/// The words without those that a word before them says too.
std::vector<std::string_view> distinct(const std::vector<std::string>& words) {
    std::vector<std::string_view> result;
    std::unordered_set<std::string_view> seen;
    for (const auto& word : words) {
        if (seen.insert(word).second) result.emplace_back(word);
    }
    return result;
}

std::string_view textOf(const TextsByUrl& texts, const FileUrl& url) {
    const auto found = texts.find(url);
    return found == texts.end() ? std::string_view{} : found->second.view();
}

class Question {
  public:
    Question(const ParsedQuery& query, const SearchCorpus& corpus)
        : query_(query), corpus_(corpus), words_(distinct(query.words)) {}

    bool isEmpty() const { return query_.filters.empty() && words_.empty(); }

    std::vector<Match> matches() const {
        std::vector<Match> found;
        for (std::size_t i = 0; i < corpus_.files.size(); ++i) {
            Match match{dateOf(corpus_.files[i]), i, std::nullopt};
            if (passesFilters(corpus_.files[i]) && holdsWords(corpus_.files[i], match))
                found.push_back(match);
        }
        return found;
    }

    AskResult result(const Match& match) const {
        const auto& file = corpus_.files[match.number];
        AskResult result{file, std::nullopt};
        if (match.inText) {
            result.snippet = snippet(textOf(corpus_.texts, file.url),
                                     textOf(corpus_.lowerTexts, file.url), *match.inText);
        }
        return result;
    }

  private:
    bool passesFilters(const FileItem& file) const {
        return std::ranges::all_of(query_.filters, [&](const QueryFilter& filter) {
            return passes(file, filter.rule, corpus_.sources);
        });
    }

    bool holdsWords(const FileItem& file, Match& match) const {
        if (words_.empty()) return true;
        const auto name = lowercased(file.url.lastPathComponent());
        std::optional<std::string_view> text;
        for (const auto word : words_) {
            if (name.find(word) != std::string::npos) continue;
            if (!text) text = textOf(corpus_.lowerTexts, file.url);
            const auto position = text->find(word);
            if (position == std::string_view::npos) return false;
            if (!match.inText) match.inText = position;
        }
        return true;
    }

    const ParsedQuery& query_;
    const SearchCorpus& corpus_;
    std::vector<std::string_view> words_;
};

}  // namespace

std::vector<AskResult> ask(const ParsedQuery& query, const SearchCorpus& corpus,
                           std::size_t limit) {
    const Question question(query, corpus);
    if (question.isEmpty()) return {};
    auto matches = question.matches();
    const auto count = std::min(limit, matches.size());
    std::ranges::partial_sort(matches, matches.begin() + static_cast<std::ptrdiff_t>(count),
                              isNewer);
    std::vector<AskResult> results;
    results.reserve(count);
    for (std::size_t i = 0; i < count; ++i) results.push_back(question.result(matches[i]));
    return results;
}

}  // namespace nookwise
