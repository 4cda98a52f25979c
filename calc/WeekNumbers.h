// Numbers of weeks within their year.
#pragma once

#include "CivilDate.h"

namespace dayvane {
// Which week is week 1 of a year. The numbers are those of the system's setting LOCALE_IFIRSTWEEKOFYEAR.
enum class WeekRule
{
    WithFirstDay = 0,    // the week that holds 1 January
    FirstFullWeek = 1,   // the first week that lies wholly in the year
    FirstFourDayWeek = 2 // the first week with four days or more in the year
};

// A week has one number from its first day to its last, so that a row of a view needs only one: the days around New
// Year may belong to a week of the year before or after their own.
struct WeekNumber
{
    int year = -1; // the year that the week counts for
    int week = -1; // 1 to 54; both -1 for a date that is not valid

    friend bool operator==(const WeekNumber& a, const WeekNumber& b) { return a.year == b.year && a.week == b.week; }
};

// firstDayOfWeek: 1 Sunday to 7 Saturday.
WeekNumber WeekOf(const CivilDate& date, int firstDayOfWeek, WeekRule rule);

// By ISO 8601: weeks begin on Monday, and week 1 holds the year's first Thursday.
inline WeekNumber IsoWeekOf(const CivilDate& date)
{
    return WeekOf(date, kMonday, WeekRule::FirstFourDayWeek);
}
} // namespace dayvane
