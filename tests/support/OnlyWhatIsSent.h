// Keeps the system's timers and pointer away from a test.
#pragma once

#include <afxwin.h>

namespace testsupport {

// While it lives, timers and the pointer of the system do nothing in this thread: they come when the machine has time
// for them. A test sends their messages itself.
class OnlyWhatIsSent
{
public:
    OnlyWhatIsSent() : m_hook(::SetWindowsHookEx(WH_GETMESSAGE, &TakeAway, nullptr, ::GetCurrentThreadId())) {}
    ~OnlyWhatIsSent() { ::UnhookWindowsHookEx(m_hook); }
    OnlyWhatIsSent(const OnlyWhatIsSent&) = delete;
    OnlyWhatIsSent& operator=(const OnlyWhatIsSent&) = delete;

private:
    static LRESULT CALLBACK TakeAway(int code, WPARAM wParam, LPARAM lParam)
    {
        UINT& message = reinterpret_cast<MSG*>(lParam)->message;
        if (message == WM_TIMER || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message == WM_MOUSELEAVE) {
            message = WM_NULL;
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK m_hook;
};

} // namespace testsupport
