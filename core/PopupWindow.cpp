#include "core/PopupWindow.h"

#include "core/DrawingHelpers.h"

using namespace dayvane;

namespace {
constexpr DWORD kPopupExStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TOPMOST;
constexpr UINT kShowFlags = SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW;
} // namespace

IMPLEMENT_DYNAMIC(CPopupWnd, CWnd)

BEGIN_MESSAGE_MAP(CPopupWnd, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_MESSAGE(WM_PRINTCLIENT, &CPopupWnd::OnPrintClient)
ON_WM_MOUSEACTIVATE()
END_MESSAGE_MAP()

BOOL CPopupWnd::CreatePopup(LPCTSTR lpszClass, DWORD dwStyle, const CRect& rcScreen, CWnd* pOwner)
{
    const std::weak_ptr<char> object = m_life.Watch();
    if (!CreateEx(kPopupExStyle, lpszClass, "", WS_POPUP | dwStyle, rcScreen, pOwner, 0)) {
        if (!object.expired()) {
            // A hook refused the window after it had become ours; no last message comes for it.
            Detach();
            PostNcDestroy();
        }
        return FALSE;
    }
    m_access.Listen(*this);
    // Created visible it would take the activation, and the control lose the focus.
    ::SetWindowPos(m_hWnd, HWND_TOPMOST, 0, 0, 0, 0, kShowFlags);
    if (object.expired()) {
        return FALSE;
    }
    // The system reports the window itself; this reports what stands in it.
    ::NotifyWinEvent(EVENT_OBJECT_SHOW, m_hWnd, OBJID_CLIENT, CHILDID_SELF);
    return !object.expired();
}

LRESULT CPopupWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (message == WM_DESTROY) {
        ::NotifyWinEvent(EVENT_OBJECT_HIDE, m_hWnd, OBJID_CLIENT, CHILDID_SELF);
    }
    if (m_access.Answer(*this, message, wParam, lParam, result)) {
        return result;
    }
    const WindowAlive alive(this, m_life);
    result = CWnd::WindowProc(message, wParam, lParam);
    if (alive) {
        m_access.Follow();
    }
    return result;
}

void CPopupWnd::Close()
{
    if (m_hWnd) {
        DestroyWindow();
    } else {
        PostNcDestroy();
    }
}

void CPopupWnd::PostNcDestroy()
{
    OnGone();
    delete this;
}

void CPopupWnd::OnPaint()
{
    CPaintDC dc(this);
    CMemDC memory(&dc);
    const SaveDcScope saved(&memory);
    DrawPopup(&memory);
}

BOOL CPopupWnd::OnEraseBkgnd(CDC*)
{
    return TRUE; // the whole client area is painted off screen
}

LRESULT CPopupWnd::OnPrintClient(WPARAM wParam, LPARAM)
{
    CDC* pDC = CDC::FromHandle(reinterpret_cast<HDC>(wParam));
    const SaveDcScope saved(pDC);
    DrawPopup(pDC);
    return 0;
}

int CPopupWnd::OnMouseActivate(CWnd*, UINT, UINT)
{
    return MA_NOACTIVATE;
}

CRect dayvane::WorkAreaAt(const CRect& screenRect)
{
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    if (::GetMonitorInfo(::MonitorFromRect(&screenRect, MONITOR_DEFAULTTONEAREST), &info)) {
        return info.rcWork;
    }
    return CRect(0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
}
