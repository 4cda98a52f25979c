// Asks what to do with a file that another program has changed.
#pragma once

#include "planner/PlannerDialog.h"

class CChangedDialog : public CPlannerDialog
{
public:
    CChangedDialog(const std::string& question, CWnd* pParent)
        : CPlannerDialog(IDD_CHANGED_RESOURCE, pParent), m_question(question)
    {
    }

    // IDC_CHANGED_...; IDCANCEL: nothing.
    static int Ask(const std::string& question, CWnd* pParent);

protected:
    BOOL OnInitDialog() override;
    afx_msg void OnChoice(UINT nID) { EndDialog(static_cast<int>(nID)); }
    DECLARE_MESSAGE_MAP()

private:
    static const UINT IDD_CHANGED_RESOURCE;
    std::string m_question;
};
