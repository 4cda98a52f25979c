// CWnd: the way of a message through an object, and the handlers that do more than the window's default.
#include "afximpl.h"

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_CTLCOLOR()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND hWnd = m_hWnd;
    LRESULT result = 0;
    if (OnWndMsg(message, wParam, lParam, &result)) {
        return result;
    }
    // A handler that declined may have deleted the object all the same.
    if (FromHandlePermanent(hWnd) != this) {
        return 0;
    }
    // Nor does a message go to the default twice: a wheel turn would scroll the parent two times.
    if (message == WM_MOUSEWHEEL && AfxState().current.defaultDone) {
        return 0;
    }
    return DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message == WM_COMMAND) {
        const BOOL handled = OnCommand(wParam, lParam);
        *pResult = handled ? 1 : 0;
        return handled;
    }
    if (message == WM_NOTIFY) {
        const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
        return header->hwndFrom && OnNotify(wParam, lParam, pResult);
    }
    const UINT reflected = message >= WM_REFLECT_BASE && message < WM_REFLECT_BASE + WM_USER ? WM_REFLECT_BASE : 0;
    const UINT plain = message - reflected;
    const bool colour = plain >= WM_CTLCOLORMSGBOX && plain <= WM_CTLCOLORSTATIC;
    const AFX_MSGMAP_ENTRY* entry =
        AfxFindMessageEntry(GetMessageMap(), reflected + (colour ? static_cast<UINT>(WM_CTLCOLOR) : plain));
    if (!entry) {
        return FALSE;
    }
    AFX_MSG_ARGS arguments;
    arguments.message = plain;
    arguments.wParam = wParam;
    arguments.lParam = lParam;
    if (!entry->dispatch(this, arguments)) {
        return FALSE;
    }
    *pResult = arguments.result;
    return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const WNDPROC super = *GetSuperWndProcAddr();
    return super ? ::CallWindowProc(super, m_hWnd, message, wParam, lParam)
                 : ::DefWindowProc(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    AFX_STATE& state = AfxState();
    const MSG msg = state.current.msg;
    state.current.defaultDone = true;
    return m_hWnd ? DefWindowProc(msg.message, msg.wParam, msg.lParam) : 0;
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar* pScrollBar)
{
    if (!pScrollBar || !pScrollBar->SendChildNotifyLastMsg()) {
        Default();
    }
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar* pScrollBar)
{
    if (!pScrollBar || !pScrollBar->SendChildNotifyLastMsg()) {
        Default();
    }
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT)
{
    LRESULT result = 0;
    if (!pWnd || !pWnd->SendChildNotifyLastMsg(&result)) {
        result = Default();
    }
    return reinterpret_cast<HBRUSH>(result);
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct->CtlType == ODT_MENU || !ReflectLastMsg(lpDrawItemStruct->hwndItem)) {
        Default();
    }
}

void CWnd::OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    // The message does not name the window, only its identifier.
    CWnd* pWnd = lpMeasureItemStruct->CtlType != ODT_MENU ? GetDescendantWindow(nIDCtl, TRUE) : nullptr;
    if (!pWnd || !pWnd->SendChildNotifyLastMsg()) {
        Default();
    }
}

CScrollBar* AfxScrollBarOf(LPARAM hWnd)
{
    return static_cast<CScrollBar*>(CWnd::FromHandle(reinterpret_cast<HWND>(hWnd)));
}

// Modal loops

int CWnd::RunModalLoop(DWORD)
{
    m_bModalLoop = TRUE;
    m_nModalResult = -1;
    bool idle = true;
    while (ContinueModal()) {
        MSG msg;
        if (idle && !::PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE)) {
            idle = false;
            if (const HWND hWndParent = ::GetParent(m_hWnd)) {
                ::SendMessage(hWndParent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
            }
            continue;
        }
        if (!AfxPumpMessage()) {
            ::PostQuitMessage(0); // for the outer loop
            m_bModalLoop = FALSE;
            return -1;
        }
        idle = true;
    }
    return m_nModalResult;
}

void CWnd::EndModalLoop(int nResult)
{
    m_nModalResult = nResult;
    if (m_bModalLoop) {
        m_bModalLoop = FALSE;
        ::PostThreadMessage(::GetCurrentThreadId(), WM_NULL, 0, 0); // wakes the loop
    }
}
