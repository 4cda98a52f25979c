// When people work: several periods a day, for each day of the week and for single dates.
#pragma once

#include "CivilDate.h"

#include <array>
#include <map>
#include <vector>

namespace dayvane {
// Minutes since midnight, the end not included: 0 <= begin < end <= 1440. Work that goes on after midnight is a period
// of each of the two days.
struct WorkPeriod
{
    int begin = 0;
    int end = 0;

    friend bool operator==(const WorkPeriod& a, const WorkPeriod& b) { return a.begin == b.begin && a.end == b.end; }
};
using WorkPeriods = std::vector<WorkPeriod>;

// The periods in order: cut at midnight, empty ones left out, those that touch or overlap made one.
WorkPeriods OrderedPeriods(WorkPeriods periods);

class WorkHours
{
public:
    // 6:00 to 18:00 on Monday to Friday, as the time grids have it.
    WorkHours();

    // weekday: 1 Sunday to 7 Saturday; others change nothing. Periods may come in any order.
    void SetWeekday(int weekday, const WorkPeriods& periods);

    // The periods of one date stand instead of its weekday's; none at all makes it a day without work.
    void SetDate(const CivilDate& date, const WorkPeriods& periods);
    void ClearDate(const CivilDate& date); // its weekday's periods again

    // Those set for the date itself; else none on a day off; else those of its weekday. Empty for an invalid date.
    const WorkPeriods& PeriodsOf(const CivilDate& date, bool isDayOff) const;

    // Whether somebody works in the minute that begins so many minutes after midnight.
    bool IsWorkTime(const CivilDate& date, int minute, bool isDayOff) const;

private:
    std::array<WorkPeriods, 7> m_weekdays; // Sunday first
    std::map<int, WorkPeriods> m_dates;    // by serial day
};
} // namespace dayvane
