// The true lunisolar calendar and the 24 solar terms, from places of the sun and the moon good to a few seconds of arc.
//
// Dates are Gregorian and civil dates of a time zone, given in minutes east of Greenwich; without one they are dates of
// Japan Standard Time, also for the years before its introduction. The zone of the Chinese calendar is kChinaZone.
//
// Valid from 1 January 1600 to 31 December 2400, zones within 24 hours. Anything else, dates that do not exist
// included, gets the empty answer that each function names; no argument is an error. Any thread may call: what was
// computed last is kept per thread, so days asked in sequence cost little.
//
// Moments are good to a quarter of a minute, but for what is not known of the earth's rotation: a minute more in 2100,
// eight in 2300, 40 seconds in 1600. Where a moment lies so near to midnight that its day rests on that, the answer is
// marked uncertain.
#pragma once

#include "CivilDate.h"

namespace dayvane {
struct SkyMoment;

inline constexpr int kFirstSkyYear = 1600;
inline constexpr int kLastSkyYear = 2400;
inline constexpr int kJapanZone = 540;
inline constexpr int kChinaZone = 480;

// Whether the functions of this header answer for a date in a zone.
bool IsSkyDate(int year, int month, int day, int zoneMinutes = kJapanZone);

// A moment on the clocks of a zone, cut off to a whole second; the date has no day (all -1) when there is no answer.
struct CivilMoment
{
    CivilDate date;
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool isUncertain = false; // the date may be the day before or after
};

CivilMoment CivilMomentOf(const SkyMoment& moment, int zoneMinutes);

// When the sun reaches a longitude (0, 15, ... 345) in a year. A year begins with 285 and ends with 270.
CivilMoment MomentOfSolarTerm(int year, int longitude, int zoneMinutes = kJapanZone);

// Its date alone: DateOfSolarTerm(2026, 0) is 20 March 2026, the day of the spring equinox.
CivilDate DateOfSolarTerm(int year, int longitude, int zoneMinutes = kJapanZone);

// The longitude 0, 15, ... 345 whose moment falls on the date, -1 for none.
int ExactSolarTerm(int year, int month, int day, int zoneMinutes = kJapanZone);

// A date of the lunisolar calendar.
struct ExactLunarDate
{
    int year = 0;  // the civil year in which month 1 of this lunar year begins
    int month = 0; // 1 to 12; a leap month has the number of the month before it; 0: no answer
    int day = 0;   // 1 to 30
    bool isLeapMonth = false;
    bool isUncertain = false; // a moment that it rests on may belong to another day, and the answer would be another

    bool IsValid() const { return month > 0; }
};

// Months begin on the days of new moon. The month with the winter solstice is the 11th; where 13 months begin from one
// such month to before the next, the first of them without a principal term (a multiple of 30 degrees) is the leap
// month.
ExactLunarDate LunarDateOf(int year, int month, int day, int zoneMinutes = kJapanZone);

// The six days of a lunar date (rokuyo): 0 taian, 1 shakko, 2 sensho, 3 tomobiki, 4 senbu, 5 butsumetsu; -1 for no
// date.
int Rokuyo(const ExactLunarDate& date);
} // namespace dayvane
