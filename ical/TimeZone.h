#pragma once

#include "CivilTime.h"
#include "Messages.h"
#include "Recurrence.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dayvane::ical {

// One STANDARD or DAYLIGHT part of a zone: the offset that holds from each of its onsets on.
struct Observance
{
    LocalTime onset = 0; // the first one, on the wall clock that `offsetFrom` keeps
    int offsetFrom = 0;  // seconds east of UTC
    int offsetTo = 0;
    std::optional<RecurrenceRule> rule; // of further onsets; UNTIL already in `lastStart`
    std::vector<LocalTime> furtherOnsets;
};

// The offsets of one time zone. Rules are followed to the year 2200.
class TimeZone
{
public:
    TimeZone(std::string id, std::vector<Observance> observances);
    static const std::shared_ptr<const TimeZone>& Utc();

    const std::string& Id() const { return m_id; }
    LocalTime WallOfUtc(LocalTime utc) const;
    // A wall time that comes twice means the first one; one that is skipped is counted as if the clock had not been
    // set forward.
    LocalTime UtcOfWall(LocalTime wall) const;
    // The same, but of a wall time that comes twice the second one.
    LocalTime LaterUtcOfWall(LocalTime wall) const;

private:
    struct Transition
    {
        LocalTime utc;
        int offsetFrom;
        int offsetTo;
    };
    const std::vector<Transition>& Transitions() const;
    int FirstOffset() const; // before every transition

    std::string m_id;
    std::vector<Observance> m_observances;
    // Made at the first use: files define zones by the dozen and use few.
    mutable std::optional<std::vector<Transition>> m_transitions;
};

using ZonePtr = std::shared_ptr<const TimeZone>;

// Instants: seconds of UTC; where there is no zone (floating times, dates) simply the wall time.
LocalTime InstantOf(LocalTime wall, const ZonePtr& zone);
LocalTime WallOf(LocalTime instant, const ZonePtr& zone);
// The instant at which a duration ends that begins at `wall`, and the duration from one instant to a later one: as many
// days as the clock passes, the rest exact.
LocalTime EndInstant(LocalTime wall, const ZonePtr& zone, const Duration& duration);
Duration DurationBetween(LocalTime start, LocalTime end, const ZonePtr& zone);

// From one zone's wall clock to another's; unchanged when one of them is nullptr, a floating time.
LocalTime ConvertWall(LocalTime wall, const ZonePtr& from, const ZonePtr& to);

// Reads "+0900", "-053000"; the result is in seconds.
std::optional<int> ParseUtcOffset(std::string_view text);

// Reads a VTIMEZONE component that begins in line `firstLine` of the file. nullptr if it has no TZID or no readable
// observance, which is reported.
ZonePtr ReadTimeZone(std::string_view raw, int firstLine, MessageLog& log);

// The zones that files name most often without defining them, by their usual names; nullptr for others.
ZonePtr FindCommonZone(std::string_view id);
std::vector<std::string_view> CommonZoneNames();

// The zones that one file defines.
class ZoneTable
{
public:
    // `calendar` numbers the VCALENDAR objects of the file: the same TZID may mean different things in two of them.
    void Add(int calendar, ZonePtr zone);
    // A zone of that VCALENDAR, else of another one, else a common one, else nullptr.
    ZonePtr Find(int calendar, std::string_view id) const;
    bool Defines(std::string_view id) const;
    // The TZID of all definitions; empty if there are none or several.
    std::string OnlyId() const;
    std::vector<std::string> Ids() const; // of all definitions, each once

private:
    std::map<std::pair<std::string, int>, ZonePtr> m_zones; // by TZID and calendar
};

} // namespace dayvane::ical
