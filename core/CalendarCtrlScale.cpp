// The base control's side of scale and text font.
#include "core/CalendarCtrl.h"

#include "core/Fonts.h"
#include "core/PointerDriver.h"
#include "core/WindowHelpers.h"

using namespace dayvane;

void CCalendarCtrl::SetScale(int dpi)
{
    m_bOwnScale = TRUE;
    ApplyScale(dpi);
}

void CCalendarCtrl::SetTextFont(const LOGFONT& font)
{
    m_lfFonts[FONT_TEXT] = font;
    m_bTextFont = TRUE;
    const ViewScale before = m_scale;
    ApplyScale(m_scale.dpi);
    if (before == m_scale) {
        ScaleChanged(before); // another face of the same height
    }
}

void CCalendarCtrl::SetFonts(const CalendarFonts& fonts)
{
    m_lfFonts[FONT_CAPTION] = fonts.hours;
    m_lfFonts[FONT_LARGE_CAPTION] = fonts.caption;
    SetTextFont(fonts.text);
}

void CCalendarCtrl::ApplyScale(int dpi)
{
    ViewScale scale;
    scale.dpi = ClampedDpi(dpi);
    if (m_bTextFont) {
        scale.textGrowth = TextGrowth(m_lfFonts[FONT_TEXT], scale);
    }
    if (scale != m_scale) {
        const ViewScale before = m_scale;
        m_scale = scale;
        ScaleChanged(before);
    }
}

void CCalendarCtrl::ScaleChanged(const ViewScale&)
{
    if (!EndEdit()) { // its box has the old font
        return;
    }
    m_pointer->SetScale(m_scale);
    for (CFont& font : m_fontCache) {
        font.DeleteObject();
    }
    ForgetDrawn();
    Refresh();
}

void CCalendarCtrl::FollowDpi(UINT message, WPARAM wParam)
{
    if (!m_bOwnScale && m_hWnd && AnnouncesDpi(message)) {
        ApplyScale(AnnouncedDpi(m_hWnd, message, wParam));
    }
}

void CCalendarCtrl::TakeFont(HFONT hFont)
{
    LOGFONT description = {};
    if (FontOfMessage(hFont, m_scale, description)) {
        SetTextFont(description);
    }
}
