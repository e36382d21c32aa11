// An immutable byte string whose copies share one allocation.
#pragma once

#include <algorithm>
#include <atomic>
#include <cassert>
#include <compare>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <new>
#include <string_view>
#include <utility>

namespace nookwise {

/// One pointer wide. Copying costs one atomic increment, so a path or a text can stand in any
/// number of lists while its bytes exist once. Safe to copy and destroy from several threads. Holds
/// at most 4 GiB; the bytes need not be UTF-8.
class SharedBytes {
  public:
    SharedBytes() noexcept = default;

    explicit SharedBytes(std::string_view bytes) : SharedBytes({bytes}) {}

    /// The parts joined, with a single allocation.
    SharedBytes(std::initializer_list<std::string_view> parts) {
        std::size_t size = 0;
        for (const auto part : parts) size += part.size();
        if (size == 0) return;
        assert(size <= std::numeric_limits<std::uint32_t>::max());
        block_ =
            new (::operator new(sizeof(Block) + size)) Block{1, static_cast<std::uint32_t>(size)};
        char* end = block_->bytes();
        for (const auto part : parts) end = std::copy(part.begin(), part.end(), end);
    }

    /// In memory in which all bytes made in this way lie one after the other: whoever reads many in
    /// the order of `address` reads several times as fast. A piece of some megabytes is given back
    /// once all bytes in it have ended.
    static SharedBytes inSequence(std::string_view bytes);

    SharedBytes(const SharedBytes& other) noexcept : block_(other.block_) {
        if (block_ != nullptr) block_->owners.fetch_add(1, std::memory_order_relaxed);
    }
    SharedBytes(SharedBytes&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    SharedBytes& operator=(SharedBytes other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    ~SharedBytes() {
        if (block_ == nullptr) return;
        const auto owners = block_->owners.fetch_sub(1, std::memory_order_acq_rel);
        if (owners == 1) ::operator delete(block_);
        if (owners == sequenceBit + 1) releaseFromSequence(block_);
    }

    std::string_view view() const noexcept {
        return block_ == nullptr ? std::string_view{}
                                 : std::string_view{block_->bytes(), block_->size};
    }

    /// Where the bytes are; in no order that lasts.
    std::uintptr_t address() const noexcept { return reinterpret_cast<std::uintptr_t>(block_); }

    /// Begins to bring the first bytes, and how many there are, into the processor's cache.
    void prefetch() const noexcept { __builtin_prefetch(block_); }

    friend bool operator==(const SharedBytes& a, const SharedBytes& b) noexcept {
        return a.block_ == b.block_ || a.view() == b.view();
    }
    friend std::strong_ordering operator<=>(const SharedBytes& a, const SharedBytes& b) noexcept {
        return a.view() <=> b.view();
    }

  private:
    class Sequence;

    /// Set in the count of owners of bytes in sequence.
    static constexpr std::uint32_t sequenceBit = 1U << 31U;

    struct Block {
        std::atomic<std::uint32_t> owners;
        std::uint32_t size;
        char* bytes() { return reinterpret_cast<char*>(this + 1); }
    };
    static void releaseFromSequence(Block* block) noexcept;

    Block* block_ = nullptr;
};

}  // namespace nookwise

template <>
struct std::hash<nookwise::SharedBytes> {
    std::size_t operator()(const nookwise::SharedBytes& bytes) const noexcept {
        return std::hash<std::string_view>{}(bytes.view());
    }
};
