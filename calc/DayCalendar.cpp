#include "calc/DayCalendar.h"

#include "calc/EnglishDayNames.h"
#include "calc/Observances.h"
#include "calc/SkyDay.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr int kAnyLeapYear = 2000;
// How the Cabinet Office's list begins the names of days off that have none of their own.
constexpr std::string_view kNamelessDayOff = u8"休日";

constexpr int kDegreesBetweenEquinoxes = 180;
constexpr std::string_view kSetsubun = u8"節分";

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
        AppendSeasonalDays(date, info);
    }
    return info;
}

void DayCalendar::Append(DayInfo& info, const std::string& japanese, const char* english, DayKind kind) const
{
    const bool isEnglish = m_language == DayLanguage::English && english;
    info.names.push_back({isEnglish ? english : japanese, kind});
}

void DayCalendar::Append(DayInfo& info, const std::string& name, DayKind kind) const
{
    Append(info, name, EnglishDayName(name), kind);
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
    if (!m_layers.observances) {
        return;
    }
    const bool isSetsubunSeasonal = m_layers.seasonalDays && IsSkyDate(date.year, date.month, date.day);
    for (const std::string& name : ObservancesOf(date)) {
        if (name != kSetsubun || !isSetsubunSeasonal) {
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
        const SkyName name = SolarTermName(longitude);
        Append(info, name.japanese, name.english, DayKind::SolarTerm);
    }
}

void DayCalendar::AppendSeasonalDays(const CivilDate& date, DayInfo& info) const
{
    if (!m_layers.seasonalDays) {
        return;
    }
    const SeasonalDays days = SeasonalDaysOf(date.year, date.month, date.day);
    for (int i = 0; i < static_cast<int>(SeasonalDay::Count); ++i) {
        const SeasonalDay day = static_cast<SeasonalDay>(i);
        const bool isWithinPeriod = day == SeasonalDay::Higan || day == SeasonalDay::Doyo; // many days, without news
        if (days.Has(day) && !isWithinPeriod) {
            const SkyName name = SeasonalDayName(day);
            Append(info, name.japanese, name.english, DayKind::SeasonalDay);
        }
    }
}
} // namespace dayvane
