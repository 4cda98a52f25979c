#include "ical/RuleDays.h"

#include <algorithm>

namespace dayvane::ical {

namespace {

// What one rule may spend on counting: more than a century of days.
constexpr std::int64_t kCountingStepsOfRule = 100000;

// The seconds from one period to the next, for frequencies whose periods have all the same length; else 0.
std::int64_t PeriodSeconds(Frequency frequency)
{
    switch (frequency) {
    case Frequency::Secondly:
        return 1;
    case Frequency::Minutely:
        return kMinuteSeconds;
    case Frequency::Hourly:
        return kHourSeconds;
    case Frequency::Daily:
        return kDaySeconds;
    case Frequency::Weekly:
        return kWeekDays * kDaySeconds;
    default:
        return 0;
    }
}

bool LetsThrough(const std::vector<int>& sorted, int value)
{
    return sorted.empty() || std::binary_search(sorted.begin(), sorted.end(), value);
}

// The clock times that a rule gives on each of its days, never spelt out: hours x minutes x seconds, ascending.
class ClockTimes
{
public:
    ClockTimes(std::vector<int> hours, std::vector<int> minutes, std::vector<int> seconds)
        : m_hours(std::move(hours)), m_minutes(std::move(minutes)), m_seconds(std::move(seconds))
    {
    }
    // What the parts say; the start's clock where there is none.
    static ClockTimes Of(const RecurrenceRule& rule, const CivilTime& start)
    {
        const auto listed = [](const std::vector<int>& list, int plain) {
            return list.empty() ? std::vector<int>{plain} : list;
        };
        return {listed(rule.byHour, start.hour), listed(rule.byMinute, start.minute),
                listed(rule.bySecond, start.second)};
    }

    std::int64_t Count() const
    {
        return static_cast<std::int64_t>(m_hours.size() * m_minutes.size() * m_seconds.size());
    }
    // Seconds from midnight.
    LocalTime At(std::int64_t index) const
    {
        const auto at = static_cast<std::size_t>(index);
        return m_hours[at / m_seconds.size() / m_minutes.size()] * kHourSeconds +
               m_minutes[at / m_seconds.size() % m_minutes.size()] * kMinuteSeconds + m_seconds[at % m_seconds.size()];
    }
    // The number of times before `clock`.
    std::int64_t CountBefore(LocalTime clock) const
    {
        std::int64_t low = 0, high = Count();
        while (low < high) {
            const std::int64_t middle = (low + high) / 2;
            if (At(middle) < clock) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low;
    }

private:
    std::vector<int> m_hours, m_minutes, m_seconds;
};

class Expansion
{
public:
    Expansion(const RecurrenceRule& rule, LocalTime start, LocalTime from, LocalTime to,
              const std::function<bool(LocalTime)>& use, std::int64_t maxSteps)
        : m_rule(rule), m_start(start), m_from(std::max(from, rule.givesStart ? start + 1 : start)),
          m_end(std::min({to, rule.lastStart + 1, kEndOfTime})), // `use` may lower the rule's last start
          m_use(use), m_maxSteps(maxSteps), m_days(rule, DayOfTime(start)), m_civil(CivilOfTime(start))
    {
    }

    std::int64_t Run()
    {
        if (m_rule.frequency < Frequency::Daily) {
            WalkClock();
        } else {
            WalkDays();
        }
        return std::min(m_steps, m_maxSteps);
    }

private:
    bool MayGoOn() const { return !m_isOver && m_steps < m_maxSteps; }

    // Periods of days and longer: each gives days, each of these the same clock times.
    void WalkDays()
    {
        const ClockTimes times = ClockTimes::Of(m_rule, m_civil);
        std::vector<DayNumber> days;
        for (std::int64_t period = m_days.PeriodOfDay(DayOfTime(m_from)); MayGoOn(); ++period) {
            const DayNumber first = m_days.FirstDay(period);
            if (first > DayOfTime(m_end - 1)) {
                return;
            }
            m_days.DaysFrom(first, days);
            m_steps += 1 + static_cast<std::int64_t>(days.size());
            UsePeriod(days, times);
        }
    }

    // Periods of hours, minutes and seconds. Where a day, an hour or a minute does not fit, the walk goes on after it.
    void WalkClock()
    {
        const std::int64_t unit = PeriodSeconds(m_rule.frequency);
        const std::int64_t step = unit * m_rule.interval;
        const LocalTime base = m_start - (m_start - DayOfTime(m_start) * kDaySeconds) % unit;
        const LocalTime firstBegin = m_from - unit + 1; // an earlier period ends before the range
        std::vector<DayNumber> days(1);
        LocalTime begin = base + std::max<std::int64_t>(0, (firstBegin - base + step - 1) / step) * step;
        while (begin < m_end && MayGoOn()) {
            ++m_steps;
            const LocalTime next = NextFitting(begin);
            if (next > begin) {
                begin += (next - begin + step - 1) / step * step;
                continue;
            }
            const CivilTime civil = CivilOfTime(begin);
            days[0] = DayOfTime(begin);
            UsePeriod(days, TimesOfPeriod(civil));
            begin += step;
        }
    }

    ClockTimes TimesOfPeriod(const CivilTime& civil) const
    {
        if (m_rule.frequency == Frequency::Secondly) {
            return {{civil.hour}, {civil.minute}, {civil.second}};
        }
        const std::vector<int> seconds = m_rule.bySecond.empty() ? std::vector<int>{m_civil.second} : m_rule.bySecond;
        if (m_rule.frequency == Frequency::Minutely) {
            return {{civil.hour}, {civil.minute}, seconds};
        }
        const std::vector<int> minutes = m_rule.byMinute.empty() ? std::vector<int>{m_civil.minute} : m_rule.byMinute;
        return {{civil.hour}, minutes, seconds};
    }

    // `time` when the parts that filter let its period through, else the begin of what may fit next.
    LocalTime NextFitting(LocalTime time)
    {
        const DayNumber day = DayOfTime(time);
        if (day != m_checkedDay) {
            m_checkedDay = day;
            m_checkedPasses = m_days.Passes(day);
        }
        if (!m_checkedPasses) {
            return (day + 1) * kDaySeconds;
        }
        const LocalTime clock = time - day * kDaySeconds;
        if (!LetsThrough(m_rule.byHour, static_cast<int>(clock / kHourSeconds))) {
            return time - clock % kHourSeconds + kHourSeconds;
        }
        const bool checksMinute = m_rule.frequency <= Frequency::Minutely;
        if (checksMinute && !LetsThrough(m_rule.byMinute, static_cast<int>(clock % kHourSeconds / kMinuteSeconds))) {
            return time - clock % kMinuteSeconds + kMinuteSeconds;
        }
        const bool checksSecond = m_rule.frequency == Frequency::Secondly;
        return checksSecond && !LetsThrough(m_rule.bySecond, static_cast<int>(clock % kMinuteSeconds)) ? time + 1
                                                                                                       : time;
    }

    // The occurrences of one period, or those that BYSETPOS picks of them.
    void UsePeriod(const std::vector<DayNumber>& days, const ClockTimes& times)
    {
        const std::int64_t perDay = times.Count();
        if (m_rule.bySetPos.empty()) {
            for (const DayNumber day : days) {
                const LocalTime midnight = day * kDaySeconds;
                for (std::int64_t i = times.CountBefore(m_from - midnight); i < perDay && MayGoOn(); ++i) {
                    Use(midnight + times.At(i));
                }
            }
            return;
        }
        const std::int64_t count = static_cast<std::int64_t>(days.size()) * perDay;
        std::vector<std::int64_t> picked;
        for (const int position : m_rule.bySetPos) {
            const std::int64_t index = position > 0 ? position - 1 : count + position;
            if (index >= 0 && index < count) {
                picked.push_back(index);
            }
        }
        std::sort(picked.begin(), picked.end());
        picked.erase(std::unique(picked.begin(), picked.end()), picked.end());
        for (const std::int64_t index : picked) {
            const LocalTime midnight = days[static_cast<std::size_t>(index / perDay)] * kDaySeconds;
            Use(midnight + times.At(index % perDay));
        }
    }

    void Use(LocalTime occurrence)
    {
        if (m_isOver || occurrence < m_from) {
            return;
        }
        ++m_steps;
        m_isOver = occurrence >= m_end || !m_use(occurrence);
    }

    const RecurrenceRule& m_rule;
    const LocalTime m_start;
    const LocalTime m_from; // of the occurrences besides the start
    const LocalTime m_end;
    const std::function<bool(LocalTime)>& m_use;
    const std::int64_t m_maxSteps;
    const RuleDays m_days;
    const CivilTime m_civil; // of the start
    std::int64_t m_steps = 0;
    bool m_isOver = false;
    DayNumber m_checkedDay = std::numeric_limits<DayNumber>::min();
    bool m_checkedPasses = false;
};

} // namespace

bool RepeatsWithinDays(const RecurrenceRule& rule)
{
    return rule.frequency < Frequency::Daily ||
           std::max({rule.byHour.size(), rule.byMinute.size(), rule.bySecond.size()}) > 1;
}

bool IsStartOf(const RecurrenceRule& rule, LocalTime start, LocalTime wall)
{
    bool found = false;
    ExpandRule(rule, start, wall, wall + 1, [&](LocalTime) { return !(found = true); });
    return found;
}

bool LimitByCount(RecurrenceRule& rule, LocalTime start, std::int64_t& stepsLeft)
{
    if (!rule.count) {
        return true;
    }
    const std::int64_t count = *rule.count;
    const bool hasParts = !rule.byMonth.empty() || !rule.byMonthDay.empty() || !rule.byYearDay.empty() ||
                          !rule.byWeekNo.empty() || !rule.byDay.empty() || !rule.bySetPos.empty() ||
                          !rule.byHour.empty() || !rule.byMinute.empty() || !rule.bySecond.empty();
    if (!hasParts && PeriodSeconds(rule.frequency) > 0) {
        const std::int64_t step = rule.interval * PeriodSeconds(rule.frequency);
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
    if (rule.givesStart && start >= from && start < to && !use(start)) {
        return 0;
    }
    return Expansion(rule, start, from, to, use, maxSteps).Run();
}

} // namespace dayvane::ical
