// The objects of UI Automation that programs get of a window's parts, beside those of IAccessible: they know patterns
// (grid, table, selection, value, invoke, scroll).
#pragma once

#include "AccessWindow.h"

struct IRawElementProviderSimple;

namespace dayvane {

// The object of a part, to be released. It holds the window's record no longer than the window lives.
IRawElementProviderSimple* MakeAutomationObject(const std::shared_ptr<AccessWindow>& window, const AccessId& id);

// The answer to WM_GETOBJECT with UiaRootObjectId; 0: this Windows has no UI Automation.
LRESULT AnswerWithAutomation(const std::shared_ptr<AccessWindow>& window, WPARAM wParam, LPARAM lParam);

// Notifies the listeners of UI Automation of what NotifyWinEvent has reported to others.
void RaiseAutomation(const std::shared_ptr<AccessWindow>& window, DWORD event, const AccessId& id);

long AutomationObjectCount(); // in all windows

} // namespace dayvane
