// The one source of "now" for every control, so that a host (or a test) can say what day it is.
#pragma once

#include <afxdisp.h>

// Sets the function that gives the present local date and time; nullptr: the system clock. All controls of the process.
void SetCalendarClock(COleDateTime (*pfnNow)());

namespace dayvane {
// The present local date and time; invalid when the clock has none.
COleDateTime Now();

// From a moment to the end of its day; a whole day for a moment that is not valid.
int MillisecondsToMidnight(const COleDateTime& now);
} // namespace dayvane
