// The month, week and year view's side of the list of a box's items; and tool tips: bars and days whose texts are cut,
// and bars over bars.
#include "views/daygrid/DayGridCtrl.h"

#include "core/DateMath.h"
#include "core/ItemStore.h"
#include "core/MoreList.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxRange.h"

using namespace dayvane;

void CDayGridCtrl::EnableMoreList(BOOL bEnable)
{
    m_options.moreList = bEnable != FALSE;
    if (!bEnable) {
        CloseMoreList();
    }
    Layout(); // the variant of the month view has marks only then
}

BOOL CDayGridCtrl::GetMoreBox(int nBox, MoreBox& box)
{
    box = {MoreMarkOf(GetBoxRect(nBox)), Range().DateOfBox(nBox), Range().LastDateOfBox(nBox)};
    return HasMoreMark(nBox) && IsValid(box.first) && IsValid(box.last);
}

std::vector<int> CDayGridCtrl::ItemsOf(const MoreBox& box)
{
    const std::vector<int>* found = FindItems(m_arItem, DayNumberOf(box.first), DayNumberOf(box.last));
    return ItemsOfDays(m_arItem, box.first, box.last, found);
}

BOOL CDayGridCtrl::OpenMoreListAt(CPoint point)
{
    for (int i = 0; m_options.moreList && i < GetBoxCount(); ++i) {
        MoreBox box;
        if (GetMoreBox(i, box) && box.mark.PtInRect(point)) {
            return OpenMoreList(box.mark, ItemsOf(box), box.first);
        }
    }
    return FALSE;
}

BOOL CDayGridCtrl::OpenMoreListOf(const COleDateTime& date)
{
    for (int i = 0; m_options.moreList && i < GetBoxCount(); ++i) {
        MoreBox box;
        if (GetMoreBox(i, box) && date >= box.first && date <= box.last) {
            return OpenMoreList(box.mark, ItemsOf(box), box.first);
        }
    }
    return FALSE;
}

void CDayGridCtrl::DrawListRow(CDC* pDC, const tagCALENDAR_ITEM& item)
{
    DrawItemBox(*pDC, {item, item.rcItem, item.rcItem, true, item.nSource == m_nCurSel});
}

BOOL CDayGridCtrl::FindTip(const tagCCHITTESTINFO& hit, CRect& rcPart, std::u16string& strText)
{
    int bars = 0;
    const int position = ScreenItemAt(hit.pt, &bars);
    if (position == -1) {
        const int box = m_options.toolTips ? BoxAt(hit.pt) : -1;
        strText = box != -1 ? GetCutText(box, rcPart) : std::u16string();
        return !strText.empty() && rcPart.PtInRect(hit.pt);
    }
    const tagCALENDAR_ITEM& item = m_arScreenItem[position];
    const BOOL fullday = dayvane::IsFulldayItem(item);
    strText = GetBarText(item, fullday);
    const bool isHiding = m_options.hitWhatIsSeen && bars > 1;
    if (!isHiding && (!m_options.toolTips || !IsBarTextCut(item, strText))) {
        return FALSE;
    }
    rcPart = item.rcItem;
    if (isHiding) {
        const std::string number = std::to_string(bars);
        strText = u"1 of " + std::u16string(number.begin(), number.end()) + u": " + strText;
    }
    return TRUE;
}
