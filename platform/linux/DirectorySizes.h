// The file of a Trash that tells the sizes of the folders in it, so that nobody has to walk them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace nookwise {

struct DirectorySize {
    /// On disk.
    std::int64_t bytes = 0;
    /// When the folder's description was written, in seconds since 1970: an entry of another time
    /// speaks of another folder that had the same name.
    std::int64_t described = 0;
};

/// Whether a folder of this name is in the Trash.
using IsInTrash = std::function<bool(const std::string& name)>;

/// `text` with the entry for the folder `name` and none else for it. Lines that make no sense are
/// left out, and so are folders that are gone: a few lines are looked at in each call and the
/// others in the next ones, so that many folders in a row do not cost quadratic time.
std::string withDirectorySize(std::string_view text, std::string_view name,
                              const DirectorySize& size, const IsInTrash& isInTrash);

/// The same without any entry for the folder `name`. `text` itself where there is none.
std::string withoutDirectorySize(std::string_view text, std::string_view name,
                                 const IsInTrash& isInTrash);

/// Sets the entry of `name` in the open Trash folder `trash`, whose files are in the open folder
/// `files`. The list is replaced as a whole. Where it cannot be written nothing is changed: it only
/// saves time, and whoever reads it counts what it does not tell.
void recordDirectorySize(int trash, int files, std::string_view name, const DirectorySize& size);

/// Removes the entry of `name`.
void forgetDirectorySize(int trash, int files, std::string_view name);

/// Removes the unfinished lists that killed processes left in the open Trash folder `trash`.
void removeUnfinishedDirectorySizes(int trash);

}  // namespace nookwise
