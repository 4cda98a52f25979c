// Tool tips of the time grids: items and days whose texts are cut.
#include "views/timegrid/TimeGridCtrl.h"

#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridParts.h"

using namespace dayvane;

BOOL CTimeGridCtrl::FindTip(const tagCCHITTESTINFO& hit, CRect& rcPart, std::u16string& strText)
{
    if (!m_options.toolTips) {
        return FALSE;
    }
    const int position = hit.nScreenItem;
    if (position < 0 || position >= m_arScreenItem.GetSize()) {
        strText = FindCutDayText(hit, rcPart);
        return !strText.empty();
    }
    const tagCALENDAR_ITEM& item = m_arScreenItem[position];
    if (FitsText(item)) {
        return FALSE;
    }
    rcPart = VisibleItemBox(State(), item);
    strText = IsBandItem(item) ? BandItemText(item, m_texts) : TimedItemText(item, m_texts);
    return TRUE;
}
