// Identities that need no registry.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace nookwise {

/// 128 bits. A default-constructed value is all zeros.
class Uuid {
  public:
    Uuid() = default;

    /// A fresh one (version 4). May be called from any thread.
    static Uuid random();

    /// Reads the 36-character hyphenated form, in either case. None for anything else.
    static std::optional<Uuid> fromText(std::string_view text);

    /// The 36-character hyphenated form, in upper case.
    std::string text() const;

    friend bool operator==(const Uuid&, const Uuid&) = default;

  private:
    friend struct std::hash<Uuid>;
    std::array<std::uint8_t, 16> bytes_{};
};

}  // namespace nookwise

template <>
struct std::hash<nookwise::Uuid> {
    std::size_t operator()(const nookwise::Uuid& uuid) const noexcept;
};
