#include "pickers/YearMonthGrid.h"
#include "tests/pickers/PickerDates.h"

using namespace dayvane;

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
    const YearMonthLayout odd = CalcYearMonthLayout(CRect(0, 0, 122, 125));
    EXPECT_TRUE(odd.months[0] == CRect(0, 21, 42, 21 + 18 + 2)) << "a third and the rest by a quarter and the rest";
    EXPECT_TRUE(odd.months[11] == CRect(84, 81, 126, 101));
    const YearMonthLayout flat = CalcYearMonthLayout(CRect(0, 0, 120, 24));
    EXPECT_EQ(YearMonthCode::Footer, HitTestYearMonth(flat, CPoint(5, 10)).code) << "over the arrow too";
}

TEST(YearMonthKeys, MoveAmongMonthsAcrossYearsAndStopAtTheEnds)
{
    const struct
    {
        int from; // packed
        PickerKey key;
        int expected;
    } table[] = {
        {201001, PickerKey::Left, 200912},     {201012, PickerKey::Right, 201101},
        {201002, PickerKey::Up, 200911},       {201011, PickerKey::Down, 201102},
        {201005, PickerKey::Down, 201008},     {201005, PickerKey::PageUp, 200905},
        {201005, PickerKey::PageDown, 201105}, {201005, PickerKey::Home, 201001},
        {201005, PickerKey::End, 201012},      {10002, PickerKey::Up, 10001},
        {999911, PickerKey::Down, 999912},     {999905, PickerKey::PageDown, 999905},
        {10005, PickerKey::PageUp, 10005},     {201005, PickerKey::Enter, 201005},
    };
    for (const auto& row : table) {
        const YearMonth from{row.from / 100, row.from % 100 - 1};
        EXPECT_EQ(row.expected, MoveYearMonth(from, row.key).Packed()) << row.from;
    }
}

TEST(YearMonthValues, ComeFromHostOrClockAndTravelPacked)
{
    const COleDateTime now = Day(2010, 5, 17);
    EXPECT_EQ(201005, MakeYearMonth(-1, -1, now).Packed());
    EXPECT_EQ(199905, MakeYearMonth(1999, -1, now).Packed());
    EXPECT_EQ(201012, MakeYearMonth(-1, 12, now).Packed());
    EXPECT_EQ(999912, MakeYearMonth(20000, 13, now).Packed());
    EXPECT_EQ(10001, MakeYearMonth(-1, -1, NoDate()).Packed());
    EXPECT_EQ("2010/5/1", Text(DateOfPacked(201005)));
    EXPECT_EQ("none", Text(DateOfPacked(0)));

    EXPECT_FALSE(IsDateChange(Day(2010, 5, 1), Day(2010, 5, 1)));
    EXPECT_TRUE(IsDateChange(Day(2010, 5, 1, 8), Day(2010, 5, 1))) << "the time of day counts";
    EXPECT_TRUE(IsDateChange(NoDate(), Day(2010, 5, 1)));
    EXPECT_FALSE(IsDateChange(NoDate(), NoDate()));
}

TEST(PickerButton, SizesFollowTheSystemMetrics)
{
    const struct
    {
        PickerSystemMetrics system;
        int arrowWidth, minWidth, height;
    } table[] = {{{2, 2, 17, 17}, 17, 38, 21},
                 {{2, 2, 10, 13}, 13, 30, 17},
                 {{5, 2, 17, 17}, 25, 60, 29},
                 {{1, 6, 17, 17}, 30, 62, 42}};
    for (const auto& row : table) {
        const PickerButtonMetrics metrics = CalcPickerButton(row.system);
        EXPECT_EQ(row.arrowWidth, metrics.arrowWidth);
        EXPECT_EQ(row.minWidth, metrics.minWidth);
        EXPECT_EQ(row.height, metrics.height);
    }
    EXPECT_TRUE(PickerArrowRect(CalcPickerButton({2, 2, 17, 17}), CRect(0, 0, 150, 21)) == CRect(131, 2, 148, 19));
}
