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
#include "views/daygrid/MonthLayout.h"

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
    if (BoxDayArray* days = GetDays()) {
        AnnotateDays(GetDayProvider(), *days);
    }
}

void CDayGridCtrl::DrawBoxLinesText(CDC* pDC, int nBox, const CRect& box)
{
    const BoxLines& lines = GetBoxLines();
    if (lines.lines == 0) {
        return;
    }
    const CRect area(box.left, box.top + GetStripHeight(), box.right, box.bottom);
    const std::vector<DayPiece>& pieces = lines.pieces[nBox];
    const DayLineMetrics metrics = DayLineMetrics::For(m_scale);
    DrawPieces(*pDC, m_parts->fonts.Annotation(), pieces, PlacePieces(pieces, area, lines.lines, metrics), metrics,
               DayLineColors::Of(m_theme));
}

std::u16string CDayGridCtrl::GetCutText(int nBox, CRect& rcPart)
{
    std::u16string text = GetCutBoxText(nBox);
    const BoxLines& lines = GetBoxLines();
    const DayLineMetrics metrics = DayLineMetrics::For(m_scale);
    rcPart = GetBoxRect(nBox);
    CRect area = rcPart;
    area.top += GetStripHeight();
    rcPart.bottom = std::min<int>(area.top + HeightOfLines(lines.lines, metrics), rcPart.bottom);
    if (lines.lines > 0 && LosesPieces(lines.pieces[nBox], area, lines.lines, metrics)) {
        text += (text.empty() ? u"" : u"  ") + TextOfPieces(lines.pieces[nBox]);
    }
    return text;
}

int CDayGridCtrl::GetWeekColumnWidth() const
{
    return m_dayLines.weekNumbers ? m_scale.Of(kWeekColumnWidth) : 0;
}

void CDayGridCtrl::DrawWeekColumn(CDC* pDC, const CRect& header, const CRect& calendar)
{
    const int width = GetWeekColumnWidth();
    if (width == 0) {
        return;
    }
    std::vector<CRect> firstCells;
    for (int row = 0; row < kMonthRows; ++row) {
        firstCells.push_back(GetBoxRect(row * kMonthColumns));
    }
    const WeekColumn places = PlaceWeekColumn(header, calendar, width, firstCells, GetHitStripHeight());
    if (!PainterOn(pDC).IsVisible(places.all)) {
        return;
    }
    pDC->FillSolidRect(&places.head, ThemeOr(m_theme.header, m_colors.ruler));
    pDC->FillSolidRect(&places.weeks, m_colors.ruler);
    const SelectGdi selectFont(pDC, m_parts->fonts.Annotation());
    pDC->SetTextColor(m_colors.rulerText);
    for (int row = 0; row < kMonthRows; ++row) {
        pDC->FillSolidRect(&places.lines[row], m_colors.grid);
        const int week = WeekOfRow(Range(), row, m_nFirstDayOfWeek, m_dayLines.weekRule);
        CString text;
        text.Format("%d", week);
        if (week > 0) {
            DrawWideText(*pDC, OwnText(text), places.numbers[row], DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        }
    }
}
