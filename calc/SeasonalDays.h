// The seasonal days of the Japanese almanac (zassetsu), all counted from the sun's longitude.
#pragma once

#include "ExactSky.h"

namespace dayvane {
enum class SeasonalDay
{
    Setsubun,       // the day before the beginning of spring (315 degrees)
    HiganBegin,     // three days before an equinox day
    Higan,          // one of the seven days around an equinox day
    HiganMiddle,    // the equinox day
    HiganEnd,       // three days after it
    Shanichi,       // the day of the fifth stem nearest to an equinox day
    Hachijuhachiya, // the 88th day from the beginning of spring
    Nyubai,         // 80 degrees
    Hangesho,       // 100 degrees
    DoyoBegin,      // 27, 117, 207 or 297 degrees
    Doyo,           // from there to the day before the beginning of the next season
    DoyoOx,         // a day of the ox among these
    Nihyakutoka,    // the 210th day from the beginning of spring
    Nihyakuhatsuka, // the 220th
    Count
};

// The seasonal days that fall on one date.
struct SeasonalDays
{
    unsigned bits = 0;        // 1 << SeasonalDay
    bool isUncertain = false; // a moment that they rest on may belong to another day, and they would be others

    bool Has(SeasonalDay day) const { return (bits >> static_cast<int>(day) & 1) != 0; }
};

// None for a date outside of IsSkyDate. Of two days of the fifth stem five days before and after an equinox, the first
// is shanichi when the sun reaches the equinox before noon.
SeasonalDays SeasonalDaysOf(int year, int month, int day, int zoneMinutes = kJapanZone);
} // namespace dayvane
