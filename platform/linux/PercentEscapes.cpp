#include "platform/linux/PercentEscapes.h"

#include <charconv>

namespace nookwise {
namespace {

bool standsUnescaped(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

}  // namespace

std::string percentEscaped(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        if (standsUnescaped(c)) {
            text += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        text += '%';
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

std::optional<std::string> percentUnescaped(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        if (text.front() != '%') {
            bytes += text.front();
            text.remove_prefix(1);
            continue;
        }
        if (text.size() < 3) return std::nullopt;
        unsigned char byte = 0;
        const auto* end = text.data() + 3;
        const auto read = std::from_chars(text.data() + 1, end, byte, 16);
        if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
        bytes += static_cast<char>(byte);
        text.remove_prefix(3);
    }
    return bytes;
}

}  // namespace nookwise
