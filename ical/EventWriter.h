#pragma once

#include "ComponentText.h"
#include "Event.h"
#include "Occurrences.h"

#include <string>
#include <string_view>
#include <vector>

// Changes to the text of single events. Each touches the lines that it names and no other byte.
namespace dayvane::ical {

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

// The form of a time property as it stands; that of a floating time for values that are not readable. Without a
// context its zone is not looked up.
TimeForm FormOf(const Property& property, const WritingContext* context);
// The parameters of a property whose times are written so: ";TZID=Europe/Berlin".
std::string FormParameters(const TimeForm& form);
// `wall` is on the clock of the form.
std::string FormattedTime(const TimeForm& form, LocalTime wall);

// Sets a text property, keeping its parameters; adds it if the event has none.
void SetTextProperty(ComponentText& event, std::string_view name, const std::string& text);
// Sets a property whose value is no text (RRULE, TRANSP), or takes it out when the value is empty.
void SetValue(ComponentText& event, std::string_view name, const std::string& value);
// All CATEGORIES become one line.
void SetCategories(ComponentText& event, const std::vector<std::string>& categories);

// Gives the event these times. `before` is what is moved: nullptr for a new event. A bound that is shown where it was
// stays the instant that it was, and a length that is shown as it was stays the same elapsed time. DTSTART and DTEND
// keep their zones, DURATION stays where it still fits. Needs a readable DTSTART.
void SetTimes(ComponentText& event, const EventTimes& times, const Occurrence* before, const WritingContext& context);

// Gives the event these times, written in that form from now on.
void SetTimesInZone(ComponentText& event, const EventTimes& times, const TimeForm& form, const WritingContext& context);

// Excludes the occurrence that begins at `original` on the clock of DTSTART.
void AddException(ComponentText& event, LocalTime original);

// Turns the text of a repeated event, or of one that changes it from some occurrence on, into the text of one that
// replaces the occurrence at `original`, written in the form of the series' DTSTART; SetTimes must follow.
void MakeReplacement(ComponentText& event, const TimeForm& seriesForm, LocalTime original);

// Turns the text into that of an event of its own that does not repeat.
void MakeSingle(ComponentText& event, const std::string& uid, LocalTime utcNow);

// An edit raises SEQUENCE and renews DTSTAMP and LAST-MODIFIED where the event has them.
void MarkEdited(ComponentText& event, LocalTime utcNow);

// The text of a new event with lines ending in `ending`.
std::string NewEventText(const std::string& uid, LocalTime utcNow, const EventTimes& times, const std::string& summary,
                         const WritingContext& context, std::string_view ending);

} // namespace dayvane::ical
