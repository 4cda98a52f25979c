// What a mini calendar keeps besides its window.
#pragma once

#include "PeriodGridModel.h"
#include "PeriodGridPainter.h"

#include <optional>

namespace dayvane {

struct PeriodGridState
{
    PeriodGridState(const PeriodPolicy& policy, const COleDateTime& now)
        : base(&policy), scaled(policy), model(scaled, now)
    {
    }

    // Another look of the same periods, or the same at another scale.
    void Show(const PeriodPolicy& policy, const ViewScale& scale, const std::optional<LOGFONT>& hostFont)
    {
        base = &policy;
        scaled = policy.At(scale);
        textFonts.Show(scale, hostFont);
        numberFonts.Show(scale, hostFont);
    }

    const PeriodPolicy* base; // at 96 dpi
    PeriodPolicy scaled;      // the model's

    PeriodGridModel model;
    PeriodGridLayout layout;
    CellMarks marks; // as the layout's blocks and cells
    WeekRule weekRule = WeekRule::FirstFourDayWeek;
    PickerFonts textFonts{kTextFont};
    PickerFonts numberFonts{kNumberFont};
};

} // namespace dayvane
