// Shared state of the framework's own sources; not for programs.
#pragma once

#include <afxwin.h>

#include <memory>
#include <unordered_map>

// Which object serves which handle. Permanent entries belong to objects attached to the handle; temporary objects are
// made for handles that nobody owns, answered until DeleteTemps.
template <class Handle, class Object>
class AfxHandleMap
{
public:
    Object* Permanent(Handle handle) const
    {
        const auto found = m_permanent.find(handle);
        return found != m_permanent.end() ? found->second : nullptr;
    }
    void SetPermanent(Handle handle, Object* object) { m_permanent[handle] = object; }
    // Only if the entry is that object's.
    void RemovePermanent(Handle handle, const Object* object)
    {
        const auto found = m_permanent.find(handle);
        if (found != m_permanent.end() && found->second == object) {
            m_permanent.erase(found);
        }
    }
    Object* Temporary(Handle handle) const
    {
        const auto found = m_temporary.find(handle);
        return found != m_temporary.end() ? found->second.get() : nullptr;
    }
    Object* SetTemporary(Handle handle, std::unique_ptr<Object> object)
    {
        return (m_temporary[handle] = std::move(object)).get();
    }
    // `release` takes the handle from the object, so that the object's end leaves the handle alone.
    template <class Release>
    void DeleteTemps(Release release)
    {
        for (auto& entry : m_temporary) {
            release(*entry.second);
        }
        m_temporary.clear();
    }
    template <class Release>
    void DeleteTemp(Handle handle, Release release)
    {
        const auto found = m_temporary.find(handle);
        if (found != m_temporary.end()) {
            release(*found->second);
            m_temporary.erase(found);
        }
    }

private:
    std::unordered_map<Handle, Object*> m_permanent;
    std::unordered_map<Handle, std::unique_ptr<Object>> m_temporary;
};

// The message being handled; saved and restored around nested ones.
struct AFX_CURRENT_MESSAGE
{
    MSG msg = {};
    bool defaultDone = false; // Default() has run for it
};

// One per process: everything here is used by the user-interface thread alone.
struct AFX_STATE
{
    AfxHandleMap<HWND, CWnd> windows;
    AfxHandleMap<HDC, CDC> contexts;
    AfxHandleMap<HGDIOBJ, CGdiObject> gdiObjects;
    AfxHandleMap<HMENU, CMenu> menus;
    int tempMapLocks = 0;

    AFX_CURRENT_MESSAGE current;
    CWnd* pWndInit = nullptr; // waits for its window, which is being created
    CWinApp* pApp = nullptr;
    HINSTANCE hResource = nullptr; // null: the program
    int waitCursorDepth = 0;
    HCURSOR hcurWaitRestore = nullptr;
    AFX_EXCEPTION_REPORTER reporter = nullptr;
};

// Never destroyed, for objects of the program may outlive any order of destruction.
AFX_STATE& AfxState();
HINSTANCE AfxLibraryHandle();

// Takes over the first window that is created while it lives.
class AfxCreationHook
{
public:
    explicit AfxCreationHook(CWnd* pWnd);
    ~AfxCreationHook();
    AfxCreationHook(const AfxCreationHook&) = delete;
    AfxCreationHook& operator=(const AfxCreationHook&) = delete;
    // Whether no window was created, so that no WM_NCDESTROY will ever reach the object.
    bool Waiting() const { return AfxState().pWndInit == m_pWnd; }

private:
    CWnd* m_pWnd;
    CWnd* m_pWndBefore;
    HHOOK m_hook;
};

// Runs `call`; an exception that it lets out is reported as coming from the message, and `failed` is answered.
LRESULT AfxReportException(CException* e, const MSG& msg);
template <class Call>
LRESULT AfxGuarded(const MSG& msg, Call call)
{
    try {
        return call();
    } catch (CException* e) {
        const LRESULT result = AfxReportException(e, msg);
        e->Delete();
        return result;
    } catch (...) {
        return AfxReportException(nullptr, msg);
    }
}

const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP* pMap, UINT message);
const AFX_MSGMAP_ENTRY* AfxFindCommandEntry(const AFX_MSGMAP* pMap, UINT message, UINT nCode, UINT nID);
