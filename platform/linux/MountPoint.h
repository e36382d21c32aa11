// The volumes behind the folders.
#pragma once

#include "platform/FileUrl.h"
#include "platform/linux/ResolvedFolder.h"

#include <optional>
#include <string_view>
#include <vector>

namespace nookwise {

/// Whether two open folders lie on the same mount, so that a rename can lead from one to the other.
/// False with errno EXDEV when they do not, or with another reason when that cannot be found out.
bool onSameMount(int folder, int other);

/// The mount point that holds `folder`, perhaps itself. None with errno set.
std::optional<ResolvedFolder> topDirectoryOf(const ResolvedFolder& folder);

/// The mount points of file systems that look up a name without asking another computer or another
/// process, from the text of /proc/self/mountinfo.
std::vector<FileUrl> localMountPoints(std::string_view mountInfo);

/// Those of this process now. Empty when they cannot be read.
std::vector<FileUrl> localMountPoints();

}  // namespace nookwise
