#include "views/daygrid/BoxRange.h"

#include "core/DateMath.h"

#include "mfc/base/civil.h"

#include <algorithm>

namespace dayvane {
namespace {

constexpr int kYearOfScrollStart = 2000;

enum class BoxUnit
{
    Day,
    Month
};

// The fixed properties of a kind.
struct RangeForm
{
    BoxUnit unit;
    int rows;
    int columns;
    int barMin; // the scroll bar's positions
    int barMax;
    int barTop; // position after SB_TOP
    int barBottom;
    int step;     // boxes of a line
    int page;     // lines of a page
    int endLines; // by which SB_TOP and SB_BOTTOM move
};
constexpr RangeForm kForms[] = {
    // unit, rows, columns, bar from .. to, top, bottom, step, page, lines to the ends
    {BoxUnit::Day, kMonthRows, kMonthColumns, 1, 52, 1, 52, kDaysPerWeek, 2, 26},
    {BoxUnit::Day, kBoxRows, kWeekBoxes / kBoxRows, 0, 55, 55, 0, kDaysPerWeek, 4, 0},
    {BoxUnit::Month, kBoxRows, kYearBoxes / kBoxRows, 0, 4, 4, 0, kYearBoxes, 2, 0},
};

const RangeForm& FormOf(RangeKind kind)
{
    return kForms[static_cast<int>(kind)];
}

int FirstUnitOf(BoxUnit unit)
{
    return unit == BoxUnit::Day ? civil::kFirstDay : kFirstMonthNumber;
}

int LastUnitOf(BoxUnit unit)
{
    return unit == BoxUnit::Day ? civil::kLastDay : kLastMonthNumber;
}

// The number of the day or month that the date falls in; false without a date.
bool UnitOf(BoxUnit unit, const COleDateTime& date, int& number)
{
    if (!IsValid(date)) {
        return false;
    }
    number = unit == BoxUnit::Day ? DayNumberOf(date) : MonthNumberOf(date);
    return true;
}

COleDateTime StartOf(BoxUnit unit, int number)
{
    if (number < FirstUnitOf(unit) || number > LastUnitOf(unit)) {
        return NoDate();
    }
    return unit == BoxUnit::Day ? DateOfDayNumber(number) : DateOfMonthNumber(number);
}

// Not the number of the week: six positions are taken back for each whole week, so that it counts weeks and the days
// beyond the last whole one.
int WeekThumb(const COleDateTime& firstDate)
{
    const int dayOfYear = std::max(firstDate.GetDayOfYear(), 0);
    return dayOfYear - (kDaysPerWeek - 1) * (dayOfYear / kDaysPerWeek);
}

} // namespace

BoxRange::BoxRange(RangeKind kind, const COleDateTime& date, int firstDayOfWeek) : m_kind(kind)
{
    const CivilDate fields = CivilDateOf(date);
    int unit = 0;
    if (!UnitOf(FormOf(kind).unit, date, unit)) {
        return;
    }
    switch (kind) {
    case RangeKind::Month:
        Begin(WeekStartOf(unit - (fields.day - 1), firstDayOfWeek));
        break;
    case RangeKind::Week:
        Begin(WeekStartOf(unit, firstDayOfWeek));
        break;
    case RangeKind::Year:
        Begin(unit - (fields.month - 1));
        break;
    }
}

int BoxRange::Columns() const
{
    return FormOf(m_kind).columns;
}

BoxRange BoxRange::FromDay(RangeKind kind, int firstDay)
{
    BoxRange range(kind);
    range.Begin(firstDay);
    return range;
}

void BoxRange::Begin(long long first)
{
    const BoxUnit unit = FormOf(m_kind).unit;
    m_hasDates = first <= LastUnitOf(unit) && first + Count() > FirstUnitOf(unit);
    m_first = m_hasDates ? static_cast<int>(first) : 0;
}

int BoxRange::Count() const
{
    return FormOf(m_kind).rows * FormOf(m_kind).columns;
}

// ---- Dates of boxes

COleDateTime BoxRange::DateOfBox(int box) const
{
    return m_hasDates ? StartOf(FormOf(m_kind).unit, m_first + box) : NoDate();
}

COleDateTime BoxRange::LastDateOfBox(int box) const
{
    COleDateTime last = DateOfBox(box);
    if (IsValid(last) && FormOf(m_kind).unit == BoxUnit::Month) {
        last = AddDays(last, civil::DaysInMonth(last.GetYear(), last.GetMonth()) - 1);
    }
    return EndOfDay(last);
}

// ---- Boxes of dates

int BoxRange::PositionOf(const COleDateTime& date) const
{
    int unit = 0;
    return m_hasDates && UnitOf(FormOf(m_kind).unit, date, unit) ? unit - m_first : -1;
}

int BoxRange::BoxOf(const COleDateTime& date) const
{
    const int position = PositionOf(date);
    return position >= 0 && position < Count() ? position : -1;
}

// ---- Moves

BoxRange BoxRange::Moved(long long boxes) const
{
    BoxRange moved(m_kind);
    if (m_hasDates) {
        moved.Begin(m_first + boxes);
    }
    return moved;
}

COleDateTime BoxRange::DateAfter(int boxes) const
{
    if (!m_hasDates) {
        return NoDate();
    }
    const BoxUnit unit = FormOf(m_kind).unit;
    const int first = FirstUnitOf(unit);
    const int reached = m_first + boxes;
    const bool inFirstWeek = unit == BoxUnit::Day && reached < first && reached + kDaysPerWeek > first;
    return StartOf(unit, inFirstWeek ? first : reached);
}

COleDateTime BoxRange::MoveAlong(const COleDateTime& date, const BoxRange& next) const
{
    if (!m_hasDates || !next.m_hasDates) {
        return date;
    }
    const int boxes = next.m_first - m_first;
    COleDateTime moved;
    if (FormOf(m_kind).unit == BoxUnit::Day) {
        moved = AddDays(date, boxes);
    } else {
        moved = Neighbour(date, boxes);
        SYSTEMTIME time = {};
        if (IsValid(moved) && ToSystemTime(date, time)) {
            const int year = moved.GetYear();
            const int month = moved.GetMonth();
            const int day = std::min<int>(time.wDay, civil::DaysInMonth(year, month));
            moved = COleDateTime(year, month, day, time.wHour, time.wMinute, time.wSecond);
        }
    }
    return IsValid(moved) ? moved : date;
}

COleDateTime BoxRange::Neighbour(const COleDateTime& date, int boxes) const
{
    if (FormOf(m_kind).unit == BoxUnit::Day) {
        return AddDays(date, boxes);
    }
    int month = 0;
    return UnitOf(BoxUnit::Month, date, month) ? StartOf(BoxUnit::Month, month + boxes) : NoDate();
}

// ---- Items

DayRows BoxRange::Rows() const
{
    const RangeForm& form = FormOf(m_kind);
    DayRows starts;
    for (int row = 0; m_hasDates && row <= form.rows; ++row) {
        const int first = m_first + row * form.columns;
        starts.push_back(form.unit == BoxUnit::Day
                             ? first
                             : civil::DayNumber(YearOfMonthNumber(first), MonthOfMonthNumber(first), 1));
    }
    return starts;
}

std::vector<BoxSpan> BoxRange::Spans(const ItemArray& pieces) const
{
    std::vector<BoxSpan> spans(pieces.GetSize(), NoBoxes());
    const BoxUnit unit = FormOf(m_kind).unit;
    const tagCALENDAR_ITEM* piece = pieces.GetData();
    for (BoxSpan& span : spans) {
        int start = 0;
        int end = 0;
        if (m_hasDates && UnitOf(unit, piece->dtStart, start)) {
            span.first = start - m_first;
            if (UnitOf(unit, piece->dtEnd, end)) {
                span.last = end - m_first;
                span.ownBoxOnly =
                    span.last < span.first &&
                    (unit == BoxUnit::Month || SecondsBetween(piece->dtStart, piece->dtEnd) <= -kSecondsPerDay);
            }
        }
        ++piece;
    }
    return spans;
}

// ---- Scroll bar

ScrollBarRange BoxRange::ScrollBar() const
{
    const RangeForm& form = FormOf(m_kind);
    int thumb = form.endLines; // the month's bar stands in its middle and steps by weeks: it is no map of the year
    if (m_kind == RangeKind::Week) {
        thumb = WeekThumb(FirstDate());
    } else if (m_kind == RangeKind::Year) {
        thumb = FirstDate().GetYear() - kYearOfScrollStart;
    }
    return {form.barMin, form.barMax, thumb};
}

ScrollStep BoxRange::Scroll(int code, int position, int thumb, const COleDateTime& current) const
{
    const RangeForm& form = FormOf(m_kind);
    ScrollStep scroll;
    switch (code) {
    case SCROLL_LINEUP:
        scroll = {true, position - 1, -form.step};
        break;
    case SCROLL_LINEDOWN:
        scroll = {true, position + 1, form.step};
        break;
    case SCROLL_PAGEUP:
        scroll = {true, position - form.page, -form.page * form.step};
        break;
    case SCROLL_PAGEDOWN:
        scroll = {true, position + form.page, form.page * form.step};
        break;
    case SCROLL_TOP:
        scroll = {true, form.barTop, -form.endLines * form.step};
        break;
    case SCROLL_BOTTOM:
        scroll = {true, form.barBottom, form.endLines * form.step};
        break;
    case SCROLL_THUMBPOSITION:
    case SCROLL_THUMBTRACK:
        scroll = ScrollToThumb(code, position, thumb, current);
        break;
    default:
        return scroll;
    }
    scroll.position = std::clamp(scroll.position, form.barMin, form.barMax);
    return scroll;
}

// The bar of the week stays where it is, that of the year moves without the year.
ScrollStep BoxRange::ScrollToThumb(int code, int position, int thumb, const COleDateTime& current) const
{
    const int week = kDaysPerWeek;
    switch (m_kind) {
    case RangeKind::Month:
        return {true, thumb, (thumb - current.GetDayOfYear() / week) * week};
    case RangeKind::Week:
        return {true, position, code == SCROLL_THUMBPOSITION ? FirstDate().GetDayOfYear() - thumb * week : 0};
    case RangeKind::Year:
        break;
    }
    return {true, thumb, 0};
}

} // namespace dayvane
