#pragma once

#include "CivilTime.h"
#include "Recurrence.h"
#include "TimeZone.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dayvane::ical {

// Numbers the events of one document from 1, in the order of the file, then of creation; stable while it is open.
using EventId = int;
constexpr EventId kNoEvent = 0;

struct EventTime
{
    LocalTime wall = 0;  // on the clock of `zone`
    ZonePtr zone;        // nullptr: floating, or a date, or a zone that nobody defines
    bool isDate = false; // `wall` is midnight

    LocalTime Instant() const { return InstantOf(wall, zone); }
};

// Begin and end as they are shown; the end is exclusive. All-day events begin and end at midnight.
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

struct FurtherDate // one RDATE
{
    LocalTime wall = 0;               // on the clock of the event's start
    std::optional<Duration> duration; // nothing: the event's
};

// One VALARM with a TRIGGER that is understood.
struct Alarm
{
    bool isShown = true; // shows or sounds something, rather than sends a letter or runs a program
    bool isRelatedToEnd = false;
    std::int64_t offset = 0;               // seconds from the start or end; negative: before it
    std::optional<LocalTime> at;           // UTC, instead of an offset
    std::optional<LocalTime> acknowledged; // UTC: alarms up to then have been dismissed
};

// What is understood of one VEVENT. Texts are valid UTF-8; line breaks are \n.
struct Event
{
    EventId id = kNoEvent;
    int calendar = 0; // which VCALENDAR of the file
    std::string uid;
    std::string summary;
    std::string location;
    std::string description;
    std::string status; // upper case, such as CANCELLED
    std::vector<std::string> categories;
    bool isTransparent = false; // does not take up time
    bool isPrivate = false;     // CLASS is PRIVATE or CONFIDENTIAL
    bool hasAlarm = false;
    std::vector<Alarm> alarms;
    std::int64_t sequence = 0; // of two events that replace one occurrence the higher one counts

    EventTime start;
    std::string startZoneId; // the TZID of the start as written, defined or not
    Duration duration; // exact when DTEND gives it, as written when DURATION does; whole days for an all-day event
    bool IsAllDay() const { return start.isDate; }

    std::optional<RecurrenceRule> rule;
    std::string ruleText;                       // the RRULE as written, understood or not
    std::vector<RecurrenceRule> exceptionRules; // EXRULE
    std::vector<FurtherDate> furtherDates;      // ascending
    std::vector<LocalTime> exceptions;          // wall times of the start's clock, ascending
    std::vector<DayNumber> exceptionDays;       // whole days, ascending
    std::optional<EventTime> replaces;          // RECURRENCE-ID: the occurrence that this event stands for
    bool changesFollowing = false;              // and the ones after it are changed alike (RANGE=THISANDFUTURE)
    bool hasUnreadRule = false;                 // repeats in a way that is not understood; shown once
    bool IsRecurrent() const { return rule.has_value() || !furtherDates.empty(); }
    bool IsCancelled() const { return status == "CANCELLED"; }
};

// The alarms that show something at a time before the start: how many seconds before it, descending.
std::vector<std::int64_t> RemindersOf(const Event& event);

using EventPtr = std::shared_ptr<const Event>;

} // namespace dayvane::ical
