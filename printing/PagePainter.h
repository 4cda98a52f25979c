// Draws a page on any device context: printer, metafile, preview, bitmap.
//
// Printer drivers have gaps; so everything here is filled rectangles, polygons, texts and plain bitmaps. Colours are
// drawn as they come, without blending.
#pragma once

#include "DcTextMeasurer.h"
#include "Page.h"

#include <afxcmn.h>
#include <afxwin.h>

namespace dayvane {

// Where the sheet lies on the device.
struct PageView
{
    CPoint origin = CPoint(0, 0); // of its upper left corner, device pixels
    int dpiX = 96;                // how many device pixels stand for an inch of paper
    int dpiY = 96;

    int X(int units) const { return origin.x + Scaled(units, dpiX); }
    int Y(int units) const { return origin.y + Scaled(units, dpiY); }
    CRect Map(const CRect& rect) const { return CRect(X(rect.left), Y(rect.top), X(rect.right), Y(rect.bottom)); }

private:
    static int Scaled(int units, int dpi) { return ::MulDiv(units, dpi, kUnitsPerInch); }
    static constexpr int kUnitsPerInch = 254;
};

// images: those of the page's images, nullptr: none are drawn. The context is left as it was.
void DrawPage(CDC* pDC, const Page& page, const PageView& view, const PageFaces& faces, CImageList* pImages);

} // namespace dayvane
