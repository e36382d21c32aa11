// Days and times as the screens show them, in the user's locale and time zone.
#pragma once

#include "platform/Date.h"

#include <QDate>
#include <QDateTime>
#include <QString>

namespace nookwise {

/// A date too far away for the calendar becomes its nearest one.
QDateTime localTime(Date date);

/// "14:32".
QString shownTime(Date date);

/// "Today", "Yesterday", "Saturday 10 October"; with the year where it is another one.
QString shownDay(QDate day, QDate today);

/// "1 Oct".
QString shownShortDay(QDate day);

}  // namespace nookwise
