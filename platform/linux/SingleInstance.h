// One running application over one set of its own files.
#pragma once

#include "platform/FileUrl.h"
#include "platform/linux/OpenAt.h"

#include <QLocalServer>
#include <functional>
#include <memory>
#include <optional>

namespace nookwise {

/// Two writers of one activity log would each forget what the other did. Who comes second asks the
/// first to show its window, and ends. UI thread only.
class SingleInstance {
  public:
    struct Places {
        /// The application's own folder; made when it is not there.
        FileUrl ownFolder;
        /// Where the first instance listens for the others.
        FileUrl socket;
    };

    /// The socket lies where the user's running programs meet, else in the own folder.
    static Places places(const FileUrl& ownFolder, const std::string& runtimeFolder);

    /// Null when another instance runs. It has been asked then to show itself, for which the
    /// desktop may have handed this process an activation token. Where the own folder cannot be
    /// written, nothing can be spoilt, and every instance is the only one.
    static std::unique_ptr<SingleInstance> claim(const Places& places);

    /// Calls `show` whenever another instance was started.
    void onShow(std::function<void()> show) { show_ = std::move(show); }

    /// For an instance that has no window any more and is about to end: whoever is started from now
    /// on waits a moment and takes its place.
    void stopAnswering() { server_.close(); }

  private:
    SingleInstance(FileDescriptor lock, const Places& places);

    void hear(QLocalSocket& socket);

    FileDescriptor lock_;
    QLocalServer server_;
    std::function<void()> show_;
};

}  // namespace nookwise
