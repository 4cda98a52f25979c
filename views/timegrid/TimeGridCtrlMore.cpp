// The time grids' marks for items without room, and the list that a mark opens; tool tips of what is cut.
#include "views/timegrid/TimeGridCtrl.h"

#include "core/DateMath.h"
#include "views/timegrid/FulldayLanes.h"
#include "views/timegrid/OverlapColumns.h"
#include "views/timegrid/TimeGridHit.h"
#include "views/timegrid/TimeGridParts.h"

#include <algorithm>

using namespace dayvane;

int CTimeGridCtrl::LanesIn(const CRect& rcClient) const
{
    const int lanes = GetFulldayItemCount();
    return m_options.limitedBand ? LimitedLanes(lanes, rcClient.Height(), Scale().metrics) : lanes;
}

void CTimeGridCtrl::KeepTimedMarks(std::vector<MoreMark> marks)
{
    std::vector<MoreMark>& all = m_pParts->more;
    all.erase(std::remove_if(all.begin(), all.end(), [](const MoreMark& mark) { return !mark.inBand; }), all.end());
    all.insert(all.end(), marks.begin(), marks.end());
}

void CTimeGridCtrl::LimitBand(const CRect& rcBand, CItemArray& screenItems)
{
    std::vector<MoreMark>& all = m_pParts->more;
    all.erase(std::remove_if(all.begin(), all.end(), [](const MoreMark& mark) { return mark.inBand; }), all.end());
    if (m_options.limitedBand) {
        const std::vector<MoreMark> marks = LimitLanes(screenItems, rcBand, m_pParts->frame.columns, Scale().metrics);
        all.insert(all.end(), marks.begin(), marks.end());
    }
}

void CTimeGridCtrl::DrawMoreMarks(CDC* pDC)
{
    const TimeGridPainter painter = Painter(pDC);
    for (const MoreMark& mark : m_pParts->more) {
        const std::u16string text = MoreText(GetTexts(), static_cast<int>(mark.items.size()));
        painter.DrawMoreMark(VisibleMarkBox(State(), mark), text, m_pParts->fonts.Label());
    }
}

BOOL CTimeGridCtrl::OpenMoreListAt(CPoint point)
{
    for (const MoreMark& mark : m_pParts->more) {
        const CRect box = VisibleMarkBox(State(), mark);
        if (box.PtInRect(point)) {
            return OpenMoreList(box, mark.items, GetShownRange().DayOf(mark.column));
        }
    }
    return FALSE;
}

const MoreMark* CTimeGridCtrl::FindMarkOf(LPARAM nItem) const
{
    for (const MoreMark& mark : m_pParts->more) {
        if (std::find(mark.items.begin(), mark.items.end(), static_cast<int>(nItem)) != mark.items.end()) {
            return &mark;
        }
    }
    return nullptr;
}

// All that is hidden of the day.
BOOL CTimeGridCtrl::OpenMoreListOf(const COleDateTime& date)
{
    const DayRange range = GetShownRange();
    const int column = range.ColumnOf(date);
    std::vector<int> items;
    if (column == -1) {
        return FALSE;
    }
    CRect box = m_pParts->frame.columns[column];
    box.bottom = box.top; // where the marks are scrolled away
    for (const MoreMark& mark : m_pParts->more) {
        if (mark.column == column) {
            items.insert(items.end(), mark.items.begin(), mark.items.end());
            const CRect seen = VisibleMarkBox(State(), mark);
            box = box.IsRectEmpty() && !seen.IsRectEmpty() ? seen : box;
        }
    }
    return !items.empty() && OpenMoreList(box, items, range.DayOf(column));
}

void CTimeGridCtrl::HitListedItem(const tagCALENDAR_ITEM& item, const COleDateTime& dtFirst, tagCCHITTESTINFO& hit)
{
    if (!IsBandItem(item)) {
        hit.nHitCode = CCHT_ONITEM;
        ToSystemTime(item.dtStart, hit.time);
        return;
    }
    CMoreListCtrl::HitListedItem(item, dtFirst, hit);
    hit.nHitCode = CCHT_ONFULLDAYITEM;
}

void CTimeGridCtrl::DrawListRow(CDC* pDC, const tagCALENDAR_ITEM& item)
{
    DrawBar(pDC, {item, item.rcItem, item.rcItem, true, item.nSource == m_nCurSel},
            IsBandItem(item) ? BandItemText(item, m_texts) : TimedItemText(item, m_texts));
}

void CTimeGridCtrl::DrawListEnd(CDC* pDC, const CRect& rcList)
{
    const TimeGridMetrics metrics = Scale().metrics;
    const CRect box(rcList.right - metrics.moreWidth, rcList.bottom - metrics.moreHeight, rcList.right, rcList.bottom);
    Painter(pDC).DrawMoreMark(box, u"...", m_pParts->fonts.Label());
}

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
