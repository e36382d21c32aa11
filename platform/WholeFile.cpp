#include "platform/WholeFile.h"

#include <algorithm>

namespace nookwise {

Result<std::string> wholeFile(const FileManager& files, const FileUrl& url, std::size_t limit) {
    const auto real = files.resolved(url);
    if (!real) return real.error();
    auto opened = files.open(real.value());
    if (!opened) return opened.error();
    const auto state = opened.value()->state();
    if (!state) return state.error();
    const FileError tooLarge{std::make_error_code(std::errc::file_too_large), url, "read"};
    if (state.value().size > static_cast<std::int64_t>(limit)) return tooLarge;
    // Read in steps, because it may hold more by now, or less than it claims.
    constexpr std::size_t step = 1024 * 1024;
    std::string bytes;
    for (;;) {
        const auto held = bytes.size();
        // One byte beyond the limit tells that there is more.
        const auto wanted = std::min(step, limit + 1 - held);
        bytes.resize(held + wanted);
        const auto count =
            opened.value()->read(std::as_writable_bytes(std::span(bytes).subspan(held)));
        if (!count) return count.error();
        bytes.resize(held + count.value());
        if (bytes.size() > limit) return tooLarge;
        if (count.value() < wanted) return bytes;
    }
}

}  // namespace nookwise
