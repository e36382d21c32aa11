#include "platform/linux/PngSoftware.h"

#include <cstdint>
#include <optional>

namespace nookwise {
namespace {

using namespace std::string_view_literals;

constexpr auto signature = "\x89PNG\r\n\x1a\n"sv;
constexpr auto keyword = "Software\0"sv;
constexpr std::size_t chunkFrame = 8;
constexpr std::size_t checksum = 4;
constexpr std::size_t dimensions = 13;

struct Chunk {
    std::string_view type;
    std::string_view data;
};

std::uint32_t bigEndian(std::string_view bytes) {
    std::uint32_t value = 0;
    for (const char c : bytes) value = value << 8 | static_cast<unsigned char>(c);
    return value;
}

/// Takes the next whole chunk off `rest`.
std::optional<Chunk> takeChunk(std::string_view& rest) {
    if (rest.size() < chunkFrame + checksum) return std::nullopt;
    const std::size_t length = bigEndian(rest.substr(0, 4));
    if (length > rest.size() - chunkFrame - checksum) return std::nullopt;
    const Chunk chunk{rest.substr(4, 4), rest.substr(chunkFrame, length)};
    rest.remove_prefix(chunkFrame + length + checksum);
    return chunk;
}

/// The text of an iTXt chunk behind its keyword: two flags, a language and a translated keyword
/// come first.
std::optional<std::string_view> internationalText(std::string_view data) {
    if (data.size() < 2 || data[0] != '\0') return std::nullopt;
    data.remove_prefix(2);
    for (int skipped = 0; skipped < 2; ++skipped) {
        const auto end = data.find('\0');
        if (end == std::string_view::npos) return std::nullopt;
        data.remove_prefix(end + 1);
    }
    return data;
}

std::optional<std::string_view> softwareIn(const Chunk& chunk) {
    if (!chunk.data.starts_with(keyword)) return std::nullopt;
    const auto text = chunk.data.substr(keyword.size());
    if (chunk.type == "tEXt") return text;
    if (chunk.type == "iTXt") return internationalText(text);
    return std::nullopt;
}

}  // namespace

std::vector<std::string_view> pngSoftware(std::string_view beginning) {
    std::vector<std::string_view> found;
    if (!beginning.starts_with(signature)) return found;
    beginning.remove_prefix(signature.size());
    auto chunk = takeChunk(beginning);
    if (!chunk || chunk->type != "IHDR" || chunk->data.size() != dimensions) return found;
    while ((chunk = takeChunk(beginning)) && chunk->type != "IDAT") {
        if (const auto software = softwareIn(*chunk)) found.push_back(*software);
    }
    return found;
}

}  // namespace nookwise
