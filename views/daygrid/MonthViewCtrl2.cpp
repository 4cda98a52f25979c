// The month view's variant: one item a day as a block that fills the cell.
#include "views/daygrid/MonthViewCtrl.h"

#include "core/DrawingHelpers.h"

#include <vector>

using namespace dayvane;

namespace {

// Pixels.
constexpr int kBoxInset = 1;     // from the item's rectangle to its box
constexpr int kContentInset = 2; // from there to image and text
constexpr int kTextFont = 2;     // template in m_lfFonts
constexpr COLORREF kBlockOutline = 0xD8CDC1;
constexpr COLORREF kUnfilled = 0xFFFFFF;

void DrawEdges(CDC* pDC, const CRect& rect, CPen* pen)
{
    const SelectGdi selectPen(pDC, pen);
    pDC->MoveTo(rect.left, rect.top);
    pDC->LineTo(rect.right - 1, rect.top);
    pDC->LineTo(rect.right - 1, rect.bottom - 1);
    pDC->LineTo(rect.left, rect.bottom - 1);
    pDC->LineTo(rect.left, rect.top);
}

} // namespace

IMPLEMENT_DYNCREATE(CMonthViewCtrl2, CMonthViewCtrl)

void CMonthViewCtrl2::CalcItemRect(CRect, CItemArray& screenItems)
{
    CalcMonthBlocks(m_arCellDate, m_arCell, screenItems);
    ScreenItemsChanged();
}

void CMonthViewCtrl2::DrawCaption(CDC* pDC, CRect rcCaption)
{
    DrawMonthCaption(pDC, rcCaption, m_dtScroll, kMonthBand2, m_colors.captionText, m_lfFonts[kTextFont], m_fonts);
}

// The blocks of one day lie on top of each other: only the last one is to be seen, so only it is drawn. Any of them can
// be the current item.
void CMonthViewCtrl2::DrawItem(CDC* pDC, CRect, CItemArray& screenItems)
{
    const BoxRange range = Range();
    std::vector<int> lastOfCell(kMonthCells, -1);
    std::vector<bool> hasCurrent(kMonthCells, false);
    for (int i = 0; i < static_cast<int>(screenItems.GetSize()); ++i) {
        const int cell = screenItems[i].bNoFocus ? -1 : range.BoxOf(screenItems[i].dtStart);
        if (cell == -1) {
            continue;
        }
        lastOfCell[cell] = i;
        if (screenItems[i].nSource == m_nCurSel) {
            hasCurrent[cell] = true;
        }
    }
    CRect clip;
    pDC->GetClipBox(&clip);
    for (int cell = 0; cell < kMonthCells; ++cell) {
        CRect seen;
        if (lastOfCell[cell] != -1 && seen.IntersectRect(&screenItems[lastOfCell[cell]].rcItem, &clip)) {
            DrawBlock(pDC, screenItems[lastOfCell[cell]], hasCurrent[cell]);
        }
    }
}

void CMonthViewCtrl2::DrawBlock(CDC* pDC, const tagCALENDAR_ITEM& item, bool current)
{
    CRect box = item.rcItem;
    box.DeflateRect(kBoxInset, kBoxInset);
    if (box.IsRectEmpty()) {
        return;
    }
    if (item.crColor2 != kUnfilled) {
        pDC->FillSolidRect(&box, item.crColor2);
    }
    DrawEdges(pDC, box, m_pens.Solid(1, kBlockOutline));
    CRect content = box;
    content.DeflateRect(kContentInset, kContentInset);
    const CRect selection(content.left - 1, content.top - 1, content.right + 1, content.bottom + 1);
    if (item.nImage != -1 && m_pImageList) {
        CRect image = content;
        image.top += (content.Height() - m_cyIcon) / 2;
        content.left += DrawImageIcon(pDC, item.nImage, image);
    }
    pDC->SetTextColor(item.crColor5);
    {
        const SelectGdi selectFont(pDC, GetFont(item.nReserved));
        // Of a text in a box of less than half its height only meaningless dashes would be seen.
        if (content.Height() >= pDC->GetTextExtent(item.strText).cy / 2) {
            pDC->DrawText(item.strText, &content,
                          DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
        }
    }
    if (current) {
        DrawEdges(pDC, selection, m_pens.Solid(1, m_colors.highlight));
    }
}
