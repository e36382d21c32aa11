// Picture files that tests draw for themselves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

struct _VipsImage;

namespace nookwise {

/// Before anything is decoded or drawn. A drawing does it by itself.
void prepareOnce();

using FileBytes = std::string;

inline std::span<const std::byte> bytesOf(const FileBytes& file) {
    return {reinterpret_cast<const std::byte*>(file.data()), file.size()};
}

struct Rgba {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    friend bool operator==(const Rgba&, const Rgba&) = default;
};

inline constexpr Rgba white{255, 255, 255};
inline constexpr Rgba black{0, 0, 0};

/// A drawing in red, green, blue and alpha, which can be saved as every kind of file.
class Drawing {
  public:
    Drawing(int width, int height, Rgba ground);
    Drawing(const Drawing& other);
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing();

    Drawing& rectangle(int left, int top, int width, int height, Rgba colour);
    /// `pixelsHigh` is about that of a line. Text beyond the edges is cut off.
    Drawing& text(std::string_view text, int left, int top, int pixelsHigh, Rgba colour);
    /// By steps of 90 degrees clockwise.
    Drawing turned(int quarterTurns) const;
    Drawing flipped() const;

    /// `format` is a suffix with options, as the library that the pictures are decoded with takes
    /// them: ".png", ".jpg[Q=90]".
    FileBytes saved(std::string_view format) const;
    /// With the orientation that a camera would note in the file, 1 to 8.
    FileBytes saved(std::string_view format, int orientation) const;
    /// Without the alpha, uncompressed, 24 bits a pixel.
    FileBytes savedAsBitmap() const;
    /// Two pictures in one file, this one first.
    FileBytes savedBefore(const Drawing& next, std::string_view format) const;
    /// In another colour space of the library's: "cmyk", "rgb16", "b-w", "grey16".
    FileBytes savedAs(std::string_view colourSpace, std::string_view format) const;

    int width() const;
    int height() const;

  private:
    explicit Drawing(_VipsImage* image) : image_(image) {}
    FileBytes savedImage(_VipsImage* image, std::string_view format) const;

    _VipsImage* image_;
};

}  // namespace nookwise
