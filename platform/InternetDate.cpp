#include "platform/InternetDate.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace nookwise {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

constexpr double firstSecond = -62'167'219'200.0;  // 0000-01-01T00:00:00Z
constexpr double lastSecond = 253'402'300'799.0;   // 9999-12-31T23:59:59Z

/// Reads text of fixed shape from front to back.
class Reader {
  public:
    explicit Reader(std::string_view text) : rest_(text) {}

    /// Exactly `count` digits, with a value from `least` to `most`.
    int number(std::size_t count, int least, int most) {
        int value = 0;
        const auto field = rest_.substr(0, count);
        const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        isGood_ =
            isGood_ && field.size() == count && std::all_of(field.begin(), field.end(), isDigit);
        if (!isGood_) return least;
        std::from_chars(field.data(), field.data() + count, value);
        rest_.remove_prefix(count);
        isGood_ = value >= least && value <= most;
        return value;
    }

    void expect(char wanted) {
        isGood_ = isGood_ && !rest_.empty() && rest_.front() == wanted;
        if (isGood_) rest_.remove_prefix(1);
    }

    bool skip(char wanted) {
        if (rest_.empty() || rest_.front() != wanted) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool isAtEnd() const { return isGood_ && rest_.empty(); }

  private:
    std::string_view rest_;
    bool isGood_ = true;
};

/// Seconds east of Greenwich: "Z" or "+hh:mm".
seconds offset(Reader& reader) {
    if (reader.skip('Z')) return {};
    const bool isWest = reader.skip('-');
    if (!isWest) reader.expect('+');
    const hours wholeHours(reader.number(2, 0, 23));
    reader.expect(':');
    const seconds east = wholeHours + minutes(reader.number(2, 0, 59));
    return isWest ? -east : east;
}

}  // namespace

std::string internetDate(Date date) {
    // Compared this way round so that a NaN lands inside, too.
    const double since = date.time_since_epoch().count();
    const double whole =
        since >= firstSecond ? std::floor(std::min(since, lastSecond)) : firstSecond;
    const std::chrono::sys_seconds moment(seconds(static_cast<seconds::rep>(whole)));
    const auto day = std::chrono::floor<days>(moment);
    const std::chrono::year_month_day calendarDay(day);
    const std::chrono::hh_mm_ss time(moment - day);
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", int(calendarDay.year()),
                  unsigned(calendarDay.month()), unsigned(calendarDay.day()),
                  int(time.hours().count()), int(time.minutes().count()),
                  int(time.seconds().count()));
    return text;
}

std::optional<Date> dateFromInternetDate(std::string_view text) {
    Reader reader(text);
    const std::chrono::year year(reader.number(4, 0, 9999));
    reader.expect('-');
    const std::chrono::month month(static_cast<unsigned>(reader.number(2, 1, 12)));
    reader.expect('-');
    const std::chrono::day day(static_cast<unsigned>(reader.number(2, 1, 31)));
    reader.expect('T');
    const hours hour(reader.number(2, 0, 23));
    reader.expect(':');
    const minutes minute(reader.number(2, 0, 59));
    reader.expect(':');
    const seconds second(reader.number(2, 0, 59));
    const auto east = offset(reader);
    const auto date = year / month / day;
    if (!reader.isAtEnd() || !date.ok()) return std::nullopt;
    return Date(std::chrono::sys_days(date) + hour + minute + second - east);
}

}  // namespace nookwise
