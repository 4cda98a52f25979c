#include "planner/Panes.h"

#include "core/DateMath.h"
#include <afxpriv.h>

#include "core/CalendarFonts.h"
#include "core/ThemeColors.h"
#include "planner/ItemBridge.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

namespace {

// Pixels
constexpr int kPaneMargin = 6;
constexpr int kEdgeWidth = 1;  // the line to the view
constexpr int kLeastFrame = 3; // widths of the pane: in a narrower window it stands back
constexpr COLORREF kBusyDot = RGB(90, 143, 203);
constexpr int kMessageLines = 4;
constexpr int kMessageFrame = 6;

LRESULT TakeEdge(CWnd& pane, LPARAM lParam, CRect (*cut)(CRect& rest, int size), int size)
{
    AFX_SIZEPARENTPARAMS& layout = *reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
    if ((pane.GetStyle() & WS_VISIBLE) == 0) {
        return 0;
    }
    CRect rest(layout.rect);
    const CRect place = cut(rest, size);
    layout.rect = rest;
    if (layout.bPlace) {
        pane.SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(), SWP_NOACTIVATE | SWP_NOZORDER);
    }
    return 0;
}

CRect CutLeft(CRect& rest, int width)
{
    CRect place = rest;
    place.right = rest.left = std::min(rest.left + width, rest.right);
    return place;
}

CRect CutBottom(CRect& rest, int height)
{
    CRect place = rest;
    place.top = rest.bottom = std::max(rest.bottom - height, rest.top);
    return place;
}

} // namespace

// ---- Small calendars

BEGIN_MESSAGE_MAP(CSidePane, CWnd)
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_MESSAGE(WM_SIZEPARENT, &CSidePane::OnSizeParent)
END_MESSAGE_MAP()

int CSidePane::Width() const
{
    int rows = 0;
    int columns = 1;
    m_calendar.GetRowAndCol(rows, columns);
    return static_cast<int>(m_calendar.GetGridSize().cx) / std::max(columns, 1) + 2 * kPaneMargin + kEdgeWidth;
}

BOOL CSidePane::Create(CWnd* pParent, UINT nID)
{
    const CRect nowhere(0, 0, 0, 0);
    const LPCTSTR name = AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW));
    if (!CWnd::Create(name, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, nowhere, pParent, nID) ||
        !m_calendar.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, nowhere, this, IDC_MINI_CALENDAR) ||
        !m_list.Create(this, IDC_CALENDAR_LIST)) {
        return FALSE;
    }
    m_calendar.SetRangeSelect(FALSE);
    m_calendar.SetTextFont(CalendarFonts::Modern().text);
    m_calendar.SetDotCallback(&CSidePane::DotOf, reinterpret_cast<LPARAM>(this));
    return TRUE;
}

COLORREF CSidePane::DotOf(const COleDateTime& date, LPARAM lParam)
{
    CSidePane& pane = *reinterpret_cast<CSidePane*>(lParam);
    const planner::CalendarSet* document = pane.m_pfnDocument(pane.m_lParam);
    const bool isBusy = document && dayvane::IsValid(date) &&
                        pane.m_busyDays.IsBusy(*document, planner::DayOfTime(planner::LocalOfDate(date)));
    return isBusy ? kBusyDot : CLR_NONE;
}

void CSidePane::SetTexts(const CalendarTexts& texts)
{
    m_calendar.SetTexts(texts);
    m_calendar.Refresh();
}

void CSidePane::ShowWeekNumbers(BOOL bShow, dayvane::WeekRule rule)
{
    if (bShow != m_weekNumbers) {
        m_weekNumbers = bShow;
        m_calendar.ShowWeekNumbers(bShow, rule);
    }
    m_calendar.Refresh();
}

void CSidePane::SetFirstDayOfWeek(int nDay)
{
    m_calendar.SetFirstDayOfWeek(nDay);
    m_calendar.Refresh();
}

void CSidePane::DocumentChanged()
{
    m_busyDays.Forget();
    m_calendar.Refresh();
}

void CSidePane::SetTheme(planner::ThemeChoice choice)
{
    planner::ShowTheme(m_calendar, choice);
    m_list.SetTheme(m_calendar.GetTheme());
    Invalidate();
}

void CSidePane::SetScale(int dpi)
{
    m_calendar.SetScale(dpi);
    m_list.SetScale(dpi);
    Arrange();
}

BOOL CSidePane::IsShown(const COleDateTime& day) const
{
    const auto& months = m_calendar.GetMonthCells();
    for (INT_PTR i = 0; i < months.GetSize(); ++i) {
        if (months[i].nYear == day.GetYear() && months[i].nMonth == day.GetMonth()) {
            return TRUE;
        }
    }
    return FALSE;
}

void CSidePane::Follow(const COleDateTime& day)
{
    COleDateTime first, last;
    m_calendar.GetSel(first, last);
    if (dayvane::IsValid(first) && first == day) {
        return;
    }
    const COleDateTime month = m_calendar.GetCurrentDate();
    const BOOL shown = IsShown(day);
    m_calendar.SetSel(day, day);
    if (shown) { // the months stay where they are
        m_calendar.SetCurrentDate(month.GetYear(), month.GetMonth());
        m_calendar.Refresh();
    }
}

BOOL CSidePane::DayAt(CPoint screen, COleDateTime& day) const
{
    CRect place;
    m_calendar.GetWindowRect(&place);
    CPoint point = screen;
    m_calendar.ScreenToClient(&point);
    CPeriodGridCell cell;
    if (!IsWindowVisible() || !place.PtInRect(screen) || !m_calendar.HitTest(point, cell)) {
        return FALSE;
    }
    day = cell.dtDate;
    return dayvane::IsValid(day);
}

void CSidePane::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    Arrange();
}

// The list of calendars takes what it needs at the lower edge, though never more than half.
void CSidePane::Arrange()
{
    CRect place;
    GetClientRect(&place);
    if (place.IsRectEmpty()) {
        return;
    }
    place.DeflateRect(kPaneMargin, kPaneMargin, kPaneMargin + kEdgeWidth, 0);
    const bool hasList = (m_list.GetStyle() & WS_VISIBLE) != 0;
    const int listHeight = hasList ? std::min(m_list.Height() + kPaneMargin, static_cast<int>(place.Height()) / 2) : 0;
    m_list.MoveWindow(place.left, place.bottom - listHeight, place.Width(), std::max(listHeight - kPaneMargin, 0));
    place.bottom -= listHeight + (hasList ? kPaneMargin : 0);
    m_calendar.RecalcRowAndCol(place.Width(), place.Height());
    m_calendar.MoveWindow(&place);
    m_calendar.Refresh();
}

void CSidePane::ShowCalendars(const planner::CalendarSet& calendars)
{
    m_list.Show(calendars);
    m_list.ShowWindow(calendars.Members().size() > 1 ? SW_SHOWNA : SW_HIDE);
    Arrange();
    Invalidate();
}

void CSidePane::OnPaint()
{
    CPaintDC dc(this);
    CRect rest;
    GetClientRect(&rest);
    const CalendarTheme& theme = m_calendar.GetTheme();
    dc.FillSolidRect(&rest, planner::ListColors(theme).ground);
    rest.left = rest.right - kEdgeWidth;
    dc.FillSolidRect(&rest, dayvane::ThemeOr(theme.border, ::GetSysColor(COLOR_3DSHADOW)));
}

BOOL CSidePane::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

BOOL CSidePane::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    *pResult = GetParent()->SendMessage(WM_NOTIFY, wParam, lParam);
    return TRUE;
}

LRESULT CSidePane::OnSizeParent(WPARAM, LPARAM lParam)
{
    const AFX_SIZEPARENTPARAMS& layout = *reinterpret_cast<const AFX_SIZEPARENTPARAMS*>(lParam);
    m_hasRoom = layout.rect.right - layout.rect.left >= kLeastFrame * Width();
    return TakeEdge(*this, lParam, &CutLeft, m_hasRoom ? Width() : 0);
}

// ---- Messages

BEGIN_MESSAGE_MAP(CMessagePane, CListBox)
ON_MESSAGE(WM_SIZEPARENT, &CMessagePane::OnSizeParent)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

BOOL CMessagePane::Create(CWnd* pParent, UINT nID)
{
    const DWORD style = WS_CHILD | WS_VSCROLL | WS_TABSTOP | LBS_NOINTEGRALHEIGHT;
    if (!CListBox::Create(style, CRect(0, 0, 0, 0), pParent, nID)) {
        return FALSE;
    }
    ModifyStyleEx(0, WS_EX_CLIENTEDGE);
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)));
    return TRUE;
}

void CMessagePane::Show(const std::vector<planner::Message>& messages)
{
    ResetContent();
    for (const planner::Message& message : messages) {
        const std::string text = planner::Tr("Line %1: %2", std::to_string(message.line), planner::Tr(message));
        ::SendMessageW(m_hWnd, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(planner::Wide(text).c_str()));
    }
}

void CMessagePane::SetTheme(const CalendarTheme& theme)
{
    m_theme = theme;
    m_ground.DeleteObject();
    m_ground.CreateSolidBrush(planner::ListColors(theme).ground);
    Invalidate();
}

void CMessagePane::SetScale(int dpi)
{
    m_font.Show(*this, dpi);
}

HBRUSH CMessagePane::CtlColor(CDC* pDC, UINT)
{
    const planner::PaneColors colors = planner::ListColors(m_theme);
    pDC->SetTextColor(colors.text);
    pDC->SetBkColor(colors.ground);
    return static_cast<HBRUSH>(m_ground.GetSafeHandle());
}

LRESULT CMessagePane::OnSizeParent(WPARAM, LPARAM lParam)
{
    const int lineHeight = static_cast<int>(SendMessage(LB_GETITEMHEIGHT));
    return TakeEdge(*this, lParam, &CutBottom, kMessageLines * lineHeight + kMessageFrame);
}
