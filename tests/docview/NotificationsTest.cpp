// docs/notifications.md says what a parent receives, and in which order. Its table and the rows below are the same
// (./dev lint compares them); here each gesture is made in a month view and, where it means something there, in a day
// view, and both send what the row says.
#include "core/CalendarClock.h"
#include "core/DateMath.h"
#include "support/Input.h"
#include "support/RecordingParent.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

using namespace testsupport;

namespace {

constexpr int kWidth = 620;
constexpr int kHeight = 440;

COleDateTime At(int day, int hour = 0)
{
    return COleDateTime(2026, 11, day, hour, 0, 0);
}

// A view with one item on 18 November, 9 to 11, and where to press it and beside it.
struct Hand
{
    CCalendarCtrl& view;
    bool isMonth;
    CPoint item;
    CPoint free;
    CPoint dropped;

    void Set(bool CalendarOptions::*option)
    {
        CalendarOptions options = view.GetOptions();
        options.*option = true;
        view.SetOptions(options);
    }
};

struct Gesture
{
    const char* name;
    const char* codes; // without CCN_, in their order
    std::function<void(Hand&)> make;
    bool inDays = true; // the day view sends the same
};

void Edit(Hand& hand, int endKey)
{
    hand.view.BeginEditItem("text");
    messages::Key(hand.view.GetInPlaceEdit()->m_hWnd, endKey);
}

void CarryByKey(Hand& hand, int endKey)
{
    hand.Set(&CalendarOptions::keyboardMoves);
    hand.view.SetCurSel(0);
    {
        const KeyState keys({VK_CONTROL});
        hand.view.SendMessage(WM_KEYDOWN, VK_DOWN);
        if (endKey == VK_RETURN) {
            hand.view.SendMessage(WM_KEYDOWN, VK_RETURN);
        }
    }
    if (endKey == VK_ESCAPE) {
        hand.view.SendMessage(WM_KEYDOWN, VK_ESCAPE);
    }
}

const Gesture kGestures[] = {
    // gestures
    {"press on an item", "ITEMCLICK", [](Hand& hand) { messages::Click(hand.view, hand.item); }},
    {"press beside items", "ITEMCLICK", [](Hand& hand) { messages::Click(hand.view, hand.free); }},
    {"double click", "ITEMCLICK, ITEMDBLCLICK", [](Hand& hand) { messages::DoubleClick(hand.view, hand.item); }},
    {"right click", "ITEMRCLICK, CONTEXTMENU", [](Hand& hand) { messages::RightClick(hand.view, hand.item); }},
    {"drag of an item", "ITEMCLICK, ITEMMOVED", [](Hand& hand) { messages::Drag(hand.view, hand.item, hand.dropped); }},
    {"drag, taken back with Escape", "ITEMCLICK",
     [](Hand& hand) {
         messages::LeftDown(hand.view, hand.item);
         messages::Move(hand.view, hand.dropped, MK_LBUTTON);
         hand.view.SendMessage(WM_KEYDOWN, VK_ESCAPE);
         messages::LeftUp(hand.view, hand.dropped);
     }},
    {"sweep over free cells", "ITEMCLICK", [](Hand& hand) { messages::Drag(hand.view, hand.free, hand.dropped); }},
    {"the same with selectionEvents", "ITEMCLICK, SELCHANGED, SELCHANGED",
     [](Hand& hand) {
         hand.Set(&CalendarOptions::selectionEvents);
         messages::Drag(hand.view, hand.free, hand.dropped);
     }},
    {"Tab onto an item", "ITEMCLICK", [](Hand& hand) { hand.view.SendMessage(WM_KEYDOWN, VK_TAB); }},
    {"Enter on an item", "ITEMDBLCLICK",
     [](Hand& hand) {
         hand.view.SetCurSel(0);
         hand.view.SendMessage(WM_KEYDOWN, VK_RETURN);
     }},
    {"Page Down", "SELDATECHANGE, VIEWRANGECHANGE",
     [](Hand& hand) {
         hand.view.SendMessage(WM_KEYDOWN, VK_NEXT);
         PumpMessages();
     },
     false},
    {"an edit, ended with Enter", "IPE_ENDEDITITEM", [](Hand& hand) { Edit(hand, VK_RETURN); }},
    {"an edit, ended with Escape", "", [](Hand& hand) { Edit(hand, VK_ESCAPE); }},
    {"Ctrl+Down, Ctrl+Enter with keyboardMoves", "BEGINMOVE, ITEMMOVED",
     [](Hand& hand) { CarryByKey(hand, VK_RETURN); }},
    {"Ctrl+Down, Escape with keyboardMoves", "BEGINMOVE", [](Hand& hand) { CarryByKey(hand, VK_ESCAPE); }},
    // end of gestures
};

class Notifications : public testing::Test
{
protected:
    RecordingParent parent;

    Notifications()
    {
        SetCalendarClock([] { return At(18, 8); });
        parent.Create(kWidth, kHeight);
    }
    ~Notifications() override { SetCalendarClock(nullptr); }

    std::string CodesOf(const Gesture& gesture, bool isMonth)
    {
        std::unique_ptr<CCalendarCtrl> view;
        if (isMonth) {
            view = std::make_unique<CMonthViewCtrl>();
        } else {
            view = std::make_unique<CDayViewCtrl>();
        }
        view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, kWidth, kHeight), &parent, 7);
        view->SetCurrentDate(At(18, 9));
        tagCC_ITEM item;
        item.dtStart = At(18, 9);
        item.dtEnd = At(18, 11);
        item.strText = "talk";
        view->AddItem(&item);
        view->Refresh();
        PumpMessages();
        CRect box = view->GetScreenItems()[0].rcItem;
        box.OffsetRect(0, -view->GetVertScrollOffset());
        const CPoint on = box.CenterPoint();
        Hand hand = {*view, isMonth, on, isMonth ? on - CSize(90, 0) : on + CSize(0, 90),
                     isMonth ? on + CSize(90, 0) : on + CSize(0, 45)};
        parent.ClearLog();
        gesture.make(hand);
        std::string codes;
        for (const std::string& name : parent.Names()) {
            codes += (codes.empty() ? "" : ", ") + name.substr(name.find('_') + 1);
        }
        view->DestroyWindow();
        return codes;
    }
};

TEST_F(Notifications, ComeInTheOrderOfTheTable)
{
    for (const Gesture& gesture : kGestures) {
        EXPECT_EQ(CodesOf(gesture, true), gesture.codes) << gesture.name << ", month";
        if (gesture.inDays) {
            EXPECT_EQ(CodesOf(gesture, false), gesture.codes) << gesture.name << ", day";
        }
    }
}

// What a parent may refuse by answering something else than 0.
TEST_F(Notifications, AMoveByKeyIsRefused)
{
    parent.SetHook([](const Notification& sent) { return sent.Name() == "CCN_BEGINMOVE" ? 1 : 0; });
    const Gesture move = {"", "", [](Hand& hand) { CarryByKey(hand, VK_RETURN); }};
    // There is nothing to drop then: the key opens the item.
    EXPECT_EQ(CodesOf(move, true), "BEGINMOVE, ITEMDBLCLICK");
    EXPECT_EQ(CodesOf(move, false), "BEGINMOVE, ITEMDBLCLICK");
}

} // namespace
