// The lunar months from one winter solstice to the next.
#pragma once

#include <array>

namespace dayvane {
// The days, as civil::DayNumber, of everything that the months follow from.
struct SolsticeYearDays
{
    static constexpr int kNewMoons = 16; // from one or two before the first solstice to after the last
    static constexpr int kTerms = 13;    // principal terms, from the first winter solstice to the last

    std::array<int, kNewMoons> newMoons;
    std::array<int, kTerms> terms;
};

// The months from the one with a winter solstice to before the one with the next: 12 or 13.
struct SolsticeYearMonths
{
    static constexpr int kMost = 14; // 13, and the first of the next

    struct Month
    {
        int firstDay = 0;
        int number = 0; // 1 to 12
        bool isLeap = false;
    };
    std::array<Month, kMost> months; // the one after the last is the 11th of the next
    int count = 0;

    // The month of a day, nullptr when it is none of these.
    const Month* MonthOf(int serialDay) const;
};

SolsticeYearMonths MonthsOf(const SolsticeYearDays& days);

// The months that end with the winter solstice of a civil year. Where a new moon or a term may also fall on another
// day, the months that would follow are kept as well, one set for each such moment.
struct SolsticeYear
{
    static constexpr int kMostOtherwise = 8; // of 29 moments; with the 13 minutes of 2400 one in two years

    SolsticeYearMonths surely;
    std::array<SolsticeYearMonths, kMostOtherwise> otherwise;
    int otherwiseCount = 0;
};

// The years asked last are kept, per thread; the reference holds until the thread's next call.
const SolsticeYear& SolsticeYearOf(int year, int zoneMinutes);
} // namespace dayvane
