// The tree of a calendar view: title, names of the columns, and the cells in the order of time; in each cell the items
// of its days, earliest first as the view has them, its mark, and in a time grid its part of the full-day band and its
// rows. An item of several days is in each of its cells, with the part of its bar that lies there.
#pragma once

#include "../core/ViewParts.h"
#include "AccessTree.h"

namespace dayvane {

AccessTree MakeViewTree(const ViewParts& parts);

// The position of the cell with that key, -1: none. A key is the number of the cell's first day.
int CellOfKey(const ViewParts& parts, int key);
int KeyOfCell(const ViewParts& parts, int cell);

// The cell of a date, -1: none.
int CellOfDate(const ViewParts& parts, const COleDateTime& date);

// The part where a selection stands: its moving end's row, whole day or cell. A selection beyond the view: the root.
AccessId PartOfSelection(const ViewParts& parts, const COleDateTime& end, bool isWholeDay);
// The selected cells, or rows and whole days, in the order of time.
std::vector<AccessId> SelectedParts(const ViewParts& parts, COleDateTime begin, COleDateTime end, bool isWholeDay);

// When a row begins, or the 00:00 of a cell or its whole day; not valid for other parts.
COleDateTime DateOfPart(const ViewParts& parts, const AccessId& id);

} // namespace dayvane
