// The user's Trash, shared with every program that keeps the freedesktop.org Trash
// specification 1.0.
#pragma once

#include "platform/Result.h"
#include "platform/linux/TrashFolder.h"

#include <optional>
#include <stop_token>

namespace nookwise {

/// May be used from any thread.
class Trash {
  public:
    /// `homeTrash` is made when it is first needed.
    explicit Trash(FileUrl homeTrash);

    /// Moves a file, a folder or a link itself to the Trash of its volume and returns its place
    /// there. What cannot be renamed into a Trash is refused, never copied; what is in a Trash, is
    /// one or holds one is refused with std::errc::invalid_argument. After a failure `url` is as it
    /// was and no Trash lists it.
    Result<FileUrl> trash(const FileUrl& url) const;

    /// To be called after `inTrash` has been moved away: where it was the place of something in a
    /// Trash of this user, it is no longer listed there. Anywhere else it does nothing.
    void forget(const FileUrl& inTrash) const;

    /// Removes what earlier runs of the application left in the Trashes of all local volumes when
    /// they were killed: the description of a file that never came, an unfinished description or
    /// list of sizes. To be called while no other run is at work.
    void removeLeftovers(const std::stop_token& stop) const;

  private:
    std::optional<TrashFolder> homeTrashBeside(const ResolvedFolder& folder) const;
    bool isHomeTrash(const ResolvedFolder& folder) const;

    FileUrl homeTrash_;
    TrashRun run_;
};

}  // namespace nookwise
