// Pens and brushes are kept by width and colour, their number is bounded, and Clear frees them.
#include "core/GdiPens.h"
#include "support/GuiCounts.h"
#include "support/MemoryDc.h"

#include <gtest/gtest.h>

using testsupport::GuiCounts;
using testsupport::MemoryDc;

namespace {

constexpr COLORREF kRed = 0x0000FF;
constexpr COLORREF kBlue = 0xFF0000;
constexpr int kMany = 1000; // more than a set keeps

} // namespace

TEST(GdiPens, AreKeptByWidthAndColour)
{
    dayvane::PenSet pens;
    CPen* const thin = pens.Solid(1, kRed);
    CPen* const wide = pens.Solid(2, kRed);
    CPen* const blue = pens.Solid(1, kBlue);
    EXPECT_TRUE(thin != wide && thin != blue && wide != blue);
    EXPECT_EQ(pens.Solid(1, kRed), thin);
    LOGPEN form = {};
    ::GetObject(wide->GetSafeHandle(), sizeof(form), &form);
    EXPECT_EQ(form.lopnStyle, static_cast<UINT>(PS_SOLID));
    EXPECT_EQ(form.lopnWidth.x, 2);
    EXPECT_EQ(form.lopnColor, kRed);
}

TEST(GdiPens, FillTheRectangleAlone)
{
    dayvane::PenSet pens;
    MemoryDc picture(20, 20);
    for (COLORREF color : {kRed, kBlue, kRed}) { // the last time from memory
        pens.Fill(&picture.Dc(), CRect(3, 4, 10, 12), color);
        EXPECT_EQ(picture.Count(CRect(0, 0, 20, 20), color), 7 * 8);
        EXPECT_EQ(picture.Pixel(3, 4), color);
    }
}

TEST(GdiPens, AreBoundedInNumberAndFreed)
{
    dayvane::PenSet pens;
    MemoryDc picture(4, 4);
    const auto use = [&pens, &picture](int colors) {
        for (int i = 0; i < colors; ++i) {
            pens.Solid(1, static_cast<COLORREF>(i));
            pens.Fill(&picture.Dc(), CRect(0, 0, 4, 4), static_cast<COLORREF>(i));
            EXPECT_EQ(picture.Pixel(1, 1), static_cast<COLORREF>(i));
        }
    };
    use(1); // fills caches of the system
    pens.Clear();
    const int before = GuiCounts::Now().gdiObjects;
    use(kMany);
    EXPECT_LT(GuiCounts::Now().gdiObjects, before + kMany / 2);
    pens.Clear();
    EXPECT_EQ(GuiCounts::Now().gdiObjects, before);
}
