// Showing files in the desktop's file viewer.
#pragma once

#include "platform/FileUrl.h"

#include <functional>
#include <vector>

namespace nookwise {

using OpenFolder = std::function<void(const FileUrl& folder)>;

/// Opens a file or folder with the desktop's own program for it. False where there is none.
bool openWithDesktop(const FileUrl& url);

/// Asks the file viewer of the session to show and select the files. Where none answers,
/// `openFolder` is called with the folder of the first one. Returns at once; needs the Qt event
/// loop.
void revealInFileViewer(const std::vector<FileUrl>& urls, OpenFolder openFolder);

}  // namespace nookwise
