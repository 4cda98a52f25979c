// The fonts of a view as one record; heights for 96 dpi. A view begins with fonts of its own.
#pragma once

#include <afxwin.h>

struct CalendarFonts
{
    LOGFONT text;    // items, names of days, holidays
    LOGFONT hours;   // the ruler of the time grids
    LOGFONT caption; // the date in their title bands

    // The system's font for messages in three sizes. Where the system is Japanese and that font has no Japanese
    // characters: Yu Gothic UI or Meiryo, whichever is installed.
    static CalendarFonts Modern();
};
