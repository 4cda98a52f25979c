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

    std::vector<CRect> frame;  // the parts of the window
    std::vector<Piece> pieces; // in the order of drawing
    std::vector<Mark> marks;
};

// Appends what has to be painted to get from one picture to the other. False: everything, because a part of the window
// has moved or the items are not in the order of the store.
bool FindDifferences(const PaintedState& before, const PaintedState& after, std::vector<CRect>& rects);

} // namespace dayvane
