// Message-map macros of the window messages: ON_WM_SIZE() joins WM_SIZE to OnSize, and so on. Each row states the
// handler's signature and how the message's parameters become its arguments. Pointers to windows, menus and device
// contexts passed to a handler hold for this one message only.
#pragma once

#include "afxmsg_.h"

// Arguments that many messages share
#define AFX_MOUSE_ARGUMENTS (static_cast<UINT>(m.wParam), AfxPointOf(m.lParam))
#define AFX_KEY_ARGUMENTS (static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam))

// Lifetime
#define ON_WM_NCCREATE()                                                                                               \
    AFX_MESSAGE_ROW(WM_NCCREATE, BOOL(LPCREATESTRUCT), &ThisClass::OnNcCreate,                                         \
                    (reinterpret_cast<LPCREATESTRUCT>(m.lParam)))
#define ON_WM_CREATE()                                                                                                 \
    AFX_MESSAGE_ROW(WM_CREATE, int(LPCREATESTRUCT), &ThisClass::OnCreate, (reinterpret_cast<LPCREATESTRUCT>(m.lParam)))
#define ON_WM_CLOSE() AFX_MESSAGE_ROW(WM_CLOSE, void(), &ThisClass::OnClose, ())
#define ON_WM_DESTROY() AFX_MESSAGE_ROW(WM_DESTROY, void(), &ThisClass::OnDestroy, ())
#define ON_WM_NCDESTROY() AFX_MESSAGE_ROW(WM_NCDESTROY, void(), &ThisClass::OnNcDestroy, ())
#define ON_WM_QUERYENDSESSION() AFX_MESSAGE_ROW(WM_QUERYENDSESSION, BOOL(), &ThisClass::OnQueryEndSession, ())
#define ON_WM_ENDSESSION() AFX_MESSAGE_ROW(WM_ENDSESSION, void(BOOL), &ThisClass::OnEndSession, (m.wParam != 0))

// Size, place and scroll
#define ON_WM_SIZE()                                                                                                   \
    AFX_MESSAGE_ROW(WM_SIZE, void(UINT, int, int), &ThisClass::OnSize,                                                 \
                    (static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam)))
#define ON_WM_SIZING()                                                                                                 \
    AFX_MESSAGE_ROW(WM_SIZING, void(UINT, LPRECT), &ThisClass::OnSizing,                                               \
                    (static_cast<UINT>(m.wParam), reinterpret_cast<LPRECT>(m.lParam)))
#define ON_WM_MOVE()                                                                                                   \
    AFX_MESSAGE_ROW(WM_MOVE, void(int, int), &ThisClass::OnMove, (AfxPointOf(m.lParam).x, AfxPointOf(m.lParam).y))
#define ON_WM_GETMINMAXINFO()                                                                                          \
    AFX_MESSAGE_ROW(WM_GETMINMAXINFO, void(MINMAXINFO*), &ThisClass::OnGetMinMaxInfo,                                  \
                    (reinterpret_cast<MINMAXINFO*>(m.lParam)))
#define ON_WM_WINDOWPOSCHANGING()                                                                                      \
    AFX_MESSAGE_ROW(WM_WINDOWPOSCHANGING, void(WINDOWPOS*), &ThisClass::OnWindowPosChanging,                           \
                    (reinterpret_cast<WINDOWPOS*>(m.lParam)))
#define ON_WM_WINDOWPOSCHANGED()                                                                                       \
    AFX_MESSAGE_ROW(WM_WINDOWPOSCHANGED, void(WINDOWPOS*), &ThisClass::OnWindowPosChanged,                             \
                    (reinterpret_cast<WINDOWPOS*>(m.lParam)))
#define ON_WM_SHOWWINDOW()                                                                                             \
    AFX_MESSAGE_ROW(WM_SHOWWINDOW, void(BOOL, UINT), &ThisClass::OnShowWindow,                                         \
                    (m.wParam != 0, static_cast<UINT>(m.lParam)))
#define ON_WM_ENABLE() AFX_MESSAGE_ROW(WM_ENABLE, void(BOOL), &ThisClass::OnEnable, (m.wParam != 0))
#define ON_WM_HSCROLL()                                                                                                \
    AFX_MESSAGE_ROW(WM_HSCROLL, void(UINT, UINT, CScrollBar*), &ThisClass::OnHScroll,                                  \
                    (LOWORD(m.wParam), HIWORD(m.wParam), AfxScrollBarOf(m.lParam)))
#define ON_WM_VSCROLL()                                                                                                \
    AFX_MESSAGE_ROW(WM_VSCROLL, void(UINT, UINT, CScrollBar*), &ThisClass::OnVScroll,                                  \
                    (LOWORD(m.wParam), HIWORD(m.wParam), AfxScrollBarOf(m.lParam)))

// Paint
#define ON_WM_PAINT() AFX_MESSAGE_ROW(WM_PAINT, void(), &ThisClass::OnPaint, ())
#define ON_WM_ERASEBKGND() AFX_MESSAGE_ROW(WM_ERASEBKGND, BOOL(CDC*), &ThisClass::OnEraseBkgnd, (AfxTempDC(m.wParam)))
#define ON_WM_NCPAINT() AFX_MESSAGE_ROW(WM_NCPAINT, void(), &ThisClass::OnNcPaint, ())
#define ON_WM_NCCALCSIZE()                                                                                             \
    AFX_MESSAGE_ROW(WM_NCCALCSIZE, void(BOOL, NCCALCSIZE_PARAMS*), &ThisClass::OnNcCalcSize,                           \
                    (m.wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(m.lParam)))
#define ON_WM_NCHITTEST()                                                                                              \
    AFX_MESSAGE_ROW(WM_NCHITTEST, LRESULT(CPoint), &ThisClass::OnNcHitTest, (AfxPointOf(m.lParam)))
#define ON_WM_NCACTIVATE() AFX_MESSAGE_ROW(WM_NCACTIVATE, BOOL(BOOL), &ThisClass::OnNcActivate, (m.wParam != 0))
#define ON_WM_CTLCOLOR()                                                                                               \
    AFX_MESSAGE_ROW(WM_CTLCOLOR, HBRUSH(CDC*, CWnd*, UINT), &ThisClass::OnCtlColor,                                    \
                    (AfxTempDC(m.wParam), AfxWndOf(m.lParam), m.message - WM_CTLCOLORMSGBOX))
#define ON_WM_DRAWITEM()                                                                                               \
    AFX_MESSAGE_ROW(WM_DRAWITEM, void(int, LPDRAWITEMSTRUCT), &ThisClass::OnDrawItem,                                  \
                    (static_cast<int>(m.wParam), reinterpret_cast<LPDRAWITEMSTRUCT>(m.lParam)))
#define ON_WM_MEASUREITEM()                                                                                            \
    AFX_MESSAGE_ROW(WM_MEASUREITEM, void(int, LPMEASUREITEMSTRUCT), &ThisClass::OnMeasureItem,                         \
                    (static_cast<int>(m.wParam), reinterpret_cast<LPMEASUREITEMSTRUCT>(m.lParam)))
#define ON_WM_SYSCOLORCHANGE() AFX_MESSAGE_ROW(WM_SYSCOLORCHANGE, void(), &ThisClass::OnSysColorChange, ())
#define ON_WM_SETTINGCHANGE()                                                                                          \
    AFX_MESSAGE_ROW(WM_SETTINGCHANGE, void(UINT, LPCTSTR), &ThisClass::OnSettingChange,                                \
                    (static_cast<UINT>(m.wParam), reinterpret_cast<LPCTSTR>(m.lParam)))

// Mouse
#define ON_WM_MOUSEMOVE()                                                                                              \
    AFX_MESSAGE_ROW(WM_MOUSEMOVE, void(UINT, CPoint), &ThisClass::OnMouseMove, AFX_MOUSE_ARGUMENTS)
#define ON_WM_MOUSEHOVER()                                                                                             \
    AFX_MESSAGE_ROW(WM_MOUSEHOVER, void(UINT, CPoint), &ThisClass::OnMouseHover, AFX_MOUSE_ARGUMENTS)
#define ON_WM_MOUSELEAVE() AFX_MESSAGE_ROW(WM_MOUSELEAVE, void(), &ThisClass::OnMouseLeave, ())
#define ON_WM_LBUTTONDOWN()                                                                                            \
    AFX_MESSAGE_ROW(WM_LBUTTONDOWN, void(UINT, CPoint), &ThisClass::OnLButtonDown, AFX_MOUSE_ARGUMENTS)
#define ON_WM_LBUTTONUP()                                                                                              \
    AFX_MESSAGE_ROW(WM_LBUTTONUP, void(UINT, CPoint), &ThisClass::OnLButtonUp, AFX_MOUSE_ARGUMENTS)
#define ON_WM_LBUTTONDBLCLK()                                                                                          \
    AFX_MESSAGE_ROW(WM_LBUTTONDBLCLK, void(UINT, CPoint), &ThisClass::OnLButtonDblClk, AFX_MOUSE_ARGUMENTS)
#define ON_WM_RBUTTONDOWN()                                                                                            \
    AFX_MESSAGE_ROW(WM_RBUTTONDOWN, void(UINT, CPoint), &ThisClass::OnRButtonDown, AFX_MOUSE_ARGUMENTS)
#define ON_WM_RBUTTONUP()                                                                                              \
    AFX_MESSAGE_ROW(WM_RBUTTONUP, void(UINT, CPoint), &ThisClass::OnRButtonUp, AFX_MOUSE_ARGUMENTS)
#define ON_WM_RBUTTONDBLCLK()                                                                                          \
    AFX_MESSAGE_ROW(WM_RBUTTONDBLCLK, void(UINT, CPoint), &ThisClass::OnRButtonDblClk, AFX_MOUSE_ARGUMENTS)
#define ON_WM_MBUTTONDOWN()                                                                                            \
    AFX_MESSAGE_ROW(WM_MBUTTONDOWN, void(UINT, CPoint), &ThisClass::OnMButtonDown, AFX_MOUSE_ARGUMENTS)
#define ON_WM_MBUTTONUP()                                                                                              \
    AFX_MESSAGE_ROW(WM_MBUTTONUP, void(UINT, CPoint), &ThisClass::OnMButtonUp, AFX_MOUSE_ARGUMENTS)
#define ON_WM_MBUTTONDBLCLK()                                                                                          \
    AFX_MESSAGE_ROW(WM_MBUTTONDBLCLK, void(UINT, CPoint), &ThisClass::OnMButtonDblClk, AFX_MOUSE_ARGUMENTS)
#define ON_WM_NCLBUTTONDOWN()                                                                                          \
    AFX_MESSAGE_ROW(WM_NCLBUTTONDOWN, void(UINT, CPoint), &ThisClass::OnNcLButtonDown, AFX_MOUSE_ARGUMENTS)
#define ON_WM_MOUSEACTIVATE()                                                                                          \
    AFX_MESSAGE_ROW(WM_MOUSEACTIVATE, int(CWnd*, UINT, UINT), &ThisClass::OnMouseActivate,                             \
                    (AfxWndOf(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam)))
#define ON_WM_SETCURSOR()                                                                                              \
    AFX_MESSAGE_ROW(WM_SETCURSOR, BOOL(CWnd*, UINT, UINT), &ThisClass::OnSetCursor,                                    \
                    (AfxWndOf(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam)))
#define ON_WM_CONTEXTMENU()                                                                                            \
    AFX_MESSAGE_ROW(WM_CONTEXTMENU, void(CWnd*, CPoint), &ThisClass::OnContextMenu,                                    \
                    (AfxWndOf(m.wParam), AfxPointOf(m.lParam)))
#define ON_WM_DROPFILES()                                                                                              \
    AFX_MESSAGE_ROW(WM_DROPFILES, void(HDROP), &ThisClass::OnDropFiles, (reinterpret_cast<HDROP>(m.wParam)))

// Keyboard
#define ON_WM_KEYDOWN() AFX_MESSAGE_ROW(WM_KEYDOWN, void(UINT, UINT, UINT), &ThisClass::OnKeyDown, AFX_KEY_ARGUMENTS)
#define ON_WM_KEYUP() AFX_MESSAGE_ROW(WM_KEYUP, void(UINT, UINT, UINT), &ThisClass::OnKeyUp, AFX_KEY_ARGUMENTS)
#define ON_WM_CHAR() AFX_MESSAGE_ROW(WM_CHAR, void(UINT, UINT, UINT), &ThisClass::OnChar, AFX_KEY_ARGUMENTS)
#define ON_WM_SYSKEYDOWN()                                                                                             \
    AFX_MESSAGE_ROW(WM_SYSKEYDOWN, void(UINT, UINT, UINT), &ThisClass::OnSysKeyDown, AFX_KEY_ARGUMENTS)
#define ON_WM_SYSKEYUP() AFX_MESSAGE_ROW(WM_SYSKEYUP, void(UINT, UINT, UINT), &ThisClass::OnSysKeyUp, AFX_KEY_ARGUMENTS)
#define ON_WM_SYSCHAR() AFX_MESSAGE_ROW(WM_SYSCHAR, void(UINT, UINT, UINT), &ThisClass::OnSysChar, AFX_KEY_ARGUMENTS)
#define ON_WM_GETDLGCODE() AFX_MESSAGE_ROW(WM_GETDLGCODE, UINT(), &ThisClass::OnGetDlgCode, ())
#define ON_WM_SYSCOMMAND()                                                                                             \
    AFX_MESSAGE_ROW(WM_SYSCOMMAND, void(UINT, LPARAM), &ThisClass::OnSysCommand,                                       \
                    (static_cast<UINT>(m.wParam), m.lParam))

// Focus, activation and capture
#define ON_WM_SETFOCUS() AFX_MESSAGE_ROW(WM_SETFOCUS, void(CWnd*), &ThisClass::OnSetFocus, (AfxWndOf(m.wParam)))
#define ON_WM_KILLFOCUS() AFX_MESSAGE_ROW(WM_KILLFOCUS, void(CWnd*), &ThisClass::OnKillFocus, (AfxWndOf(m.wParam)))
#define ON_WM_ACTIVATE()                                                                                               \
    AFX_MESSAGE_ROW(WM_ACTIVATE, void(UINT, CWnd*, BOOL), &ThisClass::OnActivate,                                      \
                    (LOWORD(m.wParam), AfxWndOf(m.lParam), HIWORD(m.wParam) != 0))
#define ON_WM_ACTIVATEAPP()                                                                                            \
    AFX_MESSAGE_ROW(WM_ACTIVATEAPP, void(BOOL, DWORD), &ThisClass::OnActivateApp,                                      \
                    (m.wParam != 0, static_cast<DWORD>(m.lParam)))
#define ON_WM_CAPTURECHANGED()                                                                                         \
    AFX_MESSAGE_ROW(WM_CAPTURECHANGED, void(CWnd*), &ThisClass::OnCaptureChanged, (AfxWndOf(m.lParam)))
#define ON_WM_CANCELMODE() AFX_MESSAGE_ROW(WM_CANCELMODE, void(), &ThisClass::OnCancelMode, ())

// Timer, menus and child windows
#define ON_WM_TIMER() AFX_MESSAGE_ROW(WM_TIMER, void(UINT_PTR), &ThisClass::OnTimer, (static_cast<UINT_PTR>(m.wParam)))
#define ON_WM_INITMENU() AFX_MESSAGE_ROW(WM_INITMENU, void(CMenu*), &ThisClass::OnInitMenu, (AfxMenuOf(m.wParam)))
#define ON_WM_INITMENUPOPUP()                                                                                          \
    AFX_MESSAGE_ROW(WM_INITMENUPOPUP, void(CMenu*, UINT, BOOL), &ThisClass::OnInitMenuPopup,                           \
                    (AfxMenuOf(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam) != 0))
#define ON_WM_MENUSELECT()                                                                                             \
    AFX_MESSAGE_ROW(WM_MENUSELECT, void(UINT, UINT, HMENU), &ThisClass::OnMenuSelect,                                  \
                    (LOWORD(m.wParam), HIWORD(m.wParam), reinterpret_cast<HMENU>(m.lParam)))
#define ON_WM_ENTERIDLE()                                                                                              \
    AFX_MESSAGE_ROW(WM_ENTERIDLE, void(UINT, CWnd*), &ThisClass::OnEnterIdle,                                          \
                    (static_cast<UINT>(m.wParam), AfxWndOf(m.lParam)))
#define ON_WM_PARENTNOTIFY()                                                                                           \
    AFX_MESSAGE_ROW(WM_PARENTNOTIFY, void(UINT, LPARAM), &ThisClass::OnParentNotify,                                   \
                    (static_cast<UINT>(m.wParam), m.lParam))

// A wheel handler that answers FALSE leaves the message to the window's default.
#define ON_WM_MOUSEWHEEL()                                                                                             \
    AFX_ROW(WM_MOUSEWHEEL, 0, 0, 0, nullptr, BOOL(UINT, short, CPoint), &ThisClass::OnMouseWheel,                      \
            (LOWORD(m.wParam), static_cast<short>(HIWORD(m.wParam)), AfxPointOf(m.lParam)),                            \
            AfxCallMessage(m, handler) && m.result != 0)
