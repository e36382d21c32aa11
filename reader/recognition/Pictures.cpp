#include "reader/recognition/Pictures.h"

#include "reader/recognition/Bitmaps.h"
#include "reader/recognition/Decoder.h"

namespace nookwise {

namespace {

void storeColour(const std::uint8_t* pixel, int bands, char* colour) {
    const bool grey = bands < 3;
    const bool transparent = bands % 2 == 0;
    for (int band = 0; band < 3; ++band) colour[band] = static_cast<char>(pixel[grey ? 0 : band]);
    colour[3] = static_cast<char>(transparent ? pixel[bands - 1] : 255);
}

std::uint8_t brightness(const std::uint8_t* colour) {
    return static_cast<std::uint8_t>((77U * colour[0] + 150U * colour[1] + 29U * colour[2]) >> 8);
}

std::size_t pixelCount(PixelSize size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

}  // namespace

void preparePictures() {
    prepareDecoder();
    silenceBitmaps();
}

std::optional<PixelSize> pixelSize(std::span<const std::byte> file) {
    return decodedSize(file);
}

std::optional<Picture> thumbnail(std::span<const std::byte> file, std::int32_t longestSide) {
    const auto decoded = decode(file, longestSide, Transparency::kept);
    if (!decoded) return std::nullopt;
    Picture picture{decoded->size, {}};
    picture.pixels.resize(pixelCount(decoded->size) * 4);
    const auto pixels = decoded->pixels();
    const auto bands = static_cast<std::size_t>(decoded->bands);
    for (std::size_t from = 0, to = 0; from < pixels.size(); from += bands, to += 4)
        storeColour(pixels.data() + from, decoded->bands, picture.pixels.data() + to);
    return picture;
}

std::optional<GreyPicture> greyPicture(std::span<const std::byte> file, std::int32_t longestSide) {
    const auto decoded = decode(file, longestSide, Transparency::onWhite);
    if (!decoded) return std::nullopt;
    const auto pixels = decoded->pixels();
    GreyPicture picture{decoded->size, {}};
    if (decoded->bands < 3) {
        picture.pixels.assign(pixels.begin(), pixels.end());
        return picture;
    }
    picture.pixels.resize(pixelCount(decoded->size));
    const auto* from = pixels.data();
    for (auto& level : picture.pixels) {
        level = static_cast<char>(brightness(from));
        from += 3;
    }
    return picture;
}

}  // namespace nookwise
