// What is printed, free of windows: items, days, the range. Days are day numbers (core/DateMath.h), times minutes.
#pragma once

#include "PrintOptions.h"

#include "../core/TextSettings.h"

#include <atltypes.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace dayvane {

constexpr int kMinutesOfDay = 24 * 60;

struct PrintItem
{
    int firstDay = 0;
    int lastDay = 0;     // at least firstDay
    int startMinute = 0; // of the first day, 0 .. 1439
    int endMinute = 0;   // of the last day, exclusive, 0 .. 1440; an item of one day may end as it starts
    bool isWholeDay = false;
    std::u16string text; // line breaks count as blanks
    std::u16string place;
    COLORREF fill = 0xFFFFFF; // white: not filled
    COLORREF edge = 0xCF9365;
    bool isBold = false;
    bool isStruck = false; // italic and struck out, as on the screen
    int image = -1;        // -1: none

    bool IsLong() const { return lastDay > firstDay; }
    // The time grids show these above the hours.
    bool IsBand() const { return isWholeDay || IsLong(); }
    bool Overlaps(int from, int to) const { return firstDay <= to && lastDay >= from; } // days, both inclusive
};

// What the calendar and the host say of a day.
struct PrintDay
{
    std::u16string holiday;
    bool isDayOff = false;
    std::u16string solarTerm; // and seasonal days
    std::u16string sky;       // what the view says of every day: rokuyo, lunar date, the moon's quarters
    double moon = -1;         // elongation in degrees of the moon that stands before that; negative: none
    int lunarMonth = 0;       // 0: not known
    int lunarDay = 0;
    bool isLeapMonth = false;
    std::u16string note; // of the host
};

struct PrintSource
{
    std::vector<PrintItem> items;
    std::function<PrintDay(int)> dayFacts; // none: plain days
    int firstDayOfWeek = 1;                // 1 Sunday .. 7 Saturday
    std::u16string title;                  // of the view; empty: only the date stands on top
    std::shared_ptr<const CalendarTexts> texts = RequiredTexts();
    // What stands beside the title over these days: year of the era, week. None: nothing.
    std::function<std::u16string(int first, int last)> titleNote;
    std::function<int(int day)> weekOf; // number of the day's week, for the month; none: weeks have no numbers
    bool hasSky = false;                // days have the texts of the sky
    int today = 0;                      // day number, for "printed on"

    PrintDay FactsOf(int day) const { return dayFacts ? dayFacts(day) : PrintDay(); }
};

// Month and year take the month and the year of `firstDay`, week the seven days from it.
struct PrintRange
{
    PageKind kind = PageKind::Month;
    int firstDay = 0;
    int lastDay = 0;
};

} // namespace dayvane
