// The item rules of the month, week and year views applied literally, pair by pair and cell by cell: slow, and plain
// enough to be read against the rules. Random tests compare the library with it; the benchmark measures against it.
#pragma once

#include "views/daygrid/BoxRange.h"
#include "views/daygrid/MonthLayout.h"

#include <vector>

namespace literal {

// The days or months of an item, from their first moment to their last second.
struct Range
{
    bool Overlaps(const Range& other) const { return start <= other.end && other.start <= end; }
    bool Covers(const COleDateTime& moment) const { return start <= moment && moment <= end; }

    COleDateTime start;
    COleDateTime end;
};
Range DaysOf(const dayvane::tagCALENDAR_ITEM& item);
Range MonthsOf(const dayvane::tagCALENDAR_ITEM& item);

// Rows of days; each must have valid days.
void MakePieces(const dayvane::ItemArray& items, const std::vector<Range>& rows, dayvane::ItemArray& pieces);
// The rows of a month that starts there.
void MakePieces(const dayvane::ItemArray& items, const COleDateTime& viewStart, dayvane::ItemArray& pieces);

void Place(const dayvane::BoxDayArray& dates, const dayvane::MonthCellArray& cells, int firstDayOfWeek,
           dayvane::ItemArray& items);
void Stack(dayvane::ItemArray& items, int laneStep, Range (*rangeOf)(const dayvane::tagCALENDAR_ITEM&) = DaysOf);
void Overflow(const dayvane::BoxDayArray& dates, dayvane::MonthCellArray& cells, dayvane::ItemArray& items);

inline void CalcMonthBars(const dayvane::BoxDayArray& dates, dayvane::MonthCellArray& cells, int firstDayOfWeek,
                          dayvane::ItemArray& items)
{
    Place(dates, cells, firstDayOfWeek, items);
    Stack(items, dayvane::kMonthMetrics.bars.metrics.laneStep);
    Overflow(dates, cells, items);
}

// The week or the year view: boxes that stand for days or months. Returns which boxes have an item that did not fit.
struct BoxView
{
    std::vector<CRect> boxes;
    std::vector<COleDateTime> dates; // first moment of each box
    bool months;

    Range RangeOf(const dayvane::tagCALENDAR_ITEM& item) const { return months ? MonthsOf(item) : DaysOf(item); }
};
std::vector<bool> CalcBoxBars(const BoxView& view, dayvane::ItemArray& items);

} // namespace literal
