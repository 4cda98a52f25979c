// Buttons, ticks, fields and lists of a dialog in the colours of a theme. The system asks for the colours of their text
// and ground; edges, buttons and arrows it paints as it likes, so that these are painted here.
#pragma once

#include "core/CalendarTheme.h"
#include "core/ViewScale.h"

#include <afxwin.h>

#include <memory>

namespace planner {

class ThemedControl
{
public:
    // Paints the control from now on, as long as it and this object live. nullptr: it has nothing to be painted.
    static std::unique_ptr<ThemedControl> Of(HWND control, const CalendarTheme& theme, dayvane::ViewScale scale);
    ~ThemedControl();
    ThemedControl(const ThemedControl&) = delete;
    ThemedControl& operator=(const ThemedControl&) = delete;

private:
    enum class Kind
    {
        Push,
        Check,
        Field, // an edit box or list: only its edge
        Combo
    };
    struct Colors
    {
        COLORREF around; // of the dialog
        COLORREF ground; // of fields
        COLORREF face;   // of buttons
        COLORREF pressed;
        COLORREF edge;
        COLORREF focus; // edge of what has the focus
        COLORREF text;
        COLORREF fieldText;
        COLORREF disabled;
    };

    ThemedControl(HWND control, Kind kind, const CalendarTheme& theme, dayvane::ViewScale scale);
    static LRESULT CALLBACK Proc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR data);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Paint();
    void PaintPush(CDC& dc, const CRect& all) const;
    void PaintCheck(CDC& dc, const CRect& all) const;
    void PaintTick(CDC& dc, const CRect& box, COLORREF color) const;
    void PaintText(CDC& dc, CRect place, UINT format, bool hasFocusFrame) const;
    void PaintEdge() const;
    void PaintCombo() const;
    COLORREF EdgeColor() const;
    bool IsEnabled() const { return ::IsWindowEnabled(m_hWnd) != FALSE; }

    HWND m_hWnd; // null: it is gone
    Kind m_kind;
    dayvane::ViewScale m_scale;
    Colors m_colors;
};

} // namespace planner
