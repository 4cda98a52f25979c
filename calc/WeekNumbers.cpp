#include "calc/WeekNumbers.h"

namespace dayvane {
namespace {

int WeekStart(int serialDay, int firstDayOfWeek)
{
    return serialDay - (WeekdayOf(serialDay) - firstDayOfWeek + kDaysPerWeek) % kDaysPerWeek;
}

// Days that a week must have in a year to be its first.
int LeastDays(WeekRule rule)
{
    return rule == WeekRule::WithFirstDay ? 1 : rule == WeekRule::FirstFullWeek ? kDaysPerWeek : 4;
}

// The first day of the year's week 1; the year may be one beyond the valid ones.
int FirstWeekStart(int year, int firstDayOfWeek, WeekRule rule)
{
    const int newYear = civil::DayNumber(year, 1, 1);
    const int start = WeekStart(newYear, firstDayOfWeek);
    const int daysInYear = start + kDaysPerWeek - newYear;
    return daysInYear >= LeastDays(rule) ? start : start + kDaysPerWeek;
}
} // namespace

WeekNumber WeekOf(const CivilDate& date, int firstDayOfWeek, WeekRule rule)
{
    if (!date.IsValid() || firstDayOfWeek < 1 || firstDayOfWeek > kDaysPerWeek) {
        return {};
    }
    const int start = WeekStart(SerialDayOf(date), firstDayOfWeek);
    int year = date.year + 1;
    while (start < FirstWeekStart(year, firstDayOfWeek, rule)) {
        --year;
    }
    return {year, (start - FirstWeekStart(year, firstDayOfWeek, rule)) / kDaysPerWeek + 1};
}
} // namespace dayvane
