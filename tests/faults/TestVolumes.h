// File systems to try things on, where nothing else is.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <memory>
#include <optional>
#include <string>

namespace nookwise {

/// From the first call on, what this process mounts is seen by nobody else and goes with it. Why
/// that is not possible here; none when it is. The process has a single thread.
std::optional<std::string> mountPrivately();

/// A folder that is the top directory of a volume of its own, until the test ends.
class TestVolume {
  public:
    /// In memory, with the options of tmpfs.
    static std::unique_ptr<TestVolume> inMemory(const std::string& options);

    ~TestVolume();
    TestVolume(const TestVolume&) = delete;
    TestVolume& operator=(const TestVolume&) = delete;

    const std::filesystem::path& path() const { return folder_.path(); }

  private:
    TestVolume() = default;
    TemporaryFolder folder_;
};

}  // namespace nookwise
