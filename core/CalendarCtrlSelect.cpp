// The base control's selection as others see it: what Escape restores, and what is reported to the host.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/Interaction.h"
#include "core/PointerDriver.h"
#include "core/WindowHelpers.h"

using namespace dayvane;

SelectedRange CCalendarCtrl::Selected() const
{
    return {m_dtSelBegin, m_dtSelEnd, m_bFulldaySelection};
}

void CCalendarCtrl::RestoreSelection()
{
    const SelectedRange before = m_interaction->beforePress;
    InvalidateCellRectRange();
    SetSelRange(before.begin, before.end, before.wholeDays);
    InvalidateCellRectRange();
    if (IsBound(before.end) && !m_interaction->isEnding) {
        SelectionMoved();
    }
}

// What the options take first; the window may be gone afterwards.
LRESULT CCalendarCtrl::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowAlive alive(this, m_life);
    const bool isKey = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    LRESULT result = 0;
    if ((isKey && m_options.keyboardMoves && TakeOptionKey(wParam)) || !alive ||
        (m_options.typeToEdit && ForwardTyping(message, wParam, lParam, result)) || !alive) {
        return result;
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

// The selection may change in many ways while one of these messages is handled; the host gets one report, afterwards.
LRESULT CCalendarCtrl::HandleAndReport(UINT message, WPARAM wParam, LPARAM lParam)
{
    int cause = 0;
    const PointerTracker& pointer = m_pointer->Tracker();
    switch (message) {
    case WM_KEYDOWN:
        cause = pointer.IsCarried() ? CCSEL_DROP : CCSEL_KEY;
        break;
    case WM_SYSKEYDOWN:
    case WM_TIMER:
        cause = pointer.IsCarried() ? CCSEL_DROP : 0;
        break;
    case WM_LBUTTONDOWN:
        cause = CCSEL_PRESS;
        break;
    case WM_LBUTTONUP:
        cause = pointer.IsSelecting() ? CCSEL_SWEEP : pointer.IsDragging() ? CCSEL_DROP : 0;
        break;
    case WM_VSCROLL:
        cause = pointer.IsBusy() ? 0 : CCSEL_SCROLL;
        break;
    }
    if (cause == 0 || !m_options.selectionEvents || m_interaction->reports > 0) {
        return Handle(message, wParam, lParam);
    }
    const WindowAlive alive(this, m_life);
    const bool endsDrag = message == WM_LBUTTONUP || pointer.IsCarried();
    const SelectedRange before = endsDrag ? m_interaction->afterPress : Selected();
    ++m_interaction->reports;
    const LRESULT result = Handle(message, wParam, lParam);
    if (alive && --m_interaction->reports == 0 && !pointer.IsCarried()) {
        m_interaction->afterPress = Selected();
        ReportSelection(cause, before);
    }
    return result;
}

void CCalendarCtrl::ReportSelection(int nCause, const SelectedRange& before)
{
    if (Selected() == before) {
        return;
    }
    NMCALENDARSELECTION record = {};
    record.hdr = NotifyHeader(*this, CCN_SELCHANGED);
    COleDateTime begin;
    COleDateTime end;
    GetSelRange(begin, end);
    ToSystemTime(begin, record.stBegin);
    ToSystemTime(end, record.stEnd);
    record.bWholeDays = m_bFulldaySelection;
    record.nCause = nCause;
    NotifyParent(*this, record.hdr);
}
