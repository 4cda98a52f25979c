// English names of holidays, observances, solar terms and seasonal days.
#pragma once

#include <string_view>

namespace dayvane {
// The English name of a day's Japanese name (UTF-8); nullptr when it has none here. Holidays as the Cabinet Office
// translates them. ASCII; lives as long as the library.
const char* EnglishDayName(std::string_view japanese);
} // namespace dayvane
