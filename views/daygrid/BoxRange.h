// Which dates the boxes of a view stand for: the six weeks of the month view, the eight days of the week view, the
// twelve months of the year view. A value: dates and scroll codes in, dates and positions out.
//
// Boxes are numbered in the order of time, row by row. Positions are numbers of boxes too, but go on beyond the range
// at both ends. A range may reach beyond the years 100 to 9999 as long as one of its boxes has a date; the other boxes
// then have none.
#pragma once

#include "../../core/CalendarRecords.h"
#include "../../core/ScrollCode.h"
#include "BarGrid.h"
#include "RowPieces.h"

#include <vector>

namespace dayvane {

constexpr int kMonthRows = 6;
constexpr int kMonthColumns = 7; // days of a week
constexpr int kMonthCells = kMonthRows * kMonthColumns;
constexpr int kBoxRows = 2;    // of the week and the year view
constexpr int kWeekBoxes = 8;  // a week and the first day of the next one
constexpr int kYearBoxes = 12; // months

struct ScrollBarRange
{
    int min;
    int max;
    int position; // where the thumb stands after a change of size or date
};

struct ScrollStep
{
    bool moves = false; // false: a code that does nothing
    int position = 0;   // new position of the thumb
    int step = 0;       // boxes by which the range moves
};

enum class RangeKind
{
    Month, // days, from the week of the 1st on; scrolling moves them by weeks, without regard to months
    Week,  // days
    Year,  // months
};

class BoxRange
{
public:
    // No dates.
    explicit BoxRange(RangeKind kind) : m_kind(kind) {}
    // The month, week or year that holds the date; no dates for an invalid one. firstDayOfWeek: 1 Sunday .. 7 Saturday.
    BoxRange(RangeKind kind, const COleDateTime& date, int firstDayOfWeek);
    // The days from that day number (core/DateMath.h) on.
    static BoxRange FromDay(RangeKind kind, int firstDay);

    RangeKind Kind() const { return m_kind; }
    bool HasDates() const { return m_hasDates; } // at least one box has a date
    int Count() const;                           // of boxes
    int Columns() const;                         // boxes in a row

    // ---- Dates of boxes. Invalid where there is no date.
    COleDateTime FirstDate() const { return DateOfBox(0); }
    COleDateTime LastDate() const { return LastDateOfBox(Count() - 1); }
    COleDateTime DateOfBox(int box) const;     // 00:00 of its first day
    COleDateTime LastDateOfBox(int box) const; // 23:59:59 of its last day

    // ---- Boxes of dates.
    // -1 also for an invalid date and in a range without dates.
    int PositionOf(const COleDateTime& date) const;
    int BoxOf(const COleDateTime& date) const; // -1: in no box
    bool Holds(const COleDateTime& date) const { return BoxOf(date) != -1; }

    // ---- Moves. A box is a day, or a month in the year view.
    // The same count of boxes, so many later; no dates when none of them has one.
    BoxRange Moved(long long boxes) const;
    // A date so many boxes after the first one. Where dates begin, the first date stands for the days of its week that
    // are none.
    COleDateTime DateAfter(int boxes) const;
    // The date moved by as many boxes as lie between this range and the next one, at the same time of day; 31 March
    // becomes 30 April. Unchanged where that is no date.
    COleDateTime MoveAlong(const COleDateTime& date, const BoxRange& next) const;
    // Where a key leads from the date: so many days away at the same time, or the 1st of a month so many months away.
    COleDateTime Neighbour(const COleDateTime& date, int boxes) const;

    // ---- Items.
    DayRows Rows() const; // the days of each row of boxes; no rows without dates
    // The boxes that each piece covers. A day view's piece that ends a day or more before it starts keeps to its own
    // box; so does a month view's that ends in an earlier month.
    std::vector<BoxSpan> Spans(const ItemArray& pieces) const;

    // ---- Scroll bar.
    ScrollBarRange ScrollBar() const;
    // The effect of a WM_VSCROLL code; its step is in boxes. thumb: the position that came with the message. current:
    // the date that the month view is built around.
    ScrollStep Scroll(int code, int position, int thumb, const COleDateTime& current) const;

private:
    void Begin(long long first);
    ScrollStep ScrollToThumb(int code, int position, int thumb, const COleDateTime& current) const;

    RangeKind m_kind;
    bool m_hasDates = false;
    int m_first = 0; // day number, or year * 12 + month - 1
};

} // namespace dayvane
