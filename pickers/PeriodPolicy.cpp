#include "pickers/PeriodPolicy.h"

#include "core/EraTitles.h"

#include <algorithm>

namespace dayvane {
namespace {

COleDateTime LastDayOfMonth(int monthNumber)
{
    if (monthNumber >= kLastMonthNumber) {
        return COleDateTime(9999, 12, 31, 0, 0, 0);
    }
    return AddDays(DateOfMonthNumber(monthNumber + 1), -1);
}
} // namespace

// clang-format off
//                            unit             months cols rows long  sweeps stays
const PeriodPolicy kMonthPolicy{CellUnit::Day,   1,     7,   6,   12,   true,  true,
    // block  title weekday top left cell              arrow footer
    {{130, 130}, 20, 16,    37, 2,   {18, 15},         18,   20}};
const PeriodPolicy kNumberedMonthPolicy{CellUnit::Day, 1, 7, 6,   12,   true,  true,
    {{149, 130}, 20, 16,    37, 21,  {18, 15},         18,   20, 18}};
const PeriodPolicy kYearPolicy{CellUnit::Month, 12,    3,   4,   10,   false, false,
    {{120, 100}, 20, 0,     24, 3,   {38, 18},         18,   20}};
// clang-format on

PeriodMetrics PeriodMetrics::At(const ViewScale& scale, int cellColumns, int cellRows) const
{
    PeriodMetrics scaled;
    scaled.titleHeight = scale.Line(titleHeight);
    scaled.weekdayHeight = weekdayHeight > 0 ? scale.Line(weekdayHeight) : 0;
    scaled.cellsTop = scaled.titleHeight + scaled.weekdayHeight + scale.Of(cellsTop - titleHeight - weekdayHeight);
    scaled.cellsLeft = scale.Of(cellsLeft);
    // Wider digits come with higher ones.
    scaled.cell = {scale.Line(cell.cx), scale.Line(cell.cy)};
    scaled.arrowWidth = scale.Of(arrowWidth);
    scaled.footerHeight = scale.Line(footerHeight);
    scaled.weekNumberWidth = weekNumberWidth > 0 ? scale.Line(weekNumberWidth) : 0;
    const int right = block.cx - cellsLeft - cellColumns * cell.cx;
    const int below = block.cy - cellsTop - cellRows * cell.cy;
    scaled.block = {scaled.cellsLeft + cellColumns * scaled.cell.cx + scale.Of(right),
                    scaled.cellsTop + cellRows * scaled.cell.cy + scale.Of(below)};
    return scaled;
}

PeriodPolicy PeriodPolicy::At(const ViewScale& scale) const
{
    PeriodPolicy scaled = *this;
    scaled.metrics = metrics.At(scale, cellColumns, cellRows);
    return scaled;
}

CSize PeriodGridSize(const PeriodPolicy& policy, int rows, int columns)
{
    const PeriodMetrics& metrics = policy.metrics;
    return CSize(columns * metrics.block.cx, rows * metrics.block.cy + metrics.footerHeight);
}

void FitPeriodGrid(const PeriodPolicy& policy, int cx, int cy, int& rows, int& columns)
{
    const PeriodMetrics& metrics = policy.metrics;
    rows = std::max<int>((cy - metrics.footerHeight) / metrics.block.cy, 1);
    columns = std::max<int>(cx / metrics.block.cx, 1);
}

int PeriodOf(const PeriodPolicy& policy, const COleDateTime& date)
{
    return MonthNumberOf(date) / policy.monthsPerPeriod;
}

COleDateTime DateOfPeriod(const PeriodPolicy& policy, int period)
{
    return DateOfMonthNumber(period * policy.monthsPerPeriod);
}

int ClampPeriod(const PeriodPolicy& policy, int period)
{
    return std::clamp(period, policy.FirstPeriod(), policy.LastPeriod());
}

std::u16string PeriodTitle(const PeriodPolicy& policy, int period, const CalendarTexts& texts, bool eras)
{
    if (eras) {
        const COleDateTime last = LastDayOfMonth((period + 1) * policy.monthsPerPeriod - 1);
        const CString title = EraTitle(last, last, policy.monthsPerPeriod == 1 ? TitleUnit::Month : TitleUnit::Year);
        if (!title.IsEmpty()) {
            return OwnText(title);
        }
    }
    return DateText(texts, policy.unit == CellUnit::Day ? texts.gridMonth : texts.gridYear,
                    DateOfPeriod(policy, period));
}

COleDateTime CellDateOf(CellUnit unit, const COleDateTime& date)
{
    if (!IsValid(date) || unit == CellUnit::Day) {
        return StartOfDay(date);
    }
    return DateOfMonthNumber(MonthNumberOf(date));
}

COleDateTime AddCells(CellUnit unit, const COleDateTime& date, int cells)
{
    if (unit == CellUnit::Month) {
        return DateOfMonthNumber(ClampMonthNumber(MonthNumberOf(date) + cells));
    }
    const COleDateTime moved = DateOfDayNumber(DayNumberOf(date) + cells);
    if (IsValid(moved)) {
        return moved;
    }
    return cells < 0 ? DateOfMonthNumber(kFirstMonthNumber) : LastDayOfMonth(kLastMonthNumber);
}

COleDateTime AddPeriods(const PeriodPolicy& policy, const COleDateTime& date, int periods)
{
    const int monthNumber = MonthNumberOf(date) + periods * policy.monthsPerPeriod;
    if (monthNumber < kFirstMonthNumber) {
        return DateOfPeriod(policy, policy.FirstPeriod());
    }
    if (monthNumber > kLastMonthNumber) {
        return LastCellOf(policy, policy.LastPeriod());
    }
    const int lastDay = CivilDateOf(LastDayOfMonth(monthNumber)).day;
    const int day = std::min(CivilDateOf(date).day, lastDay);
    return COleDateTime(YearOfMonthNumber(monthNumber), MonthOfMonthNumber(monthNumber), day, 0, 0, 0);
}

COleDateTime LastCellOf(const PeriodPolicy& policy, int period)
{
    const int lastMonth = (period + 1) * policy.monthsPerPeriod - 1;
    return CellDateOf(policy.unit, LastDayOfMonth(lastMonth));
}

int WeekdayOfColumn(int firstDayOfWeek, int column)
{
    return (firstDayOfWeek - 1 + column) % kDaysPerWeek + 1;
}

std::u16string MonthText(int month, const CalendarTexts& texts)
{
    constexpr int kAnyYear = 2000;
    return DateText(texts, texts.cellMonth, COleDateTime(kAnyYear, month, 1, 0, 0, 0));
}

std::u16string FooterText(CellUnit unit, const COleDateTime& now, const CalendarTexts& texts, bool dateAlone)
{
    const std::u16string& pattern = unit == CellUnit::Day ? texts.today : texts.thisMonth;
    const std::size_t date = dateAlone ? std::min(pattern.find(u'%'), pattern.size()) : 0;
    return DateText(texts, pattern.substr(date), now);
}

} // namespace dayvane
