// The base control's side of in-place editing.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/DrawingHelpers.h"
#include "core/InPlaceEdit.h"
#include "core/Interaction.h"
#include "core/WindowHelpers.h"

#include <algorithm>

using namespace dayvane;

namespace {
constexpr int kEditPadding = 1; // pixels between the border of the edit box and its text, above and below
} // namespace

void CCalendarCtrl::BeginEditItem(const char* lpszText)
{
    const CString text(lpszText); // the caller's may go with the edit that ends now
    if (!EndEdit() || !m_hWnd) {
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
    m_interaction->editedItem = m_nCurSel < GetItemCount() ? m_nCurSel : -1;
    m_interaction->editedData = m_interaction->editedItem != -1 ? GetItemData(m_nCurSel) : 0;
    m_interaction->editedVersion = m_nItemVersion;
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
    const CRect client = ClientRectOf(*this);
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

bool CCalendarCtrl::EndEdit()
{
    const WindowAlive alive(this, m_life);
    FinishEdit(TRUE);
    return static_cast<bool>(alive);
}

CEdit* CCalendarCtrl::GetInPlaceEdit() const
{
    return m_pEdit;
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
    NMCALENDARITEMEDIT record = {};
    NMCALENDAREDIT& edit = record.edit;
    edit.hdr = NotifyHeader(*this, CCN_IPE_ENDEDITITEM);
    edit.lpszText = lpszText;
    edit.nLength = lstrlen(lpszText);
    ToSystemTime(begin, edit.stStart);
    ToSystemTime(end, edit.stEnd);
    edit.nMode = nMode;
    record.nItem = m_interaction->editedVersion == m_nItemVersion ? m_interaction->editedItem : -1;
    record.lParam = m_interaction->editedData;
    m_bEditing = FALSE;
    NotifyParent(*this, edit.hdr);
}

// A control inside this one has ended an edit: the text goes on, without dates and mode.
void CCalendarCtrl::OnCcnIpeEndEditItem(NMHDR* pNMHDR, LRESULT* pResult)
{
    const NMCALENDAREDIT* ended = reinterpret_cast<const NMCALENDAREDIT*>(pNMHDR);
    NMCALENDARITEMEDIT record = {};
    record.edit.hdr = NotifyHeader(*this, CCN_IPE_ENDEDITITEM);
    record.edit.lpszText = ended->lpszText;
    record.edit.nLength = ended->nLength;
    record.nItem = -1;
    *pResult = NotifyParent(*this, record.edit.hdr);
}

void CCalendarCtrl::GetCurCellRect(CRect& rect, int&)
{
    rect.SetRect(-1, -1, -1, -1);
}

LRESULT CCalendarCtrl::OnImeChar(WPARAM, LPARAM)
{
    return 0;
}
