// The file that a reader process was handed.
#pragma once

#include <cstddef>
#include <span>

namespace nookwise {

/// Owns the descriptor. The bytes are mapped, not read: large files stay out of the memory limit,
/// and what is not looked at costs nothing. If somebody cuts the file off meanwhile, touching what
/// is gone ends the process (SIGBUS), which costs this one file.
class PassedFile {
  public:
    explicit PassedFile(int descriptor) : descriptor_(descriptor) {}
    ~PassedFile();
    PassedFile(const PassedFile&) = delete;
    PassedFile& operator=(const PassedFile&) = delete;

    int descriptor() const { return descriptor_; }

    /// Anything else can keep its reader waiting.
    bool isRegular() const;

    /// Empty when the file is, or cannot be mapped. They live as long as this object.
    std::span<const std::byte> bytes();

  private:
    int descriptor_;
    std::span<const std::byte> bytes_;
};

}  // namespace nookwise
