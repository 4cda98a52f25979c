#include "core/PartTip.h"

#include "core/SystemTheme.h"
#include "core/ThemeColors.h"
#include "core/WideText.h"

#include <commctrl.h>

namespace dayvane {
namespace {
constexpr int kMaxWidth = 300; // pixels; longer texts take several lines

// The record of the tip's one tool, as every version of the common controls takes it.
TTTOOLINFOW ToolOf(HWND hOwner, const RECT& part, wchar_t* text)
{
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = hOwner;
    tool.uId = 1;
    tool.rect = part;
    tool.lpszText = text;
    return tool;
}
} // namespace

bool PartTip::Create(HWND hOwner)
{
    if (m_hTip) {
        return true;
    }
    ::InitCommonControls();
    m_hTip = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                               CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hOwner, nullptr,
                               AfxGetInstanceHandle(), nullptr);
    if (!m_hTip) {
        return false;
    }
    wchar_t noText[] = L"";
    const TTTOOLINFOW tool = ToolOf(hOwner, CRect(0, 0, 0, 0), noText);
    ::SendMessageW(m_hTip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    ::SendMessageW(m_hTip, TTM_SETMAXTIPWIDTH, 0, kMaxWidth);
    if (m_theme != kClassicTheme) {
        ShowColors();
    }
    return true;
}

void PartTip::SetTheme(const CalendarTheme& theme)
{
    m_theme = theme;
    if (m_hTip) {
        ShowColors();
    }
}

void PartTip::ShowColors() const
{
    ShowWindowInTheme(m_hTip, m_theme);
    ::SendMessageW(m_hTip, TTM_SETTIPBKCOLOR, ThemeOr(m_theme.page, ::GetSysColor(COLOR_INFOBK)), 0);
    ::SendMessageW(m_hTip, TTM_SETTIPTEXTCOLOR, ThemeOr(m_theme.pageText, ::GetSysColor(COLOR_INFOTEXT)), 0);
}

void PartTip::SetPart(CWnd& owner, const CRect& part, const std::u16string& text)
{
    std::wstring copy(WideOf(text), text.size()); // the record takes what may be written to
    m_isActive = !text.empty() && Create(owner.m_hWnd);
    if (!m_hTip) {
        return;
    }
    ::SendMessageW(m_hTip, TTM_POP, 0, 0);
    ::SendMessageW(m_hTip, TTM_ACTIVATE, m_isActive, 0);
    TTTOOLINFOW tool = ToolOf(owner.m_hWnd, part, copy.data());
    ::SendMessageW(m_hTip, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
    ::SendMessageW(m_hTip, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void PartTip::Relay(CWnd& owner, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_isActive) {
        MSG msg = {owner.m_hWnd, message, wParam, lParam, static_cast<DWORD>(::GetMessageTime()), {}};
        ::GetCursorPos(&msg.pt);
        ::SendMessageW(m_hTip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&msg));
    }
}

void PartTip::Destroy()
{
    if (m_hTip) {
        ::DestroyWindow(m_hTip);
    }
    m_hTip = nullptr;
    m_isActive = false;
}

} // namespace dayvane
