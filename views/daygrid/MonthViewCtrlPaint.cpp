// The month view's painting: the order of the layers, and which looks each cell has.
#include "views/daygrid/MonthViewCtrl.h"

#include "core/DateMath.h"
#include "core/DrawingHelpers.h"

using namespace dayvane;

namespace {
constexpr int kTextFont = 2; // template in m_lfFonts
}

void CMonthViewCtrl::DrawCtrl(CDC* pDC)
{
    const SaveDcScope saved(pDC);
    pDC->SetBkMode(TRANSPARENT);
    DrawCalendar(pDC, m_rcContent);
    DrawCaption(pDC, m_rcCaption);
    DrawHeader(pDC, m_rcRuler);
    DrawItem(pDC, m_rcContent, m_arScreenItem);
    for (int i = 0; i < kMonthCells; ++i) {
        if (HasMoreMark(i)) {
            DrawMoreMark(pDC, m_arCell[i].m_rect);
        }
    }
}

DayLookInput CMonthViewCtrl::LookInput()
{
    DayLookInput input = {
        m_arDayColors, m_colors.highlightText, m_bShowHoliday != FALSE, m_bShow24Setuki != FALSE, false, 0, 0};
    COleDateTime begin;
    COleDateTime end;
    input.showSelection = GetSelRange(begin, end) && IsSelectionShown();
    if (input.showSelection) {
        input.firstSelected = DayNumberOf(begin);
        input.lastSelected = DayNumberOf(end);
    }
    return input;
}

void CMonthViewCtrl::DrawCalendar(CDC* pDC, CRect rcCalendar)
{
    const CRect& firstCell = m_arCell[0].m_rect;
    DrawMonthGrid(pDC, rcCalendar, firstCell.Size(), m_pens.Solid(1, m_colors.grid));
    CRect clip;
    pDC->GetClipBox(&clip);
    const DayLookInput input = LookInput();
    for (int i = 0; i < kMonthCells; ++i) {
        const CRect& cell = m_arCell[i].m_rect;
        CRect seen;
        if (!seen.IntersectRect(&cell, &clip)) {
            continue;
        }
        const DayLook look = CalcDayLook(m_arCellDate[i], i == 0, GetDayColor(i), input);
        DrawCellBackground(pDC, cell, look.background);
        if (look.today) {
            DrawTodayRect(pDC, cell);
        }
        if (look.selected) {
            DrawFocusRect(pDC, cell);
        }
        DrawCellTexts(pDC, cell, look, m_fonts);
    }
}

void CMonthViewCtrl::DrawCaption(CDC* pDC, CRect rcCaption)
{
    DrawMonthCaption(pDC, rcCaption, m_dtScroll, kMonthBand, m_colors.captionText, m_lfFonts[kTextFont], m_fonts);
}

void CMonthViewCtrl::DrawHeader(CDC* pDC, CRect rcHeader)
{
    DrawWeekdayHeader(pDC, rcHeader, m_arHeaderCell, m_arCellDate, &m_fonts.weekday);
}

void CMonthViewCtrl::DrawItem(CDC* pDC, CRect, CItemArray& screenItems)
{
    DrawBars(pDC, screenItems);
}

void CMonthViewCtrl::DrawTodayRect(CDC* pDC, CRect rect)
{
    DrawDayFrame(pDC, rect, kTodayFrame, m_pens);
}

void CMonthViewCtrl::DrawFocusRect(CDC* pDC, CRect rect)
{
    DrawDayFrame(pDC, rect, kSelectedDayFrame, m_pens);
}
