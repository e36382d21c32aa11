#include "model/Fmt.h"

#include "platform/RelativeDate.h"

#include <array>
#include <string_view>

namespace nookwise::Fmt {
namespace {

struct Unit {
    std::string_view name;
    std::uint64_t size;
    int fractionDigits;
};

constexpr std::array<Unit, 4> units{{
    {"KB", 1'000, 0},
    {"MB", 1'000'000, 1},
    {"GB", 1'000'000'000, 2},
    {"TB", 1'000'000'000'000, 2},
}};

constexpr std::array<std::uint64_t, 3> powersOfTen{1, 10, 100};

/// `count` in the unit's smallest shown fraction, rounded half up.
std::uint64_t roundedFractions(std::uint64_t count, const Unit& unit) {
    const auto fraction = unit.size / powersOfTen[static_cast<std::size_t>(unit.fractionDigits)];
    return count / fraction + (count % fraction * 2 >= fraction ? 1 : 0);
}

std::string grouped(std::uint64_t number) {
    auto digits = std::to_string(number);
    for (auto place = static_cast<std::ptrdiff_t>(digits.size()) - 3; place > 0; place -= 3) {
        digits.insert(static_cast<std::size_t>(place), 1, ',');
    }
    return digits;
}

std::string decimal(std::uint64_t fractions, int fractionDigits) {
    const auto scale = powersOfTen[static_cast<std::size_t>(fractionDigits)];
    auto text = grouped(fractions / scale);
    auto rest = fractions % scale;
    if (rest == 0) return text;
    auto digits = std::to_string(rest);
    digits.insert(0, static_cast<std::size_t>(fractionDigits) - digits.size(), '0');
    while (digits.back() == '0') digits.pop_back();
    return text + "." + digits;
}

}  // namespace

std::string bytes(std::int64_t count) {
    if (count == 0) return "Zero KB";
    // Negated as unsigned, so that the smallest value has a magnitude too.
    const auto magnitude =
        count < 0 ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
    std::size_t i = 0;
    // Rounding decides the unit: 999,999 bytes are 1,000 KB, which is written as 1 MB.
    while (i + 1 < units.size() &&
           roundedFractions(magnitude, units[i]) >=
               1'000 * powersOfTen[static_cast<std::size_t>(units[i].fractionDigits)]) {
        ++i;
    }
    return (count < 0 ? "-" : "") +
           decimal(roundedFractions(magnitude, units[i]), units[i].fractionDigits) + " " +
           std::string(units[i].name);
}

std::string ago(std::optional<Date> date, Date now) {
    return date ? relativeText(*date, now) : "—";
}

int monthsSince(std::optional<Date> date, Date now) {
    return date ? wholeMonthsBetween(*date, now) : 0;
}

std::string shortPath(const FileUrl& url, const FileUrl& home) {
    const auto path = url.path();
    if (home.empty() || !path.starts_with(home.path())) return std::string(path);
    return "~" + std::string(path.substr(home.path().size()));
}

}  // namespace nookwise::Fmt
