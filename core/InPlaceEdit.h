// CInPlaceEdit: the edit box that BeginEditItem lays over the current cell of a calendar control.
//
// Enter and Tab commit, Escape cancels, losing the focus for any other reason commits. The box destroys its window
// and deletes itself; nobody else does.
#pragma once

#include <afxwin.h>

class CCalendarCtrl;

class CInPlaceEdit : public CEdit
{
public:
    CInPlaceEdit(CCalendarCtrl* pOwner, const char* lpszText, int nMode);

    BOOL PreTranslateMessage(MSG* pMsg) override;
    // Closes the box now; with bCommit the owner is told the text. The object is gone afterwards.
    void Finish(BOOL bCommit);

protected:
    BOOL HandleKey(UINT nChar);
    BOOL IsComposing() const; // an input method is at work on characters that are not yet text

    CCalendarCtrl* m_pOwner; // not owned; null once the box is being closed
    CString m_strText;       // initial text
    BOOL m_bCancelled = FALSE;
    int m_nMode; // goes through to EndEditItem unchanged

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    void PostNcDestroy() override;
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    DECLARE_MESSAGE_MAP()
};
