// The popup that a more-items mark opens. Its control closes it when it scrolls, changes its size or its items, loses
// the focus or ends. The focus stays in the control, which passes on the keys; the popup holds the mouse capture, so
// that a press anywhere else closes it.
#pragma once

#include "PopupWindow.h"
#include "MoreList.h"

class CMoreListCtrl;
namespace dayvane {
class MoreListAccess;
}

class CMoreListWnd : public CPopupWnd
{
public:
    // mark: screen pixels. nullptr when there is no item or no window.
    static CMoreListWnd* Open(CMoreListCtrl* pOwner, const CRect& mark, std::vector<int> items, unsigned nItemVersion,
                              const COleDateTime& dtFirst);
    // A key that the control got; TRUE when it is the list's. The list may be gone afterwards.
    BOOL OnKey(UINT nKey);

protected:
    friend class dayvane::MoreListAccess;
    CMoreListWnd(CMoreListCtrl* pOwner, std::vector<int> items, unsigned nItemVersion, const COleDateTime& dtFirst);

    void Choose(int nRow);
    void DragOut(CPoint point);
    void SetCurrentRow(int nRow);
    void DrawPopup(CDC* pDC) override;
    void OnGone() override;
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint point);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    DECLARE_MESSAGE_MAP()

    CMoreListCtrl* m_pOwner;
    dayvane::MoreListModel m_model;
    unsigned m_nItemVersion; // of the control's items when the list was made
    COleDateTime m_dtFirst;  // first day of the list
    int m_nPressed = -1;     // row under the press
};
