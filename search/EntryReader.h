// Learning what there is to know about files.
#pragma once

#include "model/FileItem.h"
#include "platform/Metadata.h"
#include "platform/TextReader.h"
#include "search/IndexEntry.h"

#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace nookwise {

class EntryReader {
  public:
    /// What it is given must outlive it.
    EntryReader(const Metadata& metadata, TextReader& reader, FileUrl downloads)
        : metadata_(metadata), reader_(reader), downloads_(std::move(downloads)) {}

    /// The files' entries in their order, read at the same time; for a file about which nothing was
    /// learnt, the reader's error. Ends soon after a stop request.
    std::vector<Result<IndexEntry>> read(std::span<const FileItem> files,
                                         const std::stop_token& stop) const;

  private:
    Result<IndexEntry> read(const FileItem& file, const std::stop_token& stop) const;
    Result<std::string> text(const FileUrl& url, const std::stop_token& stop) const;
    std::optional<SharedBytes> source(const FileUrl& url) const;

    const Metadata& metadata_;
    TextReader& reader_;
    FileUrl downloads_;
};

}  // namespace nookwise
