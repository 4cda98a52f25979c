// The base control's mouse, focus and capture: asks the view what lies under the pointer and passes it to the pointer
// driver, whose requests come back through Pointing.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/Interaction.h"
#include "core/PointerDriver.h"
#include "core/WindowHelpers.h"

using namespace dayvane;

namespace {

constexpr DWORD kHoverMilliseconds = 1000;
constexpr UINT kDragCursor = 18006;
constexpr int kDragCursorSizes[] = {32, 48, 64, 96}; // pixels; the first one at 96 dpi
constexpr int kDragCursorCount = sizeof(kDragCursorSizes) / sizeof(kDragCursorSizes[0]);
constexpr UINT_PTR kScrollTimer = 0x4441;

HCURSOR CursorOfEdge(ItemEdge edge)
{
    if (edge == EDGE_NONE) {
        return nullptr;
    }
    return ::LoadCursor(nullptr, edge == EDGE_BOTTOM ? IDC_SIZENS : IDC_SIZEWE);
}

// The largest of the pictures that is not larger than the scale asks for: none of them is stretched.
HCURSOR DragCursor(const ViewScale& scale)
{
    const LPCTSTR name = MAKEINTRESOURCE(kDragCursor);
    // The library's own, whether or not the host has an application object.
    const HINSTANCE module = AfxFindResourceHandle(name, RT_GROUP_CURSOR);
    static HCURSOR made[kDragCursorCount] = {}; // each is loaded once
    int index = 0;
    while (index + 1 < kDragCursorCount && kDragCursorSizes[index + 1] <= scale.Of(kDragCursorSizes[0])) {
        ++index;
    }
    if (!made[index]) {
        const int size = kDragCursorSizes[index];
        made[index] = static_cast<HCURSOR>(::LoadImage(module, name, IMAGE_CURSOR, size, size, LR_DEFAULTCOLOR));
    }
    return made[index] ? made[index] : ::LoadCursor(nullptr, IDC_SIZEALL);
}

} // namespace

tagCCHITTESTINFO CCalendarCtrl::HitAt(CPoint point)
{
    tagCCHITTESTINFO hit;
    hit.pt = point;
    HitTest(hit);
    return hit;
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
    return EdgeAt(box, hit.pt, GetPullableEdges(item), m_scale);
}

int CCalendarCtrl::GetMoveStepMinutes()
{
    return kMinutesPerHour / m_nTimeScale;
}

// ---- What the pointer does

// The control as the pointer driver sees it while one event is handled.
class CCalendarCtrl::Pointing : public PointerTarget
{
public:
    explicit Pointing(CCalendarCtrl* pCtrl, const tagCCHITTESTINFO& hit = {}, UINT nFlags = 0)
        : m_pCtrl(pCtrl), m_alive(pCtrl, pCtrl->m_life), m_hit(hit), m_nFlags(nFlags)
    {
    }

    PointerHit Hit() const { return {m_hit.pt, m_hit.nHitCode, m_hit.nItem, FromSystemTime(m_hit.time)}; }

    bool IsAlive() const override { return static_cast<bool>(m_alive); }
    int CurrentItem() const override { return m_pCtrl->m_nCurSel; }
    bool GetItemTimes(int item, ItemTimes& times) const override
    {
        if (item < 0 || item >= m_pCtrl->GetItemCount()) {
            return false;
        }
        const tagCALENDAR_ITEM& stored = m_pCtrl->m_arItem[item];
        times = {stored.dtStart, stored.dtEnd, stored.nFullday};
        return true;
    }
    void PutItemTimes(int item, const ItemTimes& times) override
    {
        if (item < 0 || item >= m_pCtrl->GetItemCount()) {
            return;
        }
        tagCC_ITEM record;
        m_pCtrl->GetItem(item, record);
        record.dtStart = times.start;
        record.dtEnd = times.end;
        record.nFullday = times.fullday;
        m_pCtrl->SetItem(item, &record, FALSE, FALSE);
        m_pCtrl->RefreshChanged();
        m_pCtrl->InvalidateCellRectRange();
    }
    void SelectItem(int item) override { m_pCtrl->SetCurSel(item); }
    void BeginSelection(const ItemTimes& times, bool fullday) override
    {
        m_pCtrl->InvalidateCellRectRange();
        m_pCtrl->SetSelRange(times.start, times.end, fullday);
        m_pCtrl->InvalidateCellRectRange();
        m_pCtrl->SelectionMoved();
    }
    void ExtendSelection(const COleDateTime& end) override
    {
        m_pCtrl->m_dtPrevSelEnd = m_pCtrl->m_dtSelEnd;
        m_pCtrl->m_dtSelEnd = end;
        m_pCtrl->InvalidateCellRectRange();
        m_pCtrl->m_dtPrevSelEnd.SetStatus(COleDateTime::invalid);
        m_pCtrl->SelectionMoved();
    }
    void MarkDate(const COleDateTime& date) override
    {
        if (m_pCtrl->UpdatesByParts()) {
            m_pCtrl->InvalidateCellRectRange(); // what the mark leaves
        }
        m_pCtrl->m_dtSelBegin = m_pCtrl->m_dtSelEnd = date;
        m_pCtrl->SelectionMoved();
    }
    void RepaintSelection() override { m_pCtrl->InvalidateCellRectRange(); }
    void RestoreSelection() override { m_pCtrl->RestoreSelection(); }
    void NotifyMoved() override
    {
        m_pCtrl->Notify(CCN_ITEMMOVED, m_pCtrl->m_nCurSel, m_nFlags, m_hit.pt, m_hit.time, m_hit.nHitCode);
    }
    void ShowDragCursor(ItemEdge edge) override
    {
        ::SetCursor(edge == EDGE_NONE ? DragCursor(m_pCtrl->m_scale) : CursorOfEdge(edge));
    }
    void ShowArrowCursor() override { ::SetCursor(::LoadCursor(nullptr, IDC_ARROW)); }
    void TakeCapture() override { m_pCtrl->SetCapture(); }
    void ReleaseCapture() override
    {
        m_pCtrl->ItemsWanted(); // an answer may have waited for the end
        if (::GetCapture() == m_pCtrl->m_hWnd) {
            ::ReleaseCapture();
        }
    }
    void RunScrollTimer(int milliseconds) override
    {
        if (milliseconds != 0) {
            m_pCtrl->SetTimer(kScrollTimer, milliseconds, nullptr);
        } else {
            m_pCtrl->KillTimer(kScrollTimer);
        }
    }

private:
    CCalendarCtrl* m_pCtrl;
    WindowAlive m_alive;
    tagCCHITTESTINFO m_hit;
    UINT m_nFlags;
};

void CCalendarCtrl::Press(const tagCCHITTESTINFO& hit, UINT nFlags)
{
    PressedItem pressed;
    m_interaction->beforePress = Selected();
    Pointing target(this, hit, nFlags);
    if (target.GetItemTimes(hit.nItem, pressed.times)) {
        pressed.movable = IsItemMovable(hit.nItem) == 1;
        pressed.edge = EdgeUnder(hit);
    }
    m_pointer->Press(target, target.Hit(), pressed);
}

void CCalendarCtrl::MoveItem(tagCCHITTESTINFO hit)
{
    Pointing target(this, hit);
    m_pointer->Drag(target, target.Hit());
}

void CCalendarCtrl::MoveItemEx(tagCCHITTESTINFO hit)
{
    Pointing target(this, hit);
    m_pointer->DragExtended(target, target.Hit(), GetMoveStepMinutes(), m_options.wholeDayByDrag);
}

void CCalendarCtrl::CancelTracking()
{
    Pointing target(this);
    m_pointer->Cancel(target);
}

void CCalendarCtrl::LiftCurrentItem()
{
    m_interaction->beforePress = m_interaction->afterPress = Selected();
    m_pointer->Lift(Pointing(this));
}

void CCalendarCtrl::CarryItem(const ItemTimes& times, const COleDateTime& mark)
{
    Pointing target(this);
    m_pointer->Carry(target, times, mark);
}

// An item that no key has moved is where it was: that is no drop.
void CCalendarCtrl::DropCarriedItem()
{
    if (!IsCarrying() || m_pointer->Tracker().IsDropping()) {
        return;
    }
    const ItemTimes& origin = m_pointer->Tracker().Origin();
    const ItemTimes& put = m_pointer->Tracker().LastPut();
    if (origin.start == put.start && origin.end == put.end) {
        CancelTracking();
    } else {
        ReleaseAt(KeyboardHit());
    }
}

void CCalendarCtrl::ReleaseAt(const tagCCHITTESTINFO& hit)
{
    Pointing target(this, hit);
    m_pointer->Sweep(target, target.Hit());
    if (target.IsAlive()) {
        m_pointer->Release(target, target.Hit());
    }
}

BOOL CCalendarCtrl::IsDragging() const
{
    return m_pointer->Tracker().IsDragging();
}

BOOL CCalendarCtrl::GetDragOrigin(COleDateTime& start, COleDateTime& end) const
{
    if (!IsDragging()) {
        return FALSE;
    }
    start = m_pointer->Tracker().Origin().start;
    end = m_pointer->Tracker().Origin().end;
    return TRUE;
}

// ---- Buttons

void CCalendarCtrl::OnLButtonDown(UINT nFlags, CPoint point)
{
    const WindowAlive alive(this, m_life);
    DropCarriedItem();
    if (!alive) {
        return;
    }
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
    Press(hit, nFlags);
    if (alive && m_nCancelCount != cancelsBefore) {
        CancelTracking(); // a dialog of the host came in between: the button went up over it
    }
}

void CCalendarCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    const WindowAlive alive(this, m_life);
    const tagCCHITTESTINFO hit = HitAt(point);
    Pointing target(this, hit, nFlags);
    m_pointer->Sweep(target, target.Hit());
    if (alive && m_bItemDrag) {
        if (m_options.extendedMove) {
            MoveItemEx(hit);
        } else {
            MoveItem(hit);
        }
    }
    if (!alive) {
        return;
    }
    m_pointer->WatchScrollEdge(target, ::GetCapture() == m_hWnd, m_rcContent, point);
    ShowTip(hit);
    if (m_bHoverEvents &&
        (hit.nHitCode == CCHT_ONITEM || hit.nHitCode == CCHT_ONDAYCAPTION || hit.nHitCode == CCHT_ONFULLDAYITEM)) {
        TRACKMOUSEEVENT track = {sizeof(track), TME_HOVER, m_hWnd, kHoverMilliseconds};
        ::TrackMouseEvent(&track);
    }
    CWnd::OnMouseMove(nFlags, point);
}

Drop CCalendarCtrl::DropAt(CPoint point) const
{
    const CRect client = ClientRectOf(*this);
    return !m_options.carefulDrops ? Drop::REPORT : client.PtInRect(point) ? Drop::REPORT_CHANGE : Drop::TAKE_BACK;
}

void CCalendarCtrl::OnLButtonUp(UINT nFlags, CPoint point)
{
    const WindowAlive alive(this, m_life);
    const tagCCHITTESTINFO hit = HitAt(point);
    Pointing target(this, hit, nFlags);
    m_pointer->Release(target, target.Hit(), DropAt(point));
    if (alive) {
        CWnd::OnLButtonUp(nFlags, point);
    }
}

void CCalendarCtrl::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    const WindowAlive alive(this, m_life);
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
    const WindowAlive alive(this, m_life);
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

// The screen list's position of the item's first piece that has a place, -1 none.
int CCalendarCtrl::PlacedPieceOf(int nItem) const
{
    for (int i = 0; nItem >= 0 && i < static_cast<int>(m_arScreenItem.GetSize()); ++i) {
        if (m_arScreenItem[i].nSource == nItem && m_arScreenItem[i].rcItem.top != -1) {
            return i;
        }
    }
    return -1;
}

CRect CCalendarCtrl::GetFocusBox()
{
    CRect rect(0, 0, 0, 0);
    const int piece = PlacedPieceOf(m_nCurSel);
    if (piece == -1) {
        int mode = 0;
        GetCurCellRect(rect, mode);
        return rect;
    }
    rect = m_arScreenItem[piece].rcItem;
    if (!IsFulldayItem(m_arScreenItem[piece])) {
        rect.OffsetRect(-m_nHorzScroll, -m_nVertScroll);
    }
    return rect;
}

// Where a menu from the keyboard belongs: the shown part of the current item, else the current cell.
tagCCHITTESTINFO CCalendarCtrl::KeyboardHit()
{
    tagCCHITTESTINFO hit;
    hit.nScreenItem = PlacedPieceOf(m_nCurSel);
    if (hit.nScreenItem != -1) {
        hit.nItem = m_nCurSel;
        hit.nHitCode = CCHT_ONITEM;
        ToSystemTime(m_arItem[m_nCurSel].dtStart, hit.time);
    } else {
        hit.nHitCode = CCHT_ONCELL;
        ToSystemTime(m_dtSelBegin, hit.time);
    }
    const CRect rect = GetFocusBox();
    const CRect client = ClientRectOf(*this);
    CRect shown;
    hit.pt = shown.IntersectRect(&rect, &client) ? shown.CenterPoint() : client.CenterPoint();
    return hit;
}

void CCalendarCtrl::OnMouseHover(UINT nFlags, CPoint point)
{
    const tagCCHITTESTINFO hit = HitAt(point);
    Notify(CCN_MOUSEHOVER, hit.nItem, nFlags, point, hit.time, hit.nHitCode);
}

BOOL CCalendarCtrl::OnMouseWheel(UINT nFlags, short zDelta, CPoint)
{
    if (!m_options.wheelByDelta) {
        PostMessage(WM_VSCROLL, zDelta / WHEEL_DELTA < 1 ? SB_LINEDOWN : SB_LINEUP);
    } else if (!(nFlags & MK_CONTROL)) { // that is for views with a scale
        PostScroll(-m_interaction->wheel.Add(zDelta, WHEEL_DELTA), SB_LINEUP, SB_LINEDOWN);
    }
    return TRUE;
}

LRESULT CCalendarCtrl::OnMouseHWheel(WPARAM wParam, LPARAM)
{
    if (!m_options.wheelByDelta) {
        return Default();
    }
    PostScroll(m_interaction->pageWheel.Add(static_cast<short>(HIWORD(wParam)), WHEEL_DELTA), SB_PAGEUP, SB_PAGEDOWN);
    return 0;
}

void CCalendarCtrl::PostScroll(int nSteps, UINT nBack, UINT nOn)
{
    for (int i = 0; i < std::abs(nSteps); ++i) {
        PostMessage(WM_VSCROLL, nSteps < 0 ? nBack : nOn);
    }
}

BOOL CCalendarCtrl::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
{
    if (IsDragging() || m_pointer->Tracker().IsDragPending()) {
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

// ---- Focus, capture and auto-scroll

void CCalendarCtrl::OnSetFocus(CWnd* pOldWnd)
{
    CWnd::OnSetFocus(pOldWnd);
    m_bHasFocus = TRUE;
    InvalidateClient();
}

void CCalendarCtrl::OnKillFocus(CWnd* pNewWnd)
{
    CWnd::OnKillFocus(pNewWnd);
    if (!pNewWnd || !::IsChild(m_hWnd, pNewWnd->GetSafeHwnd())) {
        m_bHasFocus = FALSE;
        if (!IsCarrying()) {  // what keys carry drops by itself after a while
            CancelTracking(); // the button may go up over a window that is in front now, and Escape goes there
        }
    }
    InvalidateClient();
}

void CCalendarCtrl::OnCaptureChanged(CWnd* pWnd)
{
    if (pWnd != this) {
        Pointing target(this);
        m_pointer->CaptureLost(target);
    }
}

void CCalendarCtrl::OnCancelMode()
{
    ++m_nCancelCount;
    CancelTracking();
    CWnd::OnCancelMode();
}

void CCalendarCtrl::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kCarryTimer) {
        KillTimer(kCarryTimer);
        return DropCarriedItem();
    }
    if (nIDEvent == kBufferTimer) {
        if (!m_interaction->buffer.FreeUnused()) {
            KillTimer(kBufferTimer);
            ForgetDrawn(); // by the next paint the system may draw texts in another way
        }
        return;
    }
    if (nIDEvent != kScrollTimer) {
        return CWnd::OnTimer(nIDEvent);
    }
    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    const int step = ScrollPlaceAt(m_rcContent, point, m_scale).step;
    const WindowAlive alive(this, m_life);
    Pointing target(this);
    m_pointer->ScrollStepDone(target, m_nAutoScrollInterval);
    if (step != 0) {
        SendMessage(WM_VSCROLL, step < 0 ? SB_LINEUP : SB_LINEDOWN);
        if (!alive) {
            return;
        }
        if (m_pointer->Tracker().IsSelecting()) {
            InvalidateCellRectRange();
            m_dtSelBegin = m_pointer->Tracker().SweepBegin(); // scrolling may have moved the selection along
            InvalidateCellRectRange();
        }
    }
    if (m_pointer->Tracker().IsBusy()) {
        OnMouseMove(MK_LBUTTON, point);
    } else {
        m_pointer->WatchScrollEdge(target, false, m_rcContent, point);
    }
}
