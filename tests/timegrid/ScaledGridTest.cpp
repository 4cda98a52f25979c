// The day and multi-day views at other scales: the first row in sight stays, and the way back leaves no trace.
#include "GridScene.h"
#include "support/MemoryDc.h"

#include <gtest/gtest.h>

using namespace gridtest;
using namespace testsupport;

namespace {

template <class View>
class ScaledGrid : public testing::Test
{
};
using Views = testing::Types<CDayViewCtrl, CWeekDayViewCtrl>;
TYPED_TEST_SUITE(ScaledGrid, Views);

constexpr COLORREF kUnpainted = RGB(1, 2, 3);

} // namespace

TYPED_TEST(ScaledGrid, TheWayBackLeavesTheSamePicture)
{
    Scene<TypeParam> scene;
    tagCC_ITEM item;
    item.dtStart = At(9, 0);
    item.dtEnd = At(11, 0);
    item.strText = "item";
    item.bAlarm = TRUE;
    scene.view->AddItem(&item);
    item.nFullday = 1;
    scene.view->AddItem(&item);
    scene.view->SetVertScrollOffset(8 * 40);
    PumpMessages();
    const auto paint = [&](MemoryDc& picture) {
        picture.Fill(kUnpainted);
        scene.view->DrawCtrl(&picture.Dc());
    };
    MemoryDc before(500, 500);
    MemoryDc larger(500, 500);
    MemoryDc after(500, 500);
    paint(before);
    scene.view->SetScale(192);
    EXPECT_EQ(scene.view->GetVertScrollOffset(), 2 * 8 * 40) << "8:00 is still the first row";
    EXPECT_EQ(scene.view->GetScreenItems()[0].rcItem.Height(), 2 * 4 * 20);
    paint(larger);
    EXPECT_FALSE(before.SameAs(larger));
    scene.view->SetScale(96);
    paint(after);
    EXPECT_TRUE(before.SameAs(after));
}
