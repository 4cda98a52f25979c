#include "planner/BusyDays.h"

#include <algorithm>

namespace planner {

bool BusyDays::IsBusy(const CalendarSet& calendars, DayNumber day)
{
    const CivilDate date = DateOfDay(day);
    const DayNumber first = DayOfDate(date.year, date.month, 1);
    auto month = m_months.find(first);
    if (month == m_months.end()) {
        month = m_months.emplace(first, Month()).first;
        const DayNumber end = first + DaysInMonth(date.year, date.month);
        for (const Occurrence& occurrence : calendars.OccurrencesIn(first * kDaySeconds, end * kDaySeconds)) {
            const DayNumber from = std::max(DayOfTime(occurrence.times.start), first);
            const DayNumber last = std::min(occurrence.LastDay(), end - 1);
            for (DayNumber busy = from; busy <= last; ++busy) {
                month->second.set(static_cast<std::size_t>(busy - first));
            }
        }
    }
    return month->second.test(static_cast<std::size_t>(day - first));
}

} // namespace planner
