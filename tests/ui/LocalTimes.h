// Dates by the local calendar, and texts in one locale, whatever the machine's are.
#pragma once

#include "platform/Date.h"

#include <QDateTime>
#include <QLocale>

namespace nookwise {

/// In October 2026, whose 14th is a Wednesday.
inline Date october(int day, int hour, int minute = 0) {
    const QDateTime time(QDate(2026, 10, day), QTime(hour, minute));
    return Date(Seconds(static_cast<double>(time.toSecsSinceEpoch())));
}

/// British English while it lives.
class BritishTexts {
  public:
    BritishTexts() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    ~BritishTexts() { QLocale::setDefault(QLocale::system()); }
    BritishTexts(const BritishTexts&) = delete;
    BritishTexts& operator=(const BritishTexts&) = delete;
};

}  // namespace nookwise
