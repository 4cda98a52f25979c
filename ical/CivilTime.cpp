#include "ical/CivilTime.h"

#include "ical/Text.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

constexpr DayNumber kFirstDayOfYear1 = DayOfDate(1, 1, 1);
constexpr int kDaysIn400Years = 146097;
constexpr std::size_t kDateLength = 8;
constexpr std::size_t kMaxDurationDigits = 9;
constexpr std::int64_t kLongest = kEndOfTime - kEarliestTime; // of a duration, seconds

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

// The length of a unit of a duration; hours, minutes and seconds stand after the T. 0: no unit.
std::int64_t UnitSeconds(char unit, bool inClock)
{
    if (inClock) {
        return unit == 'H' ? kHourSeconds : unit == 'M' ? kMinuteSeconds : unit == 'S' ? 1 : 0;
    }
    return unit == 'W' ? kWeekDays * kDaySeconds : unit == 'D' ? kDaySeconds : 0;
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
    day = std::max(day, kFirstDayOfYear1);
    int year = static_cast<int>((day - kFirstDayOfYear1) * 400 / kDaysIn400Years) + 1;
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
    return static_cast<int>((day % kWeekDays + kWeekDays + weekdayOf1970) % kWeekDays);
}

LocalTime TimeOfCivil(const CivilTime& civil)
{
    return DayOfDate(civil.year, civil.month, civil.day) * kDaySeconds + civil.hour * kHourSeconds +
           civil.minute * kMinuteSeconds + civil.second;
}

CivilTime CivilOfTime(LocalTime time)
{
    const DayNumber day = DayOfTime(time);
    const CivilDate date = DateOfDay(day);
    const int clock = static_cast<int>(time - day * kDaySeconds);
    return {date.year,
            date.month,
            date.day,
            static_cast<int>(clock / kHourSeconds),
            static_cast<int>(clock % kHourSeconds / kMinuteSeconds),
            static_cast<int>(clock % kMinuteSeconds)};
}

LocalTime ClampTime(LocalTime time)
{
    return std::clamp(time, kEarliestTime, kEndOfTime);
}

std::optional<WrittenTime> ParseTime(std::string_view text)
{
    text = TrimBlanks(text);
    CivilTime civil;
    civil.year = DigitsAt(text, 0, 4);
    civil.month = DigitsAt(text, 4, 2);
    civil.day = DigitsAt(text, 6, 2);
    if (civil.year < kFirstYear || civil.month < 1 || civil.month > kYearMonths || civil.day < 1 ||
        civil.day > DaysInMonth(civil.year, civil.month)) {
        return std::nullopt;
    }
    WrittenTime time;
    if (text.size() == kDateLength) {
        time.isDate = true;
    } else {
        if (text[kDateLength] != 'T' && text[kDateLength] != 't') {
            return std::nullopt;
        }
        std::string_view clock = text.substr(kDateLength + 1);
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

std::optional<Duration> ParseDuration(std::string_view text)
{
    text = TrimBlanks(text);
    const bool negative = !text.empty() && text[0] == '-';
    if (negative || (!text.empty() && text[0] == '+')) {
        text.remove_prefix(1);
    }
    if (text.size() < 2 || UpperLetter(text[0]) != 'P') {
        return std::nullopt;
    }
    Duration duration;
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
        if (digits == 0 || digits > kMaxDurationDigits || at + digits >= text.size()) {
            return std::nullopt;
        }
        const std::int64_t scale = UnitSeconds(UpperLetter(text[at + digits]), inClock);
        if (scale == 0) {
            return std::nullopt;
        }
        const std::int64_t amount = DigitsAt(text, at, digits) * scale;
        if (inClock) {
            duration.seconds = std::min(duration.seconds + amount, kLongest);
        } else {
            duration.days = std::min(duration.days + amount / kDaySeconds, kLongest / kDaySeconds);
        }
        anyPart = true;
        at += digits + 1;
    }
    if (!anyPart) {
        return std::nullopt;
    }
    return negative ? Duration{-duration.days, -duration.seconds} : duration;
}

std::string FormatDuration(const Duration& duration)
{
    std::string text = "P";
    if (duration.days > 0) {
        text += std::to_string(duration.days) + "D";
    }
    const std::int64_t seconds = duration.seconds;
    if (seconds != 0 || duration.days == 0) {
        text += "T";
        if (seconds >= kHourSeconds) {
            text += std::to_string(seconds / kHourSeconds) + "H";
        }
        if (seconds % kHourSeconds >= kMinuteSeconds || seconds == 0) {
            text += std::to_string(seconds % kHourSeconds / kMinuteSeconds) + "M";
        }
        if (seconds % kMinuteSeconds != 0) {
            text += std::to_string(seconds % kMinuteSeconds) + "S";
        }
    }
    return text;
}

} // namespace dayvane::ical
