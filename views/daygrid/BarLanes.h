// Stacking of item bars: which bar of a box grid gives way to which.
//
// The rule, for all views: of every two bars i < j that share a day and whose rectangles intersect, j moves down by one
// lane; all pairs are looked at, in order, twice. Nothing tidier: after the second sweep bars may still overlap.
//
// Taken literally that is quadratic. Here the result comes in one walk over the bars for each sweep. All bars start at
// the same height within their row and move by whole lanes, so a bar is known by its lane and its kind: row, days and
// horizontal extent. Whether two bars can meet depends on their kinds alone, and a grid has few of them. A bar j that
// starts in lane s and looks at all bars before it, in order, ends in a lane that depends on its kind and s alone; for
// every kind that answer is kept up to date while the bars pass by, and each bar moves just the kinds that it can meet.
#pragma once

#include <vector>

namespace dayvane
{

// A bar as the rule sees it. Days are positions of boxes in the grid; only comparisons between the days of two bars
// count, so days outside the grid may be cut to the positions beside it.
struct LaneBar
{
    int row = -1;       // row of the grid that box `first` lies in; -1: it has no place and meets nobody
    int first = 0;      // 0 .. boxes - 1
    int last = 0;       // -1 .. boxes - 1; before first when the item ends before it starts
    int left = 0;       // pixels; left == right: it has no width and meets nobody
    int right = 0;
    int lane = 0;       // out: how often it was moved down
};

// Heights of a view, pixels.
struct LaneHeights
{
    int bar;  // of a bar
    int step; // from one lane to the next
};

// Sets the lane of every bar. firstTops: the top of lane 0 in each row, pixels. boxCount: boxes of the grid.
void StackBars(std::vector<LaneBar>& bars, const std::vector<int>& firstTops, const LaneHeights& heights, int boxCount);

} // namespace dayvane
