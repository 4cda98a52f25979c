// The planner's choice of colours: for the views and small calendars, which have themes, and for its own bars and
// panes.
#pragma once

#include "core/CalendarOptions.h"
#include "core/SystemTheme.h"

#include <afxext.h>
#include <afxwin.h>

#include <optional>
#include <string>

namespace planner {

// In the order of the menu's commands.
enum class ThemeChoice
{
    System, // light, dark or of high contrast, as the system is
    Light,
    Classic,
    Dark,
    HighContrast
};

std::optional<ThemeChoice> FindTheme(const std::string& name);
std::string NameOf(ThemeChoice choice);    // as on the command line
CalendarTheme ThemeOf(ThemeChoice choice); // now

// Gives a view or a small calendar the theme; it follows the system by itself where that is the choice.
template <class Control>
void ShowTheme(Control& control, ThemeChoice choice)
{
    CalendarOptions options = control.GetOptions();
    options.followSystemTheme = choice == ThemeChoice::System;
    control.SetOptions(options);
    control.SetTheme(ThemeOf(choice));
}

// Ground and text of a bar or pane.
struct PaneColors
{
    COLORREF ground;
    COLORREF text;
};
PaneColors BarColors(const CalendarTheme& theme);
PaneColors ListColors(const CalendarTheme& theme);

// The font of a bar or pane, at the resolution of its screen.
class ScaledFont
{
public:
    // The first call takes the font that the window has, as one for 96 dpi; at 96 dpi that is what it keeps.
    void Show(CWnd& window, int dpi);

private:
    CFont m_font;
    LOGFONT m_base = {};
    int m_dpi = 0;
};

// The title bar, as far as the system lets a program choose.
void ShowTitleInTheme(HWND hFrame, const CalendarTheme& theme);

} // namespace planner

// Draws its texts itself, for the system's status bar has no colour for them.
class CThemedStatusBar : public CStatusBar
{
public:
    void SetTheme(const CalendarTheme& theme);
    void SetScale(int dpi);

protected:
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    DECLARE_MESSAGE_MAP()

private:
    CalendarTheme m_theme;
    planner::ScaledFont m_font;
};
