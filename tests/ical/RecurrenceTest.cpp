#include "CalendarTesting.h"

#include "ical/Recurrence.h"
#include "ical/TimeZone.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <set>

namespace dayvane::ical {
namespace {

RecurrenceRule Rule(const std::string& text, LocalTime start)
{
    RuleReading reading = ParseRule(text);
    EXPECT_TRUE(reading.rule) << text << ": " << reading.problem.form;
    RecurrenceRule rule = reading.rule.value_or(RecurrenceRule());
    if (rule.until) {
        rule.lastStart = rule.until->wall;
    }
    std::int64_t steps = kCountingSteps;
    LimitByCount(rule, start, steps);
    return rule;
}

std::vector<LocalTime> Expand(const RecurrenceRule& rule, LocalTime start, LocalTime from, LocalTime to)
{
    std::vector<LocalTime> times;
    ExpandRule(rule, start, from, to, [&](LocalTime time) {
        times.push_back(time);
        return true;
    });
    return times;
}

std::string Days(const std::vector<LocalTime>& times)
{
    std::string text;
    for (const LocalTime time : times) {
        text += (text.empty() ? "" : " ") + Shown(DayOfTime(time) * kDaySeconds).substr(2);
    }
    return text;
}

TEST(Recurrence, RulesGiveTheirDays)
{
    const struct
    {
        const char* rule;
        const char* start;
        const char* to;
        const char* days;
    } rows[] = {
        {"FREQ=DAILY;UNTIL=20260103T090000", "20260101T0900", "20270101", "260101 260102 260103"},
        {"FREQ=DAILY;UNTIL=20260103T085959", "20260101T0900", "20270101", "260101 260102"},
        {"FREQ=MONTHLY", "20260131", "20260901", "260131 260331 260531 260731 260831"},
        {"FREQ=MONTHLY;BYMONTHDAY=-1,15;COUNT=4", "20260215", "20270101", "260215 260228 260315 260331"},
        {"FREQ=MONTHLY;BYDAY=1FR,-1MO;COUNT=4", "20260102", "20270101", "260102 260126 260206 260223"},
        {"FREQ=MONTHLY;BYDAY=5SA", "20260131", "20260901", "260131 260530 260829"},
        {"FREQ=YEARLY", "20240229", "20330101", "240229 280229 320229"},
        {"FREQ=YEARLY;BYMONTH=3,11;BYDAY=2SU", "20260308", "20271231", "260308 261108 270314 271114"},
        {"FREQ=YEARLY;BYMONTH=3;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=2SU", "20260308", "20281231",
         "260308 270314 280312"},
        {"FREQ=YEARLY;BYDAY=53MO", "20121231", "20300101", "121231 181231 241230 291231"},
        {"FREQ=YEARLY;BYWEEKNO=1,-1", "20260101", "20280101", "260101 261231 270107 271230"}, // on the start's weekday
        {"FREQ=YEARLY;BYWEEKNO=1;WKST=SU;BYDAY=2SU", "20260104", "20280101", "260104 270103"},
        {"FREQ=YEARLY;BYWEEKNO=10,11;BYMONTHDAY=8,9", "20260308", "20280101", "260308 260309 270308 270309"},
        {"FREQ=HOURLY;BYMONTHDAY=-1;BYHOUR=12;BYMINUTE=5", "20260131T1205", "20260401", "260131 260228 260331"},
        {"FREQ=YEARLY;BYYEARDAY=1,-1;COUNT=3", "20260101", "20300101", "260101 261231 270101"},
        {"FREQ=YEARLY;BYMONTHDAY=31;COUNT=3", "20260131", "20300101", "260131 260331 260531"},
        {"FREQ=DAILY;BYMONTH=2;BYDAY=SU,SA;COUNT=3", "20260201", "20300101", "260201 260207 260208"},
        {"freq=weekly;byhour=9;", "20260101T0900", "20260110", "260101 260108"},
        // A start that does not fit the rule is the first occurrence all the same.
        {"FREQ=WEEKLY;BYDAY=MO;COUNT=3", "20260101", "20270101", "260101 260105 260112"},
        {"FREQ=DAILY;UNTIL=20250101", "20260101", "20270101", "260101"},
        {"FREQ=MONTHLY;BYMONTH=2;BYMONTHDAY=30", "20260101", "99990101", "260101"},
        {"FREQ=DAILY;INTERVAL=0;COUNT=2", "20260101", "20270101", "260101 260102"},
        {"FREQ=DAILY;COUNT=0", "20260101", "20270101", "260101"},
        {"FREQ=DAILY;COUNT=1", "99991230", "99991231T1200", "991230"},
    };
    for (const auto& row : rows) {
        const LocalTime start = At(row.start);
        EXPECT_EQ(Days(Expand(Rule(row.rule, start), start, start, At(row.to))), row.days) << row.rule;
    }
    EXPECT_EQ(Rule("FREQ=DAILY;BYSECOND=60", At("20260101")).bySecond.back(), 59)
        << "the clock of a day has no leap second";
}

TEST(Recurrence, RefusesWhatItDoesNotUnderstand)
{
    for (const char* rule : {"",
                             "INTERVAL=2",
                             "FREQ=FORTNIGHTLY",
                             "FREQ=DAILY;BYMONTH=13",
                             "FREQ=DAILY;BYMONTH=0",
                             "FREQ=DAILY;BYMONTHDAY=32",
                             "FREQ=WEEKLY;BYDAY=XX",
                             "FREQ=WEEKLY;BYDAY=0MO",
                             "FREQ=WEEKLY;BYDAY=M",
                             "FREQ=WEEKLY;BYDAY=",
                             "FREQ=DAILY;COUNT=-1",
                             "FREQ=DAILY;COUNT=x",
                             "FREQ=DAILY;INTERVAL=99999999999",
                             "FREQ=DAILY;UNTIL=20261301",
                             "FREQ=WEEKLY;WKST=1",
                             "FREQ=DAILY;BYHOUR=24",
                             "FREQ=DAILY;BYMINUTE=-1",
                             "FREQ=DAILY;BYSECOND=61",
                             "FREQ=YEARLY;BYWEEKNO=54",
                             "FREQ=YEARLY;BYDAY=54MO",
                             "RSCALE=HEBREW;FREQ=DAILY",
                             "FREQ=DAILY;SKIP=FORWARD",
                             "FREQ",
                             "FREQ=DAILY;%n"}) {
        const RuleReading reading = ParseRule(rule);
        EXPECT_FALSE(reading.rule) << rule;
        EXPECT_FALSE(reading.problem.IsEmpty()) << rule;
    }
}

// Whether the literal text of the rule gives this day, asked day by day; counting periods from the start.
bool GivesDay(const RecurrenceRule& rule, DayNumber startDay, DayNumber day)
{
    const CivilDate start = DateOfDay(startDay), date = DateOfDay(day);
    const int length = DaysInMonth(date.year, date.month);
    const int weekday = WeekdayOfDay(day);
    const auto in = [](const std::vector<int>& list, int value) {
        return std::find(list.begin(), list.end(), value) != list.end();
    };
    const auto weekOf = [&](DayNumber d) { return d - (WeekdayOfDay(d) - rule.weekStart + kWeekDays) % kWeekDays; };
    const DayNumber distance = rule.frequency == Frequency::Daily    ? day - startDay
                               : rule.frequency == Frequency::Weekly ? (weekOf(day) - weekOf(startDay)) / kWeekDays
                               : rule.frequency == Frequency::Monthly
                                   ? (date.year - start.year) * kYearMonths + date.month - start.month
                                   : date.year - start.year;
    if (distance % rule.interval != 0 || (!rule.byMonth.empty() && !in(rule.byMonth, date.month))) {
        return false;
    }
    const bool longPeriod = rule.frequency == Frequency::Monthly || rule.frequency == Frequency::Yearly;
    if (!rule.byMonthDay.empty() && rule.frequency != Frequency::Weekly && !in(rule.byMonthDay, date.day) &&
        !in(rule.byMonthDay, date.day - length - 1)) {
        return false;
    }
    const bool ofYear = rule.frequency == Frequency::Yearly && rule.byMonth.empty();
    const int yearDay = static_cast<int>(day - DayOfDate(date.year, 1, 1));
    const int place = ofYear ? yearDay : date.day - 1;
    const int size = ofYear ? 365 + IsLeapYear(date.year) : length;
    const auto fits = [&](const RuleWeekday& wanted) {
        return wanted.weekday == weekday &&
               (!longPeriod || wanted.ordinal == 0 || wanted.ordinal == place / kWeekDays + 1 ||
                wanted.ordinal == -((size - 1 - place) / kWeekDays + 1));
    };
    if (!rule.byDay.empty()) {
        return std::any_of(rule.byDay.begin(), rule.byDay.end(), fits);
    }
    if (rule.frequency == Frequency::Weekly) {
        return weekday == WeekdayOfDay(startDay);
    }
    if (longPeriod && rule.byMonthDay.empty()) {
        return date.day == start.day && (!ofYear || date.month == start.month);
    }
    return true;
}

TEST(Recurrence, RandomRulesEqualTheLiteralOnes)
{
    std::mt19937 random(5545);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    const auto listOf = [&](int low, int high) {
        std::vector<int> list;
        for (int n = pick(1, 3); n > 0; --n) {
            const int value = pick(low, high);
            list.push_back(value == 0 ? 1 : value);
        }
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
        return list;
    };
    for (int round = 0; round < 500; ++round) {
        RecurrenceRule rule;
        rule.frequency = static_cast<Frequency>(pick(0, 3) + static_cast<int>(Frequency::Daily));
        rule.interval = pick(1, 4);
        rule.weekStart = pick(0, 6);
        rule.byMonth = pick(0, 2) == 0 ? listOf(1, 12) : std::vector<int>();
        rule.byMonthDay = pick(0, 2) == 0 ? listOf(-31, 31) : std::vector<int>();
        for (int n = pick(0, 1) * pick(1, 3); n > 0; --n) {
            rule.byDay.push_back({pick(0, 1) * pick(-6, 6), pick(0, 6)});
        }
        const DayNumber startDay = DayOfDate(2024, 1, 1) + pick(0, 800);
        const LocalTime start = startDay * kDaySeconds + pick(0, 86399);
        const int count = pick(1, 40);
        std::vector<LocalTime> expected{start};
        for (DayNumber day = startDay + 1; day < startDay + 3000; ++day) {
            if (GivesDay(rule, startDay, day)) {
                expected.push_back(start + (day - startDay) * kDaySeconds);
            }
        }
        const LocalTime end = start + 3000 * kDaySeconds;
        ASSERT_EQ(Days(Expand(rule, start, start, end)), Days(expected)) << "round " << round;
        // A window in the middle gives the same ones, whichever period it begins in.
        const LocalTime from = start + pick(0, 2999) * kDaySeconds + pick(-1, 1);
        const auto firstInside = std::lower_bound(expected.begin(), expected.end(), from);
        ASSERT_EQ(Days(Expand(rule, start, from, end)), Days({firstInside, expected.end()})) << "round " << round;
        rule.count = count;
        std::int64_t steps = kCountingSteps;
        LimitByCount(rule, start, steps);
        if (expected.size() >= static_cast<std::size_t>(count)) {
            expected.resize(static_cast<std::size_t>(count));
        }
        ASSERT_EQ(Days(Expand(rule, start, start, end)), Days(expected)) << "round " << round << " counted";
    }
}

// Whether the literal text of the rule gives this second, asked second by second.
bool GivesSecond(const RecurrenceRule& rule, LocalTime start, LocalTime time)
{
    const CivilTime first = CivilOfTime(start), civil = CivilOfTime(time);
    const std::int64_t unit = rule.frequency == Frequency::Secondly   ? 1
                              : rule.frequency == Frequency::Minutely ? kMinuteSeconds
                              : rule.frequency == Frequency::Hourly   ? kHourSeconds
                                                                      : kDaySeconds;
    const auto fits = [](const std::vector<int>& list, int value, bool isPlain, int plain) {
        const bool isListed = std::find(list.begin(), list.end(), value) != list.end();
        return list.empty() ? !isPlain || value == plain : isListed;
    };
    const bool fitsDay = rule.byMonthDay.empty() || fits(rule.byMonthDay, civil.day, false, 0);
    return (time / unit - start / unit) % rule.interval == 0 && fitsDay &&
           fits(rule.byHour, civil.hour, rule.frequency > Frequency::Hourly, first.hour) &&
           fits(rule.byMinute, civil.minute, rule.frequency > Frequency::Minutely, first.minute) &&
           fits(rule.bySecond, civil.second, rule.frequency > Frequency::Secondly, first.second);
}

TEST(Recurrence, RandomClocksEqualTheLiteralOnes)
{
    std::mt19937 random(7529);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    const auto someOf = [&](int largest, int chance) {
        std::set<int> list;
        for (int n = pick(0, 99) < chance ? pick(1, 4) : 0; n > 0; --n) {
            list.insert(pick(0, largest));
        }
        return std::vector<int>(list.begin(), list.end());
    };
    constexpr LocalTime length = 2 * kDaySeconds;
    std::size_t found = 0;
    for (int round = 0; round < 40; ++round) {
        RecurrenceRule rule;
        rule.frequency = static_cast<Frequency>(pick(0, 3));
        rule.interval = rule.frequency == Frequency::Daily ? 1 : pick(0, 1) == 0 ? pick(1, 5) : pick(1, 5000);
        rule.byHour = someOf(23, 50);
        rule.byMinute = someOf(59, 50);
        rule.bySecond = someOf(59, rule.frequency == Frequency::Secondly ? 80 : 30);
        rule.byMonthDay = pick(0, 3) == 0 ? std::vector<int>{2} : std::vector<int>();
        const LocalTime start = At("20260101") + pick(0, 86399);
        std::vector<LocalTime> expected{start};
        for (LocalTime time = start + 1; time < start + length; ++time) {
            if (GivesSecond(rule, start, time)) {
                expected.push_back(time);
            }
        }
        ASSERT_EQ(Expand(rule, start, start, start + length), expected) << "round " << round;
        const LocalTime from = start + pick(1, 150000);
        expected.erase(expected.begin(), std::lower_bound(expected.begin(), expected.end(), from));
        ASSERT_EQ(Expand(rule, start, from, start + length), expected) << "round " << round;
        found += expected.size();
        if (expected.size() > 2) { // BYSETPOS
            RecurrenceRule last = rule;
            last.frequency = Frequency::Daily;
            last.interval = 1;
            last.bySetPos = {-1};
            RecurrenceRule all = last;
            all.bySetPos.clear();
            const LocalTime midnight = DayOfTime(start + length) * kDaySeconds;
            const auto every = Expand(all, start, from, midnight);
            std::vector<LocalTime> ends;
            for (std::size_t i = 0; i < every.size(); ++i) {
                if (i + 1 == every.size() || DayOfTime(every[i]) != DayOfTime(every[i + 1])) {
                    ends.push_back(every[i]);
                }
            }
            const auto picked = Expand(last, start, from, midnight);
            ASSERT_EQ(picked, ends) << "round " << round;
        }
    }
    EXPECT_GT(found, 10000u);
}

// Week 1 is the week with the year's first Thursday (ISO 8601), so a week has the number of its Thursday's seventh.
TEST(Recurrence, WeekNumbersAreThoseOfTheirThursdays)
{
    for (const int number : {1, 9, 52, 53}) {
        const LocalTime start = At("19900101");
        RecurrenceRule rule = Rule("FREQ=YEARLY;BYDAY=MO,TU,WE,TH,FR,SA,SU;BYWEEKNO=" + std::to_string(number), start);
        rule.givesStart = false;
        std::vector<LocalTime> expected;
        for (DayNumber day = DayOfDate(1990, 1, 1); day < DayOfDate(2060, 1, 1); ++day) {
            const DayNumber thursday = day - (WeekdayOfDay(day) + 6) % kWeekDays + 3;
            const DayNumber inYear = thursday - DayOfDate(DateOfDay(thursday).year, 1, 1);
            if (inYear / kWeekDays + 1 == number) {
                expected.push_back(day * kDaySeconds);
            }
        }
        EXPECT_EQ(Expand(rule, start, start, At("20600101")), expected) << number;
    }
}

TEST(Recurrence, HostileRulesEnd)
{
    const auto begin = std::chrono::steady_clock::now();
    for (const char* text :
         {"FREQ=DAILY;COUNT=999999999", "FREQ=DAILY;COUNT=999999999;BYDAY=MO", "FREQ=YEARLY;INTERVAL=999999999",
          "FREQ=WEEKLY;INTERVAL=999999999;COUNT=999999999", "FREQ=MONTHLY;BYMONTH=2;BYMONTHDAY=31;COUNT=3",
          "FREQ=DAILY;UNTIL=99991231T235959;BYMONTH=2;BYMONTHDAY=31", "FREQ=YEARLY;BYYEARDAY=366;BYMONTH=1;COUNT=2",
          "FREQ=MONTHLY;INTERVAL=999999999;COUNT=7", "FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30",
          "FREQ=SECONDLY;COUNT=700;BYMONTH=2;BYMONTHDAY=30", "FREQ=MINUTELY;INTERVAL=2;BYMINUTE=1;COUNT=9",
          "FREQ=SECONDLY;INTERVAL=999999999;BYSECOND=1", "FREQ=HOURLY;BYHOUR=3;BYMONTH=2;BYMONTHDAY=31",
          "FREQ=YEARLY;INTERVAL=50;BYMINUTE=0,1,2,3,4,5,6,7,8,9;BYSECOND=0,1,2,3,4,5,6,7,8,9;BYSETPOS=-1"}) {
        for (const char* from : {"01000101T0000", "20260101T0900", "99991231T2359"}) {
            const LocalTime start = At(from);
            const auto times = Expand(Rule(text, start), start, At("99980101"), kEndOfTime);
            EXPECT_LE(times.size(), 730u) << text;
        }
    }
    RecurrenceRule rule = *ParseRule("FREQ=DAILY;BYDAY=MO;COUNT=10").rule;
    std::int64_t steps = kCountingSteps;
    EXPECT_TRUE(LimitByCount(rule, 0, steps));
    EXPECT_LT(steps, kCountingSteps - 60);
    steps = 60;
    EXPECT_FALSE(LimitByCount(rule, 0, steps));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST(TimeZone, FollowsItsRules)
{
    const ZonePtr newYork = FindCommonZone("America/New_York");
    ASSERT_TRUE(newYork);
    const struct
    {
        const char* utc;
        const char* wall;
    } rows[] = {
        {"20260308T0659", "20260308T0159"}, {"20260308T0700", "20260308T0300"}, // set forward
        {"20261101T0559", "20261101T0159"}, {"20261101T0600", "20261101T0100"}, // set back
        {"20050403T0700", "20050403T0300"}, {"20051030T0600", "20051030T0100"}, // older rules
        {"19990101T1200", "19990101T0700"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Shown(newYork->WallOfUtc(At(row.utc))), row.wall);
    }
    EXPECT_EQ(Shown(newYork->UtcOfWall(At("20260308T0230"))), "20260308T0730"); // a skipped time
    EXPECT_EQ(Shown(newYork->UtcOfWall(At("20261101T0130"))), "20261101T0530"); // a time that comes twice
    EXPECT_EQ(Shown(newYork->UtcOfWall(At("20260308T0300"))), "20260308T0700");
    const ZonePtr berlin = FindCommonZone("europe/berlin");
    EXPECT_EQ(Shown(berlin->WallOfUtc(At("20260329T0059"))), "20260329T0159");
    EXPECT_EQ(Shown(berlin->WallOfUtc(At("20260329T0100"))), "20260329T0300");
    EXPECT_EQ(Shown(ConvertWall(At("20261121T0900"), FindCommonZone("Asia/Tokyo"), berlin)), "20261121T0100");
    EXPECT_EQ(FindCommonZone("/registry.invalid/2005_1/Asia/Tokyo"), FindCommonZone("Asia/Tokyo"));
    EXPECT_FALSE(FindCommonZone("Nowhere/Land"));
}

TEST(TimeZone, ReadsDefinitions)
{
    MessageLog log;
    const ZonePtr zone = ReadTimeZone(Joined({"BEGIN:VTIMEZONE",
                                              "TZID:Own",
                                              "BEGIN:STANDARD",
                                              "DTSTART:16010101T020000",
                                              "TZOFFSETFROM:+0200",
                                              "TZOFFSETTO:+0130",
                                              "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU;UNTIL=20271031T000000Z",
                                              "END:STANDARD",
                                              "BEGIN:DAYLIGHT",
                                              "DTSTART:16010101T020000",
                                              "TZOFFSETFROM:+0130",
                                              "TZOFFSETTO:+0200",
                                              "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=1SU",
                                              "RDATE:20260115T020000,nonsense",
                                              "END:DAYLIGHT",
                                              "BEGIN:STANDARD",
                                              "DTSTART:rubbish",
                                              "TZOFFSETTO:+0100",
                                              "END:STANDARD",
                                              "END:VTIMEZONE"}),
                                      10, log);
    ASSERT_TRUE(zone);
    EXPECT_EQ(Shown(zone->WallOfUtc(At("20260114T1200"))), "20260114T1330");
    EXPECT_EQ(Shown(zone->WallOfUtc(At("20260116T1200"))), "20260116T1400"); // RDATE
    EXPECT_EQ(Shown(zone->WallOfUtc(At("20261201T1200"))), "20261201T1330");
    EXPECT_EQ(Shown(zone->WallOfUtc(At("20271201T1200"))), "20271201T1330"); // UNTIL is the onset itself
    EXPECT_EQ(Shown(zone->WallOfUtc(At("20281201T1200"))), "20281201T1400");
    ASSERT_EQ(log.Kept().size(), 2u);
    EXPECT_EQ(log.Kept()[0].line, 23);
    EXPECT_EQ(log.Kept()[1].line, 25);
    EXPECT_FALSE(ReadTimeZone("BEGIN:VTIMEZONE\r\nTZID:Empty\r\nEND:VTIMEZONE\r\n", 1, log));
}

TEST(TimeZone, ReadsOffsets)
{
    EXPECT_EQ(ParseUtcOffset("+0900"), 32400);
    EXPECT_EQ(ParseUtcOffset("-023015"), -9015);
    for (const char* text : {"", "0900", "+9", "+2400", "+0960", "+09x0", "+09000"}) {
        EXPECT_FALSE(ParseUtcOffset(text)) << text;
    }
}

} // namespace
} // namespace dayvane::ical
