// Which days have items, found out month by month when they are asked for.
#pragma once

#include "planner/CalendarSet.h"

#include <bitset>
#include <map>

namespace planner {

class BusyDays
{
public:
    void Forget() { m_months.clear(); } // the document has changed
    bool IsBusy(const CalendarSet& calendars, DayNumber day);

private:
    static constexpr int LongestMonth = 31;
    using Month = std::bitset<LongestMonth>; // bit 0 is the first
    std::map<DayNumber, Month> m_months;     // by their first day
};

} // namespace planner
