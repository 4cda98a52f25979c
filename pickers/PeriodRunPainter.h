// Paints the list of a popup that runs through months or years.
#pragma once

#include "PeriodRun.h"
#include "PickerPaint.h"

namespace dayvane {

class PeriodRunPainter
{
public:
    PeriodRunPainter(CDC* pDC, const PeriodPolicy& policy, const PeriodRun& run, PickerFonts& fonts,
                     const CalendarTheme& theme = kClassicTheme, const CalendarTexts& texts = *RequiredTexts(),
                     bool eras = false); // eras: as PeriodTitle takes it
    void Draw() const;                   // the given period is bold, the chosen row shaded

private:
    void DrawRow(int row) const;

    CDC* m_pDC;
    const PeriodPolicy& m_policy;
    const PeriodRun& m_run;
    PickerFonts& m_fonts;
    const CalendarTexts& m_texts;
    bool m_eras;
    PickerPalette m_palette;
};

} // namespace dayvane
