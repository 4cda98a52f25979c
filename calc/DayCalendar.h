// The true days of Japan for a view, a printer or a server: holidays by the law of the day, observances, the sky's
// days, a published list and the host's own days.
#pragma once

#include "DayProvider.h"
#include "HolidayCsv.h"
#include "StatutoryHolidays.h"

#include <map>
#include <set>
#include <string_view>

namespace dayvane {
// What a calendar answers with; each layer may be off.
struct DayLayers
{
    bool statutoryHolidays = true;
    bool listedHolidays = true; // of a loaded file
    bool hostDays = true;
    bool observances = true;
    bool solarTerms = true;
    bool seasonalDays = true; // without the days within higan and doyo, whose first and last are named
};

enum class DayLanguage
{
    Japanese,
    English // names without an English one, such as the host's, stay as they are
};

enum class HostDayEffect
{
    NameOnly,
    DayOff,
    WorkingDay // work goes on, also where the day is a holiday
};

// A day of the host's own: a company's day off, a birthday, an examination.
struct HostDay
{
    std::string name; // UTF-8; may be empty for a day that only has an effect or a colour
    int year = 0;     // 0: every year
    int month = 0;    // 1 to 12
    int day = 0;      // 29 February of every year: in leap years only
    HostDayEffect effect = HostDayEffect::NameOnly;
    int colorRow = 0; // as in DayInfo
};

// An object of its own, without tables that others share: questions may come from any thread as long as none changes
// it. Names come in this order: holiday, the host's, observances, solar term, seasonal days.
class DayCalendar : public DayProvider
{
public:
    void SetLayers(const DayLayers& layers) { m_layers = layers; }
    const DayLayers& Layers() const { return m_layers; }
    void SetLanguage(DayLanguage language) { m_language = language; }
    DayLanguage Language() const { return m_language; }

    // The number by which the day is removed, from 1; 0, and nothing added, when there is no such day.
    int AddHostDay(const HostDay& day);
    bool RemoveHostDay(int number); // false: there is none
    void ClearHostDays() { m_hostDays.clear(); }

    // Takes the holidays of a file (see ReadHolidayCsv, whose problems it returns). In each year of which the file has
    // a day they stand instead of the rules of the law, and of files loaded before. "休日", as the Cabinet Office lists
    // days off without a name of their own, takes the law's name where the law knows the day.
    std::vector<CsvProblem> LoadHolidays(std::string_view csv);
    void ClearLoadedHolidays();

    DayInfo InfoOf(const CivilDate& date) const override;

private:
    struct Holiday
    {
        std::string name;
        DayKind kind;
    };
    struct NumberedHostDay
    {
        int number;
        HostDay day;
    };

    // english: nullptr for none.
    void Append(DayInfo& info, const std::string& japanese, const char* english, DayKind kind) const;
    void Append(DayInfo& info, const std::string& name, DayKind kind) const;
    void AppendHoliday(const CivilDate& date, DayInfo& info) const;
    void AppendHostDays(const CivilDate& date, DayInfo& info) const;
    void AppendObservances(const CivilDate& date, DayInfo& info) const;
    void AppendSolarTerm(const CivilDate& date, DayInfo& info) const;
    void AppendSeasonalDays(const CivilDate& date, DayInfo& info) const;

    DayLayers m_layers;
    DayLanguage m_language = DayLanguage::Japanese;
    std::multimap<int, NumberedHostDay> m_hostDays; // by month x 100 + day, so that a question finds few of many
    int m_lastHostDay = 0;
    std::map<int, Holiday> m_listedHolidays; // by serial day
    std::set<int> m_listedYears;
};
} // namespace dayvane
