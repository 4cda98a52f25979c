// CCalendarView: a calendar control as a view of the document/view frame. It fills the view with one control, forwards
// the item operations to it, passes the control's notifications on and routes printing to it.
//
// The views for the six controls are in views/docview/CalendarViews.h.
#pragma once

#include "CalendarCtrl.h"

#include <afxext.h>

class CCalendarView : public CView
{
    DECLARE_DYNCREATE(CCalendarView)

public:
    // Without a control class: a plain view in the style WS_CHILD | WS_VISIBLE that fails to be created.
    CCalendarView();
    // The control is created through its run-time class with that style when the view's window is created.
    CCalendarView(CRuntimeClass* pCtrlClass, DWORD dwStyle);
    ~CCalendarView() override;

    // The control; null until the view's window exists, and when the control could not be created.
    CCalendarCtrl* GetCalendarCtrl() const { return m_pCalendarCtrl; }

    // As CCalendarCtrl's. The control must exist.
    int AddItem(const tagCC_ITEM* pItem, int bUpdate = TRUE, int bRedraw = TRUE)
    {
        return m_pCalendarCtrl->AddItemCopy(*pItem, bUpdate, bRedraw);
    }
    int InsertItem(int nIndex, const tagCC_ITEM* pItem, int bUpdate = TRUE, int bRedraw = TRUE)
    {
        return m_pCalendarCtrl->InsertItemCopy(nIndex, *pItem, bUpdate, bRedraw);
    }
    int SetItem(int nIndex, const tagCC_ITEM* pItem, int bUpdate = TRUE, int bRedraw = TRUE)
    {
        return m_pCalendarCtrl->SetItemCopy(nIndex, *pItem, bUpdate, bRedraw);
    }
    int DeleteItem(int nIndex, int bUpdate = TRUE, int bRedraw = TRUE)
    {
        return m_pCalendarCtrl->DeleteItem(nIndex, bUpdate, bRedraw);
    }
    int GetItem(int nIndex, tagCC_ITEM& item) { return m_pCalendarCtrl->GetItem(nIndex, item); }

    BOOL OnPreparePrinting(CPrintInfo* pInfo) override;
    // Lays the pages out: from here on the information knows how many there are.
    void OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo) override;
    void OnPrint(CDC* pDC, CPrintInfo* pInfo) override;
    void OnEndPrinting(CDC* pDC, CPrintInfo* pInfo) override;
    virtual void DoPrint(CDC* pDC, CPrintInfo* pInfo);

protected:
    void OnDraw(CDC* pDC) override; // draws nothing: the control paints itself

    CRuntimeClass* m_pCtrlClass;
    DWORD m_dwCtrlStyle;
    CCalendarCtrl* m_pCalendarCtrl = nullptr; // owned

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    // Every notification of the control goes, as it is, to the view's owner (its parent when it has none); the answer
    // comes back. wParam is the view's identifier.
    afx_msg void OnCcnItemClick(NMHDR* pNMHDR, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()
};
