// The objects that programs get: IAccessible of a part of a window, made when it is asked for. An object knows its part
// by what it stands for and its window weakly: when either is gone it answers CO_E_OBJNOTCONNECTED, and does so until
// the last program lets it go. oleacc.dll is loaded when the first program asks.
#pragma once

#include "AccessWindow.h"

namespace dayvane {

// The answer to WM_GETOBJECT with the object of the whole window; 0: the system has no oleacc.dll.
LRESULT AnswerWithObject(const std::shared_ptr<AccessWindow>& window, WPARAM wParam);

// How many objects there are now, in the process.
long AccessObjectCount();

} // namespace dayvane
