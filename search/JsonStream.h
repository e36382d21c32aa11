// A file as RapidJSON reads it, piece by piece.
#pragma once

#include "platform/FileManager.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include <rapidjson/reader.h>

namespace nookwise {

/// Holds the piece at hand. A read that fails counts as the end.
class JsonPieces {
  public:
    /// `file` must outlive it. Whatever follows the first `limit` bytes counts as not there.
    JsonPieces(FileReader& file, std::uint64_t limit) : file_(file), unread_(limit) {}

    /// The next bytes; at the end a single NUL, which is what RapidJSON knows an end by.
    std::span<const char> next() {
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(unread_, piece_.size()));
        const auto bytes = std::span(piece_).first(wanted);
        const auto read = wanted == 0 ? 0 : file_.read(std::as_writable_bytes(bytes));
        const auto count = read ? read.value() : 0;
        unread_ = count < wanted ? 0 : unread_ - count;
        if (count > 0) return bytes.first(count);
        isEnded_ = true;
        piece_.front() = '\0';
        return std::span(piece_).first(1);
    }

    /// Tells the end from a NUL that is in the file.
    bool isEnded() const { return isEnded_; }

  private:
    FileReader& file_;
    std::uint64_t unread_;
    std::vector<char> piece_ = std::vector<char>(std::size_t{64} << 10U);
    bool isEnded_ = false;
};

/// An input stream of RapidJSON. Small, because RapidJSON works on a copy of it in registers.
class JsonStream {
  public:
    using Ch = char;

    /// `pieces` must outlive it.
    explicit JsonStream(JsonPieces& pieces) : pieces_(&pieces) { advance(); }

    char Peek() const { return *position_; }
    char Take() {
        const char taken = *position_++;
        if (position_ == end_) advance();
        return taken;
    }
    std::size_t Tell() const { return before_ + static_cast<std::size_t>(position_ - begin_); }

    // RapidJSON wants these to be there, but calls them only where it reads in place.
    char* PutBegin() { std::abort(); }
    void Put(char) { std::abort(); }
    std::size_t PutEnd(char*) { std::abort(); }

  private:
    void advance() {
        before_ += static_cast<std::size_t>(end_ - begin_);
        const auto piece = pieces_->next();
        begin_ = piece.data();
        position_ = begin_;
        end_ = begin_ + piece.size();
    }

    const char* position_ = nullptr;
    const char* end_ = nullptr;
    const char* begin_ = nullptr;
    std::size_t before_ = 0;
    JsonPieces* pieces_;
};

}  // namespace nookwise

template <>
struct rapidjson::StreamTraits<nookwise::JsonStream> {
    enum { copyOptimization = 1 };
};
