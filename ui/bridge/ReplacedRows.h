// Which rows of a list became others.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <vector>

namespace nookwise {

/// `removed` rows from `first` on gave way to `inserted` others. Outside of them the lists are the
/// same.
struct ReplacedRows {
    std::size_t first = 0;
    std::size_t removed = 0;
    std::size_t inserted = 0;

    friend bool operator==(const ReplacedRows&, const ReplacedRows&) = default;
};

/// Exact where rows went or came in one place only, which is what a user's own actions do.
template <typename Row, typename Same = std::equal_to<>>
ReplacedRows replacedRows(const std::vector<Row>& before, const std::vector<Row>& after,
                          Same same = {}) {
    const auto [left, right] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), same);
    const auto tail = std::mismatch(before.rbegin(), std::make_reverse_iterator(left),
                                    after.rbegin(), std::make_reverse_iterator(right), same);
    return {static_cast<std::size_t>(std::distance(before.begin(), left)),
            static_cast<std::size_t>(std::distance(left, tail.first.base())),
            static_cast<std::size_t>(std::distance(right, tail.second.base()))};
}

}  // namespace nookwise
