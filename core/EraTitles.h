// Japanese eras in the titles of views and pickers: "令和8年11月", "平成31年4月-令和元年5月".
#pragma once

#include "../calc/Eras.h"
#include "DayLines.h"

namespace dayvane {

// The eras of all titles of the process: Meiji to Reiwa, and what SetTitleEras adds. For the thread of the user
// interface.
const EraTable& TitleEras();
void SetTitleEras(const EraTable& eras);

// The era of the days, in the library's code page: as much of a date as the unit says; first and last when these
// differ. Empty where no era holds, and for dates that are not valid.
CString EraTitle(const COleDateTime& first, const COleDateTime& last, TitleUnit unit);

} // namespace dayvane
