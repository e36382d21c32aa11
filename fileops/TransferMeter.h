// Adding up how far a move or copy of several files is.
#pragma once

#include "platform/FileManager.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace nookwise {

/// How far a move or copy is.
struct TransferProgress {
    /// Those that failed or were left alone are done too.
    std::size_t filesDone = 0;
    std::size_t filesTotal = 0;
    /// Bytes copied so far; 0 while everything is only renamed.
    std::int64_t bytesDone = 0;
    /// Bytes of all the files together, where that is known.
    std::optional<std::int64_t> bytesTotal;

    friend bool operator==(const TransferProgress&, const TransferProgress&) = default;
};

/// Called on the thread that moves or copies.
using TransferReport = std::function<void(const TransferProgress&)>;

/// How many bytes there are is asked only once some are copied: a rename is done before they would
/// be counted. The file that is being copied tells its own, also that of a folder; of the later
/// ones the sizes are asked for. Where one of those is a folder, the whole stays unknown: counting
/// it would take long.
class TransferMeter {
  public:
    /// All arguments must outlive it.
    TransferMeter(const FileManager& files, const std::vector<FileUrl>& urls,
                  const TransferReport& report);

    /// To be handed on with the next file, for as long as this lives.
    CopyWatch watch(const std::stop_token& stop);
    /// The next file is done, whatever came of it.
    void fileDone();

  private:
    void plan(std::int64_t bytes, const std::stop_token& stop);
    void add(std::int64_t bytes);
    void askSizes(const std::stop_token& stop);
    void report();

    const FileManager& files_;
    const std::vector<FileUrl>& urls_;
    const TransferReport& report_;
    TransferProgress progress_;
    /// Of each file; empty until some bytes are copied, and where they are not all known.
    std::vector<std::int64_t> expected_;
    bool isAsked_ = false;
    /// Of the file under way.
    std::int64_t copied_ = 0;
};

}  // namespace nookwise
