#include "ui/bridge/ShownTime.h"

#include <QLocale>
#include <algorithm>
#include <cmath>

namespace nookwise {

QDateTime localTime(Date date) {
    // The years 1 and 9999: calendars agree on what lies between.
    constexpr double earliest = -62'135'596'800'000.0;
    constexpr double latest = 253'402'214'400'000.0;
    const double milliseconds = std::floor(date.time_since_epoch().count() * 1000.0);
    return QDateTime::fromMSecsSinceEpoch(
        static_cast<qint64>(std::clamp(milliseconds, earliest, latest)));
}

QString shownTime(Date date) {
    const QTime time = localTime(date).time();
    // The C locale has seconds even in its short times.
    if (QLocale().language() == QLocale::C) return time.toString(QStringLiteral("HH:mm"));
    return QLocale().toString(time, QLocale::ShortFormat);
}

QString shownDay(QDate day, QDate today) {
    if (day == today) return QStringLiteral("Today");
    if (day == today.addDays(-1)) return QStringLiteral("Yesterday");
    const bool sameYear = day.year() == today.year();
    return QLocale().toString(
        day, sameYear ? QStringLiteral("dddd d MMMM") : QStringLiteral("dddd d MMMM yyyy"));
}

QString shownShortDay(QDate day) {
    return QLocale().toString(day, QStringLiteral("d MMM"));
}

}  // namespace nookwise
