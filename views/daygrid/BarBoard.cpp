#include "views/daygrid/BarBoard.h"

#include <algorithm>

namespace dayvane {
namespace {
constexpr int kNoRow = -1;
constexpr int kManyRows = -2;

bool AreEqual(const BarRules& a, const BarRules& b)
{
    return a.metrics.topOffset == b.metrics.topOffset && a.metrics.height == b.metrics.height &&
           a.metrics.inset == b.metrics.inset && a.metrics.laneStep == b.metrics.laneStep && a.reach == b.reach &&
           a.overflow == b.overflow;
}
} // namespace

int BarBoard::RowOf(const BoxSpan& span) const
{
    const int count = m_grid.Count();
    const bool beginsInside = span.first >= 0 && span.first < count;
    if (!beginsInside) {
        return std::max(span.first, 0) <= std::min(span.last, count - 1) ? kManyRows : kNoRow;
    }
    const int row = m_grid.RowOf(span.first);
    return span.last < span.first || m_grid.RowOf(span.last) == row ? row : kManyRows;
}

const std::vector<BoxLoad>& BarBoard::LayOut(const BoxGrid& grid, const BarRules& rules,
                                             const std::vector<BoxSpan>& spans, ItemArray& items)
{
    m_loads = LayOutBars(grid, rules, spans, items);
    m_grid = grid;
    m_rules = rules;
    m_rows.assign(grid.columns > 0 ? (grid.Count() + grid.columns - 1) / grid.columns : 0, {});
    m_rowOf.assign(spans.size(), kNoRow);
    m_isSimple = true;
    for (int i = 0; i < static_cast<int>(spans.size()) && m_isSimple; ++i) {
        m_rowOf[i] = RowOf(spans[i]);
        m_isSimple = m_rowOf[i] != kManyRows;
        if (m_rowOf[i] >= 0) {
            Enter(m_rowOf[i], i, spans[i]);
            m_rows[m_rowOf[i]].placed.tops.back() = items[i].rcItem.top;
        }
    }
    return m_loads;
}

bool BarBoard::Knows(const BoxGrid& grid, const BarRules& rules, int itemCount) const
{
    return m_isSimple && AreEqual(rules, m_rules) && itemCount == static_cast<int>(m_rowOf.size()) &&
           grid.columns == m_grid.columns && grid.boxes == m_grid.boxes;
}

bool BarBoard::LayOutAgain(const std::vector<Change>& changes, ItemArray& items, std::vector<PieceMove>& moved)
{
    for (const Change& change : changes) {
        if (RowOf(change.span) < 0 || m_rowOf[change.item] < 0) {
            return false;
        }
    }
    std::vector<int> rows;
    for (const Change& change : changes) {
        int& row = m_rowOf[change.item];
        rows.push_back(row);
        Leave(row, change.item);
        row = RowOf(change.span);
        rows.push_back(row);
        Enter(row, change.item, change.span);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    for (const int row : rows) {
        LayOutRow(row, items, moved);
    }
    return true;
}

void BarBoard::Leave(int row, int item)
{
    Row& left = m_rows[row];
    std::vector<int>& items = left.placed.items;
    const auto at = std::lower_bound(items.begin(), items.end(), item) - items.begin();
    items.erase(items.begin() + at);
    left.placed.tops.erase(left.placed.tops.begin() + at);
    left.spans.erase(left.spans.begin() + at);
}

void BarBoard::Enter(int row, int item, const BoxSpan& span)
{
    Row& taken = m_rows[row];
    std::vector<int>& items = taken.placed.items;
    const int first = row * m_grid.columns;
    const auto at = std::lower_bound(items.begin(), items.end(), item) - items.begin();
    items.insert(items.begin() + at, item);
    taken.placed.tops.insert(taken.placed.tops.begin() + at, PlacedBars::kNoTop);
    taken.spans.insert(taken.spans.begin() + at, {span.first - first, span.last - first, span.ownBoxOnly});
}

// A row is a grid of its own: no bar of another one touches it.
void BarBoard::LayOutRow(int row, ItemArray& items, std::vector<PieceMove>& moved)
{
    const int first = row * m_grid.columns;
    const int end = std::min(first + m_grid.columns, m_grid.Count());
    BoxGrid grid;
    grid.columns = m_grid.columns;
    grid.boxes.assign(m_grid.boxes.begin() + first, m_grid.boxes.begin() + end);
    const std::vector<BoxLoad> loads =
        LayOutBars(grid, m_rules, m_rows[row].spans, items, m_rows[row].placed, m_space, moved);
    std::copy(loads.begin(), loads.end(), m_loads.begin() + first);
}

} // namespace dayvane
