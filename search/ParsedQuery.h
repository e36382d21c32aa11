// A question taken apart.
#pragma once

#include "platform/Date.h"

#include <compare>
#include <cstdint>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace nookwise {

/// One condition on files, with the words that made it.
struct QueryFilter {
    /// The file's extension, lower-cased, is one of these.
    struct Exts {
        std::set<std::string> extensions;
        friend bool operator==(const Exts&, const Exts&) = default;
    };
    /// Added, else changed, from `start` on and before `end`.
    struct Dates {
        Date start;
        Date end;
        friend bool operator==(const Dates&, const Dates&) = default;
    };
    /// Of this many bytes or more.
    struct Larger {
        std::int64_t bytes;
        friend bool operator==(const Larger&, const Larger&) = default;
    };
    /// Of this many bytes or fewer.
    struct Smaller {
        std::int64_t bytes;
        friend bool operator==(const Smaller&, const Smaller&) = default;
    };
    /// Downloaded from the service of this name.
    struct Source {
        std::string name;
        friend bool operator==(const Source&, const Source&) = default;
    };
    /// Named as screenshots are.
    struct Screenshots {
        friend bool operator==(const Screenshots&, const Screenshots&) = default;
    };
    using Rule = std::variant<Exts, Dates, Larger, Smaller, Source, Screenshots>;

    /// "Kind", "From", "Size" or "When".
    std::string title;
    /// The value as shown: "PDF", "> 100 MB".
    std::string label;
    /// The words of the question that made it, lower-cased, joined by single spaces.
    std::string phrase;
    Rule rule;

    std::string id() const { return title + label; }

    friend bool operator==(const QueryFilter&, const QueryFilter&) = default;
};

struct ParsedQuery {
    /// In the order in which they were recognised.
    std::vector<QueryFilter> filters;
    /// The words that are left, lower-cased, in order.
    std::vector<std::string> words;

    friend bool operator==(const ParsedQuery&, const ParsedQuery&) = default;
};

}  // namespace nookwise
