// The base control's side of themes.
#include "core/CalendarCtrl.h"

#include "core/SystemTheme.h"
#include "core/ThemeColors.h"

using namespace dayvane;

void CCalendarCtrl::SetTheme(const CalendarTheme& theme)
{
    if (theme == m_theme) {
        return;
    }
    if (m_theme == kClassicTheme) {
        m_ownColors = m_colors;
    }
    const bool wasDark = m_theme.itemFill == ItemFill::ForDarkPage;
    m_theme = theme;
    m_colors = Themed(m_ownColors, theme);
    m_arThemedDays.RemoveAll();
    m_pageBrush.DeleteObject();
    if (!m_hWnd) {
        return;
    }
    if (wasDark != (theme.itemFill == ItemFill::ForDarkPage)) {
        ShowWindowInTheme(m_hWnd, theme);
    }
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
}

const DayColorTable& CCalendarCtrl::GetDayColors()
{
    if (!HasDayColors(m_theme)) {
        return m_arDayColors;
    }
    if (m_arThemedDays.GetSize() != m_arDayColors.GetSize()) {
        FillThemedDays(m_arDayColors, m_theme, m_arThemedDays);
    }
    return m_arThemedDays;
}

// The colours of an edit or combo box inside the control; 0: the system's.
LRESULT CCalendarCtrl::ColorChild(HDC hDC)
{
    if (m_theme.page == CalendarTheme::kOwn) {
        return 0;
    }
    if (!m_pageBrush.GetSafeHandle()) {
        m_pageBrush.CreateSolidBrush(m_theme.page);
    }
    ::SetBkColor(hDC, m_theme.page);
    ::SetTextColor(hDC, ThemeOr(m_theme.pageText, ::GetSysColor(COLOR_WINDOWTEXT)));
    return reinterpret_cast<LRESULT>(m_pageBrush.GetSafeHandle());
}

// ---- The system's theme

void CCalendarCtrl::FollowSystemTheme()
{
    SetTheme(ThemeOf(GetSystemTheme()));
}
