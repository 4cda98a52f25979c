// Words and patterns of dates: the presets, what the patterns make of a date, pictures of the system.
#include "core/CalendarTexts.h"
#include "views/daygrid/DayLook.h"
#include "views/timegrid/TimeGridLook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace dayvane;

namespace {

const COleDateTime kAfternoon(2026, 4, 5, 15, 7, 0); // a Sunday

std::u16string Text(const CalendarTexts& texts, const std::u16string& pattern)
{
    return DateText(texts, pattern, kAfternoon);
}

TextSettings With(const CalendarTexts& texts)
{
    return {kUtf8CodePage, std::make_shared<const CalendarTexts>(texts)};
}

} // namespace

TEST(CalendarTexts, FlagsOfPatterns)
{
    const CalendarTexts texts = CalendarTexts::English();
    const struct
    {
        const char16_t *pattern, *text;
    } rows[] = {
        {u"%Y-%m-%d %H:%M", u"2026-04-05 15:07"},
        {u"%y %#m/%#d %#H %I %#I%p", u"26 4/5 15 03 3PM"},
        {u"%A %a %B %b", u"Sunday Sun April Apr"},
        {u"100%% %q % %", u"100% %q % %"}, // what is no flag stands for itself
        {u"%#", u"%#"},
        {u"", u""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Text(texts, row.pattern), row.text);
    }
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    EXPECT_EQ(DateText(texts, u"%Y", none), u"");
    EXPECT_EQ(DateText(texts, u"%#Y %Y %b", COleDateTime(150, 1, 1, 0, 30, 0)), u"150 0150 Jan");
    EXPECT_EQ(DateText(texts, u"%#I %p", COleDateTime(2026, 1, 1, 0, 30, 0)), u"12 AM");
}

TEST(CalendarTexts, PresetsInTheViews)
{
    const CalendarTexts required = CalendarTexts::Required();
    const CalendarTexts japanese = CalendarTexts::Japanese();
    const CalendarTexts english = CalendarTexts::English();
    EXPECT_EQ(Text(required, required.month), u"April, 2026") << "the C runtime's name";
    EXPECT_EQ(Text(japanese, japanese.month), u"2026年4月");
    EXPECT_EQ(DateText(japanese, u"%B%b", COleDateTime(2026, 12, 1, 0, 0, 0)), u"12月12月");
    EXPECT_EQ(Text(english, english.month), u"April 2026");
    EXPECT_EQ(Text(english, english.cellMonth), u"Apr");

    const COleDateTime second(2027, 1, 3, 0, 0, 0);
    EXPECT_EQ(CaptionOfDays(kAfternoon, COleDateTime(2026, 4, 9, 0, 0, 0), With(english)).longDate,
              u"     5 April - 9 April 2026");
    EXPECT_EQ(CaptionOfDays(kAfternoon, COleDateTime(2026, 4, 9, 0, 0, 0), With(japanese)).longDate,
              u"     2026年4月5日 - 4月9日");
    EXPECT_EQ(CaptionOfDays(kAfternoon, second, With(english)).longDate, u"     5 April 2026 - 3 January 2027");
    EXPECT_EQ(HeaderOfDay(ShownDay::Of(kAfternoon, nullptr), true, u"", With(english)).longDate, u"Sun 5 Apr");
    EXPECT_EQ(YearBarText(kAfternoon, COleDateTime(2026, 4, 9, 0, 0, 0), "x", With(japanese)), u"4/5-9 x");
    EXPECT_EQ(YearBarText(kAfternoon, COleDateTime(2026, 4, 9, 0, 0, 0), "x", With(english)), u"5 Apr-9 Apr x");

    CalendarTexts halves = japanese;
    halves.time = u"%p%#I:%M";
    tagCALENDAR_ITEM item;
    item.dtStart = item.dtEnd = kAfternoon;
    item.strText = "x";
    EXPECT_EQ(BarText(item, false, 8, With(halves)), u"午後3:07-午後3:07 x");
    EXPECT_EQ(MoreText(english, 12), u"+12");
}

TEST(CalendarTexts, NamesOfDaysInEnglish)
{
    const std::u16string names = u"昭和の日 創立記念日"; // one that has an English name, one of a host
    EXPECT_EQ(DayNamesText(CalendarTexts::Japanese(), names), names);
    EXPECT_EQ(DayNamesText(CalendarTexts::English(), names), u"Showa Day 創立記念日");
    EXPECT_EQ(DayNamesText(CalendarTexts::English(), u""), u"");
}

TEST(CalendarTexts, PicturesOfTheSystem)
{
    const struct
    {
        const char16_t *picture, *pattern;
    } dates[] = {
        {u"dddd, MMMM d, yyyy", u"%A, %B %#d, %Y"},     {u"yyyy'年'M'月'd'日'", u"%Y年%#m月%#d日"},
        {u"d' de 'MMMM' de 'yyyy", u"%#d de %B de %Y"}, {u"dd/MM/yy", u"%d/%m/%y"},
        {u"ddd d MMM 'open", u"%a %#d %b open"},
    };
    for (const auto& row : dates) {
        EXPECT_EQ(PatternOfPicture(row.picture), row.pattern);
    }
    EXPECT_EQ(PatternOfTimePicture(u"h:mm:ss tt"), u"%#I:%M %p");
    EXPECT_EQ(PatternOfTimePicture(u"HH:mm:ss"), u"%H:%M");
    EXPECT_EQ(PatternOfTimePicture(u"H.mm.ss"), u"%#H.%M");
    EXPECT_EQ(PatternOfTimePicture(u"ss HH"), u" %H");
}

#ifdef _WIN32
TEST(CalendarTexts, LocalesOfTheSystem)
{
    const struct
    {
        LCID lcid;
        int firstDay;
        std::u16string month, weekday, time, monthDay;
        bool englishDayNames;
        std::u16string today, span;
    } rows[] = {
        {0x0409, 1, u"April", u"Sunday", u"3:07 PM", u"4/5", true, u"Today: Apr 5, 2026", u"April 5"},
        {0x0407, 2, u"April", u"Sonntag", u"15:07", u"5.4.", true, u"Today: 5. Apr 2026", u"5. April"},
        {0x040C, 2, u"avril", u"dimanche", u"15:07", u"5/4", true, u"Today: 5 avr. 2026", u"5 avril"},
        {0x0411, 1, u"4月", u"日曜日", u"15:07", u"4/5", false, u"今日: 2026/4/5", u"4月5日"},
        {0x0412, 1, u"4\xC6D4", u"\xC77C\xC694\xC77C", u"PM 3:07", u"4. 5.", true, u"Today: 2026\xB144 4\xC6D4 5\xC77C",
         u"4\xC6D4 5\xC77C"},
        {0x0804, 2, u"四月", u"星期日", u"15:07", u"4/5", true, u"Today: 2026年4月5日", u"4月5日"},
    };
    for (const auto& row : rows) {
        const CalendarTexts texts = CalendarTexts::FromLocale(row.lcid);
        EXPECT_EQ(texts.firstDayOfWeek, row.firstDay) << row.lcid;
        EXPECT_EQ(Text(texts, u"%B"), row.month) << row.lcid;
        EXPECT_EQ(Text(texts, u"%A"), row.weekday) << row.lcid;
        EXPECT_EQ(Text(texts, texts.time), row.time) << row.lcid;
        std::u16string monthDay = Text(texts, texts.monthDay);
        monthDay.erase(std::remove(monthDay.begin(), monthDay.end(), u'0'), monthDay.end()); // systems differ in zeros
        EXPECT_EQ(monthDay, row.monthDay) << row.lcid;
        EXPECT_EQ(texts.englishDayNames, row.englishDayNames) << row.lcid;
        EXPECT_EQ(Text(texts, texts.today), row.today) << row.lcid;
        EXPECT_EQ(Text(texts, texts.spanDate), row.span) << row.lcid;
        const std::set<std::u16string> names(texts.cellWeekdays.begin(), texts.cellWeekdays.end());
        EXPECT_EQ(names.size(), 7u) << "days are told apart where there is little room";
    }
}
#endif
