#include "ical/Recurrence.h"

#include <algorithm>
#include <limits>

namespace dayvane::ical {

namespace {

// What one rule may spend on counting: more than a century of days.
constexpr std::int64_t kCountingStepsOfRule = 100000;

bool Contains(const std::vector<int>& sorted, int value)
{
    return std::binary_search(sorted.begin(), sorted.end(), value);
}

constexpr int MonthIndex(int year, int month)
{
    return year * kYearMonths + month - 1;
}

// The periods of a rule, numbered from the one that holds the event's start, and the days that each gives.
class RulePeriods
{
public:
    RulePeriods(const RecurrenceRule& rule, LocalTime start)
        : m_rule(rule), m_startDay(DayOfTime(start)), m_startDate(DateOfDay(m_startDay))
    {
        const int daysIntoWeek = (WeekdayOfDay(m_startDay) - rule.weekStart + kWeekDays) % kWeekDays;
        m_startWeek = m_startDay - daysIntoWeek;
    }

    // The last period that does not begin after `day`; 0 for days before the start.
    std::int64_t PeriodOfDay(DayNumber day) const
    {
        const CivilDate date = DateOfDay(day);
        switch (m_rule.frequency) {
        case Frequency::Daily:
            return std::max<std::int64_t>(0, (day - m_startDay) / m_rule.interval);
        case Frequency::Weekly:
            return std::max<std::int64_t>(0, (day - m_startWeek) / (kWeekDays * m_rule.interval));
        case Frequency::Monthly:
            return std::max<std::int64_t>(
                0, (MonthIndex(date.year, date.month) - MonthIndex(m_startDate.year, m_startDate.month)) /
                       m_rule.interval);
        case Frequency::Yearly:
            break;
        }
        return std::max<std::int64_t>(0, (date.year - m_startDate.year) / m_rule.interval);
    }

    // The first day of the period; beyond every date when it begins after the last year.
    DayNumber FirstDay(std::int64_t period) const
    {
        const std::int64_t step = period * m_rule.interval;
        if (m_rule.frequency == Frequency::Daily || m_rule.frequency == Frequency::Weekly) {
            const bool daily = m_rule.frequency == Frequency::Daily;
            return daily ? m_startDay + step : m_startWeek + kWeekDays * step;
        }
        const bool monthly = m_rule.frequency == Frequency::Monthly;
        const std::int64_t month =
            MonthIndex(m_startDate.year, monthly ? m_startDate.month : 1) + (monthly ? step : step * kYearMonths);
        if (month / kYearMonths > kLastYear) {
            return std::numeric_limits<DayNumber>::max();
        }
        return DayOfDate(static_cast<int>(month / kYearMonths), static_cast<int>(month % kYearMonths) + 1, 1);
    }

    // The days of the period that begins on `first`, ascending.
    void DaysFrom(DayNumber first, std::vector<DayNumber>& days) const
    {
        days.clear();
        const CivilDate date = DateOfDay(first);
        switch (m_rule.frequency) {
        case Frequency::Daily:
            AddIfPassed(first, days);
            break;
        case Frequency::Weekly:
            AddWeek(first, days);
            break;
        case Frequency::Monthly:
            if (m_rule.byMonth.empty() || Contains(m_rule.byMonth, date.month)) {
                AddMonth(date.year, date.month, m_startDate.day, days);
            }
            break;
        case Frequency::Yearly:
            AddYear(date.year, days);
            break;
        }
        std::sort(days.begin(), days.end());
        days.erase(std::unique(days.begin(), days.end()), days.end());
        PickPositions(days);
    }

private:
    // Whether BYDAY names the day: by its weekday, or, in months and years, as the how-manieth one from either end.
    bool HasWeekday(DayNumber day) const
    {
        const CivilDate date = DateOfDay(day);
        const bool inMonth = m_rule.frequency == Frequency::Monthly || !m_rule.byMonth.empty();
        const DayNumber first = DayOfDate(date.year, inMonth ? date.month : 1, 1);
        const DayNumber end = inMonth ? first + DaysInMonth(date.year, date.month) : DayOfDate(date.year + 1, 1, 1);
        const bool counts = m_rule.frequency == Frequency::Monthly || m_rule.frequency == Frequency::Yearly;
        return std::any_of(m_rule.byDay.begin(), m_rule.byDay.end(), [&](const RuleWeekday& wanted) {
            const bool isCounted = !counts || wanted.ordinal == 0 || wanted.ordinal == (day - first) / kWeekDays + 1 ||
                                   wanted.ordinal == -((end - 1 - day) / kWeekDays) - 1;
            return wanted.weekday == WeekdayOfDay(day) && isCounted;
        });
    }

    // For daily rules every part is a filter.
    void AddIfPassed(DayNumber day, std::vector<DayNumber>& days) const
    {
        const CivilDate date = DateOfDay(day);
        const int fromMonthEnd = date.day - DaysInMonth(date.year, date.month) - 1;
        const int yearDay = static_cast<int>(day - DayOfDate(date.year, 1, 1)) + 1;
        const int fromYearEnd = static_cast<int>(day - DayOfDate(date.year + 1, 1, 1));
        const auto passes = [](const std::vector<int>& list, int value, int fromEnd) {
            return list.empty() || Contains(list, value) || Contains(list, fromEnd);
        };
        if ((m_rule.byMonth.empty() || Contains(m_rule.byMonth, date.month)) &&
            (m_rule.byDay.empty() || HasWeekday(day)) && passes(m_rule.byMonthDay, date.day, fromMonthEnd) &&
            passes(m_rule.byYearDay, yearDay, fromYearEnd)) {
            days.push_back(day);
        }
    }

    void AddWeek(DayNumber first, std::vector<DayNumber>& days) const
    {
        for (DayNumber day = first; day < first + kWeekDays; ++day) {
            const bool wanted = m_rule.byDay.empty() ? WeekdayOfDay(day) == WeekdayOfDay(m_startDay) : HasWeekday(day);
            if (wanted && (m_rule.byMonth.empty() || Contains(m_rule.byMonth, DateOfDay(day).month))) {
                days.push_back(day);
            }
        }
    }

    void AddMonth(int year, int month, int plainDay, std::vector<DayNumber>& days) const
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
    void AddWeekdays(DayNumber first, DayNumber end, std::vector<DayNumber>& days) const
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

    void AddYear(int year, std::vector<DayNumber>& days) const
    {
        const DayNumber first = DayOfDate(year, 1, 1);
        const DayNumber end = DayOfDate(year + 1, 1, 1);
        if (!m_rule.byYearDay.empty()) {
            for (const int number : m_rule.byYearDay) {
                const DayNumber day = number > 0 ? first + number - 1 : end + number;
                if (day >= first && day < end) {
                    AddIfPassed(day, days);
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
                if (m_rule.byMonth.empty() || Contains(m_rule.byMonth, month)) {
                    AddMonth(year, month, m_startDate.day, days);
                }
            }
        }
    }

    void PickPositions(std::vector<DayNumber>& days) const
    {
        if (m_rule.bySetPos.empty()) {
            return;
        }
        std::vector<DayNumber> picked;
        const int count = static_cast<int>(days.size());
        for (const int position : m_rule.bySetPos) {
            const int index = position > 0 ? position - 1 : count + position;
            if (index >= 0 && index < count) {
                picked.push_back(days[static_cast<std::size_t>(index)]);
            }
        }
        std::sort(picked.begin(), picked.end());
        picked.erase(std::unique(picked.begin(), picked.end()), picked.end());
        days = std::move(picked);
    }

    const RecurrenceRule& m_rule;
    DayNumber m_startDay;
    CivilDate m_startDate;
    DayNumber m_startWeek;
};

} // namespace

bool LimitByCount(RecurrenceRule& rule, LocalTime start, std::int64_t& stepsLeft)
{
    if (!rule.count) {
        return true;
    }
    const std::int64_t count = *rule.count;
    const bool hasParts = !rule.byMonth.empty() || !rule.byMonthDay.empty() || !rule.byYearDay.empty() ||
                          !rule.byDay.empty() || !rule.bySetPos.empty();
    if (!hasParts && (rule.frequency == Frequency::Daily || rule.frequency == Frequency::Weekly)) {
        const std::int64_t step = rule.interval * (rule.frequency == Frequency::Daily ? 1 : kWeekDays) * kDaySeconds;
        if (count - 1 <= (kEndOfTime - start) / step) {
            rule.lastStart = std::min(rule.lastStart, start + (count - 1) * step);
        }
        return true;
    }
    std::int64_t counted = 0;
    const auto use = [&](LocalTime occurrence) {
        ++counted;
        if (counted == count) {
            rule.lastStart = occurrence;
        }
        return counted < count;
    };
    const std::int64_t maxSteps = std::min(kCountingStepsOfRule, stepsLeft);
    const std::int64_t steps = ExpandRule(rule, start, start, rule.lastStart + 1, use, maxSteps);
    stepsLeft -= steps;
    return steps < maxSteps || counted == count;
}

std::int64_t ExpandRule(const RecurrenceRule& rule, LocalTime start, LocalTime from, LocalTime to,
                        const std::function<bool(LocalTime)>& use, std::int64_t maxSteps)
{
    std::int64_t steps = 0;
    if (start >= from && start < to && !use(start)) {
        return steps;
    }
    const RulePeriods periods(rule, start);
    const LocalTime clock = start - DayOfTime(start) * kDaySeconds;
    const LocalTime lastStart = rule.lastStart; // `use` may lower the rule's
    std::vector<DayNumber> days;
    for (std::int64_t period = periods.PeriodOfDay(DayOfTime(std::max(from, start))); steps < maxSteps; ++period) {
        const DayNumber first = periods.FirstDay(period);
        if (first > DayOfTime(std::min({to, lastStart, kEndOfTime - 1}))) {
            break;
        }
        periods.DaysFrom(first, days);
        steps += 1 + static_cast<std::int64_t>(days.size());
        for (const DayNumber day : days) {
            const LocalTime occurrence = day * kDaySeconds + clock;
            if (occurrence <= start || occurrence < from) {
                continue;
            }
            if (occurrence >= to || occurrence > lastStart || occurrence >= kEndOfTime || !use(occurrence)) {
                return steps;
            }
        }
    }
    return steps;
}

} // namespace dayvane::ical
