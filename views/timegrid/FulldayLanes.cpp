#include "views/timegrid/FulldayLanes.h"

#include "core/BarLanes.h"
#include "core/DateMath.h"
#include "views/timegrid/OverlapColumns.h"

#include <algorithm>

namespace dayvane {
namespace {
CRect BarAt(int left, int right, int bandTop, int lane, const TimeGridMetrics& metrics)
{
    const int top = bandTop + metrics.laneInset + lane * metrics.laneStep;
    return CRect(left + metrics.laneInset, top, right - metrics.laneInset, top + metrics.barHeight);
}

// The column of the day; the first for a time that is not valid.
int ColumnOf(const COleDateTime& time, int firstDay, int columns)
{
    if (!IsValid(time)) {
        return 0;
    }
    return std::clamp(DayNumberOf(time) - firstDay, 0, columns - 1);
}
bool IsOver(const CRect& box, const CRect& column)
{
    return box.left < column.right && box.right > column.left;
}

// One mark for each column: whether the bar lies where one that counts items will stand.
bool MeetsMark(const CRect& box, const std::vector<CRect>& columns, const std::vector<MoreMark>& marks)
{
    for (size_t i = 0; i < columns.size(); ++i) {
        if (!marks[i].items.empty() && IsOver(box, columns[i])) {
            return true;
        }
    }
    return false;
}

void CountIn(const tagCALENDAR_ITEM& item, const std::vector<CRect>& columns, std::vector<MoreMark>& marks)
{
    for (size_t i = 0; i < columns.size(); ++i) {
        if (IsOver(item.rcItem, columns[i])) {
            marks[i].items.push_back(static_cast<int>(item.nSource));
        }
    }
}
} // namespace

void LayOneDayLanes(ItemArray& items, const CRect& band, const TimeGridMetrics& metrics)
{
    int lane = 0;
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (IsBandItem(items[i])) {
            items[i].rcItem = BarAt(band.left, band.right, band.top, lane++, metrics);
        }
    }
}

void LayManyDayLanes(ItemArray& items, const CRect& band, const std::vector<CRect>& columns,
                     const COleDateTime& firstDay, const TimeGridMetrics& metrics)
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
        items[i].rcItem = BarAt(columns[first].left, columns[last].right, band.top, 0, metrics);
        int& kind = kindOfDays[first * days + last];
        if (kind == kNoKind) {
            kind = static_cast<int>(kinds.size());
            kinds.push_back(BarKind{first, last, items[i].rcItem.left, items[i].rcItem.right});
        }
        shown.push_back(i);
        kindOf.push_back(kind);
    }
    const std::vector<int> lanes =
        StackBars(kindOf, kinds, LaneGrid{{band.top + metrics.laneInset}, days, metrics.barHeight, metrics.laneStep});
    for (size_t i = 0; i < shown.size(); ++i) {
        items[shown[i]].rcItem.OffsetRect(0, lanes[i] * metrics.laneStep);
    }
}

int StackedLanes(ItemArray& items, const DayRange& range, const TimeGridMetrics& metrics)
{
    constexpr int kAnyWidth = 1000; // wide enough for the insets of a bar
    std::vector<CRect> columns;
    for (int i = 0; i < range.days; ++i) {
        columns.emplace_back(i * kAnyWidth, 0, (i + 1) * kAnyWidth, 0);
    }
    LayManyDayLanes(items, CRect(0, 0, range.days * kAnyWidth, 0), columns, range.first, metrics);
    int lanes = 0;
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (IsBandItem(items[i])) {
            lanes = std::max<int>(lanes, (items[i].rcItem.top - metrics.laneInset) / metrics.laneStep + 1);
        }
    }
    return lanes;
}

std::vector<MoreMark> LimitLanes(ItemArray& items, const CRect& band, const std::vector<CRect>& columns,
                                 const TimeGridMetrics& metrics)
{
    const int lanes = std::max<int>((band.Height() - metrics.bandPadding) / metrics.laneStep, 1);
    const int lastTop = band.top + metrics.laneInset + (lanes - 1) * metrics.laneStep;
    std::vector<MoreMark> marks(columns.size());
    std::vector<char> isHidden(items.GetSize(), 0);
    // A bar that is hidden puts marks into all of its days, which may hide further bars of the last lane.
    for (bool changed = true; changed;) {
        changed = false;
        for (INT_PTR i = 0; i < items.GetSize(); ++i) {
            const CRect box = items[i].rcItem;
            if (!isHidden[i] && IsBandItem(items[i]) &&
                (box.top > lastTop || (box.top == lastTop && MeetsMark(box, columns, marks)))) {
                isHidden[i] = 1;
                changed = true;
                CountIn(items[i], columns, marks);
            }
        }
    }
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (isHidden[i]) {
            items[i].rcItem = CRect(-1, -1, -1, -1);
            items[i].bNoFocus = TRUE;
        }
    }
    for (size_t i = 0; i < columns.size(); ++i) {
        std::sort(marks[i].items.begin(), marks[i].items.end()); // as the screen items come: by their sources
        marks[i].column = static_cast<int>(i);
        marks[i].inBand = true;
        marks[i].box = CRect(columns[i].left + metrics.laneInset, lastTop, columns[i].right - metrics.laneInset,
                             lastTop + metrics.moreHeight);
    }
    const auto isEmpty = [](const MoreMark& mark) { return mark.items.empty(); };
    marks.erase(std::remove_if(marks.begin(), marks.end(), isEmpty), marks.end());
    return marks;
}

} // namespace dayvane
