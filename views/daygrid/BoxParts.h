// The parts that a marked box and a bar are painted of. Client pixels; right and bottom edges do not count. What has no
// room is an empty rectangle.
#pragma once

#include "../../core/CalendarRecords.h"
#include "../../core/ViewScale.h"

#include <climits>

namespace dayvane {

// A box as far as it may be painted: the last pixels of the calendar are its border.
CRect PaintedPart(const CRect& box, const CRect& calendar);

// The frame around a marked box, and the shaded strips under its number.
struct DayFrameParts
{
    CRect frame; // its right and bottom edges are drawn too
    CRect upper;
    CRect lower;
    int bottomLine; // y of the line below the strips; beyond the frame: none
};
// The strips of the frame, its outline and the bottom line fill the top of the box.
DayFrameParts PartsOfDayFrame(const CRect& box, int stripHeight, const ViewScale& scale);

constexpr int kFrameWidth = 2;  // of today's, the widest, at 96 dpi
constexpr int kArrowHeight = 7; // odd, at 96 dpi
// Columns of an arrow beside its tip.
constexpr int ArrowReach(const ViewScale& scale)
{
    return scale.Of(kArrowHeight) / 2;
}
constexpr int kNoArrow = INT_MIN;
constexpr COLORREF kUnfilled = 0xFFFFFF; // an item's background of this colour is not painted

struct BarParts
{
    CRect bar;                         // background and outline; nothing is drawn where it is empty
    CRect stripe = CRect(0, 0, 0, 0);  // shaded, where the item begins
    CRect content = CRect(0, 0, 0, 0); // for marks and text
    int arrowBefore = kNoArrow;        // x of the tips of the arrows, where the item goes on beyond its piece
    int arrowAfter = kNoArrow;
};
BarParts PartsOfBar(const tagCALENDAR_ITEM& item, const ViewScale& scale = {});

} // namespace dayvane
