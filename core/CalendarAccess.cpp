#include "core/CalendarAccess.h"

#include <utility>

namespace dayvane {
namespace {

constexpr LONG kAutomationRoot = -25; // UiaRootObjectId

WindowAccessFactory s_factory = nullptr;

} // namespace

void SetWindowAccess(WindowAccessFactory factory)
{
    s_factory = factory;
}

bool AccessHook::Answer(CWnd& window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (message == WM_DESTROY) {
        Close();
    }
    // Object identifiers are 32 bits wide, also in a 64-bit parameter.
    const LONG object = static_cast<LONG>(lParam);
    if (message != WM_GETOBJECT || (object != OBJID_CLIENT && object != kAutomationRoot) || !s_factory) {
        return false;
    }
    if (!m_access) {
        m_access = s_factory(window);
    }
    const std::shared_ptr<WindowAccess> access = m_access;
    result = access ? access->GetObject(wParam, lParam) : 0;
    return result != 0;
}

void AccessHook::Listen(CWnd& window)
{
    if (!m_access && s_factory && ::IsWinEventHookInstalled(EVENT_OBJECT_FOCUS)) {
        m_access = s_factory(window);
    }
}

void AccessHook::Close()
{
    if (const std::shared_ptr<WindowAccess> access = std::exchange(m_access, nullptr)) {
        access->Disconnect();
    }
}

} // namespace dayvane
