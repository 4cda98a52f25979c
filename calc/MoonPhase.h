// Age and phase of the moon on a date.
#pragma once

#include "ExactSky.h"

namespace dayvane {
struct MoonOfDay
{
    double age = -1;        // days since the new moon at noon of the date; negative: no answer
    double elongation = -1; // degrees at noon, [0, 360): 0 new moon, 90 first quarter, 180 full moon, 270 last quarter
    int quarter = -1;   // 0 new moon, 1 first quarter, 2 full moon, 3 last quarter when it comes on the date, else -1
    CivilMoment moment; // its moment; no date when there is none
};

// No answer (both -1) for a date outside of IsSkyDate.
MoonOfDay MoonOn(int year, int month, int day, int zoneMinutes = kJapanZone);
} // namespace dayvane
