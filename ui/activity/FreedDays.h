// What came back day by day.
#pragma once

#include "fileops/ActivityEntry.h"

#include <QDate>
#include <cstdint>
#include <vector>

namespace nookwise {

/// The bytes that went to the Trash since `start`, that moment included, and were not put back: one
/// sum for each local day from `first` to `last`. What lies outside counts for the nearer of them,
/// so that the days add up to `freedSince`. A sum that overflows stops the program.
std::vector<std::int64_t> freedByDay(const std::vector<ActivityEntry>& entries, Date start,
                                     QDate first, QDate last);

}  // namespace nookwise
