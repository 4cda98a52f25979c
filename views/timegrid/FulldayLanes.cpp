#include "views/timegrid/FulldayLanes.h"

#include "core/DateMath.h"
#include "views/daygrid/BarLanes.h"
#include "views/timegrid/OverlapColumns.h"

#include <algorithm>

namespace dayvane
{
namespace
{
constexpr LaneHeights kLaneHeights{kTimeGrid.barHeight, kTimeGrid.laneStep};

CRect BarAt(int left, int right, int bandTop, int lane)
{
    const int top = bandTop + kTimeGrid.laneInset + lane * kTimeGrid.laneStep;
    return CRect(left + kTimeGrid.laneInset, top, right - kTimeGrid.laneInset, top + kTimeGrid.barHeight);
}

// The column of the day; the first for a time that is not valid.
int ColumnOf(const COleDateTime& time, int firstDay, int columns)
{
    if (time.GetStatus() != COleDateTime::valid)
        return 0;
    return std::clamp(DayNumberOf(time) - firstDay, 0, columns - 1);
}
} // namespace

void LayOneDayLanes(ItemArray& items, const CRect& band)
{
    int lane = 0;
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (IsBandItem(items[i]))
            items[i].rcItem = BarAt(band.left, band.right, band.top, lane++);
    }
}

void LayManyDayLanes(ItemArray& items, const CRect& band, const std::vector<CRect>& columns,
                     const COleDateTime& firstDay)
{
    const int days = static_cast<int>(columns.size());
    if (days == 0 || firstDay.GetStatus() != COleDateTime::valid)
        return;
    const int firstDayNumber = DayNumberOf(firstDay);
    std::vector<int> shown;
    std::vector<LaneBar> bars;
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        if (!IsBandItem(items[i]))
            continue;
        LaneBar bar;
        bar.row = 0;
        bar.first = ColumnOf(items[i].dtStart, firstDayNumber, days);
        bar.last = ColumnOf(items[i].dtEnd, firstDayNumber, days);
        const CRect place = BarAt(columns[bar.first].left, columns[bar.last].right, band.top, 0);
        bar.left = place.left;
        bar.right = place.right;
        items[i].rcItem = place;
        bars.push_back(bar);
        shown.push_back(i);
    }
    StackBars(bars, {band.top + kTimeGrid.laneInset}, kLaneHeights, days);
    for (size_t i = 0; i < bars.size(); ++i)
        items[shown[i]].rcItem.OffsetRect(0, bars[i].lane * kTimeGrid.laneStep);
}

} // namespace dayvane
