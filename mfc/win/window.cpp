// CWnd: handles and objects, creation and destruction, and the operations that are more than one call of the system.
#include "afximpl.h"

#include <algorithm>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

namespace {

constexpr char kChildClassName[] = "AfxWnd";

HWND ParentOrOwner(HWND hWnd)
{
    return (::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD) != 0 ? ::GetParent(hWnd) : ::GetWindow(hWnd, GW_OWNER);
}

HWND FindDescendant(HWND hWnd, int nID, bool onlyPermanent)
{
    for (HWND child = ::GetTopWindow(hWnd); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (::GetDlgCtrlID(child) == nID && (!onlyPermanent || CWnd::FromHandlePermanent(child))) {
            return child;
        }
    }
    for (HWND child = ::GetTopWindow(hWnd); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (HWND found = FindDescendant(child, nID, onlyPermanent)) {
            return found;
        }
    }
    return nullptr;
}

BOOL ModifyLong(HWND hWnd, int index, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    const DWORD before = static_cast<DWORD>(::GetWindowLong(hWnd, index));
    const DWORD after = (before & ~dwRemove) | dwAdd;
    if (before == after) {
        return FALSE;
    }
    ::SetWindowLong(hWnd, index, static_cast<LONG>(after));
    if (nFlags != 0) {
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    }
    return TRUE;
}

} // namespace

// Handles and objects

CWnd::~CWnd()
{
    if (this == &wndTop || this == &wndBottom || this == &wndTopMost || this == &wndNoTopMost) {
        return;
    }
    if (m_hWnd) {
        DestroyWindow();
        Detach();
    }
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd)
{
    auto& windows = AfxState().windows;
    if (!hWnd) {
        return nullptr;
    }
    if (CWnd* pWnd = windows.Permanent(hWnd)) {
        return pWnd;
    }
    if (CWnd* pWnd = windows.Temporary(hWnd)) {
        return pWnd;
    }
    auto pWnd = std::make_unique<CWnd>();
    pWnd->m_hWnd = hWnd;
    return windows.SetTemporary(hWnd, std::move(pWnd));
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd)
{
    return AfxState().windows.Permanent(hWnd);
}

BOOL CWnd::Attach(HWND hWndNew)
{
    ASSERT(!m_hWnd);
    if (!hWndNew) {
        return FALSE;
    }
    AfxState().windows.SetPermanent(hWndNew, this);
    m_hWnd = hWndNew;
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND hWnd = m_hWnd;
    if (hWnd) {
        AfxState().windows.RemovePermanent(hWnd, this);
    }
    m_hWnd = nullptr;
    return hWnd;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    return SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID)));
}

// Creation and destruction

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (!cs.lpszClass) {
        WNDCLASS wc = {};
        wc.style = CS_DBLCLKS;
        wc.lpfnWndProc = ::DefWindowProc;
        wc.hInstance = AfxLibraryHandle();
        wc.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
        wc.lpszClassName = kChildClassName;
        if ((cs.style & WS_CHILD) == 0 || !AfxRegisterClass(&wc)) {
            return FALSE;
        }
        cs.lpszClass = kChildClassName;
        cs.hInstance = wc.hInstance;
    }
    return TRUE;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                    int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam)
{
    CREATESTRUCT cs = {};
    cs.dwExStyle = dwExStyle;
    cs.lpszClass = lpszClassName;
    cs.lpszName = lpszWindowName;
    cs.style = static_cast<LONG>(dwStyle);
    cs.x = x;
    cs.y = y;
    cs.cx = nWidth;
    cs.cy = nHeight;
    cs.hwndParent = hWndParent;
    cs.hMenu = nIDorHMenu;
    cs.hInstance = AfxGetInstanceHandle();
    cs.lpCreateParams = lpParam;
    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }
    HWND hWnd = nullptr;
    bool untouched = false;
    {
        AfxCreationHook hook(this);
        hWnd = ::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x, cs.y,
                                cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
        untouched = hook.Waiting();
    }
    if (untouched) {
        PostNcDestroy(); // as at the end of a window that was
    }
    return hWnd != nullptr;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, SafeHwnd(pParentWnd), reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)),
                    lpParam);
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID, CCreateContext* pContext)
{
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, pContext);
}

BOOL CWnd::DestroyWindow()
{
    const HWND hWnd = m_hWnd;
    if (!hWnd) {
        return FALSE;
    }
    const BOOL destroyed = ::DestroyWindow(hWnd);
    // The object may be gone by now; if it is not, it must not keep a handle that means nothing.
    if (FromHandlePermanent(hWnd) == this && !::IsWindow(hWnd)) {
        Detach();
    }
    return destroyed;
}

void CWnd::OnNcDestroy()
{
    CWinThread* pThread = AfxGetThread();
    if (pThread && pThread->m_pMainWnd == this) {
        pThread->m_pMainWnd = nullptr;
        ::PostQuitMessage(0);
    }
    if (m_bModalLoop) {
        EndModalLoop(-1);
    }
    const LONG_PTR procedure = ::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC);
    Default();
    WNDPROC* pSuper = GetSuperWndProcAddr();
    // Somebody else's subclassing on top of ours stays as it is.
    if (*pSuper && ::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC) == procedure) {
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(*pSuper));
    }
    *pSuper = nullptr;
    Detach();
    PostNcDestroy();
}

// Style, text, size and place

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ModifyLong(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ModifyLong(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

void CWnd::GetWindowText(CString& rString) const
{
    const int length = ::GetWindowTextLength(m_hWnd);
    ::GetWindowText(m_hWnd, rString.GetBuffer(length + 1), length + 1);
    rString.ReleaseBuffer();
}

int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    rString.Empty();
    if (HWND hWnd = ::GetDlgItem(m_hWnd, nID)) {
        FromHandle(hWnd)->GetWindowText(rString);
    }
    return rString.GetLength();
}

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    HWND hWndOver = pAlternateOwner ? pAlternateOwner->m_hWnd : ParentOrOwner(m_hWnd);
    const bool child = (GetStyle() & WS_CHILD) != 0;
    CRect window;
    GetWindowRect(&window);
    CRect over;
    CRect area;
    if (child) {
        const HWND hWndParent = ::GetParent(m_hWnd);
        ::GetClientRect(hWndParent, &area);
        ::GetClientRect(hWndOver, &over);
        ::MapWindowPoints(hWndOver, hWndParent, reinterpret_cast<LPPOINT>(static_cast<LPRECT>(&over)), 2);
    } else {
        if (hWndOver && (!::IsWindowVisible(hWndOver) || ::IsIconic(hWndOver))) {
            hWndOver = nullptr;
        }
        MONITORINFO monitor = {};
        monitor.cbSize = sizeof(monitor);
        ::GetMonitorInfo(::MonitorFromWindow(hWndOver ? hWndOver : m_hWnd, MONITOR_DEFAULTTOPRIMARY), &monitor);
        area = monitor.rcWork;
        over = area;
        if (hWndOver) {
            ::GetWindowRect(hWndOver, &over);
        }
    }
    const int left = (over.left + over.right) / 2 - window.Width() / 2;
    const int top = (over.top + over.bottom) / 2 - window.Height() / 2;
    const int x = std::max<int>(std::min<int>(left, area.right - window.Width()), area.left);
    const int y = std::max<int>(std::min<int>(top, area.bottom - window.Height()), area.top);
    SetWindowPos(nullptr, x, y, -1, -1, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Scroll bars

CScrollBar* CWnd::GetScrollBarCtrl(int) const
{
    return nullptr;
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    lpScrollInfo->cbSize = sizeof(*lpScrollInfo);
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw)
{
    lpScrollInfo->cbSize = sizeof(*lpScrollInfo);
    ::SetScrollInfo(m_hWnd, nBar, lpScrollInfo, bRedraw);
    return TRUE;
}

int CWnd::GetScrollLimit(int nBar)
{
    SCROLLINFO info = {};
    if (!GetScrollInfo(nBar, &info, SIF_RANGE | SIF_PAGE)) {
        return 0;
    }
    return info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0);
}

// Painting, boxes

int CWnd::ReleaseDC(CDC* pDC)
{
    const HDC hDC = pDC->m_hDC;
    AfxState().contexts.DeleteTemp(hDC, [](CDC& dc) { dc.m_hDC = dc.m_hAttribDC = nullptr; });
    return ::ReleaseDC(m_hWnd, hDC);
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType)
{
    return ::MessageBox(m_hWnd, lpszText, lpszCaption ? lpszCaption : AfxGetAppName(), nType);
}

// Children, parents and owners

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const
{
    return FromHandle(FindDescendant(m_hWnd, nID, bOnlyPerm != FALSE));
}

CWnd* CWnd::GetTopLevelParent() const
{
    HWND hWnd = m_hWnd;
    while (HWND hWndNext = ParentOrOwner(hWnd)) {
        hWnd = hWndNext;
    }
    return FromHandle(hWnd);
}

CWnd* CWnd::GetTopLevelOwner() const
{
    HWND hWnd = ::GetAncestor(m_hWnd, GA_ROOT);
    while (HWND hWndNext = ::GetWindow(hWnd, GW_OWNER)) {
        hWnd = hWndNext;
    }
    return FromHandle(hWnd);
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    HWND child = ::GetTopWindow(m_hWnd);
    while (child) {
        const HWND next = ::GetWindow(child, GW_HWNDNEXT);
        CWnd* pWnd = FromHandlePermanent(child);
        if (pWnd) {
            AfxCallWndProc(pWnd, child, message, wParam, lParam);
        } else if (!bOnlyPerm) {
            ::SendMessage(child, message, wParam, lParam);
        }
        if (bDeep && ::IsWindow(child)) {
            FromHandle(child)->SendMessageToDescendants(message, wParam, lParam, bDeep, bOnlyPerm);
        }
        child = next;
    }
}

// Messages about to be dispatched

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd; hWnd = ::GetParent(hWnd)) {
        CWnd* pWnd = FromHandlePermanent(hWnd);
        if (pWnd && pWnd->PreTranslateMessage(pMsg)) {
            return TRUE;
        }
        if (hWnd == hWndStop) {
            break;
        }
    }
    return FALSE;
}
