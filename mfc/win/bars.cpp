// Bars of a frame, and the tool bar.
#include "afximpl.h"

#include <afxext.h>
#include <afxpriv.h>

IMPLEMENT_DYNAMIC(CControlBar, CWnd)
IMPLEMENT_DYNAMIC(CToolBar, CControlBar)

BEGIN_MESSAGE_MAP(CControlBar, CWnd)
ON_MESSAGE(WM_SIZEPARENT, &CControlBar::OnSizeParent)
ON_MESSAGE(WM_IDLEUPDATECMDUI, &CControlBar::OnIdleUpdateCmdUI)
END_MESSAGE_MAP()

namespace {

constexpr DWORD kBarStyleMask = 0xFFF0; // the bits of CBRS_..., which mean other things to the system
constexpr int kButtonPadding = 4;       // pixels over and under the buttons together

} // namespace

BOOL CControlBar::CreateBar(LPCTSTR lpszClassName, DWORD dwExStyle, DWORD dwStyle, CWnd* pParentWnd, UINT nID)
{
    m_dwStyle = dwStyle & kBarStyleMask;
    const DWORD style = (dwStyle & ~kBarStyleMask) | CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER;
    return CWnd::CreateEx(dwExStyle, lpszClassName, nullptr, style, CRect(0, 0, 0, 0), pParentWnd, nID);
}

CSize CControlBar::CalcFixedLayout(BOOL, BOOL)
{
    CRect rect;
    GetWindowRect(&rect);
    return rect.Size();
}

LRESULT CControlBar::OnSizeParent(WPARAM, LPARAM lParam)
{
    AFX_SIZEPARENTPARAMS& layout = *reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
    if (!IsVisible()) {
        return 0;
    }
    const int height = CalcFixedLayout(TRUE, TRUE).cy;
    CRect place(layout.rect);
    if ((m_dwStyle & CBRS_ALIGN_BOTTOM) != 0) {
        place.top = place.bottom - height;
        layout.rect.bottom = place.top;
    } else {
        place.bottom = place.top + height;
        layout.rect.top = place.bottom;
    }
    if (layout.bPlace) {
        SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(), SWP_NOACTIVATE | SWP_NOZORDER);
    }
    return 0;
}

LRESULT CControlBar::OnIdleUpdateCmdUI(WPARAM wParam, LPARAM)
{
    CFrameWnd* pTarget = GetParentFrame();
    if (pTarget && IsVisible()) {
        OnUpdateCmdUI(pTarget, wParam != 0);
    }
    return 0;
}

// Tool bars

BOOL CToolBar::CreateEx(CWnd* pParentWnd, DWORD dwCtrlStyle, DWORD dwStyle, CRect, UINT nID)
{
    const DWORD tips = (dwStyle & CBRS_TOOLTIPS) != 0 ? TBSTYLE_TOOLTIPS : 0;
    if (!CreateBar(TOOLBARCLASSNAME, 0, dwStyle, pParentWnd, nID)) {
        return FALSE;
    }
    ModifyStyle(0, dwCtrlStyle | tips); // their bits are those of the bar's own style
    SendMessage(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    return TRUE;
}

BOOL CToolBar::SetButtons(const UINT* lpIDArray, int nIDCount)
{
    CToolBarCtrl& bar = GetToolBarCtrl();
    while (bar.GetButtonCount() > 0) {
        bar.DeleteButton(0);
    }
    int image = 0;
    for (int i = 0; i < nIDCount; ++i) {
        TBBUTTON button = {};
        button.fsState = TBSTATE_ENABLED;
        button.idCommand = static_cast<int>(lpIDArray[i]);
        button.fsStyle = lpIDArray[i] == ID_SEPARATOR ? BTNS_SEP : BTNS_BUTTON;
        button.iString = -1;
        button.iBitmap = lpIDArray[i] == ID_SEPARATOR ? 0 : image < m_imageCount ? image++ : I_IMAGENONE;
        if (!bar.AddButtons(1, &button)) {
            return FALSE;
        }
    }
    return TRUE;
}

BOOL CToolBar::LoadBitmap(UINT nIDResource)
{
    CBitmap bitmap;
    BITMAP size = {};
    if (!bitmap.LoadBitmap(nIDResource) || bitmap.GetBitmap(&size) == 0 || size.bmHeight == 0) {
        return FALSE;
    }
    m_imageCount = size.bmWidth / size.bmHeight; // the pictures are squares
    GetToolBarCtrl().SetBitmapSize(CSize(size.bmHeight, size.bmHeight));
    if (GetToolBarCtrl().AddBitmap(m_imageCount, &bitmap) < 0) {
        return FALSE;
    }
    bitmap.Detach(); // the bar draws from it as long as it lives
    return TRUE;
}

void CToolBar::SetSizes(SIZE sizeButton, SIZE sizeImage)
{
    GetToolBarCtrl().SetBitmapSize(CSize(sizeImage));
    GetToolBarCtrl().SetButtonSize(CSize(sizeButton));
}

BOOL CToolBar::SetButtonText(int nIndex, LPCTSTR lpszText)
{
    TBBUTTONINFO info = {};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_TEXT | TBIF_STYLE;
    info.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE;
    info.pszText = const_cast<LPTSTR>(lpszText);
    return GetToolBarCtrl().SetButtonInfo(static_cast<int>(GetItemID(nIndex)), &info);
}

void CToolBar::SetButtonStyle(int nIndex, UINT nStyle)
{
    TBBUTTONINFO info = {};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_STYLE;
    info.fsStyle = static_cast<BYTE>(nStyle);
    GetToolBarCtrl().SetButtonInfo(static_cast<int>(GetItemID(nIndex)), &info);
}

UINT CToolBar::GetItemID(int nIndex) const
{
    TBBUTTON button = {};
    return GetToolBarCtrl().GetButton(nIndex, &button) ? static_cast<UINT>(button.idCommand) : 0;
}

int CToolBar::CommandToIndex(UINT nIDFind) const
{
    return static_cast<int>(GetToolBarCtrl().CommandToIndex(nIDFind));
}

void CToolBar::GetItemRect(int nIndex, LPRECT lpRect) const
{
    if (!GetToolBarCtrl().GetItemRect(nIndex, lpRect)) {
        ::SetRectEmpty(lpRect);
    }
}

// The bar's window is the system's tool bar, and the control's class adds nothing but functions.
CToolBarCtrl& CToolBar::GetToolBarCtrl() const
{
    return *static_cast<CToolBarCtrl*>(const_cast<CWnd*>(static_cast<const CWnd*>(this)));
}

CSize CToolBar::CalcFixedLayout(BOOL, BOOL)
{
    const DWORD size = static_cast<DWORD>(SendMessage(TB_GETBUTTONSIZE));
    CRect last;
    GetItemRect(GetToolBarCtrl().GetButtonCount() - 1, &last);
    return CSize(last.right, HIWORD(size) + kButtonPadding);
}

namespace {

class ToolCmdUI : public CCmdUI
{
public:
    void Enable(BOOL bOn) override
    {
        m_bEnableChanged = TRUE;
        SetState(TBSTATE_ENABLED, bOn != FALSE);
    }
    void SetCheck(int nCheck) override
    {
        SetState(TBSTATE_CHECKED, nCheck == 1);
        SetState(TBSTATE_INDETERMINATE, nCheck == 2);
    }
    void SetText(LPCTSTR) override {}

private:
    void SetState(WPARAM bit, bool on)
    {
        const LRESULT before = m_pOther->SendMessage(TB_GETSTATE, m_nID);
        const LRESULT after = on ? before | static_cast<LRESULT>(bit) : before & ~static_cast<LRESULT>(bit);
        if (before != after && before != -1) {
            m_pOther->SendMessage(TB_SETSTATE, m_nID, after);
        }
    }
};

} // namespace

void CToolBar::OnUpdateCmdUI(CFrameWnd* pTarget, BOOL bDisableIfNoHndler)
{
    ToolCmdUI state;
    state.m_pOther = this;
    state.m_nIndexMax = static_cast<UINT>(GetToolBarCtrl().GetButtonCount());
    for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
        state.m_nID = GetItemID(static_cast<int>(state.m_nIndex));
        state.DoUpdate(pTarget, bDisableIfNoHndler);
    }
}
