// Places of the sun and the moon against an independent ephemeris, the searches, and the solar terms.
#include "calc/LunarDate.h"
#include "calc/SolarTerms.h"
#include "mfc/base/civil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {
double AngleBetween(double one, double other)
{
    return std::abs(std::remainder(one - other, 360.0));
}

// Reference values computed with PyEphem 4.1.4 (planets VSOP87, moon S. L. Moshier), true equator and ecliptic of date;
// the sun's longitude apparent, the moon's geometric.
TEST(Sky, PlacesAgreeWithAnEphemeris)
{
    static const struct
    {
        int day;
        double fraction, moonLongitude, moonLatitude;
        int moonDistance; // km
        double sunLongitude;
        int sunDistance; // km
    } cases[] = {
        {2306315, 0.25, 6.806, 4.875, 382369, 56.394, 151529501},
        {2342644, 0.50, 269.370, 3.394, 374904, 221.371, 148180423},
        {2387686, 0.75, 109.698, 358.081, 369757, 340.414, 148327210},
        {2419508, 0.00, 0.939, 358.135, 388725, 25.146, 150158840},
        {2440423, 0.50, 189.842, 358.468, 388721, 118.058, 152002641},
        {2451402, 0.50, 145.779, 1.174, 375462, 138.867, 151615762},
        {2451545, 0.50, 229.312, 5.054, 403708, 280.878, 147103273},
        {2455242, 0.00, 329.798, 3.273, 405899, 325.682, 147742942},
        {2460409, 0.75, 26.649, 1.014, 360922, 19.877, 149844079},
        {2467851, 0.00, 157.118, 0.363, 367471, 151.007, 151272468},
        {2506512, 0.50, 179.413, 5.274, 384590, 99.243, 152074831},
        {2597611, 0.25, 289.448, 358.296, 395536, 249.058, 147708630},
    };
    CLunarDate sky;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.day);
        const double centuries = (c.day + c.fraction - 2451545.0) / 36525.0;
        double longitude = 0, latitude = 0;
        EXPECT_NEAR(sky.GetLunarPos(&longitude, &latitude, c.day, c.fraction), c.moonDistance, 70);
        const double drift = 0.014 * std::abs(centuries); // of the mean motions
        EXPECT_LT(AngleBetween(longitude, c.moonLongitude), 0.025 + drift);
        EXPECT_LT(AngleBetween(sky.LONGITUDE_MOON(centuries), c.moonLongitude), 0.015 + drift);
        EXPECT_LT(AngleBetween(latitude, c.moonLatitude), 0.011);
        EXPECT_TRUE(latitude >= 0 && latitude < 360);
        EXPECT_NEAR(sky.GetSolarPos(&longitude, c.day, c.fraction), c.sunDistance, 60000);
        EXPECT_LT(AngleBetween(longitude, c.sunLongitude), 0.035); // without the change of the equation of the centre
        EXPECT_LT(AngleBetween(sky.LONGITUDE_SUN(centuries), c.sunLongitude), 0.013);
    }
}

TEST(Sky, AnglesAreNormalized)
{
    CLunarDate sky;
    EXPECT_EQ(sky.NORMALIZATION_ANGLE(-30), 330);
    EXPECT_EQ(sky.NORMALIZATION_ANGLE(720), 0);
    EXPECT_EQ(sky.NORMALIZATION_ANGLE(359.5), 359.5);
    for (int day : {-2000000000, 0, 2451544, 2000000000}) {
        double longitude = 0, latitude = 0;
        sky.GetLunarPos(&longitude, &latitude, day, 0.9);
        EXPECT_TRUE(longitude >= 0 && longitude < 360) << day;
        sky.GetSolarPos(&longitude, day, 0.0);
        EXPECT_TRUE(longitude >= 0 && longitude < 360) << day;
    }
}

// Longitudes at a moment of a search: a day number in Japan Standard Time.
double CenturiesAt(double moment)
{
    return (moment - 0.375 + 0.5 - 2451545.0) / 36525.0;
}

TEST(Sky, SearchesEndWhereTheyShould)
{
    CLunarDate sky;
    int givenUp = 0;
    for (double moment = 2305447.25; moment < 2597640; moment += 97.6) {
        double longitude = 0;
        const double term = sky.CalcChuuki(moment, 30, longitude);
        ASSERT_EQ(longitude, std::floor(sky.LONGITUDE_SUN(CenturiesAt(moment)) / 30) * 30) << moment;
        ASSERT_LT(AngleBetween(sky.LONGITUDE_SUN(CenturiesAt(term)), longitude), 2e-6) << moment;
        ASSERT_TRUE(term <= moment + 1e-5 && term > moment - 32.5) << moment;
        const double newMoon = sky.CalcSaku(moment);
        // In spring, while the sun is within 20 degrees after 0, the search may go back one new moon farther or give
        // up.
        const bool isSpring = sky.LONGITUDE_SUN(CenturiesAt(moment)) < 60;
        ASSERT_TRUE(newMoon <= moment + 2 && newMoon > moment - (isSpring ? 60 : 30)) << moment;
        if (isSpring && newMoon == moment + 0.375) {
            ++givenUp;
            continue;
        }
        const double elongation =
            AngleBetween(sky.LONGITUDE_MOON(CenturiesAt(newMoon)), sky.LONGITUDE_SUN(CenturiesAt(newMoon)));
        ASSERT_LT(elongation, 1e-4) << moment;
    }
    EXPECT_LT(givenUp, 10);
    // Published new moons, Japan Standard Time: 14 February 2010 11:51, 22 July 2009 11:35.
    EXPECT_NEAR(sky.CalcSaku(2455241 + 5), 2455240.5 + 0.5 + 0.494, 0.02);
    EXPECT_NEAR(sky.CalcSaku(2455034 + 5), 2455034 + 0.483, 0.02);
}

std::string TermsOfYear(int year)
{
    std::string terms;
    for (int day = civil::DayNumber(year, 1, 1); day <= civil::DayNumber(year, 12, 31); ++day) {
        int month = 0, dayOfMonth = 0;
        civil::FromDayNumber(day, year, month, dayOfMonth);
        CString name;
        if (CLunarDate().Get24Setuki(COleDateTime(year, month, dayOfMonth, 23, 0, 0), name)) {
            terms += std::to_string(month) + "/" + std::to_string(dayOfMonth) + name.GetString() + " ";
        }
    }
    return terms;
}

TEST(SolarTerms, DaysOfTheYear)
{
    // As published by the National Astronomical Observatory of Japan, without the equinoxes.
    EXPECT_EQ(TermsOfYear(2010), "1/5小寒 1/20大寒 2/4立春 2/19雨水 3/6啓蟄 4/5清明 4/20穀雨 5/5立夏 5/21小満 "
                                 "6/6芒種 6/21夏至 7/7小暑 7/23大暑 8/7立秋 8/23処暑 9/8白露 10/8寒露 10/23霜降 "
                                 "11/7立冬 11/22小雪 12/7大雪 12/22冬至 ");
    // A term may come on two days, for the sun takes longer than a day for its degree in summer.
    EXPECT_NE(TermsOfYear(2006).find("5/5立夏 5/6立夏 "), std::string::npos);
}

TEST(SolarTerms, RoundingGoesByTheFirstDecimal)
{
    struct
    {
        double degrees;
        int rounded;
    } const cases[] = {{14.46, 15}, {14.44, 14}, {14.5, 15},   {14.97, 15},
                       {15.0, 15},  {15.4, 15},  {359.6, 360}, {0.2, 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(dayvane::RoundedByFirstDecimal(c.degrees), c.rounded) << c.degrees;
    }
}

// The widened test finds a term wherever the sun reaches its longitude within the first nine tenths of the day, on
// that day or the ones beside it, and nothing elsewhere.
TEST(SolarTerms, WidenedTest)
{
    CLunarDate sky;
    int found[dayvane::kSolarTerms] = {};
    for (int day = civil::DayNumber(2008, 1, 1); day < civil::DayNumber(2012, 1, 1); ++day) {
        const COleDateTime date(static_cast<double>(day));
        int index = -1;
        CString name;
        if (!sky.Get24Setuki2(index, date, name)) {
            continue;
        }
        ASSERT_TRUE(index >= 0 && index < dayvane::kSolarTerms);
        EXPECT_STREQ(name, dayvane::g_solarTerms[index].name);
        double longitude = 0;
        sky.GetSolarPos(&longitude, static_cast<int>(sky.GCtoJC(date)), 0.45);
        EXPECT_LT(AngleBetween(longitude, dayvane::g_solarTerms[index].longitude), 1.5) << day;
        ++found[index];
    }
    for (int count : found) {
        EXPECT_TRUE(count >= 4 && count <= 8) << count;
    }
}
} // namespace
