// Calendar arithmetic as C functions.
#include "CtlMessages.h"
#include "core/DateMath.h"
#include "CtlText.h"

#include "calc/DayCalendar.h"
#include "calc/ExactSky.h"
#include "calc/StatutoryHolidays.h"

namespace dayvane::ctl {

namespace {

bool IsDate(int year, int month, int day)
{
    return IsValid(COleDateTime(year, month, day, 0, 0, 0));
}

bool IsLanguage(int language)
{
    return language == DVL_JAPANESE || language == DVL_ENGLISH;
}

DayLanguage LanguageOf(int language)
{
    return language == DVL_ENGLISH ? DayLanguage::English : DayLanguage::Japanese;
}

// A function's answer; nothing is thrown across the border.
template <class Body>
int Guarded(Body body)
{
    try {
        return body();
    } catch (CException* exception) {
        exception->Delete();
    } catch (...) {
    }
    return DVE_FAILED;
}

} // namespace

} // namespace dayvane::ctl

using namespace dayvane;
using namespace dayvane::ctl;

extern "C" int __stdcall DayvaneIsHoliday(int year, int month, int day, LPWSTR name, int cchName)
{
    return Guarded([&] {
        if (!IsDate(year, month, day)) {
            return DVE_DATE;
        }
        const char* holiday = StatutoryHoliday(year, month, day);
        CopyText(WideOfStore(holiday ? holiday : ""), name, cchName);
        return holiday ? 1 : 0;
    });
}

extern "C" int __stdcall DayvaneDayNames(int year, int month, int day, int language, LPWSTR names, int cchNames)
{
    return Guarded([&] {
        if (!IsDate(year, month, day)) {
            return DVE_DATE;
        }
        if (!IsLanguage(language)) {
            return DVE_VALUE;
        }
        DayCalendar calendar;
        calendar.SetLanguage(LanguageOf(language));
        return CopyText(WideOfStore(NamesText(calendar.InfoOf({year, month, day}))), names, cchNames);
    });
}

extern "C" int __stdcall DayvaneSolarTerm(int year, int month, int day)
{
    return Guarded([&] { return IsSkyDate(year, month, day) ? ExactSolarTerm(year, month, day) : DVE_DATE; });
}

extern "C" int __stdcall DayvaneLunarDate(int year, int month, int day, DV_LUNAR* date)
{
    return Guarded([&] {
        if (!IsPointer(reinterpret_cast<LPARAM>(date))) {
            return DVE_POINTER;
        }
        if (date->cbSize != sizeof(*date)) {
            return DVE_SIZE;
        }
        const ExactLunarDate lunar = LunarDateOf(year, month, day);
        if (!lunar.IsValid()) {
            return DVE_DATE;
        }
        date->nYear = lunar.year;
        date->nMonth = lunar.month;
        date->nDay = lunar.day;
        date->bLeapMonth = lunar.isLeapMonth;
        date->bUncertain = lunar.isUncertain;
        date->nRokuyo = Rokuyo(lunar);
        return 1;
    });
}

extern "C" int __stdcall DayvaneSetDays(int days, int language)
{
    return Guarded([&] {
        if (!IsLanguage(language) || (days != DVN_FORMULAS && days != DVN_LAW)) {
            return DVE_VALUE;
        }
        static DayCalendar& calendar = *new DayCalendar; // controls ask it to the end of the process
        calendar.SetLanguage(LanguageOf(language));
        SetDefaultDayProvider(days == DVN_LAW ? &calendar : nullptr);
        return 1;
    });
}
