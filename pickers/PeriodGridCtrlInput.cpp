// Mouse, keyboard, focus and timer messages of a mini calendar: each becomes an event of the model, whose effects are
// applied.
#include "pickers/PeriodGridCtrl.h"

#include "core/CalendarClock.h"
#include "pickers/PeriodGridState.h"
#include "pickers/PeriodRun.h"
#include "pickers/PeriodSelCtrl.h"
#include "pickers/PickerShell.h"

using namespace dayvane;

void CPeriodGridCtrl::InvalidatePart(const GridHit& hit)
{
    const CRect rect = RectOfPart(m_state->layout, hit);
    if (!rect.IsRectEmpty()) {
        InvalidateRect(&rect, FALSE);
    }
}

void CPeriodGridCtrl::Hover(const GridHit& hit)
{
    const GridHit before = m_state->model.Hot();
    if (m_state->model.Hover(hit)) {
        InvalidatePart(before);
        InvalidatePart(hit);
    }
}

void CPeriodGridCtrl::OnMouseMove(UINT, CPoint point)
{
    if (!m_bTracksLeave) {
        m_bTracksLeave = TRUE;
        TrackMouseLeave(m_hWnd);
    }
    if (!m_pPopup) {
        Hover(PartAt(m_state->layout, point));
        Apply(m_state->model.PointAt(DateOfHit(m_state->layout, CellAt(m_state->layout, point))));
    } else {
        ClientToScreen(&point);
        m_pPopup->PointAt(point);
    }
}

void CPeriodGridCtrl::OnMouseLeave()
{
    m_bTracksLeave = FALSE;
    Hover(GridHit());
    if (m_state->model.GetMode() == PeriodGridModel::Mode::Idle) {
        InvalidatePart(m_state->model.Pressed());
        m_state->model.LetGo();
    }
}

void CPeriodGridCtrl::OnLButtonDown(UINT, CPoint point)
{
    const WindowAlive alive(this, m_life);
    Cancel(); // a press without a release before it
    SetFocus();
    if (!alive) {
        return;
    }
    const GridHit hit = PartAt(m_state->layout, point);
    Apply(m_state->model.Press(hit, DateOfHit(m_state->layout, hit), Now()));
}

void CPeriodGridCtrl::OnLButtonUp(UINT, CPoint point)
{
    InvalidatePart(m_state->model.Pressed());
    m_state->model.LetGo();
    if (!m_pPopup) {
        Apply(m_state->model.Release(m_state->model.FirstPeriod()));
        return;
    }
    ClientToScreen(&point);
    m_pPopup->PointAt(point);
    Apply(m_pPopup->HasChoice() ? m_state->model.Release(m_pPopup->GetPeriod()) : m_state->model.Cancel());
}

void CPeriodGridCtrl::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    const GridHit hit = CellAt(m_state->layout, point);
    if (hit.part == GridPart::Cell) {
        Apply(m_state->model.DoubleClick(DateOfHit(m_state->layout, hit)));
    } else {
        OnLButtonDown(nFlags, point); // fast clicks on the arrows page on
    }
}

void CPeriodGridCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const GridEffects effects =
        m_state->model.Key(PickerKeyOf(nChar), IsKeyDown(VK_SHIFT), IsKeyDown(VK_CONTROL), Now());
    if (effects.handled) {
        Apply(effects);
    } else {
        CWnd::OnKeyDown(nChar, nRepCnt, nFlags);
    }
}

UINT CPeriodGridCtrl::OnGetDlgCode()
{
    const MSG* pMsg = reinterpret_cast<const MSG*>(GetCurrentMessage()->lParam);
    UINT code = DLGC_WANTARROWS;
    if (pMsg && pMsg->message == WM_KEYDOWN) {
        const bool busy = m_state->model.GetMode() != PeriodGridModel::Mode::Idle;
        if (pMsg->wParam == VK_RETURN || (pMsg->wParam == VK_ESCAPE && busy)) {
            code |= DLGC_WANTMESSAGE;
        }
    }
    return code;
}

void CPeriodGridCtrl::OnSetFocus(CWnd*)
{
    Invalidate(FALSE);
}

void CPeriodGridCtrl::OnKillFocus(CWnd*)
{
    Cancel();
    Invalidate(FALSE);
}

void CPeriodGridCtrl::OnCaptureChanged(CWnd* pWnd)
{
    if (pWnd != this) {
        Cancel();
    }
}

void CPeriodGridCtrl::OnCancelMode()
{
    Cancel();
}

void CPeriodGridCtrl::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent != kRunTimerId || !m_pPopup) {
        CWnd::OnTimer(nIDEvent);
    } else {
        m_pPopup->Tick();
    }
}
