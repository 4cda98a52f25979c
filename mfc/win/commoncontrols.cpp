// Tool bars, status bars and tool tips as controls.
#include "afximpl.h"

#include <afxcmn.h>

IMPLEMENT_DYNAMIC(CToolBarCtrl, CWnd)
IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)
IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

BOOL CToolBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    if (!CWnd::Create(TOOLBARCLASSNAME, nullptr, dwStyle, rect, pParentWnd, nID)) {
        return FALSE;
    }
    SendMessage(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    return TRUE;
}

BOOL CToolBarCtrl::AddButtons(int nNumButtons, TBBUTTON* lpButtons)
{
    return SendMessage(TB_ADDBUTTONS, nNumButtons, reinterpret_cast<LPARAM>(lpButtons)) != 0;
}

int CToolBarCtrl::AddBitmap(int nNumButtons, CBitmap* pBitmap)
{
    TBADDBITMAP pictures = {nullptr, reinterpret_cast<UINT_PTR>(pBitmap->m_hObject)};
    return static_cast<int>(SendMessage(TB_ADDBITMAP, nNumButtons, reinterpret_cast<LPARAM>(&pictures)));
}

BOOL CStatusBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(STATUSCLASSNAME, nullptr, dwStyle, rect, pParentWnd, nID);
}

CString CStatusBarCtrl::GetText(int nPane) const
{
    CString text;
    const int length = LOWORD(SendMessage(SB_GETTEXTLENGTH, nPane));
    SendMessage(SB_GETTEXT, nPane, reinterpret_cast<LPARAM>(text.GetBuffer(length + 1)));
    text.ReleaseBuffer();
    return text;
}

// Tool tips

namespace {

TOOLINFO MakeToolInfo(CWnd* pWnd, UINT_PTR nIDTool, LPCTSTR text)
{
    TOOLINFO info = {};
    info.cbSize = sizeof(info);
    info.lpszText = const_cast<LPTSTR>(text);
    if (nIDTool == 0) {
        // The whole window, which its parent answers for
        info.uFlags = TTF_IDISHWND;
        info.hwnd = ::GetParent(pWnd->m_hWnd);
        info.uId = reinterpret_cast<UINT_PTR>(pWnd->m_hWnd);
    } else {
        info.hwnd = pWnd->m_hWnd;
        info.uId = nIDTool;
    }
    return info;
}

} // namespace

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    return CWnd::CreateEx(WS_EX_TOPMOST, TOOLTIPS_CLASS, nullptr, WS_POPUP | dwStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                          CW_USEDEFAULT, CW_USEDEFAULT, SafeHwnd(pParentWnd), nullptr);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool)
{
    TOOLINFO info = MakeToolInfo(pWnd, nIDTool, lpszText);
    if (lpRectTool) {
        info.rect = *lpRectTool;
    }
    return SendMessage(TTM_ADDTOOL, 0, reinterpret_cast<LPARAM>(&info)) != 0;
}

void CToolTipCtrl::DelTool(CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO info = MakeToolInfo(pWnd, nIDTool, nullptr);
    SendMessage(TTM_DELTOOL, 0, reinterpret_cast<LPARAM>(&info));
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO info = MakeToolInfo(pWnd, nIDTool, lpszText);
    SendMessage(TTM_UPDATETIPTEXT, 0, reinterpret_cast<LPARAM>(&info));
}
