#include "platform/linux/RandomName.h"

#include <algorithm>
#include <array>

#include <sys/random.h>

namespace nookwise {
namespace {

constexpr std::string_view digits = "0123456789abcdef";
// 128 bits: no two names meet, and none can be guessed.
constexpr std::size_t randomBytes = 16;

}  // namespace

std::optional<std::string> randomName() {
    std::array<unsigned char, randomBytes> bytes{};
    // The kernel gives this few bytes whole or not at all.
    if (::getrandom(bytes.data(), bytes.size(), 0) < 0) return std::nullopt;
    std::string name;
    for (const auto byte : bytes) {
        name += digits[byte >> 4U];
        name += digits[byte & 15U];
    }
    return name;
}

bool isRandomName(std::string_view name) {
    return name.size() == 2 * randomBytes && std::all_of(name.begin(), name.end(), [](char c) {
               return digits.find(c) != std::string_view::npos;
           });
}

}  // namespace nookwise
