#include "platform/linux/UnfinishedRecord.h"

#include "platform/linux/RandomName.h"

#include <charconv>

namespace nookwise {
namespace {

// What no path holds.
constexpr char separator = '\0';

std::optional<LeftoverUse> decodedUse(char mark) {
    for (const auto use : {LeftoverUse::remove, LeftoverUse::putBack})
        if (mark == useMark(use)) return use;
    return std::nullopt;
}

/// Digits that fill the text. None for anything else.
std::optional<std::uint64_t> decodedNumber(std::string_view text) {
    const auto* const last = text.data() + text.size();
    std::uint64_t number = 0;
    const auto read = std::from_chars(text.data(), last, number);
    if (read.ec != std::errc() || read.ptr != last) return std::nullopt;
    return number;
}

bool isName(std::string_view text) {
    return !text.empty() && text != "." && text != ".." && text.find('/') == std::string_view::npos;
}

/// Takes what comes before the next separator off the text. None without one.
std::optional<std::string_view> takeField(std::string_view& text) {
    const auto end = text.find(separator);
    if (end == std::string_view::npos) return std::nullopt;
    const auto field = text.substr(0, end);
    text.remove_prefix(end + 1);
    return field;
}

}  // namespace

std::string temporaryName(std::string_view recordName) {
    return ".nookwise-" + std::string(recordName) + ".part";
}

char useMark(LeftoverUse use) {
    return use == LeftoverUse::remove ? 'r' : 'b';
}

std::string encoded(const UnfinishedRecord& record) {
    // The path last: its end proves that the whole record was written.
    std::string text(1, useMark(record.use));
    if (record.inode) text += std::to_string(*record.inode);
    text += separator;
    text += record.properName;
    text += separator;
    text += record.url.path();
    return text;
}

std::optional<UnfinishedRecord> decoded(std::string_view recordName, std::string_view text) {
    const auto use = text.empty() ? std::nullopt : decodedUse(text.front());
    if (!isRandomName(recordName) || !use) return std::nullopt;
    text.remove_prefix(1);
    const auto number = takeField(text);
    const auto properName = takeField(text);
    if (!number || !properName) return std::nullopt;
    if (!text.starts_with('/') || !text.ends_with("/" + temporaryName(recordName)))
        return std::nullopt;
    if (*use == LeftoverUse::putBack && !isName(*properName)) return std::nullopt;
    UnfinishedRecord record{.url = FileUrl(text),
                            .inode = decodedNumber(*number),
                            .use = *use,
                            .properName = std::string(*properName)};
    if (!record.inode && !number->empty()) return std::nullopt;
    return record;
}

}  // namespace nookwise
