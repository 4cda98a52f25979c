// Whether a window and its object have survived something that may have run the host's code.
#pragma once

#include <afxwin.h>

#include <memory>

namespace dayvane {

// A member of a window's object, by which guards learn that the object has been deleted.
class WindowLife
{
public:
    WindowLife() : m_token(std::make_shared<char>()) {}
    WindowLife(const WindowLife&) = delete;
    WindowLife& operator=(const WindowLife&) = delete;
    // For a destructor that still runs code of its own: every guard made so far says no.
    void End() { m_token = std::make_shared<char>(); }
    std::weak_ptr<char> Watch() const { return m_token; }

private:
    std::shared_ptr<char> m_token;
};

// { const WindowAlive alive(this, m_life); FireNotifyClick(); if (!alive) return; ... }
// False once the object is deleted, or no longer has the window that it had at the construction of the guard.
class WindowAlive
{
public:
    WindowAlive(const CWnd* pWnd, const WindowLife& life) : m_token(life.Watch()), m_pWnd(pWnd), m_hWnd(pWnd->m_hWnd) {}
    explicit operator bool() const { return !m_token.expired() && m_pWnd->m_hWnd == m_hWnd; }

private:
    std::weak_ptr<char> m_token;
    const CWnd* m_pWnd;
    HWND m_hWnd;
};

} // namespace dayvane
