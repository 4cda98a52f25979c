#include "views/timegrid/TimeGridLayout.h"

#include "core/DateMath.h"
#include "views/timegrid/OverlapColumns.h"

#include <numeric>

namespace dayvane {
namespace {
// As IsSameDay, without breaking valid dates into fields.
bool FallsOn(const ClockTime& time, const ClockTime& day)
{
    return time.isValid && day.isValid ? time.day == day.day : time.isValid == day.isValid;
}

// The days of a range, and what a screen item of it needs.
struct RangeBounds
{
    explicit RangeBounds(const DayRange& range)
        : first(range.FirstDay()), last(first + range.days - 1), begin(range.first), end(range.LastMoment())
    {
    }

    bool Meet(const tagCALENDAR_ITEM& item) const
    {
        const ClockTime start = ClockTimeOf(item.dtStart);
        const ClockTime end = ClockTimeOf(item.dtEnd);
        // On one day the order of begin and end does not matter.
        return start.isValid && end.isValid && start.day <= end.day && start.day <= last && end.day >= first;
    }

    void Cut(tagCALENDAR_ITEM& item) const
    {
        const int startDay = ClockTimeOf(item.dtStart).day;
        const int endDay = ClockTimeOf(item.dtEnd).day;
        if (startDay == endDay) {
            return;
        }
        const bool before = startDay < first;
        const bool after = endDay > last;
        item.nPiece = before ? (after ? PIECE_MIDDLE : PIECE_TAIL) : (after ? PIECE_HEAD : PIECE_INSIDE);
        if (before) {
            item.dtStart = begin;
        }
        if (after) {
            item.dtEnd = end;
        }
    }

    int first, last; // day numbers
    COleDateTime begin, end;
};

// An item's times, broken once.
struct ItemClock
{
    explicit ItemClock(const tagCALENDAR_ITEM& item) : start(ClockTimeOf(item.dtStart)), end(ClockTimeOf(item.dtEnd)) {}

    ClockTime start, end;
};

CRect BoxAt(const tagCALENDAR_ITEM& item, const ItemClock& times, const CRect& column, const ClockTime& day,
            const TimeScale& scale)
{
    if (!FallsOn(times.start, day)) {
        return CRect(-1, -1, -1, -1);
    }
    if (item.nFullday == 1 || (item.nPiece & PIECE_MIDDLE)) {
        return CRect(column.left, column.top, column.right, column.top + kTimeGrid.endlessHours * scale.HourHeight());
    }
    const bool fromAbove = !times.start.isValid || item.nPiece == PIECE_TAIL;
    const bool toBelow = !times.end.isValid || item.nPiece == PIECE_HEAD;
    return CRect(column.left, column.top + (fromAbove ? 0 : scale.TopOfTime(times.start)), column.right,
                 column.top + (toBelow ? scale.DayHeight() : scale.BottomOfTime(times.end)));
}

// The timed items of one column: all, and the rows of those that cover any.
struct ColumnItems
{
    std::vector<int> timed;
    std::vector<RowSpan> spans;
};

void InsetTimed(ItemArray& items)
{
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (!IsBandItem(items[i])) {
            items[i].rcItem.DeflateRect(kTimeGrid.boxInset, 0);
        }
    }
}
} // namespace

TimeGridFrame CalcTimeGridFrame(const CRect& client, bool captionShown, int headerHeight, int lanes, int days)
{
    TimeGridFrame frame;
    frame.caption = CRect(client.left, 0, client.right, captionShown ? kTimeGrid.captionHeight : 0);
    frame.header = CRect(client.left, frame.caption.bottom, client.right, frame.caption.bottom + headerHeight);
    const int bandTop = frame.header.bottom;
    const int bandBottom = bandTop + lanes * kTimeGrid.laneStep + kTimeGrid.bandPadding;
    frame.fulldayRuler = CRect(client.left, bandTop, kTimeGrid.rulerRight, bandBottom);
    frame.fulldayContent = CRect(kTimeGrid.gridLeft, bandTop, client.right, bandBottom);
    frame.ruler = CRect(client.left, bandBottom, kTimeGrid.rulerRight, client.bottom);
    frame.grid = CRect(kTimeGrid.gridLeft, bandBottom, client.right, client.bottom);

    const int width = frame.header.Width() - kTimeGrid.gridLeft;
    frame.columnWidth = width / days;
    for (int i = 0; i < days; ++i) {
        const int left = frame.grid.left + i * frame.columnWidth;
        const int right = i + 1 < days ? left + frame.columnWidth : frame.grid.left + width;
        frame.columns.push_back(CRect(left, frame.grid.top, right, frame.grid.bottom));
    }
    return frame;
}

int MakeRangeItems(const ItemArray& store, const DayRange& range, ItemArray& screenItems)
{
    std::vector<int> shown;
    const RangeBounds bounds(range);
    const bool showsAny = range.Holds(range.first);
    for (INT_PTR i = 0; showsAny && i < store.GetSize(); ++i) {
        if (bounds.Meet(store[i])) {
            shown.push_back(static_cast<int>(i));
        }
    }
    screenItems.SetSize(shown.size());
    int lanes = 0;
    for (size_t i = 0; i < shown.size(); ++i) {
        tagCALENDAR_ITEM& item = screenItems[i];
        item = store[shown[i]];
        item.nSource = shown[i];
        item.rcItem.NormalizeRect();
        bounds.Cut(item);
        lanes += item.nPiece != PIECE_WHOLE || item.nFullday == 1;
    }
    return lanes;
}

CRect BoxInColumn(const tagCALENDAR_ITEM& item, const CRect& column, const COleDateTime& day, const TimeScale& scale)
{
    return BoxAt(item, ItemClock(item), column, ClockTimeOf(day), scale);
}

void PlaceTimedItems(ItemArray& items, const std::vector<CRect>& columns, const DayRange& range, const TimeScale& scale)
{
    const int days = static_cast<int>(columns.size());
    const ClockTime first = ClockTimeOf(range.first);
    std::vector<ColumnItems> columnItems(days);
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        if (IsBandItem(items[i])) {
            continue;
        }
        const ItemClock times(items[i]);
        const int column = days > 1 ? times.start.day - first.day : 0;
        if (column < 0 || column >= days) {
            items[i].rcItem = CRect(-1, -1, -1, -1);
            continue;
        }
        ClockTime day = first;
        day.day += column;
        items[i].rcItem = BoxAt(items[i], times, columns[column], day, scale);
        columnItems[column].timed.push_back(i);
        AddRowSpan(columnItems[column].spans, i, times.start, times.end, scale);
    }
    const bool oneDay = days == 1;
    const int freeBeside = oneDay ? kTimeGrid.freeBesideOneDay : kTimeGrid.freeBesideManyDays;
    std::vector<int> all(oneDay ? items.GetSize() : 0);
    std::iota(all.begin(), all.end(), 0);
    for (int column = 0; column < days; ++column) {
        const CRect& place = columns[column];
        const ColumnItems& own = columnItems[column];
        PlaceSideBySide(items, own.spans, scale,
                        OverlapRule{place.left, place.right, place.Width() - freeBeside, oneDay});
        UnifySameSource(items, oneDay ? all : own.timed, own.spans);
    }
    InsetTimed(items);
}

} // namespace dayvane
