#include "views/daygrid/BarLanes.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <tuple>

namespace dayvane
{
namespace
{

constexpr int kNone = -1;

struct Kind
{
    int row;
    int first;
    int last;
    int left;
    int right;

    bool CanMeet(const Kind& other) const
    {
        return first <= other.last && other.first <= last && left < other.right && other.left < right;
    }
};

// Numbers the kinds of bars in the order in which they first appear.
class KindTable
{
public:
    explicit KindTable(const LaneGrid& grid)
        : m_grid(grid), m_stride(grid.BoxCount() + 1), m_byDays(grid.BoxCount() * m_stride, kNone)
    {
    }

    int KindOf(const LaneBar& bar)
    {
        // Bars of the same days have the same extent, but for those that end outside the grid or before they start.
        int& byDays = m_byDays[bar.first * m_stride + bar.last + 1];
        if (byDays == kNone)
            byDays = Add(bar);
        if (kinds[byDays].left == bar.left && kinds[byDays].right == bar.right)
            return byDays;
        const auto [found, isNew] = m_others.emplace(std::make_tuple(bar.first, bar.last, bar.left, bar.right), kNone);
        if (isNew)
            found->second = Add(bar);
        return found->second;
    }

    std::vector<Kind> kinds;

private:
    int Add(const LaneBar& bar)
    {
        kinds.push_back({m_grid.RowOf(bar.first), bar.first, bar.last, bar.left, bar.right});
        return static_cast<int>(kinds.size()) - 1;
    }

    const LaneGrid& m_grid;
    int m_stride;
    std::vector<int> m_byDays;
    std::map<std::tuple<int, int, int, int>, int> m_others;
};

// ---- First sweep

// Where the waiting bars of each kind lie. Runs over all kinds for every bar, in steps that the compiler turns into a
// few instructions for several kinds at once: cheaper than to look which ones are concerned.
class FirstSweep
{
public:
    FirstSweep(const std::vector<Kind>& kinds, const LaneGrid& grid)
        : m_padded((kinds.size() + kStep - 1) / kStep * kStep), m_tops(m_padded, 0), m_meets(m_padded * kinds.size(), 0),
          m_barHeight(grid.barHeight)
    {
        for (std::size_t k = 0; k < kinds.size(); ++k) {
            m_tops[k] = grid.firstTops[kinds[k].row];
            for (std::size_t m = 0; m < kinds.size(); ++m)
                m_meets[k * m_padded + m] = kinds[k].CanMeet(kinds[m]) ? grid.laneStep : 0;
        }
    }

    // The top of the bar whose turn it is. Of the others, those that it touches move down by one lane.
    int Place(int kind)
    {
        const int top = m_tops[kind];
        const int height = m_barHeight;
        int* __restrict tops = m_tops.data();
        const int* __restrict steps = &m_meets[kind * m_padded];
        for (std::size_t left = m_padded; left > 0; left -= kStep, tops += kStep, steps += kStep) {
            for (std::size_t k = 0; k < kStep; ++k) {
                const int distance = tops[k] - top;
                tops[k] += steps[k] & -((distance < height) & (distance > -height));
            }
        }
        return top;
    }

private:
    static constexpr std::size_t kStep = 8; // kinds

    std::size_t m_padded;     // count of kinds, filled up to whole steps
    std::vector<int> m_tops;  // pixels
    std::vector<int> m_meets; // kind x kind: lane step where the two can meet, else 0
    int m_barHeight;
};

// ---- Second sweep

// The bars whose turn is still to come, as sets of one kind in one lane. Sets that come together join (a union-find
// forest); the sets of a lane are a list.
class WaitingBars
{
public:
    WaitingBars(const std::vector<Kind>& kinds, int rows, std::size_t barCount)
        : m_kinds(kinds), m_lanes(rows), m_lastSetOf(kinds.size(), kNone)
    {
        m_sets.reserve(barCount);
    }

    // Puts a bar into a lane, before the first turn; returns its set. The lanes of bars of one kind never decrease: so
    // the first sweep leaves them.
    int Enter(int kind, int lane)
    {
        int& set = m_lastSetOf[kind];
        if (set == kNone || m_sets[set].lane != lane) {
            int& head = HeadOf(m_kinds[kind].row, lane);
            set = static_cast<int>(m_sets.size());
            m_sets.push_back({set, kind, lane, 0, head});
            head = set;
        }
        ++m_sets[set].waiting;
        return set;
    }

    // The bar's turn has come: it waits no more. Returns its lane.
    int Leave(int set)
    {
        while (m_sets[set].parent != set) {
            m_sets[set].parent = m_sets[m_sets[set].parent].parent;
            set = m_sets[set].parent;
        }
        --m_sets[set].waiting;
        return m_sets[set].lane;
    }

    // The sets of a lane that can meet the kind move down by one lane.
    void Push(const Kind& pusher, int row, int lane)
    {
        if (lane < 0 || lane >= static_cast<int>(m_lanes[row].size()))
            return;
        int moved = kNone;
        int* link = &m_lanes[row][lane];
        while (*link != kNone) {
            Set& set = m_sets[*link];
            if (set.waiting == 0) {
                *link = set.next;
            } else if (pusher.CanMeet(m_kinds[set.kind])) {
                const int next = set.next;
                set.next = moved;
                moved = *link;
                *link = next;
            } else {
                link = &set.next;
            }
        }
        while (moved != kNone) {
            const int next = m_sets[moved].next;
            PutDown(moved, row, lane + 1);
            moved = next;
        }
    }

private:
    struct Set
    {
        int parent;
        int kind;
        int lane;
        int waiting; // bars
        int next;    // set in the lane
    };

    int& HeadOf(int row, int lane)
    {
        std::vector<int>& heads = m_lanes[row];
        if (lane >= static_cast<int>(heads.size()))
            heads.resize(lane + 1, kNone);
        return heads[lane];
    }

    void PutDown(int moved, int row, int lane)
    {
        int& head = HeadOf(row, lane);
        int other = head;
        while (other != kNone && m_sets[other].kind != m_sets[moved].kind)
            other = m_sets[other].next;
        if (other == kNone) {
            m_sets[moved].lane = lane;
            m_sets[moved].next = head;
            head = moved;
        } else {
            m_sets[moved].parent = other;
            m_sets[other].waiting += m_sets[moved].waiting;
        }
    }

    const std::vector<Kind>& m_kinds;
    std::vector<Set> m_sets;
    std::vector<std::vector<int>> m_lanes; // row, lane: first set
    std::vector<int> m_lastSetOf;          // kind: the set entered last
};

int FloorDiv(int a, int b)
{
    return a >= 0 ? a / b : -((b - 1 - a) / b);
}

// Pushes what a bar of the kind in that lane touches in the given row. Lanes of another row do not line up with its own:
// a bar may touch bars of two. Each of those moves once, so the lower lane goes first.
void PushRow(WaitingBars& waiting, const Kind& kind, int lane, int row, const LaneGrid& grid)
{
    const int top = grid.firstTops[kind.row] + lane * grid.laneStep - grid.firstTops[row];
    const int highest = FloorDiv(top - grid.barHeight, grid.laneStep) + 1;
    const int lowest = FloorDiv(top + grid.barHeight - 1, grid.laneStep);
    for (int touched = lowest; touched >= highest; --touched)
        waiting.Push(kind, row, touched);
}

// ---- Groups of bars that meet nobody outside of the group

struct GroupBar
{
    int bar; // index
    int kind;
    int set;
};

void StackGroup(std::vector<LaneBar>& bars, std::vector<GroupBar>& group, bool rowsMeet, const LaneGrid& grid)
{
    KindTable table(grid);
    for (GroupBar& member : group)
        member.kind = table.KindOf(bars[member.bar]);

    FirstSweep first(table.kinds, grid);
    for (const GroupBar& member : group) {
        const int top = first.Place(member.kind);
        bars[member.bar].lane = (top - grid.firstTops[table.kinds[member.kind].row]) / grid.laneStep;
    }

    const int rows = static_cast<int>(grid.firstTops.size());
    WaitingBars waiting(table.kinds, rows, group.size());
    for (GroupBar& member : group)
        member.set = waiting.Enter(member.kind, bars[member.bar].lane);
    for (const GroupBar& member : group) {
        const Kind& kind = table.kinds[member.kind];
        const int lane = waiting.Leave(member.set);
        bars[member.bar].lane = lane;
        const int firstRow = rowsMeet ? 0 : kind.row;
        const int lastRow = rowsMeet ? rows - 1 : kind.row;
        for (int row = firstRow; row <= lastRow; ++row)
            PushRow(waiting, kind, lane, row, grid);
    }
}

} // namespace

void StackBars(std::vector<LaneBar>& bars, const LaneGrid& grid)
{
    // Bars of different rows meet only where one of them goes on into another row.
    const auto leavesRow = [&grid](const LaneBar& bar) {
        return bar.first != kNone && bar.last > bar.first && grid.RowOf(bar.last) != grid.RowOf(bar.first);
    };
    const bool rowsMeet = std::any_of(bars.begin(), bars.end(), leavesRow);
    std::vector<std::vector<GroupBar>> groups(rowsMeet ? 1 : grid.firstTops.size());
    for (std::size_t i = 0; i < bars.size(); ++i) {
        bars[i].lane = 0;
        if (bars[i].first != kNone && bars[i].left < bars[i].right)
            groups[rowsMeet ? 0 : grid.RowOf(bars[i].first)].push_back({static_cast<int>(i), kNone, kNone});
    }
    for (std::vector<GroupBar>& group : groups)
        StackGroup(bars, group, rowsMeet, grid);
}

} // namespace dayvane
