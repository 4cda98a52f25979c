// The multi-day view's painting: what the day view paints, for each column, and the day header.
#include "views/timegrid/WeekDayViewCtrl.h"

#include "core/DateMath.h"
#include "core/DayLineLayout.h"
#include "views/timegrid/DayRange.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

void CWeekDayViewCtrl::InvalidateHeader()
{
    if (m_hWnd) {
        InvalidateRect(&m_pParts->frame.header, FALSE);
        if (m_pParts->zones) {
            InvalidateRect(&m_rcRuler, FALSE); // it goes by the current day
        }
    }
}

void CWeekDayViewCtrl::InvalidateCellRect(COleDateTime date)
{
    const int column = GetShownRange().ColumnOf(date);
    if (!m_hWnd || column == -1) {
        return;
    }
    CRect rect = m_pParts->frame.columns[column];
    rect.top = m_rcFulldayContent.top;
    InvalidateRect(&rect, FALSE);
}

void CWeekDayViewCtrl::DrawCaption(CDC* pDC, CRect rcCaption)
{
    const COleDateTime last = GetShownRange().LastMoment();
    GridCaptionTexts texts = CaptionOfDays(m_dtViewBegin, last, m_texts);
    texts.longDate += OwnText(TitleNote(m_dtViewBegin, last, TitleUnit::Month, m_nFirstDayOfWeek, m_dayLines));
    Painter(pDC).DrawDaysCaption(rcCaption, texts, m_pParts->fonts.Caption(m_lfFonts[FONT_LARGE_CAPTION]));
}

void CWeekDayViewCtrl::DrawHeader(CDC* pDC, CRect rcHeader)
{
    const TimeGridPainter painter = Painter(pDC);
    if (!painter.IsVisible(rcHeader)) {
        return;
    }
    painter.DrawHeaderBackground(rcHeader);
    const DayRange range = GetShownRange();
    const int today = range.ColumnOf(Now());
    const int current = range.ColumnOf(m_dtCurrentDate);
    const int form = HeaderFormOn(painter);
    for (int i = 0; i < m_nDays; ++i) {
        const CRect box = m_pParts->frame.HeaderBox(i);
        if (i == today) {
            DrawTodayRect(pDC, box);
        } else if (i == current) {
            DrawFocusRect(pDC, box);
        }
        const ShownDay& day = GetShownDays()[i];
        const CRect name(box.left, box.top, box.right, box.top + Scale().metrics.headerHeight);
        painter.DrawHeaderText(name, HeaderOf(i), form, day, ToneOfColumn(i).isDayOff, m_pParts->fonts.Label());
        DrawDayLines(pDC, i);
    }
    painter.DrawSeparators(rcHeader);
}

HeaderTexts CWeekDayViewCtrl::HeaderOf(int nColumn)
{
    const CString text = nColumn < m_arDayProperty.GetSize() ? m_arDayProperty[nColumn].strText : CString();
    return HeaderOfDay(GetShownDays()[nColumn], m_bShowHoliday && !m_dayLines.names, m_texts.HostText(text), m_texts);
}

// The longest form of the date that has room in every column.
int CWeekDayViewCtrl::HeaderFormOn(const TimeGridPainter& painter)
{
    int form = 0;
    for (int i = 0; i < m_nDays; ++i) {
        form = std::max(form, painter.HeaderForm(m_pParts->frame.HeaderBox(i), HeaderOf(i), m_pParts->fonts.Label()));
    }
    return form;
}

std::u16string CWeekDayViewCtrl::FindCutDayText(const tagCCHITTESTINFO& hit, CRect& rcPart)
{
    const int column = hit.nHitCode == CCHT_ONDAYCAPTION ? ColumnAt(m_pParts->frame, hit.pt.x) : -1;
    if (column == -1) {
        return {};
    }
    rcPart = m_pParts->frame.HeaderBox(column);
    CClientDC dc(this);
    const TimeGridPainter painter = Painter(&dc);
    const HeaderTexts texts = HeaderOf(column);
    std::u16string text;
    if (!painter.PlaceHeader(rcPart, texts, HeaderFormOn(painter), m_pParts->fonts.Label()).isWhole) {
        text = texts.longDate + (texts.note.empty() ? u"" : u" ") + texts.note;
    }
    const std::vector<DayPiece>& pieces = GetShownDays()[column].pieces;
    if (m_pParts->dayLines > 0 &&
        LosesPieces(pieces, GetLinesArea(column), m_pParts->dayLines, DayLineMetrics::For(m_scale))) {
        text += (text.empty() ? u"" : u"  ") + TextOfPieces(pieces);
    }
    return text;
}

void CWeekDayViewCtrl::DrawTodayRect(CDC* pDC, CRect rcBox)
{
    Painter(pDC).DrawTodayHeader(rcBox, m_crToday);
}

void CWeekDayViewCtrl::DrawFocusRect(CDC* pDC, CRect rcBox)
{
    Painter(pDC).DrawHeaderFrame(rcBox, ThemeOr(m_theme.selectionFrame, kTimeGridPalette.focusFrame));
}

void CWeekDayViewCtrl::DrawGrid(CDC* pDC, CRect rcGrid)
{
    const TimeGridPainter painter = Painter(pDC);
    if (!painter.IsVisible(rcGrid)) {
        return;
    }
    painter.DrawGridBackground(rcGrid);
    for (int i = 0; i < m_nDays; ++i) {
        DrawRows(pDC, i);
    }
    painter.DrawSeparators(rcGrid);
}

void CWeekDayViewCtrl::DrawItem(CDC* pDC, CRect rcGrid, CItemArray& screenItems)
{
    const TimeGridPainter painter = Painter(pDC);
    if (!painter.IsVisible(rcGrid)) {
        return;
    }
    const DayRange range = GetShownRange();
    for (INT_PTR i = 0; i < screenItems.GetSize(); ++i) {
        const tagCALENDAR_ITEM& item = screenItems[i];
        const int column = painter.ShowsTimedItem(item, GetMarksHeight(item)) ? range.ColumnOf(item.dtStart) : -1;
        if (column != -1 && item.rcItem.left < m_pParts->frame.columns[column].right) {
            DrawTimedItem(pDC, painter.State(), item, m_pParts->frame.columns[column].right);
        }
    }
}

// An item pushed beyond its column must not cover the next day's.
void CWeekDayViewCtrl::_DrawItem(CDC* pDC, CRect rcColumn, const tagCALENDAR_ITEM& item)
{
    if (item.rcItem.left < rcColumn.right) {
        DrawTimedItem(pDC, item, rcColumn.right);
    }
}
