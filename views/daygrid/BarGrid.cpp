#include "views/daygrid/BarGrid.h"

#include "core/BarLanes.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <map>
#include <tuple>
#include <utility>

namespace dayvane {
namespace {

const CRect kNoRect(-1, -1, -1, -1);

// Far outside every grid, and far enough from the ends of int for sums.
constexpr int kFarAfter = INT_MAX / 4;
constexpr int kFarBefore = INT_MIN / 4;

// Finds the kinds of bars, in the order in which they first appear.
class KindFinder
{
public:
    KindFinder(const BoxGrid& grid, const BarRules& rules)
        : m_grid(grid), m_rules(rules), m_byBoxes(grid.Count() * grid.Count(), kNoKind)
    {
    }

    // The kind of the span's bar; kNoKind when it starts outside the grid.
    int KindOf(const BoxSpan& span)
    {
        const int count = m_grid.Count();
        if (span.first < 0 || span.first >= count) {
            return kNoKind;
        }
        if (span.last < span.first || span.last >= count) {
            return KindOfIrregular(span);
        }
        int& kind = m_byBoxes[span.first * count + span.last];
        if (kind == kNoKind) {
            kind = static_cast<int>(kinds.size());
            kinds.push_back(Make(span));
        }
        return kind;
    }

    std::vector<BarKind> kinds;

private:
    // Items that end before they start or outside the grid: their right edge does not follow from their last box alone.
    int KindOfIrregular(const BoxSpan& span)
    {
        const BarKind kind = Make(span);
        const auto [found, isNew] =
            m_irregular.emplace(std::make_tuple(kind.first, kind.last, kind.left, kind.right), kNoKind);
        if (isNew) {
            found->second = static_cast<int>(kinds.size());
            kinds.push_back(kind);
        }
        return found->second;
    }

    // The inset may turn a narrow bar inside out: it is normalised then.
    BarKind Make(const BoxSpan& span) const
    {
        const CRect& own = m_grid.boxes[span.first];
        BarKind kind = {span.first, std::clamp(span.last, -1, m_grid.Count() - 1), own.left, own.right};
        if (!span.ownBoxOnly) {
            if (m_rules.reach == BarReach::ToColumnOfLast) {
                const int column = span.last % m_grid.columns;
                kind.right = m_grid.boxes[column < 0 ? column + m_grid.columns : column].right;
            } else if (span.last >= span.first) {
                kind.right = kind.left + own.Width() * (span.last - span.first + 1);
            }
        }
        kind.left += m_rules.metrics.inset;
        kind.right -= m_rules.metrics.inset;
        if (kind.left > kind.right) {
            std::swap(kind.left, kind.right);
        }
        return kind;
    }

    const BoxGrid& m_grid;
    const BarRules& m_rules;
    std::vector<int> m_byBoxes; // first box x last box
    std::map<std::tuple<int, int, int, int>, int> m_irregular;
};

bool Overflows(int barBottom, int boxBottom, BarOverflow overflow)
{
    if (overflow == BarOverflow::ByAbsoluteValue) {
        return std::abs(barBottom) >= std::abs(boxBottom);
    }
    return barBottom >= boxBottom;
}

// Counts items per box from the places where they begin and end.
class LoadCounter
{
public:
    explicit LoadCounter(const BoxGrid& grid, BarOverflow overflow)
        : m_grid(grid), m_overflow(overflow), m_items(grid.Count() + 1), m_hidden(grid.Count() + 1)
    {
        for (int box = 0; box < grid.Count(); ++box) {
            m_rowEnd.push_back((grid.RowOf(box) + 1) * grid.columns);
        }
    }

    // The last box that the item covers decides whether the item is hidden; one that covers none stays as it was.
    void Add(const BoxSpan& span, int bottom, short& isHidden)
    {
        const int first = std::max(span.first, 0);
        const int last = std::min(span.last, m_grid.Count() - 1);
        for (int box = first; box <= last;) {
            const int next = std::min(last + 1, m_rowEnd[box]);
            const bool hidden = Overflows(bottom, m_grid.boxes[box].bottom, m_overflow);
            ++m_items[box];
            --m_items[next];
            m_hidden[box] += hidden;
            m_hidden[next] -= hidden;
            isHidden = hidden;
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
    std::vector<int> m_rowEnd; // box: the first of the next row
    std::vector<int> m_items;  // items that begin to cover the box less those that ended before it
    std::vector<int> m_hidden; // the same of the items hidden in it
};

} // namespace

BarMetrics BarMetrics::At(const ViewScale& scale) const
{
    BarMetrics scaled;
    scaled.topOffset = scale.Line(topOffset);
    scaled.inset = scale.Of(inset);
    scaled.laneStep = scale.Line(laneStep);
    scaled.height = scaled.laneStep - scale.Of(laneStep - BarHeight()) + 2 * scaled.inset;
    return scaled;
}

BoxSpan NoBoxes()
{
    return {kFarAfter, kFarBefore, true};
}

namespace {

// setItem(i, load counter, rectangle): of the i-th span.
template <class SetItem>
std::vector<BoxLoad> LayOut(const BoxGrid& grid, const BarRules& rules, const std::vector<BoxSpan>& spans,
                            BarSpace& space, SetItem setItem)
{
    KindFinder finder(grid, rules);
    std::vector<int>& kindOf = space.kindOf;
    kindOf.resize(spans.size());
    for (size_t i = 0; i < spans.size(); ++i) {
        kindOf[i] = finder.KindOf(spans[i]);
    }
    const BarMetrics& metrics = rules.metrics;
    LaneGrid laneGrid = {{}, grid.columns, metrics.BarHeight(), metrics.laneStep};
    for (int box = 0; box < grid.Count(); box += grid.columns) {
        laneGrid.firstTops.push_back(grid.boxes[box].top + metrics.topOffset + metrics.inset);
    }
    const std::vector<int> lanes = StackBars(kindOf, finder.kinds, laneGrid, space);

    std::vector<CRect> firstBars; // kind: its bar in lane 0
    for (const BarKind& kind : finder.kinds) {
        const int top = laneGrid.firstTops[grid.RowOf(kind.first)];
        firstBars.emplace_back(kind.left, top, kind.right, top + metrics.BarHeight());
    }
    LoadCounter counter(grid, rules.overflow);
    for (size_t i = 0; i < spans.size(); ++i) {
        CRect rect = kNoRect;
        if (kindOf[i] != kNoKind) {
            rect = firstBars[kindOf[i]];
            const int down = lanes[i] * metrics.laneStep;
            rect.top += down;
            rect.bottom += down;
        }
        setItem(i, counter, rect);
    }
    return counter.Loads();
}

} // namespace

std::vector<BoxLoad> LayOutBars(const BoxGrid& grid, const BarRules& rules, const std::vector<BoxSpan>& spans,
                                ItemArray& items)
{
    tagCALENDAR_ITEM* data = items.GetData();
    BarSpace space;
    return LayOut(grid, rules, spans, space, [&](size_t i, LoadCounter& counter, const CRect& rect) {
        data[i].rcItem = rect;
        counter.Add(spans[i], rect.bottom, data[i].bNoFocus);
    });
}

std::vector<BoxLoad> LayOutBars(const BoxGrid& grid, const BarRules& rules, const std::vector<BoxSpan>& spans,
                                ItemArray& items, PlacedBars& placed, BarSpace& space, std::vector<PieceMove>& moved)
{
    tagCALENDAR_ITEM* data = items.GetData();
    return LayOut(grid, rules, spans, space, [&](size_t i, LoadCounter& counter, const CRect& rect) {
        if (placed.tops[i] == rect.top) {
            short same = FALSE;
            counter.Add(spans[i], rect.bottom, same);
            return;
        }
        placed.tops[i] = rect.top;
        tagCALENDAR_ITEM& item = data[placed.items[i]];
        const PieceMove before = {placed.items[i], item.rcItem, item.bNoFocus != FALSE};
        item.rcItem = rect;
        counter.Add(spans[i], rect.bottom, item.bNoFocus);
        const bool isHidden = item.bNoFocus != FALSE;
        if (isHidden != before.wasHidden || (!isHidden && item.rcItem != before.box)) {
            moved.push_back(before);
        }
    });
}

} // namespace dayvane
