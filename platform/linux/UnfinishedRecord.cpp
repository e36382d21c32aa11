#include "platform/linux/UnfinishedRecord.h"

#include "platform/linux/RandomName.h"

#include <charconv>

namespace nookwise {
namespace {

// What no path holds.
constexpr char separator = '\0';

}  // namespace

std::string temporaryName(std::string_view recordName) {
    return ".nookwise-" + std::string(recordName) + ".part";
}

std::string encoded(const UnfinishedRecord& record) {
    // The path last: its end proves that the whole record was written.
    std::string text = record.inode ? std::to_string(*record.inode) : "";
    text += separator;
    text += record.url.path();
    return text;
}

std::optional<UnfinishedRecord> decoded(std::string_view recordName, std::string_view text) {
    const auto end = text.find(separator);
    if (!isRandomName(recordName) || end == std::string_view::npos) return std::nullopt;
    const auto path = text.substr(end + 1);
    UnfinishedRecord record{.url = FileUrl(path), .inode = std::nullopt};
    if (!path.starts_with('/') || !path.ends_with("/" + temporaryName(recordName)))
        return std::nullopt;
    const auto number = text.substr(0, end);
    if (number.empty()) return record;
    const auto* const last = number.data() + number.size();
    std::uint64_t inode = 0;
    const auto read = std::from_chars(number.data(), last, inode);
    if (read.ec != std::errc() || read.ptr != last) return std::nullopt;
    record.inode = inode;
    return record;
}

}  // namespace nookwise
