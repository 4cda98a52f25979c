#include "planner/PlannerDialog.h"

#include "core/SystemTheme.h"
#include "core/WindowHelpers.h"

#include <algorithm>
#include <climits>

namespace planner {

DialogLook& TheDialogLook()
{
    static DialogLook look;
    return look;
}

} // namespace planner

namespace {

constexpr char kComboClass[] = "ComboBox";
constexpr char kEditClass[] = "Edit";
constexpr UINT kShowFonts = WM_APP + 30;

bool IsOfClass(HWND control, const char* wanted)
{
    char name[sizeof(kComboClass) + 1] = "";
    ::GetClassName(control, name, sizeof(name));
    return lstrcmpi(name, wanted) == 0;
}

CRect Scaled(const CRect& rect, int dpi, int base)
{
    return CRect(MulDiv(rect.left, dpi, base), MulDiv(rect.top, dpi, base), MulDiv(rect.right, dpi, base),
                 MulDiv(rect.bottom, dpi, base));
}

// The place of a control in its dialog; that of a combo box with its list, as the system wants to be given it.
CRect PlaceOf(HWND control, HWND dialog)
{
    CRect place;
    ::GetWindowRect(control, &place);
    CRect dropped;
    if (IsOfClass(control, kComboClass) &&
        ::SendMessage(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped)) != 0) {
        place.bottom = place.top + dropped.Height();
    }
    ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

} // namespace

BEGIN_MESSAGE_MAP(CPlannerDialog, CDialog)
ON_WM_CTLCOLOR()
ON_MESSAGE(kShowFonts, &CPlannerDialog::OnShowFonts)
END_MESSAGE_MAP()

BOOL CPlannerDialog::OnInitDialog()
{
    CDialog::OnInitDialog();
    m_editFonts.clear(); // of the windows of an earlier time
    planner::KeepWideTitle(m_hWnd);
    planner::TranslateWindow(m_hWnd);
    TakeScale(planner::TheDialogLook().dpi);
    TakeTheme();
    PostMessage(kShowFonts); // when the fields have their texts
    return TRUE;
}

BOOL CPlannerDialog::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const HWND control = reinterpret_cast<HWND>(lParam);
    if (control && HIWORD(wParam) == EN_CHANGE) {
        ShowFont(control);
    } else if (control && (HIWORD(wParam) == CBN_EDITCHANGE || HIWORD(wParam) == CBN_SELCHANGE)) {
        PostMessage(kShowFonts); // its field has the text only then
    }
    return CDialog::OnCommand(wParam, lParam);
}

LRESULT CPlannerDialog::OnShowFonts(WPARAM, LPARAM)
{
    ::EnumChildWindows(m_hWnd, &CPlannerDialog::ShowFontOf, reinterpret_cast<LPARAM>(this));
    return 0;
}

BOOL CALLBACK CPlannerDialog::ShowFontOf(HWND child, LPARAM lDialog)
{
    if (IsOfClass(child, kEditClass)) {
        reinterpret_cast<CPlannerDialog*>(lDialog)->ShowFont(child);
    }
    return TRUE;
}

void CPlannerDialog::ShowFont(HWND edit)
{
    const HFONT own = m_font.GetSafeHandle() ? static_cast<HFONT>(m_font.GetSafeHandle())
                                             : reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
    m_editFonts[edit].Show(edit, own);
}

void CPlannerDialog::TakeScale(int dpi)
{
    const int base = dayvane::ScreenDpi();
    LOGFONT font = {};
    CFont* own = GetFont();
    m_dpi = std::min(dpi == 0 ? base : dpi, LargestDpi(base));
    dpi = m_dpi;
    if (dpi == base || !own || !own->GetLogFont(&font)) {
        return;
    }
    font.lfHeight = MulDiv(font.lfHeight, dpi, base);
    m_font.CreateFontIndirect(&font);
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        const CRect place = Scaled(PlaceOf(child, m_hWnd), dpi, base);
        ::SendMessage(child, WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetSafeHandle()), FALSE);
        ::SetWindowPos(child, nullptr, place.left, place.top, place.Width(), place.Height(),
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }
    CRect client;
    GetClientRect(&client);
    SizeClient(Scaled(client, dpi, base).Size());
}

dayvane::ViewScale CPlannerDialog::Scale() const
{
    return {m_dpi == 0 ? dayvane::ScreenDpi() : m_dpi};
}

// At which all of the dialog, laid out for `base`, is on the screen.
int CPlannerDialog::LargestDpi(int base) const
{
    MONITORINFO screen = {};
    screen.cbSize = sizeof(screen);
    CRect window;
    GetWindowRect(&window);
    if (!::GetMonitorInfo(::MonitorFromWindow(m_hWnd, MONITOR_DEFAULTTONEAREST), &screen) || window.IsRectEmpty()) {
        return INT_MAX;
    }
    const CRect work(screen.rcWork);
    return std::max(base,
                    std::min(MulDiv(base, work.Width(), window.Width()), MulDiv(base, work.Height(), window.Height())));
}

void CPlannerDialog::SizeClient(CSize size)
{
    CRect client, window;
    GetClientRect(&client);
    GetWindowRect(&window);
    SetWindowPos(nullptr, 0, 0, size.cx + window.Width() - client.Width(), size.cy + window.Height() - client.Height(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    CenterWindow();
}

void CPlannerDialog::TakeTheme()
{
    m_theme = planner::TheDialogLook().theme;
    if (m_theme == dayvane::kClassicTheme) {
        return;
    }
    m_ground.CreateSolidBrush(planner::BarColors(m_theme).ground);
    m_listGround.CreateSolidBrush(planner::ListColors(m_theme).ground);
    planner::ShowTitleInTheme(m_hWnd, m_theme);
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        TakeTheme(child);
    }
}

void CPlannerDialog::TakeTheme(HWND control)
{
    dayvane::ShowWindowInTheme(control, m_theme);
    if (auto themed = planner::ThemedControl::Of(control, m_theme, Scale())) {
        m_controls.push_back(std::move(themed));
    }
}

HBRUSH CPlannerDialog::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor)
{
    if (m_theme == dayvane::kClassicTheme) {
        return CDialog::OnCtlColor(pDC, pWnd, nCtlColor);
    }
    const bool isList = nCtlColor == CTLCOLOR_EDIT || nCtlColor == CTLCOLOR_LISTBOX;
    const planner::PaneColors colors = isList ? planner::ListColors(m_theme) : planner::BarColors(m_theme);
    pDC->SetTextColor(colors.text);
    pDC->SetBkColor(colors.ground);
    return static_cast<HBRUSH>((isList ? m_listGround : m_ground).GetSafeHandle());
}
