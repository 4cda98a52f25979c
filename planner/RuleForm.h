// The rules of repetition that a dialog offers, and what they say in words.
#pragma once

#include "planner/Calendar.h"

#include <array>
#include <string>
#include <string_view>

namespace planner {

struct RuleForm
{
    enum class Kind
    {
        None,
        Daily,
        Weekly,
        MonthlyByDay,     // on the start's day of the month
        MonthlyByWeekday, // on the start's weekday, such as the third Friday
        MonthlyByLast,    // on the start's weekday, the last one of the month
        Yearly,
        Other // a rule that this form cannot say: kept as text
    };
    enum class End
    {
        Never,
        Count,
        Until
    };
    Kind kind = Kind::None;
    int interval = 1;
    std::array<bool, 7> weekdays = {}; // of Weekly, 0 = Sunday
    End end = End::Never;
    int count = 10;
    DayNumber until = 0; // the last day
    std::string other;   // of Other: the RRULE as written

    bool operator==(const RuleForm& rhs) const;
    bool operator!=(const RuleForm& rhs) const { return !(*this == rhs); }
};

// `rule` is an RRULE, "" for none, of an event that starts at `start` on the clock of `zone`.
RuleForm RuleFormOf(std::string_view rule, LocalTime start, const ZonePtr& zone);

// The RRULE; "" for none. Whole days end with a date, times in a zone in UTC.
std::string RuleTextOf(const RuleForm& form, const EventTimes& times, const ZonePtr& zone);

// "Every 2 weeks on Monday and Friday, until 2026-12-24" in the current language, UTF-8.
std::string RuleSentence(const RuleForm& form, LocalTime start);

} // namespace planner
