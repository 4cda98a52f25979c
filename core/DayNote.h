// What a view writes beside a date, as its day provider says it.
#pragma once

#include "../calc/DayProvider.h"

#include <afx.h>
#include <afxdisp.h>

#include <string>

namespace dayvane {

struct DayNote
{
    std::u16string name; // holidays, observances and the host's days, a space between; empty: none
    std::u16string term; // solar terms and seasonal days, likewise
    bool isDayOff = false;
    int colorRow = 0; // see DayInfo::colorRow
};

// provider nullptr: the process-wide one, and where there is none the annotations that AnnotateDay gives. Empty for a
// date that is not valid.
DayNote NoteOf(const COleDateTime& date, const DayProvider* provider);

// What the same provider says of a valid day.
DayInfo InfoOfDay(const CivilDate& date, const DayProvider* provider);

// A text in the library's code page; characters that it lacks become question marks.
CString OwnTextOf(const std::string& utf8);

} // namespace dayvane
