// Events that go from one calendar file into another.
#include "DocumentFixture.h"

namespace {

using namespace dayvane::ical;

std::string Item(const char* uid, const char* day, const char* title, int sequence = 0)
{
    return Joined({"BEGIN:VEVENT", std::string("UID:") + uid, std::string("DTSTART;VALUE=DATE:") + day,
                   std::string("SUMMARY:") + title, "SEQUENCE:" + std::to_string(sequence), "END:VEVENT"});
}

std::string FileOf(const std::string& items, const std::string& head = "")
{
    return "BEGIN:VCALENDAR\r\n" + head + items + "END:VCALENDAR\r\n";
}

std::string Titles(const Document& document)
{
    std::string titles;
    for (const Occurrence& each : document.OccurrencesIn(At("20260101"), At("20270101"))) {
        titles += (titles.empty() ? "" : " ") + each.event->summary;
    }
    return titles;
}

class MergeTest : public DocumentFixture
{
};

const std::string kZone = Joined({"BEGIN:VTIMEZONE", "TZID:East", "BEGIN:STANDARD", "DTSTART:19700101T000000",
                                  "TZOFFSETFROM:+0900", "TZOFFSETTO:+0900", "END:STANDARD", "END:VTIMEZONE"});
const std::string kZoned =
    Joined({"BEGIN:VEVENT", "UID:z", "DTSTART;TZID=East:20260601T090000", "SUMMARY:zoned", "END:VEVENT"});

TEST_F(MergeTest, WithTheCommonBaseOnlyRealConflictsAreReported)
{
    const std::string a = Item("a", "20260101", "a"), b = Item("b", "20260102", "b"), c = Item("c", "20260103", "c"),
                      d = Item("d", "20260104", "d"), e = Item("e", "20260105", "e");
    const std::string base = FileOf(a + b + c + d + e);
    // Here a is renamed, c deleted, d and e renamed; there b is renamed, a untouched, c renamed, d renamed, e deleted.
    OpenText(FileOf(Item("a", "20260101", "a1") + b + Item("d", "20260104", "d1", 1) + Item("e", "20260105", "e1")));
    const std::string other = FileOf(a + Item("b", "20260102", "b2") + Item("c", "20260103", "c2") +
                                     Item("d", "20260104", "d2", 2) + Item("f", "20260106", "f2"));
    const MergeReport report = m_document.Merge(other, base);
    ASSERT_TRUE(report.edit.isDone);
    EXPECT_EQ(Titles(m_document), "a1 b2 c2 d2 e1 f2");
    EXPECT_EQ(report.conflicts, (std::vector<std::string>{"c2", "d2", "e1"}));
    EXPECT_EQ(report.added, 2u);
    EXPECT_EQ(report.replaced, 2u);
    m_document.Undo();
    EXPECT_EQ(m_document.Save(), m_text) << "one step";
    EXPECT_EQ(m_document.Merge(m_text, m_text).added, 0u);
    EXPECT_EQ(m_document.Save(), m_text);
    EXPECT_EQ(m_document.Merge(FileOf(""), m_text).removed, 4u) << "what the other one has deleted";
}

TEST_F(MergeTest, AnImportBringsItsZonesAndKnowsItsOwnEvents)
{
    OpenText(FileOf(Item("a", "20260101", "a")));
    const MergeReport report = m_document.Merge(FileOf(kZone + kZoned + Item("a", "20260101", "a")));
    EXPECT_EQ(report.added, 1u);
    EXPECT_TRUE(report.conflicts.empty());
    EXPECT_EQ(
        Difference(), "+" + [] {
            std::string lines;
            for (const std::string& line : LinesOf(kZone + kZoned)) {
                lines += (lines.empty() ? "" : "+") + line;
            }
            return lines;
        }());
    Document again;
    again.Load(m_document.Save());
    EXPECT_TRUE(again.Messages().empty()) << AllMessages(again);
    EXPECT_EQ(m_document.Merge(FileOf(kZone + kZoned)).added, 0u);
    EXPECT_FALSE(m_document.Merge(std::string("\xFF\xFE", 2)).edit.isDone);
}

TEST_F(MergeTest, PastedEventsAreNewAndGoToTheDayOrTime)
{
    OpenText(FileOf(Item("a", "20260101", "a")));
    const std::string timed = FileOf(Joined({"BEGIN:VEVENT", "UID:a", "DTSTART:20260301T093000",
                                             "DTEND:20260301T103000", "SUMMARY:t", "END:VEVENT"}) +
                                     Item("b", "20260303", "b"));
    ASSERT_TRUE(m_document.Paste(timed, At("20260501")).edit.isDone);
    EXPECT_EQ(Shown(m_document.OccurrencesIn(At("20260401"), At("20260601"))),
              "20260501T0930/20260501T1030 20260503/20260504*");
    ASSERT_TRUE(m_document.Paste(timed, At("20260601T1400")).edit.isDone);
    EXPECT_EQ(Shown(m_document.OccurrencesIn(At("20260601"), At("20260603"))), "20260601T1400/20260601T1500");
    ASSERT_TRUE(m_document.Paste(timed).edit.isDone);
    EXPECT_EQ(m_document.OccurrencesIn(At("20260301"), At("20260302")).size(), 1u);
    EXPECT_EQ(m_document.Merge(FileOf(Item("a", "20260101", "a"))).conflicts.size(), 0u) << "UIDs are their own";
}

TEST_F(MergeTest, AnExcerptIsACalendarOfItsOwn)
{
    OpenText(
        FileOf(kZone + kZoned +
               Joined({"BEGIN:VEVENT", "UID:s", "DTSTART;TZID=East:20260401T090000", "RRULE:FREQ=DAILY;COUNT=3",
                       "SUMMARY:s", "END:VEVENT", "BEGIN:VEVENT", "UID:s", "SUMMARY:moved",
                       "RECURRENCE-ID;TZID=East:20260402T090000", "DTSTART;TZID=East:20260402T150000", "END:VEVENT"})));
    const OccurrenceId second = IdAt("20260403T0900");
    Document one, whole;
    one.Load(m_document.Excerpt({second}, ExcerptForm::Occurrences));
    EXPECT_EQ(Shown(one.OccurrencesIn(At("20260101"), At("20270101"))), "20260403T0900/20260403T0900");
    EXPECT_TRUE(one.Messages().empty());
    whole.Load(m_document.Excerpt({second, IdAt("20260401T0900")}, ExcerptForm::WholeEvents));
    EXPECT_EQ(whole.EventCount(), 2u) << "the series and its moved occurrence, once";
    EXPECT_EQ(Titles(whole), "s moved s");
}

} // namespace
