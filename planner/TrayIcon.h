// The planner's sign beside the clock, when the user asks for it: a minimised window then leaves the task bar, and
// reminders come all the same.
#pragma once

#include <afxwin.h>

// Sent to the window; lParam is the mouse message over the icon.
constexpr UINT WM_PLANNER_TRAY = WM_APP + 4;

class TrayIcon
{
public:
    ~TrayIcon() { Hide(); }
    // Also after the task bar was made anew. False: there is none.
    bool Show(HWND window, HICON icon, const wchar_t* tip);
    void Hide();
    bool IsShown() const { return m_window != nullptr; }
    // The message of a task bar that has been made anew.
    static UINT TaskBarMade();

private:
    HWND m_window = nullptr;
};
