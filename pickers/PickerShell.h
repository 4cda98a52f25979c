// What the windows of all date selectors share: keys and the mouse.
#pragma once

#include "../core/WindowAlive.h"
#include "PickerKey.h"

#include <afxwin.h>

namespace dayvane {

// None for a key that the selectors do not know.
PickerKey PickerKeyOf(UINT virtualKey);
bool IsKeyDown(int virtualKey);

// Whether the window has the focus and shows it: by the system's rule not before the keyboard is used.
bool ShowsFocus(HWND hWnd);
// The keyboard is used: from now on all windows of this top-level window show the focus.
void ShowFocusCues(HWND hWnd);

// Asks for one WM_MOUSELEAVE.
void TrackMouseLeave(HWND hWnd);

// Gives the mouse back if it is this window's.
void ReleaseCaptureOf(HWND hWnd);

} // namespace dayvane
