#include "core/SystemTheme.h"

#include "core/WatchWindow.h"

#include <cstring>
#include <utility>

CalendarTheme CalendarTheme::HighContrast()
{
    return HighContrast({::GetSysColor(COLOR_WINDOW), ::GetSysColor(COLOR_WINDOWTEXT), ::GetSysColor(COLOR_BTNFACE),
                         ::GetSysColor(COLOR_BTNTEXT), ::GetSysColor(COLOR_HIGHLIGHT),
                         ::GetSysColor(COLOR_HIGHLIGHTTEXT), ::GetSysColor(COLOR_GRAYTEXT)});
}

namespace dayvane {
namespace {

constexpr char kWindowName[] = "DayvaneThemeWatch";
constexpr char kThemeSetting[] = "ImmersiveColorSet"; // of WM_SETTINGCHANGE
constexpr char kThemeKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
constexpr char kLightValue[] = "AppsUseLightTheme";

bool IsHighContrast()
{
    HIGHCONTRASTA contrast = {};
    contrast.cbSize = sizeof(contrast);
    return ::SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool WantsDarkPrograms()
{
    DWORD light = 1;
    DWORD size = sizeof(light);
    return ::RegGetValueA(HKEY_CURRENT_USER, kThemeKey, kLightValue, RRF_RT_REG_DWORD, nullptr, &light, &size) ==
               ERROR_SUCCESS &&
           light == 0;
}

SystemTheme AskSystem()
{
    return IsHighContrast() ? SystemTheme::HighContrast : WantsDarkPrograms() ? SystemTheme::Dark : SystemTheme::Light;
}

SystemTheme (*g_query)() = &AskSystem;

bool IsThemeChange(UINT message, LPARAM lParam)
{
    switch (message) {
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        return true;
    case WM_SETTINGCHANGE: {
        const char* setting = reinterpret_cast<const char*>(lParam);
        return !setting || std::strcmp(setting, kThemeSetting) == 0; // high contrast comes without a name
    }
    default:
        return false;
    }
}

WatchWindow* g_window = nullptr;

class SystemThemeWindow : public WatchWindow
{
public:
    SystemThemeWindow() : WatchWindow(kWindowName, g_window) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
        if (IsThemeChange(message, lParam)) {
            CallAll();
        }
        return result;
    }
};

} // namespace

SystemTheme GetSystemTheme()
{
    return g_query();
}

void SetSystemThemeQuery(SystemTheme (*pfnQuery)())
{
    g_query = pfnQuery ? pfnQuery : &AskSystem;
}

CalendarTheme ThemeOf(SystemTheme system)
{
    switch (system) {
    case SystemTheme::Dark:
        return CalendarTheme::Dark();
    case SystemTheme::HighContrast:
        return CalendarTheme::HighContrast();
    default:
        return CalendarTheme::Calm();
    }
}

SystemThemeWatch::SystemThemeWatch(std::function<void()> onChange) : m_onChange(std::move(onChange))
{
}

SystemThemeWatch::~SystemThemeWatch()
{
    Stop();
}

void SystemThemeWatch::Start()
{
    m_isStarted = true;
    if (!g_window) {
        new SystemThemeWindow; // is g_window
    }
    g_window->Add(m_onChange);
}

void SystemThemeWatch::Stop()
{
    m_isStarted = false;
    if (g_window) {
        g_window->Remove(m_onChange);
    }
}

void SystemThemeWatch::Follow(bool follows)
{
    if (!follows) {
        Stop();
    } else if (!m_isStarted) {
        Start();
        const std::function<void()> onChange = m_onChange;
        onChange();
    }
}

// The name is that of the file manager's dark scroll bars; a system that does not know it changes nothing.
void ShowWindowInTheme(HWND hWnd, const CalendarTheme& theme)
{
    typedef HRESULT(WINAPI * SetWindowThemeFunction)(HWND, LPCWSTR, LPCWSTR);
    static const HMODULE library = ::LoadLibraryA("uxtheme.dll");
    static const auto setTheme = reinterpret_cast<SetWindowThemeFunction>(
        reinterpret_cast<void*>(library ? ::GetProcAddress(library, "SetWindowTheme") : nullptr));
    if (setTheme && hWnd) {
        setTheme(hWnd, theme.itemFill == ItemFill::ForDarkPage ? L"DarkMode_Explorer" : nullptr, nullptr);
    }
}

} // namespace dayvane
