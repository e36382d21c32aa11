// Reading one folder: names, order and attributes of its entries.
#pragma once

#include "platform/FileManager.h"

#include <cstdint>
#include <stop_token>
#include <string_view>
#include <vector>

#include <sys/stat.h>

namespace nookwise {

/// What a folder's listing says of an entry.
enum class EntryType { regular, folder, other, unknown };

/// The names in one folder. One buffer holds them all and is used again for the next folder.
class FolderEntries {
  public:
    struct Entry {
        /// NUL-terminated; valid until the next read.
        const char* name;
        std::uint32_t length;
        EntryType type;

        std::string_view view() const { return {name, length}; }
        bool isHidden() const { return *name == '.'; }
    };

    /// Reads all names of the open folder, "." and ".." left out, in the file system's order. False
    /// with errno set when it cannot be read, ECANCELED after a stop request.
    bool read(int folder, const std::stop_token& stop);

    /// Leaves out hidden entries and sorts the others by the bytes of their names. False after a
    /// stop request.
    bool keepVisibleSorted(const std::stop_token& stop);

    const std::vector<Entry>& entries() const { return entries_; }

    /// The names alone, in the order of `entries`. Valid until the next read.
    const std::vector<std::string_view>& names();

  private:
    std::vector<char> raw_;
    std::vector<Entry> entries_;
    std::vector<std::string_view> names_;
};

/// The attributes without a package's contents.
FileAttributes attributesOf(const struct statx& status, FileType type);

/// Regular file, folder (also a package), or other.
FileType typeOf(const struct statx& status);

/// True for folders that count as one file, by the extension of their name.
bool namesPackage(std::string_view folderName);

struct PackageContents {
    std::int64_t allocatedSize = 0;
    std::int64_t fileSize = 0;
};

/// The sums over all regular files in an open folder and below, hidden ones included, links not
/// followed. What cannot be read counts nothing.
PackageContents packageContents(int folder, const std::stop_token& stop);

}  // namespace nookwise
