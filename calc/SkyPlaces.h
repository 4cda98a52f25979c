// Apparent places of the sun and the moon, and the moments of solar longitudes and new moons that follow from them.
//
// Moments are day numbers of CLunarDate with the time of day in Japan Standard Time.
#pragma once

namespace dayvane
{
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

// What a search did round by round, kept to tell whether two searches from neighbouring moments went the same way.
struct SearchPath
{
    static constexpr int kMaxRounds = 14;

    float angle[kMaxRounds] = {}; // the angle that each round went back by, degrees
    int rounds = 0;
    double result = 0;
    bool settled = false; // false: it took more rounds, or started afresh on its way
};

// CLunarDate::CalcChuuki and CLunarDate::CalcSaku; the path is filled in when one is given.
double FindSolarLongitude(double moment, double angleStep, double& longitude, SearchPath* path = nullptr);
double FindNewMoon(double moment, SearchPath* path = nullptr);
} // namespace dayvane
