#include "reader/PdfThumbnail.h"

#include "reader/PdfDocument.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

#include <poppler-document.h>
#include <poppler-image.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

namespace nookwise {
namespace {

constexpr double pointsAnInch = 72;

struct PageSize {
    double width = 0;
    double height = 0;
};

/// In points, upright.
PageSize sizeOf(const poppler::page& page) {
    const auto box = page.page_rect(poppler::crop_box);
    PageSize size{.width = std::abs(box.width()), .height = std::abs(box.height())};
    const auto orientation = page.orientation();
    if (orientation == poppler::page::landscape || orientation == poppler::page::seascape)
        std::swap(size.width, size.height);
    return size;
}

std::int32_t scaled(double points, double scale, std::int32_t longestSide) {
    return std::clamp(static_cast<std::int32_t>(std::lround(points * scale)), 1, longestSide);
}

/// From blue, green, red and a fourth byte without a meaning.
Picture pictureOf(const poppler::image& image) {
    Picture picture{.size = {.width = image.width(), .height = image.height()}};
    const auto width = static_cast<std::size_t>(image.width());
    picture.pixels.reserve(width * static_cast<std::size_t>(image.height()) * 4);
    for (int y = 0; y < image.height(); ++y) {
        const char* row = image.const_data() + std::ptrdiff_t{y} * image.bytes_per_row();
        for (std::size_t x = 0; x < width; ++x) {
            const char* pixel = row + 4 * x;
            picture.pixels += {pixel[2], pixel[1], pixel[0], '\xff'};
        }
    }
    return picture;
}

}  // namespace

std::optional<Picture> pdfThumbnail(std::span<const std::byte> bytes, std::int32_t longestSide) {
    const auto document = openPdf(bytes);
    if (document == nullptr || longestSide < 1) return std::nullopt;
    const std::unique_ptr<poppler::page> page(document->create_page(0));
    if (page == nullptr) return std::nullopt;
    const auto size = sizeOf(*page);
    const auto longest = std::max(size.width, size.height);
    if (!std::isfinite(longest) || std::min(size.width, size.height) <= 0) return std::nullopt;

    const auto scale = std::min(1.0, longestSide / longest);
    poppler::page_renderer renderer;
    renderer.set_image_format(poppler::image::format_argb32);
    renderer.set_render_hint(poppler::page_renderer::antialiasing);
    renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
    const auto image = renderer.render_page(page.get(), scale * pointsAnInch, scale * pointsAnInch,
                                            0, 0, scaled(size.width, scale, longestSide),
                                            scaled(size.height, scale, longestSide));
    if (!image.is_valid()) return std::nullopt;
    return pictureOf(image);
}

}  // namespace nookwise
