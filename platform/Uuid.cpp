#include "platform/Uuid.h"

#include <cstdlib>
#include <cstring>

#include <sys/random.h>

namespace nookwise {
namespace {

constexpr std::size_t textLength = 36;
constexpr std::string_view digits = "0123456789ABCDEF";

bool isHyphenAt(std::size_t position) {
    return position == 8 || position == 13 || position == 18 || position == 23;
}

int valueOf(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return -1;
}

}  // namespace

Uuid Uuid::random() {
    Uuid uuid;
    // Never interrupted and never short for so few bytes once the kernel has gathered randomness.
    if (::getrandom(uuid.bytes_.data(), uuid.bytes_.size(), 0) !=
        static_cast<ssize_t>(uuid.bytes_.size()))
        std::abort();
    uuid.bytes_[6] = static_cast<std::uint8_t>((uuid.bytes_[6] & 0x0f) | 0x40);  // version 4
    uuid.bytes_[8] =
        static_cast<std::uint8_t>((uuid.bytes_[8] & 0x3f) | 0x80);  // the usual variant
    return uuid;
}

std::optional<Uuid> Uuid::fromText(std::string_view text) {
    if (text.size() != textLength) return std::nullopt;
    Uuid uuid;
    std::size_t nibble = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isHyphenAt(i)) {
            if (text[i] != '-') return std::nullopt;
            continue;
        }
        const int value = valueOf(text[i]);
        if (value < 0) return std::nullopt;
        auto& byte = uuid.bytes_[nibble / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | value);
        ++nibble;
    }
    return uuid;
}

std::string Uuid::text() const {
    std::string text;
    text.reserve(textLength);
    for (const auto byte : bytes_) {
        if (isHyphenAt(text.size())) text += '-';
        text += digits[byte >> 4];
        text += digits[byte & 0x0f];
    }
    return text;
}

}  // namespace nookwise

std::size_t std::hash<nookwise::Uuid>::operator()(const nookwise::Uuid& uuid) const noexcept {
    // The bits are random already.
    std::size_t beginning = 0;
    std::memcpy(&beginning, uuid.bytes_.data(), sizeof beginning);
    return beginning;
}
