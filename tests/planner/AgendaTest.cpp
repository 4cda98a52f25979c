// The lines of an agenda.
#include "planner/AgendaRows.h"
#include "tests/ical/CalendarTesting.h"

namespace {

using namespace planner;

TEST(AgendaRows, StandUnderEachDayThatTheyTouch)
{
    Document document;
    document.Load(
        Joined({"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:a", "DTSTART:20260415T220000", "DTEND:20260416T060000",
                "SUMMARY:Night", "END:VEVENT", "BEGIN:VEVENT", "UID:b", "DTSTART;VALUE=DATE:20260414",
                "DTEND;VALUE=DATE:20260417", "SUMMARY:Trip", "END:VEVENT", "BEGIN:VEVENT", "UID:c",
                "DTSTART:20260415T080000", "SUMMARY:Call", "END:VEVENT", "END:VCALENDAR"}));
    const DayNumber from = DayOfTime(At("20260415")), to = from + 5;
    const auto occurrences = document.OccurrencesIn(from * kDaySeconds, to * kDaySeconds);
    const auto rows = AgendaRowsOf(occurrences, from, to, from + 3);
    std::string text;
    for (const AgendaRow& row : rows) {
        text += row.IsHeading() ? "| " + std::to_string(row.day - from) + " "
                                : occurrences[row.item].event->summary + " " + row.time + ", ";
    }
    EXPECT_EQ(text, "| 0 Trip , Call 8:00, Night 22:00 ..., | 1 Trip , Night ... 6:00, | 3 ");
    EXPECT_EQ(RowOfDay(rows, from + 1), 4u);
    EXPECT_EQ(RowOfDay(rows, from + 2), 7u) << "the next day that has a heading";
    EXPECT_EQ(RowOfDay(rows, to), rows.size());
}

} // namespace
