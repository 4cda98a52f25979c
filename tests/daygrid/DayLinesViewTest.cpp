// Lines under the numbers of days, week numbers and eras in the month, week and year views.
#include "DayGridScene.h"

#include "calc/DayCalendar.h"
#include "views/daygrid/BoxLines.h"

using namespace testsupport;
using namespace dayvane;

namespace {

DayLines Some()
{
    DayLines lines;
    lines.rokuyo = lines.moonPhase = true;
    return lines;
}

// The tops of the items and the rectangle of the first box.
template <class View, class BoxOf>
void ExpectLowered(BoxOf boxOf)
{
    Scene<View> scene(Day(4, 15));
    scene.Add(Day(4, 15), Day(4, 15), 2);
    const CRect box = boxOf(*scene.view);
    const CRect first = scene.view->GetScreenItems()[0].rcItem;
    const CRect second = scene.view->GetScreenItems()[1].rcItem;
    scene.Paint();
    MemoryDc plain(kWidth, kHeight);
    plain.Dc().BitBlt(0, 0, kWidth, kHeight, &scene.picture.Dc(), 0, 0, SRCCOPY);

    scene.view->SetDayLines(Some());
    EXPECT_EQ(scene.view->GetScreenItems()[0].rcItem.top, first.top + HeightOfLines(1));
    EXPECT_EQ(boxOf(*scene.view), box);
    scene.Paint();
    EXPECT_FALSE(scene.picture.SameAs(plain));

    scene.view->SetDayLines(DayLines());
    EXPECT_EQ(CRect(scene.view->GetScreenItems()[0].rcItem), first);
    EXPECT_EQ(CRect(scene.view->GetScreenItems()[1].rcItem), second);
    scene.Paint();
    EXPECT_TRUE(scene.picture.SameAs(plain)) << "switched off again nothing is left of it";
}

} // namespace

TEST(DayLinesInViews, MoveTheItemsAndNothingElse)
{
    ExpectLowered<CMonthViewCtrl>([](CMonthViewCtrl& view) { return view.GetCell(0).m_rect; });
    ExpectLowered<CMonthViewCtrl2>([](CMonthViewCtrl2& view) { return view.GetCell(0).m_rect; });
    ExpectLowered<CWeekViewCtrl>([](CWeekViewCtrl& view) { return view.GetDayRect(0); });
}

TEST(DayLinesInViews, FollowTheShownDaysAndTheirProvider)
{
    DayCalendar days;
    Scene<CYearViewCtrl> scene(Day(4, 15));
    scene.Add(Day(4, 15), Day(4, 15));
    const int top = scene.view->GetScreenItems()[0].rcItem.top;
    DayLines lines;
    lines.names = true;
    scene.view->SetDayProvider(&days);
    scene.view->SetDayLines(lines);
    const int lowered = scene.view->GetScreenItems()[0].rcItem.top;
    EXPECT_GT(lowered, top) << "the holidays of the months";

    DayCalendar none;
    none.SetLayers({false, false, false, false, false, false});
    scene.view->SetDayProvider(&none);
    EXPECT_EQ(scene.view->GetScreenItems()[0].rcItem.top, top) << "no names, no lines";
}

TEST(DayLinesInViews, AreMeasuredAnewAtAnotherScale)
{
    Scene<CWeekViewCtrl> before(Day(4, 15)), after(Day(4, 15));
    before.view->SetDayLines(Some());
    before.Paint();
    before.view->SetScale(2 * kBaseDpi);
    after.view->SetScale(2 * kBaseDpi);
    after.Paint(); // its fonts are made
    after.view->SetDayLines(Some());
    before.Paint();
    after.Paint();
    EXPECT_TRUE(before.picture.SameAs(after.picture));
}

TEST(DayLinesInViews, TheWeekColumnTakesItsRoomFromTheDays)
{
    Month scene(Day(4, 15));
    DayLines lines;
    lines.weekNumbers = true;
    scene.view->SetDayLines(lines);
    EXPECT_EQ(Text(scene.view->GetCell(0).m_rect), "(24, 46, 121, 146)");
    EXPECT_EQ(scene.view->GetCell(6).m_rect.right, kWidth - 1);
    tagCCHITTESTINFO info = {};
    info.pt = CPoint(10, 100);
    scene.view->HitTest(info);
    EXPECT_EQ(info.nHitCode, CCHT_NOWHERE);
    EXPECT_EQ(WeekOfRow(BoxRange(RangeKind::Month, Day(4, 15), 2), 0, 2, WeekRule::FirstFourDayWeek), 14);
    EXPECT_EQ(WeekOfRow(BoxRange(RangeKind::Month, Day(2027, 1, 15), 2), 0, 2, WeekRule::FirstFourDayWeek), 53);
    scene.Paint();
}

TEST(DayLinesInViews, BoxesKeepTwoThirdsOfTheirRoomForItems)
{
    const std::vector<DayPiece> full(9, DayPiece{DayPiece::Kind::Name, u"", -1, 90});
    EXPECT_EQ(LinesOfBoxes({full}, CSize(100, 200)), 3);
    EXPECT_EQ(LinesOfBoxes({full}, CSize(100, 90)), 2);
    EXPECT_EQ(LinesOfBoxes({full}, CSize(100, 30)), 0);
    EXPECT_EQ(LinesOfBoxes({{}, {}}, CSize(100, 200)), 0);
}
