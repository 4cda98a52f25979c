// CMoreListCtrl: what the views have in common beyond their base. Items may lack room, and are counted in marks then. A
// press on a mark, or F4 in the cell that has one, opens a list of the items: Enter or a click makes an item current
// and sends CCN_ITEMCLICK, an item can be dragged out of the list into the view, Escape or a press elsewhere closes it.
// Home and End move the selection, to the ends of all that is shown with Ctrl.
#pragma once

#include "CalendarCtrl.h"

#include <vector>

class CMoreListWnd;

class CMoreListCtrl : public CCalendarCtrl
{
    DECLARE_DYNAMIC(CMoreListCtrl)

public:
    BOOL IsMoreListOpen() const { return m_pMoreList != nullptr; }

    using CCalendarCtrl::AddItem;
    int AddItem(const tagCC_ITEM* pItem, int bUpdate = TRUE, int bRedraw = TRUE)
    {
        return AddItemCopy(*pItem, bUpdate, bRedraw);
    }

protected:
    // Open the list of the mark under a point of the window, or of a date; FALSE: there is none.
    BOOL OpenMoreListAt(CPoint point) override = 0;
    virtual BOOL OpenMoreListOf(const COleDateTime& date) = 0;
    // A row of the list: the item with its rectangle in the list.
    virtual void DrawListRow(CDC* pDC, const tagCALENDAR_ITEM& item) = 0;
    // Says that more rows follow, in the lower right corner of the list.
    virtual void DrawListEnd(CDC* pDC, const CRect& rcList) = 0;
    // What a press on the item would have hit, dtFirst the first day of the list: code and time.
    virtual void HitListedItem(const tagCALENDAR_ITEM& item, const COleDateTime& dtFirst, tagCCHITTESTINFO& hit);

    // mark: client pixels. items: indices in the store. The window may be gone afterwards; TRUE in any case.
    BOOL OpenMoreList(CRect rcMark, std::vector<int> items, const COleDateTime& dtFirst);
    void CloseMoreList();

    void OptionsChanged(const CalendarOptions& before) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    virtual void MoveToEnd(BOOL bLast, UINT nFlags) = 0; // Home and End; flags as in MoveForward
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    DECLARE_MESSAGE_MAP()

private:
    friend class CMoreListWnd;
    friend class dayvane::CalendarWindowAccess;
    void MoveToFirst(UINT nFlags) { MoveToEnd(FALSE, nFlags); }
    void MoveToLast(UINT nFlags) { MoveToEnd(TRUE, nFlags); }
    void OnMoreListGone(CMoreListWnd* pList);
    // Asked by the list. One made before the items changed gets nothing.
    void ChooseListedItem(int nItem, unsigned nItemVersion);
    void DragListedItem(int nItem, unsigned nItemVersion, const COleDateTime& dtFirst, CPoint screen);
    void DrawListedItem(CDC* pDC, int nItem, unsigned nItemVersion, const CRect& rect);

    CMoreListWnd* m_pMoreList = nullptr; // deletes itself
};
