// Moving and copying without losing or overwriting anything.
#pragma once

#include "platform/CopyWatch.h"
#include "platform/Result.h"
#include "platform/linux/Unfinished.h"

#include <variant>

namespace nookwise {

/// As FileManager::move, but for the Trash's lists, which it does not know of. Inside one file
/// system a rename; else a whole and durable copy is published first, and `from` removed after
/// that. Fails with EBUSY when `from` changes meanwhile or holds a mount point, with EOPNOTSUPP
/// when a socket or a device would have to be copied.
///
/// What cannot be removed any more once removing has begun has left the name `from` nevertheless
/// and goes at the next start. What other programs wrote into it in that moment is not removed but
/// stands at `from` again, although the move succeeded. What they wrote into the copy before the
/// move failed stays at `to` with the copy.
Result<std::monostate> moveItem(const FileUrl& from, const FileUrl& to,
                                const Unfinished& unfinished, const CopyWatch& watch);

/// As FileManager::copy. Links stay links, holes stay holes, and names that share one file inside a
/// copied folder share one in the copy.
Result<std::monostate> copyItem(const FileUrl& from, const FileUrl& to,
                                const Unfinished& unfinished, const CopyWatch& watch);

}  // namespace nookwise
