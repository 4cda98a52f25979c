#include "pickers/YearMonthGrid.h"

#include <gtest/gtest.h>

using namespace dayvane;

namespace
{
COleDateTime Day(int year, int month, int day)
{
    return COleDateTime(year, month, day, 0, 0, 0);
}

COleDateTime None()
{
    COleDateTime date;
    date.SetStatus(COleDateTime::invalid);
    return date;
}
} // namespace

TEST(YearMonthHitTest, EveryPixelOfThePopupFollowsTheRule)
{
    const YearMonthLayout layout = CalcYearMonthLayout(CRect(0, 0, 120, 120));
    for (int y = -2; y < 122; ++y) {
        for (int x = -2; x < 122; ++x) {
            YearMonthHit expected;
            if (x >= 0 && x < 120 && y >= 21 && y < 93) { // the last row reaches 3 pixels past the grid's bottom
                expected.month = (y - 21) / 18 * 3 + x / 40;
            }
            if (y >= 0 && y < 20 && x >= 1 && x < 16) {
                expected.code = YearMonthCode::PreviousYear;
            } else if (y >= 0 && y < 20 && x >= 100 && x < 115) {
                expected.code = YearMonthCode::NextYear;
            } else if (y >= 95 && y < 120 && x >= 0 && x < 120) {
                expected.code = YearMonthCode::Footer;
            }
            const YearMonthHit hit = HitTestYearMonth(layout, CPoint(x, y));
            ASSERT_TRUE(hit == expected) << x << "," << y << ": " << hit.month << " " << static_cast<int>(hit.code);
            ASSERT_TRUE(hit == YearMonthHit() || RectOfHit(layout, hit).PtInRect(CPoint(x, y)));
        }
    }
    EXPECT_EQ(90, layout.grid.bottom);
}

TEST(YearMonthHitTest, SmallAndOddSizesFollowTheFormulaAndTheFooterWins)
{
    const YearMonthLayout odd = CalcYearMonthLayout(CRect(0, 0, 122, 125));
    EXPECT_TRUE(odd.months[0] == CRect(0, 21, 42, 21 + 18 + 2)) << "a third and the rest by a quarter and the rest";
    EXPECT_TRUE(odd.months[11] == CRect(84, 81, 126, 101));
    const YearMonthLayout flat = CalcYearMonthLayout(CRect(0, 0, 120, 24));
    EXPECT_EQ(YearMonthCode::Footer, HitTestYearMonth(flat, CPoint(5, 10)).code) << "over the arrow too";
    for (int size = 0; size < 60; ++size) {
        const YearMonthLayout layout = CalcYearMonthLayout(CRect(0, 0, size, size));
        HitTestYearMonth(layout, CPoint(size / 2, size / 2));
    }
}

TEST(YearMonthKeys, MoveAmongMonthsAcrossYearsAndStopAtTheEnds)
{
    const struct
    {
        YearMonth from;
        PickerKey key;
        YearMonth expected;
    } table[] = {
        {{2010, 0}, PickerKey::Left, {2009, 11}},    {{2010, 11}, PickerKey::Right, {2011, 0}},
        {{2010, 1}, PickerKey::Up, {2009, 10}},      {{2010, 10}, PickerKey::Down, {2011, 1}},
        {{2010, 4}, PickerKey::Down, {2010, 7}},     {{2010, 4}, PickerKey::PageUp, {2009, 4}},
        {{2010, 4}, PickerKey::PageDown, {2011, 4}}, {{2010, 4}, PickerKey::Home, {2010, 0}},
        {{2010, 4}, PickerKey::End, {2010, 11}},     {{100, 1}, PickerKey::Up, {100, 0}},
        {{9999, 10}, PickerKey::Down, {9999, 11}},   {{9999, 4}, PickerKey::PageDown, {9999, 4}},
        {{100, 4}, PickerKey::PageUp, {100, 4}},     {{2010, 4}, PickerKey::Enter, {2010, 4}},
    };
    for (const auto& row : table) {
        const YearMonth moved = MoveYearMonth(row.from, row.key);
        EXPECT_TRUE(moved == row.expected)
            << row.from.year << "/" << row.from.month << ": " << moved.year << "/" << moved.month;
    }
}

TEST(YearMonthValues, ComeFromHostOrClockAndTravelPacked)
{
    const COleDateTime now = Day(2010, 5, 17);
    EXPECT_EQ(201005, MakeYearMonth(-1, -1, now).Packed());
    EXPECT_EQ(199905, MakeYearMonth(1999, -1, now).Packed());
    EXPECT_EQ(201012, MakeYearMonth(-1, 12, now).Packed());
    EXPECT_EQ(999912, MakeYearMonth(20000, 13, now).Packed());
    EXPECT_EQ(10001, MakeYearMonth(-1, -1, None()).Packed());
    EXPECT_TRUE(DateOfPacked(201005) == Day(2010, 5, 1));
    EXPECT_NE(COleDateTime::valid, DateOfPacked(0).GetStatus());

    EXPECT_FALSE(IsDateChange(Day(2010, 5, 1), Day(2010, 5, 1)));
    EXPECT_TRUE(IsDateChange(COleDateTime(2010, 5, 1, 8, 0, 0), Day(2010, 5, 1))) << "the time of day counts";
    EXPECT_TRUE(IsDateChange(None(), Day(2010, 5, 1)));
    EXPECT_FALSE(IsDateChange(None(), None()));
}

TEST(PickerButton, SizesFollowTheSystemMetrics)
{
    const struct
    {
        PickerSystemMetrics system;
        int arrowWidth, minWidth, height;
    } table[] = {
        {{2, 2, 17, 17}, 17, 38, 21},
        {{2, 2, 10, 13}, 13, 30, 17},
        {{5, 2, 17, 17}, 25, 60, 29},
        {{1, 6, 17, 17}, 30, 62, 42},
    };
    for (const auto& row : table) {
        const PickerButtonMetrics metrics = CalcPickerButton(row.system);
        EXPECT_EQ(row.arrowWidth, metrics.arrowWidth);
        EXPECT_EQ(row.minWidth, metrics.minWidth);
        EXPECT_EQ(row.height, metrics.height);
    }
    const PickerButtonMetrics usual = CalcPickerButton({2, 2, 17, 17});
    EXPECT_TRUE(PickerArrowRect(usual, CRect(0, 0, 150, 21)) == CRect(131, 2, 148, 19));
}
