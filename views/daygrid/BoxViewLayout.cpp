#include "views/daygrid/BoxViewLayout.h"

#include "core/DateMath.h"

#include "mfc/base/civil.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kMonthsPerYear = 12;
constexpr int kJanuary = 1;
constexpr int kJuly = 7;

// Months since January of the year 0.
int MonthNumber(const CivilDate& fields)
{
    return fields.year * kMonthsPerYear + fields.month - 1;
}

} // namespace

// ---- Rectangles

BoxViewLayout LayOutBoxView(const CRect& client, bool showCaption, const BoxViewMetrics& metrics)
{
    BoxViewLayout layout;
    layout.caption = client;
    layout.caption.bottom = showCaption ? metrics.captionHeight : 0;
    layout.calendar = client;
    layout.calendar.top = layout.caption.bottom;

    const CRect& calendar = layout.calendar;
    const int width = calendar.Width() / metrics.columns;
    const int height = calendar.Height() / kBoxRows;
    for (int row = 0; row < kBoxRows; ++row) {
        for (int column = 0; column < metrics.columns; ++column) {
            const int left = calendar.left + column * width;
            const int top = calendar.top + row * height;
            CRect box(left, top, left + width, top + height);
            if (column == metrics.columns - 1) {
                box.right += calendar.Width() - metrics.columns * width;
            }
            layout.boxes.push_back(box);
            layout.strips.push_back(CRect(box.left, box.top, box.right, box.top + metrics.stripHeight));
        }
    }
    return layout;
}

int BoxOfPoint(const CRect* boxes, int count, CPoint point)
{
    for (int i = 0; i < count; ++i) {
        if (boxes[i].PtInRect(point)) {
            return i;
        }
    }
    return -1;
}

// ---- Dates and items

DayRows YearRows(int year)
{
    const int lastDay = civil::DayNumber(year, kMonthsPerYear, civil::DaysInMonth(year, kMonthsPerYear));
    return {civil::DayNumber(year, kJanuary, 1), civil::DayNumber(year, kJuly, 1), lastDay + 1};
}

DayRows WeekRows(int firstDay)
{
    return EvenRows(firstDay, kBoxRows, kWeekBoxes / kBoxRows);
}

std::vector<BoxSpan> MonthSpans(const ItemArray& items, int year)
{
    const int january = year * kMonthsPerYear;
    std::vector<BoxSpan> spans(items.GetSize(), NoBoxes());
    const tagCALENDAR_ITEM* item = items.GetData();
    for (BoxSpan& span : spans) {
        if (IsValid(item->dtStart) && IsValid(item->dtEnd)) {
            span.first = MonthNumber(CivilDateOf(item->dtStart)) - january;
            span.last = MonthNumber(CivilDateOf(item->dtEnd)) - january;
            span.ownBoxOnly = span.last < span.first;
        }
        ++item;
    }
    return spans;
}

COleDateTime AddYears(const COleDateTime& date, int years)
{
    SYSTEMTIME time = {};
    if (!ToSystemTime(date, time)) {
        return date;
    }
    const int year = time.wYear + years;
    const int day = std::min<int>(time.wDay, civil::DaysInMonth(year, time.wMonth));
    return COleDateTime(year, time.wMonth, day, time.wHour, time.wMinute, time.wSecond);
}

COleDateTime FirstOfMonth(const COleDateTime& date, int months)
{
    const CivilDate fields = CivilDateOf(date);
    const int month = MonthNumber(fields) + months;
    if (fields.year < 0 || month < 0) {
        return COleDateTime(-1, 1, 1, 0, 0, 0);
    }
    return COleDateTime(month / kMonthsPerYear, month % kMonthsPerYear + 1, 1, 0, 0, 0);
}

// ---- Scroll bar

ScrollStep CalcWeekScroll(int code, int position, int thumb, int dayOfYear)
{
    constexpr int kWeek = kDaysPerWeek;
    constexpr int kPage = 4; // weeks
    const ScrollRow rows[] = {
        // code, new position, days
        {SCROLL_LINEUP, position - 1, -kWeek},
        {SCROLL_LINEDOWN, position + 1, kWeek},
        {SCROLL_PAGEUP, position - kPage, -kPage * kWeek},
        {SCROLL_PAGEDOWN, position + kPage, kPage * kWeek},
        {SCROLL_THUMBPOSITION, position, dayOfYear - thumb * kWeek},
        {SCROLL_THUMBTRACK, position, 0},
        {SCROLL_TOP, kWeekScrollMax, 0},
        {SCROLL_BOTTOM, 0, 0},
    };
    return FindScrollStep(rows, code);
}

ScrollStep CalcYearScroll(int code, int position, int thumb)
{
    constexpr int kPage = 2; // years
    const ScrollRow rows[] = {
        // code, new position, years
        {SCROLL_LINEUP, position - 1, -1},         {SCROLL_LINEDOWN, position + 1, 1},
        {SCROLL_PAGEUP, position - kPage, -kPage}, {SCROLL_PAGEDOWN, position + kPage, kPage},
        {SCROLL_THUMBPOSITION, thumb, 0},          {SCROLL_THUMBTRACK, thumb, 0},
        {SCROLL_TOP, kYearScrollMax, 0},           {SCROLL_BOTTOM, 0, 0},
    };
    return FindScrollStep(rows, code);
}

int WeekScrollPosition(int dayOfYear)
{
    constexpr int kTakenBack = 6;
    return dayOfYear - kTakenBack * (dayOfYear / kDaysPerWeek);
}

} // namespace dayvane
