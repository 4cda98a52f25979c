// Which days the multi-day view shows, and how moves turn it: every date of some years against a walk by single days.
#include "core/DateMath.h"
#include "timegrid/GridItems.h"
#include "views/timegrid/DayRange.h"

#include <gtest/gtest.h>

using namespace dayvane;
using namespace gridtest;

namespace {
constexpr int kMondayFirst = 2;

DayRange WorkingWeek(const COleDateTime& date)
{
    return DayRange::From(date, 5, kMondayFirst);
}
} // namespace

TEST(DayRange, BeginsWhereTheWeekDoes)
{
    for (int day = 0; day < 800; ++day) {
        const COleDateTime date = AddDays(At(9, 0), day - 400);
        for (int firstDayOfWeek = 1; firstDayOfWeek <= 7; ++firstDayOfWeek) {
            const DayRange range = DayRange::From(date, 7, firstDayOfWeek);
            COleDateTime walked = StartOfDay(date);
            while (walked.GetDayOfWeek() != firstDayOfWeek) {
                walked = AddDays(walked, -1);
            }
            ASSERT_EQ(walked, range.first);
            ASSERT_EQ(day - 400 - (DayNumberOf(walked) - DayNumberOf(kDay)), range.ColumnOf(date));
            ASSERT_EQ(StartOfDay(date), range.DayOf(range.ColumnOf(date)));
        }
        ASSERT_EQ(StartOfDay(date), DayRange::From(date, 7, 0).first);
    }
}

TEST(DayRange, KindsAreSoManyDaysOrWeeks)
{
    for (int kind = 1; kind <= 13; ++kind) {
        EXPECT_EQ(kind + 1, FindDateScale(kind)->days);
        EXPECT_FALSE(FindDateScale(kind)->fromFirstDayOfWeek) << kind;
    }
    EXPECT_EQ(5, FindDateScale(14)->days);
    EXPECT_EQ(7, FindDateScale(15)->days);
    EXPECT_TRUE(FindDateScale(14)->fromFirstDayOfWeek && FindDateScale(15)->fromFirstDayOfWeek);
    EXPECT_TRUE(!FindDateScale(0) && !FindDateScale(16));
}

TEST(DayRange, EndsWithTheCalendar)
{
    const struct
    {
        const char* name;
        COleDateTime date;
        int days, firstDayOfWeek;
        COleDateTime first, last;
    } cases[] = {
        {"five days", At(9, 0), 5, 0, At(0, 0), EndOfDay(At(0, 0, 30))},
        {"first week", COleDateTime(100, 1, 1, 0, 0, 0), 7, kMondayFirst, COleDateTime(100, 1, 1, 0, 0, 0),
         COleDateTime(100, 1, 7, 23, 59, 59)},
        {"last week", COleDateTime(9999, 12, 31, 9, 0, 0), 7, 0, COleDateTime(9999, 12, 31, 0, 0, 0),
         COleDateTime(9999, 12, 31, 23, 59, 59)},
        {"no day", Invalid(), 7, kMondayFirst, Invalid(), Invalid()},
    };
    for (const auto& c : cases) {
        const DayRange range = DayRange::From(c.date, c.days, c.firstDayOfWeek);
        EXPECT_EQ(c.first, range.first) << c.name;
        EXPECT_EQ(c.last, range.LastMoment()) << c.name;
    }
    EXPECT_EQ(-1, DayRange::From(Invalid(), 7, 0).ColumnOf(kDay));
    EXPECT_EQ(-1, DayRange::From(kDay, 7, 0).ColumnOf(Invalid()));
}

// Turned to a day, a range holds it or, between two working weeks, lies after it in the direction of the move.
TEST(DayRange, TurnsByWholeViews)
{
    const struct
    {
        int days;
        bool keepsToWeeks;
        int length;
    } ranges[] = {{1, false, 1}, {5, false, 5}, {5, true, 7}, {7, true, 7}, {12, true, 7}, {14, true, 14}};
    for (const auto& r : ranges) {
        const DayRange range{kDay, r.days, r.keepsToWeeks};
        EXPECT_EQ(r.length, range.LengthOfView());
        for (int offset = -60; offset <= 60; ++offset) {
            int views = 0; // the fewest that reach the day or pass it
            while (offset < 0 ? offset < views * r.length : offset >= views * r.length + r.days) {
                views += offset < 0 ? -1 : 1;
            }
            ASSERT_EQ(views, range.ViewsToShow(range.FirstDay() + offset)) << r.days << " days, day " << offset;
            const int first = views * r.length;
            const bool isShown = offset >= first && offset < first + r.days;
            const DayRange turned = range.Showing(AddDays(At(9, 0), offset));
            ASSERT_EQ(AddDays(kDay, isShown ? first : 0), turned.first) << r.days << " days, day " << offset;
        }
    }
    const DayRange last{COleDateTime(9999, 12, 27, 0, 0, 0), 5, true};
    EXPECT_EQ(last.first, last.Showing(COleDateTime(9999, 12, 20, 0, 0, 0)).Showing(last.DayOf(1)).first);
}

TEST(DayRange, CarriesTheSelection)
{
    const struct
    {
        const char* name;
        COleDateTime begin, end;
        int step;
        bool extend;
        COleDateTime newBegin, newEnd;
    } cases[] = {
        {"next column", At(9, 0), At(9, 0), 1, false, At(9, 0, 27), At(9, 0, 27)},
        {"extended", At(9, 0), At(9, 0), 1, true, At(9, 0), At(9, 0, 27)},
        {"from Friday to Monday", At(9, 0, 21), At(9, 0, 21), 1, false, At(9, 0, 24), At(9, 0, 24)},
        {"from Monday to Friday", At(9, 0, 24), At(9, 0, 24), -1, false, At(9, 0, 21), At(9, 0, 21)},
        {"a sweep gives way", At(9, 0, 25), At(11, 0, 26), -1, false, At(11, 0, 25), At(11, 0, 25)},
    };
    for (const auto& c : cases) {
        const GridSelection moved = MovedByColumn({c.end, c.begin, c.end}, WorkingWeek(c.end), c.step, c.extend);
        EXPECT_EQ(c.newBegin, moved.begin) << c.name;
        EXPECT_EQ(c.newEnd, moved.end) << c.name;
        EXPECT_EQ(c.newEnd, moved.current) << c.name;
    }
}
