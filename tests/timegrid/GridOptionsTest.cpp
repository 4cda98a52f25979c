// What the options change in the layout and the hit test of the time grids.
#include "core/DateMath.h"
#include "timegrid/GridItems.h"
#include "timegrid/RandomItems.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridLayout.h"

#include <gtest/gtest.h>

#include <map>

using namespace dayvane;
using namespace gridtest;

namespace {
bool Overlap(const CRect& a, const CRect& b)
{
    CRect common;
    return common.IntersectRect(&a, &b) != FALSE;
}

CalendarOptions Tidy()
{
    CalendarOptions options;
    options.tidyColumns = options.visibleShortItems = true;
    return options;
}

// How often each item is counted in marks.
std::map<int, int> Counted(const std::vector<MoreMark>& marks)
{
    std::map<int, int> counts;
    for (const MoreMark& mark : marks) {
        for (const int item : mark.items) {
            ++counts[item];
        }
    }
    return counts;
}
} // namespace

TEST(TidyOption, ItemsNeitherHideNorLeaveTheirColumn)
{
    constexpr int kLeast = 12;
    constexpr int kRoomForBoxAndMark = 45;
    for (int seed = 0; seed < 1500; ++seed) {
        SCOPED_TRACE(seed);
        RandomItems random(seed);
        const TimeScale scale{random.Below(2) ? 2 : 4};
        const int days = 1 + random.Below(7);
        ItemArray store, items;
        random.Fill(store, random.Below(10) ? 40 : 150, kDay, days);
        const int lanes = MakeRangeItems(store, DayRange{kDay, days}, items);
        const TimeGridFrame frame = CalcTimeGridFrame(CRect(0, 0, 120 + random.Below(900), 700), true, 20, lanes, days);
        const std::vector<MoreMark> marks = PlaceTimedItems(items, frame.columns, DayRange{kDay, days}, scale, Tidy());
        const std::map<int, int> counted = Counted(marks);
        for (int i = 0; i < items.GetSize(); ++i) {
            const tagCALENDAR_ITEM& item = items[i];
            if (IsBandItem(item)) {
                continue;
            }
            const bool isCounted = counted.count(static_cast<int>(item.nSource)) != 0;
            ASSERT_EQ(isCounted, item.rcItem.top == -1);
            ASSERT_EQ(isCounted, item.bNoFocus != FALSE);
            if (isCounted) {
                ASSERT_EQ(1, counted.at(static_cast<int>(item.nSource)));
                continue;
            }
            const CRect& column = frame.columns[DayRange{kDay, days}.ColumnOf(item.dtStart)];
            ASSERT_GE(item.rcItem.left, column.left);
            ASSERT_LE(item.rcItem.right, column.right);
            ASSERT_GE(item.rcItem.Height(), 20);
            if (column.Width() >= kRoomForBoxAndMark) {
                ASSERT_GE(item.rcItem.Width(), kLeast);
                for (const MoreMark& mark : marks) {
                    ASSERT_FALSE(Overlap(mark.box, item.rcItem));
                }
            }
            for (int other = 0; other < i; ++other) {
                ASSERT_FALSE(!IsBandItem(items[other]) && Overlap(item.rcItem, items[other].rcItem));
            }
        }
    }
}

TEST(ShortItemsOption, GivesThemARow)
{
    const struct
    {
        const char* name;
        COleDateTime start, end;
        int scale, top, bottom; // in rows
    } cases[] = {
        {"without length", At(9, 0), At(9, 0), 2, 18, 19},
        {"shorter than a row", At(9, 0), At(9, 10), 2, 18, 19},
        {"within a row", At(9, 10), At(9, 20), 2, 18, 19},
        {"the wrong way round", At(11, 0), At(9, 0), 2, 18, 22},
        {"at the end of the day", At(23, 59), At(23, 59), 2, 47, 48},
        {"a row of its own already", At(9, 0), At(9, 30), 2, 18, 19},
    };
    CalendarOptions options;
    options.visibleShortItems = true;
    const CRect column(61, 60, 361, 1020);
    for (const auto& c : cases) {
        ItemArray items;
        items.Add(Item(c.start, c.end));
        PlaceTimedItems(items, {column}, DayRange::OneDay(kDay), TimeScale{c.scale}, options);
        EXPECT_EQ(CRect(63, 60 + c.top * 20, 339, 60 + c.bottom * 20), items[0].rcItem) << c.name;
    }
    // Two of them share the row instead of lying over each other.
    ItemArray items;
    for (int i = 0; i < 2; ++i) {
        items.Add(Item(At(9, 0), At(9, 10)));
        items[i].nSource = i;
    }
    PlaceTimedItems(items, {column}, DayRange::OneDay(kDay), TimeScale{2}, options);
    EXPECT_FALSE(Overlap(items[0].rcItem, items[1].rcItem));
}

TEST(BandOption, CountsWhatHasNoLane)
{
    for (int seed = 0; seed < 1500; ++seed) {
        SCOPED_TRACE(seed);
        RandomItems random(seed);
        const int days = 1 + random.Below(7);
        ItemArray items;
        const int count = random.Below(16);
        for (int i = 0; i < count; ++i) {
            const int first = random.Below(days);
            const int last = first + random.Below(days - first);
            items.Add(Item(AddDays(kDay, first), AddDays(At(9, 0), last), PIECE_INSIDE));
            items[i].nSource = i;
        }
        const int clientHeight = random.Below(800);
        const int lanes = LimitedLanes(count, clientHeight);
        const TimeGridFrame frame = CalcTimeGridFrame(CRect(0, 0, 961, clientHeight), true, 20, lanes, days);
        if (lanes > 1) {
            ASSERT_LE(frame.fulldayContent.Height(), clientHeight * 40 / 100);
        }
        LayManyDayLanes(items, frame.fulldayContent, frame.columns, kDay);
        ItemArray before;
        before.Copy(items);
        const std::vector<MoreMark> marks = LimitLanes(items, frame.fulldayContent, frame.columns);
        const int lastLane = frame.fulldayContent.top + 5 + (lanes - 1) * 25;
        std::map<int, int> counted = Counted(marks);
        for (int i = 0; i < items.GetSize(); ++i) {
            if (items[i].rcItem.top != -1) {
                ASSERT_EQ(before[i].rcItem, items[i].rcItem);
                ASSERT_LE(items[i].rcItem.top, lastLane);
                ASSERT_EQ(0, counted[i]);
                for (const MoreMark& mark : marks) {
                    ASSERT_FALSE(Overlap(mark.box, items[i].rcItem));
                }
                continue;
            }
            ASSERT_GE(before[i].rcItem.top, lastLane) << "has a lane";
            ASSERT_TRUE(items[i].bNoFocus);
            const int columns = DayNumberOf(items[i].dtEnd) - DayNumberOf(items[i].dtStart) + 1;
            ASSERT_EQ(columns, counted[i]) << "a mark in each of its days";
        }
        if (marks.empty()) {
            continue;
        }
        // The last lane gives way only where something is hidden below it.
        bool overflows = false;
        for (int i = 0; i < before.GetSize(); ++i) {
            overflows = overflows || before[i].rcItem.top > lastLane;
        }
        ASSERT_TRUE(overflows);
    }
}

TEST(BandOption, NeedsOnlyTheLanesThatBarsStackIn)
{
    const DayRange week{kDay, 7};
    ItemArray items;
    EXPECT_EQ(0, StackedLanes(items, week));
    for (int day = 0; day < 7; ++day) {
        items.Add(Item(AddDays(kDay, day), AddDays(At(9, 0), day), PIECE_INSIDE));
    }
    items.Add(Item(At(9, 0), At(10, 0))); // in the hours
    EXPECT_EQ(1, StackedLanes(items, week));
    items.Add(Item(AddDays(kDay, 2), AddDays(kDay, 4), PIECE_INSIDE));
    items.Add(Item(AddDays(kDay, 5), AddDays(kDay, 6), PIECE_INSIDE));
    EXPECT_EQ(2, StackedLanes(items, week));
}

TEST(HitOption, TheTopmostInSight)
{
    CalendarOptions options;
    options.hitWhatIsSeen = true;
    ItemArray items;
    items.Add(Item(At(9, 0), At(12, 0)));
    items.Add(Item(At(10, 0), At(11, 0)));
    items.Add(Item(At(0, 0), At(0, 0), 0, 1));
    const TimeGridFrame day = CalcTimeGridFrame(CRect(0, 0, 400, 500), true, 0, 1, 1);
    const TimeGridFrame week = CalcTimeGridFrame(CRect(0, 0, 761, 500), true, 20, 1, 7);
    const struct
    {
        const char* name;
        bool oneDay;
        int scroll, y, plain, seen; // the item under the point without and with the option
    } cases[] = {
        {"day: where two lie over each other", true, 0, 60 + 410, 0, 1},
        {"day: through the caption", true, 400, 20, 0, -1},
        {"day: a bar", true, 0, 40, 2, 2},
        {"week: where two lie over each other", false, 0, 80 + 410, 0, 1},
        {"week: a bar", false, 0, 60, 2, 2},
    };
    for (const auto& c : cases) {
        const TimeGridFrame& frame = c.oneDay ? day : week;
        for (int i = 0; i < 2; ++i) { // as a host's own layout may have them
            items[i].rcItem = BoxInColumn(items[i], frame.columns[0], kDay, TimeScale{2});
        }
        items[2].rcItem = frame.fulldayContent;
        const TimeGridState state{frame, TimeScale{2}, DayRange{kDay, c.oneDay ? 1 : 7}, c.scroll};
        const auto hit = c.oneDay ? HitOneDay : HitManyDays;
        EXPECT_EQ(c.plain, hit(state, items, CPoint(80, c.y), {}).screenItem) << c.name;
        EXPECT_EQ(c.seen, hit(state, items, CPoint(80, c.y), options).screenItem) << c.name;
    }
}
