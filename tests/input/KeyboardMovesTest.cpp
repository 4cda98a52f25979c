// Items moved, stretched and asked for by keys of the hardware alone, in every view.
#include "timegrid/GridScene.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"

#include <gtest/gtest.h>

using namespace testsupport;
using gridtest::At;
using Lines = std::vector<std::string>;
namespace hand = testsupport::hardware;

namespace {

constexpr int kWholeWeek = 15;

// A calendar with the options, whose parent writes down the reports of keys.
template <class View>
class Keys : public testing::Test
{
public:
    RecordingParent parent;
    View* view = new View;
    Lines reports;
    bool refuses = false;

    void SetUp() override
    {
        gridtest::g_now = At(9, 0);
        SetCalendarClock(&gridtest::Now);
        parent.Create(900, 700);
        CalendarOptions options = view->GetOptions();
        options.keyboardMoves = options.typeToEdit = true;
        view->SetOptions(options);
        if constexpr (std::is_same_v<View, CWeekDayViewCtrl>) {
            view->SetDateScale(kWholeWeek); // a working week has days that no page shows
        }
        view->SetCurrentDate(At(9, 0));
        view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 900, 700), &parent, 7);
        Add("Talk", At(10, 0), At(11, 0));
        Add("Walk", At(13, 0), At(14, 0));
        Add("Fixed", At(16, 0), At(17, 0), FALSE);
        parent.SetHook([this](const Notification& n) { return Record(n); });
        ASSERT_TRUE(hand::Focus(*view));
        PumpMessages();
        view->SetCurSel(0);
    }
    void TearDown() override
    {
        parent.SetHook(nullptr);
        delete view;
        SetCalendarClock(nullptr);
    }

    void Add(const char* text, const COleDateTime& start, const COleDateTime& end, BOOL movable = TRUE)
    {
        tagCC_ITEM item;
        item.dtStart = start;
        item.dtEnd = end;
        item.strText = text;
        item.bMovable = movable;
        view->AddItem(&item);
        view->Refresh();
    }

    std::string Item(int index)
    {
        tagCC_ITEM item;
        view->GetItem(index, item);
        return (item.dtStart.Format("%m-%d %H:%M..") + item.dtEnd.Format("%m-%d %H:%M")).GetString();
    }
    // Presses a key and waits until the first item has these times.
    void ExpectAfter(int key, std::initializer_list<int> held, const std::string& times)
    {
        hand::Key(key, held);
        PumpUntil([&] { return Item(0) == times; }, 2000);
        EXPECT_EQ(times, Item(0)) << "key " << key;
    }
    void ExpectReports(const Lines& expected, int milliseconds = 2000)
    {
        PumpUntil([&] { return reports == expected; }, milliseconds);
        EXPECT_EQ(expected, reports);
        reports.clear();
    }
    static std::string Moved(const COleDateTime& start, const COleDateTime& end)
    {
        return (start.Format("%m-%d %H:%M..") + end.Format("%m-%d %H:%M")).GetString();
    }

private:
    LRESULT Record(const Notification& n)
    {
        static const std::pair<int, const char*> names[] = {
            {CCN_COPY, "copy"},      {CCN_CUT, "cut"},          {CCN_PASTE, "paste"},     {CCN_DUPLICATE, "duplicate"},
            {CCN_RENAME, "rename"},  {CCN_DELETE, "delete"},    {CCN_GOTODATE, "go to"},  {CCN_ITEMMOVED, "moved"},
            {CCN_ITEMCLICK, "item"}, {CCN_CONTEXTMENU, "menu"}, {CCN_BEGINMOVE, "begins"}};
        for (const auto& [code, name] : names) {
            if (n.Code() == code) {
                COleDateTime start, end;
                const bool drags = code == CCN_ITEMMOVED && view->GetDragOrigin(start, end);
                reports.push_back(std::string(name) + " " + std::to_string(n.item.nItem) +
                                  (drags ? " from " + Moved(start, end) : ""));
            }
        }
        if (n.Code() == CCN_IPE_ENDEDITITEM) {
            reports.push_back("text " + n.editText);
        }
        return refuses && n.Code() == CCN_BEGINMOVE;
    }
};

// How far the arrows of a view carry an item: to the right, and down.
template <class View>
struct Steps;
template <>
struct Steps<CMonthViewCtrl>
{
    static COleDateTime Right(const COleDateTime& from) { return dayvane::AddDays(from, 1); }
    static COleDateTime Down(const COleDateTime& from) { return dayvane::AddDays(from, 7); }
    static constexpr bool hasRows = false;
};
template <>
struct Steps<CMonthViewCtrl2> : Steps<CMonthViewCtrl>
{
};
template <>
struct Steps<CWeekViewCtrl>
{
    static COleDateTime Right(const COleDateTime& from) { return dayvane::AddDays(from, 1); }
    static COleDateTime Down(const COleDateTime& from) { return dayvane::AddDays(from, 4); }
    static constexpr bool hasRows = false;
};
template <>
struct Steps<CYearViewCtrl>
{
    static COleDateTime Moved(const COleDateTime& from, int months)
    {
        return COleDateTime(from.GetYear(), from.GetMonth() + months, from.GetDay(), from.GetHour(), 0, 0);
    }
    static COleDateTime Right(const COleDateTime& from) { return Moved(from, 1); }
    static COleDateTime Down(const COleDateTime& from) { return Moved(from, 6); }
    static constexpr bool hasRows = false;
};
template <>
struct Steps<CDayViewCtrl>
{
    static COleDateTime Right(const COleDateTime& from) { return dayvane::AddDays(from, 1); }
    static COleDateTime Down(const COleDateTime& from) { return dayvane::AddMinutes(from, 30); }
    static constexpr bool hasRows = true;
};
template <>
struct Steps<CWeekDayViewCtrl> : Steps<CDayViewCtrl>
{
};

using Views =
    testing::Types<CMonthViewCtrl, CMonthViewCtrl2, CWeekViewCtrl, CYearViewCtrl, CDayViewCtrl, CWeekDayViewCtrl>;
TYPED_TEST_SUITE(Keys, Views);

TYPED_TEST(Keys, MoveAnItemAndReportOneMove)
{
    using Step = Steps<TypeParam>;
    const COleDateTime start = At(10, 0), end = At(11, 0);
    this->ExpectAfter(VK_RIGHT, {VK_CONTROL}, this->Moved(Step::Right(start), Step::Right(end)));
    EXPECT_TRUE(this->view->IsDragging());
    const std::string twice = this->Moved(Step::Down(Step::Right(start)), Step::Down(Step::Right(end)));
    this->ExpectAfter(VK_DOWN, {VK_CONTROL}, twice);
    hand::Key(VK_RETURN, {VK_CONTROL});
    this->ExpectReports({"begins 0", "moved 0 from " + this->Moved(start, end)});
    EXPECT_FALSE(this->view->IsDragging());
    EXPECT_EQ(twice, this->Item(0));
    this->ExpectAfter(VK_LEFT, {VK_CONTROL}, this->Moved(Step::Down(start), Step::Down(end)));
    this->ExpectReports({"begins 0", "moved 0 from " + twice}, 3000); // by itself after a while
}

TYPED_TEST(Keys, EscapeTakesTheItemBack)
{
    const std::string before = this->Item(0);
    this->ExpectAfter(VK_RIGHT, {VK_CONTROL},
                      this->Moved(Steps<TypeParam>::Right(At(10, 0)), Steps<TypeParam>::Right(At(11, 0))));
    this->ExpectAfter(VK_ESCAPE, {}, before);
    EXPECT_FALSE(this->view->IsDragging());
    this->ExpectReports({"begins 0"});
}

TYPED_TEST(Keys, MoveTheEnds)
{
    using Step = Steps<TypeParam>;
    const COleDateTime start = At(10, 0), end = At(11, 0);
    this->ExpectAfter(VK_DOWN, {VK_CONTROL, VK_SHIFT}, this->Moved(start, Step::Down(end)));
    this->ExpectAfter(VK_RIGHT, {VK_CONTROL, VK_SHIFT}, this->Moved(start, Step::Right(Step::Down(end))));
    if (Step::hasRows) { // a whole day longer it stands in the band
        this->ExpectAfter(VK_LEFT, {VK_CONTROL, VK_SHIFT}, this->Moved(start, Step::Down(end)));
        this->ExpectAfter(VK_DOWN, {VK_MENU, VK_SHIFT}, this->Moved(Step::Down(start), Step::Down(end)));
    } else {
        this->ExpectAfter(VK_RIGHT, {VK_MENU, VK_SHIFT}, this->Moved(Step::Right(start), Step::Right(Step::Down(end))));
    }
    hand::Key(VK_RETURN, {VK_CONTROL});
    this->ExpectReports({"begins 0", "moved 0 from " + this->Moved(start, end)});
}

TYPED_TEST(Keys, TurnThePageAndFollowTheItem)
{
    COleDateTime start = At(10, 0);
    for (int i = 0; i < 50; ++i) {
        COleDateTime first, last;
        this->view->GetViewRange(first, last);
        if (start > last + COleDateTimeSpan(1, 0, 0, 0)) {
            break;
        }
        hand::Key(VK_RIGHT, {VK_CONTROL});
        PumpMessages();
        tagCC_ITEM item;
        this->view->GetItem(0, item);
        this->view->GetViewRange(first, last);
        ASSERT_GT(item.dtStart, start);
        start = item.dtStart;
        EXPECT_GE(start, first);
        EXPECT_LE(start, last);
    }
    EXPECT_TRUE(this->view->IsDragging());
}

TYPED_TEST(Keys, FixedAndRefusedItemsStay)
{
    this->view->SetCurSel(2);
    const std::string fixed = this->Item(2);
    hand::Key(VK_RIGHT, {VK_CONTROL});
    PumpMessages();
    EXPECT_EQ(fixed, this->Item(2));
    this->refuses = true;
    this->view->SetCurSel(0);
    const std::string before = this->Item(0);
    hand::Key(VK_RIGHT, {VK_CONTROL});
    this->ExpectReports({"begins 0"});
    EXPECT_EQ(before, this->Item(0));
    EXPECT_FALSE(this->view->IsDragging());
}

TYPED_TEST(Keys, TabGoesThroughTheItemsAndBack)
{
    hand::Key(VK_TAB);
    this->ExpectReports({"item 1"});
    hand::Key(VK_TAB);
    this->ExpectReports({"item 2"});
    hand::Key(VK_TAB, {VK_SHIFT});
    this->ExpectReports({"item 1"});
    hand::Key(VK_RIGHT, {VK_CONTROL});
    hand::Key(VK_TAB); // drops what is carried
    this->ExpectReports({"begins 1", "moved 1 from 04-26 13:00..04-26 14:00"});
    EXPECT_EQ(-1, this->view->GetCurSel()) << "it is the last one now";
}

TYPED_TEST(Keys, AskTheHost)
{
    const struct
    {
        int key;
        std::vector<int> held;
        const char* report;
    } table[] = {{'C', {VK_CONTROL}, "copy 0"},      {'X', {VK_CONTROL}, "cut 0"},   {'V', {VK_CONTROL}, "paste 0"},
                 {'D', {VK_CONTROL}, "duplicate 0"}, {'G', {VK_CONTROL}, "go to 0"}, {VK_F2, {}, "rename 0"},
                 {VK_DELETE, {}, "delete 0"},        {VK_F10, {VK_SHIFT}, "menu 0"}, {VK_APPS, {}, "menu 0"}};
    for (const auto& row : table) {
        for (int held : row.held) {
            hand::KeyDown(held);
        }
        hand::Key(row.key);
        for (int held : row.held) {
            hand::KeyUp(held);
        }
        this->ExpectReports({row.report});
    }
    this->view->SetCurSel(-1);
    hand::Key(VK_DELETE);
    hand::Key('V', {VK_CONTROL});
    this->ExpectReports({"paste -1"});
}

TYPED_TEST(Keys, StepBetweenTitleBandGridAndMarks)
{
    this->view->ShowCaption(TRUE);
    PumpMessages();
    COleDateTime before, first, last;
    this->view->GetViewRange(before, last);
    hand::Key(VK_TAB, {VK_CONTROL}); // no mark: the title
    hand::Key(VK_RETURN);
    this->ExpectReports({"go to 0"});
    hand::Key(VK_RIGHT);
    PumpUntil([&] { return this->view->GetViewRange(first, last), first > before; }, 2000);
    EXPECT_GT(first, before) << "the title's arrows turn pages";
    hand::Key(VK_LEFT);
    hand::Key(VK_ESCAPE);
    hand::Key(VK_F2);
    this->ExpectReports({"rename 0"});
    if (Steps<TypeParam>::hasRows) {
        hand::Key(VK_F6, {VK_SHIFT});
        EXPECT_TRUE(PumpUntil([&] { return this->view->IsWholeDaySelection(); }, 2000));
        hand::Key(VK_F6);
        EXPECT_TRUE(PumpUntil([&] { return !this->view->IsWholeDaySelection(); }, 2000));
    }
    if constexpr (!std::is_same_v<TypeParam, CMonthViewCtrl2>) { // whose blocks hide each other without a mark
        CalendarOptions options = this->view->GetOptions();
        options.moreList = options.tidyColumns = true;
        this->view->SetOptions(options);
        for (int i = 0; i < 60; ++i) {
            this->Add("crowd", At(10, 0), At(11, 0));
        }
        hand::Key(VK_F6);
        hand::Key(VK_RETURN);
        EXPECT_TRUE(PumpUntil([&] { return this->view->IsMoreListOpen(); }, 2000));
        hand::Key(VK_ESCAPE);
        EXPECT_TRUE(PumpUntil([&] { return !this->view->IsMoreListOpen(); }, 2000));
    }
}

TYPED_TEST(Keys, TypingOpensTheEditBox)
{
    hand::Type("new");
    hand::Key(VK_RETURN);
    this->ExpectReports({"rename 0", "text new"});
    CalendarOptions options = this->view->GetOptions();
    options.typeToEdit = false;
    this->view->SetOptions(options);
    hand::Type("x");
    PumpMessages();
    EXPECT_TRUE(this->reports.empty());
    EXPECT_FALSE(::GetDlgItem(*this->view, 1));
}

// What an input method sends to the window with the focus goes on in the box, and its Enter is not the box's.
TYPED_TEST(Keys, AConversionBeginsInTheEditBox)
{
    const auto box = [this] { return ::GetDlgItem(*this->view, 1); };
    MSG key = {this->view->m_hWnd, WM_KEYDOWN, VK_PROCESSKEY, 1, 0, {0, 0}};
    CWnd& window = *this->view;
    EXPECT_FALSE(window.PreTranslateMessage(&key)) << "the key goes on";
    ASSERT_TRUE(box());
    EXPECT_EQ(box(), key.hwnd) << "to the box";
    messages::Key(box(), VK_ESCAPE);
    this->reports.clear();
    this->view->SendMessage(WM_IME_STARTCOMPOSITION); // of a message loop that does not ask
    ASSERT_TRUE(box());
    messages::Key(box(), VK_RETURN);
    EXPECT_TRUE(box()) << "it converts";
    ::SendMessage(box(), WM_IME_ENDCOMPOSITION, 0, 0);
    messages::Type(box(), "after");
    messages::Key(box(), VK_RETURN);
    this->ExpectReports({"rename 0", "text after"});
    EXPECT_FALSE(box());
}

TYPED_TEST(Keys, GoToTheFirstAndTheLastCell)
{
    using dayvane::DayNumberOf;
    COleDateTime first, last, home, begin, end;
    this->view->GetViewRange(first, last);
    hand::Key(VK_HOME, {VK_CONTROL});
    const auto isFirst = [&] {
        return this->view->GetSelRange(home, end) && DayNumberOf(home) == DayNumberOf(first) && home.GetHour() == 0;
    };
    EXPECT_TRUE(PumpUntil(isFirst, 2000)) << home.Format("%m-%d %H:%M").GetString();
    EXPECT_EQ(-1, this->view->GetCurSel()) << "no key acts on an item that is not where the focus is";
    hand::Key(VK_END, {VK_CONTROL});
    const auto isLast = [&] {
        const bool isYear = std::is_same_v<TypeParam, CYearViewCtrl>;
        return this->view->GetSelRange(begin, end) && begin > home &&
               (isYear ? begin.GetMonth() == last.GetMonth() : DayNumberOf(begin) == DayNumberOf(last));
    };
    EXPECT_TRUE(PumpUntil(isLast, 2000)) << begin.Format("%m-%d %H:%M").GetString();
    hand::Key(VK_HOME, {});
    PumpMessages();
    ASSERT_TRUE(this->view->GetSelRange(begin, first));
    EXPECT_LE(begin, end) << "the first of the row";
}

TYPED_TEST(Keys, WithoutTheOptionTheyMoveTheSelection)
{
    CalendarOptions options = this->view->GetOptions();
    options.keyboardMoves = false;
    this->view->SetOptions(options);
    const std::string before = this->Item(0);
    for (int key : {VK_RIGHT, VK_DOWN}) {
        hand::Key(key, {VK_CONTROL});
        hand::Key(key, {VK_MENU, VK_SHIFT});
    }
    hand::Key('C', {VK_CONTROL});
    hand::Key(VK_F2);
    PumpMessages();
    EXPECT_EQ(before, this->Item(0));
    EXPECT_TRUE(this->reports.empty());
}

// A host that ends the control at any report of a key ends it for good.
TYPED_TEST(Keys, TheHostMayEndTheControl)
{
    for (int code : {CCN_BEGINMOVE, CCN_ITEMMOVED, CCN_VIEWRANGECHANGE}) {
        this->parent.SetHook([&](const Notification& n) {
            if (n.Code() == code && this->view) {
                delete this->view;
                this->view = nullptr;
            }
            return LRESULT(0);
        });
        for (int i = 0; this->view && i < 40; ++i) {
            hand::Key(VK_RIGHT, {VK_CONTROL});
            PumpMessages();
        }
        hand::Key(VK_RETURN, {VK_CONTROL});
        PumpMessages();
        EXPECT_FALSE(this->view) << code;
        if (!this->view) {
            this->view = new TypeParam;
            CalendarOptions options;
            options.keyboardMoves = true;
            this->view->SetOptions(options);
            this->view->SetCurrentDate(At(9, 0));
            this->view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 900, 700), &this->parent, 7);
            this->Add("Talk", At(10, 0), At(11, 0));
            ASSERT_TRUE(hand::Focus(*this->view));
            this->view->SetCurSel(0);
        }
    }
}

} // namespace
