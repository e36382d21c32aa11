#include "platform/linux/FreedLater.h"

#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>

namespace nookwise {
namespace {

// Below it, starting a thread costs more.
constexpr std::int64_t largeFile = std::int64_t{64} << 20U;

}  // namespace

FreedLater::FreedLater(int folder, const char* name, std::int64_t size) {
    if (size >= largeFile)
        file_ = FileDescriptor(::openat(folder, name, O_PATH | O_NOFOLLOW | O_CLOEXEC));
}

FreedLater::~FreedLater() {
    if (!file_) return;
    try {
        std::thread([file = std::move(file_)] {}).detach();
    } catch (const std::system_error&) {
        // Without another thread, this one waits.
    }
}

}  // namespace nookwise
