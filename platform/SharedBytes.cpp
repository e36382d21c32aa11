#include "platform/SharedBytes.h"

#include <cstddef>
#include <mutex>

#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

namespace nookwise {

/// A stretch of memory that blocks are cut from, from its beginning on. Its address is a multiple
/// of its size, by which a block finds it.
class SharedBytes::Sequence {
  public:
    static constexpr std::size_t size = std::size_t{1} << 21U;

    static Sequence* make() {
        auto* memory = ::operator new (size, std::align_val_t{size});
#ifdef MADV_HUGEPAGE
        // As one page, where the system has pages of that size: there are many to go through.
        ::madvise(memory, size, MADV_HUGEPAGE);
#endif
        return new (memory) Sequence;
    }

    static Sequence* of(Block* block) {
        const auto offset = reinterpret_cast<std::uintptr_t>(block) % size;
        return reinterpret_cast<Sequence*>(reinterpret_cast<char*>(block) - offset);
    }

    /// What is larger takes long to read wherever it lies, and would leave much room unused before
    /// it.
    static bool canHold(std::size_t bytes) {
        return bytes <= size / 16;
    }

    /// Null when there is no room left.
    Block* cut(std::size_t bytes) {
        const auto end =
            (used_ + sizeof(Block) + bytes + alignof(Block) - 1) / alignof(Block) * alignof(Block);
        if (end > size) return nullptr;
        auto* block = new (reinterpret_cast<char*>(this) + used_)
            Block{sequenceBit + 1, static_cast<std::uint32_t>(bytes)};
        used_ = end;
        users_.fetch_add(1, std::memory_order_relaxed);
        return block;
    }

    /// By a block that has ended, and by whoever cuts blocks from it.
    void release() {
        if (users_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            ::operator delete (this, std::align_val_t{size});
    }

  private:
    std::atomic<std::uint32_t> users_ = 1;
    std::size_t used_ = sizeof(Sequence);
};

SharedBytes SharedBytes::inSequence(std::string_view bytes) {
    struct Current {
        ~Current() { replace(nullptr); }
        void replace(Sequence* next) {
            if (sequence != nullptr) sequence->release();
            sequence = next;
        }
        std::mutex mutex;
        Sequence* sequence = nullptr;
    };
    // Of all threads together, most of which make a single one before they end.
    static Current current;
    if (bytes.empty() || !Sequence::canHold(bytes.size())) return SharedBytes(bytes);
    Block* block = nullptr;
    {
        const std::lock_guard lock(current.mutex);
        if (current.sequence != nullptr) block = current.sequence->cut(bytes.size());
        if (block == nullptr) {
            current.replace(Sequence::make());
            block = current.sequence->cut(bytes.size());
        }
    }
    std::ranges::copy(bytes, block->bytes());
    SharedBytes result;
    result.block_ = block;
    return result;
}

void SharedBytes::releaseFromSequence(Block* block) noexcept {
    Sequence::of(block)->release();
}

}  // namespace nookwise
