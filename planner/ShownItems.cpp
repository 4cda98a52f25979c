#include "planner/ShownItems.h"

#include "planner/ItemBridge.h"

#include <algorithm>

namespace planner {

namespace {
// So much is loaded on both sides, so that scrolling by lines does not load at each step.
constexpr LocalTime kMargin = 35 * kDaySeconds;
// Taken where the view has no range, at the ends of the calendar's years.
constexpr LocalTime kUnknownRange = 400 * kDaySeconds;
} // namespace

void ShownItems::Attach(CCalendarCtrl* ctrl)
{
    if (ctrl != m_ctrl) {
        m_ctrl = ctrl;
        m_occurrences.clear();
        m_listed.reset();
        m_loaded = Range();
    }
}

ShownItems::Range ShownItems::ViewRange() const
{
    COleDateTime first, last;
    m_ctrl->GetViewRange(first, last);
    if (first.GetStatus() == COleDateTime::valid && last.GetStatus() == COleDateTime::valid) {
        const DayNumber firstDay = DayOfTime(LocalOfDate(first));
        const DayNumber lastDay = DayOfTime(LocalOfDate(last));
        return {firstDay * kDaySeconds, (lastDay + 1) * kDaySeconds};
    }
    const LocalTime day = LocalOfDate(m_ctrl->GetCurrentDate());
    return {ClampTime(day - kUnknownRange), ClampTime(day + kUnknownRange)};
}

void ShownItems::Load(const CalendarSet& calendars)
{
    if (!m_ctrl) {
        return;
    }
    const Occurrence* current = Current();
    const OccurrenceId id = current ? current->id : OccurrenceId();
    const Range view = ViewRange();
    m_loaded = {ClampTime(view.from - kMargin), ClampTime(view.to + kMargin)};
    m_occurrences = calendars.OccurrencesIn(m_loaded.from, m_loaded.to);
    m_ctrl->SetCurSel(-1);
    m_ctrl->DeleteAllItems();
    for (std::size_t i = 0; i < m_occurrences.size(); ++i) {
        tagCC_ITEM item = ItemOf(m_occurrences[i], calendars.ColorOf(m_occurrences[i].id));
        item.lParam = static_cast<LPARAM>(i);
        m_ctrl->AddItem(&item, FALSE, FALSE);
    }
    m_ctrl->Refresh();
    Select(id);
}

void ShownItems::LoadIfMoved(const CalendarSet& calendars)
{
    if (!m_ctrl || m_ctrl->IsDragging()) {
        return;
    }
    const Range view = ViewRange();
    if (view.from < m_loaded.from || view.to > m_loaded.to) {
        Load(calendars);
    }
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
