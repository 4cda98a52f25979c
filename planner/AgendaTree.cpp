#include "planner/AgendaTree.h"

#include "core/DateMath.h"
#include "planner/ItemBridge.h"
#include "planner/Words.h"

using dayvane::AccessId;
using dayvane::AccessNode;
using dayvane::AccessPart;

namespace planner {

namespace {

constexpr int kDaysGrid = 1;
constexpr char kOpenKey[] = "Enter";

int Count(const AgendaPage& page)
{
    return static_cast<int>(page.rows.size());
}

const AgendaRow& RowAt(const AgendaPage& page, int row)
{
    return page.rows[static_cast<std::size_t>(row)];
}

// The row behind the last line of a heading's day.
int EndOfDayRows(const AgendaPage& page, int heading)
{
    int end = heading + 1;
    while (end < Count(page) && !RowAt(page, end).IsHeading()) {
        ++end;
    }
    return end;
}

std::string NameOfLine(const dayvane::AccessTexts& texts, const AgendaPage& page, int row)
{
    const Occurrence& occurrence = page.occurrences[RowAt(page, row).item];
    const COleDateTime day = DateOfLocal(RowAt(page, row).day * kDaySeconds);
    return dayvane::SpokenItem(texts, ItemOf(occurrence), ShownSummary(*occurrence.event), day, dayvane::EndOfDay(day),
                               false);
}

// Place and categories: what the line shows beside its text, and by its colour.
std::string MoreOfLine(const dayvane::AccessTexts& texts, const Event& event)
{
    std::vector<std::string> words = {event.location};
    words.insert(words.end(), event.categories.begin(), event.categories.end());
    return dayvane::Joined(words, texts.between);
}

dayvane::AccessWords WordsOfLine(const dayvane::AccessTexts& texts, const AgendaPage& page, int heading, int row)
{
    dayvane::AccessWords words;
    std::set<std::string> taken;
    for (int each = heading + 1; each <= row; ++each) {
        words.name = dayvane::TakeName(texts, taken, NameOfLine(texts, page, each));
    }
    const Event& event = *page.occurrences[RowAt(page, row).item].event;
    words.value = event.summary;
    words.description = MoreOfLine(texts, event);
    words.shortcut = kOpenKey;
    words.action = texts.open;
    return words;
}

} // namespace

CRect AgendaPage::BoxOf(int row) const
{
    const int y = (row - top) * rowHeight;
    return CRect(client.left, y, client.right, y + rowHeight);
}

dayvane::AccessTree MakeAgendaTree(const AgendaPage& page)
{
    dayvane::AccessTree tree(page.client);
    int days = 0;
    for (int row = 0; row < Count(page);) {
        const int end = EndOfDayRows(page, row);
        AccessNode day;
        day.id = PartOfRow(page, row);
        day.box = page.BoxOf(row);
        day.box.bottom = page.BoxOf(end - 1).bottom;
        day.grid = kDaysGrid;
        day.gridRow = days++;
        const int parent = tree.Add(0, day);
        for (int line = row + 1; line < end; ++line) {
            AccessNode item;
            item.id = {AccessPart::Item, day.id.key, line - row - 1};
            item.box = page.BoxOf(line);
            tree.Add(parent, item);
        }
        row = end;
    }
    return tree;
}

AccessId PartOfRow(const AgendaPage& page, int row)
{
    if (row < 0 || row >= Count(page)) {
        return {};
    }
    const AgendaRow& each = RowAt(page, row);
    const int key = static_cast<int>(each.day);
    const int heading = static_cast<int>(RowOfDay(page.rows, each.day));
    return each.IsHeading() ? AccessId{AccessPart::Cell, key, 0} : AccessId{AccessPart::Item, key, row - heading - 1};
}

int RowOfPart(const AgendaPage& page, const AccessId& id)
{
    if (id.part != AccessPart::Cell && id.part != AccessPart::Item) {
        return -1;
    }
    const int row = static_cast<int>(RowOfDay(page.rows, id.key)) + (id.part == AccessPart::Item ? id.index + 1 : 0);
    return PartOfRow(page, row) == id ? row : -1;
}

dayvane::AccessWords WordsOfAgenda(const dayvane::AccessTexts& texts, const AgendaPage& page, const AccessId& id)
{
    dayvane::AccessWords words;
    const int row = RowOfPart(page, id);
    if (row == -1) {
        words.name = Tr("Agenda");
        return words;
    }
    const DayNumber day = RowAt(page, row).day;
    const int heading = static_cast<int>(RowOfDay(page.rows, day));
    if (row != heading) {
        return WordsOfLine(texts, page, heading, row);
    }
    words.name = dayvane::SpokenCell(texts, dayvane::SpokenDate(texts, DateOfLocal(day * kDaySeconds)),
                                     day == page.today ? texts.today : "", EndOfDayRows(page, row) - row - 1);
    return words;
}

} // namespace planner
