// What a calendar shows of a date: the interface through which views and pickers ask, and its required answer.
#pragma once

#include "CivilDate.h"

#include <string>
#include <vector>

namespace dayvane {
enum class DayKind
{
    StatutoryHoliday,
    SubstituteHoliday, // a day off for a holiday on a Sunday
    BetweenHolidays,   // a day off as both its neighbours are holidays
    Observance,        // shown by name only
    SolarTerm,
    SeasonalDay, // of the farmer's year: 八十八夜, 土用, ...
    HostDay      // the host's own
};

struct DayName
{
    std::string text; // UTF-8
    DayKind kind = DayKind::Observance;

    friend bool operator==(const DayName& a, const DayName& b) { return a.text == b.text && a.kind == b.kind; }
};

struct DayInfo
{
    std::vector<DayName> names; // the most important first; empty on a day without a name
    bool isDayOff = false;      // shown in the holiday colour; Sundays are not days off by themselves
    int colorRow = 0;           // row of the table of day colours, from 1, that stands instead of the day's; 0: none
};

// The names one after the other, a space between.
std::string NamesText(const DayInfo& info);

// Answers for dates. A view asks once per date when its range changes, not when it paints. A date that is not valid has
// nothing.
class DayProvider
{
public:
    virtual ~DayProvider() = default;
    virtual DayInfo InfoOf(const CivilDate& date) const = 0;
};

// The days of AnnotateDay: CCalcHoliday's named day, then the solar term. Like these it is for the thread of
// the user interface only. Lives as long as the library.
const DayProvider& StandardDayProvider();

// The provider of all views and pickers that have none of their own; nullptr, as at first: the standard one. It must
// live as long as it is set. For the thread of the user interface; windows show it after their next Refresh or range.
void SetDefaultDayProvider(const DayProvider* provider);
const DayProvider* DefaultDayProvider();
} // namespace dayvane
