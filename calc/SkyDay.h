// All that the sky says of one date, in one record, and the names of it.
#pragma once

#include "ExactSky.h"
#include "MoonPhase.h"
#include "SeasonalDays.h"

namespace dayvane {
// Places in the cycle of sixty: 0 to 59, see SexagenaryCycle.h; -1 without an answer.
struct SexagenaryDate
{
    int lunarYear = -1; // of the year that begins with the lunar new year
    int year = -1;      // of the year that begins with spring (315 degrees)
    int month = -1;     // of the month that begins with one of the terms 315, 345, 15, ... 285
    int day = -1;
};

struct SkyDay
{
    int solarTerm = -1; // as ExactSolarTerm
    CivilMoment solarTermMoment;
    ExactLunarDate lunar; // month 0 outside of IsSkyDate: then nothing in the record is an answer
    int rokuyo = -1;
    SexagenaryDate sexagenary;
    MoonOfDay moon;
    SeasonalDays seasonal;

    // Some of it rests on a moment so near to midnight that it may belong to another day.
    bool IsUncertain() const
    {
        return solarTermMoment.isUncertain || lunar.isUncertain || moon.moment.isUncertain || seasonal.isUncertain;
    }
};

SkyDay SkyDayOf(int year, int month, int day, int zoneMinutes = kJapanZone);

// A name in two languages, UTF-8; both nullptr for a number that names nothing. The texts live as long as the library.
struct SkyName
{
    const char* japanese = nullptr;
    const char* english = nullptr;
};

SkyName SolarTermName(int longitude); // 0, 15, ... 345
SkyName RokuyoName(int rokuyo);       // 0 to 5
SkyName MoonQuarterName(int quarter); // 0 to 3
SkyName SeasonalDayName(SeasonalDay day);
SkyName SexagenaryName(int place); // 0 to 59
} // namespace dayvane
