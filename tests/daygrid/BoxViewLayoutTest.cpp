// The week and year view as values: boxes, bars against the rules taken literally, positions of the scroll bar.
#include "LiteralMonth.h"
#include "RandomMonth.h"

#include "views/daygrid/BoxViewLayout.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {

struct Kind
{
    const char* name;
    const BoxViewMetrics& metrics;
};
const Kind kWeek = {"week", kWeekMetrics};
const Kind kYear = {"year", kYearMetrics};

class RandomView : public RandomItems
{
public:
    RandomView(const Kind& kind, unsigned seed) : RandomItems(seed), kind(kind)
    {
        layout = LayOutBoxView(Client(), Below(4) != 0, kind.metrics);
        const COleDateTime date = Date();
        if (&kind == &kYear) {
            for (int month = 1; month <= kYearBoxes; ++month) {
                dates.push_back(Day(date.GetYear(), month, 1));
            }
            rows = YearRows(date.GetYear());
        } else {
            rows = WeekRows(WeekStartOf(DayNumberOf(date), 1 + Below(7)));
            for (int day = 0; day < kWeekBoxes; ++day) {
                dates.push_back(DateOfDayNumber(rows[0] + day));
            }
        }
        firstDay = rows[0];
    }

    std::vector<literal::Range> RowRanges() const
    {
        std::vector<literal::Range> ranges;
        for (size_t row = 0; row + 1 < rows.size(); ++row) {
            ranges.push_back({DateOfDayNumber(rows[row]), EndOfDay(DateOfDayNumber(rows[row + 1] - 1))});
        }
        return ranges;
    }

    std::vector<BoxSpan> Spans(const ItemArray& pieces) const
    {
        return &kind == &kYear ? MonthSpans(pieces, dates[0].GetYear()) : DaySpans(pieces, firstDay);
    }

    const Kind& kind;
    BoxViewLayout layout;
    std::vector<COleDateTime> dates; // of the boxes
    DayRows rows;
};

void ExpectLiteralBars(const Kind& kind, unsigned seed, int itemCount)
{
    RandomView view(kind, seed);
    view.AddItems(itemCount, view.rows.back() - view.firstDay);
    ItemArray pieces;
    MakeRowPieces(view.items, view.rows, pieces);
    ItemArray expected;
    literal::MakePieces(view.items, view.RowRanges(), expected);
    ASSERT_EQ(pieces.GetSize(), expected.GetSize()) << kind.name << " " << seed;
    const std::vector<bool> more = literal::CalcBoxBars({view.layout.boxes, view.dates, &kind == &kYear}, expected);
    const BoxGrid grid = {view.layout.boxes, kind.metrics.columns};
    const std::vector<BoxLoad> loads = LayOutBars(grid, kind.metrics.bars, view.Spans(pieces), pieces);
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
                const BoxViewLayout layout = LayOutBoxView(CRect(0, 0, width, height), true, kind->metrics);
                for (int i = 0; i < kind->metrics.BoxCount(); ++i) {
                    const CRect& box = layout.boxes[i];
                    const bool lastOfRow = i % columns == columns - 1;
                    EXPECT_EQ(box.right, lastOfRow ? width : layout.boxes[i + 1].left);
                    EXPECT_EQ(box.top, i < columns ? 30 : layout.boxes[0].bottom);
                    if (!box.IsRectEmpty()) {
                        EXPECT_EQ(BoxOfPoint(layout.boxes.data(), 2 * columns, box.CenterPoint()), i);
                    }
                }
            }
        }
    }
    const BoxViewLayout week = LayOutBoxView(CRect(0, 0, 803, 631), true, kWeekMetrics);
    EXPECT_EQ(Text(week.boxes[7]), "(600, 330, 803, 630)");
    EXPECT_EQ(Text(week.strips[1]), "(200, 30, 400, 52)");
    EXPECT_EQ(BoxOfPoint(week.boxes.data(), 8, CPoint(5, 630)), -1) << "what is left over of the height";
    const BoxViewLayout year = LayOutBoxView(CRect(0, 0, 605, 401), false, kYearMetrics);
    EXPECT_EQ(Text(year.boxes[5]), "(500, 0, 605, 200)");
    EXPECT_EQ(Text(year.strips[6]), "(0, 200, 100, 220)");
}

TEST(BoxView, WeeksOfTheScrollBarAndMonthsAway)
{
    const int positions[][2] = {{0, 0}, {1, 1}, {6, 6}, {7, 1}, {8, 2}, {100, 16}, {365, 53}, {366, 54}};
    for (const auto& day : positions) {
        EXPECT_EQ(WeekScrollPosition(day[0]), day[1]) << day[0];
    }

    EXPECT_EQ(Text(AddYears(COleDateTime(2024, 2, 29, 9, 30, 0), 1)), "2025-02-28 09:30:00");
    EXPECT_EQ(Text(AddYears(Day(2024, 2, 29), -4)), "2020-02-29");
    EXPECT_EQ(Text(AddYears(Day(9999, 1, 1), 1)), "none");
    EXPECT_EQ(Text(FirstOfMonth(Day(2026, 1, 31), -1)), "2025-12-01");
    EXPECT_EQ(Text(FirstOfMonth(Day(9999, 12, 31), 1)), "none");
    EXPECT_EQ(Text(FirstOfMonth(Day(100, 1, 31), -1)), "none");
}
