#pragma once

#include "Messages.h"
#include "TimeZone.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace dayvane::ical {

// A stretch of a calendar file: one VEVENT, or anything between events.
struct Passage
{
    std::string_view raw;
    int line = 1; // of the file
    bool isEvent = false;
    int calendar = 0; // 0: outside every VCALENDAR; else the how-manieth
};

struct CalendarScan
{
    std::vector<Passage> passages; // put together they are the file, byte for byte
    ZoneTable zones;
    std::string zoneName; // the first X-WR-TIMEZONE of the file
    int zoneLine = 0;     // where it stands
    std::string name;     // the first X-WR-CALNAME, UTF-8

    // Where a new event goes: before passages[insertAt], in the last VCALENDAR.
    std::size_t insertAt = 0;
    int insertCalendar = 0; // 0: the file has no VCALENDAR
};

// Finds the events and time zones of a file. Components that are not closed end where the next one of their rank
// begins or the one around them ends, so that one lost END hides nothing. Events inside unknown components count.
// `text` must outlive the result.
CalendarScan ScanCalendar(std::string_view text, MessageLog& log);

} // namespace dayvane::ical
