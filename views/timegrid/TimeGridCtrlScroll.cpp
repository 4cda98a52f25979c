// The time grids' size and scrolling.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/WindowHelpers.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridMoves.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr int kNewBarMaximum = 100; // the system's range of a standard scroll bar

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
} // namespace

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
    const WindowAlive alive(this, m_life);
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
    const WindowAlive alive(this, m_life);
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

// A box as if the grid were scrolled to the top; the band does not scroll.
void CTimeGridCtrl::ShowInGrid(const CRect& box, bool inBand)
{
    if (!inBand) {
        ScrollTo(OffsetToShow(RowWindow(), box.top - m_rcContent.top, box.bottom - m_rcContent.top));
    }
}

BOOL CTimeGridCtrl::EnsureVisible(int nIndex)
{
    if (!EndEdit() || !ServeWaitingScroll()) {
        return FALSE;
    }
    if (const MoreMark* mark = FindMarkOf(nIndex)) {
        ShowInGrid(mark->box, mark->inBand);
        return TRUE;
    }
    for (INT_PTR i = 0; i < m_arScreenItem.GetSize(); ++i) {
        const tagCALENDAR_ITEM& item = m_arScreenItem[i];
        if (item.nSource == nIndex && item.rcItem.top != -1) {
            ShowInGrid(item.rcItem, IsBandItem(item));
            return TRUE;
        }
    }
    return FALSE;
}

void CTimeGridCtrl::SetFocusToItem()
{
    const WindowAlive alive(this, m_life);
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
    } else if (IsBound(m_dtSelBegin) && IsBound(m_dtSelEnd) && !m_bFulldaySelection) {
        ScrollTo(OffsetToShow(RowWindow(), m_dtSelBegin, m_dtSelEnd));
    }
    CCalendarCtrl::BeginEditItem(text);
}
