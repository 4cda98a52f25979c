// The moments at which the sun reaches a longitude and the moon a phase.
//
// A moment is a day number of Universal Time: whole days since 30 December 1899, 0 h, with the time of day as a
// fraction. Every function answers for any argument; the errors hold for the years 1600 to 2400. Moments asked last are
// kept, per thread, so that any thread may ask.
#pragma once

#include "CivilDate.h"

namespace dayvane {

struct SkyMoment
{
    double day = 0;
    double error = 0; // days: the places' error and that of the earth's rotation (twice its standard deviation)
};

// A moment on the clocks of a time zone.
struct ZoneMoment
{
    int serialDay = 0;        // as civil::DayNumber
    int minute = 0;           // of that day, cut off to a whole one: 0 to 1439
    int second = 0;           // of that minute
    bool isUncertain = false; // its error reaches across midnight: it may belong to the day before or after
};
ZoneMoment InZone(const SkyMoment& moment, int zoneMinutes);

// The other day that an uncertain moment may belong to; for any other moment its own.
int OtherDayOf(const SkyMoment& moment, int zoneMinutes);

// When the sun reaches an apparent longitude (0 to 359 degrees, but for 281 to 284, which come at the turn of the year)
// in a Gregorian year.
SkyMoment SolarLongitudeMoment(int year, int longitude);

// The quarters of the moon are counted without a gap: quarter 0 is the new moon of 6 January 2000, 1 the first quarter
// after it, 2 the full moon, 3 the last quarter, 4 the next new moon.
inline constexpr int kQuarters = 4;
SkyMoment MoonQuarterMoment(int quarter);

// The last new moon, and the last quarter of any kind, at or before a moment.
int NewMoonBefore(double day);
int MoonQuarterBefore(double day);

// Terrestrial Time less Universal Time at a moment, seconds, and twice its standard deviation.
double DeltaT(double day);
double DeltaTError(double day);

// Julian centuries of Terrestrial Time from J2000.0 at a moment.
double CenturiesOf(double day);
} // namespace dayvane
