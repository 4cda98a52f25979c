// The month view's variant: one item a day as a block that fills the cell.
#include "views/daygrid/MonthViewCtrl.h"

#include "core/ThemePaint.h"
#include "core/WideText.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxRange.h"
#include "views/daygrid/MonthLayout.h"

#include <algorithm>
#include <vector>

using namespace dayvane;

namespace {

// Pixels.
constexpr int kBlockInset = 1;   // from the item's rectangle to the drawn block
constexpr int kContentInset = 2; // from there to image and text
constexpr COLORREF kBlockOutline = 0xD8CDC1;
constexpr CaptionLook kCaption = {{0x4A79E7, 0x3149D6, 0x1522CD}, 32, DT_BOTTOM};

} // namespace

IMPLEMENT_DYNCREATE(CMonthViewCtrl2, CMonthViewCtrl)

CMonthViewCtrl2::CMonthViewCtrl2()
{
    m_pOwnType = &typeid(CMonthViewCtrl2);
}

void CMonthViewCtrl2::CalcItemRect(CRect, CItemArray& screenItems)
{
    MonthMetrics metrics = MonthMetrics::For(m_scale);
    metrics.blockTop += GetLinesHeight();
    CalcMonthBlocks(m_arCellDate, m_arCell, screenItems, metrics, m_options.moreList);
    ScreenItemsChanged();
}

void CMonthViewCtrl2::DrawCaption(CDC* pDC, CRect rcCaption)
{
    DrawTitle(pDC, rcCaption, kCaption);
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
    const BoxPainter painter = PainterOn(pDC);
    for (int cell = 0; cell < kMonthCells; ++cell) {
        if (lastOfCell[cell] != -1 && painter.IsVisible(screenItems[lastOfCell[cell]].rcItem)) {
            const tagCALENDAR_ITEM& item = screenItems[lastOfCell[cell]];
            DrawItemBox(*pDC, {item, item.rcItem, m_arCell[cell].m_rect, false, hasCurrent[cell]});
        }
    }
}

BOOL CMonthViewCtrl2::IsBarTextCut(const tagCALENDAR_ITEM& item, const std::u16string&)
{
    CClientDC dc(this);
    const SelectGdi selectFont(&dc, GetFont(item.nReserved));
    return WideTextExtent(dc, m_texts.HostText(item.strText)).cx >
           item.rcItem.Width() - 2 * (kBlockInset + kContentInset);
}

void CMonthViewCtrl2::DrawItemBox(CDC& dc, const ItemBox& box)
{
    CDC* pDC = &dc;
    tagCALENDAR_ITEM item = box.item;
    ThemeItem(item, m_theme, ItemGround::WhiteIsNone);
    const BoxPainter painter = PainterOn(pDC);
    CRect block = item.rcItem;
    block.DeflateRect(m_scale.Of(kBlockInset), m_scale.Of(kBlockInset));
    if (block.IsRectEmpty()) {
        return;
    }
    if (item.crColor2 != kUnfilled || m_theme.itemFill == ItemFill::Plain) { // a plain text stands on no grid lines
        pDC->FillSolidRect(&block, item.crColor2);
    }
    painter.DrawOutline(block, ThemeOr(m_theme.itemOutline, kBlockOutline));
    CRect content = block;
    content.DeflateRect(m_scale.Of(kContentInset), m_scale.Of(kContentInset));
    const CRect selection(content.left - 1, content.top - 1, content.right + 1, content.bottom + 1);
    if (item.nImage != -1 && m_pImageList) {
        CRect image = content;
        image.top += (content.Height() - m_scale.Of(m_cyIcon)) / 2;
        content.left += DrawImageIcon(pDC, item.nImage, image);
    }
    MoreBox more;
    const int cell = Range().BoxOf(item.dtStart);
    if (!box.isBar && cell != -1 && GetMoreBox(cell, more)) {
        content.right = std::min(content.right, more.mark.left);
    }
    pDC->SetTextColor(item.crColor5);
    {
        const SelectGdi selectFont(pDC, GetFont(item.nReserved));
        // Of a text in a block of less than half its height only meaningless dashes would be seen.
        const std::u16string text = m_texts.HostText(item.strText);
        if (content.Height() >= WideTextExtent(*pDC, text).cy / 2) {
            const UINT clip = m_options.visibleShortItems ? DT_NOCLIP : 0; // the ellipsis keeps it in the width
            DrawWideText(*pDC, text, content,
                         clip | DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
        }
    }
    if (box.isCurrent) {
        painter.DrawOutline(selection, ThemeOr(m_theme.focus, m_colors.highlight));
    }
}
