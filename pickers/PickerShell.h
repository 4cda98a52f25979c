// What the windows of all date selectors share: keys and the mouse.
#pragma once

#include "../core/WindowAlive.h"
#include "../core/WindowHelpers.h"
#include "PickerKey.h"

#include <afxwin.h>

namespace dayvane {

// None for a key that the selectors do not know.
PickerKey PickerKeyOf(UINT virtualKey);
bool IsKeyDown(int virtualKey);

// Asks for one WM_MOUSELEAVE.
void TrackMouseLeave(HWND hWnd);

// Gives the mouse back if it is this window's.
void ReleaseCaptureOf(HWND hWnd);

} // namespace dayvane
