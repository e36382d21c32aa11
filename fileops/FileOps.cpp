#include "fileops/FileOps.h"

#include "fileops/NameFitting.h"

namespace nookwise {
namespace {

std::optional<ActivityEntry::Move> transferOne(FileManager& files, const FileUrl& url,
                                               const FileUrl& folder, TransferKind kind,
                                               const CopyWatch& watch) {
    const auto attributes = files.attributes(url, watch.stop);
    const auto place = [&](const FileUrl& to) {
        return kind == TransferKind::copy ? files.copy(url, to, watch) : files.move(url, to, watch);
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
        candidate = folder.append(numberedName(stemOf(name), extensionOf(name), number));
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
                                                   const TransferReport& report,
                                                   const std::stop_token& stop) {
    std::vector<ActivityEntry::Move> moves;
    const auto destination = folder.standardized();
    TransferMeter meter(files, urls, report);
    const auto watch = meter.watch(stop);
    for (const auto& url : urls) {
        if (stop.stop_requested()) break;
        if (url.parent().standardized() != destination) {
            auto move = transferOne(files, url, folder, kind, watch);
            if (move) moves.push_back(std::move(*move));
        }
        meter.fileDone();
    }
    return moves;
}

}  // namespace nookwise
