#include "planner/PagesDialog.h"

#include "planner/Words.h"
#include "planner/resource.h"

#include <afxdlgs.h>

#include <algorithm>
#include <iterator>

using planner::PageSettings;

namespace {

constexpr COLORREF kShadow = RGB(128, 128, 128);
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr int kShadowSize = 3; // pixels
constexpr int kTenthsPerInch = 254;
constexpr int kMostMargin = 60; // millimetres
constexpr int kHoursPerDay = 24;
constexpr int kPointTenths = 10;

const char* const kOrientations[] = {"What suits the page", "Portrait", "Landscape"};
const char* const kLanguages[] = {"The planner's language", "Japanese", "English"}; // as PrintLanguage

struct CheckRow
{
    int id;
    bool dayvane::PrintOptions::*value;
};
constexpr CheckRow kChecks[] = {{IDC_IN_COLOR, &dayvane::PrintOptions::inColor},
                                {IDC_SHADE_WEEKENDS, &dayvane::PrintOptions::shadeWeekends},
                                {IDC_SHOW_TITLE, &dayvane::PrintOptions::showTitle},
                                {IDC_PAGE_NUMBERS, &dayvane::PrintOptions::pageNumbers},
                                {IDC_DATE_PRINTED, &dayvane::PrintOptions::datePrinted},
                                {IDC_NOTE_LINES, &dayvane::PrintOptions::noteLines},
                                {IDC_LUNAR_DATES, &dayvane::PrintOptions::showLunarDates},
                                {IDC_WIDEN_HOURS, &dayvane::PrintOptions::widenHours},
                                {IDC_EMPTY_DAYS, &dayvane::PrintOptions::emptyDays}};

struct NumberRow
{
    int id;
    int dayvane::PrintOptions::*value;
    int least;
    int most;
};
constexpr NumberRow kNumbers[] = {{IDC_MARGIN_LEFT, &dayvane::PrintOptions::marginLeft, 0, kMostMargin},
                                  {IDC_MARGIN_TOP, &dayvane::PrintOptions::marginTop, 0, kMostMargin},
                                  {IDC_MARGIN_RIGHT, &dayvane::PrintOptions::marginRight, 0, kMostMargin},
                                  {IDC_MARGIN_BOTTOM, &dayvane::PrintOptions::marginBottom, 0, kMostMargin},
                                  {IDC_HOURS_FROM, &dayvane::PrintOptions::hoursFrom, 0, kHoursPerDay - 1},
                                  {IDC_HOURS_TO, &dayvane::PrintOptions::hoursTo, 1, kHoursPerDay},
                                  {IDC_HEADER_MONTHS, &dayvane::PrintOptions::headerMonths, 0, 3}};

} // namespace

BEGIN_MESSAGE_MAP(CPagesDialog, CPlannerDialog)
ON_WM_PAINT()
ON_BN_CLICKED(IDC_PRINTER, &CPagesDialog::OnPrinter)
ON_CONTROL_RANGE(BN_CLICKED, IDC_PAGES_FIRST, IDC_PAGES_LAST, &CPagesDialog::OnChanged)
ON_CONTROL_RANGE(CBN_SELCHANGE, IDC_PAGES_FIRST, IDC_PAGES_LAST, &CPagesDialog::OnChanged)
ON_CONTROL_RANGE(EN_CHANGE, IDC_PAGES_FIRST, IDC_PAGES_LAST, &CPagesDialog::OnChanged)
END_MESSAGE_MAP()

CPagesDialog::CPagesDialog(CCalendarCtrl& ctrl, PageSettings& settings, CWnd* pParent)
    : CPlannerDialog(IDD_PAGES, pParent), m_ctrl(ctrl), m_settings(settings)
{
}

BOOL CPagesDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    if (CWnd* place = GetDlgItem(IDC_PICTURE)) {
        place->GetWindowRect(&m_room);
        ScreenToClient(&m_room);
        place->ShowWindow(SW_HIDE);
    }
    Fill();
    m_isFilled = true;
    MakePage();
    return TRUE;
}

void CPagesDialog::Fill()
{
    planner::AddListText(*this, IDC_PAPER, planner::Tr("The printer's paper"));
    SendDlgItemMessage(IDC_PAPER, CB_SETCURSEL, 0, 0);
    for (int i = 0; i < planner::PaperCount(); ++i) {
        planner::AddListText(*this, IDC_PAPER, planner::PaperAt(i).name);
        if (planner::PaperAt(i).paper == m_settings.paper) {
            SendDlgItemMessage(IDC_PAPER, CB_SETCURSEL, static_cast<WPARAM>(i + 1), 0);
        }
    }
    for (const char* name : kOrientations) {
        planner::AddListText(*this, IDC_ORIENTATION, planner::Tr(name));
    }
    for (const char* name : kLanguages) {
        planner::AddListText(*this, IDC_PAGE_LANGUAGE, planner::Tr(name));
    }
    SendDlgItemMessage(IDC_PAGE_LANGUAGE, CB_SETCURSEL, static_cast<WPARAM>(m_settings.options.language), 0);
    SendDlgItemMessage(IDC_ORIENTATION, CB_SETCURSEL, static_cast<WPARAM>(m_settings.orientation), 0);
    for (const CheckRow& row : kChecks) {
        CheckDlgButton(row.id, m_settings.options.*row.value ? BST_CHECKED : BST_UNCHECKED);
    }
    for (const NumberRow& row : kNumbers) {
        SetDlgItemInt(row.id, static_cast<UINT>(m_settings.options.*row.value));
    }
    SetDlgItemInt(IDC_FONT_SIZE, static_cast<UINT>(m_settings.options.fontSize / kPointTenths));
    CheckDlgButton(IDC_AS_LIST, m_settings.asList ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(IDC_OTHER_DAYS, m_settings.options.otherDays == dayvane::PrintOptions::OtherDays::Greyed);
    CheckDlgButton(IDC_YEAR_BOXES, m_settings.options.yearForm == dayvane::PrintOptions::YearForm::Boxes);
    SetDlgItemText(IDC_FOOTER_TEXT, m_settings.footerText);
}

int CPagesDialog::NumberIn(int nID, int nFallback) const
{
    BOOL isNumber = FALSE;
    const int number = static_cast<int>(GetDlgItemInt(nID, &isNumber, FALSE));
    return isNumber ? number : nFallback;
}

PageSettings CPagesDialog::Chosen() const
{
    PageSettings chosen = m_settings;
    const int paper = static_cast<int>(::SendDlgItemMessage(m_hWnd, IDC_PAPER, CB_GETCURSEL, 0, 0));
    chosen.paper = paper > 0 ? planner::PaperAt(paper - 1).paper : static_cast<short>(0);
    chosen.orientation = static_cast<PageSettings::Orientation>(
        std::max<LRESULT>(::SendDlgItemMessage(m_hWnd, IDC_ORIENTATION, CB_GETCURSEL, 0, 0), 0));
    chosen.options.language = static_cast<dayvane::PrintLanguage>(
        std::max<LRESULT>(::SendDlgItemMessage(m_hWnd, IDC_PAGE_LANGUAGE, CB_GETCURSEL, 0, 0), 0));
    for (const CheckRow& row : kChecks) {
        chosen.options.*row.value = IsDlgButtonChecked(row.id) == BST_CHECKED;
    }
    for (const NumberRow& row : kNumbers) {
        chosen.options.*row.value = std::clamp(NumberIn(row.id, m_settings.options.*row.value), row.least, row.most);
    }
    chosen.options.fontSize = NumberIn(IDC_FONT_SIZE, m_settings.options.fontSize / kPointTenths) * kPointTenths;
    chosen.asList = IsDlgButtonChecked(IDC_AS_LIST) == BST_CHECKED;
    chosen.options.otherDays = IsDlgButtonChecked(IDC_OTHER_DAYS) == BST_CHECKED
                                   ? dayvane::PrintOptions::OtherDays::Greyed
                                   : dayvane::PrintOptions::OtherDays::LeftOut;
    chosen.options.yearForm = IsDlgButtonChecked(IDC_YEAR_BOXES) == BST_CHECKED
                                  ? dayvane::PrintOptions::YearForm::Boxes
                                  : dayvane::PrintOptions::YearForm::Calendar;
    GetDlgItemText(IDC_FOOTER_TEXT, chosen.footerText);
    return chosen;
}

void CPagesDialog::OnOK()
{
    m_settings = Chosen();
    CPlannerDialog::OnOK();
}

void CPagesDialog::OnChanged(UINT)
{
    if (m_isFilled) {
        MakePage();
    }
}

void CPagesDialog::OnPrinter()
{
    ::SendMessage(::GetParent(m_hWnd), WM_COMMAND, ID_FILE_PRINT_SETUP, 0);
    MakePage();
}

// ---- The picture

void CPagesDialog::MakePage()
{
    planner::PrinterScope printer(m_ctrl, Chosen());
    m_pages.clear();
    if (CCalendarPrinter* pages = CCalendarPrinter::Of(m_ctrl)) {
        m_pages = pages->MakePages(planner::PaperSizeOf(Chosen(), pages->GetRange().kind));
    }
    const std::string count = std::to_string(m_pages.size());
    planner::SetItemUtf8(*this, IDC_PAGE_COUNT, planner::Tr(m_pages.size() == 1 ? "%1 page" : "%1 pages", count));
    InvalidateRect(&m_room, TRUE);
}

void CPagesDialog::OnPaint()
{
    CPaintDC dc(this);
    CCalendarPrinter* printer = CCalendarPrinter::Of(m_ctrl);
    if (m_pages.empty() || !printer) {
        return;
    }
    const dayvane::Page& page = m_pages.front();
    dayvane::PageView view;
    view.dpiX = view.dpiY = std::max<int>(
        std::min(m_room.Width() * kTenthsPerInch / page.size.cx, m_room.Height() * kTenthsPerInch / page.size.cy), 1);
    const CSize size(::MulDiv(page.size.cx, view.dpiX, kTenthsPerInch),
                     ::MulDiv(page.size.cy, view.dpiY, kTenthsPerInch));
    view.origin = CPoint(m_room.left + (m_room.Width() - size.cx) / 2, m_room.top + (m_room.Height() - size.cy) / 2);
    const CRect sheet(view.origin, size);
    dc.FillSolidRect(sheet + CPoint(kShadowSize, kShadowSize), kShadow);
    dc.FillSolidRect(&sheet, kPaper);
    printer->DrawPage(&dc, page, view);
}
