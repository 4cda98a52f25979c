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
        {"DTSTART:20261121", "DURATION:PT1H", "20261121/20261122*", nullptr},
        {"DTSTART:20261121", "DURATION:PT25H", "20261121/20261123*", nullptr},
        {"DTSTART:20261121", "DURATION:PT24H", "20261121/20261122*", nullptr},
        {"DTSTART;;VALUE=DATE:20261121", "X-NOTHING:", "20261121/20261122*", "DTSTART has an empty parameter"},
        {"DTSTART:20261121", "SUMMARY;:x", "20261121/20261122*", "SUMMARY has an empty parameter"},
        {"DTSTART:20261121", "DTEND:20261120", "20261121/20261122*", "before DTSTART"},
        {"DTSTART:20261121T0930", "DTEND:20261121T0929", "20261121T0930/20261121T0930", "before DTSTART"},
        {"DTSTART:20261121T0930", "DTEND:20261122", "20261121T0930/20261121T0930", "does not fit"},
        {"DTSTART:20261121T0930", "DTEND:soon", "20261121T0930/20261121T0930", "\"soon\" is not a date"},
        {"DTSTART:20261121T0930", "DURATION:-PT5M", "20261121T0930/20261121T0930", "negative"},
        {"DTSTART:20261121T0930", "DURATION:5", "20261121T0930/20261121T0930", "not a duration"},
        {"DTSTART:20261121T0930", "DTSTART:20261122T0930", "20261121T0930/20261121T0930", "second DTSTART"},
        {"DTSTART:20261321", "DTEND:20261401", "", "DTSTART \"20261321\" is not a date"},
        {"SUMMARY:x", "LOCATION:y", "", "without DTSTART"},
        // An hour that comes twice: the end means the second one.
        {"DTSTART;TZID=Europe/Berlin:20261025T0245", "DTEND;TZID=Europe/Berlin:20261025T0215",
         "20261025T0245/20261025T0245", nullptr},
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
                "RDATE;VALUE=PERIOD:20261106T000000Z/PT2H,20261107T000000Z/20261107T003000Z,20261106T000000Z/PT3H",
                "END:VEVENT"});
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
    // Exceptions are the series' own.
    EXPECT_EQ(ShownIn2026(series + replacement.substr(0, replacement.find("END:VEVENT")) + "EXDATE:20261124T1000\r\n" +
                          "END:VEVENT\r\n" + end),
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
        {"EXRULE:FREQ=XX", "20261230/20261231*", "EXRULE: \"FREQ=XX\" is not understood"},
    };
    for (const auto& row : rows) {
        Document document;
        document.Load(CalendarWith({"DTSTART:20261230", row.rule}));
        EXPECT_EQ(Shown(document.OccurrencesIn(At(kYear2026), At(kYear2027))), row.shown) << row.rule;
        EXPECT_NE(AllMessages(document).find(row.message), std::string::npos) << AllMessages(document);
    }
}

// What a series leaves out, by whatever means.
TEST(Reader, ExceptionsOfEveryKindHide)
{
    const struct
    {
        const char* name;
        std::vector<const char*> lines;
        const char* shown;
    } rows[] = {
        {"EXDATE in UTC of a zoned series",
         {"DTSTART;TZID=Asia/Tokyo:20261102T0900", "RRULE:FREQ=DAILY;COUNT=2", "EXDATE:20261103T000000Z"},
         "20261102T0900/20261102T0900"},
        {"EXDATE of a single event", {"DTSTART:20261102T0900", "EXDATE:20261102T0900"}, ""},
        {"EXDATE elsewhere", {"DTSTART:20261102T0900", "EXDATE:20261103T0900"}, "20261102T0900/20261102T0900"},
        {"EXRULE",
         {"DTSTART:20261102T0900", "RRULE:FREQ=DAILY;COUNT=6", "EXRULE:FREQ=WEEKLY;BYDAY=TU,TH,SA"},
         "20261102T0900/20261102T0900 20261104T0900/20261104T0900 20261106T0900/20261106T0900"},
        {"EXRULE that counts", // two of its own, the start is none of them
         {"DTSTART:20261102", "RRULE:FREQ=DAILY;COUNT=4", "EXRULE:FREQ=DAILY;BYDAY=TU,WE,TH;COUNT=2"},
         "20261102/20261103* 20261105/20261106*"},
        {"clock parts of whole days",
         {"DTSTART:20261102", "RRULE:FREQ=DAILY;COUNT=2;BYHOUR=1,2;BYMINUTE=3,4;BYSECOND=5,6"},
         "20261102/20261103* 20261103/20261104*"},
        {"several times a day",
         {"DTSTART:20261102T0900", "RRULE:FREQ=DAILY;COUNT=3;BYHOUR=9,17;BYMINUTE=0"},
         "20261102T0900/20261102T0900 20261102T1700/20261102T1700 20261103T0900/20261103T0900"},
        {"hours over the night that is longer",
         {"DTSTART;TZID=Europe/Berlin:20261025T000000Z", "RRULE:FREQ=HOURLY;INTERVAL=12;COUNT=2"},
         "20261025/20261025 20261025T1200/20261025T1200"},
    };
    for (const auto& row : rows) {
        std::string lines;
        for (const char* line : row.lines) {
            lines += std::string(line) + "\r\n";
        }
        EXPECT_EQ(ShownIn2026("BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\n" + lines + "END:VEVENT\r\nEND:VCALENDAR\r\n"),
                  row.shown)
            << row.name;
    }
    Document document;
    document.Load(CalendarWith({"DTSTART:20261102", "RRULE:FREQ=HOURLY"}));
    EXPECT_NE(AllMessages(document).find("whole days cannot repeat within a day"), std::string::npos);
    document.Load(CalendarWith({"DTSTART:20261102", "RRULE:FREQ=DAILY;COUNT=4", "EXRULE:FREQ=DAILY;COUNT=2"}));
    EXPECT_EQ(AllMessages(document), "");
}

TEST(Reader, ReplacementsFollowSequenceAndRange)
{
    const auto calendar = [](const std::string& replacements) {
        return Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:a", "DTSTART;TZID=Asia/Tokyo:20261102T0900",
                       "DURATION:PT1H", "RRULE:FREQ=DAILY;COUNT=4", "EXDATE;TZID=Asia/Tokyo:20261105T0900",
                       "END:VEVENT"}) +
               replacements + "END:VCALENDAR\r\n";
    };
    const auto replacement = [](const char* id, const char* start, const char* more) {
        return Joined({"BEGIN:VEVENT", "UID:a", id, start, "DURATION:PT30M", more, "END:VEVENT"});
    };
    // The higher SEQUENCE counts wherever it stands; of two alike the later one.
    const std::string high = replacement("RECURRENCE-ID:20261103T000000Z", "DTSTART:20261110T0900", "SEQUENCE:10");
    const std::string low =
        replacement("RECURRENCE-ID;TZID=Asia/Tokyo:20261103T0900", "DTSTART:20261111T0900", "SEQUENCE:9");
    const std::string around = "20261102T0900/20261102T1000 20261104T0900/20261104T1000 ";
    EXPECT_EQ(ShownIn2026(calendar(high + low)), around + "20261110T0900/20261110T0930");
    EXPECT_EQ(ShownIn2026(calendar(low + high)), around + "20261110T0900/20261110T0930");
    EXPECT_EQ(ShownIn2026(calendar(high + high + low)), around + "20261110T0900/20261110T0930");
    Document document;
    document.Load(calendar(high + low));
    const auto shown = document.OccurrencesIn(At(kYear2026), At(kYear2027));
    ASSERT_TRUE(document.Delete(shown.back().id, Scope::ThisOccurrence).isDone);
    Document again;
    again.Load(document.Save());
    EXPECT_EQ(Shown(again.OccurrencesIn(At(kYear2026), At(kYear2027))),
              "20261102T0900/20261102T1000 20261104T0900/20261104T1000");
    // This and the later ones: an hour and a day later, half as long; another one replaced, one left out.
    const std::string range = replacement("RECURRENCE-ID;RANGE=THISANDFUTURE:20261103T000000Z",
                                          "DTSTART;TZID=Asia/Tokyo:20261104T1000", "SUMMARY:later");
    EXPECT_EQ(ShownIn2026(calendar(range)),
              "20261102T0900/20261102T1000 20261104T1000/20261104T1030 20261105T1000/20261105T1030");
    document.Load(calendar(range));
    const auto following = document.OccurrencesIn(At("20261105"), At("20261106"));
    ASSERT_EQ(following.size(), 1u);
    EXPECT_EQ(following[0].event->summary, "later");
    const EditResult moved = document.Move(following[0].id, {At("20261105T1200"), At("20261105T1230"), false});
    ASSERT_TRUE(moved.isDone) << moved.problem;
    again.Load(document.Save());
    const auto after = again.OccurrencesIn(At("20261105"), At("20261106"));
    EXPECT_EQ(Shown(after), "20261105T1200/20261105T1230");
    EXPECT_EQ(after[0].event->summary, "later");
    EXPECT_EQ(again.OccurrencesIn(At(kYear2026), At(kYear2027)).size(), 3u);
    EXPECT_FALSE(document.SetText(following[0].id, TextField::Summary, "x", Scope::ThisAndFollowing).isDone);
}

TEST(Reader, HostileRulesCostLittleAndSaySo)
{
    Document document;
    document.Load(CalendarWith({"DTSTART:20000101T000000", "RRULE:FREQ=SECONDLY;UNTIL=20991231T235959"}));
    EXPECT_NE(AllMessages(document).find("only the first 5000 occurrences"), std::string::npos);
    bool isWhole = true;
    const auto day = document.OccurrencesIn(At("20261121"), At("20261122"), &isWhole);
    EXPECT_FALSE(isWhole);
    ASSERT_EQ(day.size(), kMaxOccurrencesOfEvent);
    EXPECT_EQ(day.front().times.start, At("20261121"));
    EXPECT_EQ(document.OccurrencesIn(At("20261121"), At("20261121T0100"), &isWhole).size(), 3600u);
    EXPECT_TRUE(isWhole);
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
    // By start, longer ones first, then as they stand in the file.
    std::string texts, order;
    for (const char* end : {"DTEND:20261121T1000", "DTEND:20261121T1100", "DTEND:20261121T1000"}) {
        texts += CalendarWith({"DTSTART:20261121T0900", end});
    }
    document.Load(texts + CalendarWith({"DTSTART:20261121T0830", "DTEND:20261121T0845"}));
    for (const Occurrence& occurrence : document.OccurrencesIn(At("20261121"), At("20261122"))) {
        order += std::to_string(occurrence.id.event);
    }
    EXPECT_EQ(order, "4213");
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
        {"an END alone in a time zone", "BEGIN:VTIMEZONE\nTZID:A\nEND:STANDARD\nEND:VTIMEZONE\n", "",
         "1: VTIMEZONE \"A\" has no readable offsets\n3: END:STANDARD has no BEGIN\n"},
        {"event in event", "BEGIN:VEVENT\nDTSTART:20260101\nBEGIN:VEVENT\nDTSTART:20260102\nEND:VEVENT\n",
         "20260101/20260102* 20260102/20260103*", "1: BEGIN:VEVENT has no END\n"},
        {"alarm not closed", "BEGIN:VEVENT\nBEGIN:VALARM\nEND:VEVENT\nBEGIN:VEVENT\nDTSTART:20260101\nEND:VEVENT\n",
         "20260101/20260102*", "1: an event without DTSTART is not shown\n2: BEGIN:VALARM has no END\n"},
        {"to-do not closed", "BEGIN:VTODO\nDTSTART:20260105\nBEGIN:VEVENT\nDTSTART:20260101\nEND:VEVENT\nEND:VTODO\n",
         "20260101/20260102*",
         "1: BEGIN:VTODO has no END\n1: VTODO is kept but not shown: 1 in the file, the first one here\n"
         "6: END:VTODO has no BEGIN\n"},
        {"inside a foreign component",
         "BEGIN:X-BOX\nnot a line\nBEGIN:VEVENT\nDTSTART:20260101\n???\nEND:VEVENT\nEND:X-BOX\n", "20260101/20260102*",
         "1: X-BOX is kept but not shown: 1 in the file, the first one here\n"
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
