#include "views/daygrid/BoxViewParts.h"

namespace dayvane {

void FillBoxParts(const BoxViewPartsInput& input, ViewParts& parts)
{
    parts.columns = input.columns;
    for (int i = 0; i < input.range.Count(); ++i) {
        ViewCell cell;
        cell.box = cell.header = input.boxes[i];
        cell.header.bottom = cell.header.top + input.stripHeight;
        cell.first = input.range.DateOfBox(i);
        cell.last = input.range.LastDateOfBox(i);
        parts.cells.push_back(cell);
        if (!input.marks[i].IsRectEmpty()) {
            parts.marks.push_back({i, input.marks[i]});
        }
    }
    parts.AddPieces(input.screenItems, [](const tagCALENDAR_ITEM& item) { return item.rcItem; });
}

} // namespace dayvane
