// An input taken apart into texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace nookwise {

/// The texts between the input's unit separators (0x1F), one after the other.
class Fields {
  public:
    Fields(const std::uint8_t* bytes, std::size_t size)
        : rest_(reinterpret_cast<const char*>(bytes), size) {}

    bool isAtEnd() const { return isAtEnd_; }

    /// Empty at the end.
    std::string_view next() {
        constexpr char separator = '\x1F';
        const auto field = rest_.substr(0, rest_.find(separator));
        isAtEnd_ = field.size() == rest_.size();
        rest_.remove_prefix(isAtEnd_ ? rest_.size() : field.size() + 1);
        return field;
    }

  private:
    std::string_view rest_;
    bool isAtEnd_ = false;
};

/// Whether a file can have it.
inline bool isFileName(std::string_view text) {
    constexpr std::size_t longest = 255;
    return !text.empty() && text.size() <= longest && text != "." && text != ".." &&
           text.find('/') == std::string_view::npos && text.find('\0') == std::string_view::npos;
}

}  // namespace nookwise
