// What reaches a control, in which order, and that nothing does once the host has ended it.
#include "core/PointerDriver.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace dayvane;

namespace {

const CPoint kPress(100, 100);
const CPoint kFar(200, 200); // beyond the slop of a press

COleDateTime At(int day, int hour = 0)
{
    return COleDateTime(2010, 3, day, hour, 0, 0);
}

std::string TextOf(const ItemTimes& times)
{
    return std::string(times.start.Format("%d-%H ")) + std::string(times.end.Format("%d-%H"));
}

// A control with two items that writes down what is asked of it, and may be ended at any of these requests.
class Control : public PointerTarget
{
public:
    std::string log;
    std::vector<ItemTimes> items = {{At(10, 9), At(10, 11)}, {At(20, 9), At(20, 11)}};
    int current = -1;
    int requests = 0;
    int endAt = 0; // the number of the request that ends the control
    std::unique_ptr<PointerDriver> driver = std::make_unique<PointerDriver>();

    void Press(int code, int item)
    {
        PressedItem pressed;
        pressed.movable = GetItemTimes(item, pressed.times);
        driver->Press(*this, HitOf(code, item, At(10, 9), kPress), pressed);
    }
    void Drag(int day) { driver->Drag(*this, HitOf(CCHT_ONCELL, -1, At(day, 9), kFar)); }
    void Sweep(int day) { driver->Sweep(*this, HitOf(CCHT_ONCELL, -1, At(day, 9), kFar)); }
    void Release(int day) { driver->Release(*this, HitOf(CCHT_ONCELL, -1, At(day, 9), kFar)); }
    void Scroll(bool hasCapture, int y)
    {
        driver->WatchScrollEdge(*this, hasCapture, CRect(0, 0, 300, 300), CPoint(150, y));
    }
    std::string Taken()
    {
        std::string taken;
        taken.swap(log);
        return taken;
    }

    bool IsAlive() const override { return driver != nullptr; }
    int CurrentItem() const override { return current; }
    bool GetItemTimes(int item, ItemTimes& times) const override
    {
        if (item < 0 || item >= static_cast<int>(items.size())) {
            return false;
        }
        times = items[item];
        return true;
    }
    void PutItemTimes(int item, const ItemTimes& times) override
    {
        items[item] = times;
        Asked("put " + TextOf(times));
    }
    void SelectItem(int item) override
    {
        current = item;
        Asked("select " + std::to_string(item));
    }
    void BeginSelection(const ItemTimes&, bool fullday) override { Asked(fullday ? "begin-days" : "begin"); }
    void ExtendSelection(const COleDateTime& end) override { Asked("extend " + std::string(end.Format("%d"))); }
    void MarkDate(const COleDateTime& date) override { Asked("mark " + std::string(date.Format("%d"))); }
    void RepaintSelection() override { Asked("repaint"); }
    void RestoreSelection() override { Asked("restore"); }
    void NotifyMoved() override { Asked("moved"); }
    void ShowDragCursor(ItemEdge) override { Asked("drag-cursor"); }
    void ShowArrowCursor() override { Asked("arrow"); }
    void TakeCapture() override { Asked("capture"); }
    void ReleaseCapture() override
    {
        Asked("release");
        if (IsAlive()) {
            driver->CaptureLost(*this); // the window gets the message at once
        }
    }
    void RunScrollTimer(int milliseconds) override
    {
        Asked(milliseconds ? "timer " + std::to_string(milliseconds) : "no-timer");
    }

private:
    static PointerHit HitOf(int code, int item, const COleDateTime& time, CPoint point)
    {
        return {point, code, item, time};
    }

    void Asked(const std::string& what)
    {
        EXPECT_TRUE(IsAlive()) << what << " after the control's end";
        log += (log.empty() ? "" : "; ") + what;
        if (++requests == endAt) {
            driver.reset();
        }
    }
};

void DragAndDrop(Control& control)
{
    control.Press(CCHT_ONITEM, 0);
    control.Drag(12);
    control.Drag(12);
    control.Scroll(true, 299);
    control.Release(12);
}

TEST(PointerDriver, KeysCarryAnItemWithoutTheMouse)
{
    Control control;
    control.current = 0;
    const ItemTimes origin = control.items[0];
    const ItemTimes moved = {At(11, 9), At(11, 11)};
    control.driver->Lift(control);
    control.driver->Carry(control, moved, moved.start);
    control.Drag(25); // the pointer has no part in it
    control.Sweep(25);
    EXPECT_EQ(control.Taken(), "mark 11; put 11-09 11-11");
    EXPECT_EQ(control.driver->Tracker().Origin().start, origin.start);
    control.Release(11);
    EXPECT_EQ(control.Taken(), "moved; repaint; release") << "no cursor of a drag";
    EXPECT_FALSE(control.driver->Tracker().IsBusy());
    control.driver->Lift(control);
    control.driver->Carry(control, {At(14, 9), At(14, 11)}, At(14, 9));
    control.current = 1; // the host has another item now
    control.driver->Carry(control, {At(15, 9), At(15, 11)}, At(15, 9));
    EXPECT_FALSE(control.driver->Tracker().IsBusy());
    EXPECT_EQ(TextOf(control.items[0]), TextOf(moved)) << "taken back";
}

TEST(PointerDriver, ADropEndsWithTimerAndCaptureGone)
{
    Control control;
    DragAndDrop(control);
    EXPECT_EQ(control.Taken(), "select 0; capture; drag-cursor; repaint; drag-cursor; mark 12; put 12-09 12-11; "
                               "timer 400; moved; arrow; repaint; no-timer; release");
    EXPECT_FALSE(control.driver->Tracker().IsBusy());
    control.Press(CCHT_ONCELL, -1);
    control.Sweep(13);
    control.Release(14);
    EXPECT_EQ(control.Taken(), "begin; select -1; capture; extend 13; extend 14; arrow; release") << "no drag, no mark";
}

TEST(PointerDriver, NothingIsAskedOfAControlThatHasEnded)
{
    const struct
    {
        const char* what;
        void (*act)(Control&);
        int requests;
    } scripts[] = {
        {"drag and drop",
         [](Control& control) {
             control.Press(CCHT_ONITEM, 0);
             for (int step = 0; step < 2 && control.driver; ++step) {
                 control.Drag(12);
             }
             if (control.driver) {
                 control.Scroll(true, 299);
             }
             if (control.driver) {
                 control.Release(12);
             }
         },
         12},
        {"a lost capture",
         [](Control& control) {
             control.Press(CCHT_ONITEM, 0);
             for (int step = 0; step < 2 && control.driver; ++step) {
                 control.Drag(12);
             }
             if (control.driver) {
                 control.driver->CaptureLost(control);
             }
         },
         9},
        {"a sweep",
         [](Control& control) {
             control.Press(CCHT_ONCELL, -1);
             if (control.driver) {
                 control.Release(14);
             }
         },
         6},
    };
    for (const auto& script : scripts) {
        for (int endAt = 1; endAt <= script.requests; ++endAt) {
            Control control;
            control.endAt = endAt;
            script.act(control);
            EXPECT_EQ(control.requests, endAt) << script.what;
            EXPECT_FALSE(control.IsAlive()) << script.what << " has fewer requests than " << endAt;
        }
    }
}

TEST(PointerDriver, CancelPutsBackOnlyWhatTheDragPut)
{
    for (const bool isChangedByHost : {false, true}) {
        Control control;
        control.Press(CCHT_ONITEM, 0);
        control.Drag(12);
        control.Drag(12);
        if (isChangedByHost) {
            control.items[0].end = At(15);
        }
        control.Taken();
        control.driver->Cancel(control);
        EXPECT_EQ(control.Taken(), isChangedByHost ? "restore; arrow; release; repaint"
                                                   : "put 10-09 10-11; restore; arrow; release; repaint");
        control.driver->Cancel(control);
        control.driver->CaptureLost(control);
        EXPECT_EQ(control.Taken(), "") << "nothing is pressed any more";
    }
}

TEST(PointerDriver, ADragFollowsItsItem)
{
    Control control;
    control.Press(CCHT_ONITEM, 1);
    control.Drag(12);
    control.Drag(12);
    control.items.erase(control.items.begin());
    control.current = 0;
    control.Drag(14);
    EXPECT_EQ(TextOf(control.items[0]), "14-09 14-11") << "it has another index now";
    control.items.push_back({At(1), At(2)});
    control.current = 1;
    control.Drag(16);
    EXPECT_FALSE(control.driver->Tracker().IsBusy()) << "another item is current";
    EXPECT_EQ(TextOf(control.items[0]) + ", " + TextOf(control.items[1]), "20-09 20-11, 01-00 02-00");
}

TEST(PointerDriver, ADropThatIsTakenBackIsNotReported)
{
    Control control;
    control.Press(CCHT_ONITEM, 0);
    control.Drag(12);
    control.Drag(12);
    control.Taken();
    PointerHit hit;
    control.driver->Release(control, hit, Drop::TAKE_BACK);
    EXPECT_EQ(control.Taken(), "put 10-09 10-11; restore; arrow; release; repaint");
    control.Press(CCHT_ONCELL, -1);
    control.Taken();
    control.driver->Release(control, hit, Drop::TAKE_BACK);
    EXPECT_EQ(control.Taken(), "arrow; release") << "nothing was dragged";
}

TEST(PointerDriver, ScrollsOnceASweepIsUnderWay)
{
    Control control;
    control.Scroll(true, 299);
    control.Press(CCHT_ONCELL, -1);
    control.Scroll(true, 299);
    EXPECT_EQ(control.Taken(), "begin; select -1; capture") << "a click at the edge";
    control.Sweep(10);
    control.Taken();
    const struct
    {
        bool hasCapture;
        int y; // -1: a step is done
        const char* asked;
    } moves[] = {{true, 150, ""},        {false, 299, ""},        {true, 299, "timer 400"}, {true, 295, ""},
                 {true, 310, "timer 1"}, {true, 320, ""},         {true, -1, "timer 1000"}, {true, 295, ""},
                 {true, 310, ""},        {true, -1, ""},          {true, 150, "no-timer"},  {true, 0, "timer 400"},
                 {true, 299, ""},        {true, 150, "no-timer"}, {true, -20, "timer 1"},   {false, 0, "no-timer"}};
    for (const auto& move : moves) {
        if (move.y == -1) {
            control.driver->ScrollStepDone(control, 1000);
        } else {
            control.Scroll(move.hasCapture, move.y);
        }
        EXPECT_EQ(control.Taken(), move.asked) << move.y;
    }
}

} // namespace
