#include "views/timegrid/FulldayLanes.h"

#include "core/BarLanes.h"
#include "core/DateMath.h"
#include "views/timegrid/OverlapColumns.h"

#include <algorithm>

namespace dayvane {
namespace {
CRect BarAt(int left, int right, int bandTop, int lane)
{
    const int top = bandTop + kTimeGrid.laneInset + lane * kTimeGrid.laneStep;
    return CRect(left + kTimeGrid.laneInset, top, right - kTimeGrid.laneInset, top + kTimeGrid.barHeight);
}

// The column of the day; the first for a time that is not valid.
int ColumnOf(const COleDateTime& time, int firstDay, int columns)
{
    if (!IsValid(time)) {
        return 0;
    }
    return std::clamp(DayNumberOf(time) - firstDay, 0, columns - 1);
}
} // namespace

void LayOneDayLanes(ItemArray& items, const CRect& band)
{
    int lane = 0;
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (IsBandItem(items[i])) {
            items[i].rcItem = BarAt(band.left, band.right, band.top, lane++);
        }
    }
}

void LayManyDayLanes(ItemArray& items, const CRect& band, const std::vector<CRect>& columns,
                     const COleDateTime& firstDay)
{
    const int days = static_cast<int>(columns.size());
    if (days == 0 || !IsValid(firstDay)) {
        return;
    }
    const int firstDayNumber = DayNumberOf(firstDay);
    std::vector<int> shown;
    std::vector<BarKind> kinds;
    std::vector<int> kindOf;                                               // of each shown bar
    std::vector<int> kindOfDays(columns.size() * columns.size(), kNoKind); // by first and last column
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        if (!IsBandItem(items[i])) {
            continue;
        }
        const int first = ColumnOf(items[i].dtStart, firstDayNumber, days);
        const int last = ColumnOf(items[i].dtEnd, firstDayNumber, days);
        items[i].rcItem = BarAt(columns[first].left, columns[last].right, band.top, 0);
        int& kind = kindOfDays[first * days + last];
        if (kind == kNoKind) {
            kind = static_cast<int>(kinds.size());
            kinds.push_back(BarKind{first, last, items[i].rcItem.left, items[i].rcItem.right});
        }
        shown.push_back(i);
        kindOf.push_back(kind);
    }
    const std::vector<int> lanes = StackBars(
        kindOf, kinds, LaneGrid{{band.top + kTimeGrid.laneInset}, days, kTimeGrid.barHeight, kTimeGrid.laneStep});
    for (size_t i = 0; i < shown.size(); ++i) {
        items[shown[i]].rcItem.OffsetRect(0, lanes[i] * kTimeGrid.laneStep);
    }
}

} // namespace dayvane
