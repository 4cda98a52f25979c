#include "ical/CivilTime.h"

#include "ical/Text.h"

#include <algorithm>

namespace planner {

namespace {

constexpr DayNumber FirstDayOfYear1 = DayOfDate(1, 1, 1);
constexpr int DaysIn400Years = 146097;
constexpr std::size_t DateLength = 8;
constexpr std::size_t MaxDurationDigits = 9;

// A plain decimal number of exactly `length` digits at `at`; -1 if there is none.
int DigitsAt(std::string_view text, std::size_t at, std::size_t length)
{
    int value = 0;
    for (std::size_t i = at; i < at + length; ++i) {
        if (i >= text.size() || text[i] < '0' || text[i] > '9') {
            return -1;
        }
        value = value * 10 + (text[i] - '0');
    }
    return value;
}

bool ParseClock(std::string_view text, CivilTime& civil)
{
    constexpr std::size_t shortClock = 4; // some writers leave the seconds out
    constexpr std::size_t fullClock = 6;
    civil.hour = DigitsAt(text, 0, 2);
    civil.minute = DigitsAt(text, 2, 2);
    civil.second = text.size() == fullClock ? DigitsAt(text, shortClock, 2) : 0;
    if (text.size() != fullClock && text.size() != shortClock) {
        return false;
    }
    if (civil.second == 60) {
        civil.second = 59;
    }
    return civil.hour >= 0 && civil.hour < 24 && civil.minute >= 0 && civil.minute < 60 && civil.second >= 0 &&
           civil.second < 60;
}

// The length of a unit of a duration; hours, minutes and seconds stand behind the T. 0: no unit.
std::int64_t UnitSeconds(char unit, bool inClock)
{
    if (inClock) {
        return unit == 'H' ? HourSeconds : unit == 'M' ? MinuteSeconds : unit == 'S' ? 1 : 0;
    }
    return unit == 'W' ? WeekDays * DaySeconds : unit == 'D' ? DaySeconds : 0;
}

void AppendNumber(std::string& text, int value, int width)
{
    const std::string digits = std::to_string(value);
    text.append(std::max(0, width - static_cast<int>(digits.size())), '0');
    text += digits;
}

} // namespace

CivilDate DateOfDay(DayNumber day)
{
    day = std::max(day, FirstDayOfYear1);
    int year = static_cast<int>((day - FirstDayOfYear1) * 400 / DaysIn400Years) + 1;
    while (year > 1 && DayOfDate(year, 1, 1) > day) {
        --year;
    }
    while (DayOfDate(year + 1, 1, 1) <= day) {
        ++year;
    }
    CivilDate date{year, 1, static_cast<int>(day - DayOfDate(year, 1, 1)) + 1};
    while (date.day > DaysInMonth(year, date.month)) {
        date.day -= DaysInMonth(year, date.month);
        ++date.month;
    }
    return date;
}

int WeekdayOfDay(DayNumber day)
{
    constexpr int weekdayOf1970 = 4; // a Thursday
    return static_cast<int>((day % WeekDays + WeekDays + weekdayOf1970) % WeekDays);
}

LocalTime TimeOfCivil(const CivilTime& civil)
{
    return DayOfDate(civil.year, civil.month, civil.day) * DaySeconds + civil.hour * HourSeconds +
           civil.minute * MinuteSeconds + civil.second;
}

CivilTime CivilOfTime(LocalTime time)
{
    const DayNumber day = DayOfTime(time);
    const CivilDate date = DateOfDay(day);
    const int clock = static_cast<int>(time - day * DaySeconds);
    return {date.year,
            date.month,
            date.day,
            static_cast<int>(clock / HourSeconds),
            static_cast<int>(clock % HourSeconds / MinuteSeconds),
            static_cast<int>(clock % MinuteSeconds)};
}

LocalTime ClampTime(LocalTime time)
{
    return std::clamp(time, EarliestTime, EndOfTime);
}

std::optional<WrittenTime> ParseTime(std::string_view text)
{
    text = TrimBlanks(text);
    CivilTime civil;
    civil.year = DigitsAt(text, 0, 4);
    civil.month = DigitsAt(text, 4, 2);
    civil.day = DigitsAt(text, 6, 2);
    if (civil.year < FirstYear || civil.month < 1 || civil.month > YearMonths || civil.day < 1 ||
        civil.day > DaysInMonth(civil.year, civil.month)) {
        return std::nullopt;
    }
    WrittenTime time;
    if (text.size() == DateLength) {
        time.isDate = true;
    } else {
        if (text[DateLength] != 'T' && text[DateLength] != 't') {
            return std::nullopt;
        }
        std::string_view clock = text.substr(DateLength + 1);
        if (!clock.empty() && (clock.back() == 'Z' || clock.back() == 'z')) {
            time.isUtc = true;
            clock.remove_suffix(1);
        }
        if (!ParseClock(clock, civil)) {
            return std::nullopt;
        }
    }
    time.wall = TimeOfCivil(civil);
    return time;
}

std::string FormatTime(const WrittenTime& time)
{
    const CivilTime civil = CivilOfTime(time.wall);
    std::string text;
    AppendNumber(text, civil.year, 4);
    AppendNumber(text, civil.month, 2);
    AppendNumber(text, civil.day, 2);
    if (!time.isDate) {
        text += 'T';
        AppendNumber(text, civil.hour, 2);
        AppendNumber(text, civil.minute, 2);
        AppendNumber(text, civil.second, 2);
        text += time.isUtc ? "Z" : "";
    }
    return text;
}

std::optional<std::int64_t> ParseDuration(std::string_view text)
{
    text = TrimBlanks(text);
    const bool negative = !text.empty() && text[0] == '-';
    if (negative || (!text.empty() && text[0] == '+')) {
        text.remove_prefix(1);
    }
    if (text.size() < 2 || UpperLetter(text[0]) != 'P') {
        return std::nullopt;
    }
    std::int64_t seconds = 0;
    bool inClock = false;
    bool anyPart = false;
    for (std::size_t at = 1; at < text.size();) {
        if (UpperLetter(text[at]) == 'T' && !inClock) {
            inClock = true;
            ++at;
            continue;
        }
        std::size_t digits = 0;
        while (at + digits < text.size() && text[at + digits] >= '0' && text[at + digits] <= '9') {
            ++digits;
        }
        if (digits == 0 || digits > MaxDurationDigits || at + digits >= text.size()) {
            return std::nullopt;
        }
        const std::int64_t scale = UnitSeconds(UpperLetter(text[at + digits]), inClock);
        if (scale == 0) {
            return std::nullopt;
        }
        seconds += DigitsAt(text, at, digits) * scale;
        seconds = std::min(seconds, EndOfTime - EarliestTime);
        anyPart = true;
        at += digits + 1;
    }
    if (!anyPart) {
        return std::nullopt;
    }
    return negative ? -seconds : seconds;
}

std::string FormatDuration(std::int64_t seconds)
{
    std::string text = "P";
    if (seconds >= DaySeconds) {
        text += std::to_string(seconds / DaySeconds) + "D";
        seconds %= DaySeconds;
    }
    if (seconds != 0 || text.size() == 1) {
        text += "T";
        const bool nothing = seconds == 0;
        if (seconds >= HourSeconds) {
            text += std::to_string(seconds / HourSeconds) + "H";
        }
        if (seconds % HourSeconds >= MinuteSeconds || nothing) {
            text += std::to_string(seconds % HourSeconds / MinuteSeconds) + "M";
        }
        if (seconds % MinuteSeconds != 0) {
            text += std::to_string(seconds % MinuteSeconds) + "S";
        }
    }
    return text;
}

} // namespace planner
