#include "search/QuerySize.h"

#include "model/Fmt.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace nookwise::QueryParser {
namespace {

struct Size {
    std::int64_t bytes;
    std::size_t consumed;
};

struct Unit {
    std::string_view word;
    double bytes;
};

constexpr std::array<Unit, 10> units{{{"kb", 1e3},
                                      {"k", 1e3},
                                      {"mb", 1e6},
                                      {"m", 1e6},
                                      {"meg", 1e6},
                                      {"megs", 1e6},
                                      {"gb", 1e9},
                                      {"g", 1e9},
                                      {"gig", 1e9},
                                      {"gigs", 1e9}}};

constexpr std::array<std::string_view, 6> largerWords{"over",   "above", "bigger",
                                                      "larger", ">",     "more"};
constexpr std::array<std::string_view, 5> smallerWords{"under", "below", "smaller", "less", "<"};
constexpr std::array<std::string_view, 4> bigWords{"big", "large", "huge", "heavy"};

template <std::size_t count>
bool contains(const std::array<std::string_view, count>& words, std::string_view word) {
    return std::ranges::find(words, word) != words.end();
}

/// A finite decimal number, also as "1e3" or ".5", with a point or a comma in any locale.
std::optional<double> readNumber(std::string_view text) {
    std::string digits(text);
    std::ranges::replace(digits, ',', '.');
    double number = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [read, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc{} || read != end || !std::isfinite(number)) return std::nullopt;
    return number;
}

std::int64_t truncated(double number) {
    constexpr double beyond = 0x1p63;
    if (number >= beyond) return std::numeric_limits<std::int64_t>::max();
    if (number < -beyond) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(number);
}

std::optional<std::int64_t> bytesOf(std::string_view number, std::string_view unit) {
    const auto* const found = std::ranges::find(units, unit, &Unit::word);
    if (found == units.end()) return std::nullopt;
    const auto count = readNumber(number);
    if (!count) return std::nullopt;
    return truncated(*count * found->bytes);
}

/// A size at the beginning: "2gb" or "2 gb".
std::optional<Size> readSize(Tokens tokens) {
    if (tokens.empty()) return std::nullopt;
    const auto token = tokens.front();
    // Units and numbers are ASCII, so that any other letter leaves no size either way.
    const auto letter = token.find_first_of("abcdefghijklmnopqrstuvwxyz");
    if (letter != std::string_view::npos && letter != 0) {
        if (const auto bytes = bytesOf(token.substr(0, letter), token.substr(letter)))
            return Size{*bytes, 1};
    }
    if (const auto bytes = bytesOf(token, nextOf(tokens))) return Size{*bytes, 2};
    return std::nullopt;
}

}  // namespace

std::optional<Recognised> recogniseSizeBound(Tokens tokens) {
    const bool isLarger = contains(largerWords, tokens.front());
    if (!isLarger && !contains(smallerWords, tokens.front())) return std::nullopt;
    const std::size_t before = nextOf(tokens) == "than" ? 2 : 1;
    const auto size = readSize(tokens.subspan(before));
    if (!size) return std::nullopt;
    const auto consumed = before + size->consumed;
    const auto shown = Fmt::bytes(size->bytes);
    if (isLarger)
        return recognised(tokens, consumed, "Size", "> " + shown, QueryFilter::Larger{size->bytes});
    return recognised(tokens, consumed, "Size", "< " + shown, QueryFilter::Smaller{size->bytes});
}

std::optional<Recognised> recogniseBig(Tokens tokens) {
    if (!contains(bigWords, tokens.front())) return std::nullopt;
    constexpr std::int64_t big = 100'000'000;
    return recognised(tokens, 1, "Size", "> " + Fmt::bytes(big), QueryFilter::Larger{big});
}

}  // namespace nookwise::QueryParser
