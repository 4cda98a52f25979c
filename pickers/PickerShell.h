// What the windows of all date selectors share: guards against hosts that destroy them, keys, the monitor's work area.
#pragma once

#include "PickerKey.h"

#include <afxwin.h>

#include <memory>

namespace dayvane {

// A member of a window object by which guards learn of the object's end.
class WindowLife
{
public:
    WindowLife() : m_token(std::make_shared<char>()) {}
    WindowLife(const WindowLife&) = delete;
    WindowLife& operator=(const WindowLife&) = delete;
    std::weak_ptr<char> Watch() const { return m_token; }

private:
    std::shared_ptr<char> m_token;
};

// Tells, after something that may have run the host's code, whether the window and its object are still there:
// { const WindowAlive alive(this, m_life); FireNotifyClick(); if (!alive) return; ... }
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

// None for a key that the selectors do not know.
PickerKey PickerKeyOf(UINT virtualKey);
bool IsKeyDown(int virtualKey);

// The work area of the monitor nearest to a rectangle, screen pixels.
CRect WorkAreaAt(const CRect& screenRect);

// Shows a popup above all others without activating it: the focus stays where it is.
void ShowPopup(HWND hWnd);

// Asks for one WM_MOUSELEAVE.
void TrackMouseLeave(HWND hWnd);

// Gives the mouse back if it is this window's.
void ReleaseCaptureOf(HWND hWnd);

} // namespace dayvane
