// Tool tips of the month, week and year view: bars and days whose texts are cut, and bars over bars.
#include "views/daygrid/DayGridCtrl.h"

#include "core/ItemStore.h"

using namespace dayvane;

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
