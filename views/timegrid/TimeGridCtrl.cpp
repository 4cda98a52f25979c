// The shared part of the time grids: lifetime, layout, scrolling, row moves, timer. Painting is in
// TimeGridCtrlPaint.cpp.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/WindowHelpers.h"
#include "core/DateMath.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridMoves.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr UINT_PTR kNowTimer = 0x4E4F;
constexpr UINT kMillisecondsPerSecond = 1000;
constexpr int kNewBarMaximum = 100; // the system's range of a standard scroll bar
constexpr int kItemFocusMargin = 2; // pixels around an item that its selection frame may touch

static_assert(static_cast<int>(GridScrollCode::END_SCROLL) == SB_ENDSCROLL, "the codes of WM_VSCROLL");

// Sets a flag for the life of the scope.
class SetFlag
{
public:
    explicit SetFlag(BOOL& flag) : m_flag(flag) { m_flag = TRUE; }
    ~SetFlag() { m_flag = FALSE; }
    SetFlag(const SetFlag&) = delete;
    SetFlag& operator=(const SetFlag&) = delete;

private:
    BOOL& m_flag;
};

bool IsDate(const COleDateTime& date)
{
    return IsValid(date) && date.m_dt != 0.0;
}
} // namespace

IMPLEMENT_DYNAMIC(CTimeGridCtrl, CCalendarCtrl)

BEGIN_MESSAGE_MAP(CTimeGridCtrl, CCalendarCtrl)
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_VSCROLL()
ON_WM_KEYDOWN()
ON_WM_TIMER()
END_MESSAGE_MAP()

// ---- Lifetime

CTimeGridCtrl::CTimeGridCtrl() : m_pParts(std::make_unique<TimeGridParts>())
{
    m_bExtendedMove = TRUE;
}

CTimeGridCtrl::~CTimeGridCtrl()
{
}

BOOL CTimeGridCtrl::CreateGrid(LPCTSTR lpszClass, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID,
                               CCreateContext* pContext)
{
    if (!CWnd::Create(lpszClass, nullptr, dwStyle, rect, pParent, nID, pContext)) {
        return FALSE;
    }
    StartNowTimer();
    SyncToPresent(nullptr);
    return TRUE;
}

void CTimeGridCtrl::OnDestroy()
{
    KillTimer(kNowTimer);
    CCalendarCtrl::OnDestroy();
    m_pParts->fonts.Clear();
}

bool CTimeGridCtrl::EndEdit()
{
    Alive alive(this);
    FinishEdit(TRUE);
    return static_cast<bool>(alive);
}

void CTimeGridCtrl::SetCurrentDate(const COleDateTime& date)
{
    const COleDateTime newDate = date; // the host's own may go while the edit ends
    if (EndEdit()) {
        CCalendarCtrl::SetCurrentDate(newDate);
    }
}

// ---- Layout

TimeScale CTimeGridCtrl::Scale() const
{
    return TimeScale{m_nTimeScale};
}

TimeGridState CTimeGridCtrl::State() const
{
    return TimeGridState{m_pParts->frame, Scale(), GetShownRange(), m_nVertScroll};
}

TimeGridPainter CTimeGridCtrl::Painter(CDC* pDC) const
{
    return TimeGridPainter(*pDC, State(), m_colors);
}

// A derived class may have moved what its hook was given: what it left is what holds.
void CTimeGridCtrl::CalcFrame()
{
    TimeGridParts& parts = *m_pParts;
    parts.lanesLaidOut = GetFulldayItemCount();
    CalcLayout(CRect(CPoint(0, 0), parts.laidOut), m_rcCaption, m_rcRuler, m_rcContent);
    parts.frame.caption = m_rcCaption;
    parts.frame.fulldayRuler = m_rcFulldayRuler;
    parts.frame.fulldayContent = m_rcFulldayContent;
    parts.frame.ruler = m_rcRuler;
    parts.frame.grid = m_rcContent;
    if (parts.frame.columns.size() == 1) {
        parts.frame.columns[0] = m_rcContent;
    }
}

void CTimeGridCtrl::Layout(int cx, int cy)
{
    m_pParts->laidOut = CSize(cx, cy);
    MakeScreenItem(m_arItem, m_arScreenItem);
    CalcFrame();
    CalcItemRect(m_rcContent, m_arScreenItem);
    UpdateScrollRange();
}

void CTimeGridCtrl::MakeShownItems(CItemArray& items, CItemArray& screenItems)
{
    SetFulldayItemCount(MakeRangeItems(items, GetShownRange(), screenItems));
    if (&screenItems == &m_arScreenItem && m_pParts->laidOut != CSize(0, 0) &&
        m_pParts->lanesLaidOut != GetFulldayItemCount()) {
        CalcFrame();
        UpdateScrollRange();
    }
}

void CTimeGridCtrl::GetMaxParalelCalendarItems(CItemArray& screenItems, CRowLayoutArray& layout)
{
    std::vector<RowSpan> spans;
    for (int i = 0; i < static_cast<int>(screenItems.GetSize()); ++i) {
        const tagCALENDAR_ITEM& item = screenItems[i];
        if (!IsBandItem(item)) {
            AddRowSpan(spans, i, ClockTimeOf(item.dtStart), ClockTimeOf(item.dtEnd), Scale());
        }
    }
    ListRows(screenItems, spans, Scale(), layout);
}

int CTimeGridCtrl::CalcOverlayedNumber(const CItemArray& screenItems)
{
    return CountOverlayed(screenItems);
}

void CTimeGridCtrl::Rebuild()
{
    Layout();
    InvalidateClient();
}

int CTimeGridCtrl::FillHit(tagCCHITTESTINFO& info, const TimeGridHit& hit) const
{
    info.nScreenItem = hit.screenItem;
    info.nItem = hit.screenItem != -1 ? static_cast<int>(m_arScreenItem[hit.screenItem].nSource) : -1;
    info.nHitCode = hit.code;
    ToSystemTime(hit.time, info.time);
    return info.nItem;
}

// Timed items are pulled by the edge of their end; bars of several days by their last day, where it is shown.
int CTimeGridCtrl::GetPullableEdges(const tagCALENDAR_ITEM& screenItem)
{
    if (!IsBandItem(screenItem)) {
        return EDGE_BOTTOM;
    }
    return !GoesOn(screenItem) && GetShownRange().days > 1 ? EDGE_RIGHT : EDGE_NONE;
}

// ---- Size and scroll

GridWindow CTimeGridCtrl::RowWindow() const
{
    return GridWindow{Scale(), m_nVertScroll, m_rcContent.Height()};
}

GridScroll CTimeGridCtrl::GetScroll()
{
    SCROLLINFO info = {};
    // A window created without a bar begins as one with a bar does.
    if (!GetScrollInfo(SB_VERT, &info)) {
        info.nMax = kNewBarMaximum;
    }
    return GridScroll{m_nVertScroll, info.nPos, info.nMax};
}

void CTimeGridCtrl::SetScroll(const GridScroll& scroll)
{
    m_nVertScroll = scroll.offset;
    SetVertScrollBar(*this, 0, scroll.maximum, scroll.position);
}

// The band may have become higher or lower: the range follows, what is shown stays.
void CTimeGridCtrl::UpdateScrollRange()
{
    if (!m_hWnd || m_bSizing) {
        return;
    }
    const GridScroll scroll = GetScroll();
    const int maximum = ScaledTo(scroll, RowWindow()).maximum;
    if (scroll.maximum != maximum) {
        SetScroll(
            {std::min(scroll.offset, maximum * kTimeGrid.rowHeight), std::min(scroll.position, maximum), maximum});
    }
}

void CTimeGridCtrl::OnSize(UINT nType, int cx, int cy)
{
    if (!EndEdit()) {
        return;
    }
    CCalendarCtrl::OnSize(nType, cx, cy);
    {
        const SetFlag sizing(m_bSizing);
        Layout(cx, cy);
    }
    SetScroll(ScaledTo(GetScroll(), RowWindow()));
    InvalidateClient();
}

void CTimeGridCtrl::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    if (nSBCode > SB_ENDSCROLL || !EndEdit()) {
        return;
    }
    Alive alive(this);
    const GridScroll scroll =
        Scrolled(GetScroll(), static_cast<GridScrollCode>(nSBCode), static_cast<int>(nPos), RowWindow());
    m_nVertScroll = scroll.offset;
    CRect scrolled;
    scrolled.UnionRect(&m_rcRuler, &m_rcContent);
    InvalidateRect(&scrolled, TRUE);
    // Of several steps that wait, only the last needs a picture.
    MSG next;
    if (!::PeekMessage(&next, m_hWnd, WM_VSCROLL, WM_VSCROLL, PM_NOREMOVE | PM_QS_POSTMESSAGE)) {
        UpdateWindow();
    }
    if (!alive) {
        return;
    }
    SetScrollPos(SB_VERT, scroll.position, TRUE);
    CCalendarCtrl::OnVScroll(nSBCode, nPos, pScrollBar);
}

void CTimeGridCtrl::SyncToPresent(const COleDateTime* pWhen)
{
    const int row = Scale().RowOfTime(pWhen ? *pWhen : Now());
    for (int i = 0; i < row; ++i) {
        PostMessage(WM_VSCROLL, SB_LINEDOWN);
    }
}

// The steps of SyncToPresent wait in the queue: whoever scrolls to a place comes after them. False when the host has
// ended the control meanwhile.
bool CTimeGridCtrl::ServeWaitingScroll()
{
    Alive alive(this);
    MSG message;
    while (alive && m_hWnd && ::PeekMessage(&message, m_hWnd, WM_VSCROLL, WM_VSCROLL, PM_REMOVE)) {
        if (message.message == WM_QUIT) { // comes whatever one asks for
            ::PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        ::DispatchMessage(&message);
    }
    return alive && m_hWnd;
}

void CTimeGridCtrl::ScrollTo(int nOffset)
{
    if (nOffset != m_nVertScroll) {
        SetScroll(ScrolledTo(GetScroll(), nOffset, RowWindow()));
        InvalidateClient();
    }
}

void CTimeGridCtrl::SetVertScrollOffset(int nOffset)
{
    if (EndEdit() && ServeWaitingScroll()) {
        ScrollTo(nOffset);
    }
}

void CTimeGridCtrl::ScrollToTime(const COleDateTime& when)
{
    SetVertScrollOffset(Scale().TopOfTime(ClockTimeOf(when)));
}

BOOL CTimeGridCtrl::EnsureVisible(int nIndex)
{
    if (!EndEdit() || !ServeWaitingScroll()) {
        return FALSE;
    }
    for (INT_PTR i = 0; i < m_arScreenItem.GetSize(); ++i) {
        const tagCALENDAR_ITEM& item = m_arScreenItem[i];
        if (item.nSource != nIndex || item.rcItem.top == -1) {
            continue;
        }
        if (!IsBandItem(item)) {
            ScrollTo(
                OffsetToShow(RowWindow(), item.rcItem.top - m_rcContent.top, item.rcItem.bottom - m_rcContent.top));
        }
        return TRUE;
    }
    return FALSE;
}

void CTimeGridCtrl::SetFocusToItem()
{
    Alive alive(this);
    CCalendarCtrl::SetFocusToItem();
    if (alive && m_nCurSel != -1) {
        EnsureVisible(m_nCurSel);
    }
}

void CTimeGridCtrl::BeginEditItem(const char* lpszText)
{
    const CString text(lpszText); // the caller's may go with the edit that ends now
    if (!EndEdit() || !ServeWaitingScroll()) {
        return;
    }
    const int item = GetFocusedScreenItem();
    if (item != -1) {
        EnsureVisible(static_cast<int>(m_arScreenItem[item].nSource));
    } else if (IsDate(m_dtSelBegin) && IsDate(m_dtSelEnd) && !m_bFulldaySelection) {
        ScrollTo(OffsetToShow(RowWindow(), m_dtSelBegin, m_dtSelEnd));
    }
    CCalendarCtrl::BeginEditItem(text);
}

// ---- Keyboard

GridSelection CTimeGridCtrl::Selection() const
{
    if (IsDate(m_dtSelBegin) && IsDate(m_dtSelEnd)) {
        return GridSelection{m_dtCurrentDate, m_dtSelBegin, m_dtSelEnd}.Agreed();
    }
    const COleDateTime row = Scale().RowStart(m_dtCurrentDate);
    return GridSelection{m_dtCurrentDate, row, row};
}

void CTimeGridCtrl::SetSelection(const GridSelection& selection)
{
    m_dtCurrentDate = m_dtViewDate = selection.current;
    m_dtSelBegin = selection.begin;
    m_dtSelEnd = selection.end;
}

void CTimeGridCtrl::SelectionMoved()
{
    const int day = ClockTimeOf(m_dtCurrentDate).day;
    m_dtCurrentDate = m_dtViewDate = m_dtSelEnd;
    if (ClockTimeOf(m_dtCurrentDate).day != day) {
        CurrentDateMoved();
    }
}

void CTimeGridCtrl::MoveForward(UINT nFlags)
{
    MoveRow(FALSE, nFlags);
}

void CTimeGridCtrl::MoveBackward(UINT nFlags)
{
    MoveRow(TRUE, nFlags);
}

void CTimeGridCtrl::MoveRow(BOOL bLater, UINT nFlags)
{
    if (!EndEdit()) {
        return;
    }
    GridSelection selection = Selection();
    const bool extend = (nFlags & kExtendSelection) != 0;
    const AfterMove after =
        bLater ? MoveRowLater(selection, RowWindow(), extend) : MoveRowEarlier(selection, RowWindow(), extend);
    if (after == AfterMove::NOTHING) {
        return;
    }
    InvalidateCellRectRange();
    SetSelection(selection.Agreed());
    InvalidateCellRectRange();
    InvalidateGrid();
    // The step by a line is decided by hour and by minute apart, and misses a cursor that is further away.
    const GridWindow stepped = WindowAfter(after, RowWindow());
    if (after != AfterMove::REPAINT && OffsetToShow(stepped, m_dtSelEnd, m_dtSelEnd) == stepped.scroll) {
        PostMessage(WM_VSCROLL, after == AfterMove::SCROLL_UP ? SB_LINEUP : SB_LINEDOWN);
    } else {
        KeepCursorInSight();
    }
    CurrentDateMoved();
}

// A selection of whole days shows in the band, which is always in sight.
void CTimeGridCtrl::KeepCursorInSight()
{
    if (m_hWnd && !m_bFulldaySelection) {
        ScrollTo(OffsetToShow(RowWindow(), m_dtSelEnd, m_dtSelEnd));
    }
}

void CTimeGridCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    Alive alive(this);
    if (nChar == VK_HOME || nChar == VK_END) {
        ArrowKey(static_cast<void (CCalendarCtrl::*)(UINT)>(nChar == VK_HOME ? &CTimeGridCtrl::MoveToFirst
                                                                             : &CTimeGridCtrl::MoveToLast));
    }
    if (alive) {
        CCalendarCtrl::OnKeyDown(nChar, nRepCnt, nFlags);
    }
}

// With Ctrl over all days that are shown, else within the day.
void CTimeGridCtrl::MoveToFirst(UINT nFlags)
{
    MoveToEnd(FALSE, nFlags);
}

void CTimeGridCtrl::MoveToLast(UINT nFlags)
{
    MoveToEnd(TRUE, nFlags);
}

void CTimeGridCtrl::MoveToEnd(BOOL bLast, UINT nFlags)
{
    if (!EndEdit()) {
        return;
    }
    GridSelection selection = Selection();
    const DayRange range = ::GetKeyState(VK_CONTROL) < 0 ? GetShownRange() : DayRange::OneDay(selection.end);
    const COleDateTime target = bLast ? LastRow(range, Scale()) : range.first;
    if (!IsDate(target)) {
        return;
    }
    selection.current = selection.end = target;
    if ((nFlags & kExtendSelection) == 0) {
        selection.begin = target;
    }
    InvalidateCellRectRange();
    SetSelection(selection);
    InvalidateCellRectRange();
    InvalidateGrid();
    KeepCursorInSight();
    CurrentDateMoved();
}

int CTimeGridCtrl::GetFocusedScreenItem() const
{
    const int count = static_cast<int>(m_arScreenItem.GetSize());
    if (m_nSelScreenItem >= 0 && m_nSelScreenItem < count &&
        (m_nCurSel == -1 || m_arScreenItem[m_nSelScreenItem].nSource == m_nCurSel)) {
        return m_nSelScreenItem;
    }
    for (int i = 0; m_nCurSel != -1 && i < count; ++i) {
        if (m_arScreenItem[i].nSource == m_nCurSel) {
            return i;
        }
    }
    return -1;
}

void CTimeGridCtrl::GetCurCellRect(CRect& rect, int& nMode)
{
    const int item = GetFocusedScreenItem();
    nMode = item != -1;
    if (item != -1) {
        rect = VisibleItemBox(State(), m_arScreenItem[item]);
    } else {
        rect = (m_bFulldaySelection ? CurrentBandBox : CurrentCellBox)(State(), m_dtSelBegin, m_dtSelEnd);
    }
}

// ---- What needs repainting

void CTimeGridCtrl::InvalidateGrid()
{
    if (m_hWnd) {
        InvalidateRect(&m_rcContent, FALSE);
    }
}

void CTimeGridCtrl::InvalidateItemRect(int nIndex)
{
    if (!m_hWnd || nIndex < 0) {
        return;
    }
    const TimeGridState state = State();
    for (int i = 0; i < static_cast<int>(m_arScreenItem.GetSize()); ++i) {
        if (m_arScreenItem[i].nSource != nIndex) {
            continue;
        }
        CRect rect = VisibleItemBox(state, m_arScreenItem[i]);
        rect.InflateRect(kItemFocusMargin, kItemFocusMargin);
        InvalidateRect(&rect, FALSE);
    }
}

// The rows of the selection as it is, and as it was before its end moved.
void CTimeGridCtrl::InvalidateCellRectRange()
{
    if (!m_hWnd) {
        return;
    }
    const TimeGridState state = State();
    for (int column = 0; column < state.range.days; ++column) {
        for (const COleDateTime* end : {&m_dtSelEnd, &m_dtPrevSelEnd}) {
            if (!IsDate(*end)) {
                continue;
            }
            const CRect box = BoxOfRows(state, column, SelectedRows(state, column, m_dtSelBegin, *end));
            if (!box.IsRectEmpty()) {
                InvalidateRect(&box, FALSE);
            }
        }
    }
    if (m_bFulldaySelection) {
        InvalidateRect(&m_rcFulldayContent, FALSE);
    }
}

// ---- Now line

void CTimeGridCtrl::ShowNowLine(BOOL bShow)
{
    m_bNowLine = bShow;
    if (!m_hWnd) {
        return;
    }
    KillTimer(kNowTimer);
    StartNowTimer();
    InvalidateGrid();
}

// Until the minute that the clock shows is over.
void CTimeGridCtrl::StartNowTimer()
{
    if (m_bNowLine) {
        SetTimer(kNowTimer, (kSecondsPerMinute - std::max(Now().GetSecond(), 0)) * kMillisecondsPerSecond, nullptr);
    }
}

void CTimeGridCtrl::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent != kNowTimer) {
        CCalendarCtrl::OnTimer(nIDEvent);
        return;
    }
    InvalidateGrid();
    StartNowTimer();
}
