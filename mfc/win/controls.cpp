// The system's standard controls.
#include "afximpl.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("BUTTON", lpszCaption, dwStyle, rect, pParentWnd, nID);
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("EDIT", nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("LISTBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("COMBOBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create("SCROLLBAR", nullptr, dwStyle, rect, pParentWnd, nID);
}

// Drawing by the owner is handed back to the control; the bases draw nothing.

void CStatic::DrawItem(LPDRAWITEMSTRUCT)
{
}

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_DRAWITEM) {
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    }
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

void CButton::DrawItem(LPDRAWITEMSTRUCT)
{
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_DRAWITEM) {
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    }
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

void CListBox::DrawItem(LPDRAWITEMSTRUCT)
{
}

void CListBox::MeasureItem(LPMEASUREITEMSTRUCT)
{
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_DRAWITEM) {
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    }
    if (message == WM_MEASUREITEM) {
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return TRUE;
    }
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT)
{
}

void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT)
{
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_DRAWITEM) {
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    }
    if (message == WM_MEASUREITEM) {
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return TRUE;
    }
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

// Edit, list and combo boxes

void CEdit::GetSel(int& nStartChar, int& nEndChar) const
{
    DWORD start = 0;
    DWORD end = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    nStartChar = static_cast<int>(start);
    nEndChar = static_cast<int>(end);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll)
{
    SendMessage(EM_SETSEL, nStartChar, nEndChar);
    if (!bNoScroll) {
        SendMessage(EM_SCROLLCARET);
    }
}

namespace {

void GetItemText(const CWnd& list, UINT lengthMessage, UINT textMessage, int nIndex, CString& rString)
{
    const int length = static_cast<int>(list.SendMessage(lengthMessage, nIndex));
    if (length < 0) {
        AfxThrowInvalidArgException();
    }
    list.SendMessage(textMessage, nIndex, reinterpret_cast<LPARAM>(rString.GetBuffer(length + 1)));
    rString.ReleaseBuffer();
}

} // namespace

void CListBox::GetText(int nIndex, CString& rString) const
{
    GetItemText(*this, LB_GETTEXTLEN, LB_GETTEXT, nIndex, rString);
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    GetItemText(*this, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}
