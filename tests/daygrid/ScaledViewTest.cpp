// Month, week and year views at other scales: everything follows, and the way back leaves no trace.
#include "DayGridScene.h"

using namespace testsupport;

namespace {

template <class View>
class ScaledView : public testing::Test
{
};
using Views = testing::Types<CMonthViewCtrl, CMonthViewCtrl2, CWeekViewCtrl, CYearViewCtrl>;
TYPED_TEST_SUITE(ScaledView, Views);

} // namespace

TYPED_TEST(ScaledView, TheWayBackLeavesTheSamePicture)
{
    Scene<TypeParam> scene(Day(4, 22));
    tagCC_ITEM item = ItemOf(Day(4, 21), Day(4, 24));
    item.bAlarm = item.bRecurrent = TRUE;
    for (int i = 0; i < 20; ++i) {
        scene.view->AddItem(&item);
    }
    const auto paint = [&](MemoryDc& picture) {
        picture.Fill(kUnpainted);
        scene.view->DrawCtrl(&picture.Dc());
    };
    MemoryDc before(kWidth, kHeight);
    MemoryDc larger(kWidth, kHeight);
    MemoryDc after(kWidth, kHeight);
    paint(before);
    scene.view->SetScale(192);
    LOGFONT description = {};
    scene.view->GetFont(0)->GetLogFont(&description);
    EXPECT_EQ(description.lfHeight, 24);
    paint(larger);
    EXPECT_FALSE(before.SameAs(larger));
    EXPECT_EQ(larger.Count(CRect(0, 0, kWidth, kHeight), kUnpainted),
              before.Count(CRect(0, 0, kWidth, kHeight), kUnpainted))
        << "nothing stays unpainted";
    scene.view->SetScale(96);
    paint(after);
    EXPECT_TRUE(before.SameAs(after));
}

// What is hit is what is painted, at every scale.
TYPED_TEST(ScaledView, ItemsAreHitWhereTheyAre)
{
    Scene<TypeParam> scene(Day(4, 22));
    tagCC_ITEM item = ItemOf(Day(4, 22), Day(4, 22));
    scene.view->AddItem(&item);
    for (int dpi : {96, 120, 144, 192}) {
        scene.view->SetScale(dpi);
        const CRect box = scene.view->GetScreenItems()[0].rcItem;
        ASSERT_GT(box.Height(), 0) << dpi;
        tagCCHITTESTINFO hit;
        hit.pt = box.CenterPoint();
        EXPECT_EQ(scene.view->HitTest(hit), 0) << dpi;
        hit.pt = CPoint(box.left + 1, box.bottom + 1);
        EXPECT_EQ(scene.view->HitTest(hit), -1) << dpi;
    }
}

TEST(ScaledYear, ComboBoxGetsTheNewFontAndPlace)
{
    Scene<CYearViewCtrl> scene(Day(4, 22));
    CComboBox combo;
    ASSERT_TRUE(scene.view->CreateComboBox(&combo, 1, 150, WS_VISIBLE | CBS_DROPDOWNLIST, nullptr));
    scene.view->SetScale(192);
    EXPECT_EQ(reinterpret_cast<HFONT>(combo.SendMessage(WM_GETFONT)),
              static_cast<HFONT>(scene.view->GetFont(0)->GetSafeHandle()))
        << "not the font that is gone";
    CRect place;
    combo.GetWindowRect(&place);
    EXPECT_EQ(place.Width(), 400);
}
