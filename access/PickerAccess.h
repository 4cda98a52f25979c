// The date selectors and popups for programs that read them aloud.
#pragma once

#include "AccessWindow.h"

class CMoreListWnd;
class CPeriodGridCtrl;
class CPeriodSelCtrl;
class CYearMonthPickerCtrl;
class CYearMonthPopup;

namespace dayvane {

class PeriodGridAccess : public AccessWindow
{
public:
    explicit PeriodGridAccess(CPeriodGridCtrl& ctrl);

    AccessWords WordsOf(int node) override;
    AccessId Focus() override;
    std::vector<AccessId> Selection() override;
    HRESULT Select(int node, long flags) override;
    HRESULT Act(int node) override;

protected:
    const CalendarTexts* Words() const override;
    AccessTree MakeTree() override;
    std::vector<long long> Contents() override;
    void Gone() override { m_pCtrl = nullptr; }

private:
    CPeriodGridCtrl* m_pCtrl;
};

// The list that runs while the mouse holds a title.
class PeriodSelAccess : public AccessWindow
{
public:
    explicit PeriodSelAccess(CPeriodSelCtrl& popup);

    AccessWords WordsOf(int node) override;
    long RoleOf(int node) override;
    AccessId Focus() override;
    std::vector<AccessId> Selection() override;

protected:
    const CalendarTexts* Words() const override;
    AccessTree MakeTree() override;
    std::vector<long long> Contents() override;
    bool IsPopup() const override { return true; }
    void Gone() override { m_pPopup = nullptr; }

private:
    CPeriodSelCtrl* m_pPopup;
};

class YearMonthPickerAccess : public AccessWindow
{
public:
    explicit YearMonthPickerAccess(CYearMonthPickerCtrl& picker);

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
    void Gone() override { m_pPicker = nullptr; }

private:
    CYearMonthPickerCtrl* m_pPicker;
};

class YearMonthPopupAccess : public AccessWindow
{
public:
    explicit YearMonthPopupAccess(CYearMonthPopup& popup);

    AccessWords WordsOf(int node) override;
    AccessId Focus() override;
    std::vector<AccessId> Selection() override { return {Focus()}; }
    HRESULT Select(int node, long flags) override;
    HRESULT Act(int node) override { return ClickCentre(node); }

protected:
    const CalendarTexts* Words() const override;
    AccessTree MakeTree() override;
    std::vector<long long> Contents() override;
    bool IsPopup() const override { return true; }
    void Gone() override { m_pPopup = nullptr; }

private:
    CYearMonthPopup* m_pPopup;
};

class MoreListAccess : public AccessWindow
{
public:
    explicit MoreListAccess(CMoreListWnd& list);

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
    bool IsPopup() const override { return true; }
    void Gone() override { m_pList = nullptr; }

private:
    CMoreListWnd* m_pList;
};

} // namespace dayvane
