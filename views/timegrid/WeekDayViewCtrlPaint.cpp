// The multi-day view's painting: what the day view paints, for each column, and the day header.
#include "views/timegrid/WeekDayViewCtrl.h"

#include "core/DateMath.h"

using namespace dayvane;

namespace {
constexpr int kCaptionFont = 1; // template in m_lfFonts
} // namespace

CRect CWeekDayViewCtrl::HeaderBoxOf(int nColumn) const
{
    return CRect(m_arColumn[nColumn].left, m_rcHeader.top, m_arColumn[nColumn].right, m_rcHeader.bottom);
}

void CWeekDayViewCtrl::InvalidateHeader()
{
    if (m_hWnd) {
        InvalidateRect(&m_rcHeader, FALSE);
    }
}

void CWeekDayViewCtrl::InvalidateCellRect(COleDateTime date)
{
    const int column = ColumnOfDay(State(), date);
    if (!m_hWnd || column == -1) {
        return;
    }
    const CRect& box = m_arColumn[column];
    const CRect rect(box.left, m_rcFulldayContent.top, box.right, box.bottom);
    InvalidateRect(&rect, FALSE);
}

void CWeekDayViewCtrl::DrawCaption(CDC* pDC, CRect rcCaption)
{
    const TimeGridState state = State();
    TimeGridPainter(pDC, state, m_colors)
        .DrawDaysCaption(rcCaption, CaptionOfDays(m_dtViewBegin, m_dtViewEnd),
                         m_fonts.CaptionDate(m_lfFonts[kCaptionFont]), m_fonts.CaptionText());
}

void CWeekDayViewCtrl::DrawHeader(CDC* pDC, CRect rcHeader)
{
    const TimeGridState state = State();
    TimeGridPainter painter(pDC, state, m_colors);
    if (!painter.IsVisible(rcHeader)) {
        return;
    }
    painter.DrawHeaderBackground(rcHeader);
    const int today = ColumnOfDay(state, Now());
    const int current = ColumnOfDay(state, m_dtCurrentDate);
    for (int i = 0; i < m_nDays; ++i) {
        const CRect box = HeaderBoxOf(i);
        if (i == today) {
            DrawTodayRect(pDC, box);
        } else if (i == current) {
            DrawFocusRect(pDC, box);
        }
        const CString text = i < m_arDayProperty.GetSize() ? m_arDayProperty[i].strText : CString();
        painter.DrawHeaderText(box, HeaderOfDay(GetShownDays()[i], m_bShowHoliday != FALSE, text), GetShownDays()[i],
                               KindOfColumn(i).isDayOff, m_fonts.Label());
    }
    painter.DrawSeparators(rcHeader, state.frame.columns);
}

void CWeekDayViewCtrl::DrawTodayRect(CDC* pDC, CRect rcBox)
{
    const TimeGridState state = State();
    TimeGridPainter(pDC, state, m_colors).DrawTodayHeader(rcBox, m_crToday);
}

void CWeekDayViewCtrl::DrawFocusRect(CDC* pDC, CRect rcBox)
{
    const TimeGridState state = State();
    TimeGridPainter(pDC, state, m_colors).DrawHeaderFrame(rcBox, kTimeGridPalette.focusFrame);
}

void CWeekDayViewCtrl::DrawGrid(CDC* pDC, CRect rcGrid)
{
    const TimeGridState state = State();
    TimeGridPainter painter(pDC, state, m_colors);
    if (!painter.IsVisible(rcGrid)) {
        return;
    }
    painter.DrawGridBackground(rcGrid);
    for (int i = 0; i < m_nDays; ++i) {
        DrawRows(pDC, i);
    }
    painter.DrawSeparators(rcGrid, state.frame.columns);
}

void CWeekDayViewCtrl::DrawItem(CDC* pDC, CRect rcGrid, CItemArray& screenItems)
{
    const TimeGridState state = State();
    const TimeGridPainter painter(pDC, state, m_colors);
    if (!painter.IsVisible(rcGrid)) {
        return;
    }
    for (INT_PTR i = 0; i < screenItems.GetSize(); ++i) {
        const tagCALENDAR_ITEM& item = screenItems[i];
        const int column = painter.ShowsTimedItem(item) ? ColumnOfDay(state, item.dtStart) : -1;
        if (column != -1) {
            _DrawItem(pDC, state.frame.columns[column], item);
        }
    }
}

// An item pushed beyond its column must not cover the next day's.
void CWeekDayViewCtrl::_DrawItem(CDC* pDC, CRect rcColumn, const tagCALENDAR_ITEM& item)
{
    if (item.rcItem.left < rcColumn.right) {
        DrawTimedItem(pDC, State(), item, rcColumn.right);
    }
}
