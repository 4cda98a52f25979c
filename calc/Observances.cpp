#include "calc/Observances.h"

#include "calc/CodePage932.h"
#include "calc/NamedDays.h"
#include "calc/SeasonalDays.h"

#include <string_view>

namespace dayvane {
namespace {
// Source: the algorithm of J. Meeus, "Astronomical Algorithms", chapter 8, for every Gregorian year.
bool IsEasterSunday(const CivilDate& date)
{
    const int year = date.year;
    const int century = year / 100;
    const int lunar = year % 19;
    const int moonCorrection = (century - (century + 8) / 25 + 1) / 3;
    const int moon = (19 * lunar + century - century / 4 - moonCorrection + 15) % 30;
    const int weekday = (32 + 2 * (century % 4) + 2 * (year % 100 / 4) - moon - year % 4) % 7;
    const int late = (lunar + 11 * moon + 22 * weekday) / 451;
    const int dayOfMarch = 22 + moon + weekday - 7 * late; // from 1 March on
    return SerialDayOf(date) == civil::DayNumber(year, 3, dayOfMarch);
}

bool IsNthWeekday(const CivilDate& date, int month, int weekday, int nth)
{
    return date.month == month && date.day == NthWeekday(date.year, month, weekday, nth);
}

const tagHOLIDAY* MovableObservance(const CivilDate& date)
{
    return IsNthWeekday(date, 5, kSunday, 2)      ? &kMothersDay
           : IsNthWeekday(date, 6, kSunday, 3)    ? &kFathersDay
           : IsNthWeekday(date, 11, kThursday, 4) ? &kThanksgiving
           : IsEasterSunday(date)                 ? &kEaster
                                                  : nullptr;
}
// Setsubun moves with the sky; the table has it on its usual day.
bool IsOn(const tagHOLIDAY& row, const CivilDate& date)
{
    constexpr std::string_view kSetsubun = "節分";
    if (row.nMonth != date.month) {
        return false;
    }
    if (row.lpszName == kSetsubun && IsSkyDate(date.year, date.month, date.day)) {
        return SeasonalDaysOf(date.year, date.month, date.day).Has(SeasonalDay::Setsubun);
    }
    return row.nDay == date.day;
}
} // namespace

std::vector<std::string> ObservancesOf(const CivilDate& date)
{
    std::vector<std::string> names;
    if (!date.IsValid()) {
        return names;
    }
    const auto append = [&names](const tagHOLIDAY& day) {
        names.emplace_back();
        Utf8FromCodePage932(day.lpszName, names.back());
    };
    if (const tagHOLIDAY* movable = MovableObservance(date)) {
        append(*movable);
    }
    for (const tagHOLIDAY& row : kNamedDays) {
        if (row.bObservance == kObservance && IsOn(row, date)) {
            append(row);
        }
    }
    return names;
}
} // namespace dayvane
