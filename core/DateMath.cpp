#include "core/DateMath.h"

#include "mfc/base/civil.h"

#include <algorithm>
#include <cmath>

namespace dayvane {
namespace {

// In a DATE the sign belongs to the whole days only, not to the time of day: -1.25 is 06:00 of the day before the
// epoch. Linear days count evenly.
double LinearOf(DATE date)
{
    if (date >= 0.0) {
        return date;
    }
    const double whole = std::ceil(date);
    return whole + (whole - date);
}

COleDateTime FromLinear(double days)
{
    // Adding a span to a date counts evenly, so the epoch plus a span is the date.
    return COleDateTime(0.0) + COleDateTimeSpan(days);
}
} // namespace

COleDateTime StartOfDay(const COleDateTime& date)
{
    const CivilDate fields = CivilDateOf(date);
    return COleDateTime(fields.year, fields.month, fields.day, 0, 0, 0);
}

COleDateTime EndOfDay(const COleDateTime& date)
{
    const CivilDate fields = CivilDateOf(date);
    return COleDateTime(fields.year, fields.month, fields.day, 23, 59, 59);
}

int DayNumberOf(const COleDateTime& date)
{
    // To the nearest second, from which the next day may already have begun.
    const double seconds = date.m_dt * kSecondsPerDay + 0.5;
    if (date.m_dt >= 0.0 && date.m_dt < civil::kLastDay) {
        const int day = static_cast<int>(date.m_dt);
        return seconds >= (day + 1.0) * kSecondsPerDay ? day + 1 : day;
    }
    const double days = std::floor(std::floor(LinearOf(date.m_dt) * kSecondsPerDay + 0.5) / kSecondsPerDay);
    // A host can write anything into a date; beyond the calendar it is the day after its end.
    return days >= civil::kFirstDay && days <= civil::kLastDay ? static_cast<int>(days) : civil::kLastDay + 1;
}

COleDateTime DateOfDayNumber(int dayNumber)
{
    int year = 0;
    int month = 0;
    int day = 0;
    civil::FromDayNumber(dayNumber, year, month, day);
    return COleDateTime(year, month, day, 0, 0, 0);
}

int WeekStartOf(int dayNumber, int firstDayOfWeek)
{
    const int daysInWeek = WeekdayOf(dayNumber) - firstDayOfWeek;
    return dayNumber - (daysInWeek < 0 ? daysInWeek + kDaysPerWeek : daysInWeek);
}

COleDateTime AddDays(const COleDateTime& date, int days)
{
    return date + COleDateTimeSpan(static_cast<double>(days));
}

COleDateTime AddMinutes(const COleDateTime& date, int minutes)
{
    return AddSeconds(date, minutes * 60LL);
}

int ClampMonthNumber(int monthNumber)
{
    return std::clamp(monthNumber, kFirstMonthNumber, kLastMonthNumber);
}

int MonthNumberOf(const COleDateTime& date)
{
    const CivilDate fields = CivilDateOf(date);
    return fields.year * kMonthsPerYear + fields.month - 1;
}

COleDateTime DateOfMonthNumber(int monthNumber)
{
    return COleDateTime(YearOfMonthNumber(monthNumber), MonthOfMonthNumber(monthNumber), 1, 0, 0, 0);
}

long long SecondsBetween(const COleDateTime& from, const COleDateTime& to)
{
    return std::llround((LinearOf(to.m_dt) - LinearOf(from.m_dt)) * kSecondsPerDay);
}

COleDateTime AddSeconds(const COleDateTime& date, long long seconds)
{
    if (!IsValid(date)) {
        return date;
    }
    // Through whole seconds, so that repeated steps do not drift.
    const double now = std::floor(LinearOf(date.m_dt) * kSecondsPerDay + 0.5);
    return FromLinear((now + static_cast<double>(seconds)) / kSecondsPerDay);
}

} // namespace dayvane
