#include "planner/ProgressDialog.h"

#include "core/ThemeColors.h"
#include "planner/resource.h"

#include <commctrl.h>
#include <uxtheme.h>

DWORD CProgressDialog::s_patience = 300;

namespace {
constexpr int kSteps = 1000; // of the bar
} // namespace

CProgressDialog::CProgressDialog(const std::string& what)
    : CPlannerDialog(IDD_PROGRESS, nullptr), m_what(what), m_begin(::GetTickCount())
{
}

CProgressDialog::~CProgressDialog()
{
    if (m_disabled) {
        ::EnableWindow(m_disabled, TRUE); // before this one goes: else the system activates another program
    }
    if (m_hWnd) {
        DestroyWindow();
    }
}

BOOL CProgressDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    planner::SetItemUtf8(*this, IDC_PROGRESS_WHAT, m_what);
    ::SendDlgItemMessage(m_hWnd, IDC_PROGRESS_BAR, PBM_SETRANGE32, 0, kSteps);
    const HWND bar = ::GetDlgItem(m_hWnd, IDC_PROGRESS_BAR);
    ::SetWindowTheme(bar, L"", L""); // else the system's own picture goes before the colours
    ::SendMessage(bar, PBM_SETBKCOLOR, 0, static_cast<LPARAM>(planner::ListColors(Theme()).ground));
    ::SendMessage(bar, PBM_SETBARCOLOR, 0,
                  static_cast<LPARAM>(dayvane::ThemeOr(Theme().today, ::GetSysColor(COLOR_HIGHLIGHT))));
    return TRUE;
}

void CProgressDialog::Open()
{
    CWnd* main = AfxGetMainWnd();
    const bool isShown = main && main->m_hWnd && main->IsWindowVisible();
    if (Create(IDD_PROGRESS, isShown ? main : nullptr)) {
        if (isShown && main->IsWindowEnabled()) {
            m_disabled = main->m_hWnd;
            ::EnableWindow(m_disabled, FALSE);
        }
        ShowWindow(SW_SHOW);
    }
}

bool CProgressDialog::Step(std::size_t done, std::size_t all)
{
    if (!m_hWnd && ::GetTickCount() - m_begin >= s_patience) {
        Open();
    }
    if (!m_hWnd) {
        return true;
    }
    const double part = all == 0 ? 1 : static_cast<double>(done) / static_cast<double>(all);
    ::SendDlgItemMessage(m_hWnd, IDC_PROGRESS_BAR, PBM_SETPOS, static_cast<WPARAM>(part * kSteps), 0);
    MSG message;
    while (::PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (!::IsDialogMessage(m_hWnd, &message)) {
            ::TranslateMessage(&message);
            ::DispatchMessage(&message);
        }
    }
    return !m_isCancelled;
}
