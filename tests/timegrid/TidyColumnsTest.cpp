// Tidy columns against a slow literal rule, and what must hold of them whatever the items are.
#include "views/timegrid/TidyColumns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

using namespace dayvane;

namespace {

int EndOf(const TimeSpan& span)
{
    return std::max(span.end, span.start + 1);
}

bool Overlap(const TimeSpan& a, const TimeSpan& b)
{
    return a.start < EndOf(b) && b.start < EndOf(a);
}

// The rule as it is stated, pair by pair.
std::vector<TidyColumn> LiteralColumns(const std::vector<TimeSpan>& spans)
{
    const int count = static_cast<int>(spans.size());
    std::vector<int> order(spans.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return spans[a].start != spans[b].start ? spans[a].start < spans[b].start : EndOf(spans[a]) > EndOf(spans[b]);
    });
    std::vector<TidyColumn> places(spans.size(), TidyColumn{-1, -1, 0, 0});
    for (const int item : order) {
        std::vector<bool> taken(spans.size() + 1, false);
        for (int other = 0; other < count; ++other) {
            if (places[other].column >= 0 && Overlap(spans[item], spans[other])) {
                taken[places[other].column] = true;
            }
        }
        places[item].column = static_cast<int>(std::find(taken.begin(), taken.end(), false) - taken.begin());
    }
    int groups = 0;
    for (const int first : order) {
        if (places[first].group >= 0) {
            continue;
        }
        std::vector<int> members{first};
        places[first].group = groups++;
        for (std::size_t i = 0; i < members.size(); ++i) {
            for (int other = 0; other < count; ++other) {
                if (places[other].group < 0 && Overlap(spans[members[i]], spans[other])) {
                    places[other].group = places[first].group;
                    members.push_back(other);
                }
            }
        }
        int columns = 0;
        for (const int member : members) {
            columns = std::max(columns, places[member].column + 1);
        }
        for (const int member : members) {
            places[member].columns = columns;
            places[member].freeTo = columns;
            for (const int other : members) {
                if (Overlap(spans[member], spans[other]) && places[other].column > places[member].column) {
                    places[member].freeTo = std::min(places[member].freeTo, places[other].column);
                }
            }
        }
    }
    return places;
}

class RandomSpans
{
public:
    explicit RandomSpans(unsigned seed) : m_random(seed) {}

    int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }

    // Clusters, touching items, items of no length and some the wrong way round.
    std::vector<TimeSpan> Make()
    {
        std::vector<TimeSpan> spans;
        const int step = 1 << Below(6);
        const int day = 60 + Below(1400);
        for (int i = Below(40); i > 0; --i) {
            const int start = Below(day) / step * step;
            spans.push_back({start, start + Below(6) * step - (Below(20) == 0 ? 30 : 0)});
        }
        return spans;
    }

private:
    std::mt19937 m_random;
};

TEST(TidyColumns, AreThoseOfTheLiteralRule)
{
    for (unsigned seed = 0; seed < 3000; ++seed) {
        RandomSpans random(seed);
        const std::vector<TimeSpan> spans = random.Make();
        const std::vector<TidyColumn> quick = AssignColumns(spans);
        const std::vector<TidyColumn> literal = LiteralColumns(spans);
        ASSERT_EQ(quick.size(), literal.size());
        for (std::size_t i = 0; i < quick.size(); ++i) {
            ASSERT_EQ(quick[i].group, literal[i].group) << "seed " << seed << " item " << i;
            ASSERT_EQ(quick[i].column, literal[i].column) << "seed " << seed << " item " << i;
            ASSERT_EQ(quick[i].freeTo, literal[i].freeTo) << "seed " << seed << " item " << i;
            ASSERT_EQ(quick[i].columns, literal[i].columns) << "seed " << seed << " item " << i;
        }
    }
}

// What holds whatever the width: boxes are inside and do not overlap, none is too narrow, the boxes that are under way
// at one moment and the room between them make up the width, and every hidden item is counted once.
void ExpectTidy(const std::vector<TimeSpan>& spans, const TidyRule& rule, unsigned seed)
{
    const TidyPlaces places = PlaceTidily(spans, rule);
    ASSERT_EQ(places.boxes.size(), spans.size());
    int hidden = 0;
    for (std::size_t i = 0; i < spans.size(); ++i) {
        const TidyBox& box = places.boxes[i];
        if (box.hidden) {
            ++hidden;
            continue;
        }
        ASSERT_GE(box.left, 0) << "seed " << seed;
        ASSERT_LE(box.left + box.width, rule.usableWidth) << "seed " << seed;
        ASSERT_GE(box.width, std::min(rule.minimumWidth, rule.usableWidth)) << "seed " << seed << " item " << i;
        int takenAtStart = 0;
        for (std::size_t j = 0; j < spans.size(); ++j) {
            const TidyBox& other = places.boxes[j];
            if (i != j && !other.hidden && Overlap(spans[i], spans[j])) {
                ASSERT_TRUE(box.left + box.width <= other.left || other.left + other.width <= box.left)
                    << "seed " << seed << " items " << i << " and " << j;
            }
            if (!other.hidden && spans[j].start <= spans[i].start && spans[i].start < EndOf(spans[j])) {
                takenAtStart += other.width;
            }
        }
        ASSERT_LE(takenAtStart, rule.usableWidth) << "seed " << seed;
    }
    int counted = 0;
    for (const TidyMore& more : places.more) {
        counted += more.count;
        ASSERT_LE(more.left + more.width, rule.usableWidth);
        for (std::size_t i = 0; i < spans.size(); ++i) {
            if (!places.boxes[i].hidden && spans[i].start < more.end && more.start < EndOf(spans[i]) &&
                more.width > 0) {
                ASSERT_LE(places.boxes[i].left + places.boxes[i].width, more.left) << "seed " << seed;
            }
        }
    }
    ASSERT_EQ(counted, hidden) << "seed " << seed;
}

TEST(TidyColumns, NeverMeetStayInsideAndLoseNothing)
{
    for (unsigned seed = 0; seed < 1500; ++seed) {
        RandomSpans random(seed);
        const std::vector<TimeSpan> spans = random.Make();
        const int usable = 1 + random.Below(400);
        ExpectTidy(spans, {usable, 1 + random.Below(60), random.Below(30)}, seed);
    }
}

TEST(TidyColumns, WellKnownDays)
{
    struct Row
    {
        const char* name;
        std::vector<TimeSpan> spans;
        TidyRule rule;
        std::vector<std::pair<int, int>> boxes; // left and width; width 0: hidden
        int more;
    };
    const Row rows[] = {
        {"one alone", {{540, 600}}, {120}, {{0, 120}}, 0},
        {"touching", {{540, 600}, {600, 660}}, {120}, {{0, 120}, {0, 120}}, 0},
        {"a chain reuses the left column",
         {{540, 600}, {570, 660}, {600, 660}},
         {120},
         {{0, 60}, {60, 60}, {0, 60}},
         0},
        {"the longer first", {{540, 570}, {540, 660}}, {120}, {{60, 60}, {0, 60}}, 0},
        {"widened over what is free",
         {{540, 720}, {540, 600}, {540, 590}, {600, 720}},
         {120},
         {{0, 40}, {40, 40}, {80, 40}, {40, 80}},
         0},
        {"no length is one unit", {{540, 540}, {540, 540}}, {120}, {{0, 60}, {60, 60}}, 0},
        {"more than fit", {{0, 9}, {0, 8}, {0, 7}}, {100, 40, 20}, {{0, 40}, {40, 40}, {80, 0}}, 1},
        {"one column narrower than the least", {{0, 9}, {0, 8}, {0, 7}}, {30, 40, 20}, {{0, 30}, {30, 0}, {30, 0}}, 2},
        {"widths that do not divide", {{0, 9}, {0, 8}, {0, 7}}, {100}, {{0, 33}, {33, 33}, {66, 34}}, 0},
    };
    for (const Row& row : rows) {
        const TidyPlaces places = PlaceTidily(row.spans, row.rule);
        for (std::size_t i = 0; i < row.boxes.size(); ++i) {
            EXPECT_EQ(places.boxes[i].left, row.boxes[i].first) << row.name << ", item " << i;
            EXPECT_EQ(places.boxes[i].width, row.boxes[i].second) << row.name << ", item " << i;
            EXPECT_EQ(places.boxes[i].hidden, row.boxes[i].second == 0) << row.name << ", item " << i;
        }
        int counted = 0;
        for (const TidyMore& more : places.more) {
            counted += more.count;
        }
        EXPECT_EQ(counted, row.more) << row.name;
    }
}

} // namespace
