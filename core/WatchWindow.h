// A hidden top-level window for messages that the system sends to such windows only. One of a kind serves all that
// watch, and is there while any do.
#pragma once

#include <afxwin.h>

#include <functional>
#include <vector>

namespace dayvane {

class WatchWindow : public CWnd
{
public:
    using Watch = std::function<void()>; // may end any watch, its own too

    void Add(const Watch& watch); // does nothing when it is there
    void Remove(const Watch& watch);

protected:
    // slot: where the one of its kind is known, nullptr while there is none.
    WatchWindow(const char* name, WatchWindow*& slot);
    ~WatchWindow() override;
    // Calls each watch once; not while that goes on. The window may be gone afterwards.
    void CallAll();
    bool IsCalling() const { return m_calling; }

private:
    bool Has(const Watch* watch) const;
    void EndIfUnwatched();

    WatchWindow*& m_slot;
    std::vector<const Watch*> m_watches;
    bool m_calling = false;
};

} // namespace dayvane
