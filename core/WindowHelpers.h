// What every control does with its window: class, scroll bar, notifications.
#pragma once

#include <afxwin.h>

#include <string>

namespace dayvane {

CRect ClientRectOf(const CWnd& window); // empty while there is no window
std::u16string TextOfWindow(HWND hWnd);

// Registers the window class of a control, once a process: arrow cursor, double clicks, repainted whole when its size
// changes. A failure throws CResourceException.
void RegisterControlClass(LPCTSTR lpszClass, HBRUSH hBackground = nullptr);

// The vertical scroll bar in units of the caller, with a page of one unit.
void SetVertScrollBar(CWnd& window, int minimum, int maximum, int position);

// The messages of a change of resolution, as new systems send them.
constexpr UINT kDpiChanged = 0x02E0;
constexpr UINT kDpiChangedAfterParent = 0x02E3;
// The resolution that the window is shown at; that of the screen where the system has no other answer.
int DpiOfWindow(HWND hWnd);
int ScreenDpi();
// Messages after which a window may have another resolution, and that one. A top-level window's message says it.
inline bool AnnouncesDpi(UINT message)
{
    return message == WM_CREATE || message == kDpiChanged || message == kDpiChangedAfterParent;
}
int AnnouncedDpi(HWND hWnd, UINT message, WPARAM wParam);
// What a control's SetScale takes: 48 to 768.
int ClampedDpi(int dpi);
// Whether the window has the focus and shows it: by the system's rule not before the keyboard is used.
bool ShowsFocus(HWND hWnd);
// The keyboard is used: from now on all windows of this top-level window show the focus.
void ShowFocusCues(HWND hWnd);

// The header of a notification from the window, all but the code zero while there is none.
NMHDR NotifyHeader(const CWnd& window, int code);
// Sends WM_NOTIFY to the window's parent and returns its answer, 0 without a parent. The window may be gone afterwards.
LRESULT NotifyParent(const CWnd& window, const NMHDR& header);

} // namespace dayvane
