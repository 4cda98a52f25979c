// The lunisolar calendar: published days, the literal rule, day numbers, and properties of every day.
#include "calc/LunarDate.h"
#include "mfc/base/civil.h"
#include "tests/calc/LiteralLunar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <thread>
#include <vector>

namespace {
COleDateTime Date(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

COleDateTime DateOf(int serialDay)
{
    int year = 0, month = 0, day = 0;
    civil::FromDayNumber(serialDay, year, month, day);
    return Date(year, month, day);
}

std::string LunarText(const COleDateTime& date)
{
    int year = 0, month = 0, day = 0;
    CLunarDate().CalcLunarCalendar(date, year, month, day);
    return std::to_string(year) + "-" + std::to_string(month) + "-" + std::to_string(day);
}

std::string LiteralText(const COleDateTime& date)
{
    const LiteralLunar::Answer answer = LiteralLunar().Calendar(date);
    return std::to_string(answer.year) + "-" + std::to_string(answer.month) + "-" + std::to_string(answer.day);
}

TEST(LunarDate, PublishedDays)
{
    struct
    {
        int year, month, day;
        const char* lunar;
    } const cases[] = {
        // new year
        {2000, 2, 5, "2000-1-1"},
        {2001, 1, 24, "2001-1-1"},
        {2006, 1, 29, "2006-1-1"},
        {2007, 2, 18, "2007-1-1"},
        {2010, 2, 14, "2010-1-1"},
        {2015, 2, 19, "2015-1-1"},
        {2020, 1, 25, "2020-1-1"},
        {2023, 1, 22, "2023-1-1"},
        {2024, 2, 10, "2024-1-1"},
        // the night of the mid-autumn moon
        {2010, 9, 22, "2010-8-15"},
        {2013, 9, 19, "2013-8-15"},
        {2017, 10, 4, "2017-8-15"},
        {2020, 10, 1, "2020-8-15"},
        {2024, 9, 17, "2024-8-15"},
        {2025, 10, 6, "2025-8-15"},
        // first days of leap months, and of the months after them
        {2001, 5, 23, "2001-4-1"},
        {2004, 3, 21, "2004-2-1"},
        {2006, 8, 24, "2006-7-1"},
        {2009, 6, 23, "2009-5-1"},
        {2009, 7, 22, "2009-6-1"},
        {2012, 4, 21, "2012-3-1"},
        {2012, 5, 21, "2012-4-1"},
        {2014, 10, 24, "2014-9-1"},
        {2017, 6, 24, "2017-5-1"},
        {2020, 5, 23, "2020-4-1"},
        {2023, 3, 22, "2023-2-1"},
        {2025, 7, 25, "2025-6-1"},
        // around the turn of the civil year
        {2000, 1, 1, "1999-11-25"},
        {2010, 2, 4, "2009-12-21"},
        {2010, 12, 22, "2010-11-17"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(LunarText(Date(c.year, c.month, c.day)), c.lunar) << c.year << "-" << c.month << "-" << c.day;
    }
    EXPECT_EQ(LunarText(COleDateTime(2010, 2, 14, 23, 59, 59)), "2010-1-1") << "time of day";
}

// Days in sequence, backwards and far apart: what is remembered must never change an answer. The ranges hold leap
// months, and springs in which a new moon falls close to the equinox, where days of one quarter search differently.
TEST(LunarDate, EveryAnswerIsTheLiteralOne)
{
    struct
    {
        int first, last, step;
    } const walks[] = {
        {civil::DayNumber(2000, 12, 1), civil::DayNumber(2001, 7, 10), 1},
        {civil::DayNumber(2012, 7, 1), civil::DayNumber(2012, 2, 1), -1},
        {civil::DayNumber(2023, 1, 1), civil::DayNumber(2023, 7, 1), 1},
        {civil::DayNumber(1582, 9, 1), civil::DayNumber(1582, 12, 1), 1},
        {civil::DayNumber(1600, 1, 1), civil::DayNumber(2400, 12, 31), 211},
        {civil::DayNumber(2399, 3, 1), civil::DayNumber(1600, 1, 1), -467},
        {civil::DayNumber(100, 1, 1), civil::DayNumber(9999, 12, 31), 4999},
    };
    for (const auto& walk : walks) {
        for (int day = walk.first; walk.step > 0 ? day <= walk.last : day >= walk.last; day += walk.step) {
            ASSERT_EQ(LunarText(DateOf(day)), LiteralText(DateOf(day))) << "serial day " << day;
        }
    }
    CLunarDate lunar;
    LiteralLunar literal;
    for (double moment = 2305447.25; moment < 2597640; moment += 71.3) {
        ASSERT_EQ(lunar.CalcSaku(moment), literal.Saku(moment)) << moment;
        double longitude = 0, literalLongitude = 0;
        ASSERT_EQ(lunar.CalcChuuki(moment, 15, longitude), literal.Chuuki(moment, 15, literalLongitude)) << moment;
        ASSERT_EQ(longitude, literalLongitude) << moment;
    }
}

// Every month has 29 or 30 days, every year twelve months and, of 19 years, seven a thirteenth.
TEST(LunarDate, MonthsFollowEachOther)
{
    CLunarDate lunar;
    int month = 0, day = 0, year = 0;
    int months = 0;
    const int first = civil::DayNumber(1900, 1, 31); // a lunar new year
    const int last = civil::DayNumber(2090, 1, 29);
    for (int serialDay = first; serialDay <= last; ++serialDay) {
        const int monthBefore = month, dayBefore = day;
        lunar.CalcLunarCalendar(DateOf(serialDay), year, month, day);
        if (serialDay == first) {
            ASSERT_EQ(month * 100 + day, 101);
            months = 1;
        } else if (day == 1) {
            ASSERT_TRUE(dayBefore == 29 || dayBefore == 30) << serialDay;
            ASSERT_TRUE(month == monthBefore || month == monthBefore % 12 + 1) << serialDay;
            ++months;
        } else {
            ASSERT_EQ(day, dayBefore + 1) << serialDay;
            ASSERT_EQ(month, monthBefore) << serialDay;
        }
    }
    EXPECT_EQ(months, 10 * (19 * 12 + 7));
}

TEST(LunarDate, ThreadsGetTheSameAnswers)
{
    const int first = civil::DayNumber(2001, 1, 1);
    const auto collect = [&](std::vector<std::string>& answers) {
        for (int day = 0; day < 400; day += 3) {
            answers.push_back(LunarText(DateOf(first + day)));
        }
    };
    std::vector<std::string> answers[3];
    std::thread one([&] { collect(answers[0]); });
    std::thread two([&] { collect(answers[1]); });
    collect(answers[2]);
    one.join();
    two.join();
    EXPECT_EQ(answers[0], answers[2]);
    EXPECT_EQ(answers[1], answers[2]);
}

TEST(LunarDate, DayNumbers)
{
    CLunarDate lunar;
    EXPECT_EQ(lunar.GCtoJC(Date(2000, 1, 1)), 2451544);
    EXPECT_EQ(lunar.GCtoJC(Date(1582, 10, 15)), 2299160);
    EXPECT_EQ(lunar.GCtoJC(Date(1582, 10, 4)), 2299159);
    EXPECT_EQ(lunar.GCtoJC(COleDateTime(1858, 11, 17, 18, 0, 0)), 2400000); // noon is JD 2400001
    for (int day = civil::DayNumber(1582, 10, 15); day < civil::DayNumber(2400, 1, 1); ++day) {
        ASSERT_EQ(lunar.GCtoJC(DateOf(day)), day + 2415018.0); // the numbers of both counts of days go in step
    }
    struct
    {
        double dayNumber;
        int year, month, day;
    } const cases[] = {
        {2451544, 1999, 12, 31}, {2299160, 1582, 10, 14}, {2299159, 1582, 10, 4}, {2451574, 2000, 1, 30},
        {5373483, 9999, 12, 30}, {2455241, 2010, 2, 14},  {2342031, 1700, 2, 31}, {0, -4712, 1, 2},
        {1e9, -1, -1, -1},       {-1e300, -1, -1, -1},
    };
    for (const auto& c : cases) {
        int year = 0, month = 0, day = 0;
        lunar.JCtoGC(c.dayNumber, year, month, day);
        EXPECT_EQ(std::vector<int>({year, month, day}), std::vector<int>({c.year, c.month, c.day})) << c.dayNumber;
    }
}

TEST(LunarDate, SenselessArgumentsEnd)
{
    CLunarDate lunar;
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    int year = 0, month = 0, day = 0;
    for (double moment : {notANumber, infinite, -infinite, 1e300, -1e17, 1e12}) {
        double longitude = 0;
        lunar.CalcChuuki(moment, 90, longitude);
        lunar.CalcChuuki(2451545, moment, longitude);
        lunar.CalcSaku(moment);
        lunar.JCtoGC(moment, year, month, day);
        lunar.LONGITUDE_SUN(moment);
        lunar.LONGITUDE_MOON(moment);
        double latitude = 0;
        lunar.GetSolarPos(&longitude, std::numeric_limits<int>::max(), moment);
        lunar.GetLunarPos(&longitude, &latitude, std::numeric_limits<int>::min(), moment);
    }
    CString name = "kept";
    int index = 7;
    COleDateTime nullDate = Date(2010, 2, 4);
    nullDate.SetStatus(COleDateTime::null);
    for (const COleDateTime& date : {nullDate, Date(2010, 13, 1), COleDateTime(notANumber)}) {
        lunar.CalcLunarCalendar(date, year, month, day);
        EXPECT_EQ(lunar.Get24Setuki(date, name), 0);
        EXPECT_EQ(lunar.Get24Setuki2(index, date, name), 0);
    }
    EXPECT_STREQ(name, "kept");
    EXPECT_EQ(index, 7);
}
} // namespace
