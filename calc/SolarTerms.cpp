#include "calc/SolarTerms.h"

#include "calc/SkyPlaces.h"

#include <cmath>

namespace dayvane {
namespace {
// Parts of the day, on the time scale of the series, at which the sun is looked at.
constexpr double kTermHour = 0.6;
constexpr double kDayBegin = 0.0;
constexpr double kDayEnd = 0.9;
} // namespace

const SolarTerm g_solarTerms[kSolarTerms] = {
    // name, degrees
    {"立春", 315}, {"雨水", 330}, {"啓蟄", 345}, {"清明", 15},  {"穀雨", 30},  {"立夏", 45},
    {"小満", 60},  {"芒種", 75},  {"夏至", 90},  {"小暑", 105}, {"大暑", 120}, {"立秋", 135},
    {"処暑", 150}, {"白露", 165}, {"寒露", 195}, {"霜降", 210}, {"立冬", 225}, {"小雪", 240},
    {"大雪", 255}, {"冬至", 270}, {"小寒", 285}, {"大寒", 300},
};

int RoundedByFirstDecimal(double degrees)
{
    double whole = 0;
    double tenths = 0;
    const double hundredths = std::modf(std::modf(degrees, &whole) * 10, &tenths);
    const int firstDecimal = static_cast<int>(tenths) + (hundredths >= 0.5 ? 1 : 0);
    return static_cast<int>(whole) + (firstDecimal >= 5 ? 1 : 0);
}

const SolarTerm* SolarTermOf(double day)
{
    const int longitude = RoundedByFirstDecimal(SunPlace(static_cast<int>(day), kTermHour).longitude);
    for (const SolarTerm& term : g_solarTerms) {
        if (term.longitude == longitude) {
            return &term;
        }
    }
    return nullptr;
}

const SolarTerm* SolarTermWithin(double day)
{
    const double begin = std::floor(SunPlace(static_cast<int>(day), kDayBegin).longitude);
    const double end = std::ceil(SunPlace(static_cast<int>(day), kDayEnd).longitude);
    for (const SolarTerm& term : g_solarTerms) {
        if (begin < term.longitude && term.longitude <= end) {
            return &term;
        }
    }
    return nullptr;
}
} // namespace dayvane
