// Where the parts of a time grid and its items lie, for one day column or several. Client pixels; a grid's items are
// placed as if it were scrolled to the top.
#pragma once

#include "../../core/CalendarOptions.h"
#include "../../core/CalendarRecords.h"
#include "DayRange.h"
#include "TimeScale.h"

#include <vector>

namespace dayvane {

struct TimeGridFrame
{
    CRect caption;
    CRect header; // the days' names; without height in the day view
    CRect fulldayRuler;
    CRect fulldayContent;
    CRect ruler;
    CRect grid;
    int columnWidth = 0;        // of all columns but the last, which takes what the division leaves
    std::vector<CRect> columns; // one a day, parts of the grid

    CRect HeaderBox(int column) const
    {
        return CRect(columns[column].left, header.top, columns[column].right, header.bottom);
    }
};

// How many lanes a band of so many has in a window of that height: at least one.
int LimitedLanes(int lanes, int clientHeight, const TimeGridMetrics& metrics = kTimeGrid);

// The client area, from the top: caption (when shown), header, full-day band of `lanes` lanes, and the grid down to the
// bottom edge, ruler on its left. Parts for which the client is too small have no height or width, or a negative one.
TimeGridFrame CalcTimeGridFrame(const CRect& client, bool captionShown, int headerHeight, int lanes, int days,
                                const TimeGridMetrics& metrics = kTimeGrid);

// The shown part of the store, in its order: items whose days overlap those of the range, both dates valid; over
// several days none that ends before it begins. nPiece says where an item of several days goes on: before and after the
// range PIECE_MIDDLE, after it PIECE_HEAD, before it PIECE_TAIL, neither PIECE_INSIDE; its dates are cut to the range.
// Returns how many are shown in the full-day band: those of several days and those marked full-day.
// which: positions of the items that can be shown, ascending; nullptr: all.
int MakeRangeItems(const ItemArray& store, const DayRange& range, ItemArray& screenItems,
                   const std::vector<int>* which = nullptr);

// Of screen items that were made of the store, the timed one of that source anew, as it is now, in the place that it
// had until the next layout. Returns its position; -1, and nothing is done: it is not shown, or in the full-day band,
// before or now.
int RemakeTimedItem(const ItemArray& store, int source, const DayRange& range, ItemArray& screenItems);
// The position of the item of that source; -1: there is none.
int FindSource(const ItemArray& screenItems, int source);

// A timed item's box as if it were alone in the column: (-1, -1, -1, -1) when it does not begin on that day. An item
// that is marked full-day or a middle piece reaches far below the day.
CRect BoxInColumn(const tagCALENDAR_ITEM& item, const CRect& column, const COleDateTime& day, const TimeScale& scale);

// Items that have no room, counted in a mark.
struct MoreMark
{
    int column = 0;
    bool inBand = false;
    CRect box = CRect(0, 0, 0, 0); // of timed items as if the grid were scrolled to the top
    std::vector<int> items;        // nSource of each, in screen order
};

// Gives every timed item its box: alone, then side by side with those that share its rows, then inset. `columns` has
// one for each day of the range. With one column all items take part in the overlap of that day, even those that begin
// on another one (and have no box); with several each has its part in the column of the day on which it begins. Throws
// CInvalidArgException when a time leads to a row outside the day.
// Options: visibleShortItems; tidyColumns, whose hidden items get no box and no focus, and are returned in marks.
std::vector<MoreMark> PlaceTimedItems(ItemArray& items, const std::vector<CRect>& columns, const DayRange& range,
                                      const TimeScale& scale, const CalendarOptions& options = {});

} // namespace dayvane
