// The week and year view's common painting: the order of the layers, boxes and their frames.
#include "views/daygrid/BoxViewCtrl.h"

#include "core/DrawingHelpers.h"

#include <algorithm>

using namespace dayvane;

namespace {
// A frame's inset, its outline and its bottom line, pixels: what the strips of a frame leave of a box's strip.
constexpr int kFrameLines = 3;
constexpr int kUpperShare = 5; // of 14
constexpr int kStripShares = 14;
} // namespace

void CBoxViewCtrl::DrawCtrl(CDC* pDC)
{
    const SaveDcScope saved(pDC);
    pDC->SetBkMode(TRANSPARENT);
    DrawCell(pDC, m_rcContent);
    DrawItem(pDC, m_rcContent, m_arScreenItem);
    DrawCaption(pDC, m_rcCaption);
    for (int i = 0; i < BoxCount(); ++i) {
        if (HasMoreMark(i)) {
            DrawBoxMark(pDC, i);
        }
    }
}

// Where the box may be painted: the last pixels of the calendar are its border.
CRect CBoxViewCtrl::PaintRectOf(int nBox) const
{
    CRect rect = m_arrays.boxes[nBox];
    rect.right = std::min(rect.right, m_rcContent.right - 1);
    rect.bottom = std::min(rect.bottom, m_rcContent.bottom - 1);
    return rect;
}

void CBoxViewCtrl::DrawCell(CDC* pDC, const CRect& rcCalendar)
{
    DrawBoxGrid(pDC, rcCalendar, m_arrays.boxes[0].Size(), m_metrics.columns, kBoxRows, m_pens.Solid(1, m_colors.grid));
    CRect clip;
    pDC->GetClipBox(&clip);
    for (int i = 0; i < BoxCount(); ++i) {
        const CRect box = PaintRectOf(i);
        CRect seen;
        if (!seen.IntersectRect(&box, &clip)) {
            continue;
        }
        DrawCellBackground(pDC, box, GetBoxColor(i));
        if (IsToday(i)) {
            DrawTodayRect(pDC, box, i);
        }
        if (IsBoxSelected(i)) {
            DrawFocusRect(pDC, box, i);
        }
        DrawBoxStrip(pDC, i);
    }
}

void CBoxViewCtrl::DrawItem(CDC* pDC, CRect, CItemArray& screenItems)
{
    DrawBars(pDC, screenItems);
}

void CBoxViewCtrl::DrawTodayRect(CDC* pDC, CRect rect, int)
{
    DrawFrame(pDC, rect, kTodayFrame);
}

void CBoxViewCtrl::DrawFocusRect(CDC* pDC, CRect rect, int)
{
    DrawFrame(pDC, rect, kSelectedDayFrame);
}

void CBoxViewCtrl::DrawFrame(CDC* pDC, const CRect& rect, const DayFrameColors& colors)
{
    const int height = m_metrics.stripHeight - kFrameLines;
    const int upper = height * kUpperShare / kStripShares;
    DrawDayFrame(pDC, rect, colors, m_pens, {upper, height - upper});
}
