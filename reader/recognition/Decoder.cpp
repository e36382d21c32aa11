#include "reader/recognition/Decoder.h"

#include "reader/recognition/Bitmaps.h"
#include "reader/recognition/PictureFormat.h"

#include <algorithm>
#include <utility>

#include <glib-object.h>
#include <vips/basic.h>
#include <vips/vector.h>
#include <vips/vips.h>

namespace nookwise {

namespace {

/// More than the largest cameras take (200 million).
constexpr std::int64_t mostPixels = std::int64_t{1} << 28;

struct ImageUnref {
    void operator()(VipsImage* image) const { g_object_unref(image); }
};
struct AreaUnref {
    void operator()(VipsArrayDouble* numbers) const {
        vips_area_unref(reinterpret_cast<VipsArea*>(numbers));
    }
};
using ImagePointer = std::unique_ptr<VipsImage, ImageUnref>;

/// Runs an operation of the library that gives one image. Null when it failed.
template <typename Operation>
ImagePointer result(Operation operation) {
    VipsImage* image = nullptr;
    const int failed = operation(&image);
    ImagePointer owned(image);
    if (failed != 0) vips_error_clear();
    return failed != 0 ? nullptr : std::move(owned);
}

PixelSize sizeOf(VipsImage* image) {
    return {vips_image_get_width(image), vips_image_get_height(image)};
}

std::int32_t longestSide(PixelSize size) {
    return std::max(size.width, size.height);
}

/// How the decoder itself may make the picture smaller, which saves it most of its work.
struct Reduction {
    /// JPEG: by 1, 2, 4 or 8.
    int divisor = 1;
    /// WebP.
    double scale = 1;
};

ImagePointer openBitmap(std::span<const std::byte> file) {
    const auto size = bitmapSize(file);
    if (!size || std::int64_t{size->width} * size->height > mostPixels) return nullptr;
    const auto picture = decodeBitmap(file);
    if (!picture) return nullptr;
    ImagePointer image(vips_image_new_from_memory_copy(picture->pixels.data(),
                                                       picture->pixels.size(), picture->size.width,
                                                       picture->size.height, 4, VIPS_FORMAT_UCHAR));
    return result([&](VipsImage** out) {
        return vips_copy(image.get(), out, "interpretation", VIPS_INTERPRETATION_sRGB, nullptr);
    });
}

/// Reads the header; the pixels are decoded when they are asked for. The file must live as long.
ImagePointer open(std::span<const std::byte> file, PictureFormat format, Reduction reduction = {}) {
    // The library only reads, but takes a plain pointer.
    void* data = const_cast<std::byte*>(file.data());
    const auto size = file.size();
    constexpr auto access = VIPS_ACCESS_SEQUENTIAL;
    return result([&](VipsImage** out) {
        switch (format) {
            case PictureFormat::png:
                return vips_pngload_buffer(data, size, out, "access", access, nullptr);
            case PictureFormat::jpeg:
                return vips_jpegload_buffer(data, size, out, "access", access, "shrink",
                                            reduction.divisor, nullptr);
            case PictureFormat::heic:
                return vips_heifload_buffer(data, size, out, "access", access, nullptr);
            case PictureFormat::tiff:
                return vips_tiffload_buffer(data, size, out, "access", access, nullptr);
            case PictureFormat::gif:
                return vips_gifload_buffer(data, size, out, "access", access, nullptr);
            case PictureFormat::webp:
                return vips_webpload_buffer(data, size, out, "access", access, "scale",
                                            reduction.scale, nullptr);
            case PictureFormat::bmp:
                *out = openBitmap(file).release();
                return *out == nullptr ? -1 : 0;
        }
        return -1;
    });
}

Reduction reductionTo(std::int32_t wanted, PixelSize size) {
    Reduction reduction;
    while (reduction.divisor < 8 && longestSide(size) / (reduction.divisor * 2) >= wanted)
        reduction.divisor *= 2;
    reduction.scale = 1.0 / reduction.divisor;
    return reduction;
}

ImagePointer upright(ImagePointer image) {
    if (vips_image_get_orientation(image.get()) == 1) return image;
    // Turning reads the rows out of order, which a picture being decoded cannot give.
    const auto whole = result([&](VipsImage** out) {
        *out = vips_image_copy_memory(image.get());
        return *out == nullptr ? -1 : 0;
    });
    return whole ? result([&](VipsImage** out) { return vips_autorot(whole.get(), out, nullptr); })
                 : nullptr;
}

ImagePointer reduced(ImagePointer image, std::int32_t wanted) {
    if (longestSide(sizeOf(image.get())) <= wanted) return upright(std::move(image));
    return result([&](VipsImage** out) {
        return vips_thumbnail_image(image.get(), out, wanted, "height", wanted, "size",
                                    VIPS_SIZE_DOWN, nullptr);
    });
}

/// Grey or sRGB, of one byte a band, with at most one band of alpha.
ImagePointer plain(ImagePointer image) {
    const auto interpretation = vips_image_get_interpretation(image.get());
    if (interpretation != VIPS_INTERPRETATION_sRGB && interpretation != VIPS_INTERPRETATION_B_W) {
        const bool grey = vips_image_get_bands(image.get()) < 3;
        image = result([&](VipsImage** out) {
            return vips_colourspace(image.get(), out,
                                    grey ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB,
                                    nullptr);
        });
    }
    if (image && vips_image_get_bands(image.get()) > 4)
        image = result([&](VipsImage** out) {
            return vips_extract_band(image.get(), out, 0, "n", 3, nullptr);
        });
    if (image && vips_image_get_format(image.get()) != VIPS_FORMAT_UCHAR)
        image = result([&](VipsImage** out) {
            return vips_cast(image.get(), out, VIPS_FORMAT_UCHAR, nullptr);
        });
    return image;
}

ImagePointer flattened(ImagePointer image) {
    if (vips_image_hasalpha(image.get()) == 0) return image;
    const std::unique_ptr<VipsArrayDouble, AreaUnref> white(vips_array_double_newv(1, 255.0));
    return result([&](VipsImage** out) {
        return vips_flatten(image.get(), out, "background", white.get(), nullptr);
    });
}

bool isWithinLimits(PixelSize size) {
    return size.width > 0 && size.height > 0 &&
           std::int64_t{size.width} * size.height <= mostPixels;
}

std::optional<DecodedPicture> written(VipsImage* image) {
    DecodedPicture picture{sizeOf(image), vips_image_get_bands(image), nullptr};
    std::size_t length = 0;
    picture.bytes.reset(vips_image_write_to_memory(image, &length));
    if (picture.bytes) return picture;
    vips_error_clear();
    return std::nullopt;
}

void ignoreMessage(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

}  // namespace

void DecodedPicture::Free::operator()(void* bytes) const {
    g_free(bytes);
}

std::span<const std::uint8_t> DecodedPicture::pixels() const {
    return {static_cast<const std::uint8_t*>(bytes.get()),
            static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) *
                static_cast<std::size_t>(bands)};
}

void prepareDecoder() {
    if (VIPS_INIT("nookwise-reader") != 0) return;
    // One picture at a time, each once: threads and caches would only cost.
    vips_concurrency_set(1);
    vips_cache_set_max(0);
    // It would compile its inner loops as it goes, and end a process that may not make new code.
    vips_vector_set_enabled(FALSE);
    // It speaks of every flaw of a file, and most files have some.
    g_log_set_handler("VIPS", G_LOG_LEVEL_MASK, ignoreMessage, nullptr);
}

std::optional<PixelSize> decodedSize(std::span<const std::byte> file) {
    const auto format = pictureFormat(file);
    if (!format) return std::nullopt;
    if (format == PictureFormat::bmp) return bitmapSize(file);
    const auto image = open(file, *format);
    if (!image) return std::nullopt;
    const auto size = sizeOf(image.get());
    const bool onItsSide = vips_image_get_orientation_swap(image.get()) != 0;
    return onItsSide ? PixelSize{size.height, size.width} : size;
}

std::optional<DecodedPicture> decode(std::span<const std::byte> file, std::int32_t wanted,
                                     Transparency transparency) {
    const auto format = pictureFormat(file);
    auto image = format ? open(file, *format) : nullptr;
    if (!image || !isWithinLimits(sizeOf(image.get()))) return std::nullopt;
    if (const auto reduction = reductionTo(wanted, sizeOf(image.get())); reduction.divisor > 1)
        if (*format == PictureFormat::jpeg || *format == PictureFormat::webp)
            image = open(file, *format, reduction);
    if (image) image = plain(std::move(image));
    // Before the size changes: it costs less than to keep the transparency right while it does.
    if (image && transparency == Transparency::onWhite) image = flattened(std::move(image));
    if (image) image = reduced(std::move(image), wanted);
    return image ? written(image.get()) : std::nullopt;
}

}  // namespace nookwise
