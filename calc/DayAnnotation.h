// What a view writes beside a date: holiday and solar term, worked out together.
#pragma once

#include <afx.h>
#include <afxdisp.h>

namespace dayvane {
// The annotations of one date. Texts are the library's own (code page 932) and live as long as it.
struct DayAnnotation
{
    const char* holidayName = nullptr; // holiday or observance; nullptr: none
    bool isDayOff = false;             // a holiday that is a day off
    const char* solarTerm = nullptr;   // nullptr: none
};

// All of it is empty for a date that is not valid. Views ask once per date when their range changes, not when they
// paint. Only the thread of the user interface may ask (see CCalcHoliday).
DayAnnotation AnnotateDay(const COleDateTime& date);

// The name of the holiday or observance, and then, when the date is a solar term, a space and the term's name: a term
// on a day without a name of its own gives a text that begins with the space. Empty when there is neither.
CString AnnotationText(const DayAnnotation& annotation);

// AnnotationText of the date's annotations.
CString WhatsToday(const COleDateTime& date);
} // namespace dayvane
