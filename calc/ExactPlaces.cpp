#include "calc/ExactPlaces.h"

#include "calc/MoonSeries.h"
#include "calc/SunSeries.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace dayvane {
namespace {
constexpr double kSecondsPerDegree = 3600.0;

// The arguments of moon and nutation (IERS Conventions 2010, after Simon and others 1994), degrees: coefficients of
// the powers of T.
constexpr std::array<double, 5> kMoonAnomaly = {134.96340251, 1717915923.2178 / 3600, 31.8792 / 3600, 0.051635 / 3600,
                                                -0.00024470 / 3600};
constexpr std::array<double, 5> kSunAnomaly = {357.52910918, 129596581.0481 / 3600, -0.5532 / 3600, 0.000136 / 3600,
                                               -0.00001149 / 3600};
constexpr std::array<double, 5> kLatitudeArgument = {93.27209062, 1739527262.8478 / 3600, -12.7512 / 3600,
                                                     -0.001037 / 3600, 0.00000417 / 3600};
constexpr std::array<double, 5> kElongation = {297.85019547, 1602961601.2090 / 3600, -6.3706 / 3600, 0.006593 / 3600,
                                               -0.00003169 / 3600};
constexpr std::array<double, 5> kNode = {125.04455501, -6962890.5431 / 3600, 7.4722 / 3600, 0.007702 / 3600,
                                         -0.00005939 / 3600};

// One wave of the nutation: whole multiples of the arguments; seconds of arc, and their change in a century.
struct NutationWave
{
    signed char moonAnomaly, sunAnomaly, latitude, elongation, node;
    double amplitude, change;
};

// The greatest waves of the nutation IAU 2000B (McCarthy and Luzum 2003).
constexpr std::array<NutationWave, 31> kNutationWaves = {{
    {0, 0, 0, 0, 1, -17.2064161, -0.0174666}, {0, 0, 2, -2, 2, -1.3170906, -0.0001675},
    {0, 0, 2, 0, 2, -0.2276413, -0.0000234},  {0, 0, 0, 0, 2, 0.2074554, 0.0000207},
    {0, 1, 0, 0, 0, 0.1475877, -0.0003633},   {0, 1, 2, -2, 2, -0.0516821, 0.0001226},
    {1, 0, 0, 0, 0, 0.0711159, 0.0000073},    {0, 0, 2, 0, 1, -0.0387298, -0.0000367},
    {1, 0, 2, 0, 2, -0.0301461, -0.0000036},  {0, -1, 2, -2, 2, 0.0215829, -0.0000494},
    {0, 0, 2, -2, 1, 0.0128227, 0.0000137},   {-1, 0, 2, 0, 2, 0.0123457, 0.0000011},
    {-1, 0, 0, 2, 0, 0.0156994, 0.0000010},   {1, 0, 0, 0, 1, 0.0063110, 0.0000063},
    {-1, 0, 0, 0, 1, -0.0057976, -0.0000063}, {-1, 0, 2, 2, 2, -0.0059641, -0.0000011},
    {1, 0, 2, 0, 1, -0.0051613, -0.0000042},  {-2, 0, 2, 0, 1, 0.0045893, 0.0000050},
    {0, 0, 0, 2, 0, 0.0063384, 0.0000011},    {0, 0, 2, 2, 2, -0.0038571, -0.0000001},
    {0, -2, 2, -2, 2, 0.0032481, 0.0},        {-2, 0, 0, 2, 0, -0.0047722, 0.0},
    {2, 0, 2, 0, 2, -0.0031046, -0.0000001},  {1, 0, 2, -2, 2, 0.0028593, 0.0},
    {-1, 0, 2, 0, 1, 0.0020441, 0.0000021},   {2, 0, 0, 0, 0, 0.0029243, 0.0},
    {0, 0, 2, 0, 0, 0.0025887, 0.0},          {0, 1, 0, 0, 1, -0.0014053, -0.0000025},
    {-1, 0, 0, 2, 1, 0.0015164, 0.0000010},   {0, 2, 2, -2, 2, -0.0015794, 0.0000072},
    {0, 0, -2, 2, 0, 0.0021783, 0.0},
}};

// How many of the greatest waves a coarse longitude sums.
constexpr int kCoarseSunWaves = 8;
constexpr int kCoarseMoonWaves = 30;

// The sine of an angle of at most a quarter of a circle either way, given in turns: Taylor's series, good to 1e-11.
inline double SineOfQuarter(double turns)
{
    constexpr double kTwoPi = 6.283185307179586;
    const double x = turns * kTwoPi;
    const double x2 = x * x;
    const double x4 = x2 * x2;
    const double first = (1 - x2 * (1.0 / 6)) + x4 * (1.0 / 120 - x2 * (1.0 / 5040));
    const double second = (1.0 / 362880 - x2 * (1.0 / 39916800)) + x4 * (1.0 / 6227020800 - x2 * (1.0 / 1307674368000));
    return x * (first + x4 * x4 * second);
}

// The cosine, of angles up to 7e11 degrees. The sums here ask for thousands of them a year: this is several times
// faster than the run-time library's, and every build gives the same calendar.
inline double CosineOf(double degrees)
{
    const double turns = degrees * (1.0 / 360.0);
    const double size = std::abs(turns - static_cast<int>(turns)); // [0, 1)
    return SineOfQuarter(size < 0.5 ? 0.25 - size : size - 0.75);
}

double SineOf(double degrees)
{
    return CosineOf(degrees - 90.0);
}

template <std::size_t kCount>
double PowerSum(const std::array<double, kCount>& coefficients, double centuries)
{
    double sum = 0;
    for (std::size_t i = kCount; i > 0; --i) {
        sum = sum * centuries + coefficients[i - 1];
    }
    return sum;
}

template <typename Waves>
double WaveSum(const Waves& waves, double centuries, std::size_t count)
{
    double sum = 0;
    for (std::size_t i = 0; i < std::min(count, waves.size()); ++i) {
        sum += waves[i].amplitude * CosineOf(waves[i].rate * centuries + waves[i].phase);
    }
    return sum;
}

// An argument within one circle, so that its multiples lose nothing.
template <std::size_t kCount>
double ArgumentAt(const std::array<double, kCount>& coefficients, double centuries)
{
    return std::fmod(PowerSum(coefficients, centuries), 360.0);
}

double LunarWaveSum(double centuries, std::size_t count)
{
    const double elongation = ArgumentAt(kElongation, centuries);
    const double sunAnomaly = ArgumentAt(kSunAnomaly, centuries);
    const double moonAnomaly = ArgumentAt(kMoonAnomaly, centuries);
    const double latitude = ArgumentAt(kLatitudeArgument, centuries);
    const double eccentricity = 1 - centuries * (0.002516 + 0.0000074 * centuries);
    const double factors[] = {1, eccentricity, eccentricity * eccentricity, eccentricity * eccentricity * eccentricity};
    double sum = 0;
    for (std::size_t i = 0; i < std::min(count, kLunarWaves.size()); ++i) {
        const LunarWave& wave = kLunarWaves[i];
        const double argument = wave.elongation * elongation + wave.sunAnomaly * sunAnomaly +
                                wave.moonAnomaly * moonAnomaly + wave.latitude * latitude;
        sum += wave.amplitude * factors[std::abs(wave.sunAnomaly)] * SineOf(argument);
    }
    return sum;
}

// Without nutation.
double MeanEquinoxSun(double centuries, Accuracy accuracy)
{
    const double powers = PowerSum(kSunLongitudePowers, centuries);
    if (accuracy == Accuracy::Coarse) {
        const double waves =
            WaveSum(kSunWaves0, centuries, kCoarseSunWaves) + centuries * WaveSum(kSunWaves1, centuries, 1);
        return powers + waves / kSecondsPerDegree;
    }
    const double waves = WaveSum(kSunWaves0, centuries, kSunWaves0.size()) +
                         centuries * (WaveSum(kSunWaves1, centuries, kSunWaves1.size()) +
                                      centuries * WaveSum(kSunWaves2, centuries, kSunWaves2.size()));
    return powers + waves / kSecondsPerDegree;
}

double MeanEquinoxMoon(double centuries, Accuracy accuracy)
{
    const double powers = PowerSum(kMoonLongitudePowers, centuries);
    if (accuracy == Accuracy::Coarse) {
        return powers + LunarWaveSum(centuries, kCoarseMoonWaves) / kSecondsPerDegree;
    }
    const Wave& growing = kMoonGrowingWave;
    const double waves = LunarWaveSum(centuries, kLunarWaves.size()) +
                         WaveSum(kMoonPlanetWaves, centuries, kMoonPlanetWaves.size()) +
                         centuries * growing.amplitude * CosineOf(growing.rate * centuries + growing.phase);
    return powers + waves / kSecondsPerDegree;
}
} // namespace

double NutationInLongitude(double centuries)
{
    const double moonAnomaly = ArgumentAt(kMoonAnomaly, centuries);
    const double sunAnomaly = ArgumentAt(kSunAnomaly, centuries);
    const double latitude = ArgumentAt(kLatitudeArgument, centuries);
    const double elongation = ArgumentAt(kElongation, centuries);
    const double node = ArgumentAt(kNode, centuries);
    double sum = 0;
    for (const NutationWave& wave : kNutationWaves) {
        const double argument = wave.moonAnomaly * moonAnomaly + wave.sunAnomaly * sunAnomaly +
                                wave.latitude * latitude + wave.elongation * elongation + wave.node * node;
        sum += (wave.amplitude + wave.change * centuries) * SineOf(argument);
    }
    return sum / kSecondsPerDegree;
}

double ExactSunLongitude(double centuries, Accuracy accuracy)
{
    const double longitude = MeanEquinoxSun(centuries, accuracy);
    return accuracy == Accuracy::Coarse ? longitude : longitude + NutationInLongitude(centuries);
}

double ExactMoonLongitude(double centuries, Accuracy accuracy)
{
    const double longitude = MeanEquinoxMoon(centuries, accuracy);
    return accuracy == Accuracy::Coarse ? longitude : longitude + NutationInLongitude(centuries);
}

double ExactElongation(double centuries, Accuracy accuracy)
{
    return MeanEquinoxMoon(centuries, accuracy) - MeanEquinoxSun(centuries, accuracy);
}

double SunSpeed(double centuries)
{
    return 0.98565 + 0.03294 * CosineOf(ArgumentAt(kSunAnomaly, centuries));
}

// The derivatives of the greatest waves: amplitude times rate of the argument.
double ElongationSpeed(double centuries)
{
    const double moonAnomaly = ArgumentAt(kMoonAnomaly, centuries);
    const double twoElongations = 2 * ArgumentAt(kElongation, centuries);
    return 12.19075 + 1.4339 * CosineOf(moonAnomaly) + 0.2517 * CosineOf(twoElongations - moonAnomaly) +
           0.2802 * CosineOf(twoElongations) + 0.0974 * CosineOf(2 * moonAnomaly) +
           0.0608 * CosineOf(twoElongations + moonAnomaly) - 0.0361 * CosineOf(ArgumentAt(kSunAnomaly, centuries));
}
} // namespace dayvane
