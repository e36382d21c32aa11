// Giving a file a name that nothing else has, for good.
#pragma once

namespace nookwise {

/// Renames a file, a folder or a link itself, between open folders of one file system. Never
/// overwrites: false with errno EEXIST when `toName` is taken, even at the last moment and even by
/// another name of the same file. False with errno EXDEV between file systems. After a failure
/// `fromName` is as it was.
bool renameNoReplace(int fromFolder, const char* fromName, int toFolder, const char* toName);

/// Makes the names in an open folder survive a loss of power. False with errno set.
bool syncFolder(int folder);

}  // namespace nookwise
