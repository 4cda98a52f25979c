// What the month, week and year views share as windows: item bars that are drawn and hit, and the more-items mark.
#pragma once

#include "core/CalendarCtrl.h"
#include "views/daygrid/GdiPens.h"
#include "views/daygrid/TextCache.h"

#include <vector>

class CDayGridCtrl : public CCalendarCtrl
{
    DECLARE_DYNAMIC(CDayGridCtrl)

public:
    CDayGridCtrl();
    ~CDayGridCtrl() override;

    void DeleteAllItems() override; // clears the more-items marks too

protected:
    enum { kMoreMarkWidth = 20, kMoreMarkHeight = 8 }; // pixels

    // Hooks of the views.
    virtual void ClearMoreMarks();                                              // no item is hidden any more
    virtual CString GetBarText(const tagCALENDAR_ITEM& item, BOOL bFullday);
    virtual BOOL IsBarTextCentered(BOOL bFullday) { return bFullday; }

    // Positions in the screen list of the items that are drawn and hit: those that have a rectangle and are not hidden.
    // A view that changes its screen items tells so.
    const std::vector<int>& GetShownItems();
    void ScreenItemsChanged() { m_bShownKnown = FALSE; }
    int ScreenItemAt(CPoint point); // position in the screen list of the first shown item there, -1 none

    // Bars of the given items, in their order. Nothing outside the clip box costs anything.
    void DrawBars(CDC* pDC, CItemArray& items);
    void DrawBar(CDC* pDC, const tagCALENDAR_ITEM& item);

    // The more-items mark in the lower right corner of a box.
    void LoadMoreMark();
    void DrawMoreMark(CDC* pDC, const CRect& box);

    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    dayvane::PenSet m_pens;
    dayvane::TextCache m_texts;
    HICON m_hMoreMark = nullptr;

private:
    std::vector<int> m_shown;
    INT_PTR m_nShownOf = 0; // size of the screen list that m_shown was made from
    BOOL m_bShownKnown = FALSE;
};
