#include "fileops/RenameFiles.h"

#include "fileops/FileOps.h"

#include <optional>
#include <unordered_set>
#include <utility>

namespace nookwise {
namespace {

using Places = std::unordered_set<FileUrl>;

/// Where the file is now; none when it could not be renamed. A place that was `given` to another
/// file is not given again, though that one may be gone from there.
std::optional<FileUrl> renameFile(FileManager& files, const FileUrl& file, std::string_view newName,
                                  const Places& given) {
    const auto folder = file.parent();
    const auto wanted = folder.append(newName);
    const auto move = [&](const FileUrl& to) -> Result<std::monostate> {
        if (!given.contains(to)) return files.move(file, to);
        return FileError{std::make_error_code(std::errc::operation_not_permitted), to, "rename"};
    };
    auto placed = FileOps::placeFreely(files, newName, folder, move);
    if (!placed || *placed == wanted || files.exists(wanted) || given.contains(wanted))
        return placed;
    // The name was taken by the file itself: names that differ in case alone are the same here.
    return files.move(*placed, wanted) ? wanted : placed;
}

}  // namespace

Renamed renameFiles(FileManager& files, std::span<const RenameRow> rows,
                    const std::function<void(std::size_t done)>& progress) {
    Renamed renamed;
    Places given;
    for (std::size_t done = 0; done < rows.size(); ++done) {
        const auto& row = rows[done];
        progress(done);
        if (!row.renames()) continue;
        // What stands at a place that was only just given is another row's file.
        const bool isGone = given.contains(row.file.url);
        auto place = isGone ? std::nullopt : renameFile(files, row.file.url, row.newName, given);
        if (!place) {
            ++renamed.failed;
            continue;
        }
        given.insert(*place);
        renamed.moves.push_back(
            {.original = row.file.url, .inTrash = std::move(*place), .size = row.file.size});
    }
    return renamed;
}

}  // namespace nookwise
