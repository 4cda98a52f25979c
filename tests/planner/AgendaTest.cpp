// The lines of an agenda.
#include "planner/AgendaTree.h"
#include "tests/access/TreeChecks.h"
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
    EXPECT_EQ(AgendaRowsOf({}, from, to, to - 1).size(), 1u) << "today has a heading";
    EXPECT_TRUE(AgendaRowsOf({}, from, to, to).empty());
}

TEST(AgendaTree, HasACellForEachDayAndAnItemForEachLine)
{
    std::string file = "BEGIN:VCALENDAR\r\n";
    for (const char* day : {"20260415", "20260415", "20260416", "20260420"}) {
        file += Joined({"BEGIN:VEVENT", "UID:" + std::to_string(file.size()), std::string("DTSTART:") + day + "T090000",
                        "DURATION:PT1H", "SUMMARY:Talk", "LOCATION:Hall", "CATEGORIES:Work", "END:VEVENT"});
    }
    Document document;
    document.Load(file + "END:VCALENDAR\r\n");
    const DayNumber from = DayOfTime(At("20260415"));
    const auto occurrences = document.OccurrencesIn(from * kDaySeconds, (from + 9) * kDaySeconds);
    const auto rows = AgendaRowsOf(occurrences, from, from + 9, from + 1);
    const dayvane::AccessTexts& texts = dayvane::EnglishAccessTexts();
    for (int top = 0; top < static_cast<int>(rows.size()); ++top) {
        const AgendaPage page = {rows, occurrences, from + 1, top, 20, CRect(0, 0, 300, 70)};
        const dayvane::AccessTree tree = MakeAgendaTree(page);
        const auto nameOf = [&](int node) { return WordsOfAgenda(texts, page, tree.At(node).id).name; };
        accesstest::CheckTree(tree, nameOf);
        for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
            const dayvane::AccessId id = PartOfRow(page, row);
            const dayvane::AccessNode& node = tree.At(tree.Find(id));
            EXPECT_EQ(row, RowOfPart(page, id));
            const bool isInSight = row >= top && row < top + 4;
            if (!rows[static_cast<std::size_t>(row)].IsHeading()) {
                EXPECT_EQ(isInSight, !node.isHidden) << row << " under " << top;
                EXPECT_TRUE(!isInSight || node.box.top == (row - top) * 20) << row << " under " << top;
            }
        }
    }
    const AgendaPage page = {rows, occurrences, from + 1, 0, 20, CRect(0, 0, 300, 70)};
    EXPECT_EQ("Wednesday 15 April 2026, 2 items", WordsOfAgenda(texts, page, PartOfRow(page, 0)).name);
    EXPECT_EQ("9:00 to 10:00 Talk, number 2", WordsOfAgenda(texts, page, PartOfRow(page, 2)).name);
    EXPECT_EQ("Hall, Work", WordsOfAgenda(texts, page, PartOfRow(page, 2)).description);
    EXPECT_EQ("Thursday 16 April 2026, today, 1 item", WordsOfAgenda(texts, page, PartOfRow(page, 3)).name);
    EXPECT_EQ(-1, RowOfPart(page, {dayvane::AccessPart::Item, static_cast<int>(from), 2}));
}

} // namespace
