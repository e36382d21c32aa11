// Which files are to be read, and in which order.
#pragma once

#include "model/FileItem.h"

#include <functional>
#include <span>
#include <vector>

namespace nookwise {

/// What a file may hold text in.
enum class TextCarrier { none, picture, pdf };

/// By its extension.
TextCarrier textCarrier(const FileUrl& url);

/// The files of `files` for which `isKnown` is false and that have something to learn: first at
/// most 6,000 pictures and PDFs of a sensible size, screenshots before others and the newest first,
/// then the other files within `downloads`, in the order of `files`.
std::vector<FileItem> filesToRead(std::span<const FileItem> files, const FileUrl& downloads,
                                  const std::function<bool(const FileItem&)>& isKnown);

}  // namespace nookwise
