// The Trashes that stand in the top directory of a volume.
#pragma once

#include "platform/linux/ResolvedFolder.h"
#include "platform/linux/TrashFolder.h"

#include <optional>
#include <string_view>

#include <sys/types.h>

namespace nookwise {

/// The Trash of `user` in the folder that the administrator made for all users,
/// "<top directory>/.Trash/<user>". None, with errno set, where that folder is missing, a link or
/// without the sticky bit, and where the user's own is a link or somebody else's.
std::optional<TrashFolder> sharedVolumeTrash(const ResolvedFolder& topDirectory, uid_t user,
                                             MissingFolders missing);

/// "<top directory>/.Trash-<user>". None, with errno set, where it is a link or somebody else's.
std::optional<TrashFolder> ownVolumeTrash(const ResolvedFolder& topDirectory, uid_t user,
                                          MissingFolders missing);

/// The one to put things into: the shared one where it can be had, else the own one.
std::optional<TrashFolder> volumeTrash(const ResolvedFolder& topDirectory, uid_t user);

/// Whether an open folder is named and owned as a Trash of `user` on some volume is.
bool isVolumeTrash(const ResolvedFolder& folder, uid_t user);

/// Whether a path without links leads into a volume's Trash, to one, or to the folder that all
/// users share, of whichever user. `parent` is the open folder that holds it.
bool leadsIntoVolumeTrash(const FileUrl& real, const ResolvedFolder& parent);

}  // namespace nookwise
