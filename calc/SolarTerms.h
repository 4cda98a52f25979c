// The 22 solar terms that have a name here: the sun at a multiple of 15 degrees, but for the two equinoxes.
#pragma once

namespace dayvane {
struct SolarTerm
{
    const char* name; // code page 932
    int longitude;    // degrees
};

inline constexpr int kSolarTerms = 22;
extern const SolarTerm g_solarTerms[kSolarTerms]; // from the beginning of spring on

// The term of a day (whole day number of CLunarDate), nullptr when it has none: the rule that
// CLunarDate::Get24Setuki and the annotations share.
const SolarTerm* SolarTermOf(double day);

// The rule of CLunarDate::Get24Setuki2.
const SolarTerm* SolarTermWithin(double day);

// Rounds an angle to whole degrees by way of its first decimal, itself rounded: 14.46 gives 15.
int RoundedByFirstDecimal(double degrees);
} // namespace dayvane
