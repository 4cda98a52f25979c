#include "planner/ScopeDialog.h"

#include "planner/resource.h"

BEGIN_MESSAGE_MAP(CScopeDialog, CPlannerDialog)
ON_COMMAND_RANGE(IDC_SCOPE_THIS, IDC_SCOPE_SERIES, &CScopeDialog::OnChoice)
END_MESSAGE_MAP()

CScopeDialog::CScopeDialog(const std::string& question, BOOL bThisOnly, CWnd* pParent)
    : CPlannerDialog(IDD_SCOPE, pParent), m_question(question), m_bThisOnly(bThisOnly)
{
}

BOOL CScopeDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    planner::SetItemUtf8(*this, IDC_QUESTION, m_question);
    ::EnableWindow(::GetDlgItem(m_hWnd, IDC_SCOPE_THIS), m_bThisOnly);
    if (!m_bThisOnly) {
        ::SetFocus(::GetDlgItem(m_hWnd, IDC_SCOPE_FOLLOWING));
    }
    return m_bThisOnly;
}

void CScopeDialog::OnChoice(UINT nID)
{
    EndDialog(static_cast<int>(nID));
}

namespace planner {

std::optional<Scope> AskScope(CWnd* owner, const std::string& question, bool canBeThisOnly)
{
    const int answer = CurrentAnswerer()
                           ? CurrentAnswerer()(question, canBeThisOnly ? IDC_SCOPE_THIS : IDC_SCOPE_FOLLOWING)
                           : static_cast<int>(CScopeDialog(question, canBeThisOnly, owner).DoModal());
    switch (answer) {
    case IDC_SCOPE_THIS:
        return Scope::ThisOccurrence;
    case IDC_SCOPE_FOLLOWING:
        return Scope::ThisAndFollowing;
    case IDC_SCOPE_SERIES:
        return Scope::WholeSeries;
    default:
        return std::nullopt;
    }
}

} // namespace planner
