// The month, week and year view's keyboard: moves of the selection and of items; and their parts as a value.
#include "views/daygrid/DayGridCtrl.h"

#include "core/DateMath.h"
#include "core/KeyMoves.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/BoxViewParts.h"

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

KeyStep CDayGridCtrl::GetKeyStep(KeyArrow arrow, bool)
{
    const KeyStep::Unit unit = Range().Kind() == RangeKind::Year ? KeyStep::MONTHS : KeyStep::DAYS;
    const int row = Range().Columns();
    switch (arrow) {
    case KeyArrow::Left:
        return {unit, -1};
    case KeyArrow::Right:
        return {unit, 1};
    case KeyArrow::Up:
        return {unit, -row};
    default:
        return {unit, row};
    }
}

// The date is marked by its box, as while the mouse drags.
void CDayGridCtrl::ShowMoved(const COleDateTime& when, BOOL)
{
    constexpr int kMostPages = 100; // turned by one key; a step of a key needs at most a few
    const WindowAlive alive(this, m_life);
    for (int i = 0; i < kMostPages && !Range().Holds(when); ++i) {
        const COleDateTime before = Range().FirstDate();
        SendMessage(WM_VSCROLL, when < before ? SB_LINEUP : SB_LINEDOWN);
        if (!alive || Range().FirstDate() == before) {
            break;
        }
    }
    if (alive && Range().Holds(when)) {
        m_dtSelBegin = m_dtSelEnd = Range().DateOfBox(Range().BoxOf(when));
        InvalidateCellRectRange();
    }
}

void CDayGridCtrl::DescribeParts(ViewParts& parts)
{
    const BoxRange range = Range();
    parts.kind = range.Kind() == RangeKind::Month  ? ViewKind::Month
                 : range.Kind() == RangeKind::Week ? ViewKind::Week
                                                   : ViewKind::Year;
    parts.title = m_bShowCaption ? m_rcCaption : CRect(0, 0, 0, 0);
    std::vector<CRect> boxes;
    std::vector<CRect> marks;
    for (int i = 0; i < range.Count(); ++i) {
        boxes.push_back(GetBoxRect(i));
        marks.push_back(HasMoreMark(i) ? GetMarkBox(i) : CRect(0, 0, 0, 0));
    }
    FillBoxParts({range, range.Columns(), GetHitStripHeight(), boxes, marks, m_arScreenItem}, parts);
}
