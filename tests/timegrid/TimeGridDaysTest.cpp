// Time grids with lines under the days' names, several work periods and a second ruler.
#include "GridScene.h"

#include "calc/WorkHours.h"
#include "support/MemoryDc.h"
#include "views/timegrid/ZoneRuler.h"

#include <gtest/gtest.h>

using namespace testsupport;
using namespace gridtest;
using namespace dayvane;

namespace {

constexpr int kSize = 500;
constexpr int kRow = 20; // pixels of half an hour

// The colour inside the row of a time of the first shown day.
template <class View>
COLORREF RowColor(Scene<View>& scene, int hour, int minute, int x)
{
    scene.view->SetVertScrollOffset(0);
    scene.view->SetVertScrollOffset(hour * 2 * kRow);
    MemoryDc picture(kSize, kSize);
    scene.view->DrawCtrl(&picture.Dc());
    const int y = scene.view->m_rcContent.top + (hour * 2 + minute / 30) * kRow - scene.Offset() + kRow / 2;
    return picture.Pixel(x, y);
}

} // namespace

TEST(TimeGridDays, ShowSeveralWorkPeriods)
{
    Scene<CDayViewCtrl> scene(kSize, kSize);
    const int x = kSize / 2;
    const COLORREF work = RowColor(scene, 10, 0, x);
    const COLORREF off = RowColor(scene, 2, 0, x);
    ASSERT_NE(work, off);
    EXPECT_EQ(RowColor(scene, 12, 0, x), work);

    WorkHours hours;
    for (int weekday = 1; weekday <= 7; ++weekday) {
        hours.SetWeekday(weekday, {{9 * 60, 12 * 60}, {13 * 60, 17 * 60}});
    }
    scene.view->SetWorkHours(hours);
    EXPECT_EQ(RowColor(scene, 8, 30, x), off);
    EXPECT_EQ(RowColor(scene, 11, 30, x), work);
    EXPECT_EQ(RowColor(scene, 12, 0, x), off) << "lunch";
    EXPECT_EQ(RowColor(scene, 12, 30, x), off);
    EXPECT_EQ(RowColor(scene, 13, 0, x), work);

    tagCALENDAR_DAY_PROPERTY own;
    own.bUseMyWorkTime = TRUE;
    own.dtWorkStart.SetTime(12, 0, 0);
    own.dtWorkEnd.SetTime(13, 0, 0);
    scene.view->SetDayProperty(At(0, 0), own);
    EXPECT_EQ(RowColor(scene, 12, 0, x), work) << "the host's word for the day goes first";
    scene.view->ClearWorkHours();
    scene.view->ClearDayProperty();
    EXPECT_EQ(RowColor(scene, 12, 0, x), work);
}

TEST(TimeGridDays, MakeRoomForLinesAndTheSecondRuler)
{
    Scene<CWeekDayViewCtrl> scene(kSize, kSize);
    scene.Add(At(9, 0), At(10, 0));
    const CRect grid = scene.view->m_rcContent;
    DayLines lines;
    lines.rokuyo = true;
    scene.view->SetDayLines(lines);
    EXPECT_EQ(scene.view->m_rcContent.top, grid.top + 17);
    tagCCHITTESTINFO info = {};
    info.pt = CPoint(grid.left + 20, grid.top - 10);
    ZoneRuler ruler;
    ruler.own = ZoneClock(9 * 3600);
    scene.view->SetZoneRuler(ruler);
    EXPECT_EQ(scene.view->m_rcContent.left, grid.left + kZoneRulerWidth);
    EXPECT_EQ(scene.view->m_rcContent.right, grid.right);
    MemoryDc picture(kSize, kSize);
    scene.view->DrawCtrl(&picture.Dc());
    EXPECT_EQ(picture.Pixel(grid.left + kZoneRulerWidth - 1, grid.top + 60), scene.view->GetColors().grid)
        << "the line between ruler and grid";
    info.pt = CPoint(20, grid.top + 60);
    scene.view->HitTest(info);
    EXPECT_EQ(info.nHitCode, CCHT_ONRULER);

    scene.view->ClearZoneRuler();
    scene.view->SetDayLines(DayLines());
    EXPECT_EQ(scene.view->m_rcContent, grid);
}
