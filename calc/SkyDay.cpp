#include "calc/SkyDay.h"

#include "calc/SexagenaryCycle.h"

namespace dayvane {
namespace {
constexpr int kSpring = 315;         // degrees, with the first term of February
constexpr int kFirstOfJanuary = 285; // degrees: the first term of January; each month's is 30 further
constexpr int kDegreesPerMonth = 30;

SexagenaryDate SexagenaryOf(const CivilDate& date, int lunarYear, int zoneMinutes)
{
    const int serialDay = SerialDayOf(date);
    const auto hasBegun = [&](int longitude) {
        return serialDay >= SerialDayOf(DateOfSolarTerm(date.year, longitude, zoneMinutes));
    };
    const int firstTerm = (kFirstOfJanuary + kDegreesPerMonth * (date.month - 1)) % 360;
    SexagenaryDate result;
    result.lunarYear = SexagenaryYear(lunarYear);
    result.year = SexagenaryYear(hasBegun(kSpring) ? date.year : date.year - 1);
    result.month = SexagenaryMonth(date.year, hasBegun(firstTerm) ? date.month : date.month - 1);
    result.day = SexagenaryDay(serialDay);
    return result;
}
} // namespace

SkyDay SkyDayOf(int year, int month, int day, int zoneMinutes)
{
    SkyDay result;
    result.lunar = LunarDateOf(year, month, day, zoneMinutes);
    if (!result.lunar.IsValid()) {
        return result;
    }
    result.solarTerm = ExactSolarTerm(year, month, day, zoneMinutes);
    if (result.solarTerm >= 0) {
        result.solarTermMoment = MomentOfSolarTerm(year, result.solarTerm, zoneMinutes);
    }
    result.rokuyo = Rokuyo(result.lunar);
    result.sexagenary = SexagenaryOf({year, month, day}, result.lunar.year, zoneMinutes);
    result.moon = MoonOn(year, month, day, zoneMinutes);
    result.seasonal = SeasonalDaysOf(year, month, day, zoneMinutes);
    return result;
}
} // namespace dayvane
