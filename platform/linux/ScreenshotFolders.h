// Where the programs that capture the screen put their pictures.
#pragma once

#include "platform/FileUrl.h"

#include <optional>
#include <string>

struct _GSettingsSchemaSource;

namespace nookwise {

// Each gives what the user has set, which need not exist, and none when the user has set nothing or
// the program is not there. May be called from any thread.

/// `installed` may be null; then nothing is installed.
std::optional<FileUrl> gnomeScreenshotFolder(_GSettingsSchemaSource* installed,
                                             const FileUrl& home);
std::optional<FileUrl> spectacleScreenshotFolder(const FileUrl& configHome, const FileUrl& home);
std::optional<FileUrl> flameshotScreenshotFolder(const FileUrl& configHome);

/// The name that the desktop gives to the folder of screenshots, in the user's language.
std::string screenshotsFolderName();

}  // namespace nookwise
