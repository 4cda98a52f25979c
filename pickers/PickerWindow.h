// CPickerOf: what the date selectors have in common as windows: options, colours, words, resolution and font, and
// programs that read aloud. Base: the MFC class that the window is of.
#pragma once

#include "../core/CalendarAccess.h"
#include "../core/CalendarOptions.h"
#include "../core/SystemTheme.h"
#include "../core/TextSettings.h"
#include "../core/ViewScale.h"
#include "../core/WindowAlive.h"

#include <afxwin.h>

#include <memory>
#include <optional>

// The window of a date selector.
template <class Base>
class CPickerOf : public Base
{
public:
    // Of the options those that concern date selectors: followSystemTheme, followDpi and, in mini calendars, toolTips
    // (the names of a day).
    void SetOptions(const CalendarOptions& options);
    const CalendarOptions& GetOptions() const { return m_options; }
    // The colours of everything, popups and tips too; repaints. See CalendarTheme.h.
    void SetTheme(const CalendarTheme& theme);
    const CalendarTheme& GetTheme() const { return m_theme; }
    const CalendarTexts& GetTexts() const { return *m_texts; } // words and patterns of dates
    // The resolution that the control is drawn for, 96 at first: sizes follow. Ends what the option followDpi does.
    // Kept between 48 and 768.
    void SetScale(int dpi);
    int GetScale() const { return m_scale.dpi; }
    const dayvane::ViewScale& GetViewScale() const { return m_scale; }
    // Face and size of all texts; the height is that for 96 dpi, and sizes become as much larger as its lines are.
    // WM_SETFONT does the same with a font of the present scale.
    void SetTextFont(const LOGFONT& font);
    const std::optional<LOGFONT>& GetTextFont() const { return m_hostFont; } // none: the control's own fonts
    // Titles, lists and the button's face with the year of the era, "令和8年11月"; off at first. Call Refresh() after
    // it, of the button Invalidate().
    void ShowEraTitles(BOOL bShow);
    BOOL IsShowEraTitles() const { return m_bEraTitles; }

protected:
    CPickerOf();

    virtual void ApplyScale(int dpi) = 0; // shows everything at the resolution, in the present font
    virtual void OptionsChanged() {}
    virtual void ThemeChanged() {}
    void StoreScale(int dpi); // with the growth of the font's lines
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    CalendarOptions m_options;
    CalendarTheme m_theme;
    dayvane::ViewScale m_scale;
    BOOL m_bOwnScale = FALSE; // the host has set one
    BOOL m_bEraTitles = FALSE;
    dayvane::SystemThemeWatch m_themeWatch;
    std::shared_ptr<const CalendarTexts> m_texts = dayvane::RequiredTexts();
    std::optional<LOGFONT> m_hostFont; // for 96 dpi
    dayvane::WindowLife m_life;
    dayvane::AccessHook m_access;
};

extern template class CPickerOf<CWnd>;
extern template class CPickerOf<CButton>;
