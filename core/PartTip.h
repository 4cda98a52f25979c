// PartTip: the system's tool tip for one part of a control at a time, such as the cell under the pointer.
#pragma once

#include "CalendarTheme.h"

#include <afxwin.h>

#include <string>

namespace dayvane {

class PartTip
{
public:
    PartTip() = default;
    ~PartTip() { Destroy(); }
    PartTip(const PartTip&) = delete;
    PartTip& operator=(const PartTip&) = delete;

    // The text that appears once the pointer rests in the part (client pixels of the owner). Empty: no tip.
    void SetPart(CWnd& owner, const CRect& part, const std::u16string& text);
    // Each mouse message of the owner, from which the tip knows where the pointer rests.
    void Relay(CWnd& owner, UINT message, WPARAM wParam, LPARAM lParam);
    // The colours of the tip; those of the system where the theme leaves them open.
    void SetTheme(const CalendarTheme& theme);
    // With the owner's window at the latest.
    void Destroy();

private:
    bool Create(HWND hOwner);
    void ShowColors() const;

    HWND m_hTip = nullptr;
    bool m_isActive = false; // there is a text
    CalendarTheme m_theme;
};

} // namespace dayvane
