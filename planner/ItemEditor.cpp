#include "planner/ItemEditor.h"

#include "core/DateMath.h"
#include "planner/ItemBridge.h"
#include "planner/TypedDate.h"
#include "views/daygrid/DayGridCtrl.h"
#include "views/timegrid/DayViewCtrl.h"

#include <algorithm>

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

constexpr int kBoxPadding = 4; // pixels over and under the text together, with the border

int TextHeight(CWnd& window, HFONT font)
{
    CClientDC dc(&window);
    const HGDIOBJ before = ::SelectObject(dc, font);
    TEXTMETRIC metrics = {};
    ::GetTextMetrics(dc, &metrics);
    ::SelectObject(dc, before);
    return metrics.tmHeight;
}

} // namespace

EventTimes SelectedTimes(CCalendarCtrl& ctrl, bool wholeDays)
{
    COleDateTime begin, end;
    if (!ctrl.GetSelRange(begin, end)) {
        const LocalTime day = DayOfTime(LocalOfDate(ctrl.GetCurrentDate())) * kDaySeconds;
        return {day, day + kDaySeconds, true};
    }
    const EventTimes times = TimesOfSelection(begin, end, wholeDays);
    const bool isOneDay = DYNAMIC_DOWNCAST(CDayViewCtrl, &ctrl) != nullptr;
    return isOneDay ? TimesOnDay(times, DayOfTime(LocalOfDate(ctrl.GetCurrentDate()))) : times;
}

void ItemEditor::BeginRename(Scope scope)
{
    const Occurrence* occurrence = m_items.Current();
    if (!occurrence || !m_items.Ctrl()) {
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
    edit.times = SelectedTimes(*ctrl, wholeDays);
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
    if (box) {
        PlaceBox(box);
        // Typing replaces the old text.
        ::SendMessage(box, EM_SETSEL, 0, -1);
    }
}

// Where days are boxes, an item is edited on its bar, and a new one under the bars of its day: the day's number and its
// other items stay in sight.
void ItemEditor::PlaceBox(HWND box) const
{
    CCalendarCtrl& ctrl = *m_items.Ctrl();
    if (!DYNAMIC_DOWNCAST(CDayGridCtrl, &ctrl)) {
        return;
    }
    CRect cell;
    ::GetWindowRect(box, &cell);
    ctrl.ScreenToClient(&cell);
    const HFONT font = reinterpret_cast<HFONT>(::SendMessage(box, WM_GETFONT, 0, 0));
    const int height = TextHeight(ctrl, font) + kBoxPadding;
    CRect place(cell.left, cell.top + height, cell.right, cell.top + 2 * height); // under the number
    const auto& pieces = ctrl.GetScreenItems();
    for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
        const CRect& bar = pieces[i].rcItem;
        const bool isCurrent = pieces[i].nSource == ctrl.GetCurSel() && m_edit.id.event != kNoEvent;
        const bool isInCell =
            bar.top >= cell.top && bar.bottom <= cell.bottom + 1 && bar.left < cell.right && bar.right > cell.left;
        if (bar.top < 0 || pieces[i].bNoFocus || !isInCell) {
            continue;
        }
        if (isCurrent) {
            place = CRect(bar.left, bar.top, std::max<int>(bar.right, cell.right - 1), bar.top + height);
            break;
        }
        place.top = std::max<int>(place.top, bar.bottom);
    }
    place.top = std::max<int>(std::min<int>(place.top, cell.bottom - height), cell.top);
    ::MoveWindow(box, place.left, place.top, place.Width(), height, TRUE);
    ::InvalidateRect(ctrl, &cell, FALSE);
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

EditResult ItemEditor::EndEdit(CalendarSet& calendars, const NMCALENDAREDIT& ended)
{
    if (!m_edit.isOpen) {
        return Nothing();
    }
    m_edit.isOpen = false;
    const std::string text = ended.lpszText ? ended.lpszText : "";
    if (m_edit.id.event != kNoEvent) {
        return calendars.SetText(m_edit.id, TextField::Summary, text, m_edit.scope);
    }
    if (text.empty()) {
        return Nothing();
    }
    const TypedTitle typed = ParseTypedTitle(text);
    const bool isDay = m_edit.times.isAllDay && m_edit.times.end - m_edit.times.start == kDaySeconds;
    if (!isDay || !typed.start) {
        return calendars.Create(m_edit.times, text);
    }
    const LocalTime day = m_edit.times.start;
    return calendars.Create({day + *typed.start, day + typed.end, false}, typed.title);
}

EventTimes ItemEditor::TimesAfter(int item) const
{
    const Occurrence* occurrence = m_items.At(item);
    tagCC_ITEM moved;
    m_items.Ctrl()->GetItem(item, moved);
    return TimesAfterMove(occurrence->times, moved);
}

} // namespace planner
