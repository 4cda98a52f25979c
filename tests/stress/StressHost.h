// A host that puts random events on one calendar view, misbehaves in notifications, and keeps a plain list of what the
// control's store must hold.
#pragma once

#include "CuriousClient.h"
#include "StressScript.h"

#include "core/CalendarCtrl.h"
#include "support/RecordingParent.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace stress {

// The store as a plain list, kept by the virtual operations that a view is asked for.
struct Model
{
    std::vector<tagCC_ITEM> items;
};

// A view under test and the way to reach what it protects.
class Subject
{
public:
    virtual ~Subject() = default;
    virtual CCalendarCtrl& Ctrl() = 0;
    virtual bool Create(CWnd* parent, const CRect& rect) = 0;
    virtual void Step() {}                           // before each event
    virtual bool HasSource() const { return false; } // the store is not what the host has put into it
    Model model;
};

// The views by name; null for a name that does not exist.
std::unique_ptr<Subject> MakeSubject(const std::string& view);
const std::vector<std::string>& ViewNames();

class StressHost
{
public:
    explicit StressHost(const std::string& view);
    ~StressHost();

    void Run(const Event& event);
    // Empty when the store equals the model, else what differs first.
    std::string Difference();

private:
    void Recreate();
    bool Input(const Event& event);
    void Call(const Event& event);
    void Mouse(UINT message, const Event& event, WPARAM keys);
    void ItemEvent(const Event& event);
    void Option(const Event& event);
    LRESULT OnNotification(const testsupport::Notification& report);
    void ActHostile();
    HWND Window() const { return m_subject ? m_subject->Ctrl().m_hWnd : nullptr; }

    std::string m_view;
    testsupport::RecordingParent m_parent;
    CuriousClient m_client;
    std::unique_ptr<Subject> m_subject;
    std::vector<std::unique_ptr<Subject>> m_buried; // subjects that a notification destroyed
    int m_hostile = -1;                             // what the host does at the next notification
    bool m_acting = false;
};

} // namespace stress
