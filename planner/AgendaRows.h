// The lines of an agenda: a heading for each day that has items, and the items under it. Pure values.
#pragma once

#include "planner/Calendar.h"

#include <string>
#include <vector>

namespace planner {

struct AgendaRow
{
    DayNumber day = 0;
    std::size_t item = 0; // index of the occurrence; kHeading: the day's heading
    std::string time;     // "9:00 - 10:00", "9:00 ...", "... 10:00"; empty for whole days

    static constexpr std::size_t kHeading = static_cast<std::size_t>(-1);
    bool IsHeading() const { return item == kHeading; }
};

// Of the days [from, to); an item stands under each day that it touches. `occurrences` are sorted as a document gives
// them. Today has a heading also when it has no items.
std::vector<AgendaRow> AgendaRowsOf(const std::vector<Occurrence>& occurrences, DayNumber from, DayNumber to,
                                    DayNumber today);

// The first row of that day or a later one; the number of rows when there is none.
std::size_t RowOfDay(const std::vector<AgendaRow>& rows, DayNumber day);

} // namespace planner
