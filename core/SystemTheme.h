// What the system's settings say of colours, and who is notified when they change.
#pragma once

#include "CalendarTheme.h"

#include <functional>

namespace dayvane {

enum class SystemTheme
{
    Light,
    Dark,        // programs are asked to be dark
    HighContrast // the user has chosen every colour
};

// Asks the system, or the function that stands for it.
SystemTheme GetSystemTheme();
// For tests and for hosts with a setting of their own; nullptr: the system. Watches are not notified of the change.
void SetSystemThemeQuery(SystemTheme (*pfnQuery)());

// The theme for a setting: Calm, Dark or HighContrast.
CalendarTheme ThemeOf(SystemTheme system);

// Notified when the system's colours or its theme change. One hidden window receives it for all: the messages go to
// top-level windows, and not every host passes them on.
class SystemThemeWatch
{
public:
    // onChange is called by the thread that started the watch.
    explicit SystemThemeWatch(std::function<void()> onChange);
    ~SystemThemeWatch();
    SystemThemeWatch(const SystemThemeWatch&) = delete;
    SystemThemeWatch& operator=(const SystemThemeWatch&) = delete;

    void Start(); // does nothing when it has started
    void Stop();
    // Starts, calling onChange at once, or stops; does nothing when that is how it stands.
    void Follow(bool follows);

private:
    bool m_isStarted = false;
    std::function<void()> m_onChange;
};

// Window parts that the system paints, such as scroll bars, in the theme's brightness as far as the system can.
void ShowWindowInTheme(HWND hWnd, const CalendarTheme& theme);

} // namespace dayvane
