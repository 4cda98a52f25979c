// The day view and the multi-day view under hand and key: what the current date, the scroll position, the edit box and
// the options make of it.
#include "timegrid/GridScene.h"

#include <gtest/gtest.h>

using namespace gridtest;
using testsupport::PumpMessages;
namespace hardware = testsupport::hardware;

// Keys, header frame and current date go where the hand is.
TEST(GridMouse, TheCurrentDateFollowsTheSelection)
{
    using namespace testsupport::hardware;
    Scene<CWeekDayViewCtrl> scene(900, 500);
    const HWND window = scene.view->m_hWnd;
    ASSERT_TRUE(Focus(window));
    const auto in = [&scene](int column, int y) {
        return CPoint(scene.view->GetColumnRect(column).left + 20, scene.view->m_rcContent.top + y);
    };
    Click(window, in(4, 50)); // Friday 1:00, current is Wednesday
    EXPECT_EQ(At(1, 0, 28), scene.view->GetCurrentDate());
    Key(VK_RIGHT); // to the next day that a working week shows
    EXPECT_EQ("01 01:00 - 01 01:00", scene.Selection());
    EXPECT_EQ("05-01 00:00:00 - 05-05 23:59:59", scene.Range());
    Key(VK_LEFT);
    EXPECT_EQ("28 01:00 - 28 01:00", scene.Selection());
    EXPECT_EQ("04-24 00:00:00 - 04-28 23:59:59", scene.Range());

    Drag(window, in(0, 50), in(1, 90)); // a sweep: keys go on from its end
    EXPECT_EQ("24 01:00 - 25 02:00", scene.Selection());
    EXPECT_EQ(At(2, 0, 25), scene.view->GetCurrentDate());
    Key(VK_DOWN);
    EXPECT_EQ("25 02:30 - 25 02:30", scene.Selection());
    Click(window, CPoint(in(3, 0).x, scene.view->m_rcContent.top - 10)); // the band
    EXPECT_TRUE(scene.view->IsWholeDaySelection());
    EXPECT_EQ(At(0, 0, 27), scene.view->GetCurrentDate());

    // Where a host has moved the selection alone, the first key moves from there.
    scene.view->SetSelRange(At(9, 0, 24), At(9, 0, 24));
    Key(VK_RIGHT);
    EXPECT_EQ("25 09:00 - 25 09:00", scene.Selection());
    EXPECT_EQ(At(9, 0, 25), scene.view->GetCurrentDate());

    Scene<CDayViewCtrl> day;
    ASSERT_TRUE(Focus(*day.view));
    Click(*day.view, CPoint(200, 60 + 50));
    EXPECT_EQ(At(1, 0), day.view->GetCurrentDate());
    day.view->SetSelRange(At(9, 0, 28), At(9, 0, 28));
    Key(VK_DOWN);
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
    ASSERT_TRUE(hardware::Focus(*scene.view));
    hardware::Drag(*scene.view, band(0), band(2));
    for (int column = 0; column < 3; ++column) {
        EXPECT_EQ(mark, color(column)) << column;
    }
    hardware::Key(VK_DOWN);
    EXPECT_NE(mark, color(0));
    EXPECT_NE(mark, color(1));
    EXPECT_EQ(mark, color(2));
}

// In a grid of 440 pixels: 22 rows.
TEST(GridScroll, KeysStayInSight)
{
    using hardware::Key;
    Scene<CDayViewCtrl> scene;
    ASSERT_TRUE(hardware::Focus(*scene.view));
    const int height = scene.view->m_rcContent.Height();
    const auto isInSight = [&] {
        PumpMessages();
        const int top = (scene.view->m_dtSelEnd.GetHour() * 2 + scene.view->m_dtSelEnd.GetMinute() / 30) * 20;
        return top >= scene.Offset() && top + 20 <= scene.Offset() + height;
    };
    scene.Scroll(SB_BOTTOM);
    Key(VK_UP); // far from 9:00
    EXPECT_TRUE(isInSight()) << scene.Offset();
    for (int row = 0; row < 48; ++row) {
        Key(VK_DOWN);
        ASSERT_TRUE(isInSight()) << scene.Selection() << ", offset " << scene.Offset();
    }
    for (int row = 0; row < 48; ++row) {
        Key(VK_UP);
        ASSERT_TRUE(isInSight()) << scene.Selection() << ", offset " << scene.Offset();
    }
    EXPECT_EQ(0, scene.Offset());
    Key(VK_END);
    EXPECT_EQ("26 23:30 - 26 23:30", scene.Selection());
    EXPECT_TRUE(isInSight());
    Key(VK_HOME);
    EXPECT_EQ("26 00:00 - 26 00:00", scene.Selection());
    EXPECT_TRUE(isInSight());

    // Tab goes to an item below.
    scene.Add(At(20, 0), At(21, 0));
    Key(VK_TAB);
    EXPECT_EQ(0, scene.view->GetCurSel());
    EXPECT_EQ(42 * 20 - height, scene.Offset());

    Scene<CWeekDayViewCtrl> week(900, 500);
    ASSERT_TRUE(hardware::Focus(*week.view));
    Key(VK_END, {VK_CONTROL});
    EXPECT_EQ("28 23:30 - 28 23:30", week.Selection());
    EXPECT_EQ(At(23, 30, 28), week.view->GetCurrentDate());
    Key(VK_HOME, {VK_CONTROL});
    EXPECT_EQ("24 00:00 - 24 00:00", week.Selection());
    Key(VK_END, {VK_SHIFT});
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

// The tip of a view with all tips.
template <class View>
std::u16string TipAt(Open<View>& view, CPoint point)
{
    CalendarOptions options;
    options.toolTips = true;
    view.SetOptions(options);
    tagCCHITTESTINFO hit;
    hit.pt = point;
    view.HitTest(hit);
    CRect part;
    std::u16string text;
    if (!view.FindTip(hit, part, text)) {
        return u"";
    }
    EXPECT_TRUE(part.PtInRect(point));
    return text;
}

TEST(GridTips, SayWhatIsCut)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    const CString longText('w', 300);
    for (const int day : {26, 27}) {
        tagCC_ITEM item;
        item.strText = day == 26 ? CString("text") : longText;
        item.dtStart = At(1, 0, day);
        item.dtEnd = At(3, 0, day);
        scene.view->AddItem(&item);
        item.nFullday = 1;
        scene.view->AddItem(&item);
    }
    scene.view->Refresh();
    const auto& shown = scene.view->GetScreenItems();
    for (INT_PTR i = 0; i < shown.GetSize(); ++i) {
        const std::u16string tip = TipAt(*scene.view, shown[i].rcItem.CenterPoint());
        EXPECT_EQ(shown[i].strText == longText, tip.find(std::u16string(300, u'w')) != std::u16string::npos);
        EXPECT_EQ(shown[i].strText != longText, tip.empty());
    }
    EXPECT_EQ(u"", TipAt(*scene.view, scene.view->m_rcContent.TopLeft() + CSize(20, 60))) << "nothing is there";
    EXPECT_EQ(u"", TipAt(*Scene<CDayViewCtrl>(700).view, CPoint(100, 10)));
    EXPECT_NE(u"", TipAt(*Scene<CDayViewCtrl>(120).view, CPoint(100, 10))) << "the title";
}

// The days of one view show their dates in one form, also where the 9th would have room for a longer one than the 10th.
TEST(GridHeaders, ShowOneForm)
{
    Scene<CWeekDayViewCtrl> scene;
    scene.view->SetViewOption(2, 0);
    scene.view->SetCurrentDate(At(9, 0, 9));
    for (int width = 120; width < 260; ++width) {
        scene.view->MoveWindow(0, 0, width, 300);
        const auto tipOf = [&](int column) {
            return TipAt(*scene.view, CPoint(scene.view->GetColumnRect(column).CenterPoint().x, 40));
        };
        ASSERT_EQ(tipOf(0).empty(), tipOf(1).empty()) << width;
    }
}

// A column and a band with more items than they have room for.
struct CrowdedScene : Scene<CWeekDayViewCtrl>
{
    CrowdedScene() : Scene(500, 500)
    {
        CalendarOptions options;
        options.tidyColumns = options.limitedBand = true;
        for (int i = 0; i < 12; ++i) {
            Add(At(1, 0), At(2, 0));
            Add(At(0, 0, 27), At(0, 0, 27), 1);
        }
        EXPECT_GT(view->m_rcContent.top, 300);
        view->SetOptions(options);
        EXPECT_LE(view->m_rcContent.top, 50 + 500 * 40 / 100);
    }
    CPoint TimedMark() const { return CPoint(view->GetColumnRect(2).right - 12, view->m_rcContent.top + 45); }
};

TEST(GridOptions, MarksOpenAListOfWhatIsHidden)
{
    CrowdedScene scene;
    ASSERT_TRUE(hardware::Focus(*scene.view));
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

    const CPoint timedMark = scene.TimedMark();
    const CPoint bandMark(scene.view->GetColumnRect(3).left + 20, scene.view->m_rcContent.top - 20);
    for (const CPoint mark : {timedMark, bandMark}) {
        scene.parent.ClearLog();
        scene.view->SetCurSel(-1);
        hardware::Click(*scene.view, mark);
        ASSERT_TRUE(scene.view->IsMoreListOpen()) << mark.y;
        hardware::Key(VK_END);
        hardware::Key(VK_RETURN);
        EXPECT_FALSE(scene.view->IsMoreListOpen());
        EXPECT_EQ(mark == timedMark ? 22 : 23, scene.view->GetCurSel());
        EXPECT_EQ(1, scene.parent.Count(CCN_ITEMCLICK));
    }
    // F4 in the cell of such a day; scrolling closes the list.
    scene.view->SetSelRange(At(9, 0, 27), At(9, 0, 27));
    hardware::Key(VK_F4);
    EXPECT_TRUE(scene.view->IsMoreListOpen());
    scene.Scroll(SB_LINEDOWN);
    EXPECT_FALSE(scene.view->IsMoreListOpen());
}

// Into the next column: the hidden item comes to the row where it is dropped.
TEST(GridOptions, HiddenItemsAreDraggedOutOfTheList)
{
    CrowdedScene scene;
    testsupport::messages::LeftDown(scene.view->m_hWnd, scene.TimedMark());
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
    ASSERT_TRUE(hardware::Focus(*scene.view));
    const auto drag = [&scene](CPoint from, CPoint to) {
        hardware::Drag(*scene.view, from, to);
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
    tagCC_ITEM item = drag(row + CSize(30, 0), band); // elsewhere: this is no double click
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
    ASSERT_TRUE(hardware::Focus(*scene.view));
    const auto down = [] { hardware::Key(VK_DOWN); };
    const auto up = [] { hardware::Key(VK_UP); }; // stays at midnight
    const auto date = [&] { scene.view->SetCurrentDate(At(9, 0)); };
    const auto right = [] { hardware::Key(VK_RIGHT); };
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
