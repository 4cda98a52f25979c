#include "planner/PlannerTheme.h"

#include "core/DrawingHelpers.h"
#include "core/ThemeColors.h"
#include "core/ViewScale.h"

#include <commctrl.h>

#include <iterator>

namespace planner {

namespace {

constexpr const char* kThemeNames[] = {"system", "light", "classic", "dark", "contrast"};

} // namespace

std::optional<ThemeChoice> FindTheme(const std::string& name)
{
    for (int i = 0; i < static_cast<int>(std::size(kThemeNames)); ++i) {
        if (name == kThemeNames[i]) {
            return static_cast<ThemeChoice>(i);
        }
    }
    return std::nullopt;
}

std::string NameOf(ThemeChoice choice)
{
    return kThemeNames[static_cast<int>(choice)];
}

CalendarTheme ThemeOf(ThemeChoice choice)
{
    switch (choice) {
    case ThemeChoice::Light:
        return CalendarTheme::Calm();
    case ThemeChoice::Classic:
        return CalendarTheme::Classic();
    case ThemeChoice::Dark:
        return CalendarTheme::Dark();
    case ThemeChoice::HighContrast:
        return CalendarTheme::HighContrast();
    default:
        return dayvane::ThemeOf(dayvane::GetSystemTheme());
    }
}

PaneColors BarColors(const CalendarTheme& theme)
{
    return {dayvane::ThemeOr(theme.header, ::GetSysColor(COLOR_BTNFACE)),
            dayvane::ThemeOr(theme.headerText, ::GetSysColor(COLOR_BTNTEXT))};
}

PaneColors ListColors(const CalendarTheme& theme)
{
    return {dayvane::ThemeOr(theme.page, ::GetSysColor(COLOR_WINDOW)),
            dayvane::ThemeOr(theme.pageText, ::GetSysColor(COLOR_WINDOWTEXT))};
}

void ScaledFont::Show(CWnd& window, int dpi)
{
    if (m_dpi == 0) {
        const HGDIOBJ own = reinterpret_cast<HGDIOBJ>(window.SendMessage(WM_GETFONT));
        ::GetObject(own ? own : ::GetStockObject(DEFAULT_GUI_FONT), sizeof(m_base), &m_base);
        m_dpi = dayvane::kBaseDpi;
    }
    if (dpi == m_dpi) {
        return;
    }
    m_dpi = dpi;
    LOGFONT scaled = m_base;
    scaled.lfHeight = MulDiv(m_base.lfHeight, dpi, dayvane::kBaseDpi);
    CFont font;
    font.CreateFontIndirect(&scaled);
    window.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font.GetSafeHandle()), TRUE);
    m_font.DeleteObject();
    m_font.Attach(font.Detach());
}

void ShowTitleInTheme(HWND hFrame, const CalendarTheme& theme)
{
    constexpr DWORD darkMode = 20; // DWMWA_USE_IMMERSIVE_DARK_MODE
    typedef HRESULT(WINAPI * SetAttributeFunction)(HWND, DWORD, LPCVOID, DWORD);
    static const HMODULE library = ::LoadLibraryA("dwmapi.dll");
    static const auto setAttribute = reinterpret_cast<SetAttributeFunction>(
        reinterpret_cast<void*>(library ? ::GetProcAddress(library, "DwmSetWindowAttribute") : nullptr));
    if (setAttribute) {
        const BOOL isDark = theme.itemFill == ItemFill::ForDarkPage;
        setAttribute(hFrame, darkMode, &isDark, sizeof(isDark));
    }
}

} // namespace planner

// ---- Status bar

BEGIN_MESSAGE_MAP(CThemedStatusBar, CStatusBar)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

void CThemedStatusBar::SetTheme(const CalendarTheme& theme)
{
    m_theme = theme;
    if (m_hWnd) {
        Invalidate();
    }
}

void CThemedStatusBar::SetScale(int dpi)
{
    m_font.Show(*this, dpi);
}

BOOL CThemedStatusBar::OnEraseBkgnd(CDC* pDC)
{
    return m_theme == dayvane::kClassicTheme ? CStatusBar::OnEraseBkgnd(pDC) : TRUE;
}

void CThemedStatusBar::OnPaint()
{
    if (m_theme == dayvane::kClassicTheme) {
        CStatusBar::OnPaint();
        return;
    }
    constexpr int textInset = 4; // pixels
    CPaintDC dc(this);
    const planner::PaneColors colors = planner::BarColors(m_theme);
    CRect all;
    GetClientRect(&all);
    dc.FillSolidRect(&all, colors.ground);
    dc.FillSolidRect(CRect(all.left, all.top, all.right, all.top + 1), m_theme.border);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(colors.text);
    const dayvane::SelectGdi selectFont(&dc, GetFont());
    const int parts = static_cast<int>(SendMessage(SB_GETPARTS));
    for (int i = 0; i < parts; ++i) {
        CRect part;
        SendMessage(SB_GETRECT, i, reinterpret_cast<LPARAM>(&part));
        part.DeflateRect(textInset, 0);
        std::wstring text(LOWORD(::SendMessageW(m_hWnd, SB_GETTEXTLENGTHW, i, 0)) + 1, L'\0');
        ::SendMessageW(m_hWnd, SB_GETTEXTW, i, reinterpret_cast<LPARAM>(&text[0]));
        ::DrawTextW(dc.GetSafeHdc(), text.c_str(), -1, &part,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}
