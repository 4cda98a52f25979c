#include "pickers/PeriodGridLayout.h"
#include "tests/pickers/PickerDates.h"

using namespace dayvane;

namespace {
PeriodGridLayout Months(int rows, int columns, const COleDateTime& first, int firstDayOfWeek = 1)
{
    return CalcPeriodGrid(kMonthPolicy, {CSize(0, 0), rows, columns, PeriodOf(kMonthPolicy, first), firstDayOfWeek});
}

PeriodGridLayout Years(int rows, int columns, int year, int clientWidth = 0)
{
    return CalcPeriodGrid(kYearPolicy, {CSize(clientWidth, 0), rows, columns, year, 1});
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
        {kYearPolicy, 240, 220, 2, 2},  {kYearPolicy, 119, 119, 1, 1},  {kYearPolicy, 360, 319, 2, 3},
    };
    for (const auto& row : table) {
        int rows = 0;
        int columns = 0;
        FitPeriodGrid(row.policy, row.cx, row.cy, rows, columns);
        EXPECT_EQ(row.rows, rows) << row.cx << "x" << row.cy;
        EXPECT_EQ(row.columns, columns) << row.cx << "x" << row.cy;
        EXPECT_TRUE(rows == 1 || PeriodGridSize(row.policy, rows, columns).cy <= row.cy);
    }
}

// Which part lies at a pixel, computed from the fixed sizes alone: titles of 20 pixels, arrows of 18, a footer of 20.
TEST(PeriodGridHit, EveryPixelFollowsTheRule)
{
    const struct
    {
        PeriodGridLayout layout;
        int rows, columns, left; // of the blocks' left edge, pixels
        CSize block, cell;
        CPoint cells; // from the block's corner
        int cellRows, cellColumns;
    } table[] = {
        {Months(2, 3, Day(2010, 1, 1), 2), 2, 3, 0, {130, 130}, {18, 15}, {2, 37}, 6, 7},
        {Years(1, 2, 2010, 300), 1, 2, 30, {120, 100}, {38, 18}, {3, 24}, 4, 3},
    };
    const int leading[] = {4, 0, 0, 3, 5, 1}; // days from Monday to the 1st of the first six months of 2010
    for (const auto& t : table) {
        const CRect blocks(CPoint(t.left, 0), CSize(t.columns * t.block.cx, t.rows * t.block.cy));
        const CRect footer(blocks.left, blocks.bottom, blocks.right, blocks.bottom + 20);
        const CRect cells(t.cells, CSize(t.cellColumns * t.cell.cx, t.cellRows * t.cell.cy));
        for (int y = -3; y < footer.bottom + 3; ++y) {
            for (int x = -3; x < blocks.right + 5; ++x) {
                GridHit expected;
                if (blocks.PtInRect(CPoint(x, y))) {
                    const CPoint at((x - t.left) % t.block.cx, y % t.block.cy);
                    const int block = y / t.block.cy * t.columns + (x - t.left) / t.block.cx;
                    if (at.y < 20 && at.x >= 18 && at.x < t.block.cx - 18) {
                        expected = {GridPart::Title, block};
                    } else if (y < 20 && (x < t.left + 18 || x >= blocks.right - 18)) {
                        expected = {x < t.left + 18 ? GridPart::LeftArrow : GridPart::RightArrow};
                    } else if (cells.PtInRect(at)) {
                        const int row = (at.y - t.cells.y) / t.cell.cy;
                        expected = {GridPart::Cell, block, row * t.cellColumns + (at.x - t.cells.x) / t.cell.cx};
                    }
                } else if (footer.PtInRect(CPoint(x, y))) {
                    expected = {GridPart::Footer};
                }
                const GridHit hit = PartAt(t.layout, CPoint(x, y));
                ASSERT_TRUE(hit == expected) << x << "," << y << " part " << static_cast<int>(hit.part);
                ASSERT_TRUE(hit.part == GridPart::None ? RectOfPart(t.layout, hit) == CRect(0, 0, 0, 0)
                                                       : RectOfPart(t.layout, hit).PtInRect(CPoint(x, y)));
                if (hit.part == GridPart::Cell) {
                    const COleDateTime date = t.cellColumns == 7
                                                  ? AddDays(Day(2010, hit.block + 1, 1), hit.cell - leading[hit.block])
                                                  : Day(2010 + hit.block, hit.cell + 1, 1);
                    ASSERT_EQ(Text(date), Text(DateOfHit(t.layout, hit)));
                }
            }
        }
    }
}

// From printed calendars; the years 100 and 9999 by the Gregorian rule.
TEST(PeriodGridLayoutTest, AMonthBeginsUnderItsWeekdayAndIsFilledFromItsNeighbours)
{
    const struct
    {
        int year, month, firstDayOfWeek;
        const char* firstCell;
        int leading, days;
        const char* lastCell;
    } table[] = {
        {2026, 2, 1, "2026/2/1", 0, 28, "2026/3/14"},   {2026, 2, 2, "2026/1/26", 6, 28, "2026/3/8"},
        {2000, 2, 1, "2000/1/30", 2, 29, "2000/3/11"},  {1900, 2, 7, "1900/1/27", 5, 28, "1900/3/9"},
        {2011, 12, 1, "2011/11/27", 4, 31, "2012/1/7"}, {2011, 12, 4, "2011/11/30", 1, 31, "2012/1/10"},
        {9999, 12, 1, "9999/11/28", 3, 31, "none"},     {100, 1, 6, "100/1/1", 0, 31, "100/2/11"},
    };
    for (const auto& row : table) {
        const PeriodGridLayout layout = Months(1, 1, Day(row.year, row.month, 1), row.firstDayOfWeek);
        const std::vector<PeriodCell>& cells = layout.blocks[0].cells;
        ASSERT_EQ(42u, cells.size());
        EXPECT_EQ(row.firstCell, Text(cells.front().date));
        EXPECT_EQ(row.lastCell, Text(cells.back().date)) << row.firstCell;
        for (int i = 0; i < 42; ++i) {
            const bool inMonth = i >= row.leading && i < row.leading + row.days;
            ASSERT_EQ(inMonth, cells[i].inPeriod) << row.firstCell << " " << i;
            const GridHit here{GridPart::Cell, 0, i};
            ASSERT_EQ(inMonth, CellOfDate(kMonthPolicy, layout, cells[i].date) == here) << row.firstCell << " " << i;
        }
    }
    EXPECT_EQ(7, WeekdayOfColumn(2, 5)) << "Saturday in a week from Monday";
    EXPECT_EQ(1, WeekdayOfColumn(2, 6));
}

TEST(PeriodGridLayoutTest, WeekNumbersStandLeftOfTheirRows)
{
    const struct
    {
        int year, month, firstDayOfWeek;
        WeekRule rule;
        int numbers[6];
    } table[] = {
        // ISO 8601: Thursday 31 December 2026 makes week 53, Monday 4 January 2021 week 1.
        {2027, 1, kMonday, WeekRule::FirstFourDayWeek, {53, 1, 2, 3, 4, 5}},
        {2021, 1, kMonday, WeekRule::FirstFourDayWeek, {53, 1, 2, 3, 4, 5}},
        {2026, 11, kSunday, WeekRule::WithFirstDay, {45, 46, 47, 48, 49, 50}},
        {100, 1, kSunday, WeekRule::WithFirstDay, {1, 2, 3, 4, 5, 6}},
    };
    for (const auto& row : table) {
        const PeriodGridLayout layout = CalcPeriodGrid(
            kNumberedMonthPolicy,
            {CSize(0, 0), 1, 2, PeriodOf(kMonthPolicy, Day(row.year, row.month, 1)), row.firstDayOfWeek, row.rule});
        const PeriodBlock& block = layout.blocks[0];
        ASSERT_EQ(6u, block.weeks.size());
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(row.numbers[i], block.weeks[i].number) << row.year << " row " << i;
            EXPECT_TRUE(block.weeks[i].rect == CRect(3, 37 + 15 * i, 21, 52 + 15 * i));
            EXPECT_TRUE(block.cells[7 * i].rect.TopLeft() == CPoint(21, 37 + 15 * i));
        }
        EXPECT_EQ(149, layout.blocks[1].band.left);
        EXPECT_LE(layout.blocks[0].cells[6].rect.right, 149);
    }
    EXPECT_TRUE(Months(1, 1, Day(2026, 11, 1)).blocks[0].weeks.empty());
}

TEST(PeriodGridLayoutTest, StopsAtTheEndsOfTheCalendar)
{
    const PeriodGridLayout start = Months(1, 1, Day(100, 1, 1)); // a Friday
    EXPECT_EQ("none", Text(start.blocks[0].cells[4].date));
    EXPECT_EQ("100/1/1", Text(start.blocks[0].cells[5].date));
    const PeriodGridLayout end = Months(2, 3, Day(9999, 11, 1));
    ASSERT_EQ(2u, end.blocks.size()) << "no month after December 9999";
    EXPECT_EQ(GridPart::None, PartAt(end, CPoint(2 * 130 + 60, 50)).part);
    EXPECT_EQ(1u, Years(4, 4, 9999).blocks.size());
    EXPECT_EQ(1u, Years(-3, 0, 2000).blocks.size());
    EXPECT_EQ(9900u, Years(30000, 30000, 100).blocks.size());
}

TEST(PeriodGridHit, SidesLieBeyondTheBlocks)
{
    const PeriodGridLayout layout = Years(2, 1, 2010, 140); // blocks from 10,0 to 130,200
    const struct
    {
        CPoint point;
        int side;
    } table[] = {
        {CPoint(10, 0), 0},   {CPoint(129, 199), 0}, {CPoint(60, -1), -1},  {CPoint(60, 200), 1},
        {CPoint(9, 100), -1}, {CPoint(130, 100), 1}, {CPoint(500, -1), -1}, {CPoint(-9, 210), 1},
    };
    for (const auto& row : table) {
        EXPECT_EQ(row.side, SideOf(layout, row.point)) << row.point.x << "," << row.point.y;
    }
}

TEST(PeriodTexts, NameMonthYearAndToday)
{
    const CalendarTexts texts = CalendarTexts::Required();
    EXPECT_EQ(u"2010年 5月", PeriodTitle(kMonthPolicy, MonthNumberOf(Day(2010, 5, 1)), texts));
    EXPECT_EQ(u"2010年", PeriodTitle(kYearPolicy, 2010, texts));
    EXPECT_EQ(u"平成31年4月", PeriodTitle(kMonthPolicy, MonthNumberOf(Day(2019, 4, 1)), texts, true));
    EXPECT_EQ(u"令和元年", PeriodTitle(kYearPolicy, 2019, texts, true)) << "the era at its end";
    EXPECT_EQ(u"1600年 5月", PeriodTitle(kMonthPolicy, MonthNumberOf(Day(1600, 5, 1)), texts, true));
    EXPECT_EQ(u"今日: 2010/5/3", FooterText(CellUnit::Day, Day(2010, 5, 3, 12), texts));
    EXPECT_EQ(u"今月: 2010年 5月", FooterText(CellUnit::Month, Day(2010, 5, 3), texts));
    EXPECT_EQ(u"2010年 5月", FooterText(CellUnit::Month, Day(2010, 5, 3), texts, true));
    EXPECT_TRUE(FooterText(CellUnit::Month, NoDate(), texts).empty());
}

// At every scale the cells tile their area, and everything of a block lies in the block.
TEST(PeriodGridLayout, BlocksHoldTheirPartsAtEveryScale)
{
    for (const PeriodPolicy* own : {&kMonthPolicy, &kNumberedMonthPolicy, &kYearPolicy}) {
        EXPECT_EQ(own->At({}).metrics.block.cx, own->metrics.block.cx);
        EXPECT_EQ(own->At({}).metrics.block.cy, own->metrics.block.cy);
        EXPECT_EQ(own->At({}).metrics.cellsTop, own->metrics.cellsTop);
        for (int percent : {100, 125, 150, 200, 300}) {
            const ViewScale scale{kBaseDpi * percent / 100, 0};
            const PeriodPolicy policy = own->At(scale);
            const CSize size = PeriodGridSize(policy, 1, 2);
            EXPECT_NEAR(size.cx, 2 * own->metrics.block.cx * percent / 100, 2 * policy.cellColumns) << percent;
            const PeriodGridLayout layout =
                CalcPeriodGrid(policy, {size, 1, 2, PeriodOf(policy, COleDateTime(2026, 4, 1, 0, 0, 0)), 1});
            for (const PeriodBlock& block : layout.blocks) {
                const CRect whole(block.band.left, block.band.top, block.band.right,
                                  block.band.top + policy.metrics.block.cy);
                EXPECT_LE(block.cellArea.right, whole.right);
                EXPECT_LE(block.cellArea.bottom, whole.bottom);
                EXPECT_LE(whole.bottom, layout.footer.top);
                EXPECT_GE(block.cellArea.top, block.weekdays.bottom);
                int area = 0;
                for (const PeriodCell& cell : block.cells) {
                    area += cell.rect.Width() * cell.rect.Height();
                    EXPECT_GE(cell.rect.Height(), scale.Of(12)) << "a line of text";
                }
                EXPECT_EQ(area, block.cellArea.Width() * block.cellArea.Height());
            }
        }
    }
}
