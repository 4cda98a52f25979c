// Go to a date by typing it; beside the box stands what was understood.
#pragma once

#include "planner/PlannerDialog.h"
#include "planner/TypedDate.h"

class CGoToDialog : public CPlannerDialog
{
public:
    CGoToDialog(const planner::DateContext& context, CWnd* pParent);
    planner::DayNumber Day() const { return *m_day; } // when DoModal answered IDOK

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    afx_msg void OnTyped();
    DECLARE_MESSAGE_MAP()

private:
    planner::DateContext m_context;
    std::optional<planner::DayNumber> m_day;
};
