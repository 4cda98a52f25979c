// Between the calendar document and the records of the controls: pure values, no window.
//
// Times. The document counts seconds with exclusive ends; a control takes dates and the last moment of an item: an
// all-day item ends on its last day, a timed one that ends at midnight ends a second before it, so that it does not
// reach into the next day's cell.
#pragma once

#include "core/CalendarRecords.h"
#include "planner/CalendarSet.h"

#include <vector>

namespace planner {

// Invalid beyond the years 100 to 9999.
COleDateTime DateOfLocal(LocalTime time);
// The date must be valid.
LocalTime LocalOfDate(const COleDateTime& date);

// What a control shows of an occurrence. Its text is UTF-8; lParam is left to the caller. `color`: see ColorsOf.
tagCC_ITEM ItemOf(const Occurrence& occurrence, int color = CalendarSet::kByCategory);

// The times of an occurrence whose item was moved or resized to those of `moved`. What did not change keeps its exact
// seconds.
EventTimes TimesAfterMove(const EventTimes& before, const tagCC_ITEM& moved);

// The times of a new item over a selected range, both bounds inclusive: whole days when `wholeDays` or when the range
// goes from a first to a last moment of days.
EventTimes TimesOfSelection(const COleDateTime& begin, const COleDateTime& end, bool wholeDays);

// What of a selection is seen in a view of that one day: a selection that began on another day begins at the same clock
// on this one.
EventTimes TimesOnDay(const EventTimes& selection, DayNumber day);

// The fewest grid rows an hour, of those that a grid offers (ascending), on whose lines nearly all of these timed
// occurrences begin and end; the last when none fits. Occurrences outside [from, to) do not count.
int FittingTimeScale(const std::vector<Occurrence>& occurrences, LocalTime from, LocalTime to,
                     const std::vector<int>& offered);

// One line that describes an occurrence: when, what, where.
std::string DetailsOf(const Occurrence& occurrence);

// What a tip says of an occurrence: title, times, place and the beginning of the notes, each on lines of its own.
std::string TipOf(const Occurrence& occurrence);

// The text of one line without line breaks or tabs; a text of nothing gives a placeholder.
std::string ShownSummary(const Event& event);

// The colours of a kind of items, 0x00BBGGRR.
struct ItemColors
{
    COLORREF back;
    COLORREF shade;
    COLORREF outline;
    COLORREF text;
};

// By the first category, without one by the place, without that by the calendar that the event belongs to: so an item
// looks the same in every view and after every start, and what belongs together looks alike.
// A colour of the palette goes before: that of the calendar where several are shown.
const ItemColors& ColorsOf(const Event& event, int color = CalendarSet::kByCategory);

constexpr int kPaletteColors = 8;
const ItemColors& PaletteColors(int color); // kByCategory: grey
const char* PaletteName(int color);         // English

} // namespace planner
