// The bar engine against the rules taken literally, on random months.
#include "LiteralMonth.h"
#include "RandomMonth.h"

#include "views/daygrid/RowPieces.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace
{

std::string Text(const CRect& rect)
{
    CString text;
    text.Format("(%d, %d, %d, %d)", static_cast<int>(rect.left), static_cast<int>(rect.top),
                static_cast<int>(rect.right), static_cast<int>(rect.bottom));
    return text.GetString();
}

// The first difference; empty when there is none.
std::string DifferenceOfBars(const ItemArray& items, const MonthCellArray& cells, const ItemArray& expectedItems,
                             const MonthCellArray& expectedCells)
{
    for (int i = 0; i < static_cast<int>(items.GetSize()); ++i) {
        if (items[i].rcItem != expectedItems[i].rcItem)
            return "item " + std::to_string(i) + " " + Text(items[i].rcItem) + " for " + Text(expectedItems[i].rcItem);
        if (items[i].bNoFocus != expectedItems[i].bNoFocus)
            return "hidden flag of item " + std::to_string(i);
    }
    for (int i = 0; i < kMonthCells; ++i) {
        if (cells[i].m_nItemCount != expectedCells[i].m_nItemCount || cells[i].m_bMore != expectedCells[i].m_bMore)
            return "load of cell " + std::to_string(i);
    }
    return "";
}

void ExpectLiteralBars(unsigned seed, int itemCount, RandomMonth::Shape shape)
{
    RandomMonth month(seed);
    month.AddItems(itemCount, shape);
    ItemArray items;
    if (shape == RandomMonth::PIECES)
        MakeRowPieces(month.items, EvenRows(month.firstDay, kMonthRows, kMonthColumns), items);
    else
        items.Copy(month.items);
    ItemArray expected;
    expected.Copy(items);
    MonthCellArray expectedCells;
    expectedCells.Copy(month.cells);

    CalcMonthBars(month.dates, month.cells, items);
    literal::CalcMonthBars(month.dates, expectedCells, month.firstDayOfWeek, expected);
    ASSERT_EQ(DifferenceOfBars(items, month.cells, expected, expectedCells), "") << "seed " << seed;
}

} // namespace

TEST(BarGrid, SmallMonthsGetTheRectanglesOfThePairRule)
{
    for (unsigned seed = 0; seed < 3000 && !HasFailure(); ++seed)
        ExpectLiteralBars(seed, 1 + seed % 17, RandomMonth::PIECES);
}

TEST(BarGrid, ItemsThatAreNotCutGetTheRectanglesOfThePairRule)
{
    for (unsigned seed = 100000; seed < 103000 && !HasFailure(); ++seed)
        ExpectLiteralBars(seed, 1 + seed % 17, RandomMonth::UNCUT);
}

TEST(BarGrid, CrowdedMonthsGetTheRectanglesOfThePairRule)
{
    for (unsigned seed = 200000; seed < 200020 && !HasFailure(); ++seed) {
        ExpectLiteralBars(seed, 300, RandomMonth::PIECES);
        ExpectLiteralBars(seed, 300, RandomMonth::UNCUT);
    }
    ExpectLiteralBars(300000, 1500, RandomMonth::PIECES);
}

TEST(RowPieces, AreTheIntersectionsWithTheRows)
{
    for (unsigned seed = 0; seed < 2000 && !HasFailure(); ++seed) {
        RandomMonth month(seed);
        month.AddItems(20, RandomMonth::UNCUT);
        ItemArray pieces;
        pieces.SetSize(seed % 3 * 20); // records of an earlier call are overwritten
        MakeRowPieces(month.items, EvenRows(month.firstDay, kMonthRows, kMonthColumns), pieces);
        ItemArray expected;
        literal::MakePieces(month.items, DateOfDayNumber(month.firstDay), expected);
        ASSERT_EQ(pieces.GetSize(), expected.GetSize()) << "seed " << seed;
        for (int i = 0; i < static_cast<int>(pieces.GetSize()); ++i) {
            ASSERT_EQ(pieces[i].nSource, expected[i].nSource) << "seed " << seed;
            ASSERT_EQ(pieces[i].nPiece, expected[i].nPiece) << "seed " << seed;
            ASSERT_TRUE(pieces[i].dtStart == expected[i].dtStart && pieces[i].dtEnd == expected[i].dtEnd)
                << "seed " << seed;
        }
    }
}

// Two sweeps and no more: the last bar ends in the lane of the third one, where a tidier rule would not leave it.
TEST(BarGrid, TwoSweepsLeaveWhatTheyLeave)
{
    constexpr int kBars = 7;
    const int days[kBars][2] = {{0, 0}, {0, 0}, {0, 1}, {2, 2}, {1, 2}, {1, 1}, {1, 1}};
    const int lanes[kBars] = {0, 1, 2, 0, 1, 0, 2};
    RandomMonth month(1);
    ItemArray items;
    for (const auto& day : days) {
        tagCALENDAR_ITEM item;
        item.dtStart = DateOfDayNumber(month.firstDay + day[0]);
        item.dtEnd = DateOfDayNumber(month.firstDay + day[1]);
        items.Add(item);
    }
    MonthCellArray headerCells;
    FillMonthCells(CRect(0, 0, 700, 16), CRect(0, 0, 700, 1200), CSize(100, 200), headerCells, month.cells);
    CalcMonthBars(month.dates, month.cells, items);
    for (int i = 0; i < kBars; ++i)
        EXPECT_EQ((items[i].rcItem.top - 16) / 20, lanes[i]) << i;
}

TEST(BarGrid, FourItemsOfADayLieInLanesUntilTheCellEnds)
{
    RandomMonth month(1);
    MonthCellArray headerCells;
    FillMonthCells(CRect(0, 0, 700, 16), CRect(0, 0, 700, 96 * 6), CSize(100, 96), headerCells, month.cells);
    ItemArray items;
    for (int i = 0; i < 4; ++i) {
        tagCALENDAR_ITEM item;
        item.dtStart = item.dtEnd = DateOfDayNumber(month.firstDay + 8);
        items.Add(item);
    }
    CalcMonthBars(month.dates, month.cells, items);
    const int top = 96;
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Text(items[i].rcItem), Text(CRect(101, top + 16 + 20 * i, 199, top + 36 + 20 * i)));
    EXPECT_FALSE(items[2].bNoFocus);
    EXPECT_TRUE(items[3].bNoFocus) << "a bottom on the cell's bottom is hidden";
    EXPECT_EQ(month.cells[8].m_bMore, 1);
    EXPECT_EQ(month.cells[8].m_nItemCount, 4);
    EXPECT_EQ(month.cells[7].m_bMore, 0);
}
