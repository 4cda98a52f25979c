// What a calendar answers from its layers, and the provider of the required days.
#include "calc/DayCalendar.h"

#include "calc/CodePage932.h"
#include "calc/DayAnnotation.h"
#include "calc/EnglishDayNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

namespace {
using namespace dayvane;

// Names with the numbers of their kinds, "!" for a day off, "#" and the row of a colour.
std::string Text(const DayInfo& info)
{
    std::string text;
    for (const DayName& name : info.names) {
        text += name.text + ":" + std::to_string(static_cast<int>(name.kind)) + " ";
    }
    return text + (info.isDayOff ? "!" : "") + (info.colorRow ? "#" + std::to_string(info.colorRow) : "");
}

DayLayers Only(bool DayLayers::*layer)
{
    DayLayers layers = {false, false, false, false, false, false};
    layers.*layer = true;
    return layers;
}

TEST(StandardDayProvider, SaysWhatAnnotationsSay)
{
    for (CivilDate date = {1940, 1, 1}; date.year < 2040; date = AddDays(date, 1)) {
        const DayInfo info = StandardDayProvider().InfoOf(date);
        const DayAnnotation annotation = AnnotateDay(COleDateTime(date.year, date.month, date.day, 0, 0, 0));
        CString expected = AnnotationText(annotation);
        expected.TrimLeft();
        std::string text;
        ASSERT_TRUE(CodePage932FromUtf8(NamesText(info), text));
        ASSERT_STREQ(text.c_str(), expected);
        ASSERT_EQ(info.isDayOff, annotation.isDayOff);
        ASSERT_EQ(info.colorRow, 0);
        ASSERT_EQ(!info.names.empty() && info.names.back().kind == DayKind::SolarTerm, annotation.solarTerm != nullptr);
    }
    EXPECT_EQ(Text(StandardDayProvider().InfoOf({2009, 9, 22})), u8"国民の祝日:2 !");
    EXPECT_EQ(Text(StandardDayProvider().InfoOf({2007, 2, 12})), u8"振替休日:1 !");
    EXPECT_EQ(Text(StandardDayProvider().InfoOf({2026, 12, 25})), u8"クリスマス:3 ");
    EXPECT_EQ(Text(StandardDayProvider().InfoOf({})), "");
}

TEST(DayCalendar, LayersAndLanguages)
{
    struct
    {
        CivilDate date;
        bool DayLayers::*layer; // nullptr: all
        const char* japanese;
        const char* english;
    } const cases[] = {
        {{2026, 8, 11}, nullptr, u8"山の日:0 !", "Mountain Day:0 !"},
        {{2026, 8, 11}, &DayLayers::observances, "", ""},
        {{2026, 12, 23}, nullptr, "", ""},
        {{2026, 12, 25}, nullptr, u8"クリスマス:3 ", "Christmas:3 "},
        {{2026, 12, 25}, &DayLayers::statutoryHolidays, "", ""},
        {{1984, 4, 8}, &DayLayers::observances, u8"花祭り:3 ", "Buddha's Birthday:3 "},
        {{2010, 5, 9}, &DayLayers::observances, u8"母の日:3 ", "Mother's Day:3 "},
        {{2006, 11, 23}, nullptr, u8"勤労感謝の日:0 感謝祭:3 !", "Labor Thanksgiving Day:0 Thanksgiving:3 !"},
        {{1981, 4, 19}, &DayLayers::observances, u8"イースター:3 ", "Easter:3 "}, // an exception of the older rule
        {{2026, 7, 7}, nullptr, u8"七夕:3 小暑:4 ", "Star Festival:3 Minor Heat:4 "},
        {{2026, 3, 20}, nullptr, u8"春分の日:0 彼岸の中日:5 !", "Vernal Equinox Day:0 Middle of Higan:5 !"},
        {{2026, 3, 20}, &DayLayers::solarTerms, u8"春分:4 ", "Vernal Equinox:4 "},
        {{1940, 9, 23}, nullptr, u8"秋分:4 彼岸の中日:5 ", "Autumnal Equinox:4 Middle of Higan:5 "},
        {{2021, 2, 3}, &DayLayers::solarTerms, u8"立春:4 ", "Beginning of Spring:4 "},
        {{2026, 12, 22}, &DayLayers::solarTerms, u8"冬至:4 ", "Winter Solstice:4 "},
        {{2500, 3, 20}, &DayLayers::solarTerms, "", ""},
        {{2025, 2, 2}, nullptr, u8"キャンドルマス:3 節分:5 ", "Candlemas:3 Setsubun:5 "},
        {{2025, 2, 2}, &DayLayers::observances, u8"節分:3 キャンドルマス:3 ", "Setsubun:3 Candlemas:3 "},
        {{2025, 2, 3}, &DayLayers::observances, "", ""},
        {{1599, 2, 3}, nullptr, u8"節分:3 ", "Setsubun:3 "}, // before the years of the sky
        {{2026, 5, 2}, nullptr, u8"八十八夜:5 ", "88th Night:5 "},
        {{2026, 7, 26}, &DayLayers::seasonalDays, u8"土用の丑の日:5 ", "Ox Day of Doyo:5 "},
        {{2026, 7, 24}, &DayLayers::seasonalDays, "", ""}, // a day of doyo like others
        {{}, nullptr, "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.date.year * 10000 + c.date.month * 100 + c.date.day);
        DayCalendar calendar;
        if (c.layer) {
            calendar.SetLayers(Only(c.layer));
        }
        EXPECT_EQ(Text(calendar.InfoOf(c.date)), c.japanese);
        calendar.SetLanguage(DayLanguage::English);
        EXPECT_EQ(Text(calendar.InfoOf(c.date)), c.english);
    }
}

// By the tables of the Gregorian reform, as D. Knuth, "The Art of Computer Programming", 1.3.2, has them.
TEST(DayCalendar, EastersAreThoseOfTheTables)
{
    DayCalendar calendar;
    calendar.SetLayers(Only(&DayLayers::observances));
    for (int year = 1583; year < 9000; ++year) {
        const int golden = year % 19 + 1, century = year / 100 + 1;
        const int leapsLeftOut = 3 * century / 4 - 12, moonCorrection = (8 * century + 5) / 25 - 5;
        int epact = (11 * golden + 20 + moonCorrection - leapsLeftOut) % 30;
        epact += (epact == 25 && golden > 11) || epact == 24;
        const int fullMoon = 44 - epact + (44 - epact < 21 ? 30 : 0); // in March
        const int easter = fullMoon + 7 - (5 * year / 4 - leapsLeftOut - 10 + fullMoon) % 7;
        for (const int day : {easter - 7, easter, easter + 7}) {
            const std::string names = Text(calendar.InfoOf(AddDays({year, 3, 1}, day - 1)));
            ASSERT_EQ(names.find(u8"イースター") != std::string::npos, day == easter) << year << " " << day;
        }
    }
}

TEST(DayCalendar, EveryNameHasAnEnglishOne)
{
    DayCalendar calendar;
    calendar.SetLanguage(DayLanguage::English);
    for (CivilDate date = {1948, 1, 1}; date.year < 2030; date = AddDays(date, 1)) {
        for (const DayName& name : calendar.InfoOf(date).names) {
            ASSERT_TRUE(std::all_of(name.text.begin(), name.text.end(), [](char c) { return c >= ' ' && c < 0x7F; }))
                << name.text;
        }
        for (const DayName& name : StandardDayProvider().InfoOf(date).names) {
            ASSERT_TRUE(EnglishDayName(name.text)) << name.text;
        }
    }
}

TEST(DayCalendar, HostDays)
{
    DayCalendar calendar;
    calendar.SetLayers(Only(&DayLayers::hostDays));
    EXPECT_EQ(calendar.AddHostDay({"no day", 2026, 2, 29}), 0);
    EXPECT_EQ(calendar.AddHostDay({"no day", 0, 2, 30}), 0);
    const int founding = calendar.AddHostDay({u8"創立記念日", 0, 10, 1, HostDayEffect::DayOff, 4});
    const int exam = calendar.AddHostDay({u8"試験", 2026, 10, 1});
    calendar.AddHostDay({"leap", 0, 2, 29});
    EXPECT_EQ(Text(calendar.InfoOf({2026, 10, 1})), u8"創立記念日:6 試験:6 !#4");
    EXPECT_EQ(Text(calendar.InfoOf({2027, 10, 1})), u8"創立記念日:6 !#4");
    EXPECT_EQ(Text(calendar.InfoOf({2028, 2, 29})), "leap:6 ");
    EXPECT_TRUE(calendar.RemoveHostDay(founding));
    EXPECT_FALSE(calendar.RemoveHostDay(founding));
    EXPECT_EQ(Text(calendar.InfoOf({2026, 10, 1})), u8"試験:6 ");
    EXPECT_NE(calendar.AddHostDay({"", 0, 5, 4, HostDayEffect::WorkingDay}), exam);
    calendar.SetLayers(Only(&DayLayers::statutoryHolidays));
    EXPECT_EQ(Text(calendar.InfoOf({2026, 10, 1})), "") << "host days are not asked for";

    calendar.SetLayers(DayLayers());
    EXPECT_EQ(Text(calendar.InfoOf({2026, 5, 4})), u8"みどりの日:0 ") << "a holiday on which the company works";
    calendar.ClearHostDays();
    EXPECT_EQ(Text(calendar.InfoOf({2026, 5, 4})), u8"みどりの日:0 !");
}

TEST(DayCalendar, LoadedHolidaysStandForWholeYears)
{
    DayCalendar calendar;
    calendar.SetLayers(DayLayers{true, true, false, false, false, false});
    const std::vector<CsvProblem> problems = calendar.LoadHolidays(
        "月日,名称\n2019/4/30,休日\n2019/5/1,休日（祝日扱い）\n2030/7/1,新しい日\nx\n2030/7/2,休日\n");
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].line, 5);
    EXPECT_EQ(Text(calendar.InfoOf({2019, 4, 30})), u8"国民の休日:2 !");
    EXPECT_EQ(Text(calendar.InfoOf({2019, 5, 1})), u8"天皇の即位の日:0 !");
    EXPECT_EQ(Text(calendar.InfoOf({2030, 7, 1})), u8"新しい日:0 !");
    EXPECT_EQ(Text(calendar.InfoOf({2030, 7, 2})), u8"休日:0 !");
    EXPECT_EQ(Text(calendar.InfoOf({2030, 1, 1})), "") << "the file has the year, and not this day";
    EXPECT_EQ(Text(calendar.InfoOf({2031, 1, 1})), u8"元日:0 !") << "the file lacks the year";

    calendar.LoadHolidays(u8"2031/1/1,年の始め\n2029/12/31,年の終り\n");
    calendar.LoadHolidays(u8"2030/8/1,別の日\n");
    EXPECT_EQ(Text(calendar.InfoOf({2031, 1, 1})), u8"年の始め:0 !");
    EXPECT_EQ(Text(calendar.InfoOf({2029, 12, 31})), u8"年の終り:0 !");
    EXPECT_EQ(Text(calendar.InfoOf({2030, 7, 1})), "");
    EXPECT_EQ(Text(calendar.InfoOf({2030, 8, 1})), u8"別の日:0 !");
    EXPECT_EQ(Text(calendar.InfoOf({2019, 5, 1})), u8"天皇の即位の日:0 !");
    calendar.SetLayers(Only(&DayLayers::statutoryHolidays));
    EXPECT_EQ(Text(calendar.InfoOf({2030, 1, 1})), u8"元日:0 !") << "the layer is off";
    calendar.SetLayers(DayLayers());
    calendar.ClearLoadedHolidays();
    EXPECT_EQ(Text(calendar.InfoOf({2030, 1, 1})), u8"元日:0 !");
}

TEST(DayCalendar, ThreadsMayAskTogether)
{
    const DayCalendar calendar;
    std::string texts[2];
    const auto walk = [&calendar](std::string& text) {
        for (CivilDate date = {1990, 1, 1}; date.year < 1994; date = AddDays(date, 1)) {
            text += Text(calendar.InfoOf(date));
        }
    };
    std::thread other(walk, std::ref(texts[1]));
    walk(texts[0]);
    other.join();
    EXPECT_EQ(texts[0], texts[1]);
}
} // namespace
