// The list that a more-items mark opens: its model, and the list in real windows.
#include "core/DateMath.h"
#include "core/MoreList.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace dayvane;

namespace {

tagCALENDAR_ITEM Item(int day, int days, int hour = 0)
{
    tagCALENDAR_ITEM item;
    item.dtStart = COleDateTime(2026, 4, day, hour, 0, 0);
    item.dtEnd = COleDateTime(2026, 4, day + days, 23, 0, 0);
    return item;
}

MoreListModel ListOf(int count)
{
    std::vector<int> items(count);
    std::iota(items.begin(), items.end(), 100);
    return MoreListModel(items);
}

} // namespace

TEST(MoreList, HasTheItemsThatTouchTheDays)
{
    ItemArray items;
    items.Add(Item(14, 0, 12));
    items.Add(Item(14, 0, 9));
    items.Add(Item(12, 1));
    items.Add(Item(12, 2));
    items.Add(Item(15, 3));
    items.Add(Item(14, 0, 9));
    items.Add(Item(13, -1));
    items.Add(Item(10, 9));
    items[0].dtEnd.SetStatus(COleDateTime::invalid);
    const COleDateTime day(2026, 4, 14, 0, 0, 0);
    EXPECT_EQ(ItemsOfDays(items, day, EndOfDay(day)), (std::vector<int>{7, 3, 1, 5})) << "earliest first";
    EXPECT_EQ(ItemsOfDays(items, day, AddDays(day, 1)), (std::vector<int>{7, 3, 1, 5, 4}));
}

TEST(MoreList, KeepsTheCurrentRowInSight)
{
    MoreListModel list = ListOf(30);
    EXPECT_EQ(list.RowsInSight(), 12);
    EXPECT_EQ(list.Size().cy, 316) << "twelve rows of 26 and a frame";
    struct Step
    {
        int row, current, top;
    };
    for (const Step& step : {Step{0, 0, 0}, Step{11, 11, 0}, Step{12, 12, 1}, Step{5, 5, 1}, Step{0, 0, 0},
                             Step{-4, 0, 0}, Step{99, 29, 18}}) {
        list.SetCurrent(step.row);
        EXPECT_EQ(list.Current(), step.current);
        EXPECT_EQ(list.Top(), step.top);
    }
    list.Scroll(-7);
    EXPECT_EQ(list.RowAt(CPoint(10, 3)), 11);
    EXPECT_EQ(list.RowAt(CPoint(10, 314)), -1) << "below the last row in sight";
    list.Scroll(-50);
    EXPECT_EQ(list.Top(), 0);
    list.Scroll(50);
    EXPECT_EQ(list.Top(), 18);
    EXPECT_EQ(ListOf(2).RowsInSight(), 2);
}
