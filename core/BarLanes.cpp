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

// Both sweeps of one row whose lanes do not overlap, with the waiting bars counted by lane and kind. Those of one kind
// wait in the order of their lanes, which is that of their placing: the next one is always in the first lane that has
// any. Lane: an unsigned type that holds twice as many as there are bars; the narrower, the faster. steps: of kinds.
template <class Lane, std::size_t steps>
class RowSweeps
{
public:
    using Row = LaneRow<Lane>;

    // which: those of the kinds that there are in the row.
    RowSweeps(const std::vector<BarKind>& kinds, const std::vector<int>& which)
        : m_overlaps(which.size()), m_isOwn(which.size())
    {
        for (std::size_t a = 0; a < which.size(); ++a) {
            m_isOwn[a].of[a] = 1;
            for (std::size_t b = 0; b < which.size(); ++b) {
                if (kinds[which[a]].CanOverlap(kinds[which[b]])) {
                    m_overlaps[a].of[b] = static_cast<Lane>(-1);
                }
            }
        }
    }

    // bars: of each its place in `which`. lanes, counts: what was in them is lost.
    void Run(const std::vector<int>& bars, std::vector<Lane>& lanes, std::vector<Row>& counts) const
    {
        lanes.resize(bars.size());
        SweepFirst(bars, lanes);
        counts.assign(*std::max_element(lanes.begin(), lanes.end()) + std::size_t(2), Row());
        for (std::size_t i = 0; i < bars.size(); ++i) {
            ++counts[lanes[i]].of[bars[i]];
        }
        SweepAgain(bars, counts, lanes);
    }

private:
    static constexpr std::size_t kWidth = steps * kKindsPerStep;

    // Each bar takes a lane. Those still to come that it can overlap move down from there by one.
    void SweepFirst(const std::vector<int>& bars, std::vector<Lane>& lanes) const
    {
        Row next; // the lane of the next bar of a kind
        Lane* taken = lanes.data();
        for (const int place : bars) {
            *taken = next.of[place];
            MoveDown(next.of, m_overlaps[place], *taken++);
        }
    }

    // Each bar takes the lane in which it waits. Those that wait there and that it can overlap move down by one.
    void SweepAgain(const std::vector<int>& bars, std::vector<Row>& counts, std::vector<Lane>& lanes) const
    {
        std::size_t first[kWidth] = {}; // kind: none of it waits in an earlier lane
        Lane* taken = lanes.data();
        for (const int place : bars) {
            std::size_t& lane = first[place];
            while (counts[lane].of[place] == 0) {
                ++lane;
            }
            if (lane + 1 == counts.size()) {
                counts.resize(counts.size() + counts.size() / 2 + 1);
            }
            PushDown(counts[lane].of, counts[lane + 1].of, m_overlaps[place], m_isOwn[place]);
            *taken++ = static_cast<Lane>(lane);
        }
    }

    // With simple bodies, so that compilers vectorise them.
    static void MoveDown(Lane* __restrict lanes, const Row& which, Lane from)
    {
        for (std::size_t k = 0; k < kWidth; ++k) {
            const Lane isThere = lanes[k] == from ? static_cast<Lane>(-1) : Lane(0);
            lanes[k] = static_cast<Lane>(lanes[k] - (isThere & which.of[k]));
        }
    }

    // leaving: the bar that is placed. Subtracted on its own it would hold up the processor, which reads what was just
    // written at once only when it is read in no larger pieces.
    static void PushDown(Lane* __restrict from, Lane* __restrict to, const Row& which, const Row& leaving)
    {
        for (std::size_t k = 0; k < kWidth; ++k) {
            const Lane waiting = static_cast<Lane>(from[k] - leaving.of[k]);
            const Lane moved = waiting & which.of[k];
            from[k] = static_cast<Lane>(waiting - moved);
            to[k] = static_cast<Lane>(to[k] + moved);
        }
    }

    std::vector<Row> m_overlaps; // kind, kind: all bits set where they can overlap, else 0
    std::vector<Row> m_isOwn;    // kind, kind: 1 where they are the same, else 0
};

// The fewer kinds, the less each bar has to visit.
template <class Lane>
std::vector<int> RunSweeps(const std::vector<BarKind>& kinds, const std::vector<int>& kindsThere,
                           const std::vector<int>& places, std::vector<Lane>& lanes, std::vector<LaneRow<Lane>>& counts)
{
    static_assert(kMostRowKinds == 4 * kKindsPerStep, "a case for each number of steps");
    switch ((kindsThere.size() - 1) / kKindsPerStep) {
    case 0:
        RowSweeps<Lane, 1>(kinds, kindsThere).Run(places, lanes, counts);
        break;
    case 1:
        RowSweeps<Lane, 2>(kinds, kindsThere).Run(places, lanes, counts);
        break;
    case 2:
        RowSweeps<Lane, 3>(kinds, kindsThere).Run(places, lanes, counts);
        break;
    default:
        RowSweeps<Lane, 4>(kinds, kindsThere).Run(places, lanes, counts);
        break;
    }
    return {lanes.begin(), lanes.end()};
}

// places: of each bar that of its kind in kindsThere.
std::vector<int> LanesOfRow(const std::vector<BarKind>& kinds, const std::vector<int>& kindsThere,
                            const std::vector<int>& places, BarSpace& space)
{
    constexpr std::size_t kMostNarrow = 0x7FFF; // bars whose lanes and counts certainly fit in 16 bits
    if (places.size() <= kMostNarrow) {
        return RunSweeps(kinds, kindsThere, places, space.lanes, space.counts);
    }
    std::vector<unsigned> lanes;
    std::vector<LaneRow<unsigned>> counts;
    return RunSweeps(kinds, kindsThere, places, lanes, counts);
}

// bars: positions in kindOf and in lanes.
void SweepRow(const std::vector<int>& bars, const std::vector<int>& kindOf, const std::vector<BarKind>& kinds,
              const std::vector<int>& kindsThere, BarSpace& space, std::vector<int>& lanes)
{
    std::vector<int> placeOf(kinds.size(), 0);
    for (std::size_t place = 0; place < kindsThere.size(); ++place) {
        placeOf[kindsThere[place]] = static_cast<int>(place);
    }
    std::vector<int> places(bars.size());
    std::transform(bars.begin(), bars.end(), places.begin(), [&](int bar) { return placeOf[kindOf[bar]]; });
    const std::vector<int> taken = LanesOfRow(kinds, kindsThere, places, space);
    for (std::size_t i = 0; i < bars.size(); ++i) {
        lanes[bars[i]] = taken[i];
    }
}

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

// The bars of a block by way of lists, whatever overlaps.
void SweepBlock(const std::vector<int>& bars, const std::vector<int>& kindOf, const std::vector<BarKind>& kinds,
                const RowBlocks& blocks, const LaneGrid& grid, FirstSweep& first, std::vector<int>& lanes)
{
    WaitingBars waiting(kinds, blocks, bars.size());
    std::vector<int> setOf;
    setOf.reserve(bars.size());
    for (const int bar : bars) {
        const int kind = kindOf[bar];
        const int lane = (first.Place(kind) - grid.firstTops[blocks.rowOf[kind]]) / grid.laneStep;
        setOf.push_back(waiting.Enter(kind, lane));
    }
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const int kind = kindOf[bars[i]];
        const int lane = waiting.Leave(setOf[i]);
        lanes[bars[i]] = lane;
        const int ownRow = blocks.rowOf[kind];
        const int firstRow = blocks.rowsOverlap ? 0 : ownRow;
        const int lastRow = blocks.rowsOverlap ? blocks.rows - 1 : ownRow;
        for (int row = firstRow; row <= lastRow; ++row) {
            PushRow(waiting, kinds[kind], ownRow, lane, row, grid);
        }
    }
}

// Bars that can overlap stay together in memory: with many bars that is faster.
std::vector<std::vector<int>> BarsOfBlocks(const std::vector<int>& kindOf, const RowBlocks& blocks)
{
    std::vector<std::size_t> counts(blocks.Count(), 0);
    for (const int kind : kindOf) {
        if (kind != kNoKind) {
            ++counts[blocks.BlockOf(kind)];
        }
    }
    std::vector<std::vector<int>> bars(counts.size());
    std::vector<int*> next;
    for (std::size_t block = 0; block < counts.size(); ++block) {
        bars[block].resize(counts[block]);
        next.push_back(bars[block].data());
    }
    for (std::size_t i = 0; i < kindOf.size(); ++i) {
        if (kindOf[i] != kNoKind) {
            *next[blocks.BlockOf(kindOf[i])]++ = static_cast<int>(i);
        }
    }
    return bars;
}

} // namespace

std::vector<int> StackBars(const std::vector<int>& kindOf, const std::vector<BarKind>& kinds, const LaneGrid& grid,
                           BarSpace& space)
{
    const RowBlocks blocks(kinds, grid);
    const bool lanesAreApart = !blocks.rowsOverlap && grid.barHeight > 0 && grid.barHeight <= grid.laneStep;
    // After a change of few bars it is mostly one row, of known bars: all are together already.
    if (lanesAreApart && blocks.rows == 1 && !kindOf.empty() && kinds.size() <= kMostRowKinds &&
        std::find(kindOf.begin(), kindOf.end(), kNoKind) == kindOf.end()) {
        return LanesOfRow(kinds, KindsOf(0, kinds, blocks), kindOf, space);
    }
    const std::vector<std::vector<int>> bars = BarsOfBlocks(kindOf, blocks);
    std::vector<int> lanes(kindOf.size(), 0);
    FirstSweep first(kinds, blocks, grid);
    for (int number = 0; number < blocks.Count(); ++number) {
        const std::vector<int>& block = bars[number];
        const std::vector<int> kindsThere = KindsOf(number, kinds, blocks);
        if (block.empty()) {
            continue;
        }
        if (lanesAreApart && kindsThere.size() <= kMostRowKinds) {
            SweepRow(block, kindOf, kinds, kindsThere, space, lanes);
        } else {
            SweepBlock(block, kindOf, kinds, blocks, grid, first, lanes);
        }
    }
    return lanes;
}

} // namespace dayvane
