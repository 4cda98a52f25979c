// Places of the sun and the moon against an independent ephemeris, and the solar terms.
#include "calc/LunarDate.h"
#include "calc/SolarTerms.h"
#include "mfc/base/civil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
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
        {2387686, 0.75, 109.698, 358.081, 369757, 340.414, 148327210},
        {2440423, 0.50, 189.842, 358.468, 388721, 118.058, 152002641},
        {2451545, 0.50, 229.312, 5.054, 403708, 280.878, 147103273},
        {2455242, 0.00, 329.798, 3.273, 405899, 325.682, 147742942},
        {2460409, 0.75, 26.649, 1.014, 360922, 19.877, 149844079},
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
    EXPECT_EQ(dayvane::RoundedByFirstDecimal(14.46), 15);
    EXPECT_EQ(dayvane::RoundedByFirstDecimal(14.44), 14);
    EXPECT_EQ(dayvane::RoundedByFirstDecimal(14.97), 15);
    EXPECT_EQ(dayvane::RoundedByFirstDecimal(15.4), 15);
    EXPECT_EQ(dayvane::RoundedByFirstDecimal(359.6), 360);
}

// The widened test finds each term on its published day (National Astronomical Observatory of Japan, 2010, without the
// equinoxes), and otherwise only on a day beside it.
TEST(SolarTerms, WidenedTest)
{
    const struct
    {
        int month, day;
        const char* name;
    } published[] = {
        {1, 5, "小寒"},  {1, 20, "大寒"},  {2, 4, "立春"},  {2, 19, "雨水"},  {3, 6, "啓蟄"},  {4, 5, "清明"},
        {4, 20, "穀雨"}, {5, 5, "立夏"},   {5, 21, "小満"}, {6, 6, "芒種"},   {6, 21, "夏至"}, {7, 7, "小暑"},
        {7, 23, "大暑"}, {8, 7, "立秋"},   {8, 23, "処暑"}, {9, 8, "白露"},   {10, 8, "寒露"}, {10, 23, "霜降"},
        {11, 7, "立冬"}, {11, 22, "小雪"}, {12, 7, "大雪"}, {12, 22, "冬至"},
    };
    std::set<int> around, indices;
    for (const auto& term : published) {
        const int day = civil::DayNumber(2010, term.month, term.day);
        for (int each = day - 1; each <= day + 1; ++each) {
            CString name;
            int index = -1;
            const bool isFound = CLunarDate().Get24Setuki2(index, COleDateTime(static_cast<double>(each)), name);
            EXPECT_TRUE(isFound || each != day) << term.name;
            EXPECT_STREQ(name, isFound ? term.name : "");
            around.insert(each);
            indices.insert(index);
        }
    }
    indices.erase(-1);
    EXPECT_EQ(indices.size(), std::size(published));
    for (int day = civil::DayNumber(2010, 1, 1); day <= civil::DayNumber(2010, 12, 31); ++day) {
        CString name;
        int index = -1;
        EXPECT_TRUE(around.count(day) != 0 ||
                    !CLunarDate().Get24Setuki2(index, COleDateTime(static_cast<double>(day)), name))
            << day;
    }
}
} // namespace
