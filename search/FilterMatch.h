// Which files pass a question's filter.
#pragma once

#include "search/ParsedQuery.h"
#include "search/SearchCorpus.h"

#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

namespace nookwise {

/// A filter made ready for many rows of one corpus.
class FilterMatch {
  public:
    /// The corpus must outlive it and stay as it is.
    FilterMatch(const QueryFilter::Rule& rule, const SearchCorpus& corpus);

    bool passes(const SearchCorpus::Row& row, std::string_view lowerName) const;

  private:
    struct Extension {
        /// By the extension's number.
        std::vector<bool> isWanted;
    };
    struct Source {
        std::uint32_t number;
    };
    /// What no file passes.
    struct Nothing {};
    using Prepared = std::variant<Extension, QueryFilter::Dates, QueryFilter::Larger,
                                  QueryFilter::Smaller, Source, QueryFilter::Screenshots, Nothing>;
    struct Prepare;
    struct Test;

    const SearchCorpus& corpus_;
    Prepared prepared_;
};

}  // namespace nookwise
