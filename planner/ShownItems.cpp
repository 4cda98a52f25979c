#include "planner/ShownItems.h"

#include "core/DateMath.h"
#include "planner/ItemBridge.h"

#include <algorithm>

namespace planner {

void ShownItems::Attach(CCalendarCtrl* ctrl)
{
    if (ctrl == m_ctrl) {
        return;
    }
    if (m_ctrl) {
        m_ctrl->SetItemSource(nullptr);
    }
    m_ctrl = ctrl;
    m_calendars = nullptr;
    m_request = dayvane::ItemRequest();
    m_occurrences.clear();
    m_listed.reset();
}

ShownItems::Range ShownItems::ViewRange() const
{
    COleDateTime first, last;
    m_ctrl->GetViewRange(first, last);
    const auto isValid = [](const COleDateTime& date) { return dayvane::IsValid(date); };
    // At the ends of the calendar's years a view has days that are no dates.
    return {isValid(first) ? DayOfTime(LocalOfDate(first)) * kDaySeconds : kEarliestTime,
            isValid(last) ? (DayOfTime(LocalOfDate(last)) + 1) * kDaySeconds : kEndOfTime};
}

void ShownItems::ConnectTo(const CalendarSet& calendars)
{
    if (m_calendars != &calendars) {
        m_calendars = &calendars;
        m_ctrl->SetItemSource(this);
    }
}

void ShownItems::Load(const CalendarSet& calendars)
{
    if (m_ctrl) {
        ConnectTo(calendars);
        m_ctrl->ReloadItems();
        m_ctrl->UpdateItems(); // asks
        Answer();
    }
}

void ShownItems::LoadIfMoved(const CalendarSet& calendars)
{
    if (m_ctrl && !m_ctrl->IsDragging()) {
        ConnectTo(calendars);
        m_ctrl->UpdateItems();
        Answer();
    }
}

void ShownItems::Answer()
{
    if (!m_request.IsWanted()) {
        return;
    }
    const Occurrence* current = Current();
    const OccurrenceId id = current ? current->id : OccurrenceId();
    m_occurrences = m_calendars->OccurrencesIn(DayOfTime(LocalOfDate(m_request.First())) * kDaySeconds,
                                               (DayOfTime(LocalOfDate(m_request.Last())) + 1) * kDaySeconds);
    std::vector<tagCC_ITEM> items;
    items.reserve(m_occurrences.size());
    for (const Occurrence& each : m_occurrences) {
        items.push_back(ItemOf(each, m_calendars->ColorOf(each.id)));
        items.back().lParam = static_cast<LPARAM>(items.size() - 1);
    }
    m_ctrl->SetCurSel(-1);
    m_request.Answer(std::move(items));
    m_ctrl->UpdateItems(); // takes them
    Select(id);
}

const Occurrence* ShownItems::At(int item) const
{
    if (!m_ctrl || item < 0 || item >= m_ctrl->GetItemCount()) {
        return nullptr;
    }
    const std::size_t index = static_cast<std::size_t>(m_ctrl->GetItemData(item));
    return index < m_occurrences.size() ? &m_occurrences[index] : nullptr;
}

const Occurrence* ShownItems::Current() const
{
    return m_ctrl ? At(m_ctrl->GetCurSel()) : m_listed ? &*m_listed : nullptr;
}

bool ShownItems::Select(const OccurrenceId& id)
{
    if (!m_ctrl || id.event == kNoEvent) {
        return false;
    }
    for (int item = 0; item < m_ctrl->GetItemCount(); ++item) {
        const Occurrence* occurrence = At(item);
        if (occurrence && occurrence->id == id) {
            m_ctrl->SetCurSel(item);
            return true;
        }
    }
    return false;
}

bool ShownItems::IsInView(const Occurrence& occurrence, const Range& view)
{
    const EventTimes& times = occurrence.times;
    return times.start < view.to && (times.end > view.from || times.start >= view.from);
}

void ShownItems::DropHidden()
{
    const Occurrence* current = Current();
    if (m_ctrl && current && !IsInView(*current, ViewRange())) {
        m_ctrl->SetCurSel(-1);
    }
}

int ShownItems::CountInView() const
{
    if (!m_ctrl) {
        return 0;
    }
    const Range view = ViewRange();
    return static_cast<int>(std::count_if(m_occurrences.begin(), m_occurrences.end(),
                                          [&](const Occurrence& each) { return IsInView(each, view); }));
}

std::vector<OccurrenceId> ShownItems::IdsInView() const
{
    std::vector<OccurrenceId> ids;
    for (const Occurrence& each : m_occurrences) {
        if (m_ctrl && IsInView(each, ViewRange())) {
            ids.push_back(each.id);
        }
    }
    return ids;
}

LocalTime ShownItems::EarliestStart(LocalTime from, LocalTime to) const
{
    const Range view = ViewRange();
    LocalTime earliest = to;
    for (const Occurrence& occurrence : m_occurrences) {
        const LocalTime start = occurrence.times.start;
        const LocalTime clock = start - DayOfTime(start) * kDaySeconds;
        if (!occurrence.times.isAllDay && start >= view.from && start < view.to && clock >= from) {
            earliest = std::min(earliest, clock);
        }
    }
    return earliest;
}

int ShownItems::FittingScale(const std::vector<int>& offered) const
{
    const Range view = ViewRange();
    return FittingTimeScale(m_occurrences, view.from, view.to, offered);
}

} // namespace planner
