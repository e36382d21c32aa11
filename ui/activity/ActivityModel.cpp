#include "ui/activity/ActivityModel.h"

#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "ui/activity/FreedDays.h"
#include "ui/bridge/ShownText.h"
#include "ui/bridge/ShownTime.h"

#include <algorithm>

namespace nookwise {

ActivityModel::ActivityModel(AppStore& store, const Platform& platform)
    : store_(store),
      platform_(platform),
      rows_(store, platform.clock),
      entries_(store.activity.observe([this] {
          rows_.entriesChanged();
          refresh();
      })) {
    refresh();
    watchTheDay();
}

QString ActivityModel::freedText() const {
    return shownBytes(store_.freedThisMonth());
}

QList<double> ActivityModel::days() const {
    const std::int64_t best = std::max<std::int64_t>(std::ranges::max(freed_), 1);
    QList<double> parts;
    for (const std::int64_t bytes : freed_) {
        parts.append(std::max(static_cast<double>(bytes), 0.0) / static_cast<double>(best));
    }
    return parts;
}

QString ActivityModel::firstDayText() const {
    return shownShortDay(firstDay_);
}

QString ActivityModel::spokenDays() const {
    QStringList parts;
    for (std::size_t day = 0; day < freed_.size(); ++day) {
        if (freed_[day] == 0) continue;
        parts += shownDay(firstDay_.addDays(static_cast<qint64>(day)), today_) + u' ' +
                 shownBytes(freed_[day]);
    }
    return parts.isEmpty() ? QStringLiteral("Nothing freed") : parts.join(QStringLiteral(", "));
}

void ActivityModel::putBack(int row) {
    if (const ActivityEntry* entry = rows_.entry(row)) store_.putBack(Uuid(entry->id));
}

void ActivityModel::refresh() {
    const Date now = platform_.clock.now();
    today_ = localTime(now).date();
    // Where the calendar cannot tell when the month began, there is one bar for everything.
    const Date start = startOfMonth(now);
    firstDay_ = start == distantPast ? today_ : localTime(start).date();
    freed_ = freedByDay(store_.activity.get(), start, firstDay_, today_);
    emit changed();
}

void ActivityModel::watchTheDay() {
    nextMinute_ = platform_.tasks.after(std::chrono::minutes(1), [this] {
        if (localTime(platform_.clock.now()).date() != today_) {
            rows_.dayChanged();
            refresh();
        }
        watchTheDay();
    });
}

}  // namespace nookwise
