#include "tests/reader/DrawnPictures.h"

#include "reader/recognition/Pictures.h"

#include <array>
#include <stdexcept>
#include <vector>

#include <vips/vips.h>

namespace nookwise {

namespace {

void check(int failed) {
    if (failed == 0) return;
    const std::string reason = vips_error_buffer();
    vips_error_clear();
    throw std::runtime_error(reason);
}

/// Replaces an image by what an operation makes of it.
template <typename Operation>
void replace(VipsImage*& image, Operation operation) {
    VipsImage* result = nullptr;
    const int failed = operation(image, &result);
    g_object_unref(image);
    image = nullptr;
    check(failed);
    image = result;
}

std::vector<double> numbers(Rgba colour) {
    return {static_cast<double>(colour.red), static_cast<double>(colour.green),
            static_cast<double>(colour.blue), static_cast<double>(colour.alpha)};
}

VipsImage* plain(int width, int height, Rgba colour) {
    VipsImage* image = nullptr;
    check(vips_black(&image, width, height, "bands", 4, nullptr));
    auto one = std::vector<double>(4, 1.0), levels = numbers(colour);
    replace(image, [&](VipsImage* in, VipsImage** out) {
        return vips_linear(in, out, one.data(), levels.data(), 4, "uchar", TRUE, nullptr);
    });
    replace(image, [](VipsImage* in, VipsImage** out) {
        return vips_copy(in, out, "interpretation", VIPS_INTERPRETATION_sRGB, nullptr);
    });
    return image;
}

VipsImage* inMemory(VipsImage* image) {
    VipsImage* copy = vips_image_copy_memory(image);
    g_object_unref(image);
    check(copy == nullptr ? -1 : 0);
    return copy;
}

}  // namespace

void prepareOnce() {
    static const bool prepared = (preparePictures(), true);
    (void)prepared;
}

Drawing::Drawing(int width, int height, Rgba ground) : image_(nullptr) {
    prepareOnce();
    image_ = inMemory(plain(width, height, ground));
}

Drawing::Drawing(const Drawing& other) : image_(other.image_) {
    g_object_ref(image_);
}

Drawing::~Drawing() {
    g_object_unref(image_);
}

int Drawing::width() const {
    return vips_image_get_width(image_);
}
int Drawing::height() const {
    return vips_image_get_height(image_);
}

Drawing& Drawing::rectangle(int left, int top, int width, int height, Rgba colour) {
    VipsImage* area = plain(width, height, colour);
    replace(image_, [&](VipsImage* in, VipsImage** out) {
        return vips_insert(in, area, out, left, top, nullptr);
    });
    g_object_unref(area);
    image_ = inMemory(image_);
    return *this;
}

Drawing& Drawing::text(std::string_view text, int left, int top, int pixelsHigh, Rgba colour) {
    VipsImage* mask = nullptr;
    // At 72 dots an inch a point is a pixel.
    const auto font = "sans " + std::to_string(pixelsHigh * 3 / 4);
    check(vips_text(&mask, std::string(text).c_str(), "font", font.c_str(), "dpi", 72, nullptr));
    replace(mask, [&](VipsImage* in, VipsImage** out) {
        return vips_embed(in, out, left, top, width(), height(), nullptr);
    });
    VipsImage* ink = plain(width(), height(), colour);
    replace(image_, [&](VipsImage* in, VipsImage** out) {
        return vips_ifthenelse(mask, ink, in, out, "blend", TRUE, nullptr);
    });
    g_object_unref(ink);
    g_object_unref(mask);
    image_ = inMemory(image_);
    return *this;
}

Drawing Drawing::turned(int quarterTurns) const {
    constexpr std::array angles{VIPS_ANGLE_D0, VIPS_ANGLE_D90, VIPS_ANGLE_D180, VIPS_ANGLE_D270};
    VipsImage* result = nullptr;
    check(vips_rot(image_, &result, angles.at(static_cast<std::size_t>(quarterTurns)), nullptr));
    return Drawing(inMemory(result));
}

Drawing Drawing::flipped() const {
    VipsImage* result = nullptr;
    check(vips_flip(image_, &result, VIPS_DIRECTION_HORIZONTAL, nullptr));
    return Drawing(inMemory(result));
}

FileBytes Drawing::savedImage(_VipsImage* image, std::string_view format) const {
    void* data = nullptr;
    std::size_t size = 0;
    check(vips_image_write_to_buffer(image, std::string(format).c_str(), &data, &size, nullptr));
    FileBytes file(static_cast<const char*>(data), size);
    g_free(data);
    return file;
}

FileBytes Drawing::saved(std::string_view format) const {
    return savedImage(image_, format);
}

FileBytes Drawing::saved(std::string_view format, int orientation) const {
    VipsImage* copy = nullptr;
    check(vips_copy(image_, &copy, nullptr));
    vips_image_set_int(copy, VIPS_META_ORIENTATION, orientation);
    const auto file = savedImage(copy, format);
    g_object_unref(copy);
    return file;
}

FileBytes Drawing::savedBefore(const Drawing& next, std::string_view format) const {
    std::array<VipsImage*, 2> pages{image_, next.image_};
    VipsImage* both = nullptr;
    check(vips_arrayjoin(pages.data(), &both, 2, "across", 1, nullptr));
    replace(both, [](VipsImage* in, VipsImage** out) { return vips_copy(in, out, nullptr); });
    vips_image_set_int(both, VIPS_META_PAGE_HEIGHT, height());
    const auto file = savedImage(both, format);
    g_object_unref(both);
    return file;
}

FileBytes Drawing::savedAs(std::string_view colourSpace, std::string_view format) const {
    const int space =
        vips_enum_from_nick("test", VIPS_TYPE_INTERPRETATION, std::string(colourSpace).c_str());
    VipsImage* image = nullptr;
    check(vips_extract_band(image_, &image, 0, "n", 3, nullptr));
    replace(image, [&](VipsImage* in, VipsImage** out) {
        return vips_colourspace(in, out, static_cast<VipsInterpretation>(space), nullptr);
    });
    const auto file = savedImage(image, format);
    g_object_unref(image);
    return file;
}

FileBytes Drawing::savedAsBitmap() const {
    const auto rowLength = (static_cast<std::size_t>(width()) * 3 + 3) / 4 * 4;
    FileBytes file(54 + rowLength * static_cast<std::size_t>(height()), '\0');
    const auto put = [&](std::size_t at, std::size_t value, int count) {
        for (int i = 0; i < count; ++i)
            file[at + static_cast<std::size_t>(i)] = static_cast<char>(value >> (8 * i));
    };
    file[0] = 'B', file[1] = 'M';
    put(2, file.size(), 4);
    put(10, 54, 4);
    put(14, 40, 4);
    put(18, static_cast<std::size_t>(width()), 4);
    put(22, static_cast<std::size_t>(height()), 4);
    put(26, 1, 2);
    put(28, 24, 2);
    put(34, file.size() - 54, 4);
    const auto* pixel = static_cast<const char*>(vips_image_get_data(image_));
    for (int y = 0; y < height(); ++y)
        for (int x = 0; x < width(); ++x, pixel += 4)
            for (std::size_t band = 0; band < 3; ++band)
                // From the bottom, blue first.
                file[54 + static_cast<std::size_t>(height() - 1 - y) * rowLength +
                     static_cast<std::size_t>(x) * 3 + band] = pixel[2 - band];
    return file;
}

}  // namespace nookwise
