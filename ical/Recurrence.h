#pragma once

#include "CivilTime.h"
#include "Messages.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Recurrence rules: all of RFC 5545, section 3.3.10, and of RFC 7529 what it adds to the Gregorian calendar
// (RSCALE=GREGORIAN). All times are on the wall clock of the event's start.
namespace dayvane::ical {

enum class Frequency
{
    Secondly,
    Minutely,
    Hourly,
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
    // Each sorted, without repetition; empty: the rule does not have the part. Negative numbers count from the end.
    std::vector<int> byMonth, byMonthDay, byYearDay, byWeekNo, bySetPos;
    std::vector<int> byHour, byMinute, bySecond;
    std::vector<RuleWeekday> byDay;
    LocalTime lastStart = kEndOfTime; // no occurrence starts later
    bool givesStart = true;           // the event's start is an occurrence even where it does not fit; not so in EXRULE
};

struct RuleReading
{
    std::optional<RecurrenceRule> rule; // nothing: the rule says something that is not understood
    Phrase problem;                     // what was not understood or was mended; empty if nothing
};

RuleReading ParseRule(std::string_view value);

// Whether the rule can give more than one occurrence on a day.
bool RepeatsWithinDays(const RecurrenceRule& rule);

// More steps than there are days from the first year to the last.
constexpr std::int64_t kExpansionSteps = 4000000;

// Calls `use` with each start in [from, to), ascending, until it returns false. `start` itself is the first
// occurrence, see `givesStart`. Walks the periods between `from` and `to` only, and gives up after `maxSteps` (each
// period, each of its days and each occurrence is one). Returns the steps taken: `maxSteps` when it gave up.
std::int64_t ExpandRule(const RecurrenceRule& rule, LocalTime start, LocalTime from, LocalTime to,
                        const std::function<bool(LocalTime)>& use, std::int64_t maxSteps = kExpansionSteps);

// Whether `wall` is one of its starts.
bool IsStartOf(const RecurrenceRule& rule, LocalTime start, LocalTime wall);

// Lowers `lastStart` to the last occurrence that COUNT leaves. `stepsLeft` is what a whole file may spend on counting
// and is lowered by what this rule took. False if the rule was given up, as hostile ones are: it stays endless.
constexpr std::int64_t kCountingSteps = 2000000;
bool LimitByCount(RecurrenceRule& rule, LocalTime start, std::int64_t& stepsLeft);

} // namespace dayvane::ical
