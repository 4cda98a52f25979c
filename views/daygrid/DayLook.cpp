#include "views/daygrid/DayLook.h"

#include "core/DateMath.h"

namespace dayvane {
namespace {

constexpr int kYearsPerCentury = 100;
constexpr int kModeBothTimes = 8; // item display mode

const tagCALENDAR_DAY_COLOR& RowOf(const BoxDay& info, int dayColor, const DayColorTable& colors)
{
    if (dayColor != 0) {
        return colors[dayColor - 1];
    }
    const int dayOfWeek = info.m_date.GetDayOfWeek();
    if (dayOfWeek == kSaturday) {
        return colors[DAYROW_SATURDAY];
    }
    const bool isDayOff = info.m_bHoliday == 1 && info.m_nHolidayType == 0;
    return colors[dayOfWeek == kSunday || isDayOff ? DAYROW_HOLIDAY : DAYROW_ORDINARY];
}

COLORREF TextColorOf(const BoxDay& info, int dayColor, const DayLookInput& input)
{
    if (dayColor == 0 && input.dimOtherMonths && !(info.m_nFlags & DAY_IN_MONTH)) {
        return ThemeOr(input.otherMonthText, input.colors[DAYROW_ORDINARY].crColor[DAYCOLOR_OTHERMONTH]);
    }
    return RowOf(info, dayColor, input.colors).crColor[DAYCOLOR_TEXT];
}

void AppendWord(std::u16string& text, const std::u16string& word)
{
    if (!text.empty() && !word.empty()) {
        text += u' ';
    }
    text += word;
}

std::u16string SolarTermOf(const BoxDay& info)
{
    return OwnText(info.m_strText.Mid(info.m_strHoliday.GetLength() + 1));
}

std::u16string TimeText(const COleDateTime& time)
{
    CString text;
    text.Format("%d:%02d", time.GetHour(), time.GetMinute());
    return OwnText(text);
}

std::u16string DayNumberText(const CivilDate& date, bool firstOfGrid)
{
    CString number;
    if (date.day == 1) {
        number.Format("%02d/%d/%d", date.year % kYearsPerCentury, date.month, date.day);
    } else if (firstOfGrid) {
        number.Format("%d/%d", date.month, date.day);
    } else {
        number.Format("%d", date.day);
    }
    return OwnText(number);
}

} // namespace

DayLook CalcDayLook(const BoxDay& info, bool firstOfGrid, int hostColor, const DayLookInput& input)
{
    const bool hasProvidedColor = info.m_nColorRow > 0 && info.m_nColorRow <= input.colors.GetSize();
    const int dayColor = hostColor == 0 && hasProvidedColor ? info.m_nColorRow : hostColor;
    DayLook look;
    look.background = RowOf(info, dayColor, input.colors).crColor[DAYCOLOR_BACKGROUND];
    look.today = (info.m_nFlags & DAY_TODAY) != 0;
    const bool isDated = IsValid(info.m_date);
    const int day = isDated ? DayNumberOf(info.m_date) : 0;
    look.selected = input.showSelection && isDated && input.firstSelected <= day && day <= input.lastSelected;

    const COLORREF holidayText = input.colors[DAYROW_HOLIDAY].crColor[DAYCOLOR_TEXT];
    COLORREF text = look.selected ? input.selectedText : TextColorOf(info, dayColor, input);
    if (info.m_bHoliday == 1 && input.showHoliday) {
        look.annotation = OwnText(info.m_strHoliday);
        if (info.m_nHolidayType == 0 && !look.selected) {
            text = holidayText;
        }
    }
    if (info.m_bSolarTerm == 1 && input.showSolarTerm) {
        AppendWord(look.annotation, SolarTermOf(info));
    }
    AppendWord(look.annotation, input.texts.HostText(info.m_dayProperty.strText));
    look.annotationColor = text;

    if (isDated) {
        const CivilDate fields = CivilDateOf(info.m_date);
        look.dayNumber = DayNumberText(fields, firstOfGrid);
        if (fields.day == 1 && !look.selected) {
            text = holidayText;
        }
    }
    look.dayNumberColor = text;
    return look;
}

std::u16string BarText(const tagCALENDAR_ITEM& item, bool fullday, int displayMode, const TextSettings& texts)
{
    const std::u16string text = texts.HostText(item.strText);
    if (fullday) {
        return text;
    }
    std::u16string times = TimeText(item.dtStart);
    if (displayMode == kModeBothTimes) {
        times += u"-" + TimeText(item.dtEnd);
    }
    return times + u" " + text;
}

std::u16string WeekBarText(const tagCALENDAR_ITEM& item, bool fullday, const TextSettings& texts)
{
    const std::u16string text = texts.HostText(item.strText);
    return fullday ? text : TimeText(item.dtStart) + u" - " + TimeText(item.dtEnd) + u" " + text;
}

std::u16string YearBarText(const COleDateTime& start, const COleDateTime& end, const CString& text,
                           const TextSettings& texts)
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
    return OwnText(days) + u" " + texts.HostText(text);
}

} // namespace dayvane
