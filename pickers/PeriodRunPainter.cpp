#include "pickers/PeriodRunPainter.h"

namespace dayvane {
namespace {
constexpr int kShadeInset = 1; // pixels, of the chosen row's shade
} // namespace

void PaintPeriodRun(CDC* pDC, const PeriodPolicy& policy, const PeriodRun& run, PickerFonts& fonts)
{
    const PickerPalette palette = SystemPickerPalette();
    pDC->FillSolidRect(CRect(CPoint(0, 0), run.Size()), palette.window);
    for (int row = 0; row < kPeriodRunMetrics.RowCount(); ++row) {
        if (!run.HasPeriod(row)) {
            continue;
        }
        const CRect rect = run.RowRect(row);
        const int period = run.PeriodOfRow(row);
        if (row == run.HotRow()) {
            CRect shade = rect;
            shade.DeflateRect(kShadeInset, kShadeInset);
            DrawRoundBox(pDC, shade, palette.selected, palette.selectedFrame);
        }
        DrawCentredText(pDC, rect, PeriodTitle(policy, period), fonts.Get(period == run.Given()), palette.text);
    }
}

} // namespace dayvane
