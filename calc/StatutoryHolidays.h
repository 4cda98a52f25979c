// Japan's days off by the law that was in force on the day, from 20 July 1948 on.
#pragma once

#include "CivilDate.h"
#include "DayProvider.h"

namespace dayvane {
struct StatutoryDay
{
    const char* name = nullptr; // UTF-8; nullptr: no day off. Lives as long as the library
    DayKind kind = DayKind::StatutoryHoliday;
    const char* source = nullptr; // the act, UTF-8
};

// Years to come follow the law as it stands, the equinox days the sky (to the year 2400). Any thread may ask.
StatutoryDay StatutoryDayOf(const CivilDate& date);

// The name: a holiday's own, "振替休日" for a substitute day, "国民の休日" for a day between two holidays; nullptr for
// any other day and for fields that make no date.
const char* StatutoryHoliday(int year, int month, int day);
} // namespace dayvane
