// What lies under a point of a time grid, and where the current cell and the selection lie. Client pixels.
#pragma once

#include "../../core/CalendarRecords.h"
#include "DayRange.h"
#include "TimeGridLayout.h"
#include "TimeScale.h"

#include <vector>

namespace dayvane {

// A time grid as it is shown. Refers to its frame: for the length of one call.
struct TimeGridState
{
    const TimeGridFrame& frame;
    TimeScale scale;
    DayRange range; // as many days as the frame has columns
    int scroll = 0; // pixels by which the grid is moved up; may be negative

    // A row's upper edge in the window.
    int TopOfRow(int row) const { return frame.grid.top - scroll + scale.TopOfRow(row); }
};

// Option hitWhatIsSeen: of the items under the point the one drawn last, and timed ones only in the grid.
struct TimeGridHit
{
    int screenItem = -1; // index in the screen list
    COleDateTime time;   // not valid when there is none under the point
    int code = CCHT_NOWHERE;
};

// The day view's rule, over one column. Items are looked for with the point moved into the grid, or, in the full-day
// band, as it is; rows from 0 to the one after the last, also where the scrolled grid lies under band and caption.
TimeGridHit HitOneDay(const TimeGridState& state, const ItemArray& items, const CPoint& point,
                      const CalendarOptions& options = {});

// Several columns: the day header gives its day at 00:00 (CCHT_ONDAYCAPTION), the band the day at 00:00, the grid day
// and row. Band items are hit in the band only, timed ones in the part of their column that can be seen. Below the
// grid's lower edge rows go on, for a drag that leaves the window.
TimeGridHit HitManyDays(const TimeGridState& state, const ItemArray& items, const CPoint& point,
                        const CalendarOptions& options = {});

// The column at that horizontal position, -1 beside all of them.
int ColumnAt(const TimeGridFrame& frame, int x);

// The part of an item's box that can be seen: scrolled, cut at the grid's upper and lower edge. A bar of the full-day
// band is where it is.
CRect VisibleItemBox(const TimeGridState& state, const tagCALENDAR_ITEM& item);
// The same of a mark; empty when it is scrolled away.
CRect VisibleMarkBox(const TimeGridState& state, const MoreMark& mark);

// An item's box as it is painted: scrolled, with the room for marks and text, which stays in sight of a box that is
// partly scrolled away. Edges where the item goes on are open.
struct PaintedBox
{
    CRect box;
    CRect content;
    bool leftEdge = true;
    bool rightEdge = true;
};
// Cut, and open, at the right edge of its column. A box that ends above its begin is turned, one that ends as it begins
// is a line.
PaintedBox PaintedTimedBox(const TimeGridState& state, const tagCALENDAR_ITEM& item, int columnRight);
PaintedBox PaintedBandBar(const CRect& band, const tagCALENDAR_ITEM& item, const TimeGridMetrics& metrics = kTimeGrid);
// Whether the item is timed, has a place, and is not hidden under the bands above the grid.
bool IsBoxInSight(const TimeGridState& state, const tagCALENDAR_ITEM& item);

// The current cell when no item has the focus: in quarters of an hour of 20 / (2 * rows an hour) pixels from the hour
// of the selection's begin to two quarters after its end, whatever the rows. (-1, -1, -1, -1) when the begin's day is
// not shown; the only column stands for every day.
CRect CurrentCellBox(const TimeGridState& state, const COleDateTime& begin, const COleDateTime& end);
// The same of a selection of whole days: the lowest lane of the band over its shown days.
CRect CurrentBandBox(const TimeGridState& state, const COleDateTime& begin, const COleDateTime& end);

// Rows first .. end - 1; empty when end <= first.
struct RowRange
{
    int first = 0;
    int end = 0;

    bool Holds(int row) const { return row >= first && row < end; }
};

// The selected rows of a column. Of an only column: from the row of the earlier bound to that of the later, by their
// times of day. Of several: the selection runs from its begin through all days to its end.
RowRange SelectedRows(const TimeGridState& state, int column, COleDateTime begin, COleDateTime end);

// Where the rows lie in the grid, scrolled and cut at the grid's edges.
CRect BoxOfRows(const TimeGridState& state, int column, const RowRange& rows);

// The parts of the full-day band over the columns of the days from one bound to the other; the only column stands for
// every day.
std::vector<CRect> BandOfDays(const TimeGridState& state, const CRect& band, const COleDateTime& begin,
                              const COleDateTime& end);

} // namespace dayvane
