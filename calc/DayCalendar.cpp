#include "calc/DayCalendar.h"

#include "calc/EnglishDayNames.h"
#include "calc/ExactSky.h"
#include "calc/Observances.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr int kAnyLeapYear = 2000;
// How the Cabinet Office's list begins the names of days off that have none of their own.
constexpr std::string_view kNamelessDayOff = u8"休日";

constexpr int kDegreesPerTerm = 15;
constexpr int kDegreesBetweenEquinoxes = 180;
// From longitude 0 on, a step of 15 degrees each.
constexpr std::string_view kSolarTermNames[] = {
    u8"春分", u8"清明", u8"穀雨", u8"立夏", u8"小満", u8"芒種", u8"夏至", u8"小暑",
    u8"大暑", u8"立秋", u8"処暑", u8"白露", u8"秋分", u8"寒露", u8"霜降", u8"立冬",
    u8"小雪", u8"大雪", u8"冬至", u8"小寒", u8"大寒", u8"立春", u8"雨水", u8"啓蟄",
};

int DayOfYearKey(int month, int day)
{
    return month * 100 + day;
}
} // namespace

int DayCalendar::AddHostDay(const HostDay& day)
{
    if (!civil::IsValid(day.year == 0 ? kAnyLeapYear : day.year, day.month, day.day)) {
        return 0;
    }
    m_hostDays.insert({DayOfYearKey(day.month, day.day), {++m_lastHostDay, day}});
    return m_lastHostDay;
}

bool DayCalendar::RemoveHostDay(int number)
{
    const auto found = std::find_if(m_hostDays.begin(), m_hostDays.end(),
                                    [number](const auto& entry) { return entry.second.number == number; });
    if (found == m_hostDays.end()) {
        return false;
    }
    m_hostDays.erase(found);
    return true;
}

std::vector<CsvProblem> DayCalendar::LoadHolidays(std::string_view csv)
{
    HolidayList list = ReadHolidayCsv(csv);
    for (const ListedHoliday& listed : list.holidays) {
        const int year = listed.date.year;
        if (m_listedYears.insert(year).second) {
            continue;
        }
        m_listedHolidays.erase(m_listedHolidays.lower_bound(civil::DayNumber(year, 1, 1)),
                               m_listedHolidays.upper_bound(civil::DayNumber(year, 12, 31)));
    }
    for (ListedHoliday& listed : list.holidays) {
        const StatutoryDay statutory = StatutoryDayOf(listed.date);
        Holiday holiday = {std::move(listed.name), statutory.kind};
        if (statutory.name && holiday.name.compare(0, kNamelessDayOff.size(), kNamelessDayOff) == 0) {
            holiday.name = statutory.name;
        }
        m_listedHolidays[SerialDayOf(listed.date)] = std::move(holiday);
    }
    return list.problems;
}

void DayCalendar::ClearLoadedHolidays()
{
    m_listedHolidays.clear();
    m_listedYears.clear();
}

DayInfo DayCalendar::InfoOf(const CivilDate& date) const
{
    DayInfo info;
    if (date.IsValid()) {
        AppendHoliday(date, info);
        AppendHostDays(date, info);
        AppendObservances(date, info);
        AppendSolarTerm(date, info);
    }
    return info;
}

void DayCalendar::Append(DayInfo& info, std::string_view name, DayKind kind) const
{
    const char* const english = m_language == DayLanguage::English ? EnglishDayName(name) : nullptr;
    info.names.push_back({english ? std::string(english) : std::string(name), kind});
}

void DayCalendar::AppendHoliday(const CivilDate& date, DayInfo& info) const
{
    if (m_layers.listedHolidays && m_listedYears.count(date.year) > 0) {
        const auto found = m_listedHolidays.find(SerialDayOf(date));
        if (found != m_listedHolidays.end()) {
            Append(info, found->second.name, found->second.kind);
            info.isDayOff = true;
        }
    } else if (m_layers.statutoryHolidays) {
        const StatutoryDay statutory = StatutoryDayOf(date);
        if (statutory.name) {
            Append(info, statutory.name, statutory.kind);
            info.isDayOff = true;
        }
    }
}

void DayCalendar::AppendHostDays(const CivilDate& date, DayInfo& info) const
{
    if (!m_layers.hostDays) {
        return;
    }
    const auto [first, last] = m_hostDays.equal_range(DayOfYearKey(date.month, date.day));
    for (auto entry = first; entry != last; ++entry) {
        const HostDay& hostDay = entry->second.day;
        if (hostDay.year != 0 && hostDay.year != date.year) {
            continue;
        }
        if (!hostDay.name.empty()) {
            Append(info, hostDay.name, DayKind::HostDay);
        }
        if (hostDay.effect != HostDayEffect::NameOnly) {
            info.isDayOff = hostDay.effect == HostDayEffect::DayOff;
        }
        info.colorRow = hostDay.colorRow > 0 ? hostDay.colorRow : info.colorRow;
    }
}

void DayCalendar::AppendObservances(const CivilDate& date, DayInfo& info) const
{
    if (m_layers.observances) {
        for (const std::string& name : ObservancesOf(date)) {
            Append(info, name, DayKind::Observance);
        }
    }
}

void DayCalendar::AppendSolarTerm(const CivilDate& date, DayInfo& info) const
{
    const int longitude = m_layers.solarTerms ? ExactSolarTerm(date.year, date.month, date.day) : -1;
    // The holidays of the equinoxes name their term.
    const bool isNamed = longitude % kDegreesBetweenEquinoxes == 0 && !info.names.empty() &&
                         info.names.front().kind == DayKind::StatutoryHoliday;
    if (longitude >= 0 && !isNamed) {
        Append(info, kSolarTermNames[longitude / kDegreesPerTerm], DayKind::SolarTerm);
    }
}
} // namespace dayvane
