// Times as grid rows and back. A time grid divides the day into rows of equal height, some to the hour.
#pragma once

#include "../../core/DateMath.h"
#include "../../core/ViewScale.h"

#include <afxdisp.h>

namespace dayvane {

// The sizes of the time grids, in pixels.
struct TimeGridMetrics
{
    ViewScale scale; // that they are for
    int captionHeight = 30;
    int headerHeight = 20; // the day header of the multi-day view
    int rulerRight = 60;   // the ruler: 0 .. rulerRight - 1
    int gridLeft = 61;     // the column between ruler and grid belongs to neither
    int rowHeight = 20;
    int laneStep = 25;   // the full-day band: from one lane to the next
    int bandPadding = 5; // below its last lane
    int laneInset = 5;   // left, right and above a bar
    int barHeight = 20;
    int boxInset = 2;     // left and right of a timed item's box
    int textInset = 2;    // from a box to its text, above, below and at the right
    int textLeft = 3;     // and at the left
    int bandPercent = 40; // of the window's height: the most that a limited band takes
    int tidyWidth = 12;   // least width of a tidy box
    int moreWidth = 24;   // of the mark that counts hidden items, beside boxes of the least width
    int moreHeight = 16;
    int freeBesideOneDay = 20;  // kept free right of the overlap columns: day view
    int freeBesideManyDays = 5; // multi-day view
    int endlessHours = 230;     // height of a box that has no end on its day, in hours

    static TimeGridMetrics For(const ViewScale& scale);
};
constexpr TimeGridMetrics kTimeGrid{};

// A date and time as the layout looks at it thousands of times: the day number and the time of day, after rounding to
// the second as the fields of a date are.
struct ClockTime
{
    bool isValid = false;
    int day = 0;   // whole days since 30 December 1899
    int hour = -1; // -1 as the fields of a date that is not valid
    int minute = -1;
};
ClockTime ClockTimeOf(const COleDateTime& time);

// Rows an hour: 1 .. 60. Rows and times agree exactly for the divisors of 60; with another number the rows of an hour
// stand for slightly less than the hour, and its last minutes fall into the next one.
struct TimeScale
{
    int rowsPerHour = 2;
    TimeGridMetrics metrics = {};

    int MinutesPerRow() const { return kMinutesPerHour / rowsPerHour; }
    int RowsPerDay() const { return rowsPerHour * kHoursPerDay; }
    int HourHeight() const { return rowsPerHour * metrics.rowHeight; }
    int DayHeight() const { return RowsPerDay() * metrics.rowHeight; }
    bool IsOnTheHour(int row) const { return row % rowsPerHour == 0; }

    // The row that holds the time of day. A date that is not valid has hour and minute -1: its row lies before row 0.
    int RowOfTime(const COleDateTime& time) const { return RowOfTime(ClockTimeOf(time)); }
    int RowOfTime(const ClockTime& time) const { return rowsPerHour * time.hour + time.minute / MinutesPerRow(); }

    // When the row begins on that day; invalid for the row after the last, or an invalid day.
    COleDateTime TimeOfRow(const COleDateTime& day, int row) const;

    // A row's upper edge, counted from the top of the day.
    int TopOfRow(int row) const { return row * metrics.rowHeight; }
    // From the top of the day to the upper edge of the row that holds the time.
    int TopOfTime(const ClockTime& time) const { return TopOfRow(RowOfTime(time)); }
    // The same to the lower edge of the row that an item ending then still touches: an end inside a row takes it whole.
    int BottomOfTime(const ClockTime& time) const;

    // The time moved back to the beginning of its row.
    COleDateTime RowStart(const COleDateTime& time) const;
    COleDateTime MoveRows(const COleDateTime& time, int rows) const { return AddMinutes(time, rows * MinutesPerRow()); }
};

// The scale so many steps finer, or with a negative number coarser, of those that divide an hour.
int ScaleBeside(int rowsPerHour, int steps);

} // namespace dayvane
