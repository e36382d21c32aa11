#include "tests/reader/Deflated.h"

#include <cstdint>
#include <stdexcept>

#include <zlib.h>

namespace nookwise {
namespace {

const Bytef* bytesOf(std::string_view text) {
    return reinterpret_cast<const Bytef*>(text.data());
}

std::string bigEndian(std::uint64_t number) {
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(number >> shift);
    return bytes;
}

/// Without header and checksum, so that many may follow one another.
std::string block(std::string_view part) {
    z_stream stream{};
    if (::deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) !=
        Z_OK)
        throw std::runtime_error("no compression");
    std::string bytes(::deflateBound(&stream, part.size()) + 64, '\0');
    stream.next_in = const_cast<Bytef*>(bytesOf(part));
    stream.avail_in = static_cast<uInt>(part.size());
    stream.next_out = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_out = static_cast<uInt>(bytes.size());
    ::deflate(&stream, Z_FULL_FLUSH);
    bytes.resize(stream.total_out);
    ::deflateEnd(&stream);
    return bytes;
}

std::string chunk(std::string_view type, const std::string& data) {
    const auto body = std::string(type) + data;
    const auto sum = ::crc32(0, bytesOf(body), static_cast<uInt>(body.size()));
    return bigEndian(data.size()) + body + bigEndian(sum);
}

enum class Colours : char { redGreenBlue = 2, redGreenBlueAlpha = 6 };

std::string pngOf(PixelSize size, Colours colours, const std::string& rows) {
    auto header = bigEndian(static_cast<std::uint64_t>(size.width)) +
                  bigEndian(static_cast<std::uint64_t>(size.height));
    constexpr char bits = 8;
    header += {bits, static_cast<char>(colours), 0, 0, 0};
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + chunk("IDAT", rows) + chunk("IEND", {});
}

}  // namespace

std::string deflated(std::string_view part, std::size_t times) {
    const auto repeated = block(part);
    const auto sum = ::adler32(1, bytesOf(part), static_cast<uInt>(part.size()));
    std::string bytes = "\x78\x01";
    auto whole = ::adler32(0, nullptr, 0);
    for (std::size_t time = 0; time < times; ++time) {
        bytes += repeated;
        whole = ::adler32_combine(whole, sum, static_cast<z_off_t>(part.size()));
    }
    constexpr std::string_view lastBlock("\x03\0", 2);
    bytes += lastBlock;
    return bytes + bigEndian(whole);
}

std::string png(const Picture& picture) {
    const auto width = static_cast<std::size_t>(picture.size.width);
    std::string rows;
    for (std::size_t pixel = 0; pixel < picture.pixels.size() / 4; ++pixel) {
        if (pixel % width == 0) rows += '\0';
        rows.append(picture.pixels, pixel * 4, 3);
    }
    return pngOf(picture.size, Colours::redGreenBlue, deflated(rows));
}

std::string emptyPng(PixelSize size) {
    const std::string row(static_cast<std::size_t>(size.width) * 4 + 1, '\0');
    return pngOf(size, Colours::redGreenBlueAlpha,
                 deflated(row, static_cast<std::size_t>(size.height)));
}

}  // namespace nookwise
