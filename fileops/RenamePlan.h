// New names for files, made from the text inside them.
#pragma once

#include "fileops/FirstLine.h"
#include "model/FileItem.h"
#include "model/TextsByUrl.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

struct RenameOptions {
    /// Take the first usable line of the text inside.
    bool useText = true;
    /// Add the file's date, as a UTC day.
    bool useDate = false;
    /// Lower case with dashes.
    bool dashed = false;

    friend bool operator==(const RenameOptions&, const RenameOptions&) = default;
};

/// The note of a row whose name another row has got already.
inline constexpr std::string_view sameNameNote = "same name";

/// What is proposed for one file.
struct RenameRow {
    FileItem file;
    /// The whole file name, extension included; one that a file system takes.
    std::string newName;
    /// Why this is not a plain new name: `sameNameNote`, "no text found", or "no text found — name
    /// kept".
    std::optional<std::string> note;

    /// Whether it is another name than the file has.
    bool renames() const { return newName != file.url.lastPathComponent(); }

    friend bool operator==(const RenameRow&, const RenameRow&) = default;
};

/// One row for each file, in order. What else lies in their folders is not looked at. A name that
/// would be too long with a number loses whole characters at the end of the line from the text.
std::vector<RenameRow> makePlan(std::span<const FileItem> files, const TextsByUrl& texts,
                                const RenameOptions& options, FirstLines& lines);

/// Likewise for a single plan.
std::vector<RenameRow> makePlan(std::span<const FileItem> files, const TextsByUrl& texts,
                                const RenameOptions& options);

}  // namespace nookwise
