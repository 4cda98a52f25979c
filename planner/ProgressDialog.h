// How far a long work has come, with a button that ends it. Comes up only when the work takes long enough to be
// waited for.
#pragma once

#include "planner/PlannerDialog.h"

#include <string>

class CProgressDialog : public CPlannerDialog
{
public:
    explicit CProgressDialog(const std::string& what); // UTF-8, in the user's language
    ~CProgressDialog() override;

    // To be called from within the work. False: the user has ended it.
    bool Step(std::size_t done, std::size_t all);
    // Milliseconds from the first step to the dialog; tests take less.
    static DWORD s_patience;

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override { m_isCancelled = true; }

private:
    void Open();

    const std::string m_what;
    const DWORD m_begin;
    HWND m_disabled = nullptr; // the main window, while this one is open
    bool m_isCancelled = false;
};
