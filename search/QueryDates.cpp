#include "search/QueryDates.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace nookwise::QueryParser {
namespace {

constexpr std::array<std::string_view, 12> months{"january",   "february", "march",    "april",
                                                  "may",       "june",     "july",     "august",
                                                  "september", "october",  "november", "december"};

constexpr std::array<std::pair<std::string_view, CalendarUnit>, 3> units{
    {{"week", CalendarUnit::week}, {"month", CalendarUnit::month}, {"year", CalendarUnit::year}}};

std::string capitalised(std::string_view word) {
    std::string text(word);
    text.front() = static_cast<char>(text.front() - 'a' + 'A');
    return text;
}

/// Counted from 1.
std::optional<int> monthNamed(std::string_view word) {
    const bool isShort = word.size() == 3 || word.size() == 4;
    for (std::size_t i = 0; i < months.size(); ++i) {
        if (months[i] == word || (isShort && months[i].starts_with(word)))
            return static_cast<int>(i) + 1;
    }
    return std::nullopt;
}

std::optional<int> readYear(std::string_view text) {
    constexpr int first = 2000;
    constexpr int last = 2100;
    int year = 0;
    const auto* const end = text.data() + text.size();
    const auto [read, error] = std::from_chars(text.data(), end, year);
    const bool isYear = error == std::errc{} && read == end && year >= first && year <= last;
    return isYear ? std::optional(year) : std::nullopt;
}

}  // namespace

std::optional<Recognised> QueryDates::recognise(Tokens tokens) {
    if (auto day = recogniseDay(tokens)) return day;
    if (auto unit = recogniseThisOrLast(tokens)) return unit;
    return recogniseMonth(tokens);
}

template <typename Interval>
Recognised QueryDates::dates(Tokens tokens, std::size_t consumed, std::string label,
                             Interval interval) {
    auto known = byLabel_.find(label);
    if (known == byLabel_.end()) known = byLabel_.emplace(label, interval()).first;
    const auto [start, end] = known->second;
    return recognised(tokens, consumed, "When", std::move(label), QueryFilter::Dates{start, end});
}

std::optional<Recognised> QueryDates::recogniseDay(Tokens tokens) {
    if (tokens.front() == "today") return dates(tokens, 1, "Today", [this] { return dayOf(now_); });
    if (tokens.front() == "yesterday")
        return dates(tokens, 1, "Yesterday", [this] { return dayOf(now_, -1); });
    return std::nullopt;
}

std::optional<Recognised> QueryDates::recogniseThisOrLast(Tokens tokens) {
    const auto word = tokens.front();
    if (word != "this" && word != "last") return std::nullopt;
    const auto* const named =
        std::ranges::find(units, nextOf(tokens), &decltype(units)::value_type::first);
    if (named == units.end()) return std::nullopt;
    const auto unit = named->second;
    return dates(tokens, 2, capitalised(word) + " " + std::string(named->first),
                 [&] { return word == "this" ? unitOf(now_, unit) : unitBefore(now_, unit); });
}

std::optional<Recognised> QueryDates::recogniseMonth(Tokens tokens) {
    const auto month = monthNamed(tokens.front());
    if (!month) return std::nullopt;
    auto name = capitalised(months[static_cast<std::size_t>(*month - 1)]);
    if (const auto year = readYear(nextOf(tokens))) {
        return dates(tokens, 2, std::move(name) + " " + std::to_string(*year), [&] {
            return intervalOf({*year, *month});
        });
    }
    return dates(tokens, 1, std::move(name), [&] { return intervalOf(latest(*month)); });
}

/// The latest one that has begun.
YearAndMonth QueryDates::latest(int month) {
    if (!thisMonth_) thisMonth_ = yearAndMonthOf(now_);
    return {month > thisMonth_->month ? thisMonth_->year - 1 : thisMonth_->year, month};
}

}  // namespace nookwise::QueryParser
