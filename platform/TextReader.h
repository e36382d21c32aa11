// Reading what is inside files that anybody may have made.
#pragma once

#include "platform/FileUrl.h"
#include "platform/Result.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>

namespace nookwise {

/// How much is done to recognise the text in a picture.
enum class RecognitionGrade {
    /// The picture is read at no more than 1,400 pixels on its long side.
    fast,
    /// At no more than 2,400 pixels.
    accurate,
};

struct PixelSize {
    std::int32_t width = 0;
    std::int32_t height = 0;

    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// A decoded picture: rows from the top, four bytes a pixel (red, green, blue, alpha, not
/// premultiplied), no padding.
struct Picture {
    PixelSize size;
    std::string pixels;

    friend bool operator==(const Picture&, const Picture&) = default;
};

/// Every operation may be called from any thread and returns when the file has been read: within a
/// time limit, whatever the file holds. A value is what the file says, and is empty when it says
/// nothing, may not be read, is no regular file, cannot be decoded, or is more than the limits
/// allow. An error means that nothing was learnt about the file and that it is worth another try
/// some day: it is not where it was, the system had no room, a stop was requested
/// (std::errc::operation_canceled), which ends the reading at once. An error with another URL than
/// the file's means that no file can be read at present.
class TextReader {
  public:
    virtual ~TextReader() = default;

    /// The text of a PDF's first 15 pages, a line feed after each; at most 30,000 characters.
    virtual Result<std::string> pdf(const FileUrl& url, const std::stop_token& stop) = 0;

    /// The text recognised in a picture, upright as its file says, lines joined by line feeds.
    virtual Result<std::string> ocr(const FileUrl& url, RecognitionGrade grade,
                                    const std::stop_token& stop) = 0;

    /// The picture or the PDF's first page, upright, no side longer than `longestSide` pixels and
    /// never enlarged.
    virtual Result<std::optional<Picture>> thumbnail(const FileUrl& url, std::int32_t longestSide,
                                                     const std::stop_token& stop) = 0;

    /// How large a picture is, upright, from its header alone.
    virtual Result<std::optional<PixelSize>> pixelSize(const FileUrl& url,
                                                       const std::stop_token& stop) = 0;
};

}  // namespace nookwise
