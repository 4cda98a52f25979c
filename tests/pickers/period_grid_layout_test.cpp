#include "pickers/PeriodGridLayout.h"

#include "core/DateMath.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace
{
COleDateTime Day(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

PeriodGridLayout Months(int rows, int columns, const COleDateTime& first, int firstDayOfWeek = 1,
                        CSize client = CSize(0, 0))
{
    return CalcPeriodGrid(kMonthPolicy, {client, rows, columns, PeriodOf(kMonthPolicy, first), firstDayOfWeek});
}

PeriodGridLayout Years(int rows, int columns, int year, CSize client = CSize(0, 0))
{
    return CalcPeriodGrid(kYearPolicy, {client, rows, columns, year, 1});
}

bool IsValid(const COleDateTime& date)
{
    return date.GetStatus() == COleDateTime::valid;
}
} // namespace

TEST(PeriodGridFit, CountsWholeBlocksAboveTheFooterAndAtLeastOne)
{
    const struct
    {
        const PeriodPolicy& policy;
        int cx, cy, rows, columns;
    } table[] = {
        {kMonthPolicy, 259, 279, 1, 1}, {kMonthPolicy, 260, 280, 2, 2}, {kMonthPolicy, 130, 149, 1, 1},
        {kMonthPolicy, 0, 0, 1, 1},     {kMonthPolicy, 389, 409, 2, 2}, {kMonthPolicy, 390, 410, 3, 3},
        {kYearPolicy, 240, 220, 2, 2},  {kYearPolicy, 119, 119, 1, 1},  {kYearPolicy, 1, 1, 1, 1},
        {kYearPolicy, 360, 319, 2, 3},
    };
    for (const auto& row : table) {
        int rows = 0;
        int columns = 0;
        FitPeriodGrid(row.policy, row.cx, row.cy, rows, columns);
        EXPECT_EQ(row.rows, rows) << row.cx << "x" << row.cy;
        EXPECT_EQ(row.columns, columns) << row.cx << "x" << row.cy;
        const CSize needed = PeriodGridSize(row.policy, rows, columns);
        EXPECT_TRUE(rows == 1 || needed.cy <= row.cy);
    }
}

// Which part lies at a pixel, reckoned from the fixed sizes alone: blocks of 130 x 130 with a title of 20 pixels,
// arrows of 18, days of 18 x 15 from (2, 37) on, and 20 pixels below the blocks.
TEST(PeriodGridHit, EveryPixelOfATwoByThreeMonthGridFollowsTheRule)
{
    const COleDateTime first = Day(2010, 1, 1);
    const PeriodGridLayout layout = Months(2, 3, first, 2);
    for (int y = -3; y < 290; ++y) {
        for (int x = -3; x < 400; ++x) {
            const GridHit hit = PartAt(layout, CPoint(x, y));
            GridHit expected;
            const bool inBlocks = x >= 0 && x < 390 && y >= 0 && y < 260;
            const int bx = x % 130;
            const int by = y % 130;
            const int block = y / 130 * 3 + x / 130;
            if (inBlocks && by < 20) {
                if (bx >= 18 && bx < 112) {
                    expected = {GridPart::Title, block};
                } else if (y < 20 && x < 18) {
                    expected = {GridPart::LeftArrow};
                } else if (y < 20 && x >= 372) {
                    expected = {GridPart::RightArrow};
                }
            } else if (inBlocks && by >= 37 && by < 127 && bx >= 2 && bx < 128) {
                expected = {GridPart::Cell, block, (by - 37) / 15 * 7 + (bx - 2) / 18};
            } else if (x >= 0 && x < 390 && y >= 260 && y < 280) {
                expected = {GridPart::Footer};
            }
            ASSERT_TRUE(hit == expected) << x << "," << y << " part " << static_cast<int>(hit.part);
            ASSERT_TRUE(RectOfPart(layout, hit).PtInRect(CPoint(x, y)) || hit.part == GridPart::None);
            if (hit.part != GridPart::Cell) {
                continue;
            }
            const int month =
                block + 1; // of 2010, whose months' first weekdays are known: Fri, Mon, Mon, Thu, Sat, Tue
            const int leading[] = {4, 0, 0, 3, 5, 1};
            const COleDateTime date = DateOfHit(layout, hit);
            ASSERT_EQ(DayNumberOf(Day(2010, month, 1)) - leading[block] + hit.cell, DayNumberOf(date));
        }
    }
}

TEST(PeriodGridHit, EveryPixelOfAYearGridFollowsTheRule)
{
    const PeriodGridLayout layout = Years(1, 2, 2010, CSize(300, 200)); // 60 pixels to spare: 30 on the left
    for (int y = 0; y < 130; ++y) {
        for (int x = 0; x < 300; ++x) {
            const GridHit hit = CellAt(layout, CPoint(x, y));
            const int bx = (x - 30) % 120;
            const bool inCell = x >= 30 && x < 270 && bx >= 3 && bx < 117 && y >= 24 && y < 96;
            ASSERT_EQ(inCell, hit.part == GridPart::Cell) << x << "," << y;
            if (inCell) {
                const int cell = (y - 24) / 18 * 3 + (bx - 3) / 38;
                ASSERT_TRUE(DateOfHit(layout, hit) == Day(2010 + (x - 30) / 120, cell + 1, 1)) << x << "," << y;
            }
        }
    }
    EXPECT_EQ(0, TitleAt(layout, CPoint(30 + 60, 10)));
    EXPECT_EQ(1, TitleAt(layout, CPoint(150 + 60, 10)));
    EXPECT_EQ(GridPart::Footer, PartAt(layout, CPoint(31, 100)).part);
}

TEST(PeriodGridLayoutTest, DaysRunOnAndStandUnderTheirWeekday)
{
    for (int firstDayOfWeek = 1; firstDayOfWeek <= 7; ++firstDayOfWeek) {
        for (int year : {100, 1582, 1900, 1999, 2000, 2012, 9999}) {
            const PeriodGridLayout layout = Months(3, 4, Day(year, 1, 1), firstDayOfWeek);
            ASSERT_EQ(12u, layout.blocks.size());
            for (const PeriodBlock& block : layout.blocks) {
                int days = 0;
                for (size_t i = 0; i < block.cells.size(); ++i) {
                    const PeriodCell& cell = block.cells[i];
                    if (!IsValid(cell.date)) {
                        ASSERT_TRUE(!cell.inPeriod && (year == 100 || year == 9999));
                        continue;
                    }
                    ASSERT_EQ(WeekdayOfColumn(firstDayOfWeek, static_cast<int>(i) % 7), cell.date.GetDayOfWeek());
                    ASSERT_EQ(cell.inPeriod, MonthNumberOf(cell.date) == block.period);
                    days += cell.inPeriod;
                }
                const COleDateTime last = LastCellOf(kMonthPolicy, block.period);
                ASSERT_EQ(FieldsOf(last).day, days) << year << " " << block.period % 12 + 1;
                ASSERT_TRUE(block.cells[0].inPeriod || block.cells[6].inPeriod) << "no week without a day of the month";
            }
        }
    }
}

TEST(PeriodGridLayoutTest, StopsAtTheEndsOfTheCalendar)
{
    const PeriodGridLayout start = Months(1, 1, Day(100, 1, 1)); // a Friday
    EXPECT_FALSE(IsValid(start.blocks[0].cells[4].date));
    EXPECT_TRUE(start.blocks[0].cells[5].date == Day(100, 1, 1));
    const PeriodGridLayout end = Months(2, 3, Day(9999, 11, 1));
    ASSERT_EQ(2u, end.blocks.size()) << "no month after December 9999";
    EXPECT_EQ(GridPart::None, PartAt(end, CPoint(2 * 130 + 60, 50)).part);
    EXPECT_TRUE(CellOfDate(kMonthPolicy, end, Day(9999, 12, 31)).part == GridPart::Cell);
    EXPECT_EQ(1u, Years(4, 4, 9999).blocks.size());
    EXPECT_EQ(1u, Years(-3, 0, 2000).blocks.size());
    EXPECT_EQ(9900u, Years(30000, 30000, 100).blocks.size());
}

TEST(PeriodGridLayoutTest, ADateIsFoundInItsOwnMonthOnly)
{
    const PeriodGridLayout layout = Months(1, 3, Day(2012, 1, 1));
    for (int day = 0; day < 91; ++day) {
        const COleDateTime date = AddDays(Day(2012, 1, 1), day);
        const GridHit hit = CellOfDate(kMonthPolicy, layout, date);
        ASSERT_TRUE(DateOfHit(layout, hit) == date);
        ASSERT_EQ(FieldsOf(date).month - 1, hit.block);
    }
    EXPECT_EQ(GridPart::None, CellOfDate(kMonthPolicy, layout, Day(2011, 12, 31)).part);
    EXPECT_EQ(GridPart::None, CellOfDate(kMonthPolicy, layout, Day(2012, 4, 1)).part);
}

TEST(PeriodSteps, StopAtTheEndsAndKeepTheDayWhereTheMonthHasIt)
{
    const struct
    {
        const char* what;
        COleDateTime got, expected;
    } table[] = {
        {"31 January a month on", AddPeriods(kMonthPolicy, Day(2011, 1, 31), 1), Day(2011, 2, 28)},
        {"29 February a year on", AddPeriods(kMonthPolicy, Day(2012, 2, 29), 12), Day(2013, 2, 28)},
        {"a month before January 100", AddPeriods(kMonthPolicy, Day(100, 1, 20), -1), Day(100, 1, 1)},
        {"a year after 9999", AddPeriods(kMonthPolicy, Day(9999, 3, 5), 12), Day(9999, 12, 31)},
        {"December 9999 itself", AddPeriods(kMonthPolicy, Day(9999, 11, 30), 1), Day(9999, 12, 30)},
        {"the day before the first", AddCells(CellUnit::Day, Day(100, 1, 3), -7), Day(100, 1, 1)},
        {"the day after the last", AddCells(CellUnit::Day, Day(9999, 12, 30), 7), Day(9999, 12, 31)},
        {"over a year's end", AddCells(CellUnit::Month, Day(2010, 11, 1), 4), Day(2011, 3, 1)},
        {"months before the first", AddCells(CellUnit::Month, Day(100, 2, 1), -4), Day(100, 1, 1)},
        {"years before the first", AddPeriods(kYearPolicy, Day(105, 7, 1), -10), Day(100, 1, 1)},
        {"the last month of a year", LastCellOf(kYearPolicy, 9999), Day(9999, 12, 1)},
    };
    for (const auto& row : table) {
        EXPECT_TRUE(row.got == row.expected) << row.what << ": " << FieldsOf(row.got).year << "/"
                                             << FieldsOf(row.got).month << "/" << FieldsOf(row.got).day;
    }
}

TEST(PeriodTexts, NameMonthYearAndToday)
{
    EXPECT_STREQ("2010年 5月", PeriodTitle(kMonthPolicy, MonthNumberOf(Day(2010, 5, 1))));
    EXPECT_STREQ("2010年", PeriodTitle(kYearPolicy, 2010));
    EXPECT_STREQ("今日: 2010/5/3", FooterText(CellUnit::Day, COleDateTime(2010, 5, 3, 12, 0, 0)));
    EXPECT_STREQ("今月: 2010年 5月", FooterText(CellUnit::Month, Day(2010, 5, 3)));
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    EXPECT_TRUE(FooterText(CellUnit::Month, none).IsEmpty());
}
