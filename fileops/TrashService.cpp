#include "fileops/TrashService.h"

#include "fileops/FileOps.h"

#include <utility>

namespace nookwise {

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

std::size_t TrashService::putBack(FileManager& files, const std::vector<ActivityEntry::Move>& moves,
                                  const BatchProgress& progress) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const auto& [original, inTrash, size] = moves[i];
        progress(i);
        if (!files.exists(inTrash)) continue;
        const auto folder = original.parent();
        // Where this fails, so does the move.
        (void)files.createFolder(folder, FolderAccess::usual);
        const auto move = [&](const FileUrl& to) { return files.move(inTrash, to); };
        if (FileOps::placeFreely(files, original.lastPathComponent(), folder, move)) ++count;
    }
    return count;
}

}  // namespace nookwise
