#include "core/DateMath.h"

#include <gtest/gtest.h>

#include <random>

using namespace dayvane;

namespace {

const COleDateTime kNoDate(2010, 2, 30, 0, 0, 0);

// The date and time so many minutes after 30 December 1899, 00:00, counted in whole numbers.
SYSTEMTIME FieldsOfMinute(int minute)
{
    const int ofDay = (minute % kMinutesPerDay + kMinutesPerDay) % kMinutesPerDay;
    const CivilDate date = AddDays({1899, 12, 30}, (minute - ofDay) / kMinutesPerDay);
    SYSTEMTIME time = {};
    time.wYear = static_cast<WORD>(date.year);
    time.wMonth = static_cast<WORD>(date.month);
    time.wDay = static_cast<WORD>(date.day);
    time.wHour = static_cast<WORD>(ofDay / kMinutesPerHour);
    time.wMinute = static_cast<WORD>(ofDay % kMinutesPerHour);
    return time;
}

CString TextOf(const SYSTEMTIME& time)
{
    CString text;
    text.Format("%d-%d-%d %d:%02d:%02d", time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
    return text;
}

CString TextOf(const COleDateTime& date)
{
    SYSTEMTIME time = {};
    return ToSystemTime(date, time) ? TextOf(time) : CString("none");
}

TEST(DateMath, ChainedMinutesDoNotDrift)
{
    std::mt19937 random(20101);
    std::uniform_int_distribution<int> minutes(-100 * 365 * kMinutesPerDay, 400 * 365 * kMinutesPerDay);
    for (int step : {1, 5, 7, -1, -5, -7}) {
        for (int chain = 0; chain < 10; ++chain) {
            int minute = minutes(random);
            COleDateTime date = FromSystemTime(FieldsOfMinute(minute));
            for (int i = 0; i < 200; ++i) {
                minute += step;
                date = AddMinutes(date, step);
                ASSERT_STREQ(TextOf(date), TextOf(FieldsOfMinute(minute))) << "step " << step << ", link " << i;
            }
        }
    }
}

TEST(DateMath, RandomMinutes)
{
    std::mt19937 random(20102);
    std::uniform_int_distribution<int> minutes(-100 * 365 * kMinutesPerDay, 400 * 365 * kMinutesPerDay);
    for (int i = 0; i < 5000; ++i) {
        const int from = minutes(random);
        const int to = minutes(random);
        const COleDateTime begin = FromSystemTime(FieldsOfMinute(from));
        const COleDateTime end = FromSystemTime(FieldsOfMinute(to));
        const long long seconds = (static_cast<long long>(to) - from) * kSecondsPerMinute;
        ASSERT_EQ(SecondsBetween(begin, end), seconds) << TextOf(begin) << " to " << TextOf(end);
        ASSERT_STREQ(TextOf(AddSeconds(begin, seconds)), TextOf(end)) << "from " << TextOf(begin);
        const int day = DayNumberOf(begin);
        ASSERT_STREQ(TextOf(StartOfDay(begin)), TextOf(FieldsOfMinute(day * kMinutesPerDay)));
        ASSERT_STREQ(TextOf(AddDays(begin, 30)), TextOf(FieldsOfMinute(from + 30 * kMinutesPerDay)));
        ASSERT_EQ(IsSameDay(begin, end), day == DayNumberOf(end));
    }
}

TEST(DateMath, DaysAcrossTheEpochAndAtTheEnds)
{
    for (int day : {-657434, -36522, -1, 0, 1, 39933, 2958465}) {
        const COleDateTime morning = DateOfDayNumber(day);
        EXPECT_EQ(DayNumberOf(morning), day);
        EXPECT_EQ(DayNumberOf(EndOfDay(morning)), day);
        EXPECT_EQ(WeekdayOf(day), morning.GetDayOfWeek());
        EXPECT_TRUE(StartOfDay(EndOfDay(morning)) == morning);
    }
    EXPECT_FALSE(IsValid(DateOfDayNumber(2958466)));
    EXPECT_FALSE(IsValid(AddDays(DateOfDayNumber(2958465), 1)));
    EXPECT_EQ(DayNumberOf(COleDateTime(1e12)), 2958466) << "a date far outside is the day after the calendar's end";
}

TEST(DateMath, TheDayIsThatOfTheNearestSecond)
{
    for (const int day : {-657433, -36522, -2, 0, 1, 39933, 2958464}) {
        const COleDateTime midnight = DateOfDayNumber(day + 1);
        for (int tenths = -15; tenths <= 15; ++tenths) {
            COleDateTime moment = AddSeconds(midnight, tenths < 0 ? -2 : 0);
            moment.m_dt += (moment.m_dt < 0 ? -0.1 : 0.1) * (tenths < 0 ? tenths + 20 : tenths) / kSecondsPerDay;
            if (tenths != -5) { // half a second is no nearer to one of them
                EXPECT_EQ(DayNumberOf(moment), tenths < -5 ? day : day + 1) << day << ", " << tenths;
            }
        }
    }
}

TEST(DateMath, WeeksBeginOnTheirFirstDay)
{
    for (int first = kSunday; first <= kSaturday; ++first) {
        for (int day = -10; day <= 10; ++day) {
            const int start = WeekStartOf(day, first);
            EXPECT_EQ(WeekdayOf(start), first);
            EXPECT_TRUE(start <= day && day < start + kDaysPerWeek) << day;
        }
    }
}

TEST(DateMath, NoDateStaysNone)
{
    const COleDateTime day(1899, 12, 29, 18, 0, 0);
    for (const COleDateTime& date : {StartOfDay(kNoDate), EndOfDay(kNoDate), AddDays(kNoDate, 1),
                                     AddMinutes(kNoDate, 1), AddSeconds(kNoDate, 1)}) {
        EXPECT_FALSE(IsValid(date));
    }
    EXPECT_FALSE(IsSameDay(kNoDate, day));
    EXPECT_TRUE(IsSameDay(kNoDate, kNoDate));
}

} // namespace
