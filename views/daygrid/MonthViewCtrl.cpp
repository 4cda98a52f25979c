// The month view: lifetime, dates, layout, navigation. Painting and scrolling are in files of their own.
#include "views/daygrid/MonthViewCtrl.h"

#include "core/DateMath.h"
#include "core/ViewParts.h"
#include "core/WindowHelpers.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/MonthLayout.h"
#include "views/daygrid/RowPieces.h"

using namespace dayvane;

namespace {

constexpr char kWindowClass[] = "MFCMonthViewCtrl";

constexpr CalendarColors kMonthColors = {
    // caption, caption text, ruler (the week numbers), ruler text, content, grid, border
    0x3F6CE2, 0xFFFFFF, 0xFFF6F0, 0x804830, 0xFFFFFF, 0xE1BFA5, 0x2299EE};
constexpr COLORREF kOtherMonthColor = 0xEEEEEE;

constexpr int kWeekScrollInterval = 400; // milliseconds

} // namespace

IMPLEMENT_DYNCREATE(CMonthViewCtrl, CDayGridCtrl)

BEGIN_MESSAGE_MAP(CMonthViewCtrl, CDayGridCtrl)
ON_WM_VSCROLL()
END_MESSAGE_MAP()

// ---- Lifetime

CMonthViewCtrl::CMonthViewCtrl() : m_crOtherMonth(kOtherMonthColor), m_crButtonFace(::GetSysColor(COLOR_BTNFACE))
{
    RegisterControlClass(kWindowClass, reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_WINDOW)));
    m_pOwnType = &typeid(CMonthViewCtrl);
    m_strTitle = "Monthly Calendar";
    SetOwnColors(kMonthColors);
    m_nAutoScrollInterval = kWeekScrollInterval;
    m_dtCurrent = m_dtScroll = Now();
    m_arHeaderCell.SetSize(kMonthColumns);
    m_arCell.SetSize(kMonthCells);
    CMonthViewCtrl::CalcCalendar();
}

CMonthViewCtrl::~CMonthViewCtrl()
{
    DestroyWindow();
}

BOOL CMonthViewCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, CCreateContext* pContext)
{
    if (!CWnd::Create(kWindowClass, nullptr, dwStyle, rect, pParent, nID, pContext)) {
        return FALSE;
    }
    CalcCalendar();
    return TRUE;
}

// ---- Dates

BoxRange CMonthViewCtrl::Range() const
{
    return RangeOf(m_arCellDate); // as CalcCalendar, which may be overridden, has left them
}

void CMonthViewCtrl::CalcCalendar()
{
    ShowRange(BoxRange(RangeKind::Month, m_dtCurrent, m_nFirstDayOfWeek));
}

void CMonthViewCtrl::ShowRange(const BoxRange& range)
{
    FillDays(range, m_dtCurrent, Now(), GetDayProvider(), m_arCellDate);
}

void CMonthViewCtrl::TodayChanged()
{
    dayvane::MarkToday(Now(), m_arCellDate);
}

void CMonthViewCtrl::BringInSight(const COleDateTime& date)
{
    const int position = Range().PositionOf(date);
    const int week = position >= 0 ? position / kMonthColumns : (position - kMonthColumns + 1) / kMonthColumns;
    m_dtCurrent = m_dtScroll = m_dtCurrentDate = m_dtViewDate = date;
    MoveCalendar(week < 0 ? week : week - kMonthRows + 1);
}

void CMonthViewCtrl::DescribeParts(ViewParts& parts)
{
    CDayGridCtrl::DescribeParts(parts);
    parts.titleDate = m_dtScroll;
    for (int i = 0; i < kMonthColumns; ++i) {
        parts.columnHeaders.push_back(m_arHeaderCell[i].m_rect);
    }
    for (int i = 0; i < static_cast<int>(parts.cells.size()); ++i) {
        parts.cells[i].hostText = m_texts.HostText(m_arCellDate[i].m_dayProperty.strText);
    }
}

void CMonthViewCtrl::SetCurrentDate(const COleDateTime& date)
{
    if (!EndEdit()) {
        return;
    }
    CDayGridCtrl::SetCurrentDate(date);
    m_dtScroll = m_dtCurrent = date;
    m_dtSelBegin = m_dtSelEnd = StartOfDay(date);
    CalcCalendar();
    // Over the stored items, not the shown ones: the screen items come with the next layout.
    const DayRows rows = Range().Rows();
    if (const std::vector<int>* which = rows.empty() ? nullptr : FindItems(m_arItem, rows.front(), rows.back() - 1)) {
        CItemArray found;
        for (const int item : *which) {
            found.Add(m_arItem[item]);
        }
        CalcItemRect(m_rcContent, found);
    } else {
        CalcItemRect(m_rcContent, m_arItem);
    }
    SetCurSel(-1);
    SetSelScreenItem(-1);
    if (m_hWnd) {
        SetScrollPos(SB_VERT, m_dtScroll.GetMonth() - 1, TRUE);
    }
}

void CMonthViewCtrl::GetViewRange(COleDateTime& first, COleDateTime& last)
{
    first = StartOfDay(m_arCellDate[0].m_date);
    last = EndOfDay(m_arCellDate[kMonthCells - 1].m_date);
}

// ---- Layout

void CMonthViewCtrl::Layout(int cx, int cy)
{
    CalcLayout(CRect(0, 0, cx, cy), m_rcCaption, m_rcRuler, m_rcContent);
    CalcCellRect(m_rcRuler, m_rcContent);
    UpdateScreenItems();
}

void CMonthViewCtrl::CalcLayout(CRect rcClient, CRect& rcCaption, CRect& rcHeader, CRect& rcCalendar)
{
    const MonthBands bands = CalcMonthBands(rcClient, m_bShowCaption == TRUE, MonthMetrics::For(m_scale));
    rcCaption = bands.caption;
    rcHeader = bands.header;
    rcCalendar = bands.calendar;
    rcHeader.left += GetWeekColumnWidth();
    rcCalendar.left += GetWeekColumnWidth();
}

CSize CMonthViewCtrl::CalcCellSize(CRect rcCalendar)
{
    return CalcMonthCellSize(rcCalendar);
}

void CMonthViewCtrl::CalcCellRect(CRect rcHeader, const CRect& rcCalendar)
{
    FillMonthCells(rcHeader, rcCalendar, CalcCellSize(rcCalendar), m_arHeaderCell, m_arCell,
                   MonthMetrics::For(m_scale));
}

void CMonthViewCtrl::CalcItemRect(CRect, CItemArray& screenItems)
{
    BarRules rules = MonthMetrics::For(m_scale).bars;
    rules.metrics.topOffset += GetLinesHeight();
    StoreLoads(LayOutPieces(BoxGridOf(m_arCell), rules, screenItems), m_arCell);
}

void CMonthViewCtrl::ClearMoreMarks()
{
    ClearLoads(m_arCell);
}

int CMonthViewCtrl::GetHitStripHeight()
{
    return MonthMetrics::For(m_scale).dayCaptionHeight;
}

int CMonthViewCtrl::GetStripHeight()
{
    return MonthMetrics::For(m_scale).stripHeight;
}

// ---- Keyboard moves

void CMonthViewCtrl::MoveSelection(int nDays, UINT nFlags)
{
    if (!MoveSelectionEnd(nDays, nFlags)) {
        return;
    }
    const COleDateTime begin = m_dtSelBegin;
    const COleDateTime end = m_dtSelEnd;
    const WindowAlive alive(this, m_life);
    SendMessage(WM_VSCROLL, nDays < 0 ? SB_LINEUP : SB_LINEDOWN);
    if (!alive) {
        return;
    }
    // Scrolling has put the selection on the new current date.
    m_dtSelBegin = begin;
    m_dtSelEnd = end;
    InvalidateClient();
}
