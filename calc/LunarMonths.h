// The months of the lunisolar calendar around a day.
//
// Months begin on the days of new moon in Japan. A month's number follows from the principal term (sun at a multiple of
// 30 degrees) in it; a month without one, in a year of thirteen months, is a leap month and repeats the number of the
// month before.
#pragma once

namespace dayvane
{
// One lunar month.
struct LunarMonth
{
    int number = 0; // 1 to 12; a leap month has the number of the month before
    bool leap = false;
    double firstDay = 0; // whole day number of its new moon
};

// The five months from the last new moon before a solstice or equinox on.
struct LunarQuarter
{
    static constexpr int kMonths = 5;

    LunarMonth months[kMonths];

    // The month that a day (whole number) lies in.
    const LunarMonth& MonthOf(double day) const;
};

// The months of the solstice or equinox at or before a day (whole day number of CLunarDate).
//
// By definition the answer rests on the moment of that solstice or equinox as the search finds it from the very day
// asked. Neighbouring days find moments that differ by a fraction of a second and so the same months, unless a
// decision is that close. Answers are kept, per thread, with the range of moments for which they were shown to hold;
// a day outside every such range is worked out afresh, so the answer is the defined one for every day.
const LunarQuarter& LunarQuarterOf(double day);
} // namespace dayvane
