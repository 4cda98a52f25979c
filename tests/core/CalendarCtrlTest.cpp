// The base control in a real window: settings, hit test, notifications, keyboard and mouse.
#include "PlainCalendar.h"

#include "support/Input.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace coretest;
using namespace testsupport;
using Lines = std::vector<std::string>;

namespace {

TEST(CalendarCtrl, DefaultsThatHostsRelyOn)
{
    const int rowsBefore = static_cast<int>(CCalendarCtrl::m_arDayColors.GetSize());
    CCalendarCtrl first, second;
    EXPECT_EQ(CCalendarCtrl::m_arDayColors.GetSize(), rowsBefore + 14);
    std::string workDays;
    for (int day = 0; day <= 8; ++day) {
        workDays += std::to_string(first.IsWorkDayOfWeek(day));
    }
    EXPECT_EQ(workDays, "001111100");
    EXPECT_TRUE(first.IsWorkDayOfWeek(COleDateTime(2017, 4, 28, 0, 0, 0)));
    EXPECT_FALSE(first.IsWorkDayOfWeek(COleDateTime(2017, 4, 29, 0, 0, 0)));
    std::string workRows;
    for (int row : {11, 12, 35, 36, -1}) {
        workRows += std::to_string(first.IsWorkTime(row));
    }
    EXPECT_EQ(workRows, "01100") << "06:00 to 18:00 in half hours";
    EXPECT_EQ(first.GetFont(2), first.GetFont(3));
    EXPECT_NE(first.GetFont(0), first.GetFont(1));
    for (int bad : {0, -1, 61}) {
        EXPECT_THROW(first.SetTimeScale(bad), CInvalidArgException*) << bad;
    }
    EXPECT_EQ(first.Create(WS_CHILD, CRect(0, 0, 1, 1), nullptr, 1), TRUE);
    EXPECT_EQ(first.m_hWnd, nullptr);
}

// Where the operation stands in the table of virtual operations, in entries: how this compiler keeps a member pointer.
template <class Result, class... Args>
ptrdiff_t SlotOf(Result (CCalendarCtrl::*operation)(Args...))
{
    ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof(offset));
    return offset / static_cast<ptrdiff_t>(sizeof(void*));
}

TEST(CalendarCtrl, VirtualOperationsKeepTheirSlots)
{
    using C = CCalendarCtrl;
    const ptrdiff_t slots[] = {SlotOf(&C::Create),
                               SlotOf(&C::SetFirstDayOfWeek),
                               SlotOf(&C::HitTest),
                               SlotOf(&C::GetCurrentDate),
                               SlotOf(&C::SetCurrentDate),
                               SlotOf(&C::GetSelDate),
                               SlotOf(&C::SetSelDate),
                               SlotOf(&C::GetViewRange),
                               SlotOf(&C::SetDayColor),
                               SlotOf(&C::SetDayProperty),
                               SlotOf(&C::GetDayProperty),
                               SlotOf(&C::ClearDayProperty),
                               SlotOf(&C::GetDayColor),
                               SlotOf(&C::AddItem),
                               SlotOf(&C::InsertItem),
                               SlotOf(&C::SetItem),
                               SlotOf(&C::DeleteItem),
                               SlotOf(&C::DeleteAllItems),
                               SlotOf<void, int, int>(&C::Layout),
                               SlotOf(&C::DoPrint),
                               SlotOf(&C::GetSelRange)};
    for (int i = 1; i < 21; ++i) {
        EXPECT_EQ(slots[i], slots[0] + i) << i;
    }
    // Between these stand the protected ones.
    EXPECT_EQ(SlotOf(&C::SortItem), slots[0] + 32);
    EXPECT_EQ(SlotOf(&C::BeginEditItem), slots[0] + 34);
    EXPECT_EQ(SlotOf(&C::SetFocusToItem), slots[0] + 36);
    EXPECT_EQ(SlotOf(&C::SyncToPresent), slots[0] + 41);
}

TEST(CalendarCtrl, TimeScaleKeepsTheScrollPositionInProportion)
{
    CalendarScene scene(WS_VSCROLL);
    SCROLLINFO bar = {sizeof(bar), SIF_ALL, 0, 18, 1, 2, 0};
    scene.calendar->SetScrollInfo(SB_VERT, &bar);
    scene.calendar->SetTimeScale(4);
    scene.calendar->GetScrollInfo(SB_VERT, &bar, SIF_ALL);
    EXPECT_EQ(bar.nMax, 67) << "96 rows of which 30 are in sight, and one";
    EXPECT_EQ(bar.nPos, 10) << "three of 19, of 67, rounded down";
    EXPECT_EQ(scene.calendar->GetVertScrollOffset(), 200);
}

TEST(CalendarCtrl, PaintsTheGridTwiceAndRepaintsAroundAnItem)
{
    CalendarScene scene;
    PlainCalendar& ctrl = *scene.calendar;
    ctrl.drawn.clear();
    ctrl.DrawCtrl(nullptr);
    EXPECT_EQ(ctrl.drawn, "grid ruler grid items caption ");
    ctrl.m_rcContent.top = 100;
    ctrl.m_nVertScroll = 30;
    for (const auto& [item, box] : {std::pair{1, CRect(0, 208, 300, 292)}, std::pair{0, CRect(0, 98, 300, 132)}}) {
        ctrl.ValidateRect(nullptr);
        ctrl.InvalidateItemRect(item);
        CRect repainted;
        ctrl.GetUpdateRect(&repainted, FALSE);
        EXPECT_EQ(repainted, box) << item;
    }
}

TEST(CalendarCtrl, ChangesBetweenBeginAndEndUpdateShowAtTheEnd)
{
    CalendarScene scene;
    CCalendarCtrl& calendar = *scene.calendar;
    calendar.UpdateWindow();
    tagCC_ITEM three[3];
    for (tagCC_ITEM& item : three) {
        item.dtStart = At(9);
        item.dtEnd = At(10);
    }
    calendar.BeginUpdate();
    calendar.AddItems(three, 3);
    calendar.BeginUpdate();
    calendar.DeleteItem(0);
    calendar.EndUpdate();
    EXPECT_EQ(calendar.GetItemCount(), 4);
    EXPECT_EQ(calendar.GetScreenItems().GetSize(), 2);
    EXPECT_FALSE(calendar.GetUpdateRect(nullptr));
    calendar.EndUpdate();
    EXPECT_EQ(calendar.GetScreenItems().GetSize(), 4);
    EXPECT_TRUE(calendar.GetUpdateRect(nullptr));
    calendar.UpdateWindow();
    calendar.BeginUpdate();
    calendar.SetItem(0, three, FALSE, FALSE); // asks for nothing: nothing waits
    calendar.EndUpdate();
    EXPECT_FALSE(calendar.GetUpdateRect(nullptr));
    calendar.EndUpdate(); // one too many
    calendar.AddItem(three);
    EXPECT_EQ(calendar.GetScreenItems().GetSize(), 5);
}

TEST(CalendarCtrl, SelectionRules)
{
    CalendarScene scene;
    PlainCalendar& ctrl = *scene.calendar;
    EXPECT_EQ(ctrl.SetCurSel(2), 2) << "equal to the count";
    EXPECT_EQ(ctrl.SetCurSel(3), -1);
    EXPECT_EQ(ctrl.GetCurSel(), 2);
    ctrl.SetSelScreenItem(1);
    ctrl.calls.clear();
    ctrl.SetCurSel(1);
    EXPECT_EQ(ctrl.calls, Lines());
    ctrl.SetCurSel(-1);
    EXPECT_EQ(ctrl.calls, Lines{"range"}) << "the selection shows while no item is current";
    EXPECT_EQ(ctrl.GetSelScreenItem(), -1);
    COleDateTime begin, end;
    ctrl.SetSelRange(At(9), At(8));
    EXPECT_EQ(ctrl.GetSelRange(begin, end), 1);
    EXPECT_TRUE(begin == At(8) && end == At(9));
    ctrl.SetSelRange(COleDateTime(0.0), At(8));
    EXPECT_EQ(ctrl.GetSelRange(begin, end), 0);
    EXPECT_EQ(ctrl.GetItemData(-1), -1);
    EXPECT_EQ(ctrl.GetItemData(3), 0);
    EXPECT_EQ(ctrl.IsItemMovable(3), 1);
}

TEST(CalendarCtrl, HitTestByRows)
{
    CalendarScene scene;
    PlainCalendar& ctrl = *scene.calendar;
    ctrl.m_rcContent = CRect(60, 30, 300, 600);
    const struct
    {
        CPoint point;
        int scroll, code, item, hour, minute;
    } rows[] = {
        {{100, 30}, 0, CCHT_ONCELL, -1, 0, 0},      {{100, 69}, 0, CCHT_ONCELL, -1, 0, 30},
        {{299, 90}, 0, CCHT_ONITEM, 0, 1, 30},      {{59, 100}, 0, CCHT_ONITEM, 0, -1, -1},
        {{59, 50}, 0, CCHT_NOWHERE, -1, -1, -1},    {{100, 29}, 0, CCHT_NOWHERE, -1, -1, -1},
        {{100, 30}, 960, CCHT_ONCELL, -1, -1, -1},  {{100, 49}, 960, CCHT_ONCELL, -1, -1, -1},
        {{100, 50}, 960, CCHT_NOWHERE, -1, -1, -1},
    };
    for (const auto& row : rows) {
        ctrl.m_nVertScroll = row.scroll;
        tagCCHITTESTINFO hit;
        hit.pt = row.point;
        hit.time.wYear = 1;
        EXPECT_EQ(ctrl.CCalendarCtrl::HitTest(hit), row.item);
        EXPECT_EQ(hit.nHitCode, row.code) << row.point.x << ',' << row.point.y << " scrolled " << row.scroll;
        if (row.hour >= 0) {
            EXPECT_TRUE(hit.time.wHour == row.hour && hit.time.wMinute == row.minute);
        } else {
            EXPECT_EQ(hit.time.wYear, 1) << "no valid time: left as it was";
        }
    }
}

TEST(CalendarCtrl, KeysAndARestingMouseAndTheirNotifications)
{
    CalendarScene scene;
    PlainCalendar& ctrl = *scene.calendar;
    const Lines kNone;
    ctrl.SendMessage(WM_KEYDOWN, VK_RETURN, 5);
    EXPECT_EQ(scene.Reports(), Lines{"CCN_ITEMDBLCLICK item=-1 lParam=-1 time=none hit=4 sub=0"});
    ctrl.SendMessage(WM_KEYDOWN, VK_SPACE);
    EXPECT_EQ(scene.Reports(), Lines{"CCN_ITEMCLICK item=-1 lParam=-1 time=none hit=4 sub=0"});
    ctrl.SendMessage(WM_KEYDOWN, VK_TAB);
    EXPECT_EQ(scene.Reports(), Lines{"CCN_ITEMCLICK item=0 lParam=70 time=2017-04-25 02:00:00 hit=2 sub=0"});
    for (int key : {VK_RETURN, VK_SPACE, VK_PROCESSKEY}) {
        ctrl.SendMessage(WM_KEYDOWN, key, 0x00150001);
        EXPECT_EQ(scene.Reports(), Lines{"CCN_ITEMDBLCLICK item=0 lParam=70 time=2017-04-25 02:00:00 hit=2 sub=21"});
    }
    ctrl.SendMessage(WM_KEYDOWN, VK_LEFT);
    EXPECT_EQ(ctrl.GetCurSel(), 0) << "an index of exactly 0 stays";
    ctrl.SetCurSel(1);
    ctrl.SendMessage(WM_KEYDOWN, VK_RIGHT);
    EXPECT_EQ(ctrl.GetCurSel(), -1);
    EXPECT_EQ(ctrl.calls, (Lines{"range", "left", "range", "right"})) << "the first by Tab, the second as 1 is cleared";
    ctrl.calls.clear();
    {
        KeyState shift({VK_SHIFT});
        ctrl.SendMessage(WM_KEYDOWN, VK_RIGHT);
        ctrl.SendMessage(WM_KEYUP, VK_RIGHT);
        ctrl.SendMessage(WM_KEYUP, VK_RIGHT);
    }
    EXPECT_EQ(ctrl.calls, (Lines{"right+shift", "range"})) << "the first release fixes the anchor";
    EXPECT_EQ(scene.Reports(), kNone);
    ctrl.calls.clear();
    messages::LeftDown(scene.window, PointAt(0));
    ctrl.calls.clear();
    messages::Move(scene.window, PointAt(1));
    messages::LeftUp(scene.window, PointAt(0));
    EXPECT_EQ(ctrl.calls, (Lines{"range", "range"})) << "once a step of a sweep";
    scene.Reports();
    ctrl.SendMessage(WM_MOUSEHOVER, 0, MAKELPARAM(PointAt(3).x, PointAt(3).y));
    EXPECT_EQ(scene.Reports(), Lines{"CCN_MOUSEHOVER item=0 lParam=70 time=2017-04-25 03:00:00 hit=2 sub=0"});
}

TEST(CalendarCtrl, WheelAndPageKeysScrollByMessage)
{
    CalendarScene scene;
    const struct
    {
        UINT message;
        WPARAM wParam;
        int code;
    } rows[] = {
        {WM_MOUSEWHEEL, MAKEWPARAM(0, 120), SB_LINEUP},
        {WM_MOUSEWHEEL, MAKEWPARAM(0, 60), SB_LINEDOWN},
        {WM_MOUSEWHEEL, MAKEWPARAM(0, -120), SB_LINEDOWN},
        {WM_MOUSEWHEEL, MAKEWPARAM(0, 360), SB_LINEUP},
        {WM_KEYDOWN, VK_PRIOR, SB_PAGEUP},
        {WM_KEYDOWN, VK_NEXT, SB_PAGEDOWN},
        {WM_KEYDOWN, VK_UP, SB_LINEUP},
        {WM_KEYDOWN, VK_DOWN, SB_LINEDOWN},
    };
    for (const auto& row : rows) {
        scene.calendar->SendMessage(row.message, row.wParam, 0);
        MSG msg = {};
        ASSERT_TRUE(::PeekMessage(&msg, scene.window, WM_VSCROLL, WM_VSCROLL, PM_REMOVE)) << row.wParam;
        EXPECT_EQ(LOWORD(msg.wParam), row.code) << row.message << ' ' << row.wParam;
        EXPECT_FALSE(::PeekMessage(&msg, scene.window, WM_VSCROLL, WM_VSCROLL, PM_REMOVE)) << "one a message";
    }
}

TEST(CalendarCtrl, IconsNeedAListAndRoom)
{
    CalendarScene scene;
    CClientDC dc(scene.calendar);
    EXPECT_EQ(scene.calendar->DrawImageIcon(&dc, 0, CRect(0, 0, 100, 20)), 0);
    CImageList images, empty;
    images.Create(16, 12, ILC_COLOR24, 1, 1);
    empty.Create(16, 12, ILC_COLOR24, 0, 1);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&dc, 16, 12);
    images.Add(&bitmap, static_cast<CBitmap*>(nullptr));
    EXPECT_EQ(scene.calendar->SetImageList(&empty), 0);
    EXPECT_EQ(scene.calendar->SetImageList(&images), 1);
    CImageList* const copy = scene.calendar->GetImageList();
    EXPECT_NE(copy, &images);
    EXPECT_EQ(scene.calendar->SetImageList(&images), 1);
    EXPECT_EQ(copy->GetImageCount(), 1) << "an earlier copy lives on";
    EXPECT_EQ(scene.calendar->DrawImageIcon(&dc, 0, CRect(0, 0, 17, 20)), 18);
    EXPECT_EQ(scene.calendar->DrawImageIcon(&dc, 0, CRect(0, 0, 16, 20)), 0);
    EXPECT_EQ(scene.calendar->DrawImageIcon(&dc, -1, CRect(0, 0, 100, 20)), 0);
}

} // namespace
