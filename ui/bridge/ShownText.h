// Texts of the application as the screens show them.
#pragma once

#include "platform/FileUrl.h"

#include <QString>
#include <cstdint>
#include <string_view>

namespace nookwise {

/// The application's own UTF-8 text.
QString shown(std::string_view text);

/// Whether the character is a control character, ends a line, or turns the direction of writing.
bool isNotDrawn(QChar character);

/// A file's name or path on one line. Bytes that are not UTF-8, control characters and characters
/// that turn the direction of writing read as U+FFFD, so that no name can pass for another one.
QString shownName(std::string_view bytes);

/// "1,284".
QString shownCount(std::int64_t count);

/// "1 file", "1,284 files".
QString shownFiles(std::int64_t count);

/// "1 copy", "2 copies".
QString shownCopies(std::int64_t count);

/// "8.43 GB".
QString shownBytes(std::int64_t bytes);

/// The folder that holds a file, as a path from the home folder: "~/Downloads/Reading".
QString shownFolderOf(const FileUrl& file, const FileUrl& home);

/// The same folder for a screen reader: "Downloads, Reading".
QString spokenFolderOf(const FileUrl& file, const FileUrl& home);

}  // namespace nookwise
