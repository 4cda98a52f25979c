#include "planner/ChangedDialog.h"

#include "planner/resource.h"

const UINT CChangedDialog::IDD_CHANGED_RESOURCE = IDD_CHANGED;

BEGIN_MESSAGE_MAP(CChangedDialog, CPlannerDialog)
ON_COMMAND_RANGE(IDC_CHANGED_RELOAD, IDC_CHANGED_SAVE_AS, &CChangedDialog::OnChoice)
END_MESSAGE_MAP()

BOOL CChangedDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    planner::SetItemUtf8(*this, IDC_QUESTION, m_question);
    return TRUE;
}

int CChangedDialog::Ask(const std::string& question, CWnd* pParent)
{
    if (planner::CurrentAnswerer()) {
        return planner::CurrentAnswerer()(question, IDC_CHANGED_MERGE);
    }
    return static_cast<int>(CChangedDialog(question, pParent).DoModal());
}
