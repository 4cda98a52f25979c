#include "views/daygrid/DayLook.h"

#include "core/DateMath.h"

namespace dayvane {
namespace {

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

std::u16string HolidayOf(const BoxDay& info)
{
    return info.m_wideHoliday.empty() ? OwnText(info.m_strHoliday) : info.m_wideHoliday;
}

std::u16string SolarTermOf(const BoxDay& info)
{
    return info.m_wideTerm.empty() ? OwnText(info.m_strText.Mid(info.m_strHoliday.GetLength() + 1)) : info.m_wideTerm;
}

std::u16string DayNumberText(const COleDateTime& date, bool firstOfGrid, const TextSettings& texts)
{
    return texts.Date(date.GetDay() == 1 ? &CalendarTexts::shortDate
                      : firstOfGrid      ? &CalendarTexts::monthDay
                                         : &CalendarTexts::day,
                      date);
}

} // namespace

bool HasColorRow(const BoxDay& info, int hostColor, const DayColorTable& colors)
{
    return hostColor >= 0 && hostColor <= colors.GetSize() && colors.GetSize() > DAYROW_SATURDAY;
}

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
        look.annotation = input.nameBeside ? input.texts.DayNames(HolidayOf(info)) : std::u16string();
        if (info.m_nHolidayType == 0 && !look.selected) {
            text = holidayText;
        }
    }
    if (info.m_bSolarTerm == 1 && input.showSolarTerm && input.termBeside) {
        AppendWord(look.annotation, input.texts.DayNames(SolarTermOf(info)));
    }
    AppendWord(look.annotation, input.texts.HostText(info.m_dayProperty.strText));
    look.annotationColor = text;

    if (isDated) {
        look.dayAlone = input.texts.Date(&CalendarTexts::day, info.m_date);
        look.dayNumber = DayNumberText(info.m_date, firstOfGrid, input.texts);
        if (input.redFirsts && info.m_date.GetDay() == 1 && !look.selected) {
            text = holidayText;
        }
    }
    look.dayNumberColor = text;
    return look;
}

std::u16string BarText(const tagCALENDAR_ITEM& item, bool fullday, int displayMode, const TextSettings& texts)
{
    std::u16string text = texts.HostText(item.strText);
    if (fullday) {
        return text;
    }
    std::u16string times = texts.Time(item.dtStart);
    if (displayMode == kModeBothTimes) {
        times += u"-" + texts.Time(item.dtEnd);
    }
    return times + u" " + text;
}

std::u16string WeekBarText(const tagCALENDAR_ITEM& item, bool fullday, const TextSettings& texts)
{
    const std::u16string text = texts.HostText(item.strText);
    return fullday ? text : texts.Time(item.dtStart) + u" - " + texts.Time(item.dtEnd) + u" " + text;
}

std::u16string YearBarText(const COleDateTime& start, const COleDateTime& end, const CString& text,
                           const TextSettings& texts)
{
    const CivilDate first = CivilDateOf(start);
    const CivilDate last = CivilDateOf(end);
    std::u16string days = texts.Date(&CalendarTexts::monthDay, start);
    // The month need not be said again where it stands before the day.
    const bool monthIsFirst = texts.words->monthDay.find(u"%#m") == 0;
    if (last.year != first.year || last.month != first.month || (last.day != first.day && !monthIsFirst)) {
        days += u"-" + texts.Date(&CalendarTexts::monthDay, end);
    } else if (last.day != first.day) {
        days += u"-" + texts.Date(&CalendarTexts::day, end);
    }
    return days + u" " + texts.HostText(text);
}

} // namespace dayvane
