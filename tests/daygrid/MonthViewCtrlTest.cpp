// The month view as a window: dates, scrolling, keyboard moves, hit test, and the notifications to its parent.
#include "DayGridScene.h"

using namespace testsupport;

namespace {

CRect UpdateRectOf(CWnd& window)
{
    CRect rect(0, 0, 0, 0);
    ::GetUpdateRect(window.m_hWnd, &rect, FALSE);
    window.ValidateRect(nullptr);
    return rect;
}

} // namespace

TEST(MonthView, IsLaidOutByItsSize)
{
    Month scene;
    char name[64] = "";
    ::GetClassName(scene.view->m_hWnd, name, sizeof(name));
    EXPECT_STREQ(name, "MFCMonthViewCtrl");
    EXPECT_EQ(Text(scene.view->GetCell(41).m_rect), "(600, 546, 705, 646)");
    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    scene.view->SetScrollPos(SB_VERT, 3, FALSE);
    scene.view->MoveWindow(0, 0, 300, 200);
    scene.view->GetScrollInfo(SB_VERT, &info);
    EXPECT_EQ(info.nMin, 1);
    EXPECT_EQ(info.nMax, 52);
    EXPECT_EQ(info.nPage, 1u);
    EXPECT_EQ(info.nPos, 26) << "a new size puts the thumb into the middle";
    EXPECT_TRUE(RaisesInvalidArgument([&scene] { scene.view->GetCell(42); }));
}

TEST(MonthView, SetCurrentDateRefreshesTheStoredItemsAndLeavesTheScreenItems)
{
    Month scene(Day(4, 15));
    scene.Add(Day(4, 15), Day(4, 15));
    scene.view->SetCurSel(0);
    scene.view->SetCurrentDate(COleDateTime(2026, 5, 20, 11, 0, 0));
    EXPECT_EQ(scene.Range(), "2026-04-26 2026-06-06");
    EXPECT_EQ(scene.Selection(), "2026-05-20 2026-05-20");
    EXPECT_EQ(Text(scene.view->GetCurrentDate()), "2026-05-20 11:00:00");
    EXPECT_EQ(scene.view->GetCurSel(), -1);
    EXPECT_EQ(scene.view->GetScrollPos(SB_VERT), 4) << "the month counted from 0";
    EXPECT_EQ(Text(scene.view->m_arItem[0].rcItem), "(-1, -1, -1, -1)");
    ASSERT_EQ(scene.view->GetScreenItems().GetSize(), 1);
    EXPECT_EQ(Text(scene.view->GetScreenItems()[0].rcItem), "(301, 262, 399, 282)");
    EXPECT_EQ(scene.parent.Lines(), Lines());
    scene.view->Refresh();
    EXPECT_EQ(scene.view->GetScreenItems().GetSize(), 0);

    scene.view->SetFirstDayOfWeek(2);
    EXPECT_EQ(scene.Range(), "2026-04-27 2026-06-07");
    EXPECT_EQ(Text(scene.view->GetCurrentDate()), "2026-05-20 11:00:00");
}

TEST(MonthView, ScrollingMovesGridSelectionAndItems)
{
    ExpectAfterDrop<CMonthViewCtrl>(Day(4, 15), 60, "2027-02-07 2027-03-20", 52);
    Month scene(Day(4, 15));
    scene.Add(Day(4, 15), Day(4, 15));
    EXPECT_EQ(scene.Scroll(SB_PAGEDOWN),
              (Lines{"CCN_SELDATECHANGE item=-1 lParam=-1 time=2026-04-29 00:00:00 hit=4 sub=0",
                     "CCN_VIEWRANGECHANGE date=2026-04-29 00:00:00 first=2026-04-12 00:00:00 last=2026-05-23 23:59:59 "
                     "value=4104"}));
    EXPECT_EQ(scene.Selection(), "2026-04-29 2026-04-29");
    EXPECT_EQ(Text(scene.view->GetCurrentDate()), "2026-04-29");
    EXPECT_EQ(scene.view->GetScreenItems().GetSize(), 1);
    scene.Scroll(SB_LINEDOWN);
    EXPECT_EQ(scene.view->GetScreenItems().GetSize(), 0);
}

TEST(MonthView, ScrollCodesThatMoveNothing)
{
    Month scene(Day(4, 15));
    EXPECT_EQ(scene.Scroll(SB_ENDSCROLL), Lines());
    scene.Scroll(SB_THUMBTRACK, 15);
    EXPECT_EQ(scene.Range(), "2026-03-29 2026-05-09");
    EXPECT_EQ(scene.parent.Names(), Lines{"CCN_VIEWRANGECHANGE"}) << "no date was moved";
    scene.view->SetSelRange(Day(4, 15), Day(4, 16));
    scene.Scroll(SB_THUMBTRACK, 15);
    EXPECT_EQ(scene.Selection(), "2026-04-15 2026-04-15");
    EXPECT_EQ(scene.parent.Names(), (Lines{"CCN_SELDATECHANGE", "CCN_VIEWRANGECHANGE"})) << "the selection was";
}

TEST(MonthView, KeysMoveTheSelectionAndScrollAtTheEdge)
{
    Month scene(Day(4, 15));
    ExpectAfterKeys(scene,
                    {{{VK_UP}, "2026-04-08 2026-04-08", "2026-03-29 2026-05-09"},
                     {{VK_LEFT, VK_UP}, "2026-03-31 2026-03-31", "2026-03-29 2026-05-09"},
                     {{VK_UP}, "2026-03-24 2026-03-24", "2026-03-22 2026-05-02"},
                     {{VK_LEFT, VK_LEFT}, "2026-03-22 2026-03-22", "2026-03-22 2026-05-02"},
                     {{VK_LEFT}, "2026-03-21 2026-03-21", "2026-03-15 2026-04-25"},
                     {{VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN}, "2026-04-25 2026-04-25", "2026-03-15 2026-04-25"},
                     {{VK_RIGHT}, "2026-04-26 2026-04-26", "2026-03-22 2026-05-02"}});
    const KeyState shift({VK_SHIFT});
    scene.view->SendMessage(WM_KEYDOWN, VK_DOWN);
    scene.view->SendMessage(WM_KEYDOWN, VK_RIGHT);
    EXPECT_EQ(scene.Selection(), "2026-04-26 2026-05-04");
    EXPECT_EQ(scene.Range(), "2026-03-29 2026-05-09") << "the scroll message is sent, not posted";
    EXPECT_EQ(Text(scene.view->GetCurrentDate()), "2026-04-15") << "scrolled there and back, without the selection";
}

TEST(MonthView, HitTestFindsDateItemAndCode)
{
    Month scene(Day(4, 15));
    scene.Add(Day(4, 15), Day(4, 15), 5); // cell (300, 246): lanes at 262, 282, 302, 322; the fifth is hidden
    struct Case
    {
        const char* name;
        int x, y;
        const char* hit;
    };
    const Case cases[] = {
        {"title band", 350, 20, "none hit=1 item=-1"},
        {"weekday row", 350, 40, "none hit=1 item=-1"},
        {"first cell", 0, 46, "2026-03-29 hit=8 item=-1"},
        {"last line of the strip", 350, 265, "2026-04-15 hit=8 item=0"},
        {"below the strip", 350, 266, "2026-04-15 hit=2 item=0"},
        {"second lane", 350, 282, "2026-04-15 hit=2 item=1"},
        {"beside the bar", 300, 282, "2026-04-15 hit=4 item=-1"},
        {"where a hidden bar would be", 350, 343, "2026-04-15 hit=4 item=-1"},
        {"the border at the right", 705, 300, "none hit=1 item=-1"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(scene.HitAt(c.x, c.y), c.hit) << c.name;
    }
    EXPECT_EQ(scene.view->GetCell(17).m_bMore, 1);
    scene.view->DeleteAllItems();
    EXPECT_EQ(scene.view->GetCell(17).m_bMore, 0) << "nothing is hidden any more";
    EXPECT_EQ(scene.HitAt(350, 270), "2026-04-15 hit=4 item=-1");
}

TEST(MonthView, DayPropertiesBelongToTheShownDays)
{
    Month scene(Day(4, 15));
    tagCALENDAR_DAY_PROPERTY property;
    property.strText = "memo";
    property.nDayColor = 4;
    property.nReserved = 9;
    scene.view->SetDayProperty(COleDateTime(2026, 4, 15, 18, 0, 0), property);
    scene.view->SetDayProperty(Day(7, 1), property); // not shown
    scene.view->SetDayColor(Day(3, 29), 6);
    const tagCALENDAR_DAY_PROPERTY& kept = scene.view->GetCellDate(17).m_dayProperty;
    EXPECT_EQ(scene.view->GetDayColor(17), 4);
    EXPECT_STREQ(kept.strText, "memo");
    EXPECT_EQ(kept.nReserved, 9);
    EXPECT_EQ(scene.view->GetDayColor(0), 6);
    for (int outside : {-1, 42}) {
        EXPECT_TRUE(RaisesInvalidArgument([&scene, outside] { scene.view->GetDayColor(outside); }));
    }
    scene.view->ClearDayProperty();
    EXPECT_EQ(scene.view->GetDayColor(17), 0);
    EXPECT_STREQ(kept.strText, "");
}

TEST(MonthView, InvalidatesNoMoreThanTheCells)
{
    Month scene(Day(4, 15));
    UpdateRectOf(*scene.view);
    scene.view->InvalidateCellRect(Day(4, 15));
    EXPECT_EQ(Text(UpdateRectOf(*scene.view)), "(298, 244, 402, 348)");
    scene.view->InvalidateCellRect(Day(7, 1));
    EXPECT_EQ(Text(UpdateRectOf(*scene.view)), "(0, 0, 0, 0)");
    scene.view->SetSelRange(Day(4, 14), Day(4, 11)); // the later date first, over the end of a row
    scene.view->InvalidateCellRectRange();
    EXPECT_EQ(Text(UpdateRectOf(*scene.view)), "(0, 146, 705, 346)");
    scene.view->SetSelRange(Day(1, 1), Day(3, 30));
    scene.view->InvalidateCellRectRange();
    EXPECT_EQ(Text(UpdateRectOf(*scene.view)), "(0, 46, 200, 146)");
    scene.view->SendMessage(WM_LBUTTONDOWN, 0, MAKELPARAM(350, 340));
    scene.view->SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(550, 340));
    UpdateRectOf(*scene.view);
    scene.view->SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(450, 340));
    EXPECT_EQ(Text(UpdateRectOf(*scene.view)), "(300, 246, 600, 346)") << "a sweep that goes back leaves a cell";
    scene.view->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(450, 340));

    CRect rect;
    int found = 0;
    scene.view->SetSelRange(Day(4, 15), Day(4, 20));
    scene.view->GetCurCellRect(rect, found);
    EXPECT_EQ(found, 1);
    EXPECT_EQ(Text(rect), "(300, 246, 400, 346)");
    scene.view->SetSelRange(Day(7, 1), Day(4, 20));
    scene.view->GetCurCellRect(rect, found);
    EXPECT_EQ(found, 0);

    for (const bool scrolled : {false, true}) {
        scene.view->SetCurrentDate(Day(4, 15));
        if (scrolled) {
            scene.view->SendMessage(WM_VSCROLL, SB_LINEDOWN);
        }
        UpdateRectOf(*scene.view);
        scene.view->InvalidateCellRectRange();
        EXPECT_EQ(Text(UpdateRectOf(*scene.view)), "(300, 246, 400, 346)") << "not where a selection was long ago";
    }
}
