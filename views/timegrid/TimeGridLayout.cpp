#include "views/timegrid/TimeGridLayout.h"

#include "core/DateMath.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TidyColumns.h"

#include <algorithm>
#include <numeric>

namespace dayvane {
namespace {
constexpr int kPercent = 100;

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
        return CRect(column.left, column.top, column.right,
                     column.top + scale.metrics.endlessHours * scale.HourHeight());
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

// A box that covers no row, or is the wrong way round: at least one row high. Returns the rows.
RowSpan GiveRowHeight(tagCALENDAR_ITEM& item, int index, int columnTop, const TimeScale& scale)
{
    const int upper = std::min(item.rcItem.top, item.rcItem.bottom) - columnTop;
    const int lower = std::max(item.rcItem.top, item.rcItem.bottom) - columnTop;
    RowSpan rows{index, std::clamp(upper / scale.metrics.rowHeight, 0, scale.RowsPerDay() - 1), 0};
    rows.end =
        std::clamp((lower + scale.metrics.rowHeight - 1) / scale.metrics.rowHeight, rows.first + 1, scale.RowsPerDay());
    item.rcItem.top = columnTop + scale.TopOfRow(rows.first);
    item.rcItem.bottom = columnTop + scale.TopOfRow(rows.end);
    return rows;
}

// Takes the hidden items' boxes and counts them in marks.
std::vector<MoreMark> CountHidden(ItemArray& items, const std::vector<int>& shown, const TidyPlaces& places,
                                  const CRect& column, const TimeScale& scale)
{
    std::vector<MoreMark> marks;
    for (const TidyMore& more : places.more) {
        // Beside the least box in a column too narrow for both, the mark keeps half of its width.
        const int width = std::max(more.width, scale.metrics.moreWidth / 2);
        const int right = column.left + more.left + more.width;
        MoreMark mark;
        mark.box = CRect(right - width, more.start, right, more.start + scale.metrics.moreHeight);
        marks.push_back(mark);
    }
    for (size_t i = 0; i < shown.size(); ++i) {
        tagCALENDAR_ITEM& item = items[shown[i]];
        item.bNoFocus = places.boxes[i].hidden;
        if (!item.bNoFocus) {
            continue;
        }
        size_t mark = 0;
        while (mark + 1 < places.more.size() && places.more[mark].end < item.rcItem.top) {
            ++mark;
        }
        marks[mark].items.push_back(static_cast<int>(item.nSource));
        item.rcItem = CRect(-1, -1, -1, -1);
    }
    return marks;
}

// By what is seen: boxes that would share pixels share the width.
std::vector<MoreMark> PlaceColumnTidily(ItemArray& items, const std::vector<int>& timed, const CRect& column,
                                        int usableWidth, const TimeScale& scale)
{
    std::vector<int> shown;
    std::vector<TimeSpan> spans;
    for (const int i : timed) {
        const CRect& box = items[i].rcItem;
        if (box.top != -1) {
            shown.push_back(i);
            spans.push_back(
                {static_cast<int>(std::min(box.top, box.bottom)), static_cast<int>(std::max(box.top, box.bottom))});
        }
    }
    const int least = scale.metrics.tidyWidth + 2 * scale.metrics.boxInset;
    const TidyPlaces places = PlaceTidily(spans, TidyRule{std::max(usableWidth, 1), least, scale.metrics.moreWidth});
    for (size_t i = 0; i < shown.size(); ++i) {
        CRect& box = items[shown[i]].rcItem;
        box.left = column.left + places.boxes[i].left;
        box.right = box.left + places.boxes[i].width;
    }
    return CountHidden(items, shown, places, column, scale);
}

void InsetTimed(ItemArray& items, const TimeScale& scale)
{
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        if (!IsBandItem(items[i])) {
            items[i].rcItem.DeflateRect(scale.metrics.boxInset, 0);
        }
    }
}
} // namespace

int LimitedLanes(int lanes, int clientHeight, const TimeGridMetrics& metrics)
{
    const int height = clientHeight * metrics.bandPercent / kPercent - metrics.bandPadding;
    return std::min(lanes, std::max(height / metrics.laneStep, 1));
}

TimeGridFrame CalcTimeGridFrame(const CRect& client, bool captionShown, int headerHeight, int lanes, int days,
                                const TimeGridMetrics& metrics)
{
    TimeGridFrame frame;
    frame.caption = CRect(client.left, 0, client.right, captionShown ? metrics.captionHeight : 0);
    frame.header = CRect(client.left, frame.caption.bottom, client.right, frame.caption.bottom + headerHeight);
    const int bandTop = frame.header.bottom;
    const int bandBottom = bandTop + lanes * metrics.laneStep + metrics.bandPadding;
    frame.fulldayRuler = CRect(client.left, bandTop, metrics.rulerRight, bandBottom);
    frame.fulldayContent = CRect(metrics.gridLeft, bandTop, client.right, bandBottom);
    frame.ruler = CRect(client.left, bandBottom, metrics.rulerRight, client.bottom);
    frame.grid = CRect(metrics.gridLeft, bandBottom, client.right, client.bottom);

    const int width = frame.header.Width() - metrics.gridLeft;
    frame.columnWidth = width / days;
    for (int i = 0; i < days; ++i) {
        const int left = frame.grid.left + i * frame.columnWidth;
        const int right = i + 1 < days ? left + frame.columnWidth : frame.grid.left + width;
        frame.columns.emplace_back(left, frame.grid.top, right, frame.grid.bottom);
    }
    return frame;
}

int MakeRangeItems(const ItemArray& store, const DayRange& range, ItemArray& screenItems, const std::vector<int>* which)
{
    std::vector<int> shown;
    const RangeBounds bounds(range);
    const bool showsAny = range.Holds(range.first);
    const int count = static_cast<int>(which ? which->size() : store.GetSize());
    for (int n = 0; showsAny && n < count; ++n) {
        const int i = which ? (*which)[n] : n;
        if (bounds.Meet(store[i])) {
            shown.push_back(i);
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

std::vector<MoreMark> PlaceTimedItems(ItemArray& items, const std::vector<CRect>& columns, const DayRange& range,
                                      const TimeScale& scale, const CalendarOptions& options)
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
        const size_t spans = columnItems[column].spans.size();
        AddRowSpan(columnItems[column].spans, i, times.start, times.end, scale);
        if (options.visibleShortItems && columnItems[column].spans.size() == spans && items[i].rcItem.top != -1) {
            columnItems[column].spans.push_back(GiveRowHeight(items[i], i, columns[column].top, scale));
        }
    }
    std::vector<MoreMark> marks;
    const bool oneDay = days == 1;
    const int freeBeside = oneDay ? scale.metrics.freeBesideOneDay : scale.metrics.freeBesideManyDays;
    std::vector<int> all(oneDay ? items.GetSize() : 0);
    std::iota(all.begin(), all.end(), 0);
    for (int column = 0; column < days; ++column) {
        const CRect& place = columns[column];
        const ColumnItems& own = columnItems[column];
        if (options.tidyColumns) {
            for (MoreMark& mark : PlaceColumnTidily(items, own.timed, place, place.Width() - freeBeside, scale)) {
                mark.column = column;
                marks.push_back(mark);
            }
            continue;
        }
        PlaceSideBySide(items, own.spans, scale,
                        OverlapRule{place.left, place.right, place.Width() - freeBeside, oneDay});
        UnifySameSource(items, oneDay ? all : own.timed, own.spans);
    }
    InsetTimed(items, scale);
    return marks;
}

} // namespace dayvane
