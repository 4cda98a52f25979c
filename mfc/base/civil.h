// Days of the Gregorian calendar in whole numbers: every conversion goes through a serial day.
//
// The day number counts from 0 = 30 December 1899, the epoch of DATE and COleDateTime. The rules: every fourth year is
// a leap year, every hundredth is not, every four-hundredth is; so 400 years have 146097 days and their weekdays
// repeat. They are applied backwards before 1582 too. Years are counted here from 1 March, which puts the leap day at
// a year's end, and from March on the lengths 31 30 31 30 31 | 31 30 31 30 31 | 31 .. repeat by fives of 153 days, so
// that month m of such a year (0 = March) begins (153 m + 2) / 5 days after it began.
#pragma once

namespace civil {
constexpr int kFirstDay = -657434; // 1 January 100
constexpr int kLastDay = 2958465;  // 31 December 9999

constexpr bool IsLeapYear(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Month 1 to 12.
constexpr int DaysInMonth(int year, int month)
{
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : days[month - 1];
}

// Whether it is a day of the years 100 to 9999.
constexpr bool IsValid(int year, int month, int day)
{
    return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= DaysInMonth(year, month);
}

// Days from 1 March of the year 0 to 30 December 1899.
constexpr int kMarchOfYear0 = 693899;

// The date must be valid, but for the day: day 0 is the last of the month before, and so on.
constexpr int DayNumber(int year, int month, int day)
{
    const int marchYear = month > 2 ? year : year - 1;
    const int marchMonth = month > 2 ? month - 3 : month + 9;
    return 365 * marchYear + marchYear / 4 - marchYear / 100 + marchYear / 400 + (153 * marchMonth + 2) / 5 + day - 1 -
           kMarchOfYear0;
}

// kFirstDay <= number <= kLastDay.
constexpr void FromDayNumber(int number, int& year, int& month, int& day)
{
    int rest = number + kMarchOfYear0;
    // Century c begins floor(146097 c / 4) days after the year 0 did, year y of it floor(1461 y / 4) days later.
    const int century = (4 * rest + 3) / 146097;
    rest -= 146097 * century / 4;
    const int yearOfCentury = (4 * rest + 3) / 1461;
    rest -= 1461 * yearOfCentury / 4;
    const int marchMonth = (5 * rest + 2) / 153;
    day = rest - (153 * marchMonth + 2) / 5 + 1;
    month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    year = 100 * century + yearOfCentury + (month <= 2 ? 1 : 0);
}

// 1 = Sunday to 7 = Saturday; day number 0 was a Saturday.
constexpr int DayOfWeek(int number)
{
    const int sinceSaturday = number % 7;
    return sinceSaturday > 0 ? sinceSaturday : sinceSaturday + 7;
}
} // namespace civil
