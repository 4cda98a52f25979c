// Civil dates and the day numbers of CLunarDate (Julian day numbers less one).
#pragma once

#include "CivilDate.h"

namespace dayvane {
// The number of a day of the calendar in force then: Julian before 15 October 1582. Fields of -1 give a number without
// meaning.
int LunarDayNumberOf(const CivilDate& date);

// The civil date of a day number, by the method of CLunarDate::JCtoGC.
CivilDate CivilDateOfLunarDayNumber(double dayNumber);
} // namespace dayvane
