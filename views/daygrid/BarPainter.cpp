#include "views/daygrid/BarPainter.h"

namespace dayvane {

CRect BarPainter::DrawBox(const tagCALENDAR_ITEM& item)
{
    CRect box = item.rcItem;
    box.DeflateRect(m_metrics.frameInset, m_metrics.frameInset);
    if (box.IsRectEmpty()) {
        return CRect(0, 0, 0, 0);
    }
    if (item.crColor2 != m_palette.unfilled) {
        m_pens.Fill(m_pDC, box, item.crColor2);
    }
    CRect content = box;
    content.DeflateRect(m_metrics.contentInset, m_metrics.contentInset);
    if (!BeganEarlier(item) && content.Width() > m_metrics.stripeWidth) {
        const int stripeLeft = box.left + 1;
        const CRect stripe(stripeLeft, box.top + 1, stripeLeft + m_metrics.stripeWidth, box.bottom - 1);
        m_pens.Fill(m_pDC, stripe, item.crColor3);
        content.left += m_metrics.stripeWidth;
    }
    DrawOutline(box, item.crColor4);
    const int arrowWidth = m_metrics.arrowHeight / 2 + 1;
    if (BeganEarlier(item) && content.Width() > arrowWidth) {
        DrawArrow(content.left, content.CenterPoint().y, 1);
        content.left += arrowWidth + m_metrics.arrowGap;
    }
    if (GoesOn(item) && content.Width() > arrowWidth) {
        DrawArrow(content.right - 1, content.CenterPoint().y, -1);
        content.right -= arrowWidth + m_metrics.arrowGap;
    }
    return content;
}

void BarPainter::DrawOutline(const CRect& box, COLORREF color)
{
    const SelectGdi selectPen(m_pDC, m_pens.Solid(1, color));
    const POINT corners[] = {{box.left, box.top},
                             {box.right - 1, box.top},
                             {box.right - 1, box.bottom - 1},
                             {box.left, box.bottom - 1},
                             {box.left, box.top}};
    m_pDC->Polyline(corners, sizeof(corners) / sizeof(corners[0]));
}

// A filled triangle whose tip is at x = tip and that widens in the direction given.
void BarPainter::DrawArrow(int tip, int middle, int direction)
{
    const SelectGdi selectPen(m_pDC, m_pens.Solid(1, m_palette.goesOn));
    for (int column = 0; column <= m_metrics.arrowHeight / 2; ++column) {
        const int x = tip + direction * column;
        m_pDC->MoveTo(x, middle - column);
        m_pDC->LineTo(x, middle + column + 1);
    }
}

void BarPainter::DrawSelection(const tagCALENDAR_ITEM& item, COLORREF color)
{
    CRect frame = item.rcItem;
    frame.DeflateRect(m_metrics.frameInset, m_metrics.frameInset);
    const SelectGdi selectPen(m_pDC, m_pens.Solid(m_metrics.selectionWidth, color));
    m_pDC->MoveTo(frame.left, frame.top);
    m_pDC->LineTo(frame.right, frame.top);
    m_pDC->LineTo(frame.right, frame.bottom);
    m_pDC->LineTo(frame.left, frame.bottom);
    m_pDC->LineTo(frame.left, frame.top);
}

void BarPainter::DrawText(CFont* pSelectedFont, const CString& text, const CRect& content, bool centered)
{
    m_texts.Draw(m_pDC, pSelectedFont, text, content, (centered ? DT_CENTER : DT_LEFT) | DT_VCENTER | DT_END_ELLIPSIS);
}

} // namespace dayvane
