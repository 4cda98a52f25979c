#include "core/CalendarAccess.h"

#include <utility>

namespace dayvane {
namespace {

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
    if (message != WM_GETOBJECT || static_cast<LONG>(lParam) != OBJID_CLIENT || !s_factory) {
        return false;
    }
    if (!m_access) {
        m_access = s_factory(window);
    }
    const std::shared_ptr<WindowAccess> access = m_access;
    result = access ? access->GetObject(wParam) : 0;
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
