// Reminders of events, and events that are new with everything at once.
#include "DocumentFixture.h"

namespace {

using namespace dayvane::ical;

class AlarmTest : public DocumentFixture
{
protected:
    void OpenWithAlarms()
    {
        Open({"UID:a", "DTSTART:20260415T090000", "SUMMARY:A", "BEGIN:VALARM", "ACTION:DISPLAY", "TRIGGER:-PT15M",
              "X-KEPT:1", "END:VALARM", "BEGIN:VALARM", "ACTION:EMAIL", "TRIGGER:-P1D", "END:VALARM", "BEGIN:VALARM",
              "ACTION:AUDIO", "TRIGGER;RELATED=END:PT0S", "END:VALARM"});
    }
    std::vector<std::int64_t> Reminders(std::string_view time)
    {
        return RemindersOf(*m_document.Find(IdAt(time))->event);
    }
};

TEST_F(AlarmTest, OnlyRemindersChangeAndOtherAlarmsKeepTheirBytes)
{
    OpenWithAlarms();
    EXPECT_EQ(Reminders("20260415T0900"), (std::vector<std::int64_t>{900}));
    EXPECT_EQ(m_document.Find(IdAt("20260415T0900"))->event->alarms.size(), 3u);
    EventChanges changes;
    changes.reminders = std::vector<std::int64_t>{kDaySeconds, 900, 0, 900};
    ASSERT_TRUE(m_document.Change(IdAt("20260415T0900"), changes).isDone);
    EXPECT_EQ(Difference(),
              "+BEGIN:VALARM\r\n+ACTION:DISPLAY\r\n+DESCRIPTION:Reminder\r\n+TRIGGER:-P1D\r\n+END:VALARM\r\n"
              "+BEGIN:VALARM\r\n+ACTION:DISPLAY\r\n+DESCRIPTION:Reminder\r\n+TRIGGER:PT0S\r\n+END:VALARM\r\n");
    EXPECT_EQ(Reminders("20260415T0900"), (std::vector<std::int64_t>{kDaySeconds, 900, 0}));
    changes.reminders->clear();
    ASSERT_TRUE(m_document.Change(IdAt("20260415T0900"), changes).isDone);
    EXPECT_EQ(Difference(), "-ACTION:DISPLAY\r\n-TRIGGER:-PT15M\r\n-X-KEPT:1\r\n-END:VALARM\r\n-BEGIN:VALARM\r\n");
    m_document.Undo();
    m_document.Undo();
    EXPECT_EQ(m_document.Save(), m_text);
}

TEST_F(AlarmTest, DismissedAlarmsSayUntilWhen)
{
    Open({"UID:a", "SEQUENCE:3", "DTSTART:20260415T090000", "RRULE:FREQ=DAILY;COUNT=3", "BEGIN:VALARM", "TRIGGER:-PT5M",
          "END:VALARM"});
    ASSERT_TRUE(m_document.Acknowledge(IdAt("20260416T0900"), At("20260416T0858")).isDone);
    EXPECT_EQ(Difference(), "+ACKNOWLEDGED:20260416T085800Z\r\n") << "no revision of the event";
    ASSERT_TRUE(m_document.Acknowledge(IdAt("20260417T0900"), At("20260417T0856")).isDone);
    EXPECT_EQ(Difference(), "+ACKNOWLEDGED:20260417T085600Z\r\n");
    EXPECT_EQ(m_document.Find(IdAt("20260415T0900"))->event->alarms.front().acknowledged, At("20260417T0856"));
}

TEST_F(AlarmTest, ANewEventHasEverythingInOneStep)
{
    OpenText(Joined({"BEGIN:VCALENDAR", "END:VCALENDAR"}));
    EventChanges all;
    all.summary = "Gym, twice";
    all.location = "Hall 3";
    all.rule = "FREQ=WEEKLY;BYDAY=MO,TH";
    all.categories = std::vector<std::string>{"sport"};
    all.isPrivate = true;
    all.reminders = std::vector<std::int64_t>{600};
    const EditResult made = m_document.Create(Times("20260420T1800", "20260420T1900"), all);
    ASSERT_TRUE(made.isDone);
    EXPECT_EQ(made.id.original, At("20260420T1800")) << "the first occurrence is current";
    EXPECT_EQ(Shown(m_document.OccurrencesIn(At("20260420"), At("20260425"))),
              "20260420T1800/20260420T1900 20260423T1800/20260423T1900");
    const Event& event = *m_document.Find(made.id)->event;
    EXPECT_EQ(event.summary + "|" + event.location + "|" + event.categories.front(), "Gym, twice|Hall 3|sport");
    EXPECT_TRUE(event.isPrivate && event.alarms.size() == 1);
    m_document.Undo();
    EXPECT_EQ(m_document.Save(), m_text);
}

TEST_F(AlarmTest, AnEventCanChangeItsZone)
{
    const std::string zone = Joined({"BEGIN:VTIMEZONE", "TZID:East", "BEGIN:STANDARD", "DTSTART:19700101T000000",
                                     "TZOFFSETFROM:+0900", "TZOFFSETTO:+0900", "END:STANDARD", "END:VTIMEZONE"});
    OpenText("BEGIN:VCALENDAR\r\nX-WR-TIMEZONE:UTC\r\n" + zone +
             Joined({"BEGIN:VEVENT", "UID:a", "DTSTART:20260415T090000Z", "DTEND:20260415T100000Z", "END:VEVENT",
                     "END:VCALENDAR"}));
    EXPECT_EQ(m_document.Zones(), (std::vector<std::string>{"", "UTC", "East"}));
    EventChanges changes;
    changes.zone = "East";
    ASSERT_TRUE(m_document.Change(IdAt("20260415T0900"), changes).isDone);
    EXPECT_EQ(Difference(), "-DTSTART:20260415T090000Z\r\n-DTEND:20260415T100000Z\r\n"
                            "+DTSTART;TZID=East:20260415T180000\r\n+DTEND;TZID=East:20260415T190000\r\n")
        << "on the clock of the document it stays where it was";
    OpenText(
        "BEGIN:VCALENDAR\r\nX-WR-TIMEZONE:UTC\r\n" + zone +
        Joined({"BEGIN:VEVENT", "UID:a", "DTSTART:20260415T090000Z", "DURATION:PT90M", "END:VEVENT", "END:VCALENDAR"}));
    ASSERT_TRUE(m_document.Change(IdAt("20260415T0900"), changes).isDone);
    EXPECT_EQ(Difference(), "-DTSTART:20260415T090000Z\r\n+DTSTART;TZID=East:20260415T180000\r\n")
        << "its length stays as it is written";
    changes.zone = "Nowhere";
    EXPECT_FALSE(m_document.Change(IdAt("20260415T0900"), changes).isDone);
}

} // namespace
