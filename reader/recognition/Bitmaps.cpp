#include "reader/recognition/Bitmaps.h"

#include "reader/recognition/Pix.h"

#include <cstdint>
#include <cstdlib>

namespace nookwise {

namespace {

constexpr std::size_t headerLengthOffset = 14;
constexpr std::size_t widthOffset = 18;
constexpr std::size_t heightOffset = 22;
/// The oldest header has sizes of 16 bits; it is read by nothing used here.
constexpr std::int32_t shortestHeader = 40;

std::int32_t number(std::span<const std::byte> file, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value |= std::to_integer<std::uint32_t>(file[offset + i]) << (8 * i);
    return static_cast<std::int32_t>(value);
}

Picture toPicture(Pix* pix, bool transparent) {
    Picture picture{{pixGetWidth(pix), pixGetHeight(pix)}, {}};
    picture.pixels.reserve(static_cast<std::size_t>(picture.size.width) *
                           static_cast<std::size_t>(picture.size.height) * 4);
    for (std::int32_t y = 0; y < picture.size.height; ++y) {
        const l_uint32* line = pixGetData(pix) + std::ptrdiff_t{y} * pixGetWpl(pix);
        for (std::int32_t x = 0; x < picture.size.width; ++x) {
            l_int32 red = 0, green = 0, blue = 0;
            extractRGBValues(line[x], &red, &green, &blue);
            const auto alpha = transparent ? line[x] & 0xffU : 0xffU;
            for (const auto value : {red, green, blue, static_cast<l_int32>(alpha)})
                picture.pixels.push_back(static_cast<char>(value));
        }
    }
    return picture;
}

/// Most writers leave the fourth byte zero and mean nothing by it.
bool hasAnyAlpha(Pix* pix) {
    if (pixGetSpp(pix) != 4) return false;
    const PixPointer alpha(pixGetRGBComponent(pix, L_ALPHA_CHANNEL));
    l_int32 empty = 1;
    return alpha && pixZero(alpha.get(), &empty) == 0 && empty == 0;
}

}  // namespace

void silenceBitmaps() {
    setMsgSeverity(L_SEVERITY_NONE);
}

std::optional<PixelSize> bitmapSize(std::span<const std::byte> file) {
    if (file.size() < heightOffset + 4 || number(file, headerLengthOffset) < shortestHeader)
        return std::nullopt;
    const PixelSize size{number(file, widthOffset), number(file, heightOffset)};
    // A negative height means rows from the top.
    if (size.width <= 0 || size.height == 0 || size.height == INT32_MIN) return std::nullopt;
    return PixelSize{size.width, std::abs(size.height)};
}

std::optional<Picture> decodeBitmap(std::span<const std::byte> file) {
    const PixPointer read(
        pixReadMemBmp(reinterpret_cast<const l_uint8*>(file.data()), file.size()));
    if (!read) return std::nullopt;
    const PixPointer colours(pixConvertTo32(read.get()));
    if (!colours) return std::nullopt;
    return toPicture(colours.get(), hasAnyAlpha(read.get()));
}

}  // namespace nookwise
