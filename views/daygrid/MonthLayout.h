// The rectangles of the month view: bands, cells, and the items as bars or blocks. Client pixels; right and bottom
// edges do not count.
#pragma once

#include "BarGrid.h"
#include "DayCells.h"

namespace dayvane {

// Pixels.
struct MonthMetrics
{
    int captionHeight = 30;
    int headerHeight = 16;
    int headerInset = 2;       // left free on each side of a weekday's name
    int dayCaptionHeight = 20; // top of a cell that answers as its caption
    int stripHeight = 17;      // top of a cell that the frame of a marked day shades
    BarRules bars = {{15, 22, 1, 20}, BarReach::ToColumnOfLast, BarOverflow::ByAbsoluteValue};
    int blockTop = 20; // blocks of the variant: from the cell's top
    int blockInset = 2;

    static MonthMetrics For(const ViewScale& scale);
};
constexpr MonthMetrics kMonthMetrics;

// ---- Rectangles

struct MonthBands
{
    CRect caption; // title
    CRect header;  // weekday names
    CRect calendar;
};
MonthBands CalcMonthBands(const CRect& client, bool showCaption, const MonthMetrics& metrics = kMonthMetrics);

// Truncated: the last column and row take the remaining pixels.
CSize CalcMonthCellSize(const CRect& calendar);

// The last column and row end one pixel before the calendar does. Marks and counts start at 0.
void FillMonthCells(const CRect& header, const CRect& calendar, CSize cellSize, MonthCellArray& headerCells,
                    MonthCellArray& cells, const MonthMetrics& metrics = kMonthMetrics);

// The column of week numbers beside header and calendar.
struct WeekColumn
{
    CRect all;
    CRect head;
    CRect weeks;
    std::vector<CRect> lines; // above each week, one pixel high
    std::vector<CRect> numbers;
};
// firstCells: the first cell of each week. The numbers stand as high as those of the days.
WeekColumn PlaceWeekColumn(const CRect& header, const CRect& calendar, int width, const std::vector<CRect>& firstCells,
                           int numberHeight);

// ---- Items

// Rectangles and hidden flags of the items as bars; marks and counts of the cells start afresh.
void CalcMonthBars(const BoxDayArray& days, MonthCellArray& cells, ItemArray& items,
                   const MonthMetrics& metrics = kMonthMetrics);

// Rectangles of the items as blocks that fill the cell of their start, for the variant of the view: nothing is stacked
// and nothing hidden. Counts start afresh. marksCovered: a cell with more items than the one that is seen in it gets a
// mark; else none has one.
void CalcMonthBlocks(const BoxDayArray& days, MonthCellArray& cells, ItemArray& items,
                     const MonthMetrics& metrics = kMonthMetrics, bool marksCovered = false);

void ClearLoads(MonthCellArray& cells);
BoxGrid BoxGridOf(const MonthCellArray& cells);
void StoreLoads(const std::vector<BoxLoad>& loads, MonthCellArray& cells); // counts and marks

} // namespace dayvane
