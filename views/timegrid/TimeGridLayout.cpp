#include "views/timegrid/TimeGridLayout.h"

#include "core/DateMath.h"
#include "views/timegrid/OverlapColumns.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr int kPercent = 100;

// The days of a range, and what a screen item of it needs.
struct RangeBounds
{
    explicit RangeBounds(const DayRange& range)
        : first(range.FirstDay()), last(first + range.days - 1), begin(range.first), end(range.LastMoment())
    {
    }

    bool Overlaps(const tagCALENDAR_ITEM& item) const
    {
        const ClockTime from = ClockTimeOf(item.dtStart);
        const ClockTime to = ClockTimeOf(item.dtEnd);
        // On one day the order of begin and end does not matter.
        return from.isValid && to.isValid && from.day <= to.day && from.day <= last && to.day >= first;
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
        if (bounds.Overlaps(store[i])) {
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

int FindSource(const ItemArray& screenItems, int source)
{
    const tagCALENDAR_ITEM* begin = screenItems.GetData();
    const tagCALENDAR_ITEM* end = begin + screenItems.GetSize();
    const tagCALENDAR_ITEM* found = std::lower_bound(
        begin, end, source, [](const tagCALENDAR_ITEM& item, int wanted) { return item.nSource < wanted; });
    return found != end && found->nSource == source ? static_cast<int>(found - begin) : -1;
}

int RemakeTimedItem(const ItemArray& store, int source, const DayRange& range, ItemArray& screenItems)
{
    const int position = FindSource(screenItems, source);
    const tagCALENDAR_ITEM& stored = store[source];
    if (position == -1 || !range.Holds(range.first) || !RangeBounds(range).Overlaps(stored) || IsBandItem(stored) ||
        !IsSameDay(stored.dtStart, stored.dtEnd) || IsBandItem(screenItems[position])) {
        return -1;
    }
    tagCALENDAR_ITEM& item = screenItems[position];
    const CRect box = item.rcItem;
    const short hidden = item.bNoFocus;
    item = stored;
    item.nSource = source;
    item.rcItem = box; // until the layout, which finds what has moved by comparing
    item.bNoFocus = hidden;
    return position;
}

} // namespace dayvane
