#include "reader/recognition/TextPicture.h"

#include "reader/recognition/PlainAreas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

namespace nookwise {

namespace {

/// Smaller pictures hold no letters.
constexpr std::int32_t leastSide = 8;
/// A picture that is darker than this in the middle of its pixels shows light text.
constexpr std::size_t darkMedian = 110;
/// What is darker than this on a plain area is taken for ink.
constexpr int inkThreshold = 140;

/// The height in pixels to which letters, capitals and small ones together, are brought.
constexpr double readingLetter = 13;
constexpr double detectionLetter = 16;
constexpr double mostEnlargement = 3;
constexpr double mostPixels = 8e6;
/// Where the letters cannot be measured.
constexpr double plainEnlargement = 1.5;

/// The engine's work grows with the width of a line. Letters made this much narrower are read
/// nearly as well; below 0.8 the gaps between words begin to get lost.
double letterWidth(RecognitionGrade grade) {
    return grade == RecognitionGrade::accurate ? 0.8 : 0.7;
}

double median(GreyPicture& picture) {
    std::array<std::size_t, 256> counts{};
    for (const char pixel : picture.pixels) ++counts[static_cast<std::uint8_t>(pixel)];
    std::size_t level = 0;
    for (std::size_t seen = counts[0]; seen * 2 < picture.pixels.size(); seen += counts[level])
        ++level;
    return static_cast<double>(level);
}

void invert(GreyPicture& picture) {
    for (char& pixel : picture.pixels) pixel = static_cast<char>(~pixel);
}

PixPointer pixOf(const GreyPicture& picture) {
    PixPointer pix(pixCreateNoInit(picture.size.width, picture.size.height, 8));
    if (!pix) return nullptr;
    const auto width = static_cast<std::size_t>(picture.size.width);
    const auto rowWords = static_cast<std::size_t>(pixGetWpl(pix.get()));
    pixSetPadBits(pix.get(), 0);
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.size.height); ++y)
        std::memcpy(pixGetData(pix.get()) + y * rowWords, picture.pixels.data() + y * width, width);
    // Its words hold the leftmost pixel in their highest byte.
    pixEndianByteSwap(pix.get());
    return pix;
}

/// The median height of what looks like letters; 0 where there are too few.
double letterHeight(const TextPicture& picture) {
    constexpr std::size_t fewest = 10;
    if (picture.mayHoldLightText) return 0;
    const PixPointer ink(pixThresholdToBinary(picture.pix.get(), inkThreshold));
    Boxa* boxes = ink ? pixConnCompBB(ink.get(), 8) : nullptr;
    std::vector<l_int32> heights;
    for (l_int32 i = 0; i < boxaGetCount(boxes); ++i) {
        l_int32 width = 0, height = 0;
        boxaGetBoxGeometry(boxes, i, nullptr, nullptr, &width, &height);
        if (height >= 4 && height <= 80 && width >= 2 && width <= 3 * height)
            heights.push_back(height);
    }
    boxaDestroy(&boxes);
    if (heights.size() < fewest) return 0;
    const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
    std::nth_element(heights.begin(), middle, heights.end());
    return *middle;
}

double enlargement(const TextPicture& picture, double letter) {
    const double height = letterHeight(picture);
    const double wanted = height > 0 ? letter / height : plainEnlargement;
    const double pixels =
        static_cast<double>(pixGetWidth(picture.pix.get())) * pixGetHeight(picture.pix.get());
    const double most = std::min(mostEnlargement, std::sqrt(mostPixels / pixels));
    return std::clamp(wanted, 1.0, std::max(1.0, most));
}

PixPointer scaled(Pix* pix, double across, double down) {
    const auto x = static_cast<l_float32>(across), y = static_cast<l_float32>(down);
    return PixPointer(std::min(x, y) < 0.7F ? pixScaleSmooth(pix, x, y)
                                            : pixScaleGrayLI(pix, x, y));
}

}  // namespace

std::int32_t recognitionSide(RecognitionGrade grade) {
    return grade == RecognitionGrade::accurate ? 2400 : 1400;
}

TextPicture textPicture(GreyPicture picture) {
    if (std::min(picture.size.width, picture.size.height) < leastSide) return {};
    const bool even = evenOutPlainAreas(picture);
    if (!even && median(picture) < darkMedian) invert(picture);
    return {pixOf(picture), !even};
}

TextPicture inReadingSize(const TextPicture& picture, RecognitionGrade grade) {
    const double down = enlargement(picture, readingLetter);
    return {scaled(picture.pix.get(), down * letterWidth(grade), down), picture.mayHoldLightText};
}

PixPointer inDetectionSize(const TextPicture& picture) {
    const double both = enlargement(picture, detectionLetter);
    return scaled(picture.pix.get(), both, both);
}

TextPicture turned(const TextPicture& picture, int quarterTurns) {
    return {PixPointer(pixRotateOrth(picture.pix.get(), quarterTurns)), picture.mayHoldLightText};
}

}  // namespace nookwise
