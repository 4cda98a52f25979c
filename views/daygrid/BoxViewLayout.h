// The week and the year view without a window: two rows of boxes that stand for days or months, what lies under a
// point, which days each row has, and the steps of the scroll bar. Rectangles are client pixels; right and bottom edges
// do not count.
#pragma once

#include "../../core/CalendarRecords.h"
#include "BarGrid.h"
#include "RowPieces.h"
#include "ScrollSteps.h"

#include <vector>

namespace dayvane {

constexpr int kBoxRows = 2;
constexpr int kWeekBoxes = 8;  // a week and the first day of the next one
constexpr int kYearBoxes = 12; // months

// Pixels, but for the columns.
struct BoxViewMetrics
{
    int columns;
    int captionHeight;
    int stripHeight;    // drawn on top of a box
    int hitStripHeight; // top of a box that answers as its caption
    BarRules bars;

    int BoxCount() const { return kBoxRows * columns; }
};
constexpr BarRules kBoxBars = {{25, 26, 2, 23}, BarReach::BoxesTimesWidth, BarOverflow::ByPosition};
constexpr BoxViewMetrics kWeekMetrics = {4, 30, 22, 20, kBoxBars};
constexpr BoxViewMetrics kYearMetrics = {6, 30, 20, 20, kBoxBars};

// ---- Rectangles

struct BoxViewLayout
{
    CRect caption;
    CRect calendar;
    std::vector<CRect> boxes;  // in the order of time: the upper row from left to right, then the lower one
    std::vector<CRect> strips; // the tops of the boxes
};

// The last box of a row takes what is left over of the width; what is left over of the height stays empty.
BoxViewLayout LayOutBoxView(const CRect& client, bool showCaption, const BoxViewMetrics& metrics);

int BoxOfPoint(const CRect* boxes, int count, CPoint point); // -1: none

// ---- Dates and items

// The 1st of January and of July and the 1st of the next January. The year must be valid: 100 .. 9999.
DayRows YearRows(int year);
DayRows WeekRows(int firstDay);

// Spans in months of the year, for items that are cut to it.
std::vector<BoxSpan> MonthSpans(const ItemArray& items, int year);

// The date in another year, at the same time; 29 February becomes the 28th. Invalid outside the years 100 to 9999.
COleDateTime AddYears(const COleDateTime& date, int years);
// The 1st of the month so many months away, 00:00; invalid likewise.
COleDateTime FirstOfMonth(const COleDateTime& date, int months);

// ---- Scroll bar

constexpr int kWeekScrollMax = 55; // positions from 0 on
constexpr int kYearScrollMax = 4;
constexpr int kYearOfScrollStart = 2000;

// In days. code: SB_..., thumb: the position that came with the message, dayOfYear: of the first shown day. The bar
// itself cuts the new position to its range.
ScrollStep CalcWeekScroll(int code, int position, int thumb, int dayOfYear);
// In years.
ScrollStep CalcYearScroll(int code, int position, int thumb);

// Where the thumb of the week view stands after a change of size or date. Not the number of the week: six positions are
// taken back for each whole week, so that it counts weeks and the days beyond the last whole one.
int WeekScrollPosition(int dayOfYear);

} // namespace dayvane
