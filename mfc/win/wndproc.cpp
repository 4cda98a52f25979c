// The one window procedure, the take-over of windows being created, and exceptions that leave a handler.
#include "afximpl.h"

#include <cstdio>

AFX_STATE& AfxState()
{
    static AFX_STATE* const state = new AFX_STATE;
    return *state;
}

HINSTANCE AfxLibraryHandle()
{
    HMODULE module = nullptr;
    ::GetModuleHandleEx(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                        reinterpret_cast<LPCTSTR>(&AfxLibraryHandle), &module);
    return module;
}

LRESULT AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    AFX_STATE& state = AfxState();
    const AFX_CURRENT_MESSAGE outer = state.current;
    const MSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    state.current = {msg, false};
    const LRESULT result = AfxGuarded(msg, [&] { return pWnd->WindowProc(message, wParam, lParam); });
    // After its last message a window must not keep an object, whatever a handler did.
    if (message == WM_NCDESTROY && state.windows.Permanent(hWnd) == pWnd) {
        pWnd->Detach();
    }
    state.current = outer;
    return result;
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = AfxState().windows.Permanent(hWnd);
    return pWnd ? AfxCallWndProc(pWnd, hWnd, message, wParam, lParam) : ::DefWindowProc(hWnd, message, wParam, lParam);
}

const MSG* PASCAL CWnd::GetCurrentMessage()
{
    MSG& msg = AfxState().current.msg;
    const DWORD position = ::GetMessagePos();
    msg.time = static_cast<DWORD>(::GetMessageTime());
    msg.pt = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    return &msg;
}

// Creation

namespace {

void TakeOver(CWnd* pWnd, HWND hWnd, WNDPROC* pOldProc)
{
    const WNDPROC oldProc =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtr(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (oldProc != &AfxWndProc) {
        *pOldProc = oldProc;
    }
}

// The system makes a window of the input method's class beside a program's first window.
bool IsInputMethodWindow(HWND hWnd)
{
    char name[8] = {};
    ::GetClassName(hWnd, name, sizeof(name));
    return (::GetClassLongPtr(hWnd, GCL_STYLE) & CS_IME) != 0 || ::lstrcmpi(name, "IME") == 0;
}

} // namespace

// The hook runs before the window gets its first message.
class AfxCreation
{
public:
    static LRESULT CALLBACK Filter(int code, WPARAM wParam, LPARAM lParam)
    {
        CWnd* pWnd = AfxState().pWndInit;
        const HWND hWnd = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_CREATEWND && pWnd && !IsInputMethodWindow(hWnd)) {
            AfxState().pWndInit = nullptr;
            const MSG msg = {hWnd, WM_NCCREATE, 0, 0, 0, {0, 0}};
            AfxGuarded(msg, [&]() -> LRESULT {
                pWnd->Attach(hWnd);
                pWnd->PreSubclassWindow();
                return 0;
            });
            if (pWnd->m_hWnd == hWnd) {
                TakeOver(pWnd, hWnd, pWnd->GetSuperWndProcAddr());
            }
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }
};

AfxCreationHook::AfxCreationHook(CWnd* pWnd)
    : m_pWnd(pWnd), m_pWndBefore(AfxState().pWndInit),
      m_hook(::SetWindowsHookEx(WH_CBT, &AfxCreation::Filter, nullptr, ::GetCurrentThreadId()))
{
    if (!m_hook) {
        AfxThrowMemoryException();
    }
    AfxState().pWndInit = pWnd;
}

AfxCreationHook::~AfxCreationHook()
{
    ::UnhookWindowsHookEx(m_hook);
    AfxState().pWndInit = m_pWndBefore;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!hWnd || FromHandlePermanent(hWnd) || !Attach(hWnd)) {
        return FALSE;
    }
    PreSubclassWindow();
    TakeOver(this, hWnd, GetSuperWndProcAddr());
    return TRUE;
}

HWND CWnd::UnsubclassWindow()
{
    WNDPROC* pSuper = GetSuperWndProcAddr();
    if (m_hWnd && *pSuper) {
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(*pSuper));
        *pSuper = nullptr;
    }
    return Detach();
}

// Exceptions

namespace {

CString DescribeException(const CException* e)
{
    struct Description
    {
        CRuntimeClass* type;
        LPCTSTR text;
    };
    const Description descriptions[] = {
        {RUNTIME_CLASS(CMemoryException), "Out of memory."},
        {RUNTIME_CLASS(CResourceException), "A required resource was not available."},
        {RUNTIME_CLASS(CInvalidArgException), "An argument was out of its range."},
        {RUNTIME_CLASS(CNotSupportedException), "The operation is not supported."},
    };
    if (!e) {
        return "Internal application error.";
    }
    for (const Description& description : descriptions) {
        if (e->IsKindOf(description.type)) {
            return description.text;
        }
    }
    return CString("Internal application error: ") + e->GetRuntimeClass()->m_lpszClassName;
}

void LogException(const CException* e, const MSG& msg)
{
    CString line;
    line.Format("exception in the handler of message 0x%04X: %s\n", msg.message,
                static_cast<LPCTSTR>(DescribeException(e)));
    ::OutputDebugString(line);
    std::fputs(line, stderr);
}

LRESULT ResultOfFailed(const MSG& msg)
{
    if (msg.message == WM_PAINT) {
        ::ValidateRect(msg.hwnd, nullptr); // or the system would ask for ever
    }
    return msg.message == WM_CREATE ? -1 : 0;
}

} // namespace

AFX_EXCEPTION_REPORTER AfxSetExceptionReporter(AFX_EXCEPTION_REPORTER pfnReporter)
{
    std::swap(AfxState().reporter, pfnReporter);
    return pfnReporter;
}

LRESULT AfxReportException(CException* e, const MSG& msg)
{
    const AFX_STATE& state = AfxState();
    try {
        if (state.reporter) {
            state.reporter(e, &msg);
        } else if (state.pApp && e) {
            return state.pApp->ProcessWndProcException(e, &msg);
        } else {
            LogException(e, msg);
        }
    } catch (...) {
        LogException(nullptr, msg);
    }
    return ResultOfFailed(msg);
}

LRESULT CWinThread::ProcessWndProcException(CException* e, const MSG* pMsg)
{
    // A box would be painted over and asked for again; a failed creation is reported by the caller of CreateEx.
    const bool silent = pMsg->message == WM_PAINT || pMsg->message == WM_CREATE || pMsg->message == WM_NCCREATE;
    if (silent || e->IsKindOf(RUNTIME_CLASS(CUserException))) {
        LogException(e, *pMsg);
    } else {
        AfxMessageBox(DescribeException(e), MB_OK | MB_ICONEXCLAMATION);
    }
    return ResultOfFailed(*pMsg);
}
