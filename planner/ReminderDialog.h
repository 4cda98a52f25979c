// The reminders that are due, beside the window: dismissed, or to come again later.
#pragma once

#include "planner/PlannerDialog.h"
#include "planner/Reminders.h"

#include <functional>
#include <vector>

class CReminderDialog : public CPlannerDialog
{
public:
    struct Actions
    {
        std::function<void(const std::vector<planner::DueReminder>&)> dismiss;
        std::function<void(const planner::OccurrenceId&, planner::LocalTime seconds)> snooze;
        std::function<void(const planner::OccurrenceId&)> show;
    };
    explicit CReminderDialog(Actions actions);
    // Opens with these lines, or hides when there are none.
    void Show(const std::vector<planner::DueReminder>& due, CWnd* pParent);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override; // shows the chosen one in the view
    void OnCancel() override;
    afx_msg void OnDismiss();
    afx_msg void OnDismissAll();
    afx_msg void OnSnooze();
    DECLARE_MESSAGE_MAP()

private:
    std::size_t Chosen() const;

    Actions m_actions;
    std::vector<planner::DueReminder> m_due;
};
