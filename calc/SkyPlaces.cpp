#include "calc/SkyPlaces.h"

#include "calc/SkySeries.h"

#include <cmath>

namespace dayvane {
namespace {
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kPlaceRadiansPerDegree = 0.017453292519943; // of the plain places
constexpr double kZoneOffset = 0.375;                        // Japan Standard Time - UT: 9 hours, in days
constexpr double kOneSecond = 1.0 / 86400.0;
constexpr double kSolarYear = 365.2;
constexpr double kLunation = 29.530589;

double CosineOf(const Wave& wave, double centuries)
{
    return std::cos(NormalizedAngle(wave.rate * centuries + wave.phase) * kRadiansPerDegree);
}

template <typename Waves>
double SumOf(const Waves& waves, double centuries)
{
    double sum = 0;
    for (const Wave& wave : waves) {
        sum += wave.amplitude * CosineOf(wave, centuries);
    }
    return sum;
}

template <typename Waves>
double PlainSumOf(const Waves& waves, double centuries)
{
    double sum = 0;
    for (const Wave& wave : waves) {
        sum += wave.amplitude * std::cos((wave.rate * centuries + wave.phase) * kPlaceRadiansPerDegree);
    }
    return sum;
}

// What taking off or adding whole circles one by one gives: fmod is exact, as those steps are.
double ReducedAngle(double degrees)
{
    double angle = std::fmod(degrees, 360.0);
    if (angle < 0) {
        angle += 360.0;
    }
    return angle < 360.0 ? angle : 0.0;
}

int WholeKilometres(double distance)
{
    return std::abs(distance) < 1e9 ? static_cast<int>(distance) : 0;
}

double CenturiesAt(int day, double fraction)
{
    return (day + fraction - kEpoch) / kDaysPerCentury;
}

// A moment as a whole day and a part of a day in UT, so that short steps lose no digits.
class SplitMoment
{
public:
    explicit SplitMoment(double moment) : m_day(std::floor(moment)), m_part(moment - m_day - kZoneOffset) {}

    double Centuries() const { return (m_part + 0.5) / kDaysPerCentury + (m_day - kEpoch) / kDaysPerCentury; }

    // Goes back by an angle that a full circle of so many days covers; the size of the step in days.
    double GoBack(double angle, double daysOfCircle)
    {
        const double step = angle * daysOfCircle / 360.0;
        const double days = std::floor(step);
        const double part = step - days;
        m_day -= days;
        m_part -= part;
        if (m_part < 0) {
            m_part += 1.0;
            m_day -= 1.0;
        }
        return std::abs(days + part);
    }

    void RestartAt(double day)
    {
        m_day = day;
        m_part = 0;
    }

    double Moment() const { return m_day + m_part + kZoneOffset; }

private:
    double m_day;
    double m_part;
};

// The angle by which the moon is past the sun, as the search has to take it: the first round goes back to a new moon,
// the later ones go the short way; while the sun is just past 0 degrees and the moon is short of it, the angle is
// measured the other way round.
double NewMoonAngle(double sunLongitude, double moonLongitude, int round)
{
    const double angle = moonLongitude - sunLongitude;
    if (round == 1 && angle < 0) {
        return NormalizedAngle(angle);
    }
    if (sunLongitude >= 0 && sunLongitude <= 20 && moonLongitude >= 300) {
        return 360.0 - NormalizedAngle(angle);
    }
    if (std::abs(angle) > 40) {
        return NormalizedAngle(angle);
    }
    return angle;
}
} // namespace

double NormalizedAngle(double degrees)
{
    return degrees - std::floor(degrees / 360.0) * 360.0;
}

double SunLongitude(double centuries)
{
    const double centre = CosineOf(kSunCentre, centuries);
    const double mean = NormalizedAngle(NormalizedAngle(kSunMeanRate * centuries) + kSunMeanLongitude);
    const double waves = SumOf(kSunLongitudeWaves, centuries);
    return NormalizedAngle(waves - kSunCentreChange * centuries * centre + kSunCentre.amplitude * centre + mean);
}

double MoonLongitude(double centuries)
{
    const double mean = NormalizedAngle(NormalizedAngle(kMoonMeanRate * centuries) + kMoonMeanLongitude);
    return NormalizedAngle(SumOf(kMoonLongitudeWaves, centuries) + mean);
}

Place SunPlace(int day, double fraction)
{
    const double centuries = CenturiesAt(day, fraction);
    const double longitude =
        kSunMeanLongitude + kSunMeanRate * centuries + PlainSumOf(kSunPlaceLongitudeWaves, centuries);
    const double distance = (kSunMeanDistance + PlainSumOf(kSunPlaceDistanceWaves, centuries)) * kAstronomicalUnit;
    return {ReducedAngle(longitude), 0, WholeKilometres(distance)};
}

Place MoonPlace(int day, double fraction)
{
    const double centuries = CenturiesAt(day, fraction);
    const double longitude =
        kMoonMeanLongitude + kMoonMeanRate * centuries + PlainSumOf(kMoonPlaceLongitudeWaves, centuries);
    const double latitude = PlainSumOf(kMoonLatitudeWaves, centuries);
    const double parallax = kMoonMeanParallax + PlainSumOf(kMoonParallaxWaves, centuries);
    const double distance = kEarthRadius / std::sin(parallax * kPlaceRadiansPerDegree);
    return {ReducedAngle(longitude), ReducedAngle(latitude), WholeKilometres(distance)};
}

double FindSolarLongitude(double moment, double angleStep, double& longitude)
{
    // Within a million years of the epoch four or five rounds do; beyond, where doubles are too coarse for a second,
    // the search must end as well.
    constexpr int kMostRounds = 100;

    SplitMoment found(moment);
    longitude = std::floor(SunLongitude(found.Centuries()) / angleStep) * angleStep;
    double step = 0;
    int round = 0;
    do {
        double angle = SunLongitude(found.Centuries()) - longitude;
        if (angle > 180) {
            angle -= 360;
        } else if (angle < -180) {
            angle += 360;
        }
        step = found.GoBack(angle, kSolarYear);
    } while (step > kOneSecond && ++round < kMostRounds);
    return found.Moment();
}

double FindNewMoon(double moment)
{
    constexpr int kRestartRound = 15;
    constexpr int kLastRound = 30;

    SplitMoment found(moment);
    for (int round = 1;; ++round) {
        const double centuries = found.Centuries();
        const double angle = NewMoonAngle(SunLongitude(centuries), MoonLongitude(centuries), round);
        const double step = found.GoBack(angle, kLunation);
        if (step <= kOneSecond) {
            return found.Moment();
        }
        if (round == kRestartRound) {
            found.RestartAt(std::floor(moment - 26));
        } else if (round > kLastRound) {
            return moment + kZoneOffset;
        }
    }
}
} // namespace dayvane
