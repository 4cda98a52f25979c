#include "core/DateMath.h"
#include "timegrid/GridItems.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace dayvane;
using namespace gridtest;

namespace {
TimeGridState StateOf(const TimeGridFrame& frame, int rowsPerHour, int scroll)
{
    return {frame, TimeScale{rowsPerHour}, DayRange{kDay, static_cast<int>(frame.columns.size())}, scroll};
}

// The day view's hit test, row probe by row probe.
TimeGridHit ProbeOneDay(const TimeGridState& state, const ItemArray& items, const CPoint& point)
{
    TimeGridHit hit;
    const TimeGridFrame& frame = state.frame;
    const bool inBand = frame.fulldayContent.PtInRect(point);
    const CPoint moved(point.x, point.y + (inBand ? 0 : state.scroll));
    for (int i = 0; i < items.GetSize() && hit.screenItem == -1; ++i) {
        if (items[i].rcItem.PtInRect(moved)) {
            hit.screenItem = i;
        }
    }
    int row = -1;
    CRect probe(frame.grid.left, frame.grid.top, frame.grid.right, frame.grid.top + 20);
    probe.OffsetRect(0, -state.scroll);
    for (int r = 0; r <= state.scale.RowsPerDay() && row == -1; ++r) {
        if (probe.PtInRect(point)) {
            row = r;
        }
        probe.OffsetRect(0, 20);
    }
    const int scale = state.scale.rowsPerHour;
    hit.time = Invalid();
    if (row != -1) {
        hit.time = COleDateTime(2017, 4, 26, row / scale, 60 / scale * (row % scale), 0);
    } else if (inBand) {
        hit.time = kDay;
    }
    if (hit.screenItem != -1) {
        hit.code = inBand ? 32 : 2;
    } else if (row != -1) {
        hit.code = inBand ? 16 : frame.caption.PtInRect(point) ? 8 : 4;
    } else {
        hit.code = inBand ? 16 : frame.ruler.PtInRect(point) ? 128 : 1;
    }
    return hit;
}
} // namespace

TEST(TimeGridFrame, PartsTile)
{
    struct
    {
        CRect client;
        bool caption;
        int header, lanes, days;
        int bandTop, gridTop, columnWidth, lastRight;
    } const cases[] = {
        // client, caption, header, lanes, days: band top, grid top, column width, last column's right edge
        {CRect(0, 0, 400, 300), false, 0, 1, 1, 0, 30, 339, 400},
        {CRect(0, 0, 400, 300), true, 0, 1, 1, 30, 60, 339, 400},
        {CRect(0, 0, 400, 300), true, 20, 4, 2, 50, 155, 169, 400},
        {CRect(0, 0, 61 + 7 * 90 + 3, 300), true, 20, 1, 7, 50, 80, 90, 694},
        {CRect(0, 0, 61 + 13, 300), true, 20, 1, 14, 50, 80, 0, 74},
        {CRect(0, 0, 1, 1), true, 20, 1, 14, 50, 80, -4, 1},
    };
    for (const auto& c : cases) {
        const TimeGridFrame frame = CalcTimeGridFrame(c.client, c.caption, c.header, c.lanes, c.days);
        SCOPED_TRACE(testing::Message() << c.client.right << " pixels, " << c.days << " days");
        EXPECT_EQ(c.bandTop, frame.fulldayContent.top);
        EXPECT_EQ(c.gridTop, frame.grid.top);
        EXPECT_EQ(c.gridTop, frame.fulldayRuler.bottom);
        EXPECT_EQ(CRect(0, c.gridTop, 60, c.client.bottom), frame.ruler);
        EXPECT_EQ(61, frame.grid.left);
        ASSERT_EQ(c.days, static_cast<int>(frame.columns.size()));
        EXPECT_EQ(c.columnWidth, frame.columnWidth);
        EXPECT_EQ(c.lastRight, frame.columns.back().right);
        for (int i = 1; i < c.days; ++i) {
            EXPECT_EQ(frame.columns[i - 1].right, frame.columns[i].left);
        }
    }
}

TEST(ItemBox, StandsAtItsTimes)
{
    const CRect grid(61, 60, 381, 500);
    const CRect nowhere(-1, -1, -1, -1);
    struct
    {
        const char* name;
        tagCALENDAR_ITEM item;
        int scale;
        CRect box;
    } const cases[] = {
        {"inside rows", Item(At(9, 10), At(10, 5)), 2, CRect(61, 420, 381, 480)},
        {"no row", Item(At(10, 0), At(10, 10)), 2, CRect(61, 460, 381, 480)},
        {"goes on", Item(At(22, 0), EndOfDay(kDay), PIECE_HEAD), 2, CRect(61, 940, 381, 1020)},
        {"began before", Item(At(0, 0), At(1, 0), PIECE_TAIL), 2, CRect(61, 60, 381, 100)},
        {"in the middle", Item(kDay, EndOfDay(kDay), PIECE_MIDDLE), 2, CRect(61, 60, 381, 9260)},
        {"all day", Item(At(9, 0), At(10, 0), 0, 1), 1, CRect(61, 60, 381, 4660)},
        {"without an end", Item(At(22, 0), Invalid()), 2, CRect(61, 940, 381, 1020)},
        {"another day", Item(kDay - COleDateTimeSpan(1.0), At(10, 0)), 2, nowhere},
        {"without a begin", Item(Invalid(), At(10, 0)), 2, nowhere},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.box, BoxInColumn(c.item, grid, kDay, TimeScale{c.scale})) << c.name;
    }
}

TEST(ItemBox, SharesTheWidth)
{
    // Three meetings, two at a time: 300 pixels in halves, inset by 2.
    ItemArray items;
    items.Add(Item(At(9, 0), At(10, 0)));
    items.Add(Item(At(9, 30), At(11, 0)));
    items.Add(Item(At(10, 0), At(11, 0)));
    for (int i = 0; i < 3; ++i) {
        items[i].nSource = i;
    }
    const CRect grid(61, 60, 381, 500);
    PlaceTimedItems(items, {grid}, DayRange::OneDay(kDay), TimeScale{2});
    EXPECT_EQ(CRect(63, 420, 209, 460), items[0].rcItem);
    EXPECT_EQ(CRect(213, 440, 359, 500), items[1].rcItem);
    EXPECT_EQ(CRect(63, 460, 209, 500), items[2].rcItem);
}

// The chain that a remainder given before the pass threw out of its column, at every width.
TEST(ItemBox, AChainStaysInItsColumn)
{
    for (int width = 60; width < 200; ++width) {
        ItemArray items;
        items.Add(Item(At(9, 0), At(10, 0)));
        items.Add(Item(At(9, 30), At(11, 0)));
        items.Add(Item(At(10, 0), At(11, 0)));
        for (int i = 0; i < 3; ++i) {
            items[i].nSource = i;
        }
        const std::vector<CRect> columns = {CRect(61, 60, 61 + width, 500), CRect(61 + width, 60, 61 + 2 * width, 500)};
        PlaceTimedItems(items, columns, DayRange{kDay, 2}, TimeScale{2});
        const int share = (width - 5) / 2;
        EXPECT_EQ(CRect(63, 420, 61 + share - 2, 460), items[0].rcItem) << width;
        EXPECT_EQ(CRect(61 + share + 2, 440, 61 + width - 5 - 2, 500), items[1].rcItem) << width;
        EXPECT_EQ(CRect(63, 460, 61 + share - 2, 500), items[2].rcItem) << width;
    }
}

TEST(HitTest, OneDayMatchesTheRowProbe)
{
    std::mt19937 random(1);
    const auto below = [&random](int n) { return static_cast<int>(random() % n); };
    ItemArray items;
    items.Add(Item(At(9, 0), At(12, 0)));
    items.Add(Item(At(0, 0), At(0, 0), 0, 1));
    for (int i = 0; i < 20000; ++i) {
        const int scale = 1 + below(60);
        const TimeGridFrame frame = CalcTimeGridFrame(CRect(0, 0, 1 + below(200), 1 + below(400)), below(2), 0, 1, 1);
        const int scroll = below(3) ? below(scale * 480) : -below(200);
        PlaceTimedItems(items, frame.columns, DayRange::OneDay(kDay), TimeScale{scale});
        LayOneDayLanes(items, frame.fulldayContent);
        const CPoint point(below(210) - 5, below(600) - 100);
        const TimeGridState state = StateOf(frame, scale, scroll);
        const TimeGridHit expected = ProbeOneDay(state, items, point);
        const TimeGridHit actual = HitOneDay(state, items, point);
        ASSERT_EQ(expected.code, actual.code) << i;
        ASSERT_EQ(expected.screenItem, actual.screenItem) << i;
        ASSERT_EQ(expected.time, actual.time) << i;
    }
}

TEST(HitTest, ManyDaysFindColumnAndRow)
{
    const TimeGridFrame frame = CalcTimeGridFrame(CRect(0, 0, 761, 400), true, 20, 1, 7);
    ItemArray items;
    items.Add(Item(At(9, 0), At(10, 0)));
    items.Add(Item(kDay, kDay + COleDateTimeSpan(2.0), PIECE_INSIDE));
    PlaceTimedItems(items, frame.columns, DayRange{kDay, 7}, TimeScale{2});
    LayManyDayLanes(items, frame.fulldayContent, frame.columns, kDay);
    items[0].rcItem.right += 60; // pushed over the next column
    const TimeGridState state = StateOf(frame, 2, 200);
    struct
    {
        const char* name;
        CPoint point;
        int code, item, day, hour, minute; // day -1: no time
    } const cases[] = {
        {"caption", CPoint(300, 10), CCHT_NOWHERE, -1, -1, 0, 0},
        {"header", CPoint(270, 40), CCHT_ONDAYCAPTION, -1, 2, 0, 0},
        {"header over the ruler", CPoint(30, 40), CCHT_NOWHERE, -1, -1, 0, 0},
        {"band", CPoint(500, 60), CCHT_ONFULLDAY, -1, 4, 0, 0},
        {"bar", CPoint(170, 60), CCHT_ONFULLDAYITEM, 1, 1, 0, 0},
        {"first row", CPoint(62, 80), CCHT_ONCELL, -1, 0, 5, 0},
        {"row of the last column", CPoint(760, 399), CCHT_ONCELL, -1, 6, 12, 30},
        {"item", CPoint(100, 250), CCHT_ONITEM, 0, 0, 9, 0},
        {"where the item is cut off", CPoint(170, 250), CCHT_ONCELL, -1, 1, 9, 0},
        {"ruler", CPoint(10, 100), CCHT_ONRULER, -1, -1, 0, 0},
        {"below the window", CPoint(70, 500), CCHT_ONCELL, -1, 0, 15, 30},
        {"after the last row", CPoint(70, 850), CCHT_ONCELL, -1, -1, 0, 0},
        {"below all rows", CPoint(70, 860), CCHT_NOWHERE, -1, -1, 0, 0},
        {"right of the window", CPoint(761, 100), CCHT_NOWHERE, -1, -1, 0, 0},
    };
    for (const auto& c : cases) {
        const TimeGridHit hit = HitManyDays(state, items, c.point);
        EXPECT_EQ(c.code, hit.code) << c.name;
        EXPECT_EQ(c.item, hit.screenItem) << c.name;
        EXPECT_EQ(c.day == -1 ? Invalid() : AddDays(At(c.hour, c.minute), c.day), hit.time) << c.name;
    }
}

// The grid of the day begins at 60; a box 40 high from 100 on, text 2 inside it and 3 right of its edge.
TEST(PaintedBox, FollowsTheGridAndKeepsItsTextInSight)
{
    const TimeGridFrame frame = CalcTimeGridFrame(CRect(0, 0, 400, 500), true, 0, 1, 1);
    ASSERT_EQ(60, frame.grid.top);
    const struct
    {
        int scroll;
        CRect item, box, content;
        bool rightEdge, isInSight;
    } cases[] = {
        {0, {70, 100, 170, 140}, {70, 100, 170, 140}, {73, 102, 168, 138}, true, true},
        {38, {70, 100, 170, 140}, {70, 62, 170, 102}, {73, 64, 168, 100}, true, true},
        {42, {70, 100, 170, 140}, {70, 58, 170, 98}, {73, 60, 168, 96}, true, true},
        {43, {70, 100, 170, 140}, {70, 57, 170, 97}, {73, 62, 168, 95}, true, true}, // its text would be above the grid
        {79, {70, 100, 170, 140}, {70, 21, 170, 61}, {73, 62, 168, 59}, true, true},
        {80, {70, 100, 170, 140}, {70, 20, 170, 60}, {73, 62, 168, 58}, true, false},
        {0, {70, 100, 200, 140}, {70, 100, 200, 140}, {73, 102, 198, 138}, true, true},
        {0, {70, 100, 201, 140}, {70, 100, 200, 140}, {73, 102, 198, 138}, false, true}, // beyond its column
        {10, {70, 140, 170, 100}, {70, 90, 170, 130}, {73, 92, 168, 128}, true, true},   // ends above its begin
        {0, {70, 100, 170, 100}, {70, 100, 170, 101}, {73, 102, 168, 99}, true, true},
    };
    for (const auto& c : cases) {
        tagCALENDAR_ITEM item = Item(At(9, 0), At(10, 0));
        item.rcItem = c.item;
        const TimeGridState state = StateOf(frame, 2, c.scroll);
        const PaintedBox painted = PaintedTimedBox(state, item, 200);
        EXPECT_EQ(c.box, painted.box) << c.item << " by " << c.scroll;
        EXPECT_EQ(c.content, painted.content) << c.item << " by " << c.scroll;
        EXPECT_EQ(c.rightEdge, painted.rightEdge) << c.item;
        EXPECT_TRUE(painted.leftEdge);
        EXPECT_EQ(c.isInSight, IsBoxInSight(state, item)) << c.item << " by " << c.scroll;
    }
    tagCALENDAR_ITEM bar = Item(At(9, 0), At(10, 0), PIECE_TAIL);
    bar.rcItem = CRect(70, 35, 170, 55);
    EXPECT_FALSE(IsBoxInSight(StateOf(frame, 2, 0), bar));
    const PaintedBox painted = PaintedBandBar(CRect(61, 30, 400, 60), bar);
    EXPECT_EQ(bar.rcItem, painted.box);
    EXPECT_EQ(CRect(73, 37, 168, 53), painted.content);
    EXPECT_TRUE(!painted.leftEdge && painted.rightEdge);
    bar.nPiece = PIECE_HEAD;
    EXPECT_EQ(CRect(73, 42, 168, 53), PaintedBandBar(CRect(61, 40, 400, 60), bar).content) << "below the band's edge";
    EXPECT_TRUE(PaintedBandBar(CRect(61, 40, 400, 60), bar).leftEdge);
    EXPECT_FALSE(PaintedBandBar(CRect(61, 40, 400, 60), bar).rightEdge);
}

TEST(ClockTime, RoundsToTheSecondAndCarriesTheDay)
{
    constexpr double kSecond = 1.0 / 86400;
    struct
    {
        double time;
        int day, hour, minute;
    } const cases[] = {
        {40000 + 0.4 * kSecond, 40000, 0, 0},  {40000 + 59.4 * kSecond, 40000, 0, 0},
        {40000 + 59.6 * kSecond, 40000, 0, 1}, {40001 - 0.6 * kSecond, 40000, 23, 59},
        {40001 - 0.4 * kSecond, 40001, 0, 0},  {-3.75, -3, 18, 0},
    };
    for (const auto& c : cases) {
        const ClockTime clock = ClockTimeOf(COleDateTime(c.time));
        EXPECT_TRUE(clock.day == c.day && clock.hour == c.hour && clock.minute == c.minute)
            << c.time << ": " << clock.day << " " << clock.hour << ":" << clock.minute;
    }
}

TEST(CurrentCell, CountsQuarterHours)
{
    const TimeGridFrame frame = CalcTimeGridFrame(CRect(0, 0, 400, 400), true, 0, 1, 1);
    struct
    {
        int scale, scroll;
        COleDateTime begin, end;
        int top, bottom;
    } const cases[] = {
        {2, 0, At(9, 0), At(9, 0), 60 + 360, 60 + 370}, {2, 100, At(9, 30), At(10, 45), 60 + 370 - 100, 60 + 425 - 100},
        {1, 0, At(2, 59), At(3, 0), 60 + 70, 60 + 80},  {4, 0, At(0, 15), At(0, 15), 62, 66},
        {20, 0, At(1, 15), At(1, 15), 460, 460}, // a quarter has no height there
    };
    for (const auto& c : cases) {
        const CRect box = CurrentCellBox(StateOf(frame, c.scale, c.scroll), c.begin, c.end);
        EXPECT_EQ(CRect(63, c.top, 368, c.bottom), box) << c.scale;
    }
}

TEST(CurrentCell, OfTheBandReachesOverItsDays)
{
    const TimeGridFrame frame = CalcTimeGridFrame(CRect(0, 0, 361, 400), true, 20, 2, 3); // days of 100 from 61 on
    const TimeGridState state{frame, TimeScale{2}, DayRange{kDay, 3}};
    const int bottom = frame.fulldayContent.bottom;
    const auto day = [](int days) { return AddDays(kDay, days); };
    EXPECT_EQ(CRect(166, bottom - 25, 256, bottom - 5), CurrentBandBox(state, day(1), day(1)));
    EXPECT_EQ(CRect(66, bottom - 25, 256, bottom - 5), CurrentBandBox(state, day(1), day(0)));
    EXPECT_EQ(CRect(266, bottom - 25, 356, bottom - 5), CurrentBandBox(state, day(2), day(9)));
    EXPECT_EQ(CRect(-1, -1, -1, -1), CurrentBandBox(state, day(3), day(4)));
}

TEST(SelectedRows, OfOneDayAndOfManyColumns)
{
    const COleDateTime next = AddDays(At(8, 0), 1);
    struct
    {
        COleDateTime begin, end;
        int first, last;   // one day: by the times of day
        int columns[3][2]; // the day before, the day, the day after
    } const cases[] = {
        {At(9, 0), At(9, 0), 18, 19, {{0, 0}, {18, 19}, {0, 0}}},
        {At(11, 59), At(9, 0), 18, 24, {{0, 0}, {18, 24}, {0, 0}}},
        {At(20, 0), next, 40, 17, {{0, 0}, {40, 48}, {0, 17}}},
        {At(20, 0), AddDays(At(20, 0), -1), 40, 41, {{40, 48}, {0, 41}, {0, 0}}},
    };
    const TimeGridFrame frame = CalcTimeGridFrame(CRect(0, 0, 400, 400), true, 20, 1, 3);
    const TimeGridState threeDays{frame, TimeScale{2}, DayRange{AddDays(kDay, -1), 3}};
    for (const auto& c : cases) {
        const RowRange rows = SelectedRows({frame, TimeScale{2}, DayRange::OneDay(kDay)}, 0, c.begin, c.end);
        EXPECT_EQ(c.first, rows.first);
        EXPECT_EQ(c.last, rows.end);
        for (int i = 0; i < 3; ++i) {
            const RowRange column = SelectedRows(threeDays, i, c.begin, c.end);
            EXPECT_EQ(c.columns[i][0], column.first) << i;
            EXPECT_EQ(c.columns[i][1], column.end) << i;
        }
    }
    EXPECT_EQ(0, SelectedRows(threeDays, 1, Invalid(), Invalid()).end);
}
