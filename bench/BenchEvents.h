// The items of a benchmark run: read from a file of lines, or made up.
#pragma once

#include "core/CalendarRecords.h"

#include <string>
#include <vector>

namespace bench {

// Lines `id start end allday text`, separated by blanks: local date-times YYYY-MM-DDThh:mm[:ss] (or a date alone),
// all-day 0 or 1, and the rest of the line as text (UTF-8). Empty lines and lines that begin with # are passed over.
// Throws std::runtime_error with the number of the first line that cannot be read.
std::vector<tagCC_ITEM> ReadEvents(const std::string& file);

// Over how many days made-up items spread, and whether all of them are an hour or two within one day.
struct EventSpread
{
    int days;
    bool timedOnly;
};

// `count` items, the same ones for the same arguments, all of them touching the days from firstDay on: mostly an hour
// or two, some all-day, some over several days.
std::vector<tagCC_ITEM> GenerateEvents(int count, const COleDateTime& firstDay, const EventSpread& spread);

// YYYY-MM-DD, with Thh:mm or Thh:mm:ss after it or not; false when it is no date.
bool ParseDateTime(const std::string& text, COleDateTime& date);

} // namespace bench
