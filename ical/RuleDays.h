#pragma once

#include "Recurrence.h"

#include <vector>

namespace dayvane::ical {

// The periods (days, weeks, months, years) of a rule, numbered from the one that holds the event's start, and the days
// that each gives; for rules of shorter periods only the days that they let through. Keeps a reference to the rule.
class RuleDays
{
public:
    RuleDays(const RecurrenceRule& rule, DayNumber startDay);

    // The last period that does not begin after `day`; 0 for days before the start.
    std::int64_t PeriodOfDay(DayNumber day) const;
    // The first day of the period; beyond every date when it begins after the last year.
    DayNumber FirstDay(std::int64_t period) const;
    // The days of the period that begins on `first`, ascending.
    void DaysFrom(DayNumber first, std::vector<DayNumber>& days) const;

    // Whether every part that the rule has lets the day through. Weekdays count by their ordinals only in rules of
    // months and years.
    bool Passes(DayNumber day) const;

private:
    bool HasMonth(int month) const;
    bool HasMonthDay(DayNumber day) const;
    bool HasYearDay(DayNumber day) const;
    bool HasWeekday(DayNumber day) const;
    bool HasWeekNumber(DayNumber day) const;
    void AddWeek(DayNumber first, std::vector<DayNumber>& days) const;
    void AddMonth(int year, int month, int plainDay, std::vector<DayNumber>& days) const;
    void AddWeekdays(DayNumber first, DayNumber end, std::vector<DayNumber>& days) const;
    void AddYear(int year, std::vector<DayNumber>& days) const;
    void AddNumberedWeeks(int year, std::vector<DayNumber>& days) const;
    DayNumber WeekBegin(DayNumber day) const;
    DayNumber FirstWeekOf(int year) const;

    const RecurrenceRule& m_rule;
    DayNumber m_startDay;
    CivilDate m_startDate;
    DayNumber m_startWeek;
};

} // namespace dayvane::ical
