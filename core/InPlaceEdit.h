// CInPlaceEdit: the edit box that BeginEditItem lays over the current cell of a calendar control.
//
// Enter and Tab commit, Escape cancels, losing the focus for any other reason commits. While an input method converts,
// these keys go to it. The box destroys its window and deletes itself; no other code does.
//
// Texts are narrow, so the box holds only what the system's code page has: a typed, converted or pasted text with other
// characters is refused with a beep and changes nothing; it would become question marks.
#pragma once

#include <afxwin.h>

class CCalendarCtrl;

class CInPlaceEdit : public CEdit
{
public:
    CInPlaceEdit(CCalendarCtrl* pOwner, const char* lpszText, int nMode);

    BOOL PreTranslateMessage(MSG* pMsg) override;
    // Closes the box now; with bCommit the owner gets the text. The object is gone afterwards.
    void Finish(BOOL bCommit);

    void Cancel() { m_bCancelled = TRUE; } // what ends the edit next does not commit

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PostNcDestroy() override;
    BOOL HandleKey(UINT nChar);
    BOOL IsRefused(UINT message, WPARAM wParam, LPARAM lParam);
    BOOL TakeDoubleByte(UINT message, WPARAM wParam);

    CCalendarCtrl* m_pOwner; // not owned; null once the box is being closed
    CString m_strText;       // initial text
    BOOL m_bCancelled = FALSE;
    BOOL m_bComposing = FALSE;  // an input method is converting
    BOOL m_bPacketLost = FALSE; // a program sent a character that the code page lacks: '?' comes in its place
    char m_chLead = '\0';       // first byte of a character whose second has not come yet
    int m_nMode;                // goes through to EndEditItem unchanged

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg LRESULT OnImeStartComposition(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnImeEndComposition(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()
};
