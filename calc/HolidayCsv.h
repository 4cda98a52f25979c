// Lists of holidays as files: lines of a date and a name, as Japan's Cabinet Office publishes them.
#pragma once

#include "CivilDate.h"

#include <string>
#include <string_view>
#include <vector>

namespace dayvane {
struct ListedHoliday
{
    CivilDate date;
    std::string name; // UTF-8
};

// Why a line was left out.
enum class CsvFault
{
    Fields,    // not a date and a name
    Date,      // no day of the years 100 to 9999
    Name,      // empty, longer than 200 bytes, or with control characters
    Encoding,  // bytes of neither UTF-8 nor code page 932
    DateTwice, // the date of an earlier line
};

struct CsvProblem
{
    int line; // from 1
    CsvFault fault;
};

struct HolidayList
{
    std::vector<ListedHoliday> holidays; // in order of date
    std::vector<CsvProblem> problems;    // in order of line
};

// Reads a whole file. It is UTF-8 when all of it is (a byte order mark may precede it), else code page 932. Lines end
// with LF or CR LF; a first line that does not begin with a digit is a header; blank lines count but say nothing. A
// date is 2026/11/3 or 2026-11-03, either field may be in quotes, further fields must be blank. Any bytes are safe.
HolidayList ReadHolidayCsv(std::string_view bytes);
} // namespace dayvane
