// Paints the list of a popup that runs through months or years.
#pragma once

#include "PeriodRun.h"
#include "PickerPaint.h"

namespace dayvane {

// Client pixels of the popup; the given period is bold, the chosen row shaded.
void PaintPeriodRun(CDC* pDC, const PeriodPolicy& policy, const PeriodRun& run, PickerFonts& fonts);

} // namespace dayvane
