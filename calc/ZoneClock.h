// The clock of a time zone, and the ruler that shows a second zone beside a day's own hours.
#pragma once

#include "CivilDate.h"

#include <vector>

namespace dayvane {
// Seconds since 1 January 1970, 00:00 UTC, without leap seconds. A local time is counted the same way, as if the clock
// showed UTC.
using ClockSeconds = long long;

// From this moment on the zone's clock is so many seconds ahead of UTC (negative: later than it).
struct ZoneTransition
{
    ClockSeconds utc;
    int offset;
};

// The moments at which a clock shows a local time.
struct LocalMoments
{
    enum class Count
    {
        Skipped, // none: the clock jumps over it
        Once,
        Twice // the clock is set back over it
    };
    Count count = Count::Once;
    ClockSeconds first = 0; // of a skipped time: the moment of the jump
    ClockSeconds last = 0;  // equal to first but for Twice
};

// A zone as a list of changes. The host brings the data (a calendar file, the system's zones); nothing is looked up.
class ZoneClock
{
public:
    // The offset before the first change, and the changes in any order; of those at one moment the last counts.
    // Offsets beyond 26 hours either way count as 26 hours; changes 30,000 years away and more are left out.
    explicit ZoneClock(int offset = 0, std::vector<ZoneTransition> transitions = {});

    int OffsetAt(ClockSeconds utc) const;
    ClockSeconds LocalOf(ClockSeconds utc) const { return utc + OffsetAt(utc); }
    LocalMoments MomentsOf(ClockSeconds local) const;

    // A stretch of local time that the clock jumps over, or shows twice.
    struct Change
    {
        ClockSeconds begin; // local, first second of the stretch
        ClockSeconds end;   // local, not included
        bool isSkipped;
    };
    // Those that overlap the local times from begin up to, not including, end.
    std::vector<Change> ChangesWithin(ClockSeconds begin, ClockSeconds end) const;

private:
    int OffsetBefore(size_t transition) const;
    size_t FirstAfter(ClockSeconds utc) const;

    int m_firstOffset;
    std::vector<ZoneTransition> m_transitions; // ascending; each changes the offset
};

// One row of the day's ruler, with the second zone's clock at its beginning.
struct ZoneRulerRow
{
    int begin = 0;           // minutes of the day's own clock since midnight
    int skippedMinutes = 0;  // of the row, by the day's own clock; the whole row: it does not happen
    int repeatedMinutes = 0; // of the row, that happen twice
    ClockSeconds moment = 0; // when the row begins: the first time of two, the moment of the jump for a skipped time

    CivilDate otherDate;       // of the second zone at that moment; no day beyond the valid years
    int otherMinute = 0;       // since midnight
    int otherDateBegins = -1;  // minutes from the moment until the second zone's date changes within the row; -1: never
    int otherClockChanges = 0; // minutes that the second zone's clock is put forward (back: negative) within the row
};

// The rows of a day of the clock `own`, rowMinutes (a divisor of 1440, else 60) each. Empty for an invalid day.
std::vector<ZoneRulerRow> CalcZoneRuler(const CivilDate& day, int rowMinutes, const ZoneClock& own,
                                        const ZoneClock& other);
} // namespace dayvane
