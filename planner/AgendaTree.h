// What programs that read aloud get of the agenda: a cell for each day, in it an item for each line. Pure values.
#pragma once

#include "access/AccessTree.h"
#include "access/SpokenWords.h"
#include "planner/AgendaRows.h"

namespace planner {

// What the agenda shows.
struct AgendaPage
{
    const std::vector<AgendaRow>& rows;
    const std::vector<Occurrence>& occurrences;
    DayNumber today = 0;
    int top = 0;       // the first row in sight
    int rowHeight = 1; // pixels
    CRect client = CRect(0, 0, 0, 0);

    CRect BoxOf(int row) const;
};

// A day's key is its number, an item's index its place among those of the day: both stay while the agenda grows.
dayvane::AccessTree MakeAgendaTree(const AgendaPage& page);
dayvane::AccessId PartOfRow(const AgendaPage& page, int row);       // the root for a row that there is not
int RowOfPart(const AgendaPage& page, const dayvane::AccessId& id); // -1: none

dayvane::AccessWords WordsOfAgenda(const dayvane::AccessTexts& texts, const AgendaPage& page,
                                   const dayvane::AccessId& id);

} // namespace planner
