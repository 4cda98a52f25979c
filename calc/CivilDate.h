// A calendar day in whole numbers, taken once from a date-time so that no rule asks the date-time again.
#pragma once

#include "../mfc/base/civil.h"

#include <afxdisp.h>

namespace dayvane {
// Gregorian fields, years 100 to 9999; all -1 when there is no such day.
struct CivilDate
{
    int year = -1;
    int month = -1;
    int day = -1;

    bool IsValid() const { return month > 0; }

    friend bool operator==(const CivilDate& a, const CivilDate& b)
    {
        return a.year == b.year && a.month == b.month && a.day == b.day;
    }
    friend bool operator!=(const CivilDate& a, const CivilDate& b) { return !(a == b); }
};

// The day of a date-time, its time of day dropped; no day for a date-time that is not valid or out of range.
inline CivilDate CivilDateOf(const COleDateTime& date)
{
    SYSTEMTIME fields = {};
    const DATE days = date;
    if (!(days > civil::kFirstDay - 1 && days < civil::kLastDay + 1) || !date.GetAsSystemTime(fields)) {
        return {};
    }
    return {fields.wYear, fields.wMonth, fields.wDay};
}

// Days since 30 December 1899 of a valid day.
inline int SerialDayOf(const CivilDate& date)
{
    return civil::DayNumber(date.year, date.month, date.day);
}

// The day so many days later (earlier when negative); no day beyond either end of the valid years.
inline CivilDate AddDays(const CivilDate& date, int days)
{
    const int serialDay = SerialDayOf(date) + days;
    CivilDate result;
    if (serialDay >= civil::kFirstDay && serialDay <= civil::kLastDay) {
        civil::FromDayNumber(serialDay, result.year, result.month, result.day);
    }
    return result;
}

constexpr int kDaysPerWeek = 7;
constexpr int kHoursPerDay = 24;
constexpr int kMinutesPerHour = 60;
constexpr int kMinutesPerDay = kHoursPerDay * kMinutesPerHour;
constexpr int kSecondsPerMinute = 60;
constexpr long long kSecondsPerDay = 1LL * kMinutesPerDay * kSecondsPerMinute; // wide: counts of days become seconds

// Days of the week as COleDateTime counts them.
enum Weekday
{
    kSunday = 1,
    kMonday = 2,
    kThursday = 5,
    kSaturday = 7
};

inline int WeekdayOf(int serialDay)
{
    return civil::DayOfWeek(serialDay);
}

inline int WeekdayOf(const CivilDate& date)
{
    return WeekdayOf(SerialDayOf(date));
}

// Day of the month of the nth (1, 2, ...) such weekday of a month; the year must be valid.
inline int NthWeekday(int year, int month, int weekday, int nth)
{
    const int firstWeekday = WeekdayOf(civil::DayNumber(year, month, 1));
    return 1 + (weekday - firstWeekday + kDaysPerWeek) % kDaysPerWeek + kDaysPerWeek * (nth - 1);
}
} // namespace dayvane
