// What the month view draws: probe pixels of every layer in a surface in memory.
#include "core/DateMath.h"
#include "support/GuiCounts.h"
#include "support/MemoryDc.h"
#include "support/RecordingParent.h"
#include "views/daygrid/MonthViewCtrl.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

using testsupport::MemoryDc;

namespace
{

constexpr int kWidth = 704; // columns of 100, rows of 100
constexpr int kHeight = 646;

// Rows of the day colours and the fixed colours of the view.
constexpr COLORREF kPlainDay = 0xFFFFFF;
constexpr COLORREF kSunday = 0xC9C8EF;
constexpr COLORREF kSaturday = 0xE6D8CF;
constexpr COLORREF kGrid = 0xE1BFA5;
constexpr COLORREF kTodayOutline = 0x216FF1;
constexpr COLORREF kSelectedOutline = 0xFF7700;
constexpr COLORREF kFrameOfItem = 0x0000FE;
constexpr COLORREF kItemBack = 0x60F060;

COleDateTime FixedNow()
{
    return COleDateTime(2026, 4, 22, 15, 30, 0);
}

COleDateTime Day(int month, int day)
{
    return COleDateTime(2026, month, day, 0, 0, 0);
}

template <class View>
class Painted : public View
{
public:
    void Draw(CDC* pDC) { this->DrawCtrl(pDC); }
    void DrawHeaderOnly(CDC* pDC) { this->DrawHeader(pDC, this->m_rcRuler); }
    CFont& WeekdayFont() { return this->m_fonts.weekday; }
};

class MonthPaint : public testing::Test
{
protected:
    void SetUp() override
    {
        SetCalendarClock(FixedNow);
        ASSERT_TRUE(parent.Create(kWidth + 50, kHeight + 50));
        Start(view);
        Start(blocks);
    }
    void TearDown() override { SetCalendarClock(nullptr); }

    template <class View>
    void Start(View& month)
    {
        ASSERT_TRUE(month.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, kWidth, kHeight), &parent, 7));
        month.SetCurrentDate(Day(4, 15)); // 29 March .. 9 May; the 15th is cell (300, 246)
        month.SetHighLightColor(kFrameOfItem);
        month.Layout(kWidth, kHeight); // the scroll bar takes a part of the window, but none of the surface
    }

    template <class View>
    void Add(View& month, const COleDateTime& start, const COleDateTime& end, const char* text = "",
             COLORREF back = kItemBack)
    {
        tagCC_ITEM item;
        item.dtStart = start;
        item.dtEnd = end;
        item.strText = text;
        item.crColor2 = back;
        month.AddItem(&item);
    }

    template <class View>
    void Paint(View& month)
    {
        surface.Fill(RGB(1, 2, 3));
        month.Draw(&surface.Dc());
    }

    testsupport::RecordingParent parent;
    Painted<CMonthViewCtrl> view;
    Painted<CMonthViewCtrl2> blocks;
    MemoryDc surface{kWidth, kHeight};
};

} // namespace

TEST_F(MonthPaint, EveryLayerIsWhereItBelongs)
{
    view.SetDayColor(Day(4, 17), 4);
    view.SetSelRange(Day(4, 7), Day(4, 8));
    Paint(view);
    struct Probe
    {
        const char* name;
        int x, y;
        COLORREF color;
    };
    const Probe probes[] = {
        {"title band, first row", 600, 0, 0x7BDBFF},
        {"title band, last row", 600, 29, 0x216DEF},
        {"weekday row, first row", 2, 30, 0xFFEFE3},
        {"vertical grid line", 200, 300, kGrid},
        {"horizontal grid line", 250, 246, kGrid},
        {"border at the right", 703, 300, kGrid},
        {"border at the bottom", 350, 645, kGrid},
        {"plain day", 350, 300, kPlainDay},
        {"first pixel of a cell", 301, 247, kPlainDay},
        {"Sunday", 50, 300, kSunday},
        {"Saturday", 650, 300, kSaturday},
        {"Sunday of another month", 50, 100, kSunday},
        {"holiday on a weekday (29 April)", 350, 500, kSunday},
        {"colour set by the host", 550, 300, 0xBCECD5},
        {"today: outline at the left", 301, 400, kTodayOutline},
        {"selection: outline at the left", 201, 200, kSelectedOutline},
        {"selection: outline of the second day at the bottom", 350, 245, kSelectedOutline},
        {"not selected: the day after", 401, 200, kPlainDay},
    };
    for (const Probe& probe : probes)
        EXPECT_EQ(surface.Pixel(probe.x, probe.y), probe.color) << probe.name;
    EXPECT_NE(surface.Pixel(350, 356), kPlainDay) << "today: strip under the number";
    EXPECT_EQ(surface.Count(CRect(0, 0, kWidth, kHeight), RGB(1, 2, 3)), 0) << "every pixel is painted";
}

TEST_F(MonthPaint, TextsStandInTheirPlaces)
{
    view.SetSelRange(Day(1, 1), Day(1, 1));
    Paint(view);
    const CRect number(360, 247, 399, 262); // of 15 April
    const CRect annotation(301, 247, 360, 262);
    EXPECT_GT(surface.CountOther(number, kPlainDay), 20);
    EXPECT_EQ(surface.CountOther(annotation, kPlainDay), 0) << "a day without a name";
    const CRect solarTerm(104, 349, 160, 362); // 20 April
    EXPECT_GT(surface.CountOther(solarTerm, kPlainDay), 10);
    view.Show24Setuki(FALSE);
    Paint(view);
    EXPECT_EQ(surface.CountOther(solarTerm, kPlainDay), 0);
    EXPECT_GT(surface.CountOther(CRect(5, 5, 40, 25), 0x1096FF), 50) << "the month in the title band";
}

// Weekday names are narrow texts of code page 932; on any system they must give the same glyphs as the wide ones.
TEST_F(MonthPaint, JapaneseTextsDoNotDependOnTheSystem)
{
    MemoryDc expected(kWidth, kHeight);
    surface.Fill(RGB(255, 255, 255));
    for (MemoryDc* target : {&surface, &expected})
        target->Dc().SetBkMode(TRANSPARENT);
    view.DrawHeaderOnly(&surface.Dc());
    view.DrawHeaderOnly(&expected.Dc());
    CRect box = CRect(102, 32, 198, 44); // Monday
    const CRect clean(103, 30, 120, 46);
    for (int x = box.left; x < box.right; ++x) // the band without its text
        expected.Dc().BitBlt(x, 30, 1, 16, &expected.Dc(), clean.left, 30, SRCCOPY);
    expected.Dc().SetTextColor(0x000000);
    const HGDIOBJ old = ::SelectObject(expected.Dc().m_hDC, view.WeekdayFont().GetSafeHandle());
    ::DrawTextW(expected.Dc().m_hDC, L"\x6708\x66DC\x65E5", 3, &box, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    ::SelectObject(expected.Dc().m_hDC, old);
    EXPECT_TRUE(surface.SameAs(expected));
}

TEST_F(MonthPaint, BarsAreFilledFramedAndHidden)
{
    view.SetSelRange(Day(1, 1), Day(1, 1));
    for (int i = 0; i < 5; ++i)
        Add(view, COleDateTime(2026, 4, 15, 9, 0, 0), COleDateTime(2026, 4, 15, 10, 0, 0));
    Paint(view);
    const CRect third(301, 302, 399, 322);
    EXPECT_GT(surface.Count(third, kItemBack), 1000);
    EXPECT_EQ(surface.Count(CRect(301, 342, 399, 366), kItemBack), 0) << "the fifth is hidden";
    EXPECT_NE(surface.Pixel(390, 344), kPlainDay) << "and the mark says so";
    EXPECT_EQ(surface.Pixel(380, 345), kPlainDay) << "its corners are transparent";
    EXPECT_EQ(surface.Count(third, kFrameOfItem), 0);
    view.SetCurSel(2);
    Paint(view);
    EXPECT_EQ(surface.Pixel(350, 303), kFrameOfItem);
    EXPECT_GT(surface.Count(third, kFrameOfItem), 200);

    view.DeleteAllItems();
    view.SetCurSel(-1);
    Add(view, Day(4, 15), Day(4, 16), "", 0xFFFFFF);
    Paint(view);
    EXPECT_EQ(surface.Pixel(390, 272), kPlainDay) << "white means: not filled";
    EXPECT_EQ(surface.Pixel(400, 272), kGrid) << "so the grid shines through";
}

TEST_F(MonthPaint, SelectionShowsBesideACurrentItemOnlyWhenAsked)
{
    Add(view, Day(4, 15), Day(4, 15));
    view.SetSelRange(Day(4, 7), Day(4, 7));
    for (const bool shown : {false, true}) {
        view.SetCurSel(0);
        view.ShowSelectionWithItem(shown);
        Paint(view);
        EXPECT_EQ(surface.Pixel(201, 200), shown ? kSelectedOutline : kPlainDay);
    }
}

TEST_F(MonthPaint, TheVariantShowsTheLastItemOfADayAsABlock)
{
    blocks.SetSelRange(Day(1, 1), Day(1, 1));
    Add(blocks, Day(4, 15), Day(4, 15), "first", 0x0000AA);
    Add(blocks, Day(4, 15), Day(4, 15), "last", kItemBack);
    blocks.SetCurSel(0);
    Paint(blocks);
    EXPECT_EQ(surface.Pixel(600, 0), 0x4A79E7u);
    EXPECT_EQ(surface.Pixel(600, 29), 0x1522CDu);
    EXPECT_EQ(surface.Pixel(303, 269), 0xD8CDC1u) << "outline: cell, 20 down, 2 and 1 in";
    const CRect block(304, 270, 396, 341);
    EXPECT_GT(surface.Count(block, kItemBack), 5000);
    EXPECT_EQ(surface.Count(block, 0x0000AA), 0);
    EXPECT_GT(surface.Count(block, kFrameOfItem), 100) << "the current item lies below the last one";
}

TEST_F(MonthPaint, AnUnknownDayColourEndsThePainting)
{
    view.SetDayColor(Day(4, 15), 10000);
    try {
        Paint(view);
        ADD_FAILURE();
    } catch (CInvalidArgException* e) {
        e->Delete();
    }
}

TEST_F(MonthPaint, TinyWindowsAreDrawnWithoutHarm)
{
    for (int i = 0; i < 4; ++i)
        Add(view, Day(4, 15), Day(4, 18), "一二三");
    for (int size : {1, 2, 7, 30, 47, 60, 90}) {
        view.Layout(size, size);
        Paint(view);
        blocks.Layout(size, size);
        Paint(blocks);
    }
}

// DAYVANE_PAINTS in the environment: how often.
TEST_F(MonthPaint, LeavesNoObjectsBehind)
{
    const char* wanted = std::getenv("DAYVANE_PAINTS");
    const int paints = wanted ? std::atoi(wanted) : 60;
    for (int i = 0; i < 60; ++i) {
        tagCC_ITEM item;
        item.dtStart = dayvane::AddDays(Day(4, 1), i % 30);
        item.dtEnd = dayvane::AddDays(item.dtStart, i % 4);
        item.strText = "会議 meeting";
        item.crColor2 = 0x808080 + i;
        item.bAlarm = item.bRecurrent = i % 2;
        item.nReserved = i % 4;
        view.AddItem(&item, i == 59);
        blocks.AddItem(&item, i == 59);
    }
    const auto paintAll = [&](int count) {
        for (int i = 0; i < count; ++i) {
            view.SetCurSel(i % 60);
            Paint(view);
            Paint(blocks);
            view.Invalidate(FALSE);
            view.UpdateWindow();
        }
    };
    testsupport::ExpectNothingLeftBy([&] { paintAll(paints); });
}
