#include "pickers/PickerWindow.h"

#include "core/Fonts.h"
#include "core/SystemEras.h"
#include "core/WindowHelpers.h"

using namespace dayvane;

template <class Base>
CPickerOf<Base>::CPickerOf() : m_themeWatch([this] { SetTheme(ThemeOf(GetSystemTheme())); })
{
}

template <class Base>
void CPickerOf<Base>::SetOptions(const CalendarOptions& options)
{
    m_options = options;
    m_themeWatch.Follow(options.followSystemTheme);
    OptionsChanged();
    if (options.followDpi && this->m_hWnd && !m_bOwnScale) {
        ApplyScale(DpiOfWindow(this->m_hWnd));
    }
}

template <class Base>
void CPickerOf<Base>::SetTheme(const CalendarTheme& theme)
{
    m_theme = theme;
    ThemeChanged();
    if (this->m_hWnd) {
        this->Invalidate(FALSE);
    }
}

template <class Base>
void CPickerOf<Base>::SetScale(int dpi)
{
    m_bOwnScale = TRUE;
    ApplyScale(dpi);
}

template <class Base>
void CPickerOf<Base>::SetTextFont(const LOGFONT& font)
{
    m_hostFont = font;
    ApplyScale(m_scale.dpi);
}

template <class Base>
void CPickerOf<Base>::ShowEraTitles(BOOL bShow)
{
    if (bShow) {
        UseSystemEras();
    }
    m_bEraTitles = bShow != FALSE;
}

template <class Base>
void CPickerOf<Base>::StoreScale(int dpi)
{
    m_scale.dpi = ClampedDpi(dpi);
    m_scale.textGrowth = m_hostFont ? TextGrowth(*m_hostFont, m_scale) : 0;
}

template <class Base>
LRESULT CPickerOf<Base>::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_access.Answer(*this, message, wParam, lParam, result)) {
        return result;
    }
    const WindowAlive alive(this, m_life);
    result = Base::WindowProc(message, wParam, lParam);
    LOGFONT font = {};
    if (alive && message == WM_SETFONT && FontOfMessage(reinterpret_cast<HFONT>(wParam), m_scale, font)) {
        SetTextFont(font);
    }
    if (alive && m_options.followDpi && !m_bOwnScale && AnnouncesDpi(message)) {
        ApplyScale(AnnouncedDpi(this->m_hWnd, message, wParam));
    }
    if (alive) {
        m_access.Follow();
    }
    return result;
}

template class CPickerOf<CWnd>;
template class CPickerOf<CButton>;
