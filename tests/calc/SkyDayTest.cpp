// All that the sky says of a date, against almanacs.
#include "calc/ExactPlaces.h"
#include "calc/SexagenaryCycle.h"
#include "calc/SkyDay.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <sstream>
#include <string>

namespace {
using dayvane::SeasonalDay;
using dayvane::SkyDay;

// In the order of SeasonalDay, with the days that last for a week or more left out.
std::string SeasonalNames(const dayvane::SeasonalDays& days)
{
    std::string names;
    for (int i = 0; i < static_cast<int>(SeasonalDay::Count); ++i) {
        const auto day = static_cast<SeasonalDay>(i);
        if (days.Has(day) && day != SeasonalDay::Higan && day != SeasonalDay::Doyo) {
            names += std::string(names.empty() ? "" : " ") + dayvane::SeasonalDayName(day).japanese;
        }
    }
    return names;
}

std::string Year(int year, const char* name)
{
    std::ostringstream found;
    for (int month = 1; month <= 12; ++month) {
        for (int day = 1; day <= civil::DaysInMonth(year, month); ++day) {
            const std::string names = SeasonalNames(dayvane::SeasonalDaysOf(year, month, day));
            if ((" " + names + " ").find(" " + std::string(name) + " ") != std::string::npos) {
                found << month << '/' << day << ' ';
            }
        }
    }
    return found.str();
}

// The almanac of the National Astronomical Observatory of Japan (Rekiyoko); the ox days of summer from printed
// calendars. Shanichi by its rule: in March 2024 two such days were equally near, and the equinox came at 12:06.
TEST(SkyDay, SeasonalDaysOfPublishedYears)
{
    static const struct
    {
        int year;
        const char* name;
        const char* days;
    } cases[] = {
        {2021, u8"節分", "2/2 "},
        {2024, u8"節分", "2/3 "},
        {2025, u8"節分", "2/2 "},
        {2024, u8"彼岸入り", "3/17 9/19 "},
        {2024, u8"彼岸の中日", "3/20 9/22 "},
        {2024, u8"彼岸明け", "3/23 9/25 "},
        {2023, u8"八十八夜", "5/2 "},
        {2024, u8"八十八夜", "5/1 "},
        {2023, u8"入梅", "6/11 "},
        {2024, u8"入梅", "6/10 "},
        {2023, u8"半夏生", "7/2 "},
        {2024, u8"半夏生", "7/1 "},
        {2023, u8"二百十日", "9/1 "},
        {2024, u8"二百十日", "8/31 "},
        {2024, u8"二百二十日", "9/10 "},
        {2024, u8"土用入り", "1/18 4/16 7/19 10/20 "},
        {2020, u8"社日", "3/16 9/22 "},
        {2024, u8"社日", "3/25 9/21 "},
        {2025, u8"社日", "3/20 9/26 "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Year(c.year, c.name), c.days) << c.year << ' ' << c.name;
    }
    EXPECT_TRUE(dayvane::SeasonalDaysOf(2024, 3, 25, 534).Has(SeasonalDay::Shanichi)) << "where it is 12:00";
    EXPECT_TRUE(dayvane::SeasonalDaysOf(2024, 3, 15, 533).Has(SeasonalDay::Shanichi)) << "where it is 11:59";
    const auto summerOx = [](int year) {
        const std::string days = Year(year, u8"土用の丑の日");
        const std::size_t begin = days.find("7/");
        return days.substr(begin, days.find("10/") - begin);
    };
    EXPECT_EQ(summerOx(2023), "7/30 ");
    EXPECT_EQ(summerOx(2024), "7/24 8/5 ");
    EXPECT_EQ(summerOx(2025), "7/19 7/31 ");
}

// The autumn equinox of 1917 came seven seconds after midnight.
TEST(SkyDay, SeasonalDaysNearMidnightAreUncertain)
{
    EXPECT_TRUE(dayvane::SeasonalDaysOf(1917, 9, 24).isUncertain);
    EXPECT_TRUE(dayvane::SeasonalDaysOf(1917, 9, 20).isUncertain); // would be the first of higan's days
    EXPECT_FALSE(dayvane::SeasonalDaysOf(1917, 9, 15).isUncertain);
    EXPECT_FALSE(dayvane::SeasonalDaysOf(1917, 3, 21).isUncertain);
    EXPECT_TRUE(dayvane::SkyDayOf(1917, 9, 24).IsUncertain());
}

// A week of higan, 18 or 19 days of doyo up to the next season, shanichi within five days of an equinox day.
TEST(SkyDay, SeasonalDaysOfEightCenturies)
{
    for (int year = 1600; year <= 2400; ++year) {
        SCOPED_TRACE(year);
        int counts[static_cast<int>(SeasonalDay::Count)] = {};
        bool isDoyo = false;
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= civil::DaysInMonth(year, month); ++day) {
                const dayvane::SeasonalDays days = dayvane::SeasonalDaysOf(year, month, day);
                for (int i = 0; i < static_cast<int>(SeasonalDay::Count); ++i) {
                    counts[i] += days.Has(static_cast<SeasonalDay>(i));
                }
                const bool isSeason = dayvane::ExactSolarTerm(year, month, day) % 90 == 45;
                ASSERT_EQ(isDoyo && !days.Has(SeasonalDay::Doyo), isSeason) << month << '/' << day;
                isDoyo = days.Has(SeasonalDay::Doyo);
            }
        }
        const int expected[] = {1, 2, 14, 2, 2, 2, 1, 1, 1, 4, counts[10], counts[11], 1, 1};
        for (int i = 0; i < static_cast<int>(SeasonalDay::Count); ++i) {
            ASSERT_EQ(counts[i], expected[i]) << dayvane::SeasonalDayName(static_cast<SeasonalDay>(i)).english;
        }
        ASSERT_TRUE(counts[10] >= 4 * 17 && counts[10] <= 4 * 19) << counts[10];
        ASSERT_TRUE(counts[11] >= 4 && counts[11] <= 8) << counts[11];
    }
}

TEST(SkyDay, SexagenaryDates)
{
    static const struct
    {
        const char* name;
        int year, month, day;
        const char* places; // year from spring, month, day; lunar year
    } cases[] = {
        {"first of the cycle in month and day", 2024, 1, 1, u8"癸卯 甲子 甲子 癸卯"},
        {"the day before spring", 2024, 2, 3, u8"癸卯 乙丑 丁酉 癸卯"},
        {"spring", 2024, 2, 4, u8"甲辰 丙寅 戊戌 癸卯"},
        {"lunar new year", 2024, 2, 10, u8"甲辰 丙寅 甲辰 甲辰"},
        {"the day before the term of April", 2024, 4, 3, u8"甲辰 丁卯 丁酉 甲辰"},
        {"of December", 2024, 12, 6, u8"甲辰 乙亥 甲辰 甲辰"},
        {"before the first term of January", 2000, 1, 1, u8"己卯 丙子 戊午 己卯"},
    };
    for (const auto& c : cases) {
        const dayvane::SexagenaryDate date = dayvane::SkyDayOf(c.year, c.month, c.day).sexagenary;
        std::string places;
        for (int place : {date.year, date.month, date.day, date.lunarYear}) {
            places += std::string(places.empty() ? "" : " ") + dayvane::SexagenaryName(place).japanese;
        }
        EXPECT_EQ(places, c.places) << c.name;
    }
    EXPECT_STREQ(dayvane::SexagenaryName(dayvane::SexagenaryYear(2026)).english, "Fire Horse");
    EXPECT_STREQ(dayvane::SexagenaryName(59).japanese, u8"癸亥");
}

// Ages at noon and moments as published by the National Astronomical Observatory of Japan.
TEST(SkyDay, Moon)
{
    const dayvane::MoonOfDay newYear = dayvane::MoonOn(2024, 1, 1);
    EXPECT_NEAR(newYear.age, 19.1, 0.06);
    EXPECT_EQ(newYear.quarter, -1);
    static const struct
    {
        int year, month, day, quarter, hour, minute;
    } cases[] = {{2024, 9, 18, 2, 11, 34}, {2024, 9, 3, 0, 10, 56}, {2025, 10, 7, 2, 12, 48}, {2023, 8, 31, 2, 10, 36}};
    for (const auto& c : cases) {
        const dayvane::MoonOfDay moon = dayvane::MoonOn(c.year, c.month, c.day);
        EXPECT_EQ(moon.quarter, c.quarter) << c.year;
        EXPECT_NEAR(moon.moment.hour * 60 + moon.moment.minute, c.hour * 60 + c.minute, 1) << c.year;
    }
    // A day after another, age and angle go on, and each quarter comes once, in order.
    int quarters = 0;
    dayvane::MoonOfDay before = newYear;
    for (int day = civil::DayNumber(2024, 1, 2); day <= civil::DayNumber(2034, 1, 1); ++day) {
        int year = 0, month = 0, dayOfMonth = 0;
        civil::FromDayNumber(day, year, month, dayOfMonth);
        const dayvane::MoonOfDay moon = dayvane::MoonOn(year, month, dayOfMonth);
        const double gain = std::remainder(moon.elongation - before.elongation, 360.0);
        ASSERT_TRUE(gain > 10 && gain < 15.5) << day;
        ASSERT_GE(moon.age, 0) << day;
        ASSERT_TRUE(moon.age < before.age ? moon.age < 1 : std::abs(moon.age - before.age - 1) < 1e-6) << day;
        if (moon.quarter >= 0) {
            ASSERT_EQ(moon.quarter, (3 + quarters) % 4) << day;
            ASSERT_LT(std::abs(std::remainder(moon.elongation - moon.quarter * 90, 360.0)), 8) << day;
            ++quarters;
        }
        before = moon;
    }
    EXPECT_EQ(quarters, 495);
}

TEST(SkyDay, OneRecord)
{
    const SkyDay day = dayvane::SkyDayOf(2025, 8, 7);
    EXPECT_EQ(day.solarTerm, 135);
    EXPECT_STREQ(dayvane::SolarTermName(day.solarTerm).japanese, u8"立秋");
    EXPECT_STREQ(dayvane::SolarTermName(day.solarTerm).english, "Beginning of Autumn");
    EXPECT_EQ(day.solarTermMoment.hour, 14);
    EXPECT_TRUE(day.lunar.isLeapMonth && day.lunar.month == 6 && day.lunar.day == 14);
    EXPECT_STREQ(dayvane::RokuyoName(day.rokuyo).japanese, u8"先勝");
    EXPECT_STREQ(dayvane::MoonQuarterName(2).japanese, u8"満月");
    EXPECT_FALSE(day.IsUncertain());

    const SkyDay none = dayvane::SkyDayOf(2025, 2, 29);
    EXPECT_FALSE(none.lunar.IsValid());
    EXPECT_LT(none.moon.age, 0);
    EXPECT_EQ(none.seasonal.bits, 0U);
    for (int wrong : {-1, 7, 360, INT_MIN, INT_MAX}) {
        EXPECT_EQ(dayvane::SolarTermName(wrong).english, nullptr) << wrong;
        EXPECT_EQ(dayvane::RokuyoName(wrong).english, nullptr) << wrong;
        EXPECT_EQ(dayvane::SexagenaryName(wrong == 7 ? 60 : wrong).english, nullptr) << wrong;
    }
}
} // namespace
