// Frame windows: what fills them, where commands go, menus and titles.
#include "afximpl.h"

#include <afxext.h>
#include <afxpriv.h>

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

const RECT CFrameWnd::rectDefault = {CW_USEDEFAULT, CW_USEDEFAULT, 0, 0};

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_ERASEBKGND()
ON_WM_SETFOCUS()
ON_WM_INITMENUPOPUP()
ON_WM_MENUSELECT()
ON_MESSAGE(WM_SETMESSAGESTRING, &CFrameWnd::OnSetMessageString)
ON_COMMAND_EX(ID_VIEW_TOOLBAR, &CFrameWnd::OnBarCheck)
ON_COMMAND_EX(ID_VIEW_STATUS_BAR, &CFrameWnd::OnBarCheck)
ON_UPDATE_COMMAND_UI(ID_VIEW_TOOLBAR, &CFrameWnd::OnUpdateControlBarMenu)
ON_UPDATE_COMMAND_UI(ID_VIEW_STATUS_BAR, &CFrameWnd::OnUpdateControlBarMenu)
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXTA, 0, 0xFFFF, &CFrameWnd::OnToolTipText)
END_MESSAGE_MAP()

namespace {

constexpr UINT kFirstSystemCommand = 0xF000; // menu items from here on are the system's

HICON LoadFrameIcon(UINT nID)
{
    const LPCTSTR name = MAKEINTRESOURCE(nID);
    return ::LoadIcon(AfxFindResourceHandle(name, RT_GROUP_ICON), name);
}

} // namespace

// Creation

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (!cs.lpszClass) {
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW),
                                           reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_WINDOW + 1)));
    }
    return TRUE;
}

BOOL CFrameWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                       LPCTSTR lpszMenuName, DWORD dwExStyle, CCreateContext* pContext)
{
    HMENU hMenu = nullptr;
    if (lpszMenuName) {
        hMenu = ::LoadMenu(AfxFindResourceHandle(lpszMenuName, RT_MENU), lpszMenuName);
        if (!hMenu) {
            PostNcDestroy();
            return FALSE;
        }
    }
    m_strTitle = lpszWindowName;
    m_hMenuDefault = hMenu;
    return CWnd::CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                          rect.right - rect.left, rect.bottom - rect.top, SafeHwnd(pParentWnd), hMenu, pContext);
}

BOOL CFrameWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParentWnd, CCreateContext* pContext)
{
    CString strings;
    CString title;
    if (strings.LoadString(nIDResource)) {
        AfxExtractSubString(title, strings, CDocTemplate::windowTitle);
    }
    if (title.IsEmpty()) {
        title = AfxGetAppName();
    }
    const LPCTSTR name = MAKEINTRESOURCE(nIDResource);
    const bool hasMenu = ::FindResource(AfxFindResourceHandle(name, RT_MENU), name, RT_MENU) != nullptr;
    const LPCTSTR className = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW),
                                                  reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_WINDOW + 1)),
                                                  LoadFrameIcon(nIDResource));
    if (!Create(className, title, dwDefaultStyle, rectDefault, pParentWnd, hasMenu ? name : nullptr, 0, pContext)) {
        return FALSE; // the object is gone
    }
    LoadAccelTable(name);
    if (!pContext) {
        SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
    }
    return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCTSTR lpszResourceName)
{
    m_hAccelTable = ::LoadAccelerators(AfxFindResourceHandle(lpszResourceName, RT_ACCELERATOR), lpszResourceName);
    return m_hAccelTable != nullptr;
}

int CFrameWnd::OnCreate(LPCREATESTRUCT lpcs)
{
    if (CWnd::OnCreate(lpcs) == -1 || !OnCreateClient(lpcs, static_cast<CCreateContext*>(lpcs->lpCreateParams))) {
        return -1;
    }
    RecalcLayout();
    return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT, CCreateContext* pContext)
{
    return !pContext || !pContext->m_pNewViewClass || CreateView(pContext);
}

CWnd* CFrameWnd::CreateView(CCreateContext* pContext, UINT nID)
{
    CWnd* pView = static_cast<CWnd*>(pContext->m_pNewViewClass->CreateObject());
    // A view that could not be made has deleted itself.
    return pView && pView->Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, CRect(0, 0, 0, 0), this, nID, pContext)
               ? pView
               : nullptr;
}

void CFrameWnd::InitialUpdateFrame(CDocument* pDoc, BOOL bMakeVisible)
{
    if (!m_pViewActive) {
        CWnd* pWnd = GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE);
        if (pWnd && pWnd->IsKindOf(RUNTIME_CLASS(CView))) {
            SetActiveView(static_cast<CView*>(pWnd), FALSE);
        }
    }
    if (bMakeVisible) {
        SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
        const CWinApp* pApp = AfxGetApp();
        ActivateFrame(pApp && pApp->m_pMainWnd == this ? pApp->m_nCmdShow : -1);
        if (m_pViewActive) {
            m_pViewActive->OnActivateView(TRUE, m_pViewActive, m_pViewActive);
        }
    }
    if (pDoc) {
        pDoc->UpdateFrameCounts();
    }
    OnUpdateFrameTitle(TRUE);
}

void CFrameWnd::ActivateFrame(int nCmdShow)
{
    if (nCmdShow == -1) {
        nCmdShow = IsIconic() ? SW_RESTORE : IsWindowVisible() ? SW_SHOW : SW_SHOWNORMAL;
    }
    ShowWindow(nCmdShow);
    BringWindowToTop();
}

// The end

void CFrameWnd::OnClose()
{
    CDocument* pDocument = GetActiveDocument();
    CWinApp* pApp = AfxGetApp();
    const bool mainFrame = pApp && pApp->m_pMainWnd == this;
    if (pDocument ? !pDocument->CanCloseFrame(this) : mainFrame && !pApp->SaveAllModified()) {
        return;
    }
    if (mainFrame) {
        ShowWindow(SW_HIDE);
    }
    DestroyWindow();
}

void CFrameWnd::OnDestroy()
{
    // A menu in use goes with its window; one put aside does not.
    if (m_hMenuDefault && ::GetMenu(m_hWnd) != m_hMenuDefault) {
        ::DestroyMenu(m_hMenuDefault);
    }
    m_hMenuDefault = nullptr;
    CWnd::OnDestroy();
}

// Layout and focus

void CFrameWnd::RecalcLayout(BOOL)
{
    if (m_inLayout || !m_hWnd) {
        return;
    }
    m_inLayout = true;
    RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST);
    m_inLayout = false;
}

void CWnd::RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, LPRECT lpRectLeft)
{
    AFX_SIZEPARENTPARAMS layout = {};
    layout.bPlace = !lpRectLeft;
    GetClientRect(&layout.rect);
    HWND hWndLeftOver = nullptr;
    for (HWND hWnd = ::GetTopWindow(m_hWnd); hWnd; hWnd = ::GetWindow(hWnd, GW_HWNDNEXT)) {
        const UINT nID = static_cast<UINT>(::GetDlgCtrlID(hWnd)) & 0xFFFF;
        if (nID == nIDLeftOver) {
            hWndLeftOver = hWnd;
        } else if (nID >= nIDFirst && nID <= nIDLast && FromHandlePermanent(hWnd)) {
            ::SendMessage(hWnd, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
        }
    }
    const CRect left(layout.rect);
    if (lpRectLeft) {
        *lpRectLeft = left;
    } else if (hWndLeftOver) {
        ::SetWindowPos(hWndLeftOver, nullptr, left.left, left.top, left.Width(), left.Height(),
                       SWP_NOACTIVATE | SWP_NOZORDER);
    }
}

void CFrameWnd::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    if (nType != SIZE_MINIMIZED) {
        RecalcLayout();
    }
}

BOOL CFrameWnd::OnEraseBkgnd(CDC* pDC)
{
    return m_pViewActive ? TRUE : CWnd::OnEraseBkgnd(pDC); // the view covers the frame
}

void CFrameWnd::OnSetFocus(CWnd* pOldWnd)
{
    if (m_pViewActive) {
        m_pViewActive->SetFocus();
    } else {
        CWnd::OnSetFocus(pOldWnd);
    }
}

CFrameWnd* CWnd::GetParentFrame() const
{
    CWnd* pWnd = m_hWnd ? GetParent() : nullptr;
    while (pWnd && !pWnd->IsFrameWnd()) {
        pWnd = pWnd->GetParent();
    }
    return static_cast<CFrameWnd*>(pWnd);
}

// The active view

CDocument* CFrameWnd::GetActiveDocument()
{
    return m_pViewActive ? m_pViewActive->GetDocument() : nullptr;
}

void CFrameWnd::SetActiveView(CView* pViewNew, BOOL bNotify)
{
    CView* pViewOld = m_pViewActive;
    if (pViewNew == pViewOld) {
        return;
    }
    m_pViewActive = nullptr;
    if (pViewOld) {
        pViewOld->OnActivateView(FALSE, pViewNew, pViewOld);
    }
    if (m_pViewActive) {
        return; // somebody has set another one meanwhile
    }
    m_pViewActive = pViewNew;
    if (pViewNew && bNotify) {
        pViewNew->OnActivateView(TRUE, pViewNew, pViewOld);
    }
}

BOOL CFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (m_pViewActive && m_pViewActive->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) {
        return TRUE;
    }
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) {
        return TRUE;
    }
    CWinApp* pApp = AfxGetApp();
    return pApp && pApp->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg)) {
        return TRUE;
    }
    const bool key = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
    return key && m_hAccelTable && ::TranslateAccelerator(m_hWnd, m_hAccelTable, pMsg);
}

// Title and menus

void CFrameWnd::OnUpdateFrameTitle(BOOL bAddToTitle)
{
    if ((GetStyle() & FWS_ADDTOTITLE) == 0) {
        return;
    }
    CDocument* pDocument = bAddToTitle ? GetActiveDocument() : nullptr;
    const CString title = pDocument ? pDocument->GetTitle() + " - " + m_strTitle : m_strTitle;
    CString shown;
    GetWindowText(shown);
    if (shown != title) {
        SetWindowText(title);
    }
}

void CFrameWnd::OnInitMenuPopup(CMenu* pMenu, UINT, BOOL bSysMenu)
{
    if (bSysMenu || !pMenu) {
        return;
    }
    CCmdUI state;
    state.m_pMenu = pMenu;
    state.m_nIndexMax = pMenu->GetMenuItemCount();
    for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
        const int index = static_cast<int>(state.m_nIndex);
        state.m_nID = pMenu->GetMenuItemID(index);
        state.m_pSubMenu = nullptr;
        BOOL autoEnable = m_bAutoMenuEnable && state.m_nID < kFirstSystemCommand;
        if (state.m_nID == static_cast<UINT>(-1)) {
            // The item opens a submenu and goes by the name of its first item.
            state.m_pSubMenu = pMenu->GetSubMenu(index);
            state.m_nID = state.m_pSubMenu ? state.m_pSubMenu->GetMenuItemID(0) : 0;
            autoEnable = FALSE;
        }
        if (state.m_nID != 0 && state.m_nID != static_cast<UINT>(-1)) {
            state.DoUpdate(this, autoEnable);
        }
        // A handler may have added or removed items.
        const UINT count = pMenu->GetMenuItemCount();
        if (count < state.m_nIndexMax) {
            state.m_nIndex -= state.m_nIndexMax - count;
        }
        state.m_nIndexMax = count;
    }
}

void CFrameWnd::OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu)
{
    const bool closed = nFlags == 0xFFFF && !hSysMenu;
    const bool command = (nFlags & (MF_POPUP | MF_SEPARATOR | MF_SYSMENU)) == 0;
    SendMessage(WM_SETMESSAGESTRING, closed ? AFX_IDS_IDLEMESSAGE : command ? nItemID : 0);
    CWnd::OnMenuSelect(nItemID, nFlags, hSysMenu);
}
