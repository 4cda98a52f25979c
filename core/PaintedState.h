// What a control's picture shows of its items, and where two such states differ: after a step of a drag only those
// places are painted.
#pragma once

#include "CalendarRecords.h"

#include <vector>

namespace dayvane {

struct PaintedState
{
    struct Piece
    {
        CRect box; // client pixels, as far as it is seen, frame of the current item included
        tagCALENDAR_ITEM item;
    };
    // Counts hidden items.
    struct Mark
    {
        CRect box;
        int count;

        bool operator==(const Mark& other) const { return box == other.box && count == other.count; }
    };

    bool wantsPieces = true;   // false: they are left out
    std::vector<CRect> frame;  // the parts of the window
    std::vector<Piece> pieces; // in the order of drawing
    std::vector<Mark> marks;
};

// A piece that a layout has put to another place: where it was.
struct PieceMove
{
    int position; // in the screen list
    CRect box;    // rcItem
    bool wasHidden;
};

// What a layout does to the pieces that were there, as the view reports while it lays out.
struct LayoutWatch
{
    PaintedState before;
    bool isReported = false;  // the view has reported anything
    bool isWhole = false;     // all pieces are made or placed anew; `before` has what they were
    std::vector<int> changed; // positions of single pieces that are made anew
    std::vector<CRect> boxes; // painted boxes that single pieces have left or come to
};

// Appends what has to be painted to get from one picture to the other. False: everything, because a part of the window
// has moved or the items are not in the order of the store.
bool FindDifferences(const PaintedState& before, const PaintedState& after, std::vector<CRect>& rects);

// Many parts become fewer and larger ones, which cover them as far as they lie in the area: a region of thousands of
// rectangles costs more than the drawing that it saves. Few parts stay as they are.
std::vector<CRect> JoinParts(const std::vector<CRect>& parts, const CRect& area);

} // namespace dayvane
