// Message maps: the tables that join window messages, commands and notifications to member functions.
//
// A map is a function-local table of rows. Each row carries a small dispatch function made by its macro, which checks
// the handler's signature against the documented one, unpacks the message's parameters and calls the handler. Nothing
// in a table is the address of imported data, so a host's class may derive from a class of the library's DLL.
#pragma once

#include <type_traits>

class CCmdTarget;
class CCmdUI;
class CWnd;

#ifndef afx_msg
#define afx_msg // marks a member function as a handler for the reader
#endif
#ifndef AFX_MSG_CALL
#define AFX_MSG_CALL
#endif

// What a row's handler is called with. Which fields are filled depends on the row: messages use message, wParam and
// lParam and store their answer in result; commands and notifications use nID and the pointers.
struct AFX_MSG_ARGS
{
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT result = 0;
    UINT nID = 0;               // command or child identifier
    NMHDR* pNMHDR = nullptr;    // WM_NOTIFY
    LRESULT* pResult = nullptr; // WM_NOTIFY: where the handler stores its answer
    CCmdUI* pCmdUI = nullptr;   // CN_UPDATE_COMMAND_UI
};

// Returns FALSE when the handler declines, so that routing goes on.
typedef BOOL (*AFX_MSG_DISPATCH)(CCmdTarget* pTarget, AFX_MSG_ARGS& m);

struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;           // window message, WM_COMMAND, WM_NOTIFY, or a reflected one (+ WM_REFLECT_BASE); 0 ends
    UINT nCode;              // low word of the control or notification code; 0 for window messages and commands
    UINT nID;                // first command or child identifier
    UINT nLastID;            // last identifier, inclusive
    const UINT* pRegistered; // where a registered message's number is kept, else null
    AFX_MSG_DISPATCH dispatch;
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP*(PASCAL* pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

#define WM_REFLECT_BASE 0xBC00
#define CN_COMMAND 0
#define CN_UPDATE_COMMAND_UI ((UINT)(-1))
#ifndef WM_CTLCOLOR
#define WM_CTLCOLOR 0x0019 // stands for the whole range WM_CTLCOLORMSGBOX .. WM_CTLCOLORSTATIC in a message map
#endif

struct AFX_CMDHANDLERINFO
{
    CCmdTarget* pTarget;
    AFX_MSG_DISPATCH dispatch;
};

template <class Class, class Signature>
using AfxMember = Signature Class::*;

inline LRESULT AfxToResult(const void* handle)
{
    return reinterpret_cast<LRESULT>(handle);
}
inline LRESULT AfxToResult(LRESULT value)
{
    return value;
}

// Calls a message handler; a result goes to m.result.
template <class Call>
BOOL AfxCallMessage(AFX_MSG_ARGS& m, Call call)
{
    if constexpr (std::is_void_v<decltype(call())>) {
        call();
        m.result = 0;
    } else if constexpr (std::is_pointer_v<decltype(call())>) {
        m.result = AfxToResult(call());
    } else {
        m.result = static_cast<LRESULT>(call());
    }
    return TRUE;
}

// Calls a command or notification handler; a result says whether the handler took it.
template <class Call>
BOOL AfxCallCommand(Call call)
{
    if constexpr (std::is_void_v<decltype(call())>) {
        call();
        return TRUE;
    } else {
        return call();
    }
}

// Whether the handler of ON_UPDATE_COMMAND_UI, just called, ended the routing (it did not call ContinueRouting).
BOOL AfxUpdateTaken(CCmdUI* pCmdUI);

inline CPoint AfxPointOf(LPARAM lParam)
{
    return CPoint(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
}

#define DECLARE_MESSAGE_MAP()                                                                                          \
protected:                                                                                                             \
    static const AFX_MSGMAP* PASCAL GetThisMessageMap();                                                               \
    virtual const AFX_MSGMAP* GetMessageMap() const;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                                         \
    const AFX_MSGMAP* theClass::GetMessageMap() const                                                                  \
    {                                                                                                                  \
        return GetThisMessageMap();                                                                                    \
    }                                                                                                                  \
    const AFX_MSGMAP* PASCAL theClass::GetThisMessageMap()                                                             \
    {                                                                                                                  \
        using ThisClass [[maybe_unused]] = theClass;                                                                   \
        typedef baseClass TheBaseClass;                                                                                \
        static const AFX_MSGMAP_ENTRY messageEntries[] = {

#define END_MESSAGE_MAP()                                                                                              \
    {                                                                                                                  \
        0, 0, 0, 0, nullptr, nullptr                                                                                   \
    }                                                                                                                  \
    }                                                                                                                  \
    ;                                                                                                                  \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, messageEntries};                           \
    return &messageMap;                                                                                                \
    }

// A row of the map; `returned` says what the row answers once `handler` has been called.
#define AFX_ROW(message, code, id, lastId, registered, signature, memberFxn, arguments, returned)                      \
    {message,                                                                                                          \
     static_cast<WORD>(code),                                                                                          \
     static_cast<UINT>(id),                                                                                            \
     static_cast<UINT>(lastId),                                                                                        \
     registered,                                                                                                       \
     [](CCmdTarget* pTarget, AFX_MSG_ARGS& m) -> BOOL {                                                                \
         AfxMember<ThisClass, signature> pmf = memberFxn;                                                              \
         ThisClass* pThis = static_cast<ThisClass*>(pTarget);                                                          \
         auto handler = [&] { return (pThis->*pmf) arguments; };                                                       \
         return returned;                                                                                              \
     }},
#define AFX_MESSAGE_ROW(message, signature, memberFxn, arguments)                                                      \
    AFX_ROW(message, 0, 0, 0, nullptr, signature, memberFxn, arguments, AfxCallMessage(m, handler))
#define AFX_COMMAND_ROW(message, code, id, lastId, signature, memberFxn, arguments)                                    \
    AFX_ROW(message, code, id, lastId, nullptr, signature, memberFxn, arguments, AfxCallCommand(handler))

// Messages by number
#define ON_MESSAGE(message, memberFxn)                                                                                 \
    AFX_MESSAGE_ROW(message, LRESULT(WPARAM, LPARAM), memberFxn, (m.wParam, m.lParam))
#define ON_MESSAGE_VOID(message, memberFxn) AFX_MESSAGE_ROW(message, void(), memberFxn, ())
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                                                             \
    AFX_ROW(0xC000, 0, 0, 0, &nMessageVariable, LRESULT(WPARAM, LPARAM), memberFxn, (m.wParam, m.lParam),              \
            AfxCallMessage(m, handler))

// Commands
#define ON_COMMAND(id, memberFxn) AFX_COMMAND_ROW(WM_COMMAND, CN_COMMAND, id, id, void(), memberFxn, ())
#define ON_COMMAND_EX(id, memberFxn) AFX_COMMAND_ROW(WM_COMMAND, CN_COMMAND, id, id, BOOL(UINT), memberFxn, (m.nID))
#define ON_COMMAND_RANGE(id, idLast, memberFxn)                                                                        \
    AFX_COMMAND_ROW(WM_COMMAND, CN_COMMAND, id, idLast, void(UINT), memberFxn, (m.nID))
#define ON_COMMAND_EX_RANGE(id, idLast, memberFxn)                                                                     \
    AFX_COMMAND_ROW(WM_COMMAND, CN_COMMAND, id, idLast, BOOL(UINT), memberFxn, (m.nID))
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn)                                                              \
    AFX_ROW(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, idLast, nullptr, void(CCmdUI*), memberFxn, (m.pCmdUI),               \
            (handler(), AfxUpdateTaken(m.pCmdUI)))
#define ON_UPDATE_COMMAND_UI(id, memberFxn) ON_UPDATE_COMMAND_UI_RANGE(id, id, memberFxn)

// Notifications of child controls: WM_COMMAND with a code, and WM_NOTIFY
#define ON_CONTROL(wNotifyCode, id, memberFxn) AFX_COMMAND_ROW(WM_COMMAND, wNotifyCode, id, id, void(), memberFxn, ())
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn)                                                           \
    AFX_COMMAND_ROW(WM_COMMAND, wNotifyCode, id, idLast, void(UINT), memberFxn, (m.nID))
#define ON_NOTIFY(wNotifyCode, id, memberFxn)                                                                          \
    AFX_COMMAND_ROW(WM_NOTIFY, wNotifyCode, id, id, void(NMHDR*, LRESULT*), memberFxn, (m.pNMHDR, m.pResult))
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn)                                                            \
    AFX_COMMAND_ROW(WM_NOTIFY, wNotifyCode, id, idLast, void(UINT, NMHDR*, LRESULT*), memberFxn,                       \
                    (m.nID, m.pNMHDR, m.pResult))
#define ON_NOTIFY_EX_RANGE(wNotifyCode, id, idLast, memberFxn)                                                         \
    AFX_COMMAND_ROW(WM_NOTIFY, wNotifyCode, id, idLast, BOOL(UINT, NMHDR*, LRESULT*), memberFxn,                       \
                    (m.nID, m.pNMHDR, m.pResult))
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn) ON_NOTIFY_EX_RANGE(wNotifyCode, id, id, memberFxn)

// Notifications that the parent hands back to the control that sent them
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                                                     \
    AFX_COMMAND_ROW(WM_COMMAND + WM_REFLECT_BASE, wNotifyCode, 0, 0, void(), memberFxn, ())
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn)                                                                  \
    AFX_COMMAND_ROW(WM_COMMAND + WM_REFLECT_BASE, wNotifyCode, 0, 0, BOOL(), memberFxn, ())
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn)                                                                      \
    AFX_COMMAND_ROW(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, void(NMHDR*, LRESULT*), memberFxn,                 \
                    (m.pNMHDR, m.pResult))
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn)                                                                   \
    AFX_COMMAND_ROW(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, BOOL(NMHDR*, LRESULT*), memberFxn,                 \
                    (m.pNMHDR, m.pResult))
#define ON_WM_CTLCOLOR_REFLECT()                                                                                       \
    AFX_MESSAGE_ROW(WM_CTLCOLOR + WM_REFLECT_BASE, HBRUSH(CDC*, UINT), &ThisClass::CtlColor,                           \
                    (AfxTempDC(m.wParam), m.message - WM_CTLCOLORMSGBOX))
#define ON_WM_HSCROLL_REFLECT()                                                                                        \
    AFX_MESSAGE_ROW(WM_HSCROLL + WM_REFLECT_BASE, void(UINT, UINT), &ThisClass::HScroll,                               \
                    (LOWORD(m.wParam), HIWORD(m.wParam)))
#define ON_WM_VSCROLL_REFLECT()                                                                                        \
    AFX_MESSAGE_ROW(WM_VSCROLL + WM_REFLECT_BASE, void(UINT, UINT), &ThisClass::VScroll,                               \
                    (LOWORD(m.wParam), HIWORD(m.wParam)))
#define ON_WM_DRAWITEM_REFLECT()                                                                                       \
    AFX_MESSAGE_ROW(WM_DRAWITEM + WM_REFLECT_BASE, void(LPDRAWITEMSTRUCT), &ThisClass::DrawItem,                       \
                    (reinterpret_cast<LPDRAWITEMSTRUCT>(m.lParam)))

// Codes of the system's controls
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
