#include "fileops/FileOps.h"

#include "platform/Text.h"

#include <string>

namespace nookwise {
namespace {

/// The longest name that Linux file systems take, in bytes.
constexpr std::size_t longestName = 255;

/// The beginning of `base` that leaves room for `tail`, cut between characters.
std::string_view cutToFit(std::string_view base, std::size_t tail) {
    const auto room = longestName > tail ? longestName - tail : 0;
    if (base.size() <= room) return base;
    auto count = characterCount(base);
    auto cut = firstCharacters(base, count);
    while (cut.size() > room) cut = firstCharacters(base, --count);
    return cut;
}

std::string numberedName(std::string_view name, std::uint64_t number) {
    const auto extension = extensionOf(name);
    std::string tail = " (" + std::to_string(number) + ")";
    if (!extension.empty()) tail.append(".").append(extension);
    return std::string(cutToFit(stemOf(name), tail.size())) + tail;
}

std::optional<ActivityEntry::Move> transferOne(FileManager& files, const FileUrl& url,
                                               const FileUrl& folder, TransferKind kind) {
    const auto attributes = files.attributes(url);
    const auto place = [&](const FileUrl& to) {
        return kind == TransferKind::copy ? files.copy(url, to) : files.move(url, to);
    };
    const auto placed = FileOps::placeFreely(files, url.lastPathComponent(), folder, place);
    if (!placed) return std::nullopt;
    const auto size = attributes ? attributes.value().allocatedSize.value_or(0) : 0;
    return ActivityEntry::Move{.original = url, .inTrash = *placed, .size = size};
}

}  // namespace

FileUrl FileOps::freeURL(const FileManager& files, std::string_view name, const FileUrl& folder) {
    auto candidate = folder.append(name);
    for (std::uint64_t number = 2; files.exists(candidate); ++number) {
        candidate = folder.append(numberedName(name, number));
    }
    return candidate;
}

std::optional<FileUrl> FileOps::placeFreely(
    const FileManager& files, std::string_view name, const FileUrl& folder,
    const std::function<Result<std::monostate>(const FileUrl&)>& place) {
    for (;;) {
        const auto candidate = freeURL(files, name, folder);
        const auto placed = place(candidate);
        if (placed) return candidate;
        // Taken since it was looked at: there is another name. Still free, and yet refused as
        // taken, it would be asked for again for ever.
        const bool isTaken = placed.error().code == std::errc::file_exists;
        if (!isTaken || !files.exists(candidate)) return std::nullopt;
    }
}

std::vector<ActivityEntry::Move> FileOps::transfer(FileManager& files,
                                                   const std::vector<FileUrl>& urls,
                                                   const FileUrl& folder, TransferKind kind,
                                                   const std::stop_token& stop) {
    std::vector<ActivityEntry::Move> moves;
    const auto destination = folder.standardized();
    for (const auto& url : urls) {
        if (stop.stop_requested()) break;
        if (url.parent().standardized() == destination) continue;
        if (auto move = transferOne(files, url, folder, kind)) moves.push_back(std::move(*move));
    }
    return moves;
}

}  // namespace nookwise
