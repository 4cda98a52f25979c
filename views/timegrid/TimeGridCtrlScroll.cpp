// The time grids' size and scrolling, and their wheel. Option wheelByDelta: rows, with Ctrl the time scale, sideways
// whole views.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/ClipArea.h"
#include "core/DateMath.h"
#include "core/Interaction.h"
#include "core/PaintedState.h"
#include "core/WindowHelpers.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridMoves.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr int kNewBarMaximum = 100; // the system's range of a standard scroll bar
constexpr int kCutMargin = 8;       // pixels around a box: inset of its text, and a frame

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

// Rows that a notch of the wheel scrolls, by the user's setting.
int RowsOfNotch(const GridWindow& window)
{
    UINT lines = 0;
    if (!::SystemParametersInfo(SPI_GETWHEELSCROLLLINES, 0, &lines, 0)) {
        lines = 1;
    }
    const int page = std::max(window.height / window.scale.metrics.rowHeight - 1, 1);
    return lines == WHEEL_PAGESCROLL ? page : std::min(static_cast<int>(lines), page);
}
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
        SetScroll({std::min(scroll.offset, maximum * Scale().metrics.rowHeight), std::min(scroll.position, maximum),
                   maximum});
    }
}

void CTimeGridCtrl::OnSize(UINT nType, int cx, int cy)
{
    if (!EndEdit()) {
        return;
    }
    CCalendarCtrl::OnSize(nType, cx, cy);
    SizeTo(cx, cy);
    InvalidateClient();
}

void CTimeGridCtrl::SizeTo(int cx, int cy)
{
    {
        const SetFlag sizing(m_bSizing);
        Layout(cx, cy);
    }
    SetScroll(ScaledTo(GetScroll(), RowWindow()));
}

void CTimeGridCtrl::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    if (nSBCode > SB_ENDSCROLL || !EndEdit()) {
        return;
    }
    const WindowAlive alive(this, m_life);
    const GridScroll scroll = Scrolled(GetScroll(), static_cast<int>(nSBCode), static_cast<int>(nPos), RowWindow());
    const int oldOffset = m_nVertScroll;
    m_nVertScroll = scroll.offset;
    RepaintScrolled(oldOffset);
    // Of several steps that wait, only the last needs a picture. Looking for them takes longer than asking for any.
    MSG next;
    if (!(HIWORD(::GetQueueStatus(QS_POSTMESSAGE)) & QS_POSTMESSAGE) ||
        !::PeekMessage(&next, m_hWnd, WM_VSCROLL, WM_VSCROLL, PM_NOREMOVE | PM_QS_POSTMESSAGE)) {
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

// The steps of SyncToPresent wait in the queue: a call that scrolls to a place runs after them. False when the host has
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
        const int oldOffset = m_nVertScroll;
        SetScroll(ScrolledTo(GetScroll(), nOffset, RowWindow()));
        if (UpdatesByParts()) {
            RepaintScrolled(oldOffset);
        } else {
            InvalidateClient();
        }
    }
}

// The grid has moved from that offset to the present one: what stays in sight moves along, the rest is painted.
void CTimeGridCtrl::RepaintScrolled(int nOldOffset)
{
    if (!m_hWnd) {
        return;
    }
    CRect scrolled;
    scrolled.UnionRect(&m_rcRuler, &m_rcContent);
    if (!UpdatesByParts() || IsLoadingItems() || !RowsFillGrid(nOldOffset) || !RowsFillGrid(m_nVertScroll)) {
        InvalidateRect(&scrolled, TRUE);
        return;
    }
    const int moved = nOldOffset - m_nVertScroll;
    if (moved != 0) {
        ScrollWindowEx(0, moved, &scrolled, &scrolled, nullptr, nullptr, SW_INVALIDATE);
        RepaintCutBoxes(nOldOffset);
    }
}

// Below the last row the grid shows its frame, which does not scroll.
bool CTimeGridCtrl::RowsFillGrid(int nOffset) const
{
    return nOffset >= 0 && Scale().DayHeight() - nOffset >= m_rcContent.Height();
}

// The text and the marks of a box that reaches over the grid's upper edge keep in sight, and so does the count of a
// mark that is cut at an edge, and the focus frame ends at the edges: these do not move with their boxes.
void CTimeGridCtrl::RepaintCutBoxes(int nOldOffset)
{
    const TimeGridState state = State();
    const CRect& grid = m_rcContent;
    const auto isCutAt = [&](const CRect& box, int edge) {
        return (box.top - nOldOffset < edge && box.bottom - nOldOffset > edge) ||
               (box.top - m_nVertScroll < edge && box.bottom - m_nVertScroll > edge);
    };
    const CRect& focus = m_interaction->paintedFocus;
    std::vector<CRect> parts = {focus, focus + CPoint(0, nOldOffset - m_nVertScroll)};
    for (INT_PTR i = 0; i < m_arScreenItem.GetSize(); ++i) {
        CRect box = m_arScreenItem[i].rcItem;
        box.NormalizeRect();
        box.InflateRect(m_scale.Of(kCutMargin), m_scale.Of(kCutMargin));
        if (isCutAt(box, grid.top) && !IsBandItem(m_arScreenItem[i]) && HasPlaceForText(m_arScreenItem[i])) {
            parts.push_back(GetPaintedBox(m_arScreenItem[i]));
        }
    }
    for (const MoreMark& mark : m_pParts->more) {
        if (!mark.inBand && (isCutAt(mark.box, grid.top) || isCutAt(mark.box, grid.bottom))) {
            parts.push_back(VisibleMarkBox(state, mark));
        }
    }
    CRgn region; // each call asks the system once
    if (MakeRegion(JoinParts(parts, ClientRectOf(*this)), region)) {
        InvalidateRgn(&region, FALSE);
    } else {
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

// ---- Wheel

BOOL CTimeGridCtrl::OnMouseWheel(UINT nFlags, short zDelta, CPoint point)
{
    if (!m_options.wheelByDelta) {
        return CMoreListCtrl::OnMouseWheel(nFlags, zDelta, point);
    }
    if (nFlags & MK_CONTROL) {
        ScreenToClient(&point);
        if (const int steps = m_interaction->scaleWheel.Add(zDelta, WHEEL_DELTA)) {
            ChangeScale(steps, point.y);
        }
        return TRUE;
    }
    const int rowsOfNotch = RowsOfNotch(RowWindow());
    const int rows = rowsOfNotch > 0 ? m_interaction->wheel.Add(zDelta * rowsOfNotch, WHEEL_DELTA) : 0;
    if (rows != 0) {
        SetVertScrollOffset(m_nVertScroll - rows * Scale().metrics.rowHeight);
    }
    return TRUE;
}

LRESULT CTimeGridCtrl::OnMouseHWheel(WPARAM wParam, LPARAM lParam)
{
    if (!m_options.wheelByDelta) {
        return CMoreListCtrl::OnMouseHWheel(wParam, lParam);
    }
    if (const int pages = m_interaction->pageWheel.Add(static_cast<short>(HIWORD(wParam)), WHEEL_DELTA)) {
        TurnPages(pages);
    }
    return 0;
}

// The time at that height stays there.
void CTimeGridCtrl::ChangeScale(int nSteps, int y)
{
    const int scale = ScaleBeside(m_nTimeScale, nSteps);
    if (scale == m_nTimeScale || !EndEdit()) {
        return;
    }
    const int fromTop = std::min(std::max(y - static_cast<int>(m_rcContent.top), 0), m_rcContent.Height());
    const int place = MulDiv(m_nVertScroll + fromTop, scale, m_nTimeScale);
    SetTimeScale(scale);
    Refresh();
    SetVertScrollOffset(place - fromTop);
}

void CTimeGridCtrl::TurnPages(int nPages)
{
    const DayRange range = GetShownRange();
    const int days = range.keepsToWeeks ? std::max(range.days, kDaysPerWeek) : range.days;
    const COleDateTime date = AddDays(m_dtCurrentDate, nPages * days);
    if (!IsValid(date) || !EndEdit()) {
        return;
    }
    SetCurrentDate(date);
    Rebuild();
    const DayRange shown = GetShownRange();
    Notify(CCN_VIEWRANGECHANGE, m_dtCurrentDate, shown.first, shown.LastMoment(), kRangeChangeValue);
}
