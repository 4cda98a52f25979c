#include "calc/ExactSky.h"

#include "calc/ExactLunarMonths.h"
#include "calc/SkyMoments.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr int kTermStep = 15;

bool IsZone(int zoneMinutes)
{
    return zoneMinutes >= -kMinutesPerDay && zoneMinutes <= kMinutesPerDay;
}

bool IsSkyYear(int year)
{
    return year >= kFirstSkyYear && year <= kLastSkyYear;
}

bool IsSameMonth(const SolsticeYearMonths::Month& a, const SolsticeYearMonths::Month* b)
{
    return b && a.firstDay == b->firstDay && a.number == b->number && a.isLeap == b->isLeap;
}
} // namespace

bool IsSkyDate(int year, int month, int day, int zoneMinutes)
{
    return IsSkyYear(year) && civil::IsValid(year, month, day) && IsZone(zoneMinutes);
}

CivilMoment CivilMomentOf(const SkyMoment& moment, int zoneMinutes)
{
    const ZoneMoment zoneMoment = InZone(moment, zoneMinutes);
    CivilMoment result;
    civil::FromDayNumber(zoneMoment.serialDay, result.date.year, result.date.month, result.date.day);
    result.hour = zoneMoment.minute / 60;
    result.minute = zoneMoment.minute % 60;
    result.second = zoneMoment.second;
    result.isUncertain = zoneMoment.isUncertain;
    return result;
}

CivilMoment MomentOfSolarTerm(int year, int longitude, int zoneMinutes)
{
    if (!IsSkyYear(year) || !IsZone(zoneMinutes) || longitude < 0 || longitude >= 360 || longitude % kTermStep != 0) {
        return {};
    }
    return CivilMomentOf(SolarLongitudeMoment(year, longitude), zoneMinutes);
}

CivilDate DateOfSolarTerm(int year, int longitude, int zoneMinutes)
{
    return MomentOfSolarTerm(year, longitude, zoneMinutes).date;
}

int ExactSolarTerm(int year, int month, int day, int zoneMinutes)
{
    constexpr int kFirstLongitude = 285; // the first term of January; every month has two, from its 2nd to its 25th day
    if (!IsSkyDate(year, month, day, zoneMinutes)) {
        return -1;
    }
    const int serialDay = civil::DayNumber(year, month, day);
    for (int i : {2 * (month - 1), 2 * (month - 1) + 1}) {
        const int longitude = (kFirstLongitude + i * kTermStep) % 360;
        if (InZone(SolarLongitudeMoment(year, longitude), zoneMinutes).serialDay == serialDay) {
            return longitude;
        }
    }
    return -1;
}

ExactLunarDate LunarDateOf(int year, int month, int day, int zoneMinutes)
{
    if (!IsSkyDate(year, month, day, zoneMinutes)) {
        return {};
    }
    const int serialDay = civil::DayNumber(year, month, day);
    int solsticeYear = year; // of the winter solstice that ends its months, late in December
    const SolsticeYear* months = &SolsticeYearOf(solsticeYear, zoneMinutes);
    const SolsticeYearMonths::Month* found = months->surely.MonthOf(serialDay);
    if (!found) {
        ++solsticeYear;
        months = &SolsticeYearOf(solsticeYear, zoneMinutes);
        found = months->surely.MonthOf(serialDay);
    }
    constexpr int kSolsticeMonth = 11; // it and the 12th come before month 1
    ExactLunarDate date;
    date.year = found->number >= kSolsticeMonth ? solsticeYear - 1 : solsticeYear;
    date.month = found->number;
    date.day = serialDay - found->firstDay + 1;
    date.isLeapMonth = found->isLeap;
    date.isUncertain =
        std::any_of(months->otherwise.begin(), months->otherwise.begin() + months->otherwiseCount,
                    [&](const SolsticeYearMonths& other) { return !IsSameMonth(*found, other.MonthOf(serialDay)); });
    return date;
}

int Rokuyo(const ExactLunarDate& date)
{
    return date.IsValid() ? (date.month + date.day) % 6 : -1;
}
} // namespace dayvane
