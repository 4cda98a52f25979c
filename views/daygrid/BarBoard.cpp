#include "views/daygrid/BarBoard.h"

#include <algorithm>
#include <utility>

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

const std::vector<BoxLoad>& BarBoard::LayOut(const BoxGrid& grid, const BarRules& rules, std::vector<BoxSpan> spans,
                                             ItemArray& items)
{
    m_loads = LayOutBars(grid, rules, spans, items);
    m_grid = grid;
    m_rules = rules;
    m_spans = std::move(spans);
    m_rowItems.assign(grid.columns > 0 ? (grid.Count() + grid.columns - 1) / grid.columns : 0, {});
    m_isSimple = true;
    for (int i = 0; i < static_cast<int>(m_spans.size()) && m_isSimple; ++i) {
        const int row = RowOf(m_spans[i]);
        m_isSimple = row != kManyRows;
        if (row >= 0) {
            m_rowItems[row].push_back(i);
        }
    }
    return m_loads;
}

bool BarBoard::Knows(const BoxGrid& grid, const BarRules& rules, int itemCount) const
{
    return m_isSimple && AreEqual(rules, m_rules) && itemCount == static_cast<int>(m_spans.size()) &&
           grid.columns == m_grid.columns && grid.boxes == m_grid.boxes;
}

bool BarBoard::LayOutAgain(const std::vector<Change>& changes, ItemArray& items, std::vector<PieceMove>& moved)
{
    for (const Change& change : changes) {
        if (RowOf(change.span) < 0 || RowOf(m_spans[change.item]) < 0) {
            return false;
        }
    }
    std::vector<int> rows;
    for (const Change& change : changes) {
        std::vector<int>& left = m_rowItems[RowOf(m_spans[change.item])];
        rows.push_back(RowOf(m_spans[change.item]));
        left.erase(std::lower_bound(left.begin(), left.end(), change.item));
        m_spans[change.item] = change.span;
        std::vector<int>& taken = m_rowItems[RowOf(change.span)];
        rows.push_back(RowOf(change.span));
        taken.insert(std::lower_bound(taken.begin(), taken.end(), change.item), change.item);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    for (const int row : rows) {
        LayOutRow(row, items, moved);
    }
    return true;
}

// A row is a grid of its own: no bar of another one touches it.
void BarBoard::LayOutRow(int row, ItemArray& items, std::vector<PieceMove>& moved)
{
    const int first = row * m_grid.columns;
    const int end = std::min(first + m_grid.columns, m_grid.Count());
    BoxGrid grid;
    grid.columns = m_grid.columns;
    grid.boxes.assign(m_grid.boxes.begin() + first, m_grid.boxes.begin() + end);
    std::vector<BoxSpan> spans;
    spans.reserve(m_rowItems[row].size());
    for (const int item : m_rowItems[row]) {
        const BoxSpan& span = m_spans[item];
        spans.push_back({span.first - first, span.last - first, span.ownBoxOnly});
    }
    const std::vector<BoxLoad> loads = LayOutBars(grid, m_rules, spans, items, m_rowItems[row], moved);
    std::copy(loads.begin(), loads.end(), m_loads.begin() + first);
}

} // namespace dayvane
