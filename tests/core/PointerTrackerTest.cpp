// Scripts of events and effects: what the mouse does, without a window.
#include "core/PointerTracker.h"

#include "core/DateMath.h"

#include <gtest/gtest.h>

#include <string>

using namespace dayvane;

namespace {

COleDateTime At(int day, int hour = 0, int minute = 0)
{
    return COleDateTime(2010, 3, day, hour, minute, 0);
}

std::string TimeText(const COleDateTime& date)
{
    return date.GetStatus() == COleDateTime::valid ? std::string(date.Format("%d-%H:%M")) : "none";
}

std::string TextOf(const PointerEffect& effect)
{
    switch (effect.kind) {
    case PointerEffect::SELECT_ITEM:
        return "select " + std::to_string(effect.item);
    case PointerEffect::CLEAR_ITEM:
        return "clear";
    case PointerEffect::BEGIN_SELECTION:
        return (effect.fullday ? "begin-days " : "begin ") + TimeText(effect.times.start);
    case PointerEffect::EXTEND_SELECTION:
        return "extend " + TimeText(effect.times.end);
    case PointerEffect::MARK_DATE:
        return "mark " + TimeText(effect.times.start);
    case PointerEffect::TAKE_CAPTURE:
        return "capture";
    case PointerEffect::RELEASE_CAPTURE:
        return "release";
    case PointerEffect::DRAG_CURSOR:
        return "drag-cursor";
    case PointerEffect::ARROW_CURSOR:
        return "arrow";
    case PointerEffect::PUT_ITEM:
        return "put " + TimeText(effect.times.start) + " " + TimeText(effect.times.end) +
               (effect.times.fullday == 1 ? " all day" : "");
    case PointerEffect::PUT_BACK:
        return "put-back " + TimeText(effect.times.start) + " " + TimeText(effect.times.end);
    case PointerEffect::RESTORE_SELECTION:
        return "restore";
    case PointerEffect::NOTIFY_MOVED:
        return "moved";
    }
    return "?";
}

// A mouse with an item under it: hands events to the tracker and carries out what concerns the item.
class Mouse
{
public:
    ItemTimes item = {At(10, 9), At(10, 11)};
    bool movable = true;
    bool itemThere = true;
    bool extended = false;
    ItemEdge edge = EDGE_NONE;
    bool wholeDayByDrag = false;
    int stepMinutes = 30;
    PointerTracker tracker;

    std::string Press(int code, const COleDateTime& time, CPoint point = CPoint(100, 100))
    {
        PressedItem pressed;
        pressed.movable = movable;
        pressed.times = item;
        pressed.edge = edge;
        return Carry(tracker.Press(HitOf(code, time, point), pressed));
    }

    std::string Move(int code, const COleDateTime& time, CPoint point = CPoint(200, 200))
    {
        const PointerHit hit = HitOf(code, time, point);
        const std::string swept = Carry(tracker.Sweep(hit));
        const ItemTimes* current = itemThere ? &item : nullptr;
        const std::string dragged = Carry(extended ? tracker.DragExtended(hit, current, stepMinutes, wholeDayByDrag)
                                                   : tracker.Drag(hit, current));
        return swept.empty() || dragged.empty() ? swept + dragged : swept + "; " + dragged;
    }

    std::string Release(int code, const COleDateTime& time, bool reportsAlways = true)
    {
        const std::string effects = Carry(tracker.Release(HitOf(code, time, CPoint(200, 200)), reportsAlways));
        tracker.Released();
        return effects;
    }

    std::string Cancel() { return Carry(tracker.Cancel()); }

private:
    static PointerHit HitOf(int code, const COleDateTime& time, CPoint point)
    {
        PointerHit hit;
        hit.code = code;
        hit.item = code == CCHT_ONITEM || code == CCHT_ONFULLDAYITEM ? 7 : -1;
        hit.time = time;
        hit.point = point;
        return hit;
    }

    std::string Carry(const PointerEffects& effects)
    {
        std::string text;
        for (const PointerEffect& effect : effects) {
            text += (text.empty() ? "" : "; ") + TextOf(effect);
            if (effect.kind == PointerEffect::PUT_ITEM || effect.kind == PointerEffect::PUT_BACK) {
                item = effect.times;
            }
        }
        return text;
    }
};

TEST(PointerTracker, SweepOverDates)
{
    Mouse mouse;
    EXPECT_EQ(mouse.Press(CCHT_NOWHERE, At(1)), "");
    EXPECT_EQ(mouse.Press(CCHT_ONCELL, At(3)), "begin 03-00:00; clear; capture");
    EXPECT_EQ(mouse.Move(CCHT_ONITEM, At(5)), "extend 05-00:00") << "an item in the way does not stop a sweep";
    EXPECT_EQ(mouse.Move(CCHT_NOWHERE, At(9)), "");
    EXPECT_EQ(mouse.Release(CCHT_NOWHERE, At(9)), "arrow; release");
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(6)), "extend 06-00:00") << "released nowhere, the sweep goes on";
    EXPECT_EQ(mouse.Release(CCHT_ONDAYCAPTION, At(7)), "extend 07-00:00; arrow; release");
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(8)), "");
    EXPECT_EQ(mouse.Press(CCHT_ONFULLDAY, At(3)), "begin-days 03-00:00; clear; capture");
    EXPECT_EQ(mouse.Cancel(), "arrow; release");
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(8)), "");

    COleDateTime none; // as on a ruler
    none.SetStatus(COleDateTime::invalid);
    EXPECT_EQ(mouse.Press(CCHT_ONRULER, none), "clear");
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(8)), "");
    mouse.Press(CCHT_ONCELL, At(3));
    EXPECT_EQ(mouse.Move(CCHT_ONRULER, none), "");
    EXPECT_EQ(mouse.Release(CCHT_ONRULER, none), "arrow; release") << "what was swept stays";
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(8)), "");
}

TEST(PointerTracker, ADragNeedsMoreThanFivePixelsAndMovesFromTheNextMove)
{
    Mouse mouse;
    EXPECT_EQ(mouse.Press(CCHT_ONITEM, At(10, 9)), "select 7; capture");
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(12, 14), CPoint(105, 95)), "");
    EXPECT_EQ(mouse.Release(CCHT_ONCELL, At(12, 14)), "arrow; release");
    mouse.Press(CCHT_ONITEM, At(10, 9));
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(12, 14), CPoint(100, 106)), "drag-cursor");
    EXPECT_TRUE(mouse.tracker.IsDragging());
    EXPECT_EQ(mouse.Release(CCHT_ONCELL, At(12, 14)), "arrow; release") << "nothing has moved yet";
    mouse.Press(CCHT_ONITEM, At(10, 9));
    mouse.Move(CCHT_ONCELL, At(12, 14), CPoint(94, 100));
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(12, 14)), "drag-cursor; mark 12-14:00; put 12-14:00 12-16:00");
    EXPECT_EQ(mouse.Move(CCHT_NOWHERE, At(13)), "drag-cursor");
    EXPECT_EQ(mouse.Release(CCHT_ONITEM, At(12, 14)), "moved; arrow; release");
    EXPECT_FALSE(mouse.tracker.IsBusy());
    mouse.movable = false;
    EXPECT_EQ(mouse.Press(CCHT_ONITEM, At(12, 14)), "select 7; capture");
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, At(20)), "");
}

TEST(PointerTracker, CancelPutsTheItemBack)
{
    Mouse mouse;
    mouse.Press(CCHT_ONITEM, At(10, 9));
    EXPECT_EQ(mouse.Cancel(), "arrow; release") << "nothing was moved";
    mouse.Press(CCHT_ONITEM, At(10, 9));
    mouse.Move(CCHT_ONCELL, At(12));
    mouse.Move(CCHT_ONCELL, At(12));
    EXPECT_EQ(mouse.Cancel(), "put-back 10-09:00 10-11:00; restore; arrow; release");
    EXPECT_EQ(mouse.Cancel(), "");
    mouse.Press(CCHT_ONITEM, At(10, 9));
    mouse.Move(CCHT_ONCELL, At(12));
    mouse.itemThere = false;
    mouse.Move(CCHT_ONCELL, At(13));
    EXPECT_FALSE(mouse.tracker.IsBusy()) << "an item that is gone ends the drag";
}

TEST(PointerTracker, ADropThatChangesNothingNeedNotBeReported)
{
    Mouse mouse;
    const auto drag = [&](int day) {
        mouse.Press(CCHT_ONITEM, At(10, 9));
        mouse.Move(CCHT_ONCELL, At(12));
        mouse.Move(CCHT_ONCELL, At(12, 9));
        mouse.Move(CCHT_ONCELL, At(day, 9));
    };
    drag(10);
    EXPECT_EQ(mouse.Release(CCHT_ONCELL, At(10, 9), false), "arrow; release") << "back where it was";
    drag(10);
    EXPECT_EQ(mouse.Release(CCHT_ONCELL, At(10, 9)), "moved; arrow; release");
    drag(11);
    EXPECT_EQ(mouse.Release(CCHT_ONCELL, At(11, 9), false), "moved; arrow; release");
}

TEST(PointerTracker, ASweepIsUnderWayBeyondTheSlop)
{
    Mouse mouse;
    mouse.Press(CCHT_ONCELL, At(3));
    for (const auto& [x, isUnderWay] : {std::pair{101, false}, {105, false}, {106, true}, {100, true}}) {
        mouse.Move(CCHT_ONCELL, At(3), CPoint(x, 100));
        EXPECT_EQ(mouse.tracker.IsUnderWay(), isUnderWay) << x;
    }
    mouse.Release(CCHT_ONCELL, At(3));
    EXPECT_FALSE(mouse.tracker.IsUnderWay());
    mouse.Press(CCHT_ONCELL, At(3));
    EXPECT_FALSE(mouse.tracker.IsUnderWay()) << "a new press";
}

TEST(PointerTracker, ADropThatIsBeingReportedIsNotTakenBack)
{
    Mouse mouse;
    mouse.Press(CCHT_ONITEM, At(10, 9));
    mouse.Move(CCHT_ONCELL, At(12));
    mouse.Move(CCHT_ONCELL, At(12));
    PointerHit hit;
    hit.code = CCHT_ONCELL;
    mouse.tracker.Release(hit);
    EXPECT_TRUE(mouse.tracker.IsDragging());
    for (const PointerEffect& effect : mouse.tracker.Cancel()) { // the host opens a dialog in the notification
        EXPECT_NE(effect.kind, PointerEffect::PUT_BACK);
    }
}

TEST(PointerTracker, ExtendedDragsKeepTheGrabAndPullEdges)
{
    struct Row
    {
        const char* what;
        ItemTimes item;
        ItemEdge edge;
        int pressCode;
        COleDateTime press;
        int moveCode;
        COleDateTime move;
        const char* put;
    };
    const ItemTimes timed = {At(10, 9), At(10, 11)};
    const ItemTimes days = {At(10, 9), At(12, 11)};
    const Row rows[] = {
        {"the grab stays", timed, EDGE_NONE, CCHT_ONITEM, At(10, 10), CCHT_ONCELL, At(10, 14), "put 10-13:00 10-15:00"},
        {"whole days keep the time", timed, EDGE_NONE, CCHT_ONITEM, At(10), CCHT_ONCELL, At(14),
         "put 14-09:00 14-11:00"},
        {"from the rows to the band: days", timed, EDGE_NONE, CCHT_ONITEM, At(10, 10), CCHT_ONFULLDAY, At(11),
         "put 11-09:00 11-11:00"},
        {"lower edge: end of the row", timed, EDGE_BOTTOM, CCHT_ONITEM, At(10, 10, 30), CCHT_ONCELL, At(10, 12),
         "put 10-09:00 10-12:30"},
        {"lower edge: one row stays", timed, EDGE_BOTTOM, CCHT_ONITEM, At(10, 10, 30), CCHT_ONCELL, At(10, 7),
         "put 10-09:00 10-09:30"},
        {"lower edge in another column: the item's day", timed, EDGE_BOTTOM, CCHT_ONITEM, At(10, 10, 30), CCHT_ONCELL,
         At(13, 15), "put 10-09:00 10-15:30"},
        {"lower edge: not beyond midnight", timed, EDGE_BOTTOM, CCHT_ONITEM, At(10, 10, 30), CCHT_ONCELL,
         At(10, 23, 30), "put 10-09:00 10-23:59"},
        {"right edge: by days", days, EDGE_RIGHT, CCHT_ONFULLDAYITEM, At(12), CCHT_ONFULLDAY, At(15),
         "put 10-09:00 15-11:00"},
        {"right edge: not before the start", days, EDGE_RIGHT, CCHT_ONFULLDAYITEM, At(12), CCHT_ONFULLDAY, At(5),
         "put 10-09:00 10-23:59"},
        {"right edge: exactly to the start",
         {At(10, 9), At(12, 9)},
         EDGE_RIGHT,
         CCHT_ONFULLDAYITEM,
         At(12),
         CCHT_ONFULLDAY,
         At(10),
         "put 10-09:00 10-09:00"},
        {"right edge: an item of one day keeps its end", timed, EDGE_RIGHT, CCHT_ONFULLDAYITEM, At(10), CCHT_ONFULLDAY,
         At(5), "put 10-09:00 10-11:00"},
    };
    for (const Row& row : rows) {
        Mouse mouse;
        mouse.extended = true;
        mouse.item = row.item;
        mouse.edge = row.edge;
        mouse.Press(row.pressCode, row.press);
        mouse.Move(row.moveCode, row.move, CPoint(100, 120));
        const std::string effects = mouse.Move(row.moveCode, row.move);
        EXPECT_EQ(effects.substr(effects.find("put")), row.put) << row.what;
        mouse.Move(row.pressCode, row.press);
        mouse.Cancel();
        EXPECT_TRUE(mouse.item.start == row.item.start && mouse.item.end == row.item.end) << row.what;
    }
}

TEST(PointerTracker, TheBandMakesItemsAllDayAndTheRowsTimed)
{
    const ItemTimes timed = {At(10, 9), At(10, 11)};
    const ItemTimes allDay = {At(10), At(10, 23, 59), 1};
    const ItemTimes days = {At(10, 9), At(12, 11)};
    const struct
    {
        const char* what;
        ItemTimes item;
        int pressCode;
        COleDateTime press;
        int moveCode;
        COleDateTime move;
        const char* put;
    } rows[] = {
        {"into the band", timed, CCHT_ONITEM, At(10, 10), CCHT_ONFULLDAY, At(11), "put 11-00:00 11-23:59 all day"},
        {"into the rows", allDay, CCHT_ONFULLDAYITEM, At(10), CCHT_ONCELL, At(11, 14), "put 11-14:00 11-15:00"},
        {"several days stay in the band", days, CCHT_ONFULLDAYITEM, At(10), CCHT_ONCELL, At(11, 14),
         "put 11-09:00 13-11:00"},
        {"within the band", allDay, CCHT_ONFULLDAYITEM, At(10), CCHT_ONFULLDAY, At(12),
         "put 12-00:00 12-23:59 all day"},
        {"within the rows", timed, CCHT_ONITEM, At(10, 10), CCHT_ONCELL, At(11, 14), "put 11-13:00 11-15:00"},
    };
    for (const auto& row : rows) {
        Mouse mouse;
        mouse.extended = mouse.wholeDayByDrag = true;
        mouse.item = row.item;
        mouse.Press(row.pressCode, row.press);
        mouse.Move(row.moveCode, row.move, CPoint(100, 120));
        const std::string effects = mouse.Move(row.moveCode, row.move);
        EXPECT_EQ(effects.substr(effects.find("put")), row.put) << row.what;
        mouse.Cancel();
        EXPECT_TRUE(mouse.item.start == row.item.start && mouse.item.fullday == row.item.fullday) << row.what;
    }
}

TEST(PointerTracker, DatesAtTheEndOfTimeDoNotMove)
{
    Mouse mouse;
    mouse.extended = true;
    mouse.item = {COleDateTime(9999, 12, 30, 9, 0, 0), COleDateTime(9999, 12, 31, 9, 0, 0)};
    mouse.Press(CCHT_ONITEM, COleDateTime(9999, 12, 30, 0, 0, 0));
    mouse.Move(CCHT_ONCELL, COleDateTime(9999, 12, 31, 0, 0, 0), CPoint(0, 0));
    EXPECT_EQ(mouse.Move(CCHT_ONCELL, COleDateTime(9999, 12, 31, 0, 0, 0)), "drag-cursor");
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    EXPECT_EQ(mouse.Move(CCHT_ONFULLDAY, none), "drag-cursor");
}

TEST(PointerTracker, EdgesAndScrollStrips)
{
    const CRect box(10, 10, 110, 50);
    const int both = EDGE_BOTTOM | EDGE_RIGHT;
    const struct
    {
        CPoint point;
        int pullable;
        ItemEdge expected;
    } edges[] = {
        {{50, 45}, both, EDGE_NONE},         {{50, 46}, both, EDGE_BOTTOM},     {{50, 50}, both, EDGE_NONE},
        {{106, 20}, both, EDGE_RIGHT},       {{105, 20}, both, EDGE_NONE},      {{109, 49}, both, EDGE_BOTTOM},
        {{109, 49}, EDGE_RIGHT, EDGE_RIGHT}, {{109, 49}, EDGE_NONE, EDGE_NONE},
    };
    for (const auto& row : edges) {
        EXPECT_EQ(EdgeAt(box, row.point, row.pullable), row.expected) << row.point.x << ',' << row.point.y;
    }
    int grabbable = 0;
    for (int y = 0; y < 8; ++y) {
        grabbable += EdgeAt(CRect(0, 0, 50, 8), CPoint(20, y), both) == EDGE_NONE;
    }
    EXPECT_EQ(grabbable, 6) << "a low box can still be moved";

    const CRect content(0, 100, 300, 400);
    const struct
    {
        int y;
        int step;
        bool isOutside;
    } places[] = {{50, -1, true},  {99, -1, true},  {100, -1, false}, {107, -1, false}, {108, 0, false},
                  {391, 0, false}, {392, 1, false}, {399, 1, false},  {400, 1, true},   {900, 1, true}};
    for (const auto& row : places) {
        const ScrollPlace place = ScrollPlaceAt(content, CPoint(10, row.y));
        EXPECT_EQ(place.step, row.step) << row.y;
        EXPECT_EQ(place.isOutside, row.isOutside) << row.y;
    }
    EXPECT_EQ(ScrollPlaceAt(CRect(0, 0, 10, 10), CPoint(5, 50)).step, 0) << "no room";
}

} // namespace
