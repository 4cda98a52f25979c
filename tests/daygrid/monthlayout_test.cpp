// The month grid as a value: cells, dates, looks, scroll steps.
#include "core/DateMath.h"
#include "views/daygrid/MonthCellLook.h"
#include "views/daygrid/MonthLayout.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace dayvane;

namespace
{

COleDateTime Day(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

struct Grid
{
    explicit Grid(CRect client)
    {
        bands = CalcMonthBands(client, true);
        FillMonthCells(bands.header, bands.calendar, CalcMonthCellSize(bands.calendar), headerCells, cells);
    }
    MonthBands bands;
    MonthCellArray headerCells;
    MonthCellArray cells;
};

MonthCellDateArray DatesAround(const COleDateTime& date, int firstDayOfWeek)
{
    MonthCellDateArray dates;
    FillMonthDates(FirstDayOfMonthGrid(date, firstDayOfWeek), date, Day(2026, 3, 2), dates);
    return dates;
}

constexpr COLORREF kSelectedText = 0x123456;

DayColorTable ColorTable()
{
    DayColorTable table;
    for (int row = 0; row < 7; ++row) {
        tagCALENDAR_DAY_COLOR colors;
        for (int column = 0; column < 7; ++column)
            colors.crColor[column] = 0x100 * (row + 1) + column + 1; // row and column, both counted from 1
        table.Add(colors);
    }
    return table;
}

} // namespace

TEST(MonthLayout, CellsTileTheCalendarAndAnswerUnderTheirCentres)
{
    for (int width : {1, 6, 7, 13, 14, 100, 701, 1280}) {
        for (int height : {1, 46, 47, 60, 101, 480, 1003}) {
            const Grid grid(CRect(0, 0, width, height));
            const CRect& calendar = grid.bands.calendar;
            for (int i = 0; i < kMonthCells; ++i) {
                const CRect& cell = grid.cells[i].m_rect;
                const bool lastColumn = i % kMonthColumns == kMonthColumns - 1;
                const bool lastRow = i / kMonthColumns == kMonthRows - 1;
                EXPECT_EQ(cell.right, lastColumn ? calendar.right - 1 : grid.cells[i + 1].m_rect.left);
                EXPECT_EQ(cell.bottom, lastRow ? calendar.bottom - 1 : grid.cells[i + kMonthColumns].m_rect.top);
                if (!cell.IsRectEmpty()) {
                    EXPECT_EQ(CellOfPoint(grid.cells, cell.CenterPoint()), i);
                }
            }
            EXPECT_EQ(CellOfPoint(grid.cells, CPoint(width - 1, 50)), -1) << "the last column of pixels is the border";
        }
    }
}

TEST(MonthLayout, BandsLieBelowEachOther)
{
    struct Case
    {
        bool caption;
        int headerTop;
    };
    for (const Case& c : {Case{true, 30}, Case{false, 0}}) {
        const MonthBands bands = CalcMonthBands(CRect(0, 0, 700, 500), c.caption);
        EXPECT_EQ(bands.caption.bottom, c.headerTop);
        EXPECT_EQ(bands.header.top, c.headerTop);
        EXPECT_EQ(bands.calendar.top, c.headerTop + 16);
        EXPECT_EQ(bands.calendar.bottom, 500);
    }
    const Grid grid(CRect(0, 0, 703, 500));
    EXPECT_TRUE(grid.headerCells[1].m_rect == CRect(102, 32, 198, 44));
}

TEST(MonthDates, BeginWithTheWeekOfTheFirst)
{
    for (int month = 0; month < 36; ++month) {
        const COleDateTime first = Day(2024 + month / 12, month % 12 + 1, 1);
        for (int firstDayOfWeek = 1; firstDayOfWeek <= 7; ++firstDayOfWeek) {
            const int gridFirst = FirstDayOfMonthGrid(AddDays(first, month % 28), firstDayOfWeek);
            EXPECT_EQ(DayOfWeekOf(gridFirst), firstDayOfWeek);
            EXPECT_LE(gridFirst, DayNumberOf(first));
            EXPECT_GT(gridFirst + kMonthColumns, DayNumberOf(first));
        }
    }
}

TEST(MonthDates, KnowTheirMonthTodayAndAnnotations)
{
    const MonthCellDateArray dates = DatesAround(Day(2026, 3, 17), 1);
    ASSERT_EQ(dates.GetSize(), kMonthCells);
    EXPECT_EQ(CellOfDate(dates, Day(2026, 3, 1)), 0) << "a 1st on the first day of the week begins the grid";
    EXPECT_EQ(CellOfDate(dates, COleDateTime(2026, 4, 11, 23, 59, 59)), 41);
    EXPECT_EQ(CellOfDate(dates, Day(2026, 4, 12)), -1);
    EXPECT_EQ(DateOfCell(dates, 41).GetDay(), 11);
    EXPECT_EQ(dates[0].m_nFlags, 1u);
    EXPECT_EQ(dates[1].m_nFlags, 3u) << "today";
    EXPECT_EQ(dates[31].m_nFlags, 0u) << "1 April";
    const MonthCellDate& equinox = dates[19];
    EXPECT_EQ(equinox.m_bHoliday, 1);
    EXPECT_EQ(equinox.m_nHolidayType, 0);
    EXPECT_STREQ(equinox.m_strHoliday, "春分の日");
    EXPECT_STREQ(equinox.m_strText, "") << "an equinox is no solar term of its own";
    EXPECT_EQ(dates[13].m_nHolidayType, 1) << "an observance";
    const int seimei = CellOfDate(dates, Day(2026, 4, 5));
    EXPECT_EQ(dates[seimei].m_bSolarTerm, 1);
    EXPECT_STREQ(dates[seimei].m_strText, dates[seimei].m_strHoliday + " 清明");
}

TEST(MonthDates, MonthsAreCountedWithoutTheirYears)
{
    MonthCellDateArray dates;
    FillMonthDates(DayNumberOf(Day(2027, 3, 1)), Day(2026, 3, 17), Day(2026, 3, 2), dates);
    EXPECT_EQ(dates[0].m_nFlags, 1u);
    EXPECT_EQ(dates[1].m_nFlags, 1u) << "2 March of another year is not today";
}

TEST(MonthDates, EndWhereDatesEnd)
{
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    const MonthCellDateArray early = DatesAround(Day(100, 1, 20), 1);
    const MonthCellDateArray late = DatesAround(Day(9999, 12, 20), 1);
    const MonthCellDateArray nothing = DatesAround(none, 1);
    EXPECT_EQ(early[0].m_date.GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(early[0].m_nFlags, 0u);
    EXPECT_EQ(CellOfDate(early, Day(100, 1, 1)), Day(100, 1, 1).GetDayOfWeek() - 1);
    EXPECT_EQ(CellOfDate(late, Day(9999, 12, 31)), Day(9999, 12, 1).GetDayOfWeek() - 1 + 30);
    EXPECT_EQ(late[41].m_date.GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(CellOfDate(early, none), -1);
    EXPECT_EQ(FirstDayOf(nothing), kNoDay);
    EXPECT_EQ(CellOfDate(nothing, none), -1);
}

TEST(MonthLook, ColoursFollowTheKindOfDay)
{
    const DayColorTable table = ColorTable();
    const MonthCellDateArray dates = DatesAround(Day(2026, 5, 10), 1); // 26 April .. 6 June
    struct Case
    {
        const char* name;
        int month, day;
        bool selected;
        int dayColor;
        COLORREF background, annotation, number;
    };
    const Case cases[] = {
        {"plain day", 5, 7, false, 0, 0x101, 0x107, 0x107},
        {"Sunday", 5, 17, false, 0, 0x201, 0x207, 0x207},
        {"Saturday", 5, 9, false, 0, 0x301, 0x307, 0x307},
        {"holiday on a weekday", 5, 4, false, 0, 0x201, 0x207, 0x207},
        {"holiday of another month", 4, 29, false, 0, 0x201, 0x207, 0x207},
        {"day of another month", 6, 4, false, 0, 0x101, 0x106, 0x106},
        {"Saturday of another month", 6, 6, false, 0, 0x301, 0x106, 0x106},
        {"a 1st", 5, 1, false, 0, 0x101, 0x107, 0x207},
        {"a selected 1st", 5, 1, true, 0, 0x101, kSelectedText, kSelectedText},
        {"selected holiday", 5, 4, true, 0, 0x201, kSelectedText, kSelectedText},
        {"the host's colour", 5, 7, false, 5, 0x501, 0x507, 0x507},
        {"the host's colour in another month", 6, 4, false, 5, 0x501, 0x507, 0x507},
    };
    for (const Case& c : cases) {
        const int day = DayNumberOf(Day(2026, c.month, c.day));
        const MonthLookInput input = {table, kSelectedText, true, true, c.selected, day, day};
        const int cell = CellOfDate(dates, Day(2026, c.month, c.day));
        const MonthCellLook look = CalcCellLook(dates[cell], false, c.dayColor, input);
        EXPECT_EQ(look.background, c.background) << c.name;
        EXPECT_EQ(look.annotationColor, c.annotation) << c.name;
        EXPECT_EQ(look.dayNumberColor, c.number) << c.name;
        EXPECT_EQ(look.selected, c.selected) << c.name;
    }
    const MonthLookInput input = {table, kSelectedText, true, true, false, 0, 0};
    EXPECT_THROW(
        {
            try {
                CalcCellLook(dates[0], false, 8, input);
            } catch (CInvalidArgException* e) {
                e->Delete();
                throw 0;
            }
        },
        int);
}

TEST(MonthLook, SaturdayHolidayKeepsTheSaturdayRowAndTheHolidayText)
{
    const DayColorTable table = ColorTable();
    const MonthCellDateArray dates = DatesAround(Day(2017, 4, 10), 1);
    const MonthLookInput input = {table, kSelectedText, true, true, false, 0, 0};
    const MonthCellLook look = CalcCellLook(dates[CellOfDate(dates, Day(2017, 4, 29))], false, 0, input);
    EXPECT_EQ(look.background, 0x301u);
    EXPECT_EQ(look.annotationColor, 0x207u);
    EXPECT_STREQ(look.annotation, "昭和の日");
}

TEST(MonthLook, TextsOfADay)
{
    const DayColorTable table = ColorTable();
    MonthCellDateArray dates = DatesAround(Day(2026, 5, 10), 1);
    MonthCellDate& children = dates[CellOfDate(dates, Day(2026, 5, 5))]; // a holiday and a solar term
    struct Case
    {
        bool holiday, term;
        const char* host;
        const char* text;
    };
    const Case cases[] = {
        {true, true, "", "こどもの日 立夏"}, {true, false, "", "こどもの日"},       {false, true, "", "立夏"},
        {false, false, "", ""},              {true, true, "memo", "こどもの日 立夏 memo"}, {false, false, "memo", "memo"},
    };
    for (const Case& c : cases) {
        children.m_dayProperty.strText = c.host;
        const MonthLookInput input = {table, kSelectedText, c.holiday, c.term, false, 0, 0};
        EXPECT_STREQ(CalcCellLook(children, false, 0, input).annotation, c.text);
    }
    const MonthLookInput input = {table, kSelectedText, true, true, false, 0, 0};
    EXPECT_STREQ(CalcCellLook(dates[0], true, 0, input).dayNumber, "4/26");
    EXPECT_STREQ(CalcCellLook(dates[0], false, 0, input).dayNumber, "26");
    EXPECT_STREQ(CalcCellLook(dates[5], false, 0, input).dayNumber, "26/5/1");
    EXPECT_STREQ(CalcCellLook(DatesAround(Day(2009, 2, 1), 1)[0], true, 0, input).dayNumber, "09/2/1");
}

TEST(MonthLook, TextsOfABar)
{
    tagCALENDAR_ITEM item;
    item.strText = "会議";
    item.dtStart = COleDateTime(2026, 3, 2, 9, 5, 0);
    item.dtEnd = COleDateTime(2026, 3, 2, 10, 30, 0);
    EXPECT_STREQ(BarText(item, false, 0), "9:05 会議");
    EXPECT_STREQ(BarText(item, false, 8), "9:05-10:30 会議");
    EXPECT_STREQ(BarText(item, true, 8), "会議");
}

TEST(MonthScroll, StepsOfEachCode)
{
    struct Case
    {
        const char* name;
        int code, position, thumb, dayOfYear;
        bool moves;
        int newPosition, weeks;
    };
    const Case cases[] = {
        {"line up", 0, 26, 0, 1, true, 25, -1},
        {"line up at the end", 0, 1, 0, 1, true, 1, -1},
        {"line down", 1, 26, 0, 1, true, 27, 1},
        {"line down at the end", 1, 52, 0, 1, true, 52, 1},
        {"page up", 2, 26, 0, 1, true, 24, -2},
        {"page down", 3, 26, 0, 1, true, 28, 2},
        {"top", 6, 30, 0, 1, true, 1, -26},
        {"bottom", 7, 30, 0, 1, true, 52, 26},
        {"thumb at the week of the date", 5, 26, 14, 104, true, 14, 0},
        {"thumb dropped elsewhere", 4, 26, 20, 104, true, 20, 6},
        {"thumb beyond the end", 5, 26, 60, 7, true, 52, 59},
        {"end of scrolling", 8, 26, 0, 1, false, 0, 0},
    };
    for (const Case& c : cases) {
        const MonthScroll scroll = CalcMonthScroll(c.code, c.position, c.thumb, c.dayOfYear);
        EXPECT_EQ(scroll.moves, c.moves) << c.name;
        EXPECT_EQ(scroll.position, c.newPosition) << c.name;
        EXPECT_EQ(scroll.weeks, c.weeks) << c.name;
    }
}

TEST(MonthBlocks, FillTheCellOfTheStart)
{
    Grid grid(CRect(0, 0, 704, 647));
    const MonthCellDateArray dates = DatesAround(Day(2026, 3, 17), 1);
    ItemArray items;
    items.SetSize(3);
    items[0].dtStart = items[0].dtEnd = COleDateTime(2026, 3, 9, 10, 0, 0);
    items[1].dtStart = Day(2026, 3, 9);
    items[1].dtEnd = Day(2026, 3, 11);
    items[2].dtStart = Day(2026, 2, 27);
    items[2].dtEnd = Day(2026, 3, 2);
    CalcMonthBlocks(dates, grid.cells, items);
    const CRect block(102, 168, 198, 244); // cell (100, 146, 200, 246), 20 from its top, 2 on every side
    EXPECT_TRUE(items[0].rcItem == block);
    EXPECT_TRUE(items[1].rcItem == block);
    EXPECT_TRUE(items[2].rcItem == CRect(-1, -1, -1, -1));
    EXPECT_EQ(grid.cells[8].m_nItemCount, 2);
    EXPECT_EQ(grid.cells[10].m_nItemCount, 1);
    EXPECT_EQ(grid.cells[1].m_nItemCount, 1);
    EXPECT_EQ(grid.cells[11].m_nItemCount, 0);
}
