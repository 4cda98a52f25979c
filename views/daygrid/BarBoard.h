// A layout of bars that is remembered, so that after a change of few items only the rows of boxes are laid out again
// that they have left or come to. Rectangles and loads are those of a whole layout.
#pragma once

#include "BarGrid.h"

#include <vector>

namespace dayvane {

class BarBoard
{
public:
    void Clear() { *this = BarBoard(); }

    // LayOutBars, remembered.
    const std::vector<BoxLoad>& LayOut(const BoxGrid& grid, const BarRules& rules, const std::vector<BoxSpan>& spans,
                                       ItemArray& items);

    // Whether LayOutAgain can go on from the last layout: it was of the same boxes and rules and of so many items, and
    // no bar of it goes on in another row.
    bool Knows(const BoxGrid& grid, const BarRules& rules, int itemCount) const;
    bool IsEmpty() const { return m_grid.boxes.empty(); } // nothing is remembered

    struct Change
    {
        int item; // position in the list
        BoxSpan span;
    };
    // The listed items have got other spans. Appends, as they were, the items that become hidden or seen and those seen
    // that get another rectangle. False, and nothing is done: a new span goes on in another row.
    bool LayOutAgain(const std::vector<Change>& changes, ItemArray& items, std::vector<PieceMove>& moved);

    const std::vector<BoxLoad>& Loads() const { return m_loads; }

private:
    // The items of a row of boxes, ascending by their positions, and their spans in the row.
    struct Row
    {
        PlacedBars placed;
        std::vector<BoxSpan> spans;
    };

    int RowOf(const BoxSpan& span) const; // kNoRow: in none, kManyRows: in several
    void Leave(int row, int item);
    void Enter(int row, int item, const BoxSpan& span);
    void LayOutRow(int row, ItemArray& items, std::vector<PieceMove>& moved);

    BoxGrid m_grid;
    BarRules m_rules = {};
    std::vector<int> m_rowOf; // of each item
    std::vector<Row> m_rows;
    std::vector<BoxLoad> m_loads;
    BarSpace m_space;
    bool m_isSimple = false; // no bar goes on in another row
};

} // namespace dayvane
