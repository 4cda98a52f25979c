// What the time grids draw: probe pixels for each layer, no pixel left out, nothing kept.
#include "support/GuiCounts.h"
#include "support/MemoryDc.h"
#include "timegrid/GridScene.h"

#include <gtest/gtest.h>

using namespace gridtest;
using testsupport::MemoryDc;

namespace {
constexpr COLORREF kWork = 0xFFFFFF;
constexpr COLORREF kOffHourLine = 0xE1BFA5;
constexpr COLORREF kSundayOff = 0x8E8CDD;
constexpr COLORREF kRuler = 0xFFEFE3;
constexpr COLORREF kGrid = 0xE1BFA5;
constexpr UINT_PTR kNowTimer = 0x4E4F;
constexpr COLORREF kNowLine = 0x2A2AE0;
constexpr COLORREF kHoliday = 0x2138EF;
constexpr COLORREF kTodayFrame = 0x216FF1;
constexpr COLORREF kRulerText = 0xCF9365; // also the outline of items
// The Sunday row of the table of day colours.
constexpr COLORREF kSundayWork = 0xC9C8EF;
constexpr COLORREF kSundayWorkLine = 0xBDBBE9;
constexpr COLORREF kSundayWorkHour = 0xA6A4DE;
constexpr COLORREF kSundayOffLine = 0x8381D2;
constexpr COLORREF kSundayOffHour = 0x6564B3;
constexpr COLORREF kSaturdayOff = 0xBF9E8B;
// The tests' own.
constexpr COLORREF kItem = 0xC0FFC0;
constexpr COLORREF kBar = 0xFFC0C0;
constexpr COLORREF kSelection = 0x123456;

template <class View>
void Paint(Scene<View>& scene, MemoryDc& dc)
{
    scene.view->DrawCtrl(&dc.Dc());
}
} // namespace

struct DayScene : Scene<CDayViewCtrl>
{
    DayScene() : Scene(500, 500)
    {
        view->SetHighLightColor(kSelection);
        view->SetDayColor(At(0, 0), 2); // its row of the table holds six different colours
        Add(At(8, 0), At(9, 0), 0, kItem);
        Add(At(0, 0), At(0, 0), 1, kBar);
        Add(At(10, 0), At(10, 0));
        Add(At(12, 0), At(11, 0), 0, kItem);
        Scroll(SB_THUMBPOSITION, 10); // 5:00 at the top
    }
};

TEST(GridPaint, DayLayers)
{
    DayScene scene;
    MemoryDc dc(500, 500, 0x00FF00FF);
    Paint(scene, dc);
    const int right = scene.view->m_rcContent.right;
    struct
    {
        const char* name;
        int x, y;
        COLORREF color;
    } const probes[] = {
        {"caption's last line", 300, 29, 0x21CBEF},
        {"ruler", 3, 70, kRuler},
        {"ruler line of 6:00", 10, 100, kRulerText},
        {"ruler, left of its line", 1, 100, kRuler},
        {"band over the ruler", 3, 40, kRuler},
        {"between ruler and grid", 60, 300, kGrid},
        {"band's outline", 61, 45, kGrid},
        {"band", right - 3, 33, 0xFFFFFF},
        {"bar", 300, 40, kBar},
        {"off time 5:00", 300, 70, kSundayOff},
        {"line of 5:00", 300, 60, kSundayOffHour},
        {"line of 5:30", 300, 80, kSundayOffLine},
        {"work time 6:00", 300, 110, kSundayWork},
        {"line of the begin of work", 300, 100, kSundayOffHour},
        {"line of 7:00", 300, 140, kSundayWorkHour},
        {"line of 7:30", 300, 160, kSundayWorkLine},
        {"item", 300, 210, kItem},
        {"item's outline", 300, 180, kRulerText},
        {"beside the item", right - 10, 190, kSundayWork},
        {"selected row of 9:00", 300, 230, kSelection},
        {"the row after it", 300, 250, kSundayWork},
        {"item without length", 300, 260, kRulerText},
        {"item the wrong way round", 300, 310, kItem},
    };
    for (const auto& probe : probes) {
        EXPECT_EQ(probe.color, dc.Pixel(probe.x, probe.y)) << probe.name;
    }
    EXPECT_GT(dc.CountOther(CRect(66, 183, 200, 197), kItem), 20) << "text of the item";
    EXPECT_GT(dc.CountOther(CRect(20, 45, 60, 60), kRuler), 10) << "label of the band";
    EXPECT_GT(dc.CountOther(CRect(5, 105, 55, 135), kRuler), 20) << "6:00";
}

TEST(GridPaint, CurrentItemAndSelections)
{
    DayScene scene;
    MemoryDc dc(500, 500);
    const int right = scene.view->m_rcContent.right;
    // The current item has a frame of two pixels, and hides the selected rows.
    scene.view->SetCurSel(0);
    Paint(scene, dc);
    EXPECT_EQ(kSelection, dc.Pixel(300, 180));
    EXPECT_EQ(kSelection, dc.Pixel(300, 179));
    EXPECT_EQ(kSundayWork, dc.Pixel(300, 230));
    // A selection of whole days shows in the band.
    scene.view->SetCurSel(-1);
    scene.view->SetSelRange(At(0, 0), At(0, 0), TRUE);
    Paint(scene, dc);
    EXPECT_EQ(kSelection, dc.Pixel(right - 3, 33));
    EXPECT_EQ(kSundayWork, dc.Pixel(300, 230));
    scene.view->SetSelRange(At(5, 0), At(5, 0));
    Paint(scene, dc);
    EXPECT_EQ(kSelection, dc.Pixel(300, 70)) << "selected off time";
}

TEST(GridPaint, RulerMeetsTheRows)
{
    Scene<CWeekDayViewCtrl> scene(900, 500);
    scene.view->SetWorkDayOfWeek({{FALSE, FALSE, FALSE, FALSE, FALSE, FALSE, FALSE}});
    MemoryDc dc(900, 500);
    for (int scale : {1, 2, 3, 5, 12, 60}) {
        scene.view->SetTimeScale(scale);
        scene.Scroll(SB_TOP);
        for (int step = 0; step < 12; ++step) {
            Paint(scene, dc);
            for (int y = scene.view->m_rcContent.top; y < scene.view->m_rcContent.bottom; ++y) {
                const bool inRuler = dc.Pixel(5, y) == kRulerText;
                const bool inGrid = dc.Pixel(scene.view->GetColumnRect(0).left + 5, y) == kOffHourLine;
                ASSERT_EQ(inRuler, inGrid) << "scale " << scale << ", offset " << scene.Offset() << ", y " << y;
            }
            scene.Scroll(step % 3 ? SB_PAGEDOWN : SB_LINEDOWN);
        }
    }
}

TEST(GridPaint, DayColorsAndHolidays)
{
    Scene<CDayViewCtrl> scene(500, 500);
    MemoryDc dc(500, 500);
    struct
    {
        COleDateTime date;
        bool showHolidays, ownHours;
        int dayColor;
        COLORREF row; // at noon
    } const cases[] = {
        {At(9, 0, 26), true, false, 0, kWork},
        {At(9, 0, 23), true, false, 0, kSundayOff},
        {At(9, 0, 22), true, false, 0, kSaturdayOff},
        {At(9, 0, 29), true, false, 0, kSundayOff}, // a Saturday that is a day off
        {At(9, 0, 29), false, false, 0, kSaturdayOff},
        {COleDateTime(2017, 5, 3, 9, 0, 0), true, false, 0, kSundayOff},
        {COleDateTime(2017, 5, 3, 9, 0, 0), true, true, 0, kSundayWork},
        {COleDateTime(2017, 5, 3, 9, 0, 0), false, false, 0, kWork},
        {At(9, 0, 26), true, false, 4, 0xBCECD5},
        {COleDateTime(2017, 5, 3, 9, 0, 0), true, false, 5, 0xBCF4FF}, // coloured, but still a day off
    };
    for (const auto& c : cases) {
        scene.view->SetCurrentDate(c.date);
        scene.view->ShowHoliday(c.showHolidays);
        tagCALENDAR_DAY_PROPERTY property;
        property.nDayColor = c.dayColor;
        property.bUseMyWorkTime = c.ownHours;
        scene.view->SetDayProperty(c.date, property);
        scene.view->Refresh();
        scene.Scroll(SB_THUMBPOSITION, 20);
        Paint(scene, dc);
        EXPECT_EQ(c.row, dc.Pixel(300, 60 + 90)) << c.date.GetMonth() << '/' << c.date.GetDay();
    }
    // The holiday's name is in the title band.
    scene.view->ShowHoliday(TRUE);
    scene.view->SetCurrentDate(COleDateTime(2017, 5, 3, 9, 0, 0));
    Paint(scene, dc);
    EXPECT_GT(dc.Count(CRect(0, 0, 500, 29), kHoliday), 10);
    scene.view->ShowHoliday(FALSE);
    Paint(scene, dc);
    EXPECT_EQ(0, dc.Count(CRect(0, 0, 500, 29), kHoliday));
}

TEST(GridPaint, ColumnsOfManyDays)
{
    Scene<CWeekDayViewCtrl> scene(900, 500, At(8, 15));
    scene.view->SetDateScale(15);
    scene.view->SetHighLightColor(kSelection);
    scene.view->ShowNowLine(TRUE);
    scene.Add(At(7, 0), At(8, 0), 0, kItem);
    scene.Add(At(7, 0, 27), At(8, 0, 27), 0, kItem);
    for (int i = 0; i < 10; ++i) { // side by side, too narrow for a letter
        scene.Add(At(10, 0, 28), At(11, 0, 28), 0, kItem);
    }
    scene.view->Refresh();
    scene.Scroll(SB_THUMBPOSITION, 10);
    MemoryDc dc(900, 500);
    Paint(scene, dc);
    const int top = scene.view->m_rcContent.top;
    const auto column = [&scene](int i) { return scene.view->GetColumnRect(i); };
    const int middle = column(2).CenterPoint().x;
    EXPECT_EQ(kWork, dc.Pixel(column(1).left + 20, top + 70));
    EXPECT_EQ(kSundayOff, dc.Pixel(column(6).left + 20, top + 70));
    EXPECT_EQ(kGrid, dc.Pixel(column(3).left, top + 70)) << "separator";
    EXPECT_EQ(kNowLine, dc.Pixel(middle, top + 130));
    EXPECT_NE(kNowLine, dc.Pixel(column(3).CenterPoint().x, top + 130));
    EXPECT_EQ(kItem, dc.Pixel(middle, top + 115));
    EXPECT_EQ(kSelection, dc.Pixel(middle, top + 170)) << "selected row";
    EXPECT_EQ(kWork, dc.Pixel(column(3).CenterPoint().x, top + 170));
    const auto header = [&](int i) { return CRect(column(i).left + 1, 31, column(i).right, 50); };
    EXPECT_GT(dc.Count(header(2), kTodayFrame), 100) << "today";
    EXPECT_EQ(0, dc.Count(header(3), kTodayFrame));
    EXPECT_GT(dc.Count(header(5), kHoliday), 10) << "holiday on a Saturday";
    EXPECT_GT(dc.Count(header(6), 0x0000FF), 5) << "Sunday";

    const CRect narrow(column(4).left + 1, top + 200, column(4).right, top + 240);
    EXPECT_GT(dc.Count(narrow, kItem), 1000);
    EXPECT_EQ(0, dc.Count(narrow, 0)) << "pieces of letters";

    // A box that is pushed beyond its column ends with it.
    scene.view->m_arScreenItem[0].rcItem.right += 200;
    Paint(scene, dc);
    EXPECT_EQ(kItem, dc.Pixel(column(2).right - 2, top + 115));
    EXPECT_NE(kItem, dc.Pixel(column(3).left, top + 115));
    scene.view->ShowNowLine(FALSE);
    Paint(scene, dc);
    EXPECT_NE(kNowLine, dc.Pixel(middle, top + 130));
}

TEST(GridPaint, InALineWithoutRoomForBothTheTextTakesThePlaceOfTheTimes)
{
    Scene<CWeekDayViewCtrl> scene(900, 500, At(8, 15));
    scene.view->SetDateScale(8);
    scene.Add(At(12, 0, 27), At(12, 30, 27), 0, kItem);
    scene.view->Refresh();
    scene.Scroll(SB_THUMBPOSITION, 10);
    MemoryDc dc(900, 500);
    Paint(scene, dc);
    const int top = scene.view->m_rcContent.top;
    const auto column = [&scene](int i) { return scene.view->GetColumnRect(i); };
    const CRect line(column(3).left + 3, top + 282, column(3).right - 9, top + 298);
    EXPECT_GT(dc.Count(line, 0), 10);
    EXPECT_EQ(0, dc.Count(CRect(line.left + 45, line.top, line.right, line.bottom), 0)) << "times";
    const int last = scene.view->GetItemCount() - 1;
    tagCC_ITEM item;
    scene.view->GetItem(last, item);
    item.strText = CString('W', 100);
    scene.view->SetItem(last, &item);
    Paint(scene, dc);
    EXPECT_GT(dc.Count(line, 0), 10);
    EXPECT_EQ(0, dc.Count(CRect(line.right - 8, line.top, line.right, line.top + 9), 0)) << "a letter above the dots";
}

TEST(GridPaint, ATitleThatIsTooLongEndsInDots)
{
    Scene<CDayViewCtrl> scene(260, 200);
    MemoryDc dc(260, 200, kSelection);
    Paint(scene, dc);
    CRect client;
    scene.view->GetClientRect(&client);
    EXPECT_GT(dc.Count(CRect(client.right - 20, 0, client.right, 30), 0xFFFFFF), 0);
    EXPECT_EQ(0, dc.Count(CRect(client.right - 8, 0, client.right, 18), 0xFFFFFF)) << "a letter above the dots";
}

// Painted over two backgrounds, the pictures are alike, whatever the size and the scroll position.
template <class View>
void ExpectNoPixelLeftOut()
{
    Scene<View> scene;
    for (const CSize size : {CSize(500, 500), CSize(500, 1200), CSize(64, 64), CSize(61, 40), CSize(30, 300)}) {
        scene.view->SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER);
        CRect client;
        scene.view->GetClientRect(&client);
        MemoryDc first(client.right, client.bottom, 0x112233);
        MemoryDc second(client.right, client.bottom, 0xFEDCBA);
        for (int scale : {1, 2, 60}) {
            scene.view->SetTimeScale(scale);
            for (UINT code : {SB_TOP, SB_LINEDOWN, SB_BOTTOM}) {
                scene.Scroll(code);
                Paint(scene, first);
                Paint(scene, second);
                EXPECT_TRUE(first.SameAs(second)) << size.cx << 'x' << size.cy << ", " << scale;
            }
        }
    }
}

TEST(GridPaint, LeavesNoPixelOut)
{
    ExpectNoPixelLeftOut<CDayViewCtrl>();
    ExpectNoPixelLeftOut<CWeekDayViewCtrl>();
}

TEST(GridPaint, KeepsNothing)
{
    Scene<CDayViewCtrl> day;
    MemoryDc dc(900, 500);
    for (int i = 0; i < 20; ++i) {
        day.Add(At(i, 0), At(i + 1, 30));
    }
    testsupport::ExpectNothingLeftBy([&] {
        for (int i = 0; i < 200; ++i) {
            Paint(day, dc);
        }
        Scene<CWeekDayViewCtrl> week(900, 500);
        week.Add(At(9, 0), At(10, 0));
        week.view->ShowNowLine(TRUE);
        Paint(week, dc);
    });
}

TEST(NowLine, MovesWithTheMinute)
{
    for (const bool isLater : {false, true}) { // the first minute that the line is shown, or one after it
        Scene<CDayViewCtrl> scene(500, 500, COleDateTime(2017, 4, 26, 2, 0, isLater ? 0 : 59));
        scene.view->ShowNowLine(TRUE);
        if (isLater) {
            g_now = COleDateTime(2017, 4, 26, 2, 1, 59);
            scene.view->SendMessage(WM_TIMER, kNowTimer);
        }
        scene.view->UpdateWindow();
        testsupport::PumpMessages();
        g_now = At(3, 0);
        // The minute is over in a second: the grid is painted anew.
        EXPECT_TRUE(testsupport::PumpUntil([&] {
            CClientDC window(scene.view);
            return window.GetPixel(300, scene.view->m_rcContent.top + 120 - scene.Offset()) == kNowLine;
        })) << isLater;
    }
}
