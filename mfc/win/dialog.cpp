// Dialog boxes. A modal one is a modeless one with a message loop of its own, so that PreTranslateMessage works in it.
#include "afximpl.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

namespace {

// What the system's dialog class calls for each message, after the object has seen it.
INT_PTR CALLBACK DialogProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_INITDIALOG) {
        return FALSE;
    }
    const MSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    return AfxGuarded(msg, [hWnd]() -> LRESULT {
        CDialog* pDialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(hWnd));
        return !pDialog || pDialog->OnInitDialog();
    });
}

constexpr UINT kFirstCommand = 0x8000; // identifiers below belong to controls
constexpr UINT kLastCommand = 0xEFFF;

} // namespace

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_pParentWnd(pParentWnd)
{
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(MAKEINTRESOURCE(nIDTemplate), pParentWnd)
{
}

LPCDLGTEMPLATE CDialog::FindTemplate() const
{
    if (m_lpDialogTemplate) {
        return m_lpDialogTemplate;
    }
    const HINSTANCE hInstance = AfxFindResourceHandle(m_lpszTemplateName, RT_DIALOG);
    const HRSRC hResource = ::FindResource(hInstance, m_lpszTemplateName, RT_DIALOG);
    return hResource ? static_cast<LPCDLGTEMPLATE>(::LockResource(::LoadResource(hInstance, hResource))) : nullptr;
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    m_lpszTemplateName = lpszTemplateName;
    return CreateIndirect(FindTemplate(), pParentWnd);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    if (!pParentWnd) {
        pParentWnd = AfxGetMainWnd();
    }
    HWND hWnd = nullptr;
    bool untouched = true;
    if (lpDialogTemplate) {
        AfxCreationHook hook(this);
        // The wide call makes controls that hold texts beyond the system's code page.
        hWnd = ::CreateDialogIndirectParamW(AfxGetResourceHandle(), lpDialogTemplate, SafeHwnd(pParentWnd), &DialogProc,
                                            reinterpret_cast<LPARAM>(lpDialogInit));
        untouched = hook.Waiting();
    }
    if (untouched) {
        PostNcDestroy();
    }
    return hWnd != nullptr;
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void*)
{
    m_lpDialogTemplate = lpDialogTemplate;
    if (!m_pParentWnd) {
        m_pParentWnd = pParentWnd;
    }
    return lpDialogTemplate != nullptr;
}

INT_PTR CDialog::DoModal()
{
    const LPCDLGTEMPLATE dialogTemplate = FindTemplate();
    if (!dialogTemplate) {
        return -1;
    }
    CWnd* pOwner = m_pParentWnd ? m_pParentWnd : AfxGetMainWnd();
    const HWND hWndOwner = pOwner ? ::GetAncestor(pOwner->m_hWnd, GA_ROOT) : nullptr;
    const bool disabled = hWndOwner && ::IsWindowEnabled(hWndOwner);
    if (disabled) {
        ::EnableWindow(hWndOwner, FALSE);
    }
    // EndDialog in OnInitDialog ends the box before it was shown.
    m_bModalLoop = TRUE;
    m_nModalResult = -1;
    CWnd* pTopOwner = FromHandle(hWndOwner);
    if (CreateIndirect(dialogTemplate, pTopOwner) && m_bModalLoop) {
        ShowWindow(SW_SHOW);
        RunModalLoop();
    }
    m_bModalLoop = FALSE;
    if (m_hWnd) {
        SetWindowPos(nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }
    if (disabled) {
        ::EnableWindow(hWndOwner, TRUE);
    }
    if (hWndOwner && ::GetActiveWindow() == m_hWnd) {
        ::SetActiveWindow(hWndOwner);
    }
    DestroyWindow();
    return m_nModalResult;
}

void CDialog::EndDialog(int nResult)
{
    if (m_bModalLoop) {
        EndModalLoop(nResult);
    }
    ::EndDialog(m_hWnd, nResult);
}

BOOL CDialog::OnInitDialog()
{
    return TRUE;
}

void CDialog::OnOK()
{
    EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM)
{
    PreInitDialog();
    const DWORD placed = DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN;
    const bool centre = (GetStyle() & (placed | WS_CHILD)) == 0;
    CRect before;
    GetWindowRect(&before);
    const LRESULT result = Default(); // calls OnInitDialog
    if (centre && m_hWnd && !IsWindowVisible()) {
        CRect after;
        GetWindowRect(&after);
        if (after == before) {
            CenterWindow();
        }
    }
    return result;
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    const UINT message = pMsg->message;
    const bool input =
        (message >= WM_KEYFIRST && message <= WM_KEYLAST) || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
    return CWnd::PreTranslateMessage(pMsg) || (input && IsDialogMessage(pMsg));
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) {
        return TRUE;
    }
    const bool command = nCode == CN_COMMAND || static_cast<UINT>(nCode) == CN_UPDATE_COMMAND_UI;
    if (!command || nID < kFirstCommand || nID > kLastCommand) {
        return FALSE;
    }
    CWnd* pOwner = GetParent();
    if (pOwner && pOwner->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) {
        return TRUE;
    }
    CWinThread* pThread = AfxGetThread();
    return pThread && pThread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}
