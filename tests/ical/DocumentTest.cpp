#include "DocumentFixture.h"

namespace dayvane::ical {
namespace {

class DocumentTest : public DocumentFixture
{
};

struct MoveCase
{
    const char* name;
    std::vector<const char*> lines;
    EventTimes to;
    const char* difference;
};

std::vector<MoveCase> MoveCases()
{
    return {
        {"both ends in their zones",
         {"dtstart;X-P=1;TZID=Asia/Tokyo:20261121T090000", "X-BETWEEN:1", "DTEND;TZID=Europe/Berlin:20261121T020000"},
         Times("20261122T1000", "20261122T1130"),
         "-dtstart;X-P=1;TZID=Asia/Tokyo:20261121T090000\r\n-X-BETWEEN:1\r\n-DTEND;TZID=Europe/"
         "Berlin:20261121T020000\r\n"
         "+dtstart;X-P=1;TZID=Asia/Tokyo:20261122T100000\r\n+X-BETWEEN:1\r\n"
         "+DTEND;TZID=Europe/Berlin:20261122T033000\r\n"},
        {"only the end",
         {"DTSTART:20261121T090000Z", "DTEND:20261121T100000Z"},
         Times("20261121T0900", "20261121T1015"),
         "-DTEND:20261121T100000Z\r\n+DTEND:20261121T101500Z\r\n"},
        {"a duration that still fits",
         {"DTSTART:20261121T090000", "DURATION:PT60M"},
         Times("20261121T1000", "20261121T1100"),
         "-DTSTART:20261121T090000\r\n+DTSTART:20261121T100000\r\n"},
        {"another duration",
         {"DTSTART:20261121T090000", "DURATION;X=1:PT60M"},
         Times("20261121T0900", "20261121T1030"),
         "-DURATION;X=1:PT60M\r\n+DURATION;X=1:PT1H30M\r\n"},
        {"an end for an event without one",
         {"DTSTART:20261121", "SUMMARY:x"},
         Times("20261121", "20261123", true),
         "+DTEND;VALUE=DATE:20261123\r\n"},
        {"all day becomes timed",
         {"DTSTART;VALUE=DATE:20261121", "DTEND;VALUE=DATE:20261122"},
         Times("20261121T0900", "20261121T1000"),
         "-DTSTART;VALUE=DATE:20261121\r\n-DTEND;VALUE=DATE:20261122\r\n+DTSTART:20261121T090000\r\n"
         "+DTEND:20261121T100000\r\n"},
        {"timed becomes all day, on whole days",
         {"DTSTART;TZID=Asia/Tokyo:20261121T0900", "DURATION:PT1H"},
         Times("20261121T0900", "20261122T000001", true),
         "-DTSTART;TZID=Asia/Tokyo:20261121T0900\r\n-DURATION:PT1H\r\n+DTSTART;VALUE=DATE:20261121\r\n"
         "+DURATION:P2D\r\n"},
        {"to where it is",
         {"DTSTART:20261121T0900", "DTEND:20261121T1000"},
         Times("20261121T0900", "20261121T1000"),
         ""},
    };
}

TEST_F(DocumentTest, MovingRewritesOnlyTheTimes)
{
    for (const MoveCase& row : MoveCases()) {
        std::string lines;
        for (const char* line : row.lines) {
            lines += std::string(line) + "\r\n";
        }
        OpenText("BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\n" + lines + "X-END: kept \r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
        const OccurrenceId id = All().at(0).id;
        const EditResult result = m_document.Move(id, row.to);
        EXPECT_TRUE(result.isDone) << row.name << result.problem;
        EXPECT_EQ(result.id, id) << row.name;
        EXPECT_EQ(Difference(), row.difference) << row.name;
        EXPECT_EQ(m_document.IsModified(), *row.difference != '\0') << row.name;
        if (m_document.IsModified()) {
            EXPECT_EQ(m_document.Undo().id, id);
            EXPECT_EQ(m_document.Save(), m_text) << row.name;
            EXPECT_FALSE(m_document.IsModified());
        }
    }
}

TEST_F(DocumentTest, TextsAreWrittenEscapedAndFolded)
{
    Open({"DTSTART:20261121", "SUMMARY:overruled", "SUMMARY;LANGUAGE=ja;ENCODING=8BIT:old", " folded", "X-KEPT:a",
          " b"});
    const OccurrenceId id = IdAt("20261121");
    std::string text = "1,2\n";
    for (int i = 0; i < 20; ++i) {
        text += u8"会議";
    }
    ASSERT_TRUE(m_document.SetText(id, TextField::Summary, text, Scope::ThisOccurrence).isDone);
    EXPECT_EQ(m_document.Find(id)->event->summary, text);
    EXPECT_EQ(Difference().find("-SUMMARY;LANGUAGE=ja;ENCODING=8BIT:old\r\n- folded\r\n+SUMMARY;LANGUAGE=ja:1\\,2\\n"),
              0u)
        << Difference();
    ASSERT_TRUE(m_document.SetText(id, TextField::Location, "here", Scope::WholeSeries).isDone);
    EXPECT_EQ(m_document.Find(id)->event->location, "here");
    m_document.Undo();
    m_document.Undo();
    EXPECT_EQ(m_document.Save(), m_text);
}

TEST_F(DocumentTest, OneOccurrenceIsReplacedOrExcluded)
{
    Open({"UID:a", "DTSTART;TZID=Asia/Tokyo:20261102T090000", "DTEND;TZID=Asia/Tokyo:20261102T100000",
          "RRULE:FREQ=WEEKLY;COUNT=3", "SUMMARY:x", "BEGIN:VALARM", "TRIGGER:-PT5M", "END:VALARM"});
    EditResult result = m_document.Move(IdAt("20261109T0900"), Times("20261110T1300", "20261110T1430"));
    ASSERT_TRUE(result.isDone) << result.problem;
    const std::string replacement = "+BEGIN:VEVENT\r\n+UID:a\r\n+DTSTART;TZID=Asia/Tokyo:20261110T130000\r\n"
                                    "+RECURRENCE-ID;TZID=Asia/Tokyo:20261109T090000\r\n"
                                    "+DTEND;TZID=Asia/Tokyo:20261110T143000\r\n+SUMMARY:x\r\n+BEGIN:VALARM\r\n"
                                    "+TRIGGER:-PT5M\r\n+END:VALARM\r\n+END:VEVENT\r\n";
    EXPECT_EQ(Difference(), replacement);
    const std::string moved = "20261102T0900/20261102T1000 20261110T1300/20261110T1430 20261116T0900/20261116T1000";
    EXPECT_EQ(Shown(All()), moved);
    EXPECT_EQ(Shown({*m_document.Find(result.id)}), "20261110T1300/20261110T1430");
    EXPECT_EQ(m_document.Undo().id.original, At("20261109T0900"));
    EXPECT_EQ(m_document.Save(), m_text);
    EXPECT_EQ(m_document.Redo().id, result.id);
    EXPECT_EQ(Shown(All()), moved);

    // Deleting the replacement does not bring the first time back.
    ASSERT_TRUE(m_document.Delete(result.id, Scope::ThisOccurrence).isDone);
    EXPECT_EQ(Difference(), "+EXDATE;TZID=Asia/Tokyo:20261109T090000\r\n");
    EXPECT_FALSE(m_document.Find(result.id));
    ASSERT_TRUE(m_document.Delete(IdAt("20261116T0900"), Scope::ThisOccurrence).isDone);
    EXPECT_EQ(Shown(All()), "20261102T0900/20261102T1000");
    m_document.Undo();
    m_document.Undo();
    EXPECT_EQ(Shown(All()), moved);

    result = m_document.SetText(IdAt("20261116T0900"), TextField::Summary, "y", Scope::ThisOccurrence);
    ASSERT_TRUE(result.isDone);
    EXPECT_EQ(All()[2].event->summary, "y");
    EXPECT_EQ(All()[0].event->summary, "x");
    ASSERT_TRUE(m_document.SetText(IdAt("20261102T0900"), TextField::Summary, "z", Scope::WholeSeries).isDone);
    EXPECT_EQ(All()[0].event->summary, "z");
    ASSERT_TRUE(m_document.Delete(result.id, Scope::WholeSeries).isDone);
    EXPECT_EQ(m_document.Save(), "BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n");
}

TEST_F(DocumentTest, AllDayAndUtcSeriesWriteTheirOwnForm)
{
    Open({"UID:a", "DTSTART:20261102", "RRULE:FREQ=DAILY;COUNT=3"});
    ASSERT_TRUE(m_document.Move(IdAt("20261103"), Times("20261110T0900", "20261110T1000")).isDone);
    EXPECT_EQ(Difference(), "+BEGIN:VEVENT\r\n+UID:a\r\n+DTSTART:20261110T090000\r\n+DTEND:20261110T100000\r\n"
                            "+RECURRENCE-ID;VALUE=DATE:20261103\r\n+END:VEVENT\r\n");
    EXPECT_EQ(Shown(All()), "20261102/20261103* 20261104/20261105* 20261110T0900/20261110T1000");

    OpenText(Joined({"BEGIN:VCALENDAR", "X-WR-TIMEZONE:Asia/Tokyo", "BEGIN:VEVENT", "UID:a", "DTSTART:20261102T000000Z",
                     "RRULE:FREQ=DAILY;COUNT=2", "END:VEVENT", "END:VCALENDAR"}));
    ASSERT_TRUE(m_document.Delete(IdAt("20261103T0900"), Scope::ThisOccurrence).isDone);
    EXPECT_EQ(Difference(), "+EXDATE:20261103T000000Z\r\n");
    ASSERT_TRUE(m_document.Create(Times("20261105T0800", "20261105T0900"), "n").isDone);
    EXPECT_NE(Difference().find("+DTSTART:20261104T230000Z\r\n"), std::string::npos) << Difference();
}

TEST_F(DocumentTest, CreatesCopiesAndDeletes)
{
    Open({"UID:new1", "DTSTART:20261102T0900", "DURATION:PT1H", "SEQUENCE:3", "RRULE:FREQ=DAILY;COUNT=2", "X-KEPT:1",
          "SUMMARY:x", "BEGIN:VALARM", "UID:alarm", "END:VALARM"});
    const EditResult created = m_document.Create(Times("20261121T0900", "20261121T1000"), "a;b");
    ASSERT_TRUE(created.isDone);
    EXPECT_EQ(Difference(), "+BEGIN:VEVENT\r\n+UID:new2\r\n+DTSTAMP:20261121T000000Z\r\n+DTSTART:20261121T090000\r\n"
                            "+DTEND:20261121T100000\r\n+SUMMARY:a\\;b\r\n+END:VEVENT\r\n");
    EXPECT_EQ(m_document.Find(created.id)->event->summary, "a;b");
    m_document.MarkSaved();
    ASSERT_TRUE(m_document.Delete(created.id, Scope::ThisOccurrence).isDone);
    EXPECT_EQ(m_document.Save(), m_text);
    EXPECT_TRUE(m_document.IsModified());
    EXPECT_EQ(m_document.Undo().id, created.id);
    EXPECT_FALSE(m_document.IsModified());
    m_document.Undo();
    EXPECT_TRUE(m_document.IsModified());
    const EditResult copied = m_document.Copy(IdAt("20261103T0900"), Times("20261105T0900", "20261105T1000"));
    ASSERT_TRUE(copied.isDone);
    EXPECT_EQ(
        Difference(),
        "+BEGIN:VEVENT\r\n+UID:new3\r\n+DTSTAMP:20261121T000000Z\r\n+DTSTART:20261105T090000\r\n"
        "+DURATION:PT1H\r\n+X-KEPT:1\r\n+SUMMARY:x\r\n+BEGIN:VALARM\r\n+UID:alarm\r\n+END:VALARM\r\n+END:VEVENT\r\n");
    EXPECT_FALSE(m_document.CanRedo());
    EXPECT_TRUE(m_document.IsModified()); // as many steps as when it was saved, but others
    m_document.Undo();
    EXPECT_EQ(m_document.Save(), m_text);
}

TEST_F(DocumentTest, ACopyHasItsOwnStampAndBeginsItsOwnSequence)
{
    Open({"UID:a", "SEQUENCE:7", "DTSTAMP:20200101T000000Z", "DTSTART:20261103T0900", "DTEND:20261103T1000"});
    ASSERT_TRUE(m_document.Copy(IdAt("20261103T0900"), Times("20261105T0900", "20261105T1000")).isDone);
    EXPECT_EQ(Difference(), "+BEGIN:VEVENT\r\n+UID:new1\r\n+DTSTAMP:20261121T000000Z\r\n+DTSTART:20261105T090000\r\n"
                            "+DTEND:20261105T100000\r\n+END:VEVENT\r\n");
}

TEST_F(DocumentTest, SeriesEndWithTheirCalendar)
{
    const std::string series = Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:a", "DTSTART:20261102T0900",
                                       "RRULE:FREQ=DAILY;COUNT=2", "END:VEVENT"});
    const std::string replacement = Joined({"BEGIN:VEVENT", "UID:a", "RECURRENCE-ID;VALUE=DATE:20261103",
                                            "DTSTART:20261110T0900", "END:VEVENT", "END:VCALENDAR"});
    OpenText(series + replacement + series);
    const OccurrenceId id = IdAt("20261110T0900");
    ASSERT_TRUE(m_document.Delete(id, Scope::ThisOccurrence).isDone);
    EXPECT_NE(m_document.Save().find("EXDATE:20261103T090000\r\n"), std::string::npos) << m_document.Save();
    m_document.Undo();
    ASSERT_TRUE(m_document.Delete(id, Scope::WholeSeries).isDone);
    EXPECT_EQ(m_document.Save(), "BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n" + series);
}

TEST_F(DocumentTest, DeletingJoinsNothing)
{
    // The first event has no END; what follows the second one must not become its own.
    const std::string head = "BEGIN:VEVENT\nX:1\n";
    const std::string event = "BEGIN:VEVENT\nDTSTART:20261121\nEND:VEVENT\n";
    const std::string tail = "DTSTART:20261122\nEND:VEVENT\n";
    OpenText(head + event + tail);
    ASSERT_TRUE(m_document.Delete(IdAt("20261121"), Scope::ThisOccurrence).isDone);
    EXPECT_EQ(m_document.Save(), head + "END:VEVENT\n" + tail);
    m_document.Undo();
    EXPECT_EQ(m_document.Save(), m_text);
}

TEST_F(DocumentTest, OnlyTheNeighbourOfADeletedEventIsClosed)
{
    const std::string first = "BEGIN:VEVENT\nDTSTART:20261121\nEND:VEVENT\n";
    const std::string rest = "BEGIN:VEVENT\nDTSTART:20261122\nEND:VEVENT\nBEGIN:VEVENT\nDTSTART:20261123\n"
                             "BEGIN:VTODO\nEND:VTODO\n";
    OpenText(first + rest);
    ASSERT_TRUE(m_document.Delete(IdAt("20261121"), Scope::ThisOccurrence).isDone);
    EXPECT_EQ(m_document.Save(), rest);
}

TEST_F(DocumentTest, AnEditThatCannotBeReadAgainIsTakenBack)
{
    // A zone name that no parameter can hold: the quotation mark ends it, and then comes a colon.
    OpenText(Joined({"BEGIN:VCALENDAR", "BEGIN:VTIMEZONE", "TZID:a\":b", "BEGIN:STANDARD", "DTSTART:20000101T000000",
                     "TZOFFSETTO:+0900", "END:STANDARD", "END:VTIMEZONE", "BEGIN:VEVENT", "UID:a", "DTSTART:20261121",
                     "END:VEVENT", "END:VCALENDAR"}));
    const OccurrenceId id = IdAt("20261121");
    EXPECT_FALSE(m_document.Move(id, Times("20261121T0900", "20261121T1000")).isDone);
    EXPECT_FALSE(m_document.Create(Times("20261121T0900", "20261121T1000"), "x").isDone);
    EXPECT_EQ(m_document.Save(), m_text);
    EXPECT_TRUE(m_document.Find(id));
    EXPECT_FALSE(m_document.CanUndo() || m_document.IsModified());
}

TEST_F(DocumentTest, NewEventsTakeTheZoneOfTheFile)
{
    const struct
    {
        const char* name;
        std::vector<const char*> starts;
        const char* line;
    } rows[] = {
        {"all in one",
         {"DTSTART;TZID=Asia/Tokyo:20261101T0900", "DTSTART:20261102T000000Z", "DTSTART:20261103"},
         "+DTSTART;TZID=Asia/Tokyo:20261121T090000\r\n"},
        {"in two",
         {"DTSTART;TZID=Asia/Tokyo:20261101T0900", "DTSTART;TZID=Europe/Rome:20261101T0900"},
         "+DTSTART:20261121T090000\r\n"},
        {"in one that nobody knows", {"DTSTART;TZID=No/Where:20261101T0900"}, "+DTSTART:20261121T090000\r\n"},
    };
    for (const auto& row : rows) {
        std::string events;
        for (const char* start : row.starts) {
            events += Joined({"BEGIN:VEVENT", start, "END:VEVENT"});
        }
        OpenText("BEGIN:VCALENDAR\r\n" + events + "END:VCALENDAR\r\n");
        const EditResult result = m_document.Create(Times("20261121T0900", "20261121T1000"), "n");
        EXPECT_NE(Difference().find(row.line), std::string::npos) << row.name << Difference();
        EXPECT_EQ(m_document.Find(result.id)->times.start, At("20261121T0900")) << row.name;
    }
}

TEST_F(DocumentTest, EditsRaiseSequenceAndStampsWhereThereAreAny)
{
    Open({"UID:a", "SEQUENCE:7", "DTSTAMP;X=1:20200101T000000Z", "LAST-MODIFIED:20200101T000000Z", "DTSTART:20261121"});
    const OccurrenceId id = IdAt("20261121");
    ASSERT_TRUE(m_document.SetText(id, TextField::Summary, "", Scope::ThisOccurrence).isDone); // as it was
    EXPECT_EQ(Difference(), "");
    ASSERT_TRUE(m_document.Move(id, Times("20261122", "20261123", true)).isDone);
    EXPECT_EQ(Difference(), "-SEQUENCE:7\r\n-DTSTAMP;X=1:20200101T000000Z\r\n-LAST-MODIFIED:20200101T000000Z\r\n"
                            "-DTSTART:20261121\r\n+SEQUENCE:8\r\n+DTSTAMP;X=1:20261121T000000Z\r\n"
                            "+LAST-MODIFIED:20261121T000000Z\r\n+DTSTART:20261122\r\n");
    ASSERT_TRUE(m_document.Move(id, Times("20261123", "20261124", true)).isDone);
    EXPECT_EQ(m_document.Find(id)->event->sequence, 9);
}

TEST_F(DocumentTest, LoadingCanBeEnded)
{
    Open({"DTSTART:20261121"});
    std::string large = "BEGIN:VCALENDAR\r\n";
    for (int i = 0; i < 3000; ++i) {
        large += Joined({"BEGIN:VEVENT", "DTSTART:20261122", "END:VEVENT"});
    }
    std::size_t last = 0;
    EXPECT_TRUE(Document().Load(large, [&](std::size_t done, std::size_t all) {
        EXPECT_TRUE(done > last && done <= all && all == large.size());
        last = done;
        return true;
    }));
    EXPECT_GT(last, large.size() / 2);
    EXPECT_FALSE(m_document.Load(large, [](std::size_t, std::size_t) { return false; }));
    EXPECT_EQ(m_document.Save(), m_text);
    EXPECT_EQ(Shown(All()), "20261121/20261122*");
}

TEST_F(DocumentTest, NewEventsFindTheirPlace)
{
    const std::string created = "BEGIN:VEVENT\nUID:new1\nDTSTAMP:20261121T000000Z\nDTSTART;VALUE=DATE:20261121\n"
                                "DTEND;VALUE=DATE:20261122\nSUMMARY:n\nEND:VEVENT\n";
    const std::string head = "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:-//Dayvane//Planner//EN\n";
    const struct
    {
        const char* name;
        std::string before, after;
        std::string saved; // empty: before + the event + after
    } rows[] = {
        {"before the END", "BEGIN:VCALENDAR\nX:1\n", "END:VCALENDAR\nrest\n", ""},
        {"in the last calendar", "BEGIN:VCALENDAR\nEND:VCALENDAR\nBEGIN:VCALENDAR\n", "END:VCALENDAR\n", ""},
        {"before what is not closed", "BEGIN:VCALENDAR\n", "BEGIN:VTODO\nX:1\nEND:VCALENDAR\n", ""},
        {"in a calendar that is not closed", "BEGIN:VCALENDAR\nX:1\n", "", ""},
        {"in the last of two that are not closed", "BEGIN:VCALENDAR\nBEGIN:VCALENDAR\nX:1\n", "", ""},
        {"in a calendar that is cut off", "BEGIN:VCALENDAR\nX:1", "", "BEGIN:VCALENDAR\nX:1\n" + created},
        {"before an event that is cut off", "BEGIN:VCALENDAR\n", "BEGIN:VEVENT\nDTSTART:2026", ""},
        {"no calendar at all", "X:1\n", "", "X:1\n" + head + created + "END:VCALENDAR\n"},
    };
    for (const auto& row : rows) {
        Document document(CountedUids("new"), [] { return kStamp; });
        document.Load(row.before + row.after);
        const EditResult result = document.Create(Times("20261121T0300", "20261121T0300", true), "n");
        ASSERT_TRUE(result.isDone) << row.name;
        EXPECT_EQ(document.Save(), row.saved.empty() ? row.before + created + row.after : row.saved) << row.name;
        Document again;
        again.Load(document.Save());
        EXPECT_EQ(Shown(again.OccurrencesIn(At("20261121"), At("20261122"))), "20261121/20261122*") << row.name;
        document.Undo();
        EXPECT_EQ(document.Save(), row.before + row.after) << row.name;
    }
    Document fresh(CountedUids("new"));
    EXPECT_EQ(fresh.Save(), "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Dayvane//Planner//EN\r\nEND:VCALENDAR\r\n");
    EXPECT_FALSE(fresh.IsModified());
}

TEST_F(DocumentTest, RandomUidsDiffer)
{
    const UidSource source = RandomUids(), other = RandomUids();
    const std::string uid = source();
    EXPECT_EQ(uid.size(), 36u);
    EXPECT_EQ(uid[14], '4');
    EXPECT_NE(uid, source());
    EXPECT_NE(uid, other());
}

TEST_F(DocumentTest, RefusesWithAReason)
{
    Open({"DTSTART:20261102T0900", "RRULE:FREQ=DAILY;COUNT=2"});
    const OccurrenceId id = IdAt("20261103T0900");
    const OccurrenceId none{id.event, id.original + 1};
    const EventTimes fine = Times("20261110T0900", "20261110T1000");
    const EditResult results[] = {
        m_document.Move(id, fine), // no UID
        m_document.Move(id, Times("20261110T0900", "20261110T0859")),
        m_document.Move(id, {At("20261110"), kEndOfTime, false}),
        m_document.Move(none, fine),
        m_document.Delete(none, Scope::WholeSeries),
        m_document.SetText({99, 0}, TextField::Summary, "x", Scope::WholeSeries),
        m_document.Create({kEarliestTime - 1, kEarliestTime, false}, "x"),
        m_document.Copy(none, fine),
        m_document.Undo(),
        m_document.Redo(),
    };
    for (const EditResult& result : results) {
        EXPECT_FALSE(result.isDone);
        EXPECT_FALSE(result.problem.empty());
    }
    Open({"DTSTART:20261102T0900", "RRULE:FREQ=DAILY;BYHOUR=x"});
    EXPECT_NE(m_document.Move(IdAt("20261102T0900"), fine).problem.find("rule"), std::string::npos);
    // Tokyo's clock would show the year 10000.
    Open({"DTSTART;TZID=America/Phoenix:20261102T0900", "DTEND;TZID=Asia/Tokyo:20261103T0200"});
    EXPECT_FALSE(m_document.Move(IdAt("20261102T0900"), Times("99991231T1000", "99991231T2359")).isDone);
    EXPECT_EQ(m_document.Save(), m_text);
    OpenText("\xFE\xFF");
    EXPECT_FALSE(m_document.Create(fine, "x").isDone);
    EXPECT_FALSE(m_document.IsModified());
}

} // namespace
} // namespace dayvane::ical
