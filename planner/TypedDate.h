// Dates and times of day as people type them, in English and Japanese.
#pragma once

#include "planner/Calendar.h"

#include <optional>
#include <string>
#include <string_view>

namespace planner {

struct DateContext
{
    DayNumber today = 0;
    DayNumber shown = 0;  // what a day or month without more is taken from
    int firstWeekday = 1; // of the week, 0 = Sunday: what "next week" begins with
};

// "2026-11-24", "24.11", "11/24", "24 nov", "24", "tomorrow", "in 3 days", "+3", "friday", "next friday";
// "令和8年11月24日", "11月24日", "明日", "来週の金曜", "3日後" and the like. A year that is not said is the one that
// puts the date nearest to the shown day. Nothing for anything else and for days that the calendar lacks.
std::optional<DayNumber> ParseTypedDate(std::string_view utf8, const DateContext& context);

// Seconds of the day from "9", "9:30", "930", "9.30", "9:30 pm", "9時半", "午後3時15分"; 24:00 is the day's end.
std::optional<LocalTime> ParseTypedClock(std::string_view utf8);

// A title that begins with its time of day: "9:30 Meeting", "9:30-11:00 Meeting", "午後3時 会議". Without an end it
// lasts an hour, at most to midnight.
struct TypedTitle
{
    std::string title;
    std::optional<LocalTime> start; // seconds of the day; nothing: the title says no time
    LocalTime end = 0;
};
TypedTitle ParseTypedTitle(const std::string& utf8);

// "2026-11-24" and "9:30".
std::string DateText(DayNumber day);
std::string ClockText(LocalTime time);

} // namespace planner
