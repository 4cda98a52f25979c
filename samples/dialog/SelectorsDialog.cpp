#include "SelectorsDialog.h"

#include "resource.h"

namespace {
CString TextOf(const SYSTEMTIME& time)
{
    const COleDateTime date(time);
    if (date.GetStatus() != COleDateTime::valid) {
        return "none";
    }
    return date.Format(time.wHour == 0 && time.wMinute == 0 ? "%Y-%m-%d" : "%Y-%m-%d %H:%M");
}

LPCTSTR NameOf(UINT nID)
{
    return nID == IDC_DAYS ? "days" : "months";
}

// A host's mark: the days of its own appointments. Here every tenth day stands for one.
BOOL HasAppointment(const COleDateTime& date, LPARAM)
{
    return date.GetDay() % 10 == 0;
}
} // namespace

BEGIN_MESSAGE_MAP(CSelectorsDialog, CDialog)
ON_NOTIFY_RANGE(MCN_SELECT, IDC_DAYS, IDC_MONTHS, &CSelectorsDialog::OnSelect)
ON_NOTIFY_RANGE(NM_DBLCLK, IDC_DAYS, IDC_MONTHS, &CSelectorsDialog::OnDoubleClick)
ON_MESSAGE(YMN_DATECHANGE, &CSelectorsDialog::OnDateChange)
ON_MESSAGE(YMN_DROPDOWN, &CSelectorsDialog::OnDropDown)
ON_MESSAGE(YMN_CLOSEUP, &CSelectorsDialog::OnCloseUp)
ON_MESSAGE(YMN_SELENDOK, &CSelectorsDialog::OnSelEndOK)
ON_MESSAGE(YMN_SELENDCANCEL, &CSelectorsDialog::OnSelEndCancel)
ON_BN_CLICKED(IDC_DAY_RANGES, &CSelectorsDialog::OnOptions)
ON_BN_CLICKED(IDC_MONTH_RANGES, &CSelectorsDialog::OnOptions)
ON_BN_CLICKED(IDC_MONDAY_FIRST, &CSelectorsDialog::OnOptions)
ON_BN_CLICKED(IDC_CLEAR, &CSelectorsDialog::OnClear)
END_MESSAGE_MAP()

// The members are constructed before the template is read, so the window classes that it names exist.
CSelectorsDialog::CSelectorsDialog() : CDialog(IDD_SELECTORS)
{
}

// snippet subclass
BOOL CSelectorsDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    m_days.SubclassDlgItem(IDC_DAYS, this);
    m_months.SubclassDlgItem(IDC_MONTHS, this);
    m_picker.SubclassDlgItem(IDC_PICKER, this);

    m_days.SetRowAndCol(1, 2);
    m_days.SetBoldCallback(&HasAppointment);
    FitToGrid(m_days);
    FitToGrid(m_months);
    CheckDlgButton(IDC_DAY_RANGES, m_days.IsRangeSelect() ? BST_CHECKED : BST_UNCHECKED);
    return TRUE;
}
// end of snippet

// snippet fit
void CSelectorsDialog::FitToGrid(CPeriodGridCtrl& calendar)
{
    CRect window, client;
    calendar.GetWindowRect(&window);
    calendar.GetClientRect(&client);
    const CSize frame = window.Size() - client.Size();
    const CSize size = calendar.GetGridSize() + frame;
    calendar.SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    calendar.Refresh();
}
// end of snippet

void CSelectorsDialog::Show(const CString& text)
{
    const LRESULT line = SendDlgItemMessage(IDC_MESSAGES, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(LPCTSTR(text)));
    SendDlgItemMessage(IDC_MESSAGES, LB_SETTOPINDEX, line);
}

void CSelectorsDialog::OnSelect(UINT nID, NMHDR* pHeader, LRESULT* pResult)
{
    const NMSELCHANGE& record = *reinterpret_cast<const NMSELCHANGE*>(pHeader);
    CString text;
    text.Format("%s: MCN_SELECT %s to %s", NameOf(nID), LPCTSTR(TextOf(record.stSelStart)),
                LPCTSTR(TextOf(record.stSelEnd)));
    Show(text);
    *pResult = 0;
}

void CSelectorsDialog::OnDoubleClick(UINT nID, NMHDR*, LRESULT* pResult)
{
    Show(CString(NameOf(nID)) + ": NM_DBLCLK");
    *pResult = 0;
}

LRESULT CSelectorsDialog::ShowPickerMessage(LPCTSTR name, WPARAM wParam, LPARAM lParam)
{
    CString text;
    text.Format("picker %d: %s %d", static_cast<int>(lParam), name, static_cast<int>(wParam));
    Show(text);
    return 0;
}

LRESULT CSelectorsDialog::OnDateChange(WPARAM wParam, LPARAM lParam)
{
    return ShowPickerMessage("YMN_DATECHANGE", wParam, lParam);
}

LRESULT CSelectorsDialog::OnDropDown(WPARAM wParam, LPARAM lParam)
{
    return ShowPickerMessage("YMN_DROPDOWN", wParam, lParam);
}

LRESULT CSelectorsDialog::OnCloseUp(WPARAM wParam, LPARAM lParam)
{
    return ShowPickerMessage("YMN_CLOSEUP", wParam, lParam);
}

LRESULT CSelectorsDialog::OnSelEndOK(WPARAM wParam, LPARAM lParam)
{
    return ShowPickerMessage("YMN_SELENDOK", wParam, lParam);
}

LRESULT CSelectorsDialog::OnSelEndCancel(WPARAM wParam, LPARAM lParam)
{
    return ShowPickerMessage("YMN_SELENDCANCEL", wParam, lParam);
}

void CSelectorsDialog::OnOptions()
{
    m_days.SetRangeSelect(IsDlgButtonChecked(IDC_DAY_RANGES) == BST_CHECKED);
    m_months.SetRangeSelect(IsDlgButtonChecked(IDC_MONTH_RANGES) == BST_CHECKED);
    m_days.SetFirstDayOfWeek(IsDlgButtonChecked(IDC_MONDAY_FIRST) == BST_CHECKED ? 2 : 1);
    m_days.Refresh();
}

void CSelectorsDialog::OnClear()
{
    SendDlgItemMessage(IDC_MESSAGES, LB_RESETCONTENT);
}
