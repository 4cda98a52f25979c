// The base control's mouse: asks the view what lies under the pointer, hands it to the tracker, carries out what the
// tracker answers.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"

using namespace dayvane;

namespace {

constexpr DWORD kHoverMilliseconds = 1000;
constexpr UINT kDragCursor = 18006;
constexpr UINT_PTR kScrollTimer = 0x4441;
constexpr UINT kScrollMilliseconds =
    120; // between the steps of an auto-scroll; passing the edge quickly does not scroll

HCURSOR CursorOfEdge(ItemEdge edge)
{
    if (edge == EDGE_NONE) {
        return nullptr;
    }
    return ::LoadCursor(nullptr, edge == EDGE_BOTTOM ? IDC_SIZENS : IDC_SIZEWE);
}

HCURSOR DragCursor()
{
    static HCURSOR cursor = AfxGetApp() ? AfxGetApp()->LoadCursor(kDragCursor) : nullptr;
    return cursor ? cursor : ::LoadCursor(nullptr, IDC_SIZEALL);
}

} // namespace

tagCCHITTESTINFO CCalendarCtrl::HitAt(CPoint point)
{
    tagCCHITTESTINFO hit;
    hit.pt = point;
    HitTest(hit);
    return hit;
}

PointerHit CCalendarCtrl::PointerHitOf(const tagCCHITTESTINFO& hit)
{
    PointerHit pointer;
    pointer.point = hit.pt;
    pointer.code = hit.nHitCode;
    pointer.item = hit.nItem;
    pointer.time = FromSystemTime(hit.time);
    return pointer;
}

ItemEdge CCalendarCtrl::EdgeUnder(const tagCCHITTESTINFO& hit)
{
    if (!m_options.extendedMove || hit.nScreenItem < 0 || hit.nScreenItem >= m_arScreenItem.GetSize() ||
        IsItemMovable(hit.nItem) != 1) {
        return EDGE_NONE;
    }
    const tagCALENDAR_ITEM& item = m_arScreenItem[hit.nScreenItem];
    CRect box = item.rcItem;
    if (hit.nHitCode != CCHT_ONFULLDAYITEM) {
        box.OffsetRect(-m_nHorzScroll, -m_nVertScroll);
    }
    return EdgeAt(box, hit.pt, GetPullableEdges(item));
}

int CCalendarCtrl::GetPullableEdges(const tagCALENDAR_ITEM&)
{
    return EDGE_NONE;
}

int CCalendarCtrl::GetMoveStepMinutes()
{
    return 60 / m_nTimeScale;
}

void CCalendarCtrl::SelectionMoved()
{
}

void CCalendarCtrl::Apply(const PointerEffects& effects, UINT nFlags, const tagCCHITTESTINFO& hit)
{
    Alive alive(this);
    for (const PointerEffect& effect : effects) {
        switch (effect.kind) {
        case PointerEffect::SELECT_ITEM:
            SetCurSel(effect.item);
            break;
        case PointerEffect::CLEAR_ITEM:
            SetCurSel(-1);
            break;
        case PointerEffect::BEGIN_SELECTION:
            InvalidateCellRectRange();
            SetSelRange(effect.times.start, effect.times.end, effect.fullday);
            InvalidateCellRectRange();
            SelectionMoved();
            break;
        case PointerEffect::EXTEND_SELECTION:
            m_dtPrevSelEnd = m_dtSelEnd;
            m_dtSelEnd = effect.times.end;
            InvalidateCellRectRange();
            m_dtPrevSelEnd.SetStatus(COleDateTime::invalid);
            SelectionMoved();
            break;
        case PointerEffect::MARK_DATE:
            m_dtSelBegin = m_dtSelEnd = effect.times.start;
            SelectionMoved();
            break;
        case PointerEffect::TAKE_CAPTURE:
            SetCapture();
            break;
        case PointerEffect::RELEASE_CAPTURE:
            StopTracking();
            break;
        case PointerEffect::DRAG_CURSOR:
            ::SetCursor(m_pointer.Edge() == EDGE_NONE ? DragCursor() : CursorOfEdge(m_pointer.Edge()));
            break;
        case PointerEffect::ARROW_CURSOR:
            ::SetCursor(::LoadCursor(nullptr, IDC_ARROW));
            break;
        case PointerEffect::PUT_ITEM:
            PutItemTimes(effect.item, effect.times);
            break;
        case PointerEffect::PUT_BACK:
            if (HasTimes(effect.item, m_pointer.LastPut())) {
                PutItemTimes(effect.item, effect.times);
            }
            break;
        case PointerEffect::NOTIFY_MOVED:
            Notify(CCN_ITEMMOVED, m_nCurSel, nFlags, hit.pt, hit.time, hit.nHitCode);
            break;
        }
        if (!alive) {
            return;
        }
    }
}

// The tracker has forgotten its press, or is about to: the capture goes without being taken for a lost one.
void CCalendarCtrl::StopTracking()
{
    if (m_pointer.IsDragging()) {
        InvalidateCellRectRange(); // the time grids mark the rows under a dragged item
    }
    m_pointer.Released();
    KillTimer(kScrollTimer);
    m_bScrollTimer = FALSE;
    if (::GetCapture() == m_hWnd) {
        m_bReleasingCapture = TRUE;
        ReleaseCapture();
        m_bReleasingCapture = FALSE;
    }
}

BOOL CCalendarCtrl::HasTimes(int nIndex, const ItemTimes& times) const
{
    return nIndex >= 0 && nIndex < GetItemCount() && m_arItem[nIndex].dtStart == times.start &&
           m_arItem[nIndex].dtEnd == times.end && m_arItem[nIndex].nFullday == times.fullday;
}

void CCalendarCtrl::PutItemTimes(int nIndex, const ItemTimes& times)
{
    if (nIndex < 0 || nIndex >= GetItemCount()) {
        return;
    }
    tagCC_ITEM item;
    GetItem(nIndex, item);
    item.dtStart = times.start;
    item.dtEnd = times.end;
    item.nFullday = times.fullday;
    SetItem(nIndex, &item, FALSE, FALSE);
    Refresh();
    InvalidateCellRectRange();
}

void CCalendarCtrl::CancelTracking()
{
    if (!m_pointer.IsBusy()) {
        return;
    }
    FollowDraggedItem();
    Apply(m_pointer.Cancel(), 0, tagCCHITTESTINFO());
}

BOOL CCalendarCtrl::GetDragOrigin(COleDateTime& start, COleDateTime& end) const
{
    if (!m_pointer.IsDragging()) {
        return FALSE;
    }
    start = m_pointer.Origin().start;
    end = m_pointer.Origin().end;
    return TRUE;
}

// ---- Buttons

void CCalendarCtrl::OnLButtonDown(UINT nFlags, CPoint point)
{
    Alive alive(this);
    SetFocus(); // may end an edit, and so run the host's code
    if (!alive) {
        return;
    }
    const unsigned itemsBefore = m_nItemVersion;
    const unsigned cancelsBefore = m_nCancelCount;
    tagCCHITTESTINFO hit = HitAt(point);
    Notify(CCN_ITEMCLICK, hit.nItem, nFlags, point, hit.time, hit.nHitCode);
    if (!alive) {
        return;
    }
    if (m_nItemVersion != itemsBefore) {
        hit = HitAt(point); // the host has changed what lies there
    }
    if (hit.nHitCode == CCHT_NOWHERE) {
        Default();
        return;
    }
    PressedItem pressed;
    if (hit.nItem >= 0 && hit.nItem < GetItemCount()) {
        pressed.movable = IsItemMovable(hit.nItem) == 1;
        pressed.times = {m_arItem[hit.nItem].dtStart, m_arItem[hit.nItem].dtEnd, m_arItem[hit.nItem].nFullday};
        pressed.edge = EdgeUnder(hit);
    }
    Apply(m_pointer.Press(PointerHitOf(hit), pressed), nFlags, hit);
    if (alive && m_nCancelCount != cancelsBefore) {
        CancelTracking(); // a dialog of the host came in between: the button went up over it
    }
}

void CCalendarCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    Alive alive(this);
    const tagCCHITTESTINFO hit = HitAt(point);
    Apply(m_pointer.Sweep(PointerHitOf(hit)), nFlags, hit);
    if (m_bItemDrag) {
        if (m_options.extendedMove) {
            MoveItemEx(hit);
        } else {
            MoveItem(hit);
        }
    }
    if (!alive) {
        return;
    }
    WatchScrollEdge(point);
    if (m_bHoverEvents &&
        (hit.nHitCode == CCHT_ONITEM || hit.nHitCode == CCHT_ONDAYCAPTION || hit.nHitCode == CCHT_ONFULLDAYITEM)) {
        TRACKMOUSEEVENT track = {sizeof(track), TME_HOVER, m_hWnd, kHoverMilliseconds};
        ::TrackMouseEvent(&track);
    }
    CWnd::OnMouseMove(nFlags, point);
}

void CCalendarCtrl::MoveItem(tagCCHITTESTINFO hit)
{
    ItemTimes times;
    const bool there = GetDraggedTimes(times);
    Apply(m_pointer.Drag(PointerHitOf(hit), there ? &times : nullptr), 0, hit);
}

void CCalendarCtrl::MoveItemEx(tagCCHITTESTINFO hit)
{
    ItemTimes times;
    const bool there = GetDraggedTimes(times);
    Apply(m_pointer.DragExtended(PointerHitOf(hit), there ? &times : nullptr, GetMoveStepMinutes(),
                                 m_options.wholeDayByDrag),
          0, hit);
}

// Deleting or inserting items may have given the held item another index: the drag goes on with that item, as long as
// the host keeps it current, and never with another.
bool CCalendarCtrl::FollowDraggedItem()
{
    if (m_nCurSel != m_pointer.Item()) {
        if (!HasTimes(m_nCurSel, m_pointer.LastPut())) {
            return false;
        }
        m_pointer.FollowItem(m_nCurSel);
    }
    return true;
}

bool CCalendarCtrl::GetDraggedTimes(ItemTimes& times)
{
    if (m_nCurSel < 0 || m_nCurSel >= GetItemCount() || !FollowDraggedItem()) {
        return false;
    }
    times = {m_arItem[m_nCurSel].dtStart, m_arItem[m_nCurSel].dtEnd, m_arItem[m_nCurSel].nFullday};
    return true;
}

void CCalendarCtrl::OnLButtonUp(UINT nFlags, CPoint point)
{
    Alive alive(this);
    const tagCCHITTESTINFO hit = HitAt(point);
    Apply(m_pointer.Release(PointerHitOf(hit)), nFlags, hit);
    if (alive) {
        CWnd::OnLButtonUp(nFlags, point);
    }
}

void CCalendarCtrl::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    Alive alive(this);
    SetFocus();
    if (!alive) {
        return;
    }
    const tagCCHITTESTINFO hit = HitAt(point);
    Notify(CCN_ITEMDBLCLICK, hit.nItem, nFlags, point, hit.time, hit.nHitCode);
    if (alive) {
        CWnd::OnLButtonDblClk(nFlags, point);
    }
}

void CCalendarCtrl::OnRButtonDown(UINT nFlags, CPoint point)
{
    Alive alive(this);
    const tagCCHITTESTINFO hit = HitAt(point);
    Notify(CCN_ITEMRCLICK, hit.nItem, nFlags, point, hit.time, hit.nHitCode);
    if (alive) {
        CWnd::OnRButtonDown(nFlags, point);
    }
}

void CCalendarCtrl::OnContextMenu(CWnd*, CPoint point)
{
    tagCCHITTESTINFO hit;
    if (point == CPoint(-1, -1)) { // from the keyboard
        hit = KeyboardHit();
    } else {
        ScreenToClient(&point);
        hit = HitAt(point);
    }
    Notify(CCN_CONTEXTMENU, hit.nItem, 0, hit.pt, hit.time, hit.nHitCode);
}

// Where a menu from the keyboard belongs: the shown part of the current item, else the current cell.
tagCCHITTESTINFO CCalendarCtrl::KeyboardHit()
{
    CRect rect(0, 0, 0, 0);
    tagCCHITTESTINFO hit;
    for (int i = 0; m_nCurSel >= 0 && i < static_cast<int>(m_arScreenItem.GetSize()); ++i) {
        if (m_arScreenItem[i].nSource != m_nCurSel || m_arScreenItem[i].rcItem.top == -1) {
            continue;
        }
        rect = m_arScreenItem[i].rcItem;
        if (!IsFulldayItem(m_arScreenItem[i])) {
            rect.OffsetRect(-m_nHorzScroll, -m_nVertScroll);
        }
        hit.nItem = m_nCurSel;
        hit.nScreenItem = i;
        hit.nHitCode = CCHT_ONITEM;
        ToSystemTime(m_arItem[m_nCurSel].dtStart, hit.time);
        break;
    }
    if (hit.nItem == -1) {
        int mode = 0;
        GetCurCellRect(rect, mode);
        hit.nHitCode = CCHT_ONCELL;
        ToSystemTime(m_dtSelBegin, hit.time);
    }
    CRect client;
    GetClientRect(&client);
    CRect shown;
    hit.pt = shown.IntersectRect(&rect, &client) ? shown.CenterPoint() : client.CenterPoint();
    return hit;
}

void CCalendarCtrl::OnMouseHover(UINT nFlags, CPoint point)
{
    const tagCCHITTESTINFO hit = HitAt(point);
    Notify(CCN_MOUSEHOVER, hit.nItem, nFlags, point, hit.time, hit.nHitCode);
}

BOOL CCalendarCtrl::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
{
    if (m_pointer.IsDragging() || m_pointer.IsDragPending()) {
        return CWnd::OnSetCursor(pWnd, nHitTest, message);
    }
    if (nHitTest == HTCLIENT && m_options.extendedMove && pWnd == this) {
        CPoint point;
        ::GetCursorPos(&point);
        ScreenToClient(&point);
        if (HCURSOR cursor = CursorOfEdge(EdgeUnder(HitAt(point)))) {
            ::SetCursor(cursor);
            return TRUE;
        }
    }
    ::SetCursor(::LoadCursor(nullptr, IDC_ARROW));
    return CWnd::OnSetCursor(pWnd, nHitTest, message);
}

// ---- Capture and auto-scroll

void CCalendarCtrl::OnCaptureChanged(CWnd* pWnd)
{
    if (pWnd != this && !m_bReleasingCapture) {
        CancelTracking();
    }
}

void CCalendarCtrl::OnCancelMode()
{
    ++m_nCancelCount;
    CancelTracking();
    CWnd::OnCancelMode();
}

void CCalendarCtrl::WatchScrollEdge(CPoint point)
{
    const bool wanted = (m_pointer.IsSelecting() || m_pointer.IsDragging()) && ::GetCapture() == m_hWnd &&
                        AutoScrollAt(m_rcContent, point) != 0;
    if (wanted && !m_bScrollTimer) {
        SetTimer(kScrollTimer, kScrollMilliseconds, nullptr);
        m_bScrollTimer = TRUE;
    } else if (!wanted && m_bScrollTimer) {
        KillTimer(kScrollTimer);
        m_bScrollTimer = FALSE;
    }
}

void CCalendarCtrl::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent != kScrollTimer) {
        CWnd::OnTimer(nIDEvent);
        return;
    }
    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    const int step = AutoScrollAt(m_rcContent, point);
    Alive alive(this);
    if (step != 0) {
        SendMessage(WM_VSCROLL, step < 0 ? SB_LINEUP : SB_LINEDOWN);
        if (!alive) {
            return;
        }
        if (m_pointer.IsSelecting()) {
            m_dtSelBegin = m_pointer.SweepBegin(); // scrolling may have moved the selection along
        }
    }
    if (m_pointer.IsBusy()) {
        OnMouseMove(MK_LBUTTON, point);
    } else {
        WatchScrollEdge(point);
    }
}
