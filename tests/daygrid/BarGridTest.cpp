// The month's pieces and bars against the rules taken literally, on random months.
#include "LiteralMonth.h"
#include "RandomMonth.h"

#include "core/BarLanes.h"
#include "views/daygrid/BarBoard.h"
#include "views/daygrid/RowPieces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

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

// So many bars in a row that their lanes are counted in wider numbers.
TEST(BarGrid, BarsDoNotGiveWayToLaterOnes)
{
    constexpr int kFew = 9000;
    constexpr int kMany = 40000;
    const LaneGrid row = {{20}, 7, 15, 16};
    std::vector<BarKind> kinds;
    for (int first = 0; first < 7; ++first) {
        for (int last = first; last < std::min(first + 4, 7); ++last) {
            kinds.push_back({first, last, 10 * first, 10 * last + 9});
        }
    }
    std::mt19937 random(4);
    std::vector<int> kindOf(kMany);
    std::generate(kindOf.begin(), kindOf.end(), [&] { return static_cast<int>(random() % kinds.size()); });
    const std::vector<int> lanes = StackBars(kindOf, kinds, row);
    const std::vector<int> few = StackBars({kindOf.begin(), kindOf.begin() + kFew}, kinds, row);
    EXPECT_TRUE(std::equal(few.begin(), few.end(), lanes.begin()));
    EXPECT_GT(*std::max_element(lanes.begin(), lanes.end()), kMany / 7);
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

// before: the pieces as they were; empty: all was laid out anew, and nothing is said of what has moved.
void ExpectWhole(const ItemArray& pieces, const ItemArray& whole, const ItemArray& before,
                 const std::vector<PieceMove>& moved)
{
    ASSERT_EQ(pieces.GetSize(), whole.GetSize());
    for (int i = 0; i < static_cast<int>(whole.GetSize()); ++i) {
        ASSERT_EQ(Text(pieces[i].rcItem), Text(whole[i].rcItem)) << "piece " << i;
        ASSERT_EQ(pieces[i].bNoFocus, whole[i].bNoFocus);
        ASSERT_EQ(pieces[i].nPiece, whole[i].nPiece);
        ASSERT_TRUE(pieces[i].dtStart == whole[i].dtStart && pieces[i].dtEnd == whole[i].dtEnd);
        const auto reported =
            std::find_if(moved.begin(), moved.end(), [i](const PieceMove& piece) { return piece.position == i; });
        if (reported != moved.end()) {
            ASSERT_EQ(Text(reported->box), Text(before[i].rcItem));
            ASSERT_EQ(reported->wasHidden, before[i].bNoFocus != FALSE);
        } else if (!before.IsEmpty()) {
            ASSERT_EQ(before[i].bNoFocus, whole[i].bNoFocus);
            ASSERT_TRUE(whole[i].bNoFocus || before[i].rcItem == whole[i].rcItem) << "piece " << i;
        }
    }
}

// A layout that goes on from the last one, step by step, against a whole one each time.
TEST(BarBoard, AfterChangesOfFewItemsAllIsAsInAWholeLayout)
{
    int again = 0;
    for (unsigned seed = 1; seed <= 150; ++seed) {
        RandomMonth month(seed);
        month.AddItems(10 + month.Below(80), kMonthCells);
        const DayRows rows = month.range.Rows();
        const BoxGrid grid = BoxGridOf(month.cells);
        const BarRules& rules = kMonthMetrics.bars;
        ItemArray pieces;
        BarBoard board;
        MakeRowPieces(month.items, rows, pieces);
        board.LayOut(grid, rules, month.range.Spans(pieces), pieces);
        for (int step = 0; step < 12; ++step) {
            const int item = month.Below(static_cast<int>(month.items.GetSize()));
            RandomMonth other(seed * 100 + step);
            other.firstDay = month.firstDay;
            other.items.RemoveAll();
            other.AddItems(1, kMonthCells);
            month.items[item] = other.items[0];

            const int count = static_cast<int>(pieces.GetSize());
            ItemArray before;
            before.Copy(pieces);
            std::vector<int> remade;
            std::vector<PieceMove> moved;
            std::vector<BarBoard::Change> changes;
            const bool isRemade = RemakeRowPieces(month.items, item, rows, pieces, remade);
            ItemArray changed;
            for (const int position : remade) {
                changed.Add(pieces[position]);
            }
            const std::vector<BoxSpan> spans = month.range.Spans(changed);
            for (size_t i = 0; i < spans.size(); ++i) {
                changes.push_back({remade[i], spans[i]});
            }
            ItemArray whole;
            MakeRowPieces(month.items, rows, whole);
            const std::vector<BoxLoad> loads = LayOutBars(grid, rules, month.range.Spans(whole), whole);
            if (isRemade && board.Knows(grid, rules, count) && board.LayOutAgain(changes, pieces, moved)) {
                ++again;
            } else {
                MakeRowPieces(month.items, rows, pieces);
                board.LayOut(grid, rules, month.range.Spans(pieces), pieces);
                before.RemoveAll();
            }
            SCOPED_TRACE(testing::Message() << "seed " << seed << " step " << step);
            ExpectWhole(pieces, whole, before, moved);
            ASSERT_FALSE(HasFatalFailure());
            for (size_t box = 0; box < loads.size(); ++box) {
                ASSERT_EQ(board.Loads()[box].itemCount, loads[box].itemCount);
                ASSERT_EQ(board.Loads()[box].more, loads[box].more);
            }
        }
    }
    EXPECT_GT(again, 300);
}

TEST(BarBoard, KnowsBarsThatKeepToOneRow)
{
    BoxGrid grid; // two rows
    grid.columns = 3;
    for (int box = 0; box < 6; ++box) {
        grid.boxes.emplace_back(box % 3 * 40, box / 3 * 60, box % 3 * 40 + 40, box / 3 * 60 + 60);
    }
    const struct
    {
        int first, last;
        bool isKnown;
    } rows[] = {{0, 0, true}, {0, 2, true},   {3, 5, true},   {2, 3, false}, {4, 3, true},  {-3, -1, true},
                {6, 7, true}, {-1, 0, false}, {-2, 8, false}, {5, 6, false}, {-1, 6, false}};
    for (const auto& row : rows) {
        ItemArray items;
        items.SetSize(1);
        BarBoard board;
        board.LayOut(grid, kMonthMetrics.bars, {{row.first, row.last}}, items);
        EXPECT_EQ(board.Knows(grid, kMonthMetrics.bars, 1), row.isKnown) << row.first << " to " << row.last;
    }
}
