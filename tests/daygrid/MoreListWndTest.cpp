// The list of a box's items in real windows: opening, keys, mouse, dragging out, hosts that end the view.
#include "DayGridScene.h"
#include "core/MoreListWnd.h"

using namespace testsupport;

namespace {

constexpr int kItems = 20;

HWND ListWindow()
{
    return ::FindWindow("DayvaneMoreList", nullptr);
}

// A view with twenty items of 15 April, of which some do not fit.
template <class View>
class ListScene : public Scene<View>
{
public:
    HWND window = this->view->m_hWnd;

    ListScene()
    {
        for (int i = 0; i < kItems; ++i) {
            tagCC_ITEM item = ItemOf(COleDateTime(2026, 4, 15, i, 0, 0), COleDateTime(2026, 4, 15, i, 30, 0));
            item.lParam = 100 + i;
            this->view->AddItem(&item);
        }
        this->view->EnableMoreList(TRUE);
    }

    CPoint Mark()
    {
        typename Open<View>::MoreBox box;
        for (int i = 0; i < this->view->GetBoxCount(); ++i) {
            if (this->view->GetMoreBox(i, box)) {
                return box.mark.CenterPoint();
            }
        }
        return CPoint(-1, -1);
    }
    void OpenList()
    {
        messages::LeftDown(window, Mark());
        messages::LeftUp(ListWindow(), CPoint(-5, -5));
        PumpMessages();
    }
    CPoint Row(int row) const { return CPoint(20, dayvane::kMoreListMetrics.rowHeight * row + 14); }
};

template <class View>
class MoreListWindow : public testing::Test
{
};
using Views = testing::Types<CMonthViewCtrl, CWeekViewCtrl, CYearViewCtrl>;
TYPED_TEST_SUITE(MoreListWindow, Views);

} // namespace

TYPED_TEST(MoreListWindow, KeysAndMouseMakeAnItemCurrent)
{
    ListScene<TypeParam> scene;
    scene.view->EnableMoreList(FALSE);
    messages::Click(scene.window, scene.Mark());
    EXPECT_FALSE(scene.view->IsMoreListOpen());
    EXPECT_EQ(scene.parent.Count(CCN_ITEMCLICK), 1) << "a press like any other";
    scene.view->EnableMoreList(TRUE);
    scene.parent.ClearLog();
    scene.view->SetSelRange(Day(4, 15), Day(4, 15));
    messages::Key(scene.window, VK_F4);
    ASSERT_TRUE(scene.view->IsMoreListOpen());
    for (int key : {VK_END, VK_UP, VK_DOWN, VK_UP}) {
        messages::Key(scene.window, key);
    }
    messages::Key(scene.window, VK_RETURN);
    EXPECT_FALSE(scene.view->IsMoreListOpen());
    EXPECT_EQ(scene.view->GetCurSel(), kItems - 2);
    ASSERT_EQ(scene.parent.Count(CCN_ITEMCLICK), 1);
    EXPECT_EQ(scene.parent.Log().back().item.lParam, 100 + kItems - 2);
    scene.OpenList();
    EXPECT_EQ(::GetFocus(), scene.window);
    ::UpdateWindow(ListWindow());
    messages::Click(ListWindow(), scene.Row(3));
    EXPECT_FALSE(scene.view->IsMoreListOpen());
    EXPECT_EQ(scene.view->GetCurSel(), 3);
    for (int key : {VK_ESCAPE, VK_F4}) {
        scene.OpenList();
        messages::Key(scene.window, key);
        EXPECT_FALSE(scene.view->IsMoreListOpen());
    }
    EXPECT_EQ(scene.view->GetCurSel(), 3);
    EXPECT_EQ(scene.parent.Count(CCN_ITEMCLICK), 2);
}

TYPED_TEST(MoreListWindow, ClosesWhenWhatItShowsGoesAway)
{
    ExpectNothingLeftBy([] {
        ListScene<TypeParam> scene;
        const auto closesBy = [&scene](auto act) {
            scene.OpenList();
            EXPECT_TRUE(scene.view->IsMoreListOpen());
            act();
            PumpMessages();
            return !scene.view->IsMoreListOpen() && !ListWindow();
        };
        EXPECT_TRUE(closesBy([&scene] { scene.view->DeleteItem(0); }));
        EXPECT_TRUE(closesBy([&scene] { scene.view->SendMessage(WM_VSCROLL, SB_THUMBTRACK); }));
        scene.view->SetCurrentDate(Day(4, 15));
        scene.view->Refresh();
        EXPECT_TRUE(closesBy([&scene] { scene.view->MoveWindow(0, 0, 890, 600); }));
        EXPECT_TRUE(closesBy([&scene] { scene.parent.SetFocus(); }));
        EXPECT_TRUE(closesBy([] { messages::LeftDown(ListWindow(), CPoint(-20, -20)); }));
        EXPECT_TRUE(closesBy([] { ::ReleaseCapture(); }));
        scene.OpenList();
        scene.parent.DestroyWindow();
        EXPECT_FALSE(ListWindow());
    });
}

TYPED_TEST(MoreListWindow, ItemsCanBeDraggedOut)
{
    ListScene<TypeParam> scene;
    scene.OpenList();
    messages::LeftDown(ListWindow(), scene.Row(2));
    messages::Move(ListWindow(), CPoint(-30, -30), MK_LBUTTON);
    EXPECT_FALSE(scene.view->IsMoreListOpen());
    EXPECT_EQ(scene.view->GetCurSel(), 2);
    EXPECT_EQ(::GetCapture(), scene.window);
    const CPoint target(100, 250); // in the first row of boxes
    messages::Move(scene.window, CPoint(200, 250), MK_LBUTTON);
    messages::Move(scene.window, target, MK_LBUTTON);
    EXPECT_TRUE(scene.view->IsDragging());
    messages::LeftUp(scene.window, target);
    EXPECT_EQ(scene.parent.Count(CCN_ITEMMOVED), 1);
    tagCC_ITEM item;
    scene.view->GetItem(2, item);
    EXPECT_FALSE(dayvane::IsSameDay(item.dtStart, Day(4, 15)));
}

TYPED_TEST(MoreListWindow, HostsMayEndTheViewWhenNotifiedOfAChoice)
{
    for (bool drag : {false, true}) {
        for (bool destroyOnly : {false, true}) {
            ListScene<TypeParam> scene;
            scene.parent.SetHook([&scene, destroyOnly](const Notification&) {
                if (destroyOnly) {
                    scene.view->DestroyWindow();
                } else {
                    delete scene.view;
                    scene.view = nullptr;
                }
                scene.parent.SetHook(nullptr);
                return 0;
            });
            scene.OpenList();
            messages::LeftDown(ListWindow(), scene.Row(1));
            if (drag) {
                messages::Move(ListWindow(), CPoint(-30, -30), MK_LBUTTON);
            } else {
                messages::LeftUp(ListWindow(), scene.Row(1));
            }
            EXPECT_EQ(scene.parent.Count(CCN_ITEMCLICK), 1);
            EXPECT_FALSE(ListWindow());
        }
    }
}
