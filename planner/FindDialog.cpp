#include "planner/FindDialog.h"

#include "planner/ItemBridge.h"
#include "planner/Words.h"
#include "planner/resource.h"

const UINT CFindDialog::IDD_FIND_RESOURCE = IDD_FIND;

BEGIN_MESSAGE_MAP(CFindDialog, CPlannerDialog)
ON_CONTROL(EN_CHANGE, IDC_FIND_WORDS, &CFindDialog::OnTyped)
ON_CONTROL(LBN_SELCHANGE, IDC_FIND_LIST, &CFindDialog::OnChosen)
ON_CONTROL(LBN_DBLCLK, IDC_FIND_LIST, &CFindDialog::OnOK)
END_MESSAGE_MAP()

BOOL CFindDialog::Open(CWnd* pParent)
{
    if (!m_hWnd && !Create(IDD_FIND, pParent)) {
        return FALSE;
    }
    ShowWindow(SW_SHOW);
    ::SetFocus(::GetDlgItem(m_hWnd, IDC_FIND_WORDS));
    ::SendDlgItemMessage(m_hWnd, IDC_FIND_WORDS, EM_SETSEL, 0, -1);
    Refresh();
    return TRUE;
}

BOOL CFindDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    return FALSE;
}

void CFindDialog::OnTyped()
{
    Refresh();
}

void CFindDialog::Refresh()
{
    if (!m_hWnd || !IsWindowVisible()) {
        return;
    }
    m_found.clear();
    ::SendDlgItemMessage(m_hWnd, IDC_FIND_LIST, WM_SETREDRAW, FALSE, 0);
    ::SendDlgItemMessage(m_hWnd, IDC_FIND_LIST, LB_RESETCONTENT, 0, 0);
    for (const planner::Occurrence& each : m_source(planner::ItemUtf8(*this, IDC_FIND_WORDS))) {
        planner::AddListText(*this, IDC_FIND_LIST, planner::DetailsOf(each));
        m_found.push_back(each.id);
    }
    ::SendDlgItemMessage(m_hWnd, IDC_FIND_LIST, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(::GetDlgItem(m_hWnd, IDC_FIND_LIST), nullptr, TRUE);
    const std::string count = std::to_string(m_found.size());
    planner::SetItemUtf8(*this, IDC_FIND_COUNT, planner::Tr(m_found.size() == 1 ? "%1 item" : "%1 items", count));
}

void CFindDialog::OnChosen()
{
    const LRESULT at = ::SendDlgItemMessage(m_hWnd, IDC_FIND_LIST, LB_GETCURSEL, 0, 0);
    if (at >= 0 && static_cast<std::size_t>(at) < m_found.size()) {
        m_jump(m_found[static_cast<std::size_t>(at)]);
    }
}

void CFindDialog::OnOK()
{
    const HWND list = ::GetDlgItem(m_hWnd, IDC_FIND_LIST);
    if (::SendMessage(list, LB_GETCURSEL, 0, 0) < 0) {
        ::SendMessage(list, LB_SETCURSEL, 0, 0);
    }
    OnChosen();
}

void CFindDialog::OnCancel()
{
    ShowWindow(SW_HIDE);
    if (CWnd* owner = GetParent()) {
        owner->SetFocus();
    }
}
