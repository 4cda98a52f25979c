// What a time grid window keeps of its layout and for its painting; its public header does without these types.
#pragma once

#include "TimeGridLayout.h"
#include "TimeGridLook.h"
#include "TimeGridPainter.h"
#include "ZoneRuler.h"

#include "../../calc/WorkHours.h"

#include <memory>
#include <vector>

namespace dayvane {

struct TimeGridParts
{
    TimeGridFrame frame; // of the last layout, as its overridable hooks left it
    CSize laidOut = CSize(0, 0);
    int lanesLaidOut = 0;
    std::vector<ShownDay> shownDays;
    std::vector<MoreMark> more;
    int dayLines = 0;                     // under the names of the days, as laid out
    std::unique_ptr<WorkHours> workHours; // nullptr: the control's one work time
    std::unique_ptr<ZoneRuler> zones;     // nullptr: one ruler, no zone
    TimeGridFonts fonts;
};

} // namespace dayvane
