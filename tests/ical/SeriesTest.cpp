// Edits of a series: one occurrence, this one and the following, all of them; and lengths over changes of the clock.
#include "DocumentFixture.h"

namespace dayvane::ical {
namespace {

class SeriesTest : public DocumentFixture
{
protected:
    void OpenSeries(std::initializer_list<std::string_view> lines)
    {
        std::string text = "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:a\r\n";
        OpenText(text + Joined(lines) + "SUMMARY:x\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    }
    // What another program reads from the saved file.
    std::string ShownAgain() const
    {
        Document again;
        again.Load(m_document.Save());
        EXPECT_EQ(AllMessages(again), "");
        return Shown(again.OccurrencesIn(At("20260101"), At("20270101")));
    }
    void UndoAll()
    {
        while (m_document.CanUndo()) {
            m_document.Undo();
        }
        EXPECT_EQ(m_document.Save(), m_text);
    }
};

TEST_F(SeriesTest, ThisAndFollowingSplitsTheSeries)
{
    OpenSeries({"DTSTART;TZID=Asia/Tokyo:20261102T090000", "DURATION:PT1H", "RRULE:FREQ=WEEKLY;COUNT=5;BYDAY=MO",
                "EXDATE;TZID=Asia/Tokyo:20261109T090000,20261123T090000"});
    const OccurrenceId third = IdAt("20261116T0900");
    EditResult result = m_document.Move(third, Times("20261117T1000", "20261117T1130"), Scope::ThisAndFollowing);
    ASSERT_TRUE(result.isDone) << result.problem;
    EXPECT_EQ(Difference(), "-RRULE:FREQ=WEEKLY;COUNT=5;BYDAY=MO\r\n"
                            "-EXDATE;TZID=Asia/Tokyo:20261109T090000,20261123T090000\r\n"
                            "+RRULE:FREQ=WEEKLY;BYDAY=MO;UNTIL=20261115T235959Z\r\n"
                            "+EXDATE;TZID=Asia/Tokyo:20261109T090000,20261123T090000\r\n+SUMMARY:x\r\n+END:VEVENT\r\n"
                            "+BEGIN:VEVENT\r\n+UID:new1\r\n+DTSTART;TZID=Asia/Tokyo:20261117T100000\r\n"
                            "+DURATION:PT1H30M\r\n+RRULE:FREQ=WEEKLY;BYDAY=TU;COUNT=3\r\n"
                            "+EXDATE;TZID=Asia/Tokyo:20261124T100000\r\n");
    const std::string moved = "20261102T0900/20261102T1000 20261117T1000/20261117T1130 20261201T1000/20261201T1130";
    EXPECT_EQ(ShownAgain(), moved);
    EXPECT_EQ(Shown({*m_document.Find(result.id)}), "20261117T1000/20261117T1130");
    EXPECT_EQ(m_document.Undo().id, third);
    EXPECT_EQ(m_document.Save(), m_text);
    m_document.Redo();
    EXPECT_EQ(Shown(All()), moved);
    UndoAll();
    ASSERT_TRUE(m_document.SetText(third, TextField::Location, "here", Scope::ThisAndFollowing).isDone);
    std::string places;
    for (const Occurrence& occurrence : All()) {
        places += occurrence.event->location + ";";
    }
    EXPECT_EQ(places, ";here;here;");
    UndoAll();
    ASSERT_TRUE(m_document.Delete(third, Scope::ThisAndFollowing).isDone);
    EXPECT_EQ(ShownAgain(), "20261102T0900/20261102T1000");
    UndoAll();
    // From the first one on it is the whole series.
    ASSERT_TRUE(m_document.Delete(IdAt("20261102T0900"), Scope::ThisAndFollowing).isDone);
    EXPECT_EQ(m_document.Save(), "BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n");
}

TEST_F(SeriesTest, SeriesOfDaysAndOfDatesEndBeforeTheFollowing)
{
    OpenSeries({"DTSTART;VALUE=DATE:20261102", "RRULE:FREQ=DAILY;COUNT=4"});
    ASSERT_TRUE(m_document.Delete(IdAt("20261104"), Scope::ThisAndFollowing).isDone);
    EXPECT_EQ(Difference(), "-RRULE:FREQ=DAILY;COUNT=4\r\n+RRULE:FREQ=DAILY;UNTIL=20261103\r\n");
    EXPECT_EQ(ShownAgain(), "20261102/20261103* 20261103/20261104*");
    OpenSeries({"DTSTART:20261102T0900", "RDATE:20261103T0900,20261105T0900,20261107T0900"});
    ASSERT_TRUE(m_document.Delete(IdAt("20261105T0900"), Scope::ThisAndFollowing).isDone);
    EXPECT_EQ(Difference(), "-RDATE:20261103T0900,20261105T0900,20261107T0900\r\n+RDATE:20261103T0900\r\n");
    EXPECT_EQ(ShownAgain(), "20261102T0900/20261102T0900 20261103T0900/20261103T0900");
}

// The rules of series that are moved as a whole by an occurrence from its start to another time.
TEST_F(SeriesTest, MovedRulesGoAlong)
{
    const struct
    {
        const char* name;
        const char* start;
        const char* rule;
        const char* from; // the occurrence that is moved
        const char* to;   // nullptr: refused
        const char* newRule;
        const char* shown; // the first starts
    } rows[] = {
        {"time of day", "20260105T0900", "FREQ=WEEKLY;BYDAY=MO;COUNT=2", "20260112T0900", "20260112T1000",
         "FREQ=WEEKLY;BYDAY=MO;COUNT=2", "20260105T1000 20260112T1000"},
        {"weekday", "20260105T0900", "FREQ=WEEKLY;BYDAY=MO,SU;COUNT=3", "20260105T0900", "20260106T0900",
         "FREQ=WEEKLY;BYDAY=MO,TU;COUNT=3", "20260106T0900 20260112T0900 20260113T0900"},
        {"weekdays every second week, out of the week", "20260105T0900", "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,SU",
         "20260105T0900", nullptr, "", ""},
        {"weekdays every second week", "20260105T0900", "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,WE;COUNT=3", "20260105T0900",
         "20260106T0900", "FREQ=WEEKLY;INTERVAL=2;BYDAY=TU,TH;COUNT=3", "20260106T0900 20260108T0900 20260120T0900"},
        {"a Sunday before its week, every second week", "20260105T0900", "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO;COUNT=2",
         "20260119T0900", "20260118T0900", "FREQ=WEEKLY;INTERVAL=2;BYDAY=SU;COUNT=2", "20260104T0900 20260118T0900"},
        {"day of the month", "20260115T0900", "FREQ=MONTHLY;BYMONTHDAY=15;COUNT=2", "20260215T0900", "20260217T0900",
         "FREQ=MONTHLY;BYMONTHDAY=17;COUNT=2", "20260117T0900 20260217T0900"},
        {"day from the end of the month", "20260131T0900", "FREQ=MONTHLY;BYMONTHDAY=-1;COUNT=2", "20260131T0900",
         "20260129T0900", "FREQ=MONTHLY;BYMONTHDAY=-3;COUNT=2", "20260129T0900 20260226T0900"},
        {"second Tuesday", "20260113T0900", "FREQ=MONTHLY;BYDAY=2TU;COUNT=2", "20260113T0900", "20260114T0900",
         "FREQ=MONTHLY;BYDAY=2WE;COUNT=2", "20260114T0900 20260211T0900"},
        {"second Tuesday that is no second Wednesday", "20260113T0900", "FREQ=MONTHLY;BYDAY=2TU;COUNT=4",
         "20260414T0900", nullptr, "", ""},
        {"month of the year", "20260331T0900", "FREQ=YEARLY;BYMONTH=3;BYMONTHDAY=31;COUNT=2", "20260331T0900",
         "20260401T0900", "FREQ=YEARLY;BYMONTH=4;BYMONTHDAY=1;COUNT=2", "20260401T0900"},
        {"two days of a month", "20260110T0900", "FREQ=MONTHLY;BYMONTHDAY=10,20", "20260110T0900", nullptr, "", ""},
        {"until its last one", "20260105T0900", "FREQ=DAILY;UNTIL=20260106T090000", "20260105T0900", "20260107T1000",
         "FREQ=DAILY;UNTIL=20260108T100000", "20260107T1000 20260108T1000"},
        {"until a day", "20260105T0900", "FREQ=DAILY;UNTIL=20260106", "20260105T0900", "20260107T1000",
         "FREQ=DAILY;UNTIL=20260108", "20260107T1000 20260108T1000"},
        {"by the clock, to another day", "20260105T0900", "FREQ=DAILY;BYHOUR=9,12;COUNT=2", "20260105T0900",
         "20260106T0900", "FREQ=DAILY;BYHOUR=9,12;COUNT=2", "20260106T0900 20260106T1200"},
    };
    for (const auto& row : rows) {
        OpenSeries({std::string("DTSTART:") + row.start, std::string("RRULE:") + row.rule});
        const LocalTime from = At(row.from), to = row.to ? At(row.to) : from + kDaySeconds;
        const EditResult result = m_document.Move(IdAt(row.from), {to, to, false}, Scope::WholeSeries);
        EXPECT_EQ(result.isDone, row.to != nullptr) << row.name << result.problem;
        if (!row.to) {
            EXPECT_EQ(m_document.Save(), m_text) << row.name;
            continue;
        }
        EXPECT_EQ(m_document.Find(result.id)->times.start, to) << row.name;
        EXPECT_EQ(m_document.Find(result.id)->event->ruleText, row.newRule) << row.name;
        std::string shown;
        for (const Occurrence& occurrence : All()) {
            shown += (shown.empty() ? "" : " ") + Shown(occurrence.times.start);
        }
        EXPECT_EQ(shown, row.shown) << row.name;
        UndoAll();
    }
}

TEST_F(SeriesTest, ExceptionsAndReplacementsGoAlong)
{
    const std::string head =
        Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:a", "SEQUENCE:2", "DTSTAMP:20200101T000000Z",
                "DTSTART;TZID=Asia/Tokyo:20261102T090000", "DTEND;TZID=Asia/Tokyo:20261102T100000",
                "RRULE:FREQ=WEEKLY;COUNT=6", "EXDATE:20261116T000000Z", "EXDATE;VALUE=DATE:20261130",
                "RDATE;TZID=Asia/Tokyo;VALUE=PERIOD:20261120T090000/PT2H", "END:VEVENT"});
    const std::string moved = Joined({"BEGIN:VEVENT", "UID:a", "RECURRENCE-ID:20261123T000000Z",
                                      "DTSTART;TZID=Asia/Tokyo:20261124T150000", "SUMMARY:own", "END:VEVENT"});
    const std::string foot = "END:VCALENDAR\r\n";
    OpenText(head + moved + foot);
    const std::string before = "20261102T0900/20261102T1000 20261109T0900/20261109T1000 20261120T0900/20261120T1100 "
                               "20261124T1500/20261124T1500 20261207T0900/20261207T1000";
    ASSERT_EQ(Shown(All()), before);
    // An hour later, the whole series: what is excluded and replaced stays so.
    ASSERT_TRUE(
        m_document.Move(IdAt("20261109T0900"), Times("20261109T1000", "20261109T1100"), Scope::WholeSeries).isDone);
    EXPECT_EQ(ShownAgain(), "20261102T1000/20261102T1100 20261109T1000/20261109T1100 20261120T1000/20261120T1200 "
                            "20261124T1500/20261124T1500 20261207T1000/20261207T1100");
    EXPECT_NE(m_document.Save().find("SEQUENCE:3\r\nDTSTAMP:20261121T000000Z\r\n"), std::string::npos);
    UndoAll();
    // From the moved occurrence on: it and the exception after it belong to the new series.
    const EditResult result =
        m_document.SetText(IdAt("20261124T1500"), TextField::Summary, "new", Scope::ThisAndFollowing);
    ASSERT_TRUE(result.isDone) << result.problem;
    EXPECT_EQ(ShownAgain(), before);
    std::string titles;
    for (const Occurrence& occurrence : All()) {
        titles += occurrence.event->summary + "," + occurrence.event->uid + " ";
    }
    EXPECT_EQ(titles, ",a ,a ,a new,new1 new,new1 ");
    EXPECT_TRUE(m_document.IsOfSeries(result.id));
    ASSERT_TRUE(m_document.Delete(result.id, Scope::ThisAndFollowing).isDone);
    EXPECT_EQ(ShownAgain(), "20261102T0900/20261102T1000 20261109T0900/20261109T1000 20261120T0900/20261120T1100");
    UndoAll();
    // The whole series by its moved occurrence.
    ASSERT_TRUE(
        m_document.Move(IdAt("20261124T1500"), Times("20261124T1600", "20261124T1600"), Scope::WholeSeries).isDone);
    EXPECT_EQ(Shown(All()).substr(0, 27), "20261102T1000/20261102T1100");
    EXPECT_EQ(m_document.OccurrencesIn(At("20261124T1600"), At("20261124T1601")).size(), 1u);
    EXPECT_EQ(All().size(), 5u);
    UndoAll();
}

// A daily series at nine, of which the occurrences from one on are at eleven: RANGE=THISANDFUTURE.
TEST_F(SeriesTest, AWholeSeriesTakesAlongWhatChangesLaterOccurrences)
{
    const auto open = [&](std::string_view from, std::string_view to) {
        OpenText(Joined({"BEGIN:VCALENDAR", "X-WR-TIMEZONE:Asia/Tokyo", "BEGIN:VEVENT", "UID:a",
                         "DTSTART;TZID=Asia/Tokyo:20261102T090000", "DTEND;TZID=Asia/Tokyo:20261102T100000",
                         "SUMMARY:x", "RRULE:FREQ=DAILY;COUNT=4", "END:VEVENT", "BEGIN:VEVENT", "UID:a",
                         std::string("RECURRENCE-ID;RANGE=THISANDFUTURE:") + std::string(from),
                         std::string("DTSTART") + std::string(to), "DURATION:PT30M", "SUMMARY:later", "END:VEVENT",
                         "END:VCALENDAR"}));
    };
    const std::string allLater = "20261102T1200/20261102T1245 20261103T1200/20261103T1245 "
                                 "20261104T1200/20261104T1245 20261105T1200/20261105T1245";
    const std::string headEarlier = "20261102T1000/20261102T1115 20261103T1200/20261103T1245 "
                                    "20261104T1200/20261104T1245 20261105T1200/20261105T1245";
    const std::string nextDay = "20261103T1000/20261103T1115 20261104T1200/20261104T1245 "
                                "20261105T1200/20261105T1245 20261106T1200/20261106T1245";
    const struct
    {
        const char* name;
        const char* from; // the first that is changed
        const char* to;
        const char* start; // the occurrence that is moved
        const char* times[2];
        std::string shown;
    } rows[] = {
        {"all are changed",
         "20261102T000000Z",
         ";TZID=Asia/Tokyo:20261102T110000",
         "20261104T1100",
         {"20261104T1200", "20261104T1245"},
         allLater},
        {"by the event that changes",
         "20261102T000000Z",
         ";TZID=Asia/Tokyo:20261102T110000",
         "20261102T1100",
         {"20261102T1200", "20261102T1245"},
         allLater},
        {"from the second on",
         "20261103T000000Z",
         ":20261103T020000Z",
         "20261105T1100",
         {"20261105T1200", "20261105T1245"},
         headEarlier},
        {"by the one before",
         "20261103T000000Z",
         ":20261103T020000Z",
         "20261102T0900",
         {"20261102T1000", "20261102T1115"},
         headEarlier},
        {"by the second itself",
         "20261103T000000Z",
         ":20261103T020000Z",
         "20261103T1100",
         {"20261103T1200", "20261103T1245"},
         headEarlier},
        {"to the next day",
         "20261103T000000Z",
         ";TZID=Asia/Tokyo:20261103T110000",
         "20261104T1100",
         {"20261105T1200", "20261105T1245"},
         nextDay},
    };
    for (const auto& row : rows) {
        open(row.from, row.to);
        const EventTimes wanted = Times(row.times[0], row.times[1]);
        const EditResult result = m_document.Move(IdAt(row.start), wanted, Scope::WholeSeries);
        ASSERT_TRUE(result.isDone) << row.name << result.problem;
        EXPECT_EQ(ShownAgain(), row.shown) << row.name;
        EXPECT_EQ(Shown(All()), row.shown) << row.name;
        ASSERT_TRUE(m_document.Find(result.id)) << row.name;
        EXPECT_EQ(m_document.Find(result.id)->times, wanted) << row.name;
        UndoAll();
        ASSERT_TRUE(m_document.SetText(IdAt(row.start), TextField::Summary, "new", Scope::WholeSeries).isDone);
        for (const Occurrence& occurrence : All()) {
            EXPECT_EQ(occurrence.event->summary, "new") << row.name << Shown({occurrence});
        }
        UndoAll();
    }
    open("20261103T000000Z", ";VALUE=DATE:20261103"); // changed to whole days
    const EditResult refused =
        m_document.Move(IdAt("20261102T0900"), Times("20261102T1000", "20261102T1100"), Scope::WholeSeries);
    EXPECT_FALSE(refused.isDone);
    EXPECT_EQ(m_document.Save(), m_text);
}

// With one zone defined a file is shown on its clock.
const char kEastZone[] = "BEGIN:VTIMEZONE\r\nTZID:East\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\n"
                         "TZOFFSETFROM:+0900\r\nTZOFFSETTO:+0900\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";

TEST_F(SeriesTest, ANewSeriesBeginsInTheZoneThatIsChosen)
{
    OpenText(std::string("BEGIN:VCALENDAR\r\n") + kEastZone + "END:VCALENDAR\r\n");
    EXPECT_EQ(m_document.NewZone(), "East");
    EventChanges changes;
    changes.rule = "FREQ=WEEKLY;BYDAY=MO;UNTIL=20261117T145959Z"; // as said on the shown clock
    changes.zone = "UTC";
    ASSERT_TRUE(m_document.Create(Times("20261102T0500", "20261102T0600"), changes).isDone);
    EXPECT_NE(Difference().find("+DTSTART:20261101T200000Z\r\n+RRULE:FREQ=WEEKLY;BYDAY=SU;UNTIL=20261117T145959Z\r\n"
                                "+DTEND:20261101T210000Z\r\n"),
              std::string::npos)
        << Difference();
    EXPECT_EQ(ShownAgain(), "20261102T0500/20261102T0600 20261109T0500/20261109T0600 20261116T0500/20261116T0600");
    UndoAll();
    changes.zone = "No/Where";
    EXPECT_FALSE(m_document.Create(Times("20261102T0500", "20261102T0600"), changes).isDone);
}

TEST_F(SeriesTest, AWholeSeriesChangesItsZone)
{
    const std::string text =
        std::string("BEGIN:VCALENDAR\r\n") + kEastZone +
        Joined({"BEGIN:VEVENT", "UID:a", "DTSTART;TZID=Europe/Berlin:20261102T090000",
                "DTEND;TZID=Europe/Berlin:20261102T100000", "RRULE:FREQ=DAILY;UNTIL=20261106T080000Z",
                "EXDATE:20261104T080000Z", "EXDATE;TZID=Europe/Berlin:20261105T090000", "END:VEVENT", "BEGIN:VEVENT",
                "UID:a", "RECURRENCE-ID;TZID=Europe/Berlin:20261103T090000", "DTSTART:20261103T120000Z",
                "DURATION:PT1H", "END:VEVENT"});
    const std::string range = Joined({"BEGIN:VEVENT", "UID:a", "RECURRENCE-ID;RANGE=THISANDFUTURE:20261102T080000Z",
                                      "DTSTART;TZID=Europe/Berlin:20261102T090000", "DURATION:PT1H", "END:VEVENT"});
    for (const std::string& more : {std::string(), range}) {
        OpenText(text + more + "END:VCALENDAR\r\n");
        // Nothing moves on the clock that is shown.
        const std::string before = ShownAgain();
        ASSERT_EQ(before, "20261102T1700/20261102T1800 20261103T2100/20261103T2200 20261106T1700/20261106T1800");
        EventChanges changes;
        changes.zone = "East";
        changes.summary = "in the east";
        EXPECT_FALSE(m_document.Change(IdAt("20261106T1700"), changes, Scope::ThisOccurrence).isDone);
        ASSERT_TRUE(m_document.Change(IdAt("20261106T1700"), changes, Scope::WholeSeries).isDone);
        EXPECT_EQ(ShownAgain(), before);
        EXPECT_EQ(m_document.Save().find("Europe/Berlin"), std::string::npos) << m_document.Save();
        EXPECT_NE(m_document.Save().find("EXDATE;TZID=East:20261104T170000"), std::string::npos);
        EXPECT_NE(m_document.Save().find("SUMMARY:in the east"), std::string::npos);
        UndoAll();
    }
}

TEST_F(SeriesTest, WhatIsNotUnderstoodIsNotDividedOrLost)
{
    OpenSeries({"DTSTART:20261102T0900", "RRULE:RSCALE=HEBREW;FREQ=YEARLY"});
    const OccurrenceId id = IdAt("20261102T0900");
    EXPECT_FALSE(m_document.Delete(id, Scope::ThisOccurrence).isDone);
    EXPECT_FALSE(m_document.Delete(id, Scope::ThisAndFollowing).isDone);
    EXPECT_FALSE(m_document.SetText(id, TextField::Summary, "y", Scope::ThisOccurrence).isDone);
    EXPECT_FALSE(m_document.Move(id, Times("20261103T0900", "20261103T0900"), Scope::WholeSeries).isDone);
    EXPECT_EQ(m_document.Save(), m_text);
    EXPECT_TRUE(m_document.SetText(id, TextField::Summary, "y", Scope::WholeSeries).isDone);
    EXPECT_EQ(Difference(), "-SUMMARY:x\r\n+SUMMARY:y\r\n");
    EXPECT_TRUE(m_document.Delete(id, Scope::WholeSeries).isDone);
}

TEST_F(SeriesTest, OneStepChangesEverything)
{
    OpenSeries({"DTSTART:20261102T0900", "CATEGORIES:one", "CATEGORIES:two,three", "X-KEPT:1"});
    EventChanges changes;
    changes.times = Times("20261103T0900", "20261103T1000");
    changes.description = "a\nb";
    changes.categories = {"four", "fi,ve"};
    changes.isTransparent = true;
    changes.isPrivate = true;
    changes.rule = "FREQ=DAILY;COUNT=2";
    const EditResult result = m_document.Change(IdAt("20261102T0900"), changes);
    ASSERT_TRUE(result.isDone) << result.problem;
    const auto occurrence = m_document.Find(result.id);
    ASSERT_TRUE(occurrence);
    EXPECT_EQ(occurrence->event->description, "a\nb");
    EXPECT_EQ(occurrence->event->categories, (std::vector<std::string>{"four", "fi,ve"}));
    EXPECT_TRUE(occurrence->event->isTransparent && occurrence->event->isPrivate);
    EXPECT_EQ(ShownAgain(), "20261103T0900/20261103T1000 20261104T0900/20261104T1000");
    EventChanges once;
    once.rule = "";
    EXPECT_TRUE(m_document.Find(m_document.Change(result.id, once, Scope::WholeSeries).id));
    EXPECT_EQ(ShownAgain(), "20261103T0900/20261103T1000");
    UndoAll();
    once.rule = "FREQ=NEVER";
    EXPECT_FALSE(m_document.Change(IdAt("20261102T0900"), once).isDone);
}

// A night on which the clock is set back in Berlin: 3:00 becomes 2:00 on 25 October; forward on 29 March.
TEST_F(SeriesTest, LengthsAreElapsedTime)
{
    const struct
    {
        const char* name;
        const char* start;
        const char* end;
        const char* clock; // X-WR-TIMEZONE
        const char* shown;
        std::int64_t minutes;
        const char* moved; // by a day: what changes
    } rows[] = {
        {"an hour over the second 2:00", "DTSTART;TZID=Europe/Berlin:20261025T023000", "DURATION:PT1H", "UTC",
         "20261025T0030/20261025T0130", 60,
         "-DTSTART;TZID=Europe/Berlin:20261025T023000\r\n+DTSTART;TZID=Europe/Berlin:20261026T013000\r\n"},
        {"a start that is skipped", "DTSTART;TZID=Europe/Berlin:20260329T023000", "DURATION:PT30M", "Europe/Berlin",
         "20260329T0330/20260329T0400", 30,
         "-DTSTART;TZID=Europe/Berlin:20260329T023000\r\n+DTSTART;TZID=Europe/Berlin:20260330T033000\r\n"},
        {"an end that shows an earlier time", "DTSTART:20261025T004500Z", "DTEND:20261025T011500Z", "Europe/Berlin",
         "20261025T0245/20261025T0245", 30,
         "-DTSTART:20261025T004500Z\r\n-DTEND:20261025T011500Z\r\n+DTSTART:20261026T014500Z\r\n"
         "+DTEND:20261026T021500Z\r\n"},
        {"the same in two zones", "DTSTART;TZID=Europe/Berlin:20261025T024500", "DTEND:20261025T011500Z",
         "Europe/Berlin", "20261025T0245/20261025T0245", 30,
         "-DTSTART;TZID=Europe/Berlin:20261025T024500\r\n-DTEND:20261025T011500Z\r\n"
         "+DTSTART;TZID=Europe/Berlin:20261026T024500\r\n+DTEND:20261026T021500Z\r\n"},
        {"an end without a zone", "DTSTART;TZID=Asia/Tokyo:20260415T090000", "DTEND:20260415T100000", "UTC",
         "20260415/20260415T0100", 60,
         "-DTSTART;TZID=Asia/Tokyo:20260415T090000\r\n-DTEND:20260415T100000\r\n"
         "+DTSTART;TZID=Asia/Tokyo:20260416T090000\r\n+DTEND:20260416T100000\r\n"},
        {"a day of 25 hours", "DTSTART;TZID=Europe/Berlin:20261024T120000", "DURATION:P1D", "Europe/Berlin",
         "20261024T1200/20261025T1200", 25 * 60,
         "-DTSTART;TZID=Europe/Berlin:20261024T120000\r\n+DTSTART;TZID=Europe/Berlin:20261025T120000\r\n"},
        {"24 hours", "DTSTART;TZID=Europe/Berlin:20261024T120000", "DURATION:PT24H", "Europe/Berlin",
         "20261024T1200/20261025T1100", 24 * 60,
         "-DTSTART;TZID=Europe/Berlin:20261024T120000\r\n+DTSTART;TZID=Europe/Berlin:20261025T120000\r\n"},
    };
    for (const auto& row : rows) {
        OpenText(Joined({"BEGIN:VCALENDAR", std::string("X-WR-TIMEZONE:") + row.clock, "BEGIN:VEVENT", row.start,
                         row.end, "END:VEVENT", "END:VCALENDAR"}));
        EXPECT_EQ(AllMessages(m_document), "") << row.name;
        ASSERT_EQ(All().size(), 1u);
        const Occurrence occurrence = All()[0];
        EXPECT_EQ(Shown({occurrence}), row.shown) << row.name;
        EXPECT_EQ(occurrence.elapsed, row.minutes * kMinuteSeconds) << row.name;
        EventTimes times = occurrence.times;
        times.start += kDaySeconds;
        times.end += kDaySeconds;
        const EditResult result = m_document.Move(occurrence.id, times);
        ASSERT_TRUE(result.isDone) << row.name;
        EXPECT_EQ(Difference(), row.moved) << row.name;
        UndoAll();
    }
}

TEST_F(SeriesTest, ResizingKeepsTheOtherEndsInstant)
{
    // Half past two, the second time: only UTC can say it.
    OpenText(Joined({"BEGIN:VCALENDAR", "X-WR-TIMEZONE:Europe/Berlin", "BEGIN:VEVENT", "DTSTART:20261025T013000Z",
                     "DTEND:20261025T023000Z", "END:VEVENT", "END:VCALENDAR"}));
    ASSERT_TRUE(m_document.Move(All()[0].id, Times("20261025T0230", "20261025T0430")).isDone);
    EXPECT_EQ(Difference(), "-DTEND:20261025T023000Z\r\n+DTEND:20261025T033000Z\r\n");
    ASSERT_TRUE(m_document.Move(All()[0].id, Times("20261025T0130", "20261025T0430")).isDone);
    EXPECT_EQ(All()[0].elapsed, 4 * kHourSeconds);
    // An end in the hour that comes twice, after a start in it: the one that is not before the start.
    OpenText(Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "DTSTART;TZID=Europe/Berlin:20261025T024500",
                     "DTEND;TZID=Europe/Berlin:20261025T040000", "END:VEVENT", "END:VCALENDAR"}));
    ASSERT_TRUE(m_document.Move(All()[0].id, {At("20261025T0245"), At("20261025T0250"), false}).isDone);
    EXPECT_EQ(All()[0].elapsed, 5 * kMinuteSeconds);
    EXPECT_EQ(Difference(),
              "-DTEND;TZID=Europe/Berlin:20261025T040000\r\n+DTEND;TZID=Europe/Berlin:20261025T025000\r\n");
}

// RFC 5545, 3.8.5.3: with DTEND each occurrence lasts exactly as long as the first, with DURATION nominally.
TEST_F(SeriesTest, OccurrencesOverTheChangeFollowTheirKindOfLength)
{
    const auto shift = [&](const char* end) {
        OpenSeries({"DTSTART;TZID=Europe/Berlin:20261023T220000", end, "RRULE:FREQ=DAILY;COUNT=3"});
        return Shown(m_document.OccurrencesIn(At("20261024T2200"), At("20261025T2100")));
    };
    EXPECT_EQ(shift("DTEND;TZID=Europe/Berlin:20261024T060000"), "20261024T2200/20261025T0500");
    EXPECT_EQ(shift("DURATION:PT8H"), "20261024T2200/20261025T0500");
    EXPECT_EQ(shift("DURATION:P1D"), "20261024T2200/20261025T2200");
    OpenSeries({"DTSTART;TZID=Europe/Berlin:20261020T020000", "DURATION:PT1H",
                "RDATE;VALUE=PERIOD:20261025T000000Z/20261025T020000Z"});
    EXPECT_EQ(All().back().elapsed, 2 * kHourSeconds);
    EXPECT_EQ(Shown({All().back()}), "20261025T0200/20261025T0300");
}

} // namespace
} // namespace dayvane::ical
