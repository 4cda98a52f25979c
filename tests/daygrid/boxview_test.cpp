// The week and year view as values: boxes, bars against the rules taken literally, scroll steps.
#include "LiteralMonth.h"

#include "core/DateMath.h"
#include "views/daygrid/BoxViewLayout.h"
#include "views/daygrid/MonthCellLook.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace dayvane;

namespace
{

COleDateTime Day(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

struct Kind
{
    const char* name;
    const BoxViewMetrics& metrics;
};
const Kind kWeek = {"week", kWeekMetrics};
const Kind kYear = {"year", kYearMetrics};

// A random view: any size, week or year, with items of every shape around it.
class RandomView
{
public:
    RandomView(const Kind& kind, unsigned seed) : kind(kind), m_random(seed)
    {
        static const int sizes[] = {1, 2, 5, 8, 13, 29, 31, 40, 90, 300, 640, 1200};
        const int width = sizes[Below(12)] + Below(7);
        layout = LayOutBoxView(CRect(0, 0, width, sizes[Below(12)] + Below(7)), Below(4) != 0, kind.metrics);
        static const int years[] = {1899, 1900, 2017, 2024, 9998};
        const int year = years[Below(5)];
        if (&kind == &kYear) {
            firstDay = DayNumberOf(Day(year, 1, 1));
            for (int month = 1; month <= kYearBoxes; ++month)
                dates.push_back(Day(year, month, 1));
            rows = YearRows(year);
        } else {
            const int firstDayOfWeek = 1 + Below(7);
            firstDay = WeekStartOf(DayNumberOf(Day(year, 1 + Below(12), 1 + Below(28))), firstDayOfWeek);
            for (int day = 0; day < kWeekBoxes; ++day)
                dates.push_back(DateOfDayNumber(firstDay + day));
            rows = WeekRows(firstDay);
        }
    }

    void AddItems(int count)
    {
        const int days = rows.back() - firstDay;
        for (int i = 0; i < count; ++i) {
            const int day = Below(days + 8) - 4;
            int length = Below(3) ? 0 : Below(5) ? Below(5) : Below(2 * days);
            if (Below(8) == 0)
                length = Below(2) ? -Below(4) : Below(3000) - 1500;
            tagCALENDAR_ITEM item;
            item.dtStart = At(day);
            item.dtEnd = At(day + length);
            if (Below(40) == 0)
                (Below(2) ? item.dtStart : item.dtEnd).SetStatus(COleDateTime::invalid);
            items.Add(item);
        }
    }

    std::vector<literal::Range> RowRanges() const
    {
        std::vector<literal::Range> ranges;
        for (size_t row = 0; row + 1 < rows.size(); ++row)
            ranges.push_back({DateOfDayNumber(rows[row]), EndOfDay(DateOfDayNumber(rows[row + 1] - 1))});
        return ranges;
    }

    std::vector<BoxSpan> Spans(const ItemArray& pieces) const
    {
        return &kind == &kYear ? MonthSpans(pieces, dates[0].GetYear()) : DaySpans(pieces, firstDay);
    }

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    const Kind& kind;
    BoxViewLayout layout;
    int firstDay;
    std::vector<COleDateTime> dates; // of the boxes
    DayRows rows;
    ItemArray items;

private:
    COleDateTime At(int day)
    {
        static const int seconds[] = {0, 1, 9 * 3600, 86399};
        return AddSeconds(DateOfDayNumber(firstDay + day), seconds[Below(4)]);
    }

    std::mt19937 m_random;
};

void ExpectLiteralBars(const Kind& kind, unsigned seed, int itemCount)
{
    RandomView view(kind, seed);
    view.AddItems(itemCount);
    ItemArray pieces;
    MakeRowPieces(view.items, view.rows, pieces);
    ItemArray expected;
    literal::MakePieces(view.items, view.RowRanges(), expected);
    ASSERT_EQ(pieces.GetSize(), expected.GetSize()) << kind.name << " " << seed;
    const std::vector<bool> more =
        literal::CalcBoxBars({view.layout.boxes, view.dates, &kind == &kYear}, expected);
    const BoxGrid grid = {view.layout.boxes, kind.metrics.columns};
    const std::vector<BoxLoad> loads = LayOutBars(grid, kind.metrics.bars, view.Spans(pieces), pieces);
    for (int i = 0; i < static_cast<int>(pieces.GetSize()); ++i) {
        ASSERT_TRUE(pieces[i].dtStart == expected[i].dtStart && pieces[i].dtEnd == expected[i].dtEnd &&
                    pieces[i].nPiece == expected[i].nPiece && pieces[i].nSource == expected[i].nSource)
            << kind.name << " " << seed << " piece " << i;
        ASSERT_TRUE(pieces[i].rcItem == expected[i].rcItem) << kind.name << " " << seed << " piece " << i;
        ASSERT_EQ(pieces[i].bNoFocus, expected[i].bNoFocus) << kind.name << " " << seed << " piece " << i;
    }
    for (size_t box = 0; box < more.size(); ++box)
        ASSERT_EQ(loads[box].more, more[box]) << kind.name << " " << seed << " box " << box;
}

} // namespace

TEST(BoxView, BarsGetTheRectanglesOfThePairRule)
{
    for (const Kind* kind : {&kWeek, &kYear}) {
        for (unsigned seed = 0; seed < 5000 && !HasFailure(); ++seed)
            ExpectLiteralBars(*kind, seed, 1 + seed % 17);
        for (unsigned seed = 10000; seed < 10020 && !HasFailure(); ++seed)
            ExpectLiteralBars(*kind, seed, 200);
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
                    EXPECT_EQ(layout.strips[i].bottom, box.top + kind->metrics.stripHeight);
                    if (!box.IsRectEmpty()) {
                        EXPECT_EQ(BoxOfPoint(layout.boxes.data(), 2 * columns, box.CenterPoint()), i);
                    }
                }
            }
        }
    }
    const BoxViewLayout week = LayOutBoxView(CRect(0, 0, 803, 631), true, kWeekMetrics);
    EXPECT_TRUE(week.boxes[7] == CRect(600, 330, 803, 630));
    EXPECT_EQ(BoxOfPoint(week.boxes.data(), 8, CPoint(5, 630)), -1) << "what is left over of the height";
    const BoxViewLayout year = LayOutBoxView(CRect(0, 0, 605, 401), false, kYearMetrics);
    EXPECT_TRUE(year.boxes[5] == CRect(500, 0, 605, 200));
    EXPECT_TRUE(year.strips[6] == CRect(0, 200, 100, 220));
}

TEST(BoxView, BarsOfTheExamples)
{
    ItemArray items;
    items.SetSize(1);
    items[0].dtStart = Day(2026, 5, 20);
    items[0].dtEnd = Day(2026, 8, 10);
    ItemArray pieces;
    MakeRowPieces(items, YearRows(2026), pieces);
    const BoxViewLayout layout = LayOutBoxView(CRect(0, 0, 605, 630), true, kYearMetrics);
    LayOutBars({layout.boxes, 6}, kYearMetrics.bars, MonthSpans(pieces, 2026), pieces);
    ASSERT_EQ(pieces.GetSize(), 2);
    EXPECT_TRUE(pieces[0].rcItem == CRect(402, 57, 598, 79)) << "two boxes, without what the last one has more";
    EXPECT_TRUE(pieces[1].rcItem == CRect(2, 357, 198, 379));
    EXPECT_EQ(pieces[0].dtEnd.GetDay(), 30);
    EXPECT_TRUE(pieces[1].dtStart == Day(2026, 7, 1));
}

TEST(BoxView, ScrollSteps)
{
    struct Case
    {
        const char* name;
        int code;
        BoxScroll week; // at position 10, thumb 3, on day 100 of the year
        BoxScroll year;
    };
    const Case cases[] = {
        {"line up", 0, {true, 9, -7}, {true, 9, -1}},
        {"line down", 1, {true, 11, 7}, {true, 11, 1}},
        {"page up", 2, {true, 6, -28}, {true, 8, -2}},
        {"page down", 3, {true, 14, 28}, {true, 12, 2}},
        {"thumb dropped", 4, {true, 10, 79}, {true, 3, 0}},
        {"thumb moved", 5, {true, 10, 0}, {true, 3, 0}},
        {"top", 6, {true, 55, 0}, {true, 4, 0}},
        {"bottom", 7, {true, 0, 0}, {true, 0, 0}},
        {"end of scrolling", 8, {false, 0, 0}, {false, 0, 0}},
    };
    for (const Case& c : cases) {
        const BoxScroll week = CalcWeekScroll(c.code, 10, 3, 100);
        const BoxScroll year = CalcYearScroll(c.code, 10, 3);
        EXPECT_EQ(week.moves, c.week.moves) << c.name;
        EXPECT_EQ(week.position, c.week.position) << c.name;
        EXPECT_EQ(week.step, c.week.step) << c.name;
        EXPECT_EQ(year.position, c.year.position) << c.name;
        EXPECT_EQ(year.step, c.year.step) << c.name;
    }
    EXPECT_EQ(CalcWeekScroll(4, 0, 40, 100).step, -180) << "backwards";
    const int positions[][2] = {{0, 0}, {1, 1}, {6, 6}, {7, 1}, {8, 2}, {100, 16}, {365, 53}, {366, 54}};
    for (const auto& day : positions)
        EXPECT_EQ(WeekScrollPosition(day[0]), day[1]) << day[0];
}

TEST(BoxView, MonthsAndYearsAway)
{
    EXPECT_TRUE(AddYears(COleDateTime(2024, 2, 29, 9, 30, 0), 1) == COleDateTime(2025, 2, 28, 9, 30, 0));
    EXPECT_TRUE(AddYears(Day(2024, 2, 29), -4) == Day(2020, 2, 29));
    EXPECT_NE(AddYears(Day(9999, 1, 1), 1).GetStatus(), COleDateTime::valid);
    EXPECT_NE(AddYears(Day(100, 1, 1), -1).GetStatus(), COleDateTime::valid);
    EXPECT_TRUE(FirstOfMonth(Day(2026, 1, 31), -1) == Day(2025, 12, 1));
    EXPECT_TRUE(FirstOfMonth(Day(2026, 12, 31), 1) == Day(2027, 1, 1));
    EXPECT_NE(FirstOfMonth(Day(9999, 12, 31), 1).GetStatus(), COleDateTime::valid);
    EXPECT_NE(FirstOfMonth(Day(100, 1, 31), -1).GetStatus(), COleDateTime::valid);
}

TEST(BoxView, TextsOfABar)
{
    tagCALENDAR_ITEM item;
    item.strText = "会議";
    item.dtStart = COleDateTime(2026, 3, 2, 9, 5, 0);
    item.dtEnd = COleDateTime(2026, 3, 2, 10, 30, 0);
    EXPECT_STREQ(WeekBarText(item, false), "9:05 - 10:30 会議");
    EXPECT_STREQ(WeekBarText(item, true), "会議");
    EXPECT_STREQ(YearBarText(Day(2026, 4, 25), Day(2026, 4, 25), "a"), "4/25 a");
    EXPECT_STREQ(YearBarText(Day(2026, 4, 25), Day(2026, 4, 28), "a"), "4/25-28 a");
    EXPECT_STREQ(YearBarText(Day(2026, 4, 25), Day(2026, 5, 3), "a"), "4/25-5/3 a");
    EXPECT_STREQ(YearBarText(Day(2025, 4, 25), Day(2026, 4, 25), "a"), "4/25-4/25 a") << "a year later";
}
