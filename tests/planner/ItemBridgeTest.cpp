// What stands between the calendar document and the controls: times both ways, texts, colours, busy days, arguments.
#include "planner/BusyDays.h"
#include "planner/CommandLine.h"
#include "planner/ItemBridge.h"
#include "tests/ical/CalendarTesting.h"

#include <array>
#include <map>

namespace planner {
namespace {

EventTimes Times(std::string_view start, std::string_view end, bool isAllDay)
{
    return {At(start), At(end), isAllDay};
}

Occurrence OccurrenceOf(const EventTimes& times)
{
    auto event = std::make_shared<Event>();
    event->summary = "first\nsecond";
    Occurrence occurrence;
    occurrence.times = times;
    occurrence.event = event;
    return occurrence;
}

std::string TextOf(const COleDateTime& date)
{
    return date.GetStatus() == COleDateTime::valid ? LPCTSTR(date.Format("%Y%m%dT%H%M%S")) : "none";
}

TEST(ItemBridge, ShowsTheLastMomentAndFindsTheSameTimesAgain)
{
    struct
    {
        const char *start, *end;
        bool isAllDay;
        const char *shownStart, *shownEnd;
    } const cases[] = {
        // exclusive bounds                       shown, the last moment included
        {"20260401T0930", "20260401T1030", false, "20260401T093000", "20260401T103000"},
        {"20260401T2200", "20260402", false, "20260401T220000", "20260401T235959"},
        {"20260401", "20260402", true, "20260401T000000", "20260401T000000"},
        {"20260401", "20260404", true, "20260401T000000", "20260403T000000"},
        {"20260401T0930", "20260401T0930", false, "20260401T093000", "20260401T093000"},
        {"20260401", "20260401", false, "20260401T000000", "20260401T000000"},
        {"18981231T2330", "18990101T0030", false, "18981231T233000", "18990101T003000"},
        {"99991231", "99991231T2359", true, "99991231T000000", "99991231T000000"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.start) + "/" + each.end);
        EventTimes times = Times(each.start, each.end, each.isAllDay);
        const tagCC_ITEM item = ItemOf(OccurrenceOf(times));
        EXPECT_EQ(TextOf(item.dtStart), each.shownStart);
        EXPECT_EQ(TextOf(item.dtEnd), each.shownEnd);
        EXPECT_EQ(item.nFullday, each.isAllDay ? 1 : 0);
        EXPECT_STREQ(item.strText, "first second");
        EXPECT_TRUE(TimesAfterMove(times, item) == times);
    }
}

TEST(ItemBridge, ColoursComeFromThePalette)
{
    std::map<COLORREF, std::array<int, 3>> found; // back: shade, outline, text
    Event event;
    for (int i = 0; i < 200; ++i) {
        event.categories = {std::to_string(i)};
        const ItemColors& colors = ColorsOf(event);
        found[colors.back] = {int(colors.shade), int(colors.outline), int(colors.text)};
    }
    const std::map<COLORREF, std::array<int, 3>> palette = {
        // blue, green, red: backwards
        {0xFBEADC, {0xF3D1B4, 0xCB8F5A, 0x5C3617}}, {0xE0F2DD, {0xB9DDB2, 0x6BA55B, 0x27451C}},
        {0xD3EBFD, {0x98CEF8, 0x3F92D4, 0x0A3A5E}}, {0xE4DFF9, {0xC0B4EF, 0x806AC9, 0x2C1A61}},
        {0xF6E1E8, {0xEABCCB, 0xC2728A, 0x5F2437}}, {0xF1F1D9, {0xDBDAA9, 0xA29F4A, 0x47450F}},
        {0xCFF2F7, {0x8CDAE6, 0x42A1B3, 0x0C434C}}, {0xEEEAE9, {0xD6CDC9, 0x9E8E86, 0x40342E}},
    };
    EXPECT_EQ(found, palette);
    const COLORREF ofCalendars[] = {0xFBEADC, 0xFBEADC, 0xE0F2DD}; // blue for none and for the first one, green
    for (int i = 0; i < 3; ++i) {
        event.categories.clear();
        event.calendar = i;
        EXPECT_EQ(ColorsOf(event).back, ofCalendars[i]) << i;
    }
    EXPECT_EQ(ColorsOf(event, 0).back, 0xFBEADCu) << "chosen, whatever the calendar";
    EXPECT_EQ(PaletteColors(1).back, 0xE0F2DDu);
    EXPECT_EQ(PaletteColors(-1).back, 0xEEEAE9u) << "grey";
    EXPECT_EQ(PaletteColors(8).back, 0xEEEAE9u);
}

TEST(ItemBridge, TakesAMoveOverAndKeepsWhatDidNotChange)
{
    struct
    {
        const char *start, *end;
        bool isAllDay;
        const char *movedStart, *movedEnd, *start2, *end2;
    } const cases[] = {
        // before                                 shown after the move             after
        {"20260401T0930", "20260401T1030", false, "20260402T0930", "20260402T1030", "20260402T0930", "20260402T1030"},
        {"20260401T0930", "20260401T1030", false, "20260401T0930", "20260401T1200", "20260401T0930", "20260401T1200"},
        {"20260401T2200", "20260402", false, "20260401T2100", "20260401T235959", "20260401T2100", "20260402"},
        {"20260401T2200", "20260402", false, "20260401T2200", "20260401T2330", "20260401T2200", "20260401T2330"},
        {"20260401T2200", "20260401T2300", false, "20260401T2200", "20260401T235959", "20260401T2200", "20260402"},
        {"20260401", "20260404", true, "20260405", "20260407", "20260405", "20260408"},
        {"20260401", "20260404", true, "20260401", "20260404", "20260401", "20260405"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.start) + " moved to " + each.movedStart + "/" + each.movedEnd);
        tagCC_ITEM item;
        item.dtStart = DateOfLocal(At(each.movedStart));
        item.dtEnd = DateOfLocal(At(each.movedEnd));
        const EventTimes after = TimesAfterMove(Times(each.start, each.end, each.isAllDay), item);
        EXPECT_EQ(Shown(after.start), Shown(At(each.start2)));
        EXPECT_EQ(Shown(after.end), Shown(At(each.end2)));
        EXPECT_EQ(after.isAllDay, each.isAllDay);
    }
}

TEST(ItemBridge, NewItemsCoverTheSelection)
{
    struct
    {
        const char *begin, *end;
        bool wholeDays;
        const char *start, *exclusiveEnd;
        bool isAllDay;
    } const cases[] = {
        {"20260401", "20260401", true, "20260401", "20260402", true},
        {"20260401T0900", "20260403T0900", true, "20260401", "20260404", true},
        {"20260401", "20260402T235959", false, "20260401", "20260403", true},
        {"20260401T0900", "20260401T0959", false, "20260401T0900", "20260401T0959", false},
        {"20260401T0900", "20260401T095959", false, "20260401T0900", "20260401T1000", false},
        {"20260401T2300", "20260401T235959", false, "20260401T2300", "20260402", false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.begin) + " to " + each.end);
        const EventTimes times =
            TimesOfSelection(DateOfLocal(At(each.begin)), DateOfLocal(At(each.end)), each.wholeDays);
        EXPECT_EQ(Shown(times.start), Shown(At(each.start)));
        EXPECT_EQ(Shown(times.end), Shown(At(each.exclusiveEnd)));
        EXPECT_EQ(times.isAllDay, each.isAllDay);
    }
    for (const LocalTime outside : {kEarliestTime - 1, kEndOfTime}) {
        EXPECT_EQ(DateOfLocal(outside).GetStatus(), COleDateTime::invalid);
    }
}

TEST(ItemBridge, ShowsTheStateOfAnEvent)
{
    Document document;
    document.Load(
        "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:a\r\nDTSTART:20260401T090000\r\nDTEND:20260402T100000\r\n"
        "RRULE:FREQ=DAILY;COUNT=2\r\nSTATUS:CANCELLED\r\nLOCATION:Room\\n2\r\nDESCRIPTION:Bring it.\\nAll of it.\r\n"
        "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-PT5M\r\nEND:VALARM\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:b\r\nDTSTART;VALUE=DATE:20260410\r\nSUMMARY:Trip\r\nEND:VEVENT\r\n"
        "END:VCALENDAR\r\n");
    const auto shown = document.OccurrencesIn(At("20260401"), At("20260501"));
    ASSERT_EQ(shown.size(), 3u);
    const tagCC_ITEM item = ItemOf(shown[0]);
    EXPECT_TRUE(item.bAlarm && item.bRecurrent && item.bMovable);
    EXPECT_NE(item.nReserved, 0); // struck out
    EXPECT_STREQ(item.strText, "(no title)");
    EXPECT_EQ(DetailsOf(shown[0]), "2026-04-01 9:00 - 2026-04-02 10:00   (no title)   @ Room 2");
    const tagCC_ITEM trip = ItemOf(shown[2]);
    EXPECT_FALSE(trip.bAlarm || trip.bRecurrent);
    EXPECT_EQ(trip.nReserved, 0);
    EXPECT_EQ(DetailsOf(shown[2]), "2026-04-10   Trip");
    EXPECT_EQ(TipOf(shown[0]), "(no title)\n2026-04-01 9:00 - 2026-04-02 10:00\n@ Room 2\nBring it.\nAll of it.");
}

TEST(ItemBridge, TimeScaleSuitsNearlyAllItemsInView)
{
    struct
    {
        std::vector<const char*> starts; // of items of 30 minutes
        int rowsPerHour;
    } const cases[] = {
        {{}, 2},
        {{"20260401T0900", "20260401T0930"}, 2},
        {{"20260401T0900", "20260401T0915"}, 4},
        {{"20260401T0900", "20260401T0910"}, 6},
        {{"20260401T0907"}, 6},                                                             // none fits
        {{"20260401T09", "20260401T10", "20260401T11", "20260401T12", "20260401T0910"}, 2}, // one of five
        {{"20260401T0900", "20260331T0910", "20260402T0910"}, 2},                           // out of view
    };
    for (const auto& each : cases) {
        std::vector<Occurrence> occurrences;
        for (std::string start : each.starts) {
            start += start.size() < 13 ? "00" : "";
            occurrences.push_back(OccurrenceOf({At(start), At(start) + 30 * kMinuteSeconds, false}));
        }
        EXPECT_EQ(FittingTimeScale(occurrences, At("20260401"), At("20260402"), {2, 4, 6}), each.rowsPerHour)
            << (each.starts.empty() ? "no item" : each.starts.back());
    }
}

TEST(BusyDays, KnowsEachDayOfEveryMonthAnItemTouches)
{
    Document document;
    document.Load(CalendarWith({"UID:a", "DTSTART;VALUE=DATE:20260530", "DTEND;VALUE=DATE:20260602"}));
    BusyDays busy;
    std::string days;
    for (DayNumber day = DayOfDate(2026, 5, 28); day <= DayOfDate(2026, 6, 3); ++day) {
        days += busy.IsBusy(document, day) ? 'x' : '.';
    }
    EXPECT_EQ(days, "..xxx..");
    document.Load("");
    EXPECT_TRUE(busy.IsBusy(document, DayOfDate(2026, 6, 1))) << "kept until notified";
    busy.Forget();
    EXPECT_FALSE(busy.IsBusy(document, DayOfDate(2026, 6, 1)));
}

TEST(CommandLine, TakesOptionsAndReportsWhatItDoesNotUnderstand)
{
    const CommandLine line = ParseCommandLine({"--view", "week", "a b.ics", "--date", "2016-02-29", "--size", "800x600",
                                               "--scale", "150", "--shot", "out.bmp"});
    EXPECT_EQ(line.problem, "");
    EXPECT_EQ(line.file, "a b.ics");
    EXPECT_EQ(line.view, "week");
    EXPECT_EQ(line.shot, "out.bmp");
    ASSERT_TRUE(line.date && line.size);
    EXPECT_EQ(line.date->month * 100 + line.date->day, 229);
    EXPECT_EQ(line.size->width + line.size->height, 1400);
    EXPECT_EQ(line.scale, 150);

    const std::vector<std::string> wrong[] = {{"--date", "2017-02-29"}, {"--date", "2017-02-2x"}, {"--date"},
                                              {"--size", "800"},        {"--size", "-5x600"},     {"--view", ""},
                                              {"--colour", "red"},      {"one.ics", "two.ics"},   {"--scale", "150x"},
                                              {"--scale", "2"}};
    for (const auto& arguments : wrong) {
        const CommandLine bad = ParseCommandLine(arguments);
        EXPECT_NE(bad.problem, "") << arguments.front();
        EXPECT_FALSE(bad.date || bad.size) << arguments.front();
    }
}

} // namespace
} // namespace planner
