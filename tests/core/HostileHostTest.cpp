// Hosts that do everything they should not during a notification: each act at each notification.
#include "PlainCalendar.h"

#include "support/GuiCounts.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <functional>

using namespace coretest;
using namespace testsupport;

namespace {

struct Trigger
{
    const char* what;
    int code; // at which notification the host acts
    std::function<void(CalendarScene&)> act;
};

void DragFirstItem(CalendarScene& scene)
{
    messages::Drag(scene.window, PointAt(3), PointAt(12));
}

void PressAndHold(CalendarScene& scene)
{
    messages::LeftDown(scene.window, PointAt(3));
    messages::Move(scene.window, PointAt(5), MK_LBUTTON);
    messages::Move(scene.window, PointAt(9), MK_LBUTTON);
}

const Trigger kTriggers[] = {
    {"press on an item", CCN_ITEMCLICK, [](CalendarScene& s) { messages::Click(s.window, PointAt(3)); }},
    {"press on a cell", CCN_ITEMCLICK, [](CalendarScene& s) { messages::Click(s.window, PointAt(0)); }},
    {"press and drag", CCN_ITEMCLICK, DragFirstItem},
    {"drop", CCN_ITEMMOVED, DragFirstItem},
    {"a key in the middle of a drag", CCN_ITEMCLICK,
     [](CalendarScene& s) {
         PressAndHold(s);
         messages::Key(s.window, VK_TAB);
         messages::LeftUp(s.window, PointAt(9));
     }},
    {"double click", CCN_ITEMDBLCLICK, [](CalendarScene& s) { messages::DoubleClick(s.window, PointAt(3)); }},
    {"right click", CCN_ITEMRCLICK, [](CalendarScene& s) { messages::RightClick(s.window, PointAt(3)); }},
    {"context menu", CCN_CONTEXTMENU,
     [](CalendarScene& s) { ::SendMessage(s.window, WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1)); }},
    {"hover", CCN_MOUSEHOVER,
     [](CalendarScene& s) { ::SendMessage(s.window, WM_MOUSEHOVER, 0, MAKELPARAM(PointAt(3).x, PointAt(3).y)); }},
    {"Tab", CCN_ITEMCLICK, [](CalendarScene& s) { messages::Key(s.window, VK_TAB); }},
    {"Enter", CCN_ITEMDBLCLICK, [](CalendarScene& s) { messages::Key(s.window, VK_RETURN); }},
    {"end of an edit", CCN_IPE_ENDEDITITEM,
     [](CalendarScene& s) {
         s.calendar->BeginEditItem("text");
         messages::Key(::GetDlgItem(s.window, 1), VK_RETURN);
     }},
    {"a press that ends an edit", CCN_IPE_ENDEDITITEM,
     [](CalendarScene& s) {
         s.calendar->BeginEditItem("text");
         messages::Click(s.window, PointAt(3));
     }},
    {"an edit that ends another", CCN_IPE_ENDEDITITEM,
     [](CalendarScene& s) {
         s.calendar->BeginEditItem("text");
         s.calendar->BeginEditItem("again");
     }},
};

void CALLBACK PressEnterInDialog(HWND, UINT, UINT_PTR id, DWORD)
{
    if (const HWND dialog = ::FindWindow("#32770", "hostile")) {
        ::KillTimer(nullptr, id);
        ::PostMessage(dialog, WM_COMMAND, IDOK, 0);
    }
}

struct Act
{
    const char* what;
    std::function<void(CalendarScene&)> act;
};

const Act kActs[] = {
    {"deletes all items", [](CalendarScene& s) { s.calendar->DeleteAllItems(); }},
    {"deletes an item", [](CalendarScene& s) { s.calendar->DeleteItem(0); }},
    {"changes the date",
     [](CalendarScene& s) {
         s.calendar->SetCurrentDate(At(0) + COleDateTimeSpan(400.0));
         s.calendar->Refresh();
     }},
    {"adds items",
     [](CalendarScene& s) {
         for (int i = 0; i < 50; ++i) {
             s.AddItem(i % 20, i);
         }
     }},
    {"destroys the window", [](CalendarScene& s) { s.calendar->DestroyWindow(); }},
    {"deletes the object",
     [](CalendarScene& s) {
         delete s.calendar;
         s.calendar = nullptr;
     }},
    {"destroys its own window", [](CalendarScene& s) { s.parent.DestroyWindow(); }},
    {"opens a message box",
     [](CalendarScene& s) {
         ::SetTimer(nullptr, 0, 10, PressEnterInDialog);
         ::MessageBox(s.parent.m_hWnd, "text", "hostile", MB_OK);
     }},
    {"begins an edit", [](CalendarScene& s) { s.calendar->BeginEditItem("hostile"); }},
    {"takes the focus", [](CalendarScene& s) { s.parent.SetFocus(); }},
    {"sizes the control", [](CalendarScene& s) { s.calendar->MoveWindow(0, 0, 1, 1); }},
};

void RunScene(const Trigger& trigger, const Act& act)
{
    CalendarScene scene;
    int depth = 0;
    int acted = 0;
    scene.parent.SetHook([&](const Notification& report) -> LRESULT {
        // Once: an act that causes the same notification again would never end.
        if (report.Code() == trigger.code && acted == 0 && depth == 0) {
            ++depth;
            ++acted;
            act.act(scene);
            --depth;
        }
        return 0;
    });
    trigger.act(scene);
    PumpMessages();
    SCOPED_TRACE(std::string("a host that ") + act.what + " at: " + trigger.what);
    EXPECT_EQ(acted, 1);
    EXPECT_EQ(::GetCapture(), nullptr);
    if (scene.calendar && ::IsWindow(scene.window)) {
        EXPECT_FALSE(scene.calendar->IsDragging());
        messages::Move(scene.window, PointAt(1));
        messages::Move(scene.window, PointAt(2));
        MSG msg;
        EXPECT_FALSE(::PeekMessage(&msg, scene.window, WM_TIMER, WM_TIMER, PM_REMOVE));
        // It still works afterwards.
        scene.parent.SetHook(nullptr);
        scene.calendar->DeleteAllItems();
        scene.AddItem(2, 1);
        scene.calendar->MoveWindow(0, 0, kWidth, kHeight);
        scene.calendar->SetCurrentDate(At(0));
        scene.calendar->Refresh();
        messages::Click(scene.window, PointAt(3));
        EXPECT_EQ(scene.calendar->GetCurSel(), 0);
    }
}

TEST(HostileHost, EachActAtEachNotification)
{
    ExpectNothingLeftBy([] {
        for (const Trigger& trigger : kTriggers) {
            for (const Act& act : kActs) {
                RunScene(trigger, act);
            }
        }
    });
}

TEST(HostileHost, ItemsThatGoInTheMiddleOfADrag)
{
    CalendarScene scene;
    PressAndHold(scene);
    scene.calendar->DeleteAllItems();
    messages::Move(scene.window, PointAt(10), MK_LBUTTON);
    EXPECT_FALSE(scene.calendar->IsDragging());
    EXPECT_EQ(::GetCapture(), nullptr);
    messages::LeftUp(scene.window, PointAt(10));
    EXPECT_EQ(scene.calendar->GetItemCount(), 0);
    EXPECT_EQ(scene.parent.Count(CCN_ITEMMOVED), 0);

    CalendarScene dying;
    PressAndHold(dying);
    dying.calendar->DestroyWindow();
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_EQ(dying.TimesOf(0), "02:00-04:00") << "a drag that dies with its window did not happen";
}

TEST(HostileHost, APressHoldsWhatLiesThereOnceTheHostHasAnswered)
{
    for (const bool deletes : {false, true}) {
        CalendarScene scene;
        scene.parent.SetHook([&](const Notification& report) -> LRESULT {
            if (report.Code() == CCN_ITEMCLICK && deletes) {
                scene.calendar->DeleteItem(0); // what is pressed has another index now
            } else if (report.Code() == CCN_ITEMCLICK) {
                scene.AddItem(12, 72); // where nothing was
            }
            return 0;
        });
        const int item = deletes ? 0 : 2;
        messages::Drag(scene.window, PointAt(deletes ? 7 : 12), PointAt(deletes ? 9 : 14));
        EXPECT_EQ(scene.calendar->GetCurSel(), item);
        EXPECT_EQ(scene.TimesOf(item), deletes ? "09:00-11:00" : "14:00-16:00");
        EXPECT_EQ(scene.parent.Lines().back().substr(0, 22), "CCN_ITEMMOVED item=" + std::to_string(item) + " l");
    }
}

TEST(HostileHost, ADragStaysWithItsItem)
{
    CalendarScene scene;
    scene.AddItem(16, 72);
    messages::LeftDown(scene.window, PointAt(7));
    messages::Move(scene.window, PointAt(9), MK_LBUTTON);
    messages::Move(scene.window, PointAt(10), MK_LBUTTON);
    scene.calendar->DeleteItem(0);
    scene.calendar->SetCurSel(0);
    messages::Move(scene.window, PointAt(14), MK_LBUTTON);
    EXPECT_EQ(scene.TimesOf(0), "14:00-16:00") << "it has another index now";
    scene.calendar->SetCurSel(1);
    messages::Move(scene.window, PointAt(20), MK_LBUTTON);
    EXPECT_FALSE(scene.calendar->IsDragging());
    EXPECT_EQ(scene.TimesOf(0) + " " + scene.TimesOf(1), "06:00-08:00 16:00-18:00") << "another item is current";
}

} // namespace
