// What the user does to items of the view: presses, drags, deletes, renames.
#include "planner/PlannerFrame.h"

#include "core/DateMath.h"
#include "planner/ItemBridge.h"
#include "planner/ScopeDialog.h"
#include "planner/Words.h"
#include "planner/resource.h"

// ---- The pointer

void CPlannerFrame::OnItemOpen(NMHDR* pHeader, LRESULT* pResult)
{
    *pResult = 0;
    if (reinterpret_cast<const NMCALENDARITEM*>(pHeader)->nItem >= 0) {
        OnDetails();
    } else {
        OnNewItem();
    }
}

// Text is typed over an item or a selection, or a program that reads aloud gives one: the edit box, not the details.
void CPlannerFrame::OnTextAsked(NMHDR* pHeader, LRESULT* pResult)
{
    *pResult = 0;
    if (reinterpret_cast<const NMCALENDARITEM*>(pHeader)->nItem >= 0) {
        m_editor.BeginRename(planner::Scope::ThisOccurrence);
    } else {
        OnNewItem();
    }
}

// A right press selects what lies under it, as a left one does; in the selected range it leaves the range.
void CPlannerFrame::OnRightPress(NMHDR* pHeader, LRESULT* pResult)
{
    *pResult = 0;
    const NMCALENDARITEM press = *reinterpret_cast<const NMCALENDARITEM*>(pHeader);
    CCalendarCtrl* ctrl = m_items.Ctrl();
    if (!ctrl || press.nFlags == CCHT_NOWHERE) {
        return;
    }
    m_editor.Commit();
    COleDateTime begin, end;
    const COleDateTime time(press.time);
    const bool isSelected = ctrl->GetSelRange(begin, end) && time >= begin && time <= end;
    if (press.nItem < 0 && isSelected) {
        ctrl->SetCurSel(-1);
        ctrl->Refresh();
        return;
    }
    const LPARAM place = MAKELPARAM(press.pt.x, press.pt.y);
    ctrl->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, place);
    if (ctrl == m_items.Ctrl()) {
        ctrl->SendMessage(WM_LBUTTONUP, 0, place);
    }
}

void CPlannerFrame::OnItemMenu(NMHDR* pHeader, LRESULT* pResult)
{
    constexpr int editMenu = 1; // position in the menu bar
    *pResult = 0;
    CPoint point(reinterpret_cast<const NMCALENDARITEM*>(pHeader)->pt);
    const bool isByKey = point.x < 0 && point.y < 0;
    if (isByKey) {
        CRect client;
        m_items.Ctrl()->GetClientRect(&client);
        point = client.CenterPoint();
    }
    ::ClientToScreen(pHeader->hwndFrom, &point);
    m_editor.Commit();
    ::TrackPopupMenu(::GetSubMenu(::GetMenu(m_hWnd), editMenu), TPM_LEFTALIGN | TPM_RIGHTBUTTON, point.x, point.y, 0,
                     m_hWnd, nullptr);
}

// ---- Drags

// Shows the items where they were.
void CPlannerFrame::TakeBack()
{
    if (!m_items.Ctrl()) {
        return;
    }
    m_items.Load(Calendars());
    ShowStatus(planner::Tr("The item stays where it was"));
}

// Where a drag was let go: over the view, a day of the small calendars, or nothing that takes an item.
CPlannerFrame::Drop CPlannerFrame::DropAt(CPoint screen)
{
    CRect view;
    m_items.Ctrl()->GetWindowRect(&view);
    if (view.PtInRect(screen)) {
        return {true, COleDateTime()};
    }
    Drop drop = {false, COleDateTime()};
    drop.day.SetStatus(COleDateTime::null);
    m_sidePane.DayAt(screen, drop.day);
    return drop;
}

void CPlannerFrame::OnItemMoved(NMHDR* pHeader, LRESULT* pResult)
{
    *pResult = 0;
    const NMCALENDARITEM record = *reinterpret_cast<const NMCALENDARITEM*>(pHeader);
    const planner::Occurrence* occurrence = m_items.At(record.nItem);
    if (!occurrence) {
        return;
    }
    const planner::OccurrenceId id = occurrence->id;
    const planner::EventTimes before = occurrence->times;
    planner::EventTimes times = m_editor.TimesAfter(record.nItem);
    CPoint point(record.pt);
    ::ClientToScreen(pHeader->hwndFrom, &point);
    const Drop drop = DropAt(point);
    if (!drop.isInView && !dayvane::IsValid(drop.day)) {
        TakeBack();
        return;
    }
    if (!drop.isInView) {
        const planner::LocalTime shift =
            (planner::DayOfTime(planner::LocalOfDate(drop.day)) - planner::DayOfTime(before.start)) *
            planner::kDaySeconds;
        times = {before.start + shift, before.end + shift, before.isAllDay};
    }
    if (times == before) {
        if (!drop.isInView) {
            TakeBack();
        }
        return;
    }
    if ((record.nSubValue & MK_CONTROL) != 0) {
        Finish(Calendars().Copy(id, times));
    } else {
        ChangeItem(id, planner::Tr("Which occurrences of this series are to be moved?"),
                   [&](planner::Scope scope) { return Calendars().Move(id, times, scope); });
    }
}

// Makes a change of one occurrence; of a series after the question how far it goes.
void CPlannerFrame::ChangeItem(const planner::OccurrenceId& id, const std::string& question,
                               const std::function<planner::EditResult(planner::Scope)>& change)
{
    std::optional<planner::Scope> scope = planner::Scope::ThisOccurrence;
    if (Calendars().IsOfSeries(id)) {
        scope = planner::AskScope(this, question);
    }
    if (scope) {
        Finish(change(*scope));
    } else {
        TakeBack();
    }
}

// ---- Commands

void CPlannerFrame::OnNewItem()
{
    if (m_items.Ctrl()) {
        m_editor.BeginCreate(!m_view.row->hasTimes);
    } else { // a list has no place to type in
        OnNewDetails();
    }
}

void CPlannerFrame::OnRename(UINT nID)
{
    if (!m_items.Ctrl()) {
        OnDetails();
        return;
    }
    m_editor.BeginRename(nID == ID_EDIT_RENAME_SERIES ? planner::Scope::WholeSeries : planner::Scope::ThisOccurrence);
}

void CPlannerFrame::OnDelete(UINT nID)
{
    const planner::Occurrence* current = m_items.Current();
    if (!current) {
        return;
    }
    const planner::OccurrenceId id = current->id;
    if (nID == ID_EDIT_DELETE_SERIES) {
        Finish(Calendars().Delete(id, planner::Scope::WholeSeries));
    } else {
        ChangeItem(id, planner::Tr("Which occurrences of this series are to be deleted?"),
                   [&](planner::Scope scope) { return Calendars().Delete(id, scope); });
    }
}

void CPlannerFrame::OnEditEnded(NMHDR* pHeader, LRESULT* pResult)
{
    Finish(m_editor.EndEdit(Calendars(), *reinterpret_cast<const NMCALENDAREDIT*>(pHeader)));
    *pResult = 0;
}

void CPlannerFrame::OnUpdateOfItem(CCmdUI* pCmdUI)
{
    const planner::Occurrence* current = m_items.Current();
    const bool ofSeries = pCmdUI->m_nID == ID_EDIT_RENAME_SERIES || pCmdUI->m_nID == ID_EDIT_DELETE_SERIES;
    pCmdUI->Enable(current && (!ofSeries || Calendars().IsOfSeries(current->id)));
}
