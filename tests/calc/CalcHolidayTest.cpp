// Named days: rule-change years, neighbours, ties, the days off of whole years, and the weekday rules against walks.
#include "calc/CalcHoliday.h"
#include "calc/CivilDate.h"
#include "calc/DayAnnotation.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace {
COleDateTime Date(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

std::string Text(const COleDateTime& date)
{
    return std::to_string(date.GetYear()) + "-" + std::to_string(date.GetMonth()) + "-" + std::to_string(date.GetDay());
}

struct NamedDayCase
{
    int year, month, day;
    const char* name; // nullptr: not a named day
    int namedMonth, namedDay, observance, rule;
};

TEST(Holiday, KnownDays)
{
    static const NamedDayCase cases[] = {
        // renamed in 2007
        {2006, 4, 29, "みどりの日", 4, 29, 0, 0},
        {2007, 4, 29, "昭和の日", 4, 29, 0, 0},
        {2006, 5, 4, "国民の休日", 5, 4, 0, 0},
        {2007, 5, 4, "みどりの日", 5, 4, 0, 0},
        // moved to Mondays in 2003 and 2000
        {2002, 7, 20, "海の日", 7, 20, 0, 0},
        {2003, 7, 20, nullptr, 0, 0, 0, 0},
        {2003, 7, 21, "海の日", 7, 0, 0, 2},
        {2003, 9, 15, "敬老の日", 9, 0, 0, 2},
        {2004, 9, 15, nullptr, 0, 0, 0, 0},
        {1999, 1, 15, "成人の日", 1, 15, 0, 0},
        {2000, 1, 15, nullptr, 0, 0, 0, 0},
        {2000, 1, 10, "成人の日", 1, 0, 0, 1},
        {2000, 10, 9, "体育の日", 10, 0, 0, 1},
        // movable days hide fixed ones
        {2006, 11, 23, "感謝祭", 11, 23, 1, 0},
        {2007, 11, 23, "勤労感謝の日", 11, 23, 0, 0},
        {2007, 4, 8, "イースター", 4, 8, 1, 0},
        {2008, 4, 8, "花祭り", 4, 8, 1, 0},
        {2010, 5, 9, "母の日", 5, 9, 1, 0},
        {2010, 6, 20, "父の日", 6, 20, 1, 0},
        {2010, 3, 21, "春分の日", 3, 21, 0, 0},
        {2010, 9, 23, "秋分の日", 9, 23, 0, 0},
        // the day after a holiday on a Sunday
        {2007, 2, 12, "振替休日", 2, 12, 0, 0},
        {2006, 1, 2, "振替休日", 1, 2, 0, 0},
        {2007, 4, 30, "ワルプルギスの夜", 4, 30, 0, 0},
        {2016, 2, 15, "涅槃会", 2, 15, 1, 0}, // after an observance on a Sunday
        {2009, 5, 6, nullptr, 0, 0, 0, 0},    // not carried over further holidays
        // between two named days
        {2009, 9, 22, "国民の祝日", 9, 0, 0, 0},
        {2010, 3, 13, nullptr, 0, 0, 0, 0},       // two observances
        {2009, 12, 24, nullptr, 0, 0, 0, 0},      // a holiday and an observance
        {2012, 12, 24, "振替休日", 12, 24, 0, 0}, // the same after a Sunday
        // before any law, and the ends of time
        {1600, 12, 23, "天皇誕生日", 12, 23, 0, 0},
        {100, 1, 1, "元旦", 1, 1, 0, 0},
        {100, 1, 2, nullptr, 0, 0, 0, 0},
        {9999, 12, 31, "大晦日", 12, 31, 1, 0},
    };
    for (const NamedDayCase& c : cases) {
        const COleDateTime date = Date(c.year, c.month, c.day);
        SCOPED_TRACE(Text(date));
        tagHOLIDAY holiday;
        ASSERT_EQ(CCalcHoliday::IsHoliday(date, holiday), c.name != nullptr ? 1 : 0);
        if (c.name) {
            EXPECT_STREQ(holiday.lpszName, c.name);
            EXPECT_EQ(holiday.nMonth, c.namedMonth);
            EXPECT_EQ(holiday.nDay, c.namedDay);
            EXPECT_EQ(holiday.bObservance, c.observance);
            EXPECT_EQ(holiday.nRule, c.rule);
        }
        tagHOLIDAY atNoon;
        const COleDateTime noon(c.year, c.month, c.day, 12, 0, 0);
        EXPECT_EQ(CCalcHoliday::IsHoliday(noon, atNoon), c.name != nullptr ? 1 : 0) << "time of day";
    }
}

// A year in which no day off falls on any of them.
TEST(Holiday, ObservancesOfAYear)
{
    static const char* const observances[] = {"1/7 七草",
                                              "1/11 鏡開き",
                                              "2/1 インボルク",
                                              "2/2 キャンドルマス",
                                              "2/3 節分",
                                              "2/8 針供養",
                                              "2/14 バレンタインデー",
                                              "2/15 涅槃会",
                                              "2/22 太子会",
                                              "3/3 雛祭り",
                                              "3/12 二月堂お水取り",
                                              "3/14 ホワイトデー",
                                              "3/15 涅槃会",
                                              "3/17 聖パトリック・デー",
                                              "4/1 エイプリルフール",
                                              "4/7 鉄腕アトムの誕生日",
                                              "4/8 花祭り",
                                              "4/14 オレンジデー",
                                              "4/23 サン・ジョルディの日",
                                              "4/30 ワルプルギスの夜",
                                              "5/1 ベルテン",
                                              "5/15 葵祭",
                                              "6/1 更衣",
                                              "6/10 時の記念日",
                                              "6/24 聖ヨハネ祭",
                                              "7/1 祇園祭",
                                              "7/4 米独立記念日",
                                              "7/6 入谷朝顔市",
                                              "7/7 七夕",
                                              "7/9 ほおずき市",
                                              "7/14 仏革命記念日",
                                              "8/1 ルナーサド",
                                              "8/6 広島平和記念日",
                                              "8/9 長崎原爆の日",
                                              "8/15 終戦記念日",
                                              "8/16 大文字五山送り火",
                                              "10/1 独統一記念日",
                                              "10/15 神嘗祭",
                                              "10/22 時代祭",
                                              "10/31 ハロウィン",
                                              "11/1 万聖節",
                                              "11/15 七五三",
                                              "12/6 聖ニコラス祭",
                                              "12/8 針供養(関西)",
                                              "12/25 クリスマス",
                                              "12/31 大晦日"};
    for (const char* expected : observances) {
        const int month = std::atoi(expected);
        const int day = std::atoi(std::strchr(expected, '/') + 1);
        tagHOLIDAY holiday;
        ASSERT_EQ(CCalcHoliday::_IsHoliday(Date(2003, month, day), holiday), 1) << expected;
        EXPECT_STREQ(holiday.lpszName, std::strchr(expected, ' ') + 1);
        EXPECT_EQ(holiday.bObservance, 1) << expected;
    }
}

TEST(Holiday, NeighbourRulesAreOnlyOfIsHoliday)
{
    tagHOLIDAY holiday;
    ASSERT_EQ(CCalcHoliday::_IsHoliday(Date(2007, 4, 30), holiday), 1);
    EXPECT_EQ(holiday.bObservance, 1);
    EXPECT_EQ(CCalcHoliday::_IsHoliday(Date(2007, 2, 12), holiday), 0);
    EXPECT_EQ(CCalcHoliday::_IsHoliday(Date(2009, 9, 22), holiday), 0);
    EXPECT_EQ(holiday.bObservance, 1) << "a 0 leaves the record alone";
}

// The published days off, but for what the rules leave out on purpose: no holiday is carried further than one day, and
// Thanksgiving hides 23 November.
TEST(Holiday, DaysOffOfWholeYears)
{
    static const char* const daysOffOfYears[] = {
        "1999 1/1 1/15 2/11 3/21 3/22 4/29 5/3 5/4 5/5 7/20 9/15 9/23 10/10 10/11 11/3 11/23 12/23",
        "2006 1/1 1/2 1/9 2/11 3/21 4/29 5/3 5/4 5/5 7/17 9/18 9/23 10/9 11/3 12/23",
        "2009 1/1 1/12 2/11 3/20 4/29 5/3 5/4 5/5 7/20 9/21 9/22 9/23 10/12 11/3 11/23 12/23",
        "2013 1/1 1/14 2/11 3/20 4/29 5/3 5/4 5/5 5/6 7/15 9/16 9/23 10/14 11/3 11/4 11/23 12/23",
    };
    for (const char* expected : daysOffOfYears) {
        const int year = std::atoi(expected);
        std::string daysOff = std::to_string(year);
        for (COleDateTime date = Date(year, 1, 1); date.GetYear() == year; date += COleDateTimeSpan(1.0)) {
            tagHOLIDAY holiday;
            if (CCalcHoliday::IsHoliday(date, holiday) && holiday.bObservance == 0) {
                daysOff += " " + std::to_string(date.GetMonth()) + "/" + std::to_string(date.GetDay());
            }
        }
        EXPECT_EQ(daysOff, expected);
    }
}

TEST(Holiday, EasterAndEquinoxes)
{
    // The church's Easters, on either side of each change of N too, but for 26 April 1981 (it has the 19th: the rule's
    // exceptions are not made), 29 March 1818 (it has the 22nd: M is that of 1900 to 2199) and 14 April 2500 (the
    // 18th).
    for (int easter : {20000423, 20080323, 20100404, 20110424, 20190421, 20240331, 20380425, 16990419, 17000411,
                       18000413, 19000415, 21000328, 22000406, 23000408, 24990329, 19810426, 18180329, 25000414}) {
        const int year = easter / 10000;
        int month = 0, day = 0;
        CCalcHoliday::GetEasterSunday(year, month, day);
        EXPECT_EQ(year * 10000 + month * 100 + day, easter);
        EXPECT_EQ(CCalcHoliday::IsEasterSunday(Date(year, easter / 100 % 100, easter % 100)), 1) << year;
        EXPECT_EQ(CCalcHoliday::IsEasterSunday(Date(year, easter / 100 % 100, easter % 100 - 7)), 0) << year;
    }
    // Published equinox days (National Astronomical Observatory of Japan).
    static const char vernalDays[] = "00110011001100110011001100010001"; // of 2000 to 2031, from 20 March
    static const char autumnDays[] = "11111111111101110111011101110111"; // from 22 September
    for (int year = 2000; year <= 2031; ++year) {
        int month = 0, day = 0;
        const int vernalDay = 20 + vernalDays[year - 2000] - '0', autumnDay = 22 + autumnDays[year - 2000] - '0';
        CCalcHoliday::GetVernalEquinox(year, month, day);
        EXPECT_EQ(month * 100 + day, 300 + vernalDay) << year;
        CCalcHoliday::GetAutumnalEquinox(year, month, day);
        EXPECT_EQ(month * 100 + day, 900 + autumnDay) << year;
        for (int each = 19; each <= 24; ++each) {
            EXPECT_EQ(CCalcHoliday::IsVernalEquinox(Date(year, 3, each)), each == vernalDay) << year << " " << each;
            EXPECT_EQ(CCalcHoliday::IsAutumnalEquinox(Date(year, 9, each)), each == autumnDay) << year << " " << each;
        }
    }
}

// Day of the month on which a walk from the 1st meets the wanted weekday for the nth time; -1 when it leaves the month.
int WalkToWeekday(int year, int month, int weekday, int nth)
{
    int met = 0;
    for (COleDateTime day = Date(year, month, 1); day.GetMonth() == month; day += COleDateTimeSpan(1.0)) {
        met += day.GetDayOfWeek() == weekday ? 1 : 0;
        if (met == nth) {
            return day.GetDay();
        }
    }
    return -1;
}

TEST(Holiday, WeekdayRulesEqualWalks)
{
    struct
    {
        void (*compute)(int year, int& month, int& day);
        int (*is)(const COleDateTime& date);
        int month, weekday, nth;
    } const rules[] = {
        {CCalcHoliday::GetMothersDay, CCalcHoliday::IsMothersDay, 5, 1, 2},
        {CCalcHoliday::GetFathersDay, CCalcHoliday::IsFathersDay, 6, 1, 3},
        {CCalcHoliday::GetThanksgivingDay, CCalcHoliday::IsThanksgivingDay, 11, 5, 4},
    };
    std::vector<int> years = {-5, 0, 99, 100, 9999, 10000, std::numeric_limits<int>::max()};
    for (int year = 1600; year <= 2400; year += 3) {
        years.push_back(year);
    }
    for (int year : years) {
        for (const auto& rule : rules) {
            int month = 0, day = 0;
            rule.compute(year, month, day);
            EXPECT_EQ(month, rule.month);
            EXPECT_EQ(day, WalkToWeekday(year, rule.month, rule.weekday, rule.nth)) << year;
            EXPECT_EQ(rule.is(Date(year, month, day)), day > 0) << year;
        }
    }
    for (int year : {100, 1999, 2004, 9999}) {
        for (int month = 1; month <= 12; ++month) {
            const int second = WalkToWeekday(year, month, 2, 2);
            const int third = WalkToWeekday(year, month, 2, 3);
            for (int day = 1; day <= civil::DaysInMonth(year, month); ++day) {
                ASSERT_EQ(CCalcHoliday::IsHappyMonday(Date(year, month, day)), day == second) << year << month << day;
                ASSERT_EQ(CCalcHoliday::IsHappyMonday2(Date(year, month, day)), day == third) << year << month << day;
            }
        }
    }
}

TEST(Holiday, InvalidDatesAreNoNamedDays)
{
    COleDateTime nullDate = Date(2010, 1, 1);
    nullDate.SetStatus(COleDateTime::null);
    COleDateTime notANumber = Date(2010, 1, 1);
    notANumber.m_dt = std::numeric_limits<double>::quiet_NaN();
    for (const COleDateTime& date : {Date(2010, 2, 30), Date(99, 1, 1), nullDate, notANumber, COleDateTime(1e300)}) {
        tagHOLIDAY holiday;
        EXPECT_EQ(CCalcHoliday::IsHoliday(date, holiday), 0);
        EXPECT_EQ(CCalcHoliday::_IsHoliday(date, holiday), 0);
        for (const auto is :
             {CCalcHoliday::IsHappyMonday, CCalcHoliday::IsHappyMonday2, CCalcHoliday::IsEasterSunday,
              CCalcHoliday::IsVernalEquinox, CCalcHoliday::IsAutumnalEquinox, CCalcHoliday::IsMothersDay,
              CCalcHoliday::IsFathersDay, CCalcHoliday::IsThanksgivingDay}) {
            EXPECT_EQ(is(date), 0);
        }
        EXPECT_TRUE(dayvane::WhatsToday(date).IsEmpty());
    }
}

TEST(WhatsToday, JoinsHolidayAndTerm)
{
    struct
    {
        int year, month, day;
        const char* text;
    } const cases[] = {
        {2010, 2, 4, " 立春"}, {2010, 7, 7, "七夕 小暑"}, {2010, 3, 21, "春分の日"},
        {2010, 1, 1, "元旦"},  {2010, 1, 2, ""},          {2009, 9, 22, "国民の祝日"},
    };
    for (const auto& c : cases) {
        EXPECT_STREQ(dayvane::WhatsToday(Date(c.year, c.month, c.day)), c.text) << c.year << "-" << c.month;
    }
    const dayvane::DayAnnotation day = dayvane::AnnotateDay(Date(2010, 7, 7));
    EXPECT_STREQ(day.holidayName, "七夕");
    EXPECT_FALSE(day.isDayOff);
    EXPECT_TRUE(dayvane::AnnotateDay(Date(2010, 1, 11)).isDayOff);
    EXPECT_STREQ(dayvane::WhatsToday(Date(2010, 1, 1)), "\x8c\xb3\x92\x55") << "texts are code page 932";
}
} // namespace
