// CInPlaceEdit: the edit box that BeginEditItem lays over the current cell of a calendar control.
//
// Enter and Tab commit, Escape cancels, losing the focus for any other reason commits. While an input method converts,
// these keys go to it. Keys that type or edit, as Delete and Ctrl+C, never become commands of the host: the box takes
// them in PreTranslateMessage, before the windows around it are asked. The box destroys its window and deletes itself;
// no other code does.
//
// The box itself is a Unicode window, so every character can be typed, also where the host's message loop is narrow.
// The text that is reported is in the code page of the control's texts: a typed, converted or pasted character that the
// page lacks is refused with a beep and changes nothing; it would become a question mark. What was not edited keeps its
// bytes. While the font lacks a character of the text the box shows all of it in a font that has it.
#pragma once

#include "EditFont.h"

#include <afxwin.h>

class CCalendarCtrl;

class CInPlaceEdit : public CEdit
{
public:
    // The text in that code page.
    CInPlaceEdit(CCalendarCtrl* pOwner, const char* lpszText, UINT nCodePage, int nMode);
    // Opens the box over the rectangle of the owner; FALSE: the object is gone.
    BOOL Open(const RECT& rect, UINT nID);

    BOOL PreTranslateMessage(MSG* pMsg) override;
    // Closes the box now; with bCommit the owner gets the text. The object is gone afterwards.
    void Finish(BOOL bCommit);

    void Cancel() { m_bCancelled = TRUE; } // what ends the edit next does not commit

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PostNcDestroy() override;
    BOOL HandleKey(UINT nChar);
    BOOL IsRefused(UINT message, WPARAM wParam, LPARAM lParam);
    BOOL ClipboardFits();
    BOOL ConversionFits();
    static LRESULT CALLBACK WideProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    void TakeUnit(WPARAM wParam, LPARAM lParam);
    void ShowFont();

    CCalendarCtrl* m_pOwner; // not owned; null once the box is being closed
    CString m_strText;       // initial text
    UINT m_nCodePage;        // of that text and of what is reported
    BOOL m_bCancelled = FALSE;
    BOOL m_bComposing = FALSE;       // an input method is converting
    int m_nMode;                     // goes through to EndEditItem unchanged
    wchar_t m_chLead = L'\0';        // first half of a character whose second has not come yet
    HFONT m_hFont = nullptr;         // the owner's
    dayvane::EditFont m_font;        // for what that lacks
    WNDPROC m_pfnEdit = nullptr;     // the system's edit box
    WNDPROC m_pfnHandlers = nullptr; // of this object's messages

    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg LRESULT OnImeStartComposition(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnImeEndComposition(WPARAM wParam, LPARAM lParam);
    afx_msg BOOL OnChange();
    DECLARE_MESSAGE_MAP()
};
