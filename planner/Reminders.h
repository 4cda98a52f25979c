// Which reminders are to be shown now.
#pragma once

#include "planner/CalendarSet.h"

#include <map>
#include <vector>

namespace planner {

// The present moment, as the two clocks have it that events are written in.
struct PresentTime
{
    LocalTime utc = 0;
    LocalTime local = 0; // of floating times
};

struct DueReminder
{
    Occurrence occurrence;
    LocalTime alarm = 0; // UTC, or local for floating events
};

class Reminders
{
public:
    // Alarms of the last day that nobody has dismissed and that do not sleep, earliest first; one for an occurrence.
    // Also those of events that are over: the user was away.
    std::vector<DueReminder> DueAt(const CalendarSet& calendars, const PresentTime& now) const;

    // Nothing more is shown of the occurrence until then (UTC).
    void Snooze(const OccurrenceId& id, LocalTime until) { m_sleeping[id] = until; }
    // When another calendar is opened.
    void Forget() { m_sleeping.clear(); }

private:
    std::map<OccurrenceId, LocalTime> m_sleeping;
};

} // namespace planner
