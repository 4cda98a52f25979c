// The base control's mouse: press, sweep, drag, release, hover, context menu.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"

namespace
{
constexpr DWORD kHoverMilliseconds = 1000;
constexpr int kDragSlop = 5; // pixels in each direction before a press becomes a drag
constexpr UINT kDragCursor = 18006;
} // namespace

void CCalendarCtrl::OnLButtonDown(UINT nFlags, CPoint point)
{
    Alive alive(this);
    tagCCHITTESTINFO hit;
    hit.pt = point;
    HitTest(hit);
    Notify(CCN_ITEMCLICK, hit.nItem, nFlags, point, hit.time, hit.nHitCode);
    if (!alive)
        return;
    if (hit.nHitCode == CCHT_ONITEM || hit.nHitCode == CCHT_ONFULLDAYITEM) {
        SetCurSel(hit.nItem);
        m_bDateSelecting = FALSE;
        m_bDragging = FALSE;
        if (IsItemMovable(hit.nItem) == 1) {
            m_bDragPending = TRUE;
            m_ptPress = point;
        }
        SetCapture();
    } else if (hit.nHitCode != CCHT_NOWHERE) {
        SetSelRange(dayvane::FromSystemTime(hit.time), dayvane::FromSystemTime(hit.time),
                    hit.nHitCode == CCHT_ONFULLDAY);
        m_bDateSelecting = TRUE;
        m_bDragging = FALSE;
        SetCurSel(-1);
    }
}

void CCalendarCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    tagCCHITTESTINFO hit;
    hit.pt = point;
    HitTest(hit);
    if (m_bDateSelecting && hit.nHitCode != CCHT_NOWHERE) {
        m_dtPrevSelEnd = m_dtSelEnd;
        m_dtSelEnd = dayvane::FromSystemTime(hit.time);
        InvalidateCellRectRange();
    }
    if (m_bItemDrag) {
        if (m_bExtendedMove)
            MoveItemEx(hit);
        else
            MoveItem(hit);
    }
    if (m_bHoverEvents && (hit.nHitCode == CCHT_ONITEM || hit.nHitCode == CCHT_ONDAYCAPTION ||
                           hit.nHitCode == CCHT_ONFULLDAYITEM)) {
        TRACKMOUSEEVENT track = {sizeof(track), TME_HOVER, m_hWnd, kHoverMilliseconds};
        ::TrackMouseEvent(&track);
    }
    CWnd::OnMouseMove(nFlags, point);
}

void CCalendarCtrl::OnMouseHover(UINT nFlags, CPoint point)
{
    tagCCHITTESTINFO hit;
    hit.pt = point;
    HitTest(hit);
    Notify(CCN_MOUSEHOVER, hit.nItem, nFlags, point, hit.time, hit.nHitCode);
}

void CCalendarCtrl::OnRButtonDown(UINT nFlags, CPoint point)
{
    Alive alive(this);
    tagCCHITTESTINFO hit;
    hit.pt = point;
    HitTest(hit);
    Notify(CCN_ITEMRCLICK, hit.nItem, nFlags, point, hit.time, hit.nHitCode);
    if (alive)
        CWnd::OnRButtonDown(nFlags, point);
}

BOOL CCalendarCtrl::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
{
    if (m_bDragging || m_bDragPending)
        return TRUE;
    return CWnd::OnSetCursor(pWnd, nHitTest, message);
}
