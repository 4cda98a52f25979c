#include "core/WatchWindow.h"

#include <algorithm>

namespace dayvane {

WatchWindow::WatchWindow(const char* name, WatchWindow*& slot) : m_slot(slot)
{
    CreateEx(0, AfxRegisterWndClass(0), name, WS_POPUP, CRect(0, 0, 0, 0), nullptr, 0);
    m_slot = this;
}

WatchWindow::~WatchWindow()
{
    m_slot = nullptr;
}

bool WatchWindow::Has(const Watch* watch) const
{
    return std::find(m_watches.begin(), m_watches.end(), watch) != m_watches.end();
}

void WatchWindow::Add(const Watch& watch)
{
    if (!Has(&watch)) {
        m_watches.push_back(&watch);
    }
}

void WatchWindow::Remove(const Watch& watch)
{
    m_watches.erase(std::remove(m_watches.begin(), m_watches.end(), &watch), m_watches.end());
    EndIfUnwatched();
}

void WatchWindow::CallAll()
{
    if (m_calling) {
        return;
    }
    m_calling = true;
    const std::vector<const Watch*> watches = m_watches; // each may end others
    for (const Watch* watch : watches) {
        if (Has(watch)) {
            const Watch onChange = *watch; // it may end its own watch
            onChange();
        }
    }
    m_calling = false;
    EndIfUnwatched();
}

void WatchWindow::EndIfUnwatched()
{
    if (m_watches.empty() && !m_calling) {
        delete this;
    }
}

} // namespace dayvane
