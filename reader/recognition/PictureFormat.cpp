#include "reader/recognition/PictureFormat.h"

#include <array>
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

}  // namespace

std::optional<PictureFormat> pictureFormat(std::span<const std::byte> file) {
    const std::string_view bytes(reinterpret_cast<const char*>(file.data()), file.size());
    for (const auto& mark : marks)
        if (bytes.size() >= mark.offset && bytes.substr(mark.offset).starts_with(mark.bytes))
            return mark.format;
    return std::nullopt;
}

}  // namespace nookwise
