// The base control's side of in-place editing.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/DrawingHelpers.h"
#include "core/InPlaceEdit.h"
#include "core/WindowHelpers.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr int kEditPadding = 1; // pixels between the border of the edit box and its text, above and below
} // namespace

void CCalendarCtrl::BeginEditItem(const char* lpszText)
{
    const WindowAlive alive(this, m_life);
    const CString text(lpszText); // the caller's may go with the edit that ends now
    FinishEdit(TRUE);
    if (!alive || !m_hWnd) {
        return;
    }
    CRect rect;
    int mode = 0;
    GetCurCellRect(rect, mode);
    if (rect.top == -1) {
        return;
    }
    GrowToTextLine(rect);
    m_bEditing = TRUE;
    CInPlaceEdit* edit = new CInPlaceEdit(this, text, m_texts.codePage, mode);
    if (!edit->Open(rect, kEditId)) {
        m_bEditing = FALSE;
        return; // the box has deleted itself
    }
    m_pEdit = edit;
    edit->SetFont(GetFont(0), TRUE);
    edit->SetFocus();
}

// A cell may be lower than a line of text: then the box extends below it, or above it at the bottom of the window.
void CCalendarCtrl::GrowToTextLine(CRect& rect)
{
    CClientDC dc(this);
    const SelectGdi font(&dc, GetFont(0));
    TEXTMETRIC metrics = {};
    dc.GetTextMetrics(&metrics);
    const int height = metrics.tmHeight + 2 * (::GetSystemMetrics(SM_CYBORDER) + kEditPadding);
    if (rect.Height() >= height) {
        return;
    }
    CRect client;
    GetClientRect(&client);
    rect.bottom = rect.top + height;
    rect.OffsetRect(0, std::min(std::max(client.bottom - rect.bottom, client.top - rect.top), 0L));
}

void CCalendarCtrl::FinishEdit(BOOL bCommit)
{
    if (!m_pEdit) {
        return;
    }
    const WindowAlive alive(this, m_life);
    if (!bCommit) {
        m_pEdit->Cancel();
    }
    // The focus comes back to the control; losing it already ends the edit.
    if (::GetFocus() == m_pEdit->m_hWnd) {
        SetFocus();
    }
    if (alive && m_pEdit) {
        m_pEdit->Finish(bCommit);
    }
}

void CCalendarCtrl::EditBoxGone(CInPlaceEdit* pEdit)
{
    if (m_pEdit == pEdit) {
        m_pEdit = nullptr;
        ItemsWanted(); // an answer may have waited for the end
    }
}

void CCalendarCtrl::EndEditItem(const char* lpszText, int nMode)
{
    COleDateTime begin;
    COleDateTime end;
    GetSelRange(begin, end);
    NMCALENDAREDIT record = {};
    record.hdr = NotifyHeader(*this, CCN_IPE_ENDEDITITEM);
    record.lpszText = lpszText;
    record.nLength = lstrlen(lpszText);
    ToSystemTime(begin, record.stStart);
    ToSystemTime(end, record.stEnd);
    record.nMode = nMode;
    m_bEditing = FALSE;
    NotifyParent(*this, record.hdr);
}

// A control inside this one has ended an edit: the text goes on, without dates and mode.
void CCalendarCtrl::OnCcnIpeEndEditItem(NMHDR* pNMHDR, LRESULT* pResult)
{
    const NMCALENDAREDIT* ended = reinterpret_cast<const NMCALENDAREDIT*>(pNMHDR);
    NMCALENDAREDIT record = {};
    record.hdr = NotifyHeader(*this, CCN_IPE_ENDEDITITEM);
    record.lpszText = ended->lpszText;
    record.nLength = ended->nLength;
    *pResult = NotifyParent(*this, record.hdr);
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
