#include "access/ViewTree.h"

#include "core/DateMath.h"

#include <algorithm>
#include <climits>
#include <limits>
#include <utility>

namespace dayvane {
namespace {

// Which grid a node is a cell of.
enum Grid
{
    GRID_CELLS = 1,
    GRID_ROWS = 2,
};

constexpr int kPartsOfCell = 3; // itself, its mark, its whole day

// What lies over what within a cell.
enum Layer
{
    LAYER_CELLS,
    LAYER_ITEMS,
    LAYER_MARKS,
};

AccessNode NodeOf(AccessPart part, int key, int index, const CRect& box)
{
    AccessNode node;
    node.id = {part, key, index};
    node.box = box;
    return node;
}

// The first cell that ends at the date or later.
int FirstCellFrom(const ViewParts& parts, const COleDateTime& date)
{
    const auto begin = parts.cells.begin();
    const auto found = std::find_if(begin, parts.cells.end(),
                                    [&](const ViewCell& cell) { return IsValid(cell.last) && cell.last >= date; });
    return static_cast<int>(found - begin);
}

class ViewTreeMaker
{
public:
    explicit ViewTreeMaker(const ViewParts& parts) : m_parts(parts), m_tree(parts.client) {}

    AccessTree Make()
    {
        m_tree.Reserve(static_cast<int>(m_parts.cells.size()) * (m_parts.rows + kPartsOfCell) +
                       static_cast<int>(m_parts.pieces.size()));
        if (!m_parts.title.IsRectEmpty()) {
            m_tree.Add(0, NodeOf(AccessPart::Title, 0, 0, m_parts.title));
        }
        for (size_t i = 0; i < m_parts.columnHeaders.size(); ++i) {
            m_tree.Add(0, NodeOf(AccessPart::ColumnHeader, static_cast<int>(i), 0, m_parts.columnHeaders[i]));
        }
        AddCells();
        AddPieces();
        for (size_t i = 0; i < m_parts.marks.size(); ++i) {
            AddMark(static_cast<int>(i));
        }
        for (size_t i = 0; i < m_parts.cells.size(); ++i) {
            AddHours(static_cast<int>(i));
        }
        return std::move(m_tree);
    }

private:
    void AddCells()
    {
        for (size_t i = 0; i < m_parts.cells.size(); ++i) {
            const int cell = static_cast<int>(i);
            AccessNode node = NodeOf(AccessPart::Cell, KeyOfCell(m_parts, cell), 0, m_parts.cells[i].box);
            node.grid = GRID_CELLS;
            node.gridRow = cell / m_parts.columns;
            node.gridColumn = cell % m_parts.columns;
            m_cells.push_back(m_tree.Add(0, node));
            const COleDateTime& last = m_parts.cells[i].last;
            m_ends.push_back(IsValid(last) ? last.m_dt : -std::numeric_limits<double>::max());
        }
    }

    // The first cell that ends at the date or later. Called for each of many items.
    size_t FirstCellFrom(const COleDateTime& date) const
    {
        size_t cell = 0;
        while (cell < m_ends.size() && m_ends[cell] < date.m_dt) {
            ++cell;
        }
        return cell;
    }

    void AddPieces()
    {
        for (const ViewPiece& piece : m_parts.pieces) {
            if (!IsValid(piece.first) || !IsValid(piece.last)) {
                continue;
            }
            const COleDateTime last = std::max(piece.first, piece.last);
            for (size_t i = FirstCellFrom(piece.first); i < m_cells.size(); ++i) {
                const ViewCell& cell = m_parts.cells[i];
                if (!IsValid(cell.first) || cell.first > last) {
                    break;
                }
                const AccessId id = {AccessPart::Item, m_tree.At(m_cells[i]).id.key, piece.item};
                if (m_tree.Find(id) == kNoNode) {
                    AccessNode node = NodeOf(id.part, id.key, id.index, piece.box);
                    node.layer = LAYER_ITEMS;
                    m_tree.Add(m_cells[i], node);
                }
            }
        }
    }

    void AddMark(int position)
    {
        const ViewMark& mark = m_parts.marks[position];
        if (mark.cell >= 0 && mark.cell < static_cast<int>(m_cells.size())) {
            AccessNode node = NodeOf(AccessPart::Mark, m_tree.At(m_cells[mark.cell]).id.key, position, mark.box);
            node.layer = LAYER_MARKS;
            m_tree.Add(m_cells[mark.cell], node);
        }
    }

    void AddHours(int cell)
    {
        const int key = m_tree.At(m_cells[cell]).id.key;
        const ViewCell& day = m_parts.cells[cell];
        if (!day.band.IsRectEmpty()) {
            m_tree.Add(m_cells[cell], NodeOf(AccessPart::WholeDay, key, 0, day.band));
        }
        for (int row = 0; row < m_parts.rows; ++row) {
            const int top = m_parts.rowTop + row * m_parts.rowHeight;
            CRect box(day.box.left, top, day.box.right, top + m_parts.rowHeight);
            if (!box.IntersectRect(&box, &m_parts.grid)) {
                box.SetRectEmpty();
            }
            AccessNode node = NodeOf(AccessPart::Row, key, row, box);
            node.grid = GRID_ROWS;
            node.gridRow = row;
            node.gridColumn = cell;
            m_tree.Add(m_cells[cell], node);
        }
    }

    const ViewParts& m_parts;
    AccessTree m_tree;
    std::vector<int> m_cells;
    std::vector<double> m_ends; // of the cells
};

int RowOf(const ViewParts& parts, const COleDateTime& time)
{
    const int minute = time.GetHour() * kMinutesPerHour + time.GetMinute();
    return std::min(minute / parts.minutesPerRow, parts.rows - 1);
}

} // namespace

AccessTree MakeViewTree(const ViewParts& parts)
{
    return ViewTreeMaker(parts).Make();
}

int KeyOfCell(const ViewParts& parts, int cell)
{
    const COleDateTime& first = parts.cells[cell].first;
    return IsValid(first) ? DayNumberOf(first) : INT_MIN + cell;
}

int CellOfKey(const ViewParts& parts, int key)
{
    for (int cell = 0; cell < static_cast<int>(parts.cells.size()); ++cell) {
        if (KeyOfCell(parts, cell) == key) {
            return cell;
        }
    }
    return -1;
}

int CellOfDate(const ViewParts& parts, const COleDateTime& date)
{
    if (!IsValid(date)) {
        return -1;
    }
    const int cell = FirstCellFrom(parts, date);
    return cell < static_cast<int>(parts.cells.size()) && parts.cells[cell].first <= date ? cell : -1;
}

AccessId PartOfSelection(const ViewParts& parts, const COleDateTime& end, bool isWholeDay)
{
    const int cell = CellOfDate(parts, end);
    if (cell == -1) {
        return {};
    }
    const int key = KeyOfCell(parts, cell);
    if (parts.rows == 0) {
        return {AccessPart::Cell, key, 0};
    }
    return isWholeDay ? AccessId{AccessPart::WholeDay, key, 0} : AccessId{AccessPart::Row, key, RowOf(parts, end)};
}

std::vector<AccessId> SelectedParts(const ViewParts& parts, COleDateTime begin, COleDateTime end, bool isWholeDay)
{
    std::vector<AccessId> selected;
    if (!IsValid(begin) || !IsValid(end)) {
        return selected;
    }
    if (end < begin) {
        std::swap(begin, end);
    }
    for (int cell = 0; cell < static_cast<int>(parts.cells.size()); ++cell) {
        const ViewCell& each = parts.cells[cell];
        if (!IsValid(each.first) || each.last < begin || each.first > end) {
            continue;
        }
        const int key = KeyOfCell(parts, cell);
        if (parts.rows == 0 || isWholeDay) {
            selected.push_back({parts.rows == 0 ? AccessPart::Cell : AccessPart::WholeDay, key, 0});
            continue;
        }
        const int first = begin < each.first ? 0 : RowOf(parts, begin);
        const int last = end > each.last ? parts.rows - 1 : RowOf(parts, end);
        for (int row = first; row <= last; ++row) {
            selected.push_back({AccessPart::Row, key, row});
        }
    }
    return selected;
}

COleDateTime DateOfPart(const ViewParts& parts, const AccessId& id)
{
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    const int cell = id.part == AccessPart::Cell || id.part == AccessPart::WholeDay || id.part == AccessPart::Row ||
                             id.part == AccessPart::Item || id.part == AccessPart::Mark
                         ? CellOfKey(parts, id.key)
                         : -1;
    if (cell == -1 || !IsValid(parts.cells[cell].first)) {
        return none;
    }
    const COleDateTime& first = parts.cells[cell].first;
    return id.part == AccessPart::Row ? AddMinutes(first, id.index * parts.minutesPerRow) : first;
}

} // namespace dayvane
