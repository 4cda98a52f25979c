#include "core/DateMath.h"
#include "timegrid/LiteralRules.h"
#include "timegrid/GridItems.h"
#include "timegrid/RandomItems.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridLayout.h"

#include <gtest/gtest.h>

#include <initializer_list>

using namespace dayvane;
using namespace gridtest;

namespace {
constexpr int kCases = 10000;
constexpr int kScales[] = {1, 2, 3, 4, 5, 6, 7, 10, 12, 15, 20, 30, 60};

void ExpectSameItems(const ItemArray& expected, const ItemArray& actual)
{
    ASSERT_EQ(expected.GetSize(), actual.GetSize());
    for (int i = 0; i < expected.GetSize(); ++i) {
        ASSERT_EQ(expected[i].rcItem, actual[i].rcItem) << "item " << i;
        ASSERT_EQ(expected[i].nSource, actual[i].nSource) << "item " << i;
        ASSERT_EQ(expected[i].nPiece, actual[i].nPiece) << "item " << i;
        ASSERT_EQ(expected[i].nParallel, actual[i].nParallel) << "item " << i;
        ASSERT_EQ(expected[i].dtStart, actual[i].dtStart) << "item " << i;
        ASSERT_EQ(expected[i].dtEnd, actual[i].dtEnd) << "item " << i;
    }
}

CRect RandomClient(RandomItems& random)
{
    const int most = random.Below(4) ? 1000 : 200;
    return CRect(0, 0, 1 + random.Below(most), 1 + random.Below(most));
}
} // namespace

TEST(TimeGridLayout, DayMatchesTheLiteralRules)
{
    for (int seed = 0; seed < kCases; ++seed) {
        SCOPED_TRACE(seed);
        RandomItems random(seed);
        const TimeScale scale{kScales[random.Below(static_cast<int>(std::size(kScales)))]};
        ItemArray store, expected, actual;
        random.Fill(store, random.Below(20) ? 12 : 60, kDay, 1);
        const int lanes = literal::DayScreenItems(store, kDay, expected);
        ASSERT_EQ(lanes, MakeRangeItems(store, DayRange::OneDay(kDay), actual));
        if (random.Below(8) == 0) {
            // Screen lists of the host's own making: several items of one source, items of other days.
            actual.Copy(store);
            for (int i = 0; i < actual.GetSize(); ++i) {
                actual[i].nSource = random.Below(8);
                actual[i].nParallel = random.Below(4);
                actual[i].dtStart.SetStatus(COleDateTime::valid);
            }
            expected.Copy(actual);
        }
        const TimeGridFrame frame = CalcTimeGridFrame(RandomClient(random), random.Below(2), 0, lanes, 1);
        literal::DayItemRects(expected, frame.grid, kDay, scale.rowsPerHour);
        literal::DayLanes(expected, frame.fulldayContent);
        PlaceTimedItems(actual, frame.columns, DayRange::OneDay(kDay), scale);
        LayOneDayLanes(actual, frame.fulldayContent);
        ASSERT_NO_FATAL_FAILURE(ExpectSameItems(expected, actual));
    }
}

TEST(TimeGridLayout, ManyDaysMatchTheLiteralRules)
{
    for (int seed = 0; seed < kCases; ++seed) {
        SCOPED_TRACE(seed);
        RandomItems random(seed);
        const TimeScale scale{kScales[random.Below(static_cast<int>(std::size(kScales)))]};
        const int days = 2 + random.Below(13);
        ItemArray store, expected, actual;
        random.Fill(store, random.Below(20) ? 30 : 150, kDay, days);
        const int lanes = literal::ManyDayScreenItems(store, kDay, days, expected);
        ASSERT_EQ(lanes, MakeRangeItems(store, DayRange{kDay, days}, actual));
        const TimeGridFrame frame =
            CalcTimeGridFrame(RandomClient(random), random.Below(2), kTimeGrid.headerHeight, lanes, days);
        literal::ManyDayItemRects(expected, frame.columns, kDay, scale.rowsPerHour);
        literal::ManyDayLanes(expected, frame.fulldayContent, frame.columns, kDay);
        PlaceTimedItems(actual, frame.columns, DayRange{kDay, days}, scale);
        LayManyDayLanes(actual, frame.fulldayContent, frame.columns, kDay);
        ASSERT_NO_FATAL_FAILURE(ExpectSameItems(expected, actual));
    }
}

// Many items in few rows, where clusters run into each other.
TEST(TimeGridLayout, CrowdsMatchTheLiteralRules)
{
    for (int seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        RandomItems random(seed);
        ItemArray expected, actual;
        const int count = 100 + random.Below(300);
        const int longest = 1 + random.Below(20);
        for (int i = 0; i < count; ++i) {
            const int start = random.Below(24);
            const int end = std::min(start + 1 + random.Below(longest), 47);
            actual.Add(Item(At(start / 2, start % 2 * 30), At(end / 2, end % 2 * 30)));
            actual[i].nSource = i;
        }
        expected.Copy(actual);
        const CRect grid(61, 60, 62 + random.Below(1000), 500);
        literal::DayItemRects(expected, grid, kDay, 2);
        PlaceTimedItems(actual, {grid}, DayRange::OneDay(kDay), TimeScale{2});
        ASSERT_NO_FATAL_FAILURE(ExpectSameItems(expected, actual));
    }
}

TEST(CountOverlayed, LooksAtEveryTimedBox)
{
    const auto count = [](std::initializer_list<CRect> boxes, int firstIsWholeDay = 0) {
        ItemArray items;
        for (const CRect& box : boxes) {
            items.Add(Item(At(9, 0), At(10, 0), 0, items.GetSize() == 0 ? firstIsWholeDay : 0));
            items[items.GetSize() - 1].rcItem = box;
        }
        return CountOverlayed(items);
    };
    const CRect box(0, 0, 20, 20), over(10, 10, 30, 30), beside(30, 30, 40, 40), common(15, 15, 35, 35);
    EXPECT_EQ(1, count({}));
    EXPECT_EQ(1, count({over, beside}));
    EXPECT_EQ(2, count({box, over}));
    EXPECT_EQ(1, count({box, over}, 1)) << "the band's bars do not count";
    EXPECT_EQ(5, count({box, over, beside, common, CRect(15, 15, 16, 16)}));
}
