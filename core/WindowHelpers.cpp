#include "core/WindowHelpers.h"

#include <algorithm>

namespace dayvane {

CRect ClientRectOf(const CWnd& window)
{
    CRect client(0, 0, 0, 0);
    ::GetClientRect(window.m_hWnd, &client);
    return client;
}

std::u16string TextOfWindow(HWND hWnd)
{
    std::wstring text(static_cast<size_t>(::GetWindowTextLengthW(hWnd)) + 1, L'\0');
    text.resize(static_cast<size_t>(::GetWindowTextW(hWnd, &text[0], static_cast<int>(text.size()))));
    return std::u16string(text.begin(), text.end());
}

void RegisterControlClass(LPCTSTR lpszClass, HBRUSH hBackground)
{
    WNDCLASS wc = {};
    if (::GetClassInfo(AfxGetInstanceHandle(), lpszClass, &wc)) {
        return;
    }
    wc.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    wc.lpfnWndProc = ::DefWindowProc;
    wc.hInstance = AfxGetInstanceHandle();
    wc.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    wc.hbrBackground = hBackground;
    wc.lpszClassName = lpszClass;
    if (!AfxRegisterClass(&wc)) {
        AfxThrowResourceException();
    }
}

void SetVertScrollBar(CWnd& window, int minimum, int maximum, int position)
{
    SCROLLINFO info = {};
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = minimum;
    info.nMax = maximum;
    info.nPage = 1;
    info.nPos = position;
    window.SetScrollInfo(SB_VERT, &info, TRUE);
}

int DpiOfWindow(HWND hWnd)
{
    typedef UINT(WINAPI * GetDpiFunction)(HWND);
    static const auto getDpi = reinterpret_cast<GetDpiFunction>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("user32.dll"), "GetDpiForWindow")));
    if (const UINT dpi = getDpi ? getDpi(hWnd) : 0) {
        return static_cast<int>(dpi);
    }
    return ScreenDpi();
}

int ScreenDpi()
{
    CClientDC screen(nullptr);
    return screen.GetDeviceCaps(LOGPIXELSX);
}

int AnnouncedDpi(HWND hWnd, UINT message, WPARAM wParam)
{
    return message == kDpiChanged ? LOWORD(wParam) : DpiOfWindow(hWnd);
}

int ClampedDpi(int dpi)
{
    constexpr int least = 48;
    constexpr int most = 768;
    return std::clamp(dpi, least, most);
}

bool ShowsFocus(HWND hWnd)
{
    return ::GetFocus() == hWnd && (::SendMessage(hWnd, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) == 0;
}

void ShowFocusCues(HWND hWnd)
{
    ::SendMessage(hWnd, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
}

NMHDR NotifyHeader(const CWnd& window, int code)
{
    NMHDR header = {};
    header.hwndFrom = window.m_hWnd;
    header.idFrom = window.m_hWnd ? window.GetDlgCtrlID() : 0;
    header.code = static_cast<UINT>(code);
    return header;
}

LRESULT NotifyParent(const CWnd& window, const NMHDR& header)
{
    const HWND hParent = window.m_hWnd ? ::GetParent(window.m_hWnd) : nullptr;
    return hParent ? ::SendMessage(hParent, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header)) : 0;
}

} // namespace dayvane
