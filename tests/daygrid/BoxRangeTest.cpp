// The dates of the views' boxes against the rules taken literally, and their scroll bars.
#include "DayGridTesting.h"

#include "views/daygrid/BoxRange.h"
#include "views/daygrid/DayCells.h"

#include <gtest/gtest.h>

#include <random>

using namespace dayvane;

namespace {

const RangeKind kKinds[] = {RangeKind::Month, RangeKind::Week, RangeKind::Year};

struct LiteralBox
{
    COleDateTime first, last;
};

std::vector<LiteralBox> LiteralBoxes(RangeKind kind, const COleDateTime& date, int firstDayOfWeek)
{
    std::vector<LiteralBox> boxes(BoxRange(kind).Count());
    const COleDateTime start =
        kind == RangeKind::Month ? Day(date.GetYear(), date.GetMonth(), 1) : StartOfDay(date); // in the first row
    const int daysBefore = (start.GetDayOfWeek() - firstDayOfWeek + 7) % 7;
    for (int i = 0; i < static_cast<int>(boxes.size()); ++i) {
        COleDateTime last = AddDays(start, i - daysBefore);
        boxes[i].first = last;
        if (kind == RangeKind::Year) {
            boxes[i].first = last = Day(date.GetYear(), i + 1, 1);
            while (AddDays(last, 1).GetMonth() == i + 1) {
                last = AddDays(last, 1);
            }
        }
        boxes[i].last = EndOfDay(last);
    }
    return boxes;
}

std::vector<COleDateTime> Dates()
{
    std::vector<COleDateTime> dates = {Day(100, 1, 1),    Day(100, 1, 9),    Day(100, 2, 28),   Day(1899, 12, 30),
                                       Day(1900, 2, 28),  Day(2000, 2, 29),  Day(2024, 2, 29),  Day(2026, 2, 1),
                                       Day(2026, 3, 1),   Day(2026, 12, 31), Day(9999, 11, 30), Day(9999, 12, 1),
                                       Day(9999, 12, 20), Day(9999, 12, 31), Day(2027, 5, 1)};
    std::mt19937 random(1);
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    for (int i = 0; i < 200; ++i) {
        dates.push_back(COleDateTime(100 + below(9900), 1 + below(12), 1 + below(28), below(24), below(60), below(60)));
    }
    return dates;
}

BoxRange Around(RangeKind kind, const COleDateTime& date, int firstDayOfWeek = 1)
{
    return BoxRange(kind, date, firstDayOfWeek);
}

std::string Text(const BoxRange& range)
{
    return Text(range.FirstDate()) + " " + Text(StartOfDay(range.LastDate()));
}

// What a view shows after the step.
BoxRange After(const BoxRange& range, int boxes)
{
    return range.Kind() == RangeKind::Month ? range.Moved(boxes) : Around(range.Kind(), range.DateAfter(boxes));
}

} // namespace

TEST(BoxRange, HoldsTheDatesOfTheLiteralRule)
{
    for (RangeKind kind : kKinds) {
        for (const COleDateTime& date : Dates()) {
            for (int firstDayOfWeek = 1; firstDayOfWeek <= 7; ++firstDayOfWeek) {
                const BoxRange range(kind, date, firstDayOfWeek);
                const std::vector<LiteralBox> boxes = LiteralBoxes(kind, date, firstDayOfWeek);
                ASSERT_TRUE(range.Holds(date)) << Text(date);
                for (int i = 0; i < range.Count(); ++i) {
                    ASSERT_EQ(Text(range.DateOfBox(i)), Text(boxes[i].first)) << Text(date) << " box " << i;
                    ASSERT_EQ(Text(range.LastDateOfBox(i)), Text(boxes[i].last)) << Text(date) << " box " << i;
                    for (const COleDateTime& moment : {boxes[i].first, boxes[i].last}) {
                        ASSERT_EQ(range.BoxOf(moment), IsValid(moment) ? i : -1) << Text(date) << " " << Text(moment);
                    }
                }
                ASSERT_EQ(Text(BoxRange::FromDay(RangeKind::Month, DayNumberOf(date)).FirstDate()),
                          Text(StartOfDay(date)));
            }
        }
    }
}

TEST(BoxRange, PositionsGoOnBeyondItsEnds)
{
    const BoxRange week = Around(RangeKind::Week, Day(2026, 4, 22)); // from the 19th on
    EXPECT_EQ(week.PositionOf(Day(2026, 4, 18)), -1);
    EXPECT_EQ(week.PositionOf(COleDateTime(2026, 4, 27, 23, 59, 59)), 8);
    EXPECT_EQ(week.BoxOf(Day(2026, 4, 27)), -1);
    EXPECT_EQ(Around(RangeKind::Year, Day(2026, 4, 22)).PositionOf(Day(2024, 12, 31)), -13);
}

TEST(BoxRange, HasNoDatesWhereNoBoxHasOne)
{
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    for (RangeKind kind : kKinds) {
        const BoxRange range = Around(kind, Day(2026, 4, 22));
        for (const BoxRange& empty :
             {BoxRange(kind), Around(kind, none), range.Moved(1LL << 40), range.Moved(-1000000)}) {
            EXPECT_FALSE(empty.HasDates());
            EXPECT_EQ(Text(empty), "none none");
            EXPECT_EQ(empty.PositionOf(Day(2026, 4, 22)), -1);
            EXPECT_EQ(empty.Rows(), DayRows());
            EXPECT_EQ(Text(empty.DateAfter(0)), "none");
            EXPECT_FALSE(empty.Moved(0).HasDates());
        }
        EXPECT_EQ(range.PositionOf(none), -1);
    }
    const BoxRange first = Around(RangeKind::Month, Day(100, 1, 1)); // from 27 December 99 on
    EXPECT_EQ(first.PositionOf(Day(100, 1, 1)), 5);
    EXPECT_EQ(Text(first.Moved(-36).LastDate()), "0100-01-01 23:59:59") << "its last box alone has a date";
    EXPECT_FALSE(first.Moved(-37).HasDates());
    EXPECT_TRUE(Around(RangeKind::Year, Day(9999, 1, 1)).Moved(11).HasDates());
    EXPECT_FALSE(Around(RangeKind::Year, Day(9999, 1, 1)).Moved(12).HasDates());
}

struct ScrollCase
{
    int code, thumb;
    const char* range;
    int position;
};
struct ScrollKind
{
    RangeKind kind;
    COleDateTime date;
    int position; // of the thumb before
    std::vector<ScrollCase> cases;
};
const ScrollKind kScrolls[] = {
    {RangeKind::Month,
     Day(2026, 4, 15),
     26,
     {{SCROLL_LINEUP, 0, "2026-03-22 2026-05-02", 25},
      {SCROLL_LINEDOWN, 0, "2026-04-05 2026-05-16", 27},
      {SCROLL_PAGEUP, 0, "2026-03-15 2026-04-25", 24},
      {SCROLL_PAGEDOWN, 0, "2026-04-12 2026-05-23", 28},
      {SCROLL_TOP, 0, "2025-09-28 2025-11-08", 1},
      {SCROLL_BOTTOM, 0, "2026-09-27 2026-11-07", 52},
      {SCROLL_THUMBTRACK, 18, "2026-04-19 2026-05-30", 18}, // day 105 of the year: week 15
      {SCROLL_THUMBPOSITION, 14, "2026-03-22 2026-05-02", 14},
      {SCROLL_THUMBPOSITION, 60, "2027-02-07 2027-03-20", 52}}},
    {RangeKind::Week,
     Day(2017, 4, 26),
     17, // 23 April is day 113 of the year: 113 - 6 * 16
     {{SCROLL_LINEUP, 0, "2017-04-16 2017-04-23", 16},
      {SCROLL_LINEDOWN, 0, "2017-04-30 2017-05-07", 18},
      {SCROLL_PAGEUP, 0, "2017-03-26 2017-04-02", 13},
      {SCROLL_PAGEDOWN, 0, "2017-05-21 2017-05-28", 21},
      {SCROLL_THUMBPOSITION, 10, "2017-06-04 2017-06-11", 17}, // 113 - 70 days
      {SCROLL_THUMBPOSITION, 20, "2017-03-26 2017-04-02", 17}, // - 27 days
      {SCROLL_THUMBTRACK, 30, "2017-04-23 2017-04-30", 17},
      {SCROLL_TOP, 0, "2017-04-23 2017-04-30", 55},
      {SCROLL_BOTTOM, 0, "2017-04-23 2017-04-30", 0}}},
    {RangeKind::Year,
     Day(2003, 2, 28),
     3,
     {{SCROLL_LINEUP, 0, "2002-01-01 2002-12-31", 2},
      {SCROLL_LINEDOWN, 0, "2004-01-01 2004-12-31", 4},
      {SCROLL_PAGEUP, 0, "2001-01-01 2001-12-31", 1},
      {SCROLL_PAGEDOWN, 0, "2005-01-01 2005-12-31", 4},
      {SCROLL_THUMBTRACK, 1, "2003-01-01 2003-12-31", 1},
      {SCROLL_THUMBPOSITION, 2, "2003-01-01 2003-12-31", 2},
      {SCROLL_TOP, 0, "2003-01-01 2003-12-31", 4},
      {SCROLL_BOTTOM, 0, "2003-01-01 2003-12-31", 0}}},
};

TEST(BoxRange, ScrollCodesMoveRangeAndThumb)
{
    constexpr int kEndScroll = 8;
    for (const ScrollKind& kind : kScrolls) {
        const BoxRange range = Around(kind.kind, kind.date);
        EXPECT_EQ(range.ScrollBar().position, kind.position);
        for (const ScrollCase& c : kind.cases) {
            const ScrollStep scroll = range.Scroll(c.code, kind.position, c.thumb, kind.date);
            EXPECT_TRUE(scroll.moves);
            EXPECT_EQ(scroll.position, c.position) << c.code;
            EXPECT_EQ(Text(After(range, scroll.step)), c.range) << c.code;
        }
        EXPECT_FALSE(range.Scroll(kEndScroll, 0, 0, kind.date).moves);
    }
}

TEST(BoxRange, ThumbOfTheWeekTakesSixBackForEachWholeWeek)
{
    const int positions[][2] = {{1, 1}, {6, 6}, {7, 1}, {8, 2}, {100, 16}, {365, 53}, {366, 54}};
    for (const auto& [dayOfYear, position] : positions) {
        const COleDateTime date = AddDays(Day(2024, 1, 1), dayOfYear - 1);
        EXPECT_EQ(Around(RangeKind::Week, date, date.GetDayOfWeek()).ScrollBar().position, position) << dayOfYear;
    }
    EXPECT_EQ(Around(RangeKind::Week, Day(100, 1, 1)).ScrollBar().position, 0) << "its first box has no date";
}

TEST(BoxRange, DatesMoveAlongWithIt)
{
    struct Case
    {
        RangeKind kind;
        COleDateTime date;
        int boxes;
        const char* moved;
    };
    const Case cases[] = {
        {RangeKind::Year, COleDateTime(2024, 2, 29, 9, 30, 0), 12, "2025-02-28 09:30:00"},
        {RangeKind::Year, Day(2024, 2, 29), -48, "2020-02-29"},
        {RangeKind::Year, Day(9999, 1, 1), 12, "9999-01-01"}, // no such date: unchanged
        {RangeKind::Year, Day(100, 1, 1), -12, "0100-01-01"},
        {RangeKind::Week, COleDateTime(2024, 2, 29, 9, 30, 0), 7, "2024-03-07 09:30:00"},
        {RangeKind::Week, Day(100, 1, 1), -7, "0100-01-01"},
        {RangeKind::Month, Day(2024, 3, 31), -7, "2024-03-24"},
    };
    for (const Case& c : cases) {
        const BoxRange range = Around(c.kind, c.date);
        EXPECT_EQ(Text(range.MoveAlong(c.date, range.Moved(c.boxes))), c.moved);
    }
    for (RangeKind kind : kKinds) {
        for (const COleDateTime& date : Dates()) {
            const BoxRange range = Around(kind, date);
            for (int boxes : {-84, 84}) {
                const BoxRange next = range.Moved(boxes);
                const COleDateTime moved = range.MoveAlong(date, next);
                if (moved != date) {
                    EXPECT_EQ(next.PositionOf(moved), range.PositionOf(date)) << Text(date);
                }
            }
        }
    }
}

TEST(BoxRange, KeysAndStepsEndWhereDatesEnd)
{
    const BoxRange week = Around(RangeKind::Week, Day(2026, 1, 31));
    const BoxRange year = Around(RangeKind::Year, Day(2026, 1, 31));
    EXPECT_EQ(Text(week.Neighbour(COleDateTime(2026, 1, 31, 9, 30, 0), 4)), "2026-02-04 09:30:00");
    EXPECT_EQ(Text(year.Neighbour(Day(2026, 1, 31), -1)), "2025-12-01");
    EXPECT_EQ(Text(year.Neighbour(Day(9999, 12, 31), 1)), "none");
    EXPECT_EQ(Text(year.Neighbour(Day(100, 1, 31), -1)), "none");

    const BoxRange second = Around(RangeKind::Week, Day(100, 1, 3)); // a Sunday
    EXPECT_EQ(Text(second.DateAfter(-7)), "0100-01-01") << "stands for 27 December";
    EXPECT_EQ(Text(Around(RangeKind::Week, second.DateAfter(-7)).LastDate()), "0100-01-03 23:59:59");
    EXPECT_EQ(Text(second.DateAfter(-9)), "none");
    EXPECT_EQ(Text(Around(RangeKind::Week, Day(9999, 12, 31)).DateAfter(7)), "none");
    EXPECT_EQ(Text(Around(RangeKind::Year, Day(9999, 12, 31)).DateAfter(12)), "none");
}

TEST(BoxDays, TodayMoves)
{
    for (const RangeKind kind : {RangeKind::Month, RangeKind::Week}) {
        const BoxRange range = Around(kind, Day(9999, 12, 15)); // its last boxes have no date
        for (const COleDateTime& today : {Day(9999, 12, 15), Day(9999, 12, 31), Day(9999, 11, 29), Day(2026, 12, 15)}) {
            BoxDayArray days, anew;
            FillDays(range, Day(9999, 12, 15), Day(9999, 12, 14), nullptr, days);
            FillDays(range, Day(9999, 12, 15), today, nullptr, anew);
            MarkToday(today + COleDateTimeSpan(0, 9, 30, 0), days);
            for (int i = 0; i < range.Count(); ++i) {
                EXPECT_EQ(days[i].m_nFlags, anew[i].m_nFlags) << Text(range.DateOfBox(i));
                EXPECT_EQ((days[i].m_nFlags & DAY_TODAY) != 0, Text(range.DateOfBox(i)) == Text(today));
            }
        }
    }
}
