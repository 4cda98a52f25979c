// Searching the message maps and routing commands; the state of a command's menu item.
#include "afximpl.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP* PASCAL CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY messageEntries[] = {{0, 0, 0, 0, nullptr, nullptr}};
    static const AFX_MSGMAP messageMap = {nullptr, messageEntries};
    return &messageMap;
}

namespace {

// The first row that `fits`, from the most derived class up.
template <class Fits>
const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* pMap, Fits fits)
{
    for (; pMap; pMap = pMap->pfnGetBaseMap ? pMap->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = pMap->lpEntries; entry->dispatch; ++entry) {
            if (fits(*entry)) {
                return entry;
            }
        }
    }
    return nullptr;
}

constexpr UINT kFirstRegisteredMessage = 0xC000;

// Asks only whether a command is enabled.
class TestCmdUI : public CCmdUI
{
public:
    BOOL m_bEnabled = TRUE;

    void Enable(BOOL bOn) override
    {
        m_bEnabled = bOn;
        m_bEnableChanged = TRUE;
    }
    void SetCheck(int) override {}
    void SetRadio(BOOL) override {}
    void SetText(LPCTSTR) override {}
};

} // namespace

const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP* pMap, UINT message)
{
    if (message >= kFirstRegisteredMessage) {
        return FindEntry(pMap, [message](const AFX_MSGMAP_ENTRY& entry) {
            return entry.pRegistered && *entry.pRegistered == message;
        });
    }
    return FindEntry(pMap, [message](const AFX_MSGMAP_ENTRY& entry) {
        return entry.nMessage == message && entry.nCode == 0 && entry.nID == 0;
    });
}

const AFX_MSGMAP_ENTRY* AfxFindCommandEntry(const AFX_MSGMAP* pMap, UINT message, UINT nCode, UINT nID)
{
    return FindEntry(pMap, [=](const AFX_MSGMAP_ENTRY& entry) {
        return entry.nMessage == message && entry.nCode == nCode && nID >= entry.nID && nID <= entry.nLastID;
    });
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    const bool update = static_cast<UINT>(nCode) == CN_UPDATE_COMMAND_UI;
    UINT message = update ? 0 : HIWORD(nCode);
    if (message == 0) {
        message = WM_COMMAND;
    }
    const AFX_MSGMAP_ENTRY* entry = AfxFindCommandEntry(GetMessageMap(), message, LOWORD(nCode), nID);
    if (!entry) {
        return FALSE;
    }
    if (pHandlerInfo) {
        pHandlerInfo->pTarget = this;
        pHandlerInfo->dispatch = entry->dispatch;
        return TRUE;
    }
    AFX_MSG_ARGS arguments;
    arguments.message = message;
    arguments.nID = nID;
    if (message == WM_NOTIFY || message == WM_NOTIFY + WM_REFLECT_BASE) {
        const AFX_NOTIFY* notify = static_cast<const AFX_NOTIFY*>(pExtra);
        arguments.pNMHDR = notify->pNMHDR;
        arguments.pResult = notify->pResult;
    } else if (entry->nCode == static_cast<WORD>(CN_UPDATE_COMMAND_UI)) {
        if (!update) {
            return FALSE; // a control's code that happens to be the same number
        }
        arguments.pCmdUI = static_cast<CCmdUI*>(pExtra);
    }
    return entry->dispatch(this, arguments);
}

BOOL AfxUpdateTaken(CCmdUI* pCmdUI)
{
    const BOOL taken = !pCmdUI->m_bContinueRouting;
    pCmdUI->m_bContinueRouting = FALSE;
    return taken;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT nID = LOWORD(wParam);
    const HWND hWndControl = reinterpret_cast<HWND>(lParam);
    int nCode = HIWORD(wParam);
    if (hWndControl) {
        if (ReflectLastMsg(hWndControl)) {
            return TRUE;
        }
        if (nID == 0) {
            return FALSE;
        }
    } else {
        if (nID == 0) {
            return FALSE;
        }
        // The command may have become disabled since its menu was shown.
        TestCmdUI test;
        test.m_nID = nID;
        OnCmdMsg(nID, static_cast<int>(CN_UPDATE_COMMAND_UI), &test, nullptr);
        if (!test.m_bEnabled) {
            return TRUE;
        }
        nCode = CN_COMMAND;
    }
    return OnCmdMsg(nID, nCode, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult)
{
    NMHDR* pNMHDR = reinterpret_cast<NMHDR*>(lParam);
    // The identifier is the sending window's own, not the message's parameter.
    const UINT nID = static_cast<UINT>(::GetDlgCtrlID(pNMHDR->hwndFrom));
    const UINT nCode = pNMHDR->code;
    if (ReflectLastMsg(pNMHDR->hwndFrom, pResult)) {
        return TRUE;
    }
    AFX_NOTIFY notify = {pResult, pNMHDR};
    return OnCmdMsg(nID, MAKELONG(nCode, WM_NOTIFY), &notify, nullptr);
}

BOOL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    CWnd* pWnd = FromHandlePermanent(hWndChild);
    return pWnd && pWnd->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult)
{
    const MSG msg = AfxState().current.msg;
    return OnChildNotify(msg.message, msg.wParam, msg.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT unused = 0;
    LRESULT& result = pResult ? *pResult : unused;
    switch (message) {
    case WM_COMMAND:
        if (OnCmdMsg(0, MAKELONG(HIWORD(wParam), WM_COMMAND + WM_REFLECT_BASE), nullptr, nullptr)) {
            result = 1;
            return TRUE;
        }
        return FALSE;
    case WM_NOTIFY: {
        NMHDR* pNMHDR = reinterpret_cast<NMHDR*>(lParam);
        const UINT nCode = pNMHDR->code;
        AFX_NOTIFY notify = {&result, pNMHDR};
        return OnCmdMsg(0, MAKELONG(nCode, WM_NOTIFY + WM_REFLECT_BASE), &notify, nullptr);
    }
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_DELETEITEM:
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_PARENTNOTIFY:
        return CWnd::OnWndMsg(message + WM_REFLECT_BASE, wParam, lParam, &result);
    default:
        if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) {
            // No brush: the parent decides.
            return CWnd::OnWndMsg(message + WM_REFLECT_BASE, wParam, lParam, &result) && result != 0;
        }
        return FALSE;
    }
}

void CCmdUI::Enable(BOOL bOn)
{
    m_bEnableChanged = TRUE;
    if (m_pMenu) {
        if (!m_pSubMenu) {
            m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_DISABLED | MF_GRAYED));
        }
    } else if (m_pOther) {
        m_pOther->EnableWindow(bOn);
    }
}

void CCmdUI::SetCheck(int nCheck)
{
    if (m_pMenu) {
        if (!m_pSubMenu) {
            m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (nCheck != 0 ? MF_CHECKED : MF_UNCHECKED));
        }
    } else if (m_pOther && (m_pOther->SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) != 0) {
        m_pOther->SendMessage(BM_SETCHECK, nCheck);
    }
}

void CCmdUI::SetRadio(BOOL bOn)
{
    if (!m_pMenu || !bOn) {
        SetCheck(bOn ? 1 : 0);
    } else if (!m_pSubMenu) {
        m_pMenu->CheckMenuRadioItem(m_nIndex, m_nIndex, m_nIndex, MF_BYPOSITION);
    }
}

void CCmdUI::SetText(LPCTSTR lpszText)
{
    if (m_pMenu) {
        if (!m_pSubMenu) {
            const UINT state =
                m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION) & ~(MF_BITMAP | MF_OWNERDRAW | MF_SEPARATOR);
            m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | state, m_nID, lpszText);
        }
    } else if (m_pOther) {
        m_pOther->SetWindowText(lpszText);
    }
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    if (m_nID == 0 || LOWORD(m_nID) == 0xFFFF) {
        return TRUE; // a separator or a static text
    }
    m_bEnableChanged = FALSE;
    const BOOL handled = pTarget->OnCmdMsg(m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), this, nullptr);
    if (bDisableIfNoHndler && !m_bEnableChanged) {
        AFX_CMDHANDLERINFO info = {nullptr, nullptr};
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return handled;
}
