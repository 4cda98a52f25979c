#include "views/daygrid/BarGrid.h"

#include "core/DateMath.h"
#include "views/daygrid/BarLanes.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace dayvane
{
namespace
{

const CRect kNoRect(-1, -1, -1, -1);
constexpr int kSecondsPerDay = 86400;

// Far outside every grid, and far enough from the ends of int to be counted with.
constexpr int kFarAhead = INT_MAX / 4;
constexpr int kFarBehind = INT_MIN / 4;

// Left and right edge of the bar that starts in the given box. The inset may turn a narrow one inside out: it is
// normalised then.
void SetExtent(const BoxGrid& grid, const BarRules& rules, const BoxSpan& span, LaneBar& bar)
{
    const CRect& own = grid.boxes[span.first];
    bar.left = own.left;
    bar.right = own.right;
    if (!span.ownBoxOnly) {
        if (rules.reach == BarReach::ToColumnOfLast) {
            const int column = span.last % grid.columns;
            bar.right = grid.boxes[column < 0 ? column + grid.columns : column].right;
        } else if (span.last >= span.first) {
            bar.right = bar.left + own.Width() * (span.last - span.first + 1);
        }
    }
    bar.left += rules.metrics.inset;
    bar.right -= rules.metrics.inset;
    if (bar.left > bar.right)
        std::swap(bar.left, bar.right);
}

std::vector<LaneBar> PlaceBars(const BoxGrid& grid, const BarRules& rules, const std::vector<BoxSpan>& spans)
{
    std::vector<LaneBar> bars(spans.size());
    for (size_t i = 0; i < spans.size(); ++i) {
        const BoxSpan& span = spans[i];
        if (span.first < 0 || span.first >= grid.Count())
            continue;
        bars[i].first = span.first;
        bars[i].last = std::clamp(span.last, -1, grid.Count() - 1);
        SetExtent(grid, rules, span, bars[i]);
    }
    return bars;
}

bool Overflows(int barBottom, int boxBottom, BarOverflow overflow)
{
    if (overflow == BarOverflow::ByAbsoluteValue)
        return std::abs(barBottom) >= std::abs(boxBottom);
    return barBottom >= boxBottom;
}

// Counts items per box from the places where they begin and end.
class LoadCounter
{
public:
    explicit LoadCounter(const BoxGrid& grid, BarOverflow overflow)
        : m_grid(grid), m_overflow(overflow), m_items(grid.Count() + 1), m_hidden(grid.Count() + 1)
    {
    }

    // The last box that the item covers decides whether the item is hidden.
    void Add(const BoxSpan& span, tagCALENDAR_ITEM& item)
    {
        const int first = std::max(span.first, 0);
        const int last = std::min(span.last, m_grid.Count() - 1);
        for (int box = first; box <= last;) {
            const int next = std::min(last + 1, (m_grid.RowOf(box) + 1) * m_grid.columns);
            const bool hidden = Overflows(item.rcItem.bottom, m_grid.boxes[box].bottom, m_overflow);
            ++m_items[box];
            --m_items[next];
            m_hidden[box] += hidden;
            m_hidden[next] -= hidden;
            item.bNoFocus = hidden;
            box = next;
        }
    }

    std::vector<BoxLoad> Loads() const
    {
        std::vector<BoxLoad> loads(m_grid.Count());
        int items = 0;
        int hidden = 0;
        for (int box = 0; box < m_grid.Count(); ++box) {
            items += m_items[box];
            hidden += m_hidden[box];
            loads[box].itemCount = items;
            loads[box].more = hidden > 0;
        }
        return loads;
    }

private:
    const BoxGrid& m_grid;
    BarOverflow m_overflow;
    std::vector<int> m_items;  // items that begin to cover the box less those that ended before it
    std::vector<int> m_hidden; // the same of the items hidden in it
};

} // namespace

BoxSpan NoBoxes()
{
    return {kFarAhead, kFarBehind, true};
}

std::vector<BoxSpan> DaySpans(const ItemArray& items, int firstDay)
{
    std::vector<BoxSpan> spans(items.GetSize(), NoBoxes());
    const tagCALENDAR_ITEM* item = items.GetData();
    for (BoxSpan& span : spans) {
        if (item->dtStart.GetStatus() == COleDateTime::valid) {
            span.first = DayNumberOf(item->dtStart) - firstDay;
            if (item->dtEnd.GetStatus() == COleDateTime::valid) {
                span.last = DayNumberOf(item->dtEnd) - firstDay;
                span.ownBoxOnly =
                    span.last < span.first && SecondsBetween(item->dtStart, item->dtEnd) <= -kSecondsPerDay;
            }
        }
        ++item;
    }
    return spans;
}

std::vector<BoxLoad> LayOutBars(const BoxGrid& grid, const BarRules& rules, const std::vector<BoxSpan>& spans,
                                ItemArray& items)
{
    std::vector<LaneBar> bars = PlaceBars(grid, rules, spans);
    const BarMetrics& metrics = rules.metrics;
    LaneGrid lanes = {{}, grid.columns, metrics.BarHeight(), metrics.laneStep};
    for (int box = 0; box < grid.Count(); box += grid.columns)
        lanes.firstTops.push_back(grid.boxes[box].top + metrics.topOffset + metrics.inset);
    StackBars(bars, lanes);

    LoadCounter counter(grid, rules.overflow);
    tagCALENDAR_ITEM* item = items.GetData();
    for (size_t i = 0; i < bars.size(); ++i, ++item) {
        const LaneBar& bar = bars[i];
        item->rcItem = kNoRect;
        if (bar.first != -1) {
            const int top = lanes.firstTops[grid.RowOf(bar.first)] + bar.lane * metrics.laneStep;
            item->rcItem.SetRect(bar.left, top, bar.right, top + metrics.BarHeight());
        }
        counter.Add(spans[i], *item);
    }
    return counter.Loads();
}

} // namespace dayvane
