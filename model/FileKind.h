// The badge drawn on a file's icon.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nookwise {

/// The family of extensions that share a tint.
enum class FileKindGroup {
    pdf,
    image,
    clip,
    audio,
    archive,
    installer,
    sheet,
    doc,
    slides,
    rtf,
    code,
    app,
    other,
};

/// sRGB, opaque.
struct Tint {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Tint&, const Tint&) = default;
};

struct FileKind {
    /// `ext` is a file's extension without the dot, in any case.
    explicit FileKind(std::string_view ext);

    FileKindGroup group;
    /// Short and in upper case.
    std::string label;
    Tint tint;

    friend bool operator==(const FileKind&, const FileKind&) = default;
};

}  // namespace nookwise
