#include "reader/recognition/PictureFormat.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace nookwise {

namespace {

using namespace std::string_view_literals;

struct Mark {
    PictureFormat format;
    std::size_t offset;
    std::string_view bytes;
};

constexpr std::array marks{
    Mark{PictureFormat::png, 0, "\x89PNG\r\n\x1a\n"sv},
    Mark{PictureFormat::jpeg, 0, "\xff\xd8\xff"sv},
    Mark{PictureFormat::tiff, 0, "II*\0"sv},
    Mark{PictureFormat::tiff, 0, "MM\0*"sv},
    Mark{PictureFormat::tiff, 0, "II+\0"sv},
    Mark{PictureFormat::tiff, 0, "MM\0+"sv},
    Mark{PictureFormat::gif, 0, "GIF87a"sv},
    Mark{PictureFormat::gif, 0, "GIF89a"sv},
    Mark{PictureFormat::webp, 8, "WEBP"sv},
    Mark{PictureFormat::bmp, 0, "BM"sv},
    Mark{PictureFormat::heic, 4, "ftypheic"sv},
    Mark{PictureFormat::heic, 4, "ftypheix"sv},
    Mark{PictureFormat::heic, 4, "ftypheim"sv},
    Mark{PictureFormat::heic, 4, "ftypheis"sv},
    Mark{PictureFormat::heic, 4, "ftyphevc"sv},
    Mark{PictureFormat::heic, 4, "ftyphevx"sv},
    Mark{PictureFormat::heic, 4, "ftypmif1"sv},
    Mark{PictureFormat::heic, 4, "ftypmsf1"sv},
};

std::uint64_t number(std::string_view bytes) {
    std::uint64_t value = 0;
    for (const char byte : bytes) value = value << 8 | static_cast<unsigned char>(byte);
    return value;
}

/// The length of the box (ISO/IEC 14496-12) at the beginning, 0 where there is none.
std::uint64_t boxLength(std::string_view bytes) {
    constexpr std::size_t header = 8;
    constexpr std::uint64_t toTheEnd = 0, afterTheHeader = 1;
    if (bytes.size() < header) return 0;
    auto length = number(bytes.substr(0, 4));
    if (length == toTheEnd) return bytes.size();
    if (length == afterTheHeader) length = number(bytes.substr(header, 8));
    return length < header ? 0 : std::min<std::uint64_t>(length, bytes.size());
}

/// AVIF is the same container, and its decoder goes by what is in there, not by the brand. What the
/// pictures are is told in the box beside them.
bool holdsAv1(std::string_view file) {
    while (const auto length = boxLength(file)) {
        const auto box = file.substr(0, length);
        if (box.substr(4, 4) == "meta" && box.find("av01") != std::string_view::npos) return true;
        file.remove_prefix(length);
    }
    return false;
}

}  // namespace

std::optional<PictureFormat> pictureFormat(std::span<const std::byte> file) {
    const std::string_view bytes(reinterpret_cast<const char*>(file.data()), file.size());
    for (const auto& mark : marks)
        if (bytes.size() >= mark.offset && bytes.substr(mark.offset).starts_with(mark.bytes)) {
            if (mark.format == PictureFormat::heic && holdsAv1(bytes)) return std::nullopt;
            return mark.format;
        }
    return std::nullopt;
}

}  // namespace nookwise
