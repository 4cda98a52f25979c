#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Wall-clock arithmetic of calendar files: days and seconds of the proleptic Gregorian calendar.
namespace dayvane::ical {

// Days since 1 January 1970; negative before.
using DayNumber = std::int64_t;
// Seconds on some wall clock since 1 January 1970, 00:00 of that clock. Whose clock it is, its holder says.
using LocalTime = std::int64_t;

constexpr std::int64_t kMinuteSeconds = 60;
constexpr std::int64_t kHourSeconds = 60 * kMinuteSeconds;
constexpr std::int64_t kDaySeconds = 24 * kHourSeconds;
constexpr int kWeekDays = 7;
constexpr int kYearMonths = 12;

struct CivilDate
{
    int year = 1970;
    int month = 1; // 1 to 12
    int day = 1;   // 1 to 31
};

struct CivilTime
{
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

constexpr bool IsLeapYear(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int DaysInMonth(int year, int month)
{
    constexpr int days[kYearMonths] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return days[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

// The day number of a date with year >= 1 and a month from 1 to 12; `day` may lie beyond the month and counts on.
constexpr DayNumber DayOfDate(int year, int month, int day)
{
    constexpr DayNumber daysFromYear1To1970 = 719162;
    const DayNumber whole = year - 1;
    DayNumber days = whole * 365 + whole / 4 - whole / 100 + whole / 400 - daysFromYear1To1970;
    for (int m = 1; m < month; ++m) {
        days += DaysInMonth(year, m);
    }
    return days + day - 1;
}

// The years that calendar files and the controls can hold: 100 to 9999.
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr LocalTime kEarliestTime = DayOfDate(kFirstYear, 1, 1) * kDaySeconds;
constexpr LocalTime kEndOfTime = DayOfDate(kLastYear + 1, 1, 1) * kDaySeconds; // the first second beyond

constexpr DayNumber DayOfTime(LocalTime time)
{
    return time >= 0 ? time / kDaySeconds : -((-time + kDaySeconds - 1) / kDaySeconds);
}

// Valid for days from year 1 on; earlier days give 1 January of year 1.
CivilDate DateOfDay(DayNumber day);
// 0 = Sunday.
int WeekdayOfDay(DayNumber day);
LocalTime TimeOfCivil(const CivilTime& civil);
CivilTime CivilOfTime(LocalTime time);
LocalTime ClampTime(LocalTime time); // into [kEarliestTime, kEndOfTime]

// A DATE or DATE-TIME value as written, before any time zone is applied.
struct WrittenTime
{
    LocalTime wall = 0;
    bool isDate = false; // a date without a time: `wall` is its midnight
    bool isUtc = false;  // ends in Z
};

// Reads "20261121", "20261121T093000", "20261121T0930" and the last two with Z. Nothing for anything else, for dates
// that the calendar lacks and for years outside [kFirstYear, kLastYear]. A leap second counts as second 59.
std::optional<WrittenTime> ParseTime(std::string_view text);
std::string FormatTime(const WrittenTime& time);

// A length in calendar days, each as long as the clock makes it, and then in exact seconds (RFC 5545, section 3.3.6):
// one day from 12:00 ends at 12:00 although the clock was changed in between, 24 hours do not. Both have one sign.
struct Duration
{
    std::int64_t days = 0;
    std::int64_t seconds = 0;

    bool operator==(const Duration& other) const { return days == other.days && seconds == other.seconds; }
    // With days of 24 hours.
    std::int64_t Total() const { return days * kDaySeconds + seconds; }
};

// Reads "P3W", "P1DT2H", "-PT15M" and the like.
std::optional<Duration> ParseDuration(std::string_view text);
// The duration must not be negative.
std::string FormatDuration(const Duration& duration);

} // namespace dayvane::ical
