#include "fileops/TrashService.h"

#include "fileops/FileOps.h"

#include <utility>

namespace nookwise {
namespace {

/// Where the file is now; none when it could not be put back.
std::optional<FileUrl> putBackOne(FileManager& files, const ActivityEntry::Move& move) {
    if (!files.exists(move.inTrash)) return std::nullopt;
    const auto folder = move.original.parent();
    // Where this fails, so does the move.
    (void)files.createFolder(folder, FolderAccess::usual);
    const auto place = [&](const FileUrl& to) { return files.move(move.inTrash, to); };
    return FileOps::placeFreely(files, move.original.lastPathComponent(), folder, place);
}

}  // namespace

TrashService::Trashed TrashService::trash(FileManager& files, const std::vector<FileItem>& items,
                                          const BatchProgress& progress) {
    Trashed trashed;
    trashed.moves.reserve(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto& item = items[i];
        progress(i);
        auto place = files.trash(item.url);
        if (!place) {
            trashed.failed.push_back(item.url);
        } else if (place.value()) {
            trashed.moves.push_back({item.url, std::move(*place.value()), item.size});
        }
    }
    return trashed;
}

TrashService::Returned TrashService::putBack(FileManager& files,
                                             const std::vector<ActivityEntry::Move>& moves,
                                             const BatchProgress& progress) {
    Returned returned;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        progress(i);
        const auto place = putBackOne(files, moves[i]);
        if (place) ++returned.count;
        if (place != moves[i].original) returned.astray.push_back(moves[i].original);
    }
    return returned;
}

}  // namespace nookwise
