// The two mini calendars as windows: messages in, notifications out.
#include "calc/DayProvider.h"
#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
#include "pickers/PeriodGridLayout.h"
#include "pickers/PeriodSelCtrl.h"
#include "tests/pickers/PickerFixture.h"

#include <commctrl.h>
#include <random>

using namespace dayvane;

namespace {
template <class Control>
struct Stage : Scene<Control>
{
    using Scene<Control>::control;
    using Scene<Control>::parent;

    explicit Stage(int rows = 1, int columns = 1, CPoint at = CPoint(10, 10),
                   typename Scene<Control>::Maker make = Make<Control>)
        : Scene<Control>(make)
    {
        control->SetRowAndCol(rows, columns);
        control->Create(WS_CHILD | WS_VISIBLE, CRect(at, control->GetGridSize()), &parent, kSelectorId);
        PumpMessages();
    }
    CPoint At(const COleDateTime& date) const
    {
        const GridHit hit = CellOfDate(Policy(), control->GetGridLayout(), date);
        EXPECT_EQ(GridPart::Cell, hit.part);
        return RectOfPart(control->GetGridLayout(), hit).CenterPoint();
    }
    CPoint Title(int block) const { return control->GetGridLayout().blocks[block].title.CenterPoint(); }
    CPoint Footer() const { return control->GetGridLayout().footer.CenterPoint(); }
    CPoint Arrow(bool left) const
    {
        return (left ? control->GetGridLayout().leftArrow : control->GetGridLayout().rightArrow).CenterPoint();
    }
    void Press(CPoint point) { messages::LeftDown(control->m_hWnd, point); }
    void Move(CPoint point) { messages::Move(control->m_hWnd, point, MK_LBUTTON); }
    void Release(CPoint point) { messages::LeftUp(control->m_hWnd, point); }
    void DoubleClick(CPoint point)
    {
        ::SendMessage(control->m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }
    // The control's client point that lies over a period's row of the open popup.
    CPoint PopupRow(int period) const
    {
        CPoint point = control->GetPopup()->GetPeriodRect(period).CenterPoint();
        control->ScreenToClient(&point);
        return point;
    }
    CPoint Screen(CPoint point) const
    {
        control->ClientToScreen(&point);
        return point;
    }
    std::string Shown() const { return Text(control->GetCurrentDate()); }
    std::string Selection() const
    {
        COleDateTime start, end;
        control->GetSel(start, end);
        return Text(start) + " - " + Text(end);
    }
    static const PeriodPolicy& Policy()
    {
        return std::is_same<Control, CMiniCalendarCtrl>::value ? kMonthPolicy : kYearPolicy;
    }
};
typedef Stage<CMiniCalendarCtrl> Days;
typedef Stage<CMiniCalendarCtrl2> Months;
constexpr COLORREF kDot = 0x30A030;
} // namespace

TEST(MiniCalendarWindow, WorksWithoutAWindowToo)
{
    CMiniCalendarCtrl days;
    days.SetRowAndCol(2, 3);
    days.SetCurrentDate(2010, 1);
    days.MoveLeft(5);
    EXPECT_EQ("2009/12/1", Text(days.GetCurrentDate()));
    days.SetCurrentDate(2010, 13);
    ASSERT_EQ(6, days.GetMonthCells().GetSize());
    const CMiniCalendarCtrl::CMonthCell& last = days.GetMonthCells()[5];
    EXPECT_TRUE(last.nYear == 2010 && last.nMonth == 5 && last.nRow == 2 && last.nCol == 3);
    EXPECT_EQ(&last, days.HeaderHitTest(last.rcTitle.CenterPoint()));
    EXPECT_EQ(nullptr, days.HeaderHitTest(CPoint(200, 60)));
    CMiniCalendarCtrl::CDayCell cell;
    EXPECT_TRUE(days.HitTest(last.arCells[40].rcCell.CenterPoint(), cell));
    EXPECT_TRUE(cell.dtDate == last.arCells[40].dtDate && cell.rcCell == last.arCells[40].rcCell);
    EXPECT_FALSE(days.HitTest(CPoint(0, 0), cell));
    EXPECT_TRUE(days.TodayHitTest(CPoint(100, 270)));
    days.FireNotifyClick();

    CMiniCalendarCtrl2 years;
    WNDCLASS wc = {};
    EXPECT_TRUE(::GetClassInfo(AfxGetInstanceHandle(), "MFCMiniCalendarCtrl2", &wc)) << "named by dialog templates";
    years.SetCurrentDate(2010);
    years.MoveRight(3);
    years.SetCurrentDate(99);
    EXPECT_EQ(2011, years.HeaderHitTest(CPoint(60, 10))->nYear);
    EXPECT_EQ("2011/12/1", Text(years.GetYearCells()[0].arCells[11].dtDate));
    EXPECT_TRUE(years.ThisMonthHitTest(CPoint(60, 110)));
}

TEST(MiniCalendarWindow, APressOrASweepReportsTheSelection)
{
    Days s;
    s.Press(s.At(Day(2010, 1, 10)));
    EXPECT_EQ(s.control->m_hWnd, ::GetCapture());
    EXPECT_EQ(s.control->m_hWnd, ::GetFocus());
    s.Move(s.At(Day(2010, 1, 20)));
    s.Move(s.At(Day(2010, 1, 8)));
    EXPECT_EQ(Reports{}, s.parent.Take());
    s.Release(s.At(Day(2010, 1, 8)));
    EXPECT_EQ(Reports{"MCN_SELECT 2010/1/8 - 2010/1/10"}, s.parent.Take());
    EXPECT_EQ(nullptr, ::GetCapture());
    EXPECT_EQ(1, s.control->IsSelected(Day(2010, 1, 9)));

    s.control->SetRangeSelect(FALSE);
    s.Press(s.At(Day(2010, 1, 3)));
    EXPECT_EQ(Reports{"MCN_SELECT 2010/1/3 - 2010/1/3"}, s.parent.Take());
    s.Release(s.At(Day(2010, 1, 4)));
    s.DoubleClick(s.At(Day(2010, 1, 5)));
    EXPECT_EQ(Reports{"NM_DBLCLK"}, s.parent.Take());
    s.control->MoveLeft(1);
    messages::Click(s.control->m_hWnd, s.Footer());
    EXPECT_EQ(Reports{"MCN_SELECT 2010/1/15+9h - 2010/1/15+9h"}, s.parent.Take());
    EXPECT_EQ("2010/1/1", s.Shown());
    s.control->Unselect();
    s.control->FireNotifyClick();
    EXPECT_EQ(Reports{"MCN_SELECT none - none"}, s.parent.Take());

    messages::Click(s.control->m_hWnd, s.Arrow(true));
    s.DoubleClick(s.Arrow(true));
    EXPECT_EQ("2009/11/1", s.Shown()) << "fast clicks page on";
    messages::Click(s.control->m_hWnd, s.Arrow(false));
    EXPECT_EQ("2009/12/1", s.Shown());
    EXPECT_EQ(Reports{}, s.parent.Take());

    Months m;
    m.Press(m.At(Day(2010, 4, 1)));
    EXPECT_EQ(Reports{"MCN_SELECT 2010/4/1 - 2010/4/1"}, m.parent.Take());
    m.Release(m.At(Day(2010, 4, 1)));
    m.control->SetRangeSelect(TRUE);
    m.Press(m.At(Day(2010, 4, 1)));
    m.Move(m.At(Day(2010, 2, 1)));
    m.Release(m.At(Day(2010, 2, 1)));
    EXPECT_EQ(Reports{"MCN_SELECT 2010/2/1 - 2010/4/1"}, m.parent.Take());
}

TEST(MiniCalendarWindow, TheMonthChosenInThePopupComesToTheClickedTitle)
{
    Days s(1, 3);
    s.Press(s.Title(2));
    CPeriodSelCtrl* popup = s.control->GetPopup();
    ASSERT_NE(nullptr, popup);
    EXPECT_TRUE(popup->HasChoice()) << "shown before the pointer moves";
    EXPECT_EQ(s.parent.m_hWnd, ::GetWindow(popup->m_hWnd, GW_OWNER)) << "the owner's top-level window";
    EXPECT_EQ(s.control->m_hWnd, ::GetCapture());
    EXPECT_EQ(s.control->m_hWnd, ::GetFocus());
    EXPECT_TRUE(popup->GetPeriodRect(popup->GetGivenPeriod()).PtInRect(s.Screen(s.Title(2))));
    s.Release(s.PopupRow(MonthNumberOf(Day(2010, 5, 1))));
    EXPECT_EQ("2010/3/1", s.Shown());
    EXPECT_EQ(nullptr, s.control->GetPopup());
    EXPECT_EQ(nullptr, ::GetCapture());
    EXPECT_FALSE(::KillTimer(s.control->m_hWnd, 1001)) << "the timer is gone";
    EXPECT_EQ(Reports{}, s.parent.Take());

    Months m(1, 2);
    m.Press(m.Title(1));
    m.Release(CPoint(-50, 10));
    EXPECT_EQ("2010/1/1", m.Shown()) << "released outside";
    m.Press(m.Title(1));
    m.Release(m.PopupRow(2014));
    EXPECT_EQ("2014/1/1", m.Shown()) << "a year comes to the first title";
}

TEST(MiniCalendarWindow, ThePopupRunsOnItsTimerAndReleasingOutsideKeepsTheMonth)
{
    Days s(1, 1, CPoint(10, 150));
    s.Press(s.Title(0));
    const int given = s.control->GetPopup()->GetGivenPeriod();
    const CPoint below = s.Title(0) + CSize(0, 250);
    hardware::Move(s.control->m_hWnd, below); // the system also sends moves of its own pointer
    EXPECT_TRUE(PumpUntil([&] { return s.control->GetPopup()->GetPeriodRect(given).IsRectEmpty(); }));
    s.Release(below);
    EXPECT_EQ("2010/1/1", s.Shown());

    s.Press(s.Title(0));
    hardware::Move(s.control->m_hWnd, s.Title(0) - CSize(0, 120));
    EXPECT_TRUE(PumpUntil([&] { return !s.control->GetPopup()->GetPeriodRect(given - 8).IsRectEmpty(); }));
    s.Release(s.PopupRow(given - 8));
    EXPECT_EQ("2009/5/1", s.Shown());
}

TEST(MiniCalendarWindow, InterruptionsRestoreTheSelection)
{
    typedef std::function<void(Days&)> Break;
    const struct
    {
        const char* what;
        Break act;
        bool survives;
    } table[] = {
        {"the capture is taken", [](Days& s) { ::SetCapture(s.parent.m_hWnd); }, true},
        {"the focus goes", [](Days& s) { ::SetFocus(s.parent.m_hWnd); }, true},
        {"the application is left",
         [](Days& s) {
             ::SetForegroundWindow(::GetDesktopWindow());
             ::SetFocus(nullptr);
         },
         true},
        {"a modal box asks for quiet", [](Days& s) { ::SendMessage(s.control->m_hWnd, WM_CANCELMODE, 0, 0); }, true},
        {"the control is disabled", [](Days& s) { s.control->EnableWindow(FALSE); }, true},
        {"Escape", [](Days& s) { s.Key(VK_ESCAPE); }, true},
        {"the popup's window is destroyed",
         [](Days& s) {
             if (s.control->GetPopup()) {
                 s.control->GetPopup()->DestroyWindow();
             }
             s.Move(CPoint(60, 60));
             s.Key(VK_ESCAPE);
         },
         true},
        {"the control's window is destroyed", [](Days& s) { s.control->DestroyWindow(); }, false},
        {"the control is deleted", [](Days& s) { s.control.reset(); }, false},
        {"the parent is destroyed", [](Days& s) { s.parent.DestroyWindow(); }, false},
    };
    for (const auto& row : table) {
        for (const bool popup : {false, true}) {
            Days s;
            s.control->SetSel(Day(2010, 1, 2), Day(2010, 1, 3));
            const HWND window = s.control->m_hWnd;
            s.Press(popup ? s.Title(0) : s.At(Day(2010, 1, 20)));
            s.Move(popup ? s.PopupRow(24125) : s.At(Day(2010, 1, 22)));
            const HWND list = popup ? s.control->GetPopup()->m_hWnd : nullptr;
            row.act(s);
            EXPECT_NE(window, ::GetCapture()) << row.what;
            EXPECT_FALSE(::IsWindow(list)) << row.what;
            EXPECT_EQ(row.survives, ::IsWindow(window) != FALSE) << row.what;
            if (row.survives) {
                s.Release(CPoint(60, 60));
                EXPECT_EQ("2010/1/2 - 2010/1/3", s.Selection()) << row.what;
                EXPECT_EQ("2010/1/1", s.Shown()) << row.what;
            }
            ::ReleaseCapture();
            PumpMessages();
            EXPECT_EQ(Reports{}, s.parent.Take()) << row.what;
        }
    }
}

TEST(MiniCalendarWindow, TheHostMayEndTheControlInANotification)
{
    typedef std::function<void(Days&)> Act;
    const Act ways[] = {
        [](Days& s) { s.Press(s.At(Day(2010, 1, 20))), s.Release(s.At(Day(2010, 1, 21))); },
        [](Days& s) { s.control->SetRangeSelect(FALSE), s.Press(s.At(Day(2010, 1, 20))); },
        [](Days& s) { s.Press(s.Footer()); },
        [](Days& s) { s.DoubleClick(s.At(Day(2010, 1, 20))); },
        [](Days& s) { s.Key(VK_PRIOR); },
        [](Days& s) { s.Key(VK_RETURN); },
    };
    for (const Act& way : ways) {
        for (const bool deletes : {false, true}) {
            Days s;
            s.parent.ActAt(1, [&] { deletes ? s.control.reset() : (void)s.control->DestroyWindow(); });
            way(s);
            EXPECT_EQ(1u, s.parent.Take().size());
            EXPECT_EQ(nullptr, ::GetCapture());
        }
    }
}

TEST(MiniCalendarWindow, RealKeysMoveTheSelection)
{
    Days s;
    ASSERT_TRUE(hardware::Focus(s.control->m_hWnd));
    hardware::Key(VK_RIGHT);
    hardware::Key(VK_DOWN, {VK_SHIFT});
    hardware::Key(VK_NEXT);
    hardware::Key(VK_RETURN);
    EXPECT_EQ((Reports{"MCN_SELECT 2010/1/16 - 2010/1/16", "MCN_SELECT 2010/1/16 - 2010/1/23",
                       "MCN_SELECT 2010/2/23 - 2010/2/23", "NM_DBLCLK"}),
              s.parent.Take());
    const LRESULT code = ::SendMessage(s.control->m_hWnd, WM_GETDLGCODE, 0, 0);
    EXPECT_EQ(DLGC_WANTARROWS, code);
    MSG escape = {s.control->m_hWnd, WM_KEYDOWN, VK_ESCAPE, 0, 0, {0, 0}};
    const auto wants = [&] {
        const LPARAM lParam = reinterpret_cast<LPARAM>(&escape);
        return (::SendMessage(s.control->m_hWnd, WM_GETDLGCODE, VK_ESCAPE, lParam) & DLGC_WANTMESSAGE) != 0;
    };
    EXPECT_FALSE(wants()) << "the dialog's";
    s.Press(s.At(Day(2010, 2, 3)));
    EXPECT_TRUE(wants()) << "to end the sweep";
}

TEST(MiniCalendarWindow, RealMouseSweepsAndRunsThroughThePopup)
{
    Days s(1, 2);
    hardware::Drag(s.control->m_hWnd, s.At(Day(2010, 1, 25)), s.At(Day(2010, 2, 4)));
    EXPECT_TRUE(PumpUntil([&] { return ::GetCapture() == nullptr; }));
    EXPECT_EQ(Reports{"MCN_SELECT 2010/1/25 - 2010/2/4"}, s.parent.Take());

    hardware::Move(s.control->m_hWnd, s.Title(1));
    hardware::LeftDown();
    ASSERT_TRUE(PumpUntil([&] { return s.control->GetPopup() != nullptr; }));
    hardware::Move(s.control->m_hWnd, s.PopupRow(MonthNumberOf(Day(2010, 4, 1))));
    hardware::LeftUp();
    EXPECT_TRUE(PumpUntil([&] { return s.control->GetPopup() == nullptr; }));
    EXPECT_EQ("2010/3/1", s.Shown());
}

TEST(MiniCalendarWindow, PaintsSelectionHolidaysAndFocus)
{
    Days s;
    s.control->SetSel(Day(2010, 1, 20), Day(2010, 1, 21));
    PumpMessages();
    const auto pixelsOf = [&](const CRect& rect) {
        CClientDC dc(s.control.get());
        std::vector<COLORREF> pixels;
        for (int i = 0; i < rect.Width() * rect.Height(); ++i) {
            pixels.push_back(dc.GetPixel(rect.left + i % rect.Width(), rect.top + i / rect.Width()));
        }
        return pixels;
    };
    const auto holds = [&](int day, COLORREF color) {
        const GridHit hit = CellOfDate(kMonthPolicy, s.control->GetGridLayout(), Day(2010, 1, day));
        const std::vector<COLORREF> pixels = pixelsOf(RectOfPart(s.control->GetGridLayout(), hit));
        return std::count(pixels.begin(), pixels.end(), color) > 0;
    };
    EXPECT_TRUE(holds(20, kSelectedGround) && !holds(22, kSelectedGround));
    EXPECT_TRUE(holds(11, kHolidayRed) && !holds(12, kHolidayRed)) << "a holiday on a Monday";
    EXPECT_TRUE(holds(15, kHolidayRed)) << "today's frame";

    s.control->MoveRight(1); // the selection is out of sight
    const CRect title = s.control->GetGridLayout().blocks[0].title;
    const std::vector<COLORREF> unfocused = pixelsOf(title);
    s.control->SetFocus();
    PumpMessages();
    EXPECT_NE(unfocused, pixelsOf(title)) << "the focus is not";

    s.control->SetDotCallback([](const COleDateTime& date, LPARAM) { return date.GetDay() == 3 ? kDot : CLR_NONE; });
    s.control->SetCurrentDate(2010, 1);
    s.control->Refresh();
    EXPECT_TRUE(holds(3, kDot) && !holds(4, kDot));
    s.control->ShowWeekNumbers(TRUE);
    s.control->Refresh();
    const CRect week = s.control->GetGridLayout().blocks[0].weeks[2].rect;
    EXPECT_LT(0, [&] {
        const std::vector<COLORREF> pixels = pixelsOf(CRect(week.TopLeft(), CSize(17, 15)));
        return pixels.size() - std::count(pixels.begin(), pixels.end(), pixels.front());
    }()) << "a number";
    s.control->ShowWeekNumbers(FALSE);
    s.control->SetDotCallback(nullptr);
    s.control->MoveRight(1);

    static int asked;
    asked = 0;
    s.control->SetBoldCallback([](const COleDateTime&, LPARAM lParam) -> BOOL { return ++asked, lParam == 20; }, 20);
    s.control->Refresh();
    EXPECT_EQ(28, asked) << "each day of February at the layout; painting asks nobody";
}

TEST(MiniCalendarWindow, PrintsWhatItShowsAlsoWhenDisabled)
{
    Days s(1, 2);
    const Pixels enabled = s.Seen(*s.control);
    EXPECT_EQ(enabled, s.Printed(*s.control));
    s.Press(s.Title(0));
    EXPECT_EQ(s.Seen(*s.control->GetPopup()), s.Printed(*s.control->GetPopup()));
    s.control->EnableWindow(FALSE);
    EXPECT_NE(enabled, s.Seen(*s.control)) << "grey";
    EXPECT_EQ(s.Seen(*s.control), s.Printed(*s.control));
}

// Whatever is pressed, hot, current or focused: what was repainted in part looks as if painted whole.
template <class Control>
void ExpectWholePicturesInAScript(unsigned seed)
{
    Stage<Control> s(1, 2);
    s.control->SetRangeSelect(TRUE);
    const CSize size = s.control->GetGridSize();
    s.control->MoveWindow(10, 10, size.cx + 20, size.cy + 20);
    std::mt19937 random(seed);
    const auto roll = [&random](int sides) { return static_cast<int>(random() % static_cast<unsigned>(sides)); };
    const HWND window = s.control->m_hWnd;
    CPoint at(0, 0);
    for (int step = 0; step < 120 && !testing::Test::HasFailure(); ++step) {
        const CPoint parts[] = {s.Title(roll(2)), s.Footer(), s.Arrow(roll(2) == 0),
                                CPoint(roll(size.cx), roll(size.cy))};
        const int kind = roll(10);
        if (kind < 5) {
            at = parts[roll(4)];
            messages::Move(window, at, ::GetCapture() == window ? MK_LBUTTON : 0);
        } else if (kind < 7) {
            ::GetCapture() == window ? s.Release(at) : s.Press(at);
        } else if (kind == 7) {
            s.Key(VK_PRIOR + roll(8));
        } else if (kind == 8) {
            ::SendMessage(window, WM_MOUSELEAVE, 0, 0);
        } else {
            roll(2) ? s.control->SetFocus() : s.parent.SetFocus();
        }
        const Pixels seen = s.Seen(*s.control); // before anything of the queue is served
        EXPECT_EQ(seen, s.Printed(*s.control)) << "after step " << step << " of kind " << kind;
    }
    ::ReleaseCapture();
}

TEST(MiniCalendarWindow, WhatIsRepaintedInPartLooksPaintedWhole)
{
    ExpectWholePicturesInAScript<CMiniCalendarCtrl>(1);
    ExpectWholePicturesInAScript<CMiniCalendarCtrl2>(2);
}

TEST(MiniCalendarWindow, TodaysMarkFollowsTheClock)
{
    Days s;
    const Pixels before = s.Seen(*s.control);
    g_now = Day(2010, 1, 16);
    ::SendMessage(::FindWindow(nullptr, "DayvaneTodayWatch"), WM_TIMECHANGE, 0, 0);
    EXPECT_NE(before, s.Seen(*s.control));
    EXPECT_EQ(Reports{}, s.parent.Take());
}

TEST(MiniCalendarWindow, TheFocusIsSeenOnceTheKeyboardIsUsed)
{
    Days s(1, 1, CPoint(10, 10), Make<CMiniCalendarCtrl, Cued<CMiniCalendarCtrl>>);
    const Pixels unfocused = s.Seen(*s.control);
    ASSERT_TRUE(hardware::Focus(s.control->m_hWnd));
    EXPECT_EQ(unfocused, s.Seen(*s.control));
    hardware::Key(VK_ESCAPE);
    EXPECT_NE(unfocused, s.Seen(*s.control));
}

TEST(MiniCalendarWindow, TheWheelPagesByWholeTurns)
{
    Days s;
    ASSERT_TRUE(hardware::Focus(s.control->m_hWnd));
    const CPoint point = s.At(Day(2010, 1, 20));
    const auto turn = [&](int delta) {
        hardware::TurnWheel(s.control->m_hWnd, point, delta);
        return s.Shown();
    };
    EXPECT_EQ("2010/2/1", turn(-WHEEL_DELTA));
    EXPECT_EQ("2009/12/1", turn(2 * WHEEL_DELTA));
    EXPECT_EQ("2009/12/1", turn(-WHEEL_DELTA / 2));
    EXPECT_EQ("2010/1/1", turn(-WHEEL_DELTA / 2)) << "a touchpad's small steps add up";
}

TEST(MiniCalendarWindow, ASweepHeldBesideTheDaysPages)
{
    Days s(1, 1, CPoint(60, 10)); // on the screen there is room to its left
    hardware::Move(s.control->m_hWnd, s.At(Day(2010, 1, 20)));
    hardware::LeftDown();
    hardware::Move(s.control->m_hWnd, CPoint(-40, 60));
    EXPECT_TRUE(PumpUntil([&] { return s.Shown() == "2009/11/1"; }));
    hardware::Move(s.control->m_hWnd, s.At(Day(2009, 11, 9)));
    EXPECT_FALSE(::KillTimer(s.control->m_hWnd, 1002)) << "over the days nothing pages";
    hardware::LeftUp();
    EXPECT_EQ(Reports{"MCN_SELECT 2009/11/9 - 2010/1/20"}, s.parent.Take());
}

TEST(MiniCalendarWindow, NamedDaysAreNamedInATip)
{
    Days s;
    const auto tip = [&] { return ::FindWindow("tooltips_class32", nullptr); };
    const auto rest = [&](int day) { hardware::Move(s.control->m_hWnd, s.At(Day(2010, 1, day))); };
    rest(11);
    PumpMessages();
    EXPECT_FALSE(::IsWindowVisible(tip())) << "an option";
    CalendarOptions options;
    options.toolTips = true;
    s.control->SetOptions(options);
    rest(12);
    rest(11);
    EXPECT_TRUE(PumpUntil([&] { return ::IsWindowVisible(tip()) != FALSE; }));
    wchar_t text[80] = {};
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = s.control->m_hWnd;
    tool.uId = 1;
    tool.lpszText = text;
    ::SendMessageW(tip(), TTM_GETTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_STREQ(L"\u6210\u4EBA\u306E\u65E5", text);
    rest(12);
    EXPECT_TRUE(PumpUntil([&] { return ::IsWindowVisible(tip()) == FALSE; }));
}

TEST(MiniCalendarWindow, TheHostsFontMakesRoomForItself)
{
    Days s;
    const CSize before = s.control->GetGridSize();
    const Pixels own = s.Seen(*s.control);
    LOGFONT font = {};
    font.lfHeight = 12;
    lstrcpy(font.lfFaceName, "Arial");
    s.control->SetTextFont(font);
    EXPECT_EQ(s.control->GetGridSize(), before) << "lines of the height that there is room for";
    EXPECT_NE(s.Seen(*s.control), own);
    font.lfHeight = 30;
    CFont larger;
    larger.CreateFontIndirect(&font);
    s.control->SetScale(192);
    s.control->SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(larger.GetSafeHandle()), FALSE);
    EXPECT_EQ(s.control->GetTextFont()->lfHeight, 15) << "at 96 dpi";
    // A title, the weekdays, six weeks and the footer: nine lines, each higher by 30 - 24.
    EXPECT_EQ(s.control->GetGridSize().cy, 2 * before.cy + 9 * 6);
}

TEST(MiniCalendarWindow, DaysOffComeFromAProvider)
{
    class SecondOff : public DayProvider
    {
        DayInfo InfoOf(const CivilDate& date) const override
        {
            DayInfo info;
            info.isDayOff = date.day == 12;
            return info;
        }
    } provider;
    Days s;
    const Pixels before = s.Seen(*s.control);
    s.control->SetDayProvider(&provider);
    s.control->Refresh();
    const Pixels provided = s.Seen(*s.control);
    EXPECT_NE(before, provided);
    // Without colours, too.
    s.control->SetTheme(CalendarTheme::HighContrast({0x000000, 0xFFFFFF, 0x000000, 0xFFFFFF, 0xFFEB1A, 0, 0xFFFFFF}));
    const Pixels marked = s.Seen(*s.control);
    s.control->SetDayProvider(nullptr);
    s.control->Refresh();
    EXPECT_NE(marked, s.Seen(*s.control));
    s.control->SetTheme(CalendarTheme::Classic());
    s.control->Refresh();
    EXPECT_EQ(before, s.Seen(*s.control));
}

TEST(MiniCalendarWindow, TinySizesAndTheEndsOfTheCalendarPaint)
{
    Days s(3, 3);
    for (const int year : {100, 9999}) {
        s.control->SetCurrentDate(year, year == 100 ? 1 : 11);
        for (const CSize size : {CSize(0, 0), CSize(1, 1), CSize(17, 300), CSize(500, 3), CSize(400, 420)}) {
            s.control->MoveWindow(0, 0, size.cx, size.cy);
            s.control->Refresh();
            for (int y = 0; y < size.cy; y += 41) {
                for (int x = 0; x < size.cx; x += 37) {
                    s.Move(CPoint(x, y));
                    if (PartAt(s.control->GetGridLayout(), CPoint(x, y)).part == GridPart::Cell) {
                        messages::Click(s.control->m_hWnd, CPoint(x, y));
                    }
                }
            }
        }
        for (UINT key : {VK_UP, VK_LEFT, VK_PRIOR, VK_DOWN, VK_RIGHT, VK_NEXT}) {
            s.Key(key);
        }
        EXPECT_EQ(year, s.control->GetCurrentDate().GetYear());
        EXPECT_EQ(std::string::npos, s.Selection().find("none"));
    }
}

TEST(MiniCalendarWindow, PaintingAndPopupsLeaveNoObjectsBehind)
{
    Days s(2, 2);
    testsupport::ExpectNothingLeftBy([&] {
        for (int i = 0; i < 20; ++i) {
            s.control->MoveRight(1);
            s.Press(s.Title(1));
            s.Move(s.PopupRow(s.control->GetPopup()->GetGivenPeriod() + 1));
            s.Release(s.PopupRow(s.control->GetPopup()->GetGivenPeriod() - 1));
        }
    });
}
