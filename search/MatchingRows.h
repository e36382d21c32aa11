// The rows of a corpus that answer a question.
#pragma once

#include "search/FilterMatch.h"
#include "search/ParsedQuery.h"
#include "search/SearchCorpus.h"
#include "search/WordFinder.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace nookwise {

/// From when on the order of memory, and a second thread, are worth their cost.
struct Reach {
    /// So many rows are looked at in the order of answers.
    std::size_t rowsInOrder = 4'096;
    /// Fewer texts are read by one thread.
    std::size_t textsForTwo = 8'192;
};

/// Looks at the newest files first, in the hope that they are answers enough. After a few thousand
/// texts it reads the other texts in the order in which they lie in memory, which is several times
/// as fast, however many answers there are.
class MatchingRows {
  public:
    /// Both must outlive it and stay as they are.
    MatchingRows(const ParsedQuery& query, const SearchCorpus& corpus, Reach reach = {});

    /// The first `limit`, in order.
    std::vector<std::size_t> first(std::size_t limit) const;

  private:
    /// A bit for each row of a block.
    using Rows = std::uint64_t;
    class Others;

    Rows passing(const SearchCorpus::Block& block) const;
    static Rows holding(const WordFinder& word, const SearchCorpus::Block& block, Rows rows);

    const SearchCorpus& corpus_;
    Reach reach_;
    /// No two that ask for the same.
    std::vector<FilterMatch> filters_;
    /// The words once each, those first that few files hold.
    std::vector<WordFinder> words_;
};

}  // namespace nookwise
