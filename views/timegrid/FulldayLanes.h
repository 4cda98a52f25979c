// The full-day band: items shown as bars above the grid, in lanes of 25 pixels.
#pragma once

#include "../../core/CalendarRecords.h"
#include "TimeGridLayout.h"
#include "TimeScale.h"

#include <vector>

namespace dayvane {

// One day: the k-th full-day item has the k-th lane, over the whole width of the band.
void LayOneDayLanes(ItemArray& items, const CRect& band, const TimeGridMetrics& metrics = kTimeGrid);

// Several days: a bar runs from the column of its first day to that of its last, `columns` from left to right,
// `firstDay` the day of the first. Each bar starts in the top lane and sinks by a lane for each earlier one (in screen
// order, as they come) that it then overlaps; all go through this twice, the second time from where the first has left
// them. Bars may still overlap then.
void LayManyDayLanes(ItemArray& items, const CRect& band, const std::vector<CRect>& columns,
                     const COleDateTime& firstDay, const TimeGridMetrics& metrics = kTimeGrid);

// How many lanes the bars of several days fill, whatever the width of the columns. Uses the items' rectangles.
int StackedLanes(ItemArray& items, const DayRange& range, const TimeGridMetrics& metrics = kTimeGrid);

// Where the bars need more lanes than the band has: hides those without one, and in the days that they belong to the
// bars of the last lane too, for there stands each day's mark. A hidden bar gets no box and no focus.
std::vector<MoreMark> LimitLanes(ItemArray& items, const CRect& band, const std::vector<CRect>& columns,
                                 const TimeGridMetrics& metrics = kTimeGrid);

} // namespace dayvane
