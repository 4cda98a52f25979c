// Keyboard moves and vertical scrolling of a time grid, as values.
#pragma once

#include "../../core/ScrollCode.h"
#include "DayRange.h"
#include "TimeScale.h"

namespace dayvane {

// What of the rows can be seen.
struct GridWindow
{
    TimeScale scale;
    int scroll = 0; // pixels
    int height = 0; // of the grid
};

enum class AfterMove
{
    NOTHING, // the move is not possible: nothing has changed
    REPAINT,
    SCROLL_UP, // by a line; that repaints
    SCROLL_DOWN,
};

// One row earlier or later; not over midnight, as seen from the selection's begin. With `extend` only the selection's
// end and the current date move. Whether to scroll is decided by hour and by minute, each on its own, against the first
// row shown or the last one shown as a whole.
AfterMove MoveRowEarlier(GridSelection& selection, const GridWindow& window, bool extend);
AfterMove MoveRowLater(GridSelection& selection, const GridWindow& window, bool extend);

// Day view: the previous and the next day. Without `extend` the way back leaves the selection's begin at its end, the
// way on leaves it one day after; with `extend` the way on moves both bounds, the way back the end alone.
void MoveDayEarlier(GridSelection& selection, bool extend);
void MoveDayLater(GridSelection& selection, bool extend);

// The last row of the range.
COleDateTime LastRow(const DayRange& range, const TimeScale& scale);

// The offset to which the grid has to scroll, and no further than needed, so that the pixels top .. bottom - 1 of the
// day are in sight; where they are higher than the grid, so that they begin at its top.
int OffsetToShow(const GridWindow& window, int top, int bottom);
// The same for the rows from one time of day to the other, in any order; the present offset without valid times.
int OffsetToShow(const GridWindow& window, const COleDateTime& begin, const COleDateTime& end);

// A line and a page of the vertical scroll bar, in rows.
constexpr int kScrollLine = 1;
constexpr int kScrollPage = 2;

// The bar counts rows, the offset pixels.
struct GridScroll
{
    int offset = 0;
    int position = 0;
    int maximum = 0;
};

// code: a ScrollCode. The offset is held between 0 and the rows that do not fit; when all fit that end is negative and
// wins. The position is left for the bar to hold in its range.
GridScroll Scrolled(const GridScroll& scroll, int code, int thumb, const GridWindow& window);
// What is seen after the step of a row move.
GridWindow WindowAfter(AfterMove move, const GridWindow& window);
// The offset held between 0 and the pixels that do not fit, the bar in step.
GridScroll ScrolledTo(const GridScroll& scroll, int offset, const GridWindow& window);
// The bar for a grid of that height, the position in proportion, the offset with it.
GridScroll ScaledTo(const GridScroll& scroll, const GridWindow& window);

} // namespace dayvane
