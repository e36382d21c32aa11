// An open file that need not be anywhere.
#pragma once

#include "platform/FileManager.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

namespace nookwise {

/// Holds some bytes, and others that come again and again until it is as long as it was said to be.
class GivenBytes : public FileReader {
  public:
    explicit GivenBytes(std::string bytes) : bytes_(std::move(bytes)), size_(bytes_.size()) {}
    GivenBytes(std::string bytes, std::string repeated, std::uint64_t size)
        : bytes_(std::move(bytes)), size_(size) {
        // In long pieces, so that reading takes no time.
        while (repeated_.size() < (std::size_t{1} << 16U)) repeated_ += repeated;
        period_ = repeated.size();
    }

    std::uint64_t size() const { return size_; }
    /// How far it has been read.
    std::uint64_t position() const { return position_; }

    Result<State> state() const override { return State{.size = static_cast<std::int64_t>(size_)}; }

    Result<std::size_t> read(std::span<std::byte> buffer) override {
        std::size_t filled = 0;
        while (filled < buffer.size() && position_ < size_) {
            const auto rest = next();
            const auto count = static_cast<std::size_t>(
                std::min<std::uint64_t>({rest.size(), buffer.size() - filled, size_ - position_}));
            std::memcpy(buffer.data() + filled, rest.data(), count);
            filled += count;
            position_ += count;
        }
        return filled;
    }

  private:
    std::string_view next() const {
        if (position_ < bytes_.size()) return std::string_view(bytes_).substr(position_);
        return std::string_view(repeated_).substr((position_ - bytes_.size()) % period_);
    }

    std::string bytes_;
    std::string repeated_;
    std::size_t period_ = 1;
    std::uint64_t size_;
    std::uint64_t position_ = 0;
};

}  // namespace nookwise
