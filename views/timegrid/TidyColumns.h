// Items of one day set side by side in columns that never overlap: the tidy alternative to OverlapColumns.h, for the
// screen and for paper.
//
// Items that overlap in time, directly or through others, form a group. In the order of their starts (of equal starts
// the longer first, then the order given) each takes the leftmost column of its group that is free. The columns of a
// group divide the width evenly; a box then widens over the columns to its right that are free for all of its time.
// Items that only touch (one ends when the other begins) do not overlap. Where a group has more columns than the least
// width allows, the items of the columns beyond are hidden and counted. All of it takes n log n.
#pragma once

#include <vector>

namespace dayvane {

// Rows, minutes or days: any unit. The end is exclusive; an item that ends at or before its start counts as one unit
// long.
struct TimeSpan
{
    int start;
    int end;
};

// Where an item stands among those of its group.
struct TidyColumn
{
    int group;   // 0, 1, ... in the order of time
    int column;  // 0: leftmost
    int freeTo;  // the first column to the right that is taken at some time of the item; the group's count if none is
    int columns; // of the group
};

// One for each span, in the order of the spans. It also gives the lanes of bars over days: a lane is a column.
std::vector<TidyColumn> AssignColumns(const std::vector<TimeSpan>& spans);

// Widths, in any unit.
struct TidyRule
{
    int usableWidth;      // of the day's column, at least 1
    int minimumWidth = 1; // of a box; when the day's column itself is narrower, one box fills it
    int moreWidth = 0;    // kept free at the right of a group with hidden items, for their count; less when one box of
                          // the least width leaves less
};

struct TidyBox
{
    int left; // from the left edge of the day's column
    int width;
    bool hidden; // width 0, left of the count
};

// Hidden items that overlap each other or touch, counted together.
struct TidyMore
{
    int start; // of the earliest
    int end;   // of the latest
    int count;
    int left; // where the count has its room, which may have no width
    int width;
};

struct TidyPlaces
{
    std::vector<TidyBox> boxes; // one for each span, in the order of the spans
    std::vector<TidyMore> more; // in the order of time
};
TidyPlaces PlaceTidily(const std::vector<TimeSpan>& spans, const TidyRule& rule);

} // namespace dayvane
