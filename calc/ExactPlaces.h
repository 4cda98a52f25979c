// Apparent longitudes of the sun and the moon to a second or two of arc, on the true ecliptic and equinox of date.
//
// T counts Julian centuries of 36525 days of Terrestrial Time from J2000.0 (noon of 1 January 2000). Angles are
// degrees. The errors hold for the years 1600 to 2400 and include those of the truncated nutation; tests compare with
// ERFA.
#pragma once

namespace dayvane {
inline constexpr double kSunLongitudeError = 0.00015; // degrees: half a second of arc
inline constexpr double kMoonLongitudeError = 0.0009; // degrees: three seconds of arc

// How much of the series is summed: the first guess of a search needs only its greatest waves.
enum class Accuracy
{
    Coarse, // to about 0.005 degrees
    Full
};

// The apparent longitudes, not reduced to one circle. Only Full adds nutation; a difference of two longitudes does
// without it anyway.
double ExactSunLongitude(double centuries, Accuracy accuracy = Accuracy::Full);
double ExactMoonLongitude(double centuries, Accuracy accuracy = Accuracy::Full);

// The moon's longitude less the sun's, by the same series; nutation falls out.
double ExactElongation(double centuries, Accuracy accuracy = Accuracy::Full);

// How fast they change, degrees per day, to about one part in a hundred: enough for Newton's steps.
double SunSpeed(double centuries);
double ElongationSpeed(double centuries);

// Nutation in longitude, degrees, to 0.00001.
double NutationInLongitude(double centuries);
} // namespace dayvane
