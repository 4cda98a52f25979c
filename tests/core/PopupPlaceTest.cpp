#include "core/PopupPlace.h"

#include <gtest/gtest.h>

using namespace dayvane;

TEST(PlaceDropDownTest, BelowOrAboveAndAlwaysOnTheWorkArea)
{
    const struct
    {
        const char* what;
        CRect anchor;
        CPoint expected;
        int bottom; // of the work area
    } table[] = {
        {"room below", CRect(300, 100, 460, 121), CPoint(340, 121), 600},
        {"exactly fits below", CRect(300, 459, 460, 480), CPoint(340, 480), 600},
        {"one pixel short: above", CRect(300, 460, 460, 481), CPoint(340, 340), 600},
        {"left edge", CRect(10, 100, 60, 121), CPoint(0, 121), 600},
        {"right edge", CRect(700, 100, 900, 121), CPoint(680, 121), 600},
        {"below the screen", CRect(300, 700, 460, 721), CPoint(340, 480), 600},
        {"neither below nor above", CRect(0, 60, 160, 81), CPoint(40, 30), 150},
    };
    for (const auto& row : table) {
        const CRect place = PlaceDropDown(row.anchor, CSize(120, 120), CRect(0, 0, 800, row.bottom));
        EXPECT_TRUE(place == CRect(row.expected, CSize(120, 120))) << row.what;
    }
}
