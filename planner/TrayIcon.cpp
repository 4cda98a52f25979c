#include "planner/TrayIcon.h"

#include <shellapi.h>

#include <iterator>

namespace {

NOTIFYICONDATAW RecordOf(HWND window)
{
    NOTIFYICONDATAW record = {};
    record.cbSize = NOTIFYICONDATAW_V2_SIZE;
    record.hWnd = window;
    record.uID = 1;
    return record;
}

} // namespace

UINT TrayIcon::TaskBarMade()
{
    static const UINT message = ::RegisterWindowMessageW(L"TaskbarCreated");
    return message;
}

bool TrayIcon::Show(HWND window, HICON icon, const wchar_t* tip)
{
    NOTIFYICONDATAW record = RecordOf(window);
    record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    record.uCallbackMessage = WM_PLANNER_TRAY;
    record.hIcon = icon;
    ::lstrcpynW(record.szTip, tip, static_cast<int>(std::size(record.szTip)));
    m_window = ::Shell_NotifyIconW(NIM_ADD, &record) ? window : nullptr;
    return IsShown();
}

void TrayIcon::Hide()
{
    if (m_window) {
        NOTIFYICONDATAW record = RecordOf(m_window);
        ::Shell_NotifyIconW(NIM_DELETE, &record);
        m_window = nullptr;
    }
}
