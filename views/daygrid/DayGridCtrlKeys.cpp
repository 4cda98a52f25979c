// The month, week and year view's keyboard besides the arrows, and what it needs to be seen.
#include "views/daygrid/DayGridCtrl.h"

#include "core/DateMath.h"
#include "views/daygrid/BoxRange.h"

#include <algorithm>

using namespace dayvane;

void CDayGridCtrl::MoveForward(UINT nFlags)
{
    if (Range().Kind() == RangeKind::Year) {
        CMoreListCtrl::MoveForward(nFlags);
    } else {
        MoveSelection(-Range().Columns(), nFlags);
    }
}

void CDayGridCtrl::MoveBackward(UINT nFlags)
{
    if (Range().Kind() == RangeKind::Year) {
        CMoreListCtrl::MoveBackward(nFlags);
    } else {
        MoveSelection(Range().Columns(), nFlags);
    }
}

// With Ctrl to the first or last box that has a date, else within the week of the selection's end.
void CDayGridCtrl::MoveToEnd(BOOL bLast, UINT nFlags)
{
    const BoxRange range = Range();
    const int from = range.BoxOf(m_dtSelEnd);
    if (!range.HasDates() || from == -1) {
        return;
    }
    int first = 0;
    int last = range.Count() - 1;
    if (range.Kind() != RangeKind::Year && ::GetKeyState(VK_CONTROL) >= 0) {
        first = from - from % kMonthColumns;
        last = std::min(first + kMonthColumns - 1, last);
    }
    int box = bLast ? last : first;
    while (!IsValid(range.DateOfBox(box))) { // where dates begin and end
        box += bLast ? -1 : 1;
    }
    MoveSelectionEnd(box - from, nFlags);
}

CRect CDayGridCtrl::GetFocusBox()
{
    for (int i : GetShownItems()) {
        if (m_nCurSel != -1 && m_arScreenItem[i].nSource == m_nCurSel) {
            return m_arScreenItem[i].rcItem;
        }
    }
    const int box = Range().BoxOf(m_dtSelEnd);
    return box != -1 ? GetBoxRect(box) : CRect(0, 0, 0, 0);
}

void CDayGridCtrl::BeginEditItem(const char* lpszText)
{
    const CString text(lpszText); // the caller's may go with the edit that ends now
    if (!EndEdit()) {
        return;
    }
    const WindowAlive alive(this, m_life);
    if (IsBound(m_dtSelBegin) && !Range().Holds(m_dtSelBegin)) {
        BringInSight(m_dtSelBegin);
    }
    if (alive) {
        CMoreListCtrl::BeginEditItem(text);
    }
}
