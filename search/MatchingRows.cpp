#include "search/MatchingRows.h"

#include <algorithm>
#include <array>
#include <bit>
#include <future>
#include <span>
#include <string_view>
#include <system_error>
#include <unordered_set>
#include <variant>

namespace nookwise {
namespace {

/// So many texts before it is read, a text is asked for: memory answers slowly.
constexpr std::size_t textsAhead = 8;
/// The words that are looked for in the order of memory; there are seldom more.
constexpr std::size_t wordsInMemoryOrder = 4;

constexpr std::uint64_t bit(std::size_t row) {
    return std::uint64_t{1} << row;
}

std::uint64_t allOf(const SearchCorpus::Block& block) {
    return block.rows.size() == SearchCorpus::rowsInBlock ? ~std::uint64_t{0}
                                                          : bit(block.rows.size()) - 1;
}

/// The rows of the block whose names hold the word. The names are searched as if they were one.
std::uint64_t namesHolding(const WordFinder& word, const SearchCorpus::Block& block) {
    std::uint64_t found = 0;
    std::size_t row = 0;
    std::size_t end = 0;
    for (std::size_t from = 0;;) {
        const auto next = word.find(block.names.substr(from));
        if (next == std::string_view::npos) return found;
        const auto begin = from + next;
        while (end <= begin && row < block.rows.size()) end += block.rows[row++].nameSize;
        from = begin + 1;
        if (begin + word.word().size() > end) continue;
        found |= bit(row - 1);
        from = end;
    }
}

/// Makes `known` ask for what `other` does as well, where one rule can ask for both.
struct Join {
    template <typename Known, typename Other>
    bool operator()(Known&, const Other&) const {
        return false;
    }
    template <typename Same>
    bool operator()(Same& known, const Same& other) const {
        return known == other;
    }
    bool operator()(QueryFilter::Larger& known, const QueryFilter::Larger& other) const {
        known.bytes = std::max(known.bytes, other.bytes);
        return true;
    }
    bool operator()(QueryFilter::Smaller& known, const QueryFilter::Smaller& other) const {
        known.bytes = std::min(known.bytes, other.bytes);
        return true;
    }
    bool operator()(QueryFilter::Dates& known, const QueryFilter::Dates& other) const {
        known.start = std::max(known.start, other.start);
        known.end = std::min(known.end, other.end);
        return true;
    }
};

/// A pasted text can be full of filters; of those that are left there are a few dozen.
std::vector<QueryFilter::Rule> joinedRules(const std::vector<QueryFilter>& filters) {
    std::vector<QueryFilter::Rule> rules;
    for (const auto& filter : filters) {
        const auto takesIn = [&](auto& rule) { return std::visit(Join(), rule, filter.rule); };
        if (std::ranges::none_of(rules, takesIn)) rules.push_back(filter.rule);
    }
    return rules;
}

}  // namespace

MatchingRows::MatchingRows(const ParsedQuery& query, const SearchCorpus& corpus, Reach reach)
    : corpus_(corpus), reach_(reach) {
    for (const auto& rule : joinedRules(query.filters)) filters_.emplace_back(rule, corpus);
    std::unordered_set<std::string_view> known;
    for (const auto& word : query.words) {
        // Every name holds the empty word.
        if (!word.empty() && known.insert(word).second) words_.emplace_back(word);
    }
    std::ranges::stable_sort(words_, {}, &WordFinder::commonness);
}

/// The rows that are not looked at in the order of answers.
class MatchingRows::Others {
  public:
    Others(const MatchingRows& question, std::size_t firstBlock)
        : question_(question),
          firstBlock_(firstBlock),
          words_(std::min(question.words_.size(), wordsInMemoryOrder)),
          rows_(question.corpus_.blockCount() - firstBlock),
          named_(rows_.size() * words_) {
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            const auto block = question.corpus_.block(firstBlock + i);
            rows_[i] = question.passing(block);
            for (std::size_t word = 0; word < words_ && rows_[i] != 0; ++word)
                named_[i * words_ + word] = namesHolding(question.words_[word], block);
        }
    }

    /// Those that are left after the words that are looked for in the order of memory.
    const std::vector<Rows>& left() {
        // What has no text holds what its name does.
        std::vector<Rows> found(rows_);
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            for (std::size_t word = 0; word < words_; ++word) found[i] &= named_[i * words_ + word];
        }
        const auto texts = question_.corpus_.texts();
        const auto half = texts.size() < question_.reach_.textsForTwo ? 0 : texts.size() / 2;
        // Two threads read memory faster than one.
        auto first = half == 0 ? std::future<std::vector<std::uint32_t>>()
                               : inBackground([&] { return holding(texts.first(half), found); });
        const auto second = holding(texts.subspan(half), found);
        // The other thread reads what is found until it is done.
        const auto before = first.valid() ? first.get() : std::vector<std::uint32_t>();
        for (const auto* rows : {&before, &second}) {
            for (const auto row : *rows) add(row, found);
        }
        rows_ = std::move(found);
        return rows_;
    }

  private:
    /// In this thread, later, where no other can be had.
    template <typename Work>
    static std::future<std::vector<std::uint32_t>> inBackground(Work work) {
        try {
            return std::async(std::launch::async, work);
        } catch (const std::system_error&) {
            return std::async(std::launch::deferred, work);
        }
    }

    /// The rows of these texts that hold the words and are not found yet.
    std::vector<std::uint32_t> holding(std::span<const SearchCorpus::TextPlace> texts,
                                       const std::vector<Rows>& found) const {
        std::vector<std::uint32_t> rows;
        for (const auto& place : texts) {
            const auto block = place.row / SearchCorpus::rowsInBlock;
            if (block < firstBlock_) continue;
            const auto i = block - firstBlock_;
            const auto one = bit(place.row % SearchCorpus::rowsInBlock);
            if ((rows_[i] & ~found[i] & one) != 0 && holdsOthers(place.text(), i, one))
                rows.push_back(place.row);
        }
        return rows;
    }

    void add(std::uint32_t row, std::vector<Rows>& found) const {
        found[row / SearchCorpus::rowsInBlock - firstBlock_] |=
            bit(row % SearchCorpus::rowsInBlock);
    }

    /// Whether the text holds the words that the name does not.
    bool holdsOthers(std::string_view text, std::size_t i, Rows one) const {
        for (std::size_t word = 0; word < words_; ++word) {
            const bool isNamed = (named_[i * words_ + word] & one) != 0;
            if (!isNamed && question_.words_[word].find(text) == std::string_view::npos)
                return false;
        }
        return true;
    }

    const MatchingRows& question_;
    std::size_t firstBlock_;
    std::size_t words_;
    /// By block: the rows that pass the filters.
    std::vector<Rows> rows_;
    /// By block and word: the rows whose names hold it.
    std::vector<Rows> named_;
};

std::vector<std::size_t> MatchingRows::first(std::size_t limit) const {
    std::vector<std::size_t> found;
    const auto add = [&](std::size_t block, Rows rows) {
        for (; rows != 0 && found.size() < limit; rows &= rows - 1) {
            found.push_back(block * SearchCorpus::rowsInBlock +
                            static_cast<std::size_t>(std::countr_zero(rows)));
        }
    };
    const auto addHolding = [&](std::size_t number, Rows rows, std::size_t firstWord) {
        const auto block = corpus_.block(number);
        for (auto word = firstWord; word < words_.size() && rows != 0; ++word)
            rows = holding(words_[word], block, rows);
        add(number, rows);
    };
    const auto inOrder = words_.empty() ? corpus_.blockCount()
                                        : std::min(reach_.rowsInOrder / SearchCorpus::rowsInBlock,
                                                   corpus_.blockCount());
    for (std::size_t number = 0; number < inOrder && found.size() < limit; ++number)
        addHolding(number, passing(corpus_.block(number)), 0);
    if (inOrder == corpus_.blockCount() || found.size() >= limit) return found;
    Others others(*this, inOrder);
    const auto& left = others.left();
    for (std::size_t i = 0; i < left.size() && found.size() < limit; ++i)
        addHolding(inOrder + i, left[i], std::min(words_.size(), wordsInMemoryOrder));
    return found;
}

MatchingRows::Rows MatchingRows::passing(const SearchCorpus::Block& block) const {
    if (filters_.empty()) return allOf(block);
    Rows passing = 0;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < block.rows.size(); ++i) {
        const auto& row = block.rows[i];
        const auto name = block.names.substr(begin, row.nameSize);
        begin += row.nameSize;
        const auto passes = [&](const FilterMatch& filter) { return filter.passes(row, name); };
        if (std::ranges::all_of(filters_, passes)) passing |= bit(i);
    }
    return passing;
}

MatchingRows::Rows MatchingRows::holding(const WordFinder& word, const SearchCorpus::Block& block,
                                         Rows rows) {
    auto found = rows & namesHolding(word, block);
    std::array<std::size_t, SearchCorpus::rowsInBlock> others{};
    std::size_t count = 0;
    for (auto left = rows & ~found; left != 0; left &= left - 1) {
        others[count] = static_cast<std::size_t>(std::countr_zero(left));
        if (count < textsAhead) block.rows[others[count]].lowerText.prefetch();
        ++count;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (i + textsAhead < count) block.rows[others[i + textsAhead]].lowerText.prefetch();
        if (word.find(block.rows[others[i]].lowerText.view()) != std::string_view::npos)
            found |= bit(others[i]);
    }
    return found;
}

}  // namespace nookwise
