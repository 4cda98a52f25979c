#include "core/InPlaceEdit.h"

#include "core/CalendarCtrl.h"

#include <imm.h>

BEGIN_MESSAGE_MAP(CInPlaceEdit, CEdit)
    ON_WM_CREATE()
    ON_WM_KILLFOCUS()
    ON_WM_GETDLGCODE()
    ON_WM_KEYDOWN()
END_MESSAGE_MAP()

CInPlaceEdit::CInPlaceEdit(CCalendarCtrl* pOwner, const char* lpszText, int nMode)
    : m_pOwner(pOwner), m_strText(lpszText), m_nMode(nMode)
{
}

int CInPlaceEdit::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CEdit::OnCreate(lpCreateStruct) == -1)
        return -1;
    SetWindowText(m_strText);
    return 0;
}

void CInPlaceEdit::PostNcDestroy()
{
    if (m_pOwner)
        m_pOwner->EditBoxGone(this);
    delete this;
}

BOOL CInPlaceEdit::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message == WM_KEYDOWN && HandleKey(static_cast<UINT>(pMsg->wParam)))
        return TRUE;
    return CEdit::PreTranslateMessage(pMsg);
}

BOOL CInPlaceEdit::IsComposing() const
{
    const HIMC context = ::ImmGetContext(m_hWnd);
    if (!context)
        return FALSE;
    const LONG length = ::ImmGetCompositionString(context, GCS_COMPSTR, nullptr, 0);
    ::ImmReleaseContext(m_hWnd, context);
    return length > 0;
}

BOOL CInPlaceEdit::HandleKey(UINT nChar)
{
    if (nChar != VK_TAB && nChar != VK_RETURN && nChar != VK_ESCAPE)
        return FALSE;
    if (IsComposing())
        return FALSE; // the key belongs to the conversion
    m_bCancelled = nChar == VK_ESCAPE;
    MSG character;
    ::PeekMessage(&character, m_hWnd, WM_CHAR, WM_CHAR, PM_REMOVE);
    if (CWnd* parent = GetParent())
        parent->SetFocus(); // the box closes as it loses the focus
    return TRUE;
}

void CInPlaceEdit::OnKillFocus(CWnd* pNewWnd)
{
    CEdit::OnKillFocus(pNewWnd);
    Finish(!m_bCancelled);
}

void CInPlaceEdit::Finish(BOOL bCommit)
{
    CCalendarCtrl* owner = m_pOwner;
    if (!owner)
        return; // closing already
    m_pOwner = nullptr;
    owner->EditBoxGone(this);
    const HWND hWnd = m_hWnd;
    if (bCommit) {
        CString text;
        GetWindowText(text);
        owner->EndEditItem(text, m_nMode);
    }
    // The host may have destroyed the control, and this box with it.
    if (::IsWindow(hWnd))
        ::DestroyWindow(hWnd);
}

// Hosts whose message loop does not ask PreTranslateMessage get the same keys.
UINT CInPlaceEdit::OnGetDlgCode()
{
    return CEdit::OnGetDlgCode() | DLGC_WANTALLKEYS;
}

void CInPlaceEdit::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (!HandleKey(nChar))
        CEdit::OnKeyDown(nChar, nRepCnt, nFlags);
}
