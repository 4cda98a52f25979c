#include "core/ClipArea.h"
#include "core/DrawingHelpers.h"
#include "core/PaintBuffer.h"

#include "support/MemoryDc.h"

#include <gtest/gtest.h>

using namespace dayvane;
using namespace testsupport;

namespace {

constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kInk = RGB(10, 20, 30);
constexpr COLORREF kOtherInk = RGB(9, 9, 9);

TEST(MemDC, BuffersTheClipBoxUnlessPrinting)
{
    MemoryDc surface(40, 40);
    CDC& target = surface.Dc();
    target.IntersectClipRect(CRect(10, 20, 30, 40));
    {
        CMemDC memory(&target);
        memory.FillSolidRect(CRect(0, 0, 12, 22), kInk);
        memory.FillSolidRect(CRect(12, 22, 40, 40), kOtherInk);
        EXPECT_EQ(surface.CountOther(CRect(0, 0, 40, 40), kPaper), 0) << "nothing before its end";
    }
    EXPECT_EQ(surface.Pixel(11, 21), kInk);
    EXPECT_EQ(surface.Pixel(12, 22), kOtherInk);
    EXPECT_EQ(surface.Pixel(9, 20), kPaper);
    target.m_bPrinting = TRUE;
    {
        CMemDC direct(&target);
        EXPECT_EQ(direct.m_hDC, target.m_hDC);
        EXPECT_TRUE(direct.IsPrinting());
    }
    EXPECT_EQ(::GetObjectType(target.m_hDC), static_cast<DWORD>(OBJ_MEMDC)) << "not deleted with it";
}

// Fills a rectangle in a buffer of the surface, whose origin and clip box a hook has changed.
void FillInBuffer(MemoryDc& surface, int seed, bool itself)
{
    const SaveDcScope saved(&surface.Dc());
    surface.Dc().IntersectClipRect(CRect(3, 2, 58, 39));
    CMemDC memory(&surface.Dc());
    memory.FillSolidRect(CRect(0, 0, 60, 40), kPaper);
    memory.SetWindowOrg(memory.GetWindowOrg() + CPoint(seed % 3, -seed % 5));
    if (seed % 2 == 1) {
        memory.IntersectClipRect(CRect(8, 9, 30, 20));
    }
    const CRect rect(seed % 11 - 5, seed % 7 - 4, seed % 13 + 20, seed % 17 + 5);
    if (itself) {
        EXPECT_TRUE(ClipArea(memory, &memory).Fill(rect, kInk));
    } else {
        memory.FillSolidRect(&rect, kInk);
    }
}

TEST(MemDC, FillsOfItsOwnPixelsAreThoseOfTheSystem)
{
    MemoryDc own(60, 40), systems(60, 40);
    for (int seed = 0; seed < 80; ++seed) {
        FillInBuffer(own, seed, true);
        FillInBuffer(systems, seed, false);
        EXPECT_TRUE(own.SameAs(systems)) << seed;
    }
    CMemDC memory(&own.Dc());
    EXPECT_FALSE(ClipArea(memory, &memory).Fill(CRect(0, 0, 9, 9), PALETTEINDEX(1)));
    EXPECT_FALSE(ClipArea(own.Dc()).Fill(CRect(0, 0, 9, 9), kInk));
    memory.SetMapMode(MM_TWIPS);
    EXPECT_FALSE(ClipArea(memory, &memory).Fill(CRect(0, 0, 9, 9), kInk));
}

TEST(MemDC, InAKeptBitmapShowsNothingOfEarlierPictures)
{
    const CSize size(60, 40);
    MemoryDc kept(size.cx, size.cy), fresh(size.cx, size.cy);
    PaintBuffer buffer;
    for (int seed = 0; seed < 40; ++seed) {
        const CRect clip(seed % 7, seed % 5, 59 - seed % 13, 39 - seed % 11);
        const CRect painted(seed % 30, seed % 20, 50, 35);
        const auto paint = [&](CMemDC&& memory) {
            memory.FillSolidRect(&painted, RGB(seed, 100, 200));
            EXPECT_TRUE(ClipArea(memory, &memory).Fill(CRect(10, 10, 20, 12), kInk));
        };
        for (MemoryDc* surface : {&kept, &fresh}) {
            const SaveDcScope saved(&surface->Dc());
            surface->Dc().IntersectClipRect(&clip);
            surface == &kept ? paint(CMemDC(&surface->Dc(), buffer, size)) : paint(CMemDC(&surface->Dc()));
        }
        ASSERT_TRUE(kept.SameAs(fresh)) << seed;
    }
}

TEST(MemDC, KeepsOneBitmapOfTheWindowsSize)
{
    MemoryDc surface(60, 40);
    PaintBuffer buffer;
    const auto take = [&](CSize size, CSize window) { return buffer.Take(surface.Dc(), size, window); };
    auto first = take({5, 5}, {60, 40});
    EXPECT_EQ(first->size, CSize(60, 40));
    EXPECT_NE(take({5, 5}, {60, 40}), first) << "while that is in use";
    const OffscreenBitmap* const address = first.get();
    first.reset();
    EXPECT_EQ(take({60, 40}, {60, 40}).get(), address);
    EXPECT_EQ(take({70, 5}, {60, 40})->size, CSize(70, 5)) << "never too small";
    EXPECT_FALSE(buffer.IsKept());
    EXPECT_EQ(take({5, 5}, {30, 20})->size, CSize(30, 20));
    EXPECT_EQ(take({5, 6}, {30000, 20000})->size, CSize(5, 6)) << "too large to keep";
    EXPECT_FALSE(buffer.IsKept());
    EXPECT_EQ(take({100000, 100000}, {100000, 100000}), nullptr);
}

TEST(MemDC, WithoutMemoryItPaintsStraight)
{
    MemoryDc surface(50, 50);
    surface.Dc().SetMapMode(MM_ANISOTROPIC); // its clip box: 100,000 x 100,000
    surface.Dc().SetWindowExt(100000, 100000);
    surface.Dc().SetViewportExt(50, 50);
    PaintBuffer buffer;
    {
        CMemDC direct(&surface.Dc(), buffer, CSize(50, 50));
        direct.FillSolidRect(CRect(0, 0, 50000, 100000), kInk);
        EXPECT_EQ(direct.m_hDC, surface.Dc().m_hDC);
    }
    {
        CMemDC direct(&surface.Dc());
        direct.FillSolidRect(CRect(0, 0, 100000, 50000), kOtherInk);
    }
    EXPECT_EQ(surface.Count(CRect(0, 0, 50, 25), kOtherInk), 50 * 25);
    EXPECT_EQ(surface.Count(CRect(0, 25, 25, 50), kInk), 25 * 25);
    EXPECT_EQ(surface.Count(CRect(25, 25, 50, 50), kPaper), 25 * 25);
}

TEST(DrawingHelpers, GradientsReachTheirColours)
{
    MemoryDc surface(40, 40);
    const CRect area(2, 2, 38, 38);
    DrawGradient(&surface.Dc(), area, RGB(200, 0, 0), RGB(0, 0, 200), TRUE, TRUE);
    EXPECT_GT(GetRValue(surface.Pixel(2, 20)), 190);
    EXPECT_GT(GetBValue(surface.Pixel(37, 20)), 190);
    EXPECT_EQ(surface.Pixel(20, 2), surface.Pixel(20, 37)) << "left to right: columns are even";
    EXPECT_EQ(surface.Pixel(1, 20), kPaper);
    surface.Fill(kPaper);
    DrawSteppedGradient(&surface.Dc(), area, RGB(0, 0, 0), RGB(170, 170, 170), FALSE);
    EXPECT_EQ(surface.Pixel(20, 2), RGB(0, 0, 0));
    EXPECT_EQ(surface.Pixel(20, 3), RGB(0, 0, 0)) << "strips of two pixels";
    EXPECT_EQ(surface.Pixel(20, 4), RGB(10, 10, 10));
    EXPECT_EQ(surface.Pixel(20, 37), RGB(170, 170, 170));
    surface.Fill(kPaper);
    for (int height = 0; height < 5; ++height) {
        DrawSteppedGradient(&surface.Dc(), CRect(0, 0, 10, height), 0, kOtherInk, FALSE);
    }
    EXPECT_EQ(surface.CountOther(CRect(0, 4, 40, 40), kPaper), 0) << "stays inside small rectangles";
}

TEST(DrawingHelpers, MarksReturnTheirWidthAndNeedRoom)
{
    MemoryDc surface(60, 20);
    CDC& dc = surface.Dc();
    LOGFONT symbols = {};
    symbols.lfHeight = 12;
    symbols.lfCharSet = SYMBOL_CHARSET;
    lstrcpy(symbols.lfFaceName, "No such face");
    dc.SetTextColor(kInk);
    const int alarm = DrawAlarmGlyph(&dc, CRect(0, 0, 30, 20), symbols, FALSE);
    const int recurrence = DrawRecurrenceGlyph(&dc, CRect(30, 0, 60, 20), symbols, TRUE);
    EXPECT_GT(surface.Count(CRect(0, 0, alarm, 20), kInk), 20);
    EXPECT_GT(surface.Count(CRect(30, 0, 30 + recurrence, 20), kInk), 15);
    EXPECT_EQ(surface.CountOther(CRect(alarm, 0, 30, 20), kPaper), 0) << "nothing beyond the width";
    surface.Fill(kPaper);
    EXPECT_EQ(DrawAlarmGlyph(&dc, CRect(0, 0, alarm, 20), symbols, FALSE), 0);
    EXPECT_EQ(surface.CountOther(CRect(0, 0, 60, 20), kPaper), 0);
}

} // namespace
