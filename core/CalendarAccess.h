// How a window answers programs that read it aloud (WM_GETOBJECT). What they get is made above the controls, in
// access/, which registers itself here; a window only has an AccessHook that it asks.
#pragma once

#include <afxwin.h>

#include <memory>

namespace dayvane {

struct ItemTimes;

// What a program that reads aloud gets of one window. Made when the first one asks, disconnected before the window
// ends.
class WindowAccess
{
public:
    virtual ~WindowAccess() = default;
    // The window ends: what programs still have of it answers that it is not connected any more.
    virtual void Disconnect() = 0;
    // The answer to WM_GETOBJECT; 0: none.
    virtual LRESULT GetObject(WPARAM wParam, LPARAM lParam) = 0;
    // A message has been handled: reports the focus, selection, items and texts that have changed since.
    virtual void Follow() = 0;
    // A key has moved the current item, or one end of it.
    virtual void ItemMoved(const ItemTimes& times, bool isWholeItem) = 0;
    virtual void CannotMove() = 0;
};

// nullptr: there is nothing to say of the window.
using WindowAccessFactory = std::shared_ptr<WindowAccess> (*)(CWnd& window);
void SetWindowAccess(WindowAccessFactory factory);

// A member of a window. Its window asks Answer with every message first, and calls Follow after handling one.
class AccessHook
{
public:
    AccessHook() = default;
    AccessHook(const AccessHook&) = delete;
    AccessHook& operator=(const AccessHook&) = delete;
    ~AccessHook() { Close(); }

    // Whether the message was WM_GETOBJECT and has an answer. WM_DESTROY ends what programs have.
    bool Answer(CWnd& window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    // As if a program had asked, where one listens: for a popup, which programs learn of by events alone.
    void Listen(CWnd& window);
    // What follows reports to it; nullptr: nobody has asked. A listener's code may end the window meanwhile.
    std::shared_ptr<WindowAccess> Get() const { return m_access; }
    void Follow()
    {
        if (const std::shared_ptr<WindowAccess> access = m_access) {
            access->Follow();
        }
    }

private:
    void Close();

    std::shared_ptr<WindowAccess> m_access;
};

} // namespace dayvane
