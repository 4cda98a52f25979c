#include "calc/WorkHours.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr WorkPeriod kUsualPeriod = {6 * 60, 18 * 60};
const WorkPeriods kNoPeriods;
} // namespace

WorkPeriods OrderedPeriods(WorkPeriods periods)
{
    std::sort(periods.begin(), periods.end(),
              [](const WorkPeriod& a, const WorkPeriod& b) { return a.begin < b.begin; });
    WorkPeriods ordered;
    for (WorkPeriod period : periods) {
        period.begin = std::max(period.begin, 0);
        period.end = std::min(period.end, kMinutesPerDay);
        if (period.begin >= period.end) {
            continue;
        }
        if (!ordered.empty() && period.begin <= ordered.back().end) {
            ordered.back().end = std::max(ordered.back().end, period.end);
        } else {
            ordered.push_back(period);
        }
    }
    return ordered;
}

WorkHours::WorkHours()
{
    std::fill(m_weekdays.begin() + 1, m_weekdays.end() - 1, WorkPeriods{kUsualPeriod});
}

void WorkHours::SetWeekday(int weekday, const WorkPeriods& periods)
{
    if (weekday >= 1 && weekday <= static_cast<int>(m_weekdays.size())) {
        m_weekdays[weekday - 1] = OrderedPeriods(periods);
    }
}

void WorkHours::SetDate(const CivilDate& date, const WorkPeriods& periods)
{
    if (date.IsValid()) {
        m_dates[SerialDayOf(date)] = OrderedPeriods(periods);
    }
}

void WorkHours::ClearDate(const CivilDate& date)
{
    if (date.IsValid()) {
        m_dates.erase(SerialDayOf(date));
    }
}

const WorkPeriods& WorkHours::PeriodsOf(const CivilDate& date, bool isDayOff) const
{
    if (!date.IsValid()) {
        return kNoPeriods;
    }
    const auto found = m_dates.find(SerialDayOf(date));
    if (found != m_dates.end()) {
        return found->second;
    }
    return isDayOff ? kNoPeriods : m_weekdays[WeekdayOf(date) - 1];
}

bool WorkHours::IsWorkTime(const CivilDate& date, int minute, bool isDayOff) const
{
    const WorkPeriods& periods = PeriodsOf(date, isDayOff);
    return std::any_of(periods.begin(), periods.end(),
                       [minute](const WorkPeriod& period) { return period.begin <= minute && minute < period.end; });
}
} // namespace dayvane
