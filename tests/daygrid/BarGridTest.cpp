// The month's pieces and bars against the rules taken literally, on random months.
#include "LiteralMonth.h"
#include "RandomMonth.h"

#include "views/daygrid/RowPieces.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {

enum Shape
{
    CUT_TO_ROWS,
    AS_STORED
};

void CutToRows(const RandomMonth& month, ItemArray& pieces)
{
    MakeRowPieces(month.items, month.range.Rows(), pieces);
}

void ExpectLiteralBars(unsigned seed, int itemCount, Shape shape)
{
    RandomMonth month(seed);
    month.AddItems(itemCount, kMonthCells);
    ItemArray items;
    if (shape == CUT_TO_ROWS) {
        CutToRows(month, items);
    } else {
        items.Copy(month.items);
    }
    ItemArray expected;
    expected.Copy(items);
    MonthCellArray expectedCells;
    expectedCells.Copy(month.cells);

    CalcMonthBars(month.dates, month.cells, items);
    literal::CalcMonthBars(month.dates, expectedCells, month.firstDayOfWeek, expected);
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        ASSERT_EQ(Text(items[i].rcItem), Text(expected[i].rcItem)) << "item " << i << ", seed " << seed;
        ASSERT_EQ(items[i].bNoFocus, expected[i].bNoFocus) << "item " << i << ", seed " << seed;
    }
    for (int i = 0; i < kMonthCells; ++i) {
        ASSERT_EQ(month.cells[i].m_nItemCount, expectedCells[i].m_nItemCount) << "cell " << i << ", seed " << seed;
        ASSERT_EQ(month.cells[i].m_bMore, expectedCells[i].m_bMore) << "cell " << i << ", seed " << seed;
    }
}

} // namespace

TEST(BarGrid, BarsGetTheRectanglesOfThePairRule)
{
    for (Shape shape : {CUT_TO_ROWS, AS_STORED}) {
        for (unsigned seed = 0; seed < 3000 && !HasFailure(); ++seed) {
            ExpectLiteralBars(seed, 1 + seed % 17, shape);
        }
        for (unsigned seed = 200000; seed < 200020 && !HasFailure(); ++seed) {
            ExpectLiteralBars(seed, 300, shape);
        }
    }
    ExpectLiteralBars(300000, 1500, CUT_TO_ROWS);
}

TEST(RowPieces, AreTheIntersectionsWithTheRows)
{
    for (unsigned seed = 0; seed < 2000 && !HasFailure(); ++seed) {
        RandomMonth month(seed);
        month.AddItems(20, kMonthCells);
        ItemArray pieces;
        pieces.SetSize(seed % 3 * 20); // records of an earlier call are overwritten
        CutToRows(month, pieces);
        ItemArray expected;
        literal::MakePieces(month.items, month.firstDay, expected);
        ASSERT_EQ(pieces.GetSize(), expected.GetSize()) << "seed " << seed;
        for (int i = 0; i < static_cast<int>(pieces.GetSize()); ++i) {
            ASSERT_EQ(pieces[i].nSource, expected[i].nSource) << "seed " << seed;
            ASSERT_EQ(pieces[i].nPiece, expected[i].nPiece) << "seed " << seed;
            ASSERT_TRUE(pieces[i].dtStart == expected[i].dtStart && pieces[i].dtEnd == expected[i].dtEnd)
                << "seed " << seed;
        }
    }
}
