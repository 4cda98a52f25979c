// Timed items that share grid rows, set side by side.
//
// The rule, for the items of one column of the grid: each row has the list of the items that cover it, in screen order.
// An item's parallel count is the length of the longest list that it is in; its share is the usable width divided by
// that count. Then, row by row from the top, each item A of the list pushes every other item B of the list that it
// overlaps to the right: by A's width, or, where B would come to reach beyond the column, only by what overlaps. A push
// takes effect at once, so later comparisons see it.
//
// Followed pair by pair this takes the square of each list's length. What makes it quick, with the same result to the
// last pixel: items of one list always overlap in height, so only left and width count; what A does to B depends on
// nothing else, so items at the same place with the same width move as one; and only neighbours in the order of the
// left edges can overlap (RowClusters.h).
#pragma once

#include "../../core/CalendarRecords.h"
#include "TimeScale.h"

#include <vector>

namespace dayvane {

using RowLayoutArray = CArray<tagCV_LAYOUT, tagCV_LAYOUT>;

// The rows first .. end - 1 that a timed item covers.
struct RowSpan
{
    int item; // index in the screen list
    int first;
    int end;
};

struct OverlapRule
{
    int left = 0;        // of the column
    int right = 0;       // of the column: a push by a whole width ends here
    int usableWidth = 0; // pixels to divide among the items that share a row
    // Which items receive the remainder pixels of the division: every item, or those that in the end stand in the
    // rightmost of their shares.
    bool remainderToEach = true;
};

// Whether the item is shown in the full-day band (IsFulldayItem, with the cheap answers first).
bool IsBandItem(const tagCALENDAR_ITEM& item);

// Appends the rows from the begin to the end of an item, by the times of day alone; nothing when it covers none: the
// end lies in the row of the begin, or before it. A row outside the day throws CInvalidArgException.
void AddRowSpan(std::vector<RowSpan>& spans, int item, const ClockTime& start, const ClockTime& end,
                const TimeScale& scale);

// Appends to each row's list the items that cover it, and raises the parallel count of each item so listed to the
// length of its longest list. `layout` is given one record for each row of the day.
void ListRows(ItemArray& items, const std::vector<RowSpan>& spans, const TimeScale& scale, RowLayoutArray& layout);

// Raises the items' parallel counts, gives them their shares and sets them side by side. Changes the left and right
// edges of the boxes, which are those of the column before; boxes without height overlap nothing.
void PlaceSideBySide(ItemArray& items, const std::vector<RowSpan>& spans, const TimeScale& scale,
                     const OverlapRule& rule);

// Of the items that have one nSource, all become copies of the first of them that a row lists. `candidates` are the
// indices looked at.
void UnifySameSource(ItemArray& items, const std::vector<int>& candidates, const std::vector<RowSpan>& spans);

// 1 plus the largest number of timed items whose boxes intersect one timed item's box; at least 1.
int CountOverlayed(const ItemArray& items);

} // namespace dayvane
