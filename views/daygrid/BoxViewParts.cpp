#include "views/daygrid/BoxViewParts.h"

namespace dayvane {
namespace {

constexpr int kNoTop = -1; // of an item without a rectangle

} // namespace

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
    parts.pieces.reserve(static_cast<size_t>(input.screenItems.GetSize()));
    for (int i = 0; i < static_cast<int>(input.screenItems.GetSize()); ++i) {
        const tagCALENDAR_ITEM& item = input.screenItems[i];
        ViewPiece piece;
        piece.item = static_cast<int>(item.nSource);
        piece.first = item.dtStart;
        piece.last = item.dtEnd;
        if (!item.bNoFocus && item.rcItem.top != kNoTop) {
            piece.box = item.rcItem;
        }
        parts.pieces.push_back(piece);
    }
}

} // namespace dayvane
