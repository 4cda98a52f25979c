// What a time grid window keeps of its layout and for its painting; its public header does without these types.
#pragma once

#include "TimeGridLayout.h"
#include "TimeGridLook.h"
#include "TimeGridPainter.h"

#include <vector>

namespace dayvane {

struct TimeGridParts
{
    TimeGridFrame frame; // of the last layout, as its overridable hooks left it
    CSize laidOut = CSize(0, 0);
    int lanesLaidOut = 0;
    std::vector<ShownDay> shownDays;
    std::vector<MoreMark> more;
    TimeGridFonts fonts;
};

} // namespace dayvane
