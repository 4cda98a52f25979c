// The print preview over a calendar view: what it shows, its keys and buttons, and what it gives back.
#include "support/GuiCounts.h"
#include "support/Input.h"
#include "views/docview/CalendarViews.h"

#include <afxpriv.h>
#include <gtest/gtest.h>

using namespace testsupport;

namespace {

class Frame : public CFrameWnd
{
public:
    // Shows the month of November 2026 with so many items on one day.
    CCalendarView* ShowMonth(int items)
    {
        CCreateContext context = {};
        context.m_pNewViewClass = RUNTIME_CLASS(CMonthView);
        CCalendarView* view = DYNAMIC_DOWNCAST(CCalendarView, CreateView(&context));
        view->GetCalendarCtrl()->SetCurrentDate(COleDateTime(2026, 11, 24, 0, 0, 0));
        for (int i = 0; i < items; ++i) {
            tagCC_ITEM item;
            item.dtStart = item.dtEnd = COleDateTime(2026, 11, 24, 9, 0, 0);
            item.strText = "an item";
            view->AddItem(&item, FALSE, FALSE);
        }
        SetActiveView(view);
        RecalcLayout();
        return view;
    }

    CPreviewView* Preview() { return DYNAMIC_DOWNCAST(CPreviewView, GetDlgItem(AFX_IDW_PANE_FIRST)); }

    CPreviewView* Press(UINT key)
    {
        MSG message = {Preview()->m_hWnd, WM_KEYDOWN, key, 0, 0, {0, 0}};
        Preview()->PreTranslateMessage(&message);
        return Preview();
    }

protected:
    void PostNcDestroy() override {} // on the stack
};

bool IsEnabled(CPreviewView* preview, UINT button)
{
    return ::IsWindowEnabled(::GetDlgItem(preview->m_hWnd, static_cast<int>(button))) != FALSE;
}

class PrintPreviewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 900, 700)));
        ::SetMenu(frame, menu = ::CreateMenu());
        view = frame.ShowMonth(200);
        frame.SendMessage(WM_COMMAND, ID_FILE_PRINT_PREVIEW);
        preview = frame.Preview();
        ASSERT_NE(preview, nullptr);
    }
    void TearDown() override { frame.DestroyWindow(); }

    Frame frame;
    HMENU menu = nullptr;
    CCalendarView* view = nullptr;
    CPreviewView* preview = nullptr;
};

TEST_F(PrintPreviewTest, TurnsThePagesByKeysAndButtons)
{
    EXPECT_EQ(preview->GetPage(), 1u);
    EXPECT_EQ(preview->GetShownPages(), 1);
    EXPECT_FALSE(IsEnabled(preview, AFX_ID_PREVIEW_PREV));
    ASSERT_TRUE(IsEnabled(preview, AFX_ID_PREVIEW_NEXT)) << "200 items take more than one sheet";
    EXPECT_EQ(frame.Press(VK_NEXT)->GetPage(), 2u);
    EXPECT_TRUE(IsEnabled(preview, AFX_ID_PREVIEW_PREV));
    const UINT last = frame.Press(VK_END)->GetPage();
    EXPECT_GE(last, 2u);
    EXPECT_FALSE(IsEnabled(preview, AFX_ID_PREVIEW_NEXT));
    EXPECT_EQ(frame.Press(VK_NEXT)->GetPage(), last) << "there is no page after the last";
    EXPECT_EQ(frame.Press(VK_HOME)->GetPage(), 1u);
    preview->SendMessage(WM_COMMAND, AFX_ID_PREVIEW_NEXT);
    EXPECT_EQ(preview->GetPage(), 2u);
    preview->SendMessage(WM_COMMAND, AFX_ID_PREVIEW_PREV);
    EXPECT_EQ(frame.Press(VK_PRIOR)->GetPage(), 1u);
}

TEST_F(PrintPreviewTest, ShowsTwoPagesAndZooms)
{
    const CRect alone = preview->GetPageRect(0);
    CRect client;
    preview->GetClientRect(&client);
    EXPECT_TRUE(client.PtInRect(alone.TopLeft()) && client.PtInRect(alone.BottomRight()));
    preview->SendMessage(WM_COMMAND, AFX_ID_PREVIEW_NUMPAGE);
    EXPECT_EQ(preview->GetShownPages(), 2);
    EXPECT_GT(preview->GetPageRect(1).left, preview->GetPageRect(0).right);
    EXPECT_LE(preview->GetPageRect(1).right, client.right);
    EXPECT_EQ(frame.Press(VK_ADD)->GetZoom(), 1);
    EXPECT_EQ(preview->GetShownPages(), 1) << "a page that is looked at closely is alone";
    EXPECT_GT(preview->GetPageRect(0).Height(), alone.Height());
    frame.Press(VK_ADD);
    EXPECT_FALSE(IsEnabled(preview, AFX_ID_PREVIEW_ZOOMIN));
    frame.Press(VK_SUBTRACT);
    EXPECT_EQ(frame.Press(VK_SUBTRACT)->GetZoom(), 0);
    EXPECT_EQ(preview->GetPageRect(0), alone);
}

TEST_F(PrintPreviewTest, GivesTheFrameBack)
{
    EXPECT_EQ(::GetMenu(frame), nullptr);
    EXPECT_FALSE(view->IsWindowVisible());
    EXPECT_EQ(frame.GetActiveView(), preview);
    EXPECT_EQ(frame.Press(VK_ESCAPE), nullptr);
    EXPECT_EQ(frame.GetDlgItem(AFX_IDW_PANE_FIRST), view);
    EXPECT_EQ(::GetMenu(frame), menu);
    EXPECT_TRUE(view->IsWindowVisible());
    EXPECT_EQ(frame.GetActiveView(), view);
    CRect place, client;
    view->GetWindowRect(&place);
    frame.GetClientRect(&client);
    EXPECT_EQ(place.Size(), client.Size());
}

TEST(PrintPreview, LeavesNothingBehind)
{
    const auto round = [](bool closes) {
        Frame frame;
        frame.Create(nullptr, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 500, 400));
        frame.ShowMonth(3);
        frame.SendMessage(WM_COMMAND, ID_FILE_PRINT_PREVIEW);
        frame.UpdateWindow();
        PumpMessages();
        if (closes) {
            frame.Preview()->OnPreviewClose();
        }
        frame.DestroyWindow();
    };
    ExpectNothingLeftBy([&] { round(true); });
    ExpectNothingLeftBy([&] { round(false); }); // the frame goes while the pages are looked at
}

} // namespace
