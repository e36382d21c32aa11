// Ending well when the system asks the process to end.
#pragma once

#include "platform/linux/OpenAt.h"

#include <QObject>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <functional>
#include <memory>

namespace nookwise {

/// At the end of a session, at a shutdown and at Ctrl+C in a terminal a process is sent SIGTERM,
/// SIGHUP or SIGINT. While this lives, the first of each calls `asked` from the event loop; a
/// second one ends the process at once. A signal that the process was started to ignore stays
/// ignored. One object at a time, on the UI thread, while the application object exists.
class TerminationSignals {
  public:
    explicit TerminationSignals(std::function<void()> asked);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

  private:
    static constexpr std::array caught{SIGTERM, SIGHUP, SIGINT};

    FileDescriptor event_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::array<struct sigaction, caught.size()> usual_{};
};

}  // namespace nookwise
