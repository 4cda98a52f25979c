#include "core/EditFont.h"

#include "core/DrawingHelpers.h"
#include "core/MixedText.h"
#include "core/WindowHelpers.h"

#include <cstring>

namespace dayvane {
namespace {

HFONT NewFontFor(HWND hBox, HFONT hOwn)
{
    CClientDC dc(CWnd::FromHandle(hBox));
    const SelectGdi selectFont(&dc, hOwn);
    return NewFontForText(dc.m_hDC, TextOfWindow(hBox));
}

bool LookTheSame(HFONT hFont, HFONT hOther)
{
    LOGFONTW looks[2] = {};
    return hFont && hOther && ::GetObjectW(hFont, sizeof(looks[0]), &looks[0]) != 0 &&
           ::GetObjectW(hOther, sizeof(looks[1]), &looks[1]) != 0 &&
           std::memcmp(&looks[0], &looks[1], sizeof(looks[0])) == 0;
}

} // namespace

EditFont::~EditFont()
{
    Reset();
}

void EditFont::Show(HWND hBox, HFONT hOwn, WNDPROC pfnBox)
{
    const HFONT other = hOwn ? NewFontFor(hBox, hOwn) : nullptr;
    if ((!other && !m_hOther) || LookTheSame(other, m_hOther)) {
        ::DeleteObject(other);
        return;
    }
    const WPARAM shown = reinterpret_cast<WPARAM>(other ? other : hOwn);
    if (pfnBox) {
        ::CallWindowProcW(pfnBox, hBox, WM_SETFONT, shown, TRUE);
    } else {
        ::SendMessageW(hBox, WM_SETFONT, shown, TRUE);
    }
    Reset();
    m_hOther = other;
}

void EditFont::Reset()
{
    if (m_hOther) {
        ::DeleteObject(m_hOther);
        m_hOther = nullptr;
    }
}

} // namespace dayvane
