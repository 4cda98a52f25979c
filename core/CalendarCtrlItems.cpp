// The base control's items: the store operations, the current item, the selected range.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/Interaction.h"
#include "core/ItemStore.h"
#include "core/KeyMoves.h"
#include "core/TimeIndex.h"

#include <utility>

using namespace dayvane;

namespace {
constexpr int kItemFocusMargin = 2; // pixels around an item that its selection frame may touch
}

int CCalendarCtrl::AddItem(tagCC_ITEM* pItem, int bUpdate, int bRedraw)
{
    StoreAdd(m_arItem, *pItem);
    m_bManyChanged = TRUE;
    m_pIndex->Set(m_arItem, GetItemCount() - 1);
    ItemsChanged(bUpdate, bRedraw);
    return 1;
}

int CCalendarCtrl::AddItems(const tagCC_ITEM* pItems, int nCount, int bUpdate, int bRedraw)
{
    StoreReserve(m_arItem, nCount);
    for (int i = 0; i < nCount; ++i) {
        tagCC_ITEM item = pItems[i];
        AddItem(&item, FALSE, FALSE);
    }
    ItemsChanged(bUpdate, bRedraw);
    return 1;
}

int CCalendarCtrl::AddItemCopy(tagCC_ITEM item, int bUpdate, int bRedraw)
{
    return AddItem(&item, bUpdate, bRedraw);
}

int CCalendarCtrl::InsertItemCopy(int nIndex, tagCC_ITEM item, int bUpdate, int bRedraw)
{
    return InsertItem(nIndex, &item, bUpdate, bRedraw);
}

int CCalendarCtrl::SetItemCopy(int nIndex, tagCC_ITEM item, int bUpdate, int bRedraw)
{
    return SetItem(nIndex, &item, bUpdate, bRedraw);
}

int CCalendarCtrl::InsertItem(int nIndex, tagCC_ITEM* pItem, int bUpdate, int bRedraw)
{
    const int countBefore = GetItemCount();
    StoreInsert(m_arItem, nIndex, *pItem);
    for (int gap = countBefore; gap < nIndex; ++gap) {
        m_pIndex->Set(m_arItem, gap);
    }
    m_bManyChanged = m_bManyChanged || nIndex >= countBefore;
    ItemStored(nIndex);
    ItemsChanged(bUpdate, bRedraw);
    return 1;
}

int CCalendarCtrl::SetItem(int nIndex, tagCC_ITEM* pItem, int bUpdate, int bRedraw)
{
    if (!StoreSet(m_arItem, nIndex, *pItem)) {
        return 0;
    }
    ItemStored(nIndex);
    ItemsChanged(bUpdate, bRedraw);
    return 1;
}

int CCalendarCtrl::DeleteItem(int nIndex, int bUpdate, int bRedraw)
{
    if (!StoreDelete(m_arItem, nIndex)) {
        return 0;
    }
    ItemRemoved(nIndex);
    ItemsChanged(bUpdate, bRedraw);
    return 1;
}

void CCalendarCtrl::ItemStored(int nIndex)
{
    constexpr size_t kFew = 8;
    m_pIndex->Set(m_arItem, nIndex);
    if (m_setItems.empty() || m_setItems.back() != nIndex) {
        m_setItems.push_back(nIndex);
    }
    m_bManyChanged = m_bManyChanged || m_setItems.size() > kFew;
    if (m_bManyChanged) {
        m_setItems.clear();
    }
}

void CCalendarCtrl::ItemRemoved(int nIndex)
{
    m_pIndex->Remove(nIndex);
    m_bManyChanged = TRUE;
}

void CCalendarCtrl::ScreenItemsMade()
{
    m_setItems.clear();
    m_bManyChanged = FALSE;
}

const std::vector<int>* CCalendarCtrl::FindItems(const CItemArray& items, int nFirstDay, int nLastDay)
{
    const bool known = &items == &m_arItem && UpdatesByParts();
    return known && m_pIndex->Find(m_arItem, nFirstDay, nLastDay, m_foundItems) ? &m_foundItems : nullptr;
}

void CCalendarCtrl::ItemsChanged(int bUpdate, int bRedraw)
{
    ++m_nItemVersion;
    if (m_nUpdating > 0) {
        m_bUpdateWaits = m_bUpdateWaits || bUpdate;
        m_bRedrawWaits = m_bRedrawWaits || bRedraw;
        return;
    }
    if (bUpdate) {
        UpdateScreenItems();
    }
    if (bRedraw) {
        InvalidateClient();
    }
}

void CCalendarCtrl::EndUpdate()
{
    if (m_nUpdating == 0 || --m_nUpdating > 0) {
        return;
    }
    const BOOL update = m_bUpdateWaits;
    const BOOL redraw = m_bRedrawWaits;
    m_bUpdateWaits = m_bRedrawWaits = FALSE;
    if (update || redraw) {
        ItemsChanged(update, redraw);
    }
}

void CCalendarCtrl::UpdateScreenItems()
{
    MakeScreenItem(m_arItem, m_arScreenItem);
    CalcItemRect(m_rcContent, m_arScreenItem);
    ItemsWanted();
    ++m_nLayoutVersion;
}

void CCalendarCtrl::InvalidateClient()
{
    if (m_hWnd) {
        Invalidate(FALSE);
    }
}

void CCalendarCtrl::ForgetItems()
{
    m_arItem.RemoveAll();
    m_pIndex->Clear();
    m_bManyChanged = TRUE;
    ++m_nItemVersion;
}

void CCalendarCtrl::DeleteAllItems()
{
    ForgetItems();
    m_arScreenItem.RemoveAll();
    ClearDayProperty();
    InvalidateClient();
}

int CCalendarCtrl::GetItem(int nIndex, tagCC_ITEM& item)
{
    return StoreGet(m_arItem, nIndex, item);
}

LPARAM CCalendarCtrl::GetItemData(int nIndex)
{
    if (nIndex < 0) {
        return -1;
    }
    tagCC_ITEM item;
    GetItem(nIndex, item);
    return item.lParam;
}

int CCalendarCtrl::IsItemMovable(int nIndex)
{
    if (nIndex < 0) {
        return -1;
    }
    tagCC_ITEM item;
    GetItem(nIndex, item);
    return item.bMovable;
}

void CCalendarCtrl::SortItem(CItemArray& items)
{
    SortByStart(items);
}

int CCalendarCtrl::IsFulldayItem(tagCALENDAR_ITEM item)
{
    return dayvane::IsFulldayItem(item);
}

void CCalendarCtrl::MakeScreenItem(CItemArray& items, CItemArray& screenItems)
{
    MakeDayScreenItems(items, GetCurrentDate(), screenItems);
}

int CCalendarCtrl::SetCurSel(int nIndex)
{
    if (nIndex > GetItemCount()) {
        return -1;
    }
    if (nIndex == -1) {
        m_nSelScreenItem = -1;
    }
    if (nIndex != m_nCurSel) {
        const BOOL wasSelectionShown = IsSelectionShown();
        InvalidateItemRect(m_nCurSel);
        m_nCurSel = nIndex;
        InvalidateItemRect(m_nCurSel);
        if (IsSelectionShown() != wasSelectionShown) {
            InvalidateCellRectRange();
        }
    }
    return nIndex;
}

void CCalendarCtrl::SetFocusToItem()
{
    if (GetItemCount() < TimeIndex::kLeastItems) {
        m_arItem.FreeExtra(); // a large store would be copied for that
    }
    m_arScreenItem.FreeExtra();
    CItemArray sorted;
    const int position = FocusStep(m_interaction->tabsBack, sorted);
    if (position == -1) {
        SetCurSel(-1);
        return;
    }
    const int index = static_cast<int>(sorted[position].nSource);
    SetCurSel(index);
    NotifyItemByKey(CCN_ITEMCLICK, index, 0);
}

// Where Tab leads in the sorted screen list; -1: nowhere.
int CCalendarCtrl::FocusStep(bool bBack, CItemArray& sorted)
{
    sorted.Copy(m_arScreenItem);
    SortItem(sorted);
    return m_options.keyboardMoves ? StepInTime(sorted, m_nCurSel, m_dtSelBegin, bBack)
           : m_options.dialogKeys  ? FocusNeighbour(sorted, m_nCurSel, bBack)
                                   : NextFocusPosition(sorted, m_nCurSel);
}

BOOL CCalendarCtrl::HasFocusItemBeyond(BOOL bBack)
{
    CItemArray sorted;
    return FocusStep(bBack != FALSE, sorted) != -1;
}

// A key has made the item current or opens it: there is no point, and the time is the item's start.
void CCalendarCtrl::NotifyItemByKey(int nCode, int nIndex, int nSubValue)
{
    SYSTEMTIME time = {};
    if (nIndex >= 0 && nIndex < GetItemCount()) {
        ToSystemTime(m_arItem[nIndex].dtStart, time);
    }
    Notify(nCode, nIndex, nSubValue, CPoint(-1, -1), time, nIndex == -1 ? CCHT_ONCELL : CCHT_ONITEM);
}

int CCalendarCtrl::GetSelRange(COleDateTime& begin, COleDateTime& end)
{
    begin = COleDateTime(m_dtSelBegin.m_dt);
    end = COleDateTime(m_dtSelEnd.m_dt);
    if (begin > end) {
        std::swap(begin, end);
    }
    return m_dtSelBegin.m_dt != 0.0 && m_dtSelEnd.m_dt != 0.0;
}

void CCalendarCtrl::SetSelRange(const COleDateTime& begin, const COleDateTime& end, BOOL bFullday)
{
    m_dtSelBegin = begin;
    m_dtSelEnd = end;
    m_bFulldaySelection = bFullday;
}

void CCalendarCtrl::InvalidateItemRect(int nIndex)
{
    if (!m_hWnd || nIndex < 0) {
        return;
    }
    for (int i = 0; i < static_cast<int>(m_arScreenItem.GetSize()); ++i) {
        if (m_arScreenItem[i].nSource == nIndex) {
            const CRect rect = GetPaintedBox(m_arScreenItem[i]);
            InvalidateRect(&rect, FALSE);
        }
    }
}

CRect CCalendarCtrl::GetPaintedBox(const tagCALENDAR_ITEM& screenItem)
{
    CRect rect = screenItem.rcItem;
    rect.OffsetRect(-m_nHorzScroll, -m_nVertScroll);
    if (rect.top < m_rcContent.top) {
        rect.top = m_rcContent.top;
    }
    rect.InflateRect(kItemFocusMargin, kItemFocusMargin);
    return rect;
}
