#include "planner/AgendaRows.h"

#include "planner/TypedDate.h"

#include <algorithm>
#include <map>

namespace planner {

namespace {

std::string TimeOn(const Occurrence& occurrence, DayNumber day)
{
    const EventTimes& times = occurrence.times;
    const bool begins = DayOfTime(times.start) == day;
    const bool ends = occurrence.LastDay() == day;
    if (times.isAllDay || (!begins && !ends)) {
        return "";
    }
    if (begins && ends) {
        return ClockText(times.start) + (times.end > times.start ? " - " + ClockText(times.end) : "");
    }
    return begins ? ClockText(times.start) + " ..." : "... " + ClockText(times.end);
}

} // namespace

std::vector<AgendaRow> AgendaRowsOf(const std::vector<Occurrence>& occurrences, DayNumber from, DayNumber to,
                                    DayNumber today)
{
    std::map<DayNumber, std::vector<AgendaRow>> days;
    if (today >= from && today < to) {
        days[today];
    }
    for (std::size_t i = 0; i < occurrences.size(); ++i) {
        const DayNumber last = std::min(occurrences[i].LastDay(), to - 1);
        for (DayNumber day = std::max(DayOfTime(occurrences[i].times.start), from); day <= last; ++day) {
            days[day].push_back({day, i, TimeOn(occurrences[i], day)});
        }
    }
    std::vector<AgendaRow> rows;
    for (auto& [day, items] : days) {
        std::stable_partition(items.begin(), items.end(), [](const AgendaRow& row) { return row.time.empty(); });
        rows.push_back({day, AgendaRow::kHeading, ""});
        rows.insert(rows.end(), items.begin(), items.end());
    }
    return rows;
}

std::size_t RowOfDay(const std::vector<AgendaRow>& rows, DayNumber day)
{
    const auto found = std::lower_bound(rows.begin(), rows.end(), day,
                                        [](const AgendaRow& row, DayNumber wanted) { return row.day < wanted; });
    return static_cast<std::size_t>(found - rows.begin());
}

} // namespace planner
