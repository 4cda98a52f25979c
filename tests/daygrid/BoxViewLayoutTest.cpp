// The week and year view as values: boxes, bars against the rules taken literally.
#include "LiteralMonth.h"
#include "RandomMonth.h"

#include "views/daygrid/BoxViewLayout.h"
#include "views/daygrid/RowPieces.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {

struct Kind
{
    const char* name;
    RangeKind range;
    const BoxViewMetrics& metrics;
};
const Kind kWeek = {"week", RangeKind::Week, kWeekMetrics};
const Kind kYear = {"year", RangeKind::Year, kYearMetrics};

class RandomView : public RandomItems
{
public:
    RandomView(const Kind& kind, unsigned seed) : RandomItems(seed), kind(kind), layout(kind.metrics)
    {
        LayOutBoxView(Client(), Below(4) != 0, kind.metrics, layout);
        range = BoxRange(kind.range, Date(), 1 + Below(7));
        firstDay = range.FirstDate();
        for (int box = 0; box < range.Count(); ++box) {
            dates.push_back(range.DateOfBox(box));
        }
    }

    std::vector<literal::Range> RowRanges() const
    {
        const int last = range.Count() - 1;
        const int half = range.Count() / 2;
        return {{firstDay, range.LastDateOfBox(half - 1)}, {dates[half], range.LastDateOfBox(last)}};
    }

    const Kind& kind;
    BoxViewLayout layout;
    BoxRange range{RangeKind::Week};
    std::vector<COleDateTime> dates; // of the boxes
};

BoxViewLayout LayOut(const BoxViewMetrics& metrics, const CRect& client, bool showCaption = true)
{
    BoxViewLayout layout(metrics);
    LayOutBoxView(client, showCaption, metrics, layout);
    return layout;
}

int BoxAt(const BoxViewLayout& layout, CPoint point)
{
    return BoxUnder(
        static_cast<int>(layout.grid.boxes.size()), [&layout](int i) { return layout.grid.boxes[i]; }, point);
}

void ExpectLiteralBars(const Kind& kind, unsigned seed, int itemCount)
{
    RandomView view(kind, seed);
    view.AddItems(itemCount, kind.range == RangeKind::Year ? 365 : kWeekBoxes);
    ItemArray pieces;
    MakeRowPieces(view.items, view.range.Rows(), pieces);
    ItemArray expected;
    literal::MakePieces(view.items, view.RowRanges(), expected);
    ASSERT_EQ(pieces.GetSize(), expected.GetSize()) << kind.name << " " << seed;
    const std::vector<bool> more =
        literal::CalcBoxBars({view.layout.grid.boxes, view.dates, &kind == &kYear}, expected);
    const std::vector<BoxLoad> loads =
        LayOutBars(view.layout.grid, kind.metrics.bars, view.range.Spans(pieces), pieces);
    for (int i = 0; i < static_cast<int>(pieces.GetSize()); ++i) {
        ASSERT_TRUE(pieces[i].dtStart == expected[i].dtStart && pieces[i].dtEnd == expected[i].dtEnd &&
                    pieces[i].nPiece == expected[i].nPiece && pieces[i].nSource == expected[i].nSource)
            << kind.name << " " << seed << " piece " << i;
        ASSERT_EQ(Text(pieces[i].rcItem), Text(expected[i].rcItem)) << kind.name << " " << seed << " piece " << i;
        ASSERT_EQ(pieces[i].bNoFocus, expected[i].bNoFocus) << kind.name << " " << seed << " piece " << i;
    }
    for (size_t box = 0; box < more.size(); ++box) {
        ASSERT_EQ(loads[box].more, more[box]) << kind.name << " " << seed << " box " << box;
    }
}

} // namespace

TEST(BoxView, BarsGetTheRectanglesOfThePairRule)
{
    for (const Kind* kind : {&kWeek, &kYear}) {
        for (unsigned seed = 0; seed < 5000 && !HasFailure(); ++seed) {
            ExpectLiteralBars(*kind, seed, 1 + seed % 17);
        }
        for (unsigned seed = 10000; seed < 10020 && !HasFailure(); ++seed) {
            ExpectLiteralBars(*kind, seed, 200);
        }
    }
}

TEST(BoxView, BoxesTileTheRowsAndAnswerUnderTheirCentres)
{
    for (const Kind* kind : {&kWeek, &kYear}) {
        const int columns = kind->metrics.columns;
        for (int width : {1, 3, 6, 7, 100, 701, 1283}) {
            for (int height : {1, 29, 30, 32, 61, 480, 1003}) {
                const BoxViewLayout layout = LayOut(kind->metrics, CRect(0, 0, width, height));
                for (int i = 0; i < kind->metrics.BoxCount(); ++i) {
                    const CRect& box = layout.grid.boxes[i];
                    const bool lastOfRow = i % columns == columns - 1;
                    EXPECT_EQ(box.right, lastOfRow ? width : layout.grid.boxes[i + 1].left);
                    EXPECT_EQ(box.top, i < columns ? 30 : layout.grid.boxes[0].bottom);
                    if (!box.IsRectEmpty()) {
                        EXPECT_EQ(BoxAt(layout, box.CenterPoint()), i);
                    }
                }
            }
        }
    }
    const BoxViewLayout week = LayOut(kWeekMetrics, CRect(0, 0, 803, 631));
    EXPECT_EQ(Text(week.grid.boxes[7]), "(600, 330, 803, 630)");
    EXPECT_EQ(Text(week.strips[1]), "(200, 30, 400, 52)");
    EXPECT_EQ(BoxAt(week, CPoint(5, 630)), -1) << "what is left over of the height";
    const BoxViewLayout year = LayOut(kYearMetrics, CRect(0, 0, 605, 401), false);
    EXPECT_EQ(Text(year.grid.boxes[5]), "(500, 0, 605, 200)");
    EXPECT_EQ(Text(year.strips[6]), "(0, 200, 100, 220)");
}
