#include "pickers/PeriodGridLayout.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr int kMaxBlocksPerSide = 1000; // keeps every coordinate far from the limits of its type

CRect RectAt(int left, int top, int width, int height)
{
    return CRect(left, top, left + width, top + height);
}

// Cells that come before the period's first one in its first row.
int LeadingCells(const PeriodPolicy& policy, const COleDateTime& first, int firstDayOfWeek)
{
    if (policy.unit != CellUnit::Day) {
        return 0;
    }
    return (WeekdayOf(DayNumberOf(first)) - firstDayOfWeek + kDaysPerWeek) % kDaysPerWeek;
}

COleDateTime DateOfCell(const PeriodPolicy& policy, const COleDateTime& first, int offset)
{
    if (policy.unit == CellUnit::Day) {
        return DateOfDayNumber(DayNumberOf(first) + offset);
    }
    return DateOfMonthNumber(MonthNumberOf(first) + offset);
}

void FillCells(const PeriodPolicy& policy, int firstDayOfWeek, PeriodBlock& block)
{
    const COleDateTime first = DateOfPeriod(policy, block.period);
    const COleDateTime last = LastCellOf(policy, block.period);
    const int leading = LeadingCells(policy, first, firstDayOfWeek);
    const SIZE size = policy.metrics.cell;
    block.cells.resize(policy.CellCount());
    for (int i = 0; i < policy.CellCount(); ++i) {
        PeriodCell& cell = block.cells[i];
        cell.rect = RectAt(block.cellArea.left + i % policy.cellColumns * size.cx,
                           block.cellArea.top + i / policy.cellColumns * size.cy, size.cx, size.cy);
        cell.date = DateOfCell(policy, first, i - leading);
        cell.inPeriod = IsValid(cell.date) && cell.date >= first && cell.date <= last;
    }
}

void FillWeeks(const PeriodPolicy& policy, const PeriodGridInput& input, PeriodBlock& block)
{
    const PeriodMetrics& metrics = policy.metrics;
    for (int row = 0; row < policy.cellRows && metrics.weekNumberWidth > 0; ++row) {
        const int firstCell = row * policy.cellColumns;
        // The first day of the week may lie before the calendar begins.
        CivilDate day = CivilDateOf(block.cells[firstCell].date);
        if (!day.IsValid()) {
            day = CivilDateOf(block.cells[firstCell + policy.cellColumns - 1].date);
        }
        block.weeks.push_back({RectAt(block.cellArea.left - metrics.weekNumberWidth, block.cells[firstCell].rect.top,
                                      metrics.weekNumberWidth, metrics.cell.cy),
                               WeekOf(day, input.firstDayOfWeek, input.weekRule).week});
    }
}

PeriodBlock MakeBlock(const PeriodPolicy& policy, const PeriodGridInput& input, CPoint origin, int period)
{
    const PeriodMetrics& metrics = policy.metrics;
    PeriodBlock block;
    block.period = period;
    block.band = RectAt(origin.x, origin.y, metrics.block.cx, metrics.titleHeight);
    block.title = CRect(block.band.left + metrics.arrowWidth, block.band.top, block.band.right - metrics.arrowWidth,
                        block.band.bottom);
    block.cellArea = RectAt(origin.x + metrics.cellsLeft, origin.y + metrics.cellsTop,
                            policy.cellColumns * metrics.cell.cx, policy.cellRows * metrics.cell.cy);
    if (metrics.weekdayHeight > 0) {
        block.weekdays = RectAt(block.cellArea.left, block.band.bottom, block.cellArea.Width(), metrics.weekdayHeight);
    }
    FillCells(policy, input.firstDayOfWeek, block);
    FillWeeks(policy, input, block);
    return block;
}
} // namespace

PeriodGridLayout CalcPeriodGrid(const PeriodPolicy& policy, const PeriodGridInput& input)
{
    const PeriodMetrics& metrics = policy.metrics;
    const int rows = std::clamp(input.rows, 1, kMaxBlocksPerSide);
    const int columns = std::clamp(input.columns, 1, kMaxBlocksPerSide);
    const CSize size = PeriodGridSize(policy, rows, columns);
    const int left = std::max<int>((input.client.cx - size.cx) / 2, 0);
    PeriodGridLayout layout;
    layout.leftArrow = RectAt(left, 0, metrics.arrowWidth, metrics.titleHeight);
    layout.rightArrow = RectAt(left + size.cx - metrics.arrowWidth, 0, metrics.arrowWidth, metrics.titleHeight);
    layout.footer = RectAt(left, size.cy - metrics.footerHeight, size.cx, metrics.footerHeight);
    int period = ClampPeriod(policy, input.firstPeriod);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns && period <= policy.LastPeriod(); ++column, ++period) {
            const CPoint origin(left + column * metrics.block.cx, row * metrics.block.cy);
            layout.blocks.push_back(MakeBlock(policy, input, origin, period));
            layout.blocks.back().row = row + 1;
            layout.blocks.back().column = column + 1;
        }
    }
    return layout;
}

int TitleAt(const PeriodGridLayout& layout, CPoint point)
{
    for (size_t i = 0; i < layout.blocks.size(); ++i) {
        if (layout.blocks[i].title.PtInRect(point)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

GridHit CellAt(const PeriodGridLayout& layout, CPoint point)
{
    GridHit hit;
    for (size_t i = 0; i < layout.blocks.size() && hit.part == GridPart::None; ++i) {
        const PeriodBlock& block = layout.blocks[i];
        for (size_t k = 0; k < block.cells.size() && block.cellArea.PtInRect(point); ++k) {
            if (block.cells[k].rect.PtInRect(point)) {
                hit = {GridPart::Cell, static_cast<int>(i), static_cast<int>(k)};
                break;
            }
        }
    }
    return hit;
}

GridHit PartAt(const PeriodGridLayout& layout, CPoint point)
{
    if (layout.leftArrow.PtInRect(point)) {
        return {GridPart::LeftArrow};
    }
    if (layout.rightArrow.PtInRect(point)) {
        return {GridPart::RightArrow};
    }
    const int title = TitleAt(layout, point);
    if (title >= 0) {
        return {GridPart::Title, title};
    }
    if (layout.footer.PtInRect(point)) {
        return {GridPart::Footer};
    }
    return CellAt(layout, point);
}

int SideOf(const PeriodGridLayout& layout, CPoint point)
{
    if (point.y < layout.leftArrow.top || point.y >= layout.footer.top) {
        return point.y < layout.leftArrow.top ? -1 : 1;
    }
    if (point.x < layout.leftArrow.left || point.x >= layout.rightArrow.right) {
        return point.x < layout.leftArrow.left ? -1 : 1;
    }
    return 0;
}

CRect RectOfPart(const PeriodGridLayout& layout, const GridHit& hit)
{
    const bool hasBlock = hit.block >= 0 && hit.block < static_cast<int>(layout.blocks.size());
    switch (hit.part) {
    case GridPart::LeftArrow:
        return layout.leftArrow;
    case GridPart::RightArrow:
        return layout.rightArrow;
    case GridPart::Footer:
        return layout.footer;
    case GridPart::Title:
        return hasBlock ? layout.blocks[hit.block].title : CRect(0, 0, 0, 0);
    case GridPart::Cell:
        return hasBlock ? layout.blocks[hit.block].cells[hit.cell].rect : CRect(0, 0, 0, 0);
    default:
        return CRect(0, 0, 0, 0);
    }
}

COleDateTime DateOfHit(const PeriodGridLayout& layout, const GridHit& hit)
{
    if (hit.part == GridPart::Cell && hit.block < static_cast<int>(layout.blocks.size())) {
        return layout.blocks[hit.block].cells[hit.cell].date;
    }
    return NoDate();
}

GridHit CellOfDate(const PeriodPolicy& policy, const PeriodGridLayout& layout, const COleDateTime& date)
{
    if (!IsValid(date)) {
        return {};
    }
    const int block = PeriodOf(policy, date) - layout.blocks.front().period;
    if (block < 0 || block >= static_cast<int>(layout.blocks.size())) {
        return {};
    }
    const std::vector<PeriodCell>& cells = layout.blocks[block].cells;
    for (size_t i = 0; i < cells.size(); ++i) {
        if (cells[i].date == date) {
            return {GridPart::Cell, block, static_cast<int>(i)};
        }
    }
    return {};
}

} // namespace dayvane
