#include "search/WordFinder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace nookwise {
namespace {

/// Bytes of lower-cased texts, the most frequent first, in European languages.
constexpr std::string_view frequentBytes = " etaoinsrhldcumfpgwybv\n,.k0121-x3456789j:z/q_()'\"";

/// How frequent each byte is in texts of any language; only the order counts.
constexpr auto commonnessOfBytes = [] {
    std::array<std::uint8_t, 256> commonness{};
    const auto set = [&](std::size_t first, std::size_t last, std::uint8_t value) {
        for (auto byte = first; byte <= last; ++byte) commonness[byte] = value;
    };
    set(0x80, 0xBF, 60);
    set(0xC3, 0xC5, 40);
    set(0xE0, 0xE9, 90);
    // Nearly every second byte of a Cyrillic text.
    set(0xD0, 0xD1, 99);
    std::uint8_t next = 100;
    for (const auto byte : frequentBytes) {
        auto& value = commonness[static_cast<unsigned char>(byte)];
        if (value == 0) value = next;
        --next;
    }
    return commonness;
}();

int commonnessOf(char byte) {
    return commonnessOfBytes[static_cast<unsigned char>(byte)];
}

/// The places of the rarest bytes of the word, each other than those before it while there are.
std::array<std::size_t, 3> rarestPlaces(std::string_view word) {
    std::array<std::size_t, 3> places{};
    for (std::size_t count = 0; count < places.size(); ++count) {
        const auto taken = std::span(places).first(count);
        const auto rank = [&](std::size_t place) {
            const auto isSame = [&](std::size_t other) { return word[other] == word[place]; };
            // The same place says nothing more, the same byte little.
            if (std::ranges::find(taken, place) != taken.end()) return 1'000;
            return commonnessOf(word[place]) + (std::ranges::any_of(taken, isSame) ? 256 : 0);
        };
        auto best = count == 0 ? std::size_t{0} : places[count - 1];
        for (std::size_t place = 0; place < word.size(); ++place) {
            if (rank(place) < rank(best)) best = place;
        }
        places[count] = best;
    }
    return places;
}

const char* found(const char* text, char byte, std::size_t size) {
    return static_cast<const char*>(std::memchr(text, byte, size));
}

}  // namespace

class WordFinder::Comparison {
  public:
    enum class Outcome { same, different, costly };

    Comparison(std::string_view word, std::string_view text)
        : word_(word), text_(text), left_(8 * text.size() + 4'096) {}

    Outcome at(std::size_t place) {
        if (std::memcmp(text_.data() + place, word_.data(), word_.size()) == 0)
            return Outcome::same;
        if (word_.size() > left_) return Outcome::costly;
        left_ -= word_.size();
        return Outcome::different;
    }

    /// By a search that cannot be misled.
    std::size_t from(std::size_t place) const {
        const auto rest = text_.substr(place);
        const auto* match = ::memmem(rest.data(), rest.size(), word_.data(), word_.size());
        return match == nullptr
                   ? std::string_view::npos
                   : static_cast<std::size_t>(static_cast<const char*>(match) - text_.data());
    }

  private:
    std::string_view word_;
    std::string_view text_;
    std::size_t left_;
};

WordFinder::WordFinder(std::string_view word)
    : WordFinder(word, isAvailable(Instructions::avx2) ? Instructions::avx2 : Instructions::any) {}

WordFinder::WordFinder(std::string_view word, Instructions instructions)
    : word_(word), find_(&WordFinder::findByByte) {
    if (word.empty()) {
        find_ = &WordFinder::findEmpty;
        return;
    }
    rarest_ = rarestPlaces(word);
    for (const auto place : rarest_) commonness_ += commonnessOf(word[place]);
    if (instructions == Instructions::avx2) find_ = &WordFinder::findByVector;
}

std::size_t WordFinder::findEmpty(std::string_view) const {
    return 0;
}

std::size_t WordFinder::findByByte(std::string_view text) const {
    Comparison comparison(word_, text);
    const auto places = text.size() - word_.size() + 1;
    for (std::size_t place = 0; place < places; ++place) {
        const auto* const rarest = text.data() + rarest_[0];
        const auto* next = found(rarest + place, word_[rarest_[0]], places - place);
        if (next == nullptr) break;
        place = static_cast<std::size_t>(next - rarest);
        if (text[place + rarest_[1]] != word_[rarest_[1]]) continue;
        const auto outcome = comparison.at(place);
        if (outcome == Comparison::Outcome::same) return place;
        if (outcome == Comparison::Outcome::costly) return comparison.from(place + 1);
    }
    return std::string_view::npos;
}

#if defined(__x86_64__)

bool WordFinder::isAvailable(Instructions instructions) {
    return instructions == Instructions::any || __builtin_cpu_supports("avx2") != 0;
}

namespace {

constexpr std::size_t vectorSize = sizeof(__m256i);

[[gnu::target("avx2")]] inline __m256i loaded(const char* bytes) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
}

/// The rarest bytes of a word, each in every place of a vector.
struct RarestBytes {
    __m256i bytes[3];
    const char* texts[3];

    /// All bits of the places from `place` on where all of them stand.
    [[gnu::target("avx2")]] __m256i at(std::size_t place) const {
        const auto two = _mm256_and_si256(_mm256_cmpeq_epi8(loaded(texts[0] + place), bytes[0]),
                                          _mm256_cmpeq_epi8(loaded(texts[1] + place), bytes[1]));
        return _mm256_and_si256(two, _mm256_cmpeq_epi8(loaded(texts[2] + place), bytes[2]));
    }
};

[[gnu::target("avx2")]] inline std::uint64_t bitsOf(__m256i places) {
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(places));
}

}  // namespace

[[gnu::target("avx2")]] std::size_t WordFinder::findByVector(std::string_view text) const {
    const auto places = text.size() - word_.size() + 1;
    if (places < vectorSize) return findByByte(text);
    RarestBytes rarest;
    for (std::size_t number = 0; number < rarest_.size(); ++number) {
        rarest.bytes[number] = _mm256_set1_epi8(word_[rarest_[number]]);
        rarest.texts[number] = text.data() + rarest_[number];
    }
    Comparison comparison(word_, text);
    for (std::size_t place = 0; place < places;) {
        std::uint64_t candidates = 0;
        auto step = 2 * vectorSize;
        if (place + step <= places) {
            const auto first = rarest.at(place);
            const auto next = rarest.at(place + vectorSize);
            const auto either = _mm256_or_si256(first, next);
            if (_mm256_testz_si256(either, either) == 0)
                candidates = bitsOf(first) | bitsOf(next) << vectorSize;
        } else {
            // The last ones begin again at places that were looked at, rather than beyond the text.
            step = vectorSize;
            place = std::min(place, places - vectorSize);
            candidates = bitsOf(rarest.at(place));
        }
        for (; candidates != 0; candidates &= candidates - 1) {
            const auto candidate = place + static_cast<std::size_t>(std::countr_zero(candidates));
            const auto outcome = comparison.at(candidate);
            if (outcome == Comparison::Outcome::same) return candidate;
            if (outcome == Comparison::Outcome::costly) return comparison.from(candidate + 1);
        }
        place += step;
    }
    return std::string_view::npos;
}

#else

bool WordFinder::isAvailable(Instructions instructions) {
    return instructions == Instructions::any;
}

std::size_t WordFinder::findByVector(std::string_view text) const {
    return findByByte(text);
}

#endif

}  // namespace nookwise
