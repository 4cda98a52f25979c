// The months of the lunisolar calendar around a day.
//
// Months begin on the days of new moon in Japan. A month's number follows from the principal term (sun at a multiple of
// 30 degrees) in it; a month without one, in a year of thirteen months, is a leap month and repeats the number of the
// month before.
#pragma once

namespace dayvane {
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

// The months of the solstice or equinox at or before a day (whole day number of CLunarDate), as found from that day.
// The quarters asked last are kept, per thread; the reference holds until the thread's next call.
const LunarQuarter& LunarQuarterOf(double day);
} // namespace dayvane
