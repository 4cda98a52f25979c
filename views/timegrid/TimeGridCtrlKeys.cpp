// The time grids' selection, the keys that move it or items, the cell where it stands; and their parts as a value.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/KeyMoves.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridMoves.h"
#include "views/timegrid/TimeGridParts.h"
#include "views/timegrid/TimeGridViewParts.h"

using namespace dayvane;

GridSelection CTimeGridCtrl::Selection() const
{
    if (IsBound(m_dtSelBegin) && IsBound(m_dtSelEnd)) {
        return GridSelection{m_dtCurrentDate, m_dtSelBegin, m_dtSelEnd}.Agreed();
    }
    const COleDateTime row = Scale().RowStart(m_dtCurrentDate);
    return GridSelection{m_dtCurrentDate, row, row};
}

void CTimeGridCtrl::SetSelection(const GridSelection& selection)
{
    InvalidateCellRectRange();
    m_dtCurrentDate = m_dtViewDate = selection.current;
    m_dtSelBegin = selection.begin;
    m_dtSelEnd = selection.end;
    InvalidateCellRectRange();
}

void CTimeGridCtrl::SelectionMoved()
{
    const int day = ClockTimeOf(m_dtCurrentDate).day;
    m_dtCurrentDate = m_dtViewDate = m_dtSelEnd;
    if (ClockTimeOf(m_dtCurrentDate).day != day) {
        CurrentDateMoved();
    }
}

void CTimeGridCtrl::LeaveWholeDay()
{
    if (m_bFulldaySelection && m_options.keysLeaveWholeDay) {
        InvalidateCellRectRange();
        m_bFulldaySelection = FALSE;
    }
}

void CTimeGridCtrl::MoveRow(BOOL bLater, UINT nFlags)
{
    if (!EndEdit()) {
        return;
    }
    LeaveWholeDay();
    GridSelection selection = Selection();
    const bool extend = (nFlags & kExtendSelection) != 0;
    const AfterMove after =
        bLater ? MoveRowLater(selection, RowWindow(), extend) : MoveRowEarlier(selection, RowWindow(), extend);
    if (after == AfterMove::NOTHING) {
        return;
    }
    SetSelection(selection.Agreed());
    InvalidateGrid();
    // The step by a line is decided by hour and by minute apart, and misses a cursor that is further away.
    const GridWindow stepped = WindowAfter(after, RowWindow());
    if (after != AfterMove::REPAINT && OffsetToShow(stepped, m_dtSelEnd, m_dtSelEnd) == stepped.scroll) {
        PostMessage(WM_VSCROLL, after == AfterMove::SCROLL_UP ? SB_LINEUP : SB_LINEDOWN);
    } else {
        KeepCursorInSight();
    }
    CurrentDateMoved();
}

// A selection of whole days shows in the band, which is always in sight.
void CTimeGridCtrl::KeepCursorInSight()
{
    if (m_hWnd && !m_bFulldaySelection) {
        ScrollTo(OffsetToShow(RowWindow(), m_dtSelEnd, m_dtSelEnd));
    }
}

// With Ctrl over all days that are shown, else within the day.
void CTimeGridCtrl::MoveToEnd(BOOL bLast, UINT nFlags)
{
    if (!EndEdit()) {
        return;
    }
    LeaveWholeDay();
    GridSelection selection = Selection();
    const DayRange range = ::GetKeyState(VK_CONTROL) < 0 ? GetShownRange() : DayRange::OneDay(selection.end);
    const COleDateTime target = bLast ? LastRow(range, Scale()) : range.first;
    if (!IsBound(target)) {
        return;
    }
    selection.current = selection.end = target;
    if ((nFlags & kExtendSelection) == 0) {
        selection.begin = target;
    }
    SetSelection(selection);
    InvalidateGrid();
    KeepCursorInSight();
    CurrentDateMoved();
}

int CTimeGridCtrl::GetFocusedScreenItem() const
{
    const int count = static_cast<int>(m_arScreenItem.GetSize());
    if (m_nSelScreenItem >= 0 && m_nSelScreenItem < count &&
        (m_nCurSel == -1 || m_arScreenItem[m_nSelScreenItem].nSource == m_nCurSel)) {
        return m_nSelScreenItem;
    }
    for (int i = 0; m_nCurSel != -1 && i < count; ++i) {
        if (m_arScreenItem[i].nSource == m_nCurSel) {
            return i;
        }
    }
    return -1;
}

CRect CTimeGridCtrl::GetFocusBox()
{
    CRect box;
    int isItem = 0;
    GetCurCellRect(box, isItem);
    if (isItem || !IsBound(m_dtSelEnd)) {
        return box;
    }
    if (m_bFulldaySelection) {
        return CurrentBandBox(State(), m_dtSelEnd, m_dtSelEnd);
    }
    const TimeGridState state = State();
    const int column = state.range.days > 1 ? state.range.ColumnOf(m_dtSelEnd) : 0;
    const int row = state.scale.RowOfTime(m_dtSelEnd);
    return column != -1 ? BoxOfRows(state, column, {row, row + 1}) : CRect(0, 0, 0, 0);
}

void CTimeGridCtrl::GetCurCellRect(CRect& rect, int& nMode)
{
    const int item = GetFocusedScreenItem();
    nMode = item != -1;
    const MoreMark* mark = item != -1 ? FindMarkOf(m_arScreenItem[item].nSource) : nullptr;
    if (mark && mark->column < static_cast<int>(m_pParts->frame.columns.size())) { // hidden: as wide as its day
        rect = VisibleMarkBox(State(), *mark);
        rect.left = m_pParts->frame.columns[mark->column].left;
    } else if (item != -1) {
        rect = VisibleItemBox(State(), m_arScreenItem[item]);
    } else {
        rect = (m_bFulldaySelection ? CurrentBandBox : CurrentCellBox)(State(), m_dtSelBegin, m_dtSelEnd);
    }
}

KeyStep CTimeGridCtrl::GetKeyStep(KeyArrow arrow, bool bWholeDays)
{
    switch (arrow) {
    case KeyArrow::Left:
        return {KeyStep::DAYS, -1};
    case KeyArrow::Right:
        return {KeyStep::DAYS, 1};
    case KeyArrow::Up:
        return bWholeDays ? KeyStep() : KeyStep{KeyStep::MINUTES, -GetMoveStepMinutes()};
    default:
        return bWholeDays ? KeyStep() : KeyStep{KeyStep::MINUTES, GetMoveStepMinutes()};
    }
}

// The days have followed the marked date; the row comes into sight.
void CTimeGridCtrl::ShowMoved(const COleDateTime& when, BOOL bWholeDays)
{
    if (!bWholeDays) {
        ScrollTo(OffsetToShow(RowWindow(), when, when));
    }
}

void CTimeGridCtrl::DescribeParts(ViewParts& parts)
{
    FillTimeGridParts(State(), m_arScreenItem, m_pParts->more, parts);
    parts.kind = GetShownRange().days == 1 ? ViewKind::Day : ViewKind::SeveralDays;
    for (int column = 0; column < static_cast<int>(parts.cells.size()); ++column) {
        const tagCALENDAR_DAY_PROPERTY* day = GetDayProperty(parts.cells[column].first);
        parts.cells[column].hostText = day ? m_texts.HostText(day->strText) : std::u16string();
        for (int row = 0; row < parts.rows; ++row) {
            parts.cells[column].workRows.push_back(IsWorkRow(column, row) != FALSE);
        }
    }
}
