#include "core/BarLanes.h"

#include <algorithm>
#include <cstddef>

namespace dayvane {
namespace {

constexpr int kNone = -1;

// Which rows' bars can overlap: those of one row only, unless some bar goes on into another row.
struct RowBlocks
{
    RowBlocks(const std::vector<BarKind>& kinds, const LaneGrid& grid) : rows(static_cast<int>(grid.firstTops.size()))
    {
        for (const BarKind& kind : kinds) {
            rowOf.push_back(grid.RowOf(kind.first));
            rowsOverlap = rowsOverlap || (kind.last > kind.first && grid.RowOf(kind.last) != rowOf.back());
        }
    }

    int Count() const { return rowsOverlap ? 1 : rows; }
    int BlockOf(int kind) const { return rowsOverlap ? 0 : rowOf[kind]; }

    int rows;
    std::vector<int> rowOf; // kind
    bool rowsOverlap = false;
};

// ---- First sweep

constexpr std::size_t kKindsPerStep = 8;

// Adds to each top its step where the bar there touches a bar at `top`. A separate function with a simple body, so that
// compilers vectorise it.
void MoveTouched(int* __restrict tops, const int* __restrict steps, std::size_t count, int top, int height)
{
    for (; count > 0; count -= kKindsPerStep, tops += kKindsPerStep, steps += kKindsPerStep) {
        for (std::size_t k = 0; k < kKindsPerStep; ++k) {
            const int distance = tops[k] - top;
            tops[k] += steps[k] & -((distance < height) & (distance > -height));
        }
    }
}

// Where the unplaced bars of each kind lie. Every bar visits all kinds that it could overlap: that is cheaper than
// finding out which of them are in its lane.
class FirstSweep
{
public:
    FirstSweep(const std::vector<BarKind>& kinds, const RowBlocks& blocks, const LaneGrid& grid)
        : m_places(kinds.size()), m_barHeight(grid.barHeight)
    {
        std::vector<std::vector<int>> members(blocks.Count());
        for (int kind = 0; kind < static_cast<int>(kinds.size()); ++kind) {
            members[blocks.BlockOf(kind)].push_back(kind);
        }
        for (const std::vector<int>& block : members) {
            AddBlock(block, kinds, blocks, grid);
        }
    }

    // Places the next bar and returns its top. Unplaced bars that it touches move down by one lane.
    int Place(int kind)
    {
        const Slot& slot = m_places[kind];
        const int top = m_tops[slot.own];
        MoveTouched(&m_tops[slot.block], &m_steps[slot.steps], slot.blockSize, top, m_barHeight);
        return top;
    }

private:
    struct Slot
    {
        std::size_t own;       // the kind's place in m_tops
        std::size_t block;     // where the kinds that it can overlap begin
        std::size_t blockSize; // filled up to whole steps
        std::size_t steps;     // in m_steps, one for each of the block
    };

    void AddBlock(const std::vector<int>& members, const std::vector<BarKind>& kinds, const RowBlocks& blocks,
                  const LaneGrid& grid)
    {
        const std::size_t begin = m_tops.size();
        const std::size_t size = (members.size() + kKindsPerStep - 1) / kKindsPerStep * kKindsPerStep;
        m_tops.resize(begin + size, 0);
        for (std::size_t i = 0; i < members.size(); ++i) {
            m_tops[begin + i] = grid.firstTops[blocks.rowOf[members[i]]];
            m_places[members[i]] = {begin + i, begin, size, m_steps.size()};
            for (int other : members) {
                m_steps.push_back(kinds[members[i]].CanOverlap(kinds[other]) ? grid.laneStep : 0);
            }
            m_steps.resize(m_places[members[i]].steps + size, 0);
        }
    }

    std::vector<Slot> m_places;
    std::vector<int> m_tops;  // pixels
    std::vector<int> m_steps; // lane step where two kinds can overlap, else 0
    int m_barHeight;
};

// ---- Second sweep

// The unplaced bars, as sets of one kind in one lane. Sets that come into one lane join (a union-find forest); the sets
// of a lane form a list.
class WaitingBars
{
public:
    WaitingBars(const std::vector<BarKind>& kinds, const RowBlocks& blocks, std::size_t barCount)
        : m_kinds(kinds), m_blocks(blocks), m_lanes(blocks.rows), m_lastSetOf(kinds.size(), kNone)
    {
        m_sets.reserve(barCount);
    }

    // Puts a bar into a lane, before the first bar is placed; returns its set. After the first sweep the lanes of bars
    // of one kind never decrease.
    int Enter(int kind, int lane)
    {
        int& set = m_lastSetOf[kind];
        if (set == kNone || m_sets[set].lane != lane) {
            int& head = HeadOf(m_blocks.rowOf[kind], lane);
            set = static_cast<int>(m_sets.size());
            m_sets.push_back({kind, lane, 0, head});
            head = set;
        }
        ++m_sets[set].waiting;
        return set;
    }

    // Places a bar of the set and returns its lane.
    int Leave(int set)
    {
        while (m_sets[set].waiting == kJoined) {
            const int other = m_sets[set].next;
            if (m_sets[other].waiting == kJoined) {
                m_sets[set].next = m_sets[other].next;
            }
            set = other;
        }
        --m_sets[set].waiting;
        return m_sets[set].lane;
    }

    // The sets of a lane that can overlap the kind move down by one lane.
    void Push(const BarKind& pusher, int row, int lane)
    {
        if (lane < 0 || lane >= static_cast<int>(m_lanes[row].size())) {
            return;
        }
        int moved = kNone;
        int* link = &m_lanes[row][lane];
        while (*link != kNone) {
            Set& set = m_sets[*link];
            if (set.waiting == 0) {
                *link = set.next;
            } else if (pusher.CanOverlap(m_kinds[set.kind])) {
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
    static constexpr int kJoined = -1;

    struct Set
    {
        int kind;
        int lane;
        int waiting; // bars; kJoined: its bars belong to another set
        int next;    // set in the lane; the other set that it has joined
    };

    int& HeadOf(int row, int lane)
    {
        std::vector<int>& heads = m_lanes[row];
        if (lane >= static_cast<int>(heads.size())) {
            heads.resize(lane + 1, kNone);
        }
        return heads[lane];
    }

    void PutDown(int moved, int row, int lane)
    {
        int& head = HeadOf(row, lane);
        int other = head;
        while (other != kNone && m_sets[other].kind != m_sets[moved].kind) {
            other = m_sets[other].next;
        }
        if (other == kNone) {
            m_sets[moved].lane = lane;
            m_sets[moved].next = head;
            head = moved;
        } else {
            m_sets[other].waiting += m_sets[moved].waiting;
            m_sets[moved].waiting = kJoined;
            m_sets[moved].next = other;
        }
    }

    const std::vector<BarKind>& m_kinds;
    const RowBlocks& m_blocks;
    std::vector<Set> m_sets;
    std::vector<std::vector<int>> m_lanes; // row, lane: first set
    std::vector<int> m_lastSetOf;          // kind: the set entered last
};

// The waiting bars of one row whose lanes do not overlap, counted by lane and kind. Those of one kind wait in the order
// of their lanes, which is that of their placing: the next one is always in the first lane that has any.
class CountedBars
{
public:
    static constexpr std::size_t kMostKinds = 4 * kKindsPerStep;

    // which: those of the kinds that there are in the row.
    CountedBars(const std::vector<BarKind>& kinds, const std::vector<int>& which)
        : m_width((which.size() + kKindsPerStep - 1) / kKindsPerStep * kKindsPerStep), m_placeOf(kinds.size(), 0),
          m_firstLane(which.size(), 0), m_overlaps(which.size() * m_width, 0)
    {
        for (std::size_t a = 0; a < which.size(); ++a) {
            m_placeOf[which[a]] = a;
            for (std::size_t b = 0; b < which.size(); ++b) {
                m_overlaps[a * m_width + b] = kinds[which[a]].CanOverlap(kinds[which[b]]) ? -1 : 0;
            }
        }
    }

    void Enter(int kind, int lane)
    {
        Grow(lane);
        ++m_counts[lane * m_width + m_placeOf[kind]];
    }

    // Places the next bar of the kind: those of its lane that it can overlap move down by one. Returns the lane.
    int Place(int kind)
    {
        const std::size_t place = m_placeOf[kind];
        int& lane = m_firstLane[place];
        while (m_counts[lane * m_width + place] == 0) {
            ++lane;
        }
        --m_counts[lane * m_width + place];
        Grow(lane + 1);
        PushDown(&m_counts[lane * m_width], &m_counts[(lane + 1) * m_width], &m_overlaps[place * m_width], m_width);
        return lane;
    }

private:
    void Grow(int lane)
    {
        if (m_counts.size() < (lane + 1) * m_width) {
            m_counts.resize((lane + 1) * m_width, 0);
        }
    }

    // A separate function with a simple body, so that compilers vectorise it.
    static void PushDown(int* __restrict from, int* __restrict to, const int* __restrict which, std::size_t count)
    {
        for (; count > 0; count -= kKindsPerStep, from += kKindsPerStep, to += kKindsPerStep, which += kKindsPerStep) {
            for (std::size_t k = 0; k < kKindsPerStep; ++k) {
                const int moved = from[k] & which[k];
                from[k] -= moved;
                to[k] += moved;
            }
        }
    }

    std::size_t m_width;                // of a lane in m_counts: kinds, filled up to whole steps
    std::vector<std::size_t> m_placeOf; // of a kind in what follows
    std::vector<int> m_counts;          // lane, kind: waiting bars
    std::vector<int> m_firstLane;       // kind: none of it waits in an earlier one
    std::vector<int> m_overlaps;        // kind, kind: all bits set where they can overlap, else 0
};

std::vector<int> KindsOf(int block, const std::vector<BarKind>& kinds, const RowBlocks& blocks)
{
    std::vector<int> found;
    for (int kind = 0; kind < static_cast<int>(kinds.size()); ++kind) {
        if (blocks.BlockOf(kind) == block) {
            found.push_back(kind);
        }
    }
    return found;
}

int FloorDiv(int a, int b)
{
    return a >= 0 ? a / b : -((b - 1 - a) / b);
}

// Pushes what a bar in that lane of its own row touches in the given row. Lanes of another row do not line up with its
// own: a bar may touch bars of two. Each of those moves once, so the lower lane goes first.
void PushRow(WaitingBars& waiting, const BarKind& kind, int ownRow, int lane, int row, const LaneGrid& grid)
{
    if (row == ownRow && grid.barHeight <= grid.laneStep) {
        waiting.Push(kind, row, lane);
        return;
    }
    const int top = grid.firstTops[ownRow] + lane * grid.laneStep - grid.firstTops[row];
    const int highest = FloorDiv(top - grid.barHeight, grid.laneStep) + 1;
    const int lowest = FloorDiv(top + grid.barHeight - 1, grid.laneStep);
    for (int touched = lowest; touched >= highest; --touched) {
        waiting.Push(kind, row, touched);
    }
}

} // namespace

std::vector<int> StackBars(const std::vector<int>& kindOf, const std::vector<BarKind>& kinds, const LaneGrid& grid)
{
    const RowBlocks blocks(kinds, grid);
    // Bars that can overlap stay together in memory: with many bars that is faster.
    std::vector<std::vector<int>> members(blocks.Count());
    for (std::size_t i = 0; i < kindOf.size(); ++i) {
        if (kindOf[i] != kNoKind) {
            members[blocks.BlockOf(kindOf[i])].push_back(static_cast<int>(i));
        }
    }
    std::vector<int> lanes(kindOf.size(), 0);
    FirstSweep first(kinds, blocks, grid);
    const auto firstLane = [&](int kind) {
        return (first.Place(kind) - grid.firstTops[blocks.rowOf[kind]]) / grid.laneStep;
    };
    for (int number = 0; number < blocks.Count(); ++number) {
        const std::vector<int>& block = members[number];
        const std::vector<int> kindsThere = KindsOf(number, kinds, blocks);
        if (!blocks.rowsOverlap && grid.barHeight <= grid.laneStep && kindsThere.size() <= CountedBars::kMostKinds) {
            CountedBars waiting(kinds, kindsThere);
            for (const int bar : block) {
                waiting.Enter(kindOf[bar], firstLane(kindOf[bar]));
            }
            for (const int bar : block) {
                lanes[bar] = waiting.Place(kindOf[bar]);
            }
            continue;
        }
        WaitingBars waiting(kinds, blocks, block.size());
        std::vector<int> setOf;
        setOf.reserve(block.size());
        for (int bar : block) {
            const int kind = kindOf[bar];
            setOf.push_back(waiting.Enter(kind, firstLane(kind)));
        }
        for (std::size_t i = 0; i < block.size(); ++i) {
            const int kind = kindOf[block[i]];
            const int lane = waiting.Leave(setOf[i]);
            lanes[block[i]] = lane;
            const int ownRow = blocks.rowOf[kind];
            const int firstRow = blocks.rowsOverlap ? 0 : ownRow;
            const int lastRow = blocks.rowsOverlap ? blocks.rows - 1 : ownRow;
            for (int row = firstRow; row <= lastRow; ++row) {
                PushRow(waiting, kinds[kind], ownRow, lane, row, grid);
            }
        }
    }
    return lanes;
}

} // namespace dayvane
