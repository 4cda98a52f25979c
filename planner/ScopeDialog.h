// Asks how far an edit of one occurrence of a series goes.
#pragma once

#include "planner/Calendar.h"
#include "planner/PlannerDialog.h"

#include <optional>

class CScopeDialog : public CPlannerDialog
{
public:
    // question: in the user's language. bThisOnly: whether the one occurrence alone can be changed.
    CScopeDialog(const std::string& question, BOOL bThisOnly, CWnd* pParent);

protected:
    BOOL OnInitDialog() override;
    afx_msg void OnChoice(UINT nID);
    DECLARE_MESSAGE_MAP()

private:
    std::string m_question;
    BOOL m_bThisOnly;
};

namespace planner {

// Nothing: the user has cancelled.
std::optional<Scope> AskScope(CWnd* owner, const std::string& question, bool canBeThisOnly = true);

} // namespace planner
