#include "views/daygrid/BarLanes.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace dayvane
{
namespace
{

constexpr int kNone = -1;

// Where bars of one kind get to that look at all bars so far: start lanes that have come to one lane stay together, so
// they are sets (of a union-find forest) that sit in lanes and move down one lane at a time.
class LaneWalk
{
public:
    // Forgets everything but `lanes` empty lanes.
    void Clear(int lanes)
    {
        m_setInLane.assign(lanes, kNone);
        m_sets.clear();
    }

    // The set that bars starting in this lane belong to. All starts are named before the first move.
    int Start(int lane)
    {
        if (lane >= static_cast<int>(m_setInLane.size()))
            m_setInLane.resize(lane + 1, kNone);
        int& set = m_setInLane[lane];
        if (set == kNone) {
            set = static_cast<int>(m_sets.size());
            m_sets.push_back({set, lane});
        }
        return set;
    }

    int LaneOf(int set)
    {
        while (m_sets[set].parent != set) {
            m_sets[set].parent = m_sets[m_sets[set].parent].parent;
            set = m_sets[set].parent;
        }
        return m_sets[set].lane;
    }

    // Something that bars of this kind meet lies in the lane: what sits there gives way.
    void MoveDown(int lane)
    {
        if (lane < 0 || lane >= static_cast<int>(m_setInLane.size()) || m_setInLane[lane] == kNone)
            return;
        const int set = m_setInLane[lane];
        m_setInLane[lane] = kNone;
        if (lane + 1 == static_cast<int>(m_setInLane.size()))
            m_setInLane.push_back(kNone);
        int& below = m_setInLane[lane + 1];
        if (below == kNone) {
            below = set;
            m_sets[set].lane = lane + 1;
        } else {
            m_sets[set].parent = below;
        }
    }

    int LaneCount() const { return static_cast<int>(m_setInLane.size()); }

private:
    struct Set
    {
        int parent;
        int lane; // of the root
    };
    std::vector<int> m_setInLane;
    std::vector<Set> m_sets;
};

struct Kind
{
    int row;
    int first;
    int last;
    int left;
    int right;
    std::vector<int> met; // kinds with a day and some width in common, this one included
    LaneWalk walk;
};

bool CanMeet(const Kind& a, const Kind& b)
{
    return a.first <= b.last && b.first <= a.last && a.left < b.right && b.left < a.right;
}

// Names the kinds of bars in the order in which they first appear.
class KindTable
{
public:
    explicit KindTable(int boxCount) : m_boxCount(boxCount), m_byDays(boxCount * (boxCount + 1), kNone) {}

    int KindOf(const LaneBar& bar)
    {
        if (bar.row == kNone || bar.left >= bar.right)
            return kNone;
        // Bars of the same days have the same extent, but for those that end outside the grid or before they start.
        int& byDays = m_byDays[bar.first * (m_boxCount + 1) + bar.last + 1];
        if (byDays == kNone)
            byDays = Add(bar);
        const Kind& kind = kinds[byDays];
        if (kind.left == bar.left && kind.right == bar.right)
            return byDays;
        const auto key = std::make_tuple(bar.first, bar.last, bar.left, bar.right);
        const auto [found, isNew] = m_others.emplace(key, kNone);
        if (isNew)
            found->second = Add(bar);
        return found->second;
    }

    std::vector<Kind> kinds;

private:
    int Add(const LaneBar& bar)
    {
        const int added = static_cast<int>(kinds.size());
        kinds.push_back({bar.row, bar.first, bar.last, bar.left, bar.right, {}, {}});
        for (int other = 0; other <= added; ++other) {
            if (!CanMeet(kinds[added], kinds[other]))
                continue;
            kinds[added].met.push_back(other);
            if (other != added)
                kinds[other].met.push_back(added);
        }
        return added;
    }

    int m_boxCount;
    std::vector<int> m_byDays;
    std::map<std::tuple<int, int, int, int>, int> m_others;
};

int FloorDiv(int a, int b)
{
    return a >= 0 ? a / b : -((b - 1 - a) / b);
}

// Bars of `mover` that a bar of `kind` in `lane` touches move down.
void Push(const Kind& kind, int lane, Kind& mover, const std::vector<int>& firstTops, const LaneHeights& heights)
{
    if (kind.row == mover.row && heights.bar <= heights.step) {
        mover.walk.MoveDown(lane);
        return;
    }
    // In another row the lanes do not line up: a bar may touch bars of two lanes. Each of them moves once, so the
    // lower one goes first.
    const int top = firstTops[kind.row] + lane * heights.step - firstTops[mover.row];
    const int highest = FloorDiv(top - heights.bar, heights.step) + 1;
    const int lowest = FloorDiv(top + heights.bar - 1, heights.step);
    for (int touched = lowest; touched >= highest; --touched)
        mover.walk.MoveDown(touched);
}

} // namespace

void StackBars(std::vector<LaneBar>& bars, const std::vector<int>& firstTops, const LaneHeights& heights, int boxCount)
{
    KindTable table(boxCount);
    std::vector<int> kindOf(bars.size());
    for (size_t i = 0; i < bars.size(); ++i) {
        kindOf[i] = table.KindOf(bars[i]);
        bars[i].lane = 0;
    }
    std::vector<Kind>& kinds = table.kinds;
    std::vector<int> startOf(bars.size());
    constexpr int kSweeps = 2;
    for (int sweep = 0; sweep < kSweeps; ++sweep) {
        for (Kind& kind : kinds)
            kind.walk.Clear(kind.walk.LaneCount());
        for (size_t i = 0; i < bars.size(); ++i) {
            if (kindOf[i] != kNone)
                startOf[i] = kinds[kindOf[i]].walk.Start(bars[i].lane);
        }
        for (size_t i = 0; i < bars.size(); ++i) {
            if (kindOf[i] == kNone)
                continue;
            Kind& kind = kinds[kindOf[i]];
            bars[i].lane = kind.walk.LaneOf(startOf[i]);
            for (int met : kind.met)
                Push(kind, bars[i].lane, kinds[met], firstTops, heights);
        }
    }
}

} // namespace dayvane
