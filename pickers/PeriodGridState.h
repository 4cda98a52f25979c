// What a mini calendar keeps besides its window.
#pragma once

#include "PeriodGridModel.h"
#include "PeriodGridPainter.h"

namespace dayvane {

struct PeriodGridState
{
    PeriodGridState(const PeriodPolicy& policy, const COleDateTime& now) : model(policy, now) {}

    PeriodGridModel model;
    PeriodGridLayout layout;
    CellMarks marks; // as the layout's blocks and cells
    WeekRule weekRule = WeekRule::FirstFourDayWeek;
    PickerFonts textFonts{kTextFont};
    PickerFonts numberFonts{kNumberFont};
};

} // namespace dayvane
