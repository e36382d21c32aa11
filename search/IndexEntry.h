// What has been read inside one file.
#pragma once

#include "model/FileItem.h"
#include "platform/SharedBytes.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace nookwise {

struct IndexEntry {
    /// When the file was last changed as it was read, in seconds since 1970; 0 where the file
    /// system did not tell.
    double mtime = 0;
    /// UTF-8; empty where nothing was read.
    SharedBytes text;
    /// The text in lower case, sharing the text's bytes where they are the same. Not written to the
    /// index file.
    SharedBytes lowerText;
    /// The service or host that the file was downloaded from.
    std::optional<SharedBytes> source;

    friend bool operator==(const IndexEntry&, const IndexEntry&) = default;
};

/// `text` with its lower case made.
IndexEntry indexEntry(double mtime, std::string_view text, std::optional<SharedBytes> source);

/// Makes the entry's lower case from its text, in memory that is used again and again.
void makeLowerText(IndexEntry& entry, std::string& lower);

/// As IndexEntry::mtime holds it.
double modificationTime(const FileItem& file);

using IndexEntries = std::unordered_map<FileUrl, IndexEntry>;

}  // namespace nookwise
