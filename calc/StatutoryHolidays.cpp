#include "calc/StatutoryHolidays.h"

#include "calc/ExactSky.h"
#include "calc/HolidayLaw.h"

#include <string_view>

namespace dayvane {
namespace {
// Days of March and September outside which no equinox of the valid years falls in the law's time.
constexpr int kFirstEquinoxDay = 17;
constexpr int kLastEquinoxDay = 25;
constexpr int kVernalLongitude = 0; // degrees, of the sun
constexpr int kAutumnalLongitude = 180;

// Guards the rows against a slip when the law changes: no holiday has two forms on one day.
constexpr bool AreRowsSound()
{
    for (const HolidayRow& row : kHolidayLaw) {
        for (const HolidayRow& other : kHolidayLaw) {
            const bool overlap = row.firstDay <= other.lastDay && other.firstDay <= row.lastDay;
            if (&row != &other && overlap && std::string_view(row.name) == other.name) {
                return false;
            }
        }
        if (row.firstDay > row.lastDay || row.month < 1 || row.month > 12) {
            return false;
        }
    }
    return true;
}
static_assert(AreRowsSound());

int NumberOf(const CivilDate& date)
{
    return date.year * 10000 + date.month * 100 + date.day;
}

bool IsEquinox(const CivilDate& date, int longitude)
{
    const bool isNear = date.day >= kFirstEquinoxDay && date.day <= kLastEquinoxDay;
    return isNear && DateOfSolarTerm(date.year, longitude) == date;
}

bool Matches(const HolidayRow& row, const CivilDate& date)
{
    if (row.month != date.month) {
        return false;
    }
    switch (row.rule) {
    case HolidayRule::Date:
        return row.day == date.day;
    case HolidayRule::NthMonday:
        return WeekdayOf(date) == kMonday && (date.day + 6) / 7 == row.day;
    case HolidayRule::VernalEquinox:
        return IsEquinox(date, kVernalLongitude);
    case HolidayRule::AutumnalEquinox:
        return IsEquinox(date, kAutumnalLongitude);
    }
    return false;
}

template <typename Row>
bool IsInForce(const Row& row, const CivilDate& date)
{
    const int number = NumberOf(date);
    return row.firstDay <= number && number <= row.lastDay;
}

// The holiday that a date is by itself; nullptr: none.
const HolidayRow* HolidayOf(const CivilDate& date)
{
    if (!date.IsValid()) {
        return nullptr;
    }
    for (const HolidayRow& row : kHolidayLaw) {
        if (IsInForce(row, date) && Matches(row, date)) {
            return &row;
        }
    }
    return nullptr;
}

bool IsHolidayOnSunday(const CivilDate& date)
{
    return date.IsValid() && WeekdayOf(date) == kSunday && HolidayOf(date);
}

// Whether a date that is no holiday by itself follows upon holidays of which one was on a Sunday.
bool FollowsHolidayOnSunday(const CivilDate& date)
{
    CivilDate before = AddDays(date, -1);
    while (HolidayOf(before)) {
        if (WeekdayOf(before) == kSunday) {
            return true;
        }
        before = AddDays(before, -1);
    }
    return false;
}

bool IsBetweenHolidays(const CivilDate& date)
{
    return HolidayOf(AddDays(date, -1)) && HolidayOf(AddDays(date, 1));
}

// For a date that is no holiday by itself.
bool Matches(NeighbourRule rule, const CivilDate& date)
{
    switch (rule) {
    case NeighbourRule::NextDay:
        return IsHolidayOnSunday(AddDays(date, -1));
    case NeighbourRule::NextFreeDay:
        return FollowsHolidayOnSunday(date);
    case NeighbourRule::BetweenButFree:
        return WeekdayOf(date) != kSunday && IsBetweenHolidays(date);
    case NeighbourRule::Between:
        return IsBetweenHolidays(date);
    }
    return false;
}
} // namespace

StatutoryDay StatutoryDayOf(const CivilDate& date)
{
    if (!date.IsValid() || NumberOf(date) < kFirstDayOfLaw) {
        return {};
    }
    if (const HolidayRow* row = HolidayOf(date)) {
        return {row->name, DayKind::StatutoryHoliday, row->source};
    }
    for (const NeighbourRow& row : kNeighbourLaw) {
        if (IsInForce(row, date) && Matches(row.rule, date)) {
            const bool isSubstitute = row.rule == NeighbourRule::NextDay || row.rule == NeighbourRule::NextFreeDay;
            return {row.name, isSubstitute ? DayKind::SubstituteHoliday : DayKind::BetweenHolidays, row.source};
        }
    }
    return {};
}

const char* StatutoryHoliday(int year, int month, int day)
{
    return civil::IsValid(year, month, day) ? StatutoryDayOf({year, month, day}).name : nullptr;
}
} // namespace dayvane
