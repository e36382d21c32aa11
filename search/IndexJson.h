// The text of the index file.
#pragma once

#include "platform/Contents.h"
#include "platform/FileManager.h"
#include "search/IndexEntry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

// One JSON object: a file's path -> {"mtime": number, "text": string, "source": string}, the source
// left out where there is none. A path that is not UTF-8, which JSON cannot hold, stands there as
// the percent-escaped "file:///…" URL: no path begins so.

/// In bytes. No string of an index file may be longer.
constexpr std::size_t longestIndexedText = std::size_t{8} << 20U;

/// Gives the text to a sink in large pieces.
class IndexJsonWriter {
  public:
    /// `sink` must outlive it.
    explicit IndexJsonWriter(const ContentsSink& sink);

    /// Passes by what could not be read back: a time that is no number, a text of more than
    /// longestIndexedText bytes. False when the sink takes no more.
    bool add(const FileUrl& url, const IndexEntry& entry);

    /// To be called at the end. False when the sink did not take everything.
    bool finish();

  private:
    void put(std::string_view bytes);
    void putString(std::string_view text);
    void putEscaped(char c);
    void putNumber(double number);
    bool flush();

    const ContentsSink& sink_;
    std::string pending_;
    bool isTaken_ = true;
    bool isEmpty_ = true;
};

/// None when the first `limit` bytes that the file still has are anything else. Of a name that
/// comes twice the last one counts; members of other names are passed by, as are names that are no
/// path.
std::optional<IndexEntries> indexFromJson(FileReader& file, std::uint64_t limit);

}  // namespace nookwise
