#include "views/daygrid/MonthCellLook.h"

#include "core/DateMath.h"

namespace dayvane {
namespace {

constexpr int kYearsPerCentury = 100;
constexpr int kModeBothTimes = 8; // item display mode

const tagCALENDAR_DAY_COLOR& RowOf(const MonthCellDate& cell, int dayColor, const DayColorTable& colors)
{
    if (dayColor != 0) {
        return colors[dayColor - 1];
    }
    const int dayOfWeek = cell.m_date.GetDayOfWeek();
    if (dayOfWeek == kSaturday) {
        return colors[MONTHROW_SATURDAY];
    }
    const bool isDayOff = cell.m_bHoliday == 1 && cell.m_nHolidayType == 0;
    return colors[dayOfWeek == kSunday || isDayOff ? MONTHROW_HOLIDAY : MONTHROW_ORDINARY];
}

COLORREF TextColorOf(const MonthCellDate& cell, int dayColor, const DayColorTable& colors)
{
    if (dayColor == 0 && !(cell.m_nFlags & MONTHCELL_INMONTH)) {
        return colors[MONTHROW_ORDINARY].crColor[MONTHCOLOR_OTHERMONTH];
    }
    return RowOf(cell, dayColor, colors).crColor[MONTHCOLOR_TEXT];
}

void AppendWord(CString& text, const CString& word)
{
    if (!text.IsEmpty() && !word.IsEmpty()) {
        text += ' ';
    }
    text += word;
}

CString SolarTermOf(const MonthCellDate& cell)
{
    return cell.m_strText.Mid(cell.m_strHoliday.GetLength() + 1);
}

CString TimeText(const COleDateTime& time)
{
    CString text;
    text.Format("%d:%02d", time.GetHour(), time.GetMinute());
    return text;
}

} // namespace

MonthCellLook CalcCellLook(const MonthCellDate& cell, bool firstOfGrid, int dayColor, const MonthLookInput& input)
{
    MonthCellLook look;
    look.background = RowOf(cell, dayColor, input.colors).crColor[MONTHCOLOR_BACKGROUND];
    look.today = (cell.m_nFlags & MONTHCELL_TODAY) != 0;
    const bool isDated = IsValid(cell.m_date);
    const int day = isDated ? DayNumberOf(cell.m_date) : 0;
    look.selected = input.showSelection && isDated && input.firstSelected <= day && day <= input.lastSelected;

    const COLORREF holidayText = input.colors[MONTHROW_HOLIDAY].crColor[MONTHCOLOR_TEXT];
    COLORREF text = look.selected ? input.selectedText : TextColorOf(cell, dayColor, input.colors);
    if (cell.m_bHoliday == 1 && input.showHoliday) {
        look.annotation = cell.m_strHoliday;
        if (cell.m_nHolidayType == 0 && !look.selected) {
            text = holidayText;
        }
    }
    if (cell.m_bSolarTerm == 1 && input.showSolarTerm) {
        AppendWord(look.annotation, SolarTermOf(cell));
    }
    AppendWord(look.annotation, cell.m_dayProperty.strText);
    look.annotationColor = text;

    if (isDated) {
        const CivilDate fields = CivilDateOf(cell.m_date);
        if (fields.day == 1) {
            look.dayNumber.Format("%02d/%d/%d", fields.year % kYearsPerCentury, fields.month, fields.day);
            if (!look.selected) {
                text = holidayText;
            }
        } else if (firstOfGrid) {
            look.dayNumber.Format("%d/%d", fields.month, fields.day);
        } else {
            look.dayNumber.Format("%d", fields.day);
        }
    }
    look.dayNumberColor = text;
    return look;
}

CString BarText(const tagCALENDAR_ITEM& item, bool fullday, int displayMode)
{
    if (fullday) {
        return item.strText;
    }
    CString times = TimeText(item.dtStart);
    if (displayMode == kModeBothTimes) {
        times += "-" + TimeText(item.dtEnd);
    }
    return times + " " + item.strText;
}

CString WeekBarText(const tagCALENDAR_ITEM& item, bool fullday)
{
    if (fullday) {
        return item.strText;
    }
    return TimeText(item.dtStart) + " - " + TimeText(item.dtEnd) + " " + item.strText;
}

CString YearBarText(const COleDateTime& start, const COleDateTime& end, const CString& text)
{
    const CivilDate first = CivilDateOf(start);
    const CivilDate last = CivilDateOf(end);
    CString days;
    days.Format("%d/%d", first.month, first.day);
    if (last.year != first.year || last.month != first.month) {
        days.AppendFormat("-%d/%d", last.month, last.day);
    } else if (last.day != first.day) {
        days.AppendFormat("-%d", last.day);
    }
    return days + " " + text;
}

} // namespace dayvane
