// Stacking of item bars: which bar of a box grid gives way to which.
//
// The rule, for all views: of every two bars i < j that share a day and whose rectangles intersect, j moves down by one
// lane; all pairs are looked at, in order, twice. No more: after the second sweep bars may still overlap.
//
// Done literally that takes quadratic time. Here each sweep is one walk over the bars. All bars start at the same
// height within their row and move by whole lanes, so a bar is described by its lane and its kind: days and horizontal
// extent. Whether two bars can overlap depends on their kinds alone, and a grid has few kinds.
// In the first sweep all bars start in lane 0, so the unplaced bars of one kind share a lane: one lane per kind is
// stored. In the second sweep bars of a kind start in several lanes, but bars that come into one lane move together
// from then on: they form one set. A bar that is being placed pushes down the sets in its lane that can overlap it.
// Where a row has few kinds and its lanes lie apart, numbers stand for the sets.
#pragma once

#include <cstddef>
#include <vector>

namespace dayvane {

// The rows of a grid, pixels.
struct LaneGrid
{
    std::vector<int> firstTops; // top of lane 0 in each row
    int columns;                // boxes in a row
    int barHeight;
    int laneStep; // from one lane to the next

    int RowOf(int box) const { return box / columns; }
};

// Bars that are alike but for their lane. Days are positions of boxes in the grid; only comparisons between the days of
// two bars count, so days outside the grid may be cut to the positions beside it.
struct BarKind
{
    int first; // 0 .. boxes - 1
    int last;  // -1 .. boxes - 1; before first when the item ends before it starts
    int left;  // pixels; left == right: such bars have no width and overlap nothing
    int right;

    bool CanOverlap(const BarKind& other) const
    {
        return first <= other.last && other.first <= last && left < right && other.left < other.right &&
               left < other.right && other.left < right;
    }
};

constexpr int kNoKind = -1; // of a bar that has no place and overlaps nothing

constexpr std::size_t kMostRowKinds = 32; // of more kinds in a row, visiting all of them costs more than lists do
constexpr std::size_t kCacheLine = 64;    // bytes; what lies across two of them is slow

// A number for each kind of a row.
template <class Lane>
struct alignas(kCacheLine) LaneRow
{
    Lane of[kMostRowKinds] = {};
};

// Memory for a layout that may serve the next one, too: large blocks come from the system anew each time.
struct BarSpace
{
    std::vector<int> kindOf;
    std::vector<unsigned short> lanes;
    std::vector<LaneRow<unsigned short>> counts;
};

// The lane of each bar: how often it was moved down. kindOf: for each bar its position in `kinds`, or kNoKind; it may
// be that of `space`.
std::vector<int> StackBars(const std::vector<int>& kindOf, const std::vector<BarKind>& kinds, const LaneGrid& grid,
                           BarSpace& space);
inline std::vector<int> StackBars(const std::vector<int>& kindOf, const std::vector<BarKind>& kinds,
                                  const LaneGrid& grid)
{
    BarSpace space;
    return StackBars(kindOf, kinds, grid, space);
}

} // namespace dayvane
