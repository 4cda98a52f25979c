#include "calc/LunarDate.h"

#include "calc/DayNumbers.h"
#include "calc/LunarMonths.h"
#include "calc/SkyPlaces.h"
#include "calc/SolarTerms.h"

using namespace dayvane;

double CLunarDate::GCtoJC(const COleDateTime& date) const
{
    return LunarDayNumberOf(CivilDateOf(date));
}

void CLunarDate::JCtoGC(double dayNumber, int& year, int& month, int& day) const
{
    const CivilDate date = CivilDateOfLunarDayNumber(dayNumber);
    year = date.year;
    month = date.month;
    day = date.day;
}

double CLunarDate::NORMALIZATION_ANGLE(double degrees) const
{
    return NormalizedAngle(degrees);
}

double CLunarDate::LONGITUDE_SUN(double T) const
{
    return SunLongitude(T);
}

double CLunarDate::LONGITUDE_MOON(double T) const
{
    return MoonLongitude(T);
}

double CLunarDate::CalcChuuki(double moment, double angleStep, double& longitude) const
{
    return FindSolarLongitude(moment, angleStep, longitude);
}

double CLunarDate::CalcSaku(double moment) const
{
    return FindNewMoon(moment);
}

void CLunarDate::CalcLunarCalendar(const COleDateTime& date, int& year, int& month, int& day) const
{
    constexpr int kLastMonthSureOfYear = 9; // months 10 to 12 may reach into the next civil year

    const int dayNumber = LunarDayNumberOf(CivilDateOf(date));
    const LunarMonth& lunarMonth = LunarQuarterOf(dayNumber).MonthOf(dayNumber);
    const CivilDate civilDate = CivilDateOfLunarDayNumber(dayNumber);
    month = lunarMonth.number;
    day = static_cast<int>(dayNumber - lunarMonth.firstDay + 1);
    year = civilDate.year;
    if (month > kLastMonthSureOfYear && month > civilDate.month) {
        --year;
    }
}

int CLunarDate::Get24Setuki(const COleDateTime& date, CString& name) const
{
    const CivilDate day = CivilDateOf(date);
    const SolarTerm* term = day.IsValid() ? SolarTermOf(LunarDayNumberOf(day)) : nullptr;
    if (!term) {
        return 0;
    }
    name = term->name;
    return 1;
}

int CLunarDate::Get24Setuki2(int& index, const COleDateTime& date, CString& name) const
{
    const CivilDate day = CivilDateOf(date);
    const SolarTerm* term = day.IsValid() ? SolarTermWithin(LunarDayNumberOf(day)) : nullptr;
    if (!term) {
        return 0;
    }
    index = static_cast<int>(term - g_solarTerms);
    name = term->name;
    return 1;
}

int CLunarDate::GetSolarPos(double* longitude, int day, double fraction) const
{
    const Place sun = SunPlace(day, fraction);
    *longitude = sun.longitude;
    return sun.distance;
}

int CLunarDate::GetLunarPos(double* longitude, double* latitude, int day, double fraction) const
{
    const Place moon = MoonPlace(day, fraction);
    *longitude = moon.longitude;
    *latitude = moon.latitude;
    return moon.distance;
}
