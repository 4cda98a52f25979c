#include "views/daygrid/MonthLayout.h"

#include "views/daygrid/BoxRange.h"

#include <algorithm>

namespace dayvane {

BoxGrid BoxGridOf(const MonthCellArray& cells)
{
    BoxGrid grid;
    grid.columns = kMonthColumns;
    for (int i = 0; i < static_cast<int>(cells.GetSize()); ++i) {
        grid.boxes.push_back(cells[i].m_rect);
    }
    return grid;
}

void StoreLoads(const std::vector<BoxLoad>& loads, MonthCellArray& cells)
{
    for (int i = 0; i < static_cast<int>(loads.size()); ++i) {
        cells[i].m_nItemCount = loads[i].itemCount;
        cells[i].m_bMore = loads[i].more ? 1 : 0;
    }
}

// ---- Rectangles

MonthMetrics MonthMetrics::For(const ViewScale& scale)
{
    MonthMetrics metrics;
    metrics.captionHeight = scale.Of(metrics.captionHeight);
    const int nameHeight = metrics.headerHeight - 2 * metrics.headerInset;
    metrics.headerInset = scale.Of(metrics.headerInset);
    metrics.headerHeight = scale.Line(nameHeight) + 2 * metrics.headerInset;
    metrics.dayCaptionHeight = scale.Line(metrics.dayCaptionHeight);
    metrics.stripHeight = scale.Line(metrics.stripHeight);
    metrics.bars.metrics = metrics.bars.metrics.At(scale);
    metrics.blockTop = scale.Line(metrics.blockTop);
    metrics.blockInset = scale.Of(metrics.blockInset);
    return metrics;
}

MonthBands CalcMonthBands(const CRect& client, bool showCaption, const MonthMetrics& metrics)
{
    MonthBands bands;
    bands.caption = client;
    bands.caption.bottom = showCaption ? metrics.captionHeight : 0;
    bands.header = client;
    bands.header.top = bands.caption.bottom;
    bands.header.bottom = bands.header.top + metrics.headerHeight;
    bands.calendar = client;
    bands.calendar.top = bands.header.bottom;
    return bands;
}

WeekColumn PlaceWeekColumn(const CRect& header, const CRect& calendar, int width, const std::vector<CRect>& firstCells,
                           int numberHeight)
{
    WeekColumn column;
    column.head.SetRect(header.left - width, header.top, header.left, header.bottom);
    column.weeks.SetRect(calendar.left - width, calendar.top, calendar.left, calendar.bottom);
    column.all.SetRect(column.weeks.left, column.head.top, column.weeks.right, column.weeks.bottom);
    for (const CRect& cell : firstCells) {
        column.lines.emplace_back(column.weeks.left, cell.top, column.weeks.right, cell.top + 1);
        column.numbers.emplace_back(column.weeks.left, cell.top, column.weeks.right,
                                    std::min<int>(cell.top + numberHeight, cell.bottom));
    }
    return column;
}

CSize CalcMonthCellSize(const CRect& calendar)
{
    return CSize(calendar.Width() / kMonthColumns, calendar.Height() / kMonthRows);
}

void FillMonthCells(const CRect& header, const CRect& calendar, CSize cellSize, MonthCellArray& headerCells,
                    MonthCellArray& cells, const MonthMetrics& metrics)
{
    headerCells.SetSize(kMonthColumns);
    const int headerWidth = header.Width() / kMonthColumns;
    for (int column = 0; column < kMonthColumns; ++column) {
        const int left = header.left + column * headerWidth;
        CRect box(left, header.top, left + headerWidth, header.bottom);
        box.DeflateRect(metrics.headerInset, metrics.headerInset);
        headerCells[column].m_rect = box;
    }
    cells.SetSize(kMonthCells);
    for (int i = 0; i < kMonthCells; ++i) {
        const int row = i / kMonthColumns;
        const int column = i % kMonthColumns;
        CRect& rect = cells[i].m_rect;
        rect.left = calendar.left + cellSize.cx * column;
        rect.top = calendar.top + cellSize.cy * row;
        rect.right = column == kMonthColumns - 1 ? calendar.right - 1 : rect.left + cellSize.cx;
        rect.bottom = row == kMonthRows - 1 ? calendar.bottom - 1 : rect.top + cellSize.cy;
    }
    ClearLoads(cells);
}

// ---- Items

void CalcMonthBars(const BoxDayArray& days, MonthCellArray& cells, ItemArray& items, const MonthMetrics& metrics)
{
    const std::vector<BoxSpan> spans = RangeOf(days).Spans(items);
    StoreLoads(LayOutBars(BoxGridOf(cells), metrics.bars, spans, items), cells);
}

void CalcMonthBlocks(const BoxDayArray& days, MonthCellArray& cells, ItemArray& items, const MonthMetrics& metrics,
                     bool marksCovered)
{
    const std::vector<BoxSpan> spans = RangeOf(days).Spans(items);
    std::vector<int> begun(cells.GetSize() + 1); // items that begin to cover the cell less those that ended before it
    std::vector<int> seen(cells.GetSize());      // 1: the cell shows a block
    const int lastCell = static_cast<int>(cells.GetSize()) - 1;
    for (int i = 0; i < static_cast<int>(spans.size()); ++i) {
        const BoxSpan& span = spans[i];
        CRect rect(-1, -1, -1, -1);
        if (span.first >= 0 && span.first <= lastCell) {
            rect = cells[span.first].m_rect;
            rect.top += metrics.blockTop;
            rect.DeflateRect(metrics.blockInset, metrics.blockInset);
            rect.NormalizeRect();
            seen[span.first] = 1;
        }
        items[i].rcItem = rect;
        items[i].bNoFocus = FALSE;
        const int first = std::max(span.first, 0);
        const int last = std::min(span.last, lastCell);
        if (first <= last) {
            ++begun[first];
            --begun[last + 1];
        }
    }
    int count = 0;
    for (int i = 0; i <= lastCell; ++i) {
        count += begun[i];
        cells[i].m_nItemCount = count;
        cells[i].m_bMore = marksCovered && count > seen[i];
    }
}

void ClearLoads(MonthCellArray& cells)
{
    for (int i = 0; i < static_cast<int>(cells.GetSize()); ++i) {
        cells[i].m_bMore = 0;
        cells[i].m_nItemCount = 0;
    }
}

} // namespace dayvane
