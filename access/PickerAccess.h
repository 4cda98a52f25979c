// The date selectors and popups for programs that read them aloud.
#pragma once

#include "AccessWindow.h"

class CMoreListWnd;
class CPeriodGridCtrl;
class CPeriodSelCtrl;
class CYearMonthPickerCtrl;
class CYearMonthPopup;

namespace dayvane {

// Of a window of that class, until it ends.
template <class Window>
class AccessOf : public AccessWindow
{
public:
    explicit AccessOf(Window& window) : AccessWindow(window), m_pWindow(&window) {}

protected:
    void Gone() override { m_pWindow = nullptr; }

    Window* m_pWindow;
};

template <class Window>
class PopupAccessOf : public AccessOf<Window>
{
public:
    using AccessOf<Window>::AccessOf;

protected:
    bool IsPopup() const override { return true; }
};

class PeriodGridAccess : public AccessOf<CPeriodGridCtrl>
{
public:
    using AccessOf::AccessOf;

    AccessWords WordsOf(int node) override;
    AccessId Focus() override;
    std::vector<AccessId> Selection() override;
    HRESULT Select(int node, long flags) override;
    HRESULT Act(int node) override;

protected:
    const CalendarTexts* Words() const override;
    AccessTree MakeTree() override;
    std::vector<long long> Contents() override;
};

// The list that runs while the mouse holds a title.
class PeriodSelAccess : public PopupAccessOf<CPeriodSelCtrl>
{
public:
    using PopupAccessOf::PopupAccessOf;

    AccessWords WordsOf(int node) override;
    long RoleOf(int node) override;
    AccessId Focus() override;
    std::vector<AccessId> Selection() override;

protected:
    const CalendarTexts* Words() const override;
    AccessTree MakeTree() override;
    std::vector<long long> Contents() override;
};

class YearMonthPickerAccess : public AccessOf<CYearMonthPickerCtrl>
{
public:
    using AccessOf::AccessOf;

    AccessWords WordsOf(int node) override;
    long RoleOf(int node) override;
    long StateOf(int node) override;
    AccessId Focus() override { return {}; }
    std::vector<AccessId> Selection() override { return {}; }
    HRESULT Act(int node) override;

protected:
    const CalendarTexts* Words() const override;
    AccessTree MakeTree() override { return AccessTree(ClientRect()); }
    std::vector<long long> Contents() override;
};

class YearMonthPopupAccess : public PopupAccessOf<CYearMonthPopup>
{
public:
    using PopupAccessOf::PopupAccessOf;

    AccessWords WordsOf(int node) override;
    AccessId Focus() override;
    std::vector<AccessId> Selection() override { return {Focus()}; }
    HRESULT Select(int node, long flags) override;
    HRESULT Act(int node) override { return ClickCentre(node); }

protected:
    const CalendarTexts* Words() const override;
    AccessTree MakeTree() override;
    std::vector<long long> Contents() override;
};

class MoreListAccess : public PopupAccessOf<CMoreListWnd>
{
public:
    using PopupAccessOf::PopupAccessOf;

    AccessWords WordsOf(int node) override;
    long RoleOf(int node) override;
    AccessId Focus() override;
    std::vector<AccessId> Selection() override { return {Focus()}; }
    HRESULT Select(int node, long flags) override;
    HRESULT Act(int node) override;

protected:
    const CalendarTexts* Words() const override;
    AccessTree MakeTree() override;
    std::vector<long long> Contents() override;
};

} // namespace dayvane
