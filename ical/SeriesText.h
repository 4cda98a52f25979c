#pragma once

#include "ComponentText.h"
#include "Event.h"
#include "EventWriter.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

// Changes to the text of repeated events: where a series ends, and where its dates lie.
namespace dayvane::ical {

// The value of a rule with its UNTIL and COUNT replaced by `limit` ("UNTIL=..."; empty: without a limit). Every other
// part keeps its place and letters.
std::string WithLimit(std::string_view rule, std::string_view limit);

// The UNTIL that lets the series' last occurrence begin before `end`, a start on its clock: a date for whole days, UTC
// where the start has a zone, else a floating time.
std::string UntilBefore(const EventTime& start, LocalTime end);

// Ends the series before its occurrence at `end`.
void EndSeries(ComponentText& series, const Event& event, LocalTime end, const WritingContext& context);

// Keeps of the dates of RDATE or EXDATE lines those for which `keeps` is true; it gets their starts on the series'
// clock. A line that loses no date keeps its bytes.
void FilterDates(ComponentText& series, const Event& event, std::string_view name, const WritingContext& context,
                 const std::function<bool(LocalTime)>& keeps);

// Moves the dates of RDATE, EXDATE or RECURRENCE-ID lines as the series' start is moved from `from` to `to`, both on
// its clock.
void ShiftDates(ComponentText& text, const Event& series, std::string_view name, const WritingContext& context,
                LocalTime from, LocalTime to);

// Writes the dates of RDATE, EXDATE or RECURRENCE-ID lines in another form, as the series' start at `from` on its clock
// becomes `to` on the clock of the form. False if a line holds what cannot be written so, such as a period.
bool RezoneDates(ComponentText& text, const Event& series, std::string_view name, const WritingContext& context,
                 LocalTime from, LocalTime to, const TimeForm& form);

// The rule of a series whose occurrence at `from` is moved to `to`, so that all its occurrences move alike: weekdays,
// days of the month and the month go along. Nothing if the rule cannot say that.
std::optional<std::string> ShiftRule(std::string_view text, const Event& series, LocalTime from, LocalTime to);

} // namespace dayvane::ical
