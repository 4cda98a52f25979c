#include "planner/GoToDialog.h"

#include "planner/Words.h"
#include "planner/resource.h"

BEGIN_MESSAGE_MAP(CGoToDialog, CPlannerDialog)
ON_CONTROL(EN_CHANGE, IDC_DATE_TYPED, &CGoToDialog::OnTyped)
END_MESSAGE_MAP()

CGoToDialog::CGoToDialog(const planner::DateContext& context, CWnd* pParent)
    : CPlannerDialog(IDD_GO_TO, pParent), m_context(context)
{
}

BOOL CGoToDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    planner::SetItemUtf8(*this, IDC_DATE_TYPED, planner::DateText(m_context.shown));
    ::SendDlgItemMessage(m_hWnd, IDC_DATE_TYPED, EM_SETSEL, 0, -1);
    OnTyped();
    return TRUE;
}

void CGoToDialog::OnTyped()
{
    static constexpr const char* days[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                           "Thursday", "Friday", "Saturday"};
    m_day = planner::ParseTypedDate(planner::ItemUtf8(*this, IDC_DATE_TYPED), m_context);
    const std::string meaning =
        m_day ? planner::DateText(*m_day) + "  " + planner::Tr(days[planner::WeekdayOfDay(*m_day)])
              : planner::Tr("This is no date: 2026-11-24, 24.11 or next friday are");
    planner::SetItemUtf8(*this, IDC_DATE_MEANING, meaning);
    ::EnableWindow(::GetDlgItem(m_hWnd, IDOK), m_day.has_value());
}

void CGoToDialog::OnOK()
{
    if (m_day) {
        CPlannerDialog::OnOK();
    }
}
