#include "views/timegrid/TimeGridHit.h"

#include "core/DateMath.h"
#include "views/timegrid/OverlapColumns.h"

#include <algorithm>
#include <utility>

namespace dayvane {
namespace {
constexpr int kCellShiftX = 2;     // the edit box of a cell begins right of the grid's edge
constexpr int kCellFreeRight = 32; // and leaves room at the right
constexpr int kQuarterMinutes = 15;
constexpr int kQuartersBelowEnd = 2;

// The row under a height of the window, -1 above the first and below the one after the last.
int RowAt(const TimeGridState& state, int y)
{
    const int fromTop = y - state.frame.grid.top + state.scroll;
    const int row = fromTop / state.scale.metrics.rowHeight;
    return fromTop >= 0 && row <= state.scale.RowsPerDay() ? row : -1;
}

CPoint InGrid(const TimeGridState& state, const CPoint& point)
{
    return CPoint(point.x, point.y + state.scroll);
}

// The first of the items under the point, or the last, which is drawn over the others; -1 none.
template <class IsHit>
int FindItem(const ItemArray& items, bool topmost, IsHit isHit)
{
    const int count = static_cast<int>(items.GetSize());
    for (int n = 0; n < count; ++n) {
        const int i = topmost ? count - 1 - n : n;
        if (isHit(items[i])) {
            return i;
        }
    }
    return -1;
}

int VisibleTimedItemAt(const TimeGridState& state, const ItemArray& items, const CPoint& point, bool topmost)
{
    const CPoint inGrid = InGrid(state, point);
    const int column = ColumnAt(state.frame, point.x);
    // A box pushed out of its column is not seen there.
    return FindItem(items, topmost, [&](const tagCALENDAR_ITEM& item) {
        return item.rcItem.PtInRect(inGrid) && !IsBandItem(item) &&
               (state.range.days == 1 || state.range.ColumnOf(item.dtStart) == column);
    });
}

int BandItemAt(const ItemArray& items, const CPoint& point, bool topmost)
{
    return FindItem(items, topmost,
                    [&](const tagCALENDAR_ITEM& item) { return item.rcItem.PtInRect(point) && IsBandItem(item); });
}

// The day view's: also through caption and band, unless only what is seen counts.
int DayItemAt(const TimeGridState& state, const ItemArray& items, const CPoint& point, bool onlySeen)
{
    const bool inBand = state.frame.fulldayContent.PtInRect(point);
    if (!onlySeen) {
        const CPoint moved = inBand ? point : InGrid(state, point);
        return FindItem(items, false, [&](const tagCALENDAR_ITEM& item) { return item.rcItem.PtInRect(moved); });
    }
    if (inBand) {
        return BandItemAt(items, point, true);
    }
    return point.y >= state.frame.grid.top ? VisibleTimedItemAt(state, items, point, true) : -1;
}

CRect ScrolledBox(const TimeGridState& state, const tagCALENDAR_ITEM& item)
{
    CRect box = item.rcItem;
    box.OffsetRect(0, -state.scroll);
    if (box.bottom < box.top) {
        std::swap(box.top, box.bottom);
    }
    box.bottom = std::max<int>(box.bottom, box.top + 1);
    return box;
}

CRect ContentOf(const CRect& box, const CRect& area, const TimeGridMetrics& metrics)
{
    CRect content = box;
    content.DeflateRect(metrics.textInset, metrics.textInset);
    content.left = box.left + metrics.textLeft;
    if (content.top < area.top) {
        content.top = area.top + metrics.textInset;
    }
    return content;
}
} // namespace

TimeGridHit HitOneDay(const TimeGridState& state, const ItemArray& items, const CPoint& point,
                      const CalendarOptions& options)
{
    TimeGridHit hit;
    const bool inBand = state.frame.fulldayContent.PtInRect(point);
    hit.screenItem = DayItemAt(state, items, point, options.hitWhatIsSeen);
    const bool inColumn = point.x >= state.frame.grid.left && point.x < state.frame.grid.right;
    const int row = inColumn ? RowAt(state, point.y) : -1;
    hit.time = row != -1 ? state.scale.TimeOfRow(state.range.first, row) : inBand ? state.range.first : NoDate();
    if (hit.screenItem != -1) {
        hit.code = inBand ? CCHT_ONFULLDAYITEM : CCHT_ONITEM;
    } else if (inBand) {
        hit.code = CCHT_ONFULLDAY;
    } else if (row != -1) {
        const bool onName = state.frame.caption.PtInRect(point) || state.frame.header.PtInRect(point);
        hit.code = onName ? CCHT_ONDAYCAPTION : CCHT_ONCELL;
    } else {
        hit.code = state.frame.ruler.PtInRect(point) ? CCHT_ONRULER : CCHT_NOWHERE;
    }
    return hit;
}

TimeGridHit HitManyDays(const TimeGridState& state, const ItemArray& items, const CPoint& point,
                        const CalendarOptions& options)
{
    TimeGridHit hit;
    hit.time = NoDate();
    const int column = ColumnAt(state.frame, point.x);
    const COleDateTime day = column != -1 ? state.range.DayOf(column) : NoDate();
    if (state.frame.fulldayContent.PtInRect(point)) {
        hit.screenItem = BandItemAt(items, point, options.hitWhatIsSeen);
        hit.code = hit.screenItem != -1 ? CCHT_ONFULLDAYITEM : CCHT_ONFULLDAY;
        hit.time = day;
    } else if (column != -1 && state.frame.header.PtInRect(point)) {
        hit.code = CCHT_ONDAYCAPTION;
        hit.time = day;
    } else if (column != -1 && point.y >= state.frame.grid.top) {
        const int row = RowAt(state, point.y);
        hit.screenItem = VisibleTimedItemAt(state, items, point, options.hitWhatIsSeen);
        hit.code = hit.screenItem != -1 ? CCHT_ONITEM : row != -1 ? CCHT_ONCELL : CCHT_NOWHERE;
        if (row != -1) {
            hit.time = state.scale.TimeOfRow(day, row);
        }
    } else if (state.frame.ruler.PtInRect(point)) {
        hit.code = CCHT_ONRULER;
    }
    return hit;
}

int ColumnAt(const TimeGridFrame& frame, int x)
{
    for (size_t i = 0; i < frame.columns.size(); ++i) {
        if (x >= frame.columns[i].left && x < frame.columns[i].right) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

CRect VisibleItemBox(const TimeGridState& state, const tagCALENDAR_ITEM& item)
{
    CRect box = item.rcItem;
    if (!IsBandItem(item)) {
        box.OffsetRect(0, -state.scroll);
        box.top = std::max(box.top, state.frame.grid.top);
        box.bottom = std::min(box.bottom, state.frame.grid.bottom);
    }
    return box;
}

CRect VisibleMarkBox(const TimeGridState& state, const MoreMark& mark)
{
    CRect box = mark.box;
    if (mark.inBand) {
        return box;
    }
    box.OffsetRect(0, -state.scroll);
    CRect seen;
    return seen.IntersectRect(&box, &state.frame.grid) ? seen : CRect(0, 0, 0, 0);
}

bool IsBoxInSight(const TimeGridState& state, const tagCALENDAR_ITEM& item)
{
    return ScrolledBox(state, item).bottom > state.frame.grid.top && !IsBandItem(item);
}

PaintedBox PaintedTimedBox(const TimeGridState& state, const tagCALENDAR_ITEM& item, int columnRight)
{
    PaintedBox painted;
    painted.box = ScrolledBox(state, item);
    painted.rightEdge = painted.box.right <= columnRight;
    painted.box.right = std::min<int>(painted.box.right, columnRight);
    painted.content = ContentOf(painted.box, state.frame.grid, state.scale.metrics);
    return painted;
}

PaintedBox PaintedBandBar(const CRect& band, const tagCALENDAR_ITEM& item, const TimeGridMetrics& metrics)
{
    return {item.rcItem, ContentOf(item.rcItem, band, metrics), !BeganEarlier(item), !GoesOn(item)};
}

CRect CurrentCellBox(const TimeGridState& state, const COleDateTime& begin, const COleDateTime& end)
{
    const int column = state.range.days > 1 ? state.range.ColumnOf(begin) : 0;
    if (column == -1) {
        return CRect(-1, -1, -1, -1);
    }
    const ClockTime from = ClockTimeOf(begin);
    const ClockTime to = ClockTimeOf(end);
    const int hourHeight = state.scale.HourHeight();
    const int quarter = state.scale.metrics.rowHeight / (2 * state.scale.rowsPerHour);
    const int dayTop = state.TopOfRow(0);
    CRect box = state.frame.columns[column];
    box.left += state.scale.metrics.scale.Of(kCellShiftX);
    box.right -= state.scale.metrics.scale.Of(kCellFreeRight);
    box.top = dayTop + from.hour * hourHeight + from.minute / kQuarterMinutes * quarter;
    box.bottom = dayTop + to.hour * hourHeight + (to.minute / kQuarterMinutes + kQuartersBelowEnd) * quarter;
    return box;
}

RowRange SelectedRows(const TimeGridState& state, int column, COleDateTime begin, COleDateTime end)
{
    if (begin > end) {
        std::swap(begin, end);
    }
    const ClockTime from = ClockTimeOf(begin);
    const ClockTime to = ClockTimeOf(end);
    const TimeScale& scale = state.scale;
    if (state.range.days == 1) {
        return RowRange{scale.RowOfTime(from), scale.RowOfTime(to) + 1};
    }
    const ClockTime first = ClockTimeOf(state.range.first);
    const int day = first.day + column;
    if (!from.isValid || !to.isValid || !first.isValid || day < from.day || day > to.day) {
        return RowRange();
    }
    return RowRange{day == from.day ? scale.RowOfTime(from) : 0,
                    day == to.day ? scale.RowOfTime(to) + 1 : scale.RowsPerDay()};
}

CRect BoxOfRows(const TimeGridState& state, int column, const RowRange& rows)
{
    const CRect& box = state.frame.columns[column];
    const CRect& grid = state.frame.grid;
    return CRect(box.left, std::max<int>(grid.top, state.TopOfRow(rows.first)), box.right,
                 std::min<int>(grid.bottom, state.TopOfRow(rows.end)));
}

std::vector<CRect> BandOfDays(const TimeGridState& state, const CRect& band, const COleDateTime& begin,
                              const COleDateTime& end)
{
    const DayRange& range = state.range;
    const int one = DayNumberOf(begin) - range.FirstDay();
    const int other = DayNumberOf(end) - range.FirstDay();
    const bool onlyColumn = range.days == 1;
    const int first = onlyColumn ? 0 : std::max(std::min(one, other), 0);
    const int last = onlyColumn ? 0 : std::min(std::max(one, other), range.days - 1);
    std::vector<CRect> parts;
    for (int column = first; column <= last; ++column) {
        const CRect& box = state.frame.columns[column];
        parts.emplace_back(box.left, band.top, box.right, band.bottom);
    }
    return parts;
}

CRect CurrentBandBox(const TimeGridState& state, const COleDateTime& begin, const COleDateTime& end)
{
    const std::vector<CRect> parts = BandOfDays(state, state.frame.fulldayContent, begin, end);
    if (parts.empty()) {
        return CRect(-1, -1, -1, -1);
    }
    const int bottom = parts.front().bottom - state.scale.metrics.bandPadding;
    return CRect(parts.front().left + state.scale.metrics.laneInset, bottom - state.scale.metrics.barHeight,
                 parts.back().right - state.scale.metrics.laneInset, bottom);
}

} // namespace dayvane
