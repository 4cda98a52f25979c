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
        {SB_LINEDOWN, 0, 20, 1}, {SB_PAGEUP, 0, 0, 0},       {SB_THUMBTRACK, 9, 180, 9},
        {SB_BOTTOM, 0, 520, 27}, {SB_ENDSCROLL, 9, 520, 27}, {SB_THUMBTRACK, 500, 520, 27},
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
    EXPECT_EQ(0, scene.view->IsUseMyWorkTime(100)) << "no such column";
    scene.view->SetDayProperty(At(0, 0, 26), property);
    scene.view->SetDateScale(15); // a week, too
    EXPECT_EQ(nullptr, scene.view->GetDayProperty(At(0, 0, 26)));
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
