// The objects that programs get of real windows: trees, actions, events, and what becomes of them.
#include "access/AccessObject.h"
#include "core/MoreListCtrl.h"
#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
#include "pickers/YearMonthPickerCtrl.h"
#include "pickers/YearMonthPopup.h"
#include "tests/access/AccessScene.h"
#include "tests/access/Reader.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace testsupport;
using namespace dayvane;
using accesstest::Spoken;
using gridtest::At;

namespace {

struct Received
{
    DWORD event;
    HWND window;
    LONG child;
};
std::vector<Received> g_received;

void CALLBACK Receive(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD)
{
    if (object == OBJID_CLIENT) {
        g_received.push_back({event, window, child});
    }
}

// Events of a window that ends are lost on their way through the queue; a hook inside the process receives them.
class Listening
{
public:
    Listening()
    {
        g_received.clear();
        m_hook = ::SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, Receive, ::GetCurrentProcessId(), 0,
                                   WINEVENT_OUTOFCONTEXT);
        m_inside = ::SetWinEventHook(EVENT_OBJECT_HIDE, EVENT_OBJECT_HIDE, ::GetModuleHandle(nullptr), Receive,
                                     ::GetCurrentProcessId(), 0, WINEVENT_INCONTEXT);
    }
    ~Listening()
    {
        ::UnhookWinEvent(m_hook);
        ::UnhookWinEvent(m_inside);
    }

    // The name of the part of the last event of that kind; waits for one whose name begins so.
    static bool HasReceived(DWORD event, const std::string& begin)
    {
        return PumpUntil(
            [&] {
                for (const Received& received : g_received) {
                    if (received.event != event) {
                        continue;
                    }
                    const Spoken part = Spoken::OfEvent(received.window, OBJID_CLIENT, received.child);
                    if (part.Name().compare(0, begin.size(), begin) == 0) {
                        return true;
                    }
                }
                return false;
            },
            3000);
    }

    // Of a window as a whole, which may be gone.
    static bool HasReceivedOfWindow(DWORD event, HWND window)
    {
        return PumpUntil(
            [&] {
                return std::any_of(g_received.begin(), g_received.end(), [&](const Received& received) {
                    return received.event == event && received.window == window;
                });
            },
            3000);
    }

private:
    HWINEVENTHOOK m_hook;
    HWINEVENTHOOK m_inside;
};

template <class View>
class Objects : public AccessScene<View>
{
public:
    void SetUp() override
    {
        AccessScene<View>::SetUp();
        this->Add("Walk", At(13, 0), At(14, 0));
        this->Add("Trip", At(0, 0), At(0, 0) + COleDateTimeSpan(2, 0, 0, 0));
        PumpMessages();
        this->view->SetCurSel(-1);
        this->parent.ClearLog();
    }
    void TearDown() override
    {
        this->parent.SetHook(nullptr);
        AccessScene<View>::TearDown();
    }
    Spoken Root() { return Spoken::OfWindow(*this->view); }
    Spoken ItemNamed(const char* text)
    {
        return Root().Find(
            [&](const Spoken& part) { return part.Role() == ROLE_SYSTEM_LISTITEM && part.Value() == text; });
    }
};

using Views =
    testing::Types<CMonthViewCtrl, CMonthViewCtrl2, CWeekViewCtrl, CYearViewCtrl, CDayViewCtrl, CWeekDayViewCtrl>;
TYPED_TEST_SUITE(Objects, Views);

void ExpectSound(const Spoken& part, int& count)
{
    ++count;
    std::set<std::string> names;
    const RECT place = part.Place();
    for (const Spoken& child : part.Children()) {
        EXPECT_TRUE(names.insert(child.Name()).second) << child.Name();
        EXPECT_FALSE(child.Name().empty());
        EXPECT_NE(0, child.Role());
        if (!child.Has(STATE_SYSTEM_OFFSCREEN)) {
            const RECT inner = child.Place();
            RECT common;
            ::IntersectRect(&common, &inner, &place);
            EXPECT_TRUE(::EqualRect(&common, &inner)) << child.Name();
        }
        EXPECT_EQ(part.Name(), child.Parent().Name());
        ExpectSound(child, count);
    }
}

} // namespace

TYPED_TEST(Objects, AreATreeThatSpeaksOfTheView)
{
    int count = 0;
    const Spoken root = this->Root();
    ASSERT_TRUE(root);
    ExpectSound(root, count);
    EXPECT_GT(count, 8);
    const Spoken talk = this->ItemNamed("Talk");
    ASSERT_TRUE(talk);
    EXPECT_NE(std::string::npos, talk.Name().find("10:00 to 11:00 Talk")) << talk.Name();
    for (int i = 0; i < this->view->GetScreenItems().GetSize(); ++i) {
        const auto& item = this->view->GetScreenItems()[i];
        if (item.nSource == 0 && !talk.Has(STATE_SYSTEM_OFFSCREEN)) {
            CRect box = item.rcItem;
            box.OffsetRect(0, -this->view->GetVertScrollOffset());
            this->view->ClientToScreen(&box);
            EXPECT_EQ(box, CRect(talk.Place()));
        }
    }
}

TYPED_TEST(Objects, ActAsTheMouseDoes)
{
    ASSERT_EQ(S_OK, this->ItemNamed("Walk").Select());
    EXPECT_EQ(1, this->view->GetCurSel());
    EXPECT_EQ(std::vector<std::string>{"CCN_ITEMCLICK"}, this->parent.Names());
    EXPECT_EQ("Walk", this->Root().Focus().Value());
    ASSERT_EQ(1u, this->Root().Selection().size());
    EXPECT_TRUE(this->ItemNamed("Walk").Has(STATE_SYSTEM_SELECTED));
    EXPECT_FALSE(this->ItemNamed("Talk").Has(STATE_SYSTEM_SELECTED));
    this->parent.ClearLog();
    ASSERT_EQ(S_OK, this->ItemNamed("Talk").Act());
    EXPECT_TRUE(PumpUntil([&] { return this->parent.Count(CCN_ITEMDBLCLICK) == 1; }));
    EXPECT_EQ(0, this->view->GetCurSel());
    this->parent.ClearLog();
    ASSERT_EQ(S_OK, this->ItemNamed("Talk").SetValue("Speech"));
    ASSERT_EQ(1, this->parent.Count(CCN_IPE_ENDEDITITEM));
    EXPECT_EQ("Speech", this->parent.Log().back().editText);
    EXPECT_EQ(1, this->parent.Count(CCN_RENAME));
    EXPECT_FALSE(::GetDlgItem(*this->view, 1)) << "no box stays open";
}

TYPED_TEST(Objects, NotifyOfFocusAndMoves)
{
    this->Root(); // somebody asks
    const Listening listening;
    hardware::Focus(*this->view);
    this->view->SetCurSel(0);
    hardware::Key(VK_TAB);
    const std::string walk = this->ItemNamed("Walk").Name();
    EXPECT_TRUE(Listening::HasReceived(EVENT_OBJECT_FOCUS, walk)) << walk;
    EXPECT_TRUE(Listening::HasReceived(EVENT_OBJECT_SELECTION, walk));
    hardware::Key(VK_RIGHT, {VK_CONTROL});
    EXPECT_TRUE(Listening::HasReceived(EVENT_SYSTEM_ALERT, "Moved to "));
    EXPECT_TRUE(Listening::HasReceived(0x8019, "Moved to ")) << "a live region";
    hardware::Key(VK_ESCAPE);
    PumpMessages();
    this->Add("New", At(18, 0), At(19, 0));
    EXPECT_TRUE(Listening::HasReceived(EVENT_OBJECT_REORDER, this->Root().Name()));
    tagCC_ITEM item;
    this->view->GetItem(1, item);
    item.strText = "Run";
    item.bMovable = FALSE;
    this->view->SetItem(1, &item);
    this->view->Refresh();
    const std::string run = this->ItemNamed("Run").Name();
    EXPECT_TRUE(Listening::HasReceived(EVENT_OBJECT_NAMECHANGE, run)) << run;
    EXPECT_TRUE(Listening::HasReceived(EVENT_OBJECT_VALUECHANGE, run));
    hardware::Key(VK_RIGHT, {VK_CONTROL});
    EXPECT_TRUE(Listening::HasReceived(EVENT_SYSTEM_ALERT, "Cannot be moved"));
    this->view->MoveWindow(0, 0, 640, 500);
    EXPECT_TRUE(Listening::HasReceived(EVENT_OBJECT_LOCATIONCHANGE, run));
}

TYPED_TEST(Objects, OutliveTheControlWithoutHarm)
{
    const long before = AccessObjectCount();
    {
        std::vector<Spoken> kept = {this->Root(), this->ItemNamed("Talk"), this->Root().Children().back()};
        delete this->view;
        this->view = nullptr;
        for (const Spoken& part : kept) {
            VARIANT self = {};
            self.vt = VT_I4;
            BSTR name = nullptr;
            VARIANT any = {};
            long count = 0;
            IDispatch* child = nullptr;
            EXPECT_EQ(CO_E_OBJNOTCONNECTED, part.Object()->get_accName(self, &name));
            EXPECT_EQ(CO_E_OBJNOTCONNECTED, part.Object()->get_accChildCount(&count));
            EXPECT_EQ(CO_E_OBJNOTCONNECTED, part.Object()->get_accState(self, &any));
            EXPECT_EQ(CO_E_OBJNOTCONNECTED, part.Object()->get_accParent(&child));
            EXPECT_EQ(CO_E_OBJNOTCONNECTED, part.Select());
            EXPECT_EQ(CO_E_OBJNOTCONNECTED, part.Act());
            EXPECT_EQ(CO_E_OBJNOTCONNECTED, part.SetValue("x"));
            EXPECT_TRUE(part.Children().empty());
        }
    }
    EXPECT_EQ(before, AccessObjectCount());
}

TYPED_TEST(Objects, AskedInTheMiddleOfThingsHarmNothing)
{
    const Spoken talk = this->ItemNamed("Talk");
    const CRect place(talk.Place());
    CRect client = place;
    this->view->ScreenToClient(&client);
    if (!talk.Has(STATE_SYSTEM_OFFSCREEN)) { // the mouse holds the item
        const CPoint point = client.CenterPoint();
        messages::LeftDown(*this->view, point);
        messages::Move(*this->view, point + CSize(30, 30), MK_LBUTTON);
        messages::Move(*this->view, point + CSize(40, 40), MK_LBUTTON);
        ASSERT_TRUE(this->view->IsDragging());
        EXPECT_EQ(E_ACCESSDENIED, this->ItemNamed("Walk").Select());
        EXPECT_EQ(E_ACCESSDENIED, this->ItemNamed("Walk").SetValue("x"));
        EXPECT_FALSE(accesstest::ReadAloud(this->Root()).empty());
        EXPECT_TRUE(this->view->IsDragging());
        messages::Key(*this->view, VK_ESCAPE);
        PumpMessages();
    }
    this->view->BeginEditItem("text");
    EXPECT_TRUE(this->Root().Focus()) << "the edit box";
    EXPECT_EQ(S_OK, this->ItemNamed("Walk").Select()) << "ends the edit as a click does";
    this->parent.SetHook([&](const Notification& n) {
        if (n.Code() == CCN_RENAME) {
            delete this->view;
            this->view = nullptr;
        }
        return LRESULT(0);
    });
    EXPECT_NE(S_OK, talk.SetValue("ends the control"));
    EXPECT_FALSE(this->view);
    EXPECT_EQ("", talk.Name());
}

TYPED_TEST(Objects, OpenTheListOfAMark)
{
    for (int i = 0; i < 60; ++i) {
        this->Add("crowd", At(10, 0), At(11, 0));
    }
    const Spoken mark = this->Root().Find([](const Spoken& part) { return part.Role() == ROLE_SYSTEM_PUSHBUTTON; });
    CMoreListCtrl* lists = this->view;
    if (!mark) {
        EXPECT_TRUE((std::is_same_v<TypeParam, CMonthViewCtrl2>)) << "blocks hide each other without a mark";
        return;
    }
    EXPECT_NE(std::string::npos, mark.Name().find("more item")) << mark.Name();
    const Listening listening;
    ASSERT_EQ(S_OK, mark.Act());
    ASSERT_TRUE(lists->IsMoreListOpen());
    const HWND popup = ::GetCapture();
    EXPECT_TRUE(Listening::HasReceivedOfWindow(EVENT_OBJECT_SHOW, popup));
    const Spoken list = Spoken::OfWindow(popup);
    EXPECT_EQ(ROLE_SYSTEM_LIST, list.Role());
    ASSERT_GT(list.Children().size(), 2u);
    EXPECT_TRUE(list.Children()[0].Has(STATE_SYSTEM_FOCUSED));
    messages::Key(*this->view, VK_DOWN);
    PumpMessages();
    EXPECT_TRUE(list.Children()[1].Has(STATE_SYSTEM_FOCUSED));
    ASSERT_EQ(S_OK, list.Children()[1].Act());
    EXPECT_FALSE(lists->IsMoreListOpen());
    EXPECT_TRUE(Listening::HasReceivedOfWindow(EVENT_OBJECT_HIDE, popup));
    EXPECT_NE(-1, this->view->GetCurSel());
    EXPECT_EQ("", list.Name()) << "gone with its window";
}

TEST(ViewObjects, SayWhatColoursAndLinesShow)
{
    SetAccessTexts(&EnglishAccessTexts());
    RecordingParent parent;
    parent.Create(900, 700);
    CMonthViewCtrl month;
    month.SetCurrentDate(At(9, 0));
    month.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 900, 700), &parent, 7);
    const auto saidOf = [&](const char* day) {
        return Spoken::OfWindow(month).FindNamed(day, ROLE_SYSTEM_CELL).Description();
    };
    EXPECT_EQ(u8"昭和の日", saidOf("Saturday 29 April 2017"));
    month.ShowHoliday(FALSE);
    EXPECT_EQ("day off", saidOf("Saturday 29 April 2017")) << "its colour stays";
    tagCALENDAR_DAY_PROPERTY property;
    property.strText = "stocktaking";
    month.SetDayProperty(COleDateTime(2017, 4, 25, 0, 0, 0), property);
    DayLines lines;
    lines.rokuyo = true;
    month.SetDayLines(lines);
    month.Refresh();
    EXPECT_EQ(u8"先勝, stocktaking", saidOf("Tuesday 25 April 2017"));
    CDayViewCtrl day;
    day.SetCurrentDate(At(9, 0));
    day.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 900, 700), &parent, 8);
    EXPECT_EQ("3:00, Wednesday 26 April, outside working hours", Spoken::OfWindow(day).FindNamed("3:00").Name());
    EXPECT_EQ("10:00, Wednesday 26 April", Spoken::OfWindow(day).FindNamed("10:00").Name());
    SetAccessTexts(nullptr);
}

// ---- Date selectors

TEST(PickerObjects, MiniCalendarPagesAndSelects)
{
    gridtest::g_now = At(9, 0);
    SetCalendarClock(&gridtest::Now);
    SetAccessTexts(&EnglishAccessTexts());
    RecordingParent parent;
    parent.Create(400, 300);
    CMiniCalendarCtrl calendar;
    calendar.SetRowAndCol(1, 2);
    calendar.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 160), &parent, 3);
    PumpMessages();
    const Spoken root = Spoken::OfWindow(calendar);
    int count = 0;
    ExpectSound(root, count);
    EXPECT_GT(count, 80);
    EXPECT_TRUE(root.FindNamed("Wednesday 26 April 2017, today"));
    ASSERT_EQ(S_OK, root.FindNamed("Next month").Act());
    EXPECT_TRUE(root.FindNamed("June 2017"));
    const Spoken day = root.FindNamed("Thursday 15 June 2017");
    ASSERT_EQ(S_OK, day.Select());
    EXPECT_EQ(1, parent.Count(MCN_SELECT));
    EXPECT_TRUE(day.Has(STATE_SYSTEM_SELECTED));
    EXPECT_EQ("Friday 16 June 2017", day.Walk(NAVDIR_RIGHT).Name());
    calendar.DestroyWindow();
    EXPECT_EQ("", day.Name());
    SetAccessTexts(nullptr);
    SetCalendarClock(nullptr);
}

TEST(PickerObjects, YearMonthPickerDropsAndPicks)
{
    SetAccessTexts(&EnglishAccessTexts());
    RecordingParent parent;
    parent.Create(400, 300);
    CYearMonthPickerCtrl picker;
    picker.SetCurrentDate(COleDateTime(2017, 4, 1, 0, 0, 0));
    ASSERT_TRUE(picker.Create("", WS_CHILD | WS_VISIBLE, CRect(10, 10, 150, 40), &parent, 3));
    const Spoken button = Spoken::OfWindow(picker);
    EXPECT_EQ("Year and month", button.Name());
    EXPECT_EQ("April 2017", button.Value());
    ASSERT_EQ(S_OK, button.Act());
    ASSERT_TRUE(picker.GetPopup());
    const Spoken months = Spoken::OfWindow(*picker.GetPopup());
    ASSERT_EQ(S_OK, months.FindNamed("Next year").Act());
    ASSERT_EQ(S_OK, months.FindNamed("June 2018").Select());
    EXPECT_FALSE(picker.GetPopup());
    EXPECT_EQ("June 2018", button.Value());
    EXPECT_EQ(1, parent.Count(YMN_SELENDOK));
    SetAccessTexts(nullptr);
}
