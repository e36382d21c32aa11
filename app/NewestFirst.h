// Sorting files by date.
#pragma once

#include "model/FileItem.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace nookwise {

/// A list in the making, newest first; equal dates keep the order in which they were added. Small
/// entries are sorted instead of whole records, and by the bits of their dates: the lists are
/// rebuilt on the UI thread after every action, within a frame.
class NewestFirst {
  public:
    /// `position` is the file's among the files that `list` is given.
    void add(Date date, std::size_t position);

    bool isEmpty() const { return entries_.empty(); }

    std::vector<FileItem> list(std::span<const FileItem> files) &&;

  private:
    struct Entry {
        /// Smaller for a later date.
        std::uint64_t key;
        std::uint32_t position;
    };

    void sort();
    void sortByUpperBits();

    std::vector<Entry> entries_;
};

}  // namespace nookwise
