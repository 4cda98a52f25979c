// The boxes that stand for days: a cell of the month view, and what is known about a day in the month and week views.
#pragma once

#include "../../core/CalendarRecords.h"

#include <string>

namespace dayvane {

class BoxRange;
class DayProvider;

// A box of the grid or of the header.
class MonthCell
{
public:
    virtual ~MonthCell() = default;

    CRect m_rect = CRect(0, 0, 0, 0);
    int m_bMore = 0;      // 1: an item of this day did not fit
    int m_nItemCount = 0; // screen items of this day
};

enum DayFlags : unsigned
{
    DAY_IN_MONTH = 1, // the month that the view is built around
    DAY_TODAY = 2,
};

// What is known about a day.
class BoxDay
{
public:
    virtual ~BoxDay() = default;

    COleDateTime m_date;    // 00:00; invalid beyond the years 100 to 9999
    unsigned m_nFlags = 0;  // DayFlags
    CString m_strText;      // holiday, one blank and solar term, when there is a solar term; else empty; page 932
    CString m_strHoliday;   // empty on a plain day; code page 932
    int m_bHoliday = 0;     // 1: a named day
    int m_nHolidayType = 0; // of a named day: 0 day off, 1 observance
    int m_bSolarTerm = 0;
    int m_nColorRow = 0;                    // of the day provider; 0: none
    std::u16string m_wideHoliday;           // the same names where m_strHoliday lacks a character; else empty
    std::u16string m_wideTerm;              // likewise the solar term of m_strText
    tagCALENDAR_DAY_PROPERTY m_dayProperty; // set by the host
};

using MonthCellArray = CArray<MonthCell, const MonthCell&>;
using BoxDayArray = CArray<BoxDay, const BoxDay&>;

// The days of the range with their annotations; properties are empty. Flags are set against the month (of any year) of
// `current` and against `today`. provider: see NoteOf in core/DayNote.h.
void FillDays(const BoxRange& range, const COleDateTime& current, const COleDateTime& today,
              const DayProvider* provider, BoxDayArray& days);
// Which of them is today.
void MarkToday(const COleDateTime& today, BoxDayArray& days);
// Asks the provider again for days that are there; all else of them stays.
void AnnotateDays(const DayProvider* provider, BoxDayArray& days);

// The month view's range, as its days stand.
BoxRange RangeOf(const BoxDayArray& days);

// Texts and numbers of all days' properties.
void ClearDayProperties(BoxDayArray& days);

} // namespace dayvane
