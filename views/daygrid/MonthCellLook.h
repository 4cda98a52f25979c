// How a day cell of the month view looks: colours and texts, worked out before anything is drawn.
#pragma once

#include "MonthLayout.h"

namespace dayvane {

using DayColorTable = CArray<tagCALENDAR_DAY_COLOR, const tagCALENDAR_DAY_COLOR&>;

// Columns of a row of the day colours, and the rows that days get without the host's doing.
enum MonthDayColor
{
    MONTHCOLOR_BACKGROUND = 0,
    MONTHCOLOR_OTHERMONTH = 5, // text of a day of another month
    MONTHCOLOR_TEXT = 6,
};
enum MonthDayRow
{
    MONTHROW_ORDINARY = 0,
    MONTHROW_HOLIDAY = 1, // and Sunday
    MONTHROW_SATURDAY = 2,
};

// What of the control decides about looks.
struct MonthLookInput
{
    const DayColorTable& colors;
    COLORREF selectedText;
    bool showHoliday;
    bool showSolarTerm;
    bool showSelection; // whether selected days look selected
    int firstSelected;  // day numbers; firstSelected > lastSelected: none
    int lastSelected;
};

struct MonthCellLook
{
    COLORREF background;
    bool today;
    bool selected;
    CString annotation; // holiday, solar term and the host's text for the day; may be empty
    COLORREF annotationColor;
    CString dayNumber; // day; with the month in the grid's first cell; with year and month on a 1st
    COLORREF dayNumberColor;
};

// dayColor: what the control's GetDayColor tells for the cell, 0 none. A row that the table does not have throws
// CInvalidArgException.
MonthCellLook CalcCellLook(const MonthCellDate& cell, bool firstOfGrid, int dayColor, const MonthLookInput& input);

// The texts of an item's bar. Display mode 8 gives a timed item both its times, other modes its start.
CString BarText(const tagCALENDAR_ITEM& item, bool fullday, int displayMode);
// "9:00 - 10:30 text" for a timed item.
CString WeekBarText(const tagCALENDAR_ITEM& item, bool fullday);
// "4/25 text", "4/25-28 text" over several days of a month, "4/25-5/3 text" over months: the days of the whole item.
CString YearBarText(const COleDateTime& start, const COleDateTime& end, const CString& text);

} // namespace dayvane
