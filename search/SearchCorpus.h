// What questions are asked of, laid out so that a question is one pass over it.
#pragma once

#include "model/FileItem.h"
#include "model/TextsByUrl.h"
#include "search/NumberedTexts.h"
#include "search/RowTable.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// One row for each file, the newest first, in the order of answers. The texts are shared with the
/// values that the corpus is made of; whoever changes a value says so before the next question.
class SearchCorpus {
  public:
    /// Owned by others, who keep them at their place.
    struct Values {
        const std::vector<FileItem>& files;
        const TextsByUrl& texts;
        const TextsByUrl& lowerTexts;
        const TextsByUrl& sources;
    };

    struct Row {
        SharedBytes lowerText;
        /// Smaller for a newer file.
        std::uint64_t age = 0;
        /// Bytes of the lower-cased name.
        std::uint32_t nameSize = 0;
        /// The number of the file among the files.
        std::uint32_t file = 0;
        /// Their numbers among the lower-cased extensions and the sources.
        std::uint32_t extension = 0;
        std::uint32_t source = 0;
    };

    struct TextPlace {
        const char* begin = nullptr;
        std::uint32_t size = 0;
        std::uint32_t row = 0;

        std::string_view text() const { return {begin, size}; }
        std::uintptr_t address() const { return reinterpret_cast<std::uintptr_t>(begin); }
    };

    /// Rows beside each other, as many as a word has bits.
    struct Block {
        std::span<const Row> rows;
        /// The lower-cased names of the rows, one after the other.
        std::string_view names;
    };
    static constexpr std::size_t rowsInBlock = 64;

    /// The number of a row without a source.
    static constexpr std::uint32_t noSource = 0;

    explicit SearchCorpus(const Values& values);

    // What is known of a file that stays among the files is kept, also where its date changes.
    void filesChanged();
    // Each either as a whole, or at most for these files.
    void lowerTextsChanged();
    void lowerTextsChanged(std::span<const FileUrl> urls);
    void sourcesChanged();
    void sourcesChanged(std::span<const FileUrl> urls);

    /// Questions are answered faster after it. Takes some milliseconds for 100,000 new texts and
    /// next to nothing without new ones; done without being asked for whenever as many texts have
    /// been added as there were.
    void sortInMemory();

    std::span<const Row> rows() const { return rows_; }
    std::size_t blockCount() const { return blockBegins_.size(); }
    Block block(std::size_t number) const;

    /// The texts that say something, more or less in the order in which they lie in memory.
    std::span<const TextPlace> texts() const { return inMemory_; }

    std::string_view name(std::size_t row) const;
    const FileItem& file(const Row& row) const { return values_.files[row.file]; }
    /// As it was read; empty for a file without a text.
    std::string_view text(const Row& row) const;
    const NumberedTexts& extensions() const { return extensions_; }
    const NumberedTexts& sources() const { return sources_; }

    /// Bytes of memory that are taken beside the values.
    std::size_t memory() const;

  private:
    /// A row in the making.
    struct Place {
        std::uint64_t age;
        std::uint32_t file;
        /// The row that the file had before.
        std::uint32_t oldRow;
    };

    void forgetNumbers();
    std::uint32_t numberOfFile(const FileUrl& url) const;
    /// The row that each file had before; a row serves one file.
    std::vector<std::uint32_t> oldRows() const;
    std::vector<Place> newOrder(const std::vector<std::uint32_t>& oldRows) const;
    void layOut(const std::vector<Place>& order);
    void addNew(const Place& place, std::string& lower);
    void renumber(const std::vector<Place>& order, std::size_t oldCount);
    /// Takes out the texts of these rows.
    void removePlaces(std::vector<std::uint32_t> rows);
    void addPlace(std::uint32_t row);
    std::uint32_t extensionNumber(const FileUrl& url, std::string_view lowerName);
    std::uint32_t sourceNumber(const FileUrl& url);

    template <typename Change>
    void forEachRow(const FileUrl& url, Change change);

    Values values_;
    std::vector<Row> rows_;
    std::string names_;
    /// Where the names of each block begin.
    std::vector<std::size_t> blockBegins_;
    /// In the order of the files.
    std::vector<FileUrl> urls_;
    RowTable table_;
    /// A row keeps the bytes of its text alive.
    std::vector<TextPlace> inMemory_;
    /// So many of them, from the first one on, are in order.
    std::size_t sorted_ = 0;
    NumberedTexts extensions_;
    NumberedTexts sources_;
};

}  // namespace nookwise
