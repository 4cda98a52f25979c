#include "views/daygrid/DayCells.h"

#include "calc/DayAnnotation.h"
#include "core/DateMath.h"
#include "views/daygrid/BoxRange.h"

namespace dayvane {
namespace {

BoxDay InfoOf(const COleDateTime& date, int currentMonth, const CivilDate& today)
{
    BoxDay info;
    info.m_date = date;
    const CivilDate fields = CivilDateOf(date);
    if (!IsValid(date)) {
        return info;
    }
    if (fields.month == currentMonth) {
        info.m_nFlags |= DAY_IN_MONTH;
    }
    if (fields == today) {
        info.m_nFlags |= DAY_TODAY;
    }
    const DayAnnotation annotation = AnnotateDay(date);
    if (annotation.holidayName) {
        info.m_strHoliday = annotation.holidayName;
        info.m_bHoliday = 1;
        info.m_nHolidayType = annotation.isDayOff ? 0 : 1;
    }
    if (annotation.solarTerm) {
        info.m_strText = AnnotationText(annotation);
        info.m_bSolarTerm = 1;
    }
    return info;
}

} // namespace

void FillDays(const BoxRange& range, const COleDateTime& current, const COleDateTime& today, BoxDayArray& days)
{
    const int currentMonth = CivilDateOf(current).month;
    const CivilDate todayFields = CivilDateOf(today);
    days.RemoveAll();
    days.SetSize(range.Count());
    for (int i = 0; i < range.Count(); ++i) {
        days[i] = InfoOf(range.DateOfBox(i), currentMonth, todayFields);
    }
}

BoxRange RangeOf(const BoxDayArray& days)
{
    for (int i = 0; i < static_cast<int>(days.GetSize()); ++i) {
        if (IsValid(days[i].m_date)) {
            return BoxRange::FromDay(RangeKind::Month, DayNumberOf(days[i].m_date) - i);
        }
    }
    return BoxRange(RangeKind::Month);
}

void ClearDayProperties(BoxDayArray& days)
{
    for (int i = 0; i < static_cast<int>(days.GetSize()); ++i) {
        tagCALENDAR_DAY_PROPERTY& property = days[i].m_dayProperty;
        property.strText.Empty();
        property.nDayColor = property.nReserved = property.bUseMyWorkTime = 0;
    }
}

} // namespace dayvane
