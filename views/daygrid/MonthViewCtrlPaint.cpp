// The month view's painting: the order of the layers, and which looks each cell has.
#include "views/daygrid/MonthViewCtrl.h"

#include "core/DateMath.h"
#include "core/DrawingHelpers.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/MonthLayout.h"

using namespace dayvane;

namespace {
constexpr CaptionLook kCaption = {{0x7BDBFF, 0x1096FF, 0x216DEF}, 32, DT_BOTTOM};
} // namespace

void CMonthViewCtrl::DrawCtrl(CDC* pDC)
{
    const SaveDcScope saved(pDC);
    const PaintClip::Paint paint(m_parts->clip, *pDC, UpdatesByParts() != FALSE);
    pDC->SetBkMode(TRANSPARENT);
    DrawCalendar(pDC, m_rcContent);
    DrawCaption(pDC, m_rcCaption);
    DrawHeader(pDC, m_rcRuler);
    DrawWeekColumn(pDC, m_rcRuler, m_rcContent);
    DrawItem(pDC, m_rcContent, m_arScreenItem);
    for (int i = 0; i < kMonthCells; ++i) {
        if (HasMoreMark(i)) {
            DrawMoreMark(pDC, m_arCell[i].m_rect);
        }
    }
}

DayLookInput CMonthViewCtrl::LookInput()
{
    DayLookInput input = LookOfDays();
    input.otherMonthText = m_theme.otherMonthText;
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
    DrawBoxLines(pDC, rcCalendar);
    const BoxPainter painter = PainterOn(pDC);
    const DayLookInput input = LookInput();
    // A colour that the table lacks ends the cells; what lies over them is painted all the same.
    for (int i = 0; i < kMonthCells && HasColorRow(m_arCellDate[i], GetDayColor(i), m_arDayColors); ++i) {
        const CRect& cell = m_arCell[i].m_rect;
        if (!painter.IsVisible(cell)) {
            continue;
        }
        const DayLook look = CalcDayLook(m_arCellDate[i], i == 0, GetDayColor(i), input);
        painter.DrawBackground(cell, look.background);
        if (look.today) {
            DrawTodayRect(pDC, cell);
        }
        if (look.selected) {
            DrawFocusRect(pDC, cell);
        }
        painter.DrawDayTexts(cell, look);
        DrawBoxLinesText(pDC, i, cell);
    }
}

std::u16string CMonthViewCtrl::GetCutBoxText(int nBox)
{
    if (!HasColorRow(m_arCellDate[nBox], GetDayColor(nBox), m_arDayColors)) {
        return {};
    }
    CClientDC dc(this);
    const DayLook look = CalcDayLook(m_arCellDate[nBox], nBox == 0, GetDayColor(nBox), LookInput());
    const bool fits = PainterOn(&dc).FitsDayTexts(m_arCell[nBox].m_rect, look);
    return fits ? std::u16string() : look.dayNumber + (look.annotation.empty() ? u"" : u" ") + look.annotation;
}

void CMonthViewCtrl::DrawCaption(CDC* pDC, CRect rcCaption)
{
    DrawTitle(pDC, rcCaption, kCaption);
}

void CMonthViewCtrl::DrawTitle(CDC* pDC, const CRect& rcCaption, const CaptionLook& look)
{
    CaptionTexts texts;
    if (IsValid(m_dtScroll)) {
        texts.number = m_texts.Date(&CalendarTexts::monthNumber, m_dtScroll);
        const BoxRange year(RangeKind::Year, m_dtScroll, kSunday);
        const int month = m_dtScroll.GetMonth() - 1;
        texts.text =
            u" " + m_texts.Date(&CalendarTexts::month, m_dtScroll) + u" " +
            OwnText(TitleNote(year.DateOfBox(month), year.LastDateOfBox(month), TitleUnit::Month, 0, m_dayLines));
    }
    PainterOn(pDC).DrawCaption(rcCaption, look, texts, m_lfFonts[FONT_TEXT]);
}

void CMonthViewCtrl::DrawHeader(CDC* pDC, CRect rcHeader)
{
    PainterOn(pDC).DrawWeekdays(rcHeader, m_arHeaderCell, m_arCellDate, GetTexts());
}

void CMonthViewCtrl::DrawTodayRect(CDC* pDC, CRect rect)
{
    PainterOn(pDC).DrawDayFrame(PartsOfDayFrame(rect, GetStripHeight(), m_scale), TodayFrameOf(m_theme));
}

void CMonthViewCtrl::DrawFocusRect(CDC* pDC, CRect rect)
{
    PainterOn(pDC).DrawDayFrame(PartsOfDayFrame(rect, GetStripHeight(), m_scale), SelectedFrameOf(m_theme));
}
