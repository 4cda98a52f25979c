// Arithmetic on dates by whole days and seconds, exact to the second, for code that handles thousands of dates.
#pragma once

#include "../calc/CivilDate.h"

#include <afxdisp.h>
#include <atltypes.h>

namespace dayvane {

inline bool IsValid(const COleDateTime& date)
{
    return date.GetStatus() == COleDateTime::valid;
}

inline COleDateTime NoDate() // not valid
{
    COleDateTime date;
    date.SetStatus(COleDateTime::invalid);
    return date;
}

// Whether it is a bound of a selection: the date 0.0 stands for none.
inline bool IsBound(const COleDateTime& date)
{
    return IsValid(date) && date.m_dt != 0.0;
}

// Whether both fall on one calendar day. Two dates that are not valid do, as their fields are equal.
inline bool IsSameDay(const COleDateTime& a, const COleDateTime& b)
{
    return CivilDateOf(a) == CivilDateOf(b);
}

// 00:00:00 and 23:59:59 of the date's day; invalid for an invalid date.
COleDateTime StartOfDay(const COleDateTime& date);
COleDateTime EndOfDay(const COleDateTime& date);

// Whole days since 30 December 1899 of the day that the date falls on, after rounding to the second as the fields do.
// The date must be valid.
int DayNumberOf(const COleDateTime& date);
COleDateTime DateOfDayNumber(int dayNumber); // 00:00; invalid outside the years 100 to 9999
// The day on or before the given one on which a week begins.
int WeekStartOf(int dayNumber, int firstDayOfWeek);

// Months are numbered through: year x 12 + month - 1, of a valid date, within the years 100 to 9999.
constexpr int kMonthsPerYear = 12;
constexpr int kFirstMonthNumber = 100 * kMonthsPerYear;
constexpr int kLastMonthNumber = 9999 * kMonthsPerYear + kMonthsPerYear - 1;
int ClampMonthNumber(int monthNumber);
int MonthNumberOf(const COleDateTime& date);
constexpr int YearOfMonthNumber(int monthNumber)
{
    return monthNumber / kMonthsPerYear;
}
constexpr int MonthOfMonthNumber(int monthNumber) // 1 .. 12
{
    return monthNumber % kMonthsPerYear + 1;
}
COleDateTime DateOfMonthNumber(int monthNumber); // the first, 00:00; invalid outside the years 100 to 9999

// The date moved by whole days, the time kept; invalid beyond the years 100 to 9999.
COleDateTime AddDays(const COleDateTime& date, int days);
COleDateTime AddMinutes(const COleDateTime& date, int minutes);

// Seconds from the first to the second date, rounded; both valid.
long long SecondsBetween(const COleDateTime& from, const COleDateTime& to);
COleDateTime AddSeconds(const COleDateTime& date, long long seconds);

// Fills `time` when the date is valid and returns whether it is.
inline bool ToSystemTime(const COleDateTime& date, SYSTEMTIME& time)
{
    return date.GetAsSystemTime(time) != FALSE;
}
inline COleDateTime FromSystemTime(const SYSTEMTIME& time)
{
    return COleDateTime(time);
}

} // namespace dayvane
