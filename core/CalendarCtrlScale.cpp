// The base control's side of scale and text font.
#include "core/CalendarCtrl.h"

#include "core/DrawingHelpers.h"
#include "core/Fonts.h"
#include "core/PointerDriver.h"
#include "core/WindowHelpers.h"

#include <algorithm>

using namespace dayvane;

namespace {

constexpr int kOwnLine = 12; // height of a line of the text font that the sizes are made for, pixels at 96 dpi

int LineHeightOf(const LOGFONT& description)
{
    CFont font;
    font.CreateFontIndirect(&description);
    CDC screen;
    screen.CreateCompatibleDC(nullptr);
    const SelectGdi selectFont(&screen, &font);
    TEXTMETRIC metrics = {};
    screen.GetTextMetrics(&metrics);
    return metrics.tmHeight;
}

} // namespace

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
        scale.textGrowth = std::max(LineHeightOf(Scaled(m_lfFonts[FONT_TEXT], scale)) - scale.Of(kOwnLine), 0);
    }
    if (scale != m_scale) {
        const ViewScale before = m_scale;
        m_scale = scale;
        ScaleChanged(before);
    }
}

void CCalendarCtrl::ScaleChanged(const ViewScale&)
{
    const WindowAlive alive(this, m_life);
    FinishEdit(TRUE); // its box has the old font
    if (!alive) {
        return;
    }
    m_pointer->SetScale(m_scale);
    for (CFont& font : m_fontCache) {
        font.DeleteObject();
    }
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
    if (hFont && ::GetObject(hFont, sizeof(description), &description) != 0) {
        description.lfHeight = MulDiv(description.lfHeight, kBaseDpi, m_scale.dpi);
        SetTextFont(description);
    }
}
