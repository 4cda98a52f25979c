// What a time grid window keeps of its layout and for its painting; its public header does without these types.
#pragma once

#include "TimeBoard.h"
#include "TimeGridLayout.h"
#include "TimeGridLook.h"
#include "TimeGridPainter.h"
#include "ZoneRuler.h"

#include "../../calc/WorkHours.h"

#include <memory>
#include <optional>
#include <vector>

namespace dayvane {

struct TimeGridParts
{
    TimeGridFrame frame; // of the last layout, as its overridable hooks left it
    CSize laidOut = CSize(0, 0);
    int lanesLaidOut = 0;
    std::vector<ShownDay> shownDays;
    std::vector<MoreMark> more;

    // What was last made of the store, so that after a change of few items only their columns are laid out again.
    TimeBoard board;            // empty: all is to be made anew
    std::optional<int> madeFor; // first day of the range that the screen items were made for; empty: not of the store
    CRect bandLaidOut = CRect(0, 0, 0, 0);
    int bars = 0;                         // in the full-day band
    std::vector<int> remade;              // positions of the items that are there anew but not laid out
    bool isRemade = false;                // the others stand as they were laid out
    int dayLines = 0;                     // under the names of the days, as laid out
    std::unique_ptr<WorkHours> workHours; // nullptr: the control's one work time
    std::unique_ptr<ZoneRuler> zones;     // nullptr: one ruler, no zone
    TimeGridFonts fonts;
    TimeGridTools tools;
};

} // namespace dayvane
