#include "calc/ExactLunarMonths.h"

#include "calc/SkyMoments.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr int kWinterSolstice = 270;
constexpr int kSolsticeMonth = 11;
constexpr int kPrincipalStep = 30;

struct SolsticeYearMoments
{
    std::array<SkyMoment, SolsticeYearDays::kNewMoons> newMoons;
    std::array<SkyMoment, SolsticeYearDays::kTerms> terms;
};

SolsticeYearMoments MomentsOf(int year)
{
    SolsticeYearMoments moments;
    moments.terms[0] = SolarLongitudeMoment(year - 1, kWinterSolstice);
    for (int i = 1; i < SolsticeYearDays::kTerms; ++i) {
        moments.terms[i] = SolarLongitudeMoment(year, (kWinterSolstice + i * kPrincipalStep) % 360);
    }
    // The month of the solstice may begin a little after its moment, on the same day, and the one before must be there.
    const int newMoon = NewMoonBefore(moments.terms[0].day);
    for (int i = 0; i < SolsticeYearDays::kNewMoons; ++i) {
        moments.newMoons[i] = MoonQuarterMoment(newMoon + (i - 1) * kQuarters);
    }
    return moments;
}

template <typename Moments, typename Days>
void TakeDays(const Moments& moments, int zoneMinutes, Days& days)
{
    std::transform(moments.begin(), moments.end(), days.begin(),
                   [zoneMinutes](const SkyMoment& moment) { return InZone(moment, zoneMinutes).serialDay; });
}

// Puts every moment in turn that may fall on another day there; daysOfKind is a part of days.
template <typename Moments, typename Days>
void AddOtherwise(const Moments& moments, int zoneMinutes, Days& daysOfKind, const SolsticeYearDays& days,
                  SolsticeYear& result)
{
    for (std::size_t i = 0; i < moments.size() && result.otherwiseCount < SolsticeYear::kMostOtherwise; ++i) {
        const int day = daysOfKind[i];
        const int other = OtherDayOf(moments[i], zoneMinutes);
        if (other != day) {
            daysOfKind[i] = other;
            result.otherwise[result.otherwiseCount++] = MonthsOf(days);
            daysOfKind[i] = day;
        }
    }
}

SolsticeYear FindSolsticeYear(int year, int zoneMinutes)
{
    const SolsticeYearMoments moments = MomentsOf(year);
    SolsticeYearDays days;
    TakeDays(moments.newMoons, zoneMinutes, days.newMoons);
    TakeDays(moments.terms, zoneMinutes, days.terms);
    SolsticeYear result;
    result.surely = MonthsOf(days);
    AddOtherwise(moments.newMoons, zoneMinutes, days.newMoons, days, result);
    AddOtherwise(moments.terms, zoneMinutes, days.terms, days, result);
    return result;
}

// Whether one of the terms falls on a day in [begin, end).
bool HasPrincipalTerm(const SolsticeYearDays& days, int begin, int end)
{
    const auto term = std::lower_bound(days.terms.begin(), days.terms.end(), begin);
    return term != days.terms.end() && *term < end;
}
} // namespace

const SolsticeYearMonths::Month* SolsticeYearMonths::MonthOf(int serialDay) const
{
    const auto end = months.begin() + count;
    const auto after =
        std::find_if(months.begin(), end + 1, [serialDay](const Month& month) { return month.firstDay > serialDay; });
    return after == months.begin() || after == end + 1 ? nullptr : &*(after - 1);
}

SolsticeYearMonths MonthsOf(const SolsticeYearDays& days)
{
    const auto monthWith = [&days](int day) {
        return static_cast<int>(std::upper_bound(days.newMoons.begin(), days.newMoons.end(), day) -
                                days.newMoons.begin()) -
               1;
    };
    const int first = monthWith(days.terms.front());
    SolsticeYearMonths result;
    result.count = monthWith(days.terms.back()) - first;
    const bool hasLeapMonth = result.count == 13;
    bool isLeapMonthFound = false;
    int number = kSolsticeMonth;
    for (int i = 0; i <= result.count; ++i) {
        SolsticeYearMonths::Month& month = result.months[i];
        month.firstDay = days.newMoons[first + i];
        if (i > 0) {
            // The month after the last has the next solstice.
            month.isLeap = hasLeapMonth && !isLeapMonthFound && i < result.count &&
                           !HasPrincipalTerm(days, month.firstDay, days.newMoons[first + i + 1]);
            isLeapMonthFound = isLeapMonthFound || month.isLeap;
            number = month.isLeap ? number : number % 12 + 1;
        }
        month.number = number;
    }
    return result;
}

const SolsticeYear& SolsticeYearOf(int year, int zoneMinutes)
{
    struct Known
    {
        int year = 0;
        int zoneMinutes = 0;
        SolsticeYear solsticeYear;
    };
    constexpr int kKept = 8;
    thread_local std::array<Known, kKept> known;
    Known& entry = known[static_cast<unsigned>(year) % kKept];
    if (entry.year != year || entry.zoneMinutes != zoneMinutes) {
        entry = {year, zoneMinutes, FindSolsticeYear(year, zoneMinutes)};
    }
    return entry.solsticeYear;
}
} // namespace dayvane
