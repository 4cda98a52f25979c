// The six views in a real frame: dynamic creation, size, focus, forwarding, printing, destruction.
#include "support/GuiCounts.h"
#include "support/Input.h"
#include "support/RecordingParent.h"
#include "views/docview/CalendarViews.h"

#include <gtest/gtest.h>

using namespace testsupport;

namespace {

// A frame that is its views' owner and counts what they pass on.
class Frame : public CFrameWnd
{
public:
    std::vector<NMHDR> told;
    WPARAM lastId = 0;
    const void* lastRecord = nullptr;

protected:
    void PostNcDestroy() override {} // on the stack
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
        told.push_back(*header);
        lastId = wParam;
        lastRecord = header;
        *pResult = 4711;
        return TRUE;
    }
};

CCalendarView* AddView(Frame& frame, CRuntimeClass* viewClass)
{
    CCreateContext context = {};
    context.m_pNewViewClass = viewClass;
    CCalendarView* view = DYNAMIC_DOWNCAST(CCalendarView, frame.CreateView(&context));
    frame.RecalcLayout();
    return view;
}

CRuntimeClass* const kViewClasses[] = {RUNTIME_CLASS(CDayView),    RUNTIME_CLASS(CWeekDayView),
                                       RUNTIME_CLASS(CWeekView),   RUNTIME_CLASS(CMonthView),
                                       RUNTIME_CLASS(CMonthView2), RUNTIME_CLASS(CYearView)};

TEST(CalendarViews, EachViewHostsItsControl)
{
    const char* const controls[] = {"CDayViewCtrl",   "CWeekDayViewCtrl", "CWeekViewCtrl",
                                    "CMonthViewCtrl", "CMonthViewCtrl2",  "CYearViewCtrl"};
    for (int i = 0; i < 6; ++i) {
        Frame frame;
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 500, 400)));
        CCalendarView* view = AddView(frame, kViewClasses[i]);
        ASSERT_NE(view, nullptr) << controls[i];
        CCalendarCtrl* ctrl = view->GetCalendarCtrl();
        ASSERT_NE(ctrl, nullptr) << controls[i];
        EXPECT_STREQ(ctrl->GetRuntimeClass()->m_lpszClassName, controls[i]);
        const DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP;
        EXPECT_EQ(ctrl->GetStyle() & style, style);
        CRect viewRect, ctrlRect;
        view->GetClientRect(&viewRect);
        ctrl->GetWindowRect(&ctrlRect);
        EXPECT_EQ(ctrlRect.Size(), viewRect.Size()) << controls[i];
        view->SetFocus();
        EXPECT_EQ(::GetFocus(), ctrl->m_hWnd) << controls[i];

        tagCC_ITEM item;
        item.lParam = 5;
        EXPECT_EQ(view->AddItem(&item), 1);
        EXPECT_EQ(view->SetItem(0, &item), 1);
        EXPECT_EQ(view->InsertItem(2, &item), 1);
        EXPECT_EQ(view->DeleteItem(1), 1);
        EXPECT_EQ(view->GetItem(1, item), 1);
        EXPECT_EQ(ctrl->GetItemCount(), 2);

        frame.told.clear();
        messages::RightClick(ctrl->m_hWnd, CPoint(100, 100));
        ASSERT_FALSE(frame.told.empty()) << controls[i];
        EXPECT_EQ(frame.told[0].hwndFrom, ctrl->m_hWnd) << "the record as the control made it";
        EXPECT_EQ(static_cast<int>(frame.told[0].code), CCN_ITEMRCLICK);
        EXPECT_EQ(frame.lastId, static_cast<WPARAM>(view->GetDlgCtrlID()));
        frame.DestroyWindow();
    }
}

TEST(CalendarViews, TheVeryRecordGoesToTheOwnerAndItsAnswerComesBack)
{
    Frame frame;
    ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW, CRect(0, 0, 500, 400)));
    CCalendarView* view = AddView(frame, RUNTIME_CLASS(CMonthView));
    RecordingParent owner;
    owner.Create(50, 50);
    for (int code = CCN_MOUSEHOVER; code <= CCN_ITEMCLICK; ++code) {
        NMCALENDARITEM record = {};
        record.hdr.hwndFrom = view->GetCalendarCtrl()->m_hWnd;
        record.hdr.code = static_cast<UINT>(code);
        EXPECT_EQ(view->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&record)), 4711) << code;
        EXPECT_EQ(frame.lastRecord, &record) << code;
    }
    frame.told.clear();
    view->SetOwner(&owner);
    NMCALENDARITEM record = {};
    record.hdr.hwndFrom = view->GetCalendarCtrl()->m_hWnd;
    record.hdr.code = static_cast<UINT>(CCN_ITEMCLICK);
    view->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&record));
    EXPECT_EQ(owner.Count(CCN_ITEMCLICK), 1);
    EXPECT_TRUE(frame.told.empty());
    frame.DestroyWindow();
}

// A control whose window cannot be made.
class NoCtrl : public CCalendarCtrl
{
    DECLARE_DYNCREATE(NoCtrl)
public:
    BOOL Create(DWORD, const RECT&, CWnd*, UINT, CCreateContext*) override { return FALSE; }
};
IMPLEMENT_DYNCREATE(NoCtrl, CCalendarCtrl)

class NoCtrlView : public CCalendarView
{
    DECLARE_DYNCREATE(NoCtrlView)
public:
    NoCtrlView() : CCalendarView(RUNTIME_CLASS(NoCtrl), WS_CHILD) {}
};
IMPLEMENT_DYNCREATE(NoCtrlView, CCalendarView)

TEST(CalendarViews, AViewWithoutAControlIgnoresWhatItCannotDo)
{
    Frame frame;
    ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW, CRect(0, 0, 500, 400)));
    CCalendarView* view = AddView(frame, RUNTIME_CLASS(NoCtrlView));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetCalendarCtrl(), nullptr);
    view->MoveWindow(0, 0, 50, 50);
    view->SetFocus();
    CClientDC dc(&frame);
    CPrintInfo info;
    view->DoPrint(&dc, &info);
    EXPECT_EQ(::GetFocus(), view->m_hWnd);
    frame.DestroyWindow();
}

TEST(CalendarViews, ViewsLeaveNothingBehind)
{
    const auto round = [] {
        for (CRuntimeClass* viewClass : kViewClasses) {
            Frame frame;
            frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 400, 300));
            AddView(frame, viewClass);
            frame.UpdateWindow();
            PumpMessages();
            frame.DestroyWindow();
        }
    };
    ExpectNothingLeftBy(round);
}

} // namespace
