// The six views in a real frame: dynamic creation, size, focus, forwarding, printing, destruction.
#include "support/GuiCounts.h"
#include "support/Input.h"
#include "support/RecordingParent.h"
#include "views/docview/CalendarViews.h"

#include <gtest/gtest.h>

using namespace testsupport;

namespace {

constexpr LRESULT kAnswer = 4711;

// A frame with one view; as the view's owner it keeps what the view passes on.
class ViewFrame : public CFrameWnd
{
public:
    CCalendarView* view = nullptr;
    std::vector<NMHDR> headers;
    const void* lastRecord = nullptr;
    WPARAM lastId = 0;

    explicit ViewFrame(CRuntimeClass* viewClass)
    {
        Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 500, 400));
        CCreateContext context = {};
        context.m_pNewViewClass = viewClass;
        view = DYNAMIC_DOWNCAST(CCalendarView, CreateView(&context));
        RecalcLayout();
    }
    ~ViewFrame() override { DestroyWindow(); }

protected:
    void PostNcDestroy() override {} // on the stack
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
        headers.push_back(*header);
        lastRecord = header;
        lastId = wParam;
        *pResult = kAnswer;
        return TRUE;
    }
};

// What the view's control would send. Returns the answer.
LRESULT SendFromControl(CCalendarView* view, int code, NMCALENDARITEM& record)
{
    record.hdr.hwndFrom = view->GetCalendarCtrl()->m_hWnd;
    record.hdr.code = static_cast<UINT>(code);
    return view->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&record));
}

const struct
{
    CRuntimeClass* view;
    const char* control;
} kViews[] = {{RUNTIME_CLASS(CDayView), "CDayViewCtrl"},       {RUNTIME_CLASS(CWeekDayView), "CWeekDayViewCtrl"},
              {RUNTIME_CLASS(CWeekView), "CWeekViewCtrl"},     {RUNTIME_CLASS(CMonthView), "CMonthViewCtrl"},
              {RUNTIME_CLASS(CMonthView2), "CMonthViewCtrl2"}, {RUNTIME_CLASS(CYearView), "CYearViewCtrl"}};

TEST(CalendarViews, EachViewHostsItsControl)
{
    for (const auto& row : kViews) {
        SCOPED_TRACE(row.control);
        ViewFrame frame(row.view);
        ASSERT_NE(frame.view, nullptr);
        CCalendarCtrl* ctrl = frame.view->GetCalendarCtrl();
        ASSERT_NE(ctrl, nullptr);
        EXPECT_STREQ(ctrl->GetRuntimeClass()->m_lpszClassName, row.control);
        const DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP;
        EXPECT_EQ(ctrl->GetStyle() & style, style);
        CRect viewRect, ctrlRect;
        frame.view->GetClientRect(&viewRect);
        ctrl->GetWindowRect(&ctrlRect);
        EXPECT_EQ(ctrlRect.Size(), viewRect.Size());
        frame.view->SetFocus();
        EXPECT_EQ(::GetFocus(), ctrl->m_hWnd);

        tagCC_ITEM item;
        item.lParam = 5;
        EXPECT_EQ(frame.view->AddItem(&item), 1);
        EXPECT_EQ(frame.view->SetItem(0, &item), 1);
        EXPECT_EQ(frame.view->InsertItem(2, &item), 1);
        EXPECT_EQ(frame.view->DeleteItem(1), 1);
        EXPECT_EQ(frame.view->GetItem(1, item), 1);
        EXPECT_EQ(ctrl->GetItemCount(), 2);

        frame.headers.clear();
        messages::RightClick(ctrl->m_hWnd, CPoint(100, 100));
        ASSERT_FALSE(frame.headers.empty());
        EXPECT_EQ(frame.headers[0].hwndFrom, ctrl->m_hWnd) << "the record as the control made it";
        EXPECT_EQ(static_cast<int>(frame.headers[0].code), CCN_ITEMRCLICK);
        EXPECT_EQ(frame.lastId, static_cast<WPARAM>(frame.view->GetDlgCtrlID()));
    }
}

TEST(CalendarViews, TheVeryRecordGoesToTheOwnerAndItsAnswerComesBack)
{
    ViewFrame frame(RUNTIME_CLASS(CMonthView));
    NMCALENDARITEM record = {};
    for (int code = CCN_MOUSEHOVER; code <= CCN_ITEMCLICK; ++code) {
        EXPECT_EQ(SendFromControl(frame.view, code, record), kAnswer) << code;
        EXPECT_EQ(frame.lastRecord, &record) << code;
    }
    RecordingParent owner;
    owner.Create(50, 50);
    frame.headers.clear();
    frame.view->SetOwner(&owner);
    SendFromControl(frame.view, CCN_ITEMCLICK, record);
    EXPECT_EQ(owner.Count(CCN_ITEMCLICK), 1);
    EXPECT_TRUE(frame.headers.empty());
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
    ViewFrame frame(RUNTIME_CLASS(NoCtrlView));
    ASSERT_NE(frame.view, nullptr);
    EXPECT_EQ(frame.view->GetCalendarCtrl(), nullptr);
    frame.view->MoveWindow(0, 0, 50, 50);
    frame.view->SetFocus();
    CClientDC dc(&frame);
    CPrintInfo info;
    frame.view->DoPrint(&dc, &info);
    EXPECT_EQ(::GetFocus(), frame.view->m_hWnd);
}

TEST(CalendarViews, ViewsLeaveNothingBehind)
{
    ExpectNothingLeftBy([] {
        for (const auto& row : kViews) {
            ViewFrame frame(row.view);
            frame.UpdateWindow();
            PumpMessages();
        }
    });
}

} // namespace
