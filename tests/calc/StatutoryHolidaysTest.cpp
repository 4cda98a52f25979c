// Days off by the law of the day: whole years on either side of every change, names, and the equinox days.
#include "calc/StatutoryHolidays.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {
using namespace dayvane;

// Days off as published (Cabinet Office, "国民の祝日・休日" list, from 1955 on; before that the act itself): the first
// and last year of every rule, and years in which days off meet.
TEST(StatutoryHolidays, DaysOffOfWholeYears)
{
    static const char* const daysOffOfYears[] = {
        "1947",
        "1948 9/23 11/3 11/23",
        "1949 1/1 1/15 3/21 4/29 5/3 5/5 9/23 11/3 11/23",
        "1955 1/1 1/15 3/21 4/29 5/3 5/5 9/24 11/3 11/23",
        "1959 1/1 1/15 3/21 4/10 4/29 5/3 5/5 9/24 11/3 11/23",
        "1965 1/1 1/15 3/21 4/29 5/3 5/5 9/23 11/3 11/23",
        "1966 1/1 1/15 3/21 4/29 5/3 5/5 9/15 9/23 10/10 11/3 11/23",
        "1967 1/1 1/15 2/11 3/21 4/29 5/3 5/5 9/15 9/24 10/10 11/3 11/23",
        "1972 1/1 1/15 2/11 3/20 4/29 5/3 5/5 9/15 9/23 10/10 11/3 11/23",
        "1973 1/1 1/15 2/11 3/21 4/29 4/30 5/3 5/5 9/15 9/23 9/24 10/10 11/3 11/23",
        "1974 1/1 1/15 2/11 3/21 4/29 5/3 5/5 5/6 9/15 9/16 9/23 10/10 11/3 11/4 11/23",
        "1985 1/1 1/15 2/11 3/21 4/29 5/3 5/5 5/6 9/15 9/16 9/23 10/10 11/3 11/4 11/23",
        "1986 1/1 1/15 2/11 3/21 4/29 5/3 5/5 9/15 9/23 10/10 11/3 11/23 11/24",
        "1987 1/1 1/15 2/11 3/21 4/29 5/3 5/4 5/5 9/15 9/23 10/10 11/3 11/23",
        "1988 1/1 1/15 2/11 3/20 3/21 4/29 5/3 5/4 5/5 9/15 9/23 10/10 11/3 11/23",
        "1989 1/1 1/2 1/15 1/16 2/11 2/24 3/21 4/29 5/3 5/4 5/5 9/15 9/23 10/10 11/3 11/23 12/23",
        "1990 1/1 1/15 2/11 2/12 3/21 4/29 4/30 5/3 5/4 5/5 9/15 9/23 9/24 10/10 11/3 11/12 11/23 12/23 12/24",
        "1993 1/1 1/15 2/11 3/20 4/29 5/3 5/4 5/5 6/9 9/15 9/23 10/10 10/11 11/3 11/23 12/23",
        "1995 1/1 1/2 1/15 1/16 2/11 3/21 4/29 5/3 5/4 5/5 9/15 9/23 10/10 11/3 11/23 12/23",
        "1996 1/1 1/15 2/11 2/12 3/20 4/29 5/3 5/4 5/5 5/6 7/20 9/15 9/16 9/23 10/10 11/3 11/4 11/23 12/23",
        "1999 1/1 1/15 2/11 3/21 3/22 4/29 5/3 5/4 5/5 7/20 9/15 9/23 10/10 10/11 11/3 11/23 12/23",
        "2000 1/1 1/10 2/11 3/20 4/29 5/3 5/4 5/5 7/20 9/15 9/23 10/9 11/3 11/23 12/23",
        "2002 1/1 1/14 2/11 3/21 4/29 5/3 5/4 5/5 5/6 7/20 9/15 9/16 9/23 10/14 11/3 11/4 11/23 12/23",
        "2003 1/1 1/13 2/11 3/21 4/29 5/3 5/5 7/21 9/15 9/23 10/13 11/3 11/23 11/24 12/23",
        "2006 1/1 1/2 1/9 2/11 3/21 4/29 5/3 5/4 5/5 7/17 9/18 9/23 10/9 11/3 11/23 12/23",
        "2007 1/1 1/8 2/11 2/12 3/21 4/29 4/30 5/3 5/4 5/5 7/16 9/17 9/23 9/24 10/8 11/3 11/23 12/23 12/24",
        "2008 1/1 1/14 2/11 3/20 4/29 5/3 5/4 5/5 5/6 7/21 9/15 9/23 10/13 11/3 11/23 11/24 12/23",
        "2009 1/1 1/12 2/11 3/20 4/29 5/3 5/4 5/5 5/6 7/20 9/21 9/22 9/23 10/12 11/3 11/23 12/23",
        "2015 1/1 1/12 2/11 3/21 4/29 5/3 5/4 5/5 5/6 7/20 9/21 9/22 9/23 10/12 11/3 11/23 12/23",
        "2016 1/1 1/11 2/11 3/20 3/21 4/29 5/3 5/4 5/5 7/18 8/11 9/19 9/22 10/10 11/3 11/23 12/23",
        "2018 1/1 1/8 2/11 2/12 3/21 4/29 4/30 5/3 5/4 5/5 7/16 8/11 9/17 9/23 9/24 10/8 11/3 11/23 12/23 12/24",
        "2019 1/1 1/14 2/11 3/21 4/29 4/30 5/1 5/2 5/3 5/4 5/5 5/6 7/15 8/11 8/12 9/16 9/23 10/14 10/22 11/3 11/4 "
        "11/23",
        "2020 1/1 1/13 2/11 2/23 2/24 3/20 4/29 5/3 5/4 5/5 5/6 7/23 7/24 8/10 9/21 9/22 11/3 11/23",
        "2021 1/1 1/11 2/11 2/23 3/20 4/29 5/3 5/4 5/5 7/22 7/23 8/8 8/9 9/20 9/23 11/3 11/23",
        "2022 1/1 1/10 2/11 2/23 3/21 4/29 5/3 5/4 5/5 7/18 8/11 9/19 9/23 10/10 11/3 11/23",
        "2024 1/1 1/8 2/11 2/12 2/23 3/20 4/29 5/3 5/4 5/5 5/6 7/15 8/11 8/12 9/16 9/22 9/23 10/14 11/3 11/4 11/23",
        "2026 1/1 1/12 2/11 2/23 3/20 4/29 5/3 5/4 5/5 5/6 7/20 8/11 9/21 9/22 9/23 10/12 11/3 11/23",
        "2032 1/1 1/12 2/11 2/23 3/20 4/29 5/3 5/4 5/5 7/19 8/11 9/20 9/21 9/22 10/11 11/3 11/23",
    };
    for (const char* expected : daysOffOfYears) {
        const int year = std::atoi(expected);
        std::string daysOff = std::to_string(year);
        for (CivilDate date = {year, 1, 1}; date.year == year; date = AddDays(date, 1)) {
            if (StatutoryHoliday(date.year, date.month, date.day)) {
                daysOff += " " + std::to_string(date.month) + "/" + std::to_string(date.day);
            }
        }
        EXPECT_EQ(daysOff, expected);
    }
}

TEST(StatutoryHolidays, NamesAndKinds)
{
    constexpr DayKind kHoliday = DayKind::StatutoryHoliday;
    constexpr DayKind kSubstitute = DayKind::SubstituteHoliday;
    constexpr DayKind kBetween = DayKind::BetweenHolidays;
    struct
    {
        CivilDate date;
        const char* name;
        DayKind kind;
    } const cases[] = {
        {{1948, 7, 19}, nullptr, kHoliday},
        {{1948, 9, 23}, u8"秋分の日", kHoliday},
        {{1949, 1, 1}, u8"元日", kHoliday},
        {{1988, 4, 29}, u8"天皇誕生日", kHoliday},
        {{1989, 4, 29}, u8"みどりの日", kHoliday},
        {{2006, 4, 29}, u8"みどりの日", kHoliday},
        {{2007, 4, 29}, u8"昭和の日", kHoliday},
        {{2007, 5, 4}, u8"みどりの日", kHoliday},
        {{1989, 12, 23}, u8"天皇誕生日", kHoliday},
        {{2018, 12, 23}, u8"天皇誕生日", kHoliday},
        {{2020, 2, 23}, u8"天皇誕生日", kHoliday},
        {{1966, 10, 10}, u8"体育の日", kHoliday},
        {{2019, 10, 14}, u8"体育の日", kHoliday},
        {{2020, 7, 24}, u8"スポーツの日", kHoliday},
        {{2021, 7, 23}, u8"スポーツの日", kHoliday},
        {{2022, 10, 10}, u8"スポーツの日", kHoliday},
        {{2020, 7, 23}, u8"海の日", kHoliday},
        {{2021, 7, 22}, u8"海の日", kHoliday},
        {{2020, 8, 10}, u8"山の日", kHoliday},
        {{2021, 8, 9}, u8"振替休日", kSubstitute},
        {{1973, 4, 30}, u8"振替休日", kSubstitute},
        {{1987, 5, 4}, u8"振替休日", kSubstitute},
        {{1988, 5, 4}, u8"国民の休日", kBetween},
        {{2006, 5, 4}, u8"国民の休日", kBetween},
        {{2008, 5, 6}, u8"振替休日", kSubstitute},
        {{2026, 5, 6}, u8"振替休日", kSubstitute},
        {{2026, 9, 22}, u8"国民の休日", kBetween},
        {{1959, 4, 10}, u8"結婚の儀", kHoliday},
        {{1989, 2, 24}, u8"大喪の礼", kHoliday},
        {{1990, 11, 12}, u8"即位礼正殿の儀", kHoliday},
        {{1993, 6, 9}, u8"結婚の儀", kHoliday},
        {{2019, 4, 30}, u8"国民の休日", kBetween},
        {{2019, 5, 1}, u8"天皇の即位の日", kHoliday},
        {{2019, 5, 2}, u8"国民の休日", kBetween},
        {{2019, 10, 22}, u8"即位礼正殿の儀の行われる日", kHoliday},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.date.year * 10000 + c.date.month * 100 + c.date.day);
        const StatutoryDay day = StatutoryDayOf(c.date);
        EXPECT_STREQ(day.name, c.name);
        EXPECT_EQ(day.kind, c.kind);
        EXPECT_EQ(day.source != nullptr, c.name != nullptr);
    }
    EXPECT_EQ(StatutoryHoliday(2026, 2, 30), nullptr);
    EXPECT_EQ(StatutoryHoliday(-1, 0, 99), nullptr);
    EXPECT_STREQ(StatutoryHoliday(9999, 11, 23), u8"勤労感謝の日");
    EXPECT_EQ(StatutoryHoliday(9999, 12, 31), nullptr);
}

// The rule by which almanacs give the announced days: 1900 to 1979 and 1980 to 2099 (K. Nagasawa, "新こよみ便利帳").
TEST(StatutoryHolidays, EquinoxDaysFollowTheAlmanac)
{
    for (int year = 1949; year <= 2099; ++year) {
        const bool isEarly = year < 1980;
        const double drift = 0.242194 * (year - 1980) - (isEarly ? (year - 1983) / 4 : (year - 1980) / 4);
        const int vernal = static_cast<int>((isEarly ? 20.8357 : 20.8431) + drift);
        const int autumnal = static_cast<int>((isEarly ? 23.2588 : 23.2488) + drift);
        EXPECT_STREQ(StatutoryHoliday(year, 3, vernal), u8"春分の日") << year;
        EXPECT_STREQ(StatutoryHoliday(year, 9, autumnal), u8"秋分の日") << year;
    }
}
} // namespace
