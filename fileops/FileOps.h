// Placing files in folders without overwriting any.
#pragma once

#include "fileops/ActivityEntry.h"
#include "fileops/TransferMeter.h"
#include "platform/FileManager.h"

#include <functional>
#include <optional>
#include <stop_token>
#include <string_view>
#include <vector>

namespace nookwise {

enum class TransferKind { move, copy };

/// Static operations on one file after the other. A file that fails is skipped.
class FileOps {
  public:
    /// A place in `folder` that nothing has yet: the name itself, else "base (n).extension" with n
    /// = 2, 3, …. The base loses whole characters at its end where the name would be longer than a
    /// file system takes. Somebody else may take the place before it is used.
    static FileUrl freeURL(const FileManager& files, std::string_view name, const FileUrl& folder);

    /// Calls `place` with the free places for `name` in `folder` until it does not find its place
    /// taken meanwhile. Returns the place, or none when `place` failed otherwise.
    static std::optional<FileUrl> placeFreely(
        const FileManager& files, std::string_view name, const FileUrl& folder,
        const std::function<Result<std::monostate>(const FileUrl&)>& place);

    /// Moves or copies each of `urls` into `folder` and returns those that went through, in order.
    /// What lies in `folder` already is left alone. After a stop request it ends soon, inside a
    /// file too, which is then as it was.
    static std::vector<ActivityEntry::Move> transfer(FileManager& files,
                                                     const std::vector<FileUrl>& urls,
                                                     const FileUrl& folder, TransferKind kind,
                                                     const TransferReport& report,
                                                     const std::stop_token& stop);
};

}  // namespace nookwise
