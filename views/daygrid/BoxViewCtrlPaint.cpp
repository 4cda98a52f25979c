// The week and year view's common painting: the order of the layers, boxes and their frames.
#include "views/daygrid/BoxViewCtrl.h"

#include "core/DrawingHelpers.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxViewState.h"

using namespace dayvane;

void CBoxViewCtrl::DrawCtrl(CDC* pDC)
{
    const SaveDcScope saved(pDC);
    const PaintClip::Paint paint(m_parts->clip, *pDC, UpdatesByParts() != FALSE);
    pDC->SetBkMode(TRANSPARENT);
    DrawCell(pDC, m_rcContent);
    DrawItem(pDC, m_rcContent, m_arScreenItem);
    DrawCaption(pDC, m_rcCaption);
    for (int i = 0; i < GetBoxCount(); ++i) {
        if (HasMoreMark(i)) {
            DrawBoxMark(pDC, i);
        }
    }
}

void CBoxViewCtrl::DrawCell(CDC* pDC, const CRect& rcCalendar)
{
    DrawBoxLines(pDC, rcCalendar);
    const BoxPainter painter = PainterOn(pDC);
    for (int i = 0; i < GetBoxCount() && HasBoxColor(i); ++i) {
        if (!painter.IsVisible(GetBox(i))) {
            continue;
        }
        const CRect box = PaintedPart(GetBox(i), m_rcContent); // the strip is wider
        painter.DrawBackground(box, GetBoxColor(i));
        if (IsToday(i)) {
            DrawTodayRect(pDC, box, i);
        }
        if (IsBoxSelected(i)) {
            DrawFocusRect(pDC, box, i);
        }
        DrawBoxStrip(pDC, i);
        DrawBoxLinesText(pDC, i, box);
    }
}

std::u16string CBoxViewCtrl::GetCutBoxText(int nBox)
{
    CClientDC dc(this);
    const StripTexts texts = TextsOf(nBox);
    const bool fits = PainterOn(&dc).FitsStripTexts(m_state->layout.strips[nBox], texts);
    return fits ? std::u16string()
                : texts.number + texts.suffix + (texts.annotation.empty() ? u"" : u" ") + texts.annotation;
}

void CBoxViewCtrl::DrawTodayRect(CDC* pDC, CRect rect, int)
{
    DrawFrame(pDC, rect, TodayFrameOf(m_theme));
}

void CBoxViewCtrl::DrawFocusRect(CDC* pDC, CRect rect, int)
{
    DrawFrame(pDC, rect, SelectedFrameOf(m_theme));
}

void CBoxViewCtrl::DrawFrame(CDC* pDC, const CRect& rect, const DayFrameColors& colors)
{
    PainterOn(pDC).DrawDayFrame(PartsOfDayFrame(rect, GetStripHeight(), m_scale), colors);
}
