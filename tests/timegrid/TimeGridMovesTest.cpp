#include "calc/DayCalendar.h"
#include "core/DateMath.h"
#include "timegrid/GridItems.h"
#include "views/timegrid/TimeGridLook.h"
#include "views/timegrid/TimeGridMoves.h"

#include <gtest/gtest.h>

using namespace dayvane;
using namespace gridtest;

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
        // A grid lower than a row shows none as a whole: the row before the first is 23:30 of the day before.
        {"down in a low grid", true, false, At(9, 30), At(9, 30), 0, 10, A::REPAINT, At(10, 0), At(10, 0)},
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
        const int minute = c.begin.GetHour() * 60 + c.begin.GetMinute() + step;
        EXPECT_EQ(At(minute / 60, minute % 60), selection.current) << c.name;
    }
}

TEST(RowMoves, LastRowEndsAtMidnight)
{
    EXPECT_EQ(At(23, 30), LastRow(DayRange::OneDay(At(9, 15)), TimeScale()));
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

TEST(Look, TextsSayWhatTheBoxCannotShow)
{
    tagCALENDAR_ITEM item = Item(At(9, 5), At(10, 0));
    item.strText = "x%s";
    const TextSettings texts;
    EXPECT_EQ(u"9:05 - 10:00 x%s", TimedItemText(item, texts));
    const struct
    {
        int piece, fullday;
        const char16_t* text;
    } bars[] = {{PIECE_WHOLE, 0, u"x%s"},      {PIECE_HEAD, 0, u"9:05 x%s"}, {PIECE_MIDDLE, 0, u"x%s"},
                {PIECE_TAIL, 0, u"10:00 x%s"}, {PIECE_TAIL, 1, u"x%s"},      {PIECE_INSIDE, 0, u"x%s"}};
    for (const auto& bar : bars) {
        item.nPiece = bar.piece;
        item.nFullday = bar.fullday;
        EXPECT_EQ(bar.text, BandItemText(item, texts)) << bar.piece;
    }

    const ShownDay showaDay = ShownDay::Of(At(9, 0, 29), nullptr); // a Saturday
    const GridCaptionTexts caption = CaptionOfDay(showaDay, true, true, texts);
    EXPECT_EQ(u"4.29 (土)     Saturday, 29 April, 2017  昭和の日",
              caption.date + caption.weekday + caption.longDate + caption.holiday);
    EXPECT_EQ(u"", CaptionOfDay(showaDay, false, true, texts).holiday);
    EXPECT_EQ(u" 穀雨", CaptionOfDay(ShownDay::Of(At(9, 0, 20), nullptr), true, true, texts).solarTerm);
    const COleDateTime newYearsEve(2017, 12, 31, 0, 0, 0);
    const GridCaptionTexts days = CaptionOfDays(newYearsEve, AddDays(newYearsEve, 1), texts);
    EXPECT_EQ(u"12.31 - 1.1     31 December, 2017 - 1 January, 2018", days.date + days.longDate);
    EXPECT_EQ(u"     25 December - 31 December, 2017",
              CaptionOfDays(AddDays(newYearsEve, -6), newYearsEve, texts).longDate);
    EXPECT_EQ(u"4/29 (土)", HeaderOfDay(showaDay, true, u"", texts).longDate);
    EXPECT_EQ(u"昭和の日", HeaderOfDay(showaDay, true, u"", texts).note);
    const DayCalendar todaysLaw;
    const COleDateTime mountainDay(2026, 8, 11, 0, 0, 0);
    EXPECT_EQ(ToneOfDay(ShownDay::Of(mountainDay, &todaysLaw), true, 0).colorRow, 1);
    EXPECT_EQ(u"山の日", HeaderOfDay(ShownDay::Of(mountainDay, &todaysLaw), true, u"", texts).note);
    EXPECT_EQ(ToneOfDay(ShownDay::Of(mountainDay, nullptr), true, 0).colorRow, 0);
    EXPECT_EQ(u"出張", HeaderOfDay(showaDay, true, u"出張", texts).note);
}

TEST(Scrolling, CountsTheRowsThatAreNotWhole)
{
    const GridWindow window{TimeScale{2}, 0, 400}; // of 960 pixels
    const struct
    {
        int to, offset, position;
    } rows[] = {{-5, 0, 0}, {40, 40, 2}, {41, 41, 3}, {560, 560, 28}, {600, 560, 28}};
    for (const auto& row : rows) {
        const GridScroll moved = ScrolledTo({7, 7, 30}, row.to, window);
        EXPECT_EQ(row.offset, moved.offset) << row.to;
        EXPECT_EQ(row.position, moved.position) << row.to;
        EXPECT_EQ(30, moved.maximum);
    }
}

// A day of 960 pixels in 440: 520 are left over, the bar runs to 27.
TEST(Scrolling, FollowsEveryCode)
{
    const struct
    {
        int code, from, offset, position;
    } rows[] = {
        {SCROLL_LINEUP, 2, 20, 1},
        {SCROLL_LINEDOWN, 2, 60, 3},
        {SCROLL_PAGEUP, 5, 60, 3},
        {SCROLL_PAGEDOWN, 2, 80, 4},
        {SCROLL_THUMBTRACK, 2, 180, 9},
        {SCROLL_THUMBPOSITION, 2, 180, 9},
        {SCROLL_TOP, 2, 0, 0},
        {SCROLL_BOTTOM, 2, 520, 27},
        {SCROLL_PAGEUP, 1, 0, -1},
        {SCROLL_PAGEDOWN, 25, 520, 27},
        {99, 2, 40, 2},
    };
    for (const auto& row : rows) {
        const GridScroll moved = Scrolled({row.from * 20, row.from, 27}, row.code, 9, {TimeScale{2}, 0, 440});
        EXPECT_EQ(row.offset, moved.offset) << row.code << " from " << row.from;
        EXPECT_EQ(row.position, moved.position) << row.code << " from " << row.from;
        EXPECT_EQ(27, moved.maximum);
    }
    EXPECT_EQ(960 - 1040, Scrolled({0, 0, 0}, SCROLL_TOP, 0, {TimeScale{2}, 0, 1040}).offset);

    const GridWindow window{TimeScale{2}, 200, 440};
    EXPECT_EQ(180, WindowAfter(AfterMove::SCROLL_UP, window).scroll);
    EXPECT_EQ(220, WindowAfter(AfterMove::SCROLL_DOWN, window).scroll);
    EXPECT_EQ(200, WindowAfter(AfterMove::REPAINT, window).scroll);
}

TEST(Scrolling, KeepsItsPlaceInOtherSizes)
{
    const struct
    {
        int position, maximum, height, newMaximum, newPosition;
    } rows[] = {{13, 27, 440, 27, 13}, {13, 27, 140, 42, 21}, {21, 42, 840, 7, 3},
                {3, 7, 1040, 0, 0},    {0, 0, 440, 27, 27},   {0, 27, 960, 1, 0}};
    for (const auto& row : rows) {
        const GridScroll scaled = ScaledTo({1, row.position, row.maximum}, {TimeScale{2}, 0, row.height});
        EXPECT_EQ(row.newMaximum, scaled.maximum) << row.height;
        EXPECT_EQ(row.newPosition, scaled.position) << row.height;
        EXPECT_EQ(20 * row.newPosition, scaled.offset) << row.height;
    }
}

TEST(Scrolling, NoFartherThanToShowAPlace)
{
    const GridWindow window{TimeScale{2}, 200, 100};
    const struct
    {
        int top, bottom, offset;
    } places[] = {{210, 290, 200}, {200, 300, 200}, {199, 299, 199}, {201, 301, 201}, {100, 120, 100}, {150, 400, 150}};
    for (const auto& place : places) {
        EXPECT_EQ(place.offset, OffsetToShow(window, place.top, place.bottom)) << place.top;
    }
    EXPECT_EQ(320, OffsetToShow(window, At(9, 10), At(10, 0))) << "the row of the end, too";
    EXPECT_EQ(320, OffsetToShow(window, At(10, 0), At(9, 0)));
    EXPECT_EQ(160, OffsetToShow(window, At(4, 0), At(4, 0)));
    EXPECT_EQ(200, OffsetToShow(window, At(4, 0), Invalid()));
}

TEST(Look, ColorsOfARow)
{
    enum
    {
        WORK,
        WORK_ROW,
        WORK_HOUR,
        OFF,
        OFF_ROW,
        OFF_HOUR,
        UNUSED,
        SELECTED
    };
    const tagCALENDAR_DAY_COLOR colors = {{WORK, WORK_ROW, WORK_HOUR, OFF, OFF_ROW, OFF_HOUR, UNUSED}};
    const struct
    {
        int row;
        bool isWorkTime;
        COLORREF fill, line;
    } rows[] = {{17, false, OFF, OFF_ROW},  {16, false, OFF, OFF_HOUR},  {18, true, WORK, OFF_HOUR}, // work begins at 9
                {19, true, WORK, WORK_ROW}, {20, true, WORK, WORK_HOUR}, {0, true, WORK, WORK_HOUR}};
    for (const auto& row : rows) {
        const RowLookInput input{TimeScale{2}, colors, SELECTED, 9};
        EXPECT_EQ(row.fill, LookOfRow(row.row, row.isWorkTime, false, input).fill) << row.row;
        EXPECT_EQ(row.line, LookOfRow(row.row, row.isWorkTime, false, input).line) << row.row;
        EXPECT_EQ(static_cast<COLORREF>(SELECTED), LookOfRow(row.row, row.isWorkTime, true, input).fill) << row.row;
        EXPECT_EQ(row.line, LookOfRow(row.row, row.isWorkTime, true, input).line) << row.row;
    }
}
