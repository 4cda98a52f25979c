#pragma once

#include "CivilTime.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Recurrence rules (RFC 5545, section 3.3.10): FREQ of DAILY, WEEKLY, MONTHLY and YEARLY with INTERVAL, COUNT, UNTIL,
// WKST, BYMONTH, BYMONTHDAY, BYYEARDAY, BYDAY and BYSETPOS. All times are on the wall clock of the event's start.
namespace dayvane::ical {

enum class Frequency
{
    Daily,
    Weekly,
    Monthly,
    Yearly
};

struct RuleWeekday
{
    int ordinal = 0; // 0: each; 2: the second, -1: the last of the month or year
    int weekday = 0; // 0 = Sunday

    bool operator<(const RuleWeekday& other) const
    {
        return ordinal != other.ordinal ? ordinal < other.ordinal : weekday < other.weekday;
    }
    bool operator==(const RuleWeekday& other) const { return ordinal == other.ordinal && weekday == other.weekday; }
};

struct RecurrenceRule
{
    Frequency frequency = Frequency::Daily;
    std::int64_t interval = 1;         // periods from one to the next, at least 1
    std::optional<std::int64_t> count; // as written; LimitByCount turns it into `lastStart`
    std::optional<WrittenTime> until;  // as written; the reader of the event turns it into `lastStart`
    int weekStart = 1;                 // 0 = Sunday
    std::vector<int> byMonth, byMonthDay, byYearDay, bySetPos; // each sorted, without repetition
    std::vector<RuleWeekday> byDay;
    LocalTime lastStart = kEndOfTime; // no occurrence starts later
};

struct RuleReading
{
    std::optional<RecurrenceRule> rule; // nothing: the rule says something that is not understood
    std::string problem;                // what was not understood or was mended, in a few words; empty if nothing
};

// `start` is the event's start: parts like BYHOUR are taken when they only repeat it.
RuleReading ParseRule(std::string_view value, LocalTime start);

// Calls `use` with each start in [from, to), ascending, until it returns false. `start` itself is always the first
// occurrence, whether it fits the rule or not. Walks the periods between `from` and `to` only, and gives up after
// `maxSteps` (each period and each of its days is one). Returns the steps taken.
std::int64_t ExpandRule(const RecurrenceRule& rule, LocalTime start, LocalTime from, LocalTime to,
                        const std::function<bool(LocalTime)>& use,
                        std::int64_t maxSteps = std::numeric_limits<std::int64_t>::max());

// Lowers `lastStart` to the last occurrence that COUNT leaves. `stepsLeft` is what a whole file may spend on counting
// and is lowered by what this rule took. False if the rule was given up, as hostile ones are: it stays endless.
constexpr std::int64_t kCountingSteps = 2000000;
bool LimitByCount(RecurrenceRule& rule, LocalTime start, std::int64_t& stepsLeft);

} // namespace dayvane::ical
