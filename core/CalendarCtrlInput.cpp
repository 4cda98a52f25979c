// The base control's keyboard.
#include "core/CalendarCtrl.h"

#include "core/Interaction.h"
#include "core/PointerDriver.h"

using namespace dayvane;

void CCalendarCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const WindowAlive alive(this, m_life);
    switch (nChar) {
    case VK_ESCAPE:
        CancelTracking();
        break;
    case VK_TAB:
        m_interaction->tabsBack = (m_options.dialogKeys || m_options.keyboardMoves) && ::GetKeyState(VK_SHIFT) < 0;
        SetFocusToItem();
        break;
    case VK_RETURN:
        NotifyItemByKey(CCN_ITEMDBLCLICK, m_nCurSel, nFlags);
        break;
    case VK_SPACE:
    case VK_PROCESSKEY:
        NotifyItemByKey(m_nCurSel == -1 ? CCN_ITEMCLICK : CCN_ITEMDBLCLICK, m_nCurSel, nFlags);
        break;
    case VK_PRIOR:
    case VK_NEXT:
        PostMessage(WM_VSCROLL, nChar == VK_PRIOR ? SB_PAGEUP : SB_PAGEDOWN);
        break;
    case VK_LEFT:
    case VK_RIGHT:
        ArrowKey(nChar == VK_LEFT ? &CCalendarCtrl::MoveLeftward : &CCalendarCtrl::MoveRightward);
        break;
    case VK_UP:
    case VK_DOWN:
        ArrowKey(nChar == VK_UP ? &CCalendarCtrl::MoveForward : &CCalendarCtrl::MoveBackward);
        break;
    }
    if (alive) {
        CWnd::OnKeyDown(nChar, nRepCnt, nFlags);
    }
}

void CCalendarCtrl::ArrowKey(void (CCalendarCtrl::*move)(UINT))
{
    const WindowAlive alive(this, m_life);
    if (m_nCurSel > 0 || m_options.keyboardMoves) { // the first item stays, unless keys act on it
        SetCurSel(-1);
    }
    if (::GetKeyState(VK_SHIFT) < 0) {
        InvalidateCellRect(m_dtSelEnd);
        (this->*move)(kExtendSelection);
        if (!alive) {
            return;
        }
        InvalidateCellRect(m_dtSelEnd);
        m_bShiftExtend = TRUE;
        m_pointer->ForgetPendingDrag();
        SetCurSel(-1);
    } else {
        m_bShiftExtend = FALSE;
        (this->*move)(0);
    }
}

void CCalendarCtrl::OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (nChar >= VK_LEFT && nChar <= VK_DOWN && m_bShiftExtend && ::GetKeyState(VK_SHIFT) < 0) {
        m_dtSelAnchor = m_dtSelEnd;
        m_bShiftExtend = FALSE;
        InvalidateCellRectRange();
    }
    CWnd::OnKeyUp(nChar, nRepCnt, nFlags);
}

UINT CCalendarCtrl::OnGetDlgCode()
{
    if (!m_options.dialogKeys) {
        return DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS | DLGC_WANTALLKEYS;
    }
    // What has no effect here is the dialog's.
    const MSG* pMsg = reinterpret_cast<const MSG*>(GetCurrentMessage()->lParam);
    const WPARAM key = pMsg && pMsg->message == WM_KEYDOWN ? pMsg->wParam : 0;
    const BOOL wants = key == VK_RETURN || (key == VK_TAB && HasFocusItemBeyond(::GetKeyState(VK_SHIFT) < 0)) ||
                       (key == VK_ESCAPE && m_pointer->Tracker().IsBusy());
    return DLGC_WANTARROWS | DLGC_WANTCHARS | (wants ? DLGC_WANTMESSAGE : 0);
}

void CCalendarCtrl::MoveBackward(UINT)
{
    PostMessage(WM_VSCROLL, SB_LINEDOWN);
}

void CCalendarCtrl::MoveForward(UINT)
{
    PostMessage(WM_VSCROLL, SB_LINEUP);
}
