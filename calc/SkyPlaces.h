// Apparent places of the sun and the moon, and the moments of solar longitudes and new moons that follow from them.
//
// Moments are day numbers of CLunarDate with the time of day in Japan Standard Time.
#pragma once

namespace dayvane {
double NormalizedAngle(double degrees);
double SunLongitude(double centuries);
double MoonLongitude(double centuries);

struct Place
{
    double longitude; // degrees, [0, 360)
    double latitude;  // degrees, [0, 360)
    int distance;     // kilometres
};
Place SunPlace(int day, double fraction);
Place MoonPlace(int day, double fraction);

// CLunarDate::CalcChuuki and CLunarDate::CalcSaku.
double FindSolarLongitude(double moment, double angleStep, double& longitude);
double FindNewMoon(double moment);
} // namespace dayvane
