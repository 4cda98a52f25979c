#include "views/timegrid/TimeGridViewParts.h"

#include "core/DateMath.h"

#include <algorithm>

namespace dayvane {
namespace {

void AddColumn(const TimeGridState& state, int column, ViewParts& parts)
{
    const TimeGridFrame& frame = state.frame;
    const CRect& box = frame.columns[column];
    ViewCell cell;
    cell.header = frame.HeaderBox(column);
    cell.band = CRect(box.left, frame.fulldayContent.top, box.right, frame.fulldayContent.bottom);
    const int top = std::min(cell.header.IsRectEmpty() ? box.top : cell.header.top,
                             cell.band.IsRectEmpty() ? box.top : cell.band.top);
    cell.box = CRect(box.left, top, box.right, box.bottom);
    cell.first = state.range.DayOf(column);
    cell.last = EndOfDay(cell.first);
    parts.cells.push_back(cell);
}

} // namespace

void FillTimeGridParts(const TimeGridState& state, const ItemArray& screenItems, const std::vector<MoreMark>& marks,
                       ViewParts& parts)
{
    parts.title = state.frame.caption;
    parts.columns = state.range.days;
    for (int column = 0; column < static_cast<int>(state.frame.columns.size()); ++column) {
        AddColumn(state, column, parts);
    }
    parts.AddPieces(screenItems, [&state](const tagCALENDAR_ITEM& item) { return VisibleItemBox(state, item); });
    for (const MoreMark& mark : marks) {
        parts.marks.push_back({mark.column, VisibleMarkBox(state, mark)});
    }
    parts.rows = state.scale.RowsPerDay();
    parts.minutesPerRow = state.scale.MinutesPerRow();
    parts.rowTop = state.TopOfRow(0);
    parts.rowHeight = state.scale.metrics.rowHeight;
    parts.grid = state.frame.grid;
}

} // namespace dayvane
