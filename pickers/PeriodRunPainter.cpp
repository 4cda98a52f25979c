#include "pickers/PeriodRunPainter.h"

namespace dayvane {
namespace {
constexpr int kShadeInset = 1; // pixels, of the chosen row's shade
} // namespace

PeriodRunPainter::PeriodRunPainter(CDC* pDC, const PeriodPolicy& policy, const PeriodRun& run, PickerFonts& fonts,
                                   const CalendarTheme& theme, const CalendarTexts& texts, bool eras)
    : m_pDC(pDC), m_policy(policy), m_run(run), m_fonts(fonts), m_texts(texts), m_eras(eras),
      m_palette(PickerPaletteOf(theme))
{
}

void PeriodRunPainter::Draw() const
{
    m_pDC->FillSolidRect(CRect(CPoint(0, 0), m_run.Size()), m_palette.window);
    for (int row = 0; row < kPeriodRunMetrics.RowCount(); ++row) {
        if (m_run.HasPeriod(row)) {
            DrawRow(row);
        }
    }
}

void PeriodRunPainter::DrawRow(int row) const
{
    const CRect rect = m_run.RowRect(row);
    const int period = m_run.PeriodOfRow(row);
    COLORREF color = m_palette.text;
    if (row == m_run.HotRow()) {
        color = ThemeOr(m_palette.selectedText, color);
        CRect shade = rect;
        shade.DeflateRect(kShadeInset, kShadeInset);
        DrawRoundBox(m_pDC, shade, m_palette.selected, m_palette.selectedFrame);
    }
    DrawCentredText(m_pDC, rect, PeriodTitle(m_policy, period, m_texts, m_eras), m_fonts.Get(period == m_run.Given()),
                    color);
}

} // namespace dayvane
