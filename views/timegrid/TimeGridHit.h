// What lies under a point of a time grid, and where the current cell and the selection lie. Client pixels.
#pragma once

#include "../../core/CalendarRecords.h"
#include "TimeGridLayout.h"

namespace dayvane {

// A time grid as it is shown.
struct TimeGridState
{
    TimeGridFrame frame;
    TimeScale scale;
    COleDateTime firstDay; // the day of the first column
    int scroll = 0;        // pixels by which the grid is moved up; may be negative
};

struct TimeGridHit
{
    int screenItem = -1; // index in the screen list
    COleDateTime time;   // not valid when there is none under the point
    int code = CCHT_NOWHERE;
};

// The day view's rule, over one column. Items are looked for with the point moved into the grid, or, in the full-day
// band, as it is; rows from 0 to the one behind the last, also where the scrolled grid lies under band and caption.
TimeGridHit HitOneDay(const TimeGridState& state, const ItemArray& items, const CPoint& point);

// Several columns: the day header gives its day at 00:00 (CCHT_ONDAYCAPTION), the band the day at 00:00, the grid day
// and row. Band items are hit in the band only, timed ones in the part of their column that can be seen. Below the
// grid's lower edge rows go on, for a drag that leaves the window.
TimeGridHit HitManyDays(const TimeGridState& state, const ItemArray& items, const CPoint& point);

// The column at that horizontal position, -1 beside all of them; the column of that day, -1 when it is not shown.
int ColumnAt(const TimeGridFrame& frame, int x);
int ColumnOfDay(const TimeGridState& state, const COleDateTime& day);

// The part of an item's box that can be seen: scrolled, cut at the grid's upper and lower edge. A bar of the full-day
// band is where it is.
CRect VisibleItemBox(const TimeGridState& state, const tagCALENDAR_ITEM& item);

// The current cell when no item has the focus: in quarters of an hour of 20 / (2 * rows an hour) pixels from the hour
// of the selection's begin to two quarters after its end, whatever the rows. `column`: the grid of the selection's day.
CRect CurrentCellBox(const TimeGridState& state, const CRect& column, const COleDateTime& begin,
                     const COleDateTime& end);

// Rows first .. end - 1; empty when end <= first.
struct RowRange
{
    int first = 0;
    int end = 0;

    bool Holds(int row) const { return row >= first && row < end; }
};

// The selected rows of a day view: from the row of the earlier bound to that of the later, by their times of day.
RowRange SelectedRowsOfDay(const TimeScale& scale, COleDateTime begin, COleDateTime end);
// Of one column among several: the selection runs from its begin through all days to its end.
RowRange SelectedRowsOfColumn(const TimeScale& scale, COleDateTime begin, COleDateTime end, const COleDateTime& day);

// Where the rows lie in the grid, scrolled and cut at the grid's edges.
CRect BoxOfRows(const TimeGridState& state, const CRect& column, const RowRange& rows);

} // namespace dayvane
