// Items as text/calendar and as plain text, on the clipboard and in drags from one program to another.
#pragma once

#include "planner/CalendarSet.h"

#include <afxwin.h>

#include <optional>
#include <string>

namespace planner {

// The registered format of calendar files.
UINT CalendarFormat();

// What items are for programs that know no calendars: a line for each.
std::string PlainTextOf(const CalendarSet& calendars, const std::vector<OccurrenceId>& ids);

// FALSE: another program holds the clipboard.
bool PutOnClipboard(CWnd& owner, const std::string& calendar, const std::string& text);

struct PastedText
{
    std::string text; // UTF-8
    bool isCalendar = false;
};
// Nothing when there is nothing that can be pasted.
std::optional<PastedText> TakeFromClipboard(CWnd& owner);
bool IsPasteable();

// A global memory block of these bytes and a zero character after them.
HGLOBAL GlobalOf(const void* bytes, std::size_t size);
// Of a block that came from elsewhere.
std::string BytesOfGlobal(HGLOBAL block);
std::string WideTextOfGlobal(HGLOBAL block); // as UTF-8

// Puts items into the document: of a calendar all events, of a plain text one event whose title is the first line and
// whose notes are the rest.
MergeReport PasteText(CalendarSet& calendars, const PastedText& pasted, const EventTimes& place);

} // namespace planner
