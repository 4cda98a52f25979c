// The year-month picker without its windows: the button's measures, where everything of its popup lies, what lies
// under a point, and what keys do. Client pixels; rectangles own their left and top edges, not their right and bottom.
#pragma once

#include "PeriodPolicy.h"
#include "PickerKey.h"

namespace dayvane {

struct YearMonthMetrics // pixels
{
    SIZE popup;
    int headerHeight;
    int gridTop;    // from the client area's top
    int gridBottom; // from its bottom
    int footerHeight;
    int gridColumns;
    int gridRows;
    int leftArrowInset;  // from the header's left edge to the tip of the arrow
    int rightArrowInset; // from the header's right edge to the tip of the arrow
    int arrowMargin;     // around an arrow, still part of its button

    YearMonthMetrics At(const ViewScale& scale) const;
};
constexpr YearMonthMetrics kYearMonthMetrics{{120, 120}, 20, 21, 30, 25, 3, 4, 6, 10, 5};

struct YearMonthLayout
{
    CRect client;
    CRect header;
    CRect previousYear; // buttons round the two arrows of the header
    CRect nextYear;
    CRect grid;
    CRect months[kMonthsPerYear]; // the last row may reach past the grid's bottom by up to 3 pixels
    CRect footer;
    YearMonthMetrics metrics = kYearMonthMetrics; // that it was made with
};

YearMonthLayout CalcYearMonthLayout(const CRect& client, const YearMonthMetrics& metrics = kYearMonthMetrics);

// Half of an arrow's height: it spans the header's middle minus this to the middle plus this.
int ArrowReach(const CRect& header);

enum class YearMonthCode
{
    None = 0,
    PreviousYear = 1,
    NextYear = 2,
    Footer = 4 // wins over the arrows
};

struct YearMonthHit
{
    int month = -1; // 0 .. 11: the first month cell that holds the point; -1: none
    YearMonthCode code = YearMonthCode::None;

    friend bool operator==(const YearMonthHit& a, const YearMonthHit& b)
    {
        return a.month == b.month && a.code == b.code;
    }
    friend bool operator!=(const YearMonthHit& a, const YearMonthHit& b) { return !(a == b); }
};

YearMonthHit HitTestYearMonth(const YearMonthLayout& layout, CPoint point);
// What is drawn hot for a hit: the arrow, the footer or the month cell; empty for nothing.
CRect RectOfHit(const YearMonthLayout& layout, const YearMonthHit& hit);

constexpr int kPackedPerYear = 100; // a month travels in messages as year x 100 + month (1 .. 12)

// A month of a year, month 0 .. 11, within the years 100 to 9999.
struct YearMonth
{
    int year;
    int month;

    int Packed() const { return year * kPackedPerYear + month + 1; }
    YearMonth WithYearMoved(int years) const; // stops at the first and the last year
    friend bool operator==(const YearMonth& a, const YearMonth& b) { return a.year == b.year && a.month == b.month; }
};

// A year or month of -1 is taken from `now` (month 1 .. 12 here, as hosts count).
YearMonth MakeYearMonth(int year, int month, const COleDateTime& now);
// The first of a packed month, 00:00; invalid when it names none.
COleDateTime DateOfPacked(int packed);

// Arrows move among the cells and across years, Page Up and Down by years, Home and End to January and December.
// Other keys leave it where it is.
YearMonth MoveYearMonth(YearMonth from, PickerKey key);

// Whether picking `to` changes a picker that holds `from`: another status, or both valid and not the same moment.
bool IsDateChange(const COleDateTime& from, const COleDateTime& to);

// Sizes from the system's settings, pixels.
struct PickerSystemMetrics
{
    int edgeWidth;   // SM_CXEDGE
    int edgeHeight;  // SM_CYEDGE
    int thumbWidth;  // SM_CXHTHUMB
    int thumbHeight; // SM_CYVTHUMB
};

struct PickerButtonMetrics
{
    int arrowWidth;
    int minWidth; // of the window
    int height;   // of the window
    int edgeWidth;
    int edgeHeight;
};

PickerButtonMetrics CalcPickerButton(const PickerSystemMetrics& system);
// The drop arrow at the right end of the button's client rectangle.
CRect PickerArrowRect(const PickerButtonMetrics& metrics, const CRect& client);

} // namespace dayvane
