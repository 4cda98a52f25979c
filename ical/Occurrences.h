#pragma once

#include "Event.h"

#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string_view>
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

// `times` are on the clock of the document (see Document); `end` is exclusive and may be the first instant of year
// 10000. On a night when the clock is set back a wall clock may show an end before its start; then both are alike, and
// `elapsed` alone says how long it lasts.
struct Occurrence
{
    OccurrenceId id;
    EventTimes times;
    LocalTime startInstant = 0; // see InstantOf
    std::int64_t elapsed = 0;   // seconds
    EventPtr event;             // what it looks like: for the ones after a RANGE=THISANDFUTURE that event's texts

    LocalTime EndInstant() const { return startInstant + elapsed; }
    // The last day that it touches.
    DayNumber LastDay() const;
};

// Bounds that keep hostile files from filling the memory; no calendar that people keep reaches them.
constexpr std::size_t kMaxOccurrencesOfEvent = 5000;
constexpr std::size_t kMaxOccurrences = 200000;

// The events with a RECURRENCE-ID of a document, by the series that they belong to.
class Replacements
{
public:
    void Add(const EventPtr& event);
    // To be called after the last Add. Of several for one occurrence the highest SEQUENCE counts, then the last one.
    void Settle();

    // nullptr: none.
    const std::vector<EventPtr>* Of(const Event& series) const;
    // Whether another event replaces the same occurrence and counts more.
    bool IsSuperseded(EventId event) const { return m_superseded.count(event) != 0; }

private:
    std::map<std::pair<int, std::string_view>, std::vector<EventPtr>> m_bySeries; // VCALENDAR and the events' own UID
    std::set<EventId> m_superseded;
};

// Appends the occurrences of the event that overlap [from, to); one without length does when its start lies inside.
// False when there were more than the bounds allow.
bool AppendOccurrences(const EventPtr& event, const Replacements& replacements, const ZonePtr& displayZone,
                       LocalTime from, LocalTime to, std::vector<Occurrence>& occurrences);

// The occurrence of that name, if the event has it.
std::optional<Occurrence> FindOccurrence(const EventPtr& event, const Replacements& replacements,
                                         const ZonePtr& displayZone, LocalTime original);

// What an occurrence at that time would be like, whether the event has it or not, if nothing replaced or changed it.
Occurrence OccurrenceAt(const EventPtr& event, const ZonePtr& displayZone, LocalTime original);

// The first occurrence at or after `from`, on the event's clock, that the event's rule or dates give and nothing
// excludes.
std::optional<LocalTime> NextStart(const EventPtr& event, const Replacements& replacements, LocalTime from);

// Where on the series' clock the replaced occurrence would be.
LocalTime OriginalStart(const EventTime& replaced, const EventTime& seriesStart);

} // namespace dayvane::ical
