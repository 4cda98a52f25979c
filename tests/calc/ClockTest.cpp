// Week numbers, work periods, and rulers of two zones.
#include "calc/WeekNumbers.h"
#include "calc/WorkHours.h"
#include "calc/ZoneClock.h"

#include <gtest/gtest.h>

#include <random>

namespace {
using namespace dayvane;

TEST(WeekNumbers, IsoExamples)
{
    // The examples of Wikipedia's article "ISO week date", and years of 53 weeks (2004, 2009, 2015, 2020, 2026).
    struct
    {
        CivilDate date;
        WeekNumber week;
    } const cases[] = {
        {{1977, 1, 1}, {1976, 53}},
        {{1977, 1, 2}, {1976, 53}},
        {{1977, 12, 31}, {1977, 52}},
        {{1978, 1, 1}, {1977, 52}},
        {{1978, 1, 2}, {1978, 1}},
        {{1978, 12, 31}, {1978, 52}},
        {{1979, 1, 1}, {1979, 1}},
        {{1979, 12, 30}, {1979, 52}},
        {{1979, 12, 31}, {1980, 1}},
        {{1980, 1, 1}, {1980, 1}},
        {{1980, 12, 28}, {1980, 52}},
        {{1980, 12, 29}, {1981, 1}},
        {{1981, 12, 31}, {1981, 53}},
        {{1982, 1, 1}, {1981, 53}},
        {{1982, 1, 3}, {1981, 53}},
        {{1982, 1, 4}, {1982, 1}},
        {{2004, 12, 31}, {2004, 53}},
        {{2009, 12, 31}, {2009, 53}},
        {{2016, 1, 3}, {2015, 53}},
        {{2021, 1, 3}, {2020, 53}},
        {{2026, 12, 31}, {2026, 53}},
        {{2008, 9, 26}, {2008, 39}},
        {{9999, 12, 31}, {9999, 52}},
        {{100, 1, 1}, {99, 53}},
        {{}, {}},
    };
    for (const auto& c : cases) {
        const WeekNumber week = IsoWeekOf(c.date);
        EXPECT_EQ(week, c.week) << c.date.year << "-" << c.date.month << "-" << c.date.day << ": " << week.year << " W"
                                << week.week;
    }
}

// Every rule against a walk: weeks are counted on from the first that has enough days in the year.
TEST(WeekNumbers, EveryRuleEqualsAWalk)
{
    const std::pair<WeekRule, int> rules[] = {
        {WeekRule::WithFirstDay, 1}, {WeekRule::FirstFullWeek, 7}, {WeekRule::FirstFourDayWeek, 4}};
    EXPECT_EQ(static_cast<int>(WeekRule::FirstFourDayWeek), 2) << "as LOCALE_IFIRSTWEEKOFYEAR has it";
    for (const auto& [rule, leastDays] : rules) {
        for (int firstDay = 1; firstDay <= 7; ++firstDay) {
            CivilDate week = {1999, 6, 1};
            while (WeekdayOf(week) != firstDay) {
                week = AddDays(week, 1);
            }
            WeekNumber number; // known from the first beginning of a year on
            for (; week.year < 2040; week = AddDays(week, 7)) {
                const CivilDate last = AddDays(week, 6);
                const int daysInLaterYear = last.year > week.year ? last.day : week.month == 1 && week.day == 1 ? 7 : 0;
                const bool isSecondChance = week.month == 1 && week.day <= 7 && number.year != week.year;
                if (daysInLaterYear >= leastDays || isSecondChance) {
                    number = {last.year, 0};
                }
                ++number.week;
                for (int day = 0; day < 7 && number.year > 0; ++day) {
                    ASSERT_EQ(WeekOf(AddDays(week, day), firstDay, rule), number) << week.year << "-" << week.month;
                }
            }
        }
    }
    EXPECT_EQ(WeekOf({2026, 1, 1}, 0, WeekRule::WithFirstDay), WeekNumber());
}

TEST(WorkHours, PeriodsAreOrderedCutAndJoined)
{
    const WorkPeriods ordered =
        OrderedPeriods({{780, 1080}, {540, 720}, {700, 730}, {600, 600}, {-60, 30}, {1400, 9000}});
    EXPECT_EQ(ordered, (WorkPeriods{{0, 30}, {540, 730}, {780, 1080}, {1400, 1440}}));
    EXPECT_EQ(OrderedPeriods({{540, 720}, {720, 800}}), (WorkPeriods{{540, 800}})) << "periods that meet";
}

TEST(WorkHours, DateThenDayOffThenWeekday)
{
    WorkHours hours;
    const CivilDate friday = {2026, 11, 20}, saturday = {2026, 11, 21}, nextFriday = {2026, 11, 27};
    EXPECT_TRUE(hours.IsWorkTime(friday, 360, false) && hours.IsWorkTime(friday, 1079, false));
    EXPECT_FALSE(hours.IsWorkTime(friday, 359, false) || hours.IsWorkTime(friday, 1080, false));
    EXPECT_FALSE(hours.IsWorkTime(saturday, 600, false) || hours.IsWorkTime({}, 600, false));

    hours.SetWeekday(6, {{780, 1020}, {540, 720}});
    EXPECT_TRUE(hours.IsWorkTime(friday, 719, false) && hours.IsWorkTime(friday, 780, false));
    EXPECT_FALSE(hours.IsWorkTime(friday, 720, false)) << "the lunch break";
    EXPECT_TRUE(hours.PeriodsOf(friday, true).empty()) << "a day off";

    hours.SetDate(friday, {{600, 660}});
    hours.SetDate(nextFriday, {});
    EXPECT_TRUE(hours.IsWorkTime(friday, 600, true)) << "its own periods hold on a day off too";
    EXPECT_TRUE(hours.PeriodsOf(nextFriday, false).empty());
    hours.ClearDate(friday);
    EXPECT_TRUE(hours.IsWorkTime(friday, 540, false));
}

// Seconds since 1970 of a clock's fields.
ClockSeconds At(int year, int month, int day, int hour, int minute = 0)
{
    return (civil::DayNumber(year, month, day) - civil::DayNumber(1970, 1, 1)) * 86400LL + hour * 3600 + minute * 60;
}

constexpr int kHour = 3600;
// Facts of the tz database.
const ZoneClock kTokyo(9 * kHour);
const ZoneClock kKolkata(5 * kHour + 1800);
const ZoneClock kNewYork(-5 * kHour, {{At(2026, 11, 1, 6), -5 * kHour}, {At(2026, 3, 8, 7), -4 * kHour}});
const ZoneClock kLordHowe(11 * kHour, {{At(2026, 4, 4, 15), 10 * kHour + 1800}, {At(2026, 10, 3, 15, 30), 11 * kHour}});
const ZoneClock kApia(-10 * kHour, {{At(2011, 12, 30, 10), 14 * kHour}});
const ZoneClock kStJohns(-9000, {{At(2010, 11, 7, 2, 31), -12600}}); // at 00:01, back to 23:01

const struct
{
    const char* name;
    CivilDate day;
    const ZoneClock& own;
    const ZoneClock& other;
    int row, skipped, repeated;
    ClockSeconds moment;
    CivilDate otherDate;
    int otherMinute, otherDateBegins, otherClockChanges;
} kKnownRows[] = {
    {"same date", {2026, 1, 5}, kTokyo, kKolkata, 9, 0, 0, At(2026, 1, 5, 0), {2026, 1, 5}, 330, -1, 0},
    {"date changes within", {2026, 1, 5}, kTokyo, kKolkata, 3, 0, 0, At(2026, 1, 4, 18), {2026, 1, 4}, 1410, 30, 0},
    {"date changes at the row", {2026, 1, 5}, kTokyo, kNewYork, 14, 0, 0, At(2026, 1, 5, 5), {2026, 1, 5}, 0, 0, 0},
    {"other skips", {2026, 3, 8}, kTokyo, kNewYork, 16, 0, 0, At(2026, 3, 8, 7), {2026, 3, 8}, 180, -1, 60},
    {"before it skips", {2026, 3, 8}, kTokyo, kNewYork, 15, 0, 0, At(2026, 3, 8, 6), {2026, 3, 8}, 60, -1, 0},
    {"own skips", {2026, 3, 8}, kNewYork, kTokyo, 2, 60, 0, At(2026, 3, 8, 7), {2026, 3, 8}, 960, -1, 0},
    {"after own skip", {2026, 3, 8}, kNewYork, kTokyo, 3, 0, 0, At(2026, 3, 8, 7), {2026, 3, 8}, 960, -1, 0},
    {"own repeats", {2026, 11, 1}, kNewYork, kTokyo, 1, 0, 60, At(2026, 11, 1, 5), {2026, 11, 1}, 840, -1, 0},
    {"after own repeat", {2026, 11, 1}, kNewYork, kTokyo, 2, 0, 0, At(2026, 11, 1, 7), {2026, 11, 1}, 960, -1, 0},
    {"skips 30 minutes", {2026, 10, 4}, kLordHowe, kTokyo, 2, 30, 0, At(2026, 10, 3, 15, 30), {2026, 10, 4}, 30, -1, 0},
    {"repeats 30 minutes", {2026, 4, 5}, kLordHowe, kTokyo, 1, 0, 30, At(2026, 4, 4, 14), {2026, 4, 4}, 1380, 60, 0},
    {"no such day", {2011, 12, 30}, kApia, kTokyo, 12, 60, 0, At(2011, 12, 30, 10), {2011, 12, 30}, 1140, -1, 0},
    {"a day jumped over", {2011, 12, 30}, kTokyo, kApia, 19, 0, 0, At(2011, 12, 30, 10), {2011, 12, 31}, 0, 0, 1440},
    {"date comes back", {2010, 11, 7}, kTokyo, kStJohns, 11, 0, 0, At(2010, 11, 7, 2), {2010, 11, 6}, 1410, 30, -60},
    {"date changes again", {2010, 11, 7}, kTokyo, kStJohns, 12, 0, 0, At(2010, 11, 7, 3), {2010, 11, 6}, 1410, 30, 0},
};

TEST(ZoneRuler, KnownDays)
{
    for (const auto& c : kKnownRows) {
        SCOPED_TRACE(c.name);
        const std::vector<ZoneRulerRow> rows = CalcZoneRuler(c.day, 60, c.own, c.other);
        ASSERT_EQ(rows.size(), 24u);
        const ZoneRulerRow& row = rows[c.row];
        EXPECT_EQ(row.begin, c.row * 60);
        EXPECT_EQ(row.skippedMinutes, c.skipped);
        EXPECT_EQ(row.repeatedMinutes, c.repeated);
        EXPECT_EQ(row.moment, c.moment);
        EXPECT_EQ(row.otherDate, c.otherDate);
        EXPECT_EQ(row.otherMinute, c.otherMinute);
        EXPECT_EQ(row.otherDateBegins, c.otherDateBegins);
        EXPECT_EQ(row.otherClockChanges, c.otherClockChanges);
    }
    EXPECT_EQ(CalcZoneRuler({2026, 1, 5}, 15, kTokyo, kNewYork).size(), 96u);
    EXPECT_EQ(CalcZoneRuler({2026, 1, 5}, 7, kTokyo, kNewYork).size(), 24u) << "7 does not divide the day";
    EXPECT_TRUE(CalcZoneRuler({}, 60, kTokyo, kNewYork).empty());
    EXPECT_FALSE(CalcZoneRuler({9999, 12, 31}, 60, kNewYork, kTokyo)[23].otherDate.IsValid());
}

// The moments of every local time, against all moments of some days.
TEST(ZoneClock, MomentsEqualASearch)
{
    std::mt19937 random(11);
    constexpr ClockSeconds kStep = 1800, kSpan = 6 * 86400, kMargin = 2 * 86400;
    for (int round = 0; round < 300; ++round) {
        std::vector<ZoneTransition> transitions;
        for (int count = random() % 5; count > 0; --count) {
            const int offset = (static_cast<int>(random() % 105) - 52) * static_cast<int>(kStep);
            transitions.push_back({static_cast<ClockSeconds>(random() % 288) * kStep, offset});
        }
        const ZoneClock clock(0, transitions);
        for (ClockSeconds local = kMargin; local < kSpan - kMargin; local += kStep) {
            std::vector<ClockSeconds> moments;
            for (ClockSeconds utc = 0; utc < kSpan; utc += kStep) {
                if (clock.LocalOf(utc) == local) {
                    moments.push_back(utc);
                }
            }
            const LocalMoments found = clock.MomentsOf(local);
            ASSERT_EQ(found.count == LocalMoments::Count::Skipped, moments.empty());
            ASSERT_EQ(found.count == LocalMoments::Count::Twice, moments.size() > 1);
            if (!moments.empty()) {
                ASSERT_EQ(found.first, moments.front());
                ASSERT_EQ(found.last, moments.back());
            } else {
                ASSERT_GT(clock.LocalOf(found.first), local);
                ASSERT_LT(clock.LocalOf(found.first - 1), local);
            }
        }
    }
}
} // namespace
