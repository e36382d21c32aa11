// Names of installed applications, for recognising their installers.
#pragma once

#include "platform/FileManager.h"
#include "platform/UserFolders.h"
#include "platform/Workspace.h"

#include <map>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// From the letters of an application's name to the name.
using InstalledAppNames = std::map<std::string, std::string>;

/// The letters of a text in lower case: "Blue Kite Setup 1.2" gives "bluekitesetup".
std::string letters(std::string_view text);

/// The desktop's registered applications, and after them the bundles in the application folders.
/// Incomplete after a stop request.
std::vector<InstalledApplication> installedApplications(const FileManager& files,
                                                        const UserFolders& folders,
                                                        const Workspace& workspace,
                                                        const std::stop_token& stop);

/// A later name counts over an earlier one of the same letters. Names with fewer than three letters
/// are left out.
InstalledAppNames installedAppNames(std::span<const InstalledApplication> applications);

/// The name of the application whose letters are the longest beginning of the installer's letters,
/// or null. Valid as long as `apps` is not changed.
const std::string* applicationOfInstaller(const InstalledAppNames& apps,
                                          std::string_view installerLetters);

}  // namespace nookwise
