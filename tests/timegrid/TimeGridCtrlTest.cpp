// The day view and the multi-day view as windows: scroll bar, keyboard, notifications, items, mouse, hosts that end
// them in the middle of things.
#include "timegrid/GridScene.h"

#include <gtest/gtest.h>

#include <vector>

using namespace gridtest;
using testsupport::PumpMessages;

namespace {
constexpr UINT kShift = 0x10;

using Lines = std::vector<std::string>;
} // namespace

// 48 rows of 20 pixels in a grid of 440: 520 pixels are left over, the bar runs to 27.
TEST(GridScroll, FollowsTheBar)
{
    Scene<CDayViewCtrl> scene;
    ASSERT_EQ(440, scene.view->m_rcContent.Height());
    struct
    {
        UINT code;
        int thumb, offset, position;
    } const steps[] = {
        {SB_LINEDOWN, 0, 20, 1},       {SB_PAGEDOWN, 0, 60, 3},    {SB_LINEUP, 0, 40, 2},   {SB_PAGEUP, 0, 0, 0},
        {SB_PAGEUP, 0, 0, 0},          {SB_THUMBTRACK, 9, 180, 9}, {SB_BOTTOM, 0, 520, 27}, {SB_LINEDOWN, 0, 520, 27},
        {SB_THUMBPOSITION, 4, 80, 4},  {SB_ENDSCROLL, 9, 80, 4},   {99, 0, 80, 4},          {SB_TOP, 0, 0, 0},
        {SB_THUMBTRACK, 500, 520, 27},
    };
    for (const auto& step : steps) {
        scene.Scroll(step.code, step.thumb);
        EXPECT_EQ(step.offset, scene.Offset()) << "code " << step.code;
        EXPECT_EQ(step.position, scene.Position()) << "code " << step.code;
    }
    EXPECT_EQ(0u, scene.parent.Log().size());
}

TEST(GridScroll, KeepsItsPlaceInOtherSizes)
{
    Scene<CDayViewCtrl> scene;
    int least = 0;
    int most = 0;
    scene.Scroll(SB_THUMBPOSITION, 13);
    struct
    {
        int height, maximum, position;
    } const sizes[] = {{500, 27, 13}, {200, 42, 21}, {900, 7, 3}, {1100, 0, 0}, {500, 27, 27}};
    for (const auto& size : sizes) {
        scene.view->SetWindowPos(nullptr, 0, 0, 480, size.height, SWP_NOZORDER);
        scene.view->GetScrollRange(SB_VERT, &least, &most);
        EXPECT_EQ(size.maximum, most) << size.height;
        EXPECT_EQ(size.position * 20, scene.Offset()) << size.height;
        EXPECT_EQ(size.maximum == 0 ? 0 : size.position, scene.Position()) << size.height;
    }
    // All of the day fits: the end of the day is where the top of the bar leads to.
    scene.view->SetWindowPos(nullptr, 0, 0, 480, 1100, SWP_NOZORDER);
    scene.Scroll(SB_TOP);
    EXPECT_EQ(960 - 1040, scene.Offset());
}

TEST(GridScroll, ComesToThePresent)
{
    Scene<CDayViewCtrl> day(500, 500, At(9, 40));
    EXPECT_EQ(19 * 20, day.Offset());
    Scene<CDayViewCtrl> withoutBar(500, 500, At(9, 40), 0);
    EXPECT_EQ(19 * 20, withoutBar.Offset());
    Scene<CWeekDayViewCtrl> week(900, 500, At(3, 0));
    EXPECT_EQ(6 * 20, week.Offset());
    const COleDateTime hourLater = At(1, 0);
    week.view->SyncToPresent(&hourLater); // from where it is
    PumpMessages();
    EXPECT_EQ(8 * 20, week.Offset());
}

TEST(DayKeys, MoveRowsAndDays)
{
    Scene<CDayViewCtrl> scene;
    using testsupport::messages::Key;
    const HWND window = scene.view->m_hWnd;
    scene.Add(At(9, 0, 27), At(10, 0, 27));
    EXPECT_EQ(0, scene.view->GetScreenItems().GetSize());

    Key(window, VK_DOWN);
    EXPECT_EQ("26 09:30 - 26 09:30", scene.Selection());
    EXPECT_EQ(At(9, 30), scene.view->GetCurrentDate());
    EXPECT_EQ(0u, scene.parent.Log().size());

    Key(window, VK_RIGHT);
    EXPECT_EQ("28 09:30 - 27 09:30", scene.Selection());
    EXPECT_EQ(1, scene.view->GetScreenItems().GetSize()); // the items of the new day, at once
    EXPECT_EQ((Lines{"CCN_VIEWRANGECHANGE date=2017-04-27 09:30:00 first=2017-04-27 09:30:00 "
                     "last=2017-04-27 09:30:00 value=2049"}),
              scene.parent.Lines());

    Key(window, VK_LEFT);
    EXPECT_EQ("26 09:30 - 26 09:30", scene.Selection());
    scene.view->MoveLeftward(kShift);
    EXPECT_EQ("26 09:30 - 25 09:30", scene.Selection());
    EXPECT_EQ(3, scene.parent.Count(CCN_VIEWRANGECHANGE));

    // Extended over midnight, the selection takes the shown day along.
    scene.view->SetCurrentDate(At(0, 0, 28));
    scene.view->SetSelRange(At(1, 0, 28), At(0, 0, 28));
    scene.view->Refresh();
    EXPECT_EQ(0, scene.view->GetScreenItems().GetSize());
    scene.view->MoveForward(kShift);
    EXPECT_EQ("28 01:00 - 27 23:30", scene.Selection());
    EXPECT_EQ(1, scene.view->GetScreenItems().GetSize());
}

TEST(DayKeys, ScrollWithTheSelection)
{
    Scene<CDayViewCtrl> scene;
    scene.view->SetSelRange(COleDateTime(0.0), COleDateTime(0.0)); // the moves begin at the current date
    scene.view->MoveBackward(0);
    EXPECT_EQ("26 09:30 - 26 09:30", scene.Selection());
    for (int row = 0; row < 4; ++row) {
        scene.view->MoveBackward(0);
    }
    PumpMessages();
    EXPECT_GT(scene.Offset(), 0); // 10:30 is the last row that is shown whole
}

struct SelectionRow
{
    COleDateTime first, last;
    bool fullday;
    COleDateTime begin, end;
};

template <class View>
void ExpectRangesOfTime(const std::vector<SelectionRow>& rows)
{
    Scene<View> scene(900, 500);
    COleDateTime begin;
    COleDateTime end;
    for (const SelectionRow& row : rows) {
        scene.view->SetSelRange(row.first, row.last, row.fullday);
        EXPECT_EQ(1, scene.view->GetSelRange(begin, end));
        EXPECT_EQ(row.begin, begin);
        EXPECT_EQ(row.end, end);
    }
    scene.view->SetSelRange(COleDateTime(0.0), At(9, 0));
    EXPECT_EQ(0, scene.view->GetSelRange(begin, end));
}

TEST(GridSelection, ComesAsARangeOfTime)
{
    using dayvane::EndOfDay;
    ExpectRangesOfTime<CDayViewCtrl>({
        {At(9, 0), At(9, 0), false, At(9, 0), At(9, 30)},
        {At(11, 0), At(9, 0), false, At(9, 0), At(11, 30)},
        {At(0, 0), EndOfDay(At(0, 0)), false, At(0, 0), EndOfDay(At(0, 0))},
        {At(0, 0), At(23, 59), false, At(0, 0), At(0, 29, 27)},
        {At(9, 0), At(11, 0, 27), true, At(0, 0), EndOfDay(At(0, 0))},
    });
    ExpectRangesOfTime<CWeekDayViewCtrl>({
        {At(10, 0), At(10, 0), false, At(10, 0), At(10, 30)},
        {At(10, 0, 27), At(9, 0, 25), false, At(9, 0, 25), At(10, 30, 27)},
        {At(0, 0), At(23, 59), false, At(0, 0), At(23, 59)},
        {At(0, 0, 27), At(0, 0, 25), true, At(0, 0, 25), EndOfDay(At(0, 0, 27))},
    });
}

TEST(DayItems, BandGrowsWithWhatIsAdded)
{
    Scene<CDayViewCtrl> scene;
    scene.Scroll(SB_THUMBPOSITION, 10);
    scene.Add(At(9, 0), At(10, 0));
    EXPECT_EQ(60, scene.view->m_rcContent.top);
    EXPECT_EQ(60 + 360, scene.view->GetScreenItems()[0].rcItem.top);
    scene.Add(At(0, 0), At(0, 0), 1);
    EXPECT_EQ(60, scene.view->m_rcContent.top);
    scene.Add(At(0, 0, 25), At(9, 0, 27));
    // Two lanes: the grid and all that is in it has moved down, and the bar knows the smaller grid.
    const auto& shown = scene.view->GetScreenItems();
    EXPECT_EQ(85, scene.view->m_rcContent.top);
    EXPECT_EQ(85 + 360, shown[0].rcItem.top);
    EXPECT_EQ(CRect(66, 60, scene.view->m_rcContent.right - 5, 80), shown[2].rcItem);
    int least = 0;
    int most = 0;
    scene.view->GetScrollRange(SB_VERT, &least, &most);
    EXPECT_EQ((960 - 415) / 20 + 1, most);
    EXPECT_EQ(200, scene.Offset());

    tagCCHITTESTINFO hit;
    hit.pt = CPoint(100, 65);
    EXPECT_EQ(2, scene.view->HitTest(hit));
    EXPECT_EQ(CCHT_ONFULLDAYITEM, hit.nHitCode);
    scene.view->DeleteItem(2);
    EXPECT_EQ(60, scene.view->m_rcContent.top);
}

TEST(DayItems, RowRecordsAndOverlaps)
{
    Scene<CDayViewCtrl> scene;
    scene.Add(At(9, 0), At(10, 0));
    scene.Add(At(9, 30), At(11, 0));
    scene.Add(At(10, 0), At(10, 10));
    auto& screen = scene.view->m_arScreenItem;
    screen[2].nParallel = 5;
    CArray<CCalendarCtrl::tagCV_LAYOUT, CCalendarCtrl::tagCV_LAYOUT> rows;
    scene.view->GetMaxParalelCalendarItems(screen, rows);
    ASSERT_EQ(48, rows.GetSize());
    ASSERT_EQ(2, rows[19].GetSize());
    EXPECT_EQ(&screen[1], rows[19][1]);
    EXPECT_EQ(5, screen[2].nParallel); // it covers no row
    EXPECT_EQ(2, scene.view->CalcOverlayedNumber(screen));
    scene.view->_CalcItemRect(CRect(61, 60, 361, 500), screen[0]); // as if alone
    EXPECT_EQ(CRect(61, 420, 361, 460), screen[0].rcItem);
    EXPECT_EQ(3, scene.view->CalcOverlayedNumber(screen));
    // Fifty rows an hour of one minute each: the last minutes of the day lie after its last row.
    scene.view->SetTimeScale(50);
    screen[0].dtEnd = At(23, 59);
    EXPECT_THROW(scene.view->GetMaxParalelCalendarItems(screen, rows), CInvalidArgException*);
}

TEST(DayItems, CurrentCellAndItem)
{
    Scene<CDayViewCtrl> scene;
    const int right = scene.view->m_rcContent.right;
    CRect rect;
    int mode = -1;
    scene.view->GetCurCellRect(rect, mode);
    EXPECT_EQ(0, mode);
    scene.Add(At(9, 0), At(10, 0));
    scene.Add(At(0, 0), At(0, 0), 1);
    scene.Scroll(SB_THUMBPOSITION, 19);
    scene.view->SetCurSel(0);
    scene.view->GetCurCellRect(rect, mode);
    EXPECT_EQ(CRect(63, 60, right - 22, 80), rect); // its upper half is scrolled away
    EXPECT_EQ(1, mode);
    scene.view->SetCurSel(1);
    scene.view->GetCurCellRect(rect, mode);
    EXPECT_EQ(scene.view->GetScreenItems()[1].rcItem, rect);
}

tagCALENDAR_DAY_PROPERTY OwnHours(int from, int to)
{
    tagCALENDAR_DAY_PROPERTY property;
    property.strText = "x";
    property.nDayColor = 4;
    property.bUseMyWorkTime = 1;
    property.dtWorkStart = COleDateTime(1899, 12, 30, from, 0, 0);
    property.dtWorkEnd = COleDateTime(1899, 12, 30, to, 0, 0);
    return property;
}

TEST(DayProperty, IsOneForAllDates)
{
    Scene<CDayViewCtrl> scene;
    EXPECT_TRUE(scene.view->IsWorkTime(12));
    scene.view->SetDayProperty(At(0, 0, 1), OwnHours(9, 20));
    EXPECT_FALSE(scene.view->IsWorkTime(12));
    EXPECT_TRUE(scene.view->IsWorkTime(36));
    EXPECT_EQ(4, scene.view->GetDayColor(3));
    scene.view->DeleteAllItems();
    const tagCALENDAR_DAY_PROPERTY* kept = scene.view->GetDayProperty(At(0, 0, 2));
    ASSERT_NE(nullptr, kept);
    EXPECT_TRUE(kept->strText.IsEmpty());
    EXPECT_EQ(0, kept->nDayColor);
    EXPECT_EQ(9, kept->dtWorkStart.GetHour());
    EXPECT_TRUE(scene.view->IsWorkTime(12));
}

TEST(WeekDayRange, FollowsScaleAndOptions)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    EXPECT_EQ("Weekday Calendar", std::string(scene.view->GetCaptionText()));
    EXPECT_EQ("04-24 00:00:00 - 04-28 23:59:59", scene.Range());
    struct
    {
        int scale, days, option;
        const char* caption;
        const char* lastDay;
    } const cases[] = {
        {15, 7, 2, "Weekly Calendar", "04-30"},   {1, 2, 0, "2 Days Calendar", "04-25"},
        {10, 11, 0, "11 Days Calendar", "05-04"}, {11, 12, 0, "11 Days Calendar", "05-05"},
        {13, 14, 0, "14 Days Calendar", "05-07"}, {16, 14, 0, "14 Days Calendar", "05-07"},
        {0, 14, 0, "14 Days Calendar", "05-07"},  {14, 5, 2, "Weekday Calendar", "04-28"},
    };
    for (const auto& c : cases) {
        scene.view->SetDateScale(c.scale);
        EXPECT_EQ(c.scale, scene.view->GetDateScale());
        EXPECT_EQ(c.days, scene.view->GetMaxDays()) << c.scale;
        EXPECT_EQ(c.option, scene.view->GetBeginDayOfWeek()) << c.scale;
        EXPECT_EQ(c.caption, std::string(scene.view->GetCaptionText()));
        EXPECT_EQ("04-24 00:00:00 - " + std::string(c.lastDay) + " 23:59:59", scene.Range()) << c.scale;
    }
    struct
    {
        int days, option, maxDays, beginDay;
    } const options[] = {{1, 0, 2, 0}, {15, 0, 2, 0}, {14, 7, 14, 2}, {5, 9, 5, 0}};
    for (const auto& o : options) {
        scene.view->SetViewOption(o.days, o.option);
        EXPECT_EQ(o.maxDays, scene.view->GetMaxDays());
        EXPECT_EQ(o.beginDay, scene.view->GetBeginDayOfWeek());
    }
    scene.view->SetCurrentDate(At(10, 44));
    EXPECT_EQ("26 10:30 - 26 10:30", scene.Selection());
    EXPECT_EQ("04-26 00:00:00 - 04-30 23:59:59", scene.Range());
    EXPECT_THROW(scene.view->GetColumnRect(5), CInvalidArgException*);
    // Another range takes the current date along: another first day of the week does not lead back.
    scene.view->SetViewOption(7, 1);
    scene.view->SetRange(COleDateTime(2017, 6, 14, 0, 0, 0));
    EXPECT_EQ("06-12 00:00:00 - 06-18 23:59:59", scene.Range());
    scene.view->SetFirstDayOfWeek(1);
    EXPECT_EQ("06-11 00:00:00 - 06-17 23:59:59", scene.Range());
    // The first and the last week that there are: a Friday each.
    scene.view->SetRange(COleDateTime(100, 1, 1, 0, 0, 0));
    EXPECT_EQ("01-01 00:00:00 - 01-07 23:59:59", scene.Range());
    scene.view->SetRange(COleDateTime(9999, 12, 31, 0, 0, 0));
    EXPECT_EQ("12-26 00:00:00 - 12-31 23:59:59", scene.Range());
}

TEST(WeekDayKeys, TurnTheViewAtItsEnds)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    scene.Add(At(9, 0, 28) + COleDateTimeSpan(3.0), At(10, 0, 28) + COleDateTimeSpan(3.0)); // the next Monday
    scene.view->MoveRightward(0);
    EXPECT_EQ("27 09:00 - 27 09:00", scene.Selection());
    scene.view->MoveRightward(kShift);
    EXPECT_EQ("27 09:00 - 28 09:00", scene.Selection());
    EXPECT_EQ(0u, scene.parent.Log().size());
    EXPECT_EQ(0, scene.view->GetScreenItems().GetSize());

    scene.view->MoveRightward(0); // from Friday to the next shown day
    EXPECT_EQ("01 09:00 - 01 09:00", scene.Selection());
    EXPECT_EQ("05-01 00:00:00 - 05-05 23:59:59", scene.Range());
    EXPECT_EQ(1, scene.view->GetScreenItems().GetSize());
    scene.view->MoveLeftward(0);
    EXPECT_EQ("28 09:00 - 28 09:00", scene.Selection());
    EXPECT_EQ("04-24 00:00:00 - 04-28 23:59:59", scene.Range());
    EXPECT_EQ((Lines{"CCN_VIEWRANGECHANGE date=2017-05-01 09:00:00 first=2017-05-01 00:00:00 "
                     "last=2017-05-05 23:59:59 value=2049",
                     "CCN_VIEWRANGECHANGE date=2017-04-28 09:00:00 first=2017-04-24 00:00:00 "
                     "last=2017-04-28 23:59:59 value=2049"}),
              scene.parent.Lines());
    scene.view->MoveBackward(0);
    EXPECT_EQ("28 09:30 - 28 09:30", scene.Selection());

    scene.view->SetCurrentDate(At(9, 0, 29)); // a Saturday: no working week shows it
    scene.view->MoveBackward(0);
    EXPECT_EQ("29 09:30 - 29 09:30", scene.Selection());
    EXPECT_EQ("04-24 00:00:00 - 04-28 23:59:59", scene.Range());
}

TEST(WeekDayProperties, BelongToTheirDays)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    const tagCALENDAR_DAY_PROPERTY property = OwnHours(20, 22);
    EXPECT_EQ(0, scene.view->IsUseMyWorkTime(2));
    scene.view->SetDayProperty(At(0, 0, 26), property);
    scene.view->SetDayProperty(At(0, 0, 1), property); // not shown
    EXPECT_TRUE(scene.view->IsWorkTime(2, 40));
    EXPECT_FALSE(scene.view->IsWorkTime(2, 20));
    EXPECT_TRUE(scene.view->IsWorkTime(1, 20));
    scene.view->SetViewOption(5, 0);
    scene.view->SetRange(At(0, 0, 25)); // the day is the second column now
    EXPECT_EQ(4, scene.view->GetDayColor(1));
    EXPECT_EQ(0, scene.view->GetDayColor(2));
    EXPECT_EQ(nullptr, scene.view->GetDayProperty(At(0, 0, 24)));
    scene.view->SetViewOption(7, 0); // more columns than there were properties
    scene.view->SetDayProperty(At(0, 0, 30), property);
    EXPECT_EQ(4, scene.view->GetDayColor(5));
    scene.view->ClearDayProperty();
    EXPECT_EQ(0, scene.view->IsUseMyWorkTime(1));
}

TEST(GridMouse, DragsItemsToOtherColumns)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    scene.Add(At(3, 0), At(4, 0));
    const CPoint from = scene.view->GetColumnRect(2).TopLeft();
    const CPoint to = scene.view->GetColumnRect(4).TopLeft();
    testsupport::messages::Drag(scene.view->m_hWnd, CPoint(from.x + 20, from.y + 130), CPoint(to.x + 20, to.y + 170));
    tagCC_ITEM item;
    scene.view->GetItem(0, item);
    EXPECT_EQ(At(4, 0, 28), item.dtStart);
    EXPECT_EQ(At(5, 0, 28), item.dtEnd);
}

// Keys, header frame and current date go where the hand is.
TEST(GridMouse, TheCurrentDateFollowsTheSelection)
{
    using namespace testsupport::messages;
    Scene<CWeekDayViewCtrl> scene(900, 500);
    const HWND window = scene.view->m_hWnd;
    const auto in = [&scene](int column, int y) {
        return CPoint(scene.view->GetColumnRect(column).left + 20, scene.view->m_rcContent.top + y);
    };
    Click(window, in(4, 50)); // Friday 1:00, current is Wednesday
    EXPECT_EQ(At(1, 0, 28), scene.view->GetCurrentDate());
    Key(window, VK_RIGHT); // to the next day that a working week shows
    EXPECT_EQ("01 01:00 - 01 01:00", scene.Selection());
    EXPECT_EQ("05-01 00:00:00 - 05-05 23:59:59", scene.Range());
    Key(window, VK_LEFT);
    EXPECT_EQ("28 01:00 - 28 01:00", scene.Selection());
    EXPECT_EQ("04-24 00:00:00 - 04-28 23:59:59", scene.Range());

    Drag(window, in(0, 50), in(1, 90)); // a sweep: keys go on from its end
    EXPECT_EQ("24 01:00 - 25 02:00", scene.Selection());
    EXPECT_EQ(At(2, 0, 25), scene.view->GetCurrentDate());
    Key(window, VK_DOWN);
    EXPECT_EQ("25 02:30 - 25 02:30", scene.Selection());
    Click(window, CPoint(in(3, 0).x, scene.view->m_rcContent.top - 10)); // the band
    EXPECT_TRUE(scene.view->IsWholeDaySelection());
    EXPECT_EQ(At(0, 0, 27), scene.view->GetCurrentDate());

    // Where a host has moved the selection alone, the first key moves from there.
    scene.view->SetSelRange(At(9, 0, 24), At(9, 0, 24));
    Key(window, VK_RIGHT);
    EXPECT_EQ("25 09:00 - 25 09:00", scene.Selection());
    EXPECT_EQ(At(9, 0, 25), scene.view->GetCurrentDate());

    Scene<CDayViewCtrl> day;
    Click(day.view->m_hWnd, CPoint(200, 60 + 50));
    EXPECT_EQ(At(1, 0), day.view->GetCurrentDate());
    day.view->SetSelRange(At(9, 0, 28), At(9, 0, 28));
    Key(day.view->m_hWnd, VK_DOWN);
    EXPECT_EQ("28 09:30 - 28 09:30", day.Selection());
    EXPECT_EQ(At(9, 30, 28), day.view->GetCurrentDate());
}

TEST(GridKeys, LeaveNoHighlightInTheBand)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    const COLORREF mark = 0x123456;
    scene.view->SetHighLightColor(mark);
    const auto band = [&scene](int column) {
        return CPoint(scene.view->GetColumnRect(column).left + 40, scene.view->m_rcContent.top - 10);
    };
    const auto color = [&](int column) {
        PumpMessages();
        scene.view->UpdateWindow();
        CClientDC window(scene.view);
        return window.GetPixel(band(column));
    };
    testsupport::messages::Drag(scene.view->m_hWnd, band(0), band(2));
    for (int column = 0; column < 3; ++column) {
        EXPECT_EQ(mark, color(column)) << column;
    }
    testsupport::messages::Key(scene.view->m_hWnd, VK_DOWN);
    EXPECT_NE(mark, color(0));
    EXPECT_NE(mark, color(1));
    EXPECT_EQ(mark, color(2));
}

// In a grid of 440 pixels: 22 rows.
TEST(GridScroll, KeysStayInSight)
{
    using testsupport::KeyState;
    using testsupport::messages::Key;
    Scene<CDayViewCtrl> scene;
    const HWND window = scene.view->m_hWnd;
    const int height = scene.view->m_rcContent.Height();
    const auto isInSight = [&] {
        PumpMessages();
        const int top = (scene.view->m_dtSelEnd.GetHour() * 2 + scene.view->m_dtSelEnd.GetMinute() / 30) * 20;
        return top >= scene.Offset() && top + 20 <= scene.Offset() + height;
    };
    scene.Scroll(SB_BOTTOM);
    Key(window, VK_UP); // far from 9:00
    EXPECT_TRUE(isInSight()) << scene.Offset();
    for (int row = 0; row < 48; ++row) {
        Key(window, VK_DOWN);
        ASSERT_TRUE(isInSight()) << scene.Selection() << ", offset " << scene.Offset();
    }
    for (int row = 0; row < 48; ++row) {
        Key(window, VK_UP);
        ASSERT_TRUE(isInSight()) << scene.Selection() << ", offset " << scene.Offset();
    }
    EXPECT_EQ(0, scene.Offset());
    Key(window, VK_END);
    EXPECT_EQ("26 23:30 - 26 23:30", scene.Selection());
    EXPECT_TRUE(isInSight());
    Key(window, VK_HOME);
    EXPECT_EQ("26 00:00 - 26 00:00", scene.Selection());
    EXPECT_TRUE(isInSight());

    // Tab goes to an item below.
    scene.Add(At(20, 0), At(21, 0));
    Key(window, VK_TAB);
    EXPECT_EQ(0, scene.view->GetCurSel());
    EXPECT_EQ(42 * 20 - height, scene.Offset());

    Scene<CWeekDayViewCtrl> week(900, 500);
    {
        const KeyState control({VK_CONTROL});
        week.view->SendMessage(WM_KEYDOWN, VK_END, 0);
        EXPECT_EQ("28 23:30 - 28 23:30", week.Selection());
        EXPECT_EQ(At(23, 30, 28), week.view->GetCurrentDate());
        week.view->SendMessage(WM_KEYDOWN, VK_HOME, 0);
        EXPECT_EQ("24 00:00 - 24 00:00", week.Selection());
    }
    const KeyState shift({VK_SHIFT});
    week.view->SendMessage(WM_KEYDOWN, VK_END, 0);
    EXPECT_EQ("24 00:00 - 24 23:30", week.Selection());
    EXPECT_EQ("04-24 00:00:00 - 04-28 23:59:59", week.Range());
}

TEST(GridScroll, ComesToAPlace)
{
    Scene<CDayViewCtrl> scene(500, 500, At(9, 40));
    const int height = scene.view->m_rcContent.Height();
    scene.Add(At(6, 0), At(7, 0));
    scene.Add(At(8, 0), At(22, 0)); // higher than the grid
    scene.Add(At(9, 0, 27), At(10, 0, 27));
    scene.view->ScrollToTime(At(7, 10, 1)); // only the time of day counts
    EXPECT_EQ(14 * 20, scene.Offset());
    EXPECT_EQ(14, scene.Position());
    scene.view->ScrollToTime(At(23, 0));
    EXPECT_EQ(960 - height, scene.Offset());
    EXPECT_TRUE(scene.view->EnsureVisible(0));
    EXPECT_EQ(12 * 20, scene.Offset());
    EXPECT_TRUE(scene.view->EnsureVisible(1));
    EXPECT_EQ(16 * 20, scene.Offset());
    EXPECT_FALSE(scene.view->EnsureVisible(2)); // of another day
    EXPECT_EQ(16 * 20, scene.Offset());
    scene.view->SetVertScrollOffset(133);
    EXPECT_EQ(133, scene.Offset());
    scene.view->SetVertScrollOffset(-5);
    EXPECT_EQ(0, scene.Offset());

    // Right after its creation the view has yet to scroll to the present.
    Open<CDayViewCtrl> fresh;
    fresh.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 500, 500), &scene.parent, 8);
    fresh.ScrollToTime(At(2, 0));
    PumpMessages();
    EXPECT_EQ(4 * 20, fresh.GetVertScrollOffset());
}

TEST(GridEdit, OpensInSight)
{
    const auto editBox = [](CCalendarCtrl& view) {
        CRect box(0, 0, 0, 0);
        if (CWnd* edit = view.GetWindow(GW_CHILD)) {
            edit->GetWindowRect(&box);
            view.ScreenToClient(&box);
        }
        return box;
    };
    Scene<CWeekDayViewCtrl> scene(900, 500);
    const auto within = [&](const CRect& area) {
        CRect common;
        const CRect box = editBox(*scene.view);
        return common.IntersectRect(&box, &area) && common == box;
    };
    scene.Scroll(SB_BOTTOM);
    scene.view->BeginEditItem("text"); // at 9:00
    EXPECT_TRUE(within(scene.view->m_rcContent)) << editBox(*scene.view);
    scene.view->SetSelRange(At(0, 0, 27), At(0, 0, 26), TRUE);
    scene.view->BeginEditItem("text");
    CRect band(scene.view->GetColumnRect(2).left, 50, scene.view->GetColumnRect(3).right, scene.view->m_rcContent.top);
    EXPECT_TRUE(within(band)) << editBox(*scene.view);

    Open<CDayViewCtrl> fresh;
    g_now = At(12, 0);
    fresh.SetCurrentDate(At(9, 0));
    fresh.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 500, 500), &scene.parent, 8);
    fresh.BeginEditItem("text");
    PumpMessages();
    EXPECT_TRUE(fresh.IsEditing());
    EXPECT_FALSE(editBox(fresh).IsRectEmpty());
}

TEST(GridOptions, MarksOpenAListOfWhatIsHidden)
{
    using testsupport::messages::Click;
    using testsupport::messages::Key;
    Scene<CWeekDayViewCtrl> scene(500, 500);
    CalendarOptions options;
    options.tidyColumns = options.limitedBand = true;
    for (int i = 0; i < 12; ++i) {
        scene.Add(At(1, 0), At(2, 0));
        scene.Add(At(0, 0, 27), At(0, 0, 27), 1);
    }
    EXPECT_GT(scene.view->m_rcContent.top, 300);
    scene.view->SetOptions(options);
    EXPECT_LE(scene.view->m_rcContent.top, 50 + 500 * 40 / 100);
    const auto isHidden = [&scene](int item) {
        for (INT_PTR i = 0; i < scene.view->GetScreenItems().GetSize(); ++i) {
            if (scene.view->GetScreenItems()[i].nSource == item) {
                return scene.view->GetScreenItems()[i].rcItem.top == -1;
            }
        }
        return true;
    };
    EXPECT_FALSE(isHidden(0));
    EXPECT_FALSE(isHidden(1));
    EXPECT_TRUE(isHidden(22));
    EXPECT_TRUE(isHidden(23));

    const CRect grid = scene.view->m_rcContent;
    const CPoint timedMark(scene.view->GetColumnRect(2).right - 12, grid.top + 45);
    const CPoint bandMark(scene.view->GetColumnRect(3).left + 20, grid.top - 20);
    for (const CPoint mark : {timedMark, bandMark}) {
        scene.parent.ClearLog();
        scene.view->SetCurSel(-1);
        testsupport::messages::LeftDown(scene.view->m_hWnd, mark);
        ASSERT_TRUE(scene.view->IsMoreListOpen()) << mark.y;
        scene.view->SendMessage(WM_KEYDOWN, VK_END, 0);
        scene.view->SendMessage(WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_FALSE(scene.view->IsMoreListOpen());
        EXPECT_EQ(mark == timedMark ? 22 : 23, scene.view->GetCurSel());
        EXPECT_EQ(1, scene.parent.Count(CCN_ITEMCLICK));
    }
    // F4 in the cell of such a day; scrolling closes the list.
    scene.view->SetSelRange(At(9, 0, 27), At(9, 0, 27));
    scene.view->SendMessage(WM_KEYDOWN, VK_F4, 0);
    EXPECT_TRUE(scene.view->IsMoreListOpen());
    scene.Scroll(SB_LINEDOWN);
    EXPECT_FALSE(scene.view->IsMoreListOpen());
    scene.Scroll(SB_TOP);

    // Dragged out of the list into the next column, the hidden item comes to the row where it is dropped.
    testsupport::messages::LeftDown(scene.view->m_hWnd, timedMark);
    const HWND list = ::FindWindow("DayvaneMoreList", nullptr);
    ASSERT_NE(nullptr, list);
    ::SendMessage(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 10));
    ::SendMessage(list, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-10, 10));
    EXPECT_FALSE(scene.view->IsMoreListOpen());
    const int dragged = scene.view->GetCurSel();
    const CPoint target(scene.view->GetColumnRect(1).left + 20, scene.view->m_rcContent.top + 90);
    testsupport::messages::Move(scene.view->m_hWnd, target, MK_LBUTTON);
    testsupport::messages::Move(scene.view->m_hWnd, target, MK_LBUTTON);
    testsupport::messages::LeftUp(scene.view->m_hWnd, target);
    tagCC_ITEM item;
    scene.view->GetItem(dragged, item);
    EXPECT_EQ(At(2, 0, 25), item.dtStart);
    EXPECT_EQ(At(3, 0, 25), item.dtEnd);
}

TEST(GridOptions, TheBandMakesDraggedItemsAllDay)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    const auto drag = [&scene](CPoint from, CPoint to) {
        CPoint screen = to;
        scene.view->ClientToScreen(&screen);
        ::SetCursorPos(screen.x, screen.y); // the auto-scroll at the grid's edge asks where the pointer is
        testsupport::messages::Drag(scene.view->m_hWnd, from, to);
        tagCC_ITEM item;
        scene.view->GetItem(0, item);
        return item;
    };
    const CPoint row(scene.view->GetColumnRect(2).left + 20, scene.view->m_rcContent.top + 50);
    const CPoint band(scene.view->GetColumnRect(3).left + 20, scene.view->m_rcContent.top - 15);
    scene.Add(At(1, 0), At(2, 0));
    EXPECT_EQ(0, drag(row, band).nFullday);
    scene.view->DeleteAllItems();
    scene.Add(At(1, 0), At(2, 0));
    CalendarOptions options = scene.view->GetOptions();
    options.wholeDayByDrag = true;
    scene.view->SetOptions(options);
    tagCC_ITEM item = drag(row, band);
    EXPECT_EQ(1, item.nFullday);
    EXPECT_EQ(At(0, 0, 27), item.dtStart);
    EXPECT_EQ(CCHT_ONFULLDAYITEM, [&] {
        tagCCHITTESTINFO hit;
        hit.pt = band;
        scene.view->HitTest(hit);
        return hit.nHitCode;
    }());
    item = drag(band, row);
    EXPECT_EQ(0, item.nFullday);
    EXPECT_EQ(At(1, 0), item.dtStart);
    EXPECT_EQ(At(2, 0), item.dtEnd);
}

TEST(GridOptions, FirstRowMoveEndsAWholeDaySelection)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    const auto select = [&scene] { scene.view->SetSelRange(At(0, 0, 25), At(0, 0, 27), TRUE); };
    const auto isWholeAfter = [&](auto act) {
        select();
        act();
        return scene.view->IsWholeDaySelection();
    };
    const auto down = [&] { scene.view->MoveBackward(0); };
    const auto up = [&] { scene.view->MoveForward(0); }; // stays at midnight
    const auto date = [&] { scene.view->SetCurrentDate(At(9, 0)); };
    const auto right = [&] { scene.view->MoveRightward(0); };
    EXPECT_TRUE(isWholeAfter(down) && isWholeAfter(up) && isWholeAfter(date) && isWholeAfter(right));
    CalendarOptions options = scene.view->GetOptions();
    options.keysLeaveWholeDay = true;
    scene.view->SetOptions(options);
    EXPECT_FALSE(isWholeAfter(down) || isWholeAfter(up) || isWholeAfter(date));
    EXPECT_TRUE(isWholeAfter(right)) << "still days";
    // The older switches write the same record.
    scene.view->ShowNowLine(TRUE);
    scene.view->EnableExtendedMove(FALSE);
    EXPECT_TRUE(scene.view->GetOptions().nowLine);
    EXPECT_FALSE(scene.view->GetOptions().extendedMove);
    EXPECT_TRUE(scene.view->GetOptions().keysLeaveWholeDay);
}

TEST(GridEdit, EndsWhenTheDateChanges)
{
    const auto change = [](auto&& scene, const COleDateTime& date) {
        scene.view->BeginEditItem("text");
        scene.view->SetCurrentDate(date);
        EXPECT_FALSE(scene.view->IsEditing());
        // The text belongs to the rows that were selected while it was written.
        ASSERT_EQ(1, scene.parent.Count(CCN_IPE_ENDEDITITEM));
        EXPECT_EQ(26, scene.parent.Log().back().edit.stStart.wDay);
    };
    change(Scene<CDayViewCtrl>(), At(9, 0, 27));
    change(Scene<CWeekDayViewCtrl>(900, 500), At(9, 0, 3));
}

TEST(GridHosts, MayEndTheViewInANotification)
{
    {
        Scene<CDayViewCtrl> scene;
        scene.parent.SetHook([&scene](const testsupport::Notification&) {
            delete scene.view;
            scene.view = nullptr;
            return LRESULT(0);
        });
        scene.view->SendMessage(WM_KEYDOWN, VK_RIGHT, 0);
        EXPECT_EQ(nullptr, scene.view);
    }
    Scene<CWeekDayViewCtrl> scene(900, 500);
    scene.parent.SetHook([&scene](const testsupport::Notification&) {
        scene.view->DeleteAllItems();
        scene.view->SetDateScale(1);
        scene.view->DestroyWindow();
        return LRESULT(0);
    });
    scene.Add(At(9, 0), At(10, 0));
    for (int i = 0; i < 5; ++i) {
        scene.view->SendMessage(WM_KEYDOWN, VK_RIGHT, 0);
    }
    EXPECT_EQ(nullptr, scene.view->m_hWnd);
}
