// What one window is for programs that read it aloud: the tree of its parts as it is now, with roles, states and
// actions. The objects that a program gets (AccessObject.h) ask it; it reports to the system what changes.
#pragma once

#include "../core/CalendarAccess.h"
#include "AccessTree.h"
#include "SpokenWords.h"

#include <afxwin.h>
#include <oleacc.h>

#include <memory>
#include <string>
#include <vector>

namespace dayvane {

class AccessWindow : public WindowAccess, public std::enable_shared_from_this<AccessWindow>
{
public:
    // ---- For the window. It hands messages that are questions to GetObject, calls Follow after each other one, and
    // Disconnect at WM_DESTROY.
    static bool IsQuestion(UINT message, LPARAM lParam);
    void Disconnect() override;
    LRESULT GetObject(WPARAM wParam, LPARAM lParam) override;
    void Follow() override;
    void ItemMoved(const ItemTimes&, bool) override {}
    void CannotMove() override {}

    // ---- For the objects. Nothing may be asked of a window that is not connected; an action may disconnect it.
    bool IsConnected() const { return m_hWnd != nullptr; }
    HWND Handle() const { return m_hWnd; }
    const AccessTree& Tree(); // of what is shown now; until the next call
    virtual AccessWords WordsOf(int node) = 0;
    virtual long RoleOf(int node);  // ROLE_SYSTEM_...
    virtual long StateOf(int node); // STATE_SYSTEM_...
    bool HasFocus() const;
    virtual AccessId Focus() = 0; // where the keys go; the root when it is nowhere else
    virtual std::vector<AccessId> Selection() = 0;
    // Both as the mouse would do it, with all notifications to the host. E_ACCESSDENIED: the mouse holds something.
    virtual HRESULT Select(int node, long flags); // SELFLAG_...
    virtual HRESULT Act(int node);                // the default action
    virtual HRESULT SetValue(int node, const std::wstring& text);

    // The numbers by which events name parts: children of the root count from 1, deeper parts get negative numbers.
    long ChildIdOf(const AccessId& id);
    bool IdOfChild(long child, AccessId& id) const;

protected:
    explicit AccessWindow(CWnd& window);

    virtual AccessTree MakeTree() = 0;
    // Differs whenever the tree may; a few numbers.
    virtual std::vector<long long> Contents() = 0;
    // Popups never have the focus, but the keys go to them.
    virtual bool IsPopup() const { return false; }
    virtual void Gone() = 0; // the window's object must not be used any more

    const AccessTree& LastTree() const { return *m_tree; }
    virtual const CalendarTexts* Words() const = 0; // that the control paints; nullptr: those that controls begin with
    // The texts that were set for the process, or those that go with the control's words.
    const AccessTexts& Texts();
    void Notify(DWORD event, const AccessId& id);
    HRESULT ClickCentre(int node); // by the messages of the mouse
    CRect ClientRect() const;

private:
    // What listeners were last notified of.
    struct Announced
    {
        bool hasFocus = false;
        AccessId focus;
        std::vector<AccessId> selection;
        std::vector<long long> contents;
        std::string name;      // of the window
        std::string focusName; // of the part with the focus
        std::string focusValue;
        CRect focusBox = CRect(0, 0, 0, 0);
    };
    Announced LookAround();
    void NotifyFocus(const Announced& before, const Announced& now);

    HWND m_hWnd;
    CalendarTexts m_words; // that m_texts were made for
    std::unique_ptr<AccessTexts> m_texts;
    std::unique_ptr<AccessTree> m_tree;
    std::vector<long long> m_treeContents;
    std::map<AccessId, long> m_childIds;
    std::vector<AccessId> m_childParts; // by -id - 1
    Announced m_announced;
    bool m_isFollowing = false;
    bool m_isAutomated = false; // UI Automation has asked
};

std::wstring WideFromUtf8(const std::string& utf8); // bytes that are no UTF-8 become U+FFFD
std::string Utf8FromWide(const std::wstring& wide); // likewise half a surrogate pair

} // namespace dayvane
