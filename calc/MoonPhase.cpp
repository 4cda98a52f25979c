#include "calc/MoonPhase.h"

#include "calc/ExactPlaces.h"
#include "calc/SkyMoments.h"

#include <cmath>

namespace dayvane {
MoonOfDay MoonOn(int year, int month, int day, int zoneMinutes)
{
    if (!IsSkyDate(year, month, day, zoneMinutes)) {
        return {};
    }
    const int serialDay = civil::DayNumber(year, month, day);
    const double midnight = serialDay - static_cast<double>(zoneMinutes) / kMinutesPerDay;
    const double noon = midnight + 0.5;
    const int before = MoonQuarterBefore(noon);
    const double elongation = std::fmod(ExactElongation(CenturiesOf(noon)), 360.0);
    MoonOfDay result;
    result.age = noon - MoonQuarterMoment(NewMoonBefore(noon)).day;
    result.elongation = elongation < 0 ? elongation + 360.0 : elongation;
    for (int quarter = before; quarter <= before + 1; ++quarter) {
        const SkyMoment moment = MoonQuarterMoment(quarter);
        if (InZone(moment, zoneMinutes).serialDay == serialDay) {
            result.quarter = (quarter % kQuarters + kQuarters) % kQuarters;
            result.moment = CivilMomentOf(moment, zoneMinutes);
        }
    }
    return result;
}
} // namespace dayvane
