// The month, week and year view as a value of their parts.
#pragma once

#include "../../core/ViewParts.h"
#include "BoxRange.h"

#include <vector>

namespace dayvane {

struct BoxViewPartsInput
{
    const BoxRange& range;
    int columns;                     // boxes in a row
    int stripHeight;                 // of a box's caption, pixels
    const std::vector<CRect>& boxes; // as many as the range has
    const std::vector<CRect>& marks; // of each box; empty: it shows none
    const ItemArray& screenItems;    // as laid out
};

// Adds cells, pieces and marks.
void FillBoxParts(const BoxViewPartsInput& input, ViewParts& parts);

} // namespace dayvane
