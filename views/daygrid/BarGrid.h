// From screen items to bars in a grid of boxes: placement, stacking (BarLanes.h) and overflow, for the month, week and
// year views. Pure: rectangles are client pixels, positions count the boxes in the order of time.
#pragma once

#include "../../core/BarLanes.h"
#include "../../core/CalendarRecords.h"
#include "../../core/PaintedState.h"
#include "../../core/ViewScale.h"

#include <limits>
#include <vector>

namespace dayvane {

// Sizes of the bars of a view, pixels.
struct BarMetrics
{
    int topOffset; // from the top of a box to its first bar with its inset
    int height;    // of a bar with its inset
    int inset;     // left free on each side of a bar
    int laneStep;  // from one lane to the next

    int BarHeight() const { return height - 2 * inset; }
    // Bars of neighbouring lanes never overlap, whatever the rounding.
    BarMetrics At(const ViewScale& scale) const;
};

// How far to the right a bar reaches that covers several boxes.
enum class BarReach
{
    ToColumnOfLast, // to the right edge of the column of its last box
    BoxesTimesWidth // as many times the width of its first box as it covers boxes
};

// When the bottom of a bar counts as having reached the bottom of its box.
enum class BarOverflow
{
    ByAbsoluteValue, // |bar bottom| >= |box bottom|, which also holds for boxes above the client area
    ByPosition       // bar bottom >= box bottom
};

// Rules of a view that do not depend on its size.
struct BarRules
{
    BarMetrics metrics;
    BarReach reach;
    BarOverflow overflow;
};

// The boxes of a view, row by row; all boxes of a row have one top and one bottom.
struct BoxGrid
{
    std::vector<CRect> boxes;
    int columns = 1;

    int Count() const { return static_cast<int>(boxes.size()); }
    int RowOf(int box) const { return box / columns; }
};

// The first of a view's boxes that holds the point; -1: none. rectOf: the rectangle of a box.
template <class RectOf>
int BoxUnder(int count, RectOf rectOf, CPoint point)
{
    for (int box = 0; box < count; ++box) {
        if (CRect(rectOf(box)).PtInRect(point)) {
            return box;
        }
    }
    return -1;
}

// The boxes that an item covers, by position; positions outside the grid stand for days (months) that are not shown.
struct BoxSpan
{
    int first;
    int last;                // before first when the item ends before it starts
    bool ownBoxOnly = false; // a bar as wide as its first box whatever `last` says
};

// The span of an item that covers nothing, for its start is no date.
BoxSpan NoBoxes();

// Item count and overflow of a box.
struct BoxLoad
{
    int itemCount = 0; // items that cover it
    bool more = false; // at least one of them did not fit
};

// Sets rcItem and bNoFocus of every item, whose spans come in the same order. An item that starts outside the grid gets
// the rectangle (-1, -1, -1, -1); bNoFocus of an item that covers no box stays as it was. Returns one load for each
// box.
std::vector<BoxLoad> LayOutBars(const BoxGrid& grid, const BarRules& rules, const std::vector<BoxSpan>& spans,
                                ItemArray& items);

// Items of a layout by their positions, and the tops of the bars that they have of it.
struct PlacedBars
{
    static constexpr int kNoTop = std::numeric_limits<int>::min(); // of a new span

    std::vector<int> items;
    std::vector<int> tops; // pixels
};

// The same of these items, whose spans come in their order. Only those that get another top are touched, for records
// lie far apart. Appends, as they were, those whose flag has changed and those not hidden whose rectangle has. What was
// in `space` is lost.
std::vector<BoxLoad> LayOutBars(const BoxGrid& grid, const BarRules& rules, const std::vector<BoxSpan>& spans,
                                ItemArray& items, PlacedBars& placed, BarSpace& space, std::vector<PieceMove>& moved);

} // namespace dayvane
