// The month view as a window: dates, scrolling, keyboard moves, hit test, and what its parent hears of it.
#include "core/DateMath.h"
#include "support/RecordingParent.h"
#include "views/daygrid/MonthViewCtrl.h"

#include <gtest/gtest.h>

#include <memory>

using testsupport::Notification;
using testsupport::RecordingParent;

namespace
{

constexpr int kWidth = 704; // columns of 100, rows of 100
constexpr int kHeight = 646;
constexpr int kShift = 0x10;

COleDateTime FixedNow()
{
    return COleDateTime(2026, 3, 2, 15, 30, 0);
}

COleDateTime Day(int month, int day)
{
    return COleDateTime(2026, month, day, 0, 0, 0);
}

std::string Text(const COleDateTime& date)
{
    return date.GetStatus() == COleDateTime::valid ? date.Format("%Y-%m-%d %H:%M:%S").GetString() : "none";
}

template <class Call>
bool RaisesInvalidArgument(Call call)
{
    try {
        call();
    } catch (CInvalidArgException* e) {
        e->Delete();
        return true;
    }
    return false;
}

class TestMonth : public CMonthViewCtrl
{
public:
    using CMonthViewCtrl::GetCurCellRect;
    using CMonthViewCtrl::InvalidateCellRect;
    using CMonthViewCtrl::InvalidateCellRectRange;
    using CMonthViewCtrl::m_arItem;
    using CMonthViewCtrl::m_arScreenItem;
    using CMonthViewCtrl::m_dtCurrent;
    using CMonthViewCtrl::m_dtSelBegin;
    using CMonthViewCtrl::m_dtSelEnd;
    using CMonthViewCtrl::MoveBackward;
    using CMonthViewCtrl::MoveForward;
    using CMonthViewCtrl::MoveLeftward;
    using CMonthViewCtrl::MoveRightward;

    void AddDay(const COleDateTime& start, const COleDateTime& end, const char* text = "item")
    {
        tagCC_ITEM item;
        item.dtStart = start;
        item.dtEnd = end;
        item.strText = text;
        AddItem(&item);
    }
    CRect UpdateRect()
    {
        CRect rect(0, 0, 0, 0);
        GetUpdateRect(&rect, FALSE);
        return rect;
    }
};

class MonthView : public testing::Test
{
protected:
    void SetUp() override
    {
        SetCalendarClock(FixedNow);
        ASSERT_TRUE(parent.Create(kWidth + 50, kHeight + 50));
        view = std::make_unique<TestMonth>();
        ASSERT_TRUE(view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 0, 0), &parent, 7));
        view->MoveWindow(0, 0, kWidth + ::GetSystemMetrics(SM_CXVSCROLL), kHeight);
        view->SetCurrentDate(Day(4, 15)); // 29 March .. 9 May
        view->Refresh();
        parent.ClearLog();
    }
    void TearDown() override { SetCalendarClock(nullptr); }

    std::string Range()
    {
        COleDateTime first;
        COleDateTime last;
        view->GetViewRange(first, last);
        return Text(first) + " .. " + Text(last);
    }
    std::string Selection() { return Text(view->m_dtSelBegin) + " .. " + Text(view->m_dtSelEnd); }
    void ValidateAll() { ::ValidateRect(view->m_hWnd, nullptr); }
    tagCCHITTESTINFO HitAt(int x, int y)
    {
        tagCCHITTESTINFO hit;
        hit.pt = CPoint(x, y);
        view->HitTest(hit);
        return hit;
    }

    RecordingParent parent;
    std::unique_ptr<TestMonth> view;
};

} // namespace

TEST_F(MonthView, IsLaidOutByItsSize)
{
    char name[64] = "";
    ::GetClassName(view->m_hWnd, name, sizeof(name));
    EXPECT_STREQ(name, "MFCMonthViewCtrl");
    EXPECT_TRUE(view->GetCell(8).m_rect == CRect(100, 146, 200, 246));
    EXPECT_TRUE(view->GetCell(41).m_rect == CRect(600, 546, 703, 645));
    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    view->SetScrollPos(SB_VERT, 3, FALSE);
    view->MoveWindow(0, 0, 300, 200);
    view->GetScrollInfo(SB_VERT, &info);
    EXPECT_EQ(info.nMin, 1);
    EXPECT_EQ(info.nMax, 52);
    EXPECT_EQ(info.nPage, 1u);
    EXPECT_EQ(info.nPos, 26) << "a new size puts the thumb into the middle";
    EXPECT_TRUE(RaisesInvalidArgument([this] { view->GetCell(42); }));
    std::unique_ptr<CObject> made(RUNTIME_CLASS(CMonthViewCtrl2)->CreateObject());
    EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CMonthViewCtrl)));
}

TEST_F(MonthView, SetCurrentDateRefreshesTheStoredItemsAndLeavesTheScreenItems)
{
    view->AddDay(Day(4, 15), Day(4, 15));
    view->SetCurSel(0);
    view->SetCurrentDate(COleDateTime(2026, 5, 20, 11, 0, 0));
    EXPECT_EQ(Range(), "2026-04-26 00:00:00 .. 2026-06-06 23:59:59");
    EXPECT_EQ(Selection(), "2026-05-20 00:00:00 .. 2026-05-20 00:00:00");
    EXPECT_EQ(Text(view->GetCurrentDate()), "2026-05-20 11:00:00");
    EXPECT_EQ(view->GetCurSel(), -1);
    EXPECT_EQ(view->GetScrollPos(SB_VERT), 4) << "the month counted from 0";
    EXPECT_TRUE(view->m_arItem[0].rcItem == CRect(-1, -1, -1, -1));
    ASSERT_EQ(view->m_arScreenItem.GetSize(), 1);
    EXPECT_TRUE(view->m_arScreenItem[0].rcItem == CRect(301, 262, 399, 282));
    EXPECT_EQ(parent.Log().size(), 0u);
    view->Refresh();
    EXPECT_EQ(view->m_arScreenItem.GetSize(), 0);

    view->SetFirstDayOfWeek(2);
    EXPECT_EQ(Range(), "2026-04-27 00:00:00 .. 2026-06-07 23:59:59");
    EXPECT_EQ(Text(view->GetCurrentDate()), "2026-05-20 11:00:00");
}

TEST_F(MonthView, ScrollingMovesGridSelectionAndItems)
{
    struct Case
    {
        const char* name;
        WPARAM wParam;
        int position, days;
    };
    const Case cases[] = {
        {"line up", SB_LINEUP, 25, -7},
        {"line down", SB_LINEDOWN, 27, 7},
        {"page up", SB_PAGEUP, 24, -14},
        {"page down", SB_PAGEDOWN, 28, 14},
        {"top", SB_TOP, 1, -182},
        {"bottom", SB_BOTTOM, 52, 182},
        {"thumb, 15 April is in week 15", MAKEWPARAM(SB_THUMBTRACK, 18), 18, 21},
    };
    view->AddDay(Day(4, 15), Day(4, 15));
    for (const Case& c : cases) {
        view->SetCurrentDate(Day(4, 15));
        view->Refresh();
        view->SetScrollPos(SB_VERT, 26, FALSE);
        parent.ClearLog();
        view->SendMessage(WM_VSCROLL, c.wParam);
        const COleDateTime date = dayvane::AddDays(Day(4, 15), c.days);
        EXPECT_EQ(Text(view->m_dtCurrent), Text(date)) << c.name;
        EXPECT_EQ(Selection(), Text(date) + " .. " + Text(date)) << c.name;
        EXPECT_EQ(Text(view->GetCellDate(0).m_date), Text(dayvane::AddDays(Day(3, 29), c.days))) << c.name;
        EXPECT_EQ(view->GetScrollPos(SB_VERT), c.position) << c.name;
        const bool itemShown = c.days > -182 && c.days < 182 && c.days <= 14;
        EXPECT_EQ(view->m_arScreenItem.GetSize(), itemShown ? 1 : 0) << c.name;
        ASSERT_EQ(parent.Names(), (std::vector<std::string>{"CCN_SELDATECHANGE", "CCN_VIEWRANGECHANGE"})) << c.name;
        EXPECT_EQ(testsupport::TimeText(parent.Log()[0].item.time), Text(date)) << c.name;
        const NMCALENDARDATES& dates = parent.Log()[1].dates;
        EXPECT_EQ(dates.nValue, 4104);
        EXPECT_EQ(testsupport::TimeText(dates.stDate), Text(date)) << c.name;
        EXPECT_EQ(testsupport::TimeText(dates.stFirst) + " .. " + testsupport::TimeText(dates.stLast), Range());
    }
}

TEST_F(MonthView, ScrollCodesThatMoveNothing)
{
    view->SendMessage(WM_VSCROLL, SB_ENDSCROLL);
    EXPECT_EQ(parent.Log().size(), 0u);
    view->SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 15));
    EXPECT_EQ(Range(), "2026-03-29 00:00:00 .. 2026-05-09 23:59:59");
    EXPECT_EQ(parent.Names(), std::vector<std::string>{"CCN_VIEWRANGECHANGE"}) << "no date was moved";
    parent.ClearLog();
    view->SetCurrentDate(COleDateTime(9999, 12, 28, 0, 0, 0));
    view->SendMessage(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(Text(view->m_dtCurrent), "9999-12-28 00:00:00");
    EXPECT_EQ(parent.Log().size(), 0u);
    view->SendMessage(WM_VSCROLL, SB_LINEUP);
    EXPECT_EQ(Text(view->m_dtCurrent), "9999-12-21 00:00:00");
}

TEST_F(MonthView, KeyboardMovesTheSelectionAndScrollsAtTheEdge)
{
    struct Case
    {
        const char* name;
        void (CMonthViewCtrl::*move)(UINT);
        COleDateTime from, to;
        int scrolledWeeks;
    };
    const Case cases[] = {
        {"up", &TestMonth::MoveForward, Day(4, 15), Day(4, 8), 0},
        {"down", &TestMonth::MoveBackward, Day(4, 15), Day(4, 22), 0},
        {"left over the row's begin", &TestMonth::MoveLeftward, Day(4, 12), Day(4, 11), 0},
        {"right", &TestMonth::MoveRightward, Day(4, 15), Day(4, 16), 0},
        {"left from the first day", &TestMonth::MoveLeftward, Day(3, 29), Day(3, 28), -1},
        {"up from the first row", &TestMonth::MoveForward, Day(4, 2), Day(3, 26), -1},
        {"right from the last day", &TestMonth::MoveRightward, Day(5, 9), Day(5, 10), 1},
        {"down from the last row", &TestMonth::MoveBackward, Day(5, 3), Day(5, 10), 1},
    };
    for (const Case& c : cases) {
        for (int flags : {0, kShift}) {
            view->SetCurrentDate(Day(4, 15));
            view->SetSelRange(Day(4, 20), c.from);
            parent.ClearLog();
            (view.get()->*c.move)(flags);
            const COleDateTime begin = flags == kShift ? Day(4, 20) : c.to;
            EXPECT_EQ(Selection(), Text(begin) + " .. " + Text(c.to)) << c.name;
            EXPECT_EQ(Text(view->GetCellDate(0).m_date), Text(dayvane::AddDays(Day(3, 29), 7 * c.scrolledWeeks)))
                << c.name;
            EXPECT_EQ(parent.Count(CCN_VIEWRANGECHANGE), c.scrolledWeeks != 0 ? 1 : 0) << c.name;
        }
    }
}

TEST_F(MonthView, HitTestTellsDateItemAndCode)
{
    for (int i = 0; i < 5; ++i)
        view->AddDay(Day(4, 15), Day(4, 15)); // cell (300, 246): lanes at 262, 282, 302, 322; the fifth is hidden
    struct Case
    {
        const char* name;
        int x, y, code, item;
        const char* date;
    };
    const Case cases[] = {
        {"title band", 350, 20, CCHT_NOWHERE, -1, "none"},
        {"weekday row", 350, 40, CCHT_NOWHERE, -1, "none"},
        {"first cell", 0, 46, CCHT_ONDAYCAPTION, -1, "2026-03-29 00:00:00"},
        {"last line of the strip", 350, 265, CCHT_ONDAYCAPTION, 0, "2026-04-15 00:00:00"},
        {"below the strip", 350, 266, CCHT_ONITEM, 0, "2026-04-15 00:00:00"},
        {"second lane", 350, 282, CCHT_ONITEM, 1, "2026-04-15 00:00:00"},
        {"beside the bar", 300, 282, CCHT_ONCELL, -1, "2026-04-15 00:00:00"},
        {"where a hidden bar would be", 350, 343, CCHT_ONCELL, -1, "2026-04-15 00:00:00"},
        {"the border at the right", 703, 300, CCHT_NOWHERE, -1, "none"},
    };
    for (const Case& c : cases) {
        const tagCCHITTESTINFO hit = HitAt(c.x, c.y);
        EXPECT_EQ(hit.nHitCode, c.code) << c.name;
        EXPECT_EQ(hit.nItem, c.item) << c.name;
        EXPECT_EQ(hit.nScreenItem, c.item) << c.name;
        EXPECT_EQ(testsupport::TimeText(hit.time), c.date) << c.name;
    }
    EXPECT_EQ(view->GetCell(17).m_bMore, 1);
    view->DeleteAllItems();
    EXPECT_EQ(view->GetCell(17).m_bMore, 0) << "nothing is hidden any more";
    EXPECT_EQ(HitAt(350, 270).nItem, -1);
}

TEST_F(MonthView, DayPropertiesBelongToTheShownDays)
{
    tagCALENDAR_DAY_PROPERTY property;
    property.strText = "memo";
    property.nDayColor = 4;
    property.nReserved = 9;
    view->SetDayProperty(COleDateTime(2026, 4, 15, 18, 0, 0), property);
    view->SetDayProperty(Day(7, 1), property); // not shown
    view->SetDayColor(Day(3, 29), 6);
    EXPECT_EQ(view->GetDayColor(17), 4);
    EXPECT_STREQ(view->GetCellDate(17).m_dayProperty.strText, "memo");
    EXPECT_EQ(view->GetCellDate(17).m_dayProperty.nReserved, 9);
    EXPECT_EQ(view->GetDayColor(0), 6);
    for (int outside : {-1, 42})
        EXPECT_TRUE(RaisesInvalidArgument([this, outside] { view->GetDayColor(outside); }));
    view->ClearDayProperty();
    EXPECT_EQ(view->GetDayColor(17), 0);
    EXPECT_STREQ(view->GetCellDate(17).m_dayProperty.strText, "");
}

TEST_F(MonthView, InvalidatesNoMoreThanTheCells)
{
    ValidateAll();
    view->InvalidateCellRect(Day(4, 15));
    EXPECT_TRUE(view->UpdateRect() == CRect(298, 244, 402, 348));
    ValidateAll();
    view->InvalidateCellRect(Day(7, 1));
    EXPECT_TRUE(view->UpdateRect() == CRect(0, 0, 0, 0));
    view->SetSelRange(Day(4, 14), Day(4, 11)); // the later date first, over the end of a row
    view->InvalidateCellRectRange();
    EXPECT_TRUE(view->UpdateRect() == CRect(0, 146, 703, 346));
    ValidateAll();
    view->SetSelRange(Day(1, 1), Day(3, 30));
    view->InvalidateCellRectRange();
    EXPECT_TRUE(view->UpdateRect() == CRect(0, 46, 200, 146));

    CRect rect;
    int found = 0;
    view->SetSelRange(Day(4, 15), Day(4, 20));
    view->GetCurCellRect(rect, found);
    EXPECT_EQ(found, 1);
    EXPECT_TRUE(rect == CRect(300, 246, 400, 346));
    view->SetSelRange(Day(7, 1), Day(4, 20));
    view->GetCurCellRect(rect, found);
    EXPECT_EQ(found, 0);
}

TEST_F(MonthView, SurvivesWhatAHostDoesWhileItScrolls)
{
    for (int code : {CCN_SELDATECHANGE, CCN_VIEWRANGECHANGE}) {
        parent.SetHook([&](const Notification& notification) -> LRESULT {
            if (notification.Code() == code) {
                view->SetCurrentDate(Day(8, 1));
                view->DeleteAllItems();
            }
            return 0;
        });
        view->AddDay(Day(4, 15), Day(4, 15));
        view->SendMessage(WM_VSCROLL, SB_LINEDOWN);
        EXPECT_EQ(view->GetItemCount(), 0);
        EXPECT_EQ(view->m_dtCurrent.GetMonth(), 8);

        parent.SetHook([&](const Notification& notification) -> LRESULT {
            if (notification.Code() == code)
                view.reset();
            return 0;
        });
        const HWND window = view->m_hWnd;
        view->SetSelRange(Day(1, 1), Day(1, 1));
        view->MoveLeftward(0); // sends itself the scroll message
        EXPECT_FALSE(view) << "the host deletes the control in its own notification";
        EXPECT_FALSE(::IsWindow(window));
        parent.SetHook(nullptr);
        view = std::make_unique<TestMonth>();
        ASSERT_TRUE(view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, kWidth, kHeight), &parent, 7));
    }
}
