// The index against looking at every item, over stores that grow, change and shrink.
#include "core/DateMath.h"
#include "core/ItemStore.h"
#include "core/TimeIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace dayvane;

namespace {

class RandomStore
{
public:
    explicit RandomStore(unsigned seed) : m_random(seed) {}

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    // Mostly short ones in ten years; some long, backwards, at the ends of time or without dates.
    tagCC_ITEM Item()
    {
        tagCC_ITEM item;
        item.dtStart = Below(200) ? COleDateTime(42000.0 + Below(3650) + Below(24) / 24.0)
                                  : COleDateTime(Below(2) ? 100 : 9999, 1, 1, 0, 0, 0);
        const int length = Below(10) ? Below(2) : Below(50) ? Below(60) - 20 : Below(4000);
        item.dtEnd = AddDays(item.dtStart, length);
        if (Below(100) == 0) {
            (Below(2) ? item.dtStart : item.dtEnd).SetStatus(COleDateTime::invalid);
        }
        return item;
    }

    void Change(TimeIndex& index)
    {
        const int count = static_cast<int>(items.GetSize());
        const int kind = Below(4);
        const int at = Below(count);
        if (kind == 0) {
            StoreDelete(items, at);
            index.Remove(at);
        } else if (kind == 1) {
            StoreSet(items, at, Item());
            index.Set(items, at);
        } else {
            StoreAdd(items, Item());
            index.Set(items, count);
        }
    }

    std::vector<int> LookAtAll(int first, int last) const
    {
        std::vector<int> found;
        for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
            if (!IsValid(items[i].dtStart)) {
                continue;
            }
            const int start = DayNumberOf(items[i].dtStart);
            const int end = IsValid(items[i].dtEnd) ? DayNumberOf(items[i].dtEnd) : start;
            if (std::min(start, end) <= last && std::max(start, end) >= first) {
                found.push_back(i);
            }
        }
        return found;
    }

    ItemArray items;

private:
    std::mt19937 m_random;
};

} // namespace

TEST(TimeIndex, FindsWhatLookingAtAllFinds)
{
    for (unsigned seed = 1; seed <= 4; ++seed) {
        RandomStore store(seed);
        TimeIndex index;
        for (int i = 0; i < TimeIndex::kLeastItems + 500; ++i) {
            StoreAdd(store.items, store.Item());
            index.Set(store.items, i);
        }
        int indexed = 0;
        for (int round = 0; round < 60; ++round) {
            // Few changes stand aside, many make the index anew.
            for (int n = store.Below(10) ? store.Below(8) : store.Below(2500); n > 0; --n) {
                store.Change(index);
            }
            const int first = 41900 + store.Below(3800);
            const int last = first + (store.Below(3) ? store.Below(50) : store.Below(2000)) - 2;
            std::vector<int> found;
            const std::vector<int> expected = store.LookAtAll(first, last);
            if (index.Find(store.items, first, last, found)) {
                ASSERT_EQ(found, expected) << "seed " << seed << ", round " << round;
                ++indexed;
            } else {
                const bool isFew = store.items.GetSize() < TimeIndex::kLeastItems;
                ASSERT_TRUE(isFew || expected.size() > static_cast<size_t>(store.items.GetSize()) / 5);
            }
        }
        EXPECT_GT(indexed, 30);
    }
}

TEST(TimeIndex, AStoreThatWasReplacedUnseenIsReadAnew)
{
    RandomStore store(7);
    TimeIndex index;
    for (int i = 0; i < 6000; ++i) {
        StoreAdd(store.items, store.Item());
    }
    std::vector<int> found;
    ASSERT_TRUE(index.Find(store.items, 42000, 42010, found));
    for (int i = 0; i < 100; ++i) {
        StoreAdd(store.items, store.Item()); // the index is not notified
    }
    ASSERT_TRUE(index.Find(store.items, 43000, 43500, found)); // some of the new ones among them
    EXPECT_EQ(found, store.LookAtAll(43000, 43500));
}
