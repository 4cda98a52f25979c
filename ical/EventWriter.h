#pragma once

#include "ComponentText.h"
#include "Event.h"

#include <string>
#include <string_view>

// Changes to the text of single events. Each touches the lines that it names and no other byte.
namespace dayvane::ical {

// Begin and end as the planner shows them; the end is exclusive. All-day events begin and end at midnight.
struct EventTimes
{
    LocalTime start = 0;
    LocalTime end = 0;
    bool isAllDay = false;

    bool operator==(const EventTimes& other) const
    {
        return start == other.start && end == other.end && isAllDay == other.isAllDay;
    }
};

// How a time is written: a date, with Z, with a TZID, or floating (none of them).
struct TimeForm
{
    bool isDate = false;
    bool isUtc = false;
    std::string tzid;
    ZonePtr zone; // nullptr: floating, a date, or a zone that nobody defines
};

// What the clock of the display and the zones of the file mean to an event's text.
struct WritingContext
{
    const ZoneTable* zones = nullptr;
    int calendar = 0;
    ZonePtr displayZone; // nullptr: each event is shown on the clock of its own start
    TimeForm newForm;    // of timed events that had no form so far
};

// Sets SUMMARY, LOCATION or DESCRIPTION, keeping its parameters; adds the property if the event has none.
void SetTextProperty(ComponentText& event, std::string_view name, const std::string& text);

// Moves the event. DTSTART and DTEND keep their zones; DURATION stays where it still fits. Needs a readable DTSTART.
void SetTimes(ComponentText& event, const EventTimes& times, const WritingContext& context);

// Excludes the occurrence that begins at `original` on the clock of DTSTART.
void AddException(ComponentText& event, LocalTime original);

// Turns the text of a repeated event into the text of one that replaces its occurrence at `original`; SetTimes must
// follow.
void MakeReplacement(ComponentText& event, LocalTime original);

// Turns the text into that of an event of its own that does not repeat.
void MakeSingle(ComponentText& event, const std::string& uid, LocalTime utcNow);

// The text of a new event with lines ending in `ending`.
std::string NewEventText(const std::string& uid, LocalTime utcNow, const EventTimes& times, const std::string& summary,
                         const WritingContext& context, std::string_view ending);

} // namespace dayvane::ical
