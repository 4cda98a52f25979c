// Cuts stored items into the pieces that a view shows: one for each row of days that an item touches.
#pragma once

#include "../../core/CalendarRecords.h"

#include <vector>

namespace dayvane {

// Rows of days that follow each other without a gap, as day numbers: row r runs from starts[r] to starts[r + 1] - 1, so
// there is one entry more than rows. Fewer than two entries: no rows, no pieces.
using DayRows = std::vector<int>;

// The pieces of all items, in stored order, the pieces of one item together, earliest first. Each is a copy of the
// stored record with nSource, nPiece and the piece's own start and end: a row from 00:00 of its first day to 23:59:59
// of its last, or as far as the item goes. nPiece says whether the item goes on after the piece, before it, or both.
// No piece: items without a valid start or end, items outside the rows, items that end on a day before they start.
// which: positions of the items that can have pieces, ascending; nullptr: all.
void MakeRowPieces(const ItemArray& items, const DayRows& rows, ItemArray& pieces,
                   const std::vector<int>* which = nullptr);

// The positions of the item's pieces, ascending, in pieces that were made of the items.
std::vector<int> PiecesOf(const ItemArray& pieces, int item);

// Of pieces that were made of the items, those of one item anew, as it is now. Appends their positions. False, and
// nothing is done: the item has another number of pieces now.
bool RemakeRowPieces(const ItemArray& items, int item, const DayRows& rows, ItemArray& pieces,
                     std::vector<int>& positions);

} // namespace dayvane
