// Hands on real windows: mouse and keyboard through the system's own input queue, and all that the parent receives of
// it.
#include "timegrid/GridScene.h"
#include "views/daygrid/MonthViewCtrl.h"

#include <gtest/gtest.h>

using namespace testsupport;
using gridtest::At;
using Lines = std::vector<std::string>;
namespace hand = testsupport::hardware;

namespace {

constexpr int kSettleMs = 3000;

std::string Short(const SYSTEMTIME& time)
{
    const std::string text = TimeText(time);
    return text == "none" ? text : text.substr(5, 11);
}

// A calendar under a parent that does what hosts do: an opened item or cell is edited in place. Each notification is
// a line "CODE item/data MM-DD hh:mm hit/keys", and what the host found in the item at that moment.
template <class View>
class Hands
{
public:
    RecordingParent parent;
    View view;
    Lines reports;

    explicit Hands(CSize size)
    {
        gridtest::g_now = At(9, 0);
        SetCalendarClock(&gridtest::Now);
        parent.Create(size.cx + 120, size.cy);
        view.SetCurrentDate(At(9, 0));
        view.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 1, 1), &parent, 7);
        view.MoveWindow(0, 0, size.cx + ::GetSystemMetrics(SM_CXVSCROLL), size.cy);
        field.Create(WS_CHILD | WS_VISIBLE, CRect(size.cx + 30, 10, size.cx + 110, 40), &parent, 8);
        other.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, CRect(1200, 900, 1300, 950), nullptr, 0);
        parent.SetHook([this](const Notification& n) { return Record(n); });
        EXPECT_TRUE(hand::Focus(view));
    }
    ~Hands()
    {
        parent.SetHook(nullptr);
        other.DestroyWindow();
        SetCalendarClock(nullptr);
    }

    void Add(const char* text, const COleDateTime& start, const COleDateTime& end, BOOL movable = TRUE)
    {
        tagCC_ITEM item;
        item.dtStart = start;
        item.dtEnd = end;
        item.strText = text;
        item.lParam = 70 + view.GetItemCount();
        item.bMovable = movable;
        view.AddItem(&item);
        view.Refresh();
    }

    std::string ItemText(int index)
    {
        tagCC_ITEM item;
        view.GetItem(index, item);
        return (item.strText + item.dtStart.Format(" %d %H:%M-") + item.dtEnd.Format("%d %H:%M")).GetString();
    }
    // What a user would see: the current item, the selected range, what is held, and the first item.
    std::string State()
    {
        COleDateTime begin, end;
        view.GetSelRange(begin, end);
        const std::string range = (begin.Format("%d %H:%M..") + end.Format("%d %H:%M")).GetString();
        return "cur=" + std::to_string(view.GetCurSel()) + " sel=" + range + " " + ItemText(0) +
               (::GetCapture() ? " held" : "") + (::GetDlgItem(view, 1) ? " box" : "");
    }

    struct Step
    {
        const char* what;
        std::function<void()> act;
        Lines reports;
        std::string state;
    };
    void Play(const std::vector<Step>& steps)
    {
        for (const Step& step : steps) {
            reports.clear();
            step.act();
            PumpUntil([&] { return reports == step.reports && State() == step.state; }, kSettleMs);
            EXPECT_EQ(reports, step.reports) << step.what;
            EXPECT_EQ(State(), step.state) << step.what;
        }
    }

    void Press(CPoint point)
    {
        hand::Move(view, point);
        hand::LeftDown();
    }
    // Takes hold at one point and comes to the other; the button stays down. No two presses are a double click.
    void Pull(CPoint from, CPoint to)
    {
        from.x += ++m_pulls % 2 * 10;
        Press(from);
        for (int step = 1; step <= 4; ++step) {
            hand::Move(view, CPoint(from.x + (to.x - from.x) * step / 4, from.y + (to.y - from.y) * step / 4));
        }
        hand::Move(view, CPoint(to.x + 1, to.y));
    }

    CEdit field; // beside the calendar, takes the focus when clicked
    CWnd other;  // another window of the same program

private:
    int m_pulls = 0;

    LRESULT Record(const Notification& n)
    {
        std::string line = n.Name().substr(4);
        if (n.record == Notification::Record::Item) {
            line += " " + std::to_string(n.item.nItem) + "/" + std::to_string(n.item.lParam) + " " +
                    Short(n.item.time) + " " + std::to_string(n.item.nFlags) + "/" + std::to_string(n.item.nSubValue);
            if (n.Code() == CCN_ITEMMOVED) {
                line += " " + ItemText(n.item.nItem);
            }
        } else if (n.record == Notification::Record::Dates) {
            line += " " + Short(n.dates.stFirst) + ".." + Short(n.dates.stLast);
        } else if (n.record == Notification::Record::Edit) {
            line += " \"" + n.editText + "\" " + Short(n.edit.stStart) + ".." + Short(n.edit.stEnd);
        }
        if (n.hdr.hwndFrom != view.m_hWnd || n.hdr.idFrom != 7) {
            line += " from elsewhere";
        }
        reports.push_back(line);
        if (n.Code() == CCN_ITEMDBLCLICK) {
            view.BeginEditItem("old");
        }
        if (n.Code() == CCN_ITEMRCLICK && takesCapture) {
            parent.SetCapture(); // as a menu does
            ::ReleaseCapture();
        }
        return 0;
    }

public:
    bool takesCapture = false;
};

// ---- Month: columns and rows of 100 pixels, the first cell is 26 March 2017

class MonthHands : public Hands<CMonthViewCtrl>
{
public:
    MonthHands() : Hands(CSize(704, 646))
    {
        Add("Talk", At(9, 30, 12), At(10, 30, 12));
        Add("Trip", At(0, 0, 18), At(0, 0, 20));
        Add("Fixed", At(12, 0, 25), At(13, 0, 25), FALSE);
        Play({{"go", [this] { hand::Click(view, Cell(5)); }, {"ITEMCLICK -1/-1 04-05 00:00 4/1"}, kNone + kTalk}});
    }
    static CPoint Cell(int day) { return CPoint(50 + (day + 5) % 7 * 100, 46 + (day + 5) / 7 * 100 + 80); }
    static CPoint Bar(int day) { return Cell(day) - CSize(0, 52); }

    const std::string kTalk = "Talk 12 09:30-12 10:30";
    const std::string kNone = "cur=-1 sel=05 00:00..05 00:00 ";
    const std::string kPressed = "ITEMCLICK 0/70 04-12 00:00 2/1";
};

TEST(MonthHands, ClicksAndSweeps)
{
    MonthHands h;
    const std::string rest = " " + h.kTalk;
    h.Play({
        {"sweep",
         [&] { hand::Drag(h.view, h.Cell(6), h.Cell(14)); },
         {"ITEMCLICK -1/-1 04-06 00:00 4/1"},
         "cur=-1 sel=06 00:00..14 00:00" + rest},
        {"held, and backwards",
         [&] { h.Pull(h.Cell(14), h.Cell(3)); },
         {"ITEMCLICK -1/-1 04-14 00:00 4/1"},
         "cur=-1 sel=03 00:00..14 00:00" + rest + " held"},
        {"let go", [] { hand::LeftUp(); }, {}, "cur=-1 sel=03 00:00..14 00:00" + rest},
        {"Shift and click",
         [&] {
             hand::Move(h.view, h.Cell(7));
             hand::KeyDown(VK_SHIFT);
             hand::LeftDown();
             hand::LeftUp();
             hand::KeyUp(VK_SHIFT);
         },
         {"ITEMCLICK -1/-1 04-07 00:00 4/5"},
         "cur=-1 sel=07 00:00..07 00:00" + rest},
        {"an item",
         [&] { hand::Click(h.view, h.Bar(19)); },
         {"ITEMCLICK 1/71 04-19 00:00 2/1"},
         "cur=1 sel=07 00:00..07 00:00" + rest},
        {"title",
         [&] { hand::Click(h.view, CPoint(300, 10)); },
         {"ITEMCLICK -1/-1 none 1/1"},
         "cur=1 sel=07 00:00..07 00:00" + rest},
        {"right button",
         [&] { hand::RightClick(h.view, h.Bar(12)); },
         {"ITEMRCLICK 0/70 04-12 00:00 2/2", "CONTEXTMENU 0/70 04-12 00:00 2/0"},
         "cur=1 sel=07 00:00..07 00:00" + rest},
        {"double click",
         [&] { hand::DoubleClick(h.view, h.Cell(10)); },
         {"ITEMCLICK -1/-1 04-10 00:00 4/1", "ITEMDBLCLICK -1/-1 04-10 00:00 4/1"},
         "cur=-1 sel=10 00:00..10 00:00" + rest + " box"},
    });
}

TEST(MonthHands, DragsThatAreTakenBackLeaveNothing)
{
    MonthHands h;
    const std::string kHeld = "cur=0 sel=14 00:00..14 00:00 Talk 14 00:00-14 01:00 held";
    const std::string kBack = "cur=0 sel=05 00:00..05 00:00 " + h.kTalk;
    const auto pull = [&] { h.Pull(h.Bar(12), h.Cell(14)); };
    const auto drop = [] { hand::LeftUp(); };
    h.Play({
        {"a trembling hand",
         [&] {
             h.Pull(h.Bar(12), h.Bar(12) + CSize(14, -5));
             drop();
         },
         {h.kPressed},
         "cur=0 sel=05 00:00..05 00:00 " + h.kTalk},
        {"drag", pull, {h.kPressed}, kHeld},
        {"Escape", [] { hand::Key(VK_ESCAPE); }, {}, kBack},
        {"too late", drop, {}, kBack},
        {"drag", pull, {h.kPressed}, kHeld},
        {"right button: reported, and the drag goes on",
         [] {
             hand::RightDown();
             hand::RightUp();
         },
         {"ITEMRCLICK -1/-1 04-14 00:00 4/3", "CONTEXTMENU -1/-1 04-14 00:00 4/0"},
         kHeld},
        {"right button of a host that shows a menu",
         [&] {
             h.takesCapture = true;
             hand::Move(h.view, h.Cell(14) + CSize(20, 0));
             hand::RightDown();
             h.takesCapture = false;
         },
         {"ITEMRCLICK -1/-1 04-14 00:00 4/3"},
         kBack},
        {"both up", [] { hand::LeftUp(), hand::RightUp(); }, {"CONTEXTMENU -1/-1 04-14 00:00 4/0"}, kBack},
        {"drag", pull, {h.kPressed}, kHeld},
        {"another window comes to the front", [&] { ::SetForegroundWindow(h.other); }, {}, kBack},
        {"and back",
         [&] {
             drop();
             hand::Focus(h.view);
             hand::Move(h.view, h.Cell(21));
         },
         {},
         kBack},
    });
}

TEST(MonthHands, DragsEndInADrop)
{
    MonthHands h;
    const std::string kHeld = "cur=0 sel=14 00:00..14 00:00 Talk 14 00:00-14 01:00 held";
    const auto drop = [] { hand::LeftUp(); };
    h.Play({
        {"drag", [&] { h.Pull(h.Bar(12), h.Cell(14)); }, {h.kPressed}, kHeld},
        {"beside the days nothing moves", [&] { hand::Move(h.view, CPoint(730, h.Cell(14).y)); }, {}, kHeld},
        {"dropped there",
         drop,
         {"ITEMMOVED 0/70 none 1/0 Talk 14 00:00-14 01:00"},
         "cur=0 sel=14 00:00..14 00:00 Talk 14 00:00-14 01:00"},
        {"with Ctrl",
         [&] {
             h.Pull(h.Bar(14), h.Bar(11));
             hand::KeyDown(VK_CONTROL);
             drop();
             hand::KeyUp(VK_CONTROL);
         },
         {"ITEMCLICK 0/70 04-14 00:00 2/1", "ITEMMOVED 0/70 04-11 00:00 2/8 Talk 11 00:00-11 01:00"},
         "cur=0 sel=11 00:00..11 00:00 Talk 11 00:00-11 01:00"},
        {"three days keep their length",
         [&] { hand::Drag(h.view, h.Bar(18), h.Cell(17)); },
         {"ITEMCLICK 1/71 04-18 00:00 2/1", "ITEMMOVED 1/71 04-17 00:00 4/0 Trip 17 00:00-19 00:00"},
         "cur=1 sel=17 00:00..17 00:00 Talk 11 00:00-11 01:00"},
        {"not movable",
         [&] { hand::Drag(h.view, h.Bar(25), h.Cell(27)); },
         {"ITEMCLICK 2/72 04-25 00:00 2/1"},
         "cur=2 sel=17 00:00..17 00:00 Talk 11 00:00-11 01:00"},
    });
}

TEST(MonthHands, KeysAndWheel)
{
    MonthHands h;
    const std::string rest = " " + h.kTalk;
    const std::string kSixth = "sel=06 00:00..06 00:00" + rest;
    const auto key = [](int key) { return [=] { hand::Key(key); }; };
    const auto shift = [](int key) { return [=] { hand::Key(key, {VK_SHIFT}); }; };
    const auto wheel = [&](int notches) { return [&, notches] { hand::Wheel(h.view, h.Cell(12), notches); }; };
    h.Play({
        {"right", key(VK_RIGHT), {}, "cur=-1 " + kSixth},
        {"extend", shift(VK_RIGHT), {}, "cur=-1 sel=06 00:00..07 00:00" + rest},
        {"extend again", shift(VK_DOWN), {}, "cur=-1 sel=06 00:00..14 00:00" + rest},
        {"and go back over the begin", shift(VK_UP), {}, "cur=-1 sel=06 00:00..07 00:00" + rest},
        {"left ends it", key(VK_LEFT), {}, "cur=-1 " + kSixth},
        {"Enter on no item", key(VK_RETURN), {"ITEMDBLCLICK -1/-1 none 4/28"}, "cur=-1 " + kSixth + " box"},
        {"Escape", key(VK_ESCAPE), {}, "cur=-1 " + kSixth},
        {"Space on no item", key(VK_SPACE), {"ITEMCLICK -1/-1 none 4/57"}, "cur=-1 " + kSixth},
        {"Tab", key(VK_TAB), {"ITEMCLICK 0/70 04-12 09:30 2/0"}, "cur=0 " + kSixth},
        {"Tab", key(VK_TAB), {"ITEMCLICK 1/71 04-18 00:00 2/0"}, "cur=1 " + kSixth},
        {"Shift+Tab goes on, too", shift(VK_TAB), {"ITEMCLICK 2/72 04-25 12:00 2/0"}, "cur=2 " + kSixth},
        {"menu key", key(VK_APPS), {"CONTEXTMENU 2/72 04-25 12:00 2/0"}, "cur=2 " + kSixth},
        {"Tab on the last", key(VK_TAB), {"ITEMCLICK 0/70 04-12 09:30 2/0"}, "cur=0 " + kSixth},
        {"away from the user",
         wheel(1),
         {"SELDATECHANGE -1/-1 04-19 09:00 4/0", "VIEWRANGECHANGE 03-19 00:00..04-29 23:59"},
         "cur=0 sel=19 09:00..19 09:00" + rest},
        {"three notches make one step",
         wheel(-3),
         {"SELDATECHANGE -1/-1 04-26 09:00 4/0", "VIEWRANGECHANGE 03-26 00:00..05-06 23:59"},
         "cur=0 sel=26 09:00..26 09:00" + rest},
        {"a page",
         key(VK_NEXT),
         {"SELDATECHANGE -1/-1 05-10 09:00 4/0", "VIEWRANGECHANGE 04-09 00:00..05-20 23:59"},
         "cur=0 sel=10 09:00..10 09:00" + rest},
    });
}

TEST(MonthHands, TypesIntoTheCell)
{
    MonthHands h;
    const std::string kFifth = h.kNone + h.kTalk;
    const std::string kRange = " 04-05 00:00..04-05 00:00";
    const Lines kOpened = {"ITEMDBLCLICK -1/-1 none 4/28"};
    const auto open = [] {
        hand::Key(VK_RETURN);
        hand::Type("aB ");
    };
    const auto key = [](int key) { return [=] { hand::Key(key); }; };
    struct Ending
    {
        const char* what;
        std::function<void()> act;
        Lines reports;
        std::string state;
    };
    const Ending endings[] = {
        {"Enter", key(VK_RETURN), {"IPE_ENDEDITITEM \"aB old\"" + kRange}, kFifth},
        {"Tab", key(VK_TAB), {"IPE_ENDEDITITEM \"aB old\"" + kRange}, kFifth},
        {"Escape", key(VK_ESCAPE), {}, kFifth},
        {"keys that belong to the text",
         [] {
             hand::Key(VK_LEFT);
             hand::Key(VK_BACK);
             hand::Key(VK_END);
             hand::Key(VK_RETURN);
         },
         {"IPE_ENDEDITITEM \"a old\"" + kRange},
         kFifth},
        {"a click on an item",
         [&] { hand::Click(h.view, h.Bar(12)); },
         {"IPE_ENDEDITITEM \"aB old\"" + kRange, h.kPressed},
         "cur=0 sel=05 00:00..05 00:00 " + h.kTalk},
        {"a click into another field",
         [&] { hand::Click(h.field, CPoint(5, 5)); },
         {"IPE_ENDEDITITEM \"aB old\"" + kRange},
         kFifth},
        {"another window", [&] { ::SetForegroundWindow(h.other); }, {"IPE_ENDEDITITEM \"aB old\"" + kRange}, kFifth},
        {"the wheel",
         [&] { hand::Wheel(h.view, h.Cell(12), -1); },
         {"IPE_ENDEDITITEM \"aB old\"" + kRange, "SELDATECHANGE -1/-1 05-03 09:00 4/0",
          "VIEWRANGECHANGE 04-02 00:00..05-13 23:59"},
         "cur=-1 sel=03 09:00..03 09:00 " + h.kTalk},
    };
    for (const Ending& ending : endings) {
        h.view.SetCurSel(-1);
        hand::Focus(h.view);
        h.Play({{"open", open, kOpened, kFifth + " box"}, {ending.what, ending.act, ending.reports, ending.state}});
    }
}

// ---- Day: rows of half an hour, 20 pixels each, from 60 down

class DayHands : public Hands<CDayViewCtrl>
{
public:
    DayHands() : Hands(CSize(500, 500))
    {
        Add("Talk", At(12, 0), At(13, 0));
        view.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, kFirstRow));
        reports.clear();
    }
    static constexpr int kFirstRow = 16; // 8:00 is the first row in sight
    // pixels: below the top of the row that begins then
    static CPoint Row(int hour, int minute, int pixels = 10)
    {
        return CPoint(200, 60 + (hour * 2 + minute / 30 - kFirstRow) * 20 + pixels);
    }
};

TEST(DayHands, SweepsMovesAndPulls)
{
    DayHands h;
    const std::string kPressed = "ITEMCLICK 0/70 04-26 12:30 2/1";
    const auto drop = [] { hand::LeftUp(); };
    h.Play({
        {"the band",
         [&] { hand::Click(h.view, CPoint(200, 45)); },
         {"ITEMCLICK -1/-1 04-26 07:30 16/1"},
         "cur=-1 sel=26 00:00..26 23:59 Talk 26 12:00-26 13:00"},
        {"sweep",
         [&] { hand::Drag(h.view, h.Row(15, 0), h.Row(16, 30)); },
         {"ITEMCLICK -1/-1 04-26 15:00 4/1"},
         "cur=-1 sel=26 15:00..26 17:00 Talk 26 12:00-26 13:00"},
        {"held in its second row, the item keeps its distance",
         [&] { h.Pull(h.Row(12, 30), h.Row(14, 30)); },
         {kPressed},
         "cur=0 sel=26 14:30..26 15:00 Talk 26 14:00-26 15:00 held"},
        {"dropped",
         drop,
         {"ITEMMOVED 0/70 04-26 14:30 2/0 Talk 26 14:00-26 15:00"},
         "cur=0 sel=26 14:30..26 15:00 Talk 26 14:00-26 15:00"},
        {"by its lower edge",
         [&] { h.Pull(h.Row(14, 30, 18), h.Row(16, 0)); },
         {"ITEMCLICK 0/70 04-26 14:30 2/1"},
         "cur=0 sel=26 16:00..26 16:30 Talk 26 14:00-26 16:30 held"},
        {"taken back, the selection too",
         [] { hand::Key(VK_ESCAPE); },
         {},
         "cur=0 sel=26 14:30..26 15:00 Talk 26 14:00-26 15:00"},
        {"let go", drop, {}, "cur=0 sel=26 14:30..26 15:00 Talk 26 14:00-26 15:00"},
        {"above its start a row is left",
         [&] {
             h.Pull(h.Row(14, 30, 18), h.Row(10, 0));
             drop();
         },
         {"ITEMCLICK 0/70 04-26 14:30 2/1", "ITEMMOVED 0/70 04-26 10:00 4/0 Talk 26 14:00-26 14:30"},
         "cur=0 sel=26 10:00..26 10:30 Talk 26 14:00-26 14:30"},
        {"into the band it keeps its times",
         [&] { hand::Drag(h.view, h.Row(14, 0), CPoint(200, 68)); },
         {"ITEMCLICK 0/70 04-26 14:00 2/1", "ITEMMOVED 0/70 04-26 08:00 2/0 Talk 26 08:00-26 08:30"},
         "cur=0 sel=26 08:00..26 08:30 Talk 26 08:00-26 08:30"},
        {"Ctrl, another copy wish",
         [&] {
             h.Pull(h.Row(8, 0), h.Row(9, 0));
             hand::KeyDown(VK_CONTROL);
             drop();
             hand::KeyUp(VK_CONTROL);
         },
         {"ITEMCLICK 0/70 04-26 08:00 2/1", "ITEMMOVED 0/70 04-26 09:00 2/8 Talk 26 09:00-26 09:30"},
         "cur=0 sel=26 09:00..26 09:30 Talk 26 09:00-26 09:30"},
    });
}

} // namespace
