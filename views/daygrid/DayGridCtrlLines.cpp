// The lines under the numbers of days, and the week numbers, in the month, week and year views.
#include "views/daygrid/DayGridCtrl.h"

#include "core/DateMath.h"
#include "core/DayLinePainter.h"
#include "core/DrawingHelpers.h"
#include "core/ThemeColors.h"
#include "core/WideText.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/DayGridParts.h"

#include <algorithm>

using namespace dayvane;

const BoxLines& CDayGridCtrl::GetBoxLines()
{
    BoxLines& lines = m_parts->lines;
    const BoxRange range = Range();
    const CRect box = GetBoxRect(0);
    const CSize room(box.Width(), box.Height() - GetHitStripHeight());
    if (!m_dayLines.HasLines()) {
        lines = BoxLines();
        return lines;
    }
    const COleDateTime first = range.FirstDate();
    if (IsValid(lines.first) && lines.first == first && lines.room == room) {
        return lines;
    }
    const DayLineMetrics metrics = DayLineMetrics::For(m_scale);
    CDC screen;
    screen.CreateCompatibleDC(nullptr);
    lines.pieces.clear();
    for (int i = 0; i < range.Count(); ++i) {
        lines.pieces.push_back(PiecesOfBox(range, i, GetDayProvider(), m_dayLines));
        MeasurePieces(screen, m_parts->fonts.Annotation(), lines.pieces.back());
    }
    lines.lines = LinesOfBoxes(lines.pieces, room, metrics);
    lines.room = room;
    lines.first = first;
    return lines;
}

int CDayGridCtrl::GetLinesHeight()
{
    return HeightOfLines(GetBoxLines().lines, DayLineMetrics::For(m_scale));
}

void CDayGridCtrl::DayProviderChanged()
{
    m_parts->lines.Forget();
}

void CDayGridCtrl::DrawBoxLinesText(CDC* pDC, int nBox, const CRect& box, int nTop)
{
    const BoxLines& lines = GetBoxLines();
    if (lines.lines == 0) {
        return;
    }
    const CRect area(box.left, nTop, box.right, box.bottom);
    const std::vector<DayPiece>& pieces = lines.pieces[nBox];
    const DayLineMetrics metrics = DayLineMetrics::For(m_scale);
    DrawPieces(*pDC, m_parts->fonts.Annotation(), pieces, PlacePieces(pieces, area, lines.lines, metrics), metrics,
               DayLineColors::Of(m_theme));
}

int CDayGridCtrl::GetWeekColumnWidth() const
{
    return m_dayLines.weekNumbers ? m_scale.Of(kWeekColumnWidth) : 0;
}

void CDayGridCtrl::DrawWeekColumn(CDC* pDC, const CRect& header, const CRect& calendar)
{
    const int width = GetWeekColumnWidth();
    const BoxPainter painter = PainterOn(pDC);
    if (width == 0 || !painter.IsVisible(CRect(calendar.left - width, header.top, calendar.left, calendar.bottom))) {
        return;
    }
    pDC->FillSolidRect(CRect(header.left - width, header.top, header.left, header.bottom),
                       ThemeOr(m_theme.header, m_colors.ruler));
    const CRect column(calendar.left - width, calendar.top, calendar.left, calendar.bottom);
    pDC->FillSolidRect(&column, m_colors.ruler);
    const SelectGdi selectFont(pDC, m_parts->fonts.Annotation());
    pDC->SetTextColor(m_colors.rulerText);
    for (int row = 0; row < kMonthRows; ++row) {
        const CRect first = GetBoxRect(row * kMonthColumns);
        pDC->FillSolidRect(column.left, first.top, width, 1, m_colors.grid);
        CRect place(column.left, first.top, column.right, std::min(first.top + GetHitStripHeight(), first.bottom));
        const int week = WeekOfRow(Range(), row, m_nFirstDayOfWeek, m_dayLines.weekRule);
        CString text;
        text.Format("%d", week);
        if (week > 0) {
            DrawWideText(*pDC, OwnText(text), place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        }
    }
}
