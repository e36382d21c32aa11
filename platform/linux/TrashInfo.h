// What a Trash keeps of each thing in it: its name there, and a description of where it came from.
#pragma once

#include <cstddef>
#include <ctime>
#include <string>
#include <string_view>

namespace nookwise {

/// What follows a name in the Trash to make the name of its description.
constexpr std::string_view trashInfoExtension = ".trashinfo";

/// With the extension of its description, a name of so many bytes is as long as a name can be.
constexpr std::size_t longestNameInTrash = 255 - trashInfoExtension.size();

/// `name` with `suffix` before its extension. Shortened to `longestNameInTrash` at the end of its
/// stem, between two characters where it is UTF-8; an extension that is too long to be one counts
/// as stem.
std::string nameInTrash(std::string_view name, std::string_view suffix);

/// The text of a description. `path` is the place that the file is put back to, `deleted` local
/// time. `run` marks the run of the application that wrote it; readers ignore a line that they do
/// not know.
std::string trashInfo(std::string_view path, const std::tm& deleted, std::string_view run);

/// The `run` in a description. Empty where another program wrote it.
std::string_view runInTrashInfo(std::string_view text);

}  // namespace nookwise
