#include "planner/ThemedControl.h"

#include "core/DrawingHelpers.h"
#include "core/ThemeColors.h"
#include "planner/PlannerTheme.h"

#include <commctrl.h>
#include <uxtheme.h>

#include <algorithm>
#include <optional>
#include <string>

namespace planner {

namespace {

// Pixels at 96 dpi
constexpr int kBoxSize = 13;
constexpr int kBoxGap = 5;
constexpr int kTickWidth = 2;
constexpr int kArrowWidth = 7;
constexpr int kFocusInset = 3;
constexpr int kSystemEdge = 2; // pixels of an edge of the system, at every scale
// Per cent of the text's colour in the dialog's ground
constexpr int kFacePart = 12;
constexpr int kPressedPart = 28;
constexpr int kEdgePart = 45;
constexpr int kDisabledPart = 50;

COLORREF Mixed(COLORREF ground, COLORREF text, int part)
{
    const auto mix = [part](int a, int b) { return static_cast<BYTE>(a + (b - a) * part / 100); };
    return RGB(mix(GetRValue(ground), GetRValue(text)), mix(GetGValue(ground), GetGValue(text)),
               mix(GetBValue(ground), GetBValue(text)));
}

bool IsClass(HWND window, const char* name)
{
    char own[32] = "";
    ::GetClassName(window, own, sizeof(own));
    return ::lstrcmpi(own, name) == 0;
}

// After these the system has painted a button or combo box anew, outside WM_PAINT.
bool PaintsAtOnce(UINT message)
{
    constexpr UINT messages[] = {BM_SETSTATE,     BM_SETSTYLE, BM_SETCHECK,       WM_SETFOCUS,      WM_KILLFOCUS,
                                 WM_ENABLE,       WM_SETTEXT,  WM_LBUTTONDOWN,    WM_LBUTTONUP,     WM_LBUTTONDBLCLK,
                                 WM_KEYDOWN,      WM_KEYUP,    WM_CAPTURECHANGED, WM_UPDATEUISTATE, WM_COMMAND,
                                 CB_SHOWDROPDOWN, CB_SETCURSEL};
    return std::find(std::begin(messages), std::end(messages), message) != std::end(messages);
}

} // namespace

std::unique_ptr<ThemedControl> ThemedControl::Of(HWND control, const CalendarTheme& theme, dayvane::ViewScale scale)
{
    std::optional<Kind> kind;
    if (IsClass(control, "Button")) {
        const LONG type = ::GetWindowLong(control, GWL_STYLE) & BS_TYPEMASK;
        kind = type == BS_AUTOCHECKBOX ? Kind::Check : Kind::Push;
    } else if (IsClass(control, "Edit") || IsClass(control, "ListBox")) {
        kind = Kind::Field;
    } else if (IsClass(control, "ComboBox")) {
        kind = Kind::Combo;
    }
    return kind ? std::unique_ptr<ThemedControl>(new ThemedControl(control, *kind, theme, scale)) : nullptr;
}

ThemedControl::ThemedControl(HWND control, Kind kind, const CalendarTheme& theme, dayvane::ViewScale scale)
    : m_hWnd(control), m_kind(kind), m_scale(scale)
{
    const PaneColors bar = BarColors(theme), list = ListColors(theme);
    m_colors.around = bar.ground;
    m_colors.ground = list.ground;
    m_colors.text = bar.text;
    m_colors.fieldText = list.text;
    m_colors.face = Mixed(bar.ground, bar.text, kFacePart);
    m_colors.pressed = Mixed(bar.ground, bar.text, kPressedPart);
    m_colors.edge = Mixed(bar.ground, bar.text, kEdgePart);
    m_colors.disabled = Mixed(bar.ground, bar.text, kDisabledPart);
    m_colors.focus = dayvane::ThemeOr(theme.today, ::GetSysColor(COLOR_HIGHLIGHT));
    if (kind != Kind::Field) {
        ::SetWindowTheme(control, L"", L""); // else the system's own pictures would fade in over these
    }
    ::SetWindowSubclass(control, &ThemedControl::Proc, 0, reinterpret_cast<DWORD_PTR>(this));
}

ThemedControl::~ThemedControl()
{
    if (m_hWnd) {
        ::RemoveWindowSubclass(m_hWnd, &ThemedControl::Proc, 0);
    }
}

LRESULT CALLBACK ThemedControl::Proc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR data)
{
    ThemedControl& control = *reinterpret_cast<ThemedControl*>(data);
    if (message == WM_NCDESTROY) {
        ::RemoveWindowSubclass(hWnd, &ThemedControl::Proc, 0);
        control.m_hWnd = nullptr;
        return ::DefSubclassProc(hWnd, message, wParam, lParam);
    }
    return control.OnMessage(message, wParam, lParam);
}

LRESULT ThemedControl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool isButton = m_kind == Kind::Push || m_kind == Kind::Check;
    if (isButton && message == WM_PAINT) {
        Paint();
        return 0;
    }
    if (isButton && message == WM_ERASEBKGND) {
        return TRUE;
    }
    const HWND hWnd = m_hWnd;
    const LRESULT result = ::DefSubclassProc(hWnd, message, wParam, lParam);
    if (!m_hWnd) { // what was pressed has closed the dialog
        return result;
    }
    if (isButton && PaintsAtOnce(message)) {
        ::RedrawWindow(hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    } else if (m_kind == Kind::Combo && (message == WM_PAINT || PaintsAtOnce(message))) {
        PaintCombo();
    } else if (m_kind == Kind::Field && (message == WM_NCPAINT || message == WM_SETFOCUS || message == WM_KILLFOCUS)) {
        PaintEdge();
    }
    return result;
}

void ThemedControl::Paint()
{
    PAINTSTRUCT paint;
    CDC& dc = *CDC::FromHandle(::BeginPaint(m_hWnd, &paint));
    {
        const dayvane::SaveDcScope saved(&dc);
        CRect all;
        ::GetClientRect(m_hWnd, &all);
        ::SelectObject(dc, reinterpret_cast<HFONT>(::SendMessage(m_hWnd, WM_GETFONT, 0, 0)));
        dc.SetBkMode(TRANSPARENT);
        dc.SetTextColor(IsEnabled() ? m_colors.text : m_colors.disabled);
        if (m_kind == Kind::Push) {
            PaintPush(dc, all);
        } else {
            PaintCheck(dc, all);
        }
    }
    ::EndPaint(m_hWnd, &paint);
}

COLORREF ThemedControl::EdgeColor() const
{
    const HWND focus = ::GetFocus();
    return focus == m_hWnd || (focus && ::IsChild(m_hWnd, focus)) ? m_colors.focus : m_colors.edge;
}

void ThemedControl::PaintPush(CDC& dc, const CRect& all) const
{
    const bool isPressed = (::SendMessage(m_hWnd, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
    const bool isDefault = (::GetWindowLong(m_hWnd, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    CRect face(all);
    dc.FillSolidRect(&face, isDefault && IsEnabled() ? m_colors.focus : EdgeColor());
    face.DeflateRect(m_scale.Of(1), m_scale.Of(1));
    dc.FillSolidRect(&face, isPressed ? m_colors.pressed : m_colors.face);
    PaintText(dc, face, DT_CENTER, true);
}

void ThemedControl::PaintCheck(CDC& dc, const CRect& all) const
{
    dc.FillSolidRect(&all, m_colors.around);
    const int size = m_scale.Of(kBoxSize);
    CRect box(CPoint(all.left, all.top + (all.Height() - size) / 2), CSize(size, size));
    dc.FillSolidRect(&box, IsEnabled() ? EdgeColor() : m_colors.disabled);
    box.DeflateRect(m_scale.Of(1), m_scale.Of(1));
    dc.FillSolidRect(&box, m_colors.ground);
    if (::SendMessage(m_hWnd, BM_GETCHECK, 0, 0) == BST_CHECKED) {
        PaintTick(dc, box, IsEnabled() ? m_colors.fieldText : m_colors.disabled);
    }
    CRect text(all);
    text.left += size + m_scale.Of(kBoxGap);
    PaintText(dc, text, DT_LEFT, false);
}

void ThemedControl::PaintTick(CDC& dc, const CRect& box, COLORREF color) const
{
    CPen pen(PS_SOLID, m_scale.Of(kTickWidth), color);
    const dayvane::SelectGdi selectPen(&dc, &pen);
    dc.MoveTo(box.left + box.Width() / 5, box.top + box.Height() / 2);
    dc.LineTo(box.left + 2 * box.Width() / 5, box.bottom - box.Height() / 4);
    dc.LineTo(box.right - box.Width() / 6, box.top + box.Height() / 5);
}

// The frame of the focus and the line under the letter of Alt are there once the keyboard is in use.
void ThemedControl::PaintText(CDC& dc, CRect place, UINT format, bool hasFocusFrame) const
{
    const LRESULT state = ::SendMessage(m_hWnd, WM_QUERYUISTATE, 0, 0);
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(m_hWnd)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextW(m_hWnd, &text[0], static_cast<int>(text.size()))));
    const UINT letters = (state & UISF_HIDEACCEL) != 0 ? DT_HIDEPREFIX : 0;
    ::DrawTextW(dc, text.c_str(), -1, &place, format | letters | DT_VCENTER | DT_SINGLELINE);
    if (::GetFocus() == m_hWnd && (state & UISF_HIDEFOCUS) == 0) {
        CRect frame(place);
        if (hasFocusFrame) {
            frame.DeflateRect(m_scale.Of(kFocusInset), m_scale.Of(kFocusInset));
        } else {
            CRect written(0, 0, 0, 0);
            ::DrawTextW(dc, text.c_str(), -1, &written, DT_CALCRECT | DT_SINGLELINE);
            frame.right = std::min(frame.right, frame.left + written.Width() + 1);
            frame.left -= 1;
            frame.DeflateRect(0,
                              std::max(0, (static_cast<int>(place.Height()) - static_cast<int>(written.Height())) / 2));
        }
        dc.SetBkColor(m_colors.face);
        dc.SetTextColor(m_colors.text);
        dc.DrawFocusRect(&frame);
    }
}

// Over the one of the system.
void ThemedControl::PaintEdge() const
{
    if ((::GetWindowLong(m_hWnd, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) == 0) {
        return;
    }
    CRect all;
    ::GetWindowRect(m_hWnd, &all);
    all.OffsetRect(-all.TopLeft());
    CWindowDC dc(CWnd::FromHandle(m_hWnd));
    CRect inner(all);
    inner.DeflateRect(kSystemEdge, kSystemEdge);
    dc.ExcludeClipRect(&inner);
    dc.FillSolidRect(&all, EdgeColor());
    all.DeflateRect(1, 1);
    dc.FillSolidRect(&all, m_colors.ground);
}

void ThemedControl::PaintCombo() const
{
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    if (!::GetComboBoxInfo(m_hWnd, &info)) {
        return;
    }
    CRect all, text, button(info.rcButton);
    ::GetClientRect(m_hWnd, &all);
    if (info.hwndItem && info.hwndItem != m_hWnd) { // what is typed; around it the system paints a light frame
        ::GetWindowRect(info.hwndItem, &text);
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&text), 2);
    } else {
        text = all;
        text.DeflateRect(kSystemEdge, kSystemEdge);
    }
    CClientDC dc(CWnd::FromHandle(m_hWnd));
    const dayvane::SaveDcScope saved(&dc);
    dc.FillSolidRect(&button, info.stateButton == STATE_SYSTEM_PRESSED ? m_colors.pressed : m_colors.face);
    const int half = m_scale.Of(kArrowWidth) / 2;
    const CPoint tip((button.left + button.right) / 2, (button.top + button.bottom + half) / 2);
    for (int i = 0; i <= half; ++i) {
        dc.FillSolidRect(CRect(tip.x - i, tip.y - i, tip.x + i + 1, tip.y - i + 1),
                         IsEnabled() ? m_colors.text : m_colors.disabled);
    }
    dc.ExcludeClipRect(&text);
    dc.ExcludeClipRect(&button);
    dc.FillSolidRect(&all, EdgeColor());
    all.DeflateRect(1, 1);
    dc.FillSolidRect(&all, m_colors.ground);
}

} // namespace planner
