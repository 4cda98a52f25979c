#include "planner/AgendaView.h"

#include "core/CalendarClock.h"
#include "core/CalendarCtrl.h"
#include "core/SystemTheme.h"
#include "core/ThemeColors.h"
#include "planner/AgendaAccess.h"
#include "planner/ItemBridge.h"
#include "planner/PlannerDoc.h"
#include "planner/PlannerTheme.h"
#include "planner/TypedDate.h"
#include "planner/WideText.h"
#include "planner/Words.h"

#include <algorithm>

IMPLEMENT_DYNCREATE(CAgendaView, CView)

namespace {

constexpr planner::DayNumber kReadAtOnce = 120; // days, on each side
constexpr std::size_t kMostRows = 20000;        // of endless series: so far and no further
constexpr int kWheelRows = 3;
constexpr COLORREF kHeadingFrom = RGB(226, 234, 244);
constexpr COLORREF kTodayFrom = RGB(255, 226, 160);
constexpr COLORREF kHeadingText = RGB(32, 40, 56);
constexpr int kTimeWidth = 6; // in heights of a row

std::string HeadingOf(planner::DayNumber day, planner::DayNumber today)
{
    static constexpr const char* names[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                            "Thursday", "Friday", "Saturday"};
    std::string text = planner::DateText(day) + "  " + planner::Tr(names[planner::WeekdayOfDay(day)]);
    if (day == today) {
        text += "  -  " + planner::Tr("Today");
    }
    return text;
}

void DrawUtf8(CDC& dc, const std::string& text, CRect place)
{
    const std::wstring wide = planner::Wide(text);
    ::DrawTextW(dc, wide.c_str(), static_cast<int>(wide.size()), &place,
                DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
}

} // namespace

BEGIN_MESSAGE_MAP(CAgendaView, CView)
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_VSCROLL()
ON_WM_MOUSEWHEEL()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_KEYDOWN()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_GETDLGCODE()
ON_COMMAND(ID_FILE_PRINT, &CView::OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_PREVIEW, &CView::OnFilePrintPreview)
END_MESSAGE_MAP()

BOOL CAgendaView::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style |= WS_VSCROLL;
    return CView::PreCreateWindow(cs);
}

planner::CalendarSet* CAgendaView::Calendars()
{
    CPlannerDoc* document = static_cast<CPlannerDoc*>(GetDocument());
    return document ? &document->Calendars() : nullptr;
}

// ---- How it looks

void CAgendaView::SetTheme(const CalendarTheme& theme)
{
    m_theme = theme;
    dayvane::ShowWindowInTheme(m_hWnd, theme); // the scroll bar
    Invalidate(FALSE);
}

void CAgendaView::SetScale(int dpi)
{
    LOGFONT font = {};
    ::GetObject(::GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font);
    font.lfHeight = MulDiv(font.lfHeight, dpi, dayvane::kBaseDpi);
    m_font.DeleteObject();
    m_font.CreateFontIndirect(&font);
    PlaceBar();
    Invalidate(FALSE);
}

// ---- What is read

void CAgendaView::Read(planner::DayNumber from, planner::DayNumber to)
{
    const planner::CalendarSet* calendars = Calendars();
    if (!calendars) {
        return;
    }
    m_today = planner::DayOfTime(planner::LocalOfDate(dayvane::Now()));
    m_from = std::max(from, planner::DayOfTime(planner::kEarliestTime));
    m_to = std::min(to, planner::DayOfTime(planner::kEndOfTime));
    m_occurrences = calendars->OccurrencesIn(m_from * planner::kDaySeconds, m_to * planner::kDaySeconds);
    m_rows = planner::AgendaRowsOf(m_occurrences, m_from, m_to, m_today);
    m_chosen = -1;
    ++m_version;
}

void CAgendaView::GoTo(planner::DayNumber day)
{
    m_todayWatch.Start();
    Read(day - kReadAtOnce, day + kReadAtOnce);
    m_top = 0;
    ScrollTo(static_cast<int>(planner::RowOfDay(m_rows, day)));
    m_wanted = day;
}

planner::DayNumber CAgendaView::TopDay() const
{
    if (m_wanted) {
        return *m_wanted;
    }
    return m_rows.empty() ? m_from + kReadAtOnce : m_rows[static_cast<std::size_t>(m_top)].day;
}

void CAgendaView::Reload()
{
    const auto chosen = Chosen();
    const planner::DayNumber top = TopDay();
    Read(m_from, m_to);
    m_top =
        std::min(static_cast<int>(planner::RowOfDay(m_rows, top)), std::max(static_cast<int>(m_rows.size()) - 1, 0));
    if (chosen) {
        Choose(chosen->id);
    }
    PlaceBar();
    Invalidate(FALSE);
}

void CAgendaView::Grow()
{
    const int rows = static_cast<int>(m_rows.size());
    const bool isNearBegin = m_top < PageRows();
    const bool isNearEnd = m_top + 2 * PageRows() > rows;
    if (m_rows.size() > kMostRows || (!isNearBegin && !isNearEnd)) {
        return;
    }
    const planner::DayNumber top = TopDay();
    const int offset = m_top - static_cast<int>(planner::RowOfDay(m_rows, top));
    const auto chosen = Chosen();
    Read(isNearBegin ? m_from - kReadAtOnce : m_from, isNearEnd ? m_to + kReadAtOnce : m_to);
    m_top = static_cast<int>(planner::RowOfDay(m_rows, top)) + offset;
    if (chosen) {
        Choose(chosen->id);
    }
}

bool CAgendaView::Choose(const planner::OccurrenceId& id)
{
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (!m_rows[i].IsHeading() && m_occurrences[m_rows[i].item].id == id) {
            m_chosen = static_cast<int>(i);
            return true;
        }
    }
    return false;
}

planner::DayNumber CAgendaView::ChosenDay() const
{
    const std::size_t row = static_cast<std::size_t>(m_chosen);
    return m_chosen >= 0 && row < m_rows.size() ? m_rows[row].day : TopDay();
}

std::optional<planner::Occurrence> CAgendaView::Chosen() const
{
    const std::size_t row = static_cast<std::size_t>(m_chosen);
    return m_chosen < 0 || row >= m_rows.size() || m_rows[row].IsHeading()
               ? std::nullopt
               : std::optional(m_occurrences[m_rows[row].item]);
}

// ---- Programs that read aloud

planner::AgendaPage CAgendaView::Page()
{
    CRect client;
    GetClientRect(&client);
    return {m_rows, m_occurrences, m_today, m_top, RowHeight(), client};
}

LRESULT CAgendaView::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (dayvane::AccessWindow::IsQuestion(message, lParam)) {
        if (!m_access) {
            m_access = std::make_shared<planner::AgendaAccess>(*this);
        }
        if (const LRESULT answer = m_access->GetObject(wParam, lParam)) {
            return answer;
        }
    }
    const std::shared_ptr<planner::AgendaAccess> access = m_access;
    if (access && message == WM_DESTROY) {
        access->Disconnect();
        m_access.reset();
    }
    const LRESULT result = CView::WindowProc(message, wParam, lParam); // may be the end of this object
    if (access) {
        access->Follow();
    }
    return result;
}

// ---- Scrolling

int CAgendaView::RowHeight()
{
    CClientDC dc(this);
    CFont* before = dc.SelectObject(&m_font);
    TEXTMETRIC metrics = {};
    dc.GetTextMetrics(&metrics);
    dc.SelectObject(before);
    return metrics.tmHeight + metrics.tmHeight / 2;
}

int CAgendaView::PageRows()
{
    CRect client;
    GetClientRect(&client);
    return std::max<int>(client.Height() / RowHeight(), 1);
}

void CAgendaView::ScrollTo(int row)
{
    m_top = std::clamp(row, 0, std::max(static_cast<int>(m_rows.size()) - 1, 0));
    Grow();
    m_top = std::clamp(m_top, 0, std::max(static_cast<int>(m_rows.size()) - PageRows(), 0));
    PlaceBar();
    Invalidate(FALSE);
}

void CAgendaView::ScrollByHand(int row)
{
    m_wanted.reset();
    ScrollTo(row);
}

void CAgendaView::PlaceBar()
{
    SCROLLINFO bar = {};
    bar.cbSize = sizeof(bar);
    bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    bar.nMax = std::max(static_cast<int>(m_rows.size()) - 1, 0);
    bar.nPage = static_cast<UINT>(PageRows());
    bar.nPos = m_top;
    SetScrollInfo(SB_VERT, &bar);
}

void CAgendaView::OnSize(UINT nType, int cx, int cy)
{
    CView::OnSize(nType, cx, cy);
    PlaceBar();
    Invalidate(FALSE);
}

void CAgendaView::OnVScroll(UINT nSBCode, UINT, CScrollBar*)
{
    SCROLLINFO bar = {};
    bar.cbSize = sizeof(bar);
    bar.fMask = SIF_TRACKPOS;
    GetScrollInfo(SB_VERT, &bar);
    switch (nSBCode) {
    case SB_LINEUP:
        ScrollByHand(m_top - 1);
        break;
    case SB_LINEDOWN:
        ScrollByHand(m_top + 1);
        break;
    case SB_PAGEUP:
        ScrollByHand(m_top - PageRows());
        break;
    case SB_PAGEDOWN:
        ScrollByHand(m_top + PageRows());
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        ScrollByHand(bar.nTrackPos);
        break;
    default:
        break;
    }
}

BOOL CAgendaView::OnMouseWheel(UINT, short zDelta, CPoint)
{
    m_wheel += zDelta;
    const int notches = m_wheel / WHEEL_DELTA;
    m_wheel -= notches * WHEEL_DELTA;
    ScrollByHand(m_top - notches * kWheelRows);
    return TRUE;
}

// ---- Choosing

void CAgendaView::ChooseRow(int row)
{
    if (m_rows.empty()) {
        return;
    }
    const int last = static_cast<int>(m_rows.size()) - 1;
    m_wanted.reset();
    m_chosen = std::clamp(row, 0, last);
    if (m_chosen < m_top) {
        ScrollTo(m_chosen);
    } else if (m_chosen >= m_top + PageRows()) {
        ScrollTo(m_chosen - PageRows() + 1);
    }
    Invalidate(FALSE);
    GetParentFrame()->SendMessage(WM_PLANNER_CHOSEN, 0);
}

// The next or the previous item, headings left out.
void CAgendaView::ChooseItem(bool isBack)
{
    const int step = isBack ? -1 : 1;
    int row = m_chosen < 0 ? m_top - (isBack ? 0 : 1) : m_chosen;
    do {
        row += step;
    } while (row >= 0 && row < static_cast<int>(m_rows.size()) && m_rows[static_cast<std::size_t>(row)].IsHeading());
    if (row >= 0 && row < static_cast<int>(m_rows.size())) {
        ChooseRow(row);
    }
}

void CAgendaView::OnLButtonDown(UINT, CPoint point)
{
    SetFocus();
    ChooseRow(m_top + point.y / RowHeight());
}

void CAgendaView::OnLButtonDblClk(UINT, CPoint point)
{
    ChooseRow(m_top + point.y / RowHeight());
    GetParentFrame()->SendMessage(WM_PLANNER_CHOSEN, 1);
}

void CAgendaView::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const int from = m_chosen < 0 ? m_top : m_chosen;
    switch (nChar) {
    case VK_UP:
        ChooseRow(from - 1);
        break;
    case VK_DOWN:
        ChooseRow(m_chosen < 0 ? from : from + 1);
        break;
    case VK_PRIOR:
        ChooseRow(from - PageRows());
        break;
    case VK_NEXT:
        ChooseRow(from + PageRows());
        break;
    case VK_TAB:
        ChooseItem(::GetKeyState(VK_SHIFT) < 0);
        break;
    case VK_HOME:
        GoTo(m_today);
        break;
    case VK_RETURN:
        GetParentFrame()->SendMessage(WM_PLANNER_CHOSEN, 1);
        break;
    default:
        CView::OnKeyDown(nChar, nRepCnt, nFlags);
        break;
    }
}

void CAgendaView::OnSetFocus(CWnd* pOldWnd)
{
    CView::OnSetFocus(pOldWnd);
    Invalidate(FALSE);
}

void CAgendaView::OnKillFocus(CWnd* pNewWnd)
{
    CView::OnKillFocus(pNewWnd);
    Invalidate(FALSE);
}

UINT CAgendaView::OnGetDlgCode()
{
    return DLGC_WANTARROWS;
}

// ---- Paint

BOOL CAgendaView::OnEraseBkgnd(CDC*)
{
    return TRUE;
}

void CAgendaView::DrawRow(CDC& dc, const planner::AgendaRow& row, const CRect& place, bool isChosen)
{
    const int height = place.Height();
    const bool hasFocus = ::GetFocus() == m_hWnd;
    const planner::PaneColors page = planner::ListColors(m_theme);
    CRect text(place.left + height / 2, place.top, place.right - height / 2, place.bottom);
    if (row.IsHeading()) {
        const bool isToday = row.day == m_today;
        const COLORREF from = isToday ? dayvane::ThemeOr(m_theme.todayGround, kTodayFrom)
                                      : dayvane::ThemeOr(m_theme.header, kHeadingFrom);
        CCalendarCtrl::DrawGradient(&dc, place, from, page.ground, TRUE);
        dc.SetTextColor(isToday ? dayvane::ThemeOr(m_theme.pageText, kHeadingText)
                                : dayvane::ThemeOr(m_theme.headerText, kHeadingText));
        DrawUtf8(dc, HeadingOf(row.day, m_today), text);
    } else {
        const planner::Occurrence& occurrence = m_occurrences[row.item];
        const planner::CalendarSet* calendars = Calendars();
        const int color = calendars ? calendars->ColorOf(occurrence.id) : planner::CalendarSet::kByCategory;
        const planner::ItemColors& colors = planner::ColorsOf(*occurrence.event, color);
        const bool isMarked = isChosen && hasFocus;
        const COLORREF ground = isMarked   ? dayvane::ThemeOr(m_theme.selection, ::GetSysColor(COLOR_HIGHLIGHT))
                                : isChosen ? dayvane::ThemeOr(m_theme.header, ::GetSysColor(COLOR_BTNFACE))
                                           : page.ground;
        dc.FillSolidRect(&place, ground);
        const CRect mark(text.left, place.top + height / 6, text.left + height / 3, place.bottom - height / 6);
        dc.FillSolidRect(&mark, colors.outline);
        dc.SetTextColor(isMarked   ? dayvane::ThemeOr(m_theme.selectionText, ::GetSysColor(COLOR_HIGHLIGHTTEXT))
                        : isChosen ? dayvane::ThemeOr(m_theme.headerText, ::GetSysColor(COLOR_WINDOWTEXT))
                                   : page.text);
        text.left += height;
        CRect time(text);
        time.right = text.left + height * kTimeWidth;
        DrawUtf8(dc, row.time.empty() ? planner::Tr("All day") : row.time, time);
        text.left = time.right;
        const std::string where = occurrence.event->location.empty() ? "" : "   @ " + occurrence.event->location;
        DrawUtf8(dc, planner::ShownSummary(*occurrence.event) + where, text);
    }
    if (isChosen && hasFocus) {
        dc.DrawFocusRect(&place);
    }
}

void CAgendaView::OnDraw(CDC* pDC)
{
    CRect client;
    GetClientRect(&client);
    CDC memory;
    CBitmap bitmap;
    memory.CreateCompatibleDC(pDC);
    bitmap.CreateCompatibleBitmap(pDC, std::max<int>(client.Width(), 1), std::max<int>(client.Height(), 1));
    CBitmap* bitmapBefore = memory.SelectObject(&bitmap);
    CFont* fontBefore = memory.SelectObject(&m_font);
    memory.FillSolidRect(&client, planner::ListColors(m_theme).ground);
    memory.SetBkMode(TRANSPARENT);
    const int height = RowHeight();
    CRect place(0, 0, client.right, height);
    for (std::size_t i = static_cast<std::size_t>(m_top); i < m_rows.size() && place.top < client.bottom; ++i) {
        DrawRow(memory, m_rows[i], place, static_cast<int>(i) == m_chosen);
        place.OffsetRect(0, height);
    }
    pDC->BitBlt(0, 0, client.Width(), client.Height(), &memory, 0, 0, SRCCOPY);
    memory.SelectObject(fontBefore);
    memory.SelectObject(bitmapBefore);
}

// ---- Printing

planner::ShownItems& CAgendaView::Paper()
{
    if (!m_paperCtrl) {
        m_paperCtrl = std::make_unique<CMonthViewCtrl>();
        m_paperCtrl->Create(WS_CHILD, CRect(0, 0, 0, 0), this, 1);
        m_paper.Attach(m_paperCtrl.get());
    }
    m_paperCtrl->SetCurrentDate(planner::DateOfLocal(TopDay() * planner::kDaySeconds));
    if (const planner::CalendarSet* calendars = Calendars()) {
        m_paper.Load(*calendars);
    }
    return m_paper;
}

BOOL CAgendaView::OnPreparePrinting(CPrintInfo* pInfo)
{
    pInfo->m_pPD->m_pd.hwndOwner = m_hWnd;
    return DoPreparePrinting(pInfo);
}

void CAgendaView::OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo)
{
    if (m_paperCtrl && m_paperCtrl->GetPrinter()) {
        m_paperCtrl->GetPrinter()->Begin(pDC, pInfo);
    }
}

void CAgendaView::OnPrint(CDC* pDC, CPrintInfo* pInfo)
{
    if (m_paperCtrl) {
        m_paperCtrl->DoPrint(pDC, pInfo);
    }
}

void CAgendaView::OnEndPrinting(CDC*, CPrintInfo*)
{
    if (m_paperCtrl && m_paperCtrl->GetPrinter()) {
        m_paperCtrl->GetPrinter()->End();
    }
}
