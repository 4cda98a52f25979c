// COleDateTime: every day of its range, DATEs before the epoch, rounding, invalid values, formats.
#include "BaseTesting.h"

#include <afxdisp.h>
#include "mfc/base/civil.h"

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstring>
#include <ctime>
#include <limits>
#include <random>

namespace {
COleDateTime Invalid()
{
    return COleDateTime(2010, 2, 29, 0, 0, 0);
}

// Year, month, day, hour, minute, second as one text.
CString FieldsOf(const COleDateTime& date)
{
    CString text;
    text.Format("%d-%d-%d %d:%d:%d", date.GetYear(), date.GetMonth(), date.GetDay(), date.GetHour(), date.GetMinute(),
                date.GetSecond());
    return text;
}

// A counter that knows only the lengths of the months, by way of days anchored at known ones.
TEST(DateTime, WalksEveryDay)
{
    EXPECT_EQ(civil::DayNumber(1899, 12, 30), 0);
    EXPECT_EQ(civil::DayNumber(2000, 1, 1), 36526);
    EXPECT_EQ(civil::DayOfWeek(36526), 7) << "a Saturday";
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int year = 100, month = 1, day = 1;
    int weekday = civil::DayOfWeek(civil::kFirstDay);
    int dayOfYear = 1;
    for (int number = civil::kFirstDay; number <= civil::kLastDay; ++number) {
        const COleDateTime date(static_cast<DATE>(number));
        SYSTEMTIME time = {};
        ASSERT_TRUE(date.GetAsSystemTime(time)) << number;
        ASSERT_TRUE(time.wYear == year && time.wMonth == month && time.wDay == day && time.wHour == 0) << number;
        ASSERT_TRUE(time.wDayOfWeek + 1 == weekday && date.GetDayOfYear() == dayOfYear) << number;
        ASSERT_EQ(COleDateTime(time).m_dt, number);
        const bool isLeapYear = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
        weekday = weekday % 7 + 1;
        ++dayOfYear;
        if (++day > lengths[month - 1] + (month == 2 && isLeapYear ? 1 : 0)) {
            day = 1;
            if (++month > 12) {
                month = 1;
                dayOfYear = 1;
                ++year;
            }
        }
    }
    EXPECT_EQ(year, 10000);
}

TEST(DateTime, KeepsEverySecondOfADay)
{
    for (const int number : {civil::kFirstDay, -2, -1, 0, 1, 40000, civil::kLastDay}) {
        const COleDateTime midnight(static_cast<DATE>(number));
        for (int second = 0; second < 86400; ++second) {
            const COleDateTime date(midnight.GetYear(), midnight.GetMonth(), midnight.GetDay(), second / 3600,
                                    second / 60 % 60, second % 60);
            SYSTEMTIME time = {};
            ASSERT_TRUE(date.GetAsSystemTime(time));
            ASSERT_TRUE(time.wDay == midnight.GetDay() && time.wHour == second / 3600) << number << ' ' << second;
            ASSERT_TRUE(time.wMinute == second / 60 % 60 && time.wSecond == second % 60) << number << ' ' << second;
        }
    }
}

TEST(DateTime, ReadsTheFractionForwardBeforeTheEpochToo)
{
    struct
    {
        DATE value;
        const char* fields;
    } const inOrder[] = {
        {-657434.0, "100-1-1 0:0:0"},    {-657434.75, "100-1-1 18:0:0"},   {-2.0, "1899-12-28 0:0:0"},
        {-2.75, "1899-12-28 18:0:0"},    {-1.0, "1899-12-29 0:0:0"},       {-1.25, "1899-12-29 6:0:0"},
        {-1.5, "1899-12-29 12:0:0"},     {0.0, "1899-12-30 0:0:0"},        {0.25, "1899-12-30 6:0:0"},
        {2958465.0, "9999-12-31 0:0:0"}, {2958465.5, "9999-12-31 12:0:0"},
    };
    const COleDateTime* previous = nullptr;
    COleDateTime kept;
    for (const auto& c : inOrder) {
        const COleDateTime date(c.value);
        EXPECT_STREQ(FieldsOf(date), c.fields);
        if (previous) {
            EXPECT_TRUE(*previous < date && *previous <= date && date > *previous && date >= *previous) << c.fields;
            EXPECT_EQ((*previous + (date - *previous)).m_dt, c.value) << c.fields;
            EXPECT_EQ((date - (date - *previous)).m_dt, previous->m_dt) << c.fields;
        }
        kept = date;
        previous = &kept;
    }
    EXPECT_EQ((COleDateTime(0.25) - COleDateTimeSpan(1, 0, 0, 0)).m_dt, -1.25);
    EXPECT_EQ(COleDateTime(1899, 12, 30, 6, 0, 0).m_dt, 0.25);
    EXPECT_STREQ(FieldsOf(COleDateTime(-0.25)), "1899-12-30 6:0:0") << "the second name of a time on day 0";
}

TEST(DateTime, RoundsToTheNearestSecond)
{
    const double second = 1.0 / 86400;
    struct
    {
        DATE value;
        const char* fields;
    } const cases[] = {
        {40000 + 10.4 * second, "2009-7-6 0:0:10"},      {40000 + 10.6 * second, "2009-7-6 0:0:11"},
        {40000 + 3599.7 * second, "2009-7-6 1:0:0"},     {40000 - 0.4 * second, "2009-7-6 0:0:0"},
        {36525 - 0.4 * second, "1999-12-31 0:0:0"},      {-1 - 86399.7 * second, "1899-12-30 0:0:0"},
        {2958466 - 0.4 * second, "9999-12-31 23:59:59"}, // there is no next day
    };
    for (const auto& c : cases) {
        EXPECT_STREQ(FieldsOf(COleDateTime(c.value)), c.fields);
    }
}

TEST(DateTime, RefusesWhatIsNoDate)
{
    const int bad[][6] = {{99, 12, 31, 0, 0, 0},  {10000, 1, 1, 0, 0, 0}, {2010, 0, 1, 0, 0, 0}, {2010, 13, 1, 0, 0, 0},
                          {2010, 4, 31, 0, 0, 0}, {1900, 2, 29, 0, 0, 0}, {2010, 1, 0, 0, 0, 0}, {2010, 1, 1, 24, 0, 0},
                          {2010, 1, 1, 0, 60, 0}, {2010, 1, 1, 0, 0, 60}, {2010, 1, 1, -1, 0, 0}};
    for (const auto& f : bad) {
        COleDateTime date(2000, 2, 29, 1, 2, 3);
        const DATE before = date;
        EXPECT_NE(date.SetDateTime(f[0], f[1], f[2], f[3], f[4], f[5]), 0);
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid) << f[0] << '-' << f[1] << '-' << f[2];
        EXPECT_EQ(date.m_dt, before);
        EXPECT_STREQ(FieldsOf(date), "-1--1--1 -1:-1:-1");
        EXPECT_EQ(date.GetDayOfWeek(), -1);
        EXPECT_EQ(date.GetDayOfYear(), -1);
        EXPECT_EQ(date.SetTime(1, 2, 3), 0);
        EXPECT_STREQ(FieldsOf(date), "1899-12-30 1:2:3");
    }
    EXPECT_EQ(COleDateTimeSpan(4000000, 0, 0, 0).GetStatus(), COleDateTimeSpan::invalid);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {-657435.0, 2958466.0, 1e300, -HUGE_VAL, nan}) {
        COleDateTime date(value);
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid) << value;
        date.SetStatus(COleDateTime::valid); // a lie
        EXPECT_EQ(date.GetYear(), -1) << value;
        EXPECT_EQ(COleDateTimeSpan(value * 10).GetStatus(), COleDateTimeSpan::invalid) << value;
    }
}

TEST(DateTime, OrdersAndAddsValidValuesOnly)
{
    const COleDateTime day(2010, 3, 10, 9, 0, 0);
    const COleDateTimeSpan hour(0, 1, 0, 0);
    COleDateTime null(day);
    null.SetStatus(COleDateTime::null);
    COleDateTimeSpan noSpan(hour);
    noSpan.SetStatus(COleDateTimeSpan::invalid);
    for (const COleDateTime& other : {Invalid(), null}) {
        EXPECT_FALSE(other < day || other > day || other <= day || other >= day);
        EXPECT_FALSE(day < other || day > other || day <= other || day >= other);
        EXPECT_TRUE(other != day && !(other == day));
        EXPECT_EQ((other + hour).GetStatus(), other.GetStatus());
        EXPECT_EQ((other - hour).GetStatus(), other.GetStatus());
        EXPECT_EQ(static_cast<int>((day - other).GetStatus()), static_cast<int>(other.GetStatus()));
    }
    EXPECT_FALSE(Invalid() <= Invalid());
    EXPECT_EQ((day + noSpan).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ((null + noSpan).GetStatus(), COleDateTime::null) << "null goes before invalid";
    EXPECT_EQ((COleDateTime(9999, 12, 31, 23, 30, 0) + hour).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ((COleDateTime(100, 1, 1, 0, 30, 0) - hour).GetStatus(), COleDateTime::invalid);
    EXPECT_TRUE(day == COleDateTime(2010, 3, 10, 9, 0, 0) && day != day + hour);
    EXPECT_EQ((COleDateTime(9999, 12, 31, 0, 0, 0) - COleDateTime(100, 1, 1, 0, 0, 0)).GetTotalDays(), 3615899);
}

TEST(DateTime, SplitsSpans)
{
    struct
    {
        COleDateTimeSpan span;
        const char* parts;
    } const cases[] = {
        {COleDateTimeSpan(3, 4, 5, 6), "3 04:05:06"},
        {COleDateTimeSpan(0, 49, 120, -1), "2 02:59:59"},
        {COleDateTimeSpan(1.0 - 0.4 / 86400), "1 00:00:00"},
        {COleDateTimeSpan(1, 0, 0, 0) - COleDateTimeSpan(0, 0, 0, 1), "0 23:59:59"},
        {-COleDateTimeSpan(2, 0, 30, 0), "-2 00:-30:00"},
        {COleDateTime(2010, 3, 1, 0, 0, 0) - COleDateTime(2008, 2, 28, 12, 0, 0), "731 12:00:00"},
    };
    for (const auto& c : cases) {
        EXPECT_STREQ(c.span.Format("%D %H:%M:%S"), c.parts);
    }
    const COleDateTimeSpan span(-2, -1, 0, 0);
    EXPECT_TRUE(span.GetTotalHours() == -49 && span.GetDays() == -2 && span.GetHours() == -1);
    EXPECT_EQ(COleDateTimeSpan(1, 1, 1, 1).GetTotalSeconds(), 90061);
}

TEST(DateTime, Formats)
{
    const COleDateTime morning(2009, 3, 4, 5, 6, 7);
    const COleDateTime noon(987, 12, 31, 12, 0, 0);
    struct
    {
        const COleDateTime& date;
        const char* format;
        const char* text;
    } const cases[] = {
        {morning, "%Y-%m-%d %H:%M:%S", "2009-03-04 05:06:07"},
        {morning, "%#Y-%#m-%#d %#H:%#M:%#S", "2009-3-4 5:6:7"},
        {morning, "%y/%#m/", "09/3/"},
        {morning, "%A, %d %B, %Y", "Wednesday, 04 March, 2009"},
        {morning, "(%a) %b %I %p %j %#j %w", "(Wed) Mar 05 AM 063 63 3"},
        {noon, "%Y %y %I%p %j", "0987 87 12PM 365"},
        {COleDateTime(2009, 3, 4, 0, 0, 0), "%I%p %#H:%M", "12AM 0:00"},
        {morning, "100%% %Q %#", "100% %Q %#"},
        {morning, "%", "%"},
        {morning, "表%d日ソ%%", "表04日ソ%"},
        {Invalid(), "%d", "Invalid DateTime"},
    };
    for (const auto& c : cases) {
        EXPECT_STREQ(c.date.Format(c.format), c.text) << c.format;
    }
}

#ifdef _WIN32
// The system's own conversions of DATEs, which are not made from this code.
TEST(DateTime, AgreesWithTheSystem)
{
    std::mt19937 random(3);
    for (int i = 0; i < 50000; ++i) {
        const int day = static_cast<int>(random() % 3615899u) + civil::kFirstDay;
        const double tenths = random() % 9 - 4.0; // of a second, never near one half
        const double fraction = std::max(0.0, (random() % 86400 + tenths / 10) / 86400);
        const DATE value = day >= 0 ? day + fraction : day - fraction;
        SYSTEMTIME ours = {}, theirs = {};
        COleDateTime(value).GetAsSystemTime(ours);
        ASSERT_TRUE(VariantTimeToSystemTime(value, &theirs));
        ASSERT_EQ(std::memcmp(&ours, &theirs, sizeof ours), 0) << value;
        DATE encoded = 0;
        ASSERT_TRUE(SystemTimeToVariantTime(&ours, &encoded));
        ASSERT_NEAR(COleDateTime(ours).m_dt, encoded, 1e-9) << value; // the last bit may differ
    }
}

TEST(DateTime, FormatsNamesOfTheRuntimesLocale)
{
    ASSERT_NE(std::setlocale(LC_TIME, "jpn"), nullptr);
    const CString name = COleDateTime(150, 3, 4, 13, 0, 0).Format("(%a) %H");
    std::setlocale(LC_TIME, "C");
    EXPECT_STREQ(name, "(水) 13");
    EXPECT_STREQ(COleDateTime(2009, 3, 4, 0, 0, 0).Format("(%a)"), "(Wed)");
}
#endif

TEST(DateTime, ShowsTheLocalClock)
{
    const COleDateTime now = COleDateTime::GetCurrentTime();
    std::tm fields = {};
    fields.tm_year = now.GetYear() - 1900;
    fields.tm_mon = now.GetMonth() - 1;
    fields.tm_mday = now.GetDay();
    fields.tm_hour = now.GetHour();
    fields.tm_min = now.GetMinute();
    fields.tm_sec = now.GetSecond();
    fields.tm_isdst = -1;
    EXPECT_NEAR(static_cast<double>(std::mktime(&fields)), static_cast<double>(std::time(nullptr)), 5);
    COleDateTime assigned;
    assigned = std::time(nullptr);
    EXPECT_NEAR(COleDateTime(std::time(nullptr)).m_dt - now.m_dt + (assigned.m_dt - now.m_dt), 0, 10.0 / 86400);
    EXPECT_EQ(COleDateTime(std::numeric_limits<__time64_t>::max()).GetStatus(), COleDateTime::invalid);
}
} // namespace
