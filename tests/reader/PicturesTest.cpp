#include "reader/recognition/Pictures.h"
#include "tests/reader/DrawnPictures.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace nookwise {
namespace {

constexpr Rgba red{200, 30, 30};
constexpr Rgba blue{20, 40, 190};

/// A red corner at the top left of blue.
Drawing flag(int width = 60, int height = 40) {
    return Drawing(width, height, blue).rectangle(0, 0, width / 2, height / 2, red);
}

Rgba colourAt(const Picture& picture, int x, int y) {
    const auto at = (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.width) +
                     static_cast<std::size_t>(x)) *
                    4;
    const auto band = [&](std::size_t i) {
        return static_cast<std::uint8_t>(picture.pixels[at + i]);
    };
    return {band(0), band(1), band(2), band(3)};
}

MATCHER_P(IsAbout, expected, "") {
    const auto near = [](int one, int other) { return std::abs(one - other) <= 12; };
    *result_listener << "is " << int{arg.red} << ", " << int{arg.green} << ", " << int{arg.blue}
                     << ", " << int{arg.alpha};
    return near(arg.red, expected.red) && near(arg.green, expected.green) &&
           near(arg.blue, expected.blue) && near(arg.alpha, expected.alpha);
}

void expectFlag(const std::optional<Picture>& picture, PixelSize size) {
    ASSERT_TRUE(picture);
    ASSERT_EQ(picture->size, size);
    ASSERT_EQ(picture->pixels.size(), static_cast<std::size_t>(size.width * size.height * 4));
    EXPECT_THAT(colourAt(*picture, size.width / 8, size.height / 8), IsAbout(red));
    EXPECT_THAT(colourAt(*picture, size.width * 7 / 8, size.height / 8), IsAbout(blue));
    EXPECT_THAT(colourAt(*picture, size.width / 8, size.height * 7 / 8), IsAbout(blue));
}

struct Format {
    std::string name;
    std::string options;
};

std::ostream& operator<<(std::ostream& out, const Format& format) {
    return out << format.name;
}

class PictureFormats : public testing::TestWithParam<Format> {};

TEST_P(PictureFormats, areDecodedInTheirColours) {
    const auto file = flag().saved(GetParam().options);
    EXPECT_EQ(pixelSize(bytesOf(file)), (PixelSize{60, 40}));
    expectFlag(thumbnail(bytesOf(file), 100), {60, 40});
}

TEST_P(PictureFormats, areMadeNoLargerThanAsked) {
    const auto file = flag(240, 160).saved(GetParam().options);
    expectFlag(thumbnail(bytesOf(file), 30), {30, 20});
}

TEST_P(PictureFormats, readAsGrey) {
    const auto file = flag(240, 160).saved(GetParam().options);
    const auto grey = greyPicture(bytesOf(file), 60);
    ASSERT_TRUE(grey);
    EXPECT_EQ(grey->size, (PixelSize{60, 40}));
    EXPECT_EQ(grey->pixels.size(), std::size_t{60 * 40});
}

TEST_P(PictureFormats, cutOffAnywhereGiveWhatThereIsOrNothing) {
    constexpr PixelSize stored{120, 80}, wanted{60, 40};
    const auto file = flag(120, 80).saved(GetParam().options);
    for (std::size_t length = 0; length < file.size(); length += 1 + file.size() / 100) {
        const auto part = file.substr(0, length);
        const auto picture = thumbnail(bytesOf(part), 60);
        EXPECT_EQ(picture ? picture->size : wanted, wanted) << length;
        EXPECT_EQ(pixelSize(bytesOf(part)).value_or(stored), stored) << length;
    }
}

TEST_P(PictureFormats, damagedAnywhereDoNoHarm) {
    const auto whole = flag(120, 80).saved(GetParam().options);
    unsigned state = 20260101;
    const auto next = [&] { return (state = state * 1664525U + 1013904223U) >> 8; };
    for (int round = 0; round < 150; ++round) {
        auto file = whole;
        for (unsigned flips = 1 + next() % 4; flips > 0; --flips)
            file[next() % file.size()] ^= static_cast<char>(1U << (next() % 8));
        if (const auto picture = thumbnail(bytesOf(file), 50)) {
            EXPECT_LE(std::max(picture->size.width, picture->size.height), 50);
            EXPECT_EQ(picture->pixels.size(),
                      static_cast<std::size_t>(picture->size.width * picture->size.height * 4));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, PictureFormats,
    testing::Values(Format{"png", ".png"}, Format{"interlacedPng", ".png[interlace]"},
                    Format{"palettePng", ".png[palette]"}, Format{"jpeg", ".jpg[Q=95]"},
                    Format{"progressiveJpeg", ".jpg[Q=95,interlace]"},
                    Format{"heic", ".heic[Q=95]"}, Format{"tiff", ".tif"},
                    Format{"compressedTiff", ".tif[compression=deflate]"},
                    Format{"tiledTiff", ".tif[tile]"}, Format{"gif", ".gif"},
                    Format{"webp", ".webp[Q=95]"}, Format{"losslessWebp", ".webp[lossless]"}),
    [](const auto& test) { return test.param.name; });

TEST(Pictures, readBitmaps) {
    const auto file = flag(62, 40).savedAsBitmap();
    EXPECT_EQ(pixelSize(bytesOf(file)), (PixelSize{62, 40}));
    expectFlag(thumbnail(bytesOf(file), 100), {62, 40});
    expectFlag(thumbnail(bytesOf(file), 31), {31, 20});
}

TEST(Pictures, readBitmapsThatBreakOffOrLieWithoutHarm) {
    const auto whole = flag().savedAsBitmap();
    for (std::size_t length = 0; length < whole.size(); length += 7)
        (void)thumbnail(bytesOf(whole.substr(0, length)), 50);
    for (std::size_t at = 0; at < 54; ++at)
        for (const char value : {'\0', '\x7f', '\xff'}) {
            auto file = whole;
            file[at] = value;
            (void)thumbnail(bytesOf(file), 50);
            (void)pixelSize(bytesOf(file));
        }
}

struct ColourSpace {
    std::string name;
    std::string format;
};

TEST(Pictures, readOtherKindsOfColour) {
    for (const auto& [space, format] : {ColourSpace{"cmyk", ".jpg[Q=95]"},
                                        {"cmyk", ".tif"},
                                        {"rgb16", ".png"},
                                        {"rgb16", ".tif"}}) {
        const auto picture = thumbnail(bytesOf(flag().savedAs(space, format)), 60);
        ASSERT_TRUE(picture) << space << format;
        EXPECT_EQ(picture->size, (PixelSize{60, 40}));
        const auto corner = colourAt(*picture, 5, 5), rest = colourAt(*picture, 50, 30);
        EXPECT_GT(corner.red, corner.blue + 60) << space << format;
        EXPECT_GT(rest.blue, rest.red + 60) << space << format;
    }
    for (const auto& [space, format] :
         {ColourSpace{"b-w", ".png"}, {"b-w", ".jpg"}, {"grey16", ".png"}}) {
        const auto file = Drawing(40, 40, {128, 128, 128}).savedAs(space, format);
        const auto picture = thumbnail(bytesOf(file), 60);
        ASSERT_TRUE(picture) << space << format;
        EXPECT_THAT(colourAt(*picture, 20, 20), IsAbout(Rgba{128, 128, 128})) << space << format;
    }
}

TEST(Pictures, keepTransparencyInThumbnails) {
    const auto file = Drawing(100, 100, {10, 200, 10, 0})
                          .rectangle(50, 0, 50, 100, {250, 10, 10, 128})
                          .saved(".png");
    for (const int side : {100, 50}) {
        const auto picture = thumbnail(bytesOf(file), side);
        ASSERT_TRUE(picture);
        EXPECT_EQ(colourAt(*picture, side / 5, side / 2).alpha, 0);
        EXPECT_THAT(colourAt(*picture, side * 4 / 5, side / 2), IsAbout(Rgba{250, 10, 10, 128}));
    }
}

TEST(Pictures, areReadOnWhiteWhereTransparent) {
    const auto file =
        Drawing(100, 100, {0, 0, 0, 0}).rectangle(50, 0, 50, 100, {0, 0, 0, 255}).saved(".png");
    for (const int side : {100, 50}) {
        const auto grey = greyPicture(bytesOf(file), side);
        ASSERT_TRUE(grey);
        const auto middle = static_cast<std::size_t>(side * side / 2);
        EXPECT_EQ(static_cast<std::uint8_t>(grey->pixels[middle + 5]), 255);
        EXPECT_EQ(
            static_cast<std::uint8_t>(grey->pixels[middle + static_cast<std::size_t>(side) - 5]),
            0);
    }
}

/// The picture as the camera stored it, so that it is upright when turned as the number says.
Drawing stored(const Drawing& upright, int orientation) {
    switch (orientation) {
        case 2:
            return upright.flipped();
        case 3:
            return upright.turned(2);
        case 4:
            return upright.turned(2).flipped();
        case 5:
            return upright.turned(1).flipped();
        case 6:
            return upright.turned(3);
        case 7:
            return upright.turned(3).flipped();
        case 8:
            return upright.turned(1);
        default:
            return upright;
    }
}

TEST(Pictures, areUprightWhicheverWayTheCameraWasHeld) {
    for (int orientation = 1; orientation <= 8; ++orientation)
        for (const auto* format : {".jpg[Q=95]", ".tif", ".webp[Q=95]"}) {
            SCOPED_TRACE(std::string(format) + " " + std::to_string(orientation));
            const auto file = stored(flag(), orientation).saved(format, orientation);
            EXPECT_EQ(pixelSize(bytesOf(file)), (PixelSize{60, 40}));
            expectFlag(thumbnail(bytesOf(file), 100), {60, 40});
            expectFlag(thumbnail(bytesOf(file), 30), {30, 20});
        }
}

TEST(Pictures, showTheFirstOfSeveralImages) {
    const auto other = Drawing(60, 40, {0, 255, 0});
    for (const auto* format : {".gif", ".webp[Q=95]", ".tif"}) {
        const auto file = flag().savedBefore(other, format);
        SCOPED_TRACE(format);
        EXPECT_EQ(pixelSize(bytesOf(file)), (PixelSize{60, 40}));
        expectFlag(thumbnail(bytesOf(file), 100), {60, 40});
    }
}

TEST(Pictures, ofOnePixelAreReadAndNeverEnlarged) {
    for (const auto* format : {".png", ".jpg", ".gif", ".webp", ".tif"}) {
        const auto file = Drawing(1, 1, {128, 128, 128}).saved(format);
        const auto picture = thumbnail(bytesOf(file), 256);
        ASSERT_TRUE(picture) << format;
        EXPECT_EQ(picture->size, (PixelSize{1, 1}));
    }
}

TEST(Pictures, keepAtLeastOnePixelASide) {
    const auto file = Drawing(2000, 2, red).saved(".png");
    const auto picture = thumbnail(bytesOf(file), 100);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->size, (PixelSize{100, 1}));
    const auto tiny = thumbnail(bytesOf(file), 1);
    ASSERT_TRUE(tiny);
    EXPECT_EQ(tiny->size, (PixelSize{1, 1}));
}

std::uint32_t checksum(std::string_view bytes) {
    std::uint32_t value = 0xffffffffU;
    for (const char byte : bytes) {
        value ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            value = (value >> 1) ^ ((value & 1U) != 0 ? 0xedb88320U : 0U);
    }
    return ~value;
}

void putNumber(std::string& file, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) file[at + i] = static_cast<char>(value >> (24 - 8 * i));
}

/// Says in its header that it has other dimensions.
FileBytes lyingPng(std::uint32_t width, std::uint32_t height) {
    auto file = flag().saved(".png");
    putNumber(file, 16, width);
    putNumber(file, 20, height);
    putNumber(file, 29, checksum(std::string_view(file).substr(12, 17)));
    return file;
}

TEST(Pictures, ofMorePixelsThanAnyCameraTakesAreNotDecoded) {
    const auto file = lyingPng(20'000, 20'000);
    EXPECT_EQ(pixelSize(bytesOf(file)), (PixelSize{20'000, 20'000}));
    EXPECT_FALSE(thumbnail(bytesOf(file), 256));
    EXPECT_FALSE(greyPicture(bytesOf(file), 2400));
}

TEST(Pictures, thatClaimMoreThanTheyHoldDoNoHarm) {
    const auto file = lyingPng(6'000, 6'000);
    const auto picture = thumbnail(bytesOf(file), 64);
    EXPECT_TRUE(!picture || picture->size == (PixelSize{64, 64}));
    for (const auto side : {0U, 0x7fffffffU, 0xffffffffU})
        EXPECT_FALSE(thumbnail(bytesOf(lyingPng(side, side)), 64));
}

TEST(Pictures, areNothingWhenTheFileIsNoPicture) {
    prepareOnce();
    const std::string header = "\x89PNG\r\n\x1a\n";
    for (const std::string& file :
         {std::string(), std::string("B"), std::string("BM"), std::string("hello, world\n"),
          std::string(100'000, '\0'), header, header + std::string(1000, 'x'),
          std::string("\xff\xd8\xff"), std::string("GIF89a"), std::string("RIFF\0\0\0\0WEBP", 12),
          std::string("II*\0", 4),
          std::string("\0\0\0\x18"
                      "ftypheic",
                      12)}) {
        EXPECT_FALSE(thumbnail(bytesOf(file), 64)) << file.size();
        EXPECT_FALSE(greyPicture(bytesOf(file), 64)) << file.size();
        EXPECT_FALSE(pixelSize(bytesOf(file))) << file.size();
    }
}

TEST(Pictures, areNotReadFromKindsBesideTheListedOnes) {
    const std::string svg =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"><rect width=\"9\" "
        "height=\"9\"/></svg>";
    const std::string pdf = "%PDF-1.4\n";
    const std::string pixels = "P6\n2 2\n255\nabcdefghijkl";
    const std::string drawing = "push graphic-context\nviewbox 0 0 9 9\npop graphic-context";
    for (const auto& file : {svg, pdf, pixels, drawing}) {
        EXPECT_FALSE(thumbnail(bytesOf(file), 64)) << file;
        EXPECT_FALSE(pixelSize(bytesOf(file))) << file;
    }
}

// Nor by a library that goes by what is in the container.
TEST(Pictures, areNotReadFromAvifByAnotherBrand) {
    const auto avif = flag().saved(".avif");
    for (const std::string brand : {"avif", "heic", "mif1"}) {
        auto file = avif;
        file.replace(8, brand.size(), brand);
        EXPECT_FALSE(thumbnail(bytesOf(file), 64)) << brand;
        EXPECT_FALSE(pixelSize(bytesOf(file))) << brand;
        EXPECT_FALSE(greyPicture(bytesOf(file), 64)) << brand;
    }
}

}  // namespace
}  // namespace nookwise
