// The month grid without a window: bands, cells, the dates of the cells with their annotations, and what lies under a
// point. Rectangles are client pixels; right and bottom edges do not count. Days are day numbers (core/DateMath.h).
#pragma once

#include "../../core/CalendarRecords.h"
#include "BarGrid.h"
#include "BoxRange.h"

namespace dayvane {

// Pixels.
struct MonthMetrics
{
    int captionHeight = 30;
    int headerHeight = 16;
    int headerInset = 2;       // by which a weekday's box is smaller than its part of the header
    int dayCaptionHeight = 20; // top of a cell that answers as its caption
    BarRules bars = {{15, 22, 1, 20}, BarReach::ToColumnOfLast, BarOverflow::ByAbsoluteValue};
    int blockTop = 20; // blocks of the variant: from the cell's top
    int blockInset = 2;
};
constexpr MonthMetrics kMonthMetrics;

// A box of the grid or of the header.
class MonthCell
{
public:
    virtual ~MonthCell() {}

    CRect m_rect = CRect(0, 0, 0, 0);
    int m_bMore = 0;      // 1: an item of this day did not fit
    int m_nItemCount = 0; // screen items of this day
};

enum MonthCellFlags : unsigned
{
    MONTHCELL_INMONTH = 1, // the month that the grid is built around
    MONTHCELL_TODAY = 2,
};

// What is known about a cell's date.
class MonthCellDate
{
public:
    virtual ~MonthCellDate() {}

    COleDateTime m_date;    // 00:00; invalid beyond the years 100 to 9999
    unsigned m_nFlags = 0;  // MonthCellFlags
    CString m_strText;      // holiday, one blank and solar term, when there is a solar term; else empty
    CString m_strHoliday;   // empty on a plain day
    int m_bHoliday = 0;     // 1: a named day
    int m_nHolidayType = 0; // of a named day: 0 day off, 1 observance
    int m_bSolarTerm = 0;
    tagCALENDAR_DAY_PROPERTY m_dayProperty; // set by the host
};

using MonthCellArray = CArray<MonthCell, const MonthCell&>;
using MonthCellDateArray = CArray<MonthCellDate, const MonthCellDate&>;

// ---- Rectangles

struct MonthBands
{
    CRect caption; // title
    CRect header;  // weekday names
    CRect calendar;
};
MonthBands CalcMonthBands(const CRect& client, bool showCaption);

// Truncated: what is left over belongs to the last column and row.
CSize CalcMonthCellSize(const CRect& calendar);

// The last column and row end one pixel before the calendar does. Marks and counts start at 0.
void FillMonthCells(const CRect& header, const CRect& calendar, CSize cellSize, MonthCellArray& headerCells,
                    MonthCellArray& cells);

// ---- Dates

// The days of the range with their annotations; properties are empty. Flags are set against the month (of any year) of
// `current` and against `today`.
void FillCellDates(const BoxRange& range, const COleDateTime& current, const COleDateTime& today,
                   MonthCellDateArray& dates);

// The month view's range, as its dates stand.
BoxRange RangeOf(const MonthCellDateArray& dates);

// Texts and numbers of all days' properties.
void ClearDayProperties(MonthCellDateArray& dates);

// ---- Items

// The grid of the cells for the bar engine.
BoxGrid BoxGridOf(const MonthCellArray& cells);

// Rectangles and hidden flags of the items as bars; marks and counts of the cells start afresh.
void CalcMonthBars(const MonthCellDateArray& dates, MonthCellArray& cells, ItemArray& items);

// Rectangles of the items as blocks that fill the cell of their start, for the variant of the view: nothing is stacked
// and nothing hidden. Counts start afresh, marks are cleared.
void CalcMonthBlocks(const MonthCellDateArray& dates, MonthCellArray& cells, ItemArray& items);

void ClearLoads(MonthCellArray& cells);

} // namespace dayvane
