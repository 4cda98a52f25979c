// The message loop, the application object, resources, window classes.
#include "afximpl.h"

#include <afxpriv.h>

#include <set>
#include <string>

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

BEGIN_MESSAGE_MAP(CWinApp, CCmdTarget)
ON_COMMAND(ID_APP_EXIT, &CWinApp::OnAppExit)
END_MESSAGE_MAP()

// The loop

namespace {

void DeleteTempMaps()
{
    AFX_STATE& state = AfxState();
    state.windows.DeleteTemps([](CWnd& wnd) { wnd.m_hWnd = nullptr; });
    state.contexts.DeleteTemps([](CDC& dc) { dc.m_hDC = dc.m_hAttribDC = nullptr; });
    state.gdiObjects.DeleteTemps([](CGdiObject& object) { object.m_hObject = nullptr; });
    state.menus.DeleteTemps([](CMenu& menu) { menu.m_hMenu = nullptr; });
}

BOOL PumpOne(MSG& msg, CWinThread* pThread)
{
    if (::GetMessage(&msg, nullptr, 0, 0) <= 0) {
        return FALSE;
    }
    const bool done = pThread ? pThread->PreTranslateMessage(&msg) : AfxPreTranslateMessage(&msg);
    if (!done) {
        ::TranslateMessage(&msg);
        ::DispatchMessage(&msg);
    }
    return TRUE;
}

constexpr UINT kSystemTimer = 0x0118; // caret blinking; not in the system's headers

} // namespace

void AfxLockTempMaps()
{
    ++AfxState().tempMapLocks;
}

BOOL AfxUnlockTempMaps(BOOL bDeleteTemps)
{
    int& locks = AfxState().tempMapLocks;
    if (locks > 0) {
        --locks;
    }
    if (locks == 0 && bDeleteTemps) {
        DeleteTempMaps();
    }
    return locks != 0;
}

int CWinThread::Run()
{
    BOOL idle = TRUE;
    LONG idleCount = 0;
    for (;;) {
        while (idle && !::PeekMessage(&m_msgCur, nullptr, 0, 0, PM_NOREMOVE)) {
            if (!OnIdle(idleCount++)) {
                idle = FALSE;
            }
        }
        do {
            if (!PumpMessage()) {
                return ExitInstance();
            }
            if (IsIdleMessage(&m_msgCur)) {
                idle = TRUE;
                idleCount = 0;
            }
        } while (::PeekMessage(&m_msgCur, nullptr, 0, 0, PM_NOREMOVE));
    }
}

BOOL CWinThread::PumpMessage()
{
    return PumpOne(m_msgCur, this);
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    CWnd* pMainWnd = AfxGetMainWnd();
    if (CWnd::WalkPreTranslateTree(CWnd::SafeHwnd(pMainWnd), pMsg)) {
        return TRUE;
    }
    if (!pMainWnd) {
        return FALSE;
    }
    // A message to no window, or to one outside the main window's tree, is offered to the main window too.
    const bool outside = !pMsg->hwnd || CWnd::FromHandle(pMsg->hwnd)->GetTopLevelParent() != pMainWnd;
    return outside && pMainWnd->PreTranslateMessage(pMsg);
}

BOOL CWinThread::OnIdle(LONG lCount)
{
    if (lCount <= 0) {
        if (CWnd* pMainWnd = GetMainWnd()) {
            pMainWnd->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE, 0, TRUE, TRUE);
        }
    } else {
        AfxLockTempMaps();
        AfxUnlockTempMaps();
    }
    return lCount <= 0;
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg)
{
    return pMsg->message != WM_PAINT && pMsg->message != kSystemTimer && pMsg->message != WM_MOUSEMOVE &&
           pMsg->message != WM_NCMOUSEMOVE;
}

BOOL AfxPreTranslateMessage(MSG* pMsg)
{
    CWinThread* pThread = AfxGetThread();
    return pThread ? pThread->PreTranslateMessage(pMsg) : CWnd::WalkPreTranslateTree(nullptr, pMsg);
}

BOOL AfxPumpMessage()
{
    if (CWinThread* pThread = AfxGetThread()) {
        return pThread->PumpMessage();
    }
    MSG msg;
    return PumpOne(msg, nullptr);
}

// The application

CWinApp::CWinApp(LPCTSTR lpszAppName) : m_hInstance(::GetModuleHandle(nullptr)), m_pszAppName(lpszAppName)
{
    AfxState().pApp = this;
}

CWinApp::~CWinApp()
{
    for (CDocTemplate* pTemplate : m_templates) {
        delete pTemplate;
    }
    ::GlobalFree(m_hDevNames);
    ::GlobalFree(m_hDevMode);
    if (AfxState().pApp == this) {
        AfxState().pApp = nullptr;
    }
}

int CWinApp::Run()
{
    return CWinThread::Run();
}

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const
{
    return ::LoadCursor(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const
{
    return ::LoadIcon(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT)
{
    constexpr UINT iconMask = MB_ICONHAND | MB_ICONQUESTION | MB_ICONEXCLAMATION | MB_ICONASTERISK;
    if ((nType & iconMask) == 0) {
        const UINT buttons = nType & MB_TYPEMASK;
        nType |= buttons == MB_OK || buttons == MB_OKCANCEL ? MB_ICONEXCLAMATION : MB_ICONQUESTION;
    }
    HWND hWndOwner = ::GetActiveWindow();
    if (!hWndOwner) {
        hWndOwner = CWnd::SafeHwnd(m_pMainWnd);
    }
    return ::MessageBox(hWndOwner, lpszPrompt, AfxGetAppName(), nType);
}

void CWinApp::OnAppExit()
{
    if (m_pMainWnd) {
        m_pMainWnd->SendMessage(WM_CLOSE);
    }
}

CWinApp* AfxGetApp()
{
    return AfxState().pApp;
}

CWinThread* AfxGetThread()
{
    return AfxState().pApp;
}

CWnd* AfxGetMainWnd()
{
    CWinThread* pThread = AfxGetThread();
    return pThread ? pThread->GetMainWnd() : nullptr;
}

HINSTANCE AfxGetInstanceHandle()
{
    return ::GetModuleHandle(nullptr);
}

LPCTSTR AfxGetAppName()
{
    const CWinApp* pApp = AfxGetApp();
    return pApp && pApp->m_pszAppName ? pApp->m_pszAppName : "";
}

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    if (CWinApp* pApp = AfxGetApp()) {
        return pApp->DoMessageBox(lpszText, nType, nIDHelp);
    }
    return ::MessageBox(::GetActiveWindow(), lpszText, AfxGetAppName(), nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    CString text;
    return text.LoadString(nIDPrompt) ? AfxMessageBox(text, nType, nIDHelp) : -1;
}

BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE, LPTSTR lpCmdLine, int nCmdShow)
{
    const INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_WIN95_CLASSES | ICC_DATE_CLASSES};
    ::InitCommonControlsEx(&controls);
    if (CWinApp* pApp = AfxGetApp()) {
        pApp->m_hInstance = hInstance;
        pApp->m_lpCmdLine = lpCmdLine;
        pApp->m_nCmdShow = nCmdShow;
    }
    return TRUE;
}

void AfxWinTerm()
{
    AfxUnlockTempMaps();
}

int AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    CWinApp* pApp = AfxGetApp();
    int result = -1;
    if (pApp && AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow) && pApp->InitApplication()) {
        if (pApp->InitInstance()) {
            result = pApp->Run();
        } else {
            if (pApp->m_pMainWnd) {
                pApp->m_pMainWnd->DestroyWindow();
            }
            result = pApp->ExitInstance();
        }
    }
    AfxWinTerm();
    return result;
}

// Resources and window classes

HINSTANCE AfxGetResourceHandle()
{
    const HINSTANCE hInstance = AfxState().hResource;
    return hInstance ? hInstance : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE hInstResource)
{
    AfxState().hResource = hInstResource;
}

HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType)
{
    const HINSTANCE hInstance = AfxGetResourceHandle();
    if (!::FindResource(hInstance, lpszName, lpszType)) {
        const HINSTANCE hLibrary = AfxLibraryHandle();
        if (::FindResource(hLibrary, lpszName, lpszType)) {
            return hLibrary;
        }
    }
    return hInstance;
}

BOOL CString::LoadString(UINT nID)
{
    // A string lives in the block of sixteen that its number falls in; blocks are numbered from 1.
    const HINSTANCE hInstance = AfxFindResourceHandle(MAKEINTRESOURCE(nID / 16 + 1), RT_STRING);
    for (int size = 256;; size *= 2) {
        const int length = ::LoadString(hInstance, nID, GetBuffer(size), size);
        if (length < size - 1) {
            ReleaseBuffer(length);
            return length > 0;
        }
    }
}

BOOL AfxRegisterClass(WNDCLASS* lpWndClass)
{
    WNDCLASS known;
    return ::GetClassInfo(lpWndClass->hInstance, lpWndClass->lpszClassName, &known) || ::RegisterClass(lpWndClass) != 0;
}

LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    static std::set<std::string>& names = *new std::set<std::string>;
    char text[128];
    ::wsprintf(text, "Afx:%p:%x:%p:%p:%p", AfxGetInstanceHandle(), nClassStyle, hCursor, hbrBackground, hIcon);
    const LPCTSTR name = names.insert(text).first->c_str();
    WNDCLASS wc = {};
    wc.style = nClassStyle;
    wc.lpfnWndProc = ::DefWindowProc;
    wc.hInstance = AfxGetInstanceHandle();
    wc.hIcon = hIcon;
    wc.hCursor = hCursor;
    wc.hbrBackground = hbrBackground;
    wc.lpszClassName = name;
    if (!AfxRegisterClass(&wc)) {
        AfxThrowResourceException();
    }
    return name;
}
