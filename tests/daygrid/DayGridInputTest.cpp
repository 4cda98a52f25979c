// Hands on the month, week and year view: keys that stay in sight, sweeps beyond the edges, bars over bars.
#include "DayGridScene.h"

using namespace testsupport;

namespace {

template <class View>
class Hands : public Scene<View>
{
public:
    using Scene<View>::Scene;

    std::string Selected() { return Text(this->view->m_dtSelBegin) + " - " + Text(this->view->m_dtSelEnd); }
    void Focus() { ASSERT_TRUE(hardware::Focus(*this->view)); }
};

// Keys, and what is selected after each in the month, week and year view.
struct KeyStep
{
    int key;
    std::initializer_list<int> held;
    const char* selected[3];
};

template <class View>
void ExpectSelected(const COleDateTime& date, const std::vector<KeyStep>& steps, int column)
{
    Hands<View> scene(date);
    scene.Focus();
    for (const KeyStep& step : steps) {
        hardware::Key(step.key, step.held);
        EXPECT_EQ(scene.Selected(), step.selected[column]) << step.key;
    }
    EXPECT_EQ(scene.parent.Count(CCN_VIEWRANGECHANGE), 0) << "nothing turns";
}

} // namespace

TEST(DayGridKeys, HomeAndEndStayInTheRange)
{
    const std::vector<KeyStep> steps = {
        {VK_HOME, {}, {"2026-04-12 - 2026-04-12", "2026-04-12 - 2026-04-12", "2026-01-01 - 2026-01-01"}},
        {VK_END, {VK_SHIFT}, {"2026-04-12 - 2026-04-18", "2026-04-12 - 2026-04-18", "2026-01-01 - 2026-12-01"}},
        {VK_HOME, {VK_CONTROL}, {"2026-03-29 - 2026-03-29", "2026-04-12 - 2026-04-12", "2026-01-01 - 2026-01-01"}},
        {VK_END, {VK_CONTROL}, {"2026-05-09 - 2026-05-09", "2026-04-19 - 2026-04-19", "2026-12-01 - 2026-12-01"}},
        {VK_HOME, {}, {"2026-05-03 - 2026-05-03", "2026-04-19 - 2026-04-19", "2026-01-01 - 2026-01-01"}},
    };
    ExpectSelected<CMonthViewCtrl>(Day(4, 15), steps, 0); // a Wednesday; weeks from Sunday
    ExpectSelected<CWeekViewCtrl>(Day(4, 15), steps, 1);
    ExpectSelected<CYearViewCtrl>(Day(4, 15), steps, 2);
    Hands<CMonthViewCtrl> first(COleDateTime(100, 1, 10, 0, 0, 0)); // the grid begins before the dates do
    first.Focus();
    hardware::Key(VK_HOME, {VK_CONTROL});
    EXPECT_EQ(Text(first.view->m_dtSelEnd), "0100-01-01");
}

TEST(DayGridKeys, AScrolledDateIsTheOneThatIsReported)
{
    Hands<CYearViewCtrl> year(Day(12, 5));
    year.Focus();
    hardware::Key(VK_RIGHT);
    const std::vector<Notification>& log = year.parent.Log();
    ASSERT_EQ(log.size(), 2u);
    EXPECT_EQ(TimeText(log[0].item.time), "2027-01-01 00:00:00") << "the header's promise";
    EXPECT_EQ(Text(year.view->GetCurrentDate()), "2027-01-01");
}

TEST(MonthView, AnotherFirstDayOfTheWeekMovesTheBars)
{
    Scene<CMonthViewCtrl> scene(Day(4, 15));
    scene.Add(Day(4, 10), Day(4, 10));
    scene.view->SetFirstDayOfWeek(2);
    const CRect bar = scene.view->GetScreenItems()[0].rcItem;
    tagCCHITTESTINFO hit;
    hit.pt = bar.CenterPoint();
    scene.view->HitTest(hit);
    EXPECT_EQ(hit.nItem, 0);
    EXPECT_EQ(hit.time.wDay, 10);
}

// The pointer is the system's here, for the timer asks where it is.
template <class View>
void SweepAtTheEdge(int weeksOrYears)
{
    Scene<View> scene(Day(4, 15));
    ASSERT_TRUE(hardware::Focus(*scene.view));
    CRect client;
    scene.view->GetClientRect(&client);
    const CPoint edge(client.CenterPoint().x, client.bottom - 4);
    scene.parent.ClearLog();
    const auto turns = [&] { return scene.parent.Count(CCN_VIEWRANGECHANGE); };
    hardware::Move(*scene.view, edge);
    hardware::LeftDown();
    hardware::Move(*scene.view, CPoint(edge.x + 1, edge.y));
    EXPECT_FALSE(PumpUntil([&] { return turns() > 0; }, 700)) << "a click with a trembling hand";
    COleDateTime begin, end, beginAfter;
    scene.view->GetSelRange(begin, end);
    hardware::Move(*scene.view, CPoint(edge.x - 10, edge.y));
    EXPECT_FALSE(PumpUntil([&] { return turns() > 0; }, 250)) << "it may just pass";
    EXPECT_TRUE(PumpUntil([&] { return turns() == 1; }, 1000));
    EXPECT_FALSE(PumpUntil([&] { return turns() > 1; }, weeksOrYears - 150)) << "a step takes its time";
    EXPECT_TRUE(PumpUntil([&] { return turns() > 1; }, 1500));
    hardware::Move(*scene.view, client.CenterPoint());
    const int before = turns();
    hardware::Move(*scene.view, CPoint(edge.x, client.bottom + 30));
    EXPECT_TRUE(PumpUntil([&] { return turns() > before; }, 200)) << "outside at once";
    scene.view->GetSelRange(beginAfter, end);
    EXPECT_EQ(Text(beginAfter), Text(begin)) << "a sweep begins where it began, however far it turns";
    hardware::LeftUp();
    const int after = turns();
    EXPECT_FALSE(PumpUntil([&] { return turns() > after; }, 500));
}

TEST(DayGridMouse, OnlyASweepTurnsTheViewAtItsEdge)
{
    SweepAtTheEdge<CMonthViewCtrl>(400);
    SweepAtTheEdge<CYearViewCtrl>(1000);
}

TEST(DayGridEdit, OpensInSight)
{
    Hands<CMonthViewCtrl> month(Day(4, 15));
    Hands<CYearViewCtrl> year(Day(4, 15));
    month.view->SetSelRange(Day(7, 20), Day(7, 20));
    year.view->SetSelRange(Day(2028, 2, 1), Day(2028, 2, 1));
    for (CCalendarCtrl* view : {static_cast<CCalendarCtrl*>(month.view), static_cast<CCalendarCtrl*>(year.view)}) {
        view->BeginEditItem("text");
        const CEdit* box = view->GetInPlaceEdit();
        ASSERT_TRUE(box);
        CRect place, client;
        box->GetWindowRect(&place);
        view->ScreenToClient(&place);
        view->GetClientRect(&client);
        CRect seen;
        seen.IntersectRect(&place, &client);
        EXPECT_EQ(seen, place);
        tagCCHITTESTINFO hit;
        hit.pt = place.CenterPoint();
        view->HitTest(hit);
        EXPECT_EQ(hit.time.wMonth, view == month.view ? 7 : 2);
        messages::Key(*box, VK_ESCAPE);
        EXPECT_FALSE(view->GetInPlaceEdit());
    }
    EXPECT_EQ(month.parent.Count(CCN_VIEWRANGECHANGE), 1);
}

TEST(DayGridHits, TheBarThatIsSeenAndHowManyLieThere)
{
    SetCalendarClock(FixedNow);
    RecordingParent parent;
    parent.Create(kWidth, kHeight);
    Open<CMonthViewCtrl2> view;
    view.SetCurrentDate(Day(4, 15));
    view.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, kWidth, kHeight), &parent, 5);
    for (const char* text : {"first", "second", "a text that is much too long for the box of a day"}) {
        tagCC_ITEM item = ItemOf(Day(4, 10), Day(4, 10));
        item.strText = text;
        view.AddItem(&item);
    }
    view.Refresh();
    tagCCHITTESTINFO hit;
    hit.pt = view.GetScreenItems()[0].rcItem.CenterPoint();
    CRect part;
    std::u16string text;
    const auto itemHit = [&] { return view.HitTest(hit); };
    EXPECT_EQ(itemHit(), 0);
    EXPECT_FALSE(view.FindTip(hit, part, text));
    CalendarOptions options;
    options.hitWhatIsSeen = true;
    view.SetOptions(options);
    EXPECT_EQ(itemHit(), 2) << "drawn last";
    EXPECT_TRUE(view.FindTip(hit, part, text));
    EXPECT_EQ(text.substr(0, 8), u"1 of 3: ");
    EXPECT_EQ(part, view.GetScreenItems()[2].rcItem);
    const int cell = 12; // 10 April
    EXPECT_FALSE(view.HasMoreMark(cell));
    view.EnableMoreList(TRUE);
    EXPECT_TRUE(view.HasMoreMark(cell));
    EXPECT_FALSE(view.HasMoreMark(cell + 1));
    SetCalendarClock(nullptr);
}

TEST(DayGridTips, SayWhatIsCut)
{
    Scene<CMonthViewCtrl> scene(Day(4, 15));
    scene.view->DestroyWindow();
    Open<CMonthViewCtrl> view;
    view.SetCurrentDate(Day(4, 15));
    view.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, kWidth, kHeight), &scene.parent, 5);
    view.SetTextCodePage(CP_UTF8);
    const std::string longText = u8"Café Zürich – déjeuner à 5 €, 漢字 한국어, much too long for a day";
    int day = 6;
    for (const std::string& text : {std::string("short"), longText}) {
        tagCC_ITEM item = ItemOf(Day(4, day), Day(4, day));
        item.strText = text.c_str();
        item.nFullday = 1;
        view.AddItem(&item);
        ++day;
    }
    view.Refresh();
    CalendarOptions options;
    options.toolTips = true;
    const auto tipAt = [&](CPoint point) {
        tagCCHITTESTINFO hit;
        hit.pt = point;
        view.HitTest(hit);
        CRect part;
        std::u16string text;
        return view.FindTip(hit, part, text) ? text : u"";
    };
    const CPoint longBar = view.GetScreenItems()[1].rcItem.CenterPoint();
    EXPECT_EQ(tipAt(longBar), u"") << "the option is off";
    view.SetOptions(options);
    EXPECT_EQ(tipAt(longBar), dayvane::DecodeText(longText, dayvane::kUtf8CodePage));
    EXPECT_EQ(tipAt(view.GetScreenItems()[0].rcItem.CenterPoint()), u"");
}

// The tip over the number of a box, of a view that is so wide.
template <class View>
std::u16string TipOfBox(int width, int box, CRect (*rectOf)(const Open<View>&, int), bool hasTips = true)
{
    SetCalendarClock(FixedNow);
    RecordingParent parent;
    parent.Create(kWidth, kHeight);
    Open<View> view;
    view.SetCurrentDate(Day(4, 29));
    view.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, width, kHeight), &parent, 5);
    CalendarOptions options;
    options.toolTips = hasTips;
    view.SetOptions(options);
    tagCCHITTESTINFO hit;
    const CRect rect = rectOf(view, box);
    hit.pt = rect.TopLeft() + CSize(10, 5);
    view.HitTest(hit);
    CRect part;
    std::u16string text;
    if (view.FindTip(hit, part, text)) {
        EXPECT_TRUE(part.left == rect.left && part.top == rect.top && part.Height() < rect.Height() / 2);
    } else {
        text.clear();
    }
    SetCalendarClock(nullptr);
    return text;
}

TEST(DayGridTips, SayWhatADayHasNoRoomFor)
{
    const std::u16string name = u"昭和の日"; // 29 April
    const auto cell = [](const Open<CMonthViewCtrl>& view, int box) { return view.GetCell(box).m_rect; };
    EXPECT_EQ(TipOfBox<CMonthViewCtrl>(7 * 45, 31, cell), u"29 " + name);
    EXPECT_EQ(TipOfBox<CMonthViewCtrl>(7 * 45, 30, cell), u"") << "a day without a name";
    EXPECT_EQ(TipOfBox<CMonthViewCtrl>(7 * 100, 31, cell), u"") << "there is room";
    EXPECT_EQ(TipOfBox<CMonthViewCtrl>(7 * 45, 31, cell, false), u"") << "the option is off";
    const auto day = [](const Open<CWeekViewCtrl>& view, int box) { return view.GetDayRect(box); };
    const std::u16string tip = TipOfBox<CWeekViewCtrl>(4 * 70, 3, day);
    EXPECT_EQ(tip.substr(0, 4), u"4/29");
    EXPECT_NE(tip.find(name), std::u16string::npos);
    const auto month = [](const Open<CYearViewCtrl>& view, int box) { return view.GetMonthRect(box); };
    EXPECT_EQ(TipOfBox<CYearViewCtrl>(6 * 50, 8, month), u"9月 September");
    EXPECT_EQ(TipOfBox<CYearViewCtrl>(6 * 100, 8, month), u"");
}
