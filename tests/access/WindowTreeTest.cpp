// The trees of views in real windows of random sizes, with random items, against what the views themselves say of
// places: where items lie, and what a point hits.
#include "access/CalendarWindowAccess.h"
#include "core/DateMath.h"
#include "tests/access/TreeChecks.h"
#include "timegrid/GridScene.h"
#include "timegrid/RandomItems.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"

#include <gtest/gtest.h>

using namespace testsupport;
using namespace dayvane;
using gridtest::At;

namespace {

constexpr unsigned kWindows = 10;
constexpr int kPoints = 300;

template <class View>
class SeenView : public OpenView<View>
{
public:
    using View::DescribeParts;
};

template <class View>
class RandomWindow : public testing::Test
{
public:
    RecordingParent parent;
    std::unique_ptr<SeenView<View>> view;
    std::shared_ptr<CalendarWindowAccess> access;
    CSize size;

    void Make(RandomItems& random)
    {
        gridtest::g_now = At(9, 0);
        SetCalendarClock(&gridtest::Now);
        SetAccessTexts(&EnglishAccessTexts());
        size = CSize(200 + random.Below(800), 150 + random.Below(600));
        parent.Create(size.cx, size.cy);
        view = std::make_unique<SeenView<View>>();
        view->SetOptions(CalendarOptions::Modern());
        view->ShowCaption(random.Below(2));
        view->SetCurrentDate(At(9, 0));
        view->Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL, CRect(CPoint(0, 0), size), &parent, 7);
        AddItems(random);
        for (int steps = random.Below(4); steps > 0; --steps) {
            view->SendMessage(WM_VSCROLL, random.Below(2) ? SB_LINEDOWN : SB_LINEUP);
        }
        PumpMessages();
        access = std::make_shared<CalendarWindowAccess>(*view);
    }
    void TearDown() override { End(); }
    void End()
    {
        if (access) {
            access->Disconnect();
        }
        view.reset();
        parent.DestroyWindow();
        SetCalendarClock(nullptr);
        SetAccessTexts(nullptr);
    }

    // Where a piece of the item can be seen in the cell: one of the places that the screen list has for it.
    bool IsPlaceOfItem(const AccessNode& node, const CRect& cell)
    {
        const auto& pieces = view->GetScreenItems();
        for (INT_PTR i = 0; i < pieces.GetSize(); ++i) {
            for (const int scrolled : {0, view->GetVertScrollOffset()}) {
                CRect box = pieces[i].rcItem;
                box.OffsetRect(0, -scrolled);
                box.IntersectRect(&box, &cell);
                const bool isCut = scrolled != 0 && box.left == node.box.left && box.right == node.box.right &&
                                   box.bottom == node.box.bottom && box.top < node.box.top; // under band or caption
                if (pieces[i].nSource == node.id.index && (box == node.box || isCut)) {
                    return true;
                }
            }
        }
        return false;
    }

    // What the tree has at the point is what the view's hit test finds there.
    void ExpectHit(const AccessTree& tree, const ViewParts& parts, CPoint point)
    {
        tagCCHITTESTINFO hit;
        hit.pt = point;
        view->HitTest(hit);
        const int node = tree.HitTest(point);
        const AccessId id = node == kNoNode ? AccessId() : tree.At(node).id;
        SCOPED_TRACE(testing::Message() << "at " << point.x << ", " << point.y << " code " << hit.nHitCode << " part "
                                        << static_cast<int>(id.part) << " key " << id.key << " index " << id.index);
        // The strip on top of a day is hit before a bar that reaches into it.
        if (id.part == AccessPart::Mark || id.part == AccessPart::Child || hit.nHitCode == CCHT_ONDAYCAPTION) {
            return;
        }
        const bool isItem = hit.nHitCode == CCHT_ONITEM || hit.nHitCode == CCHT_ONFULLDAYITEM;
        EXPECT_EQ(isItem, id.part == AccessPart::Item);
        if (isItem) {
            EXPECT_EQ(hit.nItem, id.index);
        } else if (hit.nHitCode == CCHT_ONCELL) {
            EXPECT_EQ(id.part, parts.rows == 0 ? AccessPart::Cell : AccessPart::Row);
            EXPECT_EQ(COleDateTime(hit.time), DateOfPart(parts, id));
        } else if (hit.nHitCode == CCHT_ONFULLDAY) {
            EXPECT_EQ(AccessPart::WholeDay, id.part);
        }
    }

private:
    void AddItems(RandomItems& random)
    {
        COleDateTime first, last;
        view->GetViewRange(first, last);
        ItemArray items;
        random.Fill(items, 60, first, DayNumberOf(last) - DayNumberOf(first) + 1);
        for (INT_PTR i = 0; i < items.GetSize(); ++i) {
            tagCC_ITEM item;
            item.dtStart = items[i].dtStart;
            item.dtEnd = items[i].dtEnd;
            item.nFullday = items[i].nFullday;
            item.bMovable = random.Below(4) != 0;
            item.strText.Format("item %d", random.Below(5)); // some are alike
            view->AddItem(&item);
        }
        view->Refresh();
    }
};

using Views =
    testing::Types<CMonthViewCtrl, CMonthViewCtrl2, CWeekViewCtrl, CYearViewCtrl, CDayViewCtrl, CWeekDayViewCtrl>;
TYPED_TEST_SUITE(RandomWindow, Views);

TYPED_TEST(RandomWindow, HasATreeOfWhatTheViewShows)
{
    for (unsigned seed = 0; seed < kWindows; ++seed) {
        SCOPED_TRACE(seed);
        RandomItems random(seed);
        this->Make(random);
        const AccessTree tree = this->access->Tree();
        ViewParts parts;
        this->view->GetClientRect(&parts.client);
        this->view->DescribeParts(parts);
        accesstest::CheckTree(tree, [&](int node) { return this->access->WordsOf(node).name; });
        for (int node = 0; node < tree.Count(); ++node) {
            const AccessNode& each = tree.At(node);
            if (each.id.part == AccessPart::Item && !each.isHidden) {
                EXPECT_TRUE(this->IsPlaceOfItem(each, tree.At(each.parent).box)) << this->access->WordsOf(node).name;
            }
        }
        for (int i = 0; i < kPoints; ++i) {
            this->ExpectHit(tree, parts, {random.Below(parts.client.right), random.Below(parts.client.bottom)});
        }
        this->End();
    }
}

} // namespace
