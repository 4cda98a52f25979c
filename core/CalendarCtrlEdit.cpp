// The base control's side of in-place editing.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/InPlaceEdit.h"

void CCalendarCtrl::BeginEditItem(const char* lpszText)
{
    Alive alive(this);
    const CString text(lpszText); // the caller's may go with the edit that ends now
    FinishEdit(TRUE);
    if (!alive || !m_hWnd)
        return;
    CRect rect;
    int mode = 0;
    GetCurCellRect(rect, mode);
    if (rect.top == -1)
        return;
    m_bEditing = TRUE;
    CInPlaceEdit* edit = new CInPlaceEdit(this, text, mode);
    if (!edit->Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, rect, this, kEditId)) {
        m_bEditing = FALSE;
        return; // the box has deleted itself
    }
    m_pEdit = edit;
    edit->SetFont(GetFont(0), TRUE);
    edit->SetFocus();
}

void CCalendarCtrl::FinishEdit(BOOL bCommit)
{
    if (!m_pEdit)
        return;
    Alive alive(this);
    if (!bCommit)
        m_pEdit->Cancel();
    // The focus comes back to the control; losing it already ends the edit.
    if (::GetFocus() == m_pEdit->m_hWnd)
        SetFocus();
    if (alive && m_pEdit)
        m_pEdit->Finish(bCommit);
}

void CCalendarCtrl::EditBoxGone(CInPlaceEdit* pEdit)
{
    if (m_pEdit == pEdit)
        m_pEdit = nullptr;
}

void CCalendarCtrl::EndEditItem(const char* lpszText, int nMode)
{
    COleDateTime begin;
    COleDateTime end;
    GetSelRange(begin, end);
    NMCALENDAREDIT record = {};
    record.hdr.hwndFrom = m_hWnd;
    record.hdr.idFrom = m_hWnd ? GetDlgCtrlID() : 0;
    record.hdr.code = static_cast<UINT>(CCN_IPE_ENDEDITITEM);
    record.lpszText = lpszText;
    record.nLength = lstrlen(lpszText);
    dayvane::ToSystemTime(begin, record.stStart);
    dayvane::ToSystemTime(end, record.stEnd);
    record.nMode = nMode;
    m_bEditing = FALSE;
    SendToParent(record.hdr);
}

// A control inside this one has ended an edit: the text goes on, without dates and mode.
void CCalendarCtrl::OnCcnIpeEndEditItem(NMHDR* pNMHDR, LRESULT* pResult)
{
    const NMCALENDAREDIT* ended = reinterpret_cast<const NMCALENDAREDIT*>(pNMHDR);
    NMCALENDAREDIT record = {};
    record.hdr.hwndFrom = m_hWnd;
    record.hdr.idFrom = GetDlgCtrlID();
    record.hdr.code = static_cast<UINT>(CCN_IPE_ENDEDITITEM);
    record.lpszText = ended->lpszText;
    record.nLength = ended->nLength;
    *pResult = SendToParent(record.hdr);
}

void CCalendarCtrl::GetCurCellRect(CRect& rect, int&)
{
    rect.SetRect(-1, -1, -1, -1);
}

// Typing on the control opens nothing: a host that wants it calls BeginEditItem.
void CCalendarCtrl::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    CWnd::OnChar(nChar, nRepCnt, nFlags);
}

LRESULT CCalendarCtrl::OnImeChar(WPARAM, LPARAM)
{
    return 0;
}

void CCalendarCtrl::OnSetFocus(CWnd* pOldWnd)
{
    CWnd::OnSetFocus(pOldWnd);
    m_bHasFocus = TRUE;
    InvalidateClient();
}

void CCalendarCtrl::OnKillFocus(CWnd* pNewWnd)
{
    CWnd::OnKillFocus(pNewWnd);
    if (!pNewWnd || !::IsChild(m_hWnd, pNewWnd->GetSafeHwnd())) {
        m_bHasFocus = FALSE;
        CancelTracking(); // the button may go up over a window that is in front now, and Escape goes there
    }
    InvalidateClient();
}
