// Reading JSON from a file piece by piece.
#pragma once

#include "platform/FileManager.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nookwise {

/// Takes one token after the other and never looks back, so that a file of any length needs little
/// memory. Strict: everything that is not JSON, strings that are not UTF-8 and numbers that a
/// double cannot hold are failures, as are failed reads. After a failure nothing can be relied on,
/// and the caller gives up. White space goes unnoticed.
class JsonInput {
  public:
    /// No string may be longer, and no value nested deeper.
    static constexpr std::size_t longestString = std::size_t{8} << 20U;
    static constexpr std::size_t deepestNesting = 512;

    /// `file` must outlive it. Whatever follows the first `limit` bytes counts as not there.
    JsonInput(FileReader& file, std::uint64_t limit);

    bool isNext(char expected) { return peekAfterSpace() == expected; }
    /// Takes a bracket, a colon or a comma, if it is next.
    bool take(char expected);
    /// Takes a string, if one is next. False also when it is none that may be.
    bool takeString(std::string& value);
    bool takeNumber(double& value);
    /// Takes "null", "true" or "false" likewise.
    bool takeWord(std::string_view word);
    /// Takes any value. False when there is none that may be.
    bool skipValue();
    /// Whether all has been taken.
    bool isAtEnd();

  private:
    static constexpr int end = -1;

    /// The next byte, or `end`.
    int peek() { return position_ < filled_ || refill() ? current() : end; }
    int current() const { return static_cast<unsigned char>(buffer_[position_]); }
    bool refill();
    int peekAfterSpace();
    bool takePlain(std::string& value);
    bool takeEscape(std::string& value);
    bool takeCodeUnit(std::uint32_t& unit);
    bool takeDigits(std::string& number);
    bool takeOneOf(std::string_view bytes, std::string& number);
    bool skipScalar();
    bool takeKey();

    FileReader& file_;
    std::uint64_t unread_;
    std::vector<char> buffer_;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    std::string skipped_;
};

}  // namespace nookwise
