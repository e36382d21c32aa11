// Files on their way to the Trash, for the user to confirm.
#pragma once

#include "fileops/TrashService.h"
#include "model/FileItem.h"
#include "model/PileKind.h"
#include "platform/Uuid.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// Has no equality: `id` tells one request from another.
struct TrashRequest {
    Uuid id;
    /// The confirmation's question.
    std::string title;
    /// The confirmation's explanation.
    std::string detail;
    std::vector<FileItem> files;
    /// The name of the place that asked; whether to confirm is remembered by it.
    std::string source;
    /// The pile that the files come from, if any.
    std::optional<PileKind> pile;
};

TrashRequest trashRequest(std::vector<FileItem> files, std::optional<PileKind> pile,
                          std::string_view source);

/// The key of the setting that sends files from `source` to the Trash without asking.
std::string skipConfirmationKey(std::string_view source);
inline constexpr std::string_view skipConfirmationPrefix = "skipConfirm.";

/// The line that the activity log shows for `moved` files.
std::string trashedTitle(std::size_t moved, std::optional<PileKind> pile);

/// What the user is told of the outcome.
std::string trashedMessage(const TrashService::Trashed& trashed);
std::string nothingTrashedMessage(std::size_t failed);

}  // namespace nookwise
