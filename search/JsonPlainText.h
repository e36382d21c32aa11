// What stands for itself in a JSON string.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace nookwise {

/// How many bytes the text begins with that are no quotation mark, backslash or control character.
/// Eight at a time: most of a long text is this.
inline std::size_t plainLength(std::string_view text) {
    constexpr auto inEachByte = [](std::uint64_t byte) { return byte * 0x0101010101010101U; };
    // The high bit of the lowest byte that is below `least`, and perhaps of bytes above it.
    constexpr auto below = [=](std::uint64_t bytes, std::uint64_t least) {
        return (bytes - inEachByte(least)) & ~bytes & inEachByte(0x80);
    };
    std::size_t length = 0;
    for (std::uint64_t bytes = 0; text.size() - length >= sizeof bytes; length += sizeof bytes) {
        std::memcpy(&bytes, text.data() + length, sizeof bytes);
        const auto ends = below(bytes ^ inEachByte('"'), 1) | below(bytes ^ inEachByte('\\'), 1) |
                          below(bytes, 0x20);
        if (ends == 0) continue;
        if constexpr (std::endian::native == std::endian::little)
            return length + static_cast<std::size_t>(std::countr_zero(ends)) / 8;
        break;
    }
    const auto isPlain = [](char c) {
        return c != '"' && c != '\\' && static_cast<unsigned char>(c) >= 0x20;
    };
    while (length < text.size() && isPlain(text[length])) ++length;
    return length;
}

}  // namespace nookwise
