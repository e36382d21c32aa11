// Dates in a question: "today", "last month", "march 2023".
#pragma once

#include "platform/Calendar.h"
#include "search/QueryRecogniser.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace nookwise::QueryParser {

/// Recognises them as seen from one moment, in the user's calendar. Asks the calendar once for each
/// of them, however often a question repeats it.
class QueryDates {
  public:
    explicit QueryDates(Date now) : now_(now) {}

    std::optional<Recognised> recognise(Tokens tokens);

  private:
    template <typename Interval>
    Recognised dates(Tokens tokens, std::size_t consumed, std::string label, Interval interval);
    std::optional<Recognised> recogniseDay(Tokens tokens);
    std::optional<Recognised> recogniseThisOrLast(Tokens tokens);
    std::optional<Recognised> recogniseMonth(Tokens tokens);
    YearAndMonth latest(int month);

    Date now_;
    std::optional<YearAndMonth> thisMonth_;
    std::unordered_map<std::string, DateInterval> byLabel_;
};

}  // namespace nookwise::QueryParser
