// Freeing the bytes of large files.
#pragma once

#include "platform/linux/OpenAt.h"

#include <cstdint>

namespace nookwise {

/// Whoever removes the last name of a file waits until the system has freed what the file holds,
/// some third of a second a gigabyte. While this lives the removal of the name returns at once, and
/// after that a thread of its own waits. Does nothing for small files. A process that ends before
/// frees them too.
class FreedLater {
  public:
    /// `size` in bytes. A file that cannot be held is freed as usual.
    FreedLater(int folder, const char* name, std::int64_t size);
    ~FreedLater();
    FreedLater(const FreedLater&) = delete;
    FreedLater& operator=(const FreedLater&) = delete;

  private:
    FileDescriptor file_;
};

}  // namespace nookwise
