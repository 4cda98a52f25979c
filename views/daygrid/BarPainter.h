// Draws the item bars of the month, week and year views. Changes nothing but the device context's state while it lives.
#pragma once

#include "../../core/CalendarRecords.h"
#include "../../core/DrawingHelpers.h"
#include "GdiPens.h"
#include "TextCache.h"

namespace dayvane {

struct BarPalette
{
    COLORREF unfilled = 0xFFFFFF; // a background of this colour is not painted
    COLORREF goesOn = 0x888888;   // the arrows of a bar that goes on in another row
};

// Pixels.
struct BarPaintMetrics
{
    int frameInset = 1;   // from the item's rectangle to the filled box
    int contentInset = 2; // from there to marks and text
    int stripeWidth = 3;  // shaded, where the item begins
    int markGap = 1;      // after a mark
    int selectionWidth = 2;
    int arrowHeight = 7; // odd
    int arrowGap = 2;    // between an arrow and the text
};

// The parts of one bar, drawn one after the other; `content` shrinks as its left edge is used up.
class BarPainter
{
public:
    BarPainter(CDC* pDC, PenSet& pens, TextCache& texts) : m_pDC(pDC), m_pens(pens), m_texts(texts) {}

    // Box, shaded stripe and outline; arrows where the item goes on beyond its piece. Returns what is left for marks
    // and text.
    CRect DrawBox(const tagCALENDAR_ITEM& item);
    // A frame along the edges of the bar.
    void DrawSelection(const tagCALENDAR_ITEM& item, COLORREF color);
    // Centred, or from the left, in the font that is selected; cut with an ellipsis where it does not fit.
    void DrawText(CFont* pSelectedFont, const CString& text, const CRect& content, bool centered);

private:
    void DrawOutline(const CRect& box, COLORREF color);
    void DrawArrow(int tip, int middle, int direction);

    CDC* m_pDC;
    PenSet& m_pens;
    TextCache& m_texts;
    BarPalette m_palette;
    BarPaintMetrics m_metrics;
};

} // namespace dayvane
