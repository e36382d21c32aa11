// Finding a row of a list by typing the beginning of its name.
#pragma once

#include "fileops/FolderListing.h"
#include "platform/Date.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// Upper and lower case are the same here, and so are the composed and the decomposed form of a
/// letter.
class TypeAhead {
  public:
    /// The first row, from the current one onwards and round to it again, whose name begins with
    /// what was typed. `typed` is what a key adds; after a second without keys it begins anew, and
    /// then the current row comes last. One character again and again leads from row to row. None
    /// when no name begins so.
    std::optional<std::size_t> type(std::string_view typed, Date now,
                                    const std::vector<FolderItem>& items,
                                    std::optional<std::size_t> currentRow);

    /// Whether a further character would belong to a name that is being typed.
    bool isTyping(Date now) const;

  private:
    std::string typed_;
    Date last_ = distantPast;
};

}  // namespace nookwise
