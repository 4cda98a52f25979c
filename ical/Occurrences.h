#pragma once

#include "Event.h"
#include "EventWriter.h"

#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace dayvane::ical {

// Names one occurrence for as long as the document is open: a single event by its number, an occurrence of a repeated
// one by the start that the rule gives it as well. Moving a single event keeps its name.
struct OccurrenceId
{
    static constexpr LocalTime kNotRepeated = std::numeric_limits<LocalTime>::min();

    EventId event = kNoEvent;
    LocalTime original = kNotRepeated; // on the clock of the event's start

    bool operator==(const OccurrenceId& other) const { return event == other.event && original == other.original; }
    bool operator!=(const OccurrenceId& other) const { return !(*this == other); }
    bool operator<(const OccurrenceId& other) const
    {
        return event != other.event ? event < other.event : original < other.original;
    }
};

// Times are on the clock of the document (see Document); `end` is exclusive and may be the first instant of year 10000.
struct Occurrence
{
    OccurrenceId id;
    EventTimes times;
    EventPtr event;

    // The last day that it touches.
    DayNumber LastDay() const;
};

// Bounds that keep hostile files from filling the memory; no calendar that people keep meets them.
constexpr std::size_t kMaxOccurrencesOfEvent = 5000;
constexpr std::size_t kMaxOccurrences = 200000;

// The RECURRENCE-IDs of a document, by VCALENDAR and UID.
using ReplacedTimes = std::map<std::pair<int, std::string>, std::vector<EventTime>>;

// Appends the occurrences of the event that meet [from, to); one without length meets it when its start lies inside.
void AppendOccurrences(const EventPtr& event, const ReplacedTimes& replaced, const ZonePtr& displayZone, LocalTime from,
                       LocalTime to, std::vector<Occurrence>& occurrences);

// The occurrence of that name, if the event has it.
std::optional<Occurrence> FindOccurrence(const EventPtr& event, const ReplacedTimes& replaced,
                                         const ZonePtr& displayZone, LocalTime original);

} // namespace dayvane::ical
