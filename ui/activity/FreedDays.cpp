#include "ui/activity/FreedDays.h"

#include "model/ByteSum.h"
#include "ui/bridge/ShownTime.h"

#include <algorithm>

namespace nookwise {

std::vector<std::int64_t> freedByDay(const std::vector<ActivityEntry>& entries, Date start,
                                     QDate first, QDate last) {
    const qint64 latest = std::max<qint64>(first.daysTo(last), 0);
    std::vector<std::int64_t> days(static_cast<std::size_t>(latest) + 1);
    for (const ActivityEntry& entry : entries) {
        const bool counts = entry.date >= start && !entry.restored &&
                            entry.effectiveKind() == ActivityEntry::Kind::trash;
        if (!counts) continue;
        const qint64 day =
            std::clamp<qint64>(first.daysTo(localTime(entry.date).date()), 0, latest);
        std::int64_t& sum = days[static_cast<std::size_t>(day)];
        for (const auto& move : entry.moves) sum = byteSum(sum, move.size);
    }
    return days;
}

}  // namespace nookwise
