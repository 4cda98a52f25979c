#include "core/DateMath.h"
#include "timegrid/PrintRect.h"
#include "views/timegrid/TimeGridLook.h"
#include "views/timegrid/TimeGridMoves.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {
COleDateTime At(int hour, int minute, int day = 26)
{
    return COleDateTime(2017, 4, day, hour, minute, 0);
}
} // namespace

TEST(RowMoves, StepScrollAndStopAtMidnight)
{
    using A = AfterMove;
    struct
    {
        const char* name;
        bool later, extend;
        COleDateTime begin, end;
        int scroll, height;
        A after;
        COleDateTime newBegin, newEnd;
    } const cases[] = {
        {"up", false, false, At(10, 0), At(10, 0), 0, 400, A::REPAINT, At(9, 30), At(9, 30)},
        {"up extended", false, true, At(10, 0), At(10, 0), 0, 400, A::REPAINT, At(10, 0), At(9, 30)},
        {"up to the first shown row", false, false, At(10, 0), At(10, 0), 380, 400, A::SCROLL_UP, At(9, 30), At(9, 30)},
        // 10:00 is shown first: its hour is later than 9, its minute not later than 30.
        {"hour and minute each on its own", false, false, At(10, 0), At(10, 0), 400, 400, A::REPAINT, At(9, 30),
         At(9, 30)},
        {"up at midnight", false, false, At(0, 0), At(0, 0), 0, 400, A::NOTHING, At(0, 0), At(0, 0)},
        {"up, the end already beyond midnight", false, true, At(3, 0), At(0, 0), 0, 400, A::REPAINT, At(3, 0),
         At(23, 30, 25)},
        {"down", true, false, At(3, 0), At(3, 0), 0, 400, A::REPAINT, At(3, 30), At(3, 30)},
        {"down to the last whole row", true, false, At(9, 30), At(9, 30), 0, 400, A::SCROLL_DOWN, At(10, 0), At(10, 0)},
        {"down, the last row cut", true, false, At(8, 30), At(8, 30), 0, 399, A::SCROLL_DOWN, At(9, 0), At(9, 0)},
        {"down at midnight", true, false, At(23, 30), At(23, 30), 560, 400, A::NOTHING, At(23, 30), At(23, 30)},
    };
    for (const auto& c : cases) {
        GridSelection selection{c.begin, c.begin, c.end};
        const GridWindow window{TimeScale{2}, c.scroll, c.height};
        const A after =
            c.later ? MoveRowLater(selection, window, c.extend) : MoveRowEarlier(selection, window, c.extend);
        EXPECT_EQ(static_cast<int>(c.after), static_cast<int>(after)) << c.name;
        EXPECT_EQ(c.newBegin, selection.begin) << c.name;
        EXPECT_EQ(c.newEnd, selection.end) << c.name;
        const int step = after == A::NOTHING ? 0 : c.later ? 30 : -30;
        EXPECT_EQ(AddMinutes(c.begin, step), selection.current) << c.name;
    }
}

TEST(DayMoves, KeepTheirOddities)
{
    struct
    {
        void (*move)(GridSelection&, bool);
        bool extend;
        int current, begin, end; // days after the move
    } const cases[] = {
        {&MoveDayEarlier, false, 25, 25, 25},
        {&MoveDayEarlier, true, 25, 26, 25},
        {&MoveDayLater, false, 27, 28, 27},
        {&MoveDayLater, true, 27, 27, 27},
    };
    for (const auto& c : cases) {
        GridSelection selection{At(9, 0), At(9, 0), At(9, 0)};
        c.move(selection, c.extend);
        EXPECT_EQ(At(9, 0, c.current), selection.current);
        EXPECT_EQ(At(9, 0, c.begin), selection.begin);
        EXPECT_EQ(At(9, 0, c.end), selection.end);
    }
}

TEST(ShownRange, TurnsByWholeViews)
{
    struct
    {
        ShownRange range;
        int day, views;
    } const cases[] = {
        {{100, 5, false}, 100, 0}, {{100, 5, false}, 104, 0}, {{100, 5, false}, 105, 1}, {{100, 5, false}, 110, 2},
        {{100, 5, false}, 99, -1}, {{100, 5, false}, 94, -2}, {{100, 5, true}, 105, 1},  {{100, 5, true}, 107, 1},
        {{100, 5, true}, 99, -1},  {{100, 7, true}, 107, 1},  {{100, 7, true}, 92, -2},  {{100, 14, true}, 114, 1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.views, ViewsToShow(c.range, c.day)) << c.range.days << " days, day " << c.day;
    }
}

TEST(Scroll, FollowsTheBarCodes)
{
    using C = ScrollCode;
    const GridWindow part{TimeScale{2}, 0, 410}; // 48 rows of 20: 550 pixels are left over
    const GridWindow whole{TimeScale{1}, 0, 600};
    struct
    {
        C code;
        GridWindow window;
        int offset, position, thumb, newOffset, newPosition;
    } const cases[] = {
        {C::LINE_DOWN, part, 0, 0, 0, 20, 1},     {C::LINE_UP, part, 40, 2, 0, 20, 1},
        {C::LINE_UP, part, 0, 0, 0, 0, -1},       {C::PAGE_DOWN, part, 20, 1, 0, 60, 3},
        {C::PAGE_UP, part, 60, 3, 0, 20, 1},      {C::THUMB, part, 0, 0, 9, 180, 9},
        {C::THUMB, part, 0, 0, 500, 550, 500},    {C::TOP, part, 300, 15, 0, 0, 0},
        {C::BOTTOM, part, 0, 0, 0, 550, 28},      {C::LINE_DOWN, part, 540, 27, 0, 550, 28},
        {C::END_SCROLL, part, 140, 7, 3, 140, 7}, {C::TOP, whole, 0, 0, 0, -120, 0},
        {C::LINE_DOWN, whole, 0, 0, 0, -120, 1},
    };
    for (const auto& c : cases) {
        const GridScroll scroll = Scrolled(GridScroll{c.offset, c.position, 28}, c.code, c.thumb, c.window);
        EXPECT_EQ(c.newOffset, scroll.offset) << static_cast<int>(c.code);
        EXPECT_EQ(c.newPosition, scroll.position) << static_cast<int>(c.code);
    }
    struct
    {
        GridWindow window;
        int position, maximum, newPosition, newMaximum;
    } const sizes[] = {
        {part, 0, 100, 0, 28},
        {part, 13, 28, 13, 28},
        {part, 28, 56, 14, 28},
        {whole, 10, 28, 0, 0},
        {GridWindow{TimeScale{1}, 0, 490}, 3, 28, 0, 1},
    };
    for (const auto& c : sizes) {
        const GridScroll scroll = ScaledTo(GridScroll{0, c.position, c.maximum}, c.window);
        EXPECT_EQ(c.newMaximum, scroll.maximum);
        EXPECT_EQ(c.newPosition, scroll.position) << c.position << " of " << c.maximum;
        EXPECT_EQ(c.newPosition * 20, scroll.offset);
    }
}

TEST(Look, RowsTakeTheirColumnOfTheTable)
{
    const tagCALENDAR_DAY_COLOR colors = {{1, 2, 3, 4, 5, 6, 7}};
    const RowLookInput input = {TimeScale{2}, colors, 99, 6};
    struct
    {
        int row;
        bool work, selected;
        COLORREF fill, line;
    } const cases[] = {
        {13, true, false, 1, 2},  {14, true, false, 1, 3},  {12, true, false, 1, 6}, {12, false, false, 4, 6},
        {15, false, false, 4, 5}, {15, false, true, 99, 5}, {14, true, true, 99, 3},
    };
    for (const auto& c : cases) {
        const RowLook look = LookOfRow(c.row, c.work, c.selected, input);
        EXPECT_EQ(c.fill, look.fill) << c.row;
        EXPECT_EQ(c.line, look.line) << c.row;
    }
}

TEST(Look, DaysTakeTheirRowOfTheTable)
{
    struct
    {
        COleDateTime date;
        bool showHolidays;
        int dayColor, row;
        bool dayOff;
    } const cases[] = {
        // A Wednesday, a Sunday, a Saturday with a holiday, Constitution Day on a Wednesday.
        {At(0, 0, 26), true, 0, 0, false},
        {At(0, 0, 23), true, 0, 1, false},
        {At(0, 0, 22), true, 0, 2, false},
        {At(0, 0, 29), true, 0, 1, true},
        {At(0, 0, 29), false, 0, 2, false},
        {COleDateTime(2017, 5, 3, 0, 0, 0), true, 0, 1, true},
        {COleDateTime(2017, 5, 3, 0, 0, 0), true, 5, 4, true},
        {COleDateTime(2017, 5, 3, 0, 0, 0), false, 0, 0, false},
    };
    for (const auto& c : cases) {
        const DayKind kind = KindOfDay(ShownDay::Of(c.date), c.showHolidays, c.dayColor);
        EXPECT_EQ(c.row, kind.colorRow) << c.date.GetDay();
        EXPECT_EQ(c.dayOff, kind.isDayOff) << c.date.GetDay();
    }
}

TEST(Look, TextsTellWhatTheBoxCannot)
{
    tagCALENDAR_ITEM item;
    item.dtStart = At(9, 5);
    item.dtEnd = At(10, 0);
    item.strText = "x%s";
    EXPECT_STREQ("9:05 - 10:00 x%s", TimedItemText(item));
    EXPECT_STREQ("x%s", BandItemText(item));
    item.nPiece = PIECE_HEAD;
    EXPECT_STREQ("9:05 x%s", BandItemText(item));
    item.nPiece = PIECE_TAIL;
    EXPECT_STREQ("10:00 x%s", BandItemText(item));
    item.nFullday = 1;
    EXPECT_STREQ("x%s", BandItemText(item));

    const GridCaptionTexts caption = CaptionOfDay(ShownDay::Of(At(9, 0, 29)), true, true);
    EXPECT_STREQ("4.29", caption.date);
    EXPECT_STREQ(" (土)", caption.weekday);
    EXPECT_STREQ("     Saturday, 29 April, 2017", caption.longDate);
    EXPECT_STREQ("  昭和の日", caption.holiday);
    EXPECT_STREQ("", CaptionOfDay(ShownDay::Of(At(9, 0, 29)), false, true).holiday);
    EXPECT_STREQ(" 穀雨", CaptionOfDay(ShownDay::Of(At(9, 0, 20)), true, true).solarTerm);
    EXPECT_STREQ("12.31 - 1.1",
                 CaptionOfDays(COleDateTime(2017, 12, 31, 0, 0, 0), COleDateTime(2018, 1, 1, 0, 0, 0)).date);
    const HeaderTexts header = HeaderOfDay(ShownDay::Of(At(0, 0, 29)), true, "");
    EXPECT_STREQ("4/29 (土)", header.longDate);
    EXPECT_STREQ("昭和の日", header.note);
    EXPECT_STREQ("出張", HeaderOfDay(ShownDay::Of(At(0, 0, 29)), true, "出張").note);
}
