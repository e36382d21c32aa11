// Reads files in processes of their own, which may die of them.
#pragma once

#include "platform/TextReader.h"
#include "platform/linux/Environment.h"
#include "platform/linux/ReaderJobRun.h"
#include "platform/linux/ReaderPool.h"

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <optional>
#include <stop_token>

namespace nookwise {

/// Constructed by a thread of normal priority, because the processes inherit it. Processes are
/// started when they are needed. Destroying this stops the calls that are under way, waits for them
/// and ends all processes.
class LinuxTextReader : public TextReader {
  public:
    explicit LinuxTextReader(const FileUrl& program, const ReaderLimits& limits = {},
                             const Environment& environment = processEnvironment);
    ~LinuxTextReader() override;

    Result<std::string> pdf(const FileUrl& url, const std::stop_token& stop) override;
    Result<std::string> ocr(const FileUrl& url, RecognitionGrade grade,
                            const std::stop_token& stop) override;
    Result<std::optional<Picture>> thumbnail(const FileUrl& url, std::int32_t longestSide,
                                             const std::stop_token& stop) override;
    Result<std::optional<PixelSize>> pixelSize(const FileUrl& url,
                                               const std::stop_token& stop) override;

    /// As the newest process said; none before the first.
    std::optional<ReaderConfinement> confinement() const { return pool_.confinement(); }

  private:
    class Call;

    Result<ReaderJobResult> read(const FileUrl& url, const ReaderRequest& request,
                                 const std::stop_token& stop);
    Result<ReaderJobResult> readOnce(const FileUrl& url, int file, const ReaderRequest& request,
                                     const CallStop& stop);
    Result<std::string> text(const FileUrl& url, ReaderJob job, const std::stop_token& stop);

    const ReaderLimits limits_;
    ReaderPool pool_;

    std::stop_source end_;
    std::mutex mutex_;
    std::condition_variable callEnded_;
    std::size_t calls_ = 0;
};

}  // namespace nookwise
