// The true calendar against published dates, and what must hold on every day of its eight centuries.
#include "calc/ExactPlaces.h"
#include "calc/ExactSky.h"
#include "calc/SkyMoments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {
using dayvane::CivilDate;
using dayvane::ExactLunarDate;
using dayvane::kChinaZone;
using dayvane::kJapanZone;

std::string Text(const CivilDate& date)
{
    std::ostringstream text;
    text << date.year << '-' << date.month << '-' << date.day;
    return text.str();
}

std::string Text(const ExactLunarDate& date)
{
    std::ostringstream text;
    text << date.year << '-' << date.month << (date.isLeapMonth ? "L-" : "-") << date.day;
    return text.str();
}

CivilDate DateOf(int serialDay)
{
    CivilDate date;
    civil::FromDayNumber(serialDay, date.year, date.month, date.day);
    return date;
}

ExactLunarDate LunarDateOn(int serialDay, int zoneMinutes = kJapanZone)
{
    const CivilDate date = DateOf(serialDay);
    return dayvane::LunarDateOf(date.year, date.month, date.day, zoneMinutes);
}

// Whole minutes of Universal Time since 30 December 1899.
double Minutes(int year, int month, int day, int hour, int minute)
{
    return civil::DayNumber(year, month, day) * 1440.0 + hour * 60 + minute;
}

TEST(ExactSky, NoClockShowsTheEndOfItsDay)
{
    const dayvane::ZoneMoment before = dayvane::InZone({-1e-18, 0}, 0); // as near to midnight as to be taken for it
    EXPECT_TRUE(before.minute == 24 * 60 - 1 && before.second == 59);
}

TEST(ExactSky, SpeedsAreTheChangesOfTheLongitudes)
{
    constexpr double kDay = 1 / 36525.0; // centuries
    for (double centuries = -4; centuries < 4; centuries += 3.7 * kDay) {
        const double before = centuries - kDay / 4, after = centuries + kDay / 4;
        const double sun = (dayvane::ExactSunLongitude(after) - dayvane::ExactSunLongitude(before)) * 2;
        const double elongation = (dayvane::ExactElongation(after) - dayvane::ExactElongation(before)) * 2;
        ASSERT_NEAR(dayvane::SunSpeed(centuries), sun, 0.002) << centuries;
        ASSERT_NEAR(dayvane::ElongationSpeed(centuries), elongation, 0.16) << centuries;
    }
}

// Universal Time as published by the U.S. Naval Observatory, "Earth's Seasons" and "Phases of the Moon".
TEST(ExactSky, MomentsArePublishedOnesToTheMinute)
{
    static const struct
    {
        int longitude, year, month, day, hour, minute;
    } terms[] = {
        {0, 2000, 3, 20, 7, 35},  {90, 2000, 6, 21, 1, 48},   {180, 2000, 9, 22, 17, 27}, {270, 2000, 12, 21, 13, 37},
        {0, 2010, 3, 20, 17, 32}, {90, 2010, 6, 21, 11, 28},  {180, 2010, 9, 23, 3, 9},   {270, 2010, 12, 21, 23, 38},
        {0, 2024, 3, 20, 3, 6},   {90, 2024, 6, 20, 20, 51},  {180, 2024, 9, 22, 12, 44}, {270, 2024, 12, 21, 9, 21},
        {0, 2025, 3, 20, 9, 1},   {270, 2025, 12, 21, 15, 3},
    };
    for (const auto& c : terms) {
        const double found = dayvane::SolarLongitudeMoment(c.year, c.longitude).day * 1440;
        EXPECT_NEAR(found, Minutes(c.year, c.month, c.day, c.hour, c.minute), 1) << c.year << ' ' << c.longitude;
    }
    static const struct
    {
        int quarter, year, month, day, hour, minute;
    } quarters[] = {
        {0, 2000, 1, 6, 18, 14}, {1, 2000, 1, 14, 13, 34},     {2, 2000, 1, 21, 4, 40},
        {3, 2000, 1, 28, 7, 57}, {4 * -5, 1999, 8, 11, 11, 8}, {4 * 218, 2017, 8, 21, 18, 30},
    };
    for (const auto& c : quarters) {
        const double found = dayvane::MoonQuarterMoment(c.quarter).day * 1440;
        EXPECT_NEAR(found, Minutes(c.year, c.month, c.day, c.hour, c.minute), 1) << c.year << ' ' << c.quarter;
    }
}

// The days published by the National Astronomical Observatory of Japan.
TEST(ExactSky, TermsOfPublishedYears)
{
    static const struct
    {
        int year;
        const char* days; // from the 5th or 6th of January on, month/day
    } years[] = {
        {2010, "1/5 1/20 2/4 2/19 3/6 3/21 4/5 4/20 5/5 5/21 6/6 6/21 7/7 7/23 8/7 8/23 9/8 9/23 10/8 10/23 11/7 11/22 "
               "12/7 12/22 "},
        {2021, "1/5 1/20 2/3 2/18 3/5 3/20 4/4 4/20 5/5 5/21 6/5 6/21 7/7 7/22 8/7 8/23 9/7 9/23 10/8 10/23 11/7 11/22 "
               "12/7 12/22 "},
        {2024, "1/6 1/20 2/4 2/19 3/5 3/20 4/4 4/19 5/5 5/20 6/5 6/21 7/6 7/22 8/7 8/22 9/7 9/22 10/8 10/23 11/7 11/22 "
               "12/7 12/21 "},
        {2025, "1/5 1/20 2/3 2/18 3/5 3/20 4/4 4/20 5/5 5/21 6/5 6/21 7/7 7/22 8/7 8/23 9/7 9/23 10/8 10/23 11/7 11/22 "
               "12/7 12/22 "},
    };
    for (const auto& c : years) {
        std::ostringstream days;
        for (int day = civil::DayNumber(c.year, 1, 1); day < civil::DayNumber(c.year + 1, 1, 1); ++day) {
            const CivilDate date = DateOf(day);
            if (dayvane::ExactSolarTerm(date.year, date.month, date.day) >= 0) {
                days << date.month << '/' << date.day << ' ';
            }
        }
        EXPECT_EQ(days.str(), c.days) << c.year;
    }
    EXPECT_EQ(Text(dayvane::DateOfSolarTerm(1992, 0)), "1992-3-20");
    EXPECT_EQ(Text(dayvane::DateOfSolarTerm(1979, 180)), "1979-9-24");
    EXPECT_EQ(Text(dayvane::DateOfSolarTerm(2012, 180)), "2012-9-22");
    // The beginning of spring: the last one on the 5th, and the 3rd of 1897 that came again in 2021 only.
    EXPECT_EQ(Text(dayvane::DateOfSolarTerm(1984, 315)), "1984-2-5");
    EXPECT_EQ(Text(dayvane::DateOfSolarTerm(1897, 315)), "1897-2-3");
}

// As the Japanese and the Chinese almanacs print them.
TEST(ExactSky, LeapMonthsAndNewYears)
{
    const auto leapMonths = [](int firstYear, int lastYear, int zoneMinutes) {
        std::ostringstream found;
        for (int day = civil::DayNumber(firstYear, 1, 1); day < civil::DayNumber(lastYear + 1, 1, 1); ++day) {
            const ExactLunarDate date = LunarDateOn(day, zoneMinutes);
            if (date.isLeapMonth && date.day == 1) {
                found << date.year << ':' << date.month << ' ';
            }
        }
        return found.str();
    };
    EXPECT_EQ(
        leapMonths(1984, 2033, kJapanZone),
        "1984:10 1987:6 1990:5 1993:3 1995:8 1998:5 2001:4 2004:2 2006:7 2009:5 2012:3 2014:9 2017:5 2020:4 2023:2 "
        "2025:6 2028:5 2031:3 2033:11 ");
    EXPECT_EQ(leapMonths(2009, 2021, kChinaZone), "2009:5 2012:4 2014:9 2017:6 2020:4 ");

    static const struct
    {
        const char* name;
        int zoneMinutes, year, month, day;
    } newYears[] = {
        {"Japan 2000", kJapanZone, 2000, 2, 5},  {"Japan 2010", kJapanZone, 2010, 2, 14},
        {"Japan 2023", kJapanZone, 2023, 1, 22}, {"Japan 2024", kJapanZone, 2024, 2, 10},
        {"Japan 2025", kJapanZone, 2025, 1, 29}, {"Japan 2026", kJapanZone, 2026, 2, 17},
        {"Japan 1997", kJapanZone, 1997, 2, 8},  {"China 1997", kChinaZone, 1997, 2, 7},
        {"Japan 2027", kJapanZone, 2027, 2, 7},  {"China 2027", kChinaZone, 2027, 2, 6},
        {"Japan 2034", kJapanZone, 2034, 2, 19}, {"China 1985", kChinaZone, 1985, 2, 20},
    };
    for (const auto& c : newYears) {
        EXPECT_EQ(Text(dayvane::LunarDateOf(c.year, c.month, c.day, c.zoneMinutes)), std::to_string(c.year) + "-1-1")
            << c.name;
    }
}

TEST(ExactSky, Rokuyo)
{
    static const struct
    {
        const char* name;
        int year, month, day, rokuyo;
    } cases[] = {
        {"lunar new year", 2024, 2, 10, 2},
        {"1 January 2024", 2024, 1, 1, 1},
        {"1 January 2025", 2025, 1, 1, 2},
        {"no such day", 2024, 2, 30, -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(dayvane::Rokuyo(dayvane::LunarDateOf(c.year, c.month, c.day)), c.rokuyo) << c.name;
    }
}

// What follows the day before, month by month, and the principal terms in the months, by ExactSolarTerm alone.
TEST(ExactSky, EveryDayOfEightCenturies)
{
    ExactLunarDate before = dayvane::LunarDateOf(1600, 1, 1);
    ASSERT_TRUE(before.IsValid());
    int longitude = 270;
    bool hasPrincipalTerm = true; // in the month that is running; the first is not judged
    for (int day = civil::DayNumber(1600, 1, 2); day <= civil::DayNumber(2400, 12, 31); ++day) {
        const CivilDate civilDate = DateOf(day);
        SCOPED_TRACE(Text(civilDate));
        const ExactLunarDate date = LunarDateOn(day);
        if (date.day != 1) {
            ASSERT_EQ(date.day, before.day + 1);
            ASSERT_TRUE(date.month == before.month && date.isLeapMonth == before.isLeapMonth &&
                        date.year == before.year);
        } else {
            ASSERT_TRUE(before.day == 29 || before.day == 30);
            ASSERT_TRUE(!before.isLeapMonth || !hasPrincipalTerm);
            ASSERT_EQ(date.month, date.isLeapMonth ? before.month : before.month % 12 + 1);
            ASSERT_EQ(date.year, before.year + (date.month == 1 && !date.isLeapMonth ? 1 : 0));
            hasPrincipalTerm = false;
        }
        const int term = dayvane::ExactSolarTerm(civilDate.year, civilDate.month, civilDate.day);
        if (term >= 0) {
            longitude = (longitude + 15) % 360;
            ASSERT_EQ(term, longitude);
            ASSERT_TRUE(term != 270 || (date.month == 11 && !date.isLeapMonth));
            ASSERT_TRUE(term != 285 || civilDate.month == 1);
            hasPrincipalTerm = hasPrincipalTerm || term % 30 == 0;
        }
        before = date;
    }
    EXPECT_EQ(longitude, 270);
}

// Answers do not depend on what was asked before, in which zone or on which thread's turn.
TEST(ExactSky, AnyOrderOfQuestions)
{
    std::mt19937 random(20260203);
    std::uniform_int_distribution<int> anyDay(civil::DayNumber(2029, 1, 1), civil::DayNumber(2036, 12, 31));
    std::vector<std::string> inSequence[2];
    const int zones[] = {kJapanZone, kChinaZone};
    const int first = civil::DayNumber(2029, 1, 1);
    for (int zone = 0; zone < 2; ++zone) {
        for (int day = first; day <= civil::DayNumber(2036, 12, 31); ++day) {
            inSequence[zone].push_back(Text(LunarDateOn(day, zones[zone])));
        }
    }
    for (int i = 0; i < 500; ++i) {
        const int day = anyDay(random);
        const int zone = i % 2;
        ASSERT_EQ(Text(LunarDateOn(day, zones[zone])), inSequence[zone][day - first]);
        LunarDateOn(day - 365 * 8 * (i % 5), zones[i % 3 == 0]); // takes the kept year's place
    }
}

TEST(ExactSky, UncertainIsRareAndOnlyNearMidnight)
{
    int uncertain = 0;
    for (int year = 1900; year <= 2100; ++year) {
        for (int longitude = 0; longitude < 360; longitude += 15) {
            const dayvane::CivilMoment moment = dayvane::MomentOfSolarTerm(year, longitude);
            const int secondOfDay = (moment.hour * 60 + moment.minute) * 60 + moment.second;
            uncertain += moment.isUncertain;
            EXPECT_TRUE(!moment.isUncertain || std::min(secondOfDay, 86400 - secondOfDay) < 90) << year;
            EXPECT_TRUE(moment.isUncertain || std::min(secondOfDay, 86400 - secondOfDay) > 10) << year;
        }
    }
    EXPECT_TRUE(uncertain > 0 && uncertain < 10) << uncertain;
    EXPECT_NEAR(dayvane::DeltaTError(-91311), 2 * 12.5, 0.1) << "1650, between 20 seconds and 5, twice";

    // The new moon of August 2074 comes within seconds of midnight: if a day earlier, the day before is the first of
    // the month and all of its days have other numbers. The months around it do not change.
    static const struct
    {
        const char* name;
        int month, day;
        bool isUncertain;
    } days[] = {
        {"the month before", 8, 21, false},   {"its last day", 8, 22, true},      {"first of the month", 8, 23, true},
        {"inside of the month", 9, 10, true}, {"last of the month", 9, 20, true}, {"the next month", 9, 21, false},
    };
    for (const auto& c : days) {
        EXPECT_EQ(dayvane::LunarDateOf(2074, c.month, c.day).isUncertain, c.isUncertain) << c.name;
    }
}

// Polynomials of Espenak and Meeus, "Five Millennium Canon of Solar Eclipses" (NASA 2006), which were fitted to values
// of others than the almanac's; where they leave its curve by more than a fifth of a second, no year is asked.
TEST(ExactSky, TheTurningOfTheEarthFollowsPublishedCurves)
{
    static const struct
    {
        int from, to, origin;
        double terms[8];
    } curves[] = {
        {1600, 1699, 1600, {120, -0.9808, -0.01532, 1.0 / 7129}},
        {1700, 1759, 1700, {8.83, 0.1603, -0.0059285, 0.00013336, -1.0 / 1174000}},
        {1800,
         1820,
         1800,
         {13.72, -0.332447, 0.0068612, 0.0041116, -0.00037436, 0.0000121272, -0.0000001699, 0.000000000875}},
        {1900, 1919, 1900, {-2.79, 1.494119, -0.0598939, 0.0061966, -0.000197}},
        {1920, 1940, 1920, {21.20, 0.84493, -0.0761, 0.0020936}},
        {1941, 1960, 1950, {29.07, 0.407, -1.0 / 233, 1.0 / 2547}},
        {1961, 1985, 1975, {45.45, 1.067, -1.0 / 260, -1.0 / 718}},
        {1986, 2004, 2000, {63.86, 0.3345, -0.060374, 0.0017275, 0.000651814, 0.00002373599}},
    };
    for (const auto& curve : curves) {
        for (int year = (curve.from + 4) / 5 * 5; year <= curve.to; year += year < 1900 ? 10 : 5) {
            double expected = 0, power = 1;
            for (const double term : curve.terms) {
                expected += term * power;
                power *= year - curve.origin;
            }
            const double day = 36526.5 + (year - 2000) * 365.2422;
            EXPECT_NEAR(dayvane::DeltaT(day), expected, 0.2) << year;
        }
    }
    EXPECT_NEAR(dayvane::DeltaT(36526.5 - 98 * 365.2422), 0.0, 0.2) << "1902, between the years of the table";
}

TEST(ExactSky, NoAnswerWithoutADate)
{
    static const struct
    {
        const char* name;
        int year, month, day, zoneMinutes;
    } cases[] = {
        {"no such day", 2026, 2, 29, kJapanZone},        {"month 0", 2026, 0, 1, kJapanZone},
        {"month 13", 2026, 13, 1, kJapanZone},           {"day 0", 2026, 1, 0, kJapanZone},
        {"year before the first", 1599, 12, 31, 540},    {"year after the last", 2401, 1, 1, kJapanZone},
        {"least", INT_MIN, INT_MIN, INT_MIN, INT_MIN},   {"greatest", INT_MAX, INT_MAX, INT_MAX, INT_MAX},
        {"zone beyond a day", 2026, 1, 20, 24 * 60 + 1}, {"least zone", 2026, 1, 20, INT_MIN},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(dayvane::ExactSolarTerm(c.year, c.month, c.day, c.zoneMinutes), -1);
        EXPECT_FALSE(dayvane::LunarDateOf(c.year, c.month, c.day, c.zoneMinutes).IsValid());
    }
    EXPECT_FALSE(dayvane::DateOfSolarTerm(2026, 7).IsValid());
    EXPECT_FALSE(dayvane::DateOfSolarTerm(2026, 360).IsValid());
    EXPECT_FALSE(dayvane::DateOfSolarTerm(2026, INT_MIN).IsValid());
    EXPECT_FALSE(dayvane::DateOfSolarTerm(INT_MAX, 0).IsValid());
}
} // namespace
