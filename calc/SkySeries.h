// Series for the apparent places of the sun and the moon: sums of waves, amplitude * cos(rate * T + phase).
//
// T counts Julian centuries of 36525 days from the epoch 2451545.0 (noon of 1 January 2000). Against PyEphem 4.1.4 the
// longitudes err by 0.012 degrees at most for the sun (1600 to 2400) and for the moon by 0.017 in 1900 to 2100, by 0.08
// in 1600 to 2400: a new moon is good to about ten minutes, a solar term to about twenty.
#pragma once

#include <array>

namespace dayvane {
// One wave of a series: amplitude in the unit of the sum, rate in degrees per Julian century, phase in degrees.
struct Wave
{
    double amplitude;
    double rate;
    double phase;
};

inline constexpr double kEpoch = 2451545.0;
inline constexpr double kDaysPerCentury = 36525.0;

// Mean longitudes: degrees at the epoch, degrees per century.
inline constexpr double kSunMeanLongitude = 280.4659;
inline constexpr double kSunMeanRate = 36000.7695;
inline constexpr double kMoonMeanLongitude = 218.3162;
inline constexpr double kMoonMeanRate = 481267.8809;

// The sun's equation of the centre, kept out of the table because its amplitude 1.9147 - 0.0048 T shrinks with time.
inline constexpr Wave kSunCentre = {1.9147, 35999.05, 267.52};
inline constexpr double kSunCentreChange = 0.0048;

// The further waves of the sun's longitude, small ones first: they are added in this order.
inline constexpr std::array<Wave, 14> kSunLongitudeWaves = {{
    // degrees, degrees per century, degrees
    {0.0004, 31557, 161},
    {0.0004, 29930, 48},
    {0.0005, 2281, 221},
    {0.0005, 155, 118},
    {0.0006, 33718, 316},
    {0.0007, 9038, 64},
    {0.0007, 3035, 110},
    {0.0007, 65929, 45},
    {0.0013, 22519, 352},
    {0.0015, 45038, 254},
    {0.0018, 445267, 208},
    {0.0018, 19, 159},
    {0.002, 32964, 158},
    {0.02, 71998.1, 265.1},
}};

// The waves of the moon's longitude, small ones first: they are added in this order.
inline constexpr std::array<Wave, 61> kMoonLongitudeWaves = {{
    // degrees, degrees per century, degrees
    {0.0003, 2322131, 191},       {0.0003, 4067, 70},          {0.0003, 549197, 220},      {0.0003, 1808933, 58},
    {0.0003, 349472, 337},        {0.0003, 381404, 354},       {0.0003, 958465, 340},      {0.0004, 12006, 187},
    {0.0004, 39871, 223},         {0.0005, 509131, 242},       {0.0005, 1745069, 24},      {0.0005, 1908795, 90},
    {0.0006, 2258267, 156},       {0.0006, 111869, 38},        {0.0007, 27864, 127},       {0.0007, 485333, 186},
    {0.0007, 405201, 50},         {0.0007, 790672, 114},       {0.0008, 1403732, 98},      {0.0009, 858602, 129},
    {0.0011, 1920802, 186},       {0.0012, 1267871, 249},      {0.0016, 1856938, 152},     {0.0018, 401329, 274},
    {0.0021, 341337, 16},         {0.0021, 71998, 85},         {0.0021, 990397, 357},      {0.0022, 818536, 151},
    {0.0023, 922466, 163},        {0.0024, 99863, 122},        {0.0026, 1379739, 17},      {0.0027, 918399, 182},
    {0.0028, 1934, 145},          {0.0037, 541062, 259},       {0.0038, 1781068, 21},      {0.004, 133, 29},
    {0.004, 1844932, 56},         {0.004, 1331734, 283},       {0.005, 481266, 205},       {0.0052, 31932, 107},
    {0.0068, 926533, 323},        {0.0079, 449334, 188},       {0.0085, 826671, 111},      {0.01, 1431597, 315},
    {0.0107, 1303870, 246},       {0.011, 489205, 142},        {0.0125, 1443603, 52},      {0.0154, 75870, 41},
    {0.0304, 513197, 222},        {0.0347, 445267, 27.9},      {0.0409, 441199.8, 47.4},   {0.0458, 854535.2, 148.2},
    {0.0533, 1367733.1, 280.7},   {0.0571, 377336.3, 13.2},    {0.0588, 63863.5, 124.2},   {0.1144, 966404, 276.5},
    {0.1851, 35999.05, 87.53},    {0.2136, 954397.74, 179.93}, {0.6583, 890534.22, 145.7}, {1.274, 413335.35, 10.74},
    {6.2888, 477198.868, 44.963},
}};

// The tables of the plain places, whose amplitudes do not change: the second row of each of the sun's tables is the
// century's change of the first, taken as a constant.
inline constexpr std::array<Wave, 16> kSunPlaceLongitudeWaves = {{
    // degrees, degrees per century, degrees
    {1.9147, 35999.05, 267.52},
    {-0.0048, 35999.05, 267.52},
    {0.02, 71998.1, 265.1},
    {0.002, 32964, 158},
    {0.0018, 19, 159},
    {0.0018, 445267, 208},
    {0.0015, 45038, 254},
    {0.0013, 22519, 352},
    {0.0007, 65929, 45},
    {0.0007, 3035, 110},
    {0.0007, 9038, 64},
    {0.0006, 33718, 316},
    {0.0005, 155, 118},
    {0.0005, 2281, 221},
    {0.0004, 29930, 48},
    {0.0004, 31557, 161},
}};

inline constexpr std::array<Wave, 8> kSunPlaceDistanceWaves = {{
    // astronomical units, degrees per century, degrees
    {0.016706, 35999.05, 177.53},
    {-0.000042, 35999.05, 177.53},
    {0.000139, 71998, 175},
    {0.000031, 445267, 298},
    {0.000016, 32964, 68},
    {0.000016, 45038, 164},
    {0.000005, 22519, 233},
    {0.000005, 33718, 226},
}};

// The waves of kMoonLongitudeWaves, large ones first; two of them with other figures.
constexpr std::array<Wave, kMoonLongitudeWaves.size()> MoonPlaceLongitudeWaves()
{
    constexpr Wave changed[] = {{0.0347, 445267.1, 27.9}, {0.0304, 513179.9, 222.5}};
    std::array<Wave, kMoonLongitudeWaves.size()> waves = {};
    for (std::size_t i = 0; i < waves.size(); ++i) {
        waves[i] = kMoonLongitudeWaves[waves.size() - 1 - i];
        for (const Wave& wave : changed) {
            if (waves[i].amplitude == wave.amplitude) {
                waves[i] = wave;
            }
        }
    }
    return waves;
}
inline constexpr std::array<Wave, kMoonLongitudeWaves.size()> kMoonPlaceLongitudeWaves = MoonPlaceLongitudeWaves();

// The moon's latitude. Source: the periodic terms of J. Meeus, "Astronomical Algorithms", chapter 47 (from the lunar
// theory ELP 2000-82 of M. Chapront-Touze and J. Chapront), the largest 45, each angle a whole combination of the
// moon's elongation, the anomalies of sun and moon and the moon's argument of latitude, here as one rate and phase.
// Against the moon of PyEphem 4.1.4 (S. L. Moshier's theory, fitted to JPL's DE404) the sum errs by 0.0018 degrees root
// mean square and 0.005 at most in 1900 to 2100, by 0.010 at most in 1600 to 2400.
inline constexpr std::array<Wave, 45> kMoonLatitudeWaves = {{
    // degrees, degrees per century, degrees
    {5.1281, 483202.019, 3.273},  {0.2806, 960400.89, 138.24},  {0.2777, 6003.15, 48.31},
    {0.1732, 407332.21, 52.43},   {0.0554, 896537.37, 104.01},  {0.0463, 69866.66, 82.54},
    {0.0326, 1373736.24, 238.97}, {0.0172, 1437599.75, 273.20}, {0.0093, 884531.07, 187.39},
    {0.0088, 471195.72, 86.65},   {0.0082, 371333.15, 54.90},   {0.0043, 547065.53, 217.50},
    {0.0042, 1850935.11, 13.94},  {0.0034, 443331.26, 229.96},  {0.0025, 860538.32, 106.48},
    {0.0022, 1337737.19, 241.44}, {0.0021, 105865.71, 80.06},   {0.0019, 924401.83, 140.71},
    {0.0018, 820667.56, 153.17},  {0.0018, 519201.07, 180.80},  {0.0017, 1449606.05, 9.82},
    {0.0016, 42002.20, 45.84},    {0.0015, 928469.13, 121.12},  {0.0015, 996399.94, 315.76},
    {0.0014, 29995.90, 129.22},   {0.0013, 447202.97, 5.74},    {0.0013, 37934.91, 65.42},
    {0.0011, 1914798.62, 48.16},  {0.0010, 1297866.43, 288.13}, {0.0008, 1787071.60, 339.71},
    {0.0008, 972407.19, 234.85},  {0.0007, 1309872.73, 204.75}, {0.0006, 559071.83, 134.12},
    {0.0006, 1361729.94, 322.36}, {0.0005, 848532.02, 189.86},  {0.0005, 419338.51, 149.05},
    {0.0004, 948394.58, 221.62},  {0.0004, 2328133.98, 148.90}, {0.0004, 1024264.40, 352.46},
    {0.0004, 932536.42, 281.54},  {0.0004, 1409735.29, 56.50},  {0.0003, 2264270.46, 114.67},
    {0.0003, 1814936.06, 16.41},  {0.0003, 1926804.92, 144.78}, {0.0003, 335334, 57},
}};

inline constexpr double kMoonMeanParallax = 0.950725;    // degrees
inline constexpr double kEarthRadius = 6378.14;          // kilometres, at the equator
inline constexpr double kAstronomicalUnit = 149597870.0; // kilometres
inline constexpr double kSunMeanDistance = 1.00014;      // astronomical units

// The moon's equatorial horizontal parallax. Source: harmonic analysis of the distances of PyEphem's moon (S. L.
// Moshier) in 1900 to 2100 over the same angles, the largest 43. Against the moon of ERFA 2.0 (eraMoon98, ELP 2000-82)
// the distance errs by 3.4 km root mean square and 12 km at most in those years, by 64 km at most in 1600 to 2400.
inline constexpr std::array<Wave, 43> kMoonParallaxWaves = {{
    // degrees, degrees per century, degrees
    {0.05182, 477198.868, 134.963}, {0.00953, 413335.35, 100.74},   {0.007842, 890534.22, 235.7},
    {0.002824, 954397.74, 269.93},  {0.000857, 1367733.09, 10.66},  {0.000531, 854535.17, 238.17},
    {0.000400, 377336.31, 103.21},  {0.000320, 441199.82, 137.43},  {0.000271, 445267.11, 117.85},
    {0.000263, 513197.92, 312.49},  {0.000197, 489205.17, 231.58},  {0.000173, 1431596.60, 44.89},
    {0.000167, 1303869.58, 336.44}, {0.000111, 35999.05, 177.53},   {0.000103, 826670.71, 201.47},
    {0.000084, 63863.51, 214.23},   {0.000083, 926533.27, 53.23},   {0.000078, 1844931.96, 145.63},
    {0.000073, 1781068.45, 111.40}, {0.000064, 1331734.04, 13.13},  {0.000063, 449334.41, 278.27},
    {0.000041, 481266.16, 295.38},  {0.000035, 918398.68, 272.40},  {0.000033, 541062.38, 349.19},
    {0.000030, 922465.98, 252.81},  {0.000029, 75869.81, 130.84},   {0.000029, 990396.79, 87.46},
    {0.000026, 818536.12, 240.64},  {0.000023, 553068.68, 265.81},  {0.000019, 1267870.53, 338.91},
    {0.000014, 341337.25, 105.68},  {0.000013, 401329.06, 4.12},    {0.000013, 1403732.14, 188.19},
    {0.000012, 2258267.31, 246.36}, {0.000011, 1908795.47, 179.85}, {0.000011, 858602.47, 218.59},
    {0.000010, 1745069.40, 113.87}, {0.000009, 790671.66, 203.94},  {0.000007, 2322130.83, 280.59},
    {0.000006, 1808932.91, 148.10}, {0.000006, 485333.46, 275.80},  {0.000005, 99862.56, 211.76},
    {0.000005, 405201, 140},
}};
} // namespace dayvane
