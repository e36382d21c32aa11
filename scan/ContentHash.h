// SHA-256 of contents.
#pragma once

#include "platform/FileManager.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>

namespace nookwise {

/// An incremental SHA-256. Copying copies the state so far. Where the library cannot provide it,
/// for want of memory for one, there is no digest at the end.
class Sha256 {
  public:
    Sha256();
    Sha256(const Sha256& other);
    Sha256& operator=(const Sha256& other);
    Sha256(Sha256&&) noexcept;
    Sha256& operator=(Sha256&&) noexcept;
    ~Sha256();

    void update(std::span<const std::byte> bytes);
    /// 64 lower-case hexadecimal digits. May be called once.
    std::optional<std::string> finish();

  private:
    struct State;
    /// None once anything failed.
    std::unique_ptr<State> state_;
};

/// The digest of the first `limit` bytes of a file, or of the whole file; none when it cannot be
/// opened or read, or after a stop request.
std::optional<std::string> hash(const FileManager& files, const FileUrl& url,
                                std::optional<std::uint64_t> limit, const std::stop_token& stop);

}  // namespace nookwise
