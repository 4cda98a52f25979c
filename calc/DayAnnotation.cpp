#include "calc/DayAnnotation.h"

#include "calc/CalcHoliday.h"
#include "calc/CivilDate.h"
#include "calc/DayNumbers.h"
#include "calc/SolarTerms.h"

namespace dayvane {
DayAnnotation AnnotateDay(const COleDateTime& date)
{
    DayAnnotation annotation;
    tagHOLIDAY holiday;
    if (CCalcHoliday::IsHoliday(date, holiday)) {
        annotation.holidayName = holiday.lpszName;
        annotation.isDayOff = holiday.bObservance == 0;
    }
    const CivilDate day = CivilDateOf(date);
    if (day.IsValid()) {
        if (const SolarTerm* term = SolarTermOf(LunarDayNumberOf(day))) {
            annotation.solarTerm = term->name;
        }
    }
    return annotation;
}

CString AnnotationText(const DayAnnotation& annotation)
{
    CString text = annotation.holidayName;
    if (annotation.solarTerm) {
        text += " ";
        text += annotation.solarTerm;
    }
    return text;
}

CString WhatsToday(const COleDateTime& date)
{
    return AnnotationText(AnnotateDay(date));
}
} // namespace dayvane
