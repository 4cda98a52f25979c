// The rectangles of the week and the year view: two rows of boxes that stand for days or months, and what lies under a
// point. Client pixels; right and bottom edges do not count.
#pragma once

#include "BarGrid.h"
#include "BoxRange.h"

#include <vector>

namespace dayvane {

// Pixels, but for the columns.
struct BoxViewMetrics
{
    int columns;
    int captionHeight;
    int stripHeight;    // drawn on top of a box
    int hitStripHeight; // top of a box that answers as its caption
    BarRules bars;

    int BoxCount() const { return kBoxRows * columns; }
    BoxViewMetrics At(const ViewScale& scale) const;
};
constexpr BarRules kBoxBars = {{25, 26, 2, 23}, BarReach::BoxesTimesWidth, BarOverflow::ByPosition};
constexpr BoxViewMetrics kWeekMetrics = {4, 30, 22, 20, kBoxBars};
constexpr BoxViewMetrics kYearMetrics = {6, 30, 20, 20, kBoxBars};

// ---- Rectangles

// The vectors keep their storage for the life of the view: hosts may look at the boxes through pointers.
struct BoxViewLayout
{
    explicit BoxViewLayout(const BoxViewMetrics& metrics);

    CRect caption = CRect(0, 0, 0, 0);
    CRect calendar = CRect(0, 0, 0, 0);
    BoxGrid grid;              // in the order of time: the upper row from left to right, then the lower one
    std::vector<CRect> strips; // the tops of the boxes
};

// The last box of a row takes the remaining pixels of the width; those of the height stay empty.
void LayOutBoxView(const CRect& client, bool showCaption, const BoxViewMetrics& metrics, BoxViewLayout& layout);

} // namespace dayvane
