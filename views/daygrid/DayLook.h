// How a day looks in the month and week views, and the texts of item bars: worked out before anything is drawn.
#pragma once

#include "../../core/TextSettings.h"
#include "../../core/ThemeColors.h"
#include "DayCells.h"

namespace dayvane {

// Columns of a row of the day colours, and the rows that days get unless the host sets another.
enum DayColorColumn
{
    DAYCOLOR_BACKGROUND = 0,
    DAYCOLOR_OTHERMONTH = 5, // text of a day of another month
    DAYCOLOR_TEXT = 6,
};
enum DayColorRow
{
    DAYROW_ORDINARY = 0,
    DAYROW_HOLIDAY = 1, // and Sunday
    DAYROW_SATURDAY = 2,
};

// Settings and selection of the control that decide how its days look.
struct DayLookInput
{
    const DayColorTable& colors;
    COLORREF selectedText;
    bool showHoliday;
    bool showSolarTerm;
    bool showSelection; // whether selected days look selected
    int firstSelected;  // day numbers; firstSelected > lastSelected: none
    int lastSelected;
    bool dimOtherMonths = true; // days outside the month that the view is built around
    TextSettings texts = {};
    COLORREF otherMonthText = CalendarTheme::kOwn; // kOwn: the table's
    bool nameBeside = true;                        // the number; else they stand under it
    bool termBeside = true;
    bool redFirsts = true; // as in CalendarTheme
};

struct DayLook
{
    COLORREF background;
    bool today;
    bool selected;
    std::u16string annotation; // holiday, solar term and the host's text for the day; may be empty
    COLORREF annotationColor;
    std::u16string dayAlone;  // for a narrow box
    std::u16string dayNumber; // day; with the month in the grid's first cell; with year and month on a 1st
    COLORREF dayNumberColor;
};

// Whether the table has the rows that the look of the day takes.
bool HasColorRow(const BoxDay& info, int hostColor, const DayColorTable& colors);
// hostColor: the control's GetDayColor for the day, 0 none: then the day provider's counts. A row that the table does
// not have throws CInvalidArgException.
DayLook CalcDayLook(const BoxDay& info, bool firstOfGrid, int hostColor, const DayLookInput& input);

// The texts of an item's bar. Display mode 8 gives a timed item both its times, other modes its start.
std::u16string BarText(const tagCALENDAR_ITEM& item, bool fullday, int displayMode, const TextSettings& texts);
// "9:00 - 10:30 text" for a timed item.
std::u16string WeekBarText(const tagCALENDAR_ITEM& item, bool fullday, const TextSettings& texts);
// "4/25 text", "4/25-28 text" over several days of a month, "4/25-5/3 text" over months: the days of the whole item.
std::u16string YearBarText(const COleDateTime& start, const COleDateTime& end, const CString& text,
                           const TextSettings& texts);

} // namespace dayvane
