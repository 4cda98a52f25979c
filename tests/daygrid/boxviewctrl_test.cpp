// The week and the year view as windows: navigation, scrolling and its notifications, items, combo box, painting, hosts
// that end them in the middle of things.
#include "core/DateMath.h"
#include "support/GuiCounts.h"
#include "support/Input.h"
#include "support/MemoryDc.h"
#include "support/RecordingParent.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace testsupport;

namespace
{

constexpr int kWidth = 803;
constexpr int kHeight = 630;
constexpr UINT kId = 5;

COleDateTime Day(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

COleDateTime Today()
{
    return COleDateTime(2026, 4, 14, 10, 0, 0); // a Tuesday
}

std::string Text(const COleDateTime& date)
{
    return date.GetStatus() == COleDateTime::valid ? std::string(date.Format("%Y-%m-%d")) : "none";
}

int ScrollBarWidth()
{
    return ::GetSystemMetrics(SM_CXVSCROLL);
}

// What the tests see of a view besides its public side.
template <class View>
class Open : public View
{
public:
    void Paint(CDC* pDC) { this->DrawCtrl(pDC); }
    std::string Selection() const { return Text(this->m_dtSelBegin) + " " + Text(this->m_dtSelEnd); }
    std::string Range() const { return Text(this->m_dtRangeStart) + " " + Text(this->m_dtRangeEnd); }
    using View::CalcLayout;
    using View::GetCurCellRect;
    using View::m_bMore;
    using View::m_nHorzScroll;
    using View::m_nVertScroll;
    using View::MoveBackward;
    using View::MoveForward;
    using View::MoveLeftward;
    using View::MoveRightward;
};

template <class View>
class Scene
{
public:
    RecordingParent parent;
    Open<View>* view; // on the heap: hosts delete it in the middle of things

    explicit Scene(const COleDateTime& date)
    {
        SetCalendarClock(Today);
        view = new Open<View>;
        parent.Create(kWidth, kHeight);
        view->SetCurrentDate(date);
        view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(0, 0, kWidth + ScrollBarWidth(), kHeight), &parent, kId);
    }
    ~Scene()
    {
        delete view;
        SetCalendarClock(nullptr);
    }

    int Add(const COleDateTime& start, const COleDateTime& end, COLORREF background = 0xFFFFFF)
    {
        tagCC_ITEM item;
        item.dtStart = start;
        item.dtEnd = end;
        item.nFullday = 1;
        item.crColor2 = background;
        item.lParam = 70 + view->GetItemCount();
        return view->AddItem(&item);
    }

    // The notifications of a scroll code, a line each.
    std::vector<std::string> Scroll(UINT code, int thumb = 0)
    {
        parent.ClearLog();
        view->SendMessage(WM_VSCROLL, MAKEWPARAM(code, thumb));
        return parent.Lines();
    }

    std::string RangeAfter(UINT code, int thumb = 0)
    {
        Scroll(code, thumb);
        return view ? view->Range() : "gone";
    }

    std::string HitAt(CPoint point)
    {
        tagCCHITTESTINFO info;
        info.pt = point;
        const int item = view->HitTest(info);
        EXPECT_EQ(item, info.nItem);
        return TimeText(info.time).substr(0, 10) + " hit=" + std::to_string(info.nHitCode) +
               " item=" + std::to_string(item);
    }
};
using Week = Scene<CWeekViewCtrl>;
using Year = Scene<CYearViewCtrl>;

using Lines = std::vector<std::string>;

std::string SelectionAfterKeys(Week& scene, std::initializer_list<int> keys)
{
    for (int key : keys)
        messages::Key(scene.view->m_hWnd, key);
    PumpMessages();
    return scene.view->Selection();
}

} // namespace

TEST(WeekView, ShowsEightDaysFromTheFirstDayOfTheWeek)
{
    Week scene(Day(2017, 4, 26)); // a Wednesday
    EXPECT_EQ(scene.view->Range(), "2017-04-23 2017-04-30");
    scene.view->SetFirstDayOfWeek(2);
    EXPECT_EQ(scene.view->Range(), "2017-04-24 2017-05-01");
    scene.view->SetFirstDayOfWeek(4);
    EXPECT_EQ(scene.view->Range(), "2017-04-26 2017-05-03");
    COleDateTime first;
    COleDateTime last;
    scene.view->GetViewRange(first, last);
    EXPECT_TRUE(first == Day(2017, 4, 26) && last == COleDateTime(2017, 5, 3, 23, 59, 59));
    EXPECT_TRUE(scene.view->GetDayRect(7) == CRect(600, 330, 803, 630));
    EXPECT_TRUE(scene.view->GetCurrentDate() == Day(2017, 4, 26));
}

TEST(WeekView, ScrollingTellsBeforeAndAfter)
{
    Week scene(Day(2017, 4, 26));
    EXPECT_EQ(scene.Scroll(SB_LINEDOWN),
              (Lines{"CCN_SELDATECHANGE item=-1 lParam=-1 time=2017-05-03 00:00:00 hit=4 sub=0",
                     "CCN_VIEWRANGECHANGE date=2017-05-03 00:00:00 first=2017-04-30 00:00:00 last=2017-05-07 23:59:59 "
                     "value=4100"}));
    EXPECT_EQ(scene.view->Selection(), "2017-05-03 2017-05-03");
    scene.parent.SetHook([&scene](const Notification& told) {
        if (told.Code() == CCN_SELDATECHANGE) {
            EXPECT_EQ(scene.view->Range(), "2017-04-30 2017-05-07") << "told before the change";
        }
        return 0;
    });
    EXPECT_EQ(scene.RangeAfter(SB_PAGEUP), "2017-04-02 2017-04-09");
    EXPECT_EQ(scene.Scroll(SB_ENDSCROLL), Lines());
}

TEST(WeekView, ScrollCodesMoveRangeAndThumb)
{
    struct Case
    {
        UINT code;
        int thumb;
        const char* range; // from 2017-04-23 (day 113 of the year), thumb at 113 - 6 * 16 = 17
        int position;
    };
    const Case cases[] = {
        {SB_LINEUP, 0, "2017-04-16 2017-04-23", 16},
        {SB_LINEDOWN, 0, "2017-04-30 2017-05-07", 18},
        {SB_PAGEUP, 0, "2017-03-26 2017-04-02", 13},
        {SB_PAGEDOWN, 0, "2017-05-21 2017-05-28", 21},
        {SB_THUMBPOSITION, 10, "2017-06-04 2017-06-11", 17}, // + 113 - 70 days: in the week of 5 June
        {SB_THUMBPOSITION, 20, "2017-03-26 2017-04-02", 17}, // - 27 days
        {SB_THUMBTRACK, 30, "2017-04-23 2017-04-30", 17},
        {SB_TOP, 0, "2017-04-23 2017-04-30", 55},
        {SB_BOTTOM, 0, "2017-04-23 2017-04-30", 0},
    };
    for (const Case& c : cases) {
        Week scene(Day(2017, 4, 26));
        EXPECT_EQ(scene.view->GetScrollPos(SB_VERT), 17);
        EXPECT_EQ(scene.RangeAfter(c.code, c.thumb), c.range) << c.code;
        EXPECT_EQ(scene.view->GetScrollPos(SB_VERT), c.position) << c.code;
        EXPECT_EQ(scene.parent.Names(), (Lines{"CCN_SELDATECHANGE", "CCN_VIEWRANGECHANGE"})) << c.code;
    }
}

TEST(WeekView, KeysMoveTheSelectionAndTurnTheWeek)
{
    Week scene(Day(2017, 4, 26));
    EXPECT_EQ(SelectionAfterKeys(scene, {VK_RIGHT}), "2017-04-27 2017-04-27");
    EXPECT_EQ(SelectionAfterKeys(scene, {VK_UP}), "2017-04-23 2017-04-23");
    EXPECT_EQ(SelectionAfterKeys(scene, {VK_DOWN}), "2017-04-27 2017-04-27");
    EXPECT_EQ(scene.view->Range(), "2017-04-23 2017-04-30");
    EXPECT_EQ(SelectionAfterKeys(scene, {VK_DOWN}), "2017-05-01 2017-05-01") << "kept by the scrolling";
    EXPECT_EQ(scene.view->Range(), "2017-04-30 2017-05-07");
    EXPECT_EQ(SelectionAfterKeys(scene, {VK_LEFT, VK_LEFT}), "2017-04-29 2017-04-29");
    EXPECT_EQ(scene.view->Range(), "2017-04-23 2017-04-30");
    {
        const KeyState shift({VK_SHIFT});
        scene.view->SendMessage(WM_KEYDOWN, VK_DOWN);
        EXPECT_EQ(scene.view->Selection(), "2017-04-29 2017-05-03");
        EXPECT_EQ(scene.view->Range(), "2017-04-23 2017-04-30") << "the scroll message is posted";
        PumpMessages();
    }
    EXPECT_EQ(scene.view->Range(), "2017-04-30 2017-05-07");
    EXPECT_EQ(scene.view->Selection(), "2017-04-29 2017-05-03");
    messages::Key(scene.view->m_hWnd, VK_NEXT);
    PumpMessages();
    EXPECT_EQ(scene.view->Range(), "2017-05-28 2017-06-04");
    EXPECT_EQ(scene.view->Selection(), "2017-05-27 2017-05-31") << "both ends go along";
}

TEST(WeekView, PiecesMarksAndHits)
{
    Week scene(Day(2017, 4, 26));
    scene.Add(Day(2017, 4, 25), COleDateTime(2017, 4, 27, 23, 59, 59));
    const CCalendarCtrl::CItemArray& pieces = scene.view->GetScreenItems();
    ASSERT_EQ(pieces.GetSize(), 2);
    EXPECT_TRUE(pieces[0].rcItem == CRect(402, 57, 798, 79)) << "two boxes of the upper row";
    EXPECT_TRUE(pieces[1].rcItem == CRect(2, 357, 198, 379)) << "the first of the lower row";
    EXPECT_EQ(pieces[0].nPiece, 1);
    EXPECT_EQ(pieces[1].nPiece, 4);
    EXPECT_EQ(scene.HitAt(CPoint(450, 60)), "2017-04-25 hit=2 item=0");
    EXPECT_EQ(scene.HitAt(CPoint(450, 49)), "2017-04-25 hit=8 item=-1");
    EXPECT_EQ(scene.HitAt(CPoint(450, 50)), "2017-04-25 hit=4 item=-1");
    EXPECT_EQ(scene.HitAt(CPoint(802, 629)), "2017-04-30 hit=4 item=-1");
    EXPECT_EQ(scene.HitAt(CPoint(400, 10)), "none hit=1 item=-1");
    scene.view->m_nVertScroll = 11;
    scene.view->m_nHorzScroll = -300;
    EXPECT_EQ(scene.HitAt(CPoint(750, 49)), "2017-04-25 hit=2 item=0");
    scene.view->m_nVertScroll = scene.view->m_nHorzScroll = 0;
    for (int i = 0; i < 13; ++i) {
        scene.Add(Day(2017, 4, 23), Day(2017, 4, 23));
        scene.Add(Day(2017, 4, 30), Day(2017, 4, 30));
    }
    for (int day = 0; day < 8; ++day)
        EXPECT_EQ(scene.view->IsMore(day), day == 0 || day == 7) << day;
    int found = -1;
    CRect rect;
    scene.view->GetCurCellRect(rect, found);
    EXPECT_EQ(found, 1);
    EXPECT_TRUE(rect == scene.view->GetDayRect(3));
}

TEST(WeekView, ItemOperationsFollowTheirOwnIndexRules)
{
    Week scene(Day(2017, 4, 26));
    scene.Add(Day(2017, 4, 25), Day(2017, 4, 25));
    scene.Add(Day(2017, 4, 26), Day(2017, 4, 26));
    tagCC_ITEM item;
    item.dtStart = item.dtEnd = Day(2017, 4, 28);
    EXPECT_EQ(scene.view->SetItem(3, &item), 0);
    EXPECT_THROW(
        {
            try {
                scene.view->SetItem(2, &item);
            } catch (CInvalidArgException* e) {
                e->Delete();
                throw 0;
            }
        },
        int);
    EXPECT_EQ(scene.view->SetItem(0, &item), 1);
    EXPECT_TRUE(scene.view->GetScreenItems()[0].dtStart == Day(2017, 4, 28));
    EXPECT_EQ(scene.view->DeleteItem(2), 0);
    scene.view->ValidateRect(nullptr);
    EXPECT_EQ(scene.view->DeleteItem(0, FALSE, TRUE), 1);
    EXPECT_FALSE(::GetUpdateRect(scene.view->m_hWnd, nullptr, FALSE)) << "deleting does not repaint";
    ASSERT_EQ(scene.view->GetScreenItems().GetSize(), 1);
    EXPECT_EQ(scene.view->GetScreenItems()[0].nSource, 0) << "renumbered";
    EXPECT_TRUE(scene.view->GetScreenItems()[0].dtStart == Day(2017, 4, 26));
}

TEST(WeekView, DayPropertiesBelongToTheShownDays)
{
    Week scene(Day(2017, 4, 26));
    scene.view->SetDayColor(Day(2017, 4, 24), 5);
    scene.view->SetDayColor(Day(2017, 5, 1), 5);
    EXPECT_EQ(scene.view->GetDayColor(1), 5);
    MemoryDc picture(kWidth, kHeight);
    scene.view->Paint(&picture.Dc());
    EXPECT_EQ(picture.Pixel(300, 200), CCalendarCtrl::m_arDayColors[4].crColor[0]);
    scene.view->ClearDayProperty();
    EXPECT_EQ(scene.view->GetDayColor(1), 0);
}

TEST(YearView, ShowsPiecesOfTheYear)
{
    Year scene(COleDateTime(2026, 3, 5, 9, 0, 0));
    EXPECT_EQ(scene.view->Range(), "2026-01-01 2026-12-31");
    EXPECT_TRUE(scene.view->GetMonthRect(5) == CRect(665, 30, 803, 330));
    scene.Add(Day(2026, 5, 20), Day(2026, 8, 10));
    const CCalendarCtrl::CItemArray& pieces = scene.view->GetScreenItems();
    ASSERT_EQ(pieces.GetSize(), 2);
    EXPECT_TRUE(pieces[0].rcItem == CRect(534, 57, 796, 79));
    EXPECT_TRUE(pieces[1].rcItem == CRect(2, 357, 264, 379));
    EXPECT_EQ(scene.HitAt(CPoint(680, 60)), "2026-06-01 hit=2 item=0");
    EXPECT_EQ(scene.HitAt(CPoint(140, 335)), "2026-08-01 hit=8 item=-1");
    for (int i = 0; i < 13; ++i)
        scene.Add(Day(2026, 12, 24), Day(2026, 12, 24));
    EXPECT_TRUE(scene.view->IsMore(11));
    EXPECT_FALSE(scene.view->IsMore(10));
    scene.view->DeleteAllItems();
    EXPECT_FALSE(scene.view->IsMore(11));
}

TEST(YearView, ScrollCodesMoveYearAndThumb)
{
    struct Case
    {
        UINT code;
        int thumb;
        int year; // from 2003, thumb at 3
        int position;
    };
    const Case cases[] = {
        {SB_LINEUP, 0, 2002, 2},   {SB_LINEDOWN, 0, 2004, 4},      {SB_PAGEUP, 0, 2001, 1}, {SB_PAGEDOWN, 0, 2005, 4},
        {SB_THUMBTRACK, 1, 2003, 1}, {SB_THUMBPOSITION, 2, 2003, 2}, {SB_TOP, 0, 2003, 4},    {SB_BOTTOM, 0, 2003, 0},
    };
    for (const Case& c : cases) {
        Year scene(Day(2003, 2, 28));
        EXPECT_EQ(scene.view->GetScrollPos(SB_VERT), 3);
        EXPECT_EQ(scene.RangeAfter(c.code, c.thumb).substr(0, 4), std::to_string(c.year)) << c.code;
        EXPECT_EQ(scene.view->GetScrollPos(SB_VERT), c.position) << c.code << ": the bar itself ends at 4";
        EXPECT_EQ(scene.parent.Names(), (Lines{"CCN_SELDATECHANGE", "CCN_VIEWRANGECHANGE"})) << c.code;
    }
    Year leap(Day(2024, 2, 29));
    EXPECT_EQ(leap.Scroll(SB_LINEDOWN),
              (Lines{"CCN_SELDATECHANGE item=-1 lParam=-1 time=2025-02-28 00:00:00 hit=4 sub=0",
                     "CCN_VIEWRANGECHANGE date=2025-02-28 00:00:00 first=2025-01-01 00:00:00 last=2025-12-31 23:59:59 "
                     "value=4100"}));
    EXPECT_EQ(leap.view->Selection(), "2025-02-28 2025-02-28");
}

TEST(YearView, KeysSelectMonthsAndTurnTheYear)
{
    Year scene(Day(2026, 11, 30));
    const HWND window = scene.view->m_hWnd;
    messages::Key(window, VK_RIGHT);
    PumpMessages();
    EXPECT_EQ(scene.view->Selection(), "2026-12-01 2026-12-01");
    messages::Key(window, VK_RIGHT);
    PumpMessages();
    EXPECT_EQ(scene.view->Selection(), "2027-01-01 2027-01-01");
    EXPECT_EQ(scene.view->Range(), "2027-01-01 2027-12-31");
    messages::Key(window, VK_UP);
    PumpMessages();
    EXPECT_EQ(scene.view->Selection(), "2026-01-01 2026-01-01");
    EXPECT_EQ(scene.view->Range(), "2026-01-01 2026-12-31");
    const KeyState shift({VK_SHIFT});
    scene.view->SendMessage(WM_KEYDOWN, VK_RIGHT);
    EXPECT_EQ(scene.view->Selection(), "2026-01-01 2026-02-01");
}

TEST(YearView, ComboBoxOfTheHost)
{
    Year scene(Day(2026, 3, 5));
    CComboBox combo;
    EXPECT_EQ(scene.view->CreateComboBox(&combo, 9, 150, WS_VISIBLE | CBS_DROPDOWNLIST, nullptr), 1);
    EXPECT_EQ(combo.GetParent(), scene.view);
    EXPECT_EQ(combo.GetDlgCtrlID(), 1);
    EXPECT_EQ(combo.GetFont()->GetSafeHandle(), scene.view->GetFont(0)->GetSafeHandle());
    combo.AddString("a");
    combo.AddString("b");
    scene.parent.ClearLog();
    combo.SetCurSel(1);
    scene.view->SendMessage(WM_COMMAND, MAKEWPARAM(1, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo.m_hWnd));
    EXPECT_EQ(scene.parent.Lines(),
              (Lines{"CCN_COMBOSELCHANGE item=1 lParam=0 time=2026-03-05 00:00:00 hit=1 sub=1"}));
    scene.view->MoveWindow(0, 0, 700 + ScrollBarWidth(), 400);
    CRect rect;
    combo.GetWindowRect(&rect);
    scene.view->ScreenToClient(&rect);
    EXPECT_EQ(rect.left, 700 - 205);
    EXPECT_EQ(rect.top, 5);
    EXPECT_EQ(rect.Width(), 200);

    // The host takes the combo box away, then its object.
    {
        CComboBox second;
        combo.DestroyWindow();
        EXPECT_EQ(scene.view->CreateComboBox(&second, 9, 150, CBS_DROPDOWNLIST, nullptr), 1);
    }
    scene.view->MoveWindow(0, 0, 600, 300);
    scene.view->SendMessage(WM_COMMAND, MAKEWPARAM(1, CBN_SELCHANGE), 0);
    EXPECT_EQ(scene.parent.Count(CCN_COMBOSELCHANGE), 1);
    CWnd none;
    Open<CYearViewCtrl> windowless;
    EXPECT_EQ(windowless.CreateComboBox(&combo, 0, 100, CBS_DROPDOWNLIST, nullptr), 0);
}

TEST(BoxViews, PaintBarsFramesAndMarks)
{
    Week week(Day(2026, 4, 16));
    week.Add(Day(2026, 4, 15), Day(2026, 4, 15), RGB(1, 2, 3));
    MemoryDc picture(kWidth, kHeight);
    week.view->Paint(&picture.Dc());
    const CRect bar = week.view->GetScreenItems()[0].rcItem;
    EXPECT_EQ(picture.Pixel(bar.right - 6, bar.top + 6), RGB(1, 2, 3));
    EXPECT_EQ(picture.Pixel(1, 29), 0x39964Au) << "the line below the title band";
    const CRect today = week.view->GetDayRect(2);
    const CRect selected = week.view->GetDayRect(4);
    EXPECT_GT(picture.Count(today, 0x216FF1), 100);
    EXPECT_GT(picture.Count(selected, 0xFF7700), 100);
    EXPECT_EQ(picture.Count(week.view->GetDayRect(1), 0xFF7700), 0);
    EXPECT_GT(picture.CountOther(CRect(today.left + 3, today.top + 2, today.left + 40, today.top + 20), 0x6FBCFF), 0);
    // The eighth box has its flag, but no mark.
    for (int i = 0; i < 14; ++i) {
        week.Add(Day(2026, 4, 13), Day(2026, 4, 13));
        week.Add(Day(2026, 4, 19), Day(2026, 4, 19));
    }
    MemoryDc before(kWidth, kHeight);
    before.Dc().BitBlt(0, 0, kWidth, kHeight, &picture.Dc(), 0, 0, SRCCOPY);
    week.view->Paint(&picture.Dc());
    const auto corner = [&week](int day) {
        const CRect& box = week.view->GetDayRect(day);
        return CRect(box.right - 20, box.bottom - 8, box.right - 2, box.bottom - 2);
    };
    const COLORREF ground = CCalendarCtrl::m_arDayColors[0].crColor[0];
    EXPECT_GT(picture.CountOther(corner(1), ground), 0);
    EXPECT_EQ(picture.CountOther(corner(7), picture.Pixel(700, 600)), 0);
    EXPECT_TRUE(week.view->m_bMore[7]);

    Year year(Day(2026, 8, 1));
    for (int i = 0; i < 14; ++i)
        year.Add(Day(2026, 3, 1), Day(2026, 3, 1));
    year.view->Paint(&picture.Dc());
    const CRect march = year.view->GetMonthRect(2);
    EXPECT_GT(picture.CountOther(CRect(march.right - 20, march.bottom - 8, march.right, march.bottom), 0xFFFFFF), 60);
    EXPECT_GT(picture.Count(year.view->GetMonthRect(3), 0x216FF1), 100) << "today's month";
    EXPECT_GT(picture.Count(year.view->GetMonthRect(7), 0xFF7700), 100);
}

TEST(BoxViews, PaintingLeavesNoObjectsBehind)
{
    MemoryDc picture(kWidth, kHeight);
    const auto paintBoth = [&picture] {
        Week week(Day(2026, 4, 16));
        Year year(Day(2026, 4, 16));
        for (int i = 0; i < 20; ++i) {
            week.Add(Day(2026, 4, 13), Day(2026, 4, 16));
            year.Add(Day(2026, 4, 13), Day(2026, 4, 16));
            week.view->Paint(&picture.Dc());
            year.view->Paint(&picture.Dc());
        }
    };
    ExpectNothingLeftBy(paintBoth);
}

// Every size, dates at both ends of the calendar and dates that are none: nothing is shown, nothing falls over.
TEST(BoxViews, BearTinySizesAndTheEndsOfTime)
{
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    const COleDateTime dates[] = {Day(100, 1, 1), Day(100, 1, 9), Day(9999, 12, 31), Day(9999, 12, 20), none, Day(2026, 4, 14)};
    const UINT codes[] = {SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_THUMBPOSITION, SB_TOP};
    const auto exercise = [&](auto& scene) {
        MemoryDc picture(40, 40);
        scene.Add(Day(100, 1, 1), Day(9999, 12, 31));
        for (const COleDateTime& date : dates) {
            for (int firstDayOfWeek = 1; firstDayOfWeek <= 7; ++firstDayOfWeek) {
                scene.view->SetCurrentDate(date);
                scene.view->SetFirstDayOfWeek(firstDayOfWeek);
                scene.view->MoveWindow(0, 0, firstDayOfWeek * 3, 20 + firstDayOfWeek * 3);
                for (UINT code : codes) {
                    scene.Scroll(code, firstDayOfWeek * 9000);
                    scene.view->MoveLeftward(0);
                    scene.view->MoveRightward(0);
                    scene.view->MoveForward(0x10);
                    scene.view->MoveBackward(0);
                    PumpMessages();
                }
                scene.HitAt(CPoint(1, 31));
                scene.view->Paint(&picture.Dc());
            }
        }
        EXPECT_EQ(scene.view->GetItemCount(), 1);
    };
    Week week(Today());
    exercise(week);
    Year year(Today());
    exercise(year);
    week.view->SetCurrentDate(Day(9999, 12, 31));
    const std::string last = week.view->Range();
    EXPECT_EQ(week.RangeAfter(SB_LINEDOWN), last) << "an impossible move is ignored";
    EXPECT_TRUE(week.parent.Log().empty());
    year.view->SetCurrentDate(Day(100, 5, 1));
    EXPECT_EQ(year.RangeAfter(SB_LINEUP), "0100-01-01 0100-12-31");
}

TEST(BoxViews, HostsMayEndThemInAnyNotification)
{
    const auto tryHosts = [](auto makeScene, int code, auto act) {
        for (int how = 0; how < 4; ++how) {
            auto scene = makeScene();
            scene->parent.SetHook([&scene, how, code](const Notification& told) {
                if (told.Code() != code || !scene->view)
                    return 0;
                if (how == 0) {
                    delete scene->view;
                    scene->view = nullptr;
                } else if (how == 1) {
                    scene->view->DestroyWindow();
                } else if (how == 2) {
                    scene->view->DeleteAllItems();
                } else {
                    scene->parent.SetHook(nullptr);
                    scene->view->SetCurrentDate(Day(1999, 12, 31));
                    scene->view->SendMessage(WM_VSCROLL, SB_PAGEUP);
                }
                return 0;
            });
            act(*scene);
            EXPECT_GE(scene->parent.Count(code), 1);
        }
    };
    const auto week = [] {
        auto scene = std::make_unique<Week>(Day(2026, 4, 16));
        scene->Add(Day(2026, 4, 1), Day(2026, 5, 16));
        return scene;
    };
    const auto year = [] {
        auto scene = std::make_unique<Year>(Day(2026, 4, 16));
        scene->Add(Day(2026, 4, 1), Day(2026, 5, 16));
        return scene;
    };
    const auto scroll = [](auto& scene) { scene.Scroll(SB_LINEDOWN); };
    for (int code : {CCN_SELDATECHANGE, CCN_VIEWRANGECHANGE}) {
        tryHosts(week, code, scroll);
        tryHosts(year, code, scroll);
    }
    CComboBox combo;
    tryHosts(year, CCN_COMBOSELCHANGE, [&combo](Year& scene) {
        scene.view->CreateComboBox(&combo, 0, 100, CBS_DROPDOWNLIST | WS_VISIBLE, nullptr);
        scene.view->SendMessage(WM_COMMAND, MAKEWPARAM(1, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo.m_hWnd));
    });
}

TEST(BoxViews, AreCreatedByTheirClasses)
{
    for (CRuntimeClass* type : {RUNTIME_CLASS(CWeekViewCtrl), RUNTIME_CLASS(CYearViewCtrl)}) {
        CObject* made = type->CreateObject();
        ASSERT_NE(made, nullptr);
        EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CCalendarCtrl)));
        delete made;
    }
}
