// Trees of random views and selectors against their layouts.
#include "access/PickerTree.h"
#include "access/ViewSpeech.h"
#include "access/ViewTree.h"
#include "core/DateMath.h"
#include "tests/access/TreeChecks.h"
#include "timegrid/RandomItems.h"
#include "views/daygrid/BoxViewLayout.h"
#include "views/daygrid/BoxViewParts.h"
#include "views/daygrid/RowPieces.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/TimeGridViewParts.h"

#include <gtest/gtest.h>

using namespace dayvane;
using accesstest::CheckTree;

namespace {

std::string PlainText(const CString& text)
{
    return text.GetString();
}

std::string NoNames(const COleDateTime&)
{
    return std::string();
}

std::string DayAsName(const COleDateTime& date)
{
    return date.Format("day %d").GetString();
}

class RandomView
{
public:
    explicit RandomView(unsigned seed) : m_random(seed) {}

    // The week or the year view around a day, with items laid out as the control does it.
    void MakeBoxes(RangeKind kind, const COleDateTime& day)
    {
        const BoxViewMetrics& metrics = kind == RangeKind::Week ? kWeekMetrics : kYearMetrics;
        const BoxRange range(kind, day, 1 + m_random.Below(7));
        parts.kind = kind == RangeKind::Week ? ViewKind::Week : ViewKind::Year;
        parts.client = CRect(0, 0, 200 + m_random.Below(900), 150 + m_random.Below(700));
        BoxViewLayout layout(metrics);
        LayOutBoxView(parts.client, true, metrics, layout);
        parts.title = layout.caption;
        Fill(range.FirstDate(), kind == RangeKind::Week ? 8 : 365);
        MakeRowPieces(store, range.Rows(), pieces);
        const std::vector<BoxLoad> loads = LayOutBars(layout.grid, metrics.bars, range.Spans(pieces), pieces);
        std::vector<CRect> marks;
        for (int i = 0; i < range.Count(); ++i) {
            const CRect& box = layout.grid.boxes[i];
            marks.push_back(loads[i].more ? CRect(box.right - 20, box.bottom - 8, box.right, box.bottom)
                                          : CRect(0, 0, 0, 0));
        }
        FillBoxParts({range, metrics.columns, metrics.stripHeight, layout.grid.boxes, marks, pieces}, parts);
    }

    void MakeTimeGrid(const COleDateTime& day)
    {
        const DayRange range = DayRange::From(day, 1 + m_random.Below(7), 0);
        parts.kind = range.days == 1 ? ViewKind::Day : ViewKind::SeveralDays;
        parts.client = CRect(0, 0, 300 + m_random.Below(900), 200 + m_random.Below(700));
        Fill(range.first, range.days);
        const int bars = MakeRangeItems(store, range, pieces);
        frame = CalcTimeGridFrame(parts.client, true, range.days == 1 ? 0 : kTimeGrid.headerHeight, bars, range.days);
        const TimeScale scale{1 + m_random.Below(4)};
        const std::vector<MoreMark> marks =
            PlaceTimedItems(pieces, frame.columns, range, scale, CalendarOptions::Modern());
        LayManyDayLanes(pieces, frame.fulldayContent, frame.columns, range.first);
        FillTimeGridParts(TimeGridState{frame, scale, range, m_random.Below(600)}, pieces, marks, parts);
    }

    AccessTree Tree() const { return MakeViewTree(parts); }
    ViewSpeech Speech(const AccessTree& tree)
    {
        names.clear();
        return {EnglishAccessTexts(), parts, tree, store, names, parts.cells[0].first, PlainText, NoNames, ""};
    }

    ViewParts parts;
    ItemArray store;
    ItemArray pieces;
    TimeGridFrame frame;
    ItemNames names;

private:
    void Fill(const COleDateTime& first, int days)
    {
        m_random.Fill(store, 40, first, days);
        for (int i = 0; i < static_cast<int>(store.GetSize()); ++i) {
            store[i].strText.Format("item %d", m_random.Below(6)); // some are alike
            store[i].bRecurrent = m_random.Below(2);
        }
        for (int i = 0, count = static_cast<int>(store.GetSize()); i < count; i += 5) {
            const tagCALENDAR_ITEM copy = store[i];
            store.Add(copy);
        }
    }

    RandomItems m_random;
};

// The parts of an item's bar in the cells of a row make up the bar.
void ExpectPiecesCovered(const RandomView& view, const AccessTree& tree)
{
    for (const ViewPiece& piece : view.parts.pieces) {
        if (piece.box.IsRectEmpty()) {
            continue;
        }
        CRect covered(0, 0, 0, 0);
        for (const ViewCell& cell : view.parts.cells) {
            const int node = tree.Find({AccessPart::Item, DayNumberOf(cell.first), piece.item});
            CRect common;
            if (node != kNoNode && !tree.At(node).isHidden && common.IntersectRect(&tree.At(node).box, &piece.box)) {
                covered.UnionRect(&covered, &common);
            }
        }
        CRect seen;
        seen.IntersectRect(&piece.box, &view.parts.client);
        EXPECT_LE(covered.left, std::max(seen.left, view.parts.cells[0].box.left));
        EXPECT_EQ(covered.top, seen.top);
    }
}

} // namespace

TEST(ViewTree, RandomViewsKeepTheRulesOfTrees)
{
    const COleDateTime day(2026, 11, 20, 0, 0, 0);
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        RandomView view(seed);
        if (seed % 3 == 0) {
            view.MakeTimeGrid(day);
        } else {
            view.MakeBoxes(seed % 3 == 1 ? RangeKind::Week : RangeKind::Year, day);
        }
        const AccessTree tree = view.Tree();
        const ViewSpeech speech = view.Speech(tree);
        CheckTree(tree, [&](int node) { return speech.NameOf(node); });
        if (seed % 3 == 1) {
            ExpectPiecesCovered(view, tree);
        }
    }
}

TEST(ViewTree, EveryItemOfADayIsInItsCellAlsoWithoutRoom)
{
    for (unsigned seed = 0; seed < 40; ++seed) {
        RandomView view(seed);
        view.MakeBoxes(RangeKind::Week, COleDateTime(2026, 11, 20, 0, 0, 0));
        const AccessTree tree = view.Tree();
        for (const ViewCell& cell : view.parts.cells) {
            for (int i = 0; i < static_cast<int>(view.store.GetSize()); ++i) {
                const tagCALENDAR_ITEM& item = view.store[i];
                if (!IsValid(item.dtStart) || !IsValid(item.dtEnd) || item.dtEnd < item.dtStart) {
                    continue;
                }
                const bool isOfDay = item.dtStart <= cell.last && item.dtEnd >= cell.first;
                EXPECT_EQ(isOfDay, tree.Find({AccessPart::Item, DayNumberOf(cell.first), i}) != kNoNode)
                    << seed << " item " << i << " in " << cell.first.Format("%m-%d").GetString();
            }
        }
    }
}

TEST(ViewTree, SelectionsOfRowsAndDaysAreFoundAndDatedBack)
{
    RandomView view(0);
    view.MakeTimeGrid(COleDateTime(2026, 11, 20, 0, 0, 0));
    const COleDateTime begin = AddMinutes(view.parts.cells[0].first, 9 * kMinutesPerHour);
    const COleDateTime end = AddMinutes(begin, 2 * kMinutesPerHour);
    const std::vector<AccessId> selected = SelectedParts(view.parts, end, begin, false);
    ASSERT_EQ(static_cast<size_t>(2 * kMinutesPerHour / view.parts.minutesPerRow + 1), selected.size());
    EXPECT_EQ(begin, DateOfPart(view.parts, selected.front()));
    EXPECT_EQ(PartOfSelection(view.parts, end, false), selected.back());
    ASSERT_LT(1u, view.parts.cells.size());
    EXPECT_EQ(static_cast<size_t>(view.parts.rows + 1),
              SelectedParts(view.parts, begin, AddDays(begin, 1), false).size());
    EXPECT_EQ(AccessPart::WholeDay, PartOfSelection(view.parts, end, true).part);
    ViewParts odd = view.parts; // rows that an hour does not divide into: the last takes what is left of the day
    odd.minutesPerRow = 8;
    odd.rows = 7 * 24;
    EXPECT_EQ(odd.rows - 1, PartOfSelection(odd, EndOfDay(begin), false).index);
    EXPECT_EQ(AccessId(), PartOfSelection(view.parts, AddDays(begin, -1), false)) << "not shown";
    const int day = DayNumberOf(begin);
    const AccessTree tree = view.Tree();
    int bottom = view.parts.grid.top;
    for (int row = 0; row < view.parts.rows; ++row) {
        const CRect& box = tree.At(tree.Find({AccessPart::Row, day, row})).box;
        EXPECT_TRUE(box.IsRectEmpty() || box.top == bottom) << "below the row before it";
        bottom = std::max<int>(bottom, box.bottom);
    }
    EXPECT_LT(view.parts.grid.top + 2 * view.parts.rowHeight, bottom);
    EXPECT_EQ(SelectedParts(view.parts, begin, end, true), (std::vector<AccessId>{{AccessPart::WholeDay, day, 0}}));
    RandomView week(0);
    week.MakeBoxes(RangeKind::Week, begin);
    EXPECT_EQ(SelectedParts(week.parts, begin, end, false), (std::vector<AccessId>{{AccessPart::Cell, day, 0}}));
}

TEST(PickerTree, RandomGridsKeepTheRulesOfTrees)
{
    RandomItems random(5);
    for (const PeriodPolicy* policy : {&kMonthPolicy, &kNumberedMonthPolicy, &kYearPolicy}) {
        for (int i = 0; i < 12; ++i) {
            const CRect client(0, 0, 140 + random.Below(500), 130 + random.Below(400));
            const COleDateTime now(2026, 1 + random.Below(12), 1 + random.Below(28), 10, 0, 0);
            const int first = i == 0 ? policy->LastPeriod() : PeriodOf(*policy, now);
            const PeriodGridLayout layout =
                CalcPeriodGrid(*policy, {client.Size(), 1 + random.Below(3), 1 + random.Below(3), first, 2});
            const AccessTree tree = MakePeriodGridTree(*policy, layout, client);
            const PeriodGridSpeech speech{EnglishAccessTexts(), *policy, layout, now, DayAsName};
            CheckTree(tree, [&](int node) { return speech.WordsOf(tree.At(node).id).name; });
            for (int node = 0; node < tree.Count(); ++node) {
                const AccessId& id = tree.At(node).id;
                const CRect box = RectOfPart(layout, HitOfPart(layout, id));
                CRect seen;
                if (!tree.At(node).isHidden && seen.IntersectRect(&box, &client)) {
                    EXPECT_EQ(seen, tree.At(node).box);
                }
                if (id.part == AccessPart::Previous || id.part == AccessPart::Next || id.part == AccessPart::Now) {
                    EXPECT_EQ(0, tree.At(node).parent);
                }
                if (id.part == AccessPart::Cell) {
                    EXPECT_EQ(id, PartOfHit(layout, HitOfPart(layout, id)));
                    const COleDateTime date = DateOfHit(layout, HitOfPart(layout, id));
                    const AccessWords words = speech.WordsOf(id);
                    EXPECT_EQ(policy == &kYearPolicy || !IsValid(date) ? "" : DayAsName(date), words.description);
                    if (!IsValid(date)) {
                        EXPECT_EQ("no date, " + std::to_string(id.index + 1), words.name);
                    }
                    const bool isNow = IsValid(date) && date.GetYear() == now.GetYear() &&
                                       date.GetMonth() == now.GetMonth() &&
                                       (policy == &kYearPolicy || date.GetDay() == now.GetDay());
                    EXPECT_EQ(isNow,
                              words.name.find(policy == &kYearPolicy ? "this month" : "today") != words.name.npos);
                }
            }
        }
    }
}

TEST(PickerTree, PopupsKeepTheRulesOfTrees)
{
    const COleDateTime now(2026, 11, 20, 10, 0, 0);
    const AccessTree months = MakeYearMonthTree(CalcYearMonthLayout(CRect(0, 0, 120, 120)));
    CheckTree(months,
              [&](int node) { return WordsOfYearMonth(EnglishAccessTexts(), months.At(node).id, 2026, now).name; });
    const PeriodRun run(kYearPolicy, kYearPolicy.LastPeriod() - 1, 100);
    const AccessTree years = MakePeriodRunTree(run);
    CheckTree(years,
              [&](int node) { return WordsOfPeriodRun(EnglishAccessTexts(), kYearPolicy, years.At(node).id).name; });
    EXPECT_EQ(5, static_cast<int>(years.At(0).children.size())) << "no lines after the year 9999";
    EXPECT_EQ(CPoint(0, 0), years.At(0).box.TopLeft());
    MoreListModel list(std::vector<int>(30, 0));
    list.Scroll(4);
    const AccessTree rows = MakeMoreListTree(list);
    EXPECT_EQ(30, static_cast<int>(rows.At(0).children.size()));
    EXPECT_EQ(4, rows.At(rows.HitTest(list.RowRect(4).CenterPoint())).id.key);
    EXPECT_TRUE(rows.At(rows.Find({AccessPart::Entry, 3, 0})).isHidden);
}
