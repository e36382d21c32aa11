// Names of installed applications, for recognising their installers.
#pragma once

#include "platform/FileManager.h"
#include "platform/UserFolders.h"
#include "platform/Workspace.h"

#include <map>
#include <string>
#include <string_view>

namespace nookwise {

/// From the letters of an application's name to the name.
using InstalledAppNames = std::map<std::string, std::string>;

/// The letters of a text in lower case: "Blue Kite Setup 1.2" gives "bluekitesetup".
std::string letters(std::string_view text);

/// Application bundles in the application folders, a later folder's name counting over an earlier
/// one's, and the desktop's registered applications. Names with fewer than three letters are left
/// out.
InstalledAppNames installedAppNames(const FileManager& files, const UserFolders& folders,
                                    const Workspace& workspace);

/// The name of the application whose letters are the longest beginning of the installer's letters,
/// or null. Valid as long as `apps` is not changed.
const std::string* applicationOfInstaller(const InstalledAppNames& apps,
                                          std::string_view installerLetters);

}  // namespace nookwise
