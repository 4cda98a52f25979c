// Where everything of a mini calendar lies, in client pixels: computed once, then read by painting, hit test and
// invalidation. Rectangles own their left and top edges, not their right and bottom ones.
//
//   +--------------------+--------------------+
//   |<  title            |       title       >|   blocks of a fixed size, in rows, from the client area's top;
//   |   weekday names    |                    |   centred when the client area is wider than they are
//   |   cells            |                    |
//   +--------------------+--------------------+
//   |               footer                    |   the line that names today, or this month
//   +-----------------------------------------+
#pragma once

#include "../calc/WeekNumbers.h"
#include "PeriodPolicy.h"

#include <vector>

namespace dayvane {

struct PeriodGridInput
{
    CSize client; // pixels
    int rows;     // of blocks; less than 1 counts as 1, more than 1000 as 1000
    int columns;
    int firstPeriod;                                // shown in the first block
    int firstDayOfWeek;                             // 1 Sunday .. 7 Saturday; used by periods of days
    WeekRule weekRule = WeekRule::FirstFourDayWeek; // used by policies with week numbers
};

struct PeriodCell
{
    CRect rect;
    COleDateTime date;     // day or first of month, 00:00; invalid beyond the years 100 to 9999
    bool inPeriod = false; // false: a day of a neighbour month
};

// A row of cells with its week's number.
struct PeriodWeek
{
    CRect rect;
    int number; // 1 .. 54; -1 beyond the years 100 to 9999
};

struct PeriodBlock
{
    CRect band;     // the title's full width
    CRect title;    // the part of the band that answers to clicks
    CRect weekdays; // empty without weekday names
    CRect cellArea; // exactly tiled by the cells
    int period = 0;
    int row = 1;                   // from 1
    int column = 1;                // from 1
    std::vector<PeriodCell> cells; // row by row
    std::vector<PeriodWeek> weeks; // one for each row; none without week numbers
};

struct PeriodGridLayout
{
    CRect leftArrow;
    CRect rightArrow;
    CRect footer;
    std::vector<PeriodBlock> blocks; // row by row; ends with the last period of the year 9999
};

PeriodGridLayout CalcPeriodGrid(const PeriodPolicy& policy, const PeriodGridInput& input);

enum class GridPart
{
    None,
    LeftArrow,
    RightArrow,
    Title,
    Footer,
    Cell
};

struct GridHit
{
    GridPart part = GridPart::None;
    int block = -1; // index into the blocks, of a title or a cell
    int cell = -1;  // index into the block's cells

    friend bool operator==(const GridHit& a, const GridHit& b)
    {
        return a.part == b.part && a.block == b.block && a.cell == b.cell;
    }
    friend bool operator!=(const GridHit& a, const GridHit& b) { return !(a == b); }
};

// The first block whose title holds the point, or -1.
int TitleAt(const PeriodGridLayout& layout, CPoint point);
// The first cell that holds the point in a block whose cell area does; part None when there is none.
GridHit CellAt(const PeriodGridLayout& layout, CPoint point);
// What lies under the point: arrows before titles before the footer before cells.
GridHit PartAt(const PeriodGridLayout& layout, CPoint point);
// -1 for a point above or left of all blocks, 1 below or right of them, 0 among them.
int SideOf(const PeriodGridLayout& layout, CPoint point);
// The rectangle of a part; empty for None.
CRect RectOfPart(const PeriodGridLayout& layout, const GridHit& hit);
// The date of a hit cell; invalid for other parts.
COleDateTime DateOfHit(const PeriodGridLayout& layout, const GridHit& hit);
// The cell that shows a cell date within its own period; part None when it is not shown.
GridHit CellOfDate(const PeriodPolicy& policy, const PeriodGridLayout& layout, const COleDateTime& date);

} // namespace dayvane
