// Every day grid survives hosts that end it inside a notification, tiny windows and the first and last dates, and frees
// its GDI and USER objects.
#include "DayGridScene.h"

using namespace testsupport;

namespace {

template <class View>
class DayGrid : public testing::Test
{
};
using Views = testing::Types<CMonthViewCtrl, CMonthViewCtrl2, CWeekViewCtrl, CYearViewCtrl>;
TYPED_TEST_SUITE(DayGrid, Views);

// In the notification the host deletes the view, destroys its window, deletes the items, or scrolls elsewhere.
template <class View, class Act>
void TryHosts(int code, Act act)
{
    for (int how = 0; how < 4; ++how) {
        Scene<View> scene;
        scene.Add(Day(4, 1), Day(5, 16));
        scene.parent.SetHook([&scene, how, code](const Notification& sent) {
            if (sent.Code() != code || !scene.view) {
                return 0;
            }
            if (how == 0) {
                delete scene.view;
                scene.view = nullptr;
            } else if (how == 1) {
                scene.view->DestroyWindow();
            } else if (how == 2) {
                scene.view->DeleteAllItems();
            } else {
                scene.parent.SetHook(nullptr);
                scene.view->SetCurrentDate(Day(1999, 12, 31));
                scene.view->SendMessage(WM_VSCROLL, SB_PAGEUP);
            }
            return 0;
        });
        act(scene);
        EXPECT_GE(scene.parent.Count(code), 1);
        if (how == 3) {
            EXPECT_LE(scene.view->GetCurrentDate().GetYear(), 1999) << "the host's date counts";
        }
    }
}

} // namespace

TYPED_TEST(DayGrid, HostsMayEndItInAnyNotification)
{
    for (int code : {CCN_SELDATECHANGE, CCN_VIEWRANGECHANGE}) {
        TryHosts<TypeParam>(code, [](auto& scene) { scene.Scroll(SB_LINEDOWN); });
        TryHosts<TypeParam>(code, [](auto& scene) {
            scene.view->SetSelRange(Day(1, 1), Day(1, 1));
            scene.view->MoveForward(0); // the month sends itself the scroll message, the others post it
            PumpMessages();
        });
    }
}

TEST(YearView, HostsMayEndItWhenTheComboBoxChanges)
{
    CComboBox combo;
    TryHosts<CYearViewCtrl>(CCN_COMBOSELCHANGE, [&combo](Year& scene) {
        scene.view->CreateComboBox(&combo, 0, 100, CBS_DROPDOWNLIST | WS_VISIBLE, nullptr);
        scene.view->SendMessage(WM_COMMAND, MAKEWPARAM(1, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo.m_hWnd));
    });
}

// Nothing is shown where there is no date, and nothing falls over.
TYPED_TEST(DayGrid, SurvivesTinySizesAndTheFirstAndLastDates)
{
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    Scene<TypeParam> scene;
    scene.Add(Day(100, 1, 1), Day(9999, 12, 31));
    scene.Add(Day(4, 15), Day(4, 18), 4);
    for (const COleDateTime& date :
         {Day(100, 1, 1), Day(100, 1, 9), Day(9999, 12, 31), Day(9999, 12, 20), none, FixedNow()}) {
        for (int firstDayOfWeek = 1; firstDayOfWeek <= 7; ++firstDayOfWeek) {
            scene.view->SetCurrentDate(date);
            scene.view->SetFirstDayOfWeek(firstDayOfWeek);
            scene.view->MoveWindow(0, 0, firstDayOfWeek * 3, 20 + firstDayOfWeek * 3);
            for (UINT code : {SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_THUMBPOSITION, SB_TOP}) {
                scene.Scroll(code, firstDayOfWeek * 9000);
                scene.view->MoveLeftward(0);
                scene.view->MoveRightward(0);
                scene.view->MoveForward(0x10);
                scene.view->MoveBackward(0);
                PumpMessages();
            }
            scene.HitAt(1, 31);
            scene.Paint();
        }
    }
    for (int size : {1, 2, 7, 30, 47, 60, 90}) {
        scene.view->Layout(size, size);
        scene.Paint();
    }
    EXPECT_EQ(scene.view->GetItemCount(), 5);
    for (const int noDay : {0, 8}) {
        EXPECT_THROW(scene.view->SetFirstDayOfWeek(noDay), CInvalidArgException*);
        EXPECT_EQ(scene.view->GetFirstDayOfWeek(), 7);
    }
    // An impossible move is ignored.
    scene.view->SetCurrentDate(Day(9999, 12, 31));
    const std::string last = scene.Range();
    EXPECT_EQ(scene.Scroll(SB_LINEDOWN), Lines());
    EXPECT_EQ(scene.Range(), last);
    EXPECT_EQ(scene.Scroll(SB_LINEUP).size(), 2u);
    EXPECT_NE(scene.Range(), last);
}

// DAYVANE_PAINTS in the environment: how often.
TYPED_TEST(DayGrid, LeavesNoObjectsBehind)
{
    const char* wanted = std::getenv("DAYVANE_PAINTS");
    const int paints = wanted ? std::atoi(wanted) : 30;
    ExpectNothingLeftBy([paints] {
        Scene<TypeParam> scene;
        for (int i = 0; i < 60; ++i) {
            const COleDateTime start = dayvane::AddDays(Day(4, 1), i % 30);
            tagCC_ITEM item = ItemOf(start, dayvane::AddDays(start, i % 4));
            item.crColor2 = 0x808080 + i;
            item.bAlarm = item.bRecurrent = i % 2;
            item.nReserved = i % 2; // the italic font stays until the process ends
            scene.view->AddItem(&item, i == 59);
        }
        for (int i = 0; i < paints; ++i) {
            scene.view->SetCurSel(i % 60);
            scene.Paint();
            scene.view->Invalidate(FALSE);
            scene.view->UpdateWindow();
        }
    });
}

TYPED_TEST(DayGrid, IsCreatedByItsClass)
{
    const std::unique_ptr<CObject> made(TypeParam::GetThisClass()->CreateObject());
    EXPECT_TRUE(made && made->IsKindOf(RUNTIME_CLASS(CCalendarCtrl)));
}
