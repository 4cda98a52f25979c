// Days that are known by name but are no days off: the observances among the named days, without a table that changes.
#pragma once

#include "CivilDate.h"

#include <string>
#include <vector>

namespace dayvane {
// The UTF-8 names of the date's observances: the movable ones first, then those of fixed days in the order of the
// table. Easter is that of the Gregorian calendar of every year. Any thread may ask.
std::vector<std::string> ObservancesOf(const CivilDate& date);
} // namespace dayvane
