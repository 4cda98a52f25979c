// The days that a time grid shows as columns, as a value: which they are, how keys and hosts move them, and how a
// selection is carried along.
#pragma once

#include "../../core/DateMath.h"

#include <afxdisp.h>

#include <algorithm>

namespace dayvane {

struct GridSelection
{
    COleDateTime current; // the current date
    COleDateTime begin;
    COleDateTime end;

    // With the current date at the selection's end where it stands on another day: a host has moved one alone.
    GridSelection Agreed() const { return {IsSameDay(current, end) ? current : end, begin, end}; }
};

// Consecutive days, one a column.
struct DayRange
{
    COleDateTime first;        // 00:00 of the first column's day; not valid: no day is shown
    int days = 1;              // columns
    bool keepsToWeeks = false; // turned by weeks, else by as many days as there are columns

    static DayRange OneDay(const COleDateTime& date) { return From(date, 1, 0); }
    // `days` columns from the date on, or, with a first day of the week (1 Sunday .. 7 Saturday, 0: none), from the
    // beginning of its week on. A week that begins before the year 100 begins with that year.
    static DayRange From(const COleDateTime& date, int days, int firstDayOfWeek);

    int FirstDay() const;            // its day number, 0 when no day is shown
    COleDateTime LastMoment() const; // 23:59:59 of the last column's day; at most that of the last day of the year 9999
    bool Holds(const COleDateTime& date) const { return ColumnOf(date) != -1; }
    int ColumnOf(const COleDateTime& date) const;                           // -1: not shown
    COleDateTime DayOf(int column) const { return AddDays(first, column); } // 00:00

    // A whole view: as many days as are shown, or the whole weeks among them, at least one.
    int LengthOfView() const { return keepsToWeeks ? std::max(days / kDaysPerWeek, 1) * kDaysPerWeek : days; }
    // By how many whole views (negative: earlier) the range has to move to hold the day, or, where the day lies between
    // two ranges, to lie after it in the direction of the move.
    int ViewsToShow(int day) const;
    // The range moved by whole views until it holds the date; itself where no such range does: between two working
    // weeks, or beyond the years 100 to 9999.
    DayRange Showing(const COleDateTime& date) const;
};

// The selection moved by one column (step -1 or 1); with `extend` its begin stays. The end comes to the next day that
// the range shows after turning: from the Friday of a working week to the Monday.
GridSelection MovedByColumn(const GridSelection& selection, const DayRange& range, int step, bool extend);

// The kinds of multi-day views: 1 .. 13 that many days and one more, 14 the working week, 15 the week.
struct DateScale
{
    int days;
    bool fromFirstDayOfWeek;
    const char* caption;
};
constexpr int kWorkingWeekScale = 14;
const DateScale* FindDateScale(int number); // nullptr for other numbers

} // namespace dayvane
