// The differences between the two mini calendars, as data: a grid of periods (months or years), each a title over its
// cells (days or months). Everything else about them is one engine.
#pragma once

#include "../core/CalendarTexts.h"
#include "../core/DateMath.h"
#include "../core/ViewScale.h"

#include <afxdisp.h>
#include <atltypes.h>

namespace dayvane {

// What one cell of a period stands for.
enum class CellUnit
{
    Day,
    Month
};

// Sizes in pixels.
struct PeriodMetrics
{
    SIZE block;        // one period with its title
    int titleHeight;   // the title band at the block's top
    int weekdayHeight; // the line of weekday names below it; 0: none
    int cellsTop;      // from the block's top to its cells
    int cellsLeft;     // from the block's left edge to its cells
    SIZE cell;
    int arrowWidth;          // kept free of the title at both ends of its band
    int footerHeight;        // the line below all blocks
    int weekNumberWidth = 0; // the column of week numbers left of the cells; 0: none

    // The block is what its parts need.
    PeriodMetrics At(const ViewScale& scale, int cellColumns, int cellRows) const;
};

struct PeriodPolicy
{
    CellUnit unit;
    int monthsPerPeriod; // 1 or 12; a page is one period
    int cellColumns;
    int cellRows;
    int periodsPerLongPage; // Ctrl with Page Up and Page Down
    bool sweepsByDefault;   // a press starts a range
    bool chosenPeriodStays; // the period chosen in the popup appears in the clicked block, not in the first one
    PeriodMetrics metrics;

    int CellCount() const { return cellColumns * cellRows; }
    PeriodPolicy At(const ViewScale& scale) const;
    // Periods are numbered through: the number of their first month divided by monthsPerPeriod.
    int FirstPeriod() const { return kFirstMonthNumber / monthsPerPeriod; } // holds January 100
    int LastPeriod() const { return kLastMonthNumber / monthsPerPeriod; }   // holds December 9999
};

extern const PeriodPolicy kMonthPolicy;         // months of days
extern const PeriodPolicy kNumberedMonthPolicy; // the same with a column of week numbers
extern const PeriodPolicy kYearPolicy;          // years of months

// The size in client pixels that shows rows x columns of blocks and the line below them.
CSize PeriodGridSize(const PeriodPolicy& policy, int rows, int columns);

// How many rows (cx) and columns fit a client area, at least one of each.
void FitPeriodGrid(const PeriodPolicy& policy, int cx, int cy, int& rows, int& columns);

// The period that holds a valid date; the first day, which is the first cell, and the last cell of a period.
int PeriodOf(const PeriodPolicy& policy, const COleDateTime& date);
COleDateTime DateOfPeriod(const PeriodPolicy& policy, int period);
COleDateTime LastCellOf(const PeriodPolicy& policy, int period);
int ClampPeriod(const PeriodPolicy& policy, int period);
// eras: the year of the era that holds on the period's last day, "令和8年11月"; before the eras as without.
std::u16string PeriodTitle(const PeriodPolicy& policy, int period, const CalendarTexts& texts, bool eras = false);

// The start of the cell that a date falls in: its day, or the first of its month, at 00:00. Invalid for an invalid
// date.
COleDateTime CellDateOf(CellUnit unit, const COleDateTime& date);

// Steps from a cell's date; they stop at the first and the last cell of the years 100 to 9999. AddPeriods keeps the
// day of the month as far as the month has it.
COleDateTime AddCells(CellUnit unit, const COleDateTime& date, int cells);
COleDateTime AddPeriods(const PeriodPolicy& policy, const COleDateTime& date, int periods);

// The weekday (1 Sunday .. 7 Saturday) of a column of days, when weeks begin on firstDayOfWeek.
int WeekdayOfColumn(int firstDayOfWeek, int column);
std::u16string MonthText(int month, const CalendarTexts& texts); // 1 .. 12, as a cell shows it

// The line below the blocks: the present day, or the present month. Empty when "now" is not valid.
// dateAlone: without the words before the date.
std::u16string FooterText(CellUnit unit, const COleDateTime& now, const CalendarTexts& texts, bool dateAlone = false);

} // namespace dayvane
