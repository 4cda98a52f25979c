#include "views/timegrid/TimeGridHit.h"

#include "core/DateMath.h"

#include <algorithm>
#include <utility>

namespace dayvane {
namespace {
constexpr int kCellShiftX = 2;     // the edit box of a cell begins right of the grid's edge
constexpr int kCellFreeRight = 32; // and leaves room at the right
constexpr int kQuarterMinutes = 15;
constexpr int kQuartersBelowEnd = 2;

int FirstItemAt(const ItemArray& items, const CPoint& point)
{
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        if (items[i].rcItem.PtInRect(point)) {
            return i;
        }
    }
    return -1;
}

// The row under a height of the window, -1 above the first and below the one behind the last.
int RowAt(const TimeGridState& state, int y)
{
    const int fromTop = y - state.frame.grid.top + state.scroll;
    const int row = fromTop / kTimeGrid.rowHeight;
    return fromTop >= 0 && row <= state.scale.RowsPerDay() ? row : -1;
}

COleDateTime NoTime()
{
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    return none;
}

CPoint InGrid(const TimeGridState& state, const CPoint& point)
{
    return CPoint(point.x, point.y + state.scroll);
}

int VisibleTimedItemAt(const TimeGridState& state, const ItemArray& items, const CPoint& point)
{
    const CPoint inGrid = InGrid(state, point);
    const int column = ColumnAt(state.frame, point.x);
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        // A box pushed out of its column is not seen there.
        if (items[i].rcItem.PtInRect(inGrid) && !IsBandItem(items[i]) &&
            ColumnOfDay(state, items[i].dtStart) == column) {
            return i;
        }
    }
    return -1;
}

int BandItemAt(const ItemArray& items, const CPoint& point)
{
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        if (items[i].rcItem.PtInRect(point) && IsBandItem(items[i])) {
            return i;
        }
    }
    return -1;
}
} // namespace

TimeGridHit HitOneDay(const TimeGridState& state, const ItemArray& items, const CPoint& point)
{
    TimeGridHit hit;
    const bool inBand = state.frame.fulldayContent.PtInRect(point);
    hit.screenItem = FirstItemAt(items, inBand ? point : InGrid(state, point));
    const bool inColumn = point.x >= state.frame.grid.left && point.x < state.frame.grid.right;
    const int row = inColumn ? RowAt(state, point.y) : -1;
    hit.time = row != -1 ? state.scale.TimeOfRow(state.firstDay, row) : inBand ? StartOfDay(state.firstDay) : NoTime();
    if (hit.screenItem != -1) {
        hit.code = inBand ? CCHT_ONFULLDAYITEM : CCHT_ONITEM;
    } else if (inBand) {
        hit.code = CCHT_ONFULLDAY;
    } else if (row != -1) {
        hit.code = state.frame.caption.PtInRect(point) ? CCHT_ONDAYCAPTION : CCHT_ONCELL;
    } else {
        hit.code = state.frame.ruler.PtInRect(point) ? CCHT_ONRULER : CCHT_NOWHERE;
    }
    return hit;
}

TimeGridHit HitManyDays(const TimeGridState& state, const ItemArray& items, const CPoint& point)
{
    TimeGridHit hit;
    hit.time = NoTime();
    const int column = ColumnAt(state.frame, point.x);
    const COleDateTime day = column != -1 ? StartOfDay(AddDays(state.firstDay, column)) : NoTime();
    if (state.frame.fulldayContent.PtInRect(point)) {
        hit.screenItem = BandItemAt(items, point);
        hit.code = hit.screenItem != -1 ? CCHT_ONFULLDAYITEM : CCHT_ONFULLDAY;
        hit.time = day;
    } else if (column != -1 && state.frame.header.PtInRect(point)) {
        hit.code = CCHT_ONDAYCAPTION;
        hit.time = day;
    } else if (column != -1 && point.y >= state.frame.grid.top) {
        const int row = RowAt(state, point.y);
        hit.screenItem = VisibleTimedItemAt(state, items, point);
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

int ColumnOfDay(const TimeGridState& state, const COleDateTime& day)
{
    const ClockTime first = ClockTimeOf(state.firstDay);
    const ClockTime shown = ClockTimeOf(day);
    const int column = shown.day - first.day;
    const int columns = static_cast<int>(state.frame.columns.size());
    return first.isValid && shown.isValid && column >= 0 && column < columns ? column : -1;
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

CRect CurrentCellBox(const TimeGridState& state, const CRect& column, const COleDateTime& begin,
                     const COleDateTime& end)
{
    const ClockTime from = ClockTimeOf(begin);
    const ClockTime to = ClockTimeOf(end);
    const int hourHeight = state.scale.HourHeight();
    const int quarter = kTimeGrid.rowHeight / (2 * state.scale.rowsPerHour);
    CRect box = column;
    box.left += kCellShiftX;
    box.right -= kCellFreeRight;
    box.top = column.top + from.hour * hourHeight + from.minute / kQuarterMinutes * quarter;
    box.bottom = column.top + to.hour * hourHeight + (to.minute / kQuarterMinutes + kQuartersBelowEnd) * quarter;
    box.OffsetRect(0, -state.scroll);
    return box;
}

RowRange SelectedRowsOfDay(const TimeScale& scale, COleDateTime begin, COleDateTime end)
{
    if (begin > end) {
        std::swap(begin, end);
    }
    return RowRange{scale.RowOfTime(begin), scale.RowOfTime(end) + 1};
}

RowRange SelectedRowsOfColumn(const TimeScale& scale, COleDateTime begin, COleDateTime end, const COleDateTime& day)
{
    if (begin > end) {
        std::swap(begin, end);
    }
    const ClockTime from = ClockTimeOf(begin);
    const ClockTime to = ClockTimeOf(end);
    const ClockTime shown = ClockTimeOf(day);
    if (!from.isValid || !to.isValid || !shown.isValid || shown.day < from.day || shown.day > to.day) {
        return RowRange();
    }
    return RowRange{shown.day == from.day ? scale.RowOfTime(from) : 0,
                    shown.day == to.day ? scale.RowOfTime(to) + 1 : scale.RowsPerDay()};
}

CRect BoxOfRows(const TimeGridState& state, const CRect& column, const RowRange& rows)
{
    const int top = state.frame.grid.top - state.scroll;
    return CRect(column.left, std::max<int>(state.frame.grid.top, top + state.scale.TopOfRow(rows.first)), column.right,
                 std::min<int>(state.frame.grid.bottom, top + state.scale.TopOfRow(rows.end)));
}

} // namespace dayvane
