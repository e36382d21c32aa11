// What the application and its reader processes say to each other over a socket pair. Both are
// built together, so the values go over as they lie in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace nookwise {

/// The descriptor at which a reader process finds its end of the socket pair (a byte stream).
inline constexpr int readerSocket = 3;

/// What a reader process is for; its only argument. Fixed for its life, because nobody may take
/// back the idle priority without special rights.
namespace readerRole {
/// Reads text at idle priority, taken on before anything else.
inline constexpr std::string_view text = "text";
/// Makes pictures for the screens, at normal priority. Recognises nothing.
inline constexpr std::string_view pictures = "pictures";
}  // namespace readerRole

enum class ReaderJob : std::uint32_t {
    pdfText,
    recogniseFast,
    recogniseAccurate,
    /// `argument` is the longest side in pixels.
    thumbnail,
    pixelSize,
};

/// Comes with the open file as its one passed descriptor (SCM_RIGHTS), standing at its beginning.
/// One request is answered before the next one comes; the end of the stream means that no other
/// will.
struct ReaderRequest {
    ReaderJob job = ReaderJob::pdfText;
    std::int32_t argument = 0;
};

/// What a process does after its reply. It ends where its libraries have lost too much memory.
enum class ReaderThen : std::uint64_t { waits, ends };

/// Followed by `length` bytes: the text, or the pixels of a Picture. All zero when the file gives
/// nothing. `width` and `height` are zero with a text, `length` is with a pixel size. Whatever else
/// is said, and whatever is said unasked, ends the process.
struct ReaderReply {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint64_t length = 0;
    ReaderThen then = ReaderThen::waits;
};

/// Sent once, when the process is confined and ready.
struct ReaderGreeting {
    /// Changes with everything in this file: an upgrade may put another program beneath an
    /// application that is running.
    static constexpr std::uint32_t expectedMark = 0x4e6f6f6c;
    std::uint32_t mark = expectedMark;
    /// 0 where the file system is closed to the process (Landlock), else the errno that tells why
    /// the kernel would not. Then it can open no file at all, and PDFs in some Asian encodings give
    /// no text.
    std::int32_t fileSystemError = 0;
    /// 0 where system calls are filtered (seccomp), else the errno that tells why not.
    std::int32_t systemCallsError = 0;
    /// 0 where the process can recognise text in pictures, else the errno that tells why not:
    /// ENOENT where no language is installed. It answers such jobs with nothing, which says nothing
    /// of the file.
    std::int32_t recognitionError = 0;
};

/// No honest reply is longer; a longer one ends the process.
inline constexpr std::uint64_t longestReply = std::uint64_t{256} << 20;

/// The same for a text.
inline constexpr std::uint64_t longestTextReply = std::uint64_t{16} << 20;

}  // namespace nookwise
