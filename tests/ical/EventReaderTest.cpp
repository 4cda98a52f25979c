#include "CalendarTesting.h"

#include <algorithm>

namespace dayvane::ical {
namespace {

constexpr char kYear2026[] = "20260101";
constexpr char kYear2027[] = "20270101";

std::string ShownIn2026(const std::string& text)
{
    Document document;
    document.Load(text);
    return Shown(document.OccurrencesIn(At(kYear2026), At(kYear2027)));
}

TEST(Reader, EventsBeginAndEnd)
{
    const struct
    {
        const char* start;
        const char* end;
        const char* shown;
        const char* message; // part of it; nullptr: none
    } rows[] = {
        {"DTSTART:20261121T0930", "DTEND:20261121T1030", "20261121T0930/20261121T1030", nullptr},
        {"DTSTART:20261121T0930", "DURATION:PT90M", "20261121T0930/20261121T1100", nullptr},
        {"DTSTART:20261121T0930", "X-NOTHING:", "20261121T0930/20261121T0930", nullptr},
        {"DTSTART;VALUE=DATE:20261121", "DTEND;VALUE=DATE:20261124", "20261121/20261124*", nullptr},
        {"DTSTART:20261121", "X-NOTHING:", "20261121/20261122*", nullptr},
        {"DTSTART:20261121", "DTEND:20261121", "20261121/20261122*", nullptr},
        {"DTSTART:20261121", "DURATION:P2W", "20261121/20261205*", nullptr},
        {"DTSTART:20261121", "DTEND:20261120", "20261121/20261122*", "before DTSTART"},
        {"DTSTART:20261121T0930", "DTEND:20261121T0929", "20261121T0930/20261121T0930", "before DTSTART"},
        {"DTSTART:20261121T0930", "DTEND:20261122", "20261121T0930/20261121T0930", "does not fit"},
        {"DTSTART:20261121T0930", "DTEND:soon", "20261121T0930/20261121T0930", "\"soon\" is not a date"},
        {"DTSTART:20261121T0930", "DURATION:-PT5M", "20261121T0930/20261121T0930", "negative"},
        {"DTSTART:20261121T0930", "DURATION:5", "20261121T0930/20261121T0930", "not a duration"},
        {"DTSTART:20261121T0930", "DTSTART:20261122T0930", "20261121T0930/20261121T0930", "second DTSTART"},
        {"DTSTART:20261321", "DTEND:20261401", "", "DTSTART \"20261321\" is not a date"},
        {"SUMMARY:x", "LOCATION:y", "", "without DTSTART"},
        // A flight: shown on the clock of its start.
        {"DTSTART;TZID=Asia/Tokyo:20261121T1100", "DTEND;TZID=America/Los_Angeles:20261121T0400",
         "20261121T1100/20261121T2100", nullptr},
        {"DTSTART;TZID=No/Where:20261121T1100", "DTEND;TZID=No/Where:20261121T1200", "20261121T1100/20261121T1200",
         "the time zone \"No/Where\" is not defined"},
    };
    for (const auto& row : rows) {
        Document document;
        document.Load(CalendarWith({row.start, row.end}));
        EXPECT_EQ(Shown(document.OccurrencesIn(At(kYear2026), At(kYear2027))), row.shown) << row.start << row.end;
        EXPECT_EQ(document.Messages().size(), row.message ? 1u : 0u) << AllMessages(document);
        EXPECT_NE(AllMessages(document).find(row.message ? row.message : ""), std::string::npos)
            << AllMessages(document);
    }
}

TEST(Reader, TakesTextsAndFlags)
{
    Document document;
    document.Load(CalendarWith({"dtstart:20261121", "SUMMARY;LANGUAGE=ja:A\\, B\\nC", "LOCATION:x\xFFy",
                                "CATEGORIES:One,Two\\,Half", "CATEGORIES: Three ", "STATUS:cancelled",
                                "TRANSP:TRANSPARENT", "BEGIN:VALARM", "SUMMARY:not this", "DTSTART:20200101",
                                "END:VALARM", "DESCRIPTION:folded", " and on"}));
    const auto occurrences = document.OccurrencesIn(At(kYear2026), At(kYear2027));
    ASSERT_EQ(occurrences.size(), 1u);
    const Event& event = *occurrences[0].event;
    EXPECT_EQ(event.summary, "A, B\nC");
    EXPECT_EQ(event.location, std::string("x\xEF\xBF\xBDy"));
    EXPECT_EQ(event.description, "foldedand on");
    EXPECT_EQ(event.categories, (std::vector<std::string>{"One", "Two,Half", "Three"}));
    EXPECT_TRUE(event.hasAlarm && event.isTransparent && event.IsCancelled());
    EXPECT_EQ(AllMessages(document),
              "5: LOCATION is not valid UTF-8: its broken bytes are shown as replacement marks\n");
}

TEST(Reader, RepeatsWithExceptionsAndReplacements)
{
    const std::string series =
        Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:a", "DTSTART;TZID=Asia/Tokyo:20261102T0900", "DURATION:PT1H",
                "RRULE:FREQ=WEEKLY;UNTIL=20261130T000000Z", "EXDATE;TZID=Asia/Tokyo:20261207T090000,20261109T090000",
                "RDATE;TZID=Asia/Tokyo:20261105T1500,20261116T0900,20261105T1500", "RDATE;VALUE=DATE:20261108",
                "RDATE;VALUE=PERIOD:20261106T000000Z/PT2H,20261107T000000Z/20261107T003000Z", "END:VEVENT"});
    const std::string replacement =
        Joined({"BEGIN:VEVENT", "UID:a", "RECURRENCE-ID:20261123T000000Z", "DTSTART:20261124T1000", "END:VEVENT"});
    const std::string end = "END:VCALENDAR\r\n";
    const std::string unreplaced =
        "20261102T0900/20261102T1000 20261105T1500/20261105T1600 "
        "20261106T0900/20261106T1100 20261107T0900/20261107T0930 20261108T0900/20261108T1000 "
        "20261116T0900/20261116T1000 ";
    EXPECT_EQ(ShownIn2026(series + end), unreplaced + "20261123T0900/20261123T1000 20261130T0900/20261130T1000");
    EXPECT_EQ(ShownIn2026(series + replacement + end),
              unreplaced + "20261124T1000/20261124T1000 20261130T0900/20261130T1000");
    // In another calendar of the file the same UID is another event.
    EXPECT_EQ(ShownIn2026(series + end + "BEGIN:VCALENDAR\r\n" + replacement + end),
              unreplaced + "20261123T0900/20261123T1000 20261124T1000/20261124T1000 20261130T0900/20261130T1000");
    EXPECT_EQ(ShownIn2026(CalendarWith({"DTSTART:20261230", "RRULE:FREQ=DAILY;UNTIL=20270301", "EXDATE:20261231"})),
              "20261230/20261231*");
    EXPECT_EQ(ShownIn2026(CalendarWith({"DTSTART:20261230T0900", "RRULE:FREQ=DAILY;UNTIL=20261231"})),
              "20261230T0900/20261230T0900 20261231T0900/20261231T0900");
    const struct
    {
        const char* rule;
        const char* shown;
        const char* message;
    } rows[] = {
        {"RRULE:FREQ=DAILY;BYDAY=XX", "20261230/20261231*", "RRULE: \"BYDAY=XX\" is not understood"},
        {"RRULE:FREQ=DAILY;INTERVAL=0", "20261230/20261231* 20261231/20270101*", "INTERVAL=0 is taken as 1"},
        {"RRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30;COUNT=2", "20261230/20261231*", "leads too far"},
        {"EXRULE:FREQ=DAILY", "20261230/20261231*", "EXRULE is not understood"},
    };
    for (const auto& row : rows) {
        Document document;
        document.Load(CalendarWith({"DTSTART:20261230", row.rule}));
        EXPECT_EQ(Shown(document.OccurrencesIn(At(kYear2026), At(kYear2027))), row.shown) << row.rule;
        EXPECT_NE(AllMessages(document).find(row.message), std::string::npos) << AllMessages(document);
    }
}

TEST(Reader, OccurrencesMeetTheWindow)
{
    Document document;
    document.Load(CalendarWith({"DTSTART:20261121T0900", "DTEND:20261121T1000"}));
    const struct
    {
        const char* from;
        const char* to;
        std::size_t count;
    } rows[] = {{"20261121T0800", "20261121T0900", 0},
                {"20261121T0800", "20261121T0901", 1},
                {"20261121T0959", "20261121T1200", 1},
                {"20261121T1000", "20261121T1200", 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(document.OccurrencesIn(At(row.from), At(row.to)).size(), row.count) << row.from;
    }
    document.Load(CalendarWith({"DTSTART:20240101", "DTEND:20240108", "RRULE:FREQ=MONTHLY"}));
    EXPECT_EQ(Shown(document.OccurrencesIn(At("20261107"), At("20261108"))), "20261101/20261108*");
    EXPECT_EQ(Shown(document.OccurrencesIn(At("20261108"), At("20261201"))), "");
    EXPECT_EQ(document.OccurrencesIn(At("20261107"), At("20261108"))[0].LastDay(), DayOfDate(2026, 11, 7));
}

TEST(Reader, ShowsTheClockOfTheCalendar)
{
    const auto calendar = [](const char* zoneLine) {
        return Joined({"BEGIN:VCALENDAR", zoneLine, "BEGIN:VEVENT", "DTSTART:20261121T000000Z", "END:VEVENT",
                       "BEGIN:VEVENT", "DTSTART;TZID=America/Phoenix:20261122T0930", "END:VEVENT", "BEGIN:VEVENT",
                       "DTSTART:20261124T0800", "END:VEVENT", "BEGIN:VEVENT", "DTSTART:20261125", "END:VEVENT",
                       "END:VCALENDAR"});
    };
    const std::string rest = " 20261124T0800/20261124T0800 20261125/20261126*";
    EXPECT_EQ(ShownIn2026(calendar("X-NOTHING:")), "20261121/20261121 20261122T0930/20261122T0930" + rest);
    EXPECT_EQ(ShownIn2026(calendar("X-WR-TIMEZONE:Asia/Tokyo")),
              "20261121T0900/20261121T0900 20261123T0130/20261123T0130" + rest);
    EXPECT_EQ(ShownIn2026(calendar("X-WR-TIMEZONE:No/Where")), "20261121/20261121 20261122T0930/20261122T0930" + rest);
    // The only zone that the file defines is its clock; of two none is.
    const auto zone = [](const char* id, const char* offset) {
        return Joined({"BEGIN:VTIMEZONE", id, "BEGIN:STANDARD", "DTSTART:20000101T000000", offset, "END:STANDARD"}) +
               "END:VTIMEZONE";
    };
    const std::string one = zone("TZID:One", "TZOFFSETTO:+0200");
    const std::string two = zone("TZID:Two", "TZOFFSETTO:+0300");
    EXPECT_EQ(ShownIn2026(calendar(one.c_str())), "20261121T0200/20261121T0200 20261122T1830/20261122T1830" + rest);
    EXPECT_EQ(ShownIn2026(calendar((one + "\r\n" + two).c_str())),
              "20261121/20261121 20261122T0930/20261122T0930" + rest);
}

TEST(Reader, FilesWithLostEndsHideNothing)
{
    const struct
    {
        const char* name;
        const char* text;
        const char* shown;
        const char* messages;
    } rows[] = {
        {"empty", "", "", ""},
        {"byte order mark, bare LF, no last line ending",
         "\xEF\xBB\xBF"
         "BEGIN:VCALENDAR\nBEGIN:VEVENT\nDTSTART:20260101\nEND:VEVENT\nEND:VCALENDAR",
         "20260101/20260102*", ""},
        {"bare CR", "BEGIN:VEVENT\rDTSTART:20260101\rEND:VEVENT\r", "20260101/20260102*", ""},
        {"event in event", "BEGIN:VEVENT\nDTSTART:20260101\nBEGIN:VEVENT\nDTSTART:20260102\nEND:VEVENT\n",
         "20260101/20260102* 20260102/20260103*", "1: BEGIN:VEVENT has no END\n"},
        {"alarm not closed", "BEGIN:VEVENT\nBEGIN:VALARM\nEND:VEVENT\nBEGIN:VEVENT\nDTSTART:20260101\nEND:VEVENT\n",
         "20260101/20260102*", "1: an event without DTSTART is not shown\n2: BEGIN:VALARM has no END\n"},
        {"to-do not closed", "BEGIN:VTODO\nDTSTART:20260105\nBEGIN:VEVENT\nDTSTART:20260101\nEND:VEVENT\nEND:VTODO\n",
         "20260101/20260102*",
         "1: BEGIN:VTODO has no END\n1: VTODO is kept but not shown (1 in the file, the first one here)\n"
         "6: END:VTODO has no BEGIN\n"},
        {"inside a foreign component",
         "BEGIN:X-BOX\nnot a line\nBEGIN:VEVENT\nDTSTART:20260101\n???\nEND:VEVENT\nEND:X-BOX\n", "20260101/20260102*",
         "1: X-BOX is kept but not shown (1 in the file, the first one here)\n"
         "2: \"not a line\" is not a calendar line\n5: \"???\" is not a calendar line\n"},
        {"second calendar begins", "BEGIN:VCALENDAR\nBEGIN:VEVENT\nDTSTART:20260101\nBEGIN:VCALENDAR\n",
         "20260101/20260102*",
         "1: BEGIN:VCALENDAR has no END\n2: BEGIN:VEVENT has no END\n4: BEGIN:VCALENDAR has no END\n"},
        {"UTF-16",
         "\xFF\xFE"
         "B",
         "", "1: the file is in UTF-16, which calendar files never are: it is not read\n"},
    };
    for (const auto& row : rows) {
        Document document;
        document.Load(row.text);
        EXPECT_EQ(Shown(document.OccurrencesIn(At(kYear2026), At(kYear2027))), row.shown) << row.name;
        EXPECT_EQ(AllMessages(document), row.messages) << row.name;
        EXPECT_EQ(document.Save(), row.text) << row.name;
    }
}

TEST(Reader, MessagesAreBounded)
{
    std::string text;
    for (int i = 0; i < 3000; ++i) {
        text += "rubbish\n";
    }
    Document document;
    document.Load(text);
    ASSERT_EQ(document.Messages().size(), MessageLog::kMaxMessages + 1);
    EXPECT_EQ(document.Messages().back().text, "and 2000 more");
}

} // namespace
} // namespace dayvane::ical
