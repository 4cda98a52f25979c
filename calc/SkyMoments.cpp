#include "calc/SkyMoments.h"

#include "calc/ExactPlaces.h"
#include "calc/SkySeries.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <iterator>

namespace dayvane {
namespace {
constexpr double kEpochDay = 36526.5; // noon of 1 January 2000
constexpr double kDaysPerYear = 365.2422;
constexpr double kLunation = 29.530588861;
constexpr double kFirstNewMoon = 36531.59766; // Terrestrial Time of the mean new moon that is quarter 0

struct Rotation
{
    int year;      // its beginning
    double deltaT; // seconds
};

// Before 1800 after the polynomials of Espenak and Meeus (2006) for the values of Morrison and Stephenson (2004), then
// as tabulated in the Astronomical Almanac, from 1975 on as measured by the IERS.
constexpr Rotation kRotation[] = {
    {1590, 131.0}, {1600, 120.0}, {1610, 108.8}, {1620, 95.4}, {1630, 80.6}, {1640, 65.3}, {1650, 50.2}, {1660, 36.3},
    {1670, 24.4},  {1680, 15.3},  {1690, 9.9},   {1700, 8.8},  {1710, 10.0}, {1720, 10.6}, {1730, 11.2}, {1740, 12.2},
    {1750, 13.4},  {1760, 14.7},  {1770, 15.9},  {1780, 16.6}, {1790, 15.9}, {1800, 13.7}, {1810, 12.5}, {1820, 12.0},
    {1830, 7.5},   {1840, 5.7},   {1850, 7.1},   {1860, 7.9},  {1870, 1.6},  {1875, -3.2}, {1880, -5.4}, {1890, -5.9},
    {1895, -6.5},  {1900, -2.7},  {1905, 3.9},   {1910, 10.5}, {1915, 17.2}, {1920, 21.2}, {1925, 23.6}, {1930, 24.0},
    {1935, 23.9},  {1940, 24.3},  {1945, 26.8},  {1950, 29.2}, {1955, 31.1}, {1960, 33.2}, {1965, 35.7}, {1970, 40.2},
    {1975, 45.5},  {1980, 50.5},  {1985, 54.3},  {1990, 56.9}, {1995, 60.8}, {2000, 63.8}, {2005, 64.7}, {2010, 66.1},
    {2015, 67.6},  {2020, 69.4},  {2025, 69.1},
};

// Afterwards the day goes on lengthening by 1.75 milliseconds a century, from 0.2 milliseconds over 86400 seconds.
constexpr double kLastMeasuredYear = 2025;
constexpr double kLastMeasuredDeltaT = 69.1;
constexpr double kDeltaTRate = 0.073;          // seconds a year: 365.25 days of 0.2 ms
constexpr double kDeltaTAcceleration = 0.0032; // seconds a year squared: half of 365.25 days of 0.0175 ms

double YearOf(double day)
{
    return 2000.0 + (day - kEpochDay) / kDaysPerYear;
}

double Interpolated(double year)
{
    const Rotation* const after = std::lower_bound(std::begin(kRotation) + 1, std::end(kRotation), year,
                                                   [](const Rotation& row, double y) { return row.year < y; });
    const Rotation& from = after[-1];
    const double share = (year - from.year) / (after->year - from.year);
    return from.deltaT + share * (after->deltaT - from.deltaT);
}

// Some of the moments asked last, by a whole number that names the moment.
template <int kCount>
class KnownMoments
{
public:
    template <typename Find>
    const SkyMoment& Get(int key, Find find)
    {
        Entry& entry = m_entries[static_cast<unsigned>(key) % kCount];
        if (!entry.isKnown || entry.key != key) {
            entry = {true, key, find()};
        }
        return entry.moment;
    }

private:
    struct Entry
    {
        bool isKnown = false;
        int key = 0;
        SkyMoment moment;
    };
    std::array<Entry, kCount> m_entries;
};

// Newton's steps from a guess to the moment at which an angle is 0. They go by the coarse angle; near the end what the
// full one adds is worked out once, for it hardly changes in the minutes that are left.
template <typename AngleAt, typename SpeedAt>
double FindMoment(double guess, AngleAt angleAt, SpeedAt speedAt)
{
    constexpr int kMostSteps = 12;
    constexpr double kNear = 0.01; // days
    constexpr double kThere = 0.0001;
    double day = guess;
    double correction = 0;
    bool isCorrected = false;
    for (int i = 0; i < kMostSteps; ++i) {
        const double centuries = CenturiesOf(day);
        const double angle = angleAt(centuries, Accuracy::Coarse) + correction;
        const double step = std::remainder(angle, 360.0) / speedAt(centuries);
        day -= step;
        if (std::abs(step) < kThere && isCorrected) {
            break;
        }
        if (std::abs(step) < kNear && !isCorrected) {
            const double there = CenturiesOf(day);
            correction = angleAt(there, Accuracy::Full) - angleAt(there, Accuracy::Coarse);
            isCorrected = true;
        }
    }
    return day;
}

SkyMoment FindSolarLongitude(int year, int longitude)
{
    constexpr int kFirstLongitude = 280; // of a year, on 1 January
    const int fromNewYear = (longitude - kFirstLongitude + 360) % 360;
    const double guess = civil::DayNumber(year, 1, 1) + fromNewYear * kDaysPerYear / 360.0;
    const double day = FindMoment(
        guess, [longitude](double t, Accuracy a) { return ExactSunLongitude(t, a) - longitude; }, SunSpeed);
    return {day, kSunLongitudeError * kDaysPerYear / 360.0 + DeltaTError(day) / kSecondsPerDay};
}

double MeanQuarter(double quarter)
{
    const double lunations = quarter / kQuarters;
    const double centuries = lunations * kLunation / kDaysPerCentury;
    return kFirstNewMoon + lunations * kLunation + 0.00015437 * centuries * centuries;
}

SkyMoment FindMoonQuarter(int quarter)
{
    constexpr double kSlowest = 10.9; // degrees a day that the moon gains on the sun
    const double angle = (quarter % kQuarters) * 90.0;
    const double guess = MeanQuarter(quarter) - DeltaT(MeanQuarter(quarter)) / kSecondsPerDay;
    const double day = FindMoment(
        guess, [angle](double t, Accuracy a) { return ExactElongation(t, a) - angle; }, ElongationSpeed);
    return {day, (kMoonLongitudeError + kSunLongitudeError) / kSlowest + DeltaTError(day) / kSecondsPerDay};
}
} // namespace

double DeltaT(double day)
{
    const double year = YearOf(day);
    const double after = year - kLastMeasuredYear;
    return after < 0 ? Interpolated(year) : kLastMeasuredDeltaT + after * (kDeltaTRate + after * kDeltaTAcceleration);
}

double DeltaTError(double day)
{
    // From what the tables say of themselves: 20 seconds in 1600, 5 in 1700, 1 in 1800, well measured since 1955.
    constexpr Rotation kDeviations[] = {{1600, 20}, {1700, 5}, {1800, 1}, {1955, 0}};
    const double year = YearOf(day);
    double deviation = 0;
    if (year > kLastMeasuredYear) {
        // A random walk of the length of the day (Huber 2006): 0.058 ms squared a year.
        const double after = year - kLastMeasuredYear;
        deviation = 0.36525 * after * std::sqrt(after * 0.058 / 3 * (1 + after / 2500));
    } else {
        for (int i = 0; i < 3; ++i) {
            const Rotation& from = kDeviations[i];
            const Rotation& to = kDeviations[i + 1];
            if (year < to.year) {
                deviation = from.deltaT + (year - from.year) / (to.year - from.year) * (to.deltaT - from.deltaT);
                break;
            }
        }
    }
    return 2 * deviation;
}

double CenturiesOf(double day)
{
    return (day - kEpochDay + DeltaT(day) / kSecondsPerDay) / kDaysPerCentury;
}

SkyMoment SolarLongitudeMoment(int year, int longitude)
{
    constexpr int kKept = 1024; // two or three years of whole degrees
    thread_local KnownMoments<kKept> known;
    return known.Get(year * 360 + longitude, [=] { return FindSolarLongitude(year, longitude); });
}

SkyMoment MoonQuarterMoment(int quarter)
{
    constexpr int kKept = 256; // five years of quarters
    thread_local KnownMoments<kKept> known;
    return known.Get(quarter, [=] { return FindMoonQuarter(quarter); });
}

int NewMoonBefore(double day)
{
    // The true new moon is up to 0.7 days from the mean one.
    int quarter = kQuarters * static_cast<int>(std::floor((day - kFirstNewMoon) / kLunation));
    while (MoonQuarterMoment(quarter).day > day) {
        quarter -= kQuarters;
    }
    while (MoonQuarterMoment(quarter + kQuarters).day <= day) {
        quarter += kQuarters;
    }
    return quarter;
}

int MoonQuarterBefore(double day)
{
    int quarter = NewMoonBefore(day);
    while (MoonQuarterMoment(quarter + 1).day <= day) {
        ++quarter;
    }
    return quarter;
}

ZoneMoment InZone(const SkyMoment& moment, int zoneMinutes)
{
    const double local = moment.day + static_cast<double>(zoneMinutes) / kMinutesPerDay;
    const double serialDay = std::floor(local);
    const double timeOfDay = local - serialDay;
    const int seconds = std::min(static_cast<int>(timeOfDay * kSecondsPerDay), kMinutesPerDay * 60 - 1);
    return {static_cast<int>(serialDay), seconds / 60, seconds % 60, std::min(timeOfDay, 1 - timeOfDay) < moment.error};
}

int OtherDayOf(const SkyMoment& moment, int zoneMinutes)
{
    const ZoneMoment zone = InZone(moment, zoneMinutes);
    if (!zone.isUncertain) {
        return zone.serialDay;
    }
    return zone.minute < kMinutesPerDay / 2 ? zone.serialDay - 1 : zone.serialDay + 1;
}
} // namespace dayvane
