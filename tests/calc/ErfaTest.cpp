// Places of the sun and the moon against ERFA, which rests on theories of its own for all but the moon: the sun by
// VSOP2000, the moon by the 60 greatest waves of ELP 2000-82 (good to 12 seconds of arc), precession and nutation by
// IAU 2006/2000A.
#include "calc/ExactPlaces.h"

#include <erfa.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>

namespace {
constexpr double kDegrees = 57.29577951308232; // in one radian
constexpr double kLightSpeed = 173.1446327;    // astronomical units a day
constexpr double kFirstDay = 2305447.5;        // Julian day numbers of 1 January 1600 and 31 December 2400
constexpr double kLastDay = 2598008.5;
constexpr int kPlaces = 500;

// The longitude on the true ecliptic and equinox of date of a direction in the ICRS, degrees.
double LongitudeOfDate(double day, double direction[3])
{
    double toTrueEquator[3][3], ofDate[3], nutation = 0, obliquityNutation = 0;
    eraPnm06a(day, 0, toTrueEquator);
    eraNut06a(day, 0, &nutation, &obliquityNutation);
    const double obliquity = eraObl06(day, 0) + obliquityNutation;
    eraRxp(toTrueEquator, direction, ofDate);
    return std::atan2(ofDate[1] * std::cos(obliquity) + ofDate[2] * std::sin(obliquity), ofDate[0]) * kDegrees;
}

double ErfaSun(double day)
{
    double heliocentric[2][3], barycentric[2][3], direction[3];
    eraEpv00(day, 0, heliocentric, barycentric);
    const double distance = eraPm(heliocentric[0]);
    for (int i = 0; i < 3; ++i) {
        direction[i] = -heliocentric[0][i] / distance + barycentric[1][i] / kLightSpeed; // aberration
    }
    return LongitudeOfDate(day, direction);
}

double ErfaMoon(double day)
{
    constexpr double kLightTime = 1.2825 / 86400; // mean, days
    double place[2][3];
    eraMoon98(day - kLightTime, 0, place);
    return LongitudeOfDate(day, place[0]);
}

double ErfaNutation(double day)
{
    double nutation = 0, obliquityNutation = 0;
    eraNut06a(day, 0, &nutation, &obliquityNutation);
    return nutation * kDegrees;
}

TEST(Erfa, PlacesAgreeOverEightCenturies)
{
    static const struct
    {
        const char* name;
        double (*erfa)(double day);
        double (*exact)(double centuries);
        double difference; // degrees
        double mean;       // the root of the mean of squares: a wrong one of the least waves shows here
    } cases[] = {
        {"sun", ErfaSun, [](double t) { return dayvane::ExactSunLongitude(t); }, 0.00012, 2.13e-5},
        {"moon", ErfaMoon, [](double t) { return dayvane::ExactMoonLongitude(t); }, 0.004, 0.000815},
        {"moon less sun", [](double day) { return ErfaMoon(day) - ErfaSun(day); },
         [](double t) { return dayvane::ExactElongation(t); }, 0.004, 0.000815},
        {"nutation", ErfaNutation, dayvane::NutationInLongitude, 0.00001, 1.11e-6},
        {"coarse sun", ErfaSun,
         [](double t) {
             return dayvane::ExactSunLongitude(t, dayvane::Accuracy::Coarse) + dayvane::NutationInLongitude(t);
         },
         0.006, 0.00117},
    };
    std::mt19937 random(1600);
    std::uniform_real_distribution<double> anyDay(kFirstDay, kLastDay);
    double squares[std::size(cases)] = {};
    for (int i = 0; i < kPlaces; ++i) {
        const double day = anyDay(random);
        const double centuries = (day - 2451545.0) / 36525.0;
        for (std::size_t k = 0; k < std::size(cases); ++k) {
            const auto& c = cases[k];
            const double difference = std::remainder(c.erfa(day) - c.exact(centuries), 360.0);
            ASSERT_LT(std::abs(difference), c.difference) << c.name << " on day " << day;
            squares[k] += difference * difference;
        }
    }
    for (std::size_t k = 0; k < std::size(cases); ++k) {
        EXPECT_LT(std::sqrt(squares[k] / kPlaces), cases[k].mean) << cases[k].name;
    }
}
} // namespace
