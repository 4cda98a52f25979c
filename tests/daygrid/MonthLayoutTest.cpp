// The month grid as a value: cells, dates, looks.
#include "DayGridTesting.h"
#include "RandomMonth.h"

#include "core/DayNote.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/DayLook.h"
#include "views/daygrid/MonthLayout.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace {

struct Grid
{
    explicit Grid(CRect client, bool caption = true) : bands(CalcMonthBands(client, caption))
    {
        FillMonthCells(bands.header, bands.calendar, CalcMonthCellSize(bands.calendar), headerCells, cells);
    }
    int CellAt(CPoint point) const
    {
        return BoxUnder(
            kMonthCells, [this](int i) { return cells[i].m_rect; }, point);
    }
    MonthBands bands;
    MonthCellArray headerCells;
    MonthCellArray cells;
};

BoxDayArray DatesAround(const COleDateTime& date, int firstDayOfWeek = 1)
{
    BoxDayArray dates;
    FillDays(BoxRange(RangeKind::Month, date, firstDayOfWeek), date, Day(2026, 3, 2), nullptr, dates);
    return dates;
}

int CellOfDate(const BoxDayArray& dates, const COleDateTime& date)
{
    return RangeOf(dates).BoxOf(date);
}

constexpr COLORREF kSelectedText = 0x123456;

DayColorTable ColorTable()
{
    DayColorTable table;
    table.SetSize(7);
    for (int i = 0; i < 49; ++i) {
        table[i / 7].crColor[i % 7] = 0x100 * (i / 7 + 1) + i % 7 + 1; // row and column, both counted from 1
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
                    EXPECT_EQ(grid.CellAt(cell.CenterPoint()), i);
                }
            }
            EXPECT_EQ(grid.CellAt(CPoint(width - 1, 50)), -1) << "the last column of pixels is the border";
        }
    }
}

TEST(MonthLayout, BandsLieBelowEachOther)
{
    const Grid grid(CRect(0, 0, 703, 500));
    EXPECT_EQ(Text(grid.bands.caption), "(0, 0, 703, 30)");
    EXPECT_EQ(Text(grid.bands.header), "(0, 30, 703, 46)");
    EXPECT_EQ(Text(grid.bands.calendar), "(0, 46, 703, 500)");
    EXPECT_EQ(Text(grid.headerCells[1].m_rect), "(102, 32, 198, 44)");
    EXPECT_EQ(Text(Grid(CRect(0, 0, 703, 500), false).bands.calendar), "(0, 16, 703, 500)");
}

TEST(MonthLayout, TheWeekColumnLiesLeftOfHeaderAndDays)
{
    const WeekColumn column = PlaceWeekColumn(CRect(20, 30, 300, 46), CRect(20, 46, 300, 200), 18,
                                              {CRect(20, 46, 60, 120), CRect(20, 120, 60, 130)}, 15);
    EXPECT_EQ(Text(column.head), "(2, 30, 20, 46)");
    EXPECT_EQ(Text(column.weeks), "(2, 46, 20, 200)");
    EXPECT_EQ(Text(column.all), "(2, 30, 20, 200)");
    EXPECT_EQ(Text(column.lines[1]), "(2, 120, 20, 121)");
    EXPECT_EQ(Text(column.numbers[0]), "(2, 46, 20, 61)");
    EXPECT_EQ(Text(column.numbers[1]), "(2, 120, 20, 130)") << "cut with its row";
}

TEST(MonthDates, KnowTheirMonthTodayAndAnnotations)
{
    BoxDayArray dates = DatesAround(Day(2026, 3, 17));
    ASSERT_EQ(dates.GetSize(), kMonthCells);
    EXPECT_EQ(CellOfDate(dates, Day(2026, 3, 1)), 0) << "a 1st on the first day of the week begins the grid";
    EXPECT_EQ(CellOfDate(dates, COleDateTime(2026, 4, 11, 23, 59, 59)), 41);
    EXPECT_EQ(CellOfDate(dates, Day(2026, 4, 12)), -1);
    EXPECT_EQ(dates[0].m_nFlags, 1u);
    EXPECT_EQ(dates[1].m_nFlags, 3u) << "today";
    EXPECT_EQ(dates[31].m_nFlags, 0u) << "1 April";
    const BoxDay& equinox = dates[19];
    EXPECT_EQ(equinox.m_bHoliday, 1);
    EXPECT_EQ(equinox.m_nHolidayType, 0);
    EXPECT_STREQ(equinox.m_strHoliday, "春分の日");
    EXPECT_STREQ(equinox.m_strText, "") << "an equinox is no solar term of its own";
    EXPECT_EQ(dates[13].m_nHolidayType, 1) << "an observance";
    const int seimei = CellOfDate(dates, Day(2026, 4, 5));
    EXPECT_EQ(dates[seimei].m_bSolarTerm, 1);
    EXPECT_STREQ(dates[seimei].m_strText, dates[seimei].m_strHoliday + " 清明");

    FillDays(BoxRange::FromDay(RangeKind::Month, DayNumberOf(Day(2027, 3, 1))), Day(2026, 3, 17), Day(2026, 3, 2),
             nullptr, dates);
    EXPECT_EQ(dates[0].m_nFlags, 1u) << "months are compared without their years";
    EXPECT_EQ(dates[1].m_nFlags, 1u) << "2 March of another year is not today";
}

TEST(MonthDates, LoseTheirPropertiesAtOnce)
{
    BoxDayArray dates = DatesAround(Day(2017, 4, 10));
    tagCALENDAR_DAY_PROPERTY& property = dates[3].m_dayProperty;
    property.strText = "Stocktaking";
    property.nDayColor = property.nReserved = property.bUseMyWorkTime = 1;
    ClearDayProperties(dates);
    EXPECT_TRUE(property.strText.IsEmpty());
    EXPECT_TRUE(property.nDayColor == 0 && property.nReserved == 0 && property.bUseMyWorkTime == 0);
}

TEST(MonthDates, TakeWhatTheDayProviderSays)
{
    class OwnDays : public DayProvider
    {
    public:
        DayInfo InfoOf(const CivilDate& date) const override
        {
            DayInfo info;
            if (date.day == 5) {
                info = {{{u8"創立記念日", DayKind::HostDay}, {u8"啓蟄", DayKind::SolarTerm}}, true, 4};
            } else if (date.day == 6) {
                info.isDayOff = true;
            } else if (date.day == 7) {
                info = {{{u8"café", DayKind::Observance}, {u8"彼岸", DayKind::SeasonalDay}}, false, 99};
            }
            return info;
        }
    };
    const OwnDays ownDays;
    BoxDayArray dates = DatesAround(Day(2026, 3, 17));
    dates[4].m_dayProperty.strText = "of the host";
    AnnotateDays(&ownDays, dates);
    const DayColorTable table = ColorTable();
    const DayLookInput input = {table, kSelectedText, true, true, false, 0, -1};
    struct Case
    {
        int cell;
        const char16_t* annotation;
        COLORREF number, background;
    };
    for (const Case& c :
         {Case{4, u"創立記念日 啓蟄 of the host", 0x207, 0x401}, // the holiday's text, the provider's row
          {5, u"", 0x207, 0x201},
          {6, u"café 彼岸", 0x307, 0x301}, // a Saturday; a row that the table lacks
          {19, u"", 0x107, 0x101}}) {      // 20 March is not a holiday of this provider
        const DayLook look = CalcDayLook(dates[c.cell], false, 0, input);
        EXPECT_EQ(look.annotation, c.annotation);
        EXPECT_EQ(look.dayNumberColor, c.number) << c.cell;
        EXPECT_EQ(look.background, c.background) << c.cell;
    }
    EXPECT_EQ(CalcDayLook(dates[4], false, 6, input).background, 0x601u) << "the host's colour of the day comes first";

    SetDefaultDayProvider(&ownDays);
    EXPECT_STREQ(DatesAround(Day(2026, 3, 17))[4].m_strHoliday, "創立記念日");
    EXPECT_EQ(NoteOf(Day(2026, 3, 20), &StandardDayProvider()).name, u"春分の日") << "a view's own comes first";
    SetDefaultDayProvider(nullptr);
    EXPECT_STREQ(DatesAround(Day(2026, 3, 17))[19].m_strHoliday, "春分の日");
}

TEST(MonthDates, EndWhereDatesEnd)
{
    COleDateTime none;
    none.SetStatus(COleDateTime::invalid);
    const BoxDayArray early = DatesAround(Day(100, 1, 20));
    EXPECT_EQ(Text(early[0].m_date), "none");
    EXPECT_EQ(early[0].m_nFlags, 0u);
    EXPECT_EQ(CellOfDate(early, Day(100, 1, 1)), Day(100, 1, 1).GetDayOfWeek() - 1) << "read back from a later cell";
    EXPECT_FALSE(RangeOf(DatesAround(none)).HasDates());
}

TEST(MonthLook, ColoursFollowTheKindOfDay)
{
    const DayColorTable table = ColorTable();
    const BoxDayArray dates = DatesAround(Day(2017, 4, 10)); // 26 March .. 6 May
    struct Case
    {
        const char* name;
        int month, day;
        bool selected;
        int dayColor;
        COLORREF background, annotation, number;
    };
    const Case cases[] = {
        {"plain day", 4, 6, false, 0, 0x101, 0x107, 0x107},
        {"Sunday", 4, 16, false, 0, 0x201, 0x207, 0x207},
        {"Saturday", 4, 8, false, 0, 0x301, 0x307, 0x307},
        {"holiday of another month", 5, 4, false, 0, 0x201, 0x207, 0x207},
        {"Saturday that is a holiday", 4, 29, false, 0, 0x301, 0x207, 0x207},
        {"day of another month", 5, 2, false, 0, 0x101, 0x106, 0x106},
        {"Saturday of another month", 5, 6, false, 0, 0x301, 0x106, 0x106},
        {"a 1st", 4, 1, false, 0, 0x301, 0x307, 0x207},
        {"a selected 1st", 4, 1, true, 0, 0x301, kSelectedText, kSelectedText},
        {"selected holiday", 5, 4, true, 0, 0x201, kSelectedText, kSelectedText},
        {"the host's colour", 4, 6, false, 5, 0x501, 0x507, 0x507},
        {"the host's colour in another month", 5, 2, false, 5, 0x501, 0x507, 0x507},
    };
    for (const Case& c : cases) {
        const int day = DayNumberOf(Day(2017, c.month, c.day));
        const DayLookInput input = {table, kSelectedText, true, true, c.selected, day, day};
        const int cell = CellOfDate(dates, Day(2017, c.month, c.day));
        const DayLook look = CalcDayLook(dates[cell], false, c.dayColor, input);
        EXPECT_EQ(look.background, c.background) << c.name;
        EXPECT_EQ(look.annotationColor, c.annotation) << c.name;
        EXPECT_EQ(look.dayNumberColor, c.number) << c.name;
        EXPECT_EQ(look.selected, c.selected) << c.name;
    }
    DayLookInput week = {table, kSelectedText, true, true, false, 0, 0};
    week.dimOtherMonths = false;
    const int otherMonth = CellOfDate(dates, Day(2017, 5, 2));
    EXPECT_EQ(CalcDayLook(dates[otherMonth], false, 0, week).dayNumberColor, 0x107u) << "no month is another one";
    week.redFirsts = false;
    EXPECT_EQ(CalcDayLook(dates[CellOfDate(dates, Day(2017, 4, 1))], false, 0, week).dayNumberColor, 0x307u);
}

TEST(MonthLook, TextsOfADay)
{
    const DayColorTable table = ColorTable();
    BoxDayArray dates = DatesAround(Day(2026, 5, 10));            // from 26 April on
    BoxDay& children = dates[CellOfDate(dates, Day(2026, 5, 5))]; // a holiday and a solar term
    struct Case
    {
        bool holiday, term;
        const char* host;
        const char16_t* text;
    };
    const Case cases[] = {
        {true, true, "", u"こどもの日 立夏"},          {true, false, "", u"こどもの日"}, {false, true, "", u"立夏"},
        {true, true, "memo", u"こどもの日 立夏 memo"}, {false, false, "memo", u"memo"},
    };
    for (const Case& c : cases) {
        children.m_dayProperty.strText = c.host;
        const DayLookInput input = {table, kSelectedText, c.holiday, c.term, false, 0, 0};
        EXPECT_EQ(CalcDayLook(children, false, 0, input).annotation, c.text);
    }
    const DayLookInput input = {table, kSelectedText, true, true, false, 0, 0};
    EXPECT_EQ(CalcDayLook(dates[0], true, 0, input).dayNumber, u"4/26");
    EXPECT_EQ(CalcDayLook(dates[0], false, 0, input).dayNumber, u"26");
    EXPECT_EQ(CalcDayLook(dates[5], false, 0, input).dayNumber, u"26/5/1");
    EXPECT_EQ(CalcDayLook(DatesAround(Day(2009, 2, 1))[0], true, 0, input).dayNumber, u"09/2/1");
}

TEST(MonthLook, TextsOfABar)
{
    const TextSettings texts{kOwnCodePage};
    tagCALENDAR_ITEM item;
    item.strText = "会議";
    item.dtStart = COleDateTime(2026, 3, 2, 9, 5, 0);
    item.dtEnd = COleDateTime(2026, 3, 2, 10, 30, 0);
    EXPECT_EQ(BarText(item, false, 0, texts), u"9:05 会議");
    EXPECT_EQ(BarText(item, false, 8, texts), u"9:05-10:30 会議");
    EXPECT_EQ(BarText(item, true, 8, texts), u"会議");
    EXPECT_EQ(WeekBarText(item, false, texts), u"9:05 - 10:30 会議");
    EXPECT_EQ(WeekBarText(item, true, texts), u"会議");
    EXPECT_EQ(YearBarText(Day(2026, 4, 25), Day(2026, 4, 25), "a", texts), u"4/25 a");
    EXPECT_EQ(YearBarText(Day(2026, 4, 25), Day(2026, 4, 28), "a", texts), u"4/25-28 a");
    EXPECT_EQ(YearBarText(Day(2026, 4, 25), Day(2026, 5, 3), "a", texts), u"4/25-5/3 a");
    EXPECT_EQ(YearBarText(Day(2025, 4, 25), Day(2026, 4, 25), "a", texts), u"4/25-4/25 a") << "a year later";
}

TEST(MonthBlocks, FillTheCellOfTheStart)
{
    Grid grid(CRect(0, 0, 704, 647));
    const BoxDayArray dates = DatesAround(Day(2026, 3, 17));
    struct Case
    {
        COleDateTime start, end;
        const char* rect;
    };
    const Case cases[] = {
        // the cell is (100, 146, 200, 246); 20 from its top, 2 on every side
        {COleDateTime(2026, 3, 9, 10, 0, 0), COleDateTime(2026, 3, 9, 10, 0, 0), "(102, 168, 198, 244)"},
        {Day(2026, 3, 9), Day(2026, 3, 11), "(102, 168, 198, 244)"},
        {Day(2026, 2, 27), Day(2026, 3, 2), "(-1, -1, -1, -1)"},
    };
    ItemArray items;
    items.SetSize(3);
    for (int i = 0; i < 3; ++i) {
        items[i].dtStart = cases[i].start;
        items[i].dtEnd = cases[i].end;
    }
    CalcMonthBlocks(dates, grid.cells, items);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Text(items[i].rcItem), cases[i].rect);
    }
    ItemArray late;
    late.SetSize(1);
    late[0].dtStart = late[0].dtEnd = AddDays(Day(2026, 3, 1), static_cast<int>(grid.cells.GetSize()) - 1);
    Grid other(CRect(0, 0, 704, 647));
    CalcMonthBlocks(dates, other.cells, late);
    EXPECT_GT(late[0].rcItem.left, 600) << "the last cell has blocks, too";
    for (const auto& [cell, count] : {std::pair(1, 1), {2, 0}, {8, 2}, {10, 1}, {11, 0}}) {
        EXPECT_EQ(grid.cells[cell].m_nItemCount, count) << cell;
        EXPECT_EQ(grid.cells[cell].m_bMore, 0) << cell;
    }
    // The first days have no block, for their item began earlier, the 9th has two in one place.
    CalcMonthBlocks(dates, grid.cells, items, kMonthMetrics, true);
    for (const auto& [cell, more] : {std::pair(0, 1), {1, 1}, {2, 0}, {8, 1}, {9, 1}, {10, 1}, {11, 0}}) {
        EXPECT_EQ(grid.cells[cell].m_bMore, more) << cell;
    }
}

// Nothing is lost: at every size each item of a crowded month is seen, or a mark stands on days of it.
TEST(MonthLayout, EachItemIsSeenOrMarked)
{
    const BoxDayArray dates = DatesAround(Day(2026, 11, 20));
    RandomItems random(5);
    for (const CSize size : {CSize(332, 270), CSize(620, 470), CSize(1100, 770), CSize(1700, 870)}) {
        for (int month = 0; month < 20; ++month) {
            ItemArray items;
            items.SetSize(60);
            for (int i = 0; i < 60; ++i) {
                items[i].dtStart = AddDays(dates[0].m_date, random.Below(kMonthCells));
                items[i].dtEnd = AddDays(items[i].dtStart, random.Below(2) ? 0 : random.Below(6));
            }
            const std::vector<BoxSpan> spans = RangeOf(dates).Spans(items);
            const auto isMarked = [&](const Grid& grid, int item, int from) {
                bool all = true;
                for (int cell = from; cell <= std::min(spans[item].last, kMonthCells - 1); ++cell) {
                    all = all && grid.cells[cell].m_bMore == 1;
                }
                return all;
            };
            Grid bars(CRect(CPoint(0, 0), size));
            CalcMonthBars(dates, bars.cells, items);
            for (int i = 0; i < 60; ++i) {
                const bool isSeen = !items[i].bNoFocus && items[i].rcItem.top != -1;
                EXPECT_TRUE(isSeen || isMarked(bars, i, spans[i].first)) << size.cx << ", item " << i;
            }
            Grid blocks(CRect(CPoint(0, 0), size));
            CalcMonthBlocks(dates, blocks.cells, items, kMonthMetrics, true);
            std::vector<int> last(kMonthCells, -1); // what is seen in the cell
            for (int i = 0; i < 60; ++i) {
                last[spans[i].first] = i;
            }
            for (int i = 0; i < 60; ++i) {
                const int from = spans[i].first + (last[spans[i].first] == i ? 1 : 0);
                EXPECT_TRUE(isMarked(blocks, i, from) || spans[i].last < from) << size.cx << ", item " << i;
            }
        }
    }
}
