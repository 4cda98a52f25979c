// Mouse, keyboard, focus and timer messages of a mini calendar: each becomes an event of the model, whose effects are
// applied.
#include "pickers/PeriodGridCtrl.h"

#include "calc/DayProvider.h"
#include "core/CalendarClock.h"
#include "core/TextCodec.h"
#include "pickers/PeriodGridState.h"
#include "pickers/PeriodRun.h"
#include "pickers/PeriodSelCtrl.h"
#include "pickers/PickerShell.h"

using namespace dayvane;

namespace {
constexpr UINT_PTR kSweepTimerId = kRunTimerId + 1;
constexpr UINT kSweepInterval = 400; // milliseconds from page to page
} // namespace

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
        ShowTip(hit);
    }
}

void CPeriodGridCtrl::ShowTip(const GridHit& hit)
{
    std::string text;
    if (m_options.toolTips && hit.part == GridPart::Cell && m_state->model.Policy().unit == CellUnit::Day) {
        const DayProvider* days = GetDayProvider();
        text = NamesText((days ? days : &StandardDayProvider())->InfoOf(CivilDateOf(DateOfHit(m_state->layout, hit))));
    }
    m_tip.SetPart(*this, RectOfPart(m_state->layout, hit), DecodeText(text, kUtf8CodePage));
}

void CPeriodGridCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    if (!m_bTracksLeave) {
        m_bTracksLeave = TRUE;
        TrackMouseLeave(m_hWnd);
    }
    if (!m_pPopup) {
        Hover(PartAt(m_state->layout, point));
        m_tip.Relay(*this, WM_MOUSEMOVE, nFlags, MAKELPARAM(point.x, point.y));
        Apply(m_state->model.PointAt(DateOfHit(m_state->layout, CellAt(m_state->layout, point))));
        PageBeside(point);
    } else {
        ClientToScreen(&point);
        m_pPopup->PointAt(point);
    }
}

void CPeriodGridCtrl::PageBeside(CPoint point)
{
    const bool isSweeping = m_state->model.GetMode() == PeriodGridModel::Mode::Sweeping;
    const int side = isSweeping ? SideOf(m_state->layout, point) : 0;
    if (side != m_nSweepSide) {
        m_nSweepSide = side;
        side == 0 ? (void)KillTimer(kSweepTimerId) : (void)SetTimer(kSweepTimerId, kSweepInterval, nullptr);
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
    ShowTip({});
    const WindowAlive alive(this, m_life);
    Cancel(); // a press without a release before it
    SetFocus();
    if (!alive) {
        return;
    }
    const GridHit hit = PartAt(m_state->layout, point);
    PageBeside(point); // ends the paging of a sweep before it
    Apply(m_state->model.Press(hit, DateOfHit(m_state->layout, hit), Now()));
    if (alive && m_pPopup) {
        ClientToScreen(&point);
        m_pPopup->PointAt(point); // its choice is seen before the pointer moves
    }
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

BOOL CPeriodGridCtrl::OnMouseWheel(UINT, short zDelta, CPoint)
{
    m_nWheelDelta += zDelta;
    const int pages = m_nWheelDelta / WHEEL_DELTA;
    m_nWheelDelta -= pages * WHEEL_DELTA;
    if (pages != 0 && !m_pPopup) {
        Apply(m_state->model.Page(-pages));
    }
    return TRUE;
}

void CPeriodGridCtrl::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const WindowAlive alive(this, m_life);
    ShowFocusCues(m_hWnd); // reaches the host's windows, too
    if (!alive) {
        return;
    }
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

void CPeriodGridCtrl::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent == kSweepTimerId) {
        if (m_state->model.GetMode() != PeriodGridModel::Mode::Sweeping) {
            m_nSweepSide = 0;
            KillTimer(kSweepTimerId);
        }
        Apply(m_state->model.SweepBeyond(m_nSweepSide));
    } else if (nIDEvent != kRunTimerId || !m_pPopup) {
        CWnd::OnTimer(nIDEvent);
    } else {
        m_pPopup->Tick();
    }
}

LRESULT CPeriodGridCtrl::OnUpdateUIState(WPARAM, LPARAM)
{
    Invalidate(FALSE);
    return Default();
}
