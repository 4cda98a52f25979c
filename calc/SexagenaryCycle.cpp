#include "calc/SexagenaryCycle.h"

namespace dayvane {
namespace {
int Place(int count)
{
    const int rest = count % kSexagenaryPlaces;
    return rest < 0 ? rest + kSexagenaryPlaces : rest;
}
} // namespace

// Known places: 1 January 2000 (day 36526) was 54, the year 1984 was 0, the month from the beginning of spring 1984
// was 2.
int SexagenaryDay(int serialDay)
{
    return Place(serialDay - 36526 + 54);
}

int SexagenaryYear(int year)
{
    return Place(year - 1984);
}

int SexagenaryMonth(int year, int civilMonth)
{
    return Place((year - 1984) * 12 + civilMonth - 2 + 2);
}
} // namespace dayvane
