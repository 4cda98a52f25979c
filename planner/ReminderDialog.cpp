#include "planner/ReminderDialog.h"

#include "planner/ItemBridge.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(CReminderDialog, CPlannerDialog)
ON_BN_CLICKED(IDC_DISMISS, &CReminderDialog::OnDismiss)
ON_BN_CLICKED(IDC_DISMISS_ALL, &CReminderDialog::OnDismissAll)
ON_BN_CLICKED(IDC_SNOOZE, &CReminderDialog::OnSnooze)
ON_CONTROL(LBN_DBLCLK, IDC_REMINDER_LIST, &CReminderDialog::OnOK)
END_MESSAGE_MAP()

CReminderDialog::CReminderDialog(Actions actions)
    : CPlannerDialog(IDD_REMINDERS, nullptr), m_actions(std::move(actions))
{
}

BOOL CReminderDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    constexpr int minutes[] = {5, 10, 15, 30, 60, 120, 24 * 60};
    for (const int each : minutes) {
        const planner::LocalTime seconds = each * planner::kMinuteSeconds;
        const std::string text = each < 60         ? planner::Tr("%1 minutes", std::to_string(each))
                                 : each == 60      ? planner::Tr("1 hour")
                                 : each == 24 * 60 ? planner::Tr("1 day")
                                                   : planner::Tr("%1 hours", std::to_string(each / 60));
        planner::AddListText(*this, IDC_SNOOZE_TIME, text, static_cast<LPARAM>(seconds));
    }
    ::SendDlgItemMessage(m_hWnd, IDC_SNOOZE_TIME, CB_SETCURSEL, 1, 0);
    return FALSE;
}

void CReminderDialog::Show(const std::vector<planner::DueReminder>& due, CWnd* pParent)
{
    const std::size_t chosen = m_hWnd ? Chosen() : 0;
    const bool isNew = due.size() > m_due.size();
    m_due = due;
    if (due.empty()) {
        if (m_hWnd) {
            ShowWindow(SW_HIDE);
        }
        return;
    }
    if (!m_hWnd && !Create(IDD_REMINDERS, pParent)) {
        return;
    }
    EnableWindow(pParent->IsWindowEnabled()); // under a dialog it says what is due and waits
    ::SendDlgItemMessage(m_hWnd, IDC_REMINDER_LIST, LB_RESETCONTENT, 0, 0);
    for (const planner::DueReminder& each : due) {
        planner::AddListText(*this, IDC_REMINDER_LIST, planner::DetailsOf(each.occurrence));
    }
    ::SendDlgItemMessage(m_hWnd, IDC_REMINDER_LIST, LB_SETCURSEL, std::min(chosen, due.size() - 1), 0);
    if (isNew || !IsWindowVisible()) {
        ShowWindow(SW_SHOWNOACTIVATE); // typing goes on where it was
        ::MessageBeep(MB_ICONINFORMATION);
    }
}

std::size_t CReminderDialog::Chosen() const
{
    const LRESULT at = ::SendDlgItemMessage(m_hWnd, IDC_REMINDER_LIST, LB_GETCURSEL, 0, 0);
    return at < 0 ? 0 : static_cast<std::size_t>(at);
}

void CReminderDialog::OnDismiss()
{
    if (Chosen() < m_due.size()) {
        m_actions.dismiss({m_due[Chosen()]});
    }
}

void CReminderDialog::OnDismissAll()
{
    const std::vector<planner::DueReminder> all = m_due;
    m_actions.dismiss(all);
}

void CReminderDialog::OnSnooze()
{
    const LRESULT at = ::SendDlgItemMessage(m_hWnd, IDC_SNOOZE_TIME, CB_GETCURSEL, 0, 0);
    const LRESULT seconds = ::SendDlgItemMessage(m_hWnd, IDC_SNOOZE_TIME, CB_GETITEMDATA, static_cast<WPARAM>(at), 0);
    if (Chosen() < m_due.size()) {
        m_actions.snooze(m_due[Chosen()].occurrence.id, seconds);
    }
}

void CReminderDialog::OnOK()
{
    if (Chosen() < m_due.size()) {
        m_actions.show(m_due[Chosen()].occurrence.id);
    }
}

// Closing the box lets them all come again later.
void CReminderDialog::OnCancel()
{
    const std::vector<planner::DueReminder> all = m_due;
    constexpr planner::LocalTime later = 10 * planner::kMinuteSeconds;
    for (const planner::DueReminder& each : all) {
        m_actions.snooze(each.occurrence.id, later);
    }
    ShowWindow(SW_HIDE);
}
