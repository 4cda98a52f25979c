// Status bars, and the frame's dealings with its bars.
#include "afximpl.h"

#include <afxext.h>
#include <afxpriv.h>

IMPLEMENT_DYNAMIC(CStatusBar, CControlBar)

BEGIN_MESSAGE_MAP(CStatusBar, CControlBar)
ON_WM_SIZE()
END_MESSAGE_MAP()

namespace {

constexpr int kPaneTextPadding = 12; // pixels on both sides together
constexpr int kLinePadding = 4;      // pixels over and under the line of text together

// The string resource of a command: its message line, a line feed, its tip.
CString CommandText(UINT nID, int part)
{
    CString all;
    CString text;
    if (nID != 0 && all.LoadString(nID)) {
        AfxExtractSubString(text, all, part);
    }
    return text;
}

// Height of a line and widths of texts in the bar's font
class BarText
{
public:
    explicit BarText(CWnd* pBar) : m_dc(pBar)
    {
        CFont* pFont = pBar->GetFont();
        m_pOldFont = pFont ? m_dc.SelectObject(pFont) : nullptr;
    }
    ~BarText()
    {
        if (m_pOldFont) {
            m_dc.SelectObject(m_pOldFont);
        }
    }
    int Width(const CString& text) const { return m_dc.GetTextExtent(text).cx; }
    int Height() const
    {
        TEXTMETRIC metrics = {};
        m_dc.GetTextMetrics(&metrics);
        return metrics.tmHeight;
    }

private:
    CClientDC m_dc;
    CFont* m_pOldFont;
};

} // namespace

BOOL CStatusBar::Create(CWnd* pParentWnd, DWORD dwStyle, UINT nID)
{
    return CreateBar(STATUSCLASSNAME, 0, dwStyle, pParentWnd, nID);
}

BOOL CStatusBar::SetIndicators(const UINT* lpIDArray, int nIDCount)
{
    m_panes.assign(static_cast<size_t>(nIDCount), Pane());
    const BarText barText(this);
    for (int i = 0; i < nIDCount; ++i) {
        Pane& pane = m_panes[static_cast<size_t>(i)];
        pane.id = lpIDArray[i];
        pane.text = CommandText(pane.id, 0);
        pane.width = barText.Width(pane.text) + kPaneTextPadding;
    }
    PlacePanes();
    return TRUE;
}

void CStatusBar::SetPaneInfo(int nIndex, UINT nID, UINT, int cxWidth)
{
    Pane& pane = m_panes.at(static_cast<size_t>(nIndex));
    pane.id = nID;
    pane.width = cxWidth;
    PlacePanes();
}

BOOL CStatusBar::SetPaneText(int nIndex, LPCTSTR lpszNewText, BOOL bUpdate)
{
    if (nIndex < 0 || nIndex >= static_cast<int>(m_panes.size())) {
        return FALSE;
    }
    CString& text = m_panes[static_cast<size_t>(nIndex)].text;
    if (text != lpszNewText) {
        text = lpszNewText;
        if (bUpdate) {
            ShowPane(nIndex);
        }
    }
    return TRUE;
}

CString CStatusBar::GetPaneText(int nIndex) const
{
    return nIndex >= 0 && nIndex < static_cast<int>(m_panes.size()) ? m_panes[static_cast<size_t>(nIndex)].text
                                                                    : CString();
}

int CStatusBar::CommandToIndex(UINT nIDFind) const
{
    for (size_t i = 0; i < m_panes.size(); ++i) {
        if (m_panes[i].id == nIDFind) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void CStatusBar::PlacePanes()
{
    if (m_panes.empty() || !m_hWnd) {
        return;
    }
    CRect client;
    GetClientRect(&client);
    // From the right; the first pane takes what is left.
    std::vector<int> rightEdges(m_panes.size());
    int right = client.right;
    for (size_t i = m_panes.size(); i-- > 0;) {
        rightEdges[i] = right;
        right -= m_panes[i].width;
    }
    SendMessage(SB_SETPARTS, rightEdges.size(), reinterpret_cast<LPARAM>(rightEdges.data()));
    for (size_t i = 0; i < m_panes.size(); ++i) {
        ShowPane(static_cast<int>(i));
    }
}

void CStatusBar::ShowPane(int nIndex)
{
    const Pane& pane = m_panes[static_cast<size_t>(nIndex)];
    const LPCTSTR text = pane.enabled ? static_cast<LPCTSTR>(pane.text) : "";
    SendMessage(SB_SETTEXT, nIndex, reinterpret_cast<LPARAM>(text));
}

void CStatusBar::OnSize(UINT nType, int cx, int cy)
{
    CControlBar::OnSize(nType, cx, cy);
    PlacePanes();
}

CSize CStatusBar::CalcFixedLayout(BOOL, BOOL)
{
    int borders[3] = {}; // horizontal, vertical, between panes; pixels
    SendMessage(SB_GETBORDERS, 0, reinterpret_cast<LPARAM>(borders));
    const int edges = 2 * (borders[1] + 2 * ::GetSystemMetrics(SM_CYBORDER));
    return CSize(0, BarText(this).Height() + edges + kLinePadding);
}

class AfxStatusCmdUI : public CCmdUI
{
public:
    void Enable(BOOL bOn) override
    {
        m_bEnableChanged = TRUE;
        CStatusBar::Pane& pane = ThisPane();
        if (pane.enabled != (bOn != FALSE)) {
            pane.enabled = bOn != FALSE;
            Bar().ShowPane(static_cast<int>(m_nIndex));
        }
    }
    void SetCheck(int nCheck) override { Enable(nCheck != 0); }
    void SetText(LPCTSTR lpszText) override { Bar().SetPaneText(static_cast<int>(m_nIndex), lpszText); }

private:
    CStatusBar& Bar() { return *static_cast<CStatusBar*>(m_pOther); }
    CStatusBar::Pane& ThisPane() { return Bar().m_panes[m_nIndex]; }
};

void CStatusBar::OnUpdateCmdUI(CFrameWnd* pTarget, BOOL)
{
    AfxStatusCmdUI state;
    state.m_pOther = this;
    state.m_nIndexMax = static_cast<UINT>(m_panes.size());
    for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
        state.m_nID = m_panes[state.m_nIndex].id;
        state.DoUpdate(pTarget, FALSE);
    }
}

// The frame's part

CControlBar* CFrameWnd::GetControlBar(UINT nID)
{
    return DYNAMIC_DOWNCAST(CControlBar, FromHandlePermanent(::GetDlgItem(m_hWnd, static_cast<int>(nID))));
}

void CFrameWnd::ShowControlBar(CControlBar* pBar, BOOL bShow, BOOL)
{
    pBar->ShowWindow(bShow ? SW_SHOWNA : SW_HIDE);
    RecalcLayout();
}

BOOL CFrameWnd::OnBarCheck(UINT nID)
{
    CControlBar* pBar = GetControlBar(nID);
    if (!pBar) {
        return FALSE;
    }
    ShowControlBar(pBar, !pBar->IsVisible(), FALSE);
    return TRUE;
}

void CFrameWnd::OnUpdateControlBarMenu(CCmdUI* pCmdUI)
{
    CControlBar* pBar = GetControlBar(pCmdUI->m_nID);
    if (!pBar) {
        pCmdUI->ContinueRouting();
        return;
    }
    pCmdUI->SetCheck(pBar->IsVisible());
}

void CFrameWnd::SetMessageText(LPCTSTR lpszText)
{
    SendMessage(WM_SETMESSAGESTRING, 0, reinterpret_cast<LPARAM>(lpszText));
}

void CFrameWnd::SetMessageText(UINT nID)
{
    SendMessage(WM_SETMESSAGESTRING, nID);
}

LRESULT CFrameWnd::OnSetMessageString(WPARAM wParam, LPARAM lParam)
{
    CStatusBar* pBar = DYNAMIC_DOWNCAST(CStatusBar, GetControlBar(AFX_IDW_STATUS_BAR));
    if (pBar) {
        const CString text =
            lParam != 0 ? CString(reinterpret_cast<LPCTSTR>(lParam)) : CommandText(static_cast<UINT>(wParam), 0);
        pBar->SetPaneText(0, text);
    }
    return 0;
}

BOOL CFrameWnd::OnToolTipText(UINT, NMHDR* pNMHDR, LRESULT* pResult)
{
    TOOLTIPTEXTA* pText = reinterpret_cast<TOOLTIPTEXTA*>(pNMHDR);
    const bool window = (pText->uFlags & TTF_IDISHWND) != 0;
    const UINT nID = window ? static_cast<UINT>(::GetDlgCtrlID(reinterpret_cast<HWND>(pNMHDR->idFrom)))
                            : static_cast<UINT>(pNMHDR->idFrom);
    const CString tip = CommandText(nID, 1);
    if (tip.IsEmpty()) {
        return FALSE;
    }
    ::lstrcpyn(pText->szText, tip, sizeof(pText->szText));
    *pResult = 0;
    return TRUE;
}
