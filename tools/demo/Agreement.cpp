#include "tools/demo/Agreement.h"

#include <array>
#include <charconv>
#include <system_error>

namespace nookwise::demo {
namespace {

// First and last line. Another format needs another first one.
constexpr std::string_view beginning = "nookwise-demo agreed files, format 1\n";
constexpr std::string_view end = "end\n";
constexpr std::string_view nothing = "-";

template <typename Number>
std::string textOf(Number number) {
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return {digits.data(), written.ptr};
}

template <typename Number>
std::optional<Number> numberFrom(std::string_view text) {
    Number number{};
    const char* const last = text.data() + text.size();
    const auto read = std::from_chars(text.data(), last, number);
    if (read.ec != std::errc{} || read.ptr != last) return std::nullopt;
    return number;
}

/// Cuts off the text up to the separator, which goes too. None when there is no separator.
std::optional<std::string_view> cut(std::string_view& text, char separator) {
    const auto position = text.find(separator);
    if (position == std::string_view::npos) return std::nullopt;
    const auto part = text.substr(0, position);
    text.remove_prefix(position + 1);
    return part;
}

/// "added lastUsed allocatedSize path", for an entry of the agreement.
bool read(std::string_view line, const FileUrl& home, AgreedFiles& agreed) {
    const auto added = cut(line, ' ');
    const auto lastUsed = cut(line, ' ');
    const auto size = cut(line, ' ');
    if (!added || !lastUsed || !size || line.empty()) return false;
    const auto addedSeconds = numberFrom<double>(*added);
    const auto lastUsedSeconds = numberFrom<double>(*lastUsed);
    const auto bytes = numberFrom<std::int64_t>(*size);
    const bool whole =
        addedSeconds && (lastUsedSeconds || *lastUsed == nothing) && (bytes || *size == nothing);
    if (!whole) return false;
    AgreedAttributes attributes{.added = Date(Seconds(*addedSeconds)), .allocatedSize = bytes};
    if (lastUsedSeconds) attributes.lastUsed = Date(Seconds(*lastUsedSeconds));
    agreed[FileUrl(std::string(home.path()) + "/" + std::string(line))] = attributes;
    return true;
}

}  // namespace

std::string agreementText(const AgreedFiles& agreed, const FileUrl& home) {
    std::string text(beginning);
    for (const auto& [url, attributes] : agreed) {
        text += textOf(attributes.added.time_since_epoch().count()) + ' ';
        text += attributes.lastUsed ? textOf(attributes.lastUsed->time_since_epoch().count())
                                    : std::string(nothing);
        text += ' ';
        text += attributes.allocatedSize ? textOf(*attributes.allocatedSize) : std::string(nothing);
        text += ' ';
        text += url.path().substr(home.path().size() + 1);
        text += '\n';
    }
    return text.append(end);
}

std::optional<AgreedFiles> agreementFromText(std::string_view text, const FileUrl& home) {
    if (!text.starts_with(beginning) || !text.ends_with(end)) return std::nullopt;
    text.remove_prefix(beginning.size());
    if (text.size() < end.size()) return std::nullopt;
    text.remove_suffix(end.size());
    AgreedFiles agreed;
    while (!text.empty()) {
        const auto line = cut(text, '\n');
        if (!line || !read(*line, home, agreed)) return std::nullopt;
    }
    return agreed;
}

}  // namespace nookwise::demo
