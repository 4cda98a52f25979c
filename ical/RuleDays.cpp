#include "ical/RuleDays.h"

#include <algorithm>
#include <limits>

namespace dayvane::ical {

namespace {

constexpr int kDaysOfWeekInItsYear = 4; // so many days at least has week 1 in its year (ISO 8601)

bool Contains(const std::vector<int>& sorted, int value)
{
    return std::binary_search(sorted.begin(), sorted.end(), value);
}

constexpr int MonthIndex(int year, int month)
{
    return year * kYearMonths + month - 1;
}

} // namespace

RuleDays::RuleDays(const RecurrenceRule& rule, DayNumber startDay)
    : m_rule(rule), m_startDay(startDay), m_startDate(DateOfDay(startDay)), m_startWeek(WeekBegin(startDay))
{
}

std::int64_t RuleDays::PeriodOfDay(DayNumber day) const
{
    std::int64_t distance = 0; // periods of interval 1
    if (m_rule.frequency <= Frequency::Daily) {
        distance = day - m_startDay;
    } else if (m_rule.frequency == Frequency::Weekly) {
        distance = (day - m_startWeek) / kWeekDays;
    } else {
        const CivilDate date = DateOfDay(day);
        const bool monthly = m_rule.frequency == Frequency::Monthly;
        distance = monthly ? MonthIndex(date.year, date.month) - MonthIndex(m_startDate.year, m_startDate.month)
                           : date.year - m_startDate.year;
    }
    return std::max<std::int64_t>(0, distance / m_rule.interval);
}

DayNumber RuleDays::FirstDay(std::int64_t period) const
{
    const std::int64_t step = period * m_rule.interval;
    if (m_rule.frequency <= Frequency::Weekly) {
        return m_rule.frequency == Frequency::Weekly ? m_startWeek + kWeekDays * step : m_startDay + step;
    }
    const bool monthly = m_rule.frequency == Frequency::Monthly;
    const std::int64_t month =
        MonthIndex(m_startDate.year, monthly ? m_startDate.month : 1) + (monthly ? step : step * kYearMonths);
    if (month / kYearMonths > kLastYear) {
        return std::numeric_limits<DayNumber>::max();
    }
    return DayOfDate(static_cast<int>(month / kYearMonths), static_cast<int>(month % kYearMonths) + 1, 1);
}

void RuleDays::DaysFrom(DayNumber first, std::vector<DayNumber>& days) const
{
    days.clear();
    const CivilDate date = DateOfDay(first);
    if (m_rule.frequency == Frequency::Yearly) {
        AddYear(date.year, days);
    } else if (m_rule.frequency == Frequency::Monthly) {
        if (HasMonth(date.month)) {
            AddMonth(date.year, date.month, m_startDate.day, days);
        }
    } else if (m_rule.frequency == Frequency::Weekly) {
        AddWeek(first, days);
    } else if (Passes(first)) {
        days.push_back(first);
    }
    std::sort(days.begin(), days.end());
    days.erase(std::unique(days.begin(), days.end()), days.end());
}

bool RuleDays::Passes(DayNumber day) const
{
    return HasMonth(DateOfDay(day).month) && (m_rule.byDay.empty() || HasWeekday(day)) && HasMonthDay(day) &&
           HasYearDay(day);
}

bool RuleDays::HasMonth(int month) const
{
    return m_rule.byMonth.empty() || Contains(m_rule.byMonth, month);
}

bool RuleDays::HasMonthDay(DayNumber day) const
{
    if (m_rule.byMonthDay.empty()) {
        return true;
    }
    const CivilDate date = DateOfDay(day);
    return Contains(m_rule.byMonthDay, date.day) ||
           Contains(m_rule.byMonthDay, date.day - DaysInMonth(date.year, date.month) - 1);
}

bool RuleDays::HasYearDay(DayNumber day) const
{
    if (m_rule.byYearDay.empty()) {
        return true;
    }
    const int year = DateOfDay(day).year;
    return Contains(m_rule.byYearDay, static_cast<int>(day - DayOfDate(year, 1, 1)) + 1) ||
           Contains(m_rule.byYearDay, static_cast<int>(day - DayOfDate(year + 1, 1, 1)));
}

// Whether BYDAY names the day: by its weekday, or, in months and years, as the how-manieth one from either end.
bool RuleDays::HasWeekday(DayNumber day) const
{
    const CivilDate date = DateOfDay(day);
    const bool inMonth = m_rule.frequency == Frequency::Monthly || !m_rule.byMonth.empty();
    const DayNumber first = DayOfDate(date.year, inMonth ? date.month : 1, 1);
    const DayNumber end = inMonth ? first + DaysInMonth(date.year, date.month) : DayOfDate(date.year + 1, 1, 1);
    const bool counts = m_rule.frequency >= Frequency::Monthly && m_rule.byWeekNo.empty();
    return std::any_of(m_rule.byDay.begin(), m_rule.byDay.end(), [&](const RuleWeekday& wanted) {
        const bool isCounted = !counts || wanted.ordinal == 0 || wanted.ordinal == (day - first) / kWeekDays + 1 ||
                               wanted.ordinal == -((end - 1 - day) / kWeekDays) - 1;
        return wanted.weekday == WeekdayOfDay(day) && isCounted;
    });
}

DayNumber RuleDays::WeekBegin(DayNumber day) const
{
    return day - (WeekdayOfDay(day) - m_rule.weekStart + kWeekDays) % kWeekDays;
}

// The first day of week 1, which may lie in the year before.
DayNumber RuleDays::FirstWeekOf(int year) const
{
    return WeekBegin(DayOfDate(year, 1, kDaysOfWeekInItsYear));
}

bool RuleDays::HasWeekNumber(DayNumber day) const
{
    int year = DateOfDay(day).year;
    if (day >= FirstWeekOf(year + 1)) {
        ++year;
    } else if (day < FirstWeekOf(year)) {
        --year;
    }
    const int fromBegin = static_cast<int>((day - FirstWeekOf(year)) / kWeekDays) + 1;
    const int fromEnd = -static_cast<int>((FirstWeekOf(year + 1) - 1 - day) / kWeekDays) - 1;
    return Contains(m_rule.byWeekNo, fromBegin) || Contains(m_rule.byWeekNo, fromEnd);
}

void RuleDays::AddWeek(DayNumber first, std::vector<DayNumber>& days) const
{
    for (DayNumber day = first; day < first + kWeekDays; ++day) {
        const bool wanted = m_rule.byDay.empty() ? WeekdayOfDay(day) == WeekdayOfDay(m_startDay) : HasWeekday(day);
        if (wanted && HasMonth(DateOfDay(day).month)) {
            days.push_back(day);
        }
    }
}

void RuleDays::AddMonth(int year, int month, int plainDay, std::vector<DayNumber>& days) const
{
    const DayNumber first = DayOfDate(year, month, 1);
    const DayNumber end = first + DaysInMonth(year, month);
    if (!m_rule.byMonthDay.empty()) {
        for (const int number : m_rule.byMonthDay) {
            const DayNumber day = number > 0 ? first + number - 1 : end + number;
            if (day >= first && day < end && (m_rule.byDay.empty() || HasWeekday(day))) {
                days.push_back(day);
            }
        }
    } else if (!m_rule.byDay.empty()) {
        AddWeekdays(first, end, days);
    } else if (plainDay <= DaysInMonth(year, month)) {
        days.push_back(first + plainDay - 1);
    }
}

// BYDAY within [first, end), a month or a year.
void RuleDays::AddWeekdays(DayNumber first, DayNumber end, std::vector<DayNumber>& days) const
{
    for (const RuleWeekday& wanted : m_rule.byDay) {
        const DayNumber earliest = first + (wanted.weekday - WeekdayOfDay(first) + kWeekDays) % kWeekDays;
        const DayNumber latest = end - 1 - (WeekdayOfDay(end - 1) - wanted.weekday + kWeekDays) % kWeekDays;
        if (wanted.ordinal == 0) {
            for (DayNumber day = earliest; day <= latest; day += kWeekDays) {
                days.push_back(day);
            }
            continue;
        }
        const DayNumber day = wanted.ordinal > 0 ? earliest + kWeekDays * (wanted.ordinal - 1)
                                                 : latest + kWeekDays * (wanted.ordinal + 1);
        if (day >= first && day < end) {
            days.push_back(day);
        }
    }
}

void RuleDays::AddYear(int year, std::vector<DayNumber>& days) const
{
    const DayNumber first = DayOfDate(year, 1, 1);
    const DayNumber end = DayOfDate(year + 1, 1, 1);
    if (!m_rule.byWeekNo.empty()) {
        AddNumberedWeeks(year, days);
    } else if (!m_rule.byYearDay.empty()) {
        for (const int number : m_rule.byYearDay) {
            const DayNumber day = number > 0 ? first + number - 1 : end + number;
            if (day >= first && day < end && Passes(day)) {
                days.push_back(day);
            }
        }
    } else if (m_rule.byMonth.empty() && m_rule.byMonthDay.empty()) {
        if (m_rule.byDay.empty()) {
            AddMonth(year, m_startDate.month, m_startDate.day, days);
        } else {
            AddWeekdays(first, end, days);
        }
    } else {
        for (int month = 1; month <= kYearMonths; ++month) {
            if (HasMonth(month)) {
                AddMonth(year, month, m_startDate.day, days);
            }
        }
    }
}

// The days of the year, and of no other, in the weeks that BYWEEKNO names; a part that picks no days of a week leaves
// the weekday of the start.
void RuleDays::AddNumberedWeeks(int year, std::vector<DayNumber>& days) const
{
    const bool picksDays = !m_rule.byDay.empty() || !m_rule.byMonthDay.empty() || !m_rule.byYearDay.empty();
    const DayNumber end = DayOfDate(year + 1, 1, 1);
    for (DayNumber day = DayOfDate(year, 1, 1); day < end; ++day) {
        const bool fitsStart = picksDays || WeekdayOfDay(day) == WeekdayOfDay(m_startDay);
        if (fitsStart && HasWeekNumber(day) && Passes(day)) {
            days.push_back(day);
        }
    }
}

} // namespace dayvane::ical
