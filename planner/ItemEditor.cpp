#include "planner/ItemEditor.h"

#include "core/DateMath.h"
#include "planner/ItemBridge.h"

namespace planner {

namespace {

EditResult Nothing()
{
    EditResult result;
    result.isDone = true;
    return result;
}

// Puts the selection, over which the edit box opens, onto the item, unless it touches it.
void SelectDaysOf(const Occurrence& occurrence, CCalendarCtrl& ctrl)
{
    COleDateTime begin, end;
    if (ctrl.GetSelRange(begin, end)) {
        const DayNumber day = DayOfTime(LocalOfDate(end));
        if (day >= DayOfTime(occurrence.times.start) && day <= occurrence.LastDay()) {
            return;
        }
    }
    const COleDateTime start = DateOfLocal(occurrence.times.start);
    ctrl.SetSelRange(start, start);
}

} // namespace

void ItemEditor::BeginRename(Scope scope)
{
    const Occurrence* occurrence = m_items.Current();
    if (!occurrence) {
        return;
    }
    Edit edit;
    edit.id = occurrence->id;
    edit.scope = scope;
    edit.before = occurrence->event->summary;
    SelectDaysOf(*occurrence, *m_items.Ctrl());
    Open(edit);
}

void ItemEditor::BeginCreate(bool wholeDays)
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    COleDateTime begin, end;
    if (!ctrl || !ctrl->GetSelRange(begin, end)) {
        return;
    }
    Edit edit;
    edit.times = TimesOfSelection(begin, end, wholeDays);
    ctrl->SetCurSel(-1);
    Open(edit);
}

// Another edit that is open ends first, as what it was opened for.
void ItemEditor::Open(const Edit& edit)
{
    m_items.Ctrl()->BeginEditItem(edit.before.c_str());
    m_edit = edit;
    m_edit.isOpen = true;
    const HWND box = OpenBox();
    if (box) { // typing replaces the old text
        ::SendMessage(box, EM_SETSEL, 0, -1);
    }
}

HWND ItemEditor::OpenBox() const
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    const HWND focus = ::GetFocus();
    return ctrl && m_edit.isOpen && ::IsChild(*ctrl, focus) ? focus : nullptr;
}

void ItemEditor::Commit()
{
    if (OpenBox()) {
        m_items.Ctrl()->SetFocus(); // the box closes as it loses the focus
    }
}

EditResult ItemEditor::EndEdit(Document& document, const NMCALENDAREDIT& ended)
{
    if (!m_edit.isOpen) {
        return Nothing();
    }
    m_edit.isOpen = false;
    const std::string text = ended.lpszText ? ended.lpszText : "";
    if (m_edit.id.event != kNoEvent) {
        return document.SetText(m_edit.id, TextField::Summary, text, m_edit.scope);
    }
    return text.empty() ? Nothing() : document.Create(m_edit.times, text);
}

EditResult ItemEditor::Moved(Document& document, const NMCALENDARITEM& moved)
{
    const Occurrence* occurrence = m_items.At(moved.nItem);
    if (!occurrence) {
        return Nothing();
    }
    tagCC_ITEM item;
    m_items.Ctrl()->GetItem(moved.nItem, item);
    const EventTimes times = TimesAfterMove(occurrence->times, item);
    const OccurrenceId id = occurrence->id;
    if (times == occurrence->times) {
        return Nothing();
    }
    return (moved.nSubValue & MK_CONTROL) != 0 ? document.Copy(id, times) : document.Move(id, times);
}

EditResult ItemEditor::Delete(Document& document, Scope scope)
{
    const Occurrence* occurrence = m_items.Current();
    if (!occurrence) {
        return Nothing();
    }
    const OccurrenceId id = occurrence->id;
    return document.Delete(id, scope);
}

} // namespace planner
